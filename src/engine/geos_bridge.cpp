// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/geos_bridge.h"

#include <algorithm>
#include <cmath>

#include "engine/engine_fault.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr int kPiecesPerCircle = 360;
constexpr int kPiecesPerBezier = 64;
constexpr int kLeastPieces = 8;

class Context {
 public:
  Context() : handle_(GEOS_init_r()) {
    GEOSContext_setErrorMessageHandler_r(
        handle_, [](const char* message, void* self) { static_cast<Context*>(self)->last_error_ = message; }, this);
  }
  ~Context() { GEOS_finish_r(handle_); }
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  [[nodiscard]] GEOSContextHandle_t Handle() const { return handle_; }
  [[noreturn]] void RaiseLast() const {
    EndIfStopped();
    RaiseEngineFault("The shape can't be worked on. (GEOS says: " + last_error_ + ")");
  }

 private:
  GEOSContextHandle_t handle_;
  std::string last_error_ = "unknown error";
};

Context& TheContext() {
  thread_local Context context;
  return context;
}

GEOSCoordSequence* Sequence(const std::vector<XY>& vertices) {
  static_assert(sizeof(XY) == 2 * sizeof(double));
  GEOSCoordSequence* sequence = GEOSCoordSeq_copyFromBuffer_r(Geos(), reinterpret_cast<const double*>(vertices.data()),
                                                              static_cast<unsigned>(vertices.size()), 0, 0);
  if (sequence == nullptr) TheContext().RaiseLast();
  return sequence;
}

int PieceCount(const Segment& segment) {
  double share = static_cast<double>(kPiecesPerBezier) / kPiecesPerCircle;
  if (const auto* arc = segment.As<CircularArc>()) share = std::fabs(arc->sweep) / kTwoPi;
  if (const auto* arc = segment.As<EllipticArc>()) share = std::fabs(arc->sweep) / kTwoPi;
  return std::max(kLeastPieces, static_cast<int>(std::ceil(share * kPiecesPerCircle)));
}

GeosGeometry RingToGeos(const Path& ring) {
  std::vector<XY> vertices = DensifiedVertices(ring);
  if (!vertices.empty() && vertices.front() != vertices.back()) vertices.push_back(vertices.front());
  return Checked(GEOSGeom_createLinearRing_r(Geos(), Sequence(vertices)));
}

void AppendRing(const GEOSGeometry* ring, bool clockwise, std::vector<std::shared_ptr<Path>>& rings) {
  std::vector<XY> vertices = VerticesFromGeos(ring);
  if ((ChordArea(vertices) < 0.0) != clockwise) std::ranges::reverse(vertices);
  rings.push_back(std::make_shared<Ring>(std::move(vertices)));
}

}  // namespace

GEOSContextHandle_t Geos() { return TheContext().Handle(); }

GeosGeometry Checked(GEOSGeometry* geometry) {
  if (geometry == nullptr) TheContext().RaiseLast();
  return GeosGeometry(geometry);
}

bool CheckedFlag(char answer) {
  if (answer == 2) TheContext().RaiseLast();
  return answer == 1;
}

std::vector<XY> DensifiedVertices(const Path& path) {
  const std::span<const XY> vertices = path.Vertices();
  if (!path.HasCurves()) return {vertices.begin(), vertices.end()};
  std::vector<XY> result;
  for (std::int32_t index = 0; index < path.SegmentCount(); ++index) {
    const Segment segment = path.Segment(index);
    result.push_back(segment.FromPoint());
    if (!segment.IsCurve()) continue;
    const int pieces = PieceCount(segment);
    for (int piece = 1; piece < pieces; ++piece) {
      result.push_back(segment.QueryPoint(esriNoExtension, static_cast<double>(piece) / pieces, true));
    }
  }
  if (!vertices.empty()) result.push_back(vertices.back());
  return result;
}

GeosGeometry LineToGeos(const std::vector<XY>& vertices) {
  return Checked(GEOSGeom_createLineString_r(Geos(), Sequence(vertices)));
}

GeosGeometry NestedToGeos(const NestedRings& rings) {
  std::vector<GeosGeometry> polygons;
  for (const NestedRings::Shell& shell : rings.shells) {
    std::vector<GEOSGeometry*> holes;
    for (const Path* hole : shell.holes) holes.push_back(RingToGeos(*hole).release());
    polygons.push_back(Checked(GEOSGeom_createPolygon_r(Geos(), RingToGeos(*shell.ring).release(), holes.data(),
                                                        static_cast<unsigned>(holes.size()))));
  }
  return CollectionToGeos(GEOS_MULTIPOLYGON, std::move(polygons));
}

