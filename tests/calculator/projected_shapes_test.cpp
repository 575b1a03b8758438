// SPDX-License-Identifier: GPL-2.0-or-later
// A polygon in a projection has the geodesic measures of the same polygon in longitude and latitude.
#include <map>

#include "calculator/projected_polygons.h"
#include "engine/data_source.h"

namespace tessarine {
namespace {

using namespace testing;
namespace shapes = MyGeometricOperations;

// The bundled countries by name.
const std::map<std::string, std::shared_ptr<Polygon>>& Countries() {
  static const auto countries = [] {
    std::map<std::string, std::shared_ptr<Polygon>> result;
    const auto source = DataSource::Open(TESSARINE_TEST_DATA "/countries.shp");
    const auto features = source->OpenFeatureClass("");
    const std::int32_t name = features->FindField("NAME");
    const auto cursor = features->Search(nullptr, Recycling::No);
    while (const auto feature = cursor->NextFeature()) {
      result[feature->Value(name).AsText()] = Cast<Polygon>(feature->ShapeCopy());
    }
    return result;
  }();
  return countries;
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
      const MeasuredPolygon whole = MeasuresOf(InDegrees(*PolygonOf({row.whole}), projection));
      EXPECT_NEAR(MeasuresOf(map).spheroidal_area / whole.spheroidal_area, 1.0, 1e-9);
      ProjectAsOthersDo(*map, projection);
      ExpectSame(MeasuresOf(map), whole);
    }
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
    const MeasuredPolygon values = MeasuresOf(polygon);
    EXPECT_NEAR(values.spheroidal_area / row.area, 1.0, 5e-5);
    EXPECT_NEAR(values.perimeter / row.perimeter, 1.0, 1e-6);
    EXPECT_NEAR(values.spherical_area / row.area, 0.992, 2e-3);
  }
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
    const MeasuredPolygon expected = MeasuresOf(degrees);
    const MeasuredPolygon values = MeasuresOf(Cast<Polygon>(GeometryRef(in_unit(*degrees))));
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
