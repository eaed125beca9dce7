#include "model/model_csv.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "model/model_limits.h"
#include "text/code_page.h"
#include "zemva/base/positions.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"
#include "zemva/vectors/vec_spec.h"

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

// "YPred(mpg)", in UTF-8.
std::string OfResponse(const char* what, const Model& model, short m) {
  const char* const name = model.GetVarInfoY()->GetVNam(m);
  return std::string(what) + "(" + Utf8FromCodePage(name == nullptr ? "" : name) + ")";
}

// Null where the model has no such vector.
std::shared_ptr<const XFVector> GetVector(const Model& model, const VecSpec& spec) {
  XFVector* vector = nullptr;
  model.GetXFVector(&spec, vector);
  return std::shared_ptr<const XFVector>(vector);
}

// Columns that are vectors of a model. A row of the table is an element of the vector, or that
// which a function of it gives, 0 for none.
class VectorColumns {
 public:
  VectorColumns(const Model& model, CsvColumns& columns,
                std::function<short(short)> element_of = {})
      : model_(model), columns_(columns), element_of_(std::move(element_of)) {}

  // A column under the name of the type, or of its own.
  void Add(const VecSpec& spec) { Add(CEVecType::GetString(spec.GetVType()), spec); }
  void Add(std::string heading, const VecSpec& spec) {
    AddColumn(std::move(heading), GetVector(model_, spec));
  }
  void Add(CEVecType::EVT type) { Add(VecSpec(type)); }
  // One for each component.
  void AddEach(CEVecType::EVT type, int component_count) {
    for (int a = 1; a <= component_count; ++a) {
      const VecSpec spec(type, 0, static_cast<short>(a));
      Add(spec.GetName(), spec);
    }
  }
  // That of a response.
  void AddOf(short m, const char* what, CEVecType::EVT type,
             VecSpec::EBlock block = VecSpec::kWhole) {
    VecSpec spec(type, m);
    spec.SetBlock(block);
    Add(OfResponse(what, model_, m), spec);
  }
  void AddOf(short m, CEVecType::EVT type) { AddOf(m, CEVecType::GetString(type), type); }

 private:
  void AddColumn(std::string heading, std::shared_ptr<const XFVector> vector) {
    columns_.AddNumber(std::move(heading), [vector = std::move(vector), of = element_of_](short i) {
      return vector == nullptr ? kMissing : vector->GetElement(of ? of(i) : i);
    });
  }

  const Model& model_;
  CsvColumns& columns_;
  std::function<short(short)> element_of_;
};

// What component -1 has, the data as loaded.
VecSpec Loaded(CEVecType::EVT type) {
  return VecSpec(type, 0, -1);
}

}  // namespace

using enum CEVecType::EVT;

ResultTable TabulateComponents(const Model& model) {
  CsvColumns columns;
  VectorColumns vectors(model, columns);
  columns.AddInteger("Comp", [](short a) { return a; });
  for (const auto type : {R2X, R2XCum, Eig, Q2}) vectors.Add(type);
  columns.AddNumber("Q2lim", [&model, q2 = GetVector(model, VecSpec(Q2))](short a) {
    const bool is_cross_validated = q2 != nullptr && !IsMissing(q2->GetElement(a));
    return is_cross_validated ? model.GetQ2Limit(static_cast<char>(a)) : kMissing;
  });
  vectors.Add(Q2Cum);
  columns.AddInteger("Iter", [&](short a) { return model.GetNIter(static_cast<char>(a)); });
  columns.AddInteger(
      "Status", [&](short a) { return static_cast<int>(model.GetVerdict(static_cast<char>(a))); });
  if (model.HasY()) {
    for (const auto type : {R2Y, R2YCum}) vectors.Add(type);
  }
  return {"components", std::move(columns), model.GetA()};
}

ResultTable TabulateObservations(const Model& model) {
  CsvColumns columns;
  VectorColumns vectors(model, columns);
  columns.AddInteger("ONum", [&](short i) { return model.GetObsInfo()->GetONum(i); });
  columns.AddText("ONam", [&](short i) { return model.GetObsInfo()->GetONam(i); });
  vectors.AddEach(T, model.GetA());
  for (const auto type : {DModX, PModX, Tsquare}) vectors.Add(type);
  if (model.HasY()) {
    vectors.AddEach(U, model.GetA());
    vectors.Add(DModY);
  }
  for (const short m : PositionsUpTo(model.GetNVarY())) {
    vectors.AddOf(m, "YPred", VarPred, VecSpec::kY);
  }
  for (const ObservationLimit& limit : ObservationLimitsOf(model)) {
    columns.AddNumber(limit.question,
                      [&model, limit](short i) { return limit.IsBeyond(model, i); });
  }
  return {"observations", std::move(columns), model.GetNObs()};
}

