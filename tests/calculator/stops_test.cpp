// SPDX-License-Identifier: GPL-2.0-or-later
// A stop is seen in the midst of one shape.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "calculator/measures.h"
#include "engine/noding.h"
#include "engine/planar_areas.h"
#include "helpers/shapes.h"
#include "helpers/test_host.h"
#include "platform/run_stop.h"

namespace tessarine {
namespace {

using namespace testing;
using enum SpatialKind;

std::vector<XY> Circle(int vertices, double radius) {
  std::vector<XY> ring;
  for (int index = 0; index < vertices; ++index) {
    const double angle = -2.0 * std::numbers::pi * index / vertices;
    ring.push_back({radius * std::cos(angle), radius * std::sin(angle)});
  }
  ring.push_back(ring.front());
  return ring;
}

// Whether the host's wish to stop ends the measure.
bool Stops(const IGeometry& shape, SpatialKind kind, std::int32_t id) {
  const auto reference = SpatialReferenceEnvironment::CreateFromText(kind == Projected ? "EPSG:3857" : "EPSG:4326");
  const GeometryRef copy = CloneOf(shape);
  copy->SetSpatialReference(reference);
  MeasureSettings settings{copy->GeometryType(), kind, reference, 6378137.0, 6356752.31424518, false};
  try {
    const auto record = BeginRecord(copy, settings);
    static_cast<void>(Measure(*FindMeasure(settings.shape, kind, id), *record));
  } catch (const RunStopped&) {
    return true;
  }
  return false;
}

TEST(Stops, EndMeasuresOfOneLargeShape) {
  TestHost host;
  host.stop_requested = true;
  const struct {
    SpatialKind kind;
    double radius;
    std::vector<std::int32_t> polygon, line;
  } rows[] = {{Geographic, 10.0, {1, 2, 3, 6}, {1, 3}}, {Projected, 1e6, {2, 4, 6, 9}, {2}}};
  for (const auto& row : rows) {
    const std::vector<XY> small = Circle(100, row.radius), large = Circle(200'000, row.radius);
    for (const std::int32_t id : row.polygon) {
      EXPECT_TRUE(Stops(*PolygonOf({large}), row.kind, id)) << id;
      EXPECT_FALSE(Stops(*PolygonOf({small}), row.kind, id)) << id;
    }
    for (const std::int32_t id : row.line) {
      EXPECT_TRUE(Stops(*PolylineOf({large}), row.kind, id)) << id;
      EXPECT_FALSE(Stops(*PolylineOf({small}), row.kind, id)) << id;
    }
  }
}

TEST(Stops, EndTheTopologyOfOneLargeShape) {
  TestHost host;
  const engine::LineList large{Circle(200'000, 10)};
  host.stop_requested = true;
  EXPECT_THROW(static_cast<void>(engine::Noded(large)), RunStopped);
  EXPECT_THROW(static_cast<void>(engine::FacesBetween(large)), RunStopped);
  host.stop_requested = false;
  EXPECT_EQ(engine::FacesBetween(engine::Noded(large)).size(), 1U);
}

}  // namespace
}  // namespace tessarine
