// SPDX-License-Identifier: GPL-2.0-or-later
// A polygon's rings by relation to each other: exterior rings, their holes, connected components.
#include <algorithm>
#include <optional>

#include "engine/box_tree.h"
#include "engine/geos_bridge.h"
#include "engine/ring_nesting.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

using namespace engine;

using RingRef = std::shared_ptr<Ring>;

struct RingFamilies {
  std::vector<RingRef> exteriors;
  std::vector<std::vector<RingRef>> holes;  // one list for each exterior ring
  std::vector<RingRef> orphans;
};

std::vector<XY> ClosedVertices(const Path& ring) {
  std::vector<XY> vertices = DensifiedVertices(ring);
  if (!vertices.empty() && vertices.front() != vertices.back()) vertices.push_back(vertices.front());
  return vertices;
}

// Finds the smallest exterior ring around a hole.
class ExteriorSearch {
 public:
  explicit ExteriorSearch(const std::vector<RingRef>& exteriors) : exteriors_(exteriors), outlines_(exteriors.size()) {
    std::vector<Box> boxes;
    boxes.reserve(exteriors.size());
    areas_.reserve(exteriors.size());
    for (const RingRef& ring : exteriors) {
      boxes.push_back(Box::Of(ring->Envelope()));
      areas_.push_back(ring->Area());
    }
    tree_ = BoxTree(boxes);
  }

  /// Its number, or that of all where there is none.
  std::size_t Around(const Ring& hole) {
    std::vector<std::uint32_t> candidates;
    tree_.Meeting(Box::Of(hole.Envelope()), [&](std::uint32_t number) { candidates.push_back(number); });
    std::ranges::sort(candidates, [&](std::uint32_t a, std::uint32_t b) {
      return areas_[a] != areas_[b] ? areas_[a] < areas_[b] : a < b;
    });
    const std::vector<XY> inner = ClosedVertices(hole);
    const auto found =
        std::ranges::find_if(candidates, [&](std::uint32_t number) { return Outline(number).Encloses(inner); });
    return found == candidates.end() ? exteriors_.size() : *found;
  }

 private:
  EnclosingRing& Outline(std::uint32_t number) {
    std::optional<EnclosingRing>& outline = outlines_[number];
    if (!outline) outline.emplace(ClosedVertices(*exteriors_[number]));
    return *outline;
  }

  const std::vector<RingRef>& exteriors_;
  std::vector<std::optional<EnclosingRing>> outlines_;  // of the rings that were asked about
  std::vector<double> areas_;
  BoxTree tree_;
};

RingFamilies FindFamilies(const Polygon& polygon) {
  RingFamilies families;
  std::vector<RingRef> holes;
  for (const auto& part : polygon.Parts()) {
    const auto ring = Cast<Ring>(std::shared_ptr<IGeometry>(part));
    if (ring->IsEmpty()) continue;
    (ring->Area() >= 0.0 ? families.exteriors : holes).push_back(ring);
  }
  families.holes.resize(families.exteriors.size());
  if (holes.empty()) return families;

  ExteriorSearch search(families.exteriors);
  for (const RingRef& hole : holes) {
    const std::size_t number = search.Around(*hole);
    (number < families.exteriors.size() ? families.holes[number] : families.orphans).push_back(hole);
  }
  return families;
}

std::size_t IndexOf(const RingFamilies& families, const Ring& exterior) {
  const auto same = [&](const RingRef& ring) { return ring.get() == &exterior; };
  const auto equal = [&](const RingRef& ring) { return ring->IsEqual(exterior); };
  auto found = std::ranges::find_if(families.exteriors, same);
  if (found == families.exteriors.end()) found = std::ranges::find_if(families.exteriors, equal);
  if (found == families.exteriors.end()) Raise(kInvalidCall, "The ring is no exterior ring of this polygon.");
  return static_cast<std::size_t>(found - families.exteriors.begin());
}

std::shared_ptr<GeometryBag> BagOf(const std::vector<RingRef>& rings, const SpatialReferenceRef& reference) {
  auto bag = std::make_shared<GeometryBag>();
  bag->SetSpatialReference(reference);
  for (const RingRef& ring : rings) bag->AddGeometry(ring);
  return bag;
}

// A component stands alone: its rings are copies.
std::shared_ptr<Polygon> Component(const RingRef& exterior, const std::vector<RingRef>& holes,
                                   const SpatialReferenceRef& reference) {
  std::vector<std::shared_ptr<Path>> parts{CloneOf(*exterior)};
  for (const RingRef& hole : holes) parts.push_back(CloneOf(*hole));
  auto component = std::make_shared<Polygon>();
  component->SetParts(std::move(parts));
  component->SetSpatialReference(reference);
  return component;
}

}  // namespace

std::int32_t Polygon::ExteriorRingCount() const {
  return static_cast<std::int32_t>(FindFamilies(*this).exteriors.size());
}

std::int32_t Polygon::InteriorRingCount(const tessarine::Ring& exterior) const {
  const RingFamilies families = FindFamilies(*this);
  return static_cast<std::int32_t>(families.holes[IndexOf(families, exterior)].size());
}

std::vector<std::shared_ptr<Ring>> Polygon::QueryExteriorRingsEx() const { return FindFamilies(*this).exteriors; }

std::shared_ptr<GeometryBag> Polygon::ExteriorRingBag() const {
  return BagOf(FindFamilies(*this).exteriors, SpatialReference());
}

std::shared_ptr<GeometryBag> Polygon::InteriorRingBag(const tessarine::Ring& exterior) const {
  const RingFamilies families = FindFamilies(*this);
  return BagOf(families.holes[IndexOf(families, exterior)], SpatialReference());
}

std::shared_ptr<GeometryBag> Polygon::ConnectedComponentBag() const {
  auto bag = std::make_shared<GeometryBag>();
  bag->SetSpatialReference(SpatialReference());
  const RingFamilies families = FindFamilies(*this);
  // Asked once: the answer costs a look at every part.
  const bool simple = IsKnownSimple();
  const auto add = [&](const RingRef& exterior, const std::vector<RingRef>& holes) {
    const std::shared_ptr<Polygon> component = Component(exterior, holes, SpatialReference());
    if (simple) component->MarkSimple();
    bag->AddGeometry(component);
  };
  for (std::size_t index = 0; index < families.exteriors.size(); ++index) {
    add(families.exteriors[index], families.holes[index]);
  }
  for (const RingRef& orphan : families.orphans) add(orphan, {});
  return bag;
}

}  // namespace tessarine
