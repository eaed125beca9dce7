// The NIPALS iteration of a complete matrix on inner products of its rows or columns.
#ifndef ZEMVA_MODEL_KERNELS_PRODUCT_NIPALS_H
#define ZEMVA_MODEL_KERNELS_PRODUCT_NIPALS_H

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "zemva/model/kernels/left_out.h"
#include "zemva/model/kernels/nipals.h"
#include "zemva/model/kernels/product_sums.h"
#include "zemva/model/kernels/projection_loops.h"
#include "zemva/model/kernels/residual_matrix.h"

namespace zemva {

// What Nipals does to a matrix E, N by K, and to scores, both without gaps: the same scores,
// iteration by iteration, to double precision: where N is the smaller dimension from E E', since t
// goes over into E E't / |E't|, and else from E'E, since p goes over into E'E p / |E'E p|. Only the
// loadings, or the scores, need a pass over E at the end.
//
// For the rounds of a cross-validation by elements the products are kept by group: those of the
// columns, or of the rows, of each label, so that a round takes but sums of them.
class ProductNipals {
 public:
  virtual ~ProductNipals() = default;

  // Of the residuals, which outlive it, for rounds that leave out elements as `groups` does, or for
  // none. Throws std::bad_alloc.
  static std::unique_ptr<ProductNipals> Make(const ResidualMatrix& residuals,
                                             const LeftOut& groups);
  // Elements of double that it would keep.
  static double CountElements(const ResidualMatrix& residuals, const LeftOut& groups);

  // Whether it is of the matrix as it is now, and its sums have the digits that it has.
  bool IsUpToDate(const ResidualMatrix& residuals) const;

  // As Nipals, with nothing left out, where `iterations` have been done. Throws std::bad_alloc.
  virtual NipalsResult Fit(const NipalsSettings& settings, int iterations, std::span<float> scores,
                           std::span<float> loadings) = 0;
  // As Nipals with elements left out, in as many groups. Throws std::bad_alloc.
  virtual NipalsResult FitRound(const LeftOut& left_out, const NipalsSettings& settings,
                                std::span<float> scores, std::span<float> loadings) = 0;
  // After the component that Fit gave last was subtracted from the residuals.
  void TakeOff();

 protected:
  using Vector = std::vector<double>;

  ProductNipals(const ResidualMatrix& residuals, std::size_t size, std::size_t group_count);

  Vector MakeVector() const { return Vector(sums_.front().PaddedSize()); }
  double Dot(const Vector& a, const Vector& b) const;
  Vector Multiply(const ProductSums& sums, const Vector& x) const;
  ProductSums SumOfGroups() const;

  const ResidualMatrix& residuals_;
  const ProjectionLoops& loops_;
  std::vector<ProductSums> sums_;  // by group
  // Of the component that Fit gave last: the sums lose x's products with each group along `axis_`.
  Vector x_;
  Vector axis_;

 private:
  friend class AdaptiveNipals;

  std::size_t version_;
  double initial_trace_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_PRODUCT_NIPALS_H
