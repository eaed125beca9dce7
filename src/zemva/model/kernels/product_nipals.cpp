#include "zemva/model/kernels/product_nipals.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "zemva/base/lane_sums.h"
#include "zemva/errors/status.h"
#include "zemva/model/kernels/projection.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

using Vector = std::vector<double>;

double Square(double value) {
  return value * value;
}

double Sum(const Vector& values) {
  double sum = 0;
  for (const double value : values) sum += value;
  return sum;
}

Cap Unreported(const Cap& cap) {
  return {cap.limit, {}};
}

float Rounded(double value) {
  return AsPresent(static_cast<float>(value));
}

// What a projection does to the sums over usable elements of each group: a factor, total / usable,
// cut to the cap. The usable ones are those of all other groups.
struct Correction {
  Vector factors;
  std::vector<bool> is_cut;
  Vector uncut;
};

Correction CorrectFor(const Vector& squares_of_groups, double total, double limit) {
  const std::size_t count = squares_of_groups.size();
  Correction correction{Vector(count), std::vector<bool>(count), Vector(count)};
  for (std::size_t g = 0; g < count; ++g) {
    double usable = 0;
    for (std::size_t other = 0; other < count; ++other) {
      if (other != g) usable += squares_of_groups[other];
    }
    const double factor = usable > 0 ? total / usable : 0;  // 0 where there is nothing to correct
    correction.uncut[g] = factor;
    correction.is_cut[g] = factor > limit;
    correction.factors[g] = correction.is_cut[g] ? limit : factor;
  }
  return correction;
}

// In the order of the rows or columns, of which element i belongs to group_of(i); -1 for none.
template <typename GroupOf>
void Report(const Correction& correction, const Cap& cap, std::size_t count, GroupOf group_of) {
  if (!cap.report || std::ranges::find(correction.is_cut, true) == correction.is_cut.end()) return;
  for (std::size_t i = 0; i < count; ++i) {
    const int group = group_of(i);
    if (group < 0 || !correction.is_cut[static_cast<std::size_t>(group)]) continue;
    cap.report(static_cast<int>(i) + 1, correction.uncut[static_cast<std::size_t>(group)]);
  }
}

// The group of each column of the matrix, from 0.
std::vector<std::size_t> GroupOfColumns(const LeftOut& left_out, std::size_t column_count) {
  std::vector<std::size_t> groups(column_count);
  for (std::size_t g = 0; !left_out.IsNothing() && g < left_out.ClassCount(); ++g) {
    for (const int column : left_out.Columns(g)) groups[static_cast<std::size_t>(column)] = g;
  }
  return groups;
}

// Whether there is a column that has no usable score.
bool LacksScores(const Correction& of_loadings, const LeftOut& left_out,
                 const ResidualMatrix& residuals) {
  for (std::size_t g = 0; g < of_loadings.factors.size(); ++g) {
    if (of_loadings.factors[g] != 0.0) continue;
    const std::span<const int> columns = left_out.Columns(g);
    const auto takes_part = [&](int k) { return residuals.TakesPart(static_cast<std::size_t>(k)); };
    if (std::ranges::any_of(columns, takes_part)) return true;
  }
  return false;
}

// Counts the iterations, and tells whether there is another.
struct Loop {
  const NipalsSettings& settings;
  NipalsResult result;

  // Counts an iteration, unless it is not to be done.
  bool Begins() {
    if (IsStopped(settings.goes_on, result.iterations)) {
      result.status = status::mva::kCancelled;
      return false;
    }
    ++result.iterations;
    return true;
  }
  bool GoesOn(const ScoreSums& sums) {
    result.is_converged = IsConverged(sums);
    return !result.is_converged && result.iterations <= settings.max_iterations;
  }
};

// --- N x N: the iteration runs on the scores ---

