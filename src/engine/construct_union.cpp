// ConstructUnion: one shape of all the members of a bag.
#include <algorithm>
#include <iterator>
#include <memory>
#include <numeric>

#include "engine/geos_bridge.h"

namespace tessarine {
namespace {

using namespace engine;

struct BagMembers {
  std::vector<GeosGeometry> shapes;
  GeometryRef only;  // the member, while there is just one
  SpatialReferenceRef reference;
};

BagMembers CollectMembers(IEnumGeometry& geometries, esriGeometryType type) {
  BagMembers members;
  geometries.Reset();
  while (const GeometryRef member = geometries.Next()) {
    if (member->GeometryType() != type) continue;
    if (!members.reference) members.reference = member->SpatialReference();
    if (member->IsEmpty()) continue;
    members.only = members.shapes.empty() ? member : nullptr;
    members.shapes.push_back(ToGeos(*member));
  }
  return members;
}

// Members whose boxes touch, directly or through others. Members of different groups share no point, so that each
// group is united on its own; a union of everything at once would cost far more.
class Groups {
 public:
  explicit Groups(std::vector<GeosGeometry> shapes) : shapes_(std::move(shapes)), parents_(shapes_.size()) {
    std::iota(parents_.begin(), parents_.end(), std::size_t{0});
    Join();
  }

  /// The groups in the order of their first members, each as one collection.
  std::vector<GeosGeometry> Take() {
    std::vector<std::vector<GeosGeometry>> groups(shapes_.size());
    for (std::size_t at = 0; at < shapes_.size(); ++at) groups[RootOf(at)].push_back(std::move(shapes_[at]));
    std::vector<GeosGeometry> collections;
    for (std::vector<GeosGeometry>& group : groups) {
      if (!group.empty()) collections.push_back(CollectionToGeos(GEOS_GEOMETRYCOLLECTION, std::move(group)));
    }
    return collections;
  }

 private:
  struct TreeDestroy {
    void operator()(GEOSSTRtree* tree) const { GEOSSTRtree_destroy_r(Geos(), tree); }
  };
  struct Query {
    Groups* groups;
    std::size_t member;
  };

  void Join() {
    constexpr std::size_t kNodeCapacity = 10;
    const std::unique_ptr<GEOSSTRtree, TreeDestroy> tree(GEOSSTRtree_create_r(Geos(), kNodeCapacity));
    for (std::size_t at = 0; at < shapes_.size(); ++at) {
      GEOSSTRtree_insert_r(Geos(), tree.get(), shapes_[at].get(), &parents_[at]);
    }
    for (std::size_t at = 0; at < shapes_.size(); ++at) {
      Query query{this, at};
      GEOSSTRtree_query_r(
          Geos(), tree.get(), shapes_[at].get(),
          [](void* item, void* data) {
            const auto* asked = static_cast<Query*>(data);
            const auto found =
                static_cast<std::size_t>(static_cast<std::size_t*>(item) - asked->groups->parents_.data());
            asked->groups->Unite(asked->member, found);
          },
          &query);
    }
  }

  std::size_t RootOf(std::size_t member) {
    while (parents_[member] != member) member = parents_[member] = parents_[parents_[member]];
    return member;
  }
  // The first member of a group stays its root, so that the order is that of the members.
  void Unite(std::size_t first, std::size_t second) {
    const std::size_t root = RootOf(first), other = RootOf(second);
    parents_[std::max(root, other)] = std::min(root, other);
  }

  std::vector<GeosGeometry> shapes_;
  std::vector<std::size_t> parents_;
};

std::vector<std::shared_ptr<Path>> UnitedAreas(const GEOSGeometry* group) {
  return RingsFromGeos(Checked(GEOSUnaryUnion_r(Geos(), group)).get());
}

// The union splits lines wherever they meet. Pieces that follow each other without a branch are one path again; the
// direction of the lines stays.
std::vector<std::shared_ptr<Path>> UnitedLines(const GEOSGeometry* group) {
  const GeosGeometry pieces = Checked(GEOSUnaryUnion_r(Geos(), group));
  return PathsFromGeos(Checked(GEOSLineMergeDirected_r(Geos(), pieces.get())).get());
}

}  // namespace

void PartedShape::ConstructUnion(IEnumGeometry& geometries) {
  BagMembers members = CollectMembers(geometries, GeometryType());
  if (members.reference) SetSpatialReference(members.reference);
  if (members.shapes.empty()) {
    SetParts({});
  } else if (members.only) {
    const auto copy = Cast<PartedShape>(ObjectRef(members.only->Clone()));
    copy->Simplify();
    SetParts({copy->Parts().begin(), copy->Parts().end()});
  } else {
    std::vector<std::shared_ptr<Path>> parts;
    for (const GeosGeometry& group : Groups(std::move(members.shapes)).Take()) {
      auto united = GeometryType() == esriGeometryPolygon ? UnitedAreas(group.get()) : UnitedLines(group.get());
      std::ranges::move(united, std::back_inserter(parts));
    }
    SetParts(std::move(parts));
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
