// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/torn_rings.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "geodesy/longitude_continuation.h"
#include "platform/fault.h"
#include "shapes/polar_sides.h"

namespace tessarine::MyGeometricOperations {
namespace {

using Vertices = std::vector<XY>;

constexpr double kHalfTurn = 180.0;
constexpr double kTurn = 360.0;
constexpr double kPole = 90.0;
constexpr double kRounding = 1e-9;
// A hundredth of a degree is a kilometre: farther than any shift of a datum moves a pole, and than any projection errs
// that loses digits there.
constexpr double kPoleReach = 0.01;
// What a seam's two sides differ by after a projection and back.
constexpr double kSeamWidth = 1e-7;

bool IsNearPole(XY vertex) { return std::fabs(vertex.y) >= kPole - kPoleReach; }

bool IsBetween(XY vertex) { return std::isnan(vertex.y); }

// How far north, or south.
double Reach(XY vertex, double sign) { return sign * vertex.y; }

bool MeetsPole(const Vertices& ring) { return std::ranges::any_of(ring, geodesy::IsAtPole); }

bool HasWidth(const Vertices& ring) {
  const auto [west, east] = std::ranges::minmax(ring, {}, &XY::x);
  return east.x - west.x > kSeamWidth;
}

// A ring on the map, and the same ring in degrees.
struct MappedRing {
  std::shared_ptr<const Path> map;
  const Vertices& degrees;
  SpatialReferenceRef projection, reference;

