// Univariate summary statistics.
#ifndef ZEMVA_NUMERIC_UNI_VAR_H
#define ZEMVA_NUMERIC_UNI_VAR_H

#include "zemva/base/export.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

// A table of summary statistics, one row a variable (a column of the data matrix), over the
// selected observations (its rows). The statistics to compute are switched on and off one by one.
class ZEMVA_API UniVar {
 public:
  UniVar() = default;
  UniVar(const UniVar&) = default;
  UniVar& operator=(const UniVar&) = default;
  ~UniVar();

  // There is nothing to ask a user for. Returns 0.
  int SetOptions() { return 0; }

  // Kurtosis, skewness and probability of normality, median, and the lower and upper quartile are
  // off at first; all others are on. The probability of normality is a column without values.
  void SetIsKurt(bool is_on) { has_kurtosis_ = is_on; }
  void SetIsMax(bool is_on) { has_max_ = is_on; }
  void SetIsMinMax(bool is_on) { has_min_max_ratio_ = is_on; }
  void SetIsMean(bool is_on) { has_mean_ = is_on; }
  void SetIsMedian(bool is_on) { has_median_ = is_on; }
  void SetIsMin(bool is_on) { has_min_ = is_on; }
  void SetIsMisValProc(bool is_on) { has_missing_percentage_ = is_on; }
  void SetIsNObsA(bool is_on) { has_present_count_ = is_on; }
  void SetIsPNorm(bool is_on) { has_normality_ = is_on; }
  void SetIsSD(bool is_on) { has_sd_ = is_on; }
  void SetIsSkew(bool is_on) { has_skewness_ = is_on; }
  void SetIsIQR(bool is_on) { has_quartiles_ = is_on; }

  // The number of statistics that are on; the quartiles are two.
  int GetNumberOfStatistics() const;

  // Lists the statistics of the variables with a flag other than 0 in `variables`, over the
  // observations with a flag other than 0 in `observations`: a line a variable, with its position.
  // Where no observation is selected it says so and ends. 0; 13002 when an argument is null or
  // there is not a flag for each column and row of `x`; 13001.
  int Calc(const XFMatrix* x, const XI1Vector* variables, const XI1Vector* observations,
           StreamWindow& window) const;

  // The same as a matrix "Results", a row a selected variable and a column a statistic, kMissing
  // for what cannot be computed, and a vector "Headers" of the columns' labels. Both are new and
  // the caller's; null when it fails. 0; 1 when no statistic is on; the codes of Calc. Where no
  // observation is selected all values are kMissing.
  int CalcAndReturnAsVectors(const XFMatrix* x, const XI1Vector* variables,
                             const XI1Vector* observations, XFMatrix*& results,
                             XSVector*& headers) const;

 private:
  // A column of the table.
  struct Column;
  static const Column kColumns[];

  bool has_kurtosis_ = false;
  bool has_max_ = true;
  bool has_min_max_ratio_ = true;
  bool has_mean_ = true;
  bool has_median_ = false;
  bool has_min_ = true;
  bool has_missing_percentage_ = true;
  bool has_present_count_ = true;
  bool has_normality_ = false;
  bool has_sd_ = true;
  bool has_skewness_ = false;
  bool has_quartiles_ = false;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_UNI_VAR_H
