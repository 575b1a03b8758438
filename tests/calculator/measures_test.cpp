// SPDX-License-Identifier: GPL-2.0-or-later
// The values of the measures. Geodesic lengths, azimuths, positions along a line and transverse Mercator coordinates
// were computed with GeographicLib 2.1 on WGS 84; spherical areas with its polygons on the sphere of 6371000.790009154
// m; spherical centroids from the sum of edge normals weighted by edge angles. Planar values are arithmetic by hand.
#include "calculator/measures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "calculator/geometry_options.h"
#include "helpers/shapes.h"

namespace tessarine {
namespace {

using namespace testing;
using enum SpatialKind;

constexpr double kMajor = 6378137.0, kMinor = 6356752.31424518;

SpatialReferenceRef Reference(SpatialKind kind) {
  if (kind == Unknown) return std::make_shared<UnknownCoordinateSystem>();
  return SpatialReferenceEnvironment::CreateFromText(kind == Projected ? "EPSG:32633" : "EPSG:4326");
}

double CentricOf(double graphic) {
  const double k = kMajor * kMajor / (kMinor * kMinor);
  return std::atan(std::tan(graphic * std::numbers::pi / 180.0) / k) * 180.0 / std::numbers::pi;
}

// One feature of a layer, ready to be measured.
class Feature {
 public:
  Feature(SpatialKind kind, const GeometryRef& shape, bool geocentric = false) {
    const SpatialReferenceRef reference = Reference(kind);
    shape->SetSpatialReference(reference);
    settings_ = {shape->GeometryType(), kind, reference, kMajor, kMinor, geocentric};
    record_ = BeginRecord(shape, settings_);
  }

  MeasuredValues operator()(std::int32_t option_id) {
    const MeasureRow* row = FindMeasure(settings_.shape, settings_.kind, option_id);
    return row != nullptr ? Measure(*row, *record_) : MeasuredValues();
  }
  MeasureRecord& Record() { return *record_; }
  [[nodiscard]] const SharedWork& Work() const { return record_->Work(); }

