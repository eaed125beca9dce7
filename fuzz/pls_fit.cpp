// Fits any small table by partial least squares with any settings, the last variables or classes as
// responses, and predicts the table. No number that comes out may be other than finite.
#include <algorithm>

#include "model_fit.h"
#include "zemva/model/pls/pls_model.h"

namespace {

using namespace zemva;

void CheckResponses(const Model& model) {
  const char used = model.GetASelPS();
  for (const short m : PositionsUpTo(model.GetNVarY())) {
    for (int c = 1; c <= model.GetA(); ++c) {
      const auto a = static_cast<char>(c);
      fuzz::CheckFinite({model.GetR2Y(a), model.GetR2AYadj(a), model.GetQ2AY(a), model.GetQ2Y(a),
                         model.GetS2U(a), model.GetS2Y(a), model.GetC(a, m), model.GetR2VYadj(a, m),
                         model.GetQ2VY(a, m), model.GetB0(a, m), model.GetS2VY(a, m)});
      for (const short k : PositionsUpTo(model.GetNVarX())) {
        fuzz::CheckFinite({model.GetW(a, k), model.GetWStar(a, k), model.GetVIP(a, k),
                           model.GetCoeff(a, k, m), model.GetCoeffCS(a, k, m),
                           model.GetGapCont(a, 1, 0, k)});
      }
      for (const short i : PositionsUpTo(model.GetNObs())) {
        fuzz::CheckFinite({model.GetU(a, i), model.GetDModYLS(a, i), model.GetPModYLS(a, i),
                           model.GetOLevY(a, i)});
      }
    }
    fuzz::CheckFinite({model.GetRMSEE(m)});
    for (const short i : PositionsUpTo(model.GetNObs())) {
      fuzz::CheckFinite({model.GetYPredLS(i, m), model.GetYPredErrLS(i, m),
                         model.GetSEYPredLLS(i, m), model.GetSEYPredULS(i, m)});
    }
    for (const short i : PositionsUpTo(model.GetNObsPS())) {
      fuzz::CheckFinite({model.GetYPredPS(i, m), model.GetYPredErrPS(i, m),
                         model.GetSEYPredLPS(i, m), model.GetSEYPredUPS(i, m),
                         model.GetDModYPS(used, i), model.GetPModYPS(used, i)});
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Bytes bytes(data, size);
  Project project("P", GlobalStreamWindow());
  const auto scaling = static_cast<EScaType>(1 + bytes.Next(6));
  const int response_count = 1 + bytes.Next(4);
  constexpr EModType kTypes[] = {EModType::kPLS12, EModType::kPLS12, EModType::kPLS21,
                                 EModType::kPLS1DA};
  const EModType type = kTypes[bytes.Next(4)];
  const short dataset = project.AddDataset(fuzz::MakeDataset(bytes).release());
  const short number = project.AddWorkset(dataset, "WS");
  Workset& workset = *project.GetWorkset(number);
  for (const short j : PositionsUpTo(workset.GetNVar())) {
    workset.SetScaling(j, scaling);
    const bool is_response = type != EModType::kPLS1DA && j > workset.GetNVar() - response_count;
    if (is_response) workset.SetRole(j, EVarRole::kY);
  }
  for (const short i : PositionsUpTo(workset.GetNObsDS())) {
    if (type == EModType::kPLS1DA) workset.SetOClass(i, static_cast<char>(bytes.Next(4)));
  }
  const Model* const model = fuzz::Fit(bytes, project, number, type, dataset);
  if (model != nullptr) CheckResponses(*model);
  return 0;
}