GeosGeometry RectangleToGeos(const Envelope& box) {
  return Checked(GEOSGeom_createRectangle_r(Geos(), box.XMin(), box.YMin(), box.XMax(), box.YMax()));
}

GeosGeometry CollectionToGeos(int type, std::vector<GeosGeometry> members) {
  std::vector<GEOSGeometry*> raw;
  raw.reserve(members.size());
  for (GeosGeometry& member : members) raw.push_back(member.release());
  return Checked(GEOSGeom_createCollection_r(Geos(), type, raw.data(), static_cast<unsigned>(raw.size())));
}

GeosGeometry ToGeos(const IGeometry& geometry) {
  if (const auto* point = dynamic_cast<const Point*>(&geometry)) {
    return Checked(point->IsEmpty() ? GEOSGeom_createEmptyPoint_r(Geos())
                                    : GEOSGeom_createPointFromXY_r(Geos(), point->X(), point->Y()));
  }
  if (const auto* points = dynamic_cast<const Multipoint*>(&geometry)) {
    std::vector<GeosGeometry> members;
    for (const XY xy : points->Vertices()) {
      members.push_back(Checked(GEOSGeom_createPointFromXY_r(Geos(), xy.x, xy.y)));
    }
    return CollectionToGeos(GEOS_MULTIPOINT, std::move(members));
  }
  if (const auto* polygon = dynamic_cast<const Polygon*>(&geometry)) {
    std::shared_ptr<Polygon> simple;
    if (!polygon->IsKnownSimple()) {
      simple = CloneOf(*polygon);
      simple->Simplify();
      polygon = simple.get();
    }
    std::vector<const Path*> rings;
    for (const auto& part : polygon->Parts()) rings.push_back(part.get());
    return rings.empty() ? CollectionToGeos(GEOS_MULTIPOLYGON, {}) : NestedToGeos(NestRings(rings));
  }
  if (const auto* line = dynamic_cast<const Polyline*>(&geometry)) {
    std::vector<GeosGeometry> members;
    for (const auto& part : line->Parts()) {
      if (part->PointCount() > 1) members.push_back(LineToGeos(DensifiedVertices(*part)));
    }
    return CollectionToGeos(GEOS_MULTILINESTRING, std::move(members));
  }
  Raise(kTypeMismatch, "Only points, multipoints, polylines and polygons can be compared or combined.");
}

std::vector<XY> VerticesFromGeos(const GEOSGeometry* geometry) {
  const GEOSCoordSequence* sequence = GEOSGeom_getCoordSeq_r(Geos(), geometry);
  unsigned count = 0;
  if (sequence == nullptr || GEOSCoordSeq_getSize_r(Geos(), sequence, &count) == 0) TheContext().RaiseLast();
  std::vector<XY> vertices(count);
  if (count > 0) GEOSCoordSeq_copyToBuffer_r(Geos(), sequence, reinterpret_cast<double*>(vertices.data()), 0, 0);
  return vertices;
}

std::vector<std::shared_ptr<Path>> RingsFromGeos(const GEOSGeometry* geometry) {
  std::vector<std::shared_ptr<Path>> rings;
  ForEachMember(geometry, [&](const GEOSGeometry* member, int type) {
    if (type != GEOS_POLYGON || GEOSisEmpty_r(Geos(), member) != 0) return;
    AppendRing(GEOSGetExteriorRing_r(Geos(), member), true, rings);
    const int holes = GEOSGetNumInteriorRings_r(Geos(), member);
    for (int index = 0; index < holes; ++index) AppendRing(GEOSGetInteriorRingN_r(Geos(), member, index), false, rings);
  });
  return rings;
}

std::vector<std::shared_ptr<Path>> PathsFromGeos(const GEOSGeometry* geometry) {
  std::vector<std::shared_ptr<Path>> paths;
  ForEachMember(geometry, [&](const GEOSGeometry* member, int type) {
    if (type != GEOS_LINESTRING || GEOSisEmpty_r(Geos(), member) != 0) return;
    paths.push_back(std::make_shared<Path>(VerticesFromGeos(member)));
  });
  return paths;
}

double ChordArea(std::span<const XY> vertices) {
  double area = 0.0;
  for (std::size_t index = 2; index < vertices.size(); ++index) {
    const XY origin = vertices[0], from = vertices[index - 1], to = vertices[index];
    area += ((from.x - origin.x) * (to.y - origin.y) - (to.x - origin.x) * (from.y - origin.y)) / 2.0;
  }
  return area;
}

}  // namespace tessarine::engine