class RowProducts : public ProductNipals {
 public:
  RowProducts(const ResidualMatrix& residuals, const LeftOut& groups)
      : ProductNipals(residuals, residuals.RowCount(), groups.ClassCount()),
        place_of_column_(GroupOfColumns(groups, residuals.ColumnCount())),
        place_of_group_(groups.ClassCount()) {
    for (std::size_t g = 0; g < place_of_group_.size(); ++g) {
      place_of_group_[g] = g;
      SumProducts(g);
    }
  }

  NipalsResult Fit(const NipalsSettings& settings, int iterations, std::span<float> scores,
                   std::span<float> loadings) override {
    Loop loop{settings, {status::kOk, iterations}};
    const ProductSums sums = SumOfGroups();
    Vector t = Widen(scores);
    Vector before;
    double length = 0;
    ScoreSums score_sums;
    do {
      if (!loop.Begins()) return loop.result;
      // t = E E't / |E't|
      Vector product = Multiply(sums, t);
      const double squares = Dot(t, product);
      length = squares > 0 ? std::sqrt(squares) : 0;
      const double scale = length > 0 ? 1 / length : 0;
      for (double& element : product) element *= scale;
      before = std::exchange(t, std::move(product));
      score_sums = Compare(t, before);
    } while (loop.GoesOn(score_sums));
    loop.result.status = SetLoadings(LeftOut(), settings, before, loadings);
    std::ranges::transform(t.begin(), t.begin() + Count(scores), scores.begin(), Rounded);
    // E p = t, and of a group g of columns E_g p_g = (E E')_g t before / |E't|
    x_ = before;
    for (double& element : x_) element *= length > 0 ? 1 / length : 0;
    axis_ = t;
    return loop.result;
  }

  NipalsResult FitRound(const LeftOut& left_out, const NipalsSettings& settings,
                        std::span<float> scores, std::span<float> loadings) override {
    Regroup(left_out);
    const std::size_t group_count = sums_.size();
    const std::size_t row_count = scores.size();
    Loop loop{settings, {status::kOk, 0}};
    Vector t = Widen(scores);
    Vector before;
    std::vector<Vector> products(group_count);
    std::vector<bool> is_scored(group_count);  // rows of a class that have something usable
    ScoreSums score_sums;
    do {
      if (!loop.Begins()) return loop.result;
      // p of the columns of group l: f_l E_l't / |p|, over the rows of other classes
      Vector row_squares(group_count);
      for (std::size_t i = 0; i < row_count; ++i) row_squares[left_out.ClassOf(i)] += t[i] * t[i];
      const double total = Sum(row_squares);
      const Correction of_loadings = CorrectFor(row_squares, total, settings.loading_cap.limit);
      if (LacksScores(of_loadings, left_out, residuals_)) {
        loop.result.status = status::mva::kEmptyVariableInGroup;
        return loop.result;
      }
      Report(of_loadings, settings.loading_cap, place_of_column_.size(), [&](std::size_t k) {
        return residuals_.TakesPart(k) ? static_cast<int>(group_of_column_[k]) : -1;
      });
      Vector loading_squares(group_count);
      for (std::size_t l = 0; l < group_count; ++l) {
        Vector masked = t;
        for (std::size_t i = left_out.FirstRowOf(l); i < row_count; i += group_count) masked[i] = 0;
        products[l] = Multiply(sums_[place_of_group_[l]], masked);
        const double factor = of_loadings.factors[l];
        loading_squares[l] = factor * factor * std::max(Dot(masked, products[l]), 0.0);
      }
      // |p|^2 before it gets length 1
      const double squares = Sum(loading_squares);
      const Correction of_scores = CorrectFor(loading_squares, squares, settings.score_cap.limit);
      for (std::size_t c = 0; c < group_count; ++c) is_scored[c] = of_scores.factors[c] != 0.0;
      const double scale = squares > 0 ? 1 / std::sqrt(squares) : 0;
      before = std::exchange(t, MakeVector());
      // t_i = g_c / |p| times the sum over groups l other than c, the class of i, of f_l E_l p_l
      for (std::size_t i = 0; i < row_count; ++i) {
        const std::size_t row_class = left_out.ClassOf(i);
        double sum = 0;
        for (std::size_t l = 0; l < group_count; ++l) {
          if (l != row_class) sum += of_loadings.factors[l] * products[l][i];
        }
        t[i] = of_scores.factors[row_class] * scale * sum;
      }
      Report(of_scores, settings.score_cap, row_count,
             [&](std::size_t i) { return t[i] == 0 ? -1 : static_cast<int>(left_out.ClassOf(i)); });
      score_sums = Compare(t, before);
    } while (loop.GoesOn(score_sums));
    loop.result.status = SetLoadings(left_out, settings, before, loadings);
    for (std::size_t i = 0; i < row_count; ++i) {
      scores[i] = is_scored[left_out.ClassOf(i)] ? Rounded(t[i]) : kMissing;
    }
    return loop.result;
  }

