// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/planetary_latitude.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "tests/helpers/test_host.h"
#include "tests/shapes/fault_log.h"

#include <GeographicLib/Ellipsoid.hpp>

namespace tessarine::MyGeometricOperations {
namespace {

using tessarine::testing::FaultLog;
using tessarine::testing::TestHost;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kA = 6378137.0, kB = 6356752.31424518;
constexpr double kMarsA = 3396190.0, kMarsB = 3376200.0;

std::uint64_t Bits(double value) { return std::bit_cast<std::uint64_t>(value); }

double ToGraphic(double lat, double a = kA, double b = kB) {
  double lon = 0.0, graphic = -1.0;
  XYOCentricToOGraphic(0, lat, a, b, 0, lon, graphic);
  return graphic;
}

double ToCentric(double lat, double a = kA, double b = kB) {
  double lon = 0.0, centric = -1.0;
  XYOGraphicToOCentric(0, lat, a, b, 0, lon, centric);
  return centric;
}

std::shared_ptr<const GeographicCoordinateSystem> Mars() {
  auto spheroid = std::make_shared<const Spheroid>("Mars", kMarsA, kMarsB);
  return std::make_shared<const GeographicCoordinateSystem>("Mars 2000", "", 0, 1e-8,
                                                            std::make_shared<const Datum>("D", spheroid),
                                                            CoordinateUnit{"Degree", 0.0174532925199433});
}

TEST(PlanetaryLatitude, Positions) {
  const FaultLog log;
  // Bits from double arithmetic in Python with tangent and arc tangent rounded from 300 bits.
  EXPECT_EQ(Bits(ToGraphic(45.0)), 0x404698A152EDD11Bu);
  EXPECT_EQ(Bits(ToCentric(45.0)), 0x4046675EAD122EE4u);
  EXPECT_EQ(Bits(ToGraphic(-33.4, kMarsA, kMarsB)), 0xC040DB15E908D0D9u);
  EXPECT_EQ(Bits(ToCentric(-33.4, kMarsA, kMarsB)), 0xC0408B7FDEB95E8Au);
  EXPECT_NEAR(ToGraphic(45.0), 45.19242, 5e-6);
  EXPECT_NEAR(ToCentric(ToGraphic(45.0)), 45.0, 1e-13);
  EXPECT_EQ(ToGraphic(0.0), 0.0);
  for (const double pole : {90.0, -90.0}) {
    EXPECT_NEAR(ToGraphic(pole), pole, 1e-12);
    EXPECT_NEAR(ToCentric(pole), pole, 1e-12);
  }
  EXPECT_NEAR(ToGraphic(67.0, kA, kA), 67.0, 1e-13) << "sphere";
  double lon = 0.0, lat = 0.0;
  XYOGraphicToOCentric(170.0, 0.0, kA, kB, 200.0, lon, lat);
  EXPECT_EQ(lon, 370.0);
  EXPECT_THAT(log.Reports(), IsEmpty());

  lon = 1.0, lat = 2.0;
  XYOCentricToOGraphic(0, 45, kA, 0.0, 0, lon, lat);
  XYOGraphicToOCentric(0, 45, 0.0, kB, 0, lon, lat);
  XYOGraphicToOCentric(1e308, 45, kA, kB, 1e308, lon, lat);
  EXPECT_EQ(lon, 1.0);
  EXPECT_EQ(lat, 2.0);
  EXPECT_THAT(log.Reports(),
              ElementsAre("XYOCentricToOGraphic 11", "XYOGraphicToOCentric 11", "XYOGraphicToOCentric 6"));
}

TEST(PlanetaryLatitude, PolesStayPolesOnEveryBody) {
  struct Row {
    const char* body;
    double a, b;
  };
  const Row rows[] = {{"Earth", kA, kB},
                      {"Mars", kMarsA, kMarsB},
                      {"Jupiter", 71492000, 66854000},
                      {"Saturn", 60268000, 54364000},
                      {"Larissa", 104000, 89000},
                      {"Metis", 30000, 20000},
                      {"sphere", 1000, 1000},
                      {"prolate", 1000, 1500}};
  for (const Row& row : rows) {
    for (const double pole : {90.0, -90.0}) {
      EXPECT_EQ(ToGraphic(pole, row.a, row.b), pole) << row.body;
      EXPECT_EQ(ToCentric(pole, row.a, row.b), pole) << row.body;
    }
    for (double lat = 90.0; lat > 89.999; lat = std::nextafter(lat, 0.0) - 1e-5) {
      EXPECT_LE(ToGraphic(lat, row.a, row.b), 90.0) << row.body << " " << lat;
      EXPECT_LE(ToCentric(lat, row.a, row.b), 90.0) << row.body << " " << lat;
      EXPECT_GE(ToGraphic(-lat, row.a, row.b), -90.0) << row.body << " " << lat;
    }
    EXPECT_LE(ToGraphic(std::nextafter(90.0, 0.0), row.a, row.b), 90.0) << row.body;
  }
}

TEST(PlanetaryLatitude, AgreesWithGeographicLib) {
  const GeographicLib::Ellipsoid mars(kMarsA, (kMarsA - kMarsB) / kMarsA);
  double worst = 0.0;
  for (int step = -8999; step <= 8999; ++step) {
    const double lat = step / 100.0;
    worst = std::max(worst, std::fabs(ToCentric(lat, kMarsA, kMarsB) - mars.GeocentricLatitude(lat)));
    worst = std::max(worst, std::fabs(ToGraphic(lat, kMarsA, kMarsB) - mars.InverseGeocentricLatitude(lat)));
  }
  EXPECT_LT(worst, 2e-13) << "degrees";
}

TEST(PlanetaryLatitude, ShapesTakeTheirOwnSpheroid) {
  const auto shape = std::make_shared<Polyline>();
  shape->AddPoint(XY{10, 45});
  shape->AddPoint(XY{20, -33.4});
  shape->SetSpatialReference(Mars());
  double a = 0.0, b = kB;
  const auto graphic = Cast<Polyline>(FeaturePlanetOCentricToPlanetOGraphic(shape, a, b, 180.0));
  ASSERT_NE(graphic, nullptr);
  EXPECT_EQ(a, kMarsA);
  EXPECT_EQ(b, kMarsB);
  EXPECT_EQ(graphic->Point(0), (XY{190, ToGraphic(45, kMarsA, kMarsB)}));
  EXPECT_EQ(graphic->Point(1), (XY{200, ToGraphic(-33.4, kMarsA, kMarsB)}));
  EXPECT_EQ(graphic->SpatialReference(), shape->SpatialReference());
  EXPECT_EQ(shape->Point(0), (XY{10, 45})) << "the source stays";
  const auto back = Cast<Polyline>(FeaturePlanetOGraphicToPlanetOCentric(graphic, a, b, -180.0));
  EXPECT_NEAR(back->Point(1).y, -33.4, 1e-13);

  // With axes given the reference doesn't matter, not even its absence.
  const auto point = Cast<Point>(FeaturePlanetOGraphicToPlanetOCentric(std::make_shared<Point>(5, 45), a, b, 0.0));
  EXPECT_EQ(point->Coordinates(), (XY{5, ToCentric(45, kMarsA, kMarsB)}));
  EXPECT_TRUE(FeaturePlanetOGraphicToPlanetOCentric(std::make_shared<Multipoint>(), a, b, 0.0)->IsEmpty());
  EXPECT_TRUE(FeaturePlanetOGraphicToPlanetOCentric(std::make_shared<Point>(), a, b, 0.0)->IsEmpty());
}

TEST(PlanetaryLatitude, RefusedShapes) {
  TestHost host;
  const FaultLog log;
  const auto point = std::make_shared<Point>(1, 1);
  point->SetSpatialReference(std::make_shared<const UnknownCoordinateSystem>());
  double a = 0.0, b = 0.0;
  EXPECT_EQ(FeaturePlanetOCentricToPlanetOGraphic(point, a, b, 0.0), nullptr);
  EXPECT_EQ(FeaturePlanetOGraphicToPlanetOCentric(point, a, b, 0.0), nullptr);
  EXPECT_EQ(a, 0.0);
  a = kA, b = kB;
  EXPECT_EQ(FeaturePlanetOGraphicToPlanetOCentric(std::make_shared<GeometryBag>(), a, b, 0.0), nullptr);
  EXPECT_EQ(FeaturePlanetOGraphicToPlanetOCentric(nullptr, a, b, 0.0), nullptr);
  // A vertex that fails is reported twice: by its own routine and by the shape's.
  EXPECT_EQ(FeaturePlanetOGraphicToPlanetOCentric(std::make_shared<Point>(1e308, 1), a, b, 1e308), nullptr);
  ASSERT_EQ(host.messages.shown.size(), 3u);
  EXPECT_EQ(host.messages.shown[0].text,
            "Unexpected Spatial Reference:\r\n"
            "The function 'FeaturePlanetOCentricToPlanetOGraphic' only accepts geometries with geographic "
            "projections.\r\nThis geometry has spatial reference 'Unknown...");
  EXPECT_NE(host.messages.shown[1].text.find("'FeaturePlanetOgraphicToPlanetOcentric'"), std::string::npos);
  EXPECT_EQ(host.messages.shown[2].text,
            "Unexpected Geometry Type:\r\nThe function 'PlanetOCentricToPlanetOGraphic' only accepts points, "
            "polylines, polygons or multipoints.");
  EXPECT_THAT(log.Reports(),
              ElementsAre("FeaturePlanetOCentricToPlanetOGraphic 13", "FeaturePlanetOGraphicToPlanetOCentric 13",
                          "FeaturePlanetOGraphicToPlanetOCentric 91", "XYOGraphicToOCentric 6",
                          "FeaturePlanetOGraphicToPlanetOCentric 5"));
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
