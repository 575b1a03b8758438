// SPDX-License-Identifier: GPL-2.0-or-later
// Spatial references and projection, against published parameters and coordinates.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "engine/srs_from_gdal.h"
#include "engine/test_layers.h"
#include "helpers/shapes.h"

namespace tessarine {
namespace {

using testing::Box;
using testing::FaultOf;
using testing::FaultTextOf;
using testing::PolygonOf;

SpatialReferenceRef Reference(const std::string& text) { return SpatialReferenceEnvironment::CreateFromText(text); }

double Degrees(double degrees, double minutes, double seconds) { return degrees + minutes / 60.0 + seconds / 3600.0; }

// The worked examples of IOGP Guidance Note 7-2, which are given to the centimetre, and the origin of a zone.
TEST(Projection, PublishedCoordinates) {
  struct Row {
    const char* name;
    const char* from;
    const char* to;
    XY geographic;
    XY projected;
  };
  const Row rows[] = {
      {"British National Grid", "EPSG:4277", "EPSG:27700", {0.5, 50.5}, {577274.99, 69740.50}},
      {"Texas South Central in feet", "EPSG:4267", "EPSG:32040", {-96.0, 28.5}, {2963503.91, 254759.80}},
      {"Europe equal area, northing first by its authority",
       "EPSG:4258",
       "EPSG:3035",
       {5.0, 50.0},
       {3962799.45, 2999718.85}},
      {"web mercator",
       "EPSG:4326",
       "EPSG:3857",
       {-Degrees(100, 20, 0.0), Degrees(24, 22, 54.433)},
       {-11169055.58, 2800000.00}},
      {"Caspian Sea Mercator", "EPSG:4284", "EPSG:3388", {53.0, 53.0}, {165704.29, 5171848.07}},
      {"UTM on its central meridian", "EPSG:4326", "EPSG:32612", {-111.0, 0.0}, {500000.0, 0.0}},
  };
  for (const Row& row : rows) {
    Point point(row.geographic.x, row.geographic.y);
    point.SetSpatialReference(Reference(row.from));
    point.Project(Reference(row.to));
    EXPECT_NEAR(point.X(), row.projected.x, 0.01) << row.name;
    EXPECT_NEAR(point.Y(), row.projected.y, 0.01) << row.name;
    EXPECT_TRUE(point.SpatialReference()->IsEqual(*Reference(row.to))) << row.name;
    point.Project(Reference(row.from));
    EXPECT_NEAR(point.X(), row.geographic.x, 1e-8) << row.name;
    EXPECT_NEAR(point.Y(), row.geographic.y, 1e-8) << row.name;
  }
}

TEST(Projection, WholeShapesInPlace) {
  const auto polygon = PolygonOf({Box(-111.0, 0.0, -110.0, 1.0)});
  polygon->SetSpatialReference(Reference("EPSG:4326"));
  const auto ring = polygon->Ring(0);
  polygon->Project(Reference("EPSG:3857"));
  EXPECT_EQ(polygon->Ring(0), ring);
  // A degree of the equator on the sphere of the web map.
  EXPECT_NEAR(polygon->Envelope().Width(), 6378137.0 * std::numbers::pi / 180.0, 1e-6);

  Polyline arc;
  arc.AddSegment(CircularArc::Through({0.0, 0.0}, {1.0, 1.0}, {2.0, 0.0}));
  arc.SetSpatialReference(Reference("EPSG:4326"));
  arc.Project(Reference("EPSG:3857"));
  EXPECT_FALSE(arc.HasCurves());
  EXPECT_GT(arc.PointCount(), 8);
  EXPECT_NEAR(arc.Envelope().YMax(), 6378137.0 * std::asinh(std::tan(std::numbers::pi / 180.0)), 10.0);
}

TEST(Projection, WithoutAKnownReferenceOnlyTheReferenceChanges) {
  for (const auto& from : {SpatialReferenceRef(), Reference("")}) {
    Point point(5.0, 50.0);
    point.SetSpatialReference(from);
    point.Project(Reference("EPSG:3857"));
    EXPECT_EQ(point.Coordinates(), (XY{5.0, 50.0}));
    EXPECT_EQ(point.SpatialReference()->FactoryCode(), 3857);
  }
  Point empty;
  empty.SetSpatialReference(Reference("EPSG:4326"));
  empty.Project(Reference("EPSG:3857"));
  EXPECT_TRUE(empty.IsEmpty());
}

TEST(Projection, NamesTheVertexThatCantBeProjected) {
  Multipoint points({{1.0, 1.0}, {12.5, 95.0}});
  points.SetSpatialReference(Reference("EPSG:4326"));
  const std::string text = FaultTextOf([&] { points.Project(Reference("EPSG:3857")); });
  EXPECT_NE(text.find("(12.5, 95)"), std::string::npos) << text;
  EXPECT_EQ(points.Point(0), (XY{1.0, 1.0})) << "a shape is never half projected";
  EXPECT_EQ(points.SpatialReference()->FactoryCode(), 4326);
}

TEST(Projection, SnapsToTheGridOfTheReference) {
  Point point(500000.12346, 0.00004);
  point.SetSpatialReference(Reference("EPSG:32612"));
  point.SnapToSpatialReference();
  EXPECT_NEAR(point.X(), 500000.1235, 1e-9);
  EXPECT_EQ(point.Y(), 0.0);
  Point unknown(0.123456789, 1.0);
  unknown.SetSpatialReference(Reference(""));
  unknown.SnapToSpatialReference();
  EXPECT_EQ(unknown.X(), 0.123456789);
}

// Against the rounding of the C library.
TEST(Projection, SnapsEveryVertexOfARing) {
  const SpatialReferenceRef degrees = Reference("EPSG:4326");
  const double step = degrees->XYResolution();
  std::mt19937_64 random(20260724);
  std::uniform_real_distribution<double> draw(-180.0, 180.0);
  std::vector<XY> places{{-180.0, 90.0}, {180.0, -90.0}, {-0.0, 0.4 * step}, {-0.4 * step, 1e-300}, {1e12, -1e9}};
  for (int number = 0; number < 5000; ++number) {
    const double steps = std::trunc(draw(random) / step), half = 0.5 * (number % 3);
    places.push_back({(steps + half) * step, draw(random) / 2.0});
  }
  Polygon polygon;
  polygon.SetParts({std::make_shared<Ring>(places)});
  polygon.SetSpatialReference(degrees);
  polygon.SnapToSpatialReference();
  for (std::size_t index = 0; index < places.size(); ++index) {
    const double x = std::round(places[index].x / step) * step, y = std::round(places[index].y / step) * step;
    const XY snapped = polygon.Parts().front()->Vertices()[index];
    ASSERT_EQ(snapped.x, x) << index;
    ASSERT_EQ(snapped.y, std::fabs(places[index].y) <= 90.0 ? std::clamp(y, -90.0, 90.0) : y) << index;
    ASSERT_EQ(std::signbit(snapped.x), std::signbit(x)) << index;
  }
}

struct GeographicRow {
  std::int32_t code;
  const char* spheroid;
  double major, minor;  // metres
  const char* unit;
  double radians;
};

TEST(References, GeographicOnesTellDatumSpheroidAndUnit) {
  const double degree = std::numbers::pi / 180.0;
  const GeographicRow rows[] = {
      {4326, "WGS 84", 6378137.0, 6356752.314245179, "degree", degree},
      {4269, "GRS 1980", 6378137.0, 6356752.314140356, "degree", degree},
      {4267, "Clarke 1866", 6378206.4, 6356583.8, "degree", degree},
      {4807, "Clarke 1880 (IGN)", 6378249.2, 6356515.0, "grad", std::numbers::pi / 200.0},
  };
  for (const GeographicRow& row : rows) {
    const auto reference = SpatialReferenceEnvironment::CreateGeographicCoordinateSystem(row.code);
    EXPECT_EQ(reference->FactoryCode(), row.code);
    EXPECT_EQ(reference->Datum()->Spheroid()->Name(), row.spheroid) << row.code;
    EXPECT_NEAR(reference->Datum()->Spheroid()->SemiMajorAxis(), row.major, 1e-6) << row.code;
    EXPECT_NEAR(reference->Datum()->Spheroid()->SemiMinorAxis(), row.minor, 1e-6) << row.code;
    EXPECT_EQ(reference->CoordinateUnit().Name, row.unit) << row.code;
    EXPECT_NEAR(reference->CoordinateUnit().ConversionFactor, row.radians, 1e-15) << row.code;
    EXPECT_FALSE(reference->Datum()->Name().empty()) << row.code;
  }
  const std::string text =
      FaultTextOf([] { (void)SpatialReferenceEnvironment::CreateGeographicCoordinateSystem(32612); });
  EXPECT_NE(text.find("32612"), std::string::npos) << "a projected one is none: " << text;
}

TEST(References, ProjectedOnesStandOnGeographicOnes) {
  const auto utm = std::dynamic_pointer_cast<const ProjectedCoordinateSystem>(Reference("EPSG:32612"));
  ASSERT_NE(utm, nullptr);
  EXPECT_EQ(utm->Name(), "WGS 84 / UTM zone 12N");
  EXPECT_EQ(utm->CoordinateUnit().ConversionFactor, 1.0);
  EXPECT_EQ(utm->GeographicCoordinateSystem()->FactoryCode(), 4326);
  EXPECT_EQ(utm->XYTolerance(), 0.001);
  const auto texas = std::dynamic_pointer_cast<const ProjectedCoordinateSystem>(Reference("EPSG:32040"));
  ASSERT_NE(texas, nullptr);
  EXPECT_NEAR(texas->CoordinateUnit().ConversionFactor, 1200.0 / 3937.0, 1e-12);
  EXPECT_NEAR(texas->XYTolerance(), 3.937 / 1200.0, 1e-12);
  // A millimetre on the equator in degrees.
  EXPECT_NEAR(Reference("EPSG:4326")->XYTolerance(), 8.983152841195215e-9, 1e-21);
}

TEST(References, EqualWhateverTheirTextIs) {
  const auto by_code = Reference("EPSG:4326");
  const auto by_text = Reference(R"(GEOGCS["GCS_WGS_1984",DATUM["D_WGS_1984",SPHEROID["WGS_1984",6378137.0,)"
                                 R"(298.257223563]],PRIMEM["Greenwich",0.0],UNIT["Degree",0.0174532925199433]])");
  EXPECT_TRUE(by_code->IsEqual(*by_text));
  EXPECT_TRUE(by_code->IsEqual(*CloneOf(*by_code)));
  EXPECT_TRUE(Reference("EPSG:32612")->IsEqual(*Reference("+proj=utm +zone=12 +datum=WGS84")));
  EXPECT_FALSE(by_code->IsEqual(*Reference("EPSG:4269")));
  EXPECT_FALSE(by_code->IsEqual(*Reference("EPSG:32612")));
  EXPECT_FALSE(Reference("")->IsEqual(*by_code));
  EXPECT_TRUE(Reference("")->IsEqual(*Reference("")));
  EXPECT_TRUE(Reference("EPSG:32612")->IsXYPrecisionEqual(*Reference("EPSG:32613")));
  EXPECT_FALSE(Reference("EPSG:32612")->IsXYPrecisionEqual(*by_code));
}

// A layer with neither coordinate system nor unit, as the format numbers them.
TEST(References, GeoPackagesOfUndefinedReferencesHaveNone) {
  for (const int srs_id : {0, -1}) {
    const testing::TemporaryFolder folder;
    const std::string file = folder.Native("layer.gpkg");
    testing::WriteLayer({"GPKG", file, "layer", wkbPoint, {{"POINT (500000 -4000000)"}}});
    {
      const GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
      for (const char* table : {"gpkg_contents", "gpkg_geometry_columns"}) {
        const std::string sql = std::string("UPDATE ") + table + " SET srs_id = " + std::to_string(srs_id);
        dataset->ReleaseResultSet(dataset->ExecuteSQL(sql.c_str(), nullptr, nullptr));
      }
    }
    const SpatialReferenceRef reference = DataSource::Open(file)->OpenFeatureClass("")->SpatialReference();
    EXPECT_NE(dynamic_cast<const UnknownCoordinateSystem*>(reference.get()), nullptr) << srs_id << reference->Name();
  }
}

TEST(References, UnknownOnesAndTextsThatAreNone) {
  const auto unknown = Reference("");
  EXPECT_EQ(unknown->Name(), "Unknown");
  EXPECT_FALSE(unknown->XYToleranceValid());
  EXPECT_NE(dynamic_cast<const UnknownCoordinateSystem*>(unknown.get()), nullptr);
  for (const char* text : {"EPSG:1", "no reference", "PROJCS["}) {
    EXPECT_EQ(FaultOf([&] { (void)Reference(text); }), kInvalidCall) << text;
    EXPECT_NE(FaultTextOf([&] { (void)Reference(text); }).find(text), std::string::npos) << text;
  }
}

// Parameters of the EPSG registry and of the IAU; those in feet are told in metres.
TEST(References, SpheroidsHaveTheirAxesInMetres) {
  struct Row {
    std::int32_t code;
    const char* name;
    double major, minor;
  };
  const double clarke_foot = 0.3047972654;
  const Row rows[] = {
      {7030, "WGS 84", 6378137.0, 6356752.314245179},
      {7008, "Clarke 1866", 6378206.4, 6356583.8},
      {7007, "Clarke 1858", 20926348.0 * clarke_foot, 20855233.0 * clarke_foot},
      {7022, "International 1924", 6378388.0, 6378388.0 * (1.0 - 1.0 / 297.0)},
      {7048, "GRS 1980 Authalic Sphere", 6371007.0, 6371007.0},
      {107905, "Mars_2000_IAU_IAG", 3396190.0, 3376200.0},
  };
  for (const Row& row : rows) {
    const auto spheroid = SpatialReferenceEnvironment::CreateSpheroid(row.code);
    EXPECT_EQ(spheroid->Name(), row.name);
    EXPECT_NEAR(spheroid->SemiMajorAxis(), row.major, 1e-4) << row.name;
    EXPECT_NEAR(spheroid->SemiMinorAxis(), row.minor, 1e-4) << row.name;
  }
  EXPECT_EQ(FaultOf([] { (void)SpatialReferenceEnvironment::CreateSpheroid(1); }), kInvalidCall);
  const auto mars = SpatialReferenceEnvironment::CreateGeographicCoordinateSystem(104905);
  EXPECT_NEAR(mars->Datum()->Spheroid()->SemiMajorAxis(), 3396190.0, 1e-6);
}

TEST(References, HeightsAreNoPartOfThem) {
  EXPECT_EQ(Reference("EPSG:32612+5773")->Name(), "WGS 84 / UTM zone 12N");
  const auto reference = engine::ReferenceFromOgr(nullptr);
  EXPECT_EQ(reference, Reference("")) << "one object stands for all unknown references";
}

}  // namespace
}  // namespace tessarine
