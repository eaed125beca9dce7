// How the variables of a work set are transformed.
#ifndef ZEMVA_MODEL_PREPROCESS_TRA_INFO_H
#define ZEMVA_MODEL_PREPROCESS_TRA_INFO_H

#include <array>
#include <memory>

#include "zemva/base/export.h"
#include "zemva/data/itm_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/preprocess/variable_table.h"

namespace zemva {

// The values are part of the interface; the formulas are in TraData::pszTraType.
enum class ETraType : int {
  kNone = 0,
  kLinear = 1,
  kLog = 2,
  kNegLog = 3,
  kLogit = 4,
  kExp = 5,
  kPower = 6
};

// The transformation of a variable: a type and the constants c1, c2 and c3 of its formula.
class ZEMVA_API TraData : public ItmData {
 public:
  // By type; %c stands for the variable.
  static constexpr std::array<const char*, 7> pszTraType = {"none",
                                                            "c1*%c+c2",
                                                            "10Log(c1*%c+c2)",
                                                            "-10Log(c1*%c+c2)",
                                                            "10Log((%c-c1)/(c2-%c))",
                                                            "exp(c1*%c+c2)",
                                                            "(c1*%c+c2)**c3"};

  TraData(short vnum, const char* name, ETraType type, float c1, float c2, float c3)
      : ItmData(vnum, name), type_(type), c1_(c1), c2_(c2), c3_(c3) {}
  std::unique_ptr<ItmData> Clone() const override { return std::make_unique<TraData>(*this); }

  ETraType GetTraType() const { return type_; }
  float GetTraC1() const { return c1_; }
  float GetTraC2() const { return c2_; }
  float GetTraC3() const { return c3_; }

  // The formula of a type with the letter for the variable, "" for any other value. The text stands
  // in one place for all callers and lasts until the next call.
  static const char* GetFormat(ETraType type, char letter);

  // The formula's value. A missing value stays missing; missing is also what lies outside the
  // formula's domain, what is too large for a float, and what has no type.
  float Transform(float value) const { return Transform(value, type_, c1_, c2_, c3_); }
  static float Transform(float value, ETraType type, float c1, float c2, float c3);

  // The value that has this transform, by the same rules; missing too where c1 or c3 leaves no way
  // back.
  float BackTra(float value) const { return BackTra(value, type_, c1_, c2_, c3_); }
  static float BackTra(float value, ETraType type, float c1, float c2, float c3);

 private:
  ETraType type_;
  float c1_;
  float c2_;
  float c3_;
};

class ZEMVA_API TraInfo : public VariableTable<TraData> {
 public:
  explicit TraInfo(const char* name) : VariableTable(name) {}

  // A new table "TraInfoX", the caller's, with copies of the rows whose byte in `sel` is 1. Null
  // when `sel` is null or memory runs out.
  TraInfo* ExtTraInfo(const XI1Vector* sel) const { return Extract<TraInfo>("TraInfoX", sel); }

 private:
  const char* Header() const override;
  void ShowRow(short i, const TraData& row, StreamWindow& window) const override;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PREPROCESS_TRA_INFO_H
