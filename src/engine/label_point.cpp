// SPDX-License-Identifier: GPL-2.0-or-later
// LabelPoint: a place that surely lies inside a polygon.
#include <algorithm>
#include <list>
#include <optional>
#include <span>
#include <vector>

#include "engine/turn.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

using namespace engine;

// The polygon's rings, curves as chords.
class Rings {
 public:
  explicit Rings(const Polygon& polygon) {
    for (const auto& part : polygon.Parts()) {
      if (part->HasCurves()) densified_.push_back(DensifiedVertices(*part));
      rings_.push_back(part->HasCurves() ? std::span<const XY>(densified_.back()) : part->Vertices());
    }
  }

  /// Strictly inside by the even-odd rule, with a predicate that rounding doesn't fool.
  [[nodiscard]] bool Hold(XY place) const {
    bool inside = false;
    for (const std::span<const XY> ring : rings_) {
      for (std::size_t at = 0; at + 1 < ring.size(); ++at) {
        const Crossing crossing = Cross(ring[at], ring[at + 1], place);
        if (crossing == Crossing::Touches) return false;
        if (crossing == Crossing::Right) inside = !inside;
      }
    }
    return inside;
  }

 private:
  enum class Crossing { None, Right, Touches };

  // What a ray from the place eastwards does to a side.
  static Crossing Cross(XY from, XY to, XY place) {
    if (from == place || to == place) return Crossing::Touches;
    if (from.y == place.y && to.y == place.y) {
      return (from.x < place.x) != (to.x < place.x) ? Crossing::Touches : Crossing::None;
    }
    if ((from.y > place.y) == (to.y > place.y)) return Crossing::None;
    if (from.x < place.x && to.x < place.x) return Crossing::None;
    const int turn = Turn(from, to, place);
    if (turn == 0) return Crossing::Touches;
    return (turn > 0) == (to.y > from.y) ? Crossing::Right : Crossing::None;
  }

  std::list<std::vector<XY>> densified_;
  std::vector<std::span<const XY>> rings_;
};

// The middle of the widest cut of a horizontal line half-way between two vertices.
XY MiddleOfWidestCut(const GEOSGeometry* area) {
  return VerticesFromGeos(Checked(GEOSPointOnSurface_r(Geos(), area)).get()).front();
}

struct Triangle {
  XY center;
  double area;
};

// The triangles between the polygon's own vertices, the largest first.
std::vector<Triangle> Triangles(const GEOSGeometry* area) {
  std::vector<Triangle> triangles;
  const GeosGeometry mesh = Checked(GEOSConstrainedDelaunayTriangulation_r(Geos(), area));
  ForEachMember(mesh.get(), [&](const GEOSGeometry* member, int type) {
    if (type != GEOS_POLYGON || GEOSisEmpty_r(Geos(), member) != 0) return;
    const std::vector<XY> corners = VerticesFromGeos(GEOSGetExteriorRing_r(Geos(), member));
    const XY center{(corners[0].x + corners[1].x + corners[2].x) / 3.0,
                    (corners[0].y + corners[1].y + corners[2].y) / 3.0};
    triangles.push_back({center, std::abs(ChordArea(corners))});
  });
  std::ranges::stable_sort(triangles, std::ranges::greater(), &Triangle::area);
  return triangles;
}

std::optional<XY> FindInnerPoint(const Polygon& polygon) {
  if (polygon.IsEmpty()) return std::nullopt;
  const Rings rings(polygon);
  const XY center = polygon.Centroid();
  if (rings.Hold(center)) return center;
  const GeosGeometry own = ToGeos(polygon);
  if (GEOSisEmpty_r(Geos(), own.get()) != 0) return std::nullopt;
  const XY middle = MiddleOfWidestCut(own.get());
  if (rings.Hold(middle)) return middle;
  // Slivers only a few roundings wide: the cut's middle may round onto their border.
  for (const Triangle& triangle : Triangles(own.get())) {
    if (rings.Hold(triangle.center)) return triangle.center;
  }
  // No coordinate lies strictly inside such a polygon; this one lies on its border.
  return middle;
}

}  // namespace

std::optional<XY> Polygon::InnerPoint() const { return FindInnerPoint(*this); }

XY Polygon::LabelPoint() const {
  const std::optional<XY> point = InnerPoint();
  if (!point) Raise(kInvalidCall, "A polygon without area has no label point.");
  return *point;
}

XY Ring::LabelPoint() const {
  Polygon polygon;
  polygon.AddGeometry(std::make_shared<Ring>(*this));
  return polygon.LabelPoint();
}

}  // namespace tessarine
