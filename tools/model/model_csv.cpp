#include "model/model_csv.h"

#include <string>
#include <utility>
#include <vector>

#include "text/code_page.h"
#include "zemva/base/positions.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

// For each position of the prediction set in its data set that of its results, 0 where it has none.
std::vector<short> ResultPositions(const Model& model, short row_count) {
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
  short number = 0;
  char* name = nullptr;
  const int status = dataset.GetObsInfo(i, number, name);
  return status == status::kOk ? Label{number, name} : Label{i, ""};
}

// Whether the prediction set has a value of a response.
bool HasObservedResponse(const Model& model, short m) {
  for (const short i : PositionsUpTo(model.GetNObsPS())) {
    if (!IsMissing(model.GetYObsPS(i, m))) return true;
  }
  return false;
}

// "YPred(mpg)", in UTF-8.
std::string OfResponse(const char* what, const Model& model, short m) {
  const char* const name = model.GetVarInfoY()->GetVNam(m);
  return std::string(what) + "(" + Utf8FromCodePage(name == nullptr ? "" : name) + ")";
}

}  // namespace

ResultTable TabulateComponents(const Model& model) {
  CsvColumns columns;
  const auto add = [&](const char* name, float (Model::*get)(char) const) {
    columns.AddNumber(name, [&model, get](short a) { return (model.*get)(static_cast<char>(a)); });
  };
  columns.AddInteger("Comp", [](short a) { return a; });
  add("R2X", &Model::GetR2AX);
  add("R2X(cum)", &Model::GetR2X);
  add("Eig", &Model::GetEig);
  const bool has_responses = model.GetNVarY() > 0;
  const auto q2 = has_responses ? &Model::GetQ2AY : &Model::GetQ2AX;
  add("Q2", q2);
  columns.AddNumber("Q2lim", [&model, q2](short a) {
    const auto component = static_cast<char>(a);
    const bool is_cross_validated = !IsMissing((model.*q2)(component));
    return is_cross_validated ? model.GetQ2Limit(component) : kMissing;
  });
  add("Q2(cum)", has_responses ? &Model::GetQ2Y : &Model::GetQ2X);
  columns.AddInteger("Iter", [&](short a) { return model.GetNIter(static_cast<char>(a)); });
  columns.AddInteger(
      "Status", [&](short a) { return static_cast<int>(model.GetVerdict(static_cast<char>(a))); });
  if (has_responses) {
    add("R2Y", &Model::GetR2AY);
    add("R2Y(cum)", static_cast<float (Model::*)(char) const>(&Model::GetR2Y));
  }
  return {"components", std::move(columns), model.GetA()};
}

ResultTable TabulateObservations(const Model& model) {
  CsvColumns columns;
  const char a = model.GetA();
  columns.AddInteger("ONum", [&](short i) { return model.GetObsInfo()->GetONum(i); });
  columns.AddText("ONam", [&](short i) { return model.GetObsInfo()->GetONam(i); });
  columns.AddVectors("t", a, [&](char c, short i) { return model.GetT(c, i); });
  columns.AddNumber("DModX", [&model, a](short i) { return model.GetDModXLS(a, i); });
  columns.AddNumber("PModX", [&model, a](short i) { return model.GetPModXLS(a, i); });
  columns.AddNumber("Tsquare", [&model, a](short i) { return model.GetT2LS(a, i); });
  if (model.GetNVarY() > 0) {
    columns.AddVectors("u", a, [&](char c, short i) { return model.GetU(c, i); });
    columns.AddNumber("DModY", [&model, a](short i) { return model.GetDModYLS(a, i); });
  }
  for (const short m : PositionsUpTo(model.GetNVarY())) {
    columns.AddNumber(OfResponse("YPred", model, m),
                      [&model, m](short i) { return model.GetYPredLS(i, m); });
  }
  return {"observations", std::move(columns), model.GetNObs()};
}

ResultTable TabulateVariables(const Model& model) {
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
  if (model.GetNVarY() > 0) {
    columns.AddVectors("w", a, [&](char c, short k) { return model.GetW(c, k); });
    columns.AddVectors("w*", a, [&](char c, short k) { return model.GetWStar(c, k); });
    columns.AddNumber("VIP", [&model, a](short k) { return model.GetVIP(a, k); });
  }
  for (const short m : PositionsUpTo(model.GetNVarY())) {
    columns.AddNumber(OfResponse("CoeffCS", model, m),
                      [&model, a, m](short k) { return model.GetCoeffCS(a, k, m); });
    columns.AddNumber(OfResponse("Coeff", model, m),
                      [&model, a, m](short k) { return model.GetCoeff(a, k, m); });
  }
  return {"variables", std::move(columns), model.GetNVarX()};
}

ResultTable TabulateResponses(const Model& model) {
  CsvColumns columns;
  const char a = model.GetA();
  columns.AddInteger("VNum", [&](short m) { return model.GetVarInfoY()->GetVNum(m); });
  columns.AddText("VNam", [&](short m) { return model.GetVarInfoY()->GetVNam(m); });
  columns.AddNumber("AvgY", [&](short m) { return model.GetAvgY(-1, m); });
  columns.AddNumber("Weig", [&](short m) { return model.GetWeigY(m); });
  columns.AddVectors("c", a, [&](char c, short m) { return model.GetC(c, m); });
  columns.AddNumber("R2VY(cum)", [&model, a](short m) { return model.GetR2VY(a, m); });
  columns.AddNumber("Q2V(cum)", [&model, a](short m) { return model.GetQ2VY(a, m); });
  columns.AddNumber("Const", [&model, a](short m) { return model.GetB0(a, m); });
  columns.AddNumber("RMSEE", [&](short m) { return model.GetRMSEE(m); });
  return {"responses", std::move(columns), model.GetNVarY()};
}

ResultTable TabulatePredictions(const Model& model, Dataset& test) {
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
  for (const short m : PositionsUpTo(model.GetNVarY())) {
    const auto add = [&](const char* what, float (Model::*get)(short, short) const) {
      columns.AddNumber(OfResponse(what, model, m),
                        [&model, row, m, get](short i) { return (model.*get)(row(i), m); });
    };
    add("YPredPS", &Model::GetYPredPS);
    add("SerrLPS", &Model::GetSEYPredLPS);
    add("SerrUPS", &Model::GetSEYPredUPS);
    if (HasObservedResponse(model, m)) add("YPS", &Model::GetYObsPS);
  }
  return {"predictions", std::move(columns), test.GetNObsDS()};
}

}  // namespace zemva::tools
