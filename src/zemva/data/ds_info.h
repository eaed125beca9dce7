// The table of the data sets of a project.
#ifndef ZEMVA_DATA_DS_INFO_H
#define ZEMVA_DATA_DS_INFO_H

#include <memory>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/data/itm_info.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

class Dataset;

// A data set's number, name, address (the path of its file) and the data set itself, which the row
// does not own; null while there is none.
class ZEMVA_API DSData : public ItmData {
 public:
  DSData(short number, const char* name, const char* address, Dataset* dataset)
      : ItmData(number, name), address_(address), dataset_(dataset) {}
  std::unique_ptr<ItmData> Clone() const override { return std::make_unique<DSData>(*this); }

  // At most 260 characters; the text points into the row.
  const char* GetAddr() const { return address_.Get(); }
  void SetAddr(const char* address) { address_.Set(address); }
  // Not owned; null while there is none.
  Dataset* GetDS() const { return dataset_; }
  void SetDS(Dataset* dataset) { dataset_ = dataset; }

 private:
  FixedText<260> address_;
  Dataset* dataset_;
};

class ZEMVA_API DSInfo : public ItmInfo {
 public:
  // An empty table.
  explicit DSInfo(const char* name) : ItmInfo(name) {}

  // Appends a data set. 8013 for an address over 260 characters, which cut would be another file;
  // 8002 when the row cannot be created, 7002 when the table is full.
  int AddDS(short number, const char* name, const char* address, Dataset* dataset);
  // Removes the row at a position; 7002 for a bad one. The data set itself is left alone.
  int DelDS(short i) { return DelItm(i); }

  // The position of the first data set with this number or exactly this name, 0 if there is none.
  short GetDSIx(short number) const { return GetIx(number); }
  short GetDSIx(const char* name) const { return GetIx(name); }

  // 0 and null for a bad position. The texts point into the table.
  short GetDSNum(short i) const { return GetINum(i); }
  const char* GetDSNam(short i) const { return GetINam(i); }
  const char* GetDSAddr(short i) const;
  Dataset* GetDS(short i) const;

  // 7002 for a bad position; SetDSAddr 8013 for an address over 260 characters.
  int SetDSNum(short i, short number) { return SetINum(i, number); }
  int SetDSNam(short i, const char* name) { return SetINam(i, name); }
  int SetDSAddr(short i, const char* address);
  int SetDS(short i, Dataset* dataset);

  // A row: position, number, name and address.
  int ShowAll(StreamWindow& window) override;

 private:
  const DSData* GetRow(short i) const { return static_cast<const DSData*>(GetItm(i)); }
  DSData* GetRow(short i) { return static_cast<DSData*>(GetItm(i)); }
};

}  // namespace zemva

#endif  // ZEMVA_DATA_DS_INFO_H
