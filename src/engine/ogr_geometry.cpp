// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/ogr_geometry.h"

#include <algorithm>
#include <cmath>

#include "engine/geos_bridge.h"
#include "platform/exact_class.h"
#include "platform/fault.h"

namespace tessarine::engine {
namespace {

static_assert(sizeof(OGRRawPoint) == sizeof(XY));

std::vector<XY> VerticesOf(const OGRSimpleCurve& line) {
  std::vector<XY> vertices(static_cast<std::size_t>(line.getNumPoints()));
  if (!vertices.empty()) line.getPoints(reinterpret_cast<OGRRawPoint*>(vertices.data()), nullptr);
  return vertices;
}

void AppendLine(const OGRSimpleCurve& line, Path& path) {
  if (path.IsEmpty()) {
    path.SetVertices(VerticesOf(line));
    return;
  }
  for (int index = 1; index < line.getNumPoints(); ++index) path.AddPoint(XY{line.getX(index), line.getY(index)});
}

void AppendArcs(const OGRCircularString& arcs, Path& path) {
  const auto at = [&](int index) { return XY{arcs.getX(index), arcs.getY(index)}; };
  for (int index = 0; index + 2 < arcs.getNumPoints(); index += 2) {
    const CircularArc arc = CircularArc::Through(at(index), at(index + 1), at(index + 2));
    if (arc.sweep == 0.0) {
      path.AddSegment(Line{at(index), at(index + 2)});
    } else {
      path.AddSegment(arc);
    }
  }
}

void AppendCurve(const OGRCurve& curve, Path& path) {
  switch (wkbFlatten(curve.getGeometryType())) {
    case wkbCircularString:
      AppendArcs(*curve.toCircularString(), path);
      return;
    case wkbCompoundCurve:
      for (const OGRCurve* member : *curve.toCompoundCurve()) AppendCurve(*member, path);
      return;
    default:
      AppendLine(*curve.toSimpleCurve(), path);
  }
}

void AddPath(const OGRCurve& curve, std::vector<std::shared_ptr<Path>>& parts) {
  auto path = std::make_shared<Path>();
  AppendCurve(curve, *path);
  if (!path->IsEmpty()) parts.push_back(std::move(path));
}

void AddRing(const OGRCurve& curve, bool exterior, std::vector<std::shared_ptr<Path>>& parts) {
  auto ring = std::make_shared<Ring>();
  AppendCurve(curve, *ring);
  if (ring->IsEmpty()) return;
  const double area = ring->HasCurves() ? ring->Area() : -ChordArea(ring->Vertices());
  // A closed ring that runs the other way still begins at the same vertex.
  if (area != 0.0 && (area > 0.0) != exterior) ring->ReverseOrientation();
  parts.push_back(std::move(ring));
}

void AddPolygon(const OGRCurvePolygon& polygon, std::vector<std::shared_ptr<Path>>& parts) {
  if (polygon.getExteriorRingCurve() == nullptr) return;
  AddRing(*polygon.getExteriorRingCurve(), true, parts);
  for (int index = 0; index < polygon.getNumInteriorRings(); ++index) {
    AddRing(*polygon.getInteriorRingCurve(index), false, parts);
  }
}

[[noreturn]] void RaiseOtherKind(const OGRGeometry& geometry) {
  Raise(kTypeMismatch, std::string("A geometry of the kind ") + geometry.getGeometryName() +
                           " can't be taken as a point, line or polygon: convert the data first.");
}

void AddParts(const OGRGeometry& geometry, esriGeometryType type, std::vector<std::shared_ptr<Path>>& parts) {
  const OGRwkbGeometryType flat = wkbFlatten(geometry.getGeometryType());
  if (OGR_GT_IsSubClassOf(flat, wkbGeometryCollection)) {
    for (const OGRGeometry* member : *geometry.toGeometryCollection()) AddParts(*member, type, parts);
  } else if (type == esriGeometryPolyline && OGR_GT_IsSubClassOf(flat, wkbCurve)) {
    AddPath(*geometry.toCurve(), parts);
  } else if (type == esriGeometryPolygon && OGR_GT_IsSubClassOf(flat, wkbCurvePolygon)) {
    AddPolygon(*geometry.toCurvePolygon(), parts);
  } else if (!geometry.IsEmpty()) {
    RaiseOtherKind(geometry);
  }
}

void AddPoints(const OGRGeometry& geometry, std::vector<XY>& points) {
  const OGRwkbGeometryType flat = wkbFlatten(geometry.getGeometryType());
  if (OGR_GT_IsSubClassOf(flat, wkbGeometryCollection)) {
    for (const OGRGeometry* member : *geometry.toGeometryCollection()) AddPoints(*member, points);
  } else if (flat == wkbPoint) {
    const OGRPoint* point = geometry.toPoint();
    if (!point->IsEmpty()) points.push_back({point->getX(), point->getY()});
  } else {
    RaiseOtherKind(geometry);
  }
}

// --- To OGR --------------------------------------------------------------------------------------------------------

void FillLine(OGRSimpleCurve& line, const std::vector<XY>& vertices) {
  line.setPoints(static_cast<int>(vertices.size()), reinterpret_cast<const OGRRawPoint*>(vertices.data()), nullptr);
}

bool OnlyArcs(const Path& path) {
  return std::ranges::all_of(path.Curves(),
                             [](const auto& curve) { return curve.segment.template As<CircularArc>() != nullptr; });
}

std::unique_ptr<OGRCurve> ArcString(const Segment& segment) {
  auto arcs = std::make_unique<OGRCircularString>();
  const XY middle = segment.QueryPoint(esriNoExtension, 0.5, true);
  FillLine(*arcs, {segment.FromPoint(), middle, segment.ToPoint()});
  return arcs;
}

std::unique_ptr<OGRCurve> CompoundOf(const Path& path) {
  auto compound = std::make_unique<OGRCompoundCurve>();
  std::vector<XY> run;
  const auto finish = [&] {
    if (run.size() < 2) return;
    auto line = std::make_unique<OGRLineString>();
    FillLine(*line, run);
    compound->addCurveDirectly(line.release());
    run.clear();
  };
  for (std::int32_t index = 0; index < path.SegmentCount(); ++index) {
    const Segment segment = path.Segment(index);
    if (segment.IsCurve()) {
      finish();
      run.clear();
      compound->addCurveDirectly(ArcString(segment).release());
    } else {
      if (run.empty()) run.push_back(segment.FromPoint());
      run.push_back(segment.ToPoint());
    }
  }
  finish();
  return compound;
}

std::unique_ptr<OGRCurve> CurveOf(const Path& path, bool curves) {
  if (curves && path.HasCurves() && OnlyArcs(path)) return CompoundOf(path);
  auto line = std::make_unique<OGRLineString>();
  FillLine(*line, DensifiedVertices(path));
  return line;
}

std::unique_ptr<OGRGeometry> LinesOf(const Polyline& shape, bool curves) {
  if (shape.GeometryCount() == 1) return CurveOf(*shape.Parts().front(), curves);
  std::unique_ptr<OGRGeometryCollection> lines;
  if (curves) {
    lines = std::make_unique<OGRMultiCurve>();
  } else {
    lines = std::make_unique<OGRMultiLineString>();
  }
  for (const auto& part : shape.Parts()) lines->addGeometryDirectly(CurveOf(*part, curves).release());
  return lines;
}

std::unique_ptr<OGRGeometry> PolygonOf(const NestedRings::Shell& shell, bool curves) {
  if (curves) {
    auto polygon = std::make_unique<OGRCurvePolygon>();
    polygon->addRingDirectly(CurveOf(*shell.ring, true).release());
    for (const Path* hole : shell.holes) polygon->addRingDirectly(CurveOf(*hole, true).release());
    return polygon;
  }
  auto polygon = std::make_unique<OGRPolygon>();
  const auto add = [&](const Path& ring, bool clockwise) {
    std::vector<XY> vertices = DensifiedVertices(ring);
    if (RunsCounterClockwise(vertices) == clockwise) std::ranges::reverse(vertices);
    auto line = std::make_unique<OGRLinearRing>();
    FillLine(*line, vertices);
    polygon->addRingDirectly(line.release());
  };
  add(*shell.ring, true);
  for (const Path* hole : shell.holes) add(*hole, false);
  return polygon;
}

std::unique_ptr<OGRGeometry> AreasOf(const Polygon& shape, bool curves) {
  std::vector<const Path*> rings;
  for (const auto& part : shape.Parts()) {
    if (!part->IsEmpty()) rings.push_back(part.get());
  }
  const NestedRings nested = NestRings(rings);
  if (nested.shells.size() == 1) return PolygonOf(nested.shells.front(), curves);
  std::unique_ptr<OGRGeometryCollection> areas;
  if (curves) {
    areas = std::make_unique<OGRMultiSurface>();
  } else {
    areas = std::make_unique<OGRMultiPolygon>();
  }
  for (const auto& shell : nested.shells) areas->addGeometryDirectly(PolygonOf(shell, curves).release());
  return areas;
}

}  // namespace

esriGeometryType ShapeTypeOf(OGRwkbGeometryType type) {
  const OGRwkbGeometryType flat = wkbFlatten(type);
  if (flat == wkbPoint) return esriGeometryPoint;
  if (flat == wkbMultiPoint) return esriGeometryMultipoint;
  if (OGR_GT_IsSubClassOf(flat, wkbCurve) || OGR_GT_IsSubClassOf(flat, wkbMultiCurve)) return esriGeometryPolyline;
  if (OGR_GT_IsSubClassOf(flat, wkbCurvePolygon) || OGR_GT_IsSubClassOf(flat, wkbMultiSurface)) {
    return esriGeometryPolygon;
  }
  return esriGeometryNull;
}

GeometryRef EmptyShape(esriGeometryType type, const SpatialReferenceRef& reference) {
  GeometryRef shape;
  switch (type) {
    case esriGeometryPoint:
      shape = std::make_shared<Point>();
      break;
    case esriGeometryMultipoint:
      shape = std::make_shared<Multipoint>();
      break;
    case esriGeometryPolyline:
      shape = std::make_shared<Polyline>();
      break;
    case esriGeometryPolygon:
      shape = std::make_shared<Polygon>();
      break;
    default:
      return nullptr;
  }
  shape->SetSpatialReference(reference);
  return shape;
}

GeometryRef ShapeFromOgr(const OGRGeometry* geometry, esriGeometryType type, const SpatialReferenceRef& reference) {
  GeometryRef shape = EmptyShape(type, reference);
  if (geometry == nullptr || !shape) return shape;
  if (type == esriGeometryPoint || type == esriGeometryMultipoint) {
    std::vector<XY> points;
    AddPoints(*geometry, points);
    if (type == esriGeometryMultipoint) {
      Cast<Multipoint>(shape)->SetVertices(std::move(points));
    } else if (!points.empty()) {
      Cast<Point>(shape)->PutCoords(points.front().x, points.front().y);
    }
    return shape;
  }
  std::vector<std::shared_ptr<Path>> parts;
  AddParts(*geometry, type, parts);
  PartedShapeOf(*shape)->SetParts(std::move(parts));
  return shape;
}

std::unique_ptr<OGRGeometry> OgrFromShape(const IGeometry& shape, bool curves_allowed) {
  if (shape.IsEmpty()) return nullptr;
  // Casts are dear here: each is tried only where it will do.
  switch (shape.GeometryType()) {
    case esriGeometryPoint: {
      const auto& point = dynamic_cast<const Point&>(shape);
      return std::make_unique<OGRPoint>(point.X(), point.Y());
    }
    case esriGeometryMultipoint: {
      auto result = std::make_unique<OGRMultiPoint>();
      for (const XY xy : dynamic_cast<const Multipoint&>(shape).Vertices()) {
        result->addGeometryDirectly(new OGRPoint(xy.x, xy.y));
      }
      return result;
    }
    case esriGeometryPolyline: {
      const auto& line = dynamic_cast<const Polyline&>(shape);
      return LinesOf(line, curves_allowed && line.HasCurves());
    }
    case esriGeometryPolygon: {
      const auto& area = dynamic_cast<const Polygon&>(shape);
      return AreasOf(area, curves_allowed && area.HasCurves());
    }
    default:
      break;
  }
  Raise(kTypeMismatch, "Only points, multipoints, polylines and polygons can be stored.");
}

GeometryRef ShapeOf(const Variant& value) {
  if (value.IsEmpty() || value.IsNull()) return nullptr;
  if (value.kind() != Variant::Kind::Object) {
    Raise(kTypeMismatch, "The shape of a row can't be replaced by the value '" + value.AsText() + "'.");
  }
  return value.AsObject<IGeometry>();
}

bool HasFinitePositions(const OGRGeometry& shape) {
  if (shape.IsEmpty()) return true;
  class Look final : public OGRDefaultConstGeometryVisitor {
   public:
    bool finite = true;
    using OGRDefaultConstGeometryVisitor::visit;
    // Without a call for each vertex.
    void visit(const OGRLineString* line) override { LookAlong(*line); }
    void visit(const OGRLinearRing* ring) override { LookAlong(*ring); }
    void visit(const OGRPoint* point) override {
      finite = finite && std::isfinite(point->getX()) && std::isfinite(point->getY());
    }
    // A point without coordinates is an empty one; it counts here alone, since any vertex without them looks like it.
    void visit(const OGRMultiPoint* points) override {
      for (const OGRPoint* point : *points) {
        if (!point->IsEmpty()) visit(point);
      }
    }

   private:
    void LookAlong(const OGRSimpleCurve& line) {
      for (int index = 0; finite && index < line.getNumPoints(); ++index) {
        finite = std::isfinite(line.getX(index)) && std::isfinite(line.getY(index));
      }
    }
  } look;
  shape.accept(&look);
  return look.finite;
}

}  // namespace tessarine::engine
