// The inner loops over rows of values.
#ifndef ZEMVA_NUMERIC_ROW_KERNELS_H
#define ZEMVA_NUMERIC_ROW_KERNELS_H

#include <span>

#include "zemva/base/lane_sums.h"
#include "zemva/numeric/present.h"

namespace zemva {

// Each comes once for every instruction set, all giving the same bits. A row is n consecutive
// values, counted from 0 here; missing values are left out unless said otherwise.
struct RowKernels {
  // Sums over one row, in lanes: of the values, in double and in float; of their squares; of both;
  // of the products with another row, where both are present.
  PresentSum (*sum)(const float* values, int n);
  PresentSum (*sum_in_float)(const float* values, int n);
  PresentSum (*sum_of_squares)(const float* values, int n);
  PresentSum (*sum_and_squares)(const float* values, int n, double* squares);
  PresentSum (*inner_product)(const float* values, const float* others, int n);

  // How many values are missing; and for each that is, 1 off its counter.
  int (*count_missing)(const float* values, int n);
  void (*count_off_missing)(const float* values, int n, short* present_counts);

  // The smallest and the largest value and the largest absolute value; +infinity, and for the
  // largest -infinity, when there is none. A NaN is passed over.
  float (*least)(const float* values, int n);
  float (*greatest)(const float* values, int n);
  float (*greatest_magnitude)(const float* values, int n);

  // A row and another, in place; missing where either is.
  void (*add)(float* values, const float* others, int n);
  void (*subtract)(float* values, const float* others, int n);
  void (*multiply)(float* values, const float* others, int n);
  // (value - centre) * weight, in place; missing where any of the three is.
  void (*scale)(float* values, const float* centres, const float* weights, int n);
  // value + factor * other and value - factor * other, in place; the factor and the others are
  // taken as they stand.
  void (*add_multiple)(float* values, float factor, const float* others, int n);
  void (*subtract_multiple)(float* values, float factor, const float* others, int n);

  // Statistics of n columns over the rows rows[0..row_count-1], whose values begin at rows[i][1],
  // added row by row to one accumulator a column. Sums, sums of squares and sums of squares about a
  // centre, in double, with the number of values that are missing: these accumulators, and centres
  // in double, have room for PaddedCount(n). The smallest and the largest, where an accumulator
  // begins as +infinity or -infinity.
  void (*add_to_sums)(const float* const* rows, int row_count, int n, double* sums,
                      int* missing_counts);
  void (*add_to_squares)(const float* const* rows, int row_count, int n, double* squares);
  void (*add_to_sums_and_squares)(const float* const* rows, int row_count, int n, double* sums,
                                  double* squares, int* missing_counts);
  void (*add_to_deviations)(const float* const* rows, int row_count, int n, const float* centres,
                            double* squares, int* missing_counts);
  void (*add_to_wide_deviations)(const float* const* rows, int row_count, int n,
                                 const double* centres, double* squares);
  void (*update_least)(const float* const* rows, int row_count, int n, float* least);
  void (*update_greatest)(const float* const* rows, int row_count, int n, float* greatest);

  // values += factors[0] * rows[0] + factors[1] * rows[1] + ..., in float and one term after the
  // other, with the values of a row from rows[i][1] on; no value is taken as missing.
  void (*add_rows)(float* values, const float* factors, const float* const* rows, int row_count,
                   int n);
};

const RowKernels& Avx512RowKernels();
const RowKernels& Avx2RowKernels();
const RowKernels& FloorRowKernels();

// Those that can run here, the widest first; and the widest.
std::span<const RowKernels* const> UsableRowKernels();
const RowKernels& GetRowKernels();

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_ROW_KERNELS_H
