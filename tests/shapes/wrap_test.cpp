// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/wrap.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/helpers/test_host.h"
#include "tests/shapes/fault_log.h"

namespace tessarine::MyGeometricOperations {
namespace {

using tessarine::testing::FaultLog;
using tessarine::testing::TestHost;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

template <class Shape>
std::shared_ptr<Shape> Of(std::vector<XY> vertices) {
  auto shape = std::make_shared<Shape>();
  for (const XY vertex : vertices) shape->AddPoint(vertex);
  return shape;
}

GeometryRef Wrap180(const GeometryRef& shape) { return WrapToBoundary(shape, -180, 180, -90, 90, nullptr); }

std::vector<std::pair<double, double>> RangesOfX(const Polyline& line) {
  std::vector<std::pair<double, double>> ranges;
  for (const auto& part : line.Parts()) ranges.emplace_back(part->Envelope().XMin(), part->Envelope().XMax());
  return ranges;
}

TEST(Wrap, Points) {
  struct Row {
    XY from, to;
  };
  const Row rows[] = {{{190, 10}, {-170, 10}}, {{180, 0}, {180, 0}},    {{-180, 0}, {-180, 0}}, {{540, 0}, {180, 0}},
                      {{-540, 0}, {-180, 0}},  {{0, 95}, {0, -85}},     {{0, 90}, {0, 90}},     {{0, -90}, {0, -90}},
                      {{725, -271}, {5, 89}},  {{179.5, 1}, {179.5, 1}}};
  for (const Row& row : rows) {
    const auto point = std::make_shared<Point>(row.from);
    const auto wrapped = Cast<Point>(Wrap180(point));
    ASSERT_NE(wrapped, nullptr);
    EXPECT_EQ(wrapped->Coordinates(), row.to) << row.from.x << " " << row.from.y;
    EXPECT_NE(wrapped, point);
    EXPECT_EQ(geodesy::WrappedInto({}, row.from), row.to);
  }
  EXPECT_EQ(geodesy::WrappedInto({0, 90, 360, -90}, {-10, 0}), (XY{350, 0}));
  EXPECT_TRUE(Wrap180(std::make_shared<Point>())->IsEmpty());
}

TEST(Wrap, LinesAreCutIntoPartsOfOneRecord) {
  const FaultLog log;
  const auto line = Of<Polyline>({{170, 10}, {190, 20}});
  const auto wrapped = Cast<Polyline>(Wrap180(line));
  ASSERT_NE(wrapped, nullptr);
  EXPECT_THAT(RangesOfX(*wrapped), UnorderedElementsAre(std::pair(170.0, 180.0), std::pair(-180.0, -170.0)));
  EXPECT_EQ(line->PointCount(), 2);
  EXPECT_NEAR(wrapped->Length(), line->Length(), 1e-12);

  // Three boxes to the west, and the home box last.
  const auto far = Cast<Polyline>(Wrap180(Of<Polyline>({{-600, 5}, {-500, 5}})));
  EXPECT_THAT(RangesOfX(*far), UnorderedElementsAre(std::pair(120.0, 180.0), std::pair(-180.0, -140.0)));
  const auto east = Cast<Polyline>(WrapToBoundary(Of<Polyline>({{-20, 5}, {30, 5}}), 0, 360, -90, 90, nullptr));
  EXPECT_THAT(RangesOfX(*east), UnorderedElementsAre(std::pair(340.0, 360.0), std::pair(0.0, 30.0)));
  const auto inside = Cast<Polyline>(Wrap180(Of<Polyline>({{1, 2}, {3, 4}, {5, 1}})));
  EXPECT_EQ(inside->PointCount(), 3);
  // Exactly on the western edge there is no tile to find, on the eastern one there is.
  EXPECT_TRUE(Wrap180(Of<Polyline>({{-180, 0}, {-180, 10}}))->IsEmpty());
  EXPECT_NEAR(Cast<Polyline>(Wrap180(Of<Polyline>({{180, 0}, {180, 10}})))->Length(), 10.0, 1e-12);
  EXPECT_TRUE(Wrap180(std::make_shared<Polyline>())->IsEmpty());
  EXPECT_THAT(log.Reports(), IsEmpty());
}

TEST(Wrap, PolygonsGetVerticesAlongTheCut) {
  const auto wrapped = Cast<Polygon>(Wrap180(Of<Polygon>({{170, 0}, {170, 10}, {190, 10}, {190, 0}, {170, 0}})));
  ASSERT_NE(wrapped, nullptr);
  EXPECT_NEAR(wrapped->Area(), 200.0, 1e-9);
  EXPECT_EQ(wrapped->GeometryCount(), 2);
  int on_east = 0, on_west = 0;
  double longest = 0.0;
  for (int index = 0; index < wrapped->SegmentCount(); ++index) {
    const Segment segment = wrapped->Segment(index);
    const XY from = segment.FromPoint(), to = segment.ToPoint();
    if (std::fabs(from.x) != 180.0 || from.x != to.x) continue;
    (from.x > 0 ? on_east : on_west) += 1;
    longest = std::max(longest, segment.Length());
  }
  EXPECT_EQ(on_east, 100);
  EXPECT_EQ(on_west, 100);
  EXPECT_NEAR(longest, 0.1, 1e-9);
}

TEST(Wrap, MultipointsInCornersOfTheSheet) {
  const auto wrapped = Cast<Multipoint>(Wrap180(Of<Multipoint>({{0, 0}, {190, 95}, {-190, -95}, {360, 0}})));
  ASSERT_NE(wrapped, nullptr);
  const std::vector<XY> places(wrapped->Vertices().begin(), wrapped->Vertices().end());
  // The fourth comes to lie on the first and counts once.
  EXPECT_THAT(places, UnorderedElementsAre(XY{0, 0}, XY{-170, -85}, XY{170, 85}));
}

TEST(Wrap, ShiftMovesCopiesOfEachType) {
  const auto point = Cast<Point>(FeatureLongitudeShift(std::make_shared<Point>(170, 5), 200.0));
  EXPECT_EQ(point->Coordinates(), (XY{370, 5}));
  const auto source = Of<Polygon>({{0, 0}, {0, 1}, {1, 0}, {0, 0}});
  const auto shifted = Cast<Polygon>(FeatureLongitudeShift(source, -0.5));
  EXPECT_EQ(shifted->Point(2), (XY{0.5, 0}));
  EXPECT_EQ(source->Point(2), (XY{1, 0}));
  EXPECT_EQ(Cast<Multipoint>(FeatureLongitudeShift(Of<Multipoint>({{3, 4}}), 1.0))->Point(0), (XY{4, 4}));
  const auto line = Of<Polyline>({{370, 95}, {371, 95}});
  ShiftPointsToWrapBoundary(line, DoubleArray{360.0, 180.0});
  EXPECT_EQ(line->Point(0), (XY{10, -85}));
}

TEST(Wrap, RefusedShapesAndBoxes) {
  TestHost host;
  const FaultLog log;
  EXPECT_EQ(FeatureLongitudeShift(std::make_shared<GeometryBag>(), 1.0), nullptr);
  ASSERT_EQ(host.messages.shown.size(), 1u);
  EXPECT_EQ(
      host.messages.shown[0].text,
      "Unexpected Geometry Type:\r\nThe function 'FeatureLongitudeShift' only accepts points, polylines, polygons "
      "or multipoints.");
  EXPECT_THAT(log.Reports(), IsEmpty());
  EXPECT_EQ(FeatureLongitudeShift(nullptr, 1.0), nullptr);
  EXPECT_EQ(Wrap180(nullptr), nullptr);
  EXPECT_EQ(Wrap180(std::make_shared<GeometryBag>()), nullptr);
  EXPECT_EQ(WrapToBoundary(std::make_shared<Point>(1, 1), 10, 10, -90, 90, nullptr), nullptr);
  EXPECT_EQ(Wrap180(std::make_shared<Point>(1e18, 1)), nullptr) << "steps of 360 would stand still";
  EXPECT_EQ(Wrap180(Of<Multipoint>({{0, 0}, {1e18, 1}})), nullptr);
  ShiftPointsToWrapBoundary(std::make_shared<Point>(1, 1), DoubleArray{1.0});
  EXPECT_THAT(log.Reports(),
              ElementsAre("FeatureLongitudeShift 91", "WrapToBoundary 91", "WrapToBoundary 13", "WrapToBoundary 5",
                          "WrapToBoundary 5", "WrapToBoundary 5", "ShiftPointsToWrapBoundary 5"));
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
