// SPDX-License-Identifier: GPL-2.0-or-later
// ConstructUnion: one shape of all the members of a bag.
#include <algorithm>
#include <array>
#include <bit>
#include <exception>
#include <iterator>
#include <memory>
#include <span>

#include "engine/box_tree.h"
#include "engine/distinct_pieces.h"
#include "engine/geos_bridge.h"
#include "engine/planar_areas.h"
#include "platform/run_stop.h"
#include "platform/worker_pool.h"

namespace tessarine {
namespace {

using namespace engine;

using PathRef = std::shared_ptr<Path>;
using Member = std::shared_ptr<const PartedShape>;

constexpr std::size_t kAtOnce = 64;        // members, however they overlap
constexpr std::size_t kCrowdAtOnce = 4;    // of a crowd
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

std::vector<Box> BoxesOf(std::span<const Member> members) {
  std::vector<Box> boxes;
  boxes.reserve(members.size());
  for (const Member& member : members) boxes.push_back(Box::Of(member->Envelope()));
  return boxes;
}

// Members whose boxes touch, directly or through others, in the order of their first ones. Members of different groups
// share no point, so that each group is united on its own; a union of everything at once would cost far more.
std::vector<std::vector<Member>> Groups(const std::vector<Member>& shapes) {
  std::vector<std::vector<Member>> groups;
  std::size_t at = 0;
  for (const std::uint32_t number : BoxTree(BoxesOf(shapes)).ConnectedGroups()) {
    if (number == groups.size()) groups.emplace_back();
    groups[number].push_back(shapes[at++]);
  }
  return groups;
}

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
  return PartsOf(CoveredAreas(Noded(rings)));
}

// Whether each member overlaps many others, so that all crossings of their rings would be many more than those of the
// union.
bool IsCrowded(const std::vector<Member>& group) {
  if (group.size() <= kAtOnce) return false;
  std::size_t left = kCrowdedPairs * group.size();
  return !BoxTree(BoxesOf(group)).PairsWhile([&](std::uint32_t, std::uint32_t) { return left-- > 0; });
}

// Does `work(index)` on several threads, and ends by the first fault of them in order.
template <class Work>
void SpreadWork(std::size_t count, unsigned jobs, Work&& work) {
  std::vector<std::exception_ptr> ends(count);
  {
    WorkerPool pool(*RunningContext(), jobs);
    pool.Begin(count, [&](std::size_t index) {
      try {
        work(index);
      } catch (...) {
        ends[index] = std::current_exception();
      }
    });
    pool.Finish();
  }
  for (const std::exception_ptr& end : ends) {
    if (end) std::rethrow_exception(end);
  }
}

struct PlacedMember {
  Member shape;
  Box box;
};

PlacedMember Joined(std::span<const PlacedMember> members) {
  if (members.size() == 1) return members.front();
  std::vector<Member> shapes;
  Box all;
  for (const PlacedMember& member : members) {
    shapes.push_back(member.shape);
    all.Add(member.box);
  }
  auto united = std::make_shared<Polygon>();
  united->SetParts(UnitedAtOnce(shapes));
  united->MarkSimple();
  return {united, all};
}

// A crowd is divided into neighbourhoods, half by half. Neighbours are united first, and what came of them after.
class Crowd {
 public:
  explicit Crowd(std::vector<PlacedMember> members) : members_(std::move(members)) {}

  /// The same for any number of jobs.
  [[nodiscard]] Member United(unsigned jobs) {
    const unsigned levels = jobs > 1 ? static_cast<unsigned>(std::bit_width(jobs)) : 0U;
    std::vector<std::span<PlacedMember>> shares;
    Share(members_, levels, shares);
    std::vector<PlacedMember> united(shares.size());
    if (shares.size() == 1) {
      united.front() = UnitedByHalves(shares.front());
    } else {
      UniteShares(shares, united, jobs);
    }
    auto next = united.cbegin();
    return Gathered(members_, levels, next).shape;
  }

 private:
  static std::array<std::span<PlacedMember>, 2> Halves(std::span<PlacedMember> members) {
    const std::size_t half = members.size() / 2;
    return {members.first(half), members.subspan(half)};
  }

