// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/multipoint_centroids.h"

#include "geodesy/checked_arithmetic.h"
#include "platform/trap.h"
#include "shapes/cartesian.h"

namespace tessarine::MyGeometricOperations {
namespace {

using geodesy::checked::Divide;

// Calls `visit(XY)` for each vertex in order.
template <class Visit>
double VisitAll(const IPointCollection& points, Visit&& visit) {
  const std::int32_t count = points.PointCount();
  Point scratch;
  for (std::int32_t index = 0; index < count; ++index) {
    points.QueryPoint(index, scratch);
    visit(scratch.Coordinates());
  }
  return count;
}

template <class Visit>
double VisitAll(std::span<const XY> points, Visit&& visit) {
  for (const XY point : points) visit(point);
  return static_cast<double>(points.size());
}

template <class Points>
XY SpheroidalMean(const Points& points, double a, double b, double height) {
  double sum_x = 0.0, sum_y = 0.0, sum_z = 0.0;
  // A vertex that can't be converted is reported there and counts with the place of the one before.
  double x = 0.0, y = 0.0, z = 0.0;
  const double count = VisitAll(points, [&](XY point) {
    SpheroidalLatLongToCart(point.x, point.y, x, y, z, a, b, height);
    sum_x += x;
    sum_y += y;
    sum_z += z;
  });
  XY mean;
  SpheroidalCartToLatLong(mean.x, mean.y, Divide(sum_x, count), Divide(sum_y, count), Divide(sum_z, count), a, b,
                          height);
  return mean;
}

template <class Points>
XY PlanarMean(const Points& points) {
  double sum_x = 0.0, sum_y = 0.0;
  const double count = VisitAll(points, [&](XY point) {
    sum_x += point.x;
    sum_y += point.y;
  });
  return {Divide(sum_x, count), Divide(sum_y, count)};
}

std::shared_ptr<Point> NewPoint(XY at) {
  auto point = std::make_shared<Point>();
  point->PutCoords(at.x, at.y);
  return point;
}

}  // namespace

std::shared_ptr<Point> MultipointCentroidSpheroid(const std::shared_ptr<IPointCollection>& multipoint,
                                                  double semi_major, double semi_minor, double height) {
  return TrapHelper("MultipointCentroidSpheroid", [&] {
    return NewPoint(SpheroidalMean(*Require(multipoint, "Multipoint"), semi_major, semi_minor, height));
  });
}

XY MultipointCentroidSpheroid(std::span<const XY> points, double semi_major, double semi_minor, double height) {
  return TrapHelper("MultipointCentroidSpheroid",
                    [&] { return SpheroidalMean(points, semi_major, semi_minor, height); });
}

std::shared_ptr<Point> MultipointCentroid(const std::shared_ptr<IPointCollection>& multipoint) {
  return TrapHelper("MultipointCentroid", [&] {
    auto point = NewPoint(PlanarMean(*Require(multipoint, "Multipoint")));
    if (const auto shape = Cast<IGeometry>(multipoint)) point->SetSpatialReference(shape->SpatialReference());
    return point;
  });
}

XY MultipointCentroid(std::span<const XY> points) {
  return TrapHelper("MultipointCentroid", [&] { return PlanarMean(points); });
}

}  // namespace tessarine::MyGeometricOperations
