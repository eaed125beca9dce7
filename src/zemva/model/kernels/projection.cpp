#include "zemva/model/kernels/projection.h"

#include <algorithm>

#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

// Below this share of the total a denominator is added up anew instead of subtracted: subtraction
// would leave little but rounding, and hide a denominator of exactly 0.
constexpr double kSubtractableShare = 1e-3;

// A row whose usable weights have squares below this share of all has a missing score.
constexpr double kLeastUsableShare = 1e-30;

// Rows up to this length are fetched ahead: 16 kB, of pages of 4 kB at whose ends the processor's
// own fetching stops.
constexpr std::size_t kFetchedLength = 4096;

double Square(double value) {
  return value * value;
}

// The holes of a row are few, and their columns differ: four at a time do not wait for each other.
constexpr std::size_t kHolesAtOnce = 4;

// The sum of the squares of values[k] over the columns k.
double SquaresAt(std::span<const int> columns, const double* values) {
  double sums[kHolesAtOnce] = {};
  std::size_t c = 0;
  for (; c + kHolesAtOnce <= columns.size(); c += kHolesAtOnce) {
    for (std::size_t n = 0; n < kHolesAtOnce; ++n) sums[n] += Square(values[columns[c + n]]);
  }
  for (; c < columns.size(); ++c) sums[0] += Square(values[columns[c]]);
  return (sums[0] + sums[1]) + (sums[2] + sums[3]);
}

// Adds `value` to sums[k] for the columns k, which differ.
void AddAt(std::span<const int> columns, double value, double* sums) {
  std::size_t c = 0;
  for (; c + kHolesAtOnce <= columns.size(); c += kHolesAtOnce) {
    double after[kHolesAtOnce];
    for (std::size_t n = 0; n < kHolesAtOnce; ++n) after[n] = sums[columns[c + n]] + value;
    for (std::size_t n = 0; n < kHolesAtOnce; ++n) sums[columns[c + n]] = after[n];
  }
  for (; c < columns.size(); ++c) sums[columns[c]] += value;
}

// The factor, cut to the limit and then noted in `clipped`.
double CappedFactor(double factor, const Cap& cap, std::size_t index,
                    std::vector<std::pair<int, double>>& clipped) {
  if (!(factor > cap.limit)) return factor;
  if (cap.report) clipped.emplace_back(static_cast<int>(index) + 1, factor);
  return cap.limit;
}

void ReportClipped(const Cap& cap, std::vector<std::pair<int, double>>& clipped) {
  std::ranges::sort(clipped);
  for (const auto& [number, factor] : clipped) cap.report(number, factor);
  clipped.clear();
}

}  // namespace

Projection::Projection(const ResidualMatrix& matrix, const LeftOut& left_out,
                       const ProjectionLoops& loops)
    : matrix_(matrix),
      left_out_(left_out),
      loops_(loops),
      has_gaps_(!matrix.IsComplete() || left_out.HasElements()),
      sums_(matrix.PaddedLength()),
      lost_(matrix.ColumnCount()),
      weights_(matrix.PaddedLength()) {
  std::ranges::fill(weights_.Values(), 0.0);
}

int Projection::OntoColumns(std::span<const float> scores, const Cap& cap,
                            std::span<double> loadings) {
  SumColumns(scores);
  return LoadingsFor(scores, cap, loadings);
}

ScoreSums Projection::OntoRows(std::span<const float> weights, double squares, const Cap& cap,
                               std::span<float> scores) {
  return ProjectRows(weights, squares, cap, scores, false);
}

ScoreSums Projection::OntoRowsAndColumns(std::span<const float> weights, double squares,
                                         const Cap& cap, std::span<float> scores) {
  return ProjectRows(weights, squares, cap, scores, true);
}

template <typename Visit>
void Projection::ForEachBlock(std::size_t row_class, Visit visit) const {
  const std::size_t step = left_out_.ClassCount();
  std::size_t row = left_out_.FirstRowOf(row_class);
  while (row < matrix_.RowCount()) {
    Block block;
    for (; block.count < kBlockRows && row < matrix_.RowCount(); row += step) {
      block.index[block.count] = row;
      block.rows[block.count++] = matrix_.Row(row).data();
    }
    visit(block);
  }
}

