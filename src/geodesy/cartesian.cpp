// SPDX-License-Identifier: GPL-2.0-or-later
#include "geodesy/cartesian.h"

#include <cmath>

#include "geodesy/angles.h"
#include "geodesy/checked_arithmetic.h"
#include "platform/trap.h"

namespace tessarine::MyGeometricOperations {
namespace {

using checked::Divide;
using checked::Finite;
using checked::Power;
using checked::Root;

struct Place {
  double x, y, z;
};

// Written at the end, so that a fault leaves the caller's variables alone.
void Put(const Place& place, double& x, double& y, double& z) {
  const Place checked_place{Finite(place.x), Finite(place.y), Finite(place.z)};
  x = checked_place.x, y = checked_place.y, z = checked_place.z;
}

}  // namespace

void SphericalLatLongToCart(double lon, double lat, double& x, double& y, double& z, double radius) {
  TrapHelper("SphericalLatLongToCart", [&] {
    const double theta = DegToRad(90.0 - lat);
    const double phi = DegToRad(lon);
    const double sin_theta = std::sin(theta);
    Put({radius * sin_theta * std::cos(phi), radius * sin_theta * std::sin(phi), radius * std::cos(theta)}, x, y, z);
  });
}

void SpheroidalLatLongToCart(double lon, double lat, double& x, double& y, double& z, double semi_major,
                             double semi_minor, double height) {
  TrapHelper("SpheroidalLatLongToCart", [&] {
    const double theta = DegToRad(90.0 - lat);
    const double phi = DegToRad(lon);
    const double sin_theta = std::sin(theta);
    const double cos_theta = std::cos(theta);
    const double e2 = Divide(semi_major * semi_major - semi_minor * semi_minor, semi_major * semi_major);
    const double n = Divide(semi_major, Root(1.0 - cos_theta * cos_theta * e2));
    Put({(n + height) * sin_theta * std::cos(phi), (n + height) * sin_theta * std::sin(phi),
         ((1.0 - e2) * n + height) * cos_theta},
        x, y, z);
  });
}

void SphericalCartToLatLong(double& lon, double& lat, double x, double y, double z) {
  TrapHelper("SphericalCartToLatLong", [&] {
    const double r = Root(x * x + y * y);
    const double new_lon = RadToDeg(atan2(y, x));
    const double new_lat = 90.0 - RadToDeg(atan2(r, z));
    lon = new_lon, lat = new_lat;
  });
}

void SpheroidalCartToLatLong(double& lon, double& lat, double x, double y, double z, double semi_major,
                             double semi_minor, double) {
  TrapHelper("SpheroidalCartToLatLong", [&] {
    const double p = Root(x * x + y * y);
    const double t = atan2(Finite(z * semi_major), Finite(p * semi_minor));
    const double e2 = Divide(semi_major * semi_major - semi_minor * semi_minor, semi_major * semi_major);
    const double ep2 = Divide(e2, 1.0 - e2);
    const double numerator = Finite(z + ep2 * semi_minor * Power(std::sin(t), 3.0));
    const double denominator = Finite(p - e2 * semi_major * Power(std::cos(t), 3.0));
    // The angle from the pole, so the distance from the axis stands in the place of y.
    const double colatitude = atan2(denominator, numerator);
    const double new_lon = RadToDeg(atan2(y, x));
    lon = new_lon, lat = 90.0 - RadToDeg(colatitude);
  });
}

void TriangleCentroid3D(double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
                        double z3, double& cx, double& cy, double& cz) {
  TrapHelper("TriangleCentroid3D", [&] {
    Put({(x1 + x2 + x3) / 3.0, (y1 + y2 + y3) / 3.0, (z1 + z2 + z3) / 3.0}, cx, cy, cz);
  });
}

}  // namespace tessarine::MyGeometricOperations
