// SPDX-License-Identifier: GPL-2.0-or-later
// What a measure gives doesn't depend on its company, and one bad part or vertex spoils nothing else.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "calculator/geometry_options.h"
#include "calculator/measures.h"
#include "helpers/shapes.h"
#include "shapes/geographic_shape.h"
#include "tests/shapes/fault_log.h"

namespace tessarine {
namespace {

using namespace testing;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using enum SpatialKind;

constexpr double kMajor = 6378137.0, kMinor = 6356752.31424518;

SpatialReferenceRef Reference(SpatialKind kind) {
  if (kind == Unknown) return std::make_shared<UnknownCoordinateSystem>();
  return SpatialReferenceEnvironment::CreateFromText(kind == Projected ? "EPSG:32633" : "EPSG:4326");
}

class Feature {
 public:
  Feature(SpatialKind kind, const IGeometry& shape, double minor = kMinor) {
    const GeometryRef copy = CloneOf(shape);
    copy->SetSpatialReference(Reference(kind));
    settings_ = {copy->GeometryType(), kind, Reference(kind), kMajor, minor, false};
    record_ = BeginRecord(copy, settings_);
  }
  MeasuredValues operator()(std::int32_t id) {
    return Measure(*FindMeasure(settings_.shape, settings_.kind, id), *record_);
  }
  [[nodiscard]] const std::vector<MeasureWarning>& Warnings() const { return record_->Warnings(); }

