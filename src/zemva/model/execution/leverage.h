// How far an observation stands out in the scores of a model.
#ifndef ZEMVA_MODEL_EXECUTION_LEVERAGE_H
#define ZEMVA_MODEL_EXECUTION_LEVERAGE_H

#include <span>
#include <vector>

namespace zemva {

// The leverage on the scores T of components 1..a, N by a: t (T'T)^-1 t', plus A0 / N, which is 1/N
// when the model is centred (R. D. Cook, S. Weisberg, Residuals and Influence in Regression, 1982,
// chapter 2). It is found from T = Q R, with Q orthonormal: missing values can leave T oblique.
class Leverage {
 public:
  // `scores` has a vector of N values for each component. Throws std::bad_alloc.
  Leverage(std::span<const std::span<const float>> scores, int a0);

  // Of the observations that T is of. Missing where a score is.
  std::vector<float> OfRows() const;
  // Of any other, given its a scores. Missing where one is.
  double Of(std::span<const float> scores) const;

 private:
  using Column = std::vector<double>;

  // A column of Q and, above its length, what the ones before it explain of that of T. A column of
  // T that depends on those before it adds nothing, and both are empty.
  struct Direction {
    Column q;
    Column shares;
    double length = 0.0;
  };
  // Takes off what the directions explain, and keeps their shares.
  void Orthogonalise(Direction& direction) const;

  double least_;  // A0 / N
  std::vector<Direction> directions_;
  std::vector<bool> is_present_;  // whether an observation has all scores
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_EXECUTION_LEVERAGE_H
