// SPDX-License-Identifier: GPL-2.0-or-later
// Lines so near to each other that rounding makes new crossings, and the road that they take over a grid.
#include "engine/noding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "engine/distinct_pieces.h"
#include "engine/geos_bridge.h"
#include "engine/near_lines.h"
#include "engine/planar_areas.h"
#include "engine/snap_rounding.h"
#include "helpers/shapes.h"

namespace tessarine::engine {
namespace {

using testing::Box;

using testing::kWidth;
using testing::NearLines;

double AreaOf(const AreaList& areas) {
  double sum = 0.0;
  for (const AreaRings& rings : areas) {
    for (const std::vector<XY>& ring : rings) sum -= ChordArea(ring);
  }
  return sum;
}

bool AllValid(const AreaList& areas) {
  return std::ranges::all_of(areas, [](const AreaRings& rings) {
    Polygon polygon;
    polygon.SetParts(PartsOf({rings}));
    polygon.MarkSimple();
    return GEOSisValid_r(Geos(), ToGeos(polygon).get()) == 1;
  });
}

double DistanceTo(XY from, XY to, XY place) {
  const double dx = to.x - from.x, dy = to.y - from.y;
  const double along = std::clamp(((place.x - from.x) * dx + (place.y - from.y) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
  return std::hypot(from.x + along * dx - place.x, from.y + along * dy - place.y);
}

TEST(Noded, LinesNanometresApartFillTheirSquareWithValidFaces) {
  int over_grid = 0;
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const LineList lines = NearLines(seed, 16);
    over_grid += WithCrossings(lines) ? 0 : 1;
    const LineList noded = Noded(lines);
    EXPECT_TRUE(WithCrossings(noded) == noded) << seed << ": nothing meets but at vertices";
    const AreaList faces = FacesBetween(noded);
    // The faces that touch the square's border make it up; none overlaps another.
    EXPECT_NEAR(AreaOf(faces), kWidth * kWidth, 1e-5) << seed;
    EXPECT_TRUE(AllValid(faces)) << seed;
  }
  EXPECT_GE(over_grid, 10);  // the generator is of use only while it finds lines of this kind
}

TEST(SnapRounded, MovesNothingByMoreThanTheGrid) {
  const LineList lines = NearLines(5, 30);
  ASSERT_FALSE(WithCrossings(lines));
  const double grid = FinestGrid(lines);
  EXPECT_EQ(grid, std::ldexp(1.0, 22 - 52 + 3));  // 2^22 is the power of two below 5,400,000
  const std::optional<LineList> snapped = SnapRounded(lines, grid);
  ASSERT_TRUE(snapped);
  ASSERT_EQ(snapped->size(), lines.size());
  std::size_t added = 0;
  for (std::size_t number = 0; number < lines.size(); ++number) {
    const std::vector<XY>& line = (*snapped)[number];
    EXPECT_LE(std::hypot(line.front().x - lines[number].front().x, line.front().y - lines[number].front().y), grid);
    EXPECT_LE(std::hypot(line.back().x - lines[number].back().x, line.back().y - lines[number].back().y), grid);
    added += line.size() - lines[number].size();
    for (const XY vertex : line) {
      EXPECT_EQ(std::fmod(vertex.x, grid), 0.0);
      EXPECT_EQ(std::fmod(vertex.y, grid), 0.0);
      double nearest = kWidth;
      for (std::size_t at = 1; at < lines[number].size(); ++at) {
        nearest = std::min(nearest, DistanceTo(lines[number][at - 1], lines[number][at], vertex));
      }
      EXPECT_LE(nearest, grid) << "line " << number;
    }
  }
  EXPECT_GT(added, 100U);
}

TEST(SnapRounded, LeadsALineThroughTheSquaresThatItMeets) {
  // On whole numbers. The first line passes through the square around (2, 1) and above that around (5, 1).
  const LineList lines = {{{0, 0}, {8, 3}}, {{2, 1}, {2, 9}}, {{5, 1}, {5, -9}}, {{0.2, 0.3}, {0.4, -0.4}}};
  const LineList expected = {{{0, 0}, {2, 1}, {8, 3}}, {{2, 1}, {2, 9}}, {{5, 1}, {5, -9}}, {{0, 0}}};
  EXPECT_EQ(SnapRounded(lines, 1.0), expected);
}

// Both roads must find the same areas, the grid's width apart.
TEST(SnapRounded, GivesTheAreasOfTheExactRoad) {
  std::mt19937_64 random(99);
  std::uniform_real_distribution<double> place(0, 100);
  for (int round = 0; round < 40; ++round) {
    LineList rings(1 + random() % 5);
    double length = 0.0;
    for (std::vector<XY>& ring : rings) {
      for (int vertex = 0; vertex < 12; ++vertex) ring.push_back({place(random), place(random)});
      ring.push_back(ring.front());
      for (std::size_t at = 1; at < ring.size(); ++at)
        length += std::hypot(ring[at].x - ring[at - 1].x, ring[at].y - ring[at - 1].y);
    }
    const std::optional<LineList> exact = WithCrossings(rings);
    ASSERT_TRUE(exact);
    const double grid = std::ldexp(1.0, -30);
    const std::optional<LineList> snapped = SnapRounded(rings, grid);
    ASSERT_TRUE(snapped) << round;
    EXPECT_EQ(FacesBetween(*snapped).size(), FacesBetween(*exact).size()) << round;
    EXPECT_NEAR(AreaOf(FacesBetween(*snapped)), AreaOf(FacesBetween(*exact)), length * grid) << round;
    EXPECT_NEAR(AreaOf(EvenOddAreas(*snapped)), AreaOf(EvenOddAreas(*exact)), length * grid) << round;
  }
}

// Thirty wedges with a common tip, each a little over its neighbour: where they overlap, nothing is covered less than
// once, on either road.
TEST(SnapRounded, CoversWhatTheExactRoadCovers) {
  LineList wedges;
  for (int number = 0; number < 30; ++number) {
    const double from = number * 0.2, to = (number + 1) * 0.2 + 1e-9;
    wedges.push_back({{7, 5}, {7 + std::cos(to), 5 + std::sin(to)}, {7 + std::cos(from), 5 + std::sin(from)}, {7, 5}});
  }
  const std::optional<LineList> exact = WithCrossings(wedges);
  ASSERT_TRUE(exact);
  for (const int exponent : {-48, -40, -30, -20}) {
    const double grid = std::ldexp(1.0, exponent);
    const std::optional<LineList> snapped = SnapRounded(wedges, grid);
    ASSERT_TRUE(snapped) << exponent;
    EXPECT_NEAR(AreaOf(CoveredAreas(*snapped)), AreaOf(CoveredAreas(*exact)), 90 * grid) << exponent;
  }
}

// 22 lines through nearly one place, and a square of area 1 around it.
TEST(Noded, AFanLosesNoSliver) {
  LineList lines;
  for (int number = 0; number < 22; ++number) {
    const double angle = 0.1 + number * 0.137, dx = 9.0 * std::cos(angle), dy = 9.0 * std::sin(angle);
    lines.push_back({{3.7 - dx, 2.9 - dy}, {3.7 + dx, 2.9 + dy}});
  }
  lines.push_back(Box(3.2, 2.4, 4.2, 3.4));
  const AreaList faces = FacesBetween(Noded(lines));
  EXPECT_GE(faces.size(), 44U);
  EXPECT_TRUE(AllValid(faces));
  EXPECT_NEAR(AreaOf(faces), 1.0, 1e-13);
}

void AppendSpokes(XY hub, double reach, int count, LineList& lines) {
  for (int number = 0; number < count; ++number) {
    const double angle = 2.0 * std::numbers::pi * (number + 0.3) / count;
    const XY tip{hub.x + reach * std::cos(angle), hub.y + reach * std::sin(angle)};
    if (number % 2 == 0) {
      lines.push_back({hub, tip});
    } else {
      lines.push_back({tip, hub});
    }
  }
}

// The same by GEOS: the number of faces, and their area.
std::pair<int, double> FacesOfGeos(const LineList& lines) {
  std::vector<GeosGeometry> members;
  for (const std::vector<XY>& line : lines) members.push_back(LineToGeos(line));
  const GeosGeometry noded =
      Checked(GEOSUnaryUnion_r(Geos(), CollectionToGeos(GEOS_MULTILINESTRING, std::move(members)).get()));
  const GEOSGeometry* const input = noded.get();
  const GeosGeometry faces = Checked(GEOSPolygonize_r(Geos(), &input, 1));
  double area = 0.0;
  GEOSArea_r(Geos(), faces.get(), &area);
  return {GEOSGetNumGeometries_r(Geos(), faces.get()), area};
}

// So many spokes that they aren't compared with each other.
TEST(Noded, StarsHaveTheFacesThatGeosFinds) {
  LineList spokes;
  AppendSpokes({0, 0}, 100.0, 700, spokes);
  LineList ring = spokes;
  ring.push_back({});
  for (int number = 0; number <= 40; ++number) {
    const double angle = 2.0 * std::numbers::pi * (number % 40) / 40.0;
    ring.back().push_back({60.0 * std::cos(angle), 60.0 * std::sin(angle)});
  }
  LineList two_stars = ring;
  AppendSpokes({90, 20}, 30.0, 70, two_stars);
  LineList zigzag = two_stars;  // from the hub to a circle and back
  zigzag.push_back({});
  for (int number = 0; number < 200; ++number) {
    zigzag.back().push_back({0, 0});
    zigzag.back().push_back({80.0 * std::cos(number * 0.0313), 80.0 * std::sin(number * 0.0313)});
  }
  const struct {
    const char* name;
    const LineList& lines;
  } rows[] = {{"star", spokes}, {"star and ring", ring}, {"two stars and a ring", two_stars}, {"zigzag", zigzag}};
  for (const auto& row : rows) {
    const LineList noded = Noded(row.lines);
    const AreaList faces = FacesBetween(noded);
    const auto [count, area] = FacesOfGeos(row.lines);
    EXPECT_EQ(std::ssize(faces), count) << row.name;
    EXPECT_NEAR(AreaOf(faces), area, 1e-9) << row.name;
  }
}

// Spokes on each other are cut where the shorter ones end.
TEST(Noded, SpokesThatLieOnEachOtherShareTheirPieces) {
  LineList lines;
  AppendSpokes({0, 0}, 64.0, 700, lines);
  for (const double reach : {16.0, 48.0, 32.0, 48.0}) lines.push_back({{0, 0}, {0, reach}});
  lines.push_back({{0, 64}, {0, 0}});
  double length = 0.0;
  for (const std::vector<XY>& piece : DistinctPieces(Noded(lines))) {
    for (std::size_t at = 1; at < piece.size(); ++at) {
      length += std::hypot(piece[at].x - piece[at - 1].x, piece[at].y - piece[at - 1].y);
    }
  }
  EXPECT_NEAR(length, 701 * 64.0, 1e-9);
}

}  // namespace
}  // namespace tessarine::engine
