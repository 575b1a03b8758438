// SPDX-License-Identifier: GPL-2.0-or-later
// What the measuring tool measures and draws. Numbers were computed with GeographicLib by pyproj 3.4.1 (`Geod.inv`,
// `Geod.polygon_area_perimeter`).
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QScrollBar>
#include <regex>

#include "hosts/qgis/measuring/geodesic_drawing.h"
#include "hosts/qgis/measuring/measure_window.h"
#include "hosts/qgis/measuring/path_measures.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"

namespace tessarine::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::SizeIs;

const NamedSpheroid kEarth{"WGS 1984", 7030, 6378137.0, 6356752.314245179};
const NamedSpheroid kMars{"Mars 2000", 107905, 3396190.0, 3376200.0};

SpatialReferenceRef Reference(const char* text) { return SpatialReferenceEnvironment::CreateFromText(text); }

TEST(MeasuredPath, LegsTotalAndArea) {
  const auto path = qgis::MeasurePath({{170, 10}, {170, 20}, {-170, 20}, {-170, 10}}, Reference("EPSG:4326"), kEarth);
  ASSERT_THAT(path.legs, SizeIs(3));
  EXPECT_EQ(path.problem, "");
  EXPECT_NEAR(path.total + *path.closing_leg, 6497155.785439912, 1e-3);
  EXPECT_NEAR(*path.area, 2396553402237.1167, 1.0);
  EXPECT_NEAR(*path.legs[0].start_azimuth, 0.0, 1e-9);
  EXPECT_TRUE(path.notes.empty()) << path.notes.front();
}

TEST(MeasuredPath, OnAPlanetAndWithTwoPlaces) {
  const auto path = qgis::MeasurePath({{10, 20}, {30, -40}}, Reference("EPSG:3857"), kMars);
  EXPECT_NEAR(path.total, 3691357.983667404, 1e-3);
  EXPECT_FALSE(path.closing_leg || path.area);
  EXPECT_TRUE(qgis::MeasurePath({{10, 20}}, Reference("EPSG:4326"), kMars).legs.empty());
}

TEST(MeasuredPath, RoundAPole) {
  const auto path = qgis::MeasurePath({{0, 80}, {120, 80}, {-120, 80}}, Reference("EPSG:3413"), kEarth);
  EXPECT_NEAR(*path.area, 1634782820860.7188, 1.0);
}

TEST(MeasuredPath, WhatCantBeMeasuredIsTold) {
  const auto path = qgis::MeasurePath({{0, 80}, {0, 95}}, Reference("EPSG:4326"), kEarth);
  EXPECT_THAT(path.problem, HasSubstr("beyond a pole"));
}

TEST(MeasureWindow, IsWideEnoughForItsColumns) {
  for (const QLocale& locale : {QLocale(QLocale::German, QLocale::Germany), QLocale::c()}) {
    UseLanguage(locale);
    qgis::MeasureWindow window(nullptr, {[] {}, [] {}, [] {}, [] {}});
    window.Show(qgis::MeasurePath({{-179.5, -89.5}, {0.5, 89.25}, {-120.5, -30}}, Reference("EPSG:4326"), kEarth));
    window.show();
    QCoreApplication::processEvents();
    const auto& legs = *window.findChild<QTableWidget*>(QStringLiteral("tblLegs"));
    EXPECT_EQ(legs.rowCount(), 2);
    EXPECT_EQ(legs.horizontalScrollBar()->maximum(), 0) << FromQt(locale.name());
  }
  UseLanguage(QLocale::c());
}

TEST(MeasuredPath, AsATableInGerman) {
  const auto path = qgis::MeasurePath({{-1.5, 0}, {-1.5, 45.25}}, Reference("EPSG:4326"), kEarth);
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
  ASSERT_TRUE(UseLanguage(QLocale()));
  const QStringList lines = qgis::TableText(path, qgis::kLengthUnits[0], qgis::kAreaUnits[0]).split('\n');
  UseLanguage(QLocale::c());
  QLocale::setDefault(QLocale::c());
  ASSERT_EQ(lines.size(), 5);
  EXPECT_EQ(FromQt(lines[0]),
            "Strecke\tLänge am Anfang\tBreite am Anfang\tLänge am Ende\tBreite am Ende\t"
            "Entfernung (m)\tAzimut am Anfang\tAzimut am Ende");
  EXPECT_TRUE(FromQt(lines[1]).starts_with("1\t-1,5\t0\t-1,5\t45,25\t501272")) << FromQt(lines[1]);
  EXPECT_TRUE(FromQt(lines[2]).starts_with("Zusammen (m)\t501272")) << FromQt(lines[2]);
  EXPECT_EQ(FromQt(lines[3]), "Sphäroid\tWGS 1984\t6378137\t6356752,31424518");
}

