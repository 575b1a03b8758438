// SPDX-License-Identifier: GPL-2.0-or-later
// Lines and true curves against closed forms.
#include "platform/segment.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

namespace tessarine {
namespace {

using std::numbers::pi;
const double kHalfRoot = std::sqrt(0.5);

void ExpectAt(XY actual, XY expected, double tolerance, const std::string& what) {
  EXPECT_NEAR(actual.x, expected.x, tolerance) << what;
  EXPECT_NEAR(actual.y, expected.y, tolerance) << what;
}

// y = x^2 from -1 to 1 as a cubic.
const BezierCurve kParabola{{-1.0, 1.0}, {-1.0 / 3.0, -1.0 / 3.0}, {1.0 / 3.0, -1.0 / 3.0}, {1.0, 1.0}};

// The perimeter of an ellipse, by the series of Gauss and Kummer.
double EllipsePerimeter(double a, double b) {
  const double h = (a - b) * (a - b) / ((a + b) * (a + b));
  double sum = 1.0, binomial = 1.0, power = 1.0;
  for (int n = 1; n < 60; ++n) {
    binomial *= (0.5 - (n - 1)) / n;
    power *= h;
    sum += binomial * binomial * power;
  }
  return pi * (a + b) * sum;
}

struct CurveRow {
  const char* name;
  Segment segment;
  esriGeometryType type;
  double length;
  double area_beyond_chord;
  Envelope box;
  XY middle;  // by length
};

const std::vector<CurveRow>& Curves() {
  static const double half_width = std::sqrt(25.0 * 0.75 + 9.0 * 0.25);  // 5 and 3, turned by 30 degrees
  static const double half_height = std::sqrt(25.0 * 0.25 + 9.0 * 0.75);
  static const std::vector<CurveRow> rows = {
      {"line", Line{{1.0, 1.0}, {4.0, 5.0}}, esriGeometryLine, 5.0, 0.0, {1.0, 1.0, 4.0, 5.0}, {2.5, 3.0}},
      {"quarter circle, counter-clockwise",
       CircularArc::Through({1.0, 0.0}, {kHalfRoot, kHalfRoot}, {0.0, 1.0}),
       esriGeometryCircularArc,
       pi / 2.0,
       pi / 4.0 - 0.5,
       {0.0, 0.0, 1.0, 1.0},
       {kHalfRoot, kHalfRoot}},
      {"half circle, clockwise",
       CircularArc::Through({-1.0, 0.0}, {0.0, 1.0}, {1.0, 0.0}),
       esriGeometryCircularArc,
       pi,
       -pi / 2.0,
       {-1.0, 0.0, 1.0, 1.0},
       {0.0, 1.0}},
      {"three quarters",
       CircularArc::Through({2.0, 0.0}, {-2.0, 0.0}, {0.0, -2.0}),
       esriGeometryCircularArc,
       3.0 * pi,
       3.0 * pi + 2.0,
       {-2.0, -2.0, 2.0, 2.0},
       {-2.0 * kHalfRoot, 2.0 * kHalfRoot}},
      {"circle far from the origin",
       CircularArc::Circle({500000.0, 4000000.0}, 2.0, true),
       esriGeometryCircularArc,
       4.0 * pi,
       -4.0 * pi,
       {499998.0, 3999998.0, 500002.0, 4000002.0},
       {499998.0, 4000000.0}},
      {"no arc but a line",
       CircularArc::Through({0.0, 0.0}, {1.0, 1.0}, {3.0, 3.0}),
       esriGeometryCircularArc,
       std::sqrt(18.0),
       0.0,
       {0.0, 0.0, 3.0, 3.0},
       {1.5, 1.5}},
      {"ellipse",
       EllipticArc::Ellipse({0.0, 0.0}, 5.0, 3.0, 0.0, false),
       esriGeometryEllipticArc,
       EllipsePerimeter(5.0, 3.0),
       15.0 * pi,
       {-5.0, -3.0, 5.0, 3.0},
       {-5.0, 0.0}},
      {"ellipse turned by 30 degrees",
       EllipticArc::Ellipse({10.0, 20.0}, 5.0, 3.0, pi / 6.0, true),
       esriGeometryEllipticArc,
       EllipsePerimeter(5.0, 3.0),
       -15.0 * pi,
       {10.0 - half_width, 20.0 - half_height, 10.0 + half_width, 20.0 + half_height},
       {10.0 - 5.0 * std::cos(pi / 6.0), 20.0 - 2.5}},
      {"parabola",
       kParabola,
       esriGeometryBezier3Curve,
       std::sqrt(5.0) + std::asinh(2.0) / 2.0,
       4.0 / 3.0,
       {-1.0, 0.0, 1.0, 1.0},
       {0.0, 0.0}},
      {"straight cubic of uneven speed",
       BezierCurve{{0.0, 0.0}, {0.0, 0.0}, {6.0, 8.0}, {6.0, 8.0}},
       esriGeometryBezier3Curve,
       10.0,
       0.0,
       {0.0, 0.0, 6.0, 8.0},
       {3.0, 4.0}},
  };
  return rows;
}

TEST(Segments, LengthAreaEnvelopeAndMiddle) {
  for (const CurveRow& row : Curves()) {
    const Segment& segment = row.segment;
    EXPECT_EQ(segment.GeometryType(), row.type) << row.name;
    EXPECT_NEAR(segment.Length(), row.length, 1e-11 * row.length) << row.name;
    EXPECT_NEAR(segment.AreaBeyondChord(), row.area_beyond_chord, 1e-9) << row.name;
    ExpectAt(segment.QueryPoint(esriNoExtension, 0.5, true), row.middle, 1e-9, row.name);
    const Envelope box = segment.Envelope();
    ExpectAt({box.XMin(), box.YMin()}, {row.box.XMin(), row.box.YMin()}, 1e-9, row.name);
    ExpectAt({box.XMax(), box.YMax()}, {row.box.XMax(), row.box.YMax()}, 1e-9, row.name);
  }
}

// Quadrature that chases digits which the coordinates haven't got takes minutes where it should take microseconds.
TEST(Segments, NoCurveTakesNoticeableTime) {
  for (const CurveRow& row : Curves()) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_GE(row.segment.Length(), 0.0);
    (void)row.segment.AreaBeyondChord();
    (void)row.segment.MomentBeyondChord();
    (void)row.segment.QueryPoint(esriNoExtension, 0.3, true);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(500)) << row.name;
  }
}

