// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/wrap.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>
#include <utility>
#include <vector>

#include "geodesy/checked_arithmetic.h"
#include "platform/tell_user.h"
#include "platform/trap.h"
#include "shapes/vertex_walk.h"
#include "shapes/wrap_tiles.h"

namespace tessarine::MyGeometricOperations {
namespace {

using geodesy::checked::Finite;

// The spacing of vertices along cut edges of polygons, in degrees.
constexpr double kDensity = 0.1;
// So many pieces are united at a time, which bounds the places where they cross each other.
constexpr std::size_t kUnitedAtOnce = 8;

TileAxis ColumnsOf(const WrapBox& box) { return {box.west, box.Width()}; }
TileAxis RowsOf(const WrapBox& box) { return {box.south, box.Height()}; }

GeometryRef WrapPoint(const Point& point, const WrapBox& box) {
  return CopyWithVertices(point, [&](XY position) { return geodesy::WrappedInto(box, position); });
}

ITopologicalOperator& TopologyOf(const GeometryRef& geometry) {
  return *Require(Cast<ITopologicalOperator>(geometry), "ITopologicalOperator");
}

std::shared_ptr<Polygon> PolygonOf(const Envelope& extent) {
  auto polygon = std::make_shared<Polygon>();
  for (const XY corner :
       {XY{extent.XMin(), extent.YMin()}, XY{extent.XMin(), extent.YMax()}, XY{extent.XMax(), extent.YMax()},
        XY{extent.XMax(), extent.YMin()}, XY{extent.XMin(), extent.YMin()}}) {
    polygon->AddPoint(corner);
  }
  polygon->Simplify();
  return polygon;
}

double MeasureOf(const IGeometry& shape) {
  if (const auto* polygon = dynamic_cast<const Polygon*>(&shape)) return polygon->Area();
  if (const auto* line = dynamic_cast<const Polyline*>(&shape)) return line->Length();
  const auto* places = dynamic_cast<const Multipoint*>(&shape);
  if (places == nullptr) return 0.0;
  std::set<std::pair<double, double>> different;
  for (const XY place : places->Vertices()) different.emplace(place.x, place.y);
  return static_cast<double>(different.size());
}

// Each vertex may move by half the spacing of doubles at the largest coordinate on either side of the wrap.
double RoundingOf(const IGeometry& shape, const WrapBox& box) {
  constexpr double kSpacing = 2.3e-16;
  const auto* parted = dynamic_cast<const PartedShape*>(&shape);
  if (parted == nullptr || parted->IsEmpty()) return 0.0;
  const Envelope extent = shape.Envelope();
  double largest = 0.0;
  for (const double value :
       {extent.XMin(), extent.XMax(), extent.YMin(), extent.YMax(), box.west, box.east, box.south, box.north}) {
    largest = std::max(largest, std::fabs(value));
  }
  const bool is_area = shape.GeometryType() == esriGeometryPolygon;
  return 2.0 * kSpacing * largest * (is_area ? parted->Length() : static_cast<double>(parted->PointCount()));
}

// The sides of a tile come to lie exactly on those of the box.
void BringHome(const TilePiece& piece, const WrapBox& box) {
  const double dx = ColumnsOf(box).OffsetOf(piece.tile.column), dy = RowsOf(box).OffsetOf(piece.tile.row);
  if (dx == 0.0 && dy == 0.0) return;
  ShiftPointsToWrapBoundary(piece.shape, {dx, dy});
  const Envelope home = box.Extent(), moved = piece.shape->Envelope();
  if (moved.XMin() >= home.XMin() && moved.XMax() <= home.XMax() && moved.YMin() >= home.YMin() &&
      moved.YMax() <= home.YMax()) {
    return;
  }
  const auto vertices = Require(Cast<IPointCollection>(piece.shape), "IPointCollection");
  for (std::int32_t index = 0; index < vertices->PointCount(); ++index) {
    const XY place = vertices->Point(index);
    vertices->UpdatePoint(
        index, {std::clamp(place.x, home.XMin(), home.XMax()), std::clamp(place.y, home.YMin(), home.YMax())});
  }
}

// Unites polygons a few at a time; the unions are united in turn, so that no union ever has to do with many outlines
// that cross.
class PolygonUnion {
 public:
  PolygonUnion() : levels_(1) {}

  void Add(GeometryRef piece, std::size_t level = 0) {
    if (level == levels_.size()) levels_.emplace_back();
    levels_[level].push_back(std::move(piece));
    if (levels_[level].size() == kUnitedAtOnce) Add(United(std::exchange(levels_[level], {})), level + 1);
  }
  [[nodiscard]] GeometryRef Result() {
    std::vector<GeometryRef> rest;
    for (std::vector<GeometryRef>& level : levels_) std::ranges::move(level, std::back_inserter(rest));
    return United(std::move(rest));
  }

