#include "zemva/model/driver/comp_info.h"

namespace zemva {

CompInfo::CompInfo(int a, int row_count, int column_count)
    : x('X', a, row_count, column_count),
      q2v(MakeVector("Q2V", a, column_count)),
      q2v_cum(MakeVector("Q2V(cum)", a, column_count)),
      leverages(MakeVector("OLevX", a, row_count)),
      weighted_s2o(MakeVector("S2WOX", a, row_count)),
      t(MakeVector("t", a, row_count)),
      p(MakeVector("p", a, column_count)) {}

}  // namespace zemva
