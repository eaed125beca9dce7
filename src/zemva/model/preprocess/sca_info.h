// How the variables of a work set are scaled.
#ifndef ZEMVA_MODEL_PREPROCESS_SCA_INFO_H
#define ZEMVA_MODEL_PREPROCESS_SCA_INFO_H

#include <array>
#include <memory>
#include <span>

#include "zemva/base/export.h"
#include "zemva/data/itm_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/preprocess/variable_table.h"
#include "zemva/numeric/missing.h"

namespace zemva {

class ColumnSpreads;
class ExpInfo;
class LagInfo;
class Model;
class VarInfo;
class Workset;
class XFMatrix;
class XFVector;

// What a variable is multiplied with before a model is fitted, and whether its average is taken off
// first. s is the standard deviation, rms the root of the mean square. The values are part of the
// interface.
enum class EScaType : int {
  kUdef = 0,    // none as yet
  kUV = 1,      // 1/s, centred
  kUVN = 2,     // 1/rms
  kPar = 3,     // sqrt(1/s), centred
  kParN = 4,    // sqrt(1/rms)
  kCtr = 5,     // 1, centred
  kNone = 6,    // 1
  kFreeze = 7,  // asks for kFW or kFWN with the weight that the variable has
  kFW = 8,      // a given weight, centred
  kFWN = 9,     // a given weight
  kOrt = 10,    // from elsewhere, as is kRng
  kRng = 11
};

// The scaling of a variable. Any of the numbers can be missing: an undefined weight, no modifier.
class ZEMVA_API ScaData : public ItmData {
 public:
  ScaData(short vnum, const char* name, EScaType type, float weig = kMissing,
          float weig_ac = kMissing, float sca_c1 = kMissing, float sca_c2 = kMissing,
          float weig_m = kMissing, EScaType previous_type = EScaType::kUdef)
      : ItmData(vnum, name),
        type_(type),
        weig_(weig),
        weig_ac_(weig_ac),
        sca_c1_(sca_c1),
        sca_c2_(sca_c2),
        weig_m_(weig_m),
        previous_type_(previous_type) {}
  // The row of a variable in a work set, which gives its weights to the models that are made of it:
  // each has other observations.
  static ScaData BeforeData(short vnum, const char* name, EScaType type, float weig = kMissing,
                            float sca_c1 = kMissing) {
    ScaData row(vnum, name, type, weig, kMissing, sca_c1);
    row.SetIsBeforeData(true);
    return row;
  }
  std::unique_ptr<ItmData> Clone() const override { return std::make_unique<ScaData>(*this); }

  EScaType GetScaType() const { return type_; }
  // The weight, and the weight 1/s whatever the type.
  float GetWeig() const { return weig_; }
  float GetWeigAC() const { return weig_ac_; }
  // What the weight from the data is multiplied with, for the types kUV to kParN.
  float GetScaC1() const { return sca_c1_; }
  // Kept for the caller.
  float GetScaC2() const { return sca_c2_; }
  float GetWeigM() const { return weig_m_; }
  EScaType GetPrevScaType() const { return previous_type_; }
  // Whether no data have been weighed yet: that a weight is missing then tells nothing of them.
  bool IsBeforeData() const { return is_before_data_; }
  void SetIsBeforeData(bool is_before_data) { is_before_data_ = is_before_data; }

 private:
  EScaType type_;
  float weig_;
  float weig_ac_;
  float sca_c1_;
  float sca_c2_;
  float weig_m_;
  EScaType previous_type_;
  bool is_before_data_ = false;
};

class ZEMVA_API ScaInfo : public VariableTable<ScaData> {
 public:
  static constexpr std::array<const char*, 12> pszScaType = {
      "Udef", "UV", "UVN", "Par", "ParN", "Ctr", "None", "Freeze", "FW", "FWN", "Ort", "Rng"};

  // The type of this name, kUdef for any other text.
  static EScaType GetScaType(const char* text);
  // The name of a type, "" for any other value.
  static const char* GetString(EScaType type);
  // Whether a variable of this type has its average taken off.
  static bool IsCentred(EScaType type);

  explicit ScaInfo(const char* name) : VariableTable(name) {}

