// SPDX-License-Identifier: GPL-2.0-or-later
// The quick look at rings must agree with GEOS's own test of validity.
#include "engine/plain_ring.h"

#include <geos_c.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include "engine/ring_sweep.h"

namespace tessarine {
namespace {

GEOSGeometry* RingInGeos(GEOSContextHandle_t geos, const std::vector<XY>& ring) {
  GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(geos, static_cast<unsigned>(ring.size()), 2);
  for (unsigned at = 0; at < ring.size(); ++at) GEOSCoordSeq_setXY_r(geos, sequence, at, ring[at].x, ring[at].y);
  return GEOSGeom_createLinearRing_r(geos, sequence);
}

bool IsValidForGeos(GEOSContextHandle_t geos, const std::vector<XY>& ring) {
  GEOSGeometry* polygon = GEOSGeom_createPolygon_r(geos, RingInGeos(geos, ring), nullptr, 0);
  const bool valid = GEOSisValid_r(geos, polygon) == 1;
  GEOSGeom_destroy_r(geos, polygon);
  return valid;
}

enum class Relation { Apart, Nested, Meeting };

// Of rings without holes, by their lines and by their areas.
Relation RelationInGeos(GEOSContextHandle_t geos, const std::vector<std::vector<XY>>& rings) {
  Relation relation = Relation::Apart;
  for (std::size_t first = 0; first < rings.size(); ++first) {
    for (std::size_t second = first + 1; second < rings.size(); ++second) {
      GEOSGeometry* const lines[] = {RingInGeos(geos, rings[first]), RingInGeos(geos, rings[second])};
      if (GEOSIntersects_r(geos, lines[0], lines[1]) == 1) relation = Relation::Meeting;
      GEOSGeometry* const areas[] = {GEOSGeom_createPolygon_r(geos, lines[0], nullptr, 0),
                                     GEOSGeom_createPolygon_r(geos, lines[1], nullptr, 0)};
      if (relation == Relation::Apart && GEOSIntersects_r(geos, areas[0], areas[1]) == 1) relation = Relation::Nested;
      for (GEOSGeometry* area : areas) GEOSGeom_destroy_r(geos, area);
    }
  }
  return relation;
}

TEST(PlainRing, AgreesWithGeosOnRingsOfASmallGrid) {
  // A grid of few places makes touches, folds and overlaps as common as plain crossings.
  GEOSContextHandle_t geos = GEOS_init_r();
  std::mt19937 random(20260314);
  int plain = 0, other = 0;
  for (int round = 0; round < 40000; ++round) {
    std::vector<XY> ring;
    const std::size_t sides = 3 + random() % 5;
    for (std::size_t side = 0; side < sides; ++side) {
      ring.push_back({static_cast<double>(random() % 6), static_cast<double>(random() % 6)});
    }
    ring.erase(std::unique(ring.begin(), ring.end()), ring.end());
    ring.push_back(ring.front());
    if (ring.size() < 4 || ring[ring.size() - 2] == ring.front()) continue;
    const bool answer = engine::IsPlainRing(ring);
    ASSERT_EQ(answer, IsValidForGeos(geos, ring)) << "round " << round;
    ASSERT_EQ(engine::MeetsItself(ring), !answer) << "round " << round;
    (answer ? plain : other) += 1;
  }
  GEOS_finish_r(geos);
  EXPECT_GT(plain, 5000);
  EXPECT_GT(other, 5000);
  EXPECT_FALSE(engine::IsPlainRing({}));
}

// Two triangles and a square on a grid, so that many touch, cross or lie in each other.
TEST(PlainRing, SeveralArePlainWhereTheirLinesDontMeetInGeos) {
  GEOSContextHandle_t geos = GEOS_init_r();
  std::mt19937 random(20261123);
  int plain = 0, nested = 0, meeting = 0;
  const auto number = [&](int most) { return static_cast<double>(random() % static_cast<unsigned>(most)); };
  for (int round = 0; round < 20000; ++round) {
    std::vector<std::vector<XY>> rings;
    for (int count = 0; count < 2; ++count) {
      const XY start{number(8), number(8)};
      rings.push_back({start, {number(8), number(8)}, {number(8), number(8)}, start});
    }
    const double x = number(6), y = number(6), size = 1 + number(8);
    rings.push_back({{x, y}, {x, y + size}, {x + size, y + size}, {x + size, y}, {x, y}});
    const std::vector<std::span<const XY>> spans(rings.begin(), rings.end());
    if (std::ranges::any_of(rings, [](const auto& ring) { return !engine::IsPlainRing(ring); })) {
      ASSERT_FALSE(engine::ArePlainRings(spans)) << round;
      continue;
    }
    const Relation relation = RelationInGeos(geos, rings);
    ASSERT_EQ(engine::ArePlainRings(spans), relation != Relation::Meeting) << round;
    (relation == Relation::Meeting ? meeting : relation == Relation::Nested ? nested : plain) += 1;
  }
  GEOS_finish_r(geos);
  EXPECT_GT(plain, 300);
  EXPECT_GT(nested, 20);
  EXPECT_GT(meeting, 5000);
  EXPECT_TRUE(engine::ArePlainRings({}));
  const std::vector<XY> far{{0, 0}, {std::numeric_limits<double>::infinity(), 1}, {1, 1}, {0, 0}};
  EXPECT_FALSE(engine::ArePlainRings(std::vector<std::span<const XY>>{far}));
}

// Places about (50, 20), `step` turns of `count` apart, at distances between `least` and 1.
std::vector<XY> Star(int count, int step, double least, std::mt19937& random) {
  std::uniform_real_distribution<double> distance(least, 1.0);
  std::vector<XY> ring;
  for (int at = 0; at < count; ++at) {
    const double angle = 2.0 * std::numbers::pi * at * step / count, reach = distance(random);
    ring.push_back({50.0 + reach * std::cos(angle), 20.0 + reach * std::sin(angle)});
  }
  ring.push_back(ring.front());
  return ring;
}

TEST(PlainRing, AgreesWithGeosOnRingsAroundAPlace) {
  GEOSContextHandle_t geos = GEOS_init_r();
  std::mt19937 random(20260722);
  const struct {
    const char* name;
    int count, step;
    double least;
    bool plain;
  } rows[] = {{"round", 40, 1, 1.0, true},        {"round, the other way", 40, -1, 1.0, true},
              {"a star", 40, 1, 0.3, true},       {"a star of long rays", 40, -1, 0.01, true},
              {"twice round", 5, 2, 1.0, false},  {"twice round, the other way", 5, -2, 1.0, false},
              {"thrice round", 41, 3, 0.5, false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    for (int round = 0; round < 50; ++round) {
      std::vector<XY> ring = Star(row.count, row.step, row.least, random);
      EXPECT_EQ(engine::IsPlainRing(ring), row.plain);
      // One vertex elsewhere.
      ring[2] = {50.0 + std::uniform_real_distribution<double>(-1.0, 1.0)(random), 20.0};
      EXPECT_EQ(engine::IsPlainRing(ring), IsValidForGeos(geos, ring)) << round;
    }
  }
  GEOS_finish_r(geos);
}

// A spine at the left with teeth that reach far over each other, turned by an angle.
std::vector<XY> Comb(int teeth, double angle) {
  std::vector<XY> ring{{0, -1}, {-1, -1}, {-1, 2.0 * teeth}, {0, 2.0 * teeth}};
  for (int tooth = teeth - 1; tooth >= 0; --tooth) {
    const double y = 2.0 * tooth;
    ring.insert(ring.end(), {{0, y + 1.5}, {5000, y + 1.0}, {5000, y + 0.5}, {0, y}});
  }
  ring.push_back(ring.front());
  for (XY& vertex : ring) {
    vertex = {vertex.x * std::cos(angle) - vertex.y * std::sin(angle),
              vertex.x * std::sin(angle) + vertex.y * std::cos(angle)};
  }
  return ring;
}

TEST(PlainRing, TellsCombsWhoseTeethLieAboveEachOther) {
  constexpr int kTeeth = 1000;
  for (const double angle : {0.0, 0.7, 1.5707963267948966, 3.9}) {
    const std::vector<XY> comb = Comb(kTeeth, angle);
    EXPECT_TRUE(engine::IsPlainRing(comb)) << angle;
    for (const std::size_t spoilt : {std::size_t{5}, std::size_t{2001}, comb.size() - 4}) {
      const XY near = comb[(spoilt + 402) % comb.size()], far = comb[(spoilt + 405) % comb.size()];
      const struct {
        const char* name;
        XY place;
      } rows[] = {{"in the midst of another tooth", {(near.x + far.x) / 2.0, (near.y + far.y) / 2.0}},
                  {"on a vertex far away", comb[(spoilt + 2000) % comb.size()]},
                  {"back on the vertex before the last", comb[spoilt - 2]}};
      for (const auto& row : rows) {
        std::vector<XY> ring = comb;
        ring[spoilt] = row.place;
        EXPECT_FALSE(engine::IsPlainRing(ring)) << row.name << " at " << spoilt << ", turned by " << angle;
      }
    }
  }
}

}  // namespace
}  // namespace tessarine
