// SPDX-License-Identifier: GPL-2.0-or-later
// Buffer, Union, Cut and SimplifyNetwork.
#include <cmath>
#include <limits>

#include "engine/geos_bridge.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

using namespace engine;

constexpr int kQuadrantSegments = 32;

GeometryRef PolygonOf(const GEOSGeometry* area, const SpatialReferenceRef& reference) {
  auto polygon = std::make_shared<Polygon>();
  polygon->SetParts(RingsFromGeos(area));
  polygon->SetSpatialReference(reference);
  polygon->MarkSimple();
  return polygon;
}

GeometryRef PolylineOf(const GEOSGeometry* lines, const SpatialReferenceRef& reference) {
  auto polyline = std::make_shared<Polyline>();
  polyline->SetParts(PathsFromGeos(lines));
  polyline->SetSpatialReference(reference);
  polyline->MarkSimple();
  return polyline;
}

GeometryRef MultipointOf(const GEOSGeometry* points, const SpatialReferenceRef& reference) {
  std::vector<XY> vertices;
  ForEachMember(points, [&](const GEOSGeometry* member, int type) {
    if (type == GEOS_POINT && GEOSisEmpty_r(Geos(), member) == 0) vertices.push_back(VerticesFromGeos(member).front());
  });
  auto multipoint = std::make_shared<Multipoint>(std::move(vertices));
  multipoint->SetSpatialReference(reference);
  return multipoint;
}

GeometryRef ShapeOf(esriGeometryType type, const GEOSGeometry* geometry, const SpatialReferenceRef& reference) {
  switch (type) {
    case esriGeometryPolygon:
      return PolygonOf(geometry, reference);
    case esriGeometryPolyline:
      return PolylineOf(geometry, reference);
    default:
      return MultipointOf(geometry, reference);
  }
}

GeometryRef BufferOf(const IGeometry& shape, double distance) {
  const GeosGeometry own = ToGeos(shape);
  return PolygonOf(Checked(GEOSBuffer_r(Geos(), own.get(), distance, kQuadrantSegments)).get(),
                   shape.SpatialReference());
}

GeometryRef UnionOf(const IGeometry& first, const IGeometry& second) {
  if (first.GeometryType() != second.GeometryType() &&
      !(first.GeometryType() == esriGeometryMultipoint && second.GeometryType() == esriGeometryPoint)) {
    Raise(kTypeMismatch, "Only shapes of one kind can be united.");
  }
  const GeosGeometry a = ToGeos(first), b = ToGeos(second);
  return ShapeOf(first.GeometryType(), Checked(GEOSUnion_r(Geos(), a.get(), b.get())).get(), first.SpatialReference());
}

// The side of the cutter on which a place lies: positive is left of the cutter's nearest segment.
double SideOf(const Polyline& cutter, XY place) {
  double nearest = std::numeric_limits<double>::infinity();
  double side = 0.0;
  for (const auto& part : cutter.Parts()) {
    const std::vector<XY> vertices = DensifiedVertices(*part);
    for (std::size_t index = 1; index < vertices.size(); ++index) {
      const XY from = vertices[index - 1], to = vertices[index];
      const double dx = to.x - from.x, dy = to.y - from.y;
      const double px = place.x - from.x, py = place.y - from.y;
      const double square = dx * dx + dy * dy;
      if (square == 0.0) continue;
      const double along = std::fmin(1.0, std::fmax(0.0, (px * dx + py * dy) / square));
      const double distance = std::hypot(px - along * dx, py - along * dy);
      if (distance < nearest) {
        nearest = distance;
        side = dx * py - dy * px;
      }
    }
  }
  return side;
}

XY InnerPlace(const GEOSGeometry* piece, int type) {
  if (type == GEOS_LINESTRING) {
    return VerticesFromGeos(Checked(GEOSInterpolateNormalized_r(Geos(), piece, 0.5)).get()).front();
  }
  return VerticesFromGeos(Checked(GEOSPointOnSurface_r(Geos(), piece)).get()).front();
}

// The pieces into which a cutter divides a shape.
GeosGeometry CutPieces(const IGeometry& shape, const GEOSGeometry* own, const GEOSGeometry* cutter) {
  if (shape.GeometryType() != esriGeometryPolygon) return Checked(GEOSDifference_r(Geos(), own, cutter));
  const GeosGeometry boundary = Checked(GEOSBoundary_r(Geos(), own));
  const GeosGeometry lines = Checked(GEOSUnion_r(Geos(), boundary.get(), cutter));
  const GEOSGeometry* const input = lines.get();
  const GeosGeometry faces = Checked(GEOSPolygonize_r(Geos(), &input, 1));
  std::vector<GeosGeometry> inside;
  ForEachMember(faces.get(), [&](const GEOSGeometry* face, int) {
    const GeosGeometry probe = Checked(GEOSPointOnSurface_r(Geos(), face));
    if (CheckedFlag(GEOSContains_r(Geos(), own, probe.get()))) {
      inside.push_back(Checked(GEOSGeom_clone_r(Geos(), face)));
    }
  });
  return CollectionToGeos(GEOS_GEOMETRYCOLLECTION, std::move(inside));
}

void CutShape(const IGeometry& shape, const Polyline& cutter, GeometryRef& left, GeometryRef& right) {
  const GeosGeometry own = ToGeos(shape), knife = ToGeos(cutter);
  const GeosGeometry pieces = CutPieces(shape, own.get(), knife.get());
  std::vector<GeosGeometry> on_left, on_right;
  ForEachMember(pieces.get(), [&](const GEOSGeometry* piece, int type) {
    if (GEOSisEmpty_r(Geos(), piece) != 0) return;
    auto& side = SideOf(cutter, InnerPlace(piece, type)) >= 0.0 ? on_left : on_right;
    side.push_back(Checked(GEOSGeom_clone_r(Geos(), piece)));
  });
  const auto collect = [&](std::vector<GeosGeometry> members) {
    const GeosGeometry all = CollectionToGeos(GEOS_GEOMETRYCOLLECTION, std::move(members));
    return ShapeOf(shape.GeometryType(), Checked(GEOSUnaryUnion_r(Geos(), all.get())).get(), shape.SpatialReference());
  };
  left = collect(std::move(on_left));
  right = collect(std::move(on_right));
}

}  // namespace

GeometryRef PartedShape::Buffer(double distance) const { return BufferOf(*this, distance); }
GeometryRef Multipoint::Buffer(double distance) const { return BufferOf(*this, distance); }

GeometryRef PartedShape::Union(const IGeometry& other) const { return UnionOf(*this, other); }
GeometryRef Multipoint::Union(const IGeometry& other) const { return UnionOf(*this, other); }

void PartedShape::Cut(const Polyline& cutter, GeometryRef& left, GeometryRef& right) const {
  CutShape(*this, cutter, left, right);
}

void Multipoint::Cut(const Polyline& cutter, GeometryRef& left, GeometryRef& right) const {
  auto on_left = std::make_shared<Multipoint>(), on_right = std::make_shared<Multipoint>();
  for (const XY point : points_) (SideOf(cutter, point) >= 0.0 ? on_left : on_right)->AddPoint(point);
  on_left->SetSpatialReference(SpatialReference());
  on_right->SetSpatialReference(SpatialReference());
  left = on_left;
  right = on_right;
}

void Polyline::SimplifyNetwork() {
  const GeosGeometry lines = ToGeos(*this);
  SetParts(PathsFromGeos(Checked(GEOSNode_r(Geos(), lines.get())).get()));
  MarkSimple();
}

}  // namespace tessarine
