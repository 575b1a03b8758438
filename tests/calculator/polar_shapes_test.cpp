// SPDX-License-Identifier: GPL-2.0-or-later
// Polygons around and beside the pole of a map have the geodesic measures of the same polygons on the globe.
#include "calculator/projected_polygons.h"

namespace tessarine {
namespace {

using namespace testing;
namespace shapes = MyGeometricOperations;

// The seam of a cap ends near the pole, not at it: where a shift of datum moved the pole, or where it was cut at a
// parallel. On a map of the other hemisphere the cap lies outside of its ring.
TEST(PolarShapes, CapsWithASeamTowardThePole) {
  std::vector<XY> coast = Dense({{-180, -70}, {180, -70}}, 1);
  coast.back() = {180, -70};
  const auto cap = [&](const std::vector<XY>& seam) {
    std::vector<XY> ring = coast;
    ring.insert(ring.end(), seam.begin(), seam.end());
    ring.push_back(ring.front());
    return PolygonOf({ring});
  };
  struct Row {
    const char* name;
    std::shared_ptr<Polygon> cap;
    const char* projection;
  };
  const Row rows[] = {
      {"a pole that a datum moved", cap({{10, -89.99883}, {10, -89.99883}}), "ESRI:102014"},
      {"a seam to a parallel", cap({{180, -89.5}, {-180, -89.5}}), "ESRI:102014"},
      {"a seam to a parallel", cap({{180, -89.5}, {-180, -89.5}}), "EPSG:3408"},
      {"a seam of many vertices", cap({{180, -80}, {180, -89.5}, {-180, -89.5}, {-180, -80}}), "EPSG:3572"},
  };
  const double whole = MeasuresOf(InDegrees(*cap({{180, -90}, {-180, -90}}), "EPSG:3408")).spheroidal_area;
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.name) + " in " + row.projection);
    const auto map = InDegrees(*row.cap, row.projection);
    ProjectAsOthersDo(*map, row.projection);
    EXPECT_NEAR(MeasuresOf(map).spheroidal_area / whole, 1.0, 1e-3);
  }
}

// Circles about the pole on the map, by the area of a spherical cap or zone. Which way they run doesn't matter.
TEST(PolarShapes, RingsRoundThePoleOfTheMap) {
  const SpatialReferenceRef reference = Reference("EPSG:3031");
  const auto circle = [&](double latitude, bool clockwise) {
    std::vector<XY> ring;
    for (int step = 0; step <= 720; ++step) {
      const double longitude = (clockwise ? 0.5 : -0.5) * (step % 720);
      ring.push_back(shapes::FromDegrees({std::remainder(longitude, 360.0), latitude}, reference));
    }
    return ring;
  };
  const double radius = 6371007.0, to_radians = std::numbers::pi / 180.0;
  const auto cap = [&](double latitude) {
    return 2.0 * std::numbers::pi * radius * radius * (1.0 - std::sin(latitude * to_radians));
  };
  for (const bool clockwise : {true, false}) {
    const auto whole = PolygonOf({circle(-70, clockwise)});
    whole->SetSpatialReference(reference);
    EXPECT_NEAR(MeasuresOf(whole).spheroidal_area / cap(70), 1.0, 0.01) << clockwise;
    EXPECT_NEAR(MeasuresOf(whole).spherical_area / cap(70), 1.0, 1e-4) << clockwise;
    // The centre of so large a shape is a rough one.
    EXPECT_LT(Apart(MeasuresOf(whole).centroid, {0, -90}), 0.2) << clockwise;
    const auto zone = PolygonOf({circle(-70, clockwise), circle(-80, !clockwise)});
    zone->SetSpatialReference(reference);
    EXPECT_NEAR(MeasuresOf(zone).spherical_area / (cap(70) - cap(80)), 1.0, 1e-4) << clockwise;
    // What leads a ring over the pole, or joins two of them, is no border.
    const auto parallel = [&](double latitude) {
      constexpr double kSemiMajor = 6378137.0, kSquaredEccentricity = 0.00669437999014;
      const double sine = std::sin(latitude * to_radians);
      return 2.0 * std::numbers::pi * kSemiMajor * std::cos(latitude * to_radians) /
             std::sqrt(1.0 - kSquaredEccentricity * sine * sine);
    };
    EXPECT_NEAR(MeasuresOf(whole).perimeter / parallel(70), 1.0, 1e-5) << clockwise;
    EXPECT_NEAR(MeasuresOf(zone).perimeter / (parallel(70) + parallel(80)), 1.0, 1e-5) << clockwise;
  }
}