 private:
  static std::ptrdiff_t Count(std::span<const float> values) {
    return static_cast<std::ptrdiff_t>(values.size());
  }

  Vector Widen(std::span<const float> scores) const {
    Vector t = MakeVector();
    std::ranges::copy(scores, t.begin());
    return t;
  }

  ScoreSums Compare(const Vector& t, const Vector& before) const {
    return {SumInLanes(t.size(), [&](std::size_t i) { return Square(t[i]); }),
            SumInLanes(t.size(), [&](std::size_t i) { return Square(t[i] - before[i]); })};
  }

  // p = E't / |E't|, as the projection onto columns makes it of the scores that the last iteration
  // began with.
  int SetLoadings(const LeftOut& left_out, const NipalsSettings& settings, const Vector& t,
                  std::span<float> loadings) const {
    Projection projection(residuals_, left_out);
    std::vector<float> scores(residuals_.RowCount());
    std::ranges::transform(t.begin(), t.begin() + Count(scores), scores.begin(), Rounded);
    Vector sums(loadings.size());
    const int status = projection.OntoColumns(scores, Unreported(settings.loading_cap), sums);
    if (status == status::kOk) Normalise(sums, loadings);
    return status;
  }

  // The products of the rows over the columns of a group, which are gathered side by side.
  void SumProducts(std::size_t group) {
    std::vector<std::size_t> columns;
    for (std::size_t k = 0; k < place_of_column_.size(); ++k) {
      if (place_of_column_[k] == group && residuals_.TakesPart(k)) columns.push_back(k);
    }
    const std::size_t row_count = residuals_.RowCount();
    const std::size_t length = PaddedCount(columns.size());
    AlignedBuffer<float> gathered(row_count * length);
    std::ranges::fill(gathered.Values(), 0.0f);
    for (std::size_t i = 0; i < row_count; ++i) {
      const std::span<const float> row = residuals_.Row(i);
      float* const to = gathered.Data() + i * length;
      for (std::size_t c = 0; c < columns.size(); ++c) to[c] = row[columns[c]];
    }
    AlignedBuffer<double> weights(length);
    ProductSums& sums = sums_[group];
    for (std::size_t i = 0; i < row_count; ++i) {
      std::copy_n(gathered.Data() + i * length, length, weights.Data());
      for (std::size_t j = i; j < row_count; j += kBlockRows) {
        const std::size_t count = std::min(kBlockRows, row_count - j);
        const float* rows[kBlockRows] = {};
        for (std::size_t r = 0; r < count; ++r) rows[r] = gathered.Data() + (j + r) * length;
        loops_.dot[count - 1](rows, weights.Data(), length, sums.Row(i) + j);
      }
    }
    sums.CopyUpperToLower();
  }

