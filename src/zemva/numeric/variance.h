// The variance from sums.
#ifndef ZEMVA_NUMERIC_VARIANCE_H
#define ZEMVA_NUMERIC_VARIANCE_H

#include <algorithm>

#include "zemva/numeric/missing.h"

namespace zemva {

// How S2 of vectors and matrices divides: by (count - df_loss) * df_factor, but by no less than 1,
// the squared deviations from `centre`, kMissing standing for the mean.
struct VarianceRule {
  float centre;
  int df_loss;
  float df_factor;

  // The variance of `count` values of that sum and sum of squares.
  double Apply(double count, double sum, double squares) const {
    const double divisor = std::max((count - df_loss) * static_cast<double>(df_factor), 1.0);
    if (IsMissing(centre)) return (squares - sum * sum / count) / divisor;
    const double c = static_cast<double>(centre);
    return ((count * c - 2.0 * sum) * c + squares) / divisor;
  }
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_VARIANCE_H