 private:
  MeasureSettings settings_;
  std::unique_ptr<MeasureRecord> record_;
};

GeometryRef GeographicLine() { return PolylineOf({{{10, 50}, {11, 51}, {13, 51.5}}, {{14, 51}, {14, 50}}}); }
GeometryRef ProjectedLine() {
  return PolylineOf({{{500000, 5540000}, {520000, 5560000}}, {{525000, 5560000}, {530000, 5550000}}});
}
// Its third vertex lies on the second, so that its middle is on a corner.
GeometryRef PlanarLine() { return PolylineOf({{{0, 0}, {3, 4}, {3, 4}}, {{10, 0}, {10, -5}}}); }
GeometryRef GeographicBox() { return PolygonOf({Box(10, 40, 11, 41), Box(10.4, 40.4, 10.6, 40.6, false)}); }
GeometryRef ProjectedBox() { return PolygonOf({Box(500000, 5540000, 510000, 5550000)}); }
// A square of side 4 with a hole of side 2 in its right half.
GeometryRef PlanarBox() { return PolygonOf({Box(0, 0, 4, 4), Box(2, 1, 4, 3, false)}); }
GeometryRef Points(std::vector<XY> points) { return std::make_shared<Multipoint>(std::move(points)); }

struct Expectation {
  const char* name;
  std::int32_t id;
  double first, second;  // the second is 0 for measures of one field
  double tolerance;      // in the unit of the value
};

void ExpectValues(Feature feature, std::initializer_list<Expectation> expectations) {
  for (const Expectation& expected : expectations) {
    SCOPED_TRACE(expected.name);
    const MeasuredValues values = feature(expected.id);
    EXPECT_NEAR(values.first.AsDouble(), expected.first, expected.tolerance);
    EXPECT_NEAR(values.second.AsDouble(), expected.second, expected.tolerance);
  }
}

TEST(PointMeasures, Values) {
  ExpectValues({Unknown, std::make_shared<Point>(3.5, -7)}, {{"coordinates", 1, 3.5, -7, 0}});
  ExpectValues(
      {Projected, std::make_shared<Point>(600000, 5500000)},
      {{"longitude and latitude", 2, 16.385168629965, 49.644256862426, 1e-9}, {"coordinates", 1, 600000, 5500000, 0}});
  // Written as stored, also from planetocentric data.
  ExpectValues({Geographic, std::make_shared<Point>(16, 49), true}, {{"as stored", 1, 16, 49, 0}});
}

TEST(MultipointMeasures, Values) {
  ExpectValues({Unknown, Points({{0, 0}, {3, 0}, {0, 6}})}, {{"mean", 1, 1, 2, 1e-15}, {"count", 2, 3, 0, 0}});
  ExpectValues({Unknown, Points({{5, 7}})}, {{"one point", 1, 5, 7, 0}});
  ExpectValues({Projected, Points({{400000, 5500000}, {600000, 5500000}, {500000, 5800000}})},
               {{"plain mean", 1, 500000, 5600000, 1e-9},
                {"on the spheroid", 2, 500000.0, 5599999.980860, 1e-4},
                {"count", 3, 3, 0, 0}});
  ExpectValues({Geographic, Points({{10, 50}, {12, 50}, {11, 52}})},
               {{"on the spheroid", 1, 11, 50.6696137614, 1e-8}, {"count", 2, 3, 0, 0}});
  const std::vector<XY> centric = {{10, CentricOf(50)}, {12, CentricOf(50)}, {11, CentricOf(52)}};
  ExpectValues({Geographic, Points(centric), true},
               {{"planetocentric", 1, 11, CentricOf(50.6696137614), 1e-8}, {"count", 2, 3, 0, 0}});
}

TEST(PolylineMeasures, PlanarValues) {
  ExpectValues({Unknown, PlanarLine()}, {{"length", 1, 10, 0, 1e-12},
                                         {"start", 2, 0, 0, 0},
                                         {"midpoint", 3, 3, 4, 1e-12},
                                         {"end", 4, 10, -5, 0},
                                         {"azimuth", 5, 116.56505117707799, 0, 1e-12},
                                         {"parts", 6, 2, 0, 0},
                                         {"vertices", 7, 5, 0, 0}});
}

TEST(PolylineMeasures, ProjectedValues) {
  // The plane's middle lies 19732.3 m along the first path, which has the direction (1, 1).
  ExpectValues({Projected, ProjectedLine()}, {{"planar length", 1, 39464.611134960855, 0, 1e-6},
                                              {"spheroidal length", 2, 39480.252737, 0, 1e-3},
                                              {"start", 3, 500000, 5540000, 0},
                                              {"planar midpoint", 4, 513952.847075, 5553952.847075, 1e-5},
                                              {"spheroidal midpoint", 5, 513952.816723, 5553952.793258, 1e-3},
                                              {"end", 6, 530000, 5550000, 0},
                                              {"planar azimuth", 7, 71.56505117707799, 0, 1e-10},
                                              {"start azimuth", 8, 71.565121576, 0, 1e-6},
                                              {"end azimuth", 9, 71.886735392, 0, 1e-6},
                                              {"parts", 10, 2, 0, 0},
                                              {"vertices", 11, 4, 0, 0}});
}

TEST(PolylineMeasures, GeographicValues) {
  ExpectValues({Geographic, GeographicLine()}, {{"length", 1, 393479.684632, 0, 1e-3},
                                                {"start", 2, 10, 50, 0},
                                                {"midpoint", 3, 11.8569746240, 51.2197662001, 1e-8},
                                                {"end", 4, 14, 50, 0},
                                                {"start azimuth", 5, 88.467653277, 0, 1e-7},
                                                {"end azimuth", 6, 91.532346723, 0, 1e-7},
                                                {"parts", 7, 2, 0, 0},
                                                {"vertices", 8, 5, 0, 0}});
  // The stored latitudes are planetocentric: the line on the globe is the same, and the midpoint comes back in stored
  // latitudes. The ends are converted once more than they should be.
  const auto centric = PolylineOf(
      {{{10, CentricOf(50)}, {11, CentricOf(51)}, {13, CentricOf(51.5)}}, {{14, CentricOf(51)}, {14, CentricOf(50)}}});
  ExpectValues({Geographic, centric, true}, {{"start", 2, 10, CentricOf(CentricOf(50)), 1e-9},
                                             {"length", 1, 393479.684632, 0, 1e-3},
                                             {"midpoint", 3, 11.8569746240, CentricOf(51.2197662001), 1e-8},
                                             {"end", 4, 14, CentricOf(CentricOf(50)), 1e-9},
                                             {"start azimuth", 5, 88.467653277, 0, 1e-7},
                                             {"end azimuth", 6, 91.532346723, 0, 1e-7}});
}

TEST(PolylineMeasures, LinesWithoutAzimuth) {
  const auto closed = [](double x, double y, double size) { return PolylineOf({Box(x, y, x + size, y + size)}); };
  EXPECT_EQ(Feature(Unknown, closed(0, 0, 1))(5).first, Variant(-9999.0));
  Feature projected(Projected, closed(500000, 5540000, 1000));
  for (const std::int32_t id : {7, 8, 9}) EXPECT_EQ(projected(id).first, Variant(-9999.0)) << id;
  EXPECT_EQ(projected.Work().azimuth_solutions, 0);
  EXPECT_NEAR(projected(2).first.AsDouble(), 4000 / 0.9996, 0.1);

  // A projected line of two coincident points has neither length nor azimuth, and the run goes on.
  Feature nothing(Projected, PolylineOf({{{500000, 5540000}, {500000, 5540000}}}));
  EXPECT_EQ(nothing(2).first, Variant(0.0));
  EXPECT_EQ(nothing(8).first, Variant(-9999.0));
}

TEST(PolygonMeasures, Values) {
  // Centroid: (16 * 2 - 4 * 3) / 12 across, by symmetry 2 upwards.
  ExpectValues({Unknown, PlanarBox()}, {{"area", 1, 12, 0, 1e-12},
                                        {"centroid", 2, 20.0 / 12.0, 2, 1e-12},
                                        {"perimeter", 3, 24, 0, 1e-12},
                                        {"parts", 4, 1, 0, 0},
                                        {"vertices", 5, 10, 0, 0}});
  ExpectValues({Projected, ProjectedBox()}, {{"planar area", 1, 1e8, 0, 1e-3},
                                             {"spherical area", 2, 99739532.446, 0, 1.0},
                                             {"planar centroid", 3, 505000, 5545000, 1e-5},
                                             {"spherical centroid", 4, 504999.999000, 5544999.969728, 1e-2},
                                             {"planar perimeter", 5, 40000, 0, 1e-6},
                                             {"spheroidal perimeter", 6, 40015.985917, 0, 1e-3},
                                             {"parts", 7, 1, 0, 0},
                                             {"vertices", 8, 5, 0, 0}});
  // The hole counts in the perimeter and the vertices, not among the parts.
  ExpectValues({Geographic, GeographicBox()}, {{"spherical area", 1, 9401716063.372 - 376075656.447, 0, 10.0},
                                               {"perimeter", 3, 391616.656366 + 78324.748823, 0, 1e-3},
                                               {"parts", 4, 1, 0, 0},
                                               {"vertices", 5, 10, 0, 0}});
  ExpectValues({Geographic, PolygonOf({Box(10, 40, 11, 41)})}, {{"centroid", 2, 10.5, 40.4998350419, 1e-5}});
}

TEST(PolygonMeasures, PlanetocentricLatitudes) {
  const auto centric = PolygonOf({Box(10, CentricOf(40), 11, CentricOf(41))});
  ExpectValues({Geographic, centric, true}, {{"spherical area", 1, 9401716063.372, 0, 1e3},
                                             {"centroid", 2, 10.5, CentricOf(40.4998350419), 1e-5},
                                             {"perimeter", 3, 391616.656366, 0, 1e-2}});
}

TEST(PolygonMeasures, RingsThatRunTheWrongWay) {
  for (const bool geocentric : {false, true}) {
    Feature feature(Geographic, PolygonOf({Box(10, 40, 11, 41, false)}), geocentric);
    EXPECT_LT(feature(1).first.AsDouble(), -9.3e9);
    const MeasuredValues centroid = feature(2);
    EXPECT_EQ(centroid.first, Variant(-9999.0));
    EXPECT_EQ(centroid.second, Variant(-9999.0));
    EXPECT_EQ(feature.Work().area_passes, 1);
  }
}

TEST(Measures, CountsAreWholeAndTheRestReal) {
  const std::pair<SpatialKind, GeometryRef> features[] = {
      {Unknown, std::make_shared<Point>(1, 2)},
      {Projected, std::make_shared<Point>(600000, 5500000)},
      {Geographic, std::make_shared<Point>(1, 2)},
      {Unknown, Points({{1, 2}})},
      {Projected, Points({{600000, 5500000}})},
      {Geographic, Points({{1, 2}})},
      {Unknown, PlanarLine()},
      {Projected, ProjectedLine()},
      {Geographic, GeographicLine()},
      {Unknown, PlanarBox()},
      {Projected, ProjectedBox()},
      {Geographic, GeographicBox()},
  };
  for (const auto& [kind, shape] : features) {
    const esriGeometryType type = shape->GeometryType();
    Feature feature(kind, shape);
    for (const MeasureRow& row : MeasuresOf(type, kind)) {
      SCOPED_TRACE(row.caption);
      const MeasuredValues values = feature(row.option_id);
      const bool count = row.measure.kind == MeasuredKind::Count;
      EXPECT_EQ(values.first.kind(), count ? Variant::Kind::Long : Variant::Kind::Double);
      EXPECT_EQ(values.second.kind(), row.FieldCount() == 2 ? Variant::Kind::Double : Variant::Kind::Empty);
    }
  }
}

// All measures of a feature, each asked for once, and how often the work after them was done.
TEST(Measures, SharedWorkIsDoneOnce) {
  const GeometryRef west = PolygonOf({Box(-11, 40, -10, 41)});
  const struct {
    const char* name;
    SpatialKind kind;
    GeometryRef shape;
    bool geocentric;
    SharedWork work;  // projections, latitude conversions, midpoint passes, azimuth solutions, area passes
  } rows[] = {
      {"projected line", Projected, ProjectedLine(), false, {1, 0, 1, 1, 0}},
      {"geographic line", Geographic, GeographicLine(), false, {0, 0, 1, 1, 0}},
      {"planetocentric line", Geographic, GeographicLine(), true, {0, 1, 1, 1, 0}},
      {"line to the north, azimuths 0", Geographic, PolylineOf({{{10, 40}, {10, 50}}}), false, {0, 0, 1, 1, 0}},
      {"planar line", Unknown, PlanarLine(), true, {0, 0, 0, 0, 0}},
      {"polygon in the north-east", Geographic, GeographicBox(), false, {0, 0, 0, 0, 1}},
      {"polygon in the west", Geographic, west, false, {0, 0, 0, 0, 1}},
      {"projected polygon", Projected, ProjectedBox(), false, {1, 0, 0, 0, 1}},
      {"planetocentric multipoint", Geographic, Points({{1, 2}, {3, 4}}), true, {0, 1, 0, 0, 0}},
      {"projected multipoint", Projected, Points({{500000, 5540000}}), false, {1, 0, 0, 0, 0}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Feature feature(row.kind, row.shape, row.geocentric);
    for (std::int32_t id = 1; id <= kOptionCount; ++id) static_cast<void>(feature(id));
    EXPECT_EQ(feature.Work().projections, row.work.projections);
    EXPECT_EQ(feature.Work().latitude_conversions, row.work.latitude_conversions);
    EXPECT_EQ(feature.Work().midpoint_passes, row.work.midpoint_passes);
    EXPECT_EQ(feature.Work().azimuth_solutions, row.work.azimuth_solutions);
    EXPECT_EQ(feature.Work().area_passes, row.work.area_passes);
  }
}

TEST(Measures, FaultsReachTheRun) {
  MeasureSettings settings{esriGeometryPolygon, Geographic, Reference(Geographic), kMajor, kMinor, false};
  EXPECT_EQ(FaultOf([&] { static_cast<void>(BeginRecord(std::make_shared<Point>(1, 2), settings)); }), kTypeMismatch);
  settings.shape = esriGeometryBag;
  EXPECT_EQ(FaultOf([&] { static_cast<void>(BeginRecord(std::make_shared<GeometryBag>(), settings)); }), kTypeMismatch);

  Feature point(Geographic, std::make_shared<Point>(1, 2));
  const MeasureRow& foreign = *FindMeasure(esriGeometryPolygon, Geographic, 1);
  EXPECT_EQ(FaultOf([&] { static_cast<void>(Measure(foreign, point.Record())); }), kInvalidCall);
  // No place on Earth, so no longitude and latitude.
  Feature nowhere(Projected, std::make_shared<Point>(1e30, 1e30));
  EXPECT_EQ(FaultOf([&] { static_cast<void>(nowhere(2)); }), kEngine);
}

}  // namespace
}  // namespace tessarine
