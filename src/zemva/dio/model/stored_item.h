// What the tables of the items of models and work sets are made of.
#ifndef ZEMVA_DIO_MODEL_STORED_ITEM_H
#define ZEMVA_DIO_MODEL_STORED_ITEM_H

#include <algorithm>
#include <new>
#include <span>
#include <string_view>
#include <vector>

#include "zemva/dio/file/item_names.h"
#include "zemva/dio/file/payload.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/d_matrix.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

// A row of a table: an item, and what it keeps of a record.
template <class Record>
struct StoredItem {
  ItemName name;
  const char* tag;
  // Whether a record has the item: it is written where it has, and what was read must have those
  // items that were in the file and no other.
  bool (*is_there)(const Record& record);
  void (*write)(const Record& record, PayloadWriter& payload);
  void (*read)(Record& record, PayloadReader& payload);
  Overflow overflow = Overflow::kRefused;
};

// The number of a name, which may be put together of two parts, for constants: another one does not
// compile.
constexpr ItemName NameOf(std::string_view stem, std::string_view suffix = "") {
  for (const SymbolCell& row : kItemNames) {
    const std::string_view name = row.name;
    if (name.size() == stem.size() + suffix.size() && name.starts_with(stem) &&
        name.ends_with(suffix)) {
      return row.value;
    }
  }
  throw "no such item name";
}

template <class Record>
bool IsAlwaysThere(const Record& /*record*/) {
  return true;
}

// --- Rows. `Access` is a type of functions that give a part of a record, or of a constant one ---

// A number, or an enumeration, from `Least` to `Most`.
template <int Least, int Most, class Record, class Access>
constexpr StoredItem<Record> NumberItem(ItemName name, Access /*access*/,
                                        bool (*is_there)(const Record&) = IsAlwaysThere<Record>) {
  return {name, "i2", is_there,
          [](const Record& record, PayloadWriter& payload) {
            payload.Add(static_cast<short>(Access{}(record)));
          },
          [](Record& record, PayloadReader& payload) {
            const auto value = payload.Take<short>();
            if (value < Least || value > Most) return payload.Fail();
            auto& field = Access{}(record);
            field = static_cast<std::remove_reference_t<decltype(field)>>(value);
          }};
}

template <class Record, class Access>
constexpr StoredItem<Record> FloatItem(ItemName name, Access /*access*/,
                                       bool (*is_there)(const Record&) = IsAlwaysThere<Record>) {
  return {name, "f4", is_there,
          [](const Record& record, PayloadWriter& payload) { payload.Add(Access{}(record)); },
          [](Record& record, PayloadReader& payload) { Access{}(record) = payload.Take<float>(); }};
}

template <class Record, class Access>
constexpr StoredItem<Record> TextItem(ItemName name, const char* tag, Access /*access*/) {
  return {name, tag, IsAlwaysThere<Record>,
          [](const Record& record, PayloadWriter& payload) {
            payload.AddText(Access{}(record).View());
          },
          [](Record& record, PayloadReader& payload) { Access{}(record).Set(payload.TakeText()); }};
}

// A vector keeps its name, a matrix takes the one in the payload, which a matrix of doubles has
// not. They throw std::bad_alloc.
void AddVector(const XFVector& vector, PayloadWriter& payload);
void TakeVector(PayloadReader& payload, XFVector& vector);
void AddMatrix(const XFMatrix& matrix, PayloadWriter& payload);
XFMatrix TakeMatrix(PayloadReader& payload);
void AddDoubles(const DMatrix& matrix, PayloadWriter& payload);
DMatrix TakeDoubles(PayloadReader& payload);

// A list of bytes.
template <class Record, class Access>
constexpr StoredItem<Record> BytesItem(ItemName name, Access /*access*/,
                                       bool (*is_there)(const Record&) = IsAlwaysThere<Record>) {
  return {name, "iv1", is_there,
          [](const Record& record, PayloadWriter& payload) {
            payload.AddExtent(static_cast<int>(Access{}(record).size()));
            payload.Add(std::span<const char>(Access{}(record)));
          },
          [](Record& record, PayloadReader& payload) {
            const int count = payload.GetExtent(0);
            if (!payload.Has<char>(count)) return;
            Access{}(record).resize(static_cast<std::size_t>(count));
            payload.Take(std::span<char>(Access{}(record)));
          }};
}

// A vector without elements is not there.
template <class Record, class Access>
constexpr StoredItem<Record> VectorItem(ItemName name, Access /*access*/) {
  return {
      name, "fv4", [](const Record& record) { return Access{}(record).NVal() > 0; },
      [](const Record& record, PayloadWriter& payload) { AddVector(Access{}(record), payload); },
      [](Record& record, PayloadReader& payload) { TakeVector(payload, Access{}(record)); }};
}

}  // namespace zemva

#endif  // ZEMVA_DIO_MODEL_STORED_ITEM_H