  static void SortAcross(std::span<PlacedMember> members) {
    Box all;
    for (const PlacedMember& member : members) all.Add(member.box);
    const bool wide = all.xmax - all.xmin > all.ymax - all.ymin;
    std::ranges::stable_sort(members, {}, [&](const PlacedMember& member) {
      return wide ? member.box.xmin + member.box.xmax : member.box.ymin + member.box.ymax;
    });
  }

  static PlacedMember UnitedByHalves(std::span<PlacedMember> members) {
    if (members.size() <= kCrowdAtOnce) return Joined(members);
    SortAcross(members);
    const auto [first, second] = Halves(members);
    return Joined(std::array{UnitedByHalves(first), UnitedByHalves(second)});
  }

  static void Share(std::span<PlacedMember> members, unsigned levels, std::vector<std::span<PlacedMember>>& shares) {
    if (levels == 0 || members.size() <= kCrowdAtOnce) {
      shares.push_back(members);
      return;
    }
    SortAcross(members);
    for (const std::span<PlacedMember> half : Halves(members)) Share(half, levels - 1, shares);
  }

  static PlacedMember Gathered(std::span<PlacedMember> members, unsigned levels,
                               std::vector<PlacedMember>::const_iterator& next) {
    if (levels == 0 || members.size() <= kCrowdAtOnce) return *next++;
    const auto [first, second] = Halves(members);
    const PlacedMember one = Gathered(first, levels - 1, next), other = Gathered(second, levels - 1, next);
    return Joined(std::array{one, other});
  }

  static void UniteShares(const std::vector<std::span<PlacedMember>>& shares, std::vector<PlacedMember>& united,
                          unsigned jobs) {
    SpreadWork(shares.size(), jobs, [&](std::size_t share) { united[share] = UnitedByHalves(shares[share]); });
  }

  std::vector<PlacedMember> members_;
};

unsigned Jobs() { return RunningContext() == nullptr ? 1U : RunningContext()->jobs; }

std::vector<PathRef> UnitedAreas(const std::vector<Member>& group) {
  if (group.size() == 1) return AreaOf(*group.front());
  if (!IsCrowded(group)) return UnitedAtOnce(group);
  std::vector<PlacedMember> placed;
  const std::vector<Box> boxes = BoxesOf(group);
  for (std::size_t at = 0; at < group.size(); ++at) placed.push_back({group[at], boxes[at]});
  const Member united = Crowd(std::move(placed)).United(Jobs());
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
  for (const std::vector<XY>& piece : DistinctPieces(Noded(lines))) pieces.push_back(LineToGeos(piece));
  const GeosGeometry all = CollectionToGeos(GEOS_MULTILINESTRING, std::move(pieces));
  return PathsFromGeos(Checked(GEOSLineMergeDirected_r(Geos(), all.get())).get());
}

// Groups that can be shared out: a crowd of half of the members keeps all threads busy by itself.
bool AreManyAlike(const std::vector<std::vector<Member>>& groups, std::size_t members) {
  const auto largest = std::ranges::max(groups, {}, &std::vector<Member>::size).size();
  return groups.size() > 1 && largest * 2 <= members;
}

std::vector<PathRef> UnitedParts(const std::vector<Member>& shapes, esriGeometryType type) {
  if (shapes.empty()) return {};
  const std::vector<std::vector<Member>> groups = Groups(shapes);
  std::vector<std::vector<PathRef>> united(groups.size());
  const auto unite = [&](std::size_t at) {
    EndIfStopped();
    united[at] = type == esriGeometryPolygon ? UnitedAreas(groups[at]) : UnitedLines(groups[at]);
  };
  if (Jobs() > 1 && AreManyAlike(groups, shapes.size())) {
    SpreadWork(groups.size(), Jobs(), unite);
  } else {
    for (std::size_t at = 0; at < groups.size(); ++at) unite(at);
  }
  std::vector<PathRef> parts;
  for (std::vector<PathRef>& of_group : united) std::ranges::move(of_group, std::back_inserter(parts));
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
