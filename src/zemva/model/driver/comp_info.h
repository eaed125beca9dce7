// What a model keeps of a component.
#ifndef ZEMVA_MODEL_DRIVER_COMP_INFO_H
#define ZEMVA_MODEL_DRIVER_COMP_INFO_H

#include "zemva/model/driver/stage.h"

namespace zemva {

// The verdict on a component: significant by rule 1 or 2, not significant by rule 3, 4 or 5 or by
// its eigenvalue. The values are part of the interface.
enum class EVerdict : char {
  kNone = 0,
  kRule1 = 1,
  kRule2 = 2,
  kRule3 = 3,
  kRule4 = 4,
  kRule5 = 5,
  kEigenvalue = 6
};

// Component a of a model of N observations and K variables.
struct CompInfo {
  // All missing, without verdict. Throws std::bad_alloc.
  CompInfo(int a, int row_count, int column_count);

  short iteration_count = 0;
  Stage x;                       // what the component leaves of X
  float weighted_s2 = kMissing;  // "S2WX", see distances.h
  float eigenvalue = kMissing;   // the component's share of the sum of squares times min(N, K)
  float t_min = kMissing;
  float t_max = kMissing;
  float s2t = kMissing;  // sum of t^2 / N
  // Fractions of what was there before the component that its cross-validation predicts: of all,
  // by variable, and with the components before it ("cum").
  float q2 = kMissing;
  float q2_cum = kMissing;
  float q2_limit = kMissing;
  XFVector q2v;      // "Q2V[a]"
  XFVector q2v_cum;  // "Q2V(cum)[a]"
  EVerdict verdict = EVerdict::kNone;
  XFVector leverages;     // "OLevX[a]", see distances.h
  XFVector weighted_s2o;  // "S2WOX[a]", the weighted variances by row, see distances.h
  XFVector t;             // "t[a]", scores, N
  XFVector p;             // "p[a]", loadings, K
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_DRIVER_COMP_INFO_H
