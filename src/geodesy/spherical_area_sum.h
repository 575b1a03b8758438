// SPDX-License-Identifier: GPL-2.0-or-later
// The sum of spherical triangles over rings of bare coordinates, several segments at a time.
//
// For each segment From, To of a ring the triangle (From, To, Apex) is added, with the area of `SphericalTriangleArea`
// or `SphericalTriangleArea2` to the last bit and in the order of the segments. What belongs to one vertex (its sines
// and cosines, its side towards the apex) is found once for the two segments that share it, and what belongs to the
// apex once for the ring. Each loop does one operation for eight vertices, so that none waits for another.
//
// The sign needs no azimuths where the three places clearly turn one way: their triple product decides it outside the
// bound of its rounding, and within the bound the two azimuths are compared as in the triangle's routine.
//
// A triangle whose arithmetic isn't plainly sound is handed to the triangle's routine, which reports what there is to
// report and gives 0. A centre of length 0, from three unit vectors that cancel, is fault 11.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "platform/geometry_types.h"

namespace tessarine::MyGeometricOperations {

/// A running area, and the running centre of mass where it is wanted. It lives on the stack and allocates nothing.
class SphericalAreaSum {
 public:
  /// On the sphere of WGS 1984, and on that of the given axes.
  explicit SphericalAreaSum(bool want_centroid);
  SphericalAreaSum(double semi_major, double semi_minor, bool want_centroid);

  /// Adds the segments between consecutive vertices; nothing closes the ring. Degrees, longitude first. The apex is any
  /// place, best one inside; all rings of one component share it.
  void AddRing(std::span<const XY> vertices, XY apex);

  /// The signed area so far, positive for clockwise rings.
  [[nodiscard]] double Area() const { return area_; }
  /// Longitude and latitude of the centre of mass; -9999 both for an area that is not above 0.
  void Centroid(double& lon, double& lat) const;

 private:
  static constexpr std::size_t kLanes = 8;
  using Lanes = std::array<double, kLanes>;

  struct UnitVector {
    double x, y, z;
  };
  struct Apex {
    XY at;
    double phi, cos_phi;  // the latitude in radians
    UnitVector unit;
    bool plain;  // the triple product may decide
  };
  // The vertices of a block, one quantity a row. Place 0 holds the last vertex of the block before.
  struct Vertices {
    using Row = std::array<double, kLanes + 1>;
    Row lon, lat, phi, cos_phi, x, y, z;
    Row side;  // central angle to the apex
    std::array<bool, kLanes + 1> plain;

    [[nodiscard]] XY At(std::size_t place) const { return {lon[place], lat[place]}; }
    void Carry(std::size_t place);
  };
  // The triangles of a block: the side from vertex to vertex, the excess, the centre brought to the unit sphere, its
  // length before, and the triple product of the corners.
  struct Triangles {
    Lanes side, excess, x, y, z, length, triple;
  };

  SphericalAreaSum(double semi_major, double semi_minor, bool want_centroid, bool fixed);

  static void Prepare(std::span<const XY> positions, const Apex& apex, Vertices& vertices);
  static void Measure(const Vertices& vertices, const Apex& apex, Triangles& triangles);
  static void FindCenters(const Vertices& vertices, const Apex& apex, Triangles& triangles);
  [[nodiscard]] static UnitVector ReportedCenter(XY from, XY to, XY apex);
  void Add(const Vertices& vertices, const Apex& apex, const Triangles& triangles, std::size_t count);
  [[nodiscard]] double SignedArea(const Vertices& vertices, const Apex& apex, const Triangles& triangles,
                                  std::size_t lane) const;

  double a_, b_, radius_squared_;
  bool want_centroid_;
  bool fixed_;  // WGS 1984, by the routines without suffix 2
  double area_ = 0.0;
  UnitVector moment_{0.0, 0.0, 0.0};
};

}  // namespace tessarine::MyGeometricOperations
