#include "plot/figure_kinds.h"

#include <algorithm>

#include "plot/model_figures.h"
#include "text/messages.h"
#include "text/near_word.h"

namespace zemva::tools {
namespace {

constexpr FigureKind kKinds[] = {
    {"overview", "R2 and Q2 by component", false, false, false, DrawOverview},
    {"scores", "observations in two components, with the ellipse of T2", false, false, false,
     DrawScores},
    {"loadings", "variables in two components, of pls w*c", false, false, false, DrawLoadings},
    {"distances", "DModX of the observations, with the limit", false, false, false, DrawDistances},
    {"t2", "Hotelling's T2 of the observations, with limits", false, false, false, DrawT2},
    {"vip", "the influence of the variables", true, false, false, DrawVip},
    {"coefficients", "coefficients for a response", true, true, false, DrawCoefficients},
    {"predicted", "a response, predicted against observed", true, true, false, DrawPredicted},
    {"contributions", "what makes a score of an observation", false, false, true,
     DrawContributions},
};

}  // namespace

short FigureSource::SecondComponent() const {
  const short second = model.GetA() > 1 ? 2 : 0;
  return choice.component_y.value_or(second);
}

std::span<const FigureKind> FigureKinds() {
  return kKinds;
}

const FigureKind& FindFigureKind(const std::string& name) {
  const auto* const kind =
      std::ranges::find_if(kKinds, [&](const FigureKind& each) { return each.name == name; });
  if (kind != std::end(kKinds)) return *kind;
  std::vector<std::string> names;
  for (const FigureKind& each : kKinds) names.emplace_back(each.name);
  throw UsageError("there is no figure " + Quoted(name) + Suggestion(name, names));
}

Figure MakeFigure(const FigureKind& kind, const FigureSource& source) {
  const Model& model = source.model;
  if (kind.needs_responses && !model.HasY()) {
    throw Failure(kind.name, "the model has no responses");
  }
  for (const short a : {source.choice.component_x, source.SecondComponent()}) {
    if (a > model.GetA()) throw Failure(kind.name, "there is no component " + std::to_string(a));
  }
  if (kind.needs_data && !model.IsLoaded()) {
    throw Failure(kind.name, "a saved model has not the data that this figure is of");
  }
  return kind.draw(source);
}

}  // namespace zemva::tools
