#include "zemva/model/kernels/residual_matrix.h"

#include <algorithm>
#include <cmath>

#include "zemva/base/lane_sums.h"
#include "zemva/model/kernels/projection_loops.h"
#include "zemva/numeric/missing.h"
#include "zemva/numeric/present.h"

namespace zemva {
namespace {

double Square(float value) {
  return static_cast<double>(value) * static_cast<double>(value);
}

std::vector<char> FlagsFor(std::span<const char> takes_part, std::size_t column_count) {
  if (takes_part.empty()) return std::vector<char>(column_count, 1);
  return {takes_part.begin(), takes_part.end()};
}

}  // namespace

ResidualMatrix::ResidualMatrix(const XFMatrix& values, std::span<const char> takes_part)
    : takes_part_(FlagsFor(takes_part, static_cast<std::size_t>(values.NCol()))),
      row_count_(static_cast<std::size_t>(values.NRow())),
      stride_(PaddedCount(ColumnCount())),
      elements_(row_count_ * stride_),
      first_hole_(row_count_ + 1) {
  for (std::size_t i = 0; i < row_count_; ++i) {
    const std::span<const float> row = values.Row(static_cast<int>(i) + 1);
    const std::span<float> copy{elements_.Data() + i * stride_, stride_};
    std::fill(std::ranges::copy(row, copy.begin()).out, copy.end(), 0.0f);
    if (CountPresent(row) < values.NCol()) MakeHoles(copy.first(row.size()));
    first_hole_[i + 1] = holes_.size();
  }
  ClearUnusedColumns();
}

void ResidualMatrix::MakeHoles(std::span<float> row) {
  for (std::size_t k = 0; k < row.size(); ++k) {
    if (!IsMissing(row[k]) || !TakesPart(k)) continue;
    row[k] = 0.0f;
    holes_.push_back(static_cast<int>(k));
  }
}

void ResidualMatrix::ClearUnusedColumns() {
  for (std::size_t k = 0; k < ColumnCount(); ++k) {
    if (TakesPart(k)) continue;
    for (std::size_t i = 0; i < row_count_; ++i) elements_[i * stride_ + k] = 0.0f;
  }
}

void ResidualMatrix::ClearHoles(std::size_t row) {
  for (const int hole : Holes(row))
    elements_[row * stride_ + static_cast<std::size_t>(hole)] = 0.0f;
}

void ResidualMatrix::CenterAndScale(const XFMatrix& values, std::span<const float> centre,
                                    std::span<const float> weights) {
  for (std::size_t i = 0; i < row_count_; ++i) {
    const std::span<const float> loaded = values.Row(static_cast<int>(i) + 1);
    float* const row = elements_.Data() + i * stride_;
    for (std::size_t k = 0; k < ColumnCount(); ++k) {
      row[k] = CenteredAndScaled(loaded[k], centre[k], weights[k]);
    }
    ClearHoles(i);
  }
  ClearUnusedColumns();
  version_ = NextVersion();
}

std::size_t ResidualMatrix::NextVersion() {
  static std::size_t last = 0;
  return ++last;
}

bool ResidualMatrix::IsHole(std::size_t row, std::size_t column) const {
  return std::ranges::binary_search(Holes(row), static_cast<int>(column));
}

void ResidualMatrix::Subtract(std::span<const float> scores, std::span<const float> loadings) {
  for (std::size_t i = 0; i < row_count_; ++i) {
    if (IsMissing(scores[i])) continue;
    const float score = scores[i];
    float* const row = elements_.Data() + i * stride_;
    for (std::size_t k = 0; k < loadings.size(); ++k) row[k] -= score * loadings[k];
    ClearHoles(i);
  }
  ClearUnusedColumns();
  version_ = NextVersion();
}

std::vector<double> ResidualMatrix::RowSquares() const {
  std::vector<double> squares(row_count_);
  for (std::size_t i = 0; i < row_count_; ++i) {
    const std::span<const float> row = Row(i);
    squares[i] = SumInLanes(row.size(), [&](std::size_t k) { return Square(row[k]); });
  }
  return squares;
}

std::vector<double> ResidualMatrix::ColumnSquares() const {
  std::vector<double> squares(ColumnCount());
  std::size_t i = 0;
  for (; i + kBlockRows <= row_count_; i += kBlockRows) {
    const float* const row = elements_.Data() + i * stride_;
    for (std::size_t k = 0; k < squares.size(); ++k) {
      squares[k] += (Square(row[k]) + Square(row[stride_ + k])) +
                    (Square(row[2 * stride_ + k]) + Square(row[3 * stride_ + k]));
    }
  }
  for (; i < row_count_; ++i) {
    const float* const row = elements_.Data() + i * stride_;
    for (std::size_t k = 0; k < squares.size(); ++k) squares[k] += Square(row[k]);
  }
  return squares;
}

void ResidualMatrix::CopyStart(std::size_t column, std::span<float> start) const {
  float largest = 0.0f;
  for (std::size_t i = 0; i < row_count_; ++i) {
    largest = std::max(largest, std::fabs(elements_[i * stride_ + column]));
  }
  float substitute = largest / 100.0f;
  for (std::size_t i = 0; i < row_count_; ++i) {
    if (IsHole(i, column)) {
      start[i] = substitute;
      substitute = -substitute;
    } else {
      start[i] = AsPresent(elements_[i * stride_ + column]);
    }
  }
}

void ResidualMatrix::CopyTo(XFMatrix& target) const {
  for (std::size_t i = 0; i < row_count_; ++i) {
    const std::span<float> row = target.Row(static_cast<int>(i) + 1);
    ForEachPresent(i, [&](std::size_t k) { row[k] = AsPresent(elements_[i * stride_ + k]); });
  }
}

}  // namespace zemva
