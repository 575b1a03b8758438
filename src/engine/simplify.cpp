// SPDX-License-Identifier: GPL-2.0-or-later
// Simplify, for polygons, polylines and multipoints.
#include <algorithm>
#include <cmath>
#include <set>
#include <unordered_set>

#include "engine/geos_bridge.h"
#include "engine/plain_ring.h"
#include "engine/planar_areas.h"
#include "engine/snap_rounding.h"

namespace tessarine {
namespace {

using namespace engine;
using PathRef = std::shared_ptr<Path>;

// Repeated vertices make segments without length, unless a curve leads back to its own start.
void DropRepeatedVertices(Path& path) {
  const std::span<const XY> vertices = path.Vertices();
  bool repeated = false;
  for (std::size_t index = 1; index < vertices.size() && !repeated; ++index) {
    repeated = vertices[index] == vertices[index - 1];
  }
  if (!repeated) return;
  Path kept;
  for (std::int32_t index = 0; index < path.SegmentCount(); ++index) {
    const Segment segment = path.Segment(index);
    if (segment.FromPoint() != segment.ToPoint() || (segment.IsCurve() && segment.Length() > 0.0)) {
      kept.AddSegment(segment);
    }
  }
  const std::span<const XY> rest = kept.Vertices();
  const auto curves = kept.Curves();
  path.SetVertices({rest.begin(), rest.end()}, {curves.begin(), curves.end()});
}

// Whether a ring bounds nothing because it runs back and forth on one line. One without area need not: the loops of a
// figure of eight cancel each other out.
bool LiesOnOneLine(const Ring& ring) {
  const std::vector<XY> vertices = DensifiedVertices(ring);
  const XY start = vertices.front();
  const auto other = std::ranges::find_if(vertices, [&](XY vertex) { return vertex != start; });
  if (other == vertices.end()) return true;
  return std::ranges::all_of(vertices, [&](XY vertex) {
    return GEOSOrientationIndex_r(Geos(), start.x, start.y, other->x, other->y, vertex.x, vertex.y) == 0;
  });
}

// A simple copy of a parted shape's parts, without those that bound nothing. The parts themselves are changed only
// where they must be.
std::vector<PathRef> UsableParts(const PartedShape& shape, bool rings) {
  std::vector<PathRef> parts;
  for (const PathRef& part : shape.Parts()) {
    DropRepeatedVertices(*part);
    if (!rings) {
      if (part->PointCount() > 1) parts.push_back(part);
      continue;
    }
    auto ring = Cast<Ring>(part);
    if (!ring) continue;
    ring->Close();
    if (ring->PointCount() < (ring->HasCurves() ? 2 : 4)) continue;
    if (ring->Area() == 0.0 && LiesOnOneLine(*ring)) continue;
    parts.push_back(ring);
  }
  return parts;
}

std::vector<const Path*> Pointers(const std::vector<PathRef>& parts) {
  std::vector<const Path*> pointers;
  for (const PathRef& part : parts) pointers.push_back(part.get());
  return pointers;
}

void Orient(Path& ring, bool clockwise) {
  if ((dynamic_cast<const Ring&>(ring).Area() > 0.0) != clockwise) ring.ReverseOrientation();
}

// Shells run clockwise, holes the other way.
void OrientAll(const NestedRings& nested, const std::vector<PathRef>& parts) {
  std::unordered_set<const Path*> holes;
  for (const NestedRings::Shell& shell : nested.shells) holes.insert(shell.holes.begin(), shell.holes.end());
  for (const PathRef& part : parts) Orient(*part, !holes.contains(part.get()));
}

// Where a ring crosses itself by rounding alone, a sliver is left that no grid of its reference could hold, or none of
// whose sides doubles tell from the others.
std::vector<PathRef> Repair(const std::vector<PathRef>& parts, double resolution) {
  LineList rings;
  for (const PathRef& part : parts) rings.push_back(DensifiedVertices(*part));
  const double width = std::max(resolution, FinestGrid(rings));
  std::vector<PathRef> mended = PartsOf(EvenOddAreas(Noded(rings)));
  std::erase_if(
      mended, [&](const PathRef& part) { return std::fabs(Cast<Ring>(part)->Area()) * 2.0 <= width * part->Length(); });
  return mended;
}

bool SameParts(std::span<const PathRef> first, const std::vector<PathRef>& second) {
  return std::ranges::equal(first, second);
}

double ResolutionOf(const IGeometry& shape) {
  const SpatialReferenceRef& reference = shape.SpatialReference();
  return reference && reference->XYToleranceValid() ? reference->XYResolution() : 0.0;
}

bool ArePlain(const std::vector<PathRef>& parts) {
  if (std::ranges::any_of(parts, [](const PathRef& part) { return part->HasCurves(); })) return false;
  std::vector<std::span<const XY>> rings;
  rings.reserve(parts.size());
  for (const PathRef& part : parts) rings.push_back(part->Vertices());
  return ArePlainRings(rings);
}

void SimplifyPolygon(PartedShape& polygon) {
  std::vector<PathRef> parts = UsableParts(polygon, true);
  if (parts.size() == 1 && !parts.front()->HasCurves()) {
    if (IsPlainRing(parts.front()->Vertices())) {
      Orient(*parts.front(), true);
    } else {
      parts = Repair(parts, ResolutionOf(polygon));
    }
  } else if (!parts.empty()) {
    const NestedRings nested = NestRings(Pointers(parts));
    if (ArePlain(parts) || CheckedFlag(GEOSisValid_r(Geos(), NestedToGeos(nested).get()))) {
      OrientAll(nested, parts);
    } else {
      parts = Repair(parts, ResolutionOf(polygon));
    }
  }
  if (!SameParts(polygon.Parts(), parts)) polygon.SetParts(std::move(parts));
}

// A polygon that would stay as it is, told without a copy.
bool IsOnePlainRing(const PartedShape& shape) {
  if (shape.GeometryType() != esriGeometryPolygon || shape.Parts().size() != 1) return false;
  const auto ring = dynamic_cast<const Ring*>(shape.Parts().front().get());
  return ring != nullptr && !ring->HasCurves() && IsPlainRing(ring->Vertices()) && ring->Area() > 0.0;
}

void SimplifyPolyline(PartedShape& line) {
  std::vector<PathRef> parts = UsableParts(line, false);
  if (!SameParts(line.Parts(), parts)) line.SetParts(std::move(parts));
}

bool IsDistinct(std::span<const XY> points) {
  std::set<std::pair<double, double>> seen;
  return std::ranges::all_of(points, [&](XY point) { return seen.emplace(point.x, point.y).second; });
}

}  // namespace

void PartedShape::Simplify() {
  if (IsKnownSimple()) return;
  if (GeometryType() == esriGeometryPolygon) {
    SimplifyPolygon(*this);
  } else {
    SimplifyPolyline(*this);
  }
  MarkSimple();
}

bool PartedShape::IsSimple() const {
  if (IsKnownSimple() || IsOnePlainRing(*this)) return true;
  const auto copy = CloneOf(*this);
  copy->Simplify();
  return copy->IsEqual(*this);
}

bool Multipoint::IsSimple() const { return known_simple_ || IsDistinct(points_); }

void Multipoint::Simplify() {
  if (known_simple_) return;
  if (!IsDistinct(points_)) {
    std::set<std::pair<double, double>> seen;
    std::erase_if(points_, [&](XY point) { return !seen.emplace(point.x, point.y).second; });
  }
  known_simple_ = true;
}

}  // namespace tessarine
