// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/cartesian.h"

#include "geodesy/cartesian.h"
#include "platform/trap.h"

namespace tessarine::MyGeometricOperations {

using geodesy::Figure;

void SphericalLatLongToCart(double lon, double lat, double& x, double& y, double& z, double radius) {
  TrapHelper("SphericalLatLongToCart", [&] {
    const auto [new_x, new_y, new_z] = geodesy::FromSphere({lon, lat}, radius);
    x = new_x, y = new_y, z = new_z;
  });
}

void SpheroidalLatLongToCart(double lon, double lat, double& x, double& y, double& z, double semi_major,
                             double semi_minor, double height) {
  TrapHelper("SpheroidalLatLongToCart", [&] {
    const auto [new_x, new_y, new_z] =
        geodesy::FromSpheroid({lon, lat}, Figure::FromAxes(semi_major, semi_minor), height);
    x = new_x, y = new_y, z = new_z;
  });
}

void SphericalCartToLatLong(double& lon, double& lat, double x, double y, double z) {
  TrapHelper("SphericalCartToLatLong", [&] {
    const auto [new_lon, new_lat] = geodesy::ToSphere({x, y, z});
    lon = new_lon, lat = new_lat;
  });
}

void SpheroidalCartToLatLong(double& lon, double& lat, double x, double y, double z, double semi_major,
                             double semi_minor, double) {
  TrapHelper("SpheroidalCartToLatLong", [&] {
    const auto [new_lon, new_lat] = geodesy::ToSpheroid({x, y, z}, Figure::FromAxes(semi_major, semi_minor));
    lon = new_lon, lat = new_lat;
  });
}

void TriangleCentroid3D(double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
                        double z3, double& cx, double& cy, double& cz) {
  TrapHelper("TriangleCentroid3D", [&] {
    const auto [x, y, z] = geodesy::MeanOf({x1, y1, z1}, {x2, y2, z2}, {x3, y3, z3});
    cx = x, cy = y, cz = z;
  });
}

}  // namespace tessarine::MyGeometricOperations
