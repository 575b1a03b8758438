// SPDX-License-Identifier: GPL-2.0-or-later
// Measures of polygons. Area and centroid on the sphere come from one walk over the polygon, which is the slowest step
// of the calculator.
#pragma once

#include <memory>
#include <vector>

#include "calculator/measures.h"
#include "geodesy/longitude_continuation.h"
#include "shapes/map_topology.h"

namespace tessarine {

class PolygonRecord final : public MeasureRecord {
 public:
  PolygonRecord(std::shared_ptr<Polygon> shape, MeasureSettings& settings);

  [[nodiscard]] const Polygon& Shape() const { return *shape_; }

  // On the plane of the data's coordinates.
  [[nodiscard]] double Area();
  /// Of the lines of a polygon without area, or of its vertices where they have no length.
  [[nodiscard]] XY Centroid();
  [[nodiscard]] double Perimeter() const;

  /// On the sphere with the spheroid's volume, in the square of the axes' unit; negative for rings that run the wrong
  /// way.
  [[nodiscard]] double SphericalArea();
  /// Of all rings, holes included.
  [[nodiscard]] double SpheroidalPerimeter();
  /// On the spheroid itself, between geodesics. Rings that jump over the edge of the longitudes, or run round a pole,
  /// count as what they mean; a ring round the globe encloses the smaller part.
  [[nodiscard]] double SpheroidalArea();

  // The centre of mass of the surface; -9999 both for a polygon whose spherical area isn't above 0.
  /// In the projection of the layer.
  [[nodiscard]] XY ProjectedSphericalCentroid();
  /// In a geographic layer, in the latitudes of the data.
  [[nodiscard]] XY SphericalCentroid();

 private:
  const std::shared_ptr<Polygon>& GeographicPolygon();
  [[nodiscard]] double PerimeterOf(const std::shared_ptr<Polygon>& polygon);
  [[nodiscard]] double LengthOfRings(const Polygon& polygon) const;
  [[nodiscard]] double LengthOfSeams() const;
  [[nodiscard]] double AreaByRoles(const Polygon& polygon) const;
  [[nodiscard]] double AreaOfRing(const Path& ring, bool is_exterior) const;
  void LookForPole();
  void RememberSimplicity();
  void MeasureArea();
  void FindAreaAndCentroid();
  [[nodiscard]] bool HasCentroid() const;
  void WarnOfPlanarLobes();

  std::shared_ptr<Polygon> shape_;
  std::shared_ptr<Polygon> geographic_;
  std::vector<geodesy::Seam> seams_;                    // of `geographic_`: no part of the perimeter
  std::vector<MyGeometricOperations::RingRole> roles_;  // of `geographic_`, where the map tells them
  bool looked_for_lobes_ = false, looked_for_pole_ = false, area_is_measured_ = false, looked_whether_simple_ = false;
  double spherical_area_ = kNullMark;
  XY centroid_{kNullMark, kNullMark};  // in planetographic latitudes
};

}  // namespace tessarine
