// The sum of spherical triangles over rings of bare coordinates, several segments at a time.
//
// For each segment From, To of a ring the triangle (From, To, Apex) is added, with the area of `SphericalTriangleArea`
// or `SphericalTriangleArea2` to the last bit and in the order of the segments. What belongs to one vertex (its sines
// and cosines, its side towards the apex) is found once for the two segments that share it, and what belongs to the
// apex once for the ring.
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

  struct UnitVector {
    double x, y, z;
  };
  struct Vertex {
    XY at;
    double phi, cos_phi;  // the latitude in radians
    UnitVector unit;
    double side;  // central angle to the apex
    bool plain;   // the triple product may decide
  };
  struct Apex {
    XY at;
    double phi, cos_phi;
    UnitVector unit;
    bool plain;
  };

  SphericalAreaSum(double semi_major, double semi_minor, bool want_centroid, bool fixed);

  static void Prepare(std::span<const XY> positions, const Apex& apex, std::span<Vertex> vertices);
  void AddTriangles(std::span<const Vertex> vertices, const Apex& apex);
  [[nodiscard]] double SignedArea(const Vertex& from, const Vertex& to, const Apex& apex, double side,
                                  double excess) const;
  void AddCenter(const Vertex& from, const Vertex& to, const Apex& apex, double area);

  double a_, b_, radius_squared_;
  bool want_centroid_;
  bool fixed_;  // WGS 1984, by the routines without suffix 2
  double area_ = 0.0;
  UnitVector moment_{0.0, 0.0, 0.0};
};

}  // namespace tessarine::MyGeometricOperations
