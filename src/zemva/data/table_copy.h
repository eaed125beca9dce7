// A copy of a table that may have no rows.
#ifndef ZEMVA_DATA_TABLE_COPY_H
#define ZEMVA_DATA_TABLE_COPY_H

#include <memory>

#include "zemva/errors/memory_guard.h"

namespace zemva {

// Null of a table without rows. Throws std::bad_alloc.
template <typename Table>
std::shared_ptr<Table> CopyRows(const Table& table) {
  if (table.GetNItm() == 0) return nullptr;
  auto copy = std::make_shared<Table>(table);
  Whole(*copy);
  return copy;
}

}  // namespace zemva

#endif  // ZEMVA_DATA_TABLE_COPY_H