  using VariableTable::Update;
  // Overwrites the row of variable `var`. 8015 when it has none.
  int Update(short var, const char* name, EScaType type, float weig, float weig_ac, float sca_c1,
             float sca_c2, float weig_m, EScaType previous_type);
  // Gives variable `var` the type, and the weights that the type makes of its column: that of the
  // variable in `variables`, over the rows that have a byte in `mask` other than 0. Weights that
  // the present values do not define become missing: with fewer than two of them or a variance of
  // 1e-30 and less there is no s, without any or with a mean square of 1e-30 and less no rms. The
  // modifiers stay, WeigM and the previous type are emptied.
  //
  // 8015 for a variable without row or column, 8021 for kOrt and kRng, 8022 for a null argument,
  // 8002 when memory runs out.
  int Update(short var, const VarInfo* variables, const XFMatrix* matrix, const XI1Vector* mask,
             EScaType type);

  // The same for all variables of the table and all rows of the matrix, each with the type that it
  // has.
  int UpdateAll(const VarInfo* variables, const XFMatrix* matrix);

  // Appends a row, scaled to unit variance, for a variable that has none. 8002 when memory runs
  // out, 7002 when the table is full.
  int AddVar(short vnum, const char* name);
  // Appends a row, scaled to unit variance, for each item whose number has none. 8002 when memory
  // runs out, 7002 when the table is full; the table is then unchanged.
  int AddVars(const ItmInfo& variables);
  // Makes the rows behind the first `nvar`, which are those of a data set, the rows of the lagged
  // variables and terms: what is new is appended as by AddVars, with its codes, and what is no
  // longer there is deleted. 8022 for a null argument.
  int FixAddedVars(short nvar, const LagInfo* lags, const ExpInfo* terms);
  // Fills the table anew: a row for each of the variables as the work set scales them, with the
  // weights that `matrix` gives, if `is_from_data`, or those that the work set has; the matrix may
  // then be null. 8015 for a number that the work set has not, 8022 for a null argument, and the
  // codes of UpdateAll; the table is then unchanged. Its body is in model/workset/.
  int SetScaInfo(const VarInfo* variables, const XFMatrix* matrix, const Workset* workset,
                 bool is_from_data);
  // The same as a model scales its variables of X and Y. 8009 where the model has no data loaded.
  // Its body is in model/driver/.
  int SetScaInfo(const VarInfo* variables, const XFMatrix* matrix, const Model* model,
                 bool is_from_data);

  // How many weights are missing.
  short GetNMisWeig() const;
  bool IsAnyVarCtd() const;

  // Gives all types their centred, or all their uncentred, counterpart. A weight that this changes
  // is missing until the next update from the data.
  int SetCenter(bool is_centred);
  // Puts 0 in the place of the average of each variable that is not centred: element j belongs to
  // variable j of `variables`. 8015, with nothing changed, when a variable has no row, 8021 when
  // the vector is too short, 8022 for a null argument.
  int SetNCRef(const VarInfo* variables, XFVector* averages);

  // A new vector "Weig", the caller's, with the weights of the first `count` variables in their
  // order: Weig, or WeigAC where `is_autoscaled` is not 0. Null, with status 8015 when a variable
  // has no row, 8021 for a count that is negative or too large, 8022 when `variables` is null and
  // 8002 when memory runs out.
  XFVector* ExtWeig(const VarInfo* variables, short count, char is_autoscaled);

  // A new table "ScaInfoX", the caller's, with copies of the rows whose byte in `sel` is 1. Null
  // when `sel` is null or memory runs out.
  ScaInfo* ExtScaInfo(const XI1Vector* sel) const { return Extract<ScaInfo>("ScaInfoX", sel); }

  // Warns of variables whose values do not vary: their WeigAC is missing.
  int ShowAll(StreamWindow& window) override;

 private:
  short FindColumn(short var, const VarInfo& variables, const XFMatrix& matrix) const;
  int SetWeights(short var, EScaType type, const ColumnSpreads& spreads, int column);
  // What SetScaInfo does with the rows of other tables, the first that has a variable.
  int TakeRows(std::span<const ScaInfo* const> sources, const VarInfo& variables,
               const XFMatrix* matrix, bool is_from_data);
  template <typename Predicate>
  short Count(Predicate is_counted) const;
  const char* Header() const override;
  void ShowRow(short i, const ScaData& row, StreamWindow& window) const override;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PREPROCESS_SCA_INFO_H