 private:
  static GeometryRef United(std::vector<GeometryRef> shapes) {
    if (shapes.size() == 1) return shapes.front();
    GeometryBag bag;
    for (const GeometryRef& shape : shapes) bag.AddGeometry(shape);
    auto target = std::make_shared<Polygon>();
    target->ConstructUnion(bag);
    return target;
  }
  std::vector<std::vector<GeometryRef>> levels_;
};

GeometryRef UnitedPolygon(const TilePieces& cut, const WrapBox& box, const KeepGoing& keep_going) {
  GeometryRef result = PolygonOf(box.Extent());
  if (!cut.covers_a_tile) {
    PolygonUnion united;
    for (const TilePiece& piece : cut.pieces) {
      if (keep_going && !keep_going()) return nullptr;
      TopologyOf(piece.shape).Simplify();
      united.Add(piece.shape);
    }
    result = united.Result();
  }
  TopologyOf(result).ClipDense(box.Extent(), kDensity);
  return result;
}

// Lines aren't united, which would take one of two stretches that coincide.
GeometryRef JoinedLine(const TilePieces& cut) {
  std::vector<std::shared_ptr<Path>> parts;
  for (const TilePiece& piece : cut.pieces) {
    std::ranges::copy(Cast<Polyline>(piece.shape)->Parts(), std::back_inserter(parts));
  }
  auto line = std::make_shared<Polyline>();
  line->SetParts(std::move(parts));
  return line;
}

GeometryRef JoinedPlaces(const TilePieces& cut) {
  std::vector<XY> places;
  for (const TilePiece& piece : cut.pieces) {
    std::ranges::copy(Cast<Multipoint>(piece.shape)->Vertices(), std::back_inserter(places));
  }
  return std::make_shared<Multipoint>(std::move(places));
}

bool CanBeCut(const IGeometry& geometry) {
  const esriGeometryType type = geometry.GeometryType();
  return type == esriGeometryPolyline || type == esriGeometryPolygon || type == esriGeometryMultipoint;
}

WrappedShape WrapShape(const GeometryRef& geometry, const WrapBox& box, const KeepGoing& keep_going) {
  if (!CanBeCut(*geometry)) Raise(kTypeMismatch, "Only points, multipoints, polylines and polygons can be wrapped.");
  geodesy::RequireReach(geometry->Envelope(), box);
  const SpatialReferenceRef reference = geometry->SpatialReference();
  const esriGeometryType type = geometry->GeometryType();
  WrappedShape wrapped;
  if (type != esriGeometryMultipoint) TopologyOf(geometry).Simplify();
  wrapped.measure_before = MeasureOf(*geometry);
  wrapped.rounding = RoundingOf(*geometry, box);

  const TilePieces cut = CutIntoTiles(geometry, ColumnsOf(box), RowsOf(box), keep_going);
  wrapped.stopped = cut.stopped;
  if (cut.stopped) return wrapped;
  for (const TilePiece& piece : cut.pieces) BringHome(piece, box);
  wrapped.shape = type == esriGeometryPolygon    ? UnitedPolygon(cut, box, keep_going)
                  : type == esriGeometryPolyline ? JoinedLine(cut)
                                                 : JoinedPlaces(cut);
  wrapped.stopped = !wrapped.shape;
  if (wrapped.stopped) return wrapped;
  TopologyOf(wrapped.shape).Simplify();
  wrapped.shape->SetSpatialReference(reference);
  wrapped.measure_after = MeasureOf(*wrapped.shape);
  return wrapped;
}

}  // namespace

GeometryRef WrapToBoundary(const GeometryRef& geometry, double west, double east, double south, double north,
                           const std::shared_ptr<IMxDocument>&) {
  return TrapHelper("WrapToBoundary", [&] {
    const WrapBox box{west, north, east, south};
    geodesy::RequireSides(box);
    const auto point = Cast<Point>(Require(geometry, "Geometry"));
    return point ? WrapPoint(*point, box) : WrapShape(CloneOf(*geometry), box, nullptr).shape;
  });
}

WrappedShape WrapOwnShape(const GeometryRef& geometry, const WrapBox& box, const KeepGoing& keep_going) {
  return TrapHelper("WrapToBoundary", [&] {
    geodesy::RequireSides(box);
    const auto point = Cast<Point>(Require(geometry, "Geometry"));
    return point ? WrappedShape{.shape = WrapPoint(*point, box)} : WrapShape(geometry, box, keep_going);
  });
}

void ShiftPointsToWrapBoundary(const GeometryRef& geometry, const DoubleArray& shift) {
  TrapHelper("ShiftPointsToWrapBoundary", [&] {
    const double dx = shift.Element(0), dy = shift.Element(1);
    Require(Cast<ITransform2D>(geometry), "ITransform2D")->Move(-dx, -dy);
  });
}

GeometryRef FeatureLongitudeShift(const GeometryRef& geometry, double shift) {
  return TrapHelper("FeatureLongitudeShift", [&] {
    const GeometryRef shifted = CopyWithVertices(*Require(geometry, "Geometry"), [&](XY vertex) {
      return XY{Finite(vertex.x + shift), vertex.y};
    });
    if (!shifted) {
      TellUser(
          "Unexpected Geometry Type:\r\nThe function 'FeatureLongitudeShift' only accepts points, "
          "polylines, polygons or multipoints.",
          "");
    }
    return shifted;
  });
}

}  // namespace tessarine::MyGeometricOperations
