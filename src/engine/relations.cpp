// Disjoint, Contains and label points.
#include "engine/geos_bridge.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

using namespace engine;

bool AreDisjoint(const IGeometry& first, const IGeometry& second) {
  if (!first.Envelope().Intersects(second.Envelope())) return true;
  const GeosGeometry a = ToGeos(first), b = ToGeos(second);
  return CheckedFlag(GEOSDisjoint_r(Geos(), a.get(), b.get()));
}

bool IsWithin(const IGeometry& outer, const IGeometry& inner) {
  if (!outer.Envelope().Intersects(inner.Envelope())) return false;
  const GeosGeometry a = ToGeos(outer), b = ToGeos(inner);
  return CheckedFlag(GEOSContains_r(Geos(), a.get(), b.get()));
}

// The centre of gravity where it lies inside, else a place that GEOS finds on the widest part.
XY InnerPoint(const Polygon& polygon) {
  if (polygon.IsEmpty()) Raise(kInvalidCall, "An empty polygon has no label point.");
  const GeosGeometry own = ToGeos(polygon);
  if (GEOSisEmpty_r(Geos(), own.get()) != 0) Raise(kInvalidCall, "A polygon without area has no label point.");
  if (polygon.Area() != 0.0) {
    const XY center = polygon.Centroid();
    const GeosGeometry probe = Checked(GEOSGeom_createPointFromXY_r(Geos(), center.x, center.y));
    if (CheckedFlag(GEOSContains_r(Geos(), own.get(), probe.get()))) return center;
  }
  return VerticesFromGeos(Checked(GEOSPointOnSurface_r(Geos(), own.get())).get()).front();
}

}  // namespace

bool Point::Disjoint(const IGeometry& other) const { return AreDisjoint(*this, other); }
bool Multipoint::Disjoint(const IGeometry& other) const { return AreDisjoint(*this, other); }
bool PartedShape::Disjoint(const IGeometry& other) const { return AreDisjoint(*this, other); }

bool Point::Contains(const IGeometry& other) const { return IsWithin(*this, other); }
bool Multipoint::Contains(const IGeometry& other) const { return IsWithin(*this, other); }
bool PartedShape::Contains(const IGeometry& other) const { return IsWithin(*this, other); }

XY Polygon::LabelPoint() const { return InnerPoint(*this); }

XY Ring::LabelPoint() const {
  Polygon polygon;
  polygon.AddGeometry(std::make_shared<Ring>(*this));
  return InnerPoint(polygon);
}

}  // namespace tessarine