void Projection::SumColumns(std::span<const float> scores) {
  ClearSums();
  for (std::size_t c = 0; c < left_out_.KeptCount(); ++c) {
    if (left_out_.IsWholeRow(c)) continue;
    OpenClass(c);
    ForEachBlock(c, [&](const Block& block) { AddBlock(block, scores); });
    CloseClass(c);
  }
}

void Projection::ClearSums() {
  std::ranges::fill(sums_.Values(), 0.0);
  std::ranges::fill(lost_, 0.0);
  score_squares_ = 0;
}

// The rows of a class are added to all columns; those that the class leaves out get their sums back
// at its end.
void Projection::OpenClass(std::size_t row_class) {
  kept_.clear();
  for (const int column : left_out_.Columns(row_class)) {
    const auto k = static_cast<std::size_t>(column);
    kept_.push_back({sums_[k], lost_[k]});
  }
  class_score_squares_ = 0;
}

void Projection::AddBlock(const Block& block, std::span<const float> scores) {
  double factors[kBlockRows];
  for (std::size_t r = 0; r < block.count; ++r) {
    const float score = scores[block.index[r]];
    factors[r] = IsMissing(score) ? 0.0 : static_cast<double>(score);
  }
  loops_.add[block.count - 1](block.rows, factors, matrix_.PaddedLength(), sums_.Data(),
                              DistanceToNext(block));
  for (std::size_t r = 0; r < block.count; ++r) {
    const double squares = Square(factors[r]);
    class_score_squares_ += squares;
    AddAt(matrix_.Holes(block.index[r]), squares, lost_.data());
  }
}

// In floats, from the rows of a block to those of the next one; 0 where there is none or where the
// rows are long enough for the processor to see them coming.
std::size_t Projection::DistanceToNext(const Block& block) const {
  const std::size_t rows = kBlockRows * left_out_.ClassCount();
  const bool is_followed = block.index[kBlockRows - 1] + rows < matrix_.RowCount();
  const bool is_short = matrix_.PaddedLength() <= kFetchedLength;
  return block.count == kBlockRows && is_followed && is_short ? rows * matrix_.PaddedLength() : 0;
}

void Projection::CloseClass(std::size_t row_class) {
  const std::span<const int> columns = left_out_.Columns(row_class);
  for (std::size_t c = 0; c < columns.size(); ++c) {
    const auto k = static_cast<std::size_t>(columns[c]);
    sums_[k] = kept_[c].sum;
    lost_[k] = kept_[c].lost + class_score_squares_;
  }
  score_squares_ += class_score_squares_;
}

int Projection::LoadingsFor(std::span<const float> scores, const Cap& cap,
                            std::span<double> loadings) {
  std::copy_n(sums_.Data(), loadings.size(), loadings.begin());
  if (!has_gaps_) return status::kOk;
  int result = status::kOk;
  for (std::size_t k = 0; k < loadings.size() && result == status::kOk; ++k) {
    if (!matrix_.TakesPart(k)) continue;
    // p_k = (sum of t_i e_ik) (sum of all t_i^2) / (sum of the t_i^2 whose e_ik is usable)
    double usable = score_squares_ - lost_[k];
    if (usable <= kSubtractableShare * score_squares_) usable = UsableScoreSquares(k, scores);
    if (usable == 0) {
      result =
          left_out_.IsNothing() ? status::mva::kDivisionByZero : status::mva::kEmptyVariableInGroup;
    } else {
      loadings[k] *= CappedFactor(score_squares_ / usable, cap, k, clipped_);
    }
  }
  ReportClipped(cap, clipped_);
  return result;
}

