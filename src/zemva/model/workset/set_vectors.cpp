#include "zemva/model/workset/set_vectors.h"

#include <algorithm>
#include <cstddef>
#include <new>

#include "zemva/base/positions.h"
#include "zemva/errors/status.h"

namespace zemva {

int SetVectors::GetCount(EVecAxis axis, int /*of*/) const {
  return axis == EVecAxis::kObs ? static_cast<int>(source_.rows.size()) : workset_.GetNVar();
}

VecLabel SetVectors::GetLabel(EVecAxis axis, int /*of*/, int i) const {
  if (axis != EVecAxis::kObs) {
    const auto j = static_cast<short>(i);
    return {workset_.GetVNum(j), workset_.GetVNam(j)};
  }
  const short row = source_.rows[Slot(i)];
  return {source_.observations.GetONum(row), source_.observations.GetONam(row)};
}

int SetVectors::Fill(const VecQuery& query, std::span<float> values) const {
  using enum CEVecType::EVT;
  static constexpr VecFill<SetVectors> kFills[] = {
      {Num, &SetVectors::FillNumbers},     {Time, &SetVectors::FillTimes},
      {Var, &SetVectors::FillVariable},    {VarPS, &SetVectors::FillVariable},
      {Obs, &SetVectors::FillObservation}, {ObsPS, &SetVectors::FillObservation},
  };
  return FillBy<SetVectors>(kFills, *this, query, values);
}

int SetVectors::FillNumbers(const VecQuery&, std::span<float> values) const {
  std::ranges::transform(source_.rows, values.begin(), [&](short row) {
    return static_cast<float>(source_.observations.GetONum(row));
  });
  return status::kOk;
}

int SetVectors::FillTimes(const VecQuery&, std::span<float> values) const {
  std::ranges::copy(source_.rows, values.begin());
  return status::kOk;
}

int SetVectors::MakeColumns(const VecQuery& query, const VarInfo& variables, int first, int last,
                            std::unique_ptr<XFMatrix>& matrix) const {
  const TraInfo none("TraInfo");
  const bool is_transformed = query.units == CEElmType::Transformed;
  const ColumnPlan plan =
      workset_.MakePlan(is_transformed ? workset_.GetTransformations() : none, variables);
  DataSource source = source_;
  source.rows.assign(source_.rows.begin() + first - 1, source_.rows.begin() + last);
  // What is lost on the way is told where the matrix of a model is given out.
  return ExtractColumns(plan, source, GlobalStreamWindow(), matrix);
}

int SetVectors::FillVariable(const VecQuery& query, std::span<float> values) const {
  VarInfo variables("VarInfo");
  const VecLabel label = GetLabel(EVecAxis::kVars, 0, query.of);
  if (variables.AddVar(static_cast<short>(label.number), label.name) != status::kOk) {
    throw std::bad_alloc();
  }
  std::unique_ptr<XFMatrix> matrix;
  const int status = MakeColumns(query, variables, 1, query.length, matrix);
  if (status != status::kOk) return status;
  int i = 0;
  for (float& value : values) value = (*matrix)[++i][1];
  return status::kOk;
}

int SetVectors::FillObservation(const VecQuery& query, std::span<float> values) const {
  VarInfo variables("VarInfo");
  for (const short j : PositionsUpTo(workset_.GetNVar())) {
    if (variables.AddVar(workset_.GetVNum(j), workset_.GetVNam(j)) != status::kOk) {
      throw std::bad_alloc();
    }
  }
  // As far back as the lags look.
  int reach = 0;
  const LagInfo& lags = workset_.GetLags();
  for (const short k : PositionsUpTo(lags.GetNItm())) {
    reach = std::max(reach, int{lags.GetItm(k)->GetLag()});
  }
  std::unique_ptr<XFMatrix> matrix;
  const int status = MakeColumns(query, variables, std::max(query.of - reach, 1), query.of, matrix);
  if (status != status::kOk) return status;
  std::copy_n((*matrix)[matrix->NRow()] + 1, values.size(), values.begin());
  return status::kOk;
}

}  // namespace zemva
