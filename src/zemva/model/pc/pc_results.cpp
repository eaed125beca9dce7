#include "zemva/model/pc/pc_results.h"

#include <new>
#include <utility>

#include "zemva/errors/status.h"
#include "zemva/model/driver/stage.h"

namespace zemva {

PCPredictions::PCPredictions(int component_count, int column_count)
    : residuals("PSResiduals", 0, column_count, kMissing),
      distance("DModXPS", "PModXPS", component_count, 0) {}

void PCPredictions::SetRows(std::unique_ptr<ObsInfo> rows, std::vector<short> row_positions,
                            std::vector<char> membership) {
  const auto row_count = static_cast<int>(row_positions.size());
  observations = std::move(rows);
  positions = std::move(row_positions);
  is_member = std::move(membership);
  scores.clear();
  for (int c = 1; c <= distance.component_count; ++c) {
    scores.push_back(MakeVector("tPS", c, row_count));
  }
  residuals = XFMatrix("PSResiduals", row_count, residuals.NCol(), kMissing);
  if (residuals.NRow() != row_count) throw std::bad_alloc();
  distance = DistanceResults("DModXPS", "PModXPS", distance.component_count, row_count);
}

}  // namespace zemva
