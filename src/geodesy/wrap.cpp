#include "geodesy/wrap.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "geodesy/checked_arithmetic.h"
#include "geodesy/vertex_walk.h"
#include "platform/host.h"
#include "platform/trap.h"

namespace tessarine::MyGeometricOperations {
namespace {

using checked::Finite;

// The spacing of vertices along cut edges of polygons, in degrees.
constexpr double kDensity = 0.1;
// Past this many widths or heights, or tiles in all, the walk in single steps is refused.
constexpr double kFarthest = 1e6;
constexpr double kMostTiles = 1e8;

struct Box {
  double west, east, south, north;
  double width = Finite(east - west), height = Finite(north - south);
};

Box BoxOf(double west, double east, double south, double north) {
  const Box box{west, east, south, north};
  if (!(box.width > 0.0) || !(box.height > 0.0)) Raise(kInvalidCall, "The boundary box has no width or no height.");
  return box;
}

void RequireReach(double value, double side, double size) {
  if (std::fabs(Finite(value) - side) / size > kFarthest) {
    Raise(kInvalidCall, "The shape lies more than a million boxes away from the boundary box.");
  }
}

double Wrapped(double value, double low, double high, double size) {
  RequireReach(value, low, size);
  while (value > high) value -= size;
  while (value < low) value += size;
  return value;
}

XY WrappedInto(const Box& box, XY position) {
  return {Wrapped(position.x, box.west, box.east, box.width), Wrapped(position.y, box.south, box.north, box.height)};
}

GeometryRef WrapPoint(const Point& point, const Box& box) {
  return CopyWithVertices(point, [&](XY position) { return WrappedInto(box, position); });
}

void RequireReach(const Envelope& extent, const Box& box) {
  RequireReach(extent.XMin(), box.west, box.width);
  RequireReach(extent.XMax(), box.west, box.width);
  RequireReach(extent.YMin(), box.south, box.height);
  RequireReach(extent.YMax(), box.south, box.height);
  const double columns = (std::max(extent.XMax(), box.west) - std::min(extent.XMin(), box.west)) / box.width + 1.0;
  const double rows = (std::max(extent.YMax(), box.south) - std::min(extent.YMin(), box.south)) / box.height + 1.0;
  if (columns * rows > kMostTiles) Raise(kInvalidCall, "The shape covers too many copies of the boundary box.");
}

// A copy of the box that the shape reaches into, and its offset from the box.
struct Tile {
  Envelope extent;
  DoubleArray shift;
};

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

// Tiles far from the shape's extent are passed over before a polygon is built for them.
bool Meets(const IRelationalOperator& shape, const Envelope& shape_extent, const Envelope& tile) {
  return !shape_extent.IsEmpty() && tile.Intersects(shape_extent) && !shape.Disjoint(*PolygonOf(tile));
}

// Column by column from the south-western tile, the offsets counted along with the tiles.
std::vector<Tile> TilesOf(const IGeometry& geometry, const Box& box) {
  const auto* shape = dynamic_cast<const IRelationalOperator*>(&geometry);
  if (shape == nullptr) Raise(kTypeMismatch, "The shape can't be compared with the boundary box.");
  const Envelope extent = geometry.Envelope();
  RequireReach(extent, box);

  double tile_x = box.west, tile_y = box.south, shift_x = 0.0, shift_y = 0.0;
  for (; tile_x > extent.XMin(); tile_x -= box.width) shift_x -= box.width;
  for (; tile_y > extent.YMin(); tile_y -= box.height) shift_y -= box.height;
  const double column_y = tile_y, column_shift_y = shift_y;

  std::vector<Tile> tiles;
  for (; tile_x < extent.XMax(); tile_x += box.width, shift_x += box.width) {
    for (; tile_y < extent.YMax(); tile_y += box.height, shift_y += box.height) {
      const Envelope tile(tile_x, tile_y, tile_x + box.width, tile_y + box.height);
      if (Meets(*shape, extent, tile)) tiles.push_back({tile, {shift_x, shift_y}});
    }
    tile_y = column_y;
    shift_y = column_shift_y;
  }
  return tiles;
}

GeometryRef NewTarget(esriGeometryType type) {
  switch (type) {
    case esriGeometryPolyline:
      return std::make_shared<Polyline>();
    case esriGeometryPolygon:
      return std::make_shared<Polygon>();
    case esriGeometryMultipoint:
      return std::make_shared<Multipoint>();
    default:
      return nullptr;
  }
}

ITopologicalOperator& TopologyOf(const GeometryRef& geometry) {
  return *Require(Cast<ITopologicalOperator>(geometry), "ITopologicalOperator");
}

GeometryRef PieceIn(const Tile& tile, const IGeometry& source) {
  const GeometryRef piece = CloneOf(source);
  ITopologicalOperator& topology = TopologyOf(piece);
  if (source.GeometryType() == esriGeometryPolygon) {
    topology.ClipDense(tile.extent, kDensity);
  } else {
    topology.Clip(tile.extent);
  }
  ShiftPointsToWrapBoundary(piece, tile.shift);
  topology.Simplify();
  return piece;
}

GeometryRef WrapShape(const IGeometry& geometry, const Box& box) {
  const std::vector<Tile> tiles = TilesOf(geometry, box);
  GeometryBag bag;
  const GeometryRef target = NewTarget(geometry.GeometryType());
  // Every tile cuts the same simple shape, so it is made simple once; the places of a multipoint are cut as they are.
  const GeometryRef source = CloneOf(geometry);
  if (!tiles.empty() && geometry.GeometryType() != esriGeometryMultipoint) TopologyOf(source).Simplify();
  for (const Tile& tile : tiles) bag.AddGeometry(PieceIn(tile, *source));
  ITopologicalOperator& united = TopologyOf(target);
  united.ConstructUnion(bag);
  united.Simplify();
  return target;
}

}  // namespace

GeometryRef WrapToBoundary(const GeometryRef& geometry, double west, double east, double south, double north,
                           const std::shared_ptr<IMxDocument>&) {
  return Trap("WrapToBoundary", [&] {
    const Box box = BoxOf(west, east, south, north);
    const auto point = Cast<Point>(Require(geometry, "Geometry"));
    return point ? WrapPoint(*point, box) : WrapShape(*geometry, box);
  });
}

XY WrapPosition(XY position, double west, double east, double south, double north) {
  return WrappedInto(BoxOf(west, east, south, north), position);
}

void ShiftPointsToWrapBoundary(const GeometryRef& geometry, const DoubleArray& shift) {
  Trap("ShiftPointsToWrapBoundary", [&] {
    const double dx = shift.Element(0), dy = shift.Element(1);
    Require(Cast<ITransform2D>(geometry), "ITransform2D")->Move(-dx, -dy);
  });
}

GeometryRef FeatureLongitudeShift(const GeometryRef& geometry, double shift) {
  return Trap("FeatureLongitudeShift", [&] {
    const GeometryRef shifted = CopyWithVertices(*Require(geometry, "Geometry"), [&](XY vertex) {
      return XY{Finite(vertex.x + shift), vertex.y};
    });
    if (!shifted) {
      Host().MessageBox().Show(
          "Unexpected Geometry Type:\r\nThe function 'FeatureLongitudeShift' only accepts points, "
          "polylines, polygons or multipoints.",
          "");
    }
    return shifted;
  });
}

}  // namespace tessarine::MyGeometricOperations
