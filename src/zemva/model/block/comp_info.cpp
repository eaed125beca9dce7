#include "zemva/model/block/comp_info.h"

#include "zemva/errors/memory_guard.h"

namespace zemva {
namespace {

std::optional<Stage> StageOfY(int a, int row_count, int response_count) {
  if (response_count == 0) return std::nullopt;
  return Stage('Y', a, row_count, response_count);
}

}  // namespace

CompInfo::CompInfo(int a, int row_count, int column_count, int response_count)
    : x('X', a, row_count, column_count),
      y(StageOfY(a, row_count, response_count)),
      q2v(MakeVector("Q2V", a, y ? response_count : column_count)),
      q2v_cum(MakeVector("Q2V(cum)", a, y ? response_count : column_count)),
      leverages(MakeVector("OLevX", a, row_count)),
      leverages_y(MakeVector("OLevY", a, y ? row_count : 0)),
      weighted_s2o(MakeVector("S2WOX", a, row_count)),
      t(MakeVector("t", a, row_count)),
      p(MakeVector("p", a, column_count)),
      u(MakeVector("u", a, y ? row_count : 0)),
      w(MakeVector("w", a, y ? column_count : 0)),
      c(MakeVector("c", a, response_count)),
      w_star(MakeVector("wStar", a, y ? column_count : 0)),
      vip(MakeVector("VIP", a, y ? column_count : 0)),
      inv_ppw_cp(y ? a : 0, response_count, 0.0) {
  Whole(inv_ppw_cp);
}

}  // namespace zemva
