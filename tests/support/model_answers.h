// All that a model answers, to compare two of them to the bit.
#ifndef ZEMVA_TESTS_SUPPORT_MODEL_ANSWERS_H
#define ZEMVA_TESTS_SUPPORT_MODEL_ANSWERS_H

#include <algorithm>
#include <memory>
#include <string>

#include "support/recording_window.h"
#include "zemva/data/var_info.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/sca_info.h"
#include "zemva/model/preprocess/tra_info.h"

namespace zemva::test {

class ModelAnswers {
 public:
  explicit ModelAnswers(Model& model) : model_(model) {
    largest_ = std::max({model.GetNObs(), model.GetNVarX(), model.GetNVarY(), model.GetNObsPS()});
  }

  std::string Get() {
    OfModel();
    for (int a = -1; a <= model_.GetA(); ++a) OfComponent(static_cast<char>(a));
    OfPredictions();
    Listings();
    return bytes_;
  }

 private:
  template <typename Number>
  void Add(Number value) {
    bytes_.append(reinterpret_cast<const char*>(&value), sizeof value);
  }
  template <typename... Getter>
  void AddAll(Getter... getter) {
    (Add((model_.*getter)()), ...);
  }
  template <typename... Getter>
  void AddOf(char a, Getter... getter) {
    (Add((model_.*getter)(a)), ...);
  }

  void OfModel() {
    AddAll(&Model::GetModType, &Model::GetModNum, &Model::GetNObs, &Model::GetNVarX,
           &Model::GetNVarXUsed, &Model::GetNVarY, &Model::GetNVarYDS, &Model::GetNVarLagY,
           &Model::GetA, &Model::GetA0, &Model::IsOverrun, &Model::GetDCritTeSLS,
           &Model::GetDCritTrSLS, &Model::IsNormDistLS, &Model::IsWResLS, &Model::IsNormDistPS,
           &Model::IsWResPS, &Model::GetStatus);
    bytes_.append(model_.GetModNam()).append(model_.GetModTitle()).append(model_.GetDSNam());
    for (short m = 0; m <= largest_ + 1; ++m) {
      Add(model_.GetMaxIY(m)), Add(model_.GetMinIY(m)), Add(model_.GetWeigX(m));
      Add(model_.GetWeigY(m)), Add(model_.GetRMSEE(m));
      for (short i = 0; i <= std::min<int>(model_.GetNVarY(), 12) + 1; ++i) {
        Add(model_.GetYObsLS(m, i)), Add(model_.GetYPredLS(m, i)), Add(model_.GetYPredErrLS(m, i));
        Add(model_.GetSEYPredLLS(m, i)), Add(model_.GetSEYPredULS(m, i));
      }
    }
  }

