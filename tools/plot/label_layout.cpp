#include "plot/label_layout.h"

#include <algorithm>

namespace zemva::tools {
namespace {

// Names beyond these are not tried: the time grows with their number times that of the points.
constexpr std::size_t kMostTried = 500;
// Half of the width of a mark, and what is free between it and its name.
constexpr double kMark = 4.0;
constexpr double kGap = 3.0;

struct Box {
  double left, bottom, right, top;

  bool Meets(const Box& other) const {
    return left < other.right && other.left < right && bottom < other.top && other.bottom < top;
  }
};

Box AboutPoint(const FigurePoint& point, const PlotArea& area) {
  const double x = (point.x - area.x_least) / (area.x_most - area.x_least) * area.width;
  const double y = (point.y - area.y_least) / (area.y_most - area.y_least) * area.height;
  return {x - kMark, y - kMark, x + kMark, y + kMark};
}

Box OfName(const Box& mark, double width, ELabelSide side) {
  const double x = (mark.left + mark.right) / 2, y = (mark.bottom + mark.top) / 2;
  const double half = kLabelHeight / 2;
  switch (side) {
    case ELabelSide::kRight:
      return {mark.right + kGap, y - half, mark.right + kGap + width, y + half};
    case ELabelSide::kLeft:
      return {mark.left - kGap - width, y - half, mark.left - kGap, y + half};
    case ELabelSide::kAbove:
      return {x - width / 2, mark.top + kGap, x + width / 2, mark.top + kGap + kLabelHeight};
    case ELabelSide::kBelow:
      return {x - width / 2, mark.bottom - kGap - kLabelHeight, x + width / 2, mark.bottom - kGap};
  }
  return mark;
}

}  // namespace

std::size_t CountCharacters(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

std::vector<Label> PlaceLabels(const std::vector<PointSeries>& series, const PlotArea& area) {
  std::vector<const FigurePoint*> points;
  std::vector<Box> marks, names;
  for (const PointSeries& each : series) {
    for (const FigurePoint& point : each.points) {
      marks.push_back(AboutPoint(point, area));
      if (point.importance > 0.0) points.push_back(&point);
    }
  }
  std::ranges::stable_sort(points, [](const FigurePoint* one, const FigurePoint* other) {
    return one->importance > other->importance;
  });
  if (points.size() > kMostTried) points.resize(kMostTried);
  std::vector<Label> labels;
  for (const FigurePoint* point : points) {
    const Box mark = AboutPoint(*point, area);
    const double width = kLabelCharacter * static_cast<double>(CountCharacters(point->name));
    const auto is_free = [&](ELabelSide side, bool may_cover_marks) {
      const Box box = OfName(mark, width, side);
      const auto meets = [&](const Box& other) { return box.Meets(other); };
      return box.left >= 0 && box.bottom >= 0 && box.right <= area.width &&
             box.top <= area.height && std::ranges::none_of(names, meets) &&
             (may_cover_marks || std::ranges::none_of(marks, meets));
    };
    const auto place = [&](bool may_cover_marks) {
      return std::ranges::find_if(kLabelSides,
                                  [&](ELabelSide side) { return is_free(side, may_cover_marks); });
    };
    const bool is_wanted = point->importance == kAlwaysNamed;
    const auto* side = place(false);
    if (side == std::end(kLabelSides) && is_wanted) side = place(true);
    if (side == std::end(kLabelSides) && !is_wanted) continue;
    const ELabelSide chosen = side == std::end(kLabelSides) ? kLabelSides[0] : *side;
    names.push_back(OfName(mark, width, chosen));
    labels.push_back({*point, chosen});
  }
  return labels;
}

}  // namespace zemva::tools
