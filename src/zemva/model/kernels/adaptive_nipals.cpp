#include "zemva/model/kernels/adaptive_nipals.h"

#include <algorithm>

#include "zemva/errors/memory_guard.h"

namespace zemva {
namespace {

bool CanHaveProducts(const ResidualMatrix& residuals, const LeftOut& groups) {
  const double bytes = ProductNipals::CountElements(residuals, groups) * sizeof(double);
  const double table = static_cast<double>(residuals.RowCount()) *
                       static_cast<double>(residuals.PaddedLength()) * sizeof(float);
  return residuals.IsComplete() && bytes <= table;
}

// The iterations on a matrix of n by L, n < L, that take as many operations as its products: n^2 L
// / 2 over 2 n L.
double CountIterationsWorth(const ResidualMatrix& residuals) {
  return static_cast<double>(std::min(residuals.RowCount(), residuals.ColumnCount())) / 4;
}

template <typename Operation>
NipalsResult Guarded(Operation operation) {
  NipalsResult result{status::kOk, 0};
  const int status = MemoryGuarded([&] {
    result = operation();
    return result.status;
  });
  result.status = status;
  return result;
}

}  // namespace

NipalsResult AdaptiveNipals::Fit(const ResidualMatrix& residuals, const LeftOut& groups,
                                 const NipalsSettings& settings, std::span<float> scores,
                                 std::span<float> loadings) {
  return Guarded([&] {
    is_fitted_by_products_ = Has(residuals, groups);
    if (is_fitted_by_products_) return products_->Fit(settings, 0, scores, loadings);
    products_.reset();
    if (!CanHaveProducts(residuals, groups)) {
      return Nipals(residuals, LeftOut(), settings, scores, loadings);
    }
    const double fits = groups.IsNothing() ? 1.0 : 1.0 + static_cast<double>(groups.ClassCount());
    const double affordable = CountIterationsWorth(residuals) / fits - iterations_;
    NipalsResult result{status::kOk, 0};
    if (affordable >= 1) {
      NipalsSettings first = settings;
      // One more iteration than the limit is done.
      first.max_iterations =
          static_cast<int>(std::min(affordable - 1, static_cast<double>(settings.max_iterations)));
      result = Nipals(residuals, LeftOut(), first, scores, loadings);
      iterations_ += result.iterations;
      const bool is_done = result.status != status::kOk || result.is_converged ||
                           result.iterations > settings.max_iterations;
      if (is_done) return result;
    }
    products_ = ProductNipals::Make(residuals, groups);
    is_fitted_by_products_ = true;
    return products_->Fit(settings, result.iterations, scores, loadings);
  });
}

NipalsResult AdaptiveNipals::FitRound(const ResidualMatrix& residuals, const LeftOut& left_out,
                                      const NipalsSettings& settings, std::span<float> scores,
                                      std::span<float> loadings) {
  return Guarded([&] {
    const bool is_worth_it = iterations_ >= CountIterationsWorth(residuals);
    if (!Has(residuals, left_out) && is_worth_it && CanHaveProducts(residuals, left_out)) {
      products_ = ProductNipals::Make(residuals, left_out);
    }
    if (Has(residuals, left_out)) return products_->FitRound(left_out, settings, scores, loadings);
    const NipalsResult result = Nipals(residuals, left_out, settings, scores, loadings);
    iterations_ += result.iterations;
    return result;
  });
}

void AdaptiveNipals::TakeOff() {
  if (is_fitted_by_products_) {
    products_->TakeOff();
  } else {
    products_.reset();
  }
}

bool AdaptiveNipals::Has(const ResidualMatrix& residuals, const LeftOut& groups) const {
  return products_ != nullptr && products_->sums_.size() == groups.ClassCount() &&
         products_->IsUpToDate(residuals);
}

}  // namespace zemva
