// The lagged variables of a work set.
#ifndef ZEMVA_MODEL_PREPROCESS_LAG_INFO_H
#define ZEMVA_MODEL_PREPROCESS_LAG_INFO_H

#include <memory>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/data/itm_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/preprocess/variable_table.h"

namespace zemva {

// A lagged variable, with number and name: at each observation it has the value that variable
// VNumDS of the data set had `lag` observations earlier. Lambda and Delay are kept for the caller.
class ZEMVA_API LagData : public ItmData {
 public:
  LagData(short vnum, const char* name, short vnum_ds, short lag, float lambda, short delay)
      : ItmData(vnum, name), vnum_ds_(vnum_ds), lag_(lag), lambda_(lambda), delay_(delay) {}
  std::unique_ptr<ItmData> Clone() const override { return std::make_unique<LagData>(*this); }

  short GetVNumDS() const { return vnum_ds_; }
  short GetLag() const { return lag_; }
  float GetLambda() const { return lambda_; }
  short GetDelay() const { return delay_; }

  // The name of a lagged variable: the lag in three digits, then the name of its source, cut where
  // it does not fit. A null name is the empty one.
  static FixedText<25> DefaultName(short lag, const char* source_name);

 private:
  short vnum_ds_;
  short lag_;
  float lambda_;
  short delay_;
};

class ZEMVA_API LagInfo : public VariableTable<LagData> {
 public:
  explicit LagInfo(const char* name) : VariableTable(name) {}

  // A new table "LagInfoX", the caller's, with copies of the rows whose byte in `sel` is 1. Null
  // when `sel` is null or memory runs out.
  LagInfo* ExtLagInfo(const XI1Vector* sel) const { return Extract<LagInfo>("LagInfoX", sel); }

  // Lists for each source variable, in the order of the rows, its lags. Returns 0.
  int ShowStructures(StreamWindow& window) const;

 private:
  // Whether no row before row i has the same source.
  bool IsFirstOfSource(short i) const;
  const char* Header() const override;
  void ShowRow(short i, const LagData& row, StreamWindow& window) const override;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PREPROCESS_LAG_INFO_H
