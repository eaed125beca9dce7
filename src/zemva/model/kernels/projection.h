// The two projections that the NIPALS iteration consists of.
#ifndef ZEMVA_MODEL_KERNELS_PROJECTION_H
#define ZEMVA_MODEL_KERNELS_PROJECTION_H

#include <cstddef>
#include <functional>
#include <limits>
#include <span>
#include <utility>
#include <vector>

#include "zemva/model/kernels/aligned_buffer.h"
#include "zemva/model/kernels/left_out.h"
#include "zemva/model/kernels/projection_loops.h"
#include "zemva/model/kernels/residual_matrix.h"

namespace zemva {

// The largest factor by which a projection makes up for what is missing.
struct Cap {
  double limit = std::numeric_limits<double>::infinity();
  // Called for each factor that is cut to the limit: the number of its column or row, from 1, and
  // the factor before. They come in the order of the numbers. May be empty.
  std::function<void(int number, double factor)> report;
};

struct ScoreSums {
  double squares = 0;         // of the scores
  double change_squares = 0;  // of their changes from what they were before
};

// Projects a matrix E, of which elements may be missing or left out, onto its columns (loadings,
// weights) and onto its rows (scores). An element that is neither is usable. A score that equals
// the missing value takes no part in any sum.
//
// A sum over usable elements is multiplied by a factor: the squares of all that E is multiplied by,
// over the squares of what meets a usable element. That is least squares on what is usable (H.
// Wold, Estimation of principal components and related models by iterative least squares, 1966; P.
// R. C. Nelson, P. A. Taylor and J. F. MacGregor, Chemometrics and Intelligent Laboratory Systems
// 35 (1996) 45-65, single component projection).
class Projection {
 public:
  // Keeps references to the matrix and to what is left out. Throws std::bad_alloc.
  Projection(const ResidualMatrix& matrix, const LeftOut& left_out,
             const ProjectionLoops& loops = BestProjectionLoops());

  // loadings[k] = factor * sum of scores[i] * E[i][k] over the usable elements of column k, where
  // factor = sum of scores[i]^2 over all rows / the same over the usable ones; 0 in columns that
  // take no part. `scores` has N values, `loadings` K.
  //
  // Where that denominator is 0: 8042, or 8043 when anything is left out; the loadings are then
  // undefined. Without gaps (elements missing or left out; rows left out whole are no gaps) there
  // are no factors, and scores that are all 0 give loadings of 0.
  int OntoColumns(std::span<const float> scores, const Cap& cap, std::span<double> loadings);

  // scores[i] = factor * (sum of weights[k] * E[i][k] over the usable elements of row i) / squares,
  // where factor = squares / (squares - sum of weights[k]^2 over the others). `squares` is the sum
  // of the squares of all weights: 1 for weights of unit length.
  //
  // A score is missing where nothing that has a weight is usable, and in rows that are left out
  // whole. Where there are gaps, a score of 0 counts in neither of the sums returned.
  ScoreSums OntoRows(std::span<const float> weights, double squares, const Cap& cap,
                     std::span<float> scores);

  // The same two in another cut, which reads the matrix once an iteration instead of twice: what
  // OntoColumns(scores, ...) begins with, as part of OntoRows. After SumColumns(scores), or after
  // OntoRowsAndColumns has put out scores, LoadingsFor(scores, ...) is what OntoColumns would give,
  // to the last bit.
  void SumColumns(std::span<const float> scores);
  ScoreSums OntoRowsAndColumns(std::span<const float> weights, double squares, const Cap& cap,
                               std::span<float> scores);
  int LoadingsFor(std::span<const float> scores, const Cap& cap, std::span<double> loadings);

 private:
  // Up to four rows of one class.
  struct Block {
    std::size_t count = 0;
    std::size_t index[kBlockRows] = {};
    const float* rows[kBlockRows] = {};
  };

  // The sums of a column as they were before a class of rows that leaves it out.
  struct Kept {
    double sum;
    double lost;
  };

  struct RowPass;

  template <typename Visit>
  void ForEachBlock(std::size_t row_class, Visit visit) const;

  void ClearSums();
  void OpenClass(std::size_t row_class);
  void AddBlock(const Block& block, std::span<const float> scores);
  std::size_t DistanceToNext(const Block& block) const;
  void CloseClass(std::size_t row_class);
  double UsableScoreSquares(std::size_t column, std::span<const float> scores) const;

  ScoreSums ProjectRows(std::span<const float> weights, double squares, const Cap& cap,
                        std::span<float> scores, bool also_sums_columns);
  double MaskWeights(std::size_t row_class);
  void UnmaskWeights(std::size_t row_class, std::span<const float> weights);
  void ProjectBlock(const Block& block, RowPass& pass);
  float ScoreOf(std::size_t row, double sum, const RowPass& pass);
  double UsableWeightSquares(std::size_t row) const;

  const ResidualMatrix& matrix_;
  const LeftOut& left_out_;
  const ProjectionLoops& loops_;
  const bool has_gaps_;

  // Down the columns: of scores times elements, and of the squares of the scores whose element is
  // missing or left out; the squares of all scores, and of those of the class at hand.
  AlignedBuffer<double> sums_;
  std::vector<double> lost_;
  double score_squares_ = 0;
  double class_score_squares_ = 0;
  std::vector<Kept> kept_;

  // Along the rows: the weights, 0 where the class at hand leaves the column out.
  AlignedBuffer<double> weights_;
  std::vector<std::pair<int, double>> clipped_;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_PROJECTION_H
