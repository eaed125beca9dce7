// The iteration of partial least squares without the matrices.
#ifndef ZEMVA_MODEL_KERNELS_RESPONSE_PRODUCTS_H
#define ZEMVA_MODEL_KERNELS_RESPONSE_PRODUCTS_H

#include <cstddef>
#include <span>
#include <vector>

#include "zemva/model/kernels/aligned_buffer.h"
#include "zemva/model/kernels/left_out.h"
#include "zemva/model/kernels/projection_loops.h"
#include "zemva/model/kernels/residual_matrix.h"

namespace zemva {

// Of E, N by K, and F, N by M, without gaps and over the rows that are not left out, the products
// in which the iteration of PlsNipals can run when M is small: with u = F g,
//
//   |E'u|^2 = g'S'S g,  t't = g'Z'Z g / |E'u|^2,  F't = S'S g / |E'u|,  u'u = g'F'F g
//
// where S = E'F, K by M, and Z = E S, N by M, so that an iteration takes as good as nothing.
class ResponseProducts {
 public:
  // Two passes over E. Throws std::bad_alloc.
  ResponseProducts(const ResidualMatrix& x, const ResidualMatrix& y, const LeftOut& left_out,
                   const ProjectionLoops& loops);

  // g'P h of the M by M products P.
  struct Square {
    explicit Square(std::size_t count) : size(count), elements(count * count) {}
    std::vector<double> Times(std::span<const double> g) const;
    double Of(std::span<const double> g, std::span<const double> h) const;

    std::size_t size;
    std::vector<double> elements;
  };
  const Square& OfS() const { return of_s_; }
  const Square& OfZ() const { return of_z_; }
  const Square& OfF() const { return of_f_; }

  // S g, which is E'u.
  std::vector<double> WeightsOf(std::span<const double> g) const;

 private:
  template <typename Visit>
  void ForEachBlock(const ResidualMatrix& x, const LeftOut& left_out, Visit visit) const;

  std::size_t column_count_;
  std::size_t stride_;
  AlignedBuffer<double> s_;  // a row of K for each response
  Square of_s_;
  Square of_z_;
  Square of_f_;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_RESPONSE_PRODUCTS_H
