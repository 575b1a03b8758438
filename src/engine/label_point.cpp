// LabelPoint: a place that surely lies inside a polygon.
#include <algorithm>
#include <optional>

#include "engine/geos_bridge.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

using namespace engine;

// Strictly inside, by predicates that rounding doesn't fool.
bool LiesInside(const GEOSGeometry* area, XY place) {
  const GeosGeometry probe = Checked(GEOSGeom_createPointFromXY_r(Geos(), place.x, place.y));
  return CheckedFlag(GEOSContains_r(Geos(), area, probe.get()));
}

std::optional<XY> CenterOfGravity(const Polygon& polygon) {
  if (polygon.Area() == 0.0) return std::nullopt;
  return polygon.Centroid();
}

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

XY InnerPoint(const Polygon& polygon) {
  if (polygon.IsEmpty()) Raise(kInvalidCall, "An empty polygon has no label point.");
  const GeosGeometry own = ToGeos(polygon);
  if (GEOSisEmpty_r(Geos(), own.get()) != 0) Raise(kInvalidCall, "A polygon without area has no label point.");
  const std::optional<XY> center = CenterOfGravity(polygon);
  if (center && LiesInside(own.get(), *center)) return *center;
  const XY middle = MiddleOfWidestCut(own.get());
  if (LiesInside(own.get(), middle)) return middle;
  // Slivers only a few roundings wide: the cut's middle may round onto their border.
  for (const Triangle& triangle : Triangles(own.get())) {
    if (LiesInside(own.get(), triangle.center)) return triangle.center;
  }
  // No coordinate lies strictly inside such a polygon; this one lies on its border.
  return middle;
}

}  // namespace

XY Polygon::LabelPoint() const { return InnerPoint(*this); }

XY Ring::LabelPoint() const {
  Polygon polygon;
  polygon.AddGeometry(std::make_shared<Ring>(*this));
  return InnerPoint(polygon);
}

}  // namespace tessarine
