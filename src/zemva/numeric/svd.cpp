#include "zemva/numeric/svd.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <utility>

#include "zemva/numeric/vector.h"

namespace zemva {
namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

double InnerProduct(std::span<const double> a, std::span<const double> b) {
  double sum = 0.0;
  for (std::size_t i = 0; i < a.size(); ++i) sum += a[i] * b[i];
  return sum;
}

double Length(std::span<const double> a) {
  return std::sqrt(InnerProduct(a, a));
}

// x becomes cosine * x - sine * y, y becomes sine * x + cosine * y.
void Rotate(std::span<double> x, std::span<double> y, double cosine, double sine) {
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double old_x = x[i];
    x[i] = cosine * old_x - sine * y[i];
    y[i] = sine * old_x + cosine * y[i];
  }
}

double LargestMagnitude(const DMatrix& matrix) {
  double largest = 0.0;
  for (int i = 1; i <= matrix.NRow(); ++i) {
    for (const double element : matrix.Row(i)) {
      if (!std::isfinite(element)) return std::numeric_limits<double>::infinity();
      largest = std::max(largest, std::fabs(element));
    }
  }
  return largest;
}

// Orthogonalizes the rows of B (k by m, k <= m) by rotations, B = R' C with R (k by k) orthogonal
// and the rows of C orthogonal, in order of descending length.
class Jacobi {
 public:
  Jacobi(DMatrix& rows, DMatrix& rotations) : rows_(rows), rotations_(rotations) {
    for (int i = 1; i <= rotations_.NRow(); ++i) rotations_[i][i] = 1.0;
  }

  // False when the rows do not become orthogonal.
  bool Run() {
    constexpr int kMostSweeps = 60;
    for (int sweep = 1; sweep <= kMostSweeps; ++sweep) {
      if (!Sweep()) return true;
    }
    return false;
  }

 private:
  // Rotates each pair of rows; false when none had to be.
  bool Sweep() {
    double longest = 0.0;
    for (int p = 1; p <= rows_.NRow(); ++p) longest = std::max(longest, Length(rows_.Row(p)));
    const double negligible = kEpsilon * rows_.NCol() * longest;
    bool has_rotated = false;
    for (int p = 1; p < rows_.NRow(); ++p) {
      for (int q = p + 1; q <= rows_.NRow(); ++q) {
        has_rotated = Orthogonalize(p, q, negligible * negligible) || has_rotated;
      }
    }
    return has_rotated;
  }

  // Makes rows p and q orthogonal, the longer one in p; false when they are, or when one is too
  // short to matter.
  bool Orthogonalize(int p, int q, double negligible_square) {
    double p_square = InnerProduct(rows_.Row(p), rows_.Row(p));
    double q_square = InnerProduct(rows_.Row(q), rows_.Row(q));
    if (p_square < q_square) {
      rows_.SwapRow(p, q);
      rotations_.SwapRow(p, q);
      std::swap(p_square, q_square);
    }
    if (q_square <= negligible_square) return false;
    const double product = InnerProduct(rows_.Row(p), rows_.Row(q));
    const double tolerance = kEpsilon * std::sqrt(rows_.NCol());
    if (std::fabs(product) <= tolerance * std::sqrt(p_square) * std::sqrt(q_square)) return false;
    // The smaller root t of  t^2 + 2 zeta t - 1 = 0.
    const double zeta = (q_square - p_square) / (2.0 * product);
    const double tangent = std::copysign(1.0, zeta) / (std::fabs(zeta) + std::hypot(1.0, zeta));
    const double cosine = 1.0 / std::hypot(1.0, tangent);
    Rotate(rows_.Row(p), rows_.Row(q), cosine, cosine * tangent);
    Rotate(rotations_.Row(p), rotations_.Row(q), cosine, cosine * tangent);
    return true;
  }

  DMatrix& rows_;
  DMatrix& rotations_;
};

// Sets row k to a unit vector orthogonal to the rows 1..k-1, which are orthonormal: the axis that
// they leave the most of, less its projections on them.
void CompleteRow(DMatrix& rows, int k) {
  int axis = 1;
  double most_left = -1.0;
  for (int j = 1; j <= rows.NCol(); ++j) {
    double left = 1.0;
    for (int i = 1; i < k; ++i) left -= rows[i][j] * rows[i][j];
    if (left > most_left) {
      most_left = left;
      axis = j;
    }
  }
  const std::span<double> row = rows.Row(k);
  std::ranges::fill(row, 0.0);
  rows[k][axis] = 1.0;
  // Projecting twice makes up for the rounding of the first time.
  for (int pass = 1; pass <= 2; ++pass) {
    for (int i = 1; i < k; ++i) {
      const double product = InnerProduct(row, rows.Row(i));
      for (int j = 1; j <= rows.NCol(); ++j) rows[k][j] -= product * rows[i][j];
    }
  }
  const double length = Length(row);
  for (double& element : row) element /= length;
}

// Takes the lengths of the rows into the diagonal of W and scales the rows to length 1.
void Normalize(DMatrix& rows, DMatrix& w) {
  const double negligible = rows.NRow() == 0 ? 0.0 : kEpsilon * rows.NCol() * Length(rows.Row(1));
  for (int k = 1; k <= rows.NRow(); ++k) {
    const double length = Length(rows.Row(k));
    if (length > negligible) {
      for (double& element : rows.Row(k)) element /= length;
      w[k][k] = length;
    } else {
      CompleteRow(rows, k);
    }
  }
}

}  // namespace

// A tall A is worked on transposed, A' = R' C, where A = C' R, U comes of the rows of C and V of
// those of R; a wide one as it is, A = R' C, the other way round.
SingularValueDecomposition::SingularValueDecomposition(const DMatrix& matrix)
    : is_tall_(matrix.NRow() >= matrix.NCol()),
      size_(std::min(matrix.NRow(), matrix.NCol())),
      u_(is_tall_ ? DMatrix(matrix) : DMatrix(size_, size_, 0.0)),
      w_(size_, size_, 0.0),
      v_(is_tall_ ? DMatrix(size_, size_, 0.0) : DMatrix(matrix)),
      status_(Compute(matrix)) {}

int SingularValueDecomposition::Compute(const DMatrix& matrix) {
  if (is_tall_) u_.Transp();
  for (const DMatrix* work : {&u_, &w_, &v_}) {
    if (work->GetStatus() != status::kOk) return work->GetStatus();
  }
  DMatrix& rows = is_tall_ ? u_ : v_;
  DMatrix& rotations = is_tall_ ? v_ : u_;
  // A power of two, so that scaling rounds nothing, keeps squares within range.
  const double largest = LargestMagnitude(matrix);
  if (!std::isfinite(largest)) return status::mat::kOther;
  const int exponent = largest > 0.0 ? std::ilogb(largest) : 0;
  for (int i = 1; i <= size_; ++i) {
    for (double& element : rows.Row(i)) element = std::scalbn(element, -exponent);
  }
  if (!Jacobi(rows, rotations).Run()) return status::mat::kOther;
  Normalize(rows, w_);
  for (int i = 1; i <= size_; ++i) w_[i][i] = std::scalbn(w_[i][i], exponent);
  const int u_status = u_.Transp();
  const int v_status = v_.Transp();
  return u_status != status::kOk ? u_status : v_status;
}

}  // namespace zemva
