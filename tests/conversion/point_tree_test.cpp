// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/point_tree.h"

#include <gtest/gtest.h>

#include <random>

namespace tessarine {
namespace {

// On a grid of few places, so that many points stand on edges of the box and on each other.
TEST(PointTree, FindsThePointsOfABoxAndOfItsEdges) {
  std::mt19937 random(11);
  const auto draw = [&] { return static_cast<double>(random() % 12); };
  for (int round = 0; round < 300; ++round) {
    std::vector<NumberedPoint> points(random() % 90);
    for (std::size_t number = 0; number < points.size(); ++number) {
      points[number] = {{draw(), draw()}, static_cast<std::int64_t>(number)};
    }
    const double x = draw(), y = draw();
    const Envelope box(x, y, x + static_cast<double>(random() % 5), y + static_cast<double>(random() % 5));
    std::vector<std::int64_t> expected, found;
    for (const NumberedPoint& point : points) {
      const bool across = point.place.x >= box.XMin() && point.place.x <= box.XMax();
      if (across && point.place.y >= box.YMin() && point.place.y <= box.YMax()) expected.push_back(point.oid);
    }
    PointTree(points).Within(box, [&](const NumberedPoint& point) { found.push_back(point.oid); });
    EXPECT_THAT(found, ::testing::UnorderedElementsAreArray(expected)) << "round " << round;
  }
}

}  // namespace
}  // namespace tessarine
