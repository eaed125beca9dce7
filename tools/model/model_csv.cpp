#include "model/model_csv.h"
#include "zemva/base/positions.h"

#include <utility>
#include <vector>

#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

// For each position of the prediction set in its data set that of its results, 0 where it has none.
std::vector<short> ResultPositions(const PCModel& model, short row_count) {
  std::vector<short> positions(static_cast<std::size_t>(row_count) + 1);
  for (const short i : PositionsUpTo(model.GetNObsPS())) {
    positions.at(static_cast<std::size_t>(model.GetObsIxPS(i))) = i;
  }
  return positions;
}

struct Label {
  short number;
  const char* name;
};

// Of an observation, which has its position for a number where the data set knows of none.
Label LabelOf(Dataset& dataset, short i) {
  Label label{};
  const int status = dataset.GetObsInfo(i, label.number, label.name);
  return status == status::kOk ? label : Label{i, ""};
}

}  // namespace

ResultTable TabulateComponents(const PCModel& model) {
  CsvColumns columns;
  const auto add = [&](const char* name, float (PCModel::*get)(char) const) {
    columns.AddNumber(name, [&model, get](short a) { return (model.*get)(static_cast<char>(a)); });
  };
  columns.AddInteger("Comp", [](short a) { return a; });
  add("R2X", &PCModel::GetR2AX);
  add("R2X(cum)", &PCModel::GetR2X);
  add("Eig", &PCModel::GetEig);
  add("Q2", &PCModel::GetQ2AX);
  columns.AddNumber("Q2lim", [&](short a) {
    const auto component = static_cast<char>(a);
    const bool is_cross_validated = !IsMissing(model.GetQ2AX(component));
    return is_cross_validated ? model.GetQ2Limit(component) : kMissing;
  });
  add("Q2(cum)", &PCModel::GetQ2X);
  columns.AddInteger("Iter", [&](short a) { return model.GetNIter(static_cast<char>(a)); });
  columns.AddInteger(
      "Status", [&](short a) { return static_cast<int>(model.GetVerdict(static_cast<char>(a))); });
  return {"components", std::move(columns), model.GetA()};
}

ResultTable TabulateObservations(const PCModel& model) {
  CsvColumns columns;
  const char a = model.GetA();
  columns.AddInteger("ONum", [&](short i) { return model.GetObsInfo()->GetONum(i); });
  columns.AddText("ONam", [&](short i) { return model.GetObsInfo()->GetONam(i); });
  columns.AddVectors("t", a, [&](char c, short i) { return model.GetT(c, i); });
  columns.AddNumber("DModX", [&model, a](short i) { return model.GetDModXLS(a, i); });
  columns.AddNumber("PModX", [&model, a](short i) { return model.GetPModXLS(a, i); });
  columns.AddNumber("Tsquare", [&model, a](short i) { return model.GetT2LS(a, i); });
  return {"observations", std::move(columns), model.GetNObs()};
}

ResultTable TabulateVariables(const PCModel& model) {
  CsvColumns columns;
  const char a = model.GetA();
  columns.AddInteger("VNum", [&](short k) { return model.GetVarInfoX()->GetVNum(k); });
  columns.AddText("VNam", [&](short k) { return model.GetVarInfoX()->GetVNam(k); });
  columns.AddNumber("AvgX", [&](short k) { return model.GetAvgX(-1, k); });
  columns.AddNumber("Weig", [&](short k) { return model.GetWeigX(k); });
  columns.AddVectors("p", a, [&](char c, short k) { return model.GetP(c, k); });
  columns.AddNumber("R2VX(cum)", [&model, a](short k) { return model.GetR2VX(a, k); });
  columns.AddNumber("Q2V(cum)", [&model, a](short k) { return model.GetQ2VX(a, k); });
  columns.AddNumber("MPowX", [&model, a](short k) { return model.GetMPowX(a, k); });
  return {"variables", std::move(columns), model.GetNVarX()};
}

ResultTable TabulatePredictions(const PCModel& model, Dataset& test) {
  CsvColumns columns;
  const char a = model.GetASelPS();
  const auto row = [positions = ResultPositions(model, test.GetNObsDS())](short i) {
    return positions[static_cast<std::size_t>(i)];
  };
  columns.AddInteger("ONum", [&](short i) { return LabelOf(test, i).number; });
  columns.AddText("ONam", [&](short i) { return LabelOf(test, i).name; });
  columns.AddVectors("tPS", a,
                     [&model, row](char c, short i) { return model.GetTPredPS(c, row(i)); });
  columns.AddNumber("DModXPS", [&model, row, a](short i) { return model.GetDModXPS(a, row(i)); });
  columns.AddNumber("PModXPS", [&model, row, a](short i) { return model.GetPModXPS(a, row(i)); });
  return {"predictions", std::move(columns), test.GetNObsDS()};
}

}  // namespace zemva::tools
