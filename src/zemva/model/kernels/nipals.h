// One principal component by NIPALS.
#ifndef ZEMVA_MODEL_KERNELS_NIPALS_H
#define ZEMVA_MODEL_KERNELS_NIPALS_H

#include <functional>
#include <span>

#include "zemva/model/kernels/projection.h"

namespace zemva {

// Whether another iteration is to be done, after so many. Always, where there is nobody to say.
using GoesOn = std::function<bool(int)>;

inline bool IsStopped(const GoesOn& goes_on, int iterations) {
  return goes_on && !goes_on(iterations);
}

struct NipalsSettings {
  // One more iteration than this is the most that is done.
  int max_iterations = 0;
  Cap loading_cap = {};
  Cap score_cap = {};
  GoesOn goes_on = {};
};

struct NipalsResult {
  int status;
  int iterations;
  bool is_converged = false;
};

// Whether an iteration that changed the scores so much is the last.
bool IsConverged(const ScoreSums& sums);

// Fits t and p to E by turns, p = E't / |E't| and t = E p, until t changes by no more than 1e-10 of
// its square (H. Wold, Estimation of principal components and related models by iterative least
// squares, 1966). What is missing or left out is made up for as Projection says.
//
// `scores`, N values, holds the t to start from and gets the last one. `loadings`, K values, gets
// p, of length 1 and with 0 for elements below 1e-6 / sqrt(K).
//
// 8042 (8043 when anything is left out) for a column that no usable observation with a score other
// than 0 supports; 8027 where the settings say so; 8002 when memory runs out. Scores and loadings
// are then undefined.
NipalsResult Nipals(const ResidualMatrix& residuals, const LeftOut& left_out,
                    const NipalsSettings& settings, std::span<float> scores,
                    std::span<float> loadings,
                    const ProjectionLoops& loops = BestProjectionLoops());

// Sets `loadings` to `sums` scaled to length 1, with 0 for elements below 1e-6 / sqrt(K), as many
// as there are; all 0 when the sums are.
void Normalise(std::span<const double> sums, std::span<float> loadings);
// As they are, with 0 for the same elements.
void RoundLoadings(std::span<const double> values, std::span<float> loadings);

// Adds to column_errors[k] the squares of E[i][k] - scores[i] * loadings[k] over the elements that
// are left out and present, in double. A missing score predicts nothing and adds nothing.
void AddPredictionErrors(const ResidualMatrix& residuals, const LeftOut& left_out,
                         std::span<const float> scores, std::span<const float> loadings,
                         std::span<double> column_errors);

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_NIPALS_H
