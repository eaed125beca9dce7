// The NIPALS iteration on the matrix or on its inner products, whichever takes fewer operations.
#ifndef ZEMVA_MODEL_KERNELS_ADAPTIVE_NIPALS_H
#define ZEMVA_MODEL_KERNELS_ADAPTIVE_NIPALS_H

#include <memory>
#include <span>

#include "zemva/model/kernels/product_nipals.h"

namespace zemva {

// Does what Nipals does for the components of one matrix. An iteration on the matrix passes over it
// twice; one on the products takes little, but they have to be made. So it begins on the matrix,
// and makes the products once as many operations were done as they take, which is never more than
// twice the least. It counts the rounds of a cross-validation to come with the fit that they
// follow. Data with gaps, and products that would take more memory than the matrix, stay on the
// matrix.
class AdaptiveNipals {
 public:
  // `groups` is what the first round will leave out, or nothing.
  NipalsResult Fit(const ResidualMatrix& residuals, const LeftOut& groups,
                   const NipalsSettings& settings, std::span<float> scores,
                   std::span<float> loadings);
  NipalsResult FitRound(const ResidualMatrix& residuals, const LeftOut& left_out,
                        const NipalsSettings& settings, std::span<float> scores,
                        std::span<float> loadings);
  // After the component that was fitted was subtracted from the residuals.
  void TakeOff();

 private:
  bool Has(const ResidualMatrix& residuals, const LeftOut& groups) const;

  std::unique_ptr<ProductNipals> products_;
  bool is_fitted_by_products_ = false;
  double iterations_ = 0;  // done on the matrix
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_ADAPTIVE_NIPALS_H
