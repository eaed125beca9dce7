// Which names of points stand in a figure, and on which side of their points.
#ifndef ZEMVA_TOOLS_PLOT_LABEL_LAYOUT_H
#define ZEMVA_TOOLS_PLOT_LABEL_LAYOUT_H

#include <string>
#include <vector>

#include "plot/figure.h"

namespace zemva::tools {

// The part of the page that the axes enclose, in pixels of a figure, and what of the data it shows.
struct PlotArea {
  double width;
  double height;
  double x_least, x_most;
  double y_least, y_most;
};

enum class ELabelSide { kRight, kLeft, kAbove, kBelow };
inline constexpr ELabelSide kLabelSides[] = {ELabelSide::kRight, ELabelSide::kLeft,
                                             ELabelSide::kAbove, ELabelSide::kBelow};

struct Label {
  FigurePoint point;
  ELabelSide side;
};

// The height of a name and the mean width of its characters, in pixels.
inline constexpr double kLabelHeight = 13.0;
inline constexpr double kLabelCharacter = 6.9;

// The most important names that have room: they meet neither another name nor a point.
std::vector<Label> PlaceLabels(const std::vector<PointSeries>& series, const PlotArea& area);

// How many characters there are in UTF-8.
std::size_t CountCharacters(const std::string& text);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_PLOT_LABEL_LAYOUT_H
