#include <algorithm>
#include <cmath>

#include "platform/fault.h"
#include "platform/geometry.h"

namespace tessarine {
namespace {

using RingRef = std::shared_ptr<Ring>;

bool Covers(const Envelope& outer, const Envelope& inner) {
  return outer.XMin() <= inner.XMin() && outer.YMin() <= inner.YMin() && outer.XMax() >= inner.XMax() &&
         outer.YMax() >= inner.YMax();
}

// True when the hole lies in the ring. A hole may touch the ring, so a vertex on the ring's line decides nothing:
// the greater part of the vertices and middles does.
bool HoleLiesIn(const Ring& hole, const Ring& outer) {
  int inside = 0, outside = 0;
  const std::span<const XY> vertices = hole.Vertices();
  for (std::size_t index = 0; index + 1 < vertices.size(); ++index) {
    const XY from = vertices[index], to = vertices[index + 1];
    for (const XY probe : {from, XY{(from.x + to.x) / 2.0, (from.y + to.y) / 2.0}}) {
      ++(outer.Encloses(probe) ? inside : outside);
    }
    // Without contact, the first probes agree.
    if (index == 1 && (inside == 0 || outside == 0)) break;
  }
  return inside > outside;
}

struct RingFamilies {
  std::vector<RingRef> exteriors;
  std::vector<std::vector<RingRef>> holes;  // one list for each exterior ring
  std::vector<RingRef> orphans;
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

  struct Candidate {
    Envelope box;
    double area;
  };
  std::vector<Candidate> candidates;
  candidates.reserve(families.exteriors.size());
  for (const RingRef& ring : families.exteriors) candidates.push_back({ring->Envelope(), ring->Area()});
  for (const RingRef& hole : holes) {
    const Envelope box = hole->Envelope();
    std::size_t best = candidates.size();
    for (std::size_t index = 0; index < candidates.size(); ++index) {
      if (!Covers(candidates[index].box, box)) continue;
      if (best < candidates.size() && candidates[index].area >= candidates[best].area) continue;
      if (HoleLiesIn(*hole, *families.exteriors[index])) best = index;
    }
    if (best < candidates.size()) {
      families.holes[best].push_back(hole);
    } else {
      families.orphans.push_back(hole);
    }
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
std::shared_ptr<Polygon> Component(const RingRef& exterior, const std::vector<RingRef>& holes, const Polygon& source) {
  std::vector<std::shared_ptr<Path>> parts{CloneOf(*exterior)};
  for (const RingRef& hole : holes) parts.push_back(CloneOf(*hole));
  auto component = std::make_shared<Polygon>();
  component->SetParts(std::move(parts));
  component->SetSpatialReference(source.SpatialReference());
  if (source.IsKnownSimple()) component->MarkSimple();
  return component;
}

}  // namespace

ObjectRef Polygon::Clone() const {
  auto copy = std::make_shared<Polygon>();
  CopyPartsTo(*copy);
  return copy;
}

std::shared_ptr<Path> Polygon::NewPart() const { return std::make_shared<tessarine::Ring>(); }

void Polygon::AddGeometry(const GeometryRef& geometry) {
  auto ring = Cast<tessarine::Ring>(geometry);
  if (!ring) Raise(kTypeMismatch, "A polygon takes rings only.");
  AppendPart(std::move(ring));
}

void Polygon::Close() {
  for (std::int32_t index = 0; index < GeometryCount(); ++index) Ring(index)->Close();
}

std::shared_ptr<Ring> Polygon::Ring(std::int32_t index) const { return Cast<tessarine::Ring>(Geometry(index)); }

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
  for (std::size_t index = 0; index < families.exteriors.size(); ++index) {
    bag->AddGeometry(Component(families.exteriors[index], families.holes[index], *this));
  }
  for (const RingRef& orphan : families.orphans) bag->AddGeometry(Component(orphan, {}, *this));
  return bag;
}

double Polygon::Area() const {
  double area = 0.0;
  for (std::int32_t index = 0; index < GeometryCount(); ++index) area += Ring(index)->Area();
  return area;
}

XY Polygon::Centroid() const {
  double area = 0.0, x = 0.0, y = 0.0;
  if (IsEmpty()) Raise(kInvalidCall, "An empty polygon has no centre of gravity.");
  // Moments about a place of the shape itself keep their digits far from the origin.
  const XY origin = FromPoint();
  for (std::int32_t index = 0; index < GeometryCount(); ++index) {
    const std::shared_ptr<tessarine::Ring> ring = Ring(index);
    const double ring_area = ring->Area();
    if (ring_area == 0.0) continue;
    const XY center = ring->Centroid();
    area += ring_area;
    x += (center.x - origin.x) * ring_area;
    y += (center.y - origin.y) * ring_area;
  }
  if (area == 0.0) Raise(kDivisionByZero, "A polygon without area has no centre of gravity.");
  return {origin.x + x / area, origin.y + y / area};
}

// --- GeometryBag ---------------------------------------------------------------------------------------------------

Envelope GeometryBag::Envelope() const {
  tessarine::Envelope box;
  for (const GeometryRef& member : members_) box.Union(member->Envelope());
  return box;
}

ObjectRef GeometryBag::Clone() const {
  auto copy = std::make_shared<GeometryBag>();
  copy->SetSpatialReference(SpatialReference());
  for (const GeometryRef& member : members_) copy->AddGeometry(CloneOf(*member));
  return copy;
}

bool GeometryBag::IsEqual(const Object& other) const {
  const auto* bag = dynamic_cast<const GeometryBag*>(&other);
  return bag != nullptr && std::ranges::equal(members_, bag->members_, [](const auto& first, const auto& second) {
           return first->IsEqual(*second);
         });
}

GeometryRef GeometryBag::Geometry(std::int32_t index) const {
  if (index < 0 || index >= GeometryCount()) {
    Raise(kInvalidCall, "The bag has no member " + std::to_string(index) + ".");
  }
  return members_[static_cast<std::size_t>(index)];
}

void GeometryBag::AddGeometry(const GeometryRef& geometry) {
  if (!geometry) Raise(kObjectNotSet, "A bag takes no empty reference.");
  members_.push_back(geometry);
}

GeometryRef GeometryBag::Next() { return next_ < members_.size() ? members_[next_++] : nullptr; }

}  // namespace tessarine
