// SPDX-License-Identifier: GPL-2.0-or-later
// The block of tiles around the shape is halved again and again, and the shape with it, so that each cut has to do with
// the vertices nearby alone and empty blocks are passed over at once.
#include "shapes/wrap_tiles.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <utility>

#include "platform/fault.h"

namespace tessarine::MyGeometricOperations {
namespace {

struct Block {
  GeometryRef shape;
  TileRange columns, rows;
};

ITopologicalOperator& TopologyOf(const GeometryRef& geometry) {
  return *Require(Cast<ITopologicalOperator>(geometry), "ITopologicalOperator");
}

// The number of the tile that holds the value, or of the one above where the value lies between two.
std::int64_t NumberAt(const TileAxis& axis, double value) {
  auto number = static_cast<std::int64_t>(std::floor((value - axis.low) / axis.size));
  while (axis.LowOf(number) > value) --number;
  while (axis.HighOf(number) <= value) ++number;
  return number;
}

// The last tile that begins below the value.
std::int64_t NumberBelow(const TileAxis& axis, double value) {
  const std::int64_t number = NumberAt(axis, value);
  return axis.LowOf(number) == value ? number - 1 : number;
}

TileRange WalkOver(const TileAxis& axis, double low, double high) {
  return {std::min<std::int64_t>(0, NumberAt(axis, low)), NumberBelow(axis, high)};
}

// An area has nothing in a tile that it only touches; anything else may.
TileRange Narrowed(const TileAxis& axis, TileRange range, double low, double high, bool is_area) {
  std::int64_t first = NumberAt(axis, low);
  if (!is_area && axis.LowOf(first) == low) --first;
  const std::int64_t last = is_area ? NumberBelow(axis, high) : NumberAt(axis, high);
  return {std::max(range.first, first), std::min(range.last, last)};
}

bool OnOneSide(const Envelope& box, XY from, XY to) {
  return (from.x == to.x && (from.x == box.XMin() || from.x == box.XMax())) ||
         (from.y == to.y && (from.y == box.YMin() || from.y == box.YMax()));
}

// A ring that runs along the sides of the box alone and bounds something goes all the way around.
bool Fills(const IGeometry& shape, const Envelope& box) {
  const auto* polygon = dynamic_cast<const Polygon*>(&shape);
  if (polygon == nullptr || polygon->Parts().size() != 1 || polygon->HasCurves()) return false;
  const std::span<const XY> ring = polygon->Parts().front()->Vertices();
  for (std::size_t index = 1; index < ring.size(); ++index) {
    if (!OnOneSide(box, ring[index - 1], ring[index])) return false;
  }
  return polygon->Area() != 0.0;
}

class Cutter {
 public:
  Cutter(const TileAxis& columns, const TileAxis& rows, bool is_area)
      : columns_(columns), rows_(rows), is_area_(is_area) {}

  TilePieces Cut(Block whole, const KeepGoing& keep_going) {
    Add(std::move(whole));
    while (!blocks_.empty() && !result_.covers_a_tile) {
      if (keep_going && !keep_going()) {
        result_.stopped = true;
        break;
      }
      Take(Next());
    }
    if (result_.covers_a_tile || result_.stopped) result_.pieces.clear();
    return std::move(result_);
  }

 private:
  [[nodiscard]] Envelope ExtentOf(const Block& block) const {
    return {columns_.LowOf(block.columns.first), rows_.LowOf(block.rows.first), columns_.HighOf(block.columns.last),
            rows_.HighOf(block.rows.last)};
  }

  // Large blocks first where a tile that is covered ends the walk; else in the order of the tiles.
  Block Next() {
    Block block = std::move(is_area_ ? blocks_.front() : blocks_.back());
    is_area_ ? blocks_.pop_front() : blocks_.pop_back();
    return block;
  }

  void Add(Block block) {
    if (block.shape->IsEmpty()) return;
    const Envelope extent = block.shape->Envelope();
    block.columns = Narrowed(columns_, block.columns, extent.XMin(), extent.XMax(), is_area_);
    block.rows = Narrowed(rows_, block.rows, extent.YMin(), extent.YMax(), is_area_);
    if (block.columns.Count() < 1 || block.rows.Count() < 1) return;
    if (is_area_ && Fills(*block.shape, ExtentOf(block))) result_.covers_a_tile = true;
    blocks_.push_back(std::move(block));
  }

  void Take(Block block) {
    if (block.columns.Count() > 1 || block.rows.Count() > 1) {
      Halve(std::move(block));
      return;
    }
    TopologyOf(block.shape).Clip(ExtentOf(block));
    if (!block.shape->IsEmpty()) result_.pieces.push_back({{block.columns.first, block.rows.first}, block.shape});
  }

  void Halve(Block block) {
    Block low = block, high = std::move(block);
    const bool by_columns = is_area_ ? low.columns.Count() >= low.rows.Count() : low.columns.Count() > 1;
    TileRange& lower = by_columns ? low.columns : low.rows;
    TileRange& upper = by_columns ? high.columns : high.rows;
    lower.last = lower.first + (lower.Count() - 1) / 2;
    upper.first = lower.last + 1;
    low.shape = CloneOf(*high.shape);
    TopologyOf(low.shape).Clip(ExtentOf(low));
    TopologyOf(high.shape).Clip(ExtentOf(high));
    Add(std::move(high));
    Add(std::move(low));
  }

  const TileAxis &columns_, &rows_;
  bool is_area_;
  std::deque<Block> blocks_;
  TilePieces result_;
};

}  // namespace

TilePieces CutIntoTiles(GeometryRef shape, const TileAxis& columns, const TileAxis& rows, const KeepGoing& keep_going) {
  if (shape->IsEmpty()) return {};
  const Envelope extent = shape->Envelope();
  const bool is_area = shape->GeometryType() == esriGeometryPolygon;
  Block whole{nullptr, WalkOver(columns, extent.XMin(), extent.XMax()), WalkOver(rows, extent.YMin(), extent.YMax())};
  whole.shape = std::move(shape);
  return Cutter(columns, rows, is_area).Cut(std::move(whole), keep_going);
}

}  // namespace tessarine::MyGeometricOperations
