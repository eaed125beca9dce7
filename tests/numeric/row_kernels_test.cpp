#include "zemva/numeric/row_kernels.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "numeric/matrices.h"

namespace zemva {
namespace {

constexpr int kRows = 11;

// The bits of all that the kernels make of a matrix.
std::vector<std::uint64_t> ResultsOf(const RowKernels& kernels, const XFMatrix& data) {
  std::vector<std::uint64_t> bits;
  const auto add = [&bits](auto... values) {
    (bits.push_back(std::bit_cast<std::uint64_t>(static_cast<double>(values))), ...);
  };
  const int n = data.NCol();
  XFMatrix matrix(data);
  float* const row = matrix[1] + 1;
  float* const other = matrix[2] + 1;
  const float* const third = matrix[3] + 1;
  for (const auto& sum : {kernels.sum(row, n), kernels.sum_in_float(row, n),
                          kernels.sum_of_squares(row, n), kernels.inner_product(row, other, n)}) {
    add(sum.sum, sum.count);
  }
  double row_squares = 0.0;
  add(kernels.sum_and_squares(row, n, &row_squares).sum, row_squares);
  add(kernels.count_missing(row, n), kernels.least(row, n), kernels.greatest(row, n),
      kernels.greatest_magnitude(row, n));
  const std::size_t size = static_cast<std::size_t>(n);
  const std::size_t padded = static_cast<std::size_t>(PaddedCount(n));
  std::vector<double> sums(padded), squares(padded);
  std::vector<float> least(size, 1e30f), greatest(size, -1e30f), product(size);
  std::vector<int> missing(padded);
  std::vector<short> present(size, 9);
  const float* const* const rows = matrix.GetMatPtr() + 1;
  kernels.add_to_sums(rows, kRows, n, sums.data(), missing.data());
  kernels.add_to_squares(rows, kRows, n, squares.data());
  kernels.add_to_sums_and_squares(rows, kRows, n, sums.data(), squares.data(), missing.data());
  kernels.add_to_wide_deviations(rows, kRows, n, sums.data(), squares.data());
  kernels.add_to_deviations(rows, kRows, n, row, squares.data(), missing.data());
  kernels.update_least(rows, kRows, n, least.data());
  kernels.update_greatest(rows, kRows, n, greatest.data());
  kernels.count_off_missing(row, n, present.data());
  const std::vector<float> factors(kRows, 0.3f);
  kernels.add_rows(product.data(), factors.data(), rows, kRows, n);
  for (std::size_t j = 0; j < size; ++j) {
    add(sums[j], squares[j], missing[j], present[j], least[j], greatest[j], product[j]);
  }
  kernels.add(row, other, n);
  kernels.subtract(other, third, n);
  kernels.multiply(matrix[4] + 1, third, n);
  kernels.scale(matrix[5] + 1, third, matrix[6] + 1, n);
  kernels.add_multiple(matrix[7] + 1, 0.7f, third, n);
  kernels.subtract_multiple(matrix[8] + 1, 0.7f, third, n);
  for (const float cell : test::CellsOf(matrix)) add(cell);
  return bits;
}

TEST(RowKernels, GiveTheSameBitsOnEveryInstructionSet) {
  for (const int n : {0, 1, 7, 8, 9, 63, 255, 256, 261, 300}) {
    const XFMatrix data = test::RandomMatrix(kRows, n, 0.1);
    const auto expected = ResultsOf(FloorRowKernels(), data);
    for (const RowKernels* kernels : UsableRowKernels()) {
      EXPECT_EQ(ResultsOf(*kernels, data), expected) << n;
    }
  }
}

}  // namespace
}  // namespace zemva
