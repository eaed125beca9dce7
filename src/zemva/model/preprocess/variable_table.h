// What the tables of preprocessing settings share.
#ifndef ZEMVA_MODEL_PREPROCESS_VARIABLE_TABLE_H
#define ZEMVA_MODEL_PREPROCESS_VARIABLE_TABLE_H

#include <algorithm>
#include <memory>
#include <new>

#include "zemva/data/itm_info.h"
#include "zemva/data/itm_listing.h"
#include "zemva/data/selection.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

// A table with a row of class Row for each of some variables; number and name of a row are those of
// its variable. A variable has one row at most.
template <typename Row>
class VariableTable : public ItmInfo {
 public:
  // Appends a copy of the row. 8002 when it cannot be made, 7002 when the table is full.
  int AddItm(const Row& row) { return MakeItm<Row>(row); }
  // Deletes the row at a position; 7002 for a bad one.
  int DelItm(short i) { return ItmInfo::DelItm(i); }
  // Overwrites the row of the same variable. 8015 when the variable has none.
  int Update(const Row& row) {
    const short i = FindVar(row.GetINum());
    if (i == 0) return SetStatus(status::mva::kVariableNotAvailable);
    *static_cast<Row*>(ItmInfo::GetItm(i)) = row;
    return Changed(status::kOk);
  }

  // The row at a position, the table's own; null for a bad one.
  const Row* GetItm(short i) const { return static_cast<const Row*>(ItmInfo::GetItm(i)); }
  // The position of the row of a variable, 0 if it has none. Look-ups come in the order of the
  // rows: the search starts at the row found last and, where numbers do not ascend, goes round.
  short FindVar(short vnum) const {
    const auto matches = [&](const ItmData& row) { return row.GetINum() == vnum; };
    short found = FindItm(cursor_, std::min<int>(cursor_ + 1, GetNItm()), matches);
    if (found == 0) {
      if (const auto only = FindAscending(vnum)) {
        found = *only;
      } else {
        found = FindItm(cursor_, GetNItm(), matches);
        if (found == 0) found = FindItm(1, std::min<int>(cursor_ - 1, GetNItm()), matches);
      }
    }
    if (found != 0) cursor_ = found;
    return found;
  }

  int ShowAll(StreamWindow& window) override {
    ListTitle(window, GetNam(), GetNItm());
    Listing(window).Text(Header()).EndLine();
    for (int i = 1; i <= GetNItm(); ++i) ShowRowAt(static_cast<short>(i), window);
    return status::kOk;
  }
  int ShowItm(short i, StreamWindow& window) override {
    ListItemTitle(window, GetNam(), i);
    Listing(window).Text(Header()).EndLine();
    ShowRowAt(i, window);
    return status::kOk;
  }

 protected:
  explicit VariableTable(const char* name) : ItmInfo(name) {}

  // A new table `name`, the caller's, with copies of the rows whose byte in `sel` is 1. Null when
  // `sel` is null or memory runs out.
  template <typename Table>
  Table* Extract(const char* name, const XI1Vector* sel) const {
    if (sel == nullptr) return nullptr;
    std::unique_ptr<Table> extract(new (std::nothrow) Table(name));
    for (int i = 1; extract != nullptr && i <= std::min<int>(GetNItm(), sel->NVal()); ++i) {
      if ((*sel)[i] != kSelected) continue;
      if (extract->AddItm(*GetItm(static_cast<short>(i))) != status::kOk) return nullptr;
    }
    return extract.release();  // the caller's
  }

 private:
  virtual const char* Header() const = 0;
  virtual void ShowRow(short i, const Row& row, StreamWindow& window) const = 0;

  void ShowRowAt(short i, StreamWindow& window) const {
    if (GetItm(i) != nullptr) ShowRow(i, *GetItm(i), window);
  }

  mutable int cursor_ = 1;  // where FindVar found the last one, and starts
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PREPROCESS_VARIABLE_TABLE_H
