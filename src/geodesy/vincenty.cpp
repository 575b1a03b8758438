// SPDX-License-Identifier: GPL-2.0-or-later
#include "geodesy/vincenty.h"

#include <cmath>

#include "geodesy/angles.h"
#include "geodesy/checked_arithmetic.h"
#include "geodesy/convergence.h"
#include "geodesy/positions.h"
#include "platform/trap.h"

namespace tessarine::MyGeometricOperations {
namespace {

using checked::Divide;
using checked::Finite;
using checked::Root;
using checked::Tangent;

constexpr int kPasses = 40;

struct Figure {
  double a, b, f;
};

// Three constants that don't quite agree, see the header.
Figure FixedWgs1984() { return {6378137.0, 6356752.31424518, 1.0 / 298.257223563}; }

Figure FigureOf(double semi_major, double semi_minor) {
  return {semi_major, semi_minor, Divide(semi_major - semi_minor, semi_major)};
}

// The coefficients of the distance along the line, equations 3 and 4.
struct Series {
  double A, B;
};

Series SeriesOf(const Figure& figure, double cos_sq_alpha) {
  const double a_sq = figure.a * figure.a, b_sq = figure.b * figure.b;
  const double u_sq = Divide((a_sq - b_sq) * cos_sq_alpha, b_sq);
  return {1.0 + u_sq / 16384.0 * (4096.0 + u_sq * (-768.0 + u_sq * (320.0 - 175.0 * u_sq))),
          u_sq / 1024.0 * (256.0 + u_sq * (-128.0 + u_sq * (74.0 - 47.0 * u_sq)))};
}

// Where the line stands after an arc: the arc sigma, and the arc from the equator crossing to the line's middle.
struct Arc {
  double sigma = 0.0, sin_sigma = 0.0, cos_sigma = 0.0, cos_2_sigma_m = 0.0;
};

// Equation 6.
double DeltaSigma(double B, const Arc& arc) {
  const double m = arc.cos_2_sigma_m, m_sq = m * m;
  return B * arc.sin_sigma *
         (m + B / 4.0 *
                  (arc.cos_sigma * (2.0 * m_sq - 1.0) -
                   B / 6.0 * m * (4.0 * (arc.sin_sigma * arc.sin_sigma) - 3.0) * (4.0 * m_sq - 3.0)));
}

// How far the longitude on the auxiliary sphere is ahead of the one on the spheroid, equations 10 and 11.
double LongitudeLead(double f, double sin_alpha, double cos_sq_alpha, const Arc& arc) {
  const double C = f / 16.0 * cos_sq_alpha * (4.0 + f * (4.0 - 3.0 * cos_sq_alpha));
  const double m = arc.cos_2_sigma_m;
  return (1.0 - C) * f * sin_alpha * (arc.sigma + C * arc.sin_sigma * (m + C * arc.cos_sigma * (2.0 * (m * m) - 1.0)));
}

double ToAzimuth(double radians) {
  const double degrees = RadToDeg(radians);
  return degrees < 0.0 ? degrees + 360.0 : degrees;
}

double Inverse(XY from, XY to, const Figure& figure, double& azimuth1, double& azimuth2) {
  const double L = DegToRad(Finite(to.x - from.x));
  const double U1 = std::atan((1.0 - figure.f) * Tangent(DegToRad(from.y)));
  const double U2 = std::atan((1.0 - figure.f) * Tangent(DegToRad(to.y)));
  const double sin_U1 = std::sin(U1), cos_U1 = std::cos(U1);
  const double sin_U2 = std::sin(U2), cos_U2 = std::cos(U2);

  // All of these keep the values of the last pass for what follows the loop.
  double sin_lambda = 0.0, cos_lambda = 0.0, cos_sq_alpha = 0.0;
  Arc arc;
  double lambda = L, lambda_before = kTwoPi;
  for (int passes = kPasses; std::fabs(lambda - lambda_before) > kTolerance && passes >= 1; --passes) {
    sin_lambda = std::sin(lambda);
    cos_lambda = std::cos(lambda);
    const double east = cos_U2 * sin_lambda;
    const double north = cos_U1 * sin_U2 - sin_U1 * cos_U2 * cos_lambda;
    arc.sin_sigma = Root(east * east + north * north);
    arc.cos_sigma = sin_U1 * sin_U2 + cos_U1 * cos_U2 * cos_lambda;
    arc.sigma = atan2(arc.sin_sigma, arc.cos_sigma);
    const double sin_alpha = Divide(cos_U1 * cos_U2 * sin_lambda, arc.sin_sigma);
    cos_sq_alpha = 1.0 - sin_alpha * sin_alpha;
    // A line along the equator has no middle to reckon from.
    arc.cos_2_sigma_m = cos_sq_alpha == 0.0 ? 0.0 : arc.cos_sigma - Divide(2.0 * sin_U1 * sin_U2, cos_sq_alpha);
    lambda_before = lambda;
    lambda = Finite(L + LongitudeLead(figure.f, sin_alpha, cos_sq_alpha, arc));
  }
  if (std::fabs(lambda - lambda_before) > kTolerance) NoteUnconverged(1);

  const Series series = SeriesOf(figure, cos_sq_alpha);
  const double distance = Finite(figure.b * series.A * (arc.sigma - DeltaSigma(series.B, arc)));
  azimuth1 = ToAzimuth(atan2(cos_U2 * sin_lambda, cos_U1 * sin_U2 - sin_U1 * cos_U2 * cos_lambda));
  azimuth2 = ToAzimuth(atan2(cos_U1 * sin_lambda, cos_U1 * sin_U2 * cos_lambda - sin_U1 * cos_U2));
  return distance;
}

bool Coincide(XY from, XY to, double& azimuth1, double& azimuth2) {
  if (from != to) return false;
  azimuth1 = azimuth2 = 0.0;
  return true;
}

XY Direct(XY start, double distance, double azimuth, const Figure& figure, double& far_azimuth) {
  const double less_f = 1.0 - figure.f;
  const double tan_U1 = less_f * Tangent(DegToRad(start.y));
  const double U1 = std::atan(tan_U1);
  const double cos_U1 = std::cos(U1), sin_U1 = std::sin(U1);
  const double alpha1 = DegToRad(azimuth);
  const double cos_alpha1 = std::cos(alpha1), sin_alpha1 = std::sin(alpha1);
  const double sigma1 = atan2(tan_U1, cos_alpha1);
  const double sin_alpha = cos_U1 * sin_alpha1;
  const double cos_sq_alpha = 1.0 - sin_alpha * sin_alpha;
  const Series series = SeriesOf(figure, cos_sq_alpha);
  const double first_sigma = Divide(distance, figure.b * series.A);

  const auto arc_at = [&](double sigma) {
    return Arc{sigma, std::sin(sigma), std::cos(sigma), std::cos(2.0 * sigma1 + sigma)};
  };
  double sigma = first_sigma, sigma_before = kTwoPi;
  for (int passes = kPasses; std::fabs(sigma - sigma_before) > kTolerance && passes >= 1; --passes) {
    const double delta_sigma = DeltaSigma(series.B, arc_at(sigma));
    sigma_before = sigma;
    sigma = Finite(first_sigma + delta_sigma);
  }

  const Arc arc = arc_at(sigma);
  const double tmp = sin_U1 * arc.sin_sigma - cos_U1 * arc.cos_sigma * cos_alpha1;
  const double lat2 = atan2(sin_U1 * arc.cos_sigma + cos_U1 * arc.sin_sigma * cos_alpha1,
                            less_f * Root(sin_alpha * sin_alpha + tmp * tmp));
  const double lambda = atan2(arc.sin_sigma * sin_alpha1, cos_U1 * arc.cos_sigma - sin_U1 * arc.sin_sigma * cos_alpha1);
  const double L = lambda - LongitudeLead(figure.f, sin_alpha, cos_sq_alpha, arc);
  const XY end{Finite(start.x + RadToDeg(L)), RadToDeg(lat2)};
  far_azimuth = ToAzimuth(atan2(sin_alpha, -tmp));
  return end;
}

XY DirectFrom(XY start, double distance, double azimuth, double& far_azimuth, double semi_major, double semi_minor) {
  if (distance == 0.0) {
    far_azimuth = azimuth;
    return start;
  }
  return Direct(start, distance, azimuth, FigureOf(semi_major, semi_minor), far_azimuth);
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
    const XY from{lon1, lat1}, to{lon2, lat2};
    return Coincide(from, to, azimuth1, azimuth2) ? 0.0 : Inverse(from, to, FixedWgs1984(), azimuth1, azimuth2);
  });
}

double DistanceVincentyNumbers2(double lon1, double lat1, double lon2, double lat2, double& azimuth1, double& azimuth2,
                                double semi_major, double semi_minor) {
  return TrapHelper("DistanceVincentyNumbers2", [&] {
    const XY from{lon1, lat1}, to{lon2, lat2};
    if (Coincide(from, to, azimuth1, azimuth2)) return 0.0;
    return Inverse(from, to, FigureOf(semi_major, semi_minor), azimuth1, azimuth2);
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
  TrapHelper("PointLineVincentyPerPoint2",
             [&] { end_point = DirectFrom(start_point, distance, azimuth, far_azimuth, semi_major, semi_minor); });
}

void PointLineVincentyPerPoint2(const Point& start_point, double distance, double azimuth, Point& end_point,
                                double& far_azimuth, double semi_major, double semi_minor) {
  TrapHelper("PointLineVincentyPerPoint2", [&] {
    const XY end = DirectFrom(CoordinatesOf(start_point), distance, azimuth, far_azimuth, semi_major, semi_minor);
    end_point.PutCoords(end.x, end.y);
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