TEST(Segments, DistancesAlongAreLengthsOfWhatWasPassed) {
  const Segment ellipse = EllipticArc::Ellipse({0.0, 0.0}, 5.0, 3.0, 0.0, false);
  ExpectAt(ellipse.QueryPoint(esriNoExtension, 0.25, true), {0.0, 3.0}, 1e-11, "quarter");
  ExpectAt(ellipse.QueryPoint(esriNoExtension, 0.75 * ellipse.Length(), false), {0.0, -3.0}, 1e-11, "three quarters");
  // The parabola from its vertex to x = 0.5 measures sqrt(2)/4 + asinh(1)/4.
  const double along = std::sqrt(5.0) / 2.0 + std::asinh(2.0) / 4.0 + std::sqrt(2.0) / 4.0 + std::asinh(1.0) / 4.0;
  ExpectAt(Segment(kParabola).QueryPoint(esriNoExtension, along, false), {0.5, 0.25}, 1e-11, "parabola");
}

TEST(Segments, BeyondTheEndsLiesTheEndOrTheTangent) {
  const Segment arc = CircularArc::Through({1.0, 0.0}, {kHalfRoot, kHalfRoot}, {0.0, 1.0});
  EXPECT_EQ(arc.QueryPoint(esriNoExtension, 99.0, false), (XY{0.0, 1.0}));
  EXPECT_EQ(arc.QueryPoint(esriNoExtension, -1.0, false), (XY{1.0, 0.0}));
  ExpectAt(arc.QueryPoint(esriExtendTangents, arc.Length() + 2.0, false), {-2.0, 1.0}, 1e-12, "after");
  ExpectAt(arc.QueryPoint(esriExtendTangents, -2.0, false), {1.0, -2.0}, 1e-12, "before");
  ExpectAt(Segment(Line{{0.0, 0.0}, {3.0, 4.0}}).QueryPoint(esriExtendTangents, 2.0, true), {6.0, 8.0}, 1e-12, "line");
  ExpectAt(Segment(kParabola).QueryPoint(esriExtendTangents, Segment(kParabola).Length() + std::sqrt(5.0), false),
           {2.0, 3.0}, 1e-11, "parabola");
}