 private:
  MeasureSettings settings_;
  std::unique_ptr<MeasureRecord> record_;
};

// Off every grid, with vertices a hair apart, a hole, and a second part.
GeometryRef AwkwardPolygon(double x, double y, double size) {
  std::vector<XY> ring;
  for (int step = 0; step < 40; ++step) {
    const double angle = -step * 0.15707963267948966, reach = size * (1.0 + 0.3 * std::sin(5.0 * angle));
    ring.push_back({x + reach * std::cos(angle), y + reach * std::sin(angle)});
    if (step % 7 == 0) ring.push_back({ring.back().x + size * 3e-11, ring.back().y + size * 2e-11});
  }
  ring.push_back(ring.front());
  return PolygonOf({ring, Box(x - size / 7, y - size / 7, x + size / 9, y + size / 9, false),
                    Box(x + 3 * size, y, x + 4.1 * size, y + size)});
}

TEST(Independence, EveryMeasureAloneAndInCompany) {
  const struct {
    const char* name;
    SpatialKind kind;
    GeometryRef shape;
  } rows[] = {
      {"polygon in the west", Geographic, AwkwardPolygon(-70.123456789, -12.3456789, 0.7)},
      {"polygon in the east", Geographic, AwkwardPolygon(70.123456789, 12.3456789, 0.7)},
      {"projected polygon", Projected, AwkwardPolygon(512345.678, 5543210.987, 7000)},
      {"planar polygon", Unknown, AwkwardPolygon(1.1, 2.2, 3.3)},
      {"line", Geographic, PolylineOf({{{10.1, 50.2}, {11.3, 51.4}, {13.5, 51.6}}, {{14.7, 51.8}, {14.9, 50.1}}})},
      {"projected line", Projected, PolylineOf({{{500000.1, 5540000.2}, {520000.3, 5560000.4}, {530000, 5550000}}})},
      {"points", Geographic, std::make_shared<Multipoint>(std::vector<XY>{{1.1, 2.2}, {3.3, 4.4}})},
      {"projected points", Projected,
       std::make_shared<Multipoint>(std::vector<XY>{{400000.1, 5500000}, {600000, 5500000.7}})},
      {"projected point", Projected, std::make_shared<Point>(600000.1, 5500000.7)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto measures = MeasuresOf(row.shape->GeometryType(), row.kind);
    Feature forward(row.kind, *row.shape), backward(row.kind, *row.shape);
    std::vector<MeasuredValues> in_order, reversed(measures.size());
    for (const MeasureRow& measure : measures) in_order.push_back(forward(measure.option_id));
    for (std::size_t at = measures.size(); at-- > 0;) reversed[at] = backward(measures[at].option_id);
    for (std::size_t at = 0; at < measures.size(); ++at) {
      SCOPED_TRACE(measures[at].caption);
      const MeasuredValues alone = Feature(row.kind, *row.shape)(measures[at].option_id);
      EXPECT_EQ(in_order[at].first, alone.first);
      EXPECT_EQ(in_order[at].second, alone.second);
      EXPECT_EQ(reversed[at].first, alone.first);
      EXPECT_EQ(reversed[at].second, alone.second);
    }
  }
}

// A part that bounds nothing, beside one that does.
TEST(DegenerateParts, TheOthersAreMeasured) {
  const std::vector<XY> square = Box(10, 40, 11, 41);
  const struct {
    const char* name;
    std::vector<XY> part;
  } rows[] = {
      {"there and back", {{20, 40}, {21, 41}, {20, 40}}},
      {"along three places", {{20, 40}, {21, 40}, {22, 40}, {20, 40}}},
      {"one place", {{20, 40}, {20, 40}, {20, 40}, {20, 40}}},
  };
  const FaultLog log;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    for (const bool first : {true, false}) {
      const auto both = first ? PolygonOf({row.part, square}) : PolygonOf({square, row.part});
      Feature feature(Geographic, *both), alone(Geographic, *PolygonOf({square}));
      for (const std::int32_t id : {1, 3, 6}) {
        EXPECT_NEAR(feature(id).first.AsDouble(), alone(id).first.AsDouble(), 1e-3) << id;
      }
      EXPECT_NEAR(feature(2).first.AsDouble(), alone(2).first.AsDouble(), 1e-9);
    }
    // Alone it has no area, and no centre on the globe.
    Feature nothing(Geographic, *PolygonOf({row.part}));
    EXPECT_EQ(nothing(1).first, Variant(0.0));
    EXPECT_EQ(nothing(2).first, Variant(-9999.0));
    EXPECT_EQ(nothing(6).first, Variant(0.0));
  }
  EXPECT_THAT(log.Reports(), IsEmpty());
}

// As GEOS has it: of the lines, or of the places where these have no length.
// Each exterior ring is measured with its own holes: parts that overlap, or lie in each other, count twice.
TEST(OverlappingParts, CountEachByItself) {
  const std::vector<XY> box = Box(0, 0, 10, 10), inner = Box(2, 2, 8, 8);
  const auto area_of = [](const std::vector<std::vector<XY>>& parts) {
    return Feature(Geographic, *PolygonOf(parts))(6).first.AsDouble();
  };
  EXPECT_NEAR(area_of({box, box}), 2 * area_of({box}), 1.0);
  EXPECT_NEAR(area_of({box, inner}), area_of({box}) + area_of({inner}), 1.0);
  // By GeographicLib's Planimeter.
  EXPECT_NEAR(area_of({box}), 1227877191.6 * 1e3, 1e6);
}

TEST(DegenerateParts, APlanarCentroidWithoutArea) {
  const struct {
    const char* name;
    std::vector<std::vector<XY>> rings;
    XY centroid;
  } rows[] = {
      {"there and back", {{{0, 0}, {4, 2}, {0, 0}}}, {2, 1}},
      {"along a line", {{{0, 0}, {1, 0}, {4, 0}, {0, 0}}}, {2, 0}},
      {"two lines, by length", {{{0, 0}, {2, 0}, {0, 0}}, {{10, 0}, {10, 6}, {10, 0}}}, {7.75, 2.25}},
      {"one place", {{{3, 5}, {3, 5}, {3, 5}, {3, 5}}}, {3, 5}},
      {"with an area beside it", {{{100, 100}, {200, 100}, {100, 100}}, Box(0, 0, 2, 2)}, {1, 1}},
  };
  for (const auto& row : rows) {
    const MeasuredValues values = Feature(Unknown, *PolygonOf(row.rings))(2);
    EXPECT_NEAR(values.first.AsDouble(), row.centroid.x, 1e-12) << row.name;
    EXPECT_NEAR(values.second.AsDouble(), row.centroid.y, 1e-12) << row.name;
  }
}

TEST(BadCoordinates, NothingIsMeasured) {
  const double bad[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()};
  for (const double value : bad) {
    auto ring = Box(10, 10, 12, 12);
    ring[2].y = value;
    EXPECT_EQ(FaultOf([&] { Feature(Geographic, *PolygonOf({ring})); }), kInvalidCall);
    EXPECT_EQ(FaultOf([&] { Feature(Unknown, *PolylineOf({{{0, 0}, {value, 1}}})); }), kInvalidCall);
    EXPECT_EQ(FaultOf([&] { Feature(Unknown, Multipoint({{0, 0}, {value, 1}})); }), kInvalidCall);
    EXPECT_EQ(FaultOf([&] { Feature(Projected, Point(value, 1)); }), kInvalidCall);
  }
}

TEST(LinesWithoutLength, HaveTheirPlaceForMidpoint) {
  const auto line = PolylineOf({{{12, 45}, {12, 45}, {12, 45}}});
  const MeasuredValues geographic = Feature(Geographic, *line)(3);
  EXPECT_EQ(geographic.first, Variant(12.0));
  EXPECT_EQ(geographic.second, Variant(45.0));
  const MeasuredValues projected = Feature(Projected, *PolylineOf({{{450000, 5000000}, {450000, 5000000}}}))(5);
  EXPECT_NEAR(projected.first.AsDouble(), 450000.0, 1e-6);
  EXPECT_NEAR(projected.second.AsDouble(), 5000000.0, 1e-6);
}

// Torn, the hole lies around its shell on the plane.
TEST(TornRings, KeepTheirHoles) {
  const auto over_the_edge = [](std::vector<XY> ring) {
    for (XY& vertex : ring) vertex.x -= vertex.x > 180.0 ? 360.0 : 0.0;
    return ring;
  };
  const auto shell = Box(170, -10, 190, 10), hole = Box(175, -5, 185, 5, false);
  const auto torn = PolygonOf({over_the_edge(shell), over_the_edge(hole)});
  for (const auto& part : torn->Parts()) part->ReverseOrientation();  // as readers turn them
  const auto whole = PolygonOf({shell, hole});
  // Some drivers take the hole for a part of its own.
  const auto parts = CloneOf(*torn);
  parts->Parts()[1]->ReverseOrientation();
  for (const std::int32_t id : {3, 6}) {
    const double expected = Feature(Geographic, *whole)(id).first.AsDouble();
    EXPECT_NEAR(Feature(Geographic, *torn)(id).first.AsDouble() / expected, 1.0, 1e-12) << id;
    EXPECT_NEAR(Feature(Geographic, *parts)(id).first.AsDouble() / expected, 1.0, 1e-12) << id;
  }
  // A belt beside it, which is two rings in one.
  std::vector<XY> lower, upper;
  for (int corner = 0; corner <= 4; ++corner) {
    lower.push_back({-135.0 + 90.0 * (corner % 4), 60.0 + corner % 2});
    upper.push_back({-100.0 + 90.0 * (corner % 4), 75.0 + corner % 2});
  }
  const auto belt = PolygonOf({lower, upper}), both = CloneOf(*belt);
  for (const auto& part : torn->Parts()) both->AddGeometry(part);
  EXPECT_NEAR(Feature(Geographic, *both)(6).first.AsDouble(),
              Feature(Geographic, *belt)(6).first.AsDouble() + Feature(Geographic, *whole)(6).first.AsDouble(), 1.0);
}

// The ends of a segment one turn apart, on a line that is the same without the turn.
TEST(WholeTurns, LengthsAndAzimuths) {
  const double expected = Feature(Geographic, *PolylineOf({{{180, 0}, {180, 10}}}))(1).first.AsDouble();
  EXPECT_NEAR(expected, 1105854.83, 0.01);
  for (const double turns : {-720.0, -360.0, 360.0, 720.0}) {
    Feature feature(Geographic, *PolylineOf({{{-180, 0}, {-180 + turns, 10}}}));
    EXPECT_NEAR(feature(1).first.AsDouble(), expected, 1e-6) << turns;
    EXPECT_NEAR(feature(3).second.AsDouble(), 5.0, 0.001) << turns;
    EXPECT_NEAR(std::remainder(feature(5).first.AsDouble(), 360.0), 0.0, 1e-9) << turns;
  }
  Feature closed(Geographic, *PolylineOf({{{-180, 0}, {0, 40}, {180, 0}}}));
  EXPECT_EQ(closed(5).first, Variant(-9999.0));
  EXPECT_NEAR(Feature(Geographic, *PolylineOf({{{-180, 5}, {180, 5}}}))(1).first.AsDouble(), 0.0, 1e-6);
}

TEST(Warnings, NameWhatAValueCantMean) {
  using enum MeasureWarning;
  const auto bow = PolygonOf({{{0, 0}, {2, 2}, {2, 0}, {0, 3}, {0, 0}}});
  const auto antipodal = PolylineOf({{{0, 0}, {179.7, 0.3}}});
  const struct {
    const char* name;
    GeometryRef shape;
    double minor;
    std::int32_t id;
    std::vector<MeasureWarning> warnings;
  } rows[] = {
      {"plain", PolygonOf({Box(10, 40, 11, 41)}), kMinor, 1, {}},
      {"wide", PolygonOf({Box(-100, 40, 100, 41)}), kMinor, 1, {WideRing}},
      {"wide, but its perimeter is asked for", PolygonOf({Box(-100, 40, 100, 41)}), kMinor, 3, {TornRing}},
      {"bow", bow, kMinor, 3, {OneLobe}},
      {"bow by its area", bow, kMinor, 1, {SignedLobes}},
      {"bow by its true area", bow, kMinor, 6, {}},
      {"a bow of equal lobes", PolygonOf({{{0, 0}, {1, 1}, {1, 0}, {0, 1}, {0, 0}}}), kMinor, 1, {SignedLobes}},
      {"a jump over the edge", PolygonOf({Box(-170, 0, 170, 1)}), kMinor, 6, {TornRing}},
      {"wide, but without a jump", PolygonOf({{{-170, 0}, {0, 10}, {170, 0}, {0, -10}, {-170, 0}}}), kMinor, 6, {}},
      {"the globe by its true area", PolygonOf({Box(-180, -90, 180, 90)}), kMinor, 6, {}},
      {"a ring without area", PolygonOf({{{0, 0}, {1, 1}, {2, 2}, {0, 0}}}), kMinor, 2, {NoCentroid}},
      {"the globe", PolygonOf({Box(-180, -90, 180, 90)}), kMinor, 2, {WideRing, NoCentroid}},
      {"Saturn", PolygonOf({Box(10, 40, 11, 41)}), kMajor * 0.902, 1, {FlattenedSphere}},
      {"its perimeter", PolygonOf({Box(10, 40, 11, 41)}), kMajor * 0.902, 3, {RoughSeries}},
      {"Saturn's true area", PolygonOf({Box(10, 40, 11, 41)}), kMajor * 0.902, 6, {}},
      {"a line on Saturn", PolylineOf({{{0, 0}, {10, 10}}}), kMajor * 0.902, 1, {RoughSeries}},
      {"its azimuth", PolylineOf({{{0, 0}, {10, 10}}}), kMajor * 0.902, 5, {RoughSeries}},
      {"a line on a body longer than wide", PolylineOf({{{0, 0}, {10, 10}}}), kMajor * 1.1, 1, {RoughSeries}},
      {"antipodal length", antipodal, kMinor, 1, {NotConverged}},
      {"antipodal azimuth", antipodal, kMinor, 6, {NotConverged}},
      {"antipodal count", antipodal, kMinor, 8, {}},
      {"a line beyond the pole", PolylineOf({{{0, 80}, {0, 100}}}), kMinor, 1, {BeyondPole}},
      {"its azimuth", PolylineOf({{{0, 80}, {0, 100}}}), kMinor, 6, {BeyondPole}},
      {"its vertices", PolylineOf({{{0, 80}, {0, 100}}}), kMinor, 8, {}},
      {"a polygon beyond the pole", PolygonOf({Box(0, 80, 10, 91)}), kMinor, 3, {BeyondPole}},
      {"its spherical area", PolygonOf({Box(0, 80, 10, 91)}), kMinor, 1, {BeyondPole}},
      {"up to the pole", PolylineOf({{{0, 80}, {0, 90}}}), kMinor, 1, {}},
      {"far, but not antipodal", PolylineOf({{{0, 0}, {170, 10}}}), kMinor, 1, {}},
  };
  for (const auto& row : rows) {
    Feature feature(Geographic, *row.shape, row.minor);
    static_cast<void>(feature(row.id));
    EXPECT_EQ(feature.Warnings(), row.warnings) << row.name;
    for (const MeasureWarning warning : row.warnings) EXPECT_FALSE(WarningText(warning).empty());
  }
}

TEST(Warnings, NamePlacesFarFromWhereAProjectionIsMadeFor) {
  const struct {
    const char* name;
    const char* projection;
    XY from, to;
    bool far;
  } rows[] = {
      {"in New Zealand", "EPSG:2193", {174, -40}, {175, -41}, false},
      {"over 180 degrees from there", "EPSG:2193", {-165, -40}, {-164, -41}, false},
      {"in Chile", "EPSG:2193", {-72, -40}, {-71, -41}, true},
      {"in the zone", "EPSG:32633", {15, 50}, {16, 51}, false},
      {"two zones beside it", "EPSG:32633", {27, 50}, {28, 51}, false},
      {"half round the pole", "EPSG:32633", {100, 83}, {101, 84}, false},
      {"a quarter round the equator", "EPSG:32633", {85, 5}, {86, 6}, true},
      {"the other hemisphere", "EPSG:3031", {0, 10}, {1, 11}, false},
      {"anywhere in the world", "ESRI:54030", {170, -60}, {171, -61}, false},
  };
  for (const auto& row : rows) {
    const SpatialReferenceRef reference = SpatialReferenceEnvironment::CreateFromText(row.projection);
    const auto line = PolylineOf({{MyGeometricOperations::FromDegrees(row.from, reference),
                                   MyGeometricOperations::FromDegrees(row.to, reference)}});
    line->SetSpatialReference(reference);
    MeasureSettings settings{esriGeometryPolyline,   Projected, reference, kMajor, kMinor, false,
                             AreaOfUseOf(*reference)};
    const auto record = BeginRecord(line, settings);
    static_cast<void>(Measure(*FindMeasure(settings.shape, settings.kind, 2), *record));
    EXPECT_EQ(!record->Warnings().empty(), row.far) << row.name;
    if (row.far) {
      EXPECT_THAT(record->Warnings(), ElementsAre(MeasureWarning::FarFromArea)) << row.name;
    }
  }
}

// On the plane too, where a projected layer measures all lobes on the globe.
TEST(Warnings, NameRingsOfThePlane) {
  using enum MeasureWarning;
  const auto bow = PolygonOf({{{0, 0}, {2000, 2000}, {2000, 0}, {0, 3000}, {0, 0}}});
  const auto box = PolygonOf({Box(0, 0, 2000, 2000)});
  const struct {
    const char* name;
    SpatialKind kind;
    GeometryRef shape;
    std::int32_t id;
    std::vector<MeasureWarning> warnings;
  } rows[] = {
      {"box", Unknown, box, 1, {}},
      {"bow", Unknown, bow, 1, {PlanarLobes}},
      {"its centroid", Unknown, bow, 2, {PlanarLobes}},
      {"its perimeter", Unknown, bow, 3, {}},
      {"box on a map", Projected, box, 1, {}},
      {"bow on a map", Projected, bow, 1, {PlanarLobes}},
      {"its planimetric centroid", Projected, bow, 3, {PlanarLobes}},
      {"its spherical area", Projected, bow, 2, {}},
  };
  for (const auto& row : rows) {
    Feature feature(row.kind, *row.shape);
    static_cast<void>(feature(row.id));
    EXPECT_EQ(feature.Warnings(), row.warnings) << row.name;
  }
  const auto torn = PolygonOf({Box(-170, 0, 170, 1)});
  torn->SetSpatialReference(Reference(Geographic));
  torn->Project(SpatialReferenceEnvironment::CreateFromText("EPSG:3857"));
  MeasureSettings settings{esriGeometryPolygon, Projected, torn->SpatialReference(), kMajor, kMinor, false};
  for (const std::int32_t id : {2, 4, 6, 9}) {
    const auto record = BeginRecord(CloneOf(*torn), settings);
    static_cast<void>(Measure(*FindMeasure(settings.shape, settings.kind, id), *record));
    EXPECT_THAT(record->Warnings(), ElementsAre(TornRing)) << id;
  }
}

}  // namespace
}  // namespace tessarine
