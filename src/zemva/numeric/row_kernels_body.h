// The inner loops, written once for all instruction sets: a source that is compiled for one of them
// includes this and hands out kRowKernels.
#ifndef ZEMVA_NUMERIC_ROW_KERNELS_BODY_H
#define ZEMVA_NUMERIC_ROW_KERNELS_BODY_H

#include "zemva/base/lanes.h"
#include "zemva/numeric/missing.h"
#include "zemva/numeric/row_kernels.h"

#define ZEMVA_INLINE_LAMBDA __attribute__((always_inline))

namespace zemva {
namespace {

constexpr float kInfinity = __builtin_inff();

ZEMVA_INLINE Mask8 IsMissing(const Float8& a) {
  return IsEqual(a, kMissing);
}

// How eight elements are read and written: whole, and the rest at the end of a row, whose lanes
// beyond the end are missing.
struct Whole {
  template <typename T>
  __attribute__((always_inline)) Eight<T> Get(const T* from) const {
    return Load(from);
  }
  template <typename T>
  __attribute__((always_inline)) void Put(const Eight<T>& lanes, T* to) const {
    Store(lanes, to);
  }
};
struct Rest {
  int count;

  template <typename T>
  __attribute__((always_inline)) Eight<T> Get(const T* from) const {
    return LoadRest(from, count, static_cast<T>(kMissing));
  }
  template <typename T>
  __attribute__((always_inline)) void Put(const Eight<T>& lanes, T* to) const {
    StoreRest(lanes, to, count);
  }
};

// Calls step(access, i) for the eight elements from i on, until all n are done.
template <typename Step>
ZEMVA_INLINE void ForLanes(int n, Step step) {
  int i = 0;
  for (; n - i >= kLaneCount; i += kLaneCount) step(Whole{}, i);
  if (i < n) step(Rest{n - i}, i);
}

// The present values among n, of which `missing` has counted down those that are missing, with
// those that filled up the rest.
ZEMVA_INLINE int PresentCount(int n, const Mask8& missing) {
  const int filled_up = (kLaneCount - n % kLaneCount) % kLaneCount;
  return n + filled_up + Total(missing);
}

// Adds term(value) over the present values, `term` giving Sum lanes (Double8 or Float8).
template <typename Sum, typename Term>
ZEMVA_INLINE PresentSum SumPresent(const float* values, int n, Term term) {
  Sum sum = {};
  Mask8 missing = {};
  ForLanes(n, [&](auto access, int i) ZEMVA_INLINE_LAMBDA {
    const Float8 value = access.Get(values + i);
    const Mask8 is_missing = IsMissing(value);
    missing = missing + is_missing;
    sum = sum + term(ZeroWhere(is_missing, value));
  });
  return {static_cast<double>(Total(sum)), PresentCount(n, missing)};
}

PresentSum SumInDouble(const float* values, int n) {
  return SumPresent<Double8>(
      values, n, [](const Float8& value) ZEMVA_INLINE_LAMBDA { return ToDouble(value); });
}

PresentSum SumInFloat(const float* values, int n) {
  return SumPresent<Float8>(values, n,
                            [](const Float8& value) ZEMVA_INLINE_LAMBDA { return value; });
}

ZEMVA_INLINE Double8 Square(const Double8& value) {
  return value * value;
}

PresentSum SumOfSquares(const float* values, int n) {
  return SumPresent<Double8>(
      values, n, [](const Float8& value) ZEMVA_INLINE_LAMBDA { return Square(ToDouble(value)); });
}

PresentSum SumAndSquares(const float* values, int n, double* squares) {
  Double8 sum = {};
  Double8 square_sum = {};
  Mask8 missing = {};
  ForLanes(n, [&](auto access, int i) ZEMVA_INLINE_LAMBDA {
    const Float8 value = access.Get(values + i);
    const Mask8 is_missing = IsMissing(value);
    const Double8 present = ToDouble(ZeroWhere(is_missing, value));
    missing = missing + is_missing;
    sum = sum + present;
    square_sum = square_sum + Square(present);
  });
  *squares = Total(square_sum);
  return {Total(sum), PresentCount(n, missing)};
}

PresentSum InnerProduct(const float* values, const float* others, int n) {
  Double8 sum = {};
  Mask8 missing = {};
  ForLanes(n, [&](auto access, int i) ZEMVA_INLINE_LAMBDA {
    const Float8 value = access.Get(values + i);
    const Float8 other = access.Get(others + i);
    const Mask8 is_missing = IsMissing(value) | IsMissing(other);
    missing = missing + is_missing;
    sum = sum + ToDouble(ZeroWhere(is_missing, value)) * ToDouble(ZeroWhere(is_missing, other));
  });
  return {Total(sum), PresentCount(n, missing)};
}

int CountMissing(const float* values, int n) {
  Mask8 missing = {};
  ForLanes(n, [&](auto access, int i)
                  ZEMVA_INLINE_LAMBDA { missing = missing + IsMissing(access.Get(values + i)); });
  return n - PresentCount(n, missing);
}

void CountOffMissing(const float* values, int n, short* present_counts) {
  for (int j = 0; j < n; ++j) {
    present_counts[j] = static_cast<short>(present_counts[j] - (values[j] == kMissing ? 1 : 0));
  }
}

// The first present value in an order: the smallest or the largest.
struct Ascending {
  static constexpr float kNone = kInfinity;
  ZEMVA_INLINE Float8 First(const Float8& a, const Float8& b) { return Smaller(a, b); }
  ZEMVA_INLINE float First(float a, float b) { return a < b ? a : b; }
};
struct Descending {
  static constexpr float kNone = -kInfinity;
  ZEMVA_INLINE Float8 First(const Float8& a, const Float8& b) { return Larger(a, b); }
  ZEMVA_INLINE float First(float a, float b) { return a > b ? a : b; }
};

template <typename Order, typename Map>
ZEMVA_INLINE float FirstPresent(const float* values, int n, Map map) {
  const Float8 none = Spread(Order::kNone);
  Float8 found = none;
  ForLanes(n, [&](auto access, int i) ZEMVA_INLINE_LAMBDA {
    const Float8 value = access.Get(values + i);
    found = Order::First(Select(IsMissing(value), none, map(value)), found);
  });
  float lanes[kLaneCount];
  Store(found, lanes);
  float first = Order::kNone;
  for (const float lane : lanes) first = Order::First(lane, first);
  return first;
}

float Least(const float* values, int n) {
  return FirstPresent<Ascending>(values, n,
                                 [](const Float8& value) ZEMVA_INLINE_LAMBDA { return value; });
}

float Greatest(const float* values, int n) {
  return FirstPresent<Descending>(values, n,
                                  [](const Float8& value) ZEMVA_INLINE_LAMBDA { return value; });
}

float GreatestMagnitude(const float* values, int n) {
  return FirstPresent<Descending>(
      values, n, [](const Float8& value) ZEMVA_INLINE_LAMBDA { return Magnitude(value); });
}

// Replaces each pair of a value and another by operation(value, other), missing where either is.
template <typename Operation>
ZEMVA_INLINE void Combine(float* values, const float* others, int n, Operation operation) {
  ForLanes(n, [&](auto access, int i) ZEMVA_INLINE_LAMBDA {
    const Float8 value = access.Get(values + i);
    const Float8 other = access.Get(others + i);
    const Mask8 is_missing = IsMissing(value) | IsMissing(other);
    access.Put(Select(is_missing, Spread(kMissing), operation(value, other)), values + i);
  });
}

void Add(float* values, const float* others, int n) {
  Combine(values, others, n,
          [](const Float8& a, const Float8& b) ZEMVA_INLINE_LAMBDA { return a + b; });
}

void Subtract(float* values, const float* others, int n) {
  Combine(values, others, n,
          [](const Float8& a, const Float8& b) ZEMVA_INLINE_LAMBDA { return a - b; });
}

void Multiply(float* values, const float* others, int n) {
  Combine(values, others, n,
          [](const Float8& a, const Float8& b) ZEMVA_INLINE_LAMBDA { return a * b; });
}

void Scale(float* values, const float* centres, const float* weights, int n) {
  ForLanes(n, [&](auto access, int i) ZEMVA_INLINE_LAMBDA {
    const Float8 value = access.Get(values + i);
    const Float8 centre = access.Get(centres + i);
    const Float8 weight = access.Get(weights + i);
    const Mask8 is_missing = IsMissing(value) | IsMissing(centre) | IsMissing(weight);
    access.Put(Select(is_missing, Spread(kMissing), (value - centre) * weight), values + i);
  });
}

void AddMultiple(float* values, float factor, const float* others, int n) {
  const Float8 factors = Spread(factor);
  ForLanes(n, [&](auto access, int i) ZEMVA_INLINE_LAMBDA {
    const Float8 value = access.Get(values + i);
    const Float8 sum = value + factors * access.Get(others + i);
    access.Put(Select(IsMissing(value), value, sum), values + i);
  });
}

// x - t p is x + (-t) p to the last bit.
void SubtractMultiple(float* values, float factor, const float* others, int n) {
  AddMultiple(values, -factor, others, n);
}

// Calls step(access, j, row) for all rows and the columns j, j+8, ...: narrow rows one by one,
// while the accumulators stay in the nearest cache, wide ones four at a time, so that an
// accumulator is read and written once for all four. `step` gets the rows of a group and their
// number, a constant.
template <typename T, typename Step>
ZEMVA_INLINE void ForRowGroups(const T* const* rows, int row_count, int n, Step step) {
  constexpr int kGroup = 4;
  constexpr int kWide = 256;
  int i = 0;
  for (; n >= kWide && row_count - i >= kGroup; i += kGroup) {
    // The next group is fetched meanwhile; four streams at once are too many for the processor to
    // foresee.
    const int next = row_count - i >= 2 * kGroup ? i + kGroup : i;
    ForLanes(n, [&](auto access, int j) ZEMVA_INLINE_LAMBDA {
      for (int k = 0; k < kGroup; ++k) __builtin_prefetch(rows[next + k] + 1 + j);
      step.template operator()<kGroup>(access, j, rows + i);
    });
  }
  for (; i < row_count; ++i) {
    ForLanes(n, [&](auto access, int j)
                    ZEMVA_INLINE_LAMBDA { step.template operator()<1>(access, j, rows + i); });
  }
}

void AddToSums(const float* const* rows, int row_count, int n, double* sums, int* missing_counts) {
  ForRowGroups(rows, row_count, n,
               [&]<int kRows>(auto access, int j, const float* const* group) ZEMVA_INLINE_LAMBDA {
                 Double8 sum = Load(sums + j);
                 Mask8 missing = Load(missing_counts + j);
                 for (int k = 0; k < kRows; ++k) {
                   const Float8 value = access.Get(group[k] + 1 + j);
                   const Mask8 is_missing = IsMissing(value);
                   missing = missing - is_missing;
                   sum = sum + ToDouble(ZeroWhere(is_missing, value));
                 }
                 Store(sum, sums + j);
                 Store(missing, missing_counts + j);
               });
}

void AddToSquares(const float* const* rows, int row_count, int n, double* squares) {
  ForRowGroups(rows, row_count, n,
               [&]<int kRows>(auto access, int j, const float* const* group) ZEMVA_INLINE_LAMBDA {
                 Double8 sum = Load(squares + j);
                 for (int k = 0; k < kRows; ++k) {
                   const Float8 value = access.Get(group[k] + 1 + j);
                   sum = sum + Square(ToDouble(ZeroWhere(IsMissing(value), value)));
                 }
                 Store(sum, squares + j);
               });
}

void AddToSumsAndSquares(const float* const* rows, int row_count, int n, double* sums,
                         double* squares, int* missing_counts) {
  ForRowGroups(rows, row_count, n,
               [&]<int kRows>(auto access, int j, const float* const* group) ZEMVA_INLINE_LAMBDA {
                 Double8 sum = Load(sums + j);
                 Double8 square_sum = Load(squares + j);
                 Mask8 missing = Load(missing_counts + j);
                 for (int k = 0; k < kRows; ++k) {
                   const Float8 value = access.Get(group[k] + 1 + j);
                   const Mask8 is_missing = IsMissing(value);
                   const Double8 present = ToDouble(ZeroWhere(is_missing, value));
                   missing = missing - is_missing;
                   sum = sum + present;
                   square_sum = square_sum + Square(present);
                 }
                 Store(sum, sums + j);
                 Store(square_sum, squares + j);
                 Store(missing, missing_counts + j);
               });
}

void AddToDeviations(const float* const* rows, int row_count, int n, const float* centres,
                     double* squares, int* missing_counts) {
  ForRowGroups(rows, row_count, n,
               [&]<int kRows>(auto access, int j, const float* const* group) ZEMVA_INLINE_LAMBDA {
                 const Float8 centre = access.Get(centres + j);
                 const Double8 wide_centre = ToDouble(centre);
                 Double8 sum = Load(squares + j);
                 Mask8 missing = Load(missing_counts + j);
                 for (int k = 0; k < kRows; ++k) {
                   const Float8 value = access.Get(group[k] + 1 + j);
                   const Mask8 is_missing = IsMissing(value);
                   missing = missing - is_missing;
                   sum = sum + Square(ToDouble(Select(is_missing, centre, value)) - wide_centre);
                 }
                 Store(sum, squares + j);
                 Store(missing, missing_counts + j);
               });
}

void AddToWideDeviations(const float* const* rows, int row_count, int n, const double* centres,
                         double* squares) {
  ForRowGroups(rows, row_count, n,
               [&]<int kRows>(auto access, int j, const float* const* group) ZEMVA_INLINE_LAMBDA {
                 const Double8 centre = Load(centres + j);
                 Double8 sum = Load(squares + j);
                 for (int k = 0; k < kRows; ++k) {
                   const Float8 value = access.Get(group[k] + 1 + j);
                   sum = sum + Square(ZeroWhere(IsMissing(value), ToDouble(value) - centre));
                 }
                 Store(sum, squares + j);
               });
}

template <typename Order>
ZEMVA_INLINE void UpdateFirst(const float* const* rows, int row_count, int n, float* first) {
  const Float8 none = Spread(Order::kNone);
  ForRowGroups(rows, row_count, n,
               [&]<int kRows>(auto access, int j, const float* const* group) ZEMVA_INLINE_LAMBDA {
                 Float8 found = access.Get(first + j);
                 for (int k = 0; k < kRows; ++k) {
                   const Float8 value = access.Get(group[k] + 1 + j);
                   found = Order::First(Select(IsMissing(value), none, value), found);
                 }
                 access.Put(found, first + j);
               });
}

void UpdateLeast(const float* const* rows, int row_count, int n, float* least) {
  UpdateFirst<Ascending>(rows, row_count, n, least);
}

void UpdateGreatest(const float* const* rows, int row_count, int n, float* greatest) {
  UpdateFirst<Descending>(rows, row_count, n, greatest);
}

void AddRows(float* values, const float* factors, const float* const* rows, int row_count, int n) {
  ForRowGroups(rows, row_count, n,
               [&]<int kRows>(auto access, int j, const float* const* group) ZEMVA_INLINE_LAMBDA {
                 const float* const group_factors = factors + (group - rows);
                 Float8 sum = access.Get(values + j);
                 for (int k = 0; k < kRows; ++k) {
                   sum = sum + Spread(group_factors[k]) * access.Get(group[k] + 1 + j);
                 }
                 access.Put(sum, values + j);
               });
}

constexpr RowKernels kRowKernels = {
    .sum = SumInDouble,
    .sum_in_float = SumInFloat,
    .sum_of_squares = SumOfSquares,
    .sum_and_squares = SumAndSquares,
    .inner_product = InnerProduct,
    .count_missing = CountMissing,
    .count_off_missing = CountOffMissing,
    .least = Least,
    .greatest = Greatest,
    .greatest_magnitude = GreatestMagnitude,
    .add = Add,
    .subtract = Subtract,
    .multiply = Multiply,
    .scale = Scale,
    .add_multiple = AddMultiple,
    .subtract_multiple = SubtractMultiple,
    .add_to_sums = AddToSums,
    .add_to_squares = AddToSquares,
    .add_to_sums_and_squares = AddToSumsAndSquares,
    .add_to_deviations = AddToDeviations,
    .add_to_wide_deviations = AddToWideDeviations,
    .update_least = UpdateLeast,
    .update_greatest = UpdateGreatest,
    .add_rows = AddRows,
};

}  // namespace
}  // namespace zemva

#endif  // ZEMVA_NUMERIC_ROW_KERNELS_BODY_H
