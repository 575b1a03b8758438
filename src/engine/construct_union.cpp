// ConstructUnion: one shape of all the members of a bag.
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

std::vector<std::shared_ptr<Path>> UnitedAreas(const GEOSGeometry* all) {
  return RingsFromGeos(Checked(GEOSUnaryUnion_r(Geos(), all)).get());
}

// The union splits lines wherever they meet. Pieces that follow each other without a branch are one path again; the
// direction of the lines stays.
std::vector<std::shared_ptr<Path>> UnitedLines(const GEOSGeometry* all) {
  const GeosGeometry pieces = Checked(GEOSUnaryUnion_r(Geos(), all));
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
    const GeosGeometry all = CollectionToGeos(GEOS_GEOMETRYCOLLECTION, std::move(members.shapes));
    SetParts(GeometryType() == esriGeometryPolygon ? UnitedAreas(all.get()) : UnitedLines(all.get()));
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
