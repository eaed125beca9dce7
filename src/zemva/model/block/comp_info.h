// What a model keeps of a component.
#ifndef ZEMVA_MODEL_BLOCK_COMP_INFO_H
#define ZEMVA_MODEL_BLOCK_COMP_INFO_H

#include <optional>

#include "zemva/model/block/stage.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/numeric/d_matrix.h"

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

// Component a of a model of N observations and K variables, and, where the model relates them to
// some, M responses.
struct CompInfo {
  // All missing, without verdict. Throws std::bad_alloc.
  CompInfo(int a, int row_count, int column_count, int response_count);

  // What it is multiplied with to give its part of a block: p in X, c in Y.
  const XFVector& LoadingsOf(EBlock block) const { return block == EBlock::kX ? p : c; }

  short iteration_count = 0;
  Stage x;                       // what the component leaves of X
  std::optional<Stage> y;        // and of Y; none without responses
  float weighted_s2 = kMissing;  // "S2WX", see distances.h
  float eigenvalue = kMissing;   // the component's share of the sum of squares times min(N, K)
  float t_min = kMissing;
  float t_max = kMissing;
  float s2t = kMissing;  // sum of t^2 / N
  // Fractions of what was there before the component that its cross-validation predicts, in Y or,
  // without responses, in X: of all, by variable, and with the components before it ("cum").
  float q2 = kMissing;
  float q2_cum = kMissing;
  float q2_limit = kMissing;
  WholeVector q2v;      // "Q2V[a]"
  WholeVector q2v_cum;  // "Q2V(cum)[a]"
  EVerdict verdict = EVerdict::kNone;
  WholeVector leverages;     // "OLevX[a]", of the scores t, see distances.h
  WholeVector leverages_y;   // "OLevY[a]", of the scores u
  WholeVector weighted_s2o;  // "S2WOX[a]", weighted variances by row, see distances.h
  WholeVector t;             // "t[a]", scores, N
  WholeVector p;             // "p[a]", loadings, K
  // Without responses these have no elements.
  WholeVector u;       // "u[a]", scores of Y, N
  WholeVector w;       // "w[a]", weights of X, K, of length 1
  WholeVector c;       // "c[a]", weights of Y, M
  WholeVector w_star;  // "wStar[a]", K: what gives t straight from X
  WholeVector vip;     // "VIP[a]", K, of components 1..a
  DMatrix inv_ppw_cp;  // (P'W)^-1 C', a by M, of components 1..a: the coefficients are W times this
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_BLOCK_COMP_INFO_H
