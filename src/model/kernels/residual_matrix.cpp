#include "model/kernels/residual_matrix.h"

#include <algorithm>
#include <cmath>

#include "model/kernels/lanes.h"
#include "numeric/missing.h"

namespace zemva {
namespace {

std::size_t PaddedTo(std::size_t multiple, std::size_t length) {
  return (length + multiple - 1) / multiple * multiple;
}

std::vector<char> FlagsFor(std::span<const char> takes_part, std::size_t column_count) {
  if (takes_part.empty()) return std::vector<char>(column_count, 1);
  return {takes_part.begin(), takes_part.end()};
}

}  // namespace

ResidualMatrix::ResidualMatrix(const XFMatrix& values, std::span<const char> takes_part)
    : takes_part_(FlagsFor(takes_part, static_cast<std::size_t>(values.NCol()))),
      used_column_count_(ColumnCount() -
                         static_cast<std::size_t>(std::ranges::count(takes_part_, char{0}))),
      row_count_(static_cast<std::size_t>(values.NRow())),
      stride_(PaddedTo(kLaneCount, ColumnCount())),
      elements_(row_count_ * stride_),
      first_hole_(row_count_ + 1),
      column_counts_(ColumnCount()) {
  for (std::size_t i = 0; i < row_count_; ++i) {
    const std::span<const float> row = values.Row(static_cast<int>(i) + 1);
    float* const element = elements_.Data() + i * stride_;
    for (std::size_t k = 0; k < row.size(); ++k) {
      if (!TakesPart(k)) continue;
      if (IsMissing(row[k])) {
        holes_.push_back(static_cast<int>(k));
      } else {
        element[k] = row[k];
        ++column_counts_[k];
      }
    }
    first_hole_[i + 1] = holes_.size();
  }
}

std::size_t ResidualMatrix::RowPresentCount(std::size_t row) const {
  return used_column_count_ - Holes(row).size();
}

bool ResidualMatrix::IsHole(std::size_t row, std::size_t column) const {
  return std::ranges::binary_search(Holes(row), static_cast<int>(column));
}

void ResidualMatrix::Subtract(std::span<const float> scores, std::span<const float> loadings) {
  AddMultiple(-1.0f, scores, loadings);
}

void ResidualMatrix::Add(std::span<const float> scores, std::span<const float> loadings) {
  AddMultiple(1.0f, scores, loadings);
}

void ResidualMatrix::AddMultiple(float sign, std::span<const float> scores,
                                 std::span<const float> loadings) {
  for (std::size_t i = 0; i < row_count_; ++i) {
    if (IsMissing(scores[i])) continue;
    const float score = sign * scores[i];
    float* const row = elements_.Data() + i * stride_;
    for (std::size_t k = 0; k < loadings.size(); ++k) row[k] += score * loadings[k];
    for (const int hole : Holes(i)) row[hole] = 0.0f;
  }
  if (used_column_count_ == ColumnCount()) return;
  for (std::size_t k = 0; k < ColumnCount(); ++k) {
    if (TakesPart(k)) continue;
    for (std::size_t i = 0; i < row_count_; ++i) elements_[i * stride_ + k] = 0.0f;
  }
}

std::vector<double> ResidualMatrix::RowSquares() const {
  std::vector<double> squares(row_count_);
  for (std::size_t i = 0; i < row_count_; ++i) {
    const std::span<const float> row = Row(i);
    squares[i] = SumInLanes(row.size(), [&](std::size_t k) {
      return static_cast<double>(row[k]) * static_cast<double>(row[k]);
    });
  }
  return squares;
}

std::vector<double> ResidualMatrix::ColumnSquares() const {
  std::vector<double> squares(ColumnCount());
  for (std::size_t i = 0; i < row_count_; ++i) {
    const std::span<const float> row = Row(i);
    for (std::size_t k = 0; k < row.size(); ++k) {
      squares[k] += static_cast<double>(row[k]) * static_cast<double>(row[k]);
    }
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
    auto hole = Holes(i).begin();
    for (std::size_t k = 0; k < row.size(); ++k) {
      if (hole != Holes(i).end() && *hole == static_cast<int>(k)) {
        ++hole;
      } else if (TakesPart(k)) {
        row[k] = AsPresent(elements_[i * stride_ + k]);
      }
    }
  }
}

}  // namespace zemva