  // Finds out which place holds most of the columns of each group, and moves the others there.
  void Regroup(const LeftOut& left_out) {
    group_of_column_ = GroupOfColumns(left_out, place_of_column_.size());
    const std::size_t group_count = sums_.size();
    std::vector<std::vector<std::size_t>> votes(group_count, std::vector<std::size_t>(group_count));
    for (std::size_t k = 0; k < place_of_column_.size(); ++k) {
      ++votes[group_of_column_[k]][place_of_column_[k]];
    }
    std::vector<bool> is_taken(group_count);
    for (std::size_t g = 0; g < group_count; ++g) {
      std::size_t best = group_count;
      for (std::size_t place = 0; place < group_count; ++place) {
        if (is_taken[place]) continue;
        if (best == group_count || votes[g][place] > votes[g][best]) best = place;
      }
      is_taken[best] = true;
      place_of_group_[g] = best;
    }
    Vector column = MakeVector();
    for (std::size_t k = 0; k < place_of_column_.size(); ++k) {
      const std::size_t place = place_of_group_[group_of_column_[k]];
      if (place == place_of_column_[k]) continue;
      for (std::size_t i = 0; i < residuals_.RowCount(); ++i) {
        column[i] = static_cast<double>(residuals_.Row(i)[k]);
      }
      sums_[place_of_column_[k]].AddSquare(-1.0, column.data());
      sums_[place].AddSquare(1.0, column.data());
      place_of_column_[k] = place;
    }
  }

  std::vector<std::size_t> place_of_column_;  // in sums_
  std::vector<std::size_t> place_of_group_;
  std::vector<std::size_t> group_of_column_;  // in the round at hand
};

// --- K x K: the iteration runs on the loadings ---

class ColumnProducts : public ProductNipals {
 public:
  ColumnProducts(const ResidualMatrix& residuals, const LeftOut& groups)
      : ProductNipals(residuals, residuals.ColumnCount(), groups.ClassCount()) {
    for (std::size_t g = 0; g < sums_.size(); ++g) SumProducts(groups, g);
  }

  NipalsResult Fit(const NipalsSettings& settings, int iterations, std::span<float> scores,
                   std::span<float> loadings) override {
    Loop loop{settings, {status::kOk, iterations}};
    const ProductSums sums = SumOfGroups();
    // E't of the scores to start from; E'E p of the loadings after that
    Vector product = MakeVector();
    AddRows(LeftOut(), 0, scores, product);
    double before_squares = Squares(scores);
    Vector p;
    Vector before = MakeVector();
    bool is_first = true;
    ScoreSums score_sums;
    do {
      if (!loop.Begins()) return loop.result;
      p = product;
      const double squares = Dot(p, p);
      const double scale = squares > 0 ? 1 / std::sqrt(squares) : 0;
      for (double& element : p) element *= scale;
      Vector next = Multiply(sums, p);
      score_sums.squares = Dot(p, next);
      // |E p - t|^2 = p'E'E p - 2 p'E't + t't, and from then on (p - p before)'E'E (p - p before)
      score_sums.change_squares = is_first
                                      ? score_sums.squares - 2 * Dot(p, product) + before_squares
                                      : DotOfChanges(p, before, next, product);
      is_first = false;
      before = p;
      product = std::move(next);
    } while (loop.GoesOn(score_sums));
    SetScores(LeftOut(), settings, p, scores, loadings);
    x_ = p;
    axis_ = p;
    return loop.result;
  }

