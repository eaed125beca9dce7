// The terms that a work set is expanded with: squares and products of its variables.
#ifndef ZEMVA_MODEL_PREPROCESS_EXP_INFO_H
#define ZEMVA_MODEL_PREPROCESS_EXP_INFO_H

#include <array>
#include <memory>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/data/itm_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/preprocess/variable_table.h"

namespace zemva {

// A term, which is a variable of its own with number and name: the product of the variables VNum1,
// VNum2 and VNum3, of which the last, or the last two, are 0 where there are fewer factors. The
// modifier is kept for the caller.
class ZEMVA_API ExpData : public ItmData {
 public:
  ExpData(short vnum, const char* name, short vnum1, short vnum2, short vnum3, float modifier)
      : ItmData(vnum, name), factors_{vnum1, vnum2, vnum3}, modifier_(modifier) {}
  std::unique_ptr<ItmData> Clone() const override { return std::make_unique<ExpData>(*this); }

  short GetVNum1() const { return factors_[0]; }
  short GetVNum2() const { return factors_[1]; }
  short GetVNum3() const { return factors_[2]; }
  const std::array<short, 3>& GetFactors() const { return factors_; }
  float GetModifier() const { return modifier_; }

  // The name that a term has where the user gives none: for each factor the letter and its number.
  static FixedText<25> DefaultName(char letter, short vnum1, short vnum2, short vnum3);

 private:
  std::array<short, 3> factors_;
  float modifier_;
};

class ZEMVA_API ExpInfo : public VariableTable<ExpData> {
 public:
  explicit ExpInfo(const char* name) : VariableTable(name) {}

  // A new table "ExpInfoX", the caller's, with copies of the rows whose byte in `sel` is 1. Null
  // when `sel` is null or memory runs out.
  ExpInfo* ExtExpInfo(const XI1Vector* sel) const { return Extract<ExpInfo>("ExpInfoX", sel); }

 private:
  const char* Header() const override;
  void ShowRow(short i, const ExpData& row, StreamWindow& window) const override;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PREPROCESS_EXP_INFO_H