  [[nodiscard]] bool Alike() const { return !map->HasCurves() && map->Vertices().size() == degrees.size(); }
};

// The longitudes of the two places that cut a side of the map into thirds; fewer where the projection ends between.
std::vector<double> Between(const MappedRing& ring, std::size_t index) {
  const XY from = ring.map->Vertices()[index - 1], to = ring.map->Vertices()[index];
  std::vector<double> longitudes;
  for (const double share : {1.0 / 3.0, 2.0 / 3.0}) {
    Point place(from.x + share * (to.x - from.x), from.y + share * (to.y - from.y));
    place.SetSpatialReference(ring.projection);
    try {
      place.Project(ring.reference);
      longitudes.push_back(place.X());
    } catch (const Fault&) {
    }
  }
  return longitudes;
}

// The ring with such longitudes in all its steps; their latitude is no number.
Vertices WithPlacesBetween(const MappedRing& ring) {
  Vertices result;
  for (std::size_t index = 0; index < ring.degrees.size(); ++index) {
    if (index > 0) {
      for (const double longitude : Between(ring, index)) {
        result.push_back({longitude, std::numeric_limits<double>::quiet_NaN()});
      }
    }
    result.push_back(ring.degrees[index]);
  }
  return result;
}

// Whether a long step runs the long way on the map.
bool IsTornOnMap(const MappedRing& ring) {
  if (!ring.Alike()) return false;
  for (std::size_t index = 1; index < ring.degrees.size(); ++index) {
    const XY from = ring.degrees[index - 1], to = ring.degrees[index];
    if (std::fabs(to.x - from.x) <= kHalfTurn || IsNearPole(from) || IsNearPole(to)) continue;
    double longitude = from.x;
    for (const double between : Between(ring, index)) longitude = geodesy::CarriedOn(longitude, between);
    if (std::fabs(geodesy::CarriedOn(longitude, to.x) - from.x) > kHalfTurn + kRounding) return true;
  }
  return false;
}

// The short way, or as the map has it where that leaves no width.
Vertices Continued(const MappedRing& ring) {
  Vertices carried = geodesy::CarriedOn(ring.degrees);
  if (HasWidth(carried) || !ring.Alike() || ring.map->Envelope().Width() == 0.0) return carried;
  carried = geodesy::CarriedOn(WithPlacesBetween(ring));
  std::erase_if(carried, IsBetween);
  return carried;
}

// Moved to where most of it lies between -180 and 180: two parts on either side of the edge stay where a geographic
// layer has them.
void Centre(Vertices& ring) {
  const auto [west, east] = std::ranges::minmax(ring, {}, &XY::x);
  const double turns = std::floor(((west.x + east.x) / 2.0 + kHalfTurn) / kTurn);
  if (turns == 0.0) return;
  for (XY& vertex : ring) vertex.x -= turns * kTurn;
}

bool SamePlace(XY a, XY b) {
  return std::fabs(std::remainder(a.x - b.x, kTurn)) <= kSeamWidth && std::fabs(a.y - b.y) <= kSeamWidth;
}

// Whether a ring round the globe runs toward a pole and back along a seam: it comes next to the pole at one place
// alone, and is at one place before and after it.
bool HasSeamTo(const Vertices& ring, double sign) {
  const std::size_t count = ring.size() - 1;  // the last one is the first, a turn farther
  const auto top = std::ranges::max_element(ring, {}, [&](XY vertex) { return Reach(vertex, sign); });
  const auto is_elsewhere = [&](std::size_t index) { return !SamePlace(ring[index % count], *top); };
  const std::size_t at = static_cast<std::size_t>(top - ring.begin()) % count;
  std::size_t behind = 1, before = 1;
  while (behind < count && !is_elsewhere(at + behind)) ++behind;
  while (before < count && !is_elsewhere(at + count - before)) ++before;
  if (behind == count || before == count) return false;
  const std::size_t first = (at + count - before) % count, last = (at + behind) % count;
  return first != last && Reach(ring[first], sign) < Reach(*top, sign) && SamePlace(ring[first], ring[last]);
}

// Whether a ring round the globe runs by way of a pole: over it, past it on the way from elsewhere, or to it by a seam.
bool RunsByWayOf(const Vertices& ring, double sign) {
  const auto [least, most] = std::ranges::minmax(ring, {}, [&](XY vertex) { return Reach(vertex, sign); });
  if (Reach(most, sign) >= kPole - kRounding) return true;
  if (Reach(most, sign) >= kPole - kPoleReach && Reach(least, sign) < kPole - kPoleReach) return true;
  return HasSeamTo(ring, sign);
}

enum class Pole : std::uint8_t { North, South, None };

Pole PoleOnTheWay(const Vertices& ring) {
  const bool north = RunsByWayOf(ring, 1.0), south = RunsByWayOf(ring, -1.0);
  if (north == south) return Pole::None;
  return north ? Pole::North : Pole::South;
}

// How many rings of the map lie around one of them.
std::size_t DepthOf(const Polygon& map, std::size_t place) {
  const XY probe = map.Parts()[place]->FromPoint();
  std::size_t depth = 0;
  for (std::size_t other = 0; other < map.Parts().size(); ++other) {
    if (other != place && map.Ring(static_cast<std::int32_t>(other))->Encloses(probe)) ++depth;
  }
  return depth;
}

// Exterior rings run clockwise, holes the other way.
bool RunsTheRightWay(const Polygon& map, std::size_t place) {
  const bool exterior = DepthOf(map, place) % 2 == 0;
  return (map.Ring(static_cast<std::int32_t>(place))->Area() > 0.0) == exterior;
}

// Whether a ring round the globe has its inside at its right. One that runs by way of a pole holds that pole, though a
// map of the other hemisphere has it outside: it runs westward round the north.
bool HoldsTheRightPole(const Vertices& ring, const Polygon& map, std::size_t place) {
  const Pole pole = PoleOnTheWay(ring);
  if (pole == Pole::None) return RunsTheRightWay(map, place);
  return (geodesy::TurnsOf(ring) < 0) == (pole == Pole::North);
}

}  // namespace

MendedRings MendTornRings(Polygon& polygon, const Polygon& map) {
  MendedRings mended;
  geodesy::EnclosedPole choice = geodesy::EnclosedPole::BySense;
  const PolesOnMap poles(map.SpatialReference(), polygon.SpatialReference());
  std::vector<Vertices> rings;
  for (std::size_t place = 0; place < polygon.Parts().size(); ++place) {
    const std::shared_ptr<Path>& part = polygon.Parts()[place];
    Vertices& ring = rings.emplace_back(part->Vertices().begin(), part->Vertices().end());
    if (ring.empty() || (!geodesy::HasLongStep(ring) && !HasHalfTurn(ring) && !MeetsPole(ring) && HasWidth(ring)))
      continue;
    MappedRing mapped{map.Parts()[place], ring, map.SpatialReference(), polygon.SpatialReference()};
    const bool through_pole = mapped.Alike() && PutPolesIntoSides(mapped.map, ring, poles);
    Vertices carried = Continued(mapped);
    if (carried == ring && !through_pole) continue;
    const bool torn = IsTornOnMap(mapped);
    if (geodesy::TurnsOf(carried) == 0) {
      Centre(carried);
    } else if (torn && PoleOnTheWay(carried) == Pole::None) {
      choice = geodesy::EnclosedPole::SmallerPart;
    } else if (!HoldsTheRightPole(carried, map, place)) {
      std::ranges::reverse(carried);
    }
    mended.pole_by_sense =
        mended.pole_by_sense || (geodesy::TurnsOf(carried) != 0 && PoleOnTheWay(carried) == Pole::None);
    ring = std::move(carried);
    mended.changed = true;
    mended.torn_on_map = mended.torn_on_map || torn;
  }
  if (!mended.changed) return mended;
  std::vector<std::shared_ptr<Path>> parts;
  geodesy::ArrangedPolygon arranged = geodesy::ArrangedRings(std::move(rings), choice);
  mended.seams = std::move(arranged.seams);
  for (Vertices& ring : arranged.rings) {
    parts.push_back(std::make_shared<Ring>(std::move(ring)));
  }
  polygon.SetParts(std::move(parts));
  return mended;
}

}  // namespace tessarine::MyGeometricOperations