  NipalsResult FitRound(const LeftOut& left_out, const NipalsSettings& settings,
                        std::span<float> scores, std::span<float> loadings) override {
    const std::size_t group_count = sums_.size();
    const std::size_t column_count = loadings.size();
    const std::vector<std::size_t> group_of_column = GroupOfColumns(left_out, column_count);
    Loop loop{settings, {status::kOk, 0}};
    // Of the rows of each class: E't and t't, and the weights that t is E times of
    std::vector<Vector> products(group_count, MakeVector());
    std::vector<Vector> weights(group_count, MakeVector());
    Vector row_squares(group_count);
    for (std::size_t c = 0; c < group_count; ++c) {
      AddRows(left_out, c, scores, products[c]);
      for (std::size_t i = left_out.FirstRowOf(c); i < scores.size(); i += group_count) {
        row_squares[c] += Square(static_cast<double>(scores[i]));
      }
    }
    bool is_first = true;
    Vector p = MakeVector();
    ScoreSums score_sums;
    do {
      if (!loop.Begins()) return loop.result;
      const double total = Sum(row_squares);
      const Correction of_loadings = CorrectFor(row_squares, total, settings.loading_cap.limit);
      if (LacksScores(of_loadings, left_out, residuals_)) {
        loop.result.status = status::mva::kEmptyVariableInGroup;
        return loop.result;
      }
      Report(of_loadings, settings.loading_cap, column_count, [&](std::size_t k) {
        return residuals_.TakesPart(k) ? static_cast<int>(group_of_column[k]) : -1;
      });
      // p_k = f_l times the sum over classes c other than l, the group of k, of E_c't_c, scaled
      for (std::size_t k = 0; k < column_count; ++k) {
        double sum = 0;
        for (std::size_t c = 0; c < group_count; ++c) {
          if (c != group_of_column[k]) sum += products[c][k];
        }
        p[k] = of_loadings.factors[group_of_column[k]] * sum;
      }
      const double length = std::sqrt(Dot(p, p));
      for (double& element : p) element *= length > 0 ? 1 / length : 0;
      Vector loading_squares(group_count);
      for (std::size_t k = 0; k < column_count; ++k) {
        loading_squares[group_of_column[k]] += Square(p[k]);
      }
      const Correction of_scores =
          CorrectFor(loading_squares, Sum(loading_squares), settings.score_cap.limit);
      score_sums = {};
      for (std::size_t c = 0; c < group_count; ++c) {
        // t_c = g_c E_c p without the columns of group c
        Vector weight = p;
        for (const int column : left_out.Columns(c)) weight[static_cast<std::size_t>(column)] = 0;
        for (double& element : weight) element *= of_scores.factors[c];
        Vector product = Multiply(sums_[c], weight);
        const double squares = std::max(Dot(weight, product), 0.0);
        score_sums.squares += squares;
        score_sums.change_squares += is_first
                                         ? squares - 2 * Dot(weight, products[c]) + row_squares[c]
                                         : DotOfChanges(weight, weights[c], product, products[c]);
        row_squares[c] = squares;
        weights[c] = std::move(weight);
        products[c] = std::move(product);
      }
      is_first = false;
      Report(of_scores, settings.score_cap, scores.size(),
             [&](std::size_t i) { return static_cast<int>(left_out.ClassOf(i)); });
    } while (loop.GoesOn(score_sums));
    SetScores(left_out, settings, p, scores, loadings);
    return loop.result;
  }

 private:
  static double Squares(std::span<const float> scores) {
    return SumInLanes(scores.size(),
                      [&](std::size_t i) { return Square(static_cast<double>(scores[i])); });
  }

  // (a - b)'(c - d)
  static double DotOfChanges(const Vector& a, const Vector& b, const Vector& c, const Vector& d) {
    return SumInLanes(a.size(), [&](std::size_t k) { return (a[k] - b[k]) * (c[k] - d[k]); });
  }

  // product += E_c't over the rows of a class.
  void AddRows(const LeftOut& left_out, std::size_t row_class, std::span<const float> scores,
               Vector& product) const {
    const std::size_t step = left_out.ClassCount();
    for (std::size_t i = left_out.FirstRowOf(row_class); i < scores.size();) {
      const float* rows[kBlockRows] = {};
      double factors[kBlockRows] = {};
      std::size_t count = 0;
      for (; count < kBlockRows && i < scores.size(); i += step) {
        rows[count] = residuals_.Row(i).data();
        factors[count++] = static_cast<double>(scores[i]);
      }
      loops_.add[count - 1](rows, factors, residuals_.PaddedLength(), product.data(), 0);
    }
  }

  // Rounds the loadings, and projects onto rows for the scores.
  void SetScores(const LeftOut& left_out, const NipalsSettings& settings, const Vector& p,
                 std::span<float> scores, std::span<float> loadings) const {
    Normalise(std::span(p).first(loadings.size()), loadings);
    Projection(residuals_, left_out)
        .OntoRows(loadings, 1.0, Unreported(settings.score_cap), scores);
  }