// A cap of the parabola has its centre of gravity at 3/5 of its height, a half disc at 4 r / 3 pi.
TEST(Segments, MomentsAreAreaTimesCentre) {
  const XY cap = Segment(kParabola).MomentBeyondChord();
  ExpectAt(cap, {0.0, 4.0 / 3.0 * 0.6}, 1e-12, "parabola");
  const Segment half = CircularArc::Through({8.0, 5.0}, {10.0, 7.0}, {12.0, 5.0});
  const double area = -2.0 * pi;
  ExpectAt(half.MomentBeyondChord(), {area * 10.0, area * (5.0 + 8.0 / (3.0 * pi))}, 1e-10, "half disc");
}

TEST(Segments, TheSameCurveReversedMovedAndStretched) {
  for (const CurveRow& row : Curves()) {
    const Segment& segment = row.segment;
    const Segment reversed = segment.Reversed();
    EXPECT_EQ(reversed.FromPoint(), segment.ToPoint()) << row.name;
    EXPECT_NEAR(reversed.Length(), row.length, 1e-10) << row.name;
    EXPECT_NEAR(reversed.AreaBeyondChord(), -row.area_beyond_chord, 1e-9) << row.name;
    ExpectAt(reversed.QueryPoint(esriNoExtension, 0.3, true), segment.QueryPoint(esriNoExtension, 0.7, true), 1e-9,
             row.name);
    const XY at = segment.QueryPoint(esriNoExtension, 0.3, true);
    ExpectAt(segment.Moved(100.0, -50.0).QueryPoint(esriNoExtension, 0.3, true), {at.x + 100.0, at.y - 50.0}, 1e-8,
             row.name);
    if (segment.FromPoint() == segment.ToPoint()) continue;
    // Twice as large, and turned by a right angle.
    const XY from = segment.FromPoint(), to = segment.ToPoint();
    const Segment turned = segment.WithEnds({0.0, 0.0}, {-2.0 * (to.y - from.y), 2.0 * (to.x - from.x)});
    EXPECT_NEAR(turned.Length(), 2.0 * row.length, 1e-10) << row.name;
    EXPECT_NEAR(turned.AreaBeyondChord(), 4.0 * row.area_beyond_chord, 1e-9) << row.name;
    ExpectAt(turned.QueryPoint(esriNoExtension, 0.3, true), {-2.0 * (at.y - from.y), 2.0 * (at.x - from.x)}, 1e-10,
             row.name);
  }
}

TEST(Segments, APointIsACurveOfNoLength) {
  const Segment nothing = Line{{1.0, 2.0}, {1.0, 2.0}};
  EXPECT_EQ(nothing.Length(), 0.0);
  EXPECT_EQ(nothing.QueryPoint(esriExtendTangents, 5.0, false), (XY{1.0, 2.0}));
  EXPECT_EQ(CircularArc::Through({1.0, 2.0}, {1.0, 2.0}, {1.0, 2.0}).sweep, 0.0);
}

}  // namespace
}  // namespace tessarine
