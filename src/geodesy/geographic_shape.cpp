// SPDX-License-Identifier: GPL-2.0-or-later
#include "geodesy/geographic_shape.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "geodesy/longitude_continuation.h"
#include "platform/fault.h"

namespace tessarine::MyGeometricOperations {
namespace {

using Vertices = std::vector<XY>;

constexpr double kHalfTurn = 180.0;
constexpr double kPoleLatitude = 90.0 - 1e-9;

Vertices VerticesOf(const Path& path) { return {path.Vertices().begin(), path.Vertices().end()}; }

std::vector<Vertices> RingsOf(const Polygon& polygon) {
  std::vector<Vertices> rings;
  for (const auto& part : polygon.Parts()) rings.push_back(VerticesOf(*part));
  return rings;
}

bool Meets(const Vertices& ring, double sign) {
  return std::ranges::any_of(ring, [&](XY vertex) { return sign * vertex.y >= kPoleLatitude; });
}

bool MeetsPole(const Vertices& ring) { return Meets(ring, 1.0) || Meets(ring, -1.0); }

// A ring on the map, and the same ring in degrees.
struct MappedRing {
  const Path& map;
  const Vertices& degrees;
};

// The ring with the longitudes of the middles of its long steps put in, as the map has them; their latitude is no
// number. A ring of curves has other vertices on the map, and a middle may lie where the projection ends: such steps
// stay without one.
Vertices WithMiddles(const MappedRing& ring, const SpatialReferenceRef& projection,
                     const SpatialReferenceRef& degrees) {
  const bool alike = !ring.map.HasCurves() && ring.map.Vertices().size() == ring.degrees.size();
  Vertices result;
  for (std::size_t index = 0; index < ring.degrees.size(); ++index) {
    const XY vertex = ring.degrees[index];
    if (alike && index > 0 && std::fabs(vertex.x - ring.degrees[index - 1].x) > kHalfTurn) {
      const XY from = ring.map.Vertices()[index - 1], to = ring.map.Vertices()[index];
      Point middle((from.x + to.x) / 2.0, (from.y + to.y) / 2.0);
      middle.SetSpatialReference(projection);
      try {
        middle.Project(degrees);
        result.push_back({middle.X(), std::numeric_limits<double>::quiet_NaN()});
      } catch (const Fault&) {
      }
    }
    result.push_back(vertex);
  }
  return result;
}

// Carried on by way of the middles, which are left out again, and moved to where most of it lies between -180 and 180:
// two parts on either side of the edge stay where a geographic layer has them.
Vertices Mended(const Vertices& with_middles) {
  Vertices ring = CarriedOn(with_middles);
  std::erase_if(ring, [](XY vertex) { return std::isnan(vertex.y); });
  if (TurnsOf(ring) != 0) return ring;
  const auto [west, east] = std::ranges::minmax(ring, {}, &XY::x);
  const double turns = std::floor(((west.x + east.x) / 2.0 + kHalfTurn) / (2.0 * kHalfTurn));
  if (turns != 0.0) {
    for (XY& vertex : ring) vertex.x -= turns * 2.0 * kHalfTurn;
  }
  return ring;
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
bool HoldsTheRightPole(const MappedRing& ring, const Polygon& map, std::size_t place) {
  const bool north = Meets(ring.degrees, 1.0), south = Meets(ring.degrees, -1.0);
  if (north != south) return (TurnsOf(ring.degrees) < 0) == north;
  return RunsTheRightWay(map, place);
}

void MendRings(Polygon& polygon, const Polygon& map) {
  std::vector<Vertices> rings = RingsOf(polygon);
  bool torn = false;
  for (std::size_t place = 0; place < rings.size(); ++place) {
    Vertices& ring = rings[place];
    if (!HasLongStep(ring) && !MeetsPole(ring)) continue;
    Vertices carried =
        Mended(WithMiddles({*map.Parts()[place], ring}, map.SpatialReference(), polygon.SpatialReference()));
    if (carried == ring) continue;
    ring = std::move(carried);
    if (TurnsOf(ring) != 0 && !HoldsTheRightPole({*map.Parts()[place], ring}, map, place)) std::ranges::reverse(ring);
    torn = true;
  }
  if (!torn) return;
  std::vector<std::shared_ptr<Path>> parts;
  for (Vertices& ring : ArrangedRings(std::move(rings))) parts.push_back(std::make_shared<Ring>(std::move(ring)));
  polygon.SetParts(std::move(parts));
}

}  // namespace

std::shared_ptr<const GeographicCoordinateSystem> DegreesOf(const SpatialReferenceRef& reference) {
  const auto geographic = GeographicOf(reference);
  return geographic && geographic->InDegrees() ? geographic->InDegrees() : geographic;
}

void BringToDegrees(IGeometry& shape) {
  const SpatialReferenceRef own = shape.SpatialReference();
  const SpatialReferenceRef degrees = Require(DegreesOf(own), "IGeographicCoordinateSystem");
  if (own == degrees) return;
  auto* polygon = dynamic_cast<Polygon*>(&shape);
  const bool projected = Is<const ProjectedCoordinateSystem>(own);
  const std::shared_ptr<Polygon> map = polygon != nullptr && projected ? CloneOf(*polygon) : nullptr;
  shape.Project(degrees);
  if (!map) return;
  MendRings(*polygon, *map);
  // By its area on the map a ring over the edge of the map may run the wrong way.
  polygon->Simplify();
}

XY ToDegrees(XY position, const SpatialReferenceRef& layer) {
  Point point(position);
  point.SetSpatialReference(layer);
  BringToDegrees(point);
  return point.Coordinates();
}

XY FromDegrees(XY position, const SpatialReferenceRef& layer) {
  const SpatialReferenceRef degrees = Require(DegreesOf(layer), "IGeographicCoordinateSystem");
  if (degrees == layer) return position;
  Point point(position);
  point.SetSpatialReference(degrees);
  point.Project(layer);
  return point.Coordinates();
}

}  // namespace tessarine::MyGeometricOperations
