// What a figure shows. How it is drawn is another's business.
#ifndef ZEMVA_TOOLS_PLOT_FIGURE_H
#define ZEMVA_TOOLS_PLOT_FIGURE_H

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace zemva::tools {

inline constexpr double kAlwaysNamed = std::numeric_limits<double>::infinity();

// Texts are in UTF-8.
struct FigurePoint {
  double x;
  double y;
  std::string name;
  // Which names stand in the figure where there is no room for all: those of the greatest. The name
  // of a point without importance does not stand there at all, and that of kAlwaysNamed always.
  double importance;
};

// Points of one kind, with a mark of their own.
struct PointSeries {
  std::string title;  // "" for none in the legend
  std::vector<FigurePoint> points;
};

// Lines of one kind, each through its points: a limit, an ellipse.
struct LineSeries {
  std::string title;
  std::vector<std::vector<std::pair<double, double>>> lines;
};

// A bar for each category; one that is missing is left out.
struct BarSeries {
  std::string title;
  std::vector<float> heights;
};

struct Figure {
  std::string title;
  std::string x_label;
  std::string y_label;
  std::vector<PointSeries> points;
  std::vector<LineSeries> lines;
  // Bars stand side by side over the names of their categories.
  std::vector<BarSeries> bars;
  std::vector<std::string> categories;
  bool has_origin_lines = false;  // through 0, both ways
  bool is_from_zero = false;      // the upright axis begins there
  bool is_to_one = false;         // and goes to 1 at least
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_PLOT_FIGURE_H
