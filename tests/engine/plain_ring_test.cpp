// SPDX-License-Identifier: GPL-2.0-or-later
// The quick look at rings must agree with GEOS's own test of validity.
#include "engine/plain_ring.h"

#include <geos_c.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace tessarine {
namespace {

bool IsValidForGeos(GEOSContextHandle_t geos, const std::vector<XY>& ring) {
  GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(geos, static_cast<unsigned>(ring.size()), 2);
  for (unsigned at = 0; at < ring.size(); ++at) GEOSCoordSeq_setXY_r(geos, sequence, at, ring[at].x, ring[at].y);
  GEOSGeometry* polygon = GEOSGeom_createPolygon_r(geos, GEOSGeom_createLinearRing_r(geos, sequence), nullptr, 0);
  const bool valid = GEOSisValid_r(geos, polygon) == 1;
  GEOSGeom_destroy_r(geos, polygon);
  return valid;
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
    (answer ? plain : other) += 1;
  }
  GEOS_finish_r(geos);
  EXPECT_GT(plain, 5000);
  EXPECT_GT(other, 5000);
  EXPECT_FALSE(engine::IsPlainRing({}));
}

}  // namespace
}  // namespace tessarine
