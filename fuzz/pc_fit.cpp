// Fits principal components to any small table with any settings, and predicts the table. No number
// that comes out may be other than finite.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <span>

#include "zemva/base/positions.h"
#include "zemva/model/pc/pc_model.h"
#include "zemva/project/project.h"

namespace {

using namespace zemva;

void Require(bool holds) {
  if (!holds) std::abort();
}

// Bytes one after the other, 0 behind the last.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

  int Next(int count) {
    if (rest_.empty()) return 0;
    const int byte = rest_.front();
    rest_ = rest_.subspan(1);
    return byte % count;
  }
  // Mostly small whole numbers, and what is hard.
  float NextValue() {
    constexpr float kHard[] = {kMissing, kMissing, 3e38f,  -3e38f, 1e-30f,
                               1e19f,    -1e19f,   1e-38f, 1e30f,  -0.0f};
    const int byte = Next(256);
    return byte < 246 ? static_cast<float>(byte - 100) : kHard[byte - 246];
  }

 private:
  std::span<const std::uint8_t> rest_;
};

std::unique_ptr<Dataset> MakeDataset(Bytes& bytes) {
  const int row_count = 1 + bytes.Next(14);
  const int column_count = 1 + bytes.Next(9);
  auto matrix = std::make_unique<XFMatrix>("X", row_count, column_count, 0.0f);
  auto observations = std::make_unique<ObsInfo>("ObsInfo");
  auto variables = std::make_unique<VarInfo>("VarInfo");
  for (int k = 1; k <= column_count; ++k) variables->AddVar(static_cast<short>(k), "v");
  for (int i = 1; i <= row_count; ++i) {
    observations->AddObs(static_cast<short>(i), "o");
    for (int k = 1; k <= column_count; ++k) (*matrix)[i][k] = bytes.NextValue();
  }
  matrix->SetActValInfo();
  // The data set takes all three over.
  return std::make_unique<Dataset>("D", "none", GlobalStreamWindow(), matrix.release(),
                                   observations.release(), variables.release());
}

void SetOptions(Bytes& bytes, ModOpt& options) {
  options.SetIsRule(bytes.Next(2) != 0);
  options.SetRuleValidate(static_cast<EValidate>(bytes.Next(4)));
  options.SetSeqValidate(static_cast<EValidate>(bytes.Next(4)));
  options.SetNComp(static_cast<short>(bytes.Next(10)));
  options.SetNCV(static_cast<short>(bytes.Next(20)));
  options.SetMaxIter(static_cast<short>(bytes.Next(60)));
  options.SetXOpt1(static_cast<short>(bytes.Next(2)));
  options.SetIsWResLS(bytes.Next(2) != 0);
  options.SetIsWResPS(bytes.Next(2) != 0);
  options.SetIsNormDistLS(bytes.Next(2) != 0);
  options.SetIsShoLoaLim(true);
  options.SetIsShoScrLim(true);
}

void CheckNumbers(const PCModel& model) {
  const auto check = [](float value) { Require(std::isfinite(value)); };
  const int component_count = model.GetA();
  for (int c = 1; c <= component_count; ++c) {
    const auto a = static_cast<char>(c);
    for (const float value :
         {model.GetR2X(a), model.GetR2AXadj(a), model.GetEig(a), model.GetQ2AX(a), model.GetQ2X(a),
          model.GetS2T(a), model.GetDFX(a), model.GetS2X(a), model.GetS2WX(a)}) {
      check(value);
    }
    for (const short i : PositionsUpTo(model.GetNObs())) {
      for (const float value : {model.GetT(a, i), model.GetDModXLS(a, i), model.GetPModXLS(a, i),
                                model.GetT2LS(a, i), model.GetOLevX(a, i)}) {
        check(value);
      }
    }
    for (const short k : PositionsUpTo(model.GetNVarX())) {
      for (const float value : {model.GetP(a, k), model.GetMPowX(a, k), model.GetQ2VX(a, k),
                                model.GetR2VX(a, k), model.GetXResLS(a, 1, k)}) {
        check(value);
      }
    }
  }
  const char used = model.GetASelPS();
  for (const short i : PositionsUpTo(model.GetNObsPS())) {
    for (const float value : {model.GetTPredPS(1, i), model.GetDModXPS(used, i),
                              model.GetPModXPS(used, i), model.GetT2PS(used, i)}) {
      check(value);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Bytes bytes(data, size);
  Project project("P", GlobalStreamWindow());
  const auto scaling = static_cast<EScaType>(1 + bytes.Next(6));
  const short dataset = project.AddDataset(MakeDataset(bytes).release());
  const short workset = project.AddWorkset(dataset, "WS");
  for (const short j : PositionsUpTo(project.GetWorkset(workset)->GetNVar())) {
    project.GetWorkset(workset)->SetScaling(j, scaling);
  }
  const short model = project.AddModel(workset, EModType::kPC1, 0);
  SetOptions(bytes, project.GetModel(model)->GetModOpt());
  project.Compute(model);
  project.ExecPS(model, project.AddPredset(dataset, workset, "PS"));
  auto& fitted = static_cast<PCModel&>(*project.GetModel(model)->GetModel());
  CheckNumbers(fitted);
  fitted.ShowAll(GlobalStreamWindow());
  return 0;
}
