// SPDX-License-Identifier: GPL-2.0-or-later
// ConstructUnion: one shape of all the members of a bag.
#include <algorithm>
#include <array>
#include <iterator>
#include <memory>
#include <numeric>
#include <span>

#include "engine/box_tree.h"
#include "engine/distinct_pieces.h"
#include "engine/geos_bridge.h"
#include "engine/planar_areas.h"
#include "platform/run_stop.h"

namespace tessarine {
namespace {

using namespace engine;

using PathRef = std::shared_ptr<Path>;
using Member = std::shared_ptr<const PartedShape>;

constexpr std::size_t kAtOnce = 64;        // members, however they overlap
constexpr std::size_t kCrowdedPairs = 12;  // of boxes that meet, for each member; neighbours in a mosaic have 4

struct BagMembers {
  std::vector<Member> shapes;
  SpatialReferenceRef reference;
};

Member Simplified(const Member& shape) {
  if (shape->IsKnownSimple()) return shape;
  const auto copy = CloneOf(*shape);
  copy->Simplify();
  return copy;
}

BagMembers CollectMembers(IEnumGeometry& geometries, esriGeometryType type) {
  BagMembers members;
  geometries.Reset();
  while (const GeometryRef member = geometries.Next()) {
    if (member->GeometryType() != type) continue;
    if (!members.reference) members.reference = member->SpatialReference();
    EndIfStopped();
    if (!member->IsEmpty()) members.shapes.push_back(Simplified(Cast<PartedShape>(member)));
  }
  return members;
}

// Members whose boxes touch, directly or through others. Members of different groups share no point, so that each
// group is united on its own; a union of everything at once would cost far more.
class Groups {
 public:
  explicit Groups(const std::vector<Member>& shapes) : shapes_(shapes), parents_(shapes.size()) {
    std::iota(parents_.begin(), parents_.end(), 0U);
    std::vector<Box> boxes;
    boxes.reserve(shapes.size());
    for (const Member& shape : shapes) boxes.push_back(Box::Of(shape->Envelope()));
    BoxTree(boxes).Pairs([this](std::uint32_t first, std::uint32_t second) { Unite(first, second); });
  }

  /// In the order of their first members.
  std::vector<std::vector<Member>> Take() {
    std::vector<std::vector<Member>> groups(shapes_.size());
    for (std::uint32_t at = 0; at < shapes_.size(); ++at) groups[RootOf(at)].push_back(shapes_[at]);
    std::erase_if(groups, [](const std::vector<Member>& group) { return group.empty(); });
    return groups;
  }

 private:
  std::uint32_t RootOf(std::uint32_t member) {
    while (parents_[member] != member) member = parents_[member] = parents_[parents_[member]];
    return member;
  }
  // The first member of a group stays its root, so that the order is that of the members.
  void Unite(std::uint32_t first, std::uint32_t second) {
    const std::uint32_t root = RootOf(first), other = RootOf(second);
    parents_[std::max(root, other)] = std::min(root, other);
  }

