// The table of the variables of a data set: a row for each column of its matrix.
#ifndef ZEMVA_DATA_VAR_INFO_H
#define ZEMVA_DATA_VAR_INFO_H

#include <memory>

#include "zemva/base/export.h"
#include "zemva/data/itm_info.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

// Its number and name are those of the variable.
class ZEMVA_API VarData : public ItmData {
 public:
  using ItmData::ItmData;
  std::unique_ptr<ItmData> Clone() const override { return std::make_unique<VarData>(*this); }
};

class ZEMVA_API VarInfo : public ItmInfo {
 public:
  // An empty table.
  explicit VarInfo(const char* name) : ItmInfo(name) {}
  // A copy of `*other`; an empty table without a name, its status 8022, when it is null.
  explicit VarInfo(const VarInfo* other);

  // Appends a variable. 8002 when the row cannot be created, 7002 when the table is full.
  int AddVar(short vnum, const char* name) { return MakeItm<VarData>(vnum, name); }
  // Deletes the variable at a position; 8021 for a bad one.
  int DelVar(short i);

  // The number of variables.
  short GetNVar() const { return GetNItm(); }
  // The position of the first variable with this number or exactly this name, 0 if there is none.
  short GetVIx(short vnum) const { return GetIx(vnum); }
  short GetVIx(const char* name) const { return GetIx(name); }

  // 0 and null for a bad position. The name points into the table.
  short GetVNum(short i) const { return GetINum(i); }
  const char* GetVNam(short i) const { return GetINam(i); }
  // 7002 for a bad position.
  int SetVNum(short i, short vnum) { return SetINum(i, vnum); }
  int SetVNam(short i, const char* name) { return SetINam(i, name); }

  // Number and name, which points into the table. 8021, with 0 and null, for a bad position.
  int GetVar(short i, short& vnum, char*& name);

  // List all variables, or the one at i: position, number and name. They return 0.
  int ShowAll(StreamWindow& window) override;
  int ShowVar(short i, StreamWindow& window);

 private:
  void ShowRow(short i, StreamWindow& window) const;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_VAR_INFO_H