TEST(MeasuredPath, AsATable) {
  const auto path = qgis::MeasurePath({{0, 0}, {1, 0}, {1, 0}}, Reference("EPSG:4326"), kEarth);
  // A degree of the equator is 111.319490793274 km; a length holds to a tenth of a micrometre.
  const std::string text = FromQt(qgis::TableText(path, qgis::kLengthUnits[1], qgis::kAreaUnits[0]));
  EXPECT_EQ(std::regex_replace(text, std::regex("(111\\.319490793)[0-9]{3}\\b"), "$1"),
            "Leg\tStart longitude\tStart latitude\tEnd longitude\tEnd latitude\tDistance (km)\tStart azimuth\tEnd "
            "azimuth\n"
            "1\t0\t0\t1\t0\t111.319490793\t90\t90\n"
            "2\t1\t0\t1\t0\t0\t\t\n"
            "Total (km)\t111.319490793\n"
            "Closing leg (km)\t111.319490793\n"
            "Area (m\u00b2)\t0\n"
            "Spheroid\tWGS 1984\t6378137\t6356752.31424518\n");
}

QgsMultiPolylineXY Drawn(QgsPointXY from, XY from_degrees, QgsPointXY to, XY to_degrees, const char* reference) {
  return qgis::DrawnGeodesic({from, from_degrees}, {to, to_degrees}, Reference(reference), kEarth);
}

TEST(DrawnGeodesic, BendsAsTheGlobeDoes) {
  const auto parts = Drawn({0, 50}, {0, 50}, {90, 50}, {90, 50}, "EPSG:4326");
  ASSERT_EQ(parts.size(), 1);
  EXPECT_EQ(parts[0].front(), QgsPointXY(0, 50));
  EXPECT_NEAR(parts[0].back().x(), 90.0, 1e-9);
  double highest = 0.0;
  for (const QgsPointXY& point : parts[0]) highest = std::max(highest, point.y());
  EXPECT_NEAR(highest, 59.4, 0.2);  // the vertex of the great circle: atan(tan 50 / cos 45) is 59.3
  EXPECT_GT(parts[0].size(), 100);
}

TEST(DrawnGeodesic, IsDrawnFromBothEndsOverTheEdge) {
  const auto parts = Drawn({170, 10}, {170, 10}, {-170, 20}, {-170, 20}, "EPSG:4326");
  ASSERT_EQ(parts.size(), 2);
  EXPECT_NEAR(parts[0].back().x(), 190.0, 1e-9);
  EXPECT_NEAR(parts[1].front().x(), -190.0, 1e-9);
  EXPECT_NEAR(parts[1].back().x(), -170.0, 1e-9);
}

// Mercator is torn at 180 degrees, 20037508 m from its middle.
TEST(DrawnGeodesic, ParksAtTheEdgeOfAProjection) {
  constexpr double kEdge = 20037508.342789244;
  const auto parts = Drawn({18924313.4, 1118890.0}, {170, 10}, {-18924313.4, 2273031.0}, {-170, 20}, "EPSG:3857");
  ASSERT_EQ(parts.size(), 2);
  EXPECT_NEAR(parts[0].back().x(), kEdge, 30000.0);
  EXPECT_NEAR(parts[1].front().x(), -kEdge, 30000.0);
  for (const auto& part : parts) {
    for (int at = 1; at < part.size(); ++at) EXPECT_LT(part[at].distance(part[at - 1]), 60000.0);
  }
}

TEST(DrawnGeodesic, IsWholeRoundThePoleOfItsMap) {
  const auto parts = Drawn({0, 0}, {0, 70}, {0, 0}, {170, 70}, "EPSG:3413");
  EXPECT_EQ(parts.size(), 1);
}

}  // namespace
}  // namespace tessarine::testing
