// Small tables and settings out of bytes, for models of any kind, and what must hold of them.
#ifndef ZEMVA_FUZZ_MODEL_FIT_H
#define ZEMVA_FUZZ_MODEL_FIT_H

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <span>

#include "zemva/base/positions.h"
#include "zemva/project/project.h"

namespace zemva::fuzz {

inline void Require(bool holds) {
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

inline std::unique_ptr<Dataset> MakeDataset(Bytes& bytes) {
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

inline void SetOptions(Bytes& bytes, ModOpt& options) {
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
  options.SetIsXDesigned(bytes.Next(2) != 0);
  options.SetIsCenter(bytes.Next(4) != 0);
  constexpr float kCaps[] = {1.0f, 4.0f, 1000.0f, 1e13f};
  options.SetCompLimLoa(kCaps[bytes.Next(4)]);
  options.SetCompLimScr(kCaps[bytes.Next(4)]);
  options.SetIsShoLoaLim(true);
  options.SetIsShoScrLim(true);
}

inline void CheckFinite(std::initializer_list<float> values) {
  for (const float value : values) Require(std::isfinite(value));
}

// Those of every kind of model.
inline void CheckNumbers(const Model& model) {
  const int component_count = model.GetA();
  for (int c = 1; c <= component_count; ++c) {
    const auto a = static_cast<char>(c);
    CheckFinite({model.GetR2X(a), model.GetR2AXadj(a), model.GetEig(a), model.GetQ2AX(a),
                 model.GetQ2X(a), model.GetS2T(a), model.GetDFX(a), model.GetS2X(a),
                 model.GetS2WX(a)});
    for (const short i : PositionsUpTo(model.GetNObs())) {
      CheckFinite({model.GetT(a, i), model.GetDModXLS(a, i), model.GetPModXLS(a, i),
                   model.GetT2LS(a, i), model.GetOLevX(a, i)});
    }
    for (const short k : PositionsUpTo(model.GetNVarX())) {
      CheckFinite({model.GetP(a, k), model.GetMPowX(a, k), model.GetQ2VX(a, k), model.GetR2VX(a, k),
                   model.GetXResLS(a, 1, k)});
    }
  }
  const char used = model.GetASelPS();
  for (const short i : PositionsUpTo(model.GetNObsPS())) {
    CheckFinite({model.GetTPredPS(1, i), model.GetDModXPS(used, i), model.GetPModXPS(used, i),
                 model.GetT2PS(used, i)});
  }
}

// A model of the type, with settings of the bytes, fitted to the work set, checked, executed on
// `predicted` and listed. Null where there can be none.
inline const Model* Fit(Bytes& bytes, Project& project, short workset, EModType type,
                        short predicted) {
  const short number = project.AddModel(workset, type, 0);
  if (number == 0) return nullptr;
  SetOptions(bytes, project.GetModel(number)->GetModOpt());
  project.Compute(number);
  project.ExecPS(number, project.AddPredset(predicted, workset, "PS"));
  Model& model = *project.GetModel(number)->GetModel();
  CheckNumbers(model);
  model.ShowAll(GlobalStreamWindow());
  return &model;
}

}  // namespace zemva::fuzz

#endif  // ZEMVA_FUZZ_MODEL_FIT_H
