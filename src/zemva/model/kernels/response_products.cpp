#include "zemva/model/kernels/response_products.h"

#include <algorithm>

#include "zemva/base/lane_sums.h"

namespace zemva {
namespace {

double Dot(std::span<const double> a, std::span<const double> b) {
  return SumInLanes(a.size(), [&](std::size_t k) { return a[k] * b[k]; });
}

}  // namespace

std::vector<double> ResponseProducts::Square::Times(std::span<const double> g) const {
  std::vector<double> product(size);
  for (std::size_t m = 0; m < size; ++m) {
    product[m] = Dot(std::span(elements).subspan(m * size, size), g);
  }
  return product;
}

double ResponseProducts::Square::Of(std::span<const double> g, std::span<const double> h) const {
  return Dot(Times(g), h);
}

ResponseProducts::ResponseProducts(const ResidualMatrix& x, const ResidualMatrix& y,
                                   const LeftOut& left_out, const ProjectionLoops& loops)
    : column_count_(x.ColumnCount()),
      stride_(x.PaddedLength()),
      s_(stride_ * y.ColumnCount()),
      of_s_(y.ColumnCount()),
      of_z_(y.ColumnCount()),
      of_f_(y.ColumnCount()) {
  const std::size_t response_count = y.ColumnCount();
  std::ranges::fill(s_.Values(), 0.0);
  const auto add_products = [&](Square& square, const auto& row) {
    for (std::size_t m = 0; m < response_count; ++m) {
      for (std::size_t n = 0; n < response_count; ++n) {
        square.elements[m * response_count + n] +=
            static_cast<double>(row[m]) * static_cast<double>(row[n]);
      }
    }
  };
  // S = E'F and F'F
  ForEachBlock(x, left_out,
               [&](const float* const* rows, const std::size_t* at, std::size_t count) {
                 for (std::size_t m = 0; m < response_count; ++m) {
                   double factors[kBlockRows] = {};
                   for (std::size_t r = 0; r < count; ++r)
                     factors[r] = static_cast<double>(y.Row(at[r])[m]);
                   loops.add[count - 1](rows, factors, stride_, s_.Data() + m * stride_, 0);
                 }
                 for (std::size_t r = 0; r < count; ++r) add_products(of_f_, y.Row(at[r]));
               });
  // Z = E S and Z'Z
  std::vector<double> z(response_count);
  ForEachBlock(x, left_out, [&](const float* const* rows, const std::size_t*, std::size_t count) {
    std::vector<double> of_rows(response_count * kBlockRows);
    for (std::size_t m = 0; m < response_count; ++m) {
      loops.dot[count - 1](rows, s_.Data() + m * stride_, stride_, &of_rows[m * kBlockRows]);
    }
    for (std::size_t r = 0; r < count; ++r) {
      for (std::size_t m = 0; m < response_count; ++m) z[m] = of_rows[m * kBlockRows + r];
      add_products(of_z_, z);
    }
  });
  for (std::size_t m = 0; m < response_count; ++m) {
    for (std::size_t n = 0; n < response_count; ++n) {
      of_s_.elements[m * response_count + n] =
          Dot(s_.Values().subspan(m * stride_, stride_), s_.Values().subspan(n * stride_, stride_));
    }
  }
}

std::vector<double> ResponseProducts::WeightsOf(std::span<const double> g) const {
  std::vector<double> weights(column_count_);
  for (std::size_t m = 0; m < g.size(); ++m) {
    const double* const row = s_.Data() + m * stride_;
    for (std::size_t k = 0; k < column_count_; ++k) weights[k] += g[m] * row[k];
  }
  return weights;
}

// Up to four rows at a time, of one class, and their positions.
template <typename Visit>
void ResponseProducts::ForEachBlock(const ResidualMatrix& x, const LeftOut& left_out,
                                    Visit visit) const {
  const std::size_t step = left_out.ClassCount();
  for (std::size_t row_class = 0; row_class < step; ++row_class) {
    if (left_out.IsWholeRow(row_class)) continue;
    for (std::size_t i = left_out.FirstRowOf(row_class); i < x.RowCount();) {
      const float* rows[kBlockRows] = {};
      std::size_t at[kBlockRows] = {};
      std::size_t count = 0;
      for (; count < kBlockRows && i < x.RowCount(); i += step) {
        rows[count] = x.Row(i).data();
        at[count++] = i;
      }
      visit(rows, at, count);
    }
  }
}

}  // namespace zemva
