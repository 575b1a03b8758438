// SPDX-License-Identifier: MIT
// The sum of spherical triangles over rings of bare coordinates, several segments at a time.
//
//   SphericalAreaSum sum(figure, AreaWish::WithCentroid);
//   for (const Ring& ring : rings) sum.AddRing(ring, place_inside);
//   sum.Area(), sum.Centroid()
//
// For each segment From, To of a ring the triangle (From, To, Apex) is added, with the area of `TriangleArea` to the
// last bit and in the order of the segments. Clockwise exterior rings count positive and holes, which run the other
// way, negative, around any apex. What belongs to one vertex (its sines and cosines, its side towards the apex) is
// found once for the two segments that share it, and what belongs to the apex once for the ring. Each loop does one
// operation for eight vertices, so that none waits for another.
//
// The sign needs no azimuths where the three places clearly turn one way: their triple product decides it outside the
// bound of its rounding, and within the bound the two azimuths are compared as in the triangle's routine.
//
// Degrees, longitude first. Longitudes are used as they are, so a ring across the 180 degree meridian and its apex must
// lie in one turn. A ring around a pole must run along the pole's parallel and back along the meridians, as it does on
// the plane. An empty ring adds nothing.
//
// Faults: a triangle whose arithmetic isn't plainly sound is handed to `TriangleArea`, which raises what there is to
// raise, or to a routine of the caller's. A centre of length 0, from three unit vectors that cancel, is fault 11.
//
// Accuracy: an area keeps 1e-9 of itself for rings 10 m across, 1e-10 for a kilometre, 1e-11 for degrees. Against the
// spheroid itself the sphere of the Earth is 0.45 percent too large at the equator and 0.9 percent too small at the
// poles; on Saturn 15 too large and 24 too small. The centre takes each triangle's mass at the mean of its corners,
// which is off by the cube of the triangles' size: by up to 6e-6 degrees for polygons 2 degrees across, 7e-3 for 20 and
// 0.3 for 60. Cost: linear, about a tenth of a microsecond for a segment.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include "geodesy/cartesian.h"
#include "geodesy/triangle_lanes.h"

namespace tessarine::geodesy {

enum class AreaWish { AreaAlone, WithCentroid };

/// A running area, and the running centre of mass where it is wanted. It lives on the stack and allocates nothing.
class SphericalAreaSum {
 public:
  /// The signed area of one triangle; what it returns is added.
  using MeasureTriangle = double (*)(LonLat from, LonLat to, LonLat apex, const Figure& figure);

  /// `measure` is asked where the arithmetic of a triangle isn't plainly sound; by default `TriangleArea`.
  SphericalAreaSum(const Figure& figure, AreaWish wish, MeasureTriangle measure = nullptr);

  /// Adds the segments between consecutive vertices; nothing closes the ring. The apex is any place, best one inside;
  /// all rings of one component share it. A ring may be added in pieces that share a vertex.
  void AddRing(std::span<const LonLat> vertices, LonLat apex);

  /// The signed area so far, positive for clockwise rings.
  [[nodiscard]] double Area() const { return area_; }
  /// The centre of mass of the surface so far; none for an area that is not above 0.
  [[nodiscard]] std::optional<LonLat> Centroid() const;

 private:
  static constexpr std::size_t kLanes = 8;
  using Lanes = detail::Lanes<kLanes>;
  using UnitVector = Cartesian;

  struct Apex {
    LonLat at;
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

    [[nodiscard]] LonLat At(std::size_t place) const { return {lon[place], lat[place]}; }
    void Carry(std::size_t place);
  };
  // The triangles of a block: the side from vertex to vertex, the excess, the centre brought to the unit sphere, its
  // length before, and the triple product of the corners.
  struct Triangles {
    Lanes side, excess, x, y, z, length, triple;
  };

  static void Prepare(std::span<const LonLat> positions, const Apex& apex, Vertices& vertices);
  static void Measure(const Vertices& vertices, const Apex& apex, Triangles& triangles);
  static void FindCenters(const Vertices& vertices, const Apex& apex, Triangles& triangles);
  void Add(const Vertices& vertices, const Apex& apex, const Triangles& triangles, std::size_t count);
  [[nodiscard]] double SignedArea(const Vertices& vertices, const Apex& apex, const Triangles& triangles,
                                  std::size_t lane) const;

  Figure figure_;
  double radius_squared_;  // no number for a figure without a volume, which makes every area unsound
  bool want_centroid_;
  MeasureTriangle measure_;
  double area_ = 0.0;
  UnitVector moment_{0.0, 0.0, 0.0};
};

}  // namespace tessarine::geodesy
