#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "numeric/matrices.h"
#include "support/temp_folder.h"
#include "zemva/numeric/d_matrix.h"

namespace zemva {
namespace {

using test::CellsOf;
using test::kNone;
using test::MatrixOf;
using Floats = std::vector<float>;

constexpr double kFloatEpsilon = 6e-8;
constexpr double kDoubleEpsilon = 2.3e-16;

template <typename Matrix>
double LargestDifference(const Matrix& a, const Matrix& b) {
  double largest = 0.0;
  for (int i = 1; i <= a.NRow(); ++i) {
    for (int j = 1; j <= a.NCol(); ++j) {
      const double difference = std::fabs(static_cast<double>(a[i][j] - b[i][j]));
      largest = std::isnan(difference) ? HUGE_VAL : std::max(largest, difference);
    }
  }
  return largest;
}

template <typename Matrix>
Matrix Identity(int n) {
  Matrix identity(n, n, 0);
  for (int i = 1; i <= n; ++i) identity[i][i] = 1;
  return identity;
}

template <typename Matrix>
Matrix Transposed(Matrix matrix) {
  matrix.Transp();
  return matrix;
}

DMatrix Widened(const FMatrix& matrix) {
  return DMatrix(&matrix);
}

DMatrix Hilbert(int n) {
  DMatrix matrix(n, n, 0.0);
  for (int i = 1; i <= n; ++i) {
    for (int j = 1; j <= n; ++j) matrix[i][j] = 1.0 / (i + j - 1);
  }
  return matrix;
}

TEST(Operators, AddSubtractAndMultiply) {
  const FMatrix a = MatrixOf(2, {1, 2, 3, 4});
  const FMatrix b = MatrixOf(2, {5, 6, 7, 8});
  EXPECT_EQ(CellsOf(a + b), (Floats{6, 8, 10, 12}));
  EXPECT_EQ(CellsOf(a - b), (Floats{-4, -4, -4, -4}));
  EXPECT_EQ(CellsOf(a * b), (Floats{19, 22, 43, 50}));
  FMatrix::MStat = FMatrix(0, 0, 0.0f);
  EXPECT_EQ(CellsOf((a * b) + (b * a)), (Floats{42, 56, 74, 96}));
  EXPECT_EQ((a * MatrixOf(1, {1, 2, 3})).NRow(), 0) << "inner sizes differ";
}

template <typename Matrix>
void CheckTurns() {
  const Matrix empty(0, 0, 0.0f);
  const Matrix a(1, 1, 2.0f);
  Matrix::MStat = empty;
  Matrix::MStat2 = empty;
  EXPECT_EQ(&(a + a), &Matrix::MStat);
  EXPECT_EQ(&(a * a), &Matrix::MStat2);
  EXPECT_EQ(&(Matrix::MStat + Matrix::MStat2), &Matrix::MStat);
  EXPECT_EQ(Matrix::MStat[1][1], 8.0f);
  EXPECT_EQ(Matrix::MStat2.NRow(), 0) << "an operand that is not overwritten is emptied";
  EXPECT_EQ((a - Matrix::MStat)[1][1], -6.0f);
}

TEST(Operators, TakeTurnsWithTheWorkMatrices) {
  CheckTurns<FMatrix>();
  CheckTurns<DMatrix>();
}

TEST(Operators, AProductLargerThanTheCacheAddsInOrder) {
  const XFMatrix a = test::RandomMatrix(9, 300, 0.0);
  const XFMatrix b = test::RandomMatrix(300, 301, 0.0);
  const FMatrix& product = a * b;
  for (int i = 1; i <= 9; ++i) {
    for (int j = 1; j <= 301; ++j) {
      float sum = 0.0f;
      for (int k = 1; k <= 300; ++k) sum += a[i][k] * b[k][j];
      ASSERT_EQ(product[i][j], sum) << i << ", " << j;
    }
  }
}

TEST(Determinant, KnownValues) {
  const struct {
    XFMatrix matrix;
    double determinant;
    int status;
  } cases[] = {
      {MatrixOf(1, {-3}), -3, 0},
      {MatrixOf(2, {1, 2, 3, 4}), -2, 0},
      {MatrixOf(3, {0, 1, 0, 0, 0, 1, 1, 0, 0}), 1, 0},
      {MatrixOf(3, {2, -1, 0, -1, 2, -1, 0, -1, 2}), 4, 0},
      {MatrixOf(2, {1, 2, 0, 0}), kNone, 5005},
      {MatrixOf(2, {1, 2, 3, 4, 5, 6}), kNone, 5004},
  };
  for (const auto& c : cases) {
    FMatrix matrix(c.matrix);
    EXPECT_NEAR(matrix.Det(true), c.determinant, 1e-6);
    EXPECT_EQ(matrix.GetStatus(), c.status);
    EXPECT_EQ(CellsOf(matrix), CellsOf(c.matrix));
  }
  FMatrix overwritten = MatrixOf(2, {4, 3, 2, 1});
  EXPECT_NEAR(overwritten.Det(false), -2, 1e-6);
  EXPECT_EQ(overwritten[2][1], 2.0f) << "of equal scaled pivots the last is taken";
  DMatrix huge = Identity<DMatrix>(4);
  for (int i = 1; i <= 4; ++i) huge[i][i] = -1e100;
  EXPECT_EQ(huge.Det(true), 1e300);
}

TEST(Inverse, TimesTheMatrixIsTheIdentity) {
  for (const int n : {1, 2, 17, 200}) {
    FMatrix matrix = test::RandomMatrix(n, n, 0.0);
    for (int i = 1; i <= n; ++i) matrix[i][i] += 4.0f * std::sqrt(static_cast<float>(n));
    FMatrix inverse(matrix);
    EXPECT_EQ(inverse.MInv(), 0);
    EXPECT_LT(LargestDifference(matrix * inverse, Identity<FMatrix>(n)), 20 * kFloatEpsilon) << n;
  }
  // The Hilbert matrix of order 6 has the condition number 1.5e7.
  DMatrix inverse = Hilbert(6);
  EXPECT_EQ(inverse.MInv(), 0);
  EXPECT_NEAR(inverse[6][6], 698544.0, 1e-3);
  EXPECT_LT(LargestDifference(Hilbert(6) * inverse, Identity<DMatrix>(6)), 1.5e7 * kDoubleEpsilon);
  FMatrix singular = MatrixOf(2, {0, 0, 1, 2});
  EXPECT_EQ(singular.MInv(), 5005);
  EXPECT_EQ(CellsOf(singular), (Floats{0, 0, 1, 2}));
  FMatrix wide(2, 3, 1.0f);
  EXPECT_EQ(wide.MInv(), 5004);
}

// The conditions of a singular value decomposition, each to a rounding error of a few units times
// the largest singular value. What the smallest singular value is, for the caller to look at.
template <typename Matrix>
double CheckSvd(const Matrix& a, double epsilon) {
  Matrix* parts[3];
  EXPECT_EQ(a.SVD(parts[0], parts[1], parts[2]), 0);
  const std::unique_ptr<Matrix> u(parts[0]), w(parts[1]), v(parts[2]);
  const int k = std::min(a.NRow(), a.NCol());
  EXPECT_EQ(w->NRow(), k);
  EXPECT_EQ(u->NCol(), k);
  EXPECT_EQ(v->NCol(), k);
  const double size = static_cast<double>((*w)[1][1]);
  const double rounding = 20 * epsilon * std::sqrt(std::max(a.NRow(), a.NCol()));
  EXPECT_LE(LargestDifference(*u * *w * Transposed(*v), a), rounding * size);
  EXPECT_LT(LargestDifference(Transposed(*u) * *u, Identity<Matrix>(k)), rounding);
  EXPECT_LT(LargestDifference(Transposed(*v) * *v, Identity<Matrix>(k)), rounding);
  for (int i = 2; i <= k; ++i) EXPECT_GE((*w)[i - 1][i - 1], (*w)[i][i]);
  return static_cast<double>((*w)[k][k]);
}

TEST(Svd, HoldsForMatricesOfEveryShapeAndRank) {
  for (const auto& [rows, columns] : {std::pair(1, 1), {3, 40}, {60, 11}, {200, 200}}) {
    const FMatrix full = test::RandomMatrix(rows, columns, 0.0);
    EXPECT_GT(CheckSvd(full, kFloatEpsilon), 0.0);
    EXPECT_GT(CheckSvd(Widened(full), kDoubleEpsilon), 0.0);
  }
  // Rank 5, and a column that is all but another's double.
  const DMatrix left = Widened(test::RandomMatrix(120, 5, 0.0));
  const DMatrix right = Widened(test::RandomMatrix(5, 90, 0.0, 2));
  EXPECT_EQ(CheckSvd(DMatrix(left * right), kDoubleEpsilon), 0.0);
  DMatrix near = Widened(test::RandomMatrix(50, 4, 0.0));
  for (int i = 1; i <= 50; ++i) near[i][4] = 2.0 * near[i][3] + (i == 1 ? 1e-9 : 0.0);
  EXPECT_NEAR(CheckSvd(near, kDoubleEpsilon), 4e-10, 1e-10);
  EXPECT_EQ(CheckSvd(FMatrix(6, 4, 0.0f), kFloatEpsilon), 0.0);
  EXPECT_EQ(CheckSvd(DMatrix(3, 2, 1e-300), kDoubleEpsilon), 0.0);
  DMatrix uneven(2, 2, 1.0);
  uneven[1][1] = 1e200;
  EXPECT_EQ(CheckSvd(uneven, kDoubleEpsilon), 0.0);
  const FMatrix of_first_axis = MatrixOf(3, {1, 0, 0, 0, 0, 0, 0, 0, 0});
  EXPECT_EQ(CheckSvd(of_first_axis, kFloatEpsilon), 0.0);
}

TEST(Svd, OfHilbertMatrices) {
  // The smallest singular values, from the exact inverse.
  const struct {
    int order;
    double smallest;
  } cases[] = {{2, 6.57414540893351e-02}, {5, 3.28792877217186e-06}, {8, 1.11153896637244e-10}};
  for (const auto& c : cases) {
    EXPECT_NEAR(CheckSvd(Hilbert(c.order), kDoubleEpsilon), c.smallest, 1e-15);
  }
  EXPECT_EQ(CheckSvd(Hilbert(20), kDoubleEpsilon), 0.0) << "beyond the precision of a double";
}

TEST(Svd, RefusesWhatIsNotFinite) {
  FMatrix* parts[3];
  FMatrix matrix(2, 2, 1.0f);
  matrix[1][2] = std::nanf("");
  EXPECT_EQ(matrix.SVD(parts[0], parts[1], parts[2]), 5000);
  EXPECT_EQ(parts[0], nullptr);
}

TEST(FMatrix, TraceAndConditionNumber) {
  EXPECT_EQ(MatrixOf(2, {1, 2, 3, 4}).Trace(), 5.0);
  const FMatrix wide(2, 3, 1.0f);
  EXPECT_EQ(wide.Trace(), kNone);
  EXPECT_EQ(wide.GetStatus(), 5004);
  EXPECT_NEAR(MatrixOf(2, {3, 0, 0, -0.5f}).CondNo(), 6.0, 1e-12);
  // The golden ratio squared.
  EXPECT_NEAR(MatrixOf(2, {1, 1, 1, 0}).CondNo(), 2.618033988749895, 1e-12);
  XFMatrix deficient = test::RandomMatrix(30, 6, 0.0);
  for (int i = 1; i <= 30; ++i) deficient[i][6] = deficient[i][2];
  EXPECT_EQ(deficient.CondNo(), kNone);
  EXPECT_EQ(wide.CondNo(), kNone);
  EXPECT_EQ(FMatrix(0, 0, 0.0f).CondNo(), kNone);
}

TEST(MatrixFile, GivesBackTheSameBits) {
  const test::TempFolder folder;
  const std::string path = folder.File("m.txt");
  XFMatrix written = test::RandomMatrix(13, 7, 0.2);
  written[1][1] = 1e-42f;
  written[2][2] = -3.4e38f;
  EXPECT_EQ(written.Write(path.c_str()), 0);
  XFMatrix read("read", 1, 1, 0.0f);
  EXPECT_EQ(read.Read(path.c_str()), 0);
  EXPECT_EQ(CellsOf(read), CellsOf(written));
  EXPECT_EQ(read.NValA(), read.NRow() * read.NCol() -
                              static_cast<int>(std::ranges::count(CellsOf(written), kMissing)));
  EXPECT_EQ(read.Write(nullptr), 5007);
  EXPECT_EQ(read.Write(folder.File("no/such").c_str()), 5000);
}

TEST(MatrixFile, RefusesWhatIsNone) {
  const test::TempFolder folder;
  const std::string path = folder.File("m.txt");
  FMatrix matrix = MatrixOf(1, {5});
  EXPECT_EQ(matrix.Read(path.c_str()), 5000) << "no file";
  for (const char* text :
       {"", "zemva matrix", "zemva matrix 1", "zemva matrix 1 2\n3\n", "zemva matrix 1 1\n3 4\n",
        "zemva matrix 1 1\nx\n", "zemva matrix 1 1\n3x\n", "zemva matrix -1 1\n",
        "zemva matrix 1 -1\n", "zemva matrix 2000000000 2000000000\n1\n",
        "zemva matrix 2000000000 0\n", "zemva matrix 99999999999 1\n", "other matrix 1 1\n3\n"}) {
    test::WriteBytes(path, text);
    EXPECT_EQ(matrix.Read(path.c_str()), 5000) << text;
    EXPECT_EQ(CellsOf(matrix), Floats{5});
  }
  test::WriteBytes(path, "zemva matrix 0 3\n");
  EXPECT_EQ(matrix.Read(path.c_str()), 0);
  EXPECT_EQ(matrix.NCol(), 3);
  test::WriteBytes(path, "zemva matrix 2 1\r\n.\r\n-2.5e1");
  EXPECT_EQ(matrix.Read(path.c_str()), 0);
  EXPECT_EQ(CellsOf(matrix), (Floats{kMissing, -25}));
  test::WriteBytes(path, "zemva matrix 2 2 1 . 3 4");
  EXPECT_EQ(matrix.Read(path.c_str()), 0) << "no character too many";
}

}  // namespace
}  // namespace zemva
