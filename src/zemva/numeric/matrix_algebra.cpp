// The operators and the algebra of matrices.
#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <utility>

#include "zemva/numeric/d_matrix.h"
#include "zemva/numeric/f_matrix.h"
#include "zemva/numeric/lu.h"
#include "zemva/numeric/matrix_operators.h"
#include "zemva/numeric/svd.h"

namespace zemva {
namespace {

std::unique_ptr<FMatrix> Narrow(const DMatrix& matrix) {
  auto result = MakeObject<FMatrix>(matrix.NRow(), matrix.NCol(), kMissing);
  for (int i = 1; result && i <= matrix.NRow(); ++i) {
    std::ranges::transform(matrix.Row(i), result->Row(i).begin(),
                           [](double element) { return static_cast<float>(element); });
  }
  return result;
}

FMatrix float_work[2] = {{0, 0, kMissing}, {0, 0, kMissing}};
DMatrix double_work[2] = {{0, 0, kUnusedSlot<double>}, {0, 0, kUnusedSlot<double>}};

}  // namespace

// References, because a program may be given a copy of an object that a library exports, while the
// library goes on with its own.
FMatrix& FMatrix::MStat = float_work[0];
FMatrix& FMatrix::MStat2 = float_work[1];
DMatrix& DMatrix::MStat = double_work[0];
DMatrix& DMatrix::MStat2 = double_work[1];

FMatrix& FMatrix::operator+(const FMatrix& right) const {
  FMatrix sum = CombineElements(*this, right, std::plus());
  return KeepResult(sum, *this, right, MStat, MStat2);
}

FMatrix& FMatrix::operator-(const FMatrix& right) const {
  FMatrix difference = CombineElements(*this, right, std::minus());
  return KeepResult(difference, *this, right, MStat, MStat2);
}

FMatrix& FMatrix::operator*(const FMatrix& right) const {
  FMatrix product = Multiply(*this, right);
  return KeepResult(product, *this, right, MStat, MStat2);
}

int FMatrix::MInv() {
  return Report(Invert(*this));
}

double FMatrix::Det(bool is_kept) {
  double determinant = static_cast<double>(kMissing);
  Report(Determinant(*this, is_kept, determinant));
  return determinant;
}

int FMatrix::SVD(FMatrix*& u, FMatrix*& w, FMatrix*& v) const {
  u = w = v = nullptr;
  const DMatrix matrix(this);
  if (matrix.GetStatus() != status::kOk) return Report(matrix.GetStatus());
  const SingularValueDecomposition svd(matrix);
  if (svd.GetStatus() != status::kOk) return Report(svd.GetStatus());
  auto new_u = Narrow(svd.U());
  auto new_w = Narrow(svd.W());
  auto new_v = Narrow(svd.V());
  if (!new_u || !new_w || !new_v) return Report(status::mat::kMemory);
  u = new_u.release();
  w = new_w.release();
  v = new_v.release();
  return status::kOk;
}

double FMatrix::Trace() const {
  if (NRow() != NCol()) {
    Report(status::mat::kDimension);
    return static_cast<double>(kMissing);
  }
  double trace = 0.0;
  for (int i = 1; i <= NRow(); ++i) trace += static_cast<double>((*this)[i][i]);
  return trace;
}

double FMatrix::CondNo() const {
  constexpr double kSmallest = 1e-30;
  const double not_available = static_cast<double>(kMissing);
  // In double: what is dependent is then found to be so, where products in float would hide it.
  const DMatrix x(this);
  DMatrix transposed(x);
  transposed.Transp();
  const DMatrix square = Multiply(transposed, x);
  for (const DMatrix* work : {&x, &std::as_const(transposed), &square}) {
    if (work->GetStatus() == status::kOk) continue;
    Report(work->GetStatus());
    return not_available;
  }
  const SingularValueDecomposition svd(square);
  if (Report(svd.GetStatus()) != status::kOk || NCol() == 0) return not_available;
  const double first = svd.W()[1][1];
  const double last = svd.W()[NCol()][NCol()];
  return last <= kSmallest ? not_available : std::sqrt(first / last);
}

DMatrix& DMatrix::operator+(const DMatrix& right) const {
  DMatrix sum = CombineElements(*this, right, std::plus());
  return KeepResult(sum, *this, right, MStat, MStat2);
}

DMatrix& DMatrix::operator-(const DMatrix& right) const {
  DMatrix difference = CombineElements(*this, right, std::minus());
  return KeepResult(difference, *this, right, MStat, MStat2);
}

DMatrix& DMatrix::operator*(const DMatrix& right) const {
  DMatrix product = Multiply(*this, right);
  return KeepResult(product, *this, right, MStat, MStat2);
}

int DMatrix::MInv() {
  return Report(Invert(*this));
}

double DMatrix::Det(bool is_kept) {
  double determinant = static_cast<double>(kMissing);
  Report(Determinant(*this, is_kept, determinant));
  return determinant;
}

int DMatrix::SVD(DMatrix*& u, DMatrix*& w, DMatrix*& v) const {
  u = w = v = nullptr;
  const SingularValueDecomposition svd(*this);
  if (svd.GetStatus() != status::kOk) return Report(svd.GetStatus());
  auto new_u = MakeObject<DMatrix>(svd.U());
  auto new_w = MakeObject<DMatrix>(svd.W());
  auto new_v = MakeObject<DMatrix>(svd.V());
  if (!new_u || !new_w || !new_v) return Report(status::mat::kMemory);
  u = new_u.release();
  w = new_w.release();
  v = new_v.release();
  return status::kOk;
}

}  // namespace zemva
