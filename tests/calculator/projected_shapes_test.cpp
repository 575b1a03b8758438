// SPDX-License-Identifier: GPL-2.0-or-later
// A polygon in a projection has the geodesic measures of the same polygon in longitude and latitude.
#include <gtest/gtest.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <numbers>

#include "calculator/geometry_options.h"
#include "calculator/measures.h"
#include "engine/data_source.h"
#include "helpers/shapes.h"
#include "shapes/MyGeometricOperations.h"

namespace tessarine {
namespace {

using namespace testing;
using enum SpatialKind;
namespace shapes = MyGeometricOperations;

SpatialReferenceRef Reference(const std::string& text) { return SpatialReferenceEnvironment::CreateFromText(text); }

// The bundled countries by name.
const std::map<std::string, std::shared_ptr<Polygon>>& Countries() {
  static const auto countries = [] {
    std::map<std::string, std::shared_ptr<Polygon>> result;
    const auto source = DataSource::Open(TESSARINE_TEST_DATA "/countries.shp", false);
    const auto features = source->OpenFeatureClass("");
    const std::int32_t name = features->FindField("NAME");
    const auto cursor = features->Search(nullptr, false);
    while (const auto feature = cursor->NextFeature()) {
      result[feature->Value(name).AsText()] = Cast<Polygon>(feature->ShapeCopy());
    }
    return result;
  }();
  return countries;
}

constexpr XY kNoCentroid{-9999.0, -9999.0};

struct Values {
  double spherical_area, perimeter, spheroidal_area;
  XY centroid;
};

double ValueOf(MeasureRecord& record, std::int32_t id) {
  const MeasureSettings& settings = record.Settings();
  return Measure(*FindMeasure(settings.shape, settings.kind, id), record).first.AsDouble();
}

XY PositionOf(MeasureRecord& record, std::int32_t id) {
  const MeasureSettings& settings = record.Settings();
  const MeasuredValues values = Measure(*FindMeasure(settings.shape, settings.kind, id), record);
  return {values.first.AsDouble(), values.second.AsDouble()};
}

MeasureSettings SettingsOf(const SpatialReferenceRef& reference, esriGeometryType shape = esriGeometryPolygon) {
  const auto spheroid = shapes::DegreesOf(reference)->Datum()->Spheroid();
  return {shape, SpatialKindOf(reference), reference, spheroid->SemiMajorAxis(), spheroid->SemiMinorAxis(), false};
}

Values MeasuresOf(const std::shared_ptr<Polygon>& polygon) {
  MeasureSettings settings = SettingsOf(polygon->SpatialReference());
  const auto record = BeginRecord(CloneOf(*polygon), settings);
  const bool geographic = settings.kind == Geographic;
  const XY centroid = PositionOf(*record, geographic ? 2 : 4);
  return {ValueOf(*record, geographic ? 1 : 2), ValueOf(*record, geographic ? 3 : 6),
          ValueOf(*record, geographic ? 6 : 9),
          centroid == kNoCentroid ? centroid : shapes::ToDegrees(centroid, settings.reference)};
}

double Apart(XY a, XY b) {
  const double across = std::remainder(a.x - b.x, 360.0) * std::cos(b.y * std::numbers::pi / 180.0);
  return std::hypot(across, a.y - b.y);
}

void ExpectSame(const Values& projected, const Values& geographic) {
  EXPECT_NEAR(projected.spherical_area / geographic.spherical_area, 1.0, 1e-6);
  EXPECT_NEAR(projected.perimeter / geographic.perimeter, 1.0, 1e-6);
  EXPECT_NEAR(projected.spheroidal_area / geographic.spheroidal_area, 1.0, 1e-6);
  EXPECT_LT(Apart(projected.centroid, geographic.centroid), 1e-6);
}

// The shape in the geographic reference beneath a projection, so that no shift of datum comes in.
std::shared_ptr<Polygon> InDegrees(const Polygon& shape, const std::string& projection) {
  auto geographic = CloneOf(shape);
  geographic->SetSpatialReference(shapes::DegreesOf(Reference(projection)));
  return geographic;
}

// Brings a polygon in degrees to a projection as other programs do: vertices that it has no place for, as the poles of
// many, come out somewhere far away.
void ProjectAsOthersDo(Polygon& polygon, const std::string& projection) {
  OGRSpatialReference projected;
  ASSERT_EQ(projected.SetFromUserInput(projection.c_str()), OGRERR_NONE);
  projected.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const std::unique_ptr<OGRSpatialReference> degrees(projected.CloneGeogCS());
  degrees->SetAngularUnits(SRS_UA_DEGREE, std::numbers::pi / 180.0);
  degrees->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const std::unique_ptr<OGRCoordinateTransformation> way(OGRCreateCoordinateTransformation(degrees.get(), &projected));
  for (const auto& part : polygon.Parts()) {
    std::vector<XY> vertices(part->Vertices().begin(), part->Vertices().end());
    for (XY& vertex : vertices) {
      XY there = vertex;
      if (!way->Transform(1, &there.x, &there.y)) {
        there = {vertex.x, vertex.y * (1.0 - 1e-9)};  // not even an infinity: the next best
        ASSERT_TRUE(way->Transform(1, &there.x, &there.y));
      }
      vertex = there;
    }
    part->SetVertices(std::move(vertices));
  }
  polygon.SetSpatialReference(Reference(projection));
}

void ExpectSameInBoth(const Polygon& shape, const std::string& projection) {
  const auto geographic = InDegrees(shape, projection);
  const auto projected = CloneOf(*geographic);
  ProjectAsOthersDo(*projected, projection);
  ExpectSame(MeasuresOf(projected), MeasuresOf(geographic));
}

// Far from the centre of the map too, and with spikes that run back over themselves within a rounding, as that of
// Sudan. Lambert's cones and the equal-area map of the other hemisphere have a pole at or near infinity.
TEST(ProjectedShapes, AllCountriesOfTheWorld) {
  for (const char* projection : {"EPSG:3832", "EPSG:27572", "EPSG:6933", "EPSG:3408"}) {
    for (const auto& [name, shape] : Countries()) {
      SCOPED_TRACE(name + " in " + projection);
      ExpectSameInBoth(*shape, projection);
    }
  }
}

TEST(ProjectedShapes, CountriesMeasureAsInLongitudeAndLatitude) {
  const std::vector<std::string> world = {"Russia", "Fiji", "Kenya", "South Africa", "New Zealand", "Norway", "Brazil"};
  struct Row {
    const char* projection;
    std::vector<std::string> countries;
  };
  std::vector<Row> rows = {
      {"EPSG:3031", {"Antarctica", "Chile", "New Zealand"}},
      {"EPSG:3995", {"Greenland", "Russia", "Canada", "Norway", "Antarctica", "Fiji"}},
      {"EPSG:3338", {"Canada", "United States of America", "Russia"}},
      {"EPSG:27572", {"Belgium", "Switzerland", "Russia", "Fiji"}},
      {"ESRI:54016", {"Antarctica"}},
      {"EPSG:4901", {"France", "Russia", "Antarctica"}},
      {"EPSG:3413", {"Greenland", "Russia", "Canada"}},
      {"EPSG:3572", {"Russia", "Canada"}},
      {"EPSG:32661", {"Greenland", "Russia"}},
      {"EPSG:32761", {"Antarctica"}},
      {"EPSG:3035", {"Norway", "Poland", "Italy"}},
      {"EPSG:3577", {"Australia"}},
      {"EPSG:2193", {"New Zealand"}},
      {"EPSG:32701", {"Fiji"}},
      {"EPSG:2154", {"Belgium", "Switzerland"}},
      {"EPSG:3979", {"Canada"}},
      {"ESRI:102003", {"United States of America", "Mexico"}},
      {"EPSG:5514", {"Czechia", "Slovakia"}},
      {"EPSG:2048", {"South Africa"}},
  };
  for (const char* projection : {"EPSG:3832", "EPSG:3857", "EPSG:3395", "EPSG:6933", "EPSG:8857", "ESRI:54030",
                                 "ESRI:54009", "ESRI:54012", "ESRI:54032", "EPSG:3410"}) {
    rows.push_back({projection, world});
  }
  for (const Row& row : rows) {
    for (const std::string& name : row.countries) {
      SCOPED_TRACE(name + " in " + row.projection);
      ASSERT_TRUE(Countries().contains(name));
      ExpectSameInBoth(*Countries().at(name), row.projection);
    }
  }
}

// Shapes that a projection tears, with their vertices so close that the map's edges and the globe's agree.
std::vector<XY> Dense(const std::vector<XY>& corners, double step) {
  std::vector<XY> ring;
  for (std::size_t index = 0; index + 1 < corners.size(); ++index) {
    const XY from = corners[index], to = corners[index + 1];
    const int pieces = std::max(1, static_cast<int>(std::hypot(to.x - from.x, to.y - from.y) / step));
    for (int piece = 0; piece < pieces; ++piece) {
      ring.push_back({from.x + (to.x - from.x) * piece / pieces, from.y + (to.y - from.y) * piece / pieces});
    }
  }
  ring.push_back(ring.front());
  return ring;
}

TEST(ProjectedShapes, ShapesOverTheEdge) {
  struct Row {
    const char* name;
    std::shared_ptr<Polygon> shape;
    const char* projection;
  };
  const Row rows[] = {
      {"a box in Alaska over 180", PolygonOf({Dense(Box(170, 55, 200, 65), 1)}), "EPSG:3338"},
      {"a box over the edge of a world map", PolygonOf({Dense(Box(-40, -5, -20, 5), 1)}), "EPSG:3832"},
      {"its hole over the edge too", PolygonOf({Dense(Box(-40, -5, -20, 5), 1), Dense(Box(-33, -2, -27, 2, false), 1)}),
       "EPSG:3832"},
      {"its hole beyond the edge", PolygonOf({Dense(Box(-40, -5, -20, 5), 1), Dense(Box(-28, -2, -22, 2, false), 1)}),
       "EPSG:3832"},
      {"a cap", PolygonOf({Dense(Box(-180, -90, 180, -70), 1)}), "EPSG:3031"},
      {"a cap with a hole", PolygonOf({Dense(Box(-180, -90, 180, -60), 1), Dense(Box(20, -75, 60, -70, false), 1)}),
       "EPSG:3031"},
      {"a sector from the pole", PolygonOf({Dense({{60, 80}, {60, 90}, {120, 90}, {120, 80}, {60, 80}}, 1)}),
       "EPSG:3995"},
      {"the globe to 80 degrees", PolygonOf({Dense(Box(-180, -60, 180, 80), 2)}), "EPSG:3857"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ExpectSameInBoth(*row.shape, row.projection);
  }
}

// Rings in longitudes and latitudes that jump from one edge of the world to the other, projected as they are: the short
// way is meant in both references.
TEST(ProjectedShapes, RingsTornAtTheEdgeOfTheWorld) {
  const auto torn = [](std::vector<XY> ring) {
    for (XY& vertex : ring) vertex.x = vertex.x > 180.0 ? vertex.x - 360.0 : vertex.x;
    return ring;
  };
  struct Row {
    const char* name;
    std::vector<XY> ring, whole;
  };
  const std::vector<XY> box = Box(170, -5, 190, 5);
  const Row rows[] = {
      {"corners", torn(box), box},
      {"many vertices", torn(Dense(box, 1)), Dense(box, 1)},
      {"one vertex over the edge",
       torn({{175, 0}, {175, 5}, {181, 2}, {175, 0}}),
       {{175, 0}, {175, 5}, {181, 2}, {175, 0}}},
  };
  for (const char* projection : {"EPSG:3857", "ESRI:54030", "EPSG:6933"}) {
    for (const Row& row : rows) {
      SCOPED_TRACE(std::string(row.name) + " in " + projection);
      const auto map = InDegrees(*PolygonOf({row.ring}), projection);
      const Values whole = MeasuresOf(InDegrees(*PolygonOf({row.whole}), projection));
      EXPECT_NEAR(MeasuresOf(map).spheroidal_area / whole.spheroidal_area, 1.0, 1e-9);
      ProjectAsOthersDo(*map, projection);
      ExpectSame(MeasuresOf(map), whole);
    }
  }
}

// The seam of a cap ends near the pole, not at it: where a shift of datum moved the pole, or where it was cut at a
// parallel. On a map of the other hemisphere the cap lies outside of its ring.
TEST(ProjectedShapes, CapsWithASeamTowardThePole) {
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

// Their ends are at one longitude, so that vertices alone don't tell a frame from a line.
TEST(ProjectedShapes, FramesOfTheWorldStayWide) {
  const double expected = MeasuresOf(InDegrees(*PolygonOf({Box(-180, -60, 180, 60)}), "EPSG:3857")).spheroidal_area;
  for (const char* projection : {"EPSG:3857", "EPSG:3832"}) {
    const SpatialReferenceRef reference = Reference(projection);
    const double top = shapes::FromDegrees({10, 60}, reference).y, edge = 20037508.342789244;
    const auto frame = PolygonOf({Box(-edge, -top, edge, top)});
    frame->SetSpatialReference(reference);
    EXPECT_NEAR(MeasuresOf(frame).spheroidal_area / expected, 1.0, 1e-9) << projection;
  }
}

// Circles about the pole on the map, by the area of a spherical cap or zone. Which way they run doesn't matter.
TEST(ProjectedShapes, RingsRoundThePoleOfTheMap) {
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
TEST(ProjectedShapes, SidesThroughThePole) {
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
      const Values values = MeasuresOf(polygon);
      EXPECT_NEAR(values.spheroidal_area / row.area, 1.0, 5e-6);
      EXPECT_NEAR(values.perimeter / row.perimeter, 1.0, 1e-9);
      // The sphere of equal volume is 0.9 percent too small there.
      EXPECT_NEAR(values.spherical_area / row.area, 0.991, 1e-3);
    }
  }
}

// On the plane of degrees these cross themselves or lie on a line. Numbers by GeographicLib's Planimeter.
TEST(ProjectedShapes, WhatIsSimpleOnTheMapAlone) {
  struct Row {
    const char* name;
    const char* projection;
    std::vector<std::vector<XY>> rings;
    double area, perimeter;
  };
  const Row rows[] = {
      {"a strip with a vertex on one of its sides",
       "EPSG:32633",
       {{{495000, 7000000}, {495000, 7000003}, {505000, 7000003}, {505000, 7000000}, {500000, 7000000}}},
       30024,
       20014},
      {"corners on one parallel",
       "EPSG:3995",
       {{{-800000, -600000}, {0, -1000000}, {800000, -600000}}},
       3.3399e11,
       3467418},
      {"a side past the pole",
       "EPSG:3995",
       {{{1300000, 1500000}, {-700000, 700000}, {-1700000, 1000000}, {300000, 1600000}}},
       1.1400e12,
       6372872},
      {"a hole on the way to the pole",
       "EPSG:3995",
       {{{0, -800000}, {1000000, 0}, {0, 1000000}, {-1000000, 0}},
        {{-100000, -500000}, {-100000, -300000}, {100000, -300000}, {100000, -500000}}},
       1.85998e12,
       6340297},
  };
  for (Row row : rows) {
    SCOPED_TRACE(row.name);
    for (std::vector<XY>& ring : row.rings) ring.push_back(ring.front());
    const auto polygon = PolygonOf(row.rings);
    polygon->SetSpatialReference(Reference(row.projection));
    for (const auto& part : polygon->Parts()) {
      const bool exterior = part == polygon->Parts().front();
      if (Cast<Ring>(part)->IsExterior() != exterior) part->ReverseOrientation();
    }
    const Values values = MeasuresOf(polygon);
    EXPECT_NEAR(values.spheroidal_area / row.area, 1.0, 5e-5);
    EXPECT_NEAR(values.perimeter / row.perimeter, 1.0, 1e-6);
    EXPECT_NEAR(values.spherical_area / row.area, 0.992, 2e-3);
  }
}

// The way to the pole never lies in a hole, wherever that is.
TEST(ProjectedShapes, AHoleAllAroundThePole) {
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
  const Values whole = area({shell});
  for (int azimuth = 0; azimuth < 360; azimuth += 15) {
    std::vector<XY> hole = circle(3e5, 4, azimuth, azimuth + 40.0);
    for (const XY far : circle(6e5, 4, azimuth + 40.0, azimuth)) hole.push_back(far);
    hole.push_back(hole.front());
    const Values alone = area({hole}), holed = area({shell, hole});
    EXPECT_NEAR(holed.spheroidal_area / (whole.spheroidal_area - alone.spheroidal_area), 1.0, 1e-12) << azimuth;
    EXPECT_NEAR(holed.perimeter / (whole.perimeter + alone.perimeter), 1.0, 1e-12) << azimuth;
  }
}

// The two lobes of a bow beside the pole, and not all of the globe.
TEST(ProjectedShapes, ABowBesideThePole) {
  const auto bow =
      PolygonOf({{{-100000, -100000}, {1000000, 900000}, {1000000, -900000}, {-100000, 100000}, {-100000, -100000}}});
  bow->SetSpatialReference(Reference("EPSG:3995"));
  EXPECT_NEAR(MeasuresOf(bow).spheroidal_area / (1e12 * 0.9 + 1e10), 1.05, 0.01);
}

// Grads and radians are another way to write degrees.
TEST(OtherAngularUnits, MeasureAsDegrees) {
  const std::string head =
      "GEOGCS[\"Somewhere\",DATUM[\"Somewhere\",SPHEROID[\"Clarke 1880 (IGN)\",6378249.2,293.466021293627]],"
      "PRIMEM[\"Greenwich\",0],";
  struct Row {
    const char* name;
    SpatialReferenceRef reference;
    double unit;  // in degrees
  };
  const Row rows[] = {
      {"grads from Paris", Reference("EPSG:4807"), 0.9},
      {"radians", Reference(head + "UNIT[\"radian\",1]]"), 180.0 / std::numbers::pi},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const auto in_unit = [&](const IGeometry& shape) {
      auto copy = Cast<PartedShape>(GeometryRef(CloneOf(shape)));
      for (const auto& part : copy->Parts()) {
        for (std::int32_t index = 0; index < part->PointCount(); ++index) {
          part->UpdatePoint(index, {part->Point(index).x / row.unit, part->Point(index).y / row.unit});
        }
      }
      copy->SetSpatialReference(row.reference);
      return copy;
    };
    const auto degrees = PolygonOf({Box(1, 45, 3, 47), Box(1.5, 45.5, 2.5, 46.5, false)});
    degrees->SetSpatialReference(shapes::DegreesOf(row.reference));
    const Values expected = MeasuresOf(degrees);
    const Values values = MeasuresOf(Cast<Polygon>(GeometryRef(in_unit(*degrees))));
    EXPECT_LT(Apart(values.centroid, expected.centroid), 1e-9);
    EXPECT_NEAR(values.spherical_area / expected.spherical_area, 1.0, 1e-9);
    EXPECT_NEAR(values.perimeter / expected.perimeter, 1.0, 1e-9);
    EXPECT_NEAR(values.spheroidal_area / expected.spheroidal_area, 1.0, 1e-9);
    // Positions come back in the unit of the data.
    MeasureSettings of_polygon = SettingsOf(row.reference);
    const XY centroid = PositionOf(*BeginRecord(in_unit(*degrees), of_polygon), 2);
    EXPECT_NEAR(centroid.x * row.unit, expected.centroid.x, 1e-9);
    EXPECT_NEAR(centroid.y * row.unit, expected.centroid.y, 1e-9);

    const auto line = PolylineOf({{{1, 45}, {2, 46}, {5, 44}}});
    line->SetSpatialReference(shapes::DegreesOf(row.reference));
    MeasureSettings in_degrees = SettingsOf(line->SpatialReference(), esriGeometryPolyline);
    MeasureSettings in_units = SettingsOf(row.reference, esriGeometryPolyline);
    const auto first = BeginRecord(CloneOf(*line), in_degrees), second = BeginRecord(in_unit(*line), in_units);
    EXPECT_NEAR(ValueOf(*second, 1) / ValueOf(*first, 1), 1.0, 1e-10);
    EXPECT_NEAR(PositionOf(*second, 3).x * row.unit, PositionOf(*first, 3).x, 1e-9);
    EXPECT_NEAR(ValueOf(*second, 5), ValueOf(*first, 5), 1e-7);
    EXPECT_EQ(PositionOf(*second, 2), (XY{1 / row.unit, 45 / row.unit}));
  }
}

// EPSG:27572 is defined on a reference in grads; longitudes and latitudes are degrees all the same.
TEST(OtherAngularUnits, AProjectionOverGradsGivesDegrees) {
  const SpatialReferenceRef lambert = Reference("EPSG:27572");
  EXPECT_NEAR(shapes::ToDegrees({600000, 2200000}, lambert).x, 0.0, 1e-9);
  EXPECT_NEAR(shapes::ToDegrees({600000, 2200000}, lambert).y, 46.8, 1e-9);
  const auto geographic = shapes::DegreesOf(lambert);
  EXPECT_EQ(geographic->PrimeMeridian().Name, "Paris");
  EXPECT_NEAR(geographic->PrimeMeridian().Longitude, 2.33722917, 1e-8);
}

}  // namespace
}  // namespace tessarine