// Numbers by GeographicLib's Planimeter, from the vertices in degrees.
TEST(PolarShapes, SidesThroughThePole) {
  struct Row {
    const char* name;
    std::vector<XY> ring;
    double area, perimeter;
  };
  constexpr double kLong = 1e6, kShort = 100.0;
  const Row rows[] = {
      {"flat on a parallel", {{0, -kLong}, {-kLong, 0}, {kLong, 0}}, 1056755795026.5, 4946717.582214},
      {"a few places", {{-kShort, 0}, {0, kShort}, {kShort, 0}}, 10567.7, 496.359060},
      {"half a square", {{-kLong, -kLong}, {kLong, kLong}, {kLong, -kLong}}, 2113425347993.5, 6971999.797525},
      {"all round",
       {{-kLong, -kLong}, {-kLong, kLong}, {kLong, kLong}, {kLong, -kLong}},
       4226850695987.0,
       8153610.824211},
  };
  for (const char* projection : {"EPSG:3031", "EPSG:3995"}) {
    for (Row row : rows) {
      SCOPED_TRACE(std::string(row.name) + " in " + projection);
      row.ring.push_back(row.ring.front());
      const auto polygon = PolygonOf({row.ring});
      polygon->SetSpatialReference(Reference(projection));
      const MeasuredPolygon values = MeasuresOf(polygon);
      EXPECT_NEAR(values.spheroidal_area / row.area, 1.0, 5e-6);
      EXPECT_NEAR(values.perimeter / row.perimeter, 1.0, 1e-9);
      // The sphere of equal volume is 0.9 percent too small there.
      EXPECT_NEAR(values.spherical_area / row.area, 0.991, 1e-3);
    }
  }
}

// The way to the pole never lies in a hole, wherever that is.
TEST(PolarShapes, AHoleAllAroundThePole) {
  const auto circle = [](double radius, int corners, double from, double to) {
    std::vector<XY> places;
    for (int corner = 0; corner < corners; ++corner) {
      const double angle = (from + (to - from) * corner / corners) * std::numbers::pi / 180.0;
      places.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return places;
  };
  const auto area = [&](const std::vector<std::vector<XY>>& rings) {
    const auto polygon = PolygonOf(rings);
    polygon->SetSpatialReference(Reference("EPSG:3031"));
    for (const auto& part : polygon->Parts()) {
      if (Cast<Ring>(part)->IsExterior() != (part == polygon->Parts().front())) part->ReverseOrientation();
    }
    return MeasuresOf(polygon);
  };
  std::vector<XY> shell = circle(1e6, 24, 0.01, 360.01);
  shell.push_back(shell.front());
  const MeasuredPolygon whole = area({shell});
  for (int azimuth = 0; azimuth < 360; azimuth += 15) {
    std::vector<XY> hole = circle(3e5, 4, azimuth, azimuth + 40.0);
    for (const XY far : circle(6e5, 4, azimuth + 40.0, azimuth)) hole.push_back(far);
    hole.push_back(hole.front());
    const MeasuredPolygon alone = area({hole}), holed = area({shell, hole});
    EXPECT_NEAR(holed.spheroidal_area / (whole.spheroidal_area - alone.spheroidal_area), 1.0, 1e-12) << azimuth;
    EXPECT_NEAR(holed.perimeter / (whole.perimeter + alone.perimeter), 1.0, 1e-12) << azimuth;
  }
}

// The two lobes of a bow beside the pole, and not all of the globe.
TEST(PolarShapes, ABowBesideThePole) {
  const auto bow =
      PolygonOf({{{-100000, -100000}, {1000000, 900000}, {1000000, -900000}, {-100000, 100000}, {-100000, -100000}}});
  bow->SetSpatialReference(Reference("EPSG:3995"));
  EXPECT_NEAR(MeasuresOf(bow).spheroidal_area / (1e12 * 0.9 + 1e10), 1.05, 0.01);
}

}  // namespace
}  // namespace tessarine
