// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/vincenty.h"

#include "geodesy/geodesics.h"
#include "platform/trap.h"
#include "shapes/convergence.h"
#include "shapes/positions.h"

namespace tessarine::MyGeometricOperations {
namespace {

using geodesy::Figure;
using geodesy::GeodesicEnd;
using geodesy::GeodesicLine;

double Measure(XY from, XY to, const Figure& figure, double& azimuth1, double& azimuth2) {
  const GeodesicLine line = geodesy::Inverse(from, to, figure);
  if (!line.converged) NoteUnconverged(1);
  azimuth1 = line.azimuth1, azimuth2 = line.azimuth2;
  return line.distance;
}

using GeographicRef = std::shared_ptr<const GeographicCoordinateSystem>;

GeographicRef RequireGeographic(const SpatialReferenceRef& reference) {
  const GeographicRef geographic = GeographicOf(Require(reference, "SpatialReference"));
  if (!geographic) Raise(kTypeMismatch, "The spatial reference is neither geographic nor projected.");
  return geographic;
}

}  // namespace

double DistanceVincentyNumbers(double lon1, double lat1, double lon2, double lat2, double& azimuth1, double& azimuth2) {
  return TrapHelper("DistanceVincentyNumbers", [&] {
    return Measure({lon1, lat1}, {lon2, lat2}, geodesy::kWgs1984, azimuth1, azimuth2);
  });
}

double DistanceVincentyNumbers2(double lon1, double lat1, double lon2, double lat2, double& azimuth1, double& azimuth2,
                                double semi_major, double semi_minor) {
  return TrapHelper("DistanceVincentyNumbers2", [&] {
    return Measure({lon1, lat1}, {lon2, lat2}, Figure::FromAxes(semi_major, semi_minor), azimuth1, azimuth2);
  });
}

double DistanceVincentyPoints(XY from_point, XY to_point, double& azimuth1, double& azimuth2) {
  return DistanceVincentyNumbers(from_point.x, from_point.y, to_point.x, to_point.y, azimuth1, azimuth2);
}

double DistanceVincentyPoints(const Point& from_point, const Point& to_point, double& azimuth1, double& azimuth2) {
  return TrapHelper("DistanceVincentyPoints", [&] {
    return DistanceVincentyPoints(CoordinatesOf(from_point), CoordinatesOf(to_point), azimuth1, azimuth2);
  });
}

double DistanceVincentyPoints2(XY from_point, XY to_point, double& azimuth1, double& azimuth2, double semi_major,
                               double semi_minor) {
  return DistanceVincentyNumbers2(from_point.x, from_point.y, to_point.x, to_point.y, azimuth1, azimuth2, semi_major,
                                  semi_minor);
}

double DistanceVincentyPoints2(const Point& from_point, const Point& to_point, double& azimuth1, double& azimuth2,
                               double semi_major, double semi_minor) {
  return TrapHelper("DistanceVincentyPoints2", [&] {
    return DistanceVincentyPoints2(CoordinatesOf(from_point), CoordinatesOf(to_point), azimuth1, azimuth2, semi_major,
                                   semi_minor);
  });
}

void PointLineVincentyPerPoint2(XY start_point, double distance, double azimuth, XY& end_point, double& far_azimuth,
                                double semi_major, double semi_minor) {
  TrapHelper("PointLineVincentyPerPoint2", [&] {
    const GeodesicEnd end = geodesy::Direct(start_point, azimuth, distance, Figure::FromAxes(semi_major, semi_minor));
    end_point = end.position, far_azimuth = end.azimuth2;
  });
}

void PointLineVincentyPerPoint2(const Point& start_point, double distance, double azimuth, Point& end_point,
                                double& far_azimuth, double semi_major, double semi_minor) {
  TrapHelper("PointLineVincentyPerPoint2", [&] {
    const GeodesicEnd end =
        geodesy::Direct(CoordinatesOf(start_point), azimuth, distance, Figure::FromAxes(semi_major, semi_minor));
    end_point.PutCoords(end.position.x, end.position.y), far_azimuth = end.azimuth2;
  });
}

void PointLineVincenty2(const Point& start_point, double distance, double azimuth, Point& end_point,
                        double& far_azimuth, std::int32_t& vertex_count, std::shared_ptr<Polyline>& polyline) {
  TrapHelper("PointLineVincenty2", [&] {
    const GeographicRef geographic = RequireGeographic(start_point.SpatialReference());
    const auto& spheroid = Require(Require(geographic->Datum(), "Datum")->Spheroid(), "Spheroid");
    const double a = spheroid->SemiMajorAxis(), b = spheroid->SemiMinorAxis();
    if (vertex_count < 1) {
      PointLineVincentyPerPoint2(start_point, distance, azimuth, end_point, far_azimuth, a, b);
      end_point.SetSpatialReference(geographic);
      return;
    }
    if (vertex_count == 1) vertex_count = 2;
    const double step = distance / (vertex_count - 1);
    const XY start = CoordinatesOf(start_point);
    if (!polyline) polyline = std::make_shared<Polyline>();
    polyline->AddPoint(start);
    for (std::int32_t index = 1; index <= vertex_count - 2; ++index) {
      // A vertex that can't be solved stays empty, which ends the line here.
      Point vertex;
      PointLineVincentyPerPoint2(start_point, index * step, azimuth, vertex, far_azimuth, a, b);
      polyline->AddPoint(CoordinatesOf(vertex));
    }
    PointLineVincentyPerPoint2(start_point, distance, azimuth, end_point, far_azimuth, a, b);
    polyline->AddPoint(CoordinatesOf(end_point));
    polyline->SetSpatialReference(geographic);
    end_point.SetSpatialReference(geographic);
  });
}

}  // namespace tessarine::MyGeometricOperations
