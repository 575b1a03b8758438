// SPDX-License-Identifier: GPL-2.0-or-later
// Disjoint and Contains.
#include "engine/geos_bridge.h"

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

}  // namespace

bool Point::Disjoint(const IGeometry& other) const { return AreDisjoint(*this, other); }
bool Multipoint::Disjoint(const IGeometry& other) const { return AreDisjoint(*this, other); }
bool PartedShape::Disjoint(const IGeometry& other) const { return AreDisjoint(*this, other); }

bool Point::Contains(const IGeometry& other) const { return IsWithin(*this, other); }
bool Multipoint::Contains(const IGeometry& other) const { return IsWithin(*this, other); }
bool PartedShape::Contains(const IGeometry& other) const { return IsWithin(*this, other); }

}  // namespace tessarine