  void OfComponent(char a) {
    AddOf(a, &Model::GetDFX, &Model::GetDFY, &Model::GetEig, &Model::GetNIter, &Model::GetQ2AX,
          &Model::GetQ2AY, &Model::GetQ2X, &Model::GetQ2Y, &Model::GetR2AY, &Model::GetR2AYadj,
          &Model::GetS2T, &Model::GetS2U, &Model::GetS2X, &Model::GetS2Y, &Model::GetQ2Limit,
          &Model::GetR2X, &Model::GetR2Xadj, &Model::GetR2AX, &Model::GetR2AXadj, &Model::GetSSX,
          &Model::GetS2WX, &Model::GetTMin, &Model::GetTMax, &Model::GetSSY, &Model::GetVerdict);
    Add(model_.GetR2Y(a)), Add(model_.GetR2Yadj(a)), Add(model_.GetTCritAxisLen(a, 0.05f));
    bytes_ += model_.GetSignRule(a);
    using OfElement = float (Model::*)(char, short) const;
    static constexpr OfElement kElements[] = {
        &Model::GetAvgX,     &Model::GetAvgY,    &Model::GetB0,      &Model::GetC,
        &Model::GetDModXLS,  &Model::GetDModYLS, &Model::GetMPowX,   &Model::GetOLevX,
        &Model::GetOLevY,    &Model::GetP,       &Model::GetPModXLS, &Model::GetPModYLS,
        &Model::GetQ2VAX,    &Model::GetQ2VAY,   &Model::GetQ2VX,    &Model::GetQ2VY,
        &Model::GetR2VAY,    &Model::GetR2VY,    &Model::GetS2OX,    &Model::GetS2OY,
        &Model::GetS2VX,     &Model::GetS2VY,    &Model::GetR2VX,    &Model::GetR2VXadj,
        &Model::GetR2VAX,    &Model::GetR2VYadj, &Model::GetSSVX,    &Model::GetSSOX,
        &Model::GetT,        &Model::GetT2LS,    &Model::GetSSVY,    &Model::GetSSOY,
        &Model::GetU,        &Model::GetW,       &Model::GetWStar,   &Model::GetVIP,
        &Model::GetR2VAXadj, &Model::GetR2VAYadj};
    const std::unique_ptr<FMatrix> coefficients(model_.GetBMat(a));
    Add(coefficients != nullptr);
    for (int i = 1; coefficients != nullptr && i <= coefficients->NRow(); ++i) {
      for (const float value : coefficients->Row(i)) Add(value);
    }
    for (short i = 0; i <= largest_ + 1; ++i) {
      for (const OfElement element : kElements) Add((model_.*element)(a, i));
      Add(model_.GetT2RangeLS(2, a, i));
      for (short m = 0; m <= std::min<int>(model_.GetNVarY(), 12) + 1; ++m) {
        Add(model_.GetCoeff(a, i, m)), Add(model_.GetCoeffCS(a, i, m));
      }
    }
  }

  void OfPredictions() {
    AddAll(&Model::GetASelPS, &Model::GetNObsPS, &Model::GetDCritTeSPS, &Model::GetDCritTrSPS);
    const char a = model_.GetASelPS();
    for (short i = 0; i <= model_.GetNObsPS(); ++i) {
      Add(model_.GetObsIxPS(i)), Add(model_.IsMembPS(i)), Add(model_.GetDModXPS(a, i));
      Add(model_.GetPModXPS(a, i)), Add(model_.GetDModYPS(a, i)), Add(model_.GetPModYPS(a, i));
      Add(model_.GetT2PS(a, i)), Add(model_.GetTPredPS(a, i)), Add(model_.GetTPredPS(1, i));
      for (short m = 0; m <= largest_; ++m) {
        Add(model_.GetXResPS(i, m)), Add(model_.GetYObsPS(i, m)), Add(model_.GetYPredPS(i, m));
        Add(model_.GetSEYPredLPS(i, m)), Add(model_.GetSEYPredUPS(i, m));
        Add(model_.GetYPredErrPS(i, m)), Add(model_.GetNPredErrTeS(m));
        Add(model_.GetNPredErrTrS(m));
      }
    }
  }

  // But for the address.
  void Listings() {
    const std::string address = model_.GetModAddr();
    model_.SetModAddr("");
    RecordingWindow window;
    model_.Show(window);
    model_.ShowAll(window);
    const auto show = [&](auto* table) {
      if (table == nullptr) return;
      table->ShowAll(window);
      window << table->GetNam();
    };
    show(model_.GetObsInfo()), show(model_.GetClaInfo()), show(model_.GetObsInfoPS());
    show(model_.GetVarInfoDS());
    show(model_.GetVarInfoX()), show(model_.GetVarInfoY());
    show(model_.GetScaInfoX()), show(model_.GetScaInfoY());
    show(model_.GetTraInfoX()), show(model_.GetTraInfoY());
    show(model_.GetExpInfoX()), show(model_.GetExpInfoY());
    show(model_.GetLagInfoX()), show(model_.GetLIYPtr());
    show(model_.GetBIXPtr()), show(model_.GetBIYPtr());
    model_.SetModAddr(address.c_str());
    bytes_ += window.log;
  }

  Model& model_;
  int largest_ = 0;
  std::string bytes_;
};

inline std::string AnswersOf(Model& model) {
  return ModelAnswers(model).Get();
}

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_SUPPORT_MODEL_ANSWERS_H