  const std::vector<Member>& shapes_;
  std::vector<std::uint32_t> parents_;
};

NestedRings NestPartsOf(const PartedShape& polygon) {
  std::vector<const Path*> rings;
  for (const PathRef& part : polygon.Parts()) rings.push_back(part.get());
  return NestRings(rings);
}

std::vector<PathRef> AreaOf(const PartedShape& polygon) {
  std::vector<PathRef> parts;
  const auto append = [&](const Path& ring) { parts.push_back(std::make_shared<Ring>(DensifiedVertices(ring))); };
  for (const NestedRings::Shell& shell : NestPartsOf(polygon).shells) {
    append(*shell.ring);
    for (const Path* hole : shell.holes) append(*hole);
  }
  return parts;
}

// The rings with the inside at their right. The sign of a sliver's area may be wrong, and its sense with it.
void AppendRings(const PartedShape& polygon, LineList& rings) {
  const auto append = [&](const Path& ring, bool clockwise) {
    rings.push_back(DensifiedVertices(ring));
    if (RunsCounterClockwise(rings.back()) == clockwise) std::ranges::reverse(rings.back());
  };
  for (const NestedRings::Shell& shell : NestPartsOf(polygon).shells) {
    append(*shell.ring, true);
    for (const Path* hole : shell.holes) append(*hole, false);
  }
}

std::vector<PathRef> UnitedAtOnce(std::span<const Member> members) {
  LineList rings;
  for (const Member& member : members) AppendRings(*member, rings);
  return PartsOf(CoveredAreas(Noded(std::move(rings))));
}

// Whether each member overlaps many others, so that all crossings of their rings would be many more than those of the
// union.
bool IsCrowded(const std::vector<Member>& group) {
  if (group.size() <= kAtOnce) return false;
  std::vector<Box> boxes;
  for (const Member& member : group) boxes.push_back(Box::Of(member->Envelope()));
  std::size_t pairs = 0;
  BoxTree(boxes).Pairs([&](std::uint32_t, std::uint32_t) { ++pairs; });
  return pairs > kCrowdedPairs * group.size();
}

// Unites neighbours first, and what came of them after.
Member UnitedByHalves(std::span<Member> members) {
  auto united = std::make_shared<Polygon>();
  if (members.size() <= kAtOnce) {
    united->SetParts(UnitedAtOnce(members));
  } else {
    Envelope all;
    for (const Member& member : members) all.Union(member->Envelope());
    const bool wide = all.XMax() - all.XMin() > all.YMax() - all.YMin();
    std::ranges::stable_sort(members, {}, [&](const Member& member) {
      const Envelope box = member->Envelope();
      return wide ? box.XMin() + box.XMax() : box.YMin() + box.YMax();
    });
    const std::size_t half = members.size() / 2;
    const std::array halves = {UnitedByHalves(members.first(half)), UnitedByHalves(members.subspan(half))};
    united->SetParts(UnitedAtOnce(halves));
  }
  united->MarkSimple();
  return united;
}

std::vector<PathRef> UnitedAreas(std::vector<Member> group) {
  if (group.size() == 1) return AreaOf(*group.front());
  if (!IsCrowded(group)) return UnitedAtOnce(group);
  const Member united = UnitedByHalves(group);
  return {united->Parts().begin(), united->Parts().end()};
}

// The union splits lines wherever they meet. Pieces that follow each other without a branch are one path again; the
// direction of the lines stays.
std::vector<PathRef> UnitedLines(const std::vector<Member>& group) {
  LineList lines;
  for (const Member& member : group) {
    for (const PathRef& part : member->Parts()) lines.push_back(DensifiedVertices(*part));
  }
  std::vector<GeosGeometry> pieces;
  for (const std::vector<XY>& piece : DistinctPieces(Noded(std::move(lines)))) pieces.push_back(LineToGeos(piece));
  const GeosGeometry all = CollectionToGeos(GEOS_MULTILINESTRING, std::move(pieces));
  return PathsFromGeos(Checked(GEOSLineMergeDirected_r(Geos(), all.get())).get());
}

std::vector<PathRef> UnitedParts(const std::vector<Member>& shapes, esriGeometryType type) {
  std::vector<PathRef> parts;
  for (const std::vector<Member>& group : Groups(shapes).Take()) {
    EndIfStopped();
    std::ranges::move(type == esriGeometryPolygon ? UnitedAreas(group) : UnitedLines(group), std::back_inserter(parts));
  }
  return parts;
}

}  // namespace

void PartedShape::ConstructUnion(IEnumGeometry& geometries) {
  const BagMembers members = CollectMembers(geometries, GeometryType());
  if (members.reference) SetSpatialReference(members.reference);
  // A lone area is its own union, curves and all; a line that runs twice over a stretch is not.
  if (members.shapes.size() == 1 && GeometryType() == esriGeometryPolygon) {
    const auto copy = CloneOf(*members.shapes.front());
    SetParts({copy->Parts().begin(), copy->Parts().end()});
  } else {
    SetParts(UnitedParts(members.shapes, GeometryType()));
  }
  MarkSimple();
}

void Multipoint::ConstructUnion(IEnumGeometry& geometries) {
  std::vector<XY> points;
  SpatialReferenceRef reference;
  geometries.Reset();
  while (const GeometryRef member = geometries.Next()) {
    if (const auto single = Cast<tessarine::Point>(member)) {
      if (!single->IsEmpty()) points.push_back(single->Coordinates());
    } else if (const auto several = Cast<Multipoint>(member)) {
      points.insert(points.end(), several->points_.begin(), several->points_.end());
    } else {
      continue;
    }
    if (!reference) reference = member->SpatialReference();
  }
  if (reference) SetSpatialReference(reference);
  SetVertices(std::move(points));
  Simplify();
}

}  // namespace tessarine
