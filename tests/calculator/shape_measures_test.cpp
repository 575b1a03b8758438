// SPDX-License-Identifier: GPL-2.0-or-later
// Measures of one shape, as hosts ask for them. Lengths, azimuths, areas and midpoints were computed with GeographicLib
// by pyproj 3.4.1 (`Geod.inv`, `Geod.polygon_area_perimeter`, half of `Geod.inv` by `Geod.fwd`), positions of UTM with
// PROJ 9.1.
#include "calculator/clsShapeMeasures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>

#include "calculator/measures.h"
#include "helpers/shapes.h"
#include "platform/trap.h"

namespace tessarine {
namespace {

using namespace testing;

constexpr double kMajor = 6378137.0, kMinor = 6356752.314245179;
constexpr double kMarsMajor = 3396190.0, kMarsMinor = 3376200.0;

template <class Shape>
std::shared_ptr<Shape> In(const char* reference, std::shared_ptr<Shape> shape) {
  shape->SetSpatialReference(SpatialReferenceEnvironment::CreateFromText(reference));
  return shape;
}

std::shared_ptr<Polyline> Line(XY from, XY to, const char* reference = "EPSG:4326") {
  return In(reference, PolylineOf({{from, to}}));
}

TEST(ShapeMeasures, Lengths) {
  struct Row {
    const char* name;
    std::shared_ptr<Polyline> line;
    double major, minor, length;
  };
  const Row rows[] = {
      {"a degree of the equator", Line({0, 0}, {1, 0}), kMajor, kMinor, 111319.49079327357},
      {"on Mars", Line({10, 20}, {30, -40}), kMarsMajor, kMarsMinor, 3691357.983667404},
      {"over the 180 degree meridian", Line({170, 10}, {-170, 20}), kMajor, kMinor, 2415318.0182577027},
      {"to a pole", Line({45, 60}, {0, 90}), kMajor, kMinor, 3347892.909822211},
      {"projected",
       Line({454373.97299301426, 3873157.254474184}, {545063.9895682236, 3984064.0305223954}, "EPSG:32612"), kMajor,
       kMinor, 143321.578181783},
  };
  for (const Row& row : rows) {
    EXPECT_NEAR(clsShapeMeasures().Length(*row.line, row.major, row.minor).value, row.length, 1e-4) << row.name;
  }
}

TEST(ShapeMeasures, AreasAndPerimeters) {
  struct Row {
    const char* name;
    std::vector<XY> ring;
    double area, perimeter;
  };
  const Row rows[] = {
      {"a box", Box(10, 10, 20, 20), 1190968350339.391, 4355689.47254797},
      {"the other way round", Box(10, 10, 20, 20, false), 1190968350339.391, 4355689.47254797},
      {"over the 180 degree meridian",
       {{170, 10}, {170, 20}, {-170, 20}, {-170, 10}, {170, 10}},
       2396553402237.1167,
       6497155.785439912},
      {"round a pole", {{0, 80}, {-120, 80}, {120, 80}, {0, 80}}, 1634782820860.7188, 5795767.806765923},
  };
  for (const Row& row : rows) {
    const auto polygon = In("EPSG:4326", PolygonOf({row.ring}));
    EXPECT_NEAR(clsShapeMeasures().Area(*polygon, kMajor, kMinor).value, row.area, 1.0) << row.name;
    EXPECT_NEAR(clsShapeMeasures().Length(*polygon, kMajor, kMinor).value, row.perimeter, 1e-3) << row.name;
  }
}

// A projected polygon goes through the very measure that the calculator writes.
TEST(ShapeMeasures, AreTheBitsOfTheCalculator) {
  const auto polygon = In(
      "EPSG:32633", PolygonOf({Box(500000, 5540000, 510000, 5550000), Box(503000, 5543000, 505000, 5545000, false)}));
  MeasureSettings settings{esriGeometryPolygon, SpatialKind::Projected, polygon->SpatialReference(), kMajor, kMinor};
  const auto record = BeginRecord(CloneOf(*polygon), settings);
  const double area = Measure(*FindMeasure(esriGeometryPolygon, SpatialKind::Projected, 9), *record).first.AsDouble();
  const double perimeter =
      Measure(*FindMeasure(esriGeometryPolygon, SpatialKind::Projected, 6), *record).first.AsDouble();
  EXPECT_EQ(clsShapeMeasures().Area(*polygon, kMajor, kMinor).value, area);
  EXPECT_EQ(clsShapeMeasures().Length(*polygon, kMajor, kMinor).value, perimeter);
  EXPECT_GT(area, 9.5e7);
}

TEST(ShapeMeasures, Midpoints) {
  const XY middle = clsShapeMeasures().Midpoint(*Line({170, 10}, {-170, 20}), kMajor, kMinor).position;
  EXPECT_NEAR(middle.x, 179.76461654173949, 1e-8);
  EXPECT_NEAR(middle.y, 15.223124194547218, 1e-8);
  const auto projected =
      Line({454373.97299301426, 3873157.254474184}, {545063.9895682236, 3984064.0305223954}, "EPSG:32612");
  const XY in_metres = clsShapeMeasures().Midpoint(*projected, kMajor, kMinor).position;
  const XY degrees = clsShapeMeasures().InDegrees(in_metres, projected->SpatialReference());
  EXPECT_NEAR(degrees.x, -111.0031289, 1e-3);  // between the ends, -111.5 and -110.5
  EXPECT_NEAR(degrees.y, 35.5011, 1e-3);
}

TEST(ShapeMeasures, Legs) {
  struct Row {
    const char* name;
    XY from, to;
    double distance, start, end;
  };
  const Row rows[] = {
      {"Paris to New York", {2.35, 48.86}, {-73.94, 40.67}, 5850960.340387866, 291.74174946308356, 233.7147300002413},
      {"over the 180 degree meridian", {170, 10}, {-170, 20}, 2415318.0182577027, 60.42301753263243, 65.66931330456964},
      {"a turn apart", {170, 10}, {190, 20}, 2415318.0182577027, 60.42301753263243, 65.66931330456964},
      {"to the pole", {45, 60}, {0, 90}, 3347892.909822211, 0.0, 315.0},
      {"nearly antipodal, solved exactly",
       {0, 0},
       {179.7, 0.2},
       19975624.276995994,
       21.55217143145941,
       158.44769162272623},
  };
  for (const Row& row : rows) {
    const MeasuredLeg leg = clsShapeMeasures().Leg(row.from, row.to, kMajor, kMinor);
    EXPECT_NEAR(leg.distance, row.distance, 1e-3) << row.name;
    ASSERT_TRUE(leg.start_azimuth && leg.end_azimuth) << row.name;
    EXPECT_NEAR(std::remainder(*leg.start_azimuth - row.start, 360.0), 0.0, 1e-6) << row.name;
    EXPECT_NEAR(std::remainder(*leg.end_azimuth - row.end, 360.0), 0.0, 1e-6) << row.name;
  }
}

TEST(ShapeMeasures, CoincidentPositionsHaveNoAzimuth) {
  const std::pair<XY, XY> pairs[] = {{{10, 20}, {10, 20}}, {{-180, 20}, {180, 20}}, {{10, 90}, {50, 90}}};
  for (const auto& [from, to] : pairs) {
    const MeasuredLeg leg = clsShapeMeasures().Leg(from, to, kMajor, kMinor);
    EXPECT_NEAR(leg.distance, 0.0, 1e-6) << from.x;
    EXPECT_FALSE(leg.start_azimuth || leg.end_azimuth) << from.x;
  }
}

TEST(ShapeMeasures, WhatCantBeMeasuredIsAFaultAndToldToNobody) {
  static int reported;
  reported = 0;
  const FaultReporter before = SetFaultReporter([](const TrapSite&, const Fault&) { ++reported; });
  const double none = std::numeric_limits<double>::quiet_NaN();
  const auto unknown = PolylineOf({{{0, 0}, {1, 1}}});
  unknown->SetSpatialReference(std::make_shared<UnknownCoordinateSystem>());
  const auto point = In("EPSG:4326", std::make_shared<Point>(XY{1, 2}));
  const auto polygon = In("EPSG:4326", PolygonOf({Box(0, 0, 1, 1)}));
  const clsShapeMeasures measures;
  EXPECT_EQ(FaultOf([&] { return measures.Length(*Line({0, 0}, {none, 1}), kMajor, kMinor); }), kInvalidCall);
  EXPECT_EQ(FaultOf([&] { return measures.Length(*unknown, kMajor, kMinor); }), kInvalidCall);
  EXPECT_EQ(FaultOf([&] { return measures.Length(*point, kMajor, kMinor); }), kTypeMismatch);
  EXPECT_EQ(FaultOf([&] { return measures.Area(*Line({0, 0}, {1, 1}), kMajor, kMinor); }), kTypeMismatch);
  EXPECT_EQ(FaultOf([&] { return measures.Midpoint(*polygon, kMajor, kMinor); }), kTypeMismatch);
  EXPECT_EQ(FaultOf([&] { return measures.Length(*Line({0, 0}, {1, 1}), 0.0, 0.0); }), kDivisionByZero);
  EXPECT_EQ(FaultOf([&] { return measures.Leg({0, 0}, {0, 91}, kMajor, kMinor); }), kInvalidCall);
  SetFaultReporter(before);
  EXPECT_EQ(reported, 0);
}

TEST(ShapeMeasures, TellWhatTheReportWouldSay) {
  const clsShapeMeasures measures;
  EXPECT_TRUE(measures.Length(*Line({0, 0}, {1, 1}), kMajor, kMinor).notes.empty());
  EXPECT_EQ(measures.Length(*Line({0, 0}, {179.7, 0.2}), kMajor, kMinor).notes,
            MeasureNotes{WarningText(MeasureWarning::NotConverged)});
  EXPECT_EQ(measures.Leg({0, 0}, {1, 1}, 60268000, 54364000).notes,
            MeasureNotes{WarningText(MeasureWarning::RoughSeries)});
}

TEST(ShapeMeasures, WorkOnSeveralThreads) {
  const clsShapeMeasures measures;
  std::vector<double> lengths(4);
  std::vector<std::thread> threads;
  for (double& length : lengths) {
    threads.emplace_back([&] {
      for (int round = 0; round < 50; ++round) {
        length = measures.Length(*Line({500000, 5540000}, {520000, 5560000}, "EPSG:32633"), kMajor, kMinor).value;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const double length : lengths) EXPECT_EQ(length, lengths.front());
  EXPECT_GT(lengths.front(), 28000.0);
}

}  // namespace
}  // namespace tessarine
