#include "zemva/model/execution/predictions.h"

#include <cmath>
#include <utility>

#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/block/stage.h"

namespace zemva {
namespace {

XFMatrix MakeMatrix(const char* name, int row_count, int column_count) {
  XFMatrix matrix(name, row_count, column_count, kMissing);
  Whole(matrix);
  return matrix;
}

WholeVector MakeSums(const char* name, int length) {
  return {name, length, kMissing};
}

bool IsOfPredset(EExecuted executed) {
  return executed == EExecuted::kPredset;
}

struct Sum {
  int count = 0;
  double squares = 0.0;
};

// sqrt(squares / df), missing where there is no degree of freedom.
float Deviation(double squares, int df) {
  return df > 0 ? static_cast<float>(std::sqrt(squares / df)) : kMissing;
}

}  // namespace

PredictionErrors::PredictionErrors(int response_count)
    : rss(MakeSums("RSS", response_count)),
      press(MakeSums("PRESS", response_count)),
      sd_adj_ls(MakeSums("SDadjLS", response_count)),
      sd_ts(MakeSums("SDTS", response_count)),
      np_ws(MakeSums("NPWS", response_count)),
      np_ts(MakeSums("NPTS", response_count)) {}

void PredictionErrors::Set(int response, std::span<const float> of_rows,
                           std::span<const char> is_member, int lost) {
  Sum members;
  Sum others;
  for (std::size_t i = 0; i < of_rows.size(); ++i) {
    if (IsMissing(of_rows[i])) continue;
    Sum& sum = is_member[i] != 0 ? members : others;
    ++sum.count;
    sum.squares += static_cast<double>(of_rows[i]) * static_cast<double>(of_rows[i]);
  }
  np_ws[response] = static_cast<float>(members.count);
  np_ts[response] = static_cast<float>(others.count);
  if (members.count > 0) rss[response] = static_cast<float>(members.squares);
  if (others.count > 0) press[response] = static_cast<float>(others.squares);
  sd_adj_ls[response] = Deviation(members.squares, members.count - lost);
  sd_ts[response] = Deviation(others.squares, others.count);
}

Results::Results(EExecuted executed, int component_count, int row_count)
    : name(IsOfPredset(executed) ? "PSResiduals" : "LSResiduals"),
      x(IsOfPredset(executed) ? "DModXPS" : "DModX", IsOfPredset(executed) ? "PModXPS" : "PModX",
        component_count, row_count) {}

PCResults::PCResults(EExecuted executed, int component_count, int row_count)
    : Results(executed, component_count, row_count) {}

PLSResults::PLSResults(EExecuted executed, int component_count, int row_count, int response_count)
    : Results(executed, component_count, row_count) {
  y.emplace(IsOfPredset(executed) ? "DModYPS" : "DModY",
            IsOfPredset(executed) ? "PModYPS" : "PModY", component_count, row_count);
  errors.emplace(response_count);
}

std::shared_ptr<Results> MakeResults(EExecuted executed, int component_count, int row_count,
                                     int response_count) {
  if (response_count == 0) {
    return std::make_shared<PCResults>(executed, component_count, row_count);
  }
  return std::make_shared<PLSResults>(executed, component_count, row_count, response_count);
}

ResponsePredictions::ResponsePredictions(int row_count, int response_count)
    : values(MakeMatrix("Y", row_count, response_count)),
      observed(MakeMatrix("YPS", row_count, response_count)),
      predicted(MakeMatrix("YPredPS", row_count, response_count)),
      lower(MakeMatrix("SerrLPS", row_count, response_count)),
      upper(MakeMatrix("SerrUPS", row_count, response_count)) {}

Predictions::Predictions(int component_count, int column_count, int response_count)
    : values("X", 0, column_count, kMissing),
      residuals("PSResiduals", 0, column_count, kMissing),
      results(MakeResults(EExecuted::kPredset, component_count, 0, response_count)) {
  if (response_count > 0) y.emplace(0, response_count);
}

void Predictions::SetRows(std::unique_ptr<ObsInfo> rows, std::vector<short> row_positions,
                          std::vector<char> membership) {
  const auto row_count = static_cast<int>(row_positions.size());
  const int component_count = results->x.component_count;
  const int response_count = y ? y->values.NCol() : 0;
  observations = std::move(rows);
  positions = std::move(row_positions);
  is_member = std::move(membership);
  scores.clear();
  for (int c = 1; c <= component_count; ++c) scores.push_back(MakeVector("tPS", c, row_count));
  Whole(values = MakeMatrix("X", row_count, residuals.NCol()));
  Whole(residuals = MakeMatrix("PSResiduals", row_count, residuals.NCol()));
  results = MakeResults(EExecuted::kPredset, component_count, row_count, response_count);
  if (y) y.emplace(row_count, response_count);
}

}  // namespace zemva