ResultTable TabulateVariables(const Model& model) {
  CsvColumns columns;
  VectorColumns vectors(model, columns);
  columns.AddInteger("VNum", [&](short k) { return model.GetVarInfoX()->GetVNum(k); });
  columns.AddText("VNam", [&](short k) { return model.GetVarInfoX()->GetVNam(k); });
  vectors.Add(Loaded(AvgX));
  vectors.Add("Weig", VecSpec(WsX));
  vectors.AddEach(P, model.GetA());
  vectors.Add(R2VXCum);
  columns.AddNumber(CEVecType::GetString(Q2VCum),
                    [&](short k) { return model.GetQ2VX(model.GetA(), k); });
  vectors.Add(MPowX);
  if (model.HasY()) {
    for (const auto type : {W, WStar}) vectors.AddEach(type, model.GetA());
    vectors.Add(VIP);
  }
  for (const short m : PositionsUpTo(model.GetNVarY())) {
    vectors.AddOf(m, CoeffCS);
    vectors.AddOf(m, CEVecType::GetString(Coeff), CoeffC);
  }
  return {"variables", std::move(columns), model.GetNVarX()};
}

ResultTable TabulateResponses(const Model& model) {
  CsvColumns columns;
  VectorColumns vectors(model, columns);
  columns.AddInteger("VNum", [&](short m) { return model.GetVarInfoY()->GetVNum(m); });
  columns.AddText("VNam", [&](short m) { return model.GetVarInfoY()->GetVNam(m); });
  vectors.Add(Loaded(AvgY));
  vectors.Add("Weig", VecSpec(WsY));
  vectors.AddEach(C, model.GetA());
  for (const auto type : {R2VYCum, Q2VCum}) vectors.Add(type);
  columns.AddNumber("Const", [&](short m) { return model.GetB0(model.GetA(), m); });
  columns.AddNumber("RMSEE", [&](short m) { return model.GetRMSEE(m); });
  return {"responses", std::move(columns), model.GetNVarY()};
}

ResultTable TabulateLimits(const Model& model) {
  const auto limits = std::make_shared<const std::vector<ModelLimit>>(LimitsOf(model));
  const auto at = [limits](short i) -> const ModelLimit& {
    return (*limits)[static_cast<std::size_t>(i) - 1];
  };
  CsvColumns columns;
  columns.AddText("Limit", [at](short i) { return at(i).name; });
  columns.AddText("Of", [at](short i) { return at(i).of.c_str(); });
  columns.AddNumber("Level", [at](short i) { return at(i).level; });
  columns.AddNumber("Value", [at](short i) { return at(i).value; });
  return {"limits", std::move(columns), static_cast<short>(limits->size())};
}

ResultTable TabulatePredictions(const Model& model, Dataset& test) {
  CsvColumns columns;
  VectorColumns vectors(model, columns,
                        [positions = ResultPositions(model, test.GetNObsDS())](short i) {
                          return positions[static_cast<std::size_t>(i)];
                        });
  columns.AddInteger("ONum", [&](short i) { return LabelOf(test, i).number; });
  columns.AddText("ONam", [&](short i) { return LabelOf(test, i).name; });
  vectors.AddEach(TPS, model.GetASelPS());
  for (const auto type : {DModXPS, PModXPS}) vectors.Add(type);
  for (const short m : PositionsUpTo(model.GetNVarY())) {
    vectors.AddOf(m, "YPredPS", VarPredPS, VecSpec::kY);
    for (const auto type : {SerrLPS, SerrUPS}) vectors.AddOf(m, type);
    const auto observed = GetVector(model, VecSpec(YPS, m));
    if (observed != nullptr && observed->NValA() > 0) vectors.AddOf(m, YPS);
  }
  return {"predictions", std::move(columns), test.GetNObsDS()};
}

}  // namespace zemva::tools