  // The products of the columns over the rows of a class.
  void SumProducts(const LeftOut& groups, std::size_t row_class) {
    const std::size_t step = groups.ClassCount();
    const std::size_t row_count = residuals_.RowCount();
    ProductSums& sums = sums_[row_class];
    for (std::size_t i = groups.FirstRowOf(row_class); i < row_count;) {
      const float* rows[kBlockRows] = {};
      std::size_t count = 0;
      for (; count < kBlockRows && i < row_count; i += step) {
        rows[count++] = residuals_.Row(i).data();
      }
      for (std::size_t k = 0; k < sums.Size(); ++k) {
        const std::size_t from = k / kLaneCount * kLaneCount;
        const float* parts[kBlockRows] = {};
        double factors[kBlockRows] = {};
        for (std::size_t r = 0; r < count; ++r) {
          parts[r] = rows[r] + from;
          factors[r] = static_cast<double>(rows[r][k]);
        }
        loops_.add[count - 1](parts, factors, sums.PaddedSize() - from, sums.Row(k) + from, 0);
      }
    }
    sums.CopyUpperToLower();
  }
};

bool HasFewerRows(const ResidualMatrix& residuals) {
  return residuals.RowCount() < residuals.ColumnCount();
}

}  // namespace

ProductNipals::ProductNipals(const ResidualMatrix& residuals, std::size_t size,
                             std::size_t group_count)
    : residuals_(residuals), loops_(BestProjectionLoops()), version_(residuals.GetVersion()) {
  for (std::size_t g = 0; g < group_count; ++g) sums_.emplace_back(size);
}

std::unique_ptr<ProductNipals> ProductNipals::Make(const ResidualMatrix& residuals,
                                                   const LeftOut& groups) {
  std::unique_ptr<ProductNipals> made;
  if (HasFewerRows(residuals)) {
    made = std::make_unique<RowProducts>(residuals, groups);
  } else {
    made = std::make_unique<ColumnProducts>(residuals, groups);
  }
  made->initial_trace_ = made->SumOfGroups().Trace();
  return made;
}

double ProductNipals::CountElements(const ResidualMatrix& residuals, const LeftOut& groups) {
  const auto size = static_cast<double>(std::min(residuals.RowCount(), residuals.ColumnCount()));
  return size * size * static_cast<double>(groups.ClassCount());
}

bool ProductNipals::IsUpToDate(const ResidualMatrix& residuals) const {
  // What is left of the sums is what rounding left of the matrix, when that is little.
  constexpr double kLeastShare = 1e-3;
  double trace = 0;
  for (const ProductSums& sums : sums_) trace += sums.Trace();
  return &residuals == &residuals_ && residuals.GetVersion() == version_ &&
         trace > kLeastShare * initial_trace_;
}

// E - t p' has the products S - a v' - v a' + (x'v) a a' with v = S x: for rows a = t and x such
// that S x = E p, for columns a = x = p.
void ProductNipals::TakeOff() {
  for (ProductSums& sums : sums_) {
    Vector v = Multiply(sums, x_);
    const double half = Dot(x_, v) / 2;
    for (std::size_t i = 0; i < v.size(); ++i) v[i] -= half * axis_[i];
    sums.Subtract(axis_.data(), v.data());
  }
  version_ = residuals_.GetVersion();
}

double ProductNipals::Dot(const Vector& a, const Vector& b) const {
  return SumInLanes(a.size(), [&](std::size_t i) { return a[i] * b[i]; });
}

ProductNipals::Vector ProductNipals::Multiply(const ProductSums& sums, const Vector& x) const {
  Vector product = MakeVector();
  sums.Multiply(loops_, x.data(), product.data());
  return product;
}

ProductSums ProductNipals::SumOfGroups() const {
  ProductSums total = sums_.front();
  for (std::size_t g = 1; g < sums_.size(); ++g) total.Add(sums_[g]);
  return total;
}

}  // namespace zemva
