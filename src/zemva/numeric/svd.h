// Singular value decomposition.
#ifndef ZEMVA_NUMERIC_SVD_H
#define ZEMVA_NUMERIC_SVD_H

#include "zemva/numeric/d_matrix.h"

namespace zemva {

// A = U W V' of an r by c matrix, k being the smaller of r and c: U r by k, V c by k, the diagonal
// W k by k with descending elements. What rounding in double leaves of a singular value that is 0
// becomes exactly 0: all below max(r, c) * 2^-52 of the largest. U and V are completed to k
// orthonormal columns.
//
// By the one-sided Jacobi method: Hestenes, Inversion of matrices by biorthogonalization and
// related results, J. SIAM 6 (1958), with the ordering of de Rijk, SIAM J. Sci. Stat. Comput. 10
// (1989). Columns are rotated pair by pair until all are orthogonal; their lengths are the singular
// values.
class SingularValueDecomposition {
 public:
  // Decomposes the matrix.
  explicit SingularValueDecomposition(const DMatrix& matrix);

  // 5000 when an element is not finite or the columns do not become orthogonal, 5001.
  int GetStatus() const { return status_; }

  // The factors, where it did not fail.
  const DMatrix& U() const { return u_; }
  const DMatrix& W() const { return w_; }
  const DMatrix& V() const { return v_; }

 private:
  int Compute(const DMatrix& matrix);

  bool is_tall_;  // at least as many rows as columns
  int size_;      // k
  DMatrix u_;
  DMatrix w_;
  DMatrix v_;
  int status_;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_SVD_H
