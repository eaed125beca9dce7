// Distribution functions.
#ifndef ZEMVA_NUMERIC_DISTRIBUTIONS_H
#define ZEMVA_NUMERIC_DISTRIBUTIONS_H

#include "zemva/base/export.h"

namespace zemva {

// The regularised incomplete beta function I_x(a, b), for a, b > 0 and 0 <= x <= 1, by its
// continued fraction (Abramowitz and Stegun, Handbook of Mathematical Functions, 26.5.8). What is
// outside of that is not a number.
ZEMVA_API float betai(float a, float b, float x);

// Student's t for the central probability `p` with `df` degrees of freedom: P(|T| < t) = p. Between
// 0 and 64, to 0.0001: a t beyond 64 comes out just below it. 0 when p < 0 or p > 1.
ZEMVA_API float TCrit(float p, int df);

// The upper-tail probability of the F distribution with (df1, df2) degrees of freedom at the ratio
// s1 / s2: the one-tailed F test of the variances s1 and s2. 0 when s2 is 0, 1 when s1 is.
ZEMVA_API float PFTest(float s1, float df1, float s2, float df2);

// The F whose upper-tail probability is `p`, to 0.00005 or to the fifth digit. -1 when p <= 0 or
// p >= 1.
ZEMVA_API float FFTest(float df1, float df2, float p);

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_DISTRIBUTIONS_H
