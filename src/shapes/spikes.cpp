// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/spikes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

namespace tessarine::MyGeometricOperations {
namespace {

using PathRef = std::shared_ptr<Path>;

std::shared_ptr<Polygon> PolygonOf(std::vector<PathRef> rings, const SpatialReferenceRef& reference) {
  auto polygon = std::make_shared<Polygon>();
  polygon->SetParts(std::move(rings));
  polygon->SetSpatialReference(reference);
  return polygon;
}

double AreaOf(const PathRef& ring) { return Cast<Ring>(ring)->Area(); }

// Whether simplifying took no vertex away and added none.
bool HasTheSameVertices(const Polygon& first, const Polygon& second) {
  return std::ranges::equal(
      first.Parts(), second.Parts(), {}, [](const PathRef& part) { return part->PointCount(); },
      [](const PathRef& part) { return part->PointCount(); });
}

// The ring by itself made simple, if that costs it nothing but spikes; otherwise null.
PathRef WithoutSpikes(const PathRef& ring, const SpatialReferenceRef& reference) {
  const auto alone = PolygonOf({CloneOf(*ring)}, reference);
  alone->Simplify();
  if (alone->GeometryCount() != 1) return nullptr;
  const PathRef& simple = alone->Parts().front();
  const double lost = std::fabs(std::fabs(AreaOf(ring)) - std::fabs(AreaOf(simple)));
  return lost <= reference->XYResolution() * ring->Length() ? simple : nullptr;
}

// The rings without their spikes, each turned as it must run; none where there is more to mend.
std::vector<PathRef> RingsWithoutSpikes(const Polygon& polygon) {
  std::vector<PathRef> rings;
  for (const PathRef& part : polygon.Parts()) {
    PathRef ring = WithoutSpikes(part, polygon.SpatialReference());
    if (!ring) return {};
    rings.push_back(std::move(ring));
  }
  const auto together = PolygonOf(rings, polygon.SpatialReference());
  const auto simple = CloneOf(*together);
  simple->Simplify();
  if (!HasTheSameVertices(*together, *simple)) return {};
  return {simple->Parts().begin(), simple->Parts().end()};
}

PathRef WithoutRepeatedVertices(const Path& ring) {
  std::vector<XY> vertices(ring.Vertices().begin(), ring.Vertices().end());
  const auto repeated = std::ranges::unique(vertices);
  vertices.erase(repeated.begin(), repeated.end());
  return std::make_shared<Ring>(std::move(vertices));
}

}  // namespace

bool MarkSimpleButForSpikes(Polygon& polygon) {
  if (polygon.IsKnownSimple()) return true;
  const SpatialReferenceRef& reference = polygon.SpatialReference();
  if (polygon.HasCurves() || !reference || !reference->XYToleranceValid()) return false;
  const auto simple = CloneOf(polygon);
  simple->Simplify();
  std::vector<PathRef> rings(simple->Parts().begin(), simple->Parts().end());
  if (!HasTheSameVertices(polygon, *simple)) {
    const std::vector<PathRef> guides = RingsWithoutSpikes(polygon);
    if (guides.empty()) return false;
    rings.clear();
    for (std::size_t index = 0; index < guides.size(); ++index) {
      PathRef ring = WithoutRepeatedVertices(*polygon.Parts()[index]);
      if ((AreaOf(ring) > 0.0) != (AreaOf(guides[index]) > 0.0)) ring->ReverseOrientation();
      rings.push_back(std::move(ring));
    }
  }
  polygon.SetParts(std::move(rings));
  polygon.MarkSimple();
  return true;
}

}  // namespace tessarine::MyGeometricOperations
