// What is left of a block of data at a stage of a model.
#ifndef ZEMVA_MODEL_BLOCK_STAGE_H
#define ZEMVA_MODEL_BLOCK_STAGE_H

#include <string_view>

#include "zemva/numeric/missing.h"
#include "zemva/numeric/whole_vector.h"

namespace zemva {

// A vector of missing values named "<stem>[<label>]", the stem being that of a block where it comes
// with the block's letter. Throw std::bad_alloc.
WholeVector MakeVector(std::string_view stem, int label, int length);
WholeVector MakeVector(std::string_view stem, char letter, int label, int length);

// The sums of squares of a matrix, N rows by K columns, and the variances made of them. Stages are
// -1 for the data as loaded, 0 for the data centred and scaled, and a for the residuals after a
// components. A column has lost A0 degrees of freedom to the average (1 or 0; none at stage -1) and
// c to the components, a row r to its scores (none up to stage 0). With n present values in a
// column, m in a row and M in all:
//
//   s2v = ssv / max(n - A0 - c, 1)
//   s2o = sso / max((m - r) (N - A0 - c) / N, 1)
//   df = max((N - A0 - c) (K - r) - (N K - M), 1), s2 = ss / df
//
// In X, whose rows make the scores, c = r = a. In Y r = 0, and c = a, or the number of X variables
// where these were set by a design: least squares on all of them.
//
//   mpow = max(1 - sqrt(s2v / s2v of stage 0), 0), and 0 where both are 0
//
// What is beyond the range of a float is missing.
struct Stage {
  // All missing. The vectors are named after the letter of the block and the stage: "SSVX[0]".
  // Throws std::bad_alloc.
  Stage(char letter, int label, int row_count, int column_count);

  WholeVector sso;   // "SSO", sum of squares by row
  WholeVector s2o;   // "S2O", variance by row
  WholeVector ssv;   // "SSV", sum of squares by column
  WholeVector s2v;   // "S2V", variance by column
  WholeVector mpow;  // "MPow", modelling power of a column
  float df = kMissing;
  float ss = kMissing;  // the sum of ssv
  float s2 = kMissing;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_BLOCK_STAGE_H
