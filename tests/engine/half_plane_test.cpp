// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/half_plane.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "engine/geos_bridge.h"
#include "tests/helpers/shapes.h"

namespace tessarine::engine {
namespace {

using tessarine::testing::Box;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Kept = HalfPlane::Kept;
using Vertices = std::vector<XY>;

std::shared_ptr<Polygon> PolygonOf(const LineList& rings) { return tessarine::testing::PolygonOf(rings); }

// The same by the overlay of a topology library, with a rectangle far larger than the data.
double AreaByOverlay(const Polygon& polygon, const HalfPlane& half) {
  constexpr double kFar = 1e4;
  Envelope side(-kFar, -kFar, kFar, kFar);
  switch (half.kept) {
    case Kept::West:
      side = Envelope(-kFar, -kFar, half.line, kFar);
      break;
    case Kept::East:
      side = Envelope(half.line, -kFar, kFar, kFar);
      break;
    case Kept::South:
      side = Envelope(-kFar, -kFar, kFar, half.line);
      break;
    case Kept::North:
      side = Envelope(-kFar, half.line, kFar, kFar);
      break;
  }
  const GeosGeometry own = ToGeos(polygon), rectangle = RectangleToGeos(side);
  const GeosGeometry common = Checked(GEOSIntersection_r(Geos(), own.get(), rectangle.get()));
  double area = 0.0;
  GEOSArea_r(Geos(), common.get(), &area);
  return area;
}

LineList RingsOf(const Polygon& polygon) {
  LineList rings;
  for (const auto& part : polygon.Parts()) rings.emplace_back(part->Vertices().begin(), part->Vertices().end());
  return rings;
}

TEST(HalfPlane, TheCutLiesOnTheLineAndVerticesThereStay) {
  const LineList box{Box(0, 0, 10, 10)};
  EXPECT_THAT(*CutToHalfPlane(box, {Kept::West, 4.0}), ElementsAre(Vertices{{4, 0}, {0, 0}, {0, 10}, {4, 10}, {4, 0}}));
  EXPECT_THAT(*CutToHalfPlane(box, {Kept::North, 12.0}), IsEmpty());
  EXPECT_THAT(*CutToHalfPlane(box, {Kept::North, 10.0}), IsEmpty()) << "a side alone bounds nothing";
  EXPECT_THAT(*CutToHalfPlane(box, {Kept::East, -1.0}), ElementsAre(box[0]));
  // On the line itself the ring keeps the vertex between its corners.
  const LineList beside{{{4, 0}, {0, 0}, {0, 10}, {4, 10}, {4, 5}, {4, 0}}, Box(20, 0, 30, 10)};
  EXPECT_THAT(*CutToHalfPlane(beside, {Kept::West, 4.0}),
              ElementsAre(Vertices{{4, 0}, {0, 0}, {0, 10}, {4, 10}, {4, 5}, {4, 0}}));
  // Rings the wrong way round bound no area at their right.
  EXPECT_EQ(CutToHalfPlane({Box(0, 0, 10, 10, false)}, {Kept::West, 4.0}), std::nullopt);
}

TEST(HalfPlane, TeethAndHolesOnTheLine) {
  struct Row {
    const char* name;
    LineList rings;
    double west;  // area west of x = 5
    std::size_t west_parts;
  };
  const Row rows[] = {
      {"hole over the line", {Box(0, 0, 10, 10), Box(4, 4, 6, 6, false)}, 50 - 2, 1},
      {"hole beside the line", {Box(0, 0, 10, 10), Box(3, 4, 5, 6, false)}, 50 - 4, 1},
      {"hole touching the line in a vertex", {Box(0, 0, 10, 10), {{3, 5}, {4, 3}, {5, 5}, {3, 5}}}, 50 - 2, 2},
      {"comb",
       {{{0, 0}, {0, 9}, {8, 9}, {8, 7}, {2, 7}, {2, 5}, {8, 5}, {8, 3}, {2, 3}, {2, 0}, {0, 0}}},
       18 + 6 + 6,
       1},
      {"comb from the east", {{{9, 0}, {2, 0}, {2, 2}, {7, 2}, {7, 4}, {2, 4}, {2, 6}, {9, 6}, {9, 0}}}, 6 + 6, 2},
      {"two teeth that meet on the line", {{{9, 0}, {0, 0}, {5, 3}, {0, 6}, {9, 6}, {9, 0}}}, 15, 2},
  };
  for (const Row& row : rows) {
    const auto cut = CutToHalfPlane(row.rings, {Kept::West, 5.0});
    ASSERT_TRUE(cut) << row.name;
    const auto polygon = PolygonOf(*cut);
    polygon->Simplify();
    EXPECT_NEAR(polygon->Area(), row.west, 1e-12) << row.name;
    EXPECT_EQ(polygon->Parts().size(), row.west_parts) << row.name;
  }
}

TEST(HalfPlane, RandomAreasAgreeWithAnOverlay) {
  std::mt19937 random(20);
  int cut = 0, on_grid = 0;
  for (int round = 0; round < 300; ++round) {
    // Every second polygon has its corners on the lines that cut it.
    const bool grid = round % 2 == 0;
    Vertices ring;
    const auto coordinate = [&] {
      const double value = std::uniform_real_distribution(-5.0, 5.0)(random);
      return grid ? std::round(value) : value;
    };
    for (int corner = 0; corner < 12; ++corner) ring.push_back({coordinate(), coordinate()});
    const auto polygon = PolygonOf({ring});
    polygon->Simplify();
    for (const Kept kept : {Kept::West, Kept::East, Kept::South, Kept::North}) {
      for (const double line : {-3.0, 0.0, 2.0}) {
        const auto rings = CutToHalfPlane(RingsOf(*polygon), {kept, line});
        if (!rings) continue;
        ++cut;
        on_grid += grid ? 1 : 0;
        const auto part = PolygonOf(*rings);
        const double area = part->Area();
        part->Simplify();
        const double expected = AreaByOverlay(*polygon, {kept, line});
        ASSERT_NEAR(area, expected, 1e-9) << round << " " << line;
        ASSERT_NEAR(part->Area(), expected, 1e-9) << round << " " << line;
      }
    }
  }
  EXPECT_EQ(cut, 300 * 12) << "no simple polygon is refused";
  EXPECT_EQ(on_grid, 150 * 12);
}

}  // namespace
}  // namespace tessarine::engine