double Projection::UsableScoreSquares(std::size_t column, std::span<const float> scores) const {
  double squares = 0;
  for (std::size_t c = 0; c < left_out_.KeptCount(); ++c) {
    if (left_out_.IsWholeRow(c)) continue;
    if (std::ranges::binary_search(left_out_.Columns(c), static_cast<int>(column))) continue;
    for (std::size_t i = left_out_.FirstRowOf(c); i < scores.size(); i += left_out_.ClassCount()) {
      if (IsMissing(scores[i]) || matrix_.IsHole(i, column)) continue;
      squares += Square(static_cast<double>(scores[i]));
    }
  }
  return squares;
}

// What a projection onto rows is given, and what it has gathered so far.
struct Projection::RowPass {
  std::span<const float> weights;
  double squares;
  const Cap& cap;
  std::span<float> scores;
  double left_out_squares = 0;  // of the weights that the class at hand leaves out
  ScoreSums sums = {};
};

ScoreSums Projection::ProjectRows(std::span<const float> weights, double squares, const Cap& cap,
                                  std::span<float> scores, bool also_sums_columns) {
  RowPass pass{weights, squares, cap, scores};
  std::ranges::copy(weights, weights_.Data());
  if (also_sums_columns) ClearSums();
  for (std::size_t c = 0; c < left_out_.KeptCount(); ++c) {
    if (left_out_.IsWholeRow(c)) {
      ForEachBlock(c, [&](const Block& block) {
        for (std::size_t r = 0; r < block.count; ++r) scores[block.index[r]] = kMissing;
      });
      continue;
    }
    pass.left_out_squares = MaskWeights(c);
    if (also_sums_columns) OpenClass(c);
    ForEachBlock(c, [&](const Block& block) {
      ProjectBlock(block, pass);
      if (also_sums_columns) AddBlock(block, scores);
    });
    if (also_sums_columns) CloseClass(c);
    UnmaskWeights(c, weights);
  }
  ReportClipped(cap, clipped_);
  return pass.sums;
}

double Projection::MaskWeights(std::size_t row_class) {
  double masked_squares = 0;
  for (const int column : left_out_.Columns(row_class)) {
    double& weight = weights_[static_cast<std::size_t>(column)];
    masked_squares += Square(weight);
    weight = 0;
  }
  return masked_squares;
}

void Projection::UnmaskWeights(std::size_t row_class, std::span<const float> weights) {
  for (const int column : left_out_.Columns(row_class)) {
    const auto k = static_cast<std::size_t>(column);
    weights_[k] = static_cast<double>(weights[k]);
  }
}

void Projection::ProjectBlock(const Block& block, RowPass& pass) {
  double sums[kBlockRows];
  loops_.dot[block.count - 1](block.rows, weights_.Data(), matrix_.PaddedLength(), sums);
  for (std::size_t r = 0; r < block.count; ++r) {
    float& score = pass.scores[block.index[r]];
    const float before = score;
    score = ScoreOf(block.index[r], sums[r], pass);
    if (sums[r] == 0 && has_gaps_) continue;
    const auto after = static_cast<double>(score);
    pass.sums.squares += Square(after);
    if (!IsMissing(before)) {
      pass.sums.change_squares += Square(after - static_cast<double>(before));
    }
  }
}

float Projection::ScoreOf(std::size_t row, double sum, const RowPass& pass) {
  // t_i = (sum of p_k e_ik) / p'p
  if (!has_gaps_) return AsPresent(static_cast<float>(sum / pass.squares));
  // times p'p / (sum of the p_k^2 whose e_ik is usable)
  double usable =
      pass.squares - (pass.left_out_squares + SquaresAt(matrix_.Holes(row), weights_.Data()));
  if (usable <= kSubtractableShare * pass.squares) usable = UsableWeightSquares(row);
  if (sum == 0) return usable >= kLeastUsableShare * pass.squares ? 0.0f : kMissing;
  const double factor = CappedFactor(pass.squares / usable, pass.cap, row, clipped_);
  return AsPresent(static_cast<float>(factor * sum / pass.squares));
}

double Projection::UsableWeightSquares(std::size_t row) const {
  double squares = 0;
  matrix_.ForEachPresent(row, [&](std::size_t k) { squares += Square(weights_[k]); });
  return squares;
}

}  // namespace zemva
