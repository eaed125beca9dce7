// The kinds of figures that there are of a model.
#ifndef ZEMVA_TOOLS_PLOT_FIGURE_KINDS_H
#define ZEMVA_TOOLS_PLOT_FIGURE_KINDS_H

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "plot/figure.h"
#include "zemva/model/driver/model.h"

namespace zemva::tools {

// Of what a figure is, of the many things that a kind could be of.
struct FigureChoice {
  // The components on the axes; 0 for none on the second. Without it that is the second component,
  // where the model has one.
  short component_x = 1;
  std::optional<short> component_y;
  std::optional<short> observation;  // by number; without it the one with the greatest T2
  short response = 1;                // by position
};

struct FigureSource {
  const Model& model;
  std::span<const std::string> class_names;  // in UTF-8, that of class 1 first
  FigureChoice choice;

  // The component on the second axis, or 0.
  short SecondComponent() const;
};

struct FigureKind {
  const char* name;
  const char* help;
  bool needs_responses;  // the model must have some
  bool is_by_response;   // there is one for each
  bool needs_data;       // which a saved model has not
  Figure (*draw)(const FigureSource& source);
};

std::span<const FigureKind> FigureKinds();

// Raises UsageError for what is none.
const FigureKind& FindFigureKind(const std::string& name);

// Raises Failure for a figure that there is not of this model.
Figure MakeFigure(const FigureKind& kind, const FigureSource& source);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_PLOT_FIGURE_KINDS_H
