// The matrix that a model takes its components out of.
#ifndef ZEMVA_MODEL_KERNELS_RESIDUAL_MATRIX_H
#define ZEMVA_MODEL_KERNELS_RESIDUAL_MATRIX_H

#include <cstddef>
#include <span>
#include <vector>

#include "zemva/model/kernels/aligned_buffer.h"
#include "zemva/numeric/missing.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva {

// An element as a model takes it, (value - centre) * weight, computed in double.
inline float CenteredAndScaled(float value, float centre, float weight) {
  const double deviation = static_cast<double>(value) - static_cast<double>(centre);
  return AsPresent(static_cast<float>(deviation * static_cast<double>(weight)));
}

// N rows (observations) by K columns (variables) of floats in one block of memory, made for being
// read over and over. Rows and columns count from 0 here, and the vectors that go with them are
// spans of the values alone.
//
// A missing element is a hole: 0 in the block, so that it drops out of every product, and on a list
// of its row. A column that takes no part is all 0 and has no holes: whatever is projected on it is
// 0, and 0 is what it gives to a score.
class ResidualMatrix {
 public:
  // The elements of `values` as they are. Column k takes no part where takes_part[k] is 0; without
  // flags all take part. Throws std::bad_alloc.
  explicit ResidualMatrix(const XFMatrix& values, std::span<const char> takes_part = {});

  std::size_t RowCount() const { return row_count_; }
  std::size_t ColumnCount() const { return takes_part_.size(); }
  bool TakesPart(std::size_t column) const { return takes_part_[column] != 0; }
  bool IsComplete() const { return holes_.empty(); }
  // Another one after every change, of this matrix or of any.
  std::size_t GetVersion() const { return version_; }

  // Row `row` with 0 for what is missing, and the columns of its missing elements, ascending.
  std::span<const float> Row(std::size_t row) const {
    return {elements_.Data() + row * stride_, ColumnCount()};
  }
  std::span<const int> Holes(std::size_t row) const {
    return {holes_.data() + first_hole_[row], first_hole_[row + 1] - first_hole_[row]};
  }
  bool IsHole(std::size_t row, std::size_t column) const;

  // Calls visit(column) for the present elements of a row, in order, in columns that take part.
  template <typename Visit>
  void ForEachPresent(std::size_t row, Visit visit) const {
    std::span<const int> holes = Holes(row);
    for (std::size_t k = 0; k < ColumnCount(); ++k) {
      if (!holes.empty() && holes.front() == static_cast<int>(k)) {
        holes = holes.subspan(1);
      } else if (TakesPart(k)) {
        visit(k);
      }
    }
  }

  // Every row is followed by zeros up to this length, a multiple of kLaneCount.
  std::size_t PaddedLength() const { return stride_; }

  // Makes of every present element that of `values`, which the matrix was made of, centred and
  // scaled.
  void CenterAndScale(const XFMatrix& values, std::span<const float> centre,
                      std::span<const float> weights);

  // The matrix less t p', in float. Where an element or a score is missing, and in columns that
  // take no part, nothing changes.
  void Subtract(std::span<const float> scores, std::span<const float> loadings);

  // Sums of the squares of the present elements.
  std::vector<double> RowSquares() const;
  std::vector<double> ColumnSquares() const;

  // A column to start an iteration from: in place of its missing elements stand +h, -h, +h, ... in
  // the order of rows, h a hundredth of the column's largest absolute value. `start` has N values.
  void CopyStart(std::size_t column, std::span<float> start) const;

  // Writes the present elements of the columns that take part into a matrix of the same size.
  void CopyTo(XFMatrix& target) const;

 private:
  // Zeros for the missing elements of the last row so far, which become holes.
  void MakeHoles(std::span<float> row);
  void ClearUnusedColumns();
  // Puts back the zeros of the holes after a change of the row.
  void ClearHoles(std::size_t row);
  static std::size_t NextVersion();

  std::vector<char> takes_part_;
  std::size_t row_count_;
  std::size_t stride_;
  AlignedBuffer<float> elements_;
  // The holes of row i are holes_[first_hole_[i]] up to holes_[first_hole_[i + 1]].
  std::vector<int> holes_;
  std::vector<std::size_t> first_hole_;
  std::size_t version_ = NextVersion();
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_RESIDUAL_MATRIX_H
