#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <map>
#include <numbers>

#include "model/model_limits.h"
#include "model/model_names.h"
#include "plot/model_figures.h"
#include "zemva/base/positions.h"
#include "zemva/data/cla_info.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

constexpr char kEllipseTitle[] = "95 % (T2)";

std::string Percent(float level) {
  return Rounded(100.0f * level, 3) + " %";
}

// Points by the class of their observations, those of none first.
class ClassedPoints {
 public:
  explicit ClassedPoints(const FigureSource& source) : source_(source) {}

  // Nothing where a coordinate is missing.
  void Add(short i, float x, float y, double importance) {
    if (IsMissing(x) || IsMissing(y)) return;
    const ClaInfo* const classes = source_.model.GetClaInfo();
    points_[classes == nullptr ? 0 : int{classes->GetOClass(i)}].push_back(
        {static_cast<double>(x), static_cast<double>(y), ObservationName(source_.model, i),
         importance});
  }

  std::vector<PointSeries> Take() {
    std::vector<PointSeries> series;
    const bool is_one = points_.size() == 1;
    for (auto& [number, points] : points_) {
      series.push_back({is_one ? "" : TitleOf(number), std::move(points)});
    }
    return series;
  }

 private:
  std::string TitleOf(int number) const {
    if (number == 0) return "no class";
    const auto names = source_.class_names;
    const auto position = static_cast<std::size_t>(number) - 1;
    return position < names.size() ? names[position] : "class " + std::to_string(number);
  }

  const FigureSource& source_;
  std::map<int, std::vector<FigurePoint>> points_;
};

// From the first observation to the last.
LineSeries Level(std::string title, std::initializer_list<double> heights, double last) {
  LineSeries level{std::move(title), {}};
  for (const double height : heights) level.lines.push_back({{1.0, height}, {last, height}});
  return level;
}

// The ellipse with these half-axes about the middle of two scores.
LineSeries Ellipse(double half_x, double half_y) {
  constexpr int kSteps = 180;
  // On an axis, what is 0 comes as some 1e-16, another one on each system.
  const auto on_axis = [](double share) { return std::abs(share) < 1e-12 ? 0.0 : share; };
  LineSeries ellipse{kEllipseTitle, {{}}};
  for (int step = 0; step <= kSteps; ++step) {
    const double angle = 2.0 * std::numbers::pi * step / kSteps;
    ellipse.lines.front().emplace_back(half_x * on_axis(std::cos(angle)),
                                       half_y * on_axis(std::sin(angle)));
  }
  return ellipse;
}

// The scores of one component, in the order of the observations.
Figure DrawScoresInOrder(const FigureSource& source) {
  const Model& model = source.model;
  const auto a = static_cast<char>(source.choice.component_x);
  Figure figure;
  figure.title = "Scores";
  figure.x_label = "observation";
  figure.y_label = AxisOf(model, "t", a);
  ClassedPoints points(source);
  for (const short i : PositionsUpTo(model.GetNObs())) {
    const float t = model.GetT(a, i);
    points.Add(i, i, t, static_cast<double>(std::fabs(t)));
  }
  figure.points = points.Take();
  // What T2 of this component alone allows: t^2 / S2t is the limit.
  const float limit = model.GetT2Limit(1, kT2Tails[0]);
  if (IsMissing(limit)) return figure;
  const double half = std::sqrt(static_cast<double>(limit) * static_cast<double>(model.GetS2T(a)));
  figure.lines.push_back(Level(kEllipseTitle, {half, -half}, model.GetNObs()));
  return figure;
}

// A vector over the observations with its limits; those beyond the first are named.
Figure DrawWithLimits(const FigureSource& source, CEVecType::EVT type, const char* title) {
  const Model& model = source.model;
  Figure figure;
  figure.title = title;
  figure.is_from_zero = true;
  figure.x_label = "observation";
  figure.y_label =
      std::string(CEVecType::GetString(type)) + "[" + std::to_string(int{model.GetA()}) + "]";
  std::vector<ObservationLimit> limits = ObservationLimitsOf(model);
  std::erase_if(limits, [&](const ObservationLimit& limit) { return limit.of != type; });
  ClassedPoints points(source);
  for (const short i : PositionsUpTo(model.GetNObs())) {
    const float value = limits.front().ValueOf(model, i);
    const bool is_beyond = limits.front().IsBeyond(model, i) == 1.0f;
    points.Add(i, i, value, is_beyond ? static_cast<double>(value) : 0.0);
  }
  figure.points = points.Take();
  for (const ObservationLimit& limit : limits) {
    if (IsMissing(limit.value)) continue;
    figure.lines.push_back(Level(Percent(limit.level) + ": " + Rounded(limit.value, 4),
                                 {static_cast<double>(limit.value)}, model.GetNObs()));
  }
  return figure;
}

}  // namespace

Figure DrawScores(const FigureSource& source) {
  const Model& model = source.model;
  const short y = source.SecondComponent();
  if (y == 0) return DrawScoresInOrder(source);
  const auto a = static_cast<char>(source.choice.component_x);
  const auto b = static_cast<char>(y);
  Figure figure;
  figure.title = "Scores";
  figure.x_label = AxisOf(model, "t", a);
  figure.y_label = AxisOf(model, "t", b);
  figure.has_origin_lines = true;
  const float half_x = model.GetTCritAxisLen(a, kT2Tails[0]);
  const float half_y = model.GetTCritAxisLen(b, kT2Tails[0]);
  const bool has_ellipse = !IsMissing(half_x) && !IsMissing(half_y) && half_x > 0 && half_y > 0;
  ClassedPoints points(source);
  for (const short i : PositionsUpTo(model.GetNObs())) {
    const float tx = model.GetT(a, i), ty = model.GetT(b, i);
    const float far = has_ellipse ? std::hypot(tx / half_x, ty / half_y) : std::hypot(tx, ty);
    points.Add(i, tx, ty, static_cast<double>(far));
  }
  figure.points = points.Take();
  if (has_ellipse) {
    figure.lines.push_back(Ellipse(static_cast<double>(half_x), static_cast<double>(half_y)));
  }
  return figure;
}

Figure DrawDistances(const FigureSource& source) {
  return DrawWithLimits(source, CEVecType::DModX, "Distances to the model");
}

Figure DrawT2(const FigureSource& source) {
  return DrawWithLimits(source, CEVecType::Tsquare, "Hotelling's T2");
}

Figure DrawPredicted(const FigureSource& source) {
  const Model& model = source.model;
  const short m = source.choice.response;
  Figure figure;
  figure.title = ResponseName(model, m) + ": RMSEE = " + Rounded(model.GetRMSEE(m), 4);
  figure.x_label = "observed";
  figure.y_label = "predicted";
  ClassedPoints points(source);
  float least = model.GetYObsLS(1, m), most = least;
  for (const short i : PositionsUpTo(model.GetNObs())) {
    const float observed = model.GetYObsLS(i, m), predicted = model.GetYPredLS(i, m);
    if (IsMissing(observed) || IsMissing(predicted)) continue;
    if (IsMissing(least)) least = most = observed;
    least = std::min({least, observed, predicted});
    most = std::max({most, observed, predicted});
    points.Add(i, observed, predicted, static_cast<double>(std::fabs(predicted - observed)));
  }
  figure.points = points.Take();
  const double first = static_cast<double>(least), last = static_cast<double>(most);
  figure.lines.push_back({"1:1", {{{first, first}, {last, last}}}});
  return figure;
}

}  // namespace zemva::tools
