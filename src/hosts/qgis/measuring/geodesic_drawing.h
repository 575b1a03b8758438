// SPDX-License-Identifier: GPL-2.0-or-later
// Geodesics as lines on a map.
#pragma once

#include <qgsgeometry.h>
#include <qgspointxy.h>

#include "platform/geometry.h"
#include "platform/spheroid_catalog.h"

namespace tessarine::qgis {

/// A place where somebody pointed, on the map and on the globe.
struct PointedPlace {
  QgsPointXY on_map;
  XY degrees;
};

/// The geodesic between two places in the coordinates of the map: with a vertex each quarter of a degree or so, and in
/// parts where the map is torn. On a map of longitudes a line over the edge is drawn from both of its ends. What has no
/// place on the map is left out.
[[nodiscard]] QgsMultiPolylineXY DrawnGeodesic(const PointedPlace& from, const PointedPlace& to,
                                               const SpatialReferenceRef& map, const NamedSpheroid& spheroid);

}  // namespace tessarine::qgis
