#include "zemva/model/block/cent_info.h"

#include <cstddef>

namespace zemva {

CentInfo::CentInfo(char letter, int row_count, int column_count)
    : loaded_average(MakeVector("Avg", letter, -1, column_count)),
      average(MakeVector("Avg", letter, 0, column_count)),
      reference(MakeVector("Ref", letter, 0, column_count)),
      weights(MakeVector("Weig", 0, column_count)),
      smallest(MakeVector("Min", letter, -1, column_count)),
      largest(MakeVector("Max", letter, -1, column_count)),
      row_counts(static_cast<std::size_t>(row_count)),
      column_counts(static_cast<std::size_t>(column_count)),
      loaded(letter, -1, row_count, column_count),
      centred(letter, 0, row_count, column_count) {}

}  // namespace zemva
