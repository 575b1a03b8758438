// SPDX-License-Identifier: GPL-2.0-or-later
// Label points lie inside; the answer is checked with the even-odd rule of a ring of its own.
#include <cmath>

#include <gtest/gtest.h>

#include "helpers/shapes.h"

namespace tessarine {
namespace {

using namespace testing;

std::vector<XY> Spiral() {
  std::vector<XY> out, back;
  for (int step = 0; step <= 200; ++step) {
    const double angle = step * 0.15, radius = 1.0 + 0.2 * angle;
    out.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    back.push_back({(radius + 0.01) * std::cos(angle), (radius + 0.01) * std::sin(angle)});
  }
  out.insert(out.end(), back.rbegin(), back.rend());
  out.push_back(out.front());
  return out;
}

TEST(LabelPoint, LiesInsideWhateverTheShape) {
  const struct {
    const char* name;
    std::vector<std::vector<XY>> rings;
  } rows[] = {
      {"square", {Box(0, 0, 4, 4)}},
      {"ring whose centre is a hole", {Box(0, 0, 10, 10), Box(1, 1, 9, 9, false)}},
      {"crescent", {{{0, 0}, {1, 5}, {0, 10}, {8, 5}, {0, 0}}}},
      {"bracket", {{{0, 0}, {4, 0}, {4, 1}, {1, 1}, {1, 3}, {4, 3}, {4, 4}, {0, 4}, {0, 0}}}},
      {"two far islands", {Box(0, 0, 1, 1), Box(100, 100, 101, 101)}},
      {"spiral", {Spiral()}},
      {"sliver", {{{0, 0}, {1e6, 1e-6}, {2e6, 0}, {1e6, -1e-9}, {0, 0}}}},
      {"needle far from the origin", {{{5e5, 4e6}, {5e5 + 1e-6, 4e6 + 100}, {5e5, 4e6 + 200}, {5e5, 4e6}}}},
      {"sliver on a slope", {{{0, 0}, {3, 1}, {6, 2.0000000000001}, {9, 3}, {0, 0}}}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto polygon = PolygonOf(row.rings);
    const XY at = polygon->LabelPoint();
    int around = 0;
    for (const auto& ring : row.rings) around += RingOf(ring)->Encloses(at) ? 1 : 0;
    EXPECT_EQ(around, 1) << at.x << " " << at.y;
  }
}

TEST(LabelPoint, OfNothingIsAFault) {
  EXPECT_EQ(FaultOf([] { (void)Polygon().LabelPoint(); }), kInvalidCall);
  EXPECT_EQ(FaultOf([] { (void)PolygonOf({{{0, 0}, {1, 1}, {2, 2}, {0, 0}}})->LabelPoint(); }), kInvalidCall);
}

}  // namespace
}  // namespace tessarine
