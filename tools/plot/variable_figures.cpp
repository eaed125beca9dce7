#include <algorithm>
#include <cmath>
#include <numeric>

#include "model/model_names.h"
#include "plot/model_figures.h"
#include "text/messages.h"
#include "zemva/base/positions.h"
#include "zemva/data/obs_info.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

// More names than these do not fit below a row of bars.
constexpr std::size_t kMostNames = 60;

// Bars of the X variables.
void AddVariables(const Model& model, std::vector<float> heights, Figure& figure) {
  for (const short k : PositionsUpTo(model.GetNVarX())) {
    figure.categories.push_back(VariableName(model, k));
  }
  figure.bars.push_back({"", std::move(heights)});
}

template <typename Value>
std::vector<float> OfVariables(const Model& model, Value value) {
  std::vector<float> values;
  for (const short k : PositionsUpTo(model.GetNVarX())) values.push_back(value(k));
  return values;
}

// Puts the highest bar first, where the reader can find a variable by its name.
void SortBars(Figure& figure) {
  if (figure.categories.size() > kMostNames) return;
  std::vector<float>& heights = figure.bars.front().heights;
  std::vector<std::size_t> order(heights.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order,
                           [&](std::size_t i, std::size_t j) { return heights[i] > heights[j]; });
  Figure sorted = figure;
  for (std::size_t i = 0; i < order.size(); ++i) {
    sorted.categories[i] = figure.categories[order[i]];
    sorted.bars.front().heights[i] = heights[order[i]];
  }
  figure = std::move(sorted);
}

// The position of the observation with that number, or of the one that is farthest from the middle.
short ContributingObservation(const FigureSource& source) {
  const Model& model = source.model;
  short found = 0;
  float farthest = -1.0f;
  for (const short i : PositionsUpTo(model.GetNObs())) {
    const float t2 = model.GetT2LS(model.GetA(), i);
    if (source.choice.observation) {
      if (model.GetObsInfo()->GetONum(i) == *source.choice.observation) found = i;
    } else if (!IsMissing(t2) && t2 > farthest) {
      farthest = t2;
      found = i;
    }
  }
  if (found == 0) throw Failure("contributions", "the model has no such observation");
  return found;
}

// A loading of X, or a weight where it is those that scores are made of.
float LoadingOf(const Model& model, short component, short k) {
  const auto a = static_cast<char>(component);
  return model.HasY() ? model.GetWStar(a, k) : model.GetP(a, k);
}

Figure DrawLoadingBars(const FigureSource& source) {
  const Model& model = source.model;
  const short a = source.choice.component_x;
  const char* const vector = model.HasY() ? "w*" : "p";
  Figure figure;
  figure.title = "Loadings";
  figure.y_label = AxisOf(model, vector, a);
  AddVariables(model, OfVariables(model, [&](short k) { return LoadingOf(model, a, k); }), figure);
  return figure;
}

}  // namespace

Figure DrawOverview(const FigureSource& source) {
  const Model& model = source.model;
  Figure figure;
  figure.title = "Explained and predicted by component";
  figure.x_label = "components";
  figure.y_label = "share, cumulative";
  figure.is_to_one = true;
  BarSeries r2x{"R2X(cum)", {}};
  BarSeries r2y{"R2Y(cum)", {}};
  BarSeries q2{"Q2(cum)", {}};
  for (int component = 1; component <= model.GetA(); ++component) {
    const auto a = static_cast<char>(component);
    figure.categories.push_back(std::to_string(component));
    r2x.heights.push_back(model.GetR2X(a));
    if (model.HasY()) r2y.heights.push_back(model.GetR2Y(a));
    q2.heights.push_back(model.HasY() ? model.GetQ2Y(a) : model.GetQ2X(a));
  }
  figure.bars = {r2x, q2};
  if (model.HasY()) figure.bars = {r2x, r2y, q2};
  return figure;
}

Figure DrawLoadings(const FigureSource& source) {
  const Model& model = source.model;
  const short x = source.choice.component_x;
  const short y = source.SecondComponent();
  if (y == 0) return DrawLoadingBars(source);
  const char* const vector = model.HasY() ? "w*c" : "p";
  Figure figure;
  figure.title = "Loadings";
  figure.x_label = AxisOf(model, vector, x);
  figure.y_label = AxisOf(model, vector, y);
  figure.has_origin_lines = true;
  const auto add = [](PointSeries& series, float at_x, float at_y, std::string name,
                      bool is_always_named) {
    if (IsMissing(at_x) || IsMissing(at_y)) return;
    const double xd = static_cast<double>(at_x), yd = static_cast<double>(at_y);
    const double importance = is_always_named ? kAlwaysNamed : std::hypot(xd, yd);
    series.points.push_back({xd, yd, std::move(name), importance});
  };
  PointSeries variables{model.HasY() ? "X, w*" : "", {}};
  for (const short k : PositionsUpTo(model.GetNVarX())) {
    add(variables, LoadingOf(model, x, k), LoadingOf(model, y, k), VariableName(model, k), false);
  }
  figure.points.push_back(std::move(variables));
  if (!model.HasY()) return figure;
  // Responses are few, and all of them are to be found.
  PointSeries responses{"Y, c", {}};
  for (const short m : PositionsUpTo(model.GetNVarY())) {
    add(responses, model.GetC(static_cast<char>(x), m), model.GetC(static_cast<char>(y), m),
        ResponseName(model, m), true);
  }
  figure.points.push_back(std::move(responses));
  return figure;
}

Figure DrawVip(const FigureSource& source) {
  const Model& model = source.model;
  Figure figure;
  figure.title = "Influence of the variables on all responses";
  figure.y_label = "VIP";
  AddVariables(model, OfVariables(model, [&](short k) { return model.GetVIP(model.GetA(), k); }),
               figure);
  SortBars(figure);
  // The mean square of all is 1.
  const double last = static_cast<double>(figure.categories.size()) + 0.5;
  figure.lines.push_back({"the average, 1", {{{0.5, 1.0}, {last, 1.0}}}});
  return figure;
}

Figure DrawCoefficients(const FigureSource& source) {
  const Model& model = source.model;
  const short m = source.choice.response;
  Figure figure;
  figure.title = "Coefficients for " + ResponseName(model, m) + ", centred and scaled";
  figure.y_label = "CoeffCS, " + Rounded(model.GetA(), 3) + " comp.";
  AddVariables(model,
               OfVariables(model, [&](short k) { return model.GetCoeffCS(model.GetA(), k, m); }),
               figure);
  SortBars(figure);
  return figure;
}

Figure DrawContributions(const FigureSource& source) {
  const Model& model = source.model;
  const short i = ContributingObservation(source);
  const auto a = static_cast<char>(source.choice.component_x);
  Figure figure;
  figure.title = "What makes the score of " + ObservationName(model, i);
  figure.y_label = "contribution to " + AxisOf(model, "t", a);
  AddVariables(model, OfVariables(model, [&](short k) { return model.GetGapCont(a, i, 0, k); }),
               figure);
  return figure;
}

}  // namespace zemva::tools
