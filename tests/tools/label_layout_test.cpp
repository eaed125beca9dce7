#include "plot/label_layout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace zemva::tools {
namespace {

// Where a name is that stands to the left or right of its point, or above or below.
double MiddleOf(const Label& label, double pixels_per_unit) {
  const double width = kLabelCharacter * static_cast<double>(label.point.name.size());
  const bool is_beside = label.side == ELabelSide::kRight || label.side == ELabelSide::kLeft;
  const double sign = label.side == ELabelSide::kRight ? 1.0 : -1.0;
  return label.point.x * pixels_per_unit + (is_beside ? sign * width / 2 : 0.0);
}

TEST(LabelLayout, NamesTheFarthestOfAThousandPointsSideBySide) {
  std::mt19937 random(5);
  const auto coordinate = [&] { return static_cast<double>(random() % 100000) / 100000; };
  PointSeries series;
  for (int i = 0; i < 1000; ++i) {
    const double x = coordinate() * coordinate(), y = coordinate() * coordinate();
    series.points.push_back({x, y, "batch " + std::to_string(i), std::hypot(x, y)});
  }
  series.points.push_back({0.0, 0.0, "wanted", kAlwaysNamed});
  series.points.push_back({1.3, 1.3, "nameless", 0.0});
  const PlotArea area{600, 400, -0.1, 1.4, -0.1, 1.4};
  const std::vector<Label> labels = PlaceLabels({series}, area);
  ASSERT_GT(labels.size(), 20U);
  ASSERT_LT(labels.size(), 120U);
  EXPECT_EQ(labels[0].point.name, "wanted");
  for (const Label& one : labels) {
    EXPECT_NE(one.point.name, "nameless");
    for (const Label& other : labels) {
      if (&one == &other || one.side != other.side) continue;
      const double widths = kLabelCharacter *
                            static_cast<double>(one.point.name.size() + other.point.name.size()) /
                            2;
      const bool is_apart = std::abs(MiddleOf(one, 400) - MiddleOf(other, 400)) >= widths ||
                            std::abs(one.point.y - other.point.y) * 400 / 1.5 >= kLabelHeight;
      EXPECT_TRUE(is_apart) << one.point.name << " " << other.point.name;
    }
  }
}

}  // namespace
}  // namespace zemva::tools
