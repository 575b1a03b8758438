// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/line_cluster.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "engine/box_tree.h"
#include "engine/geos_bridge.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

// Leading lines through vertices may make new crossings, and these new places. Rounds beyond the first few happen
// only where the tolerance is as large as the shapes themselves.
constexpr int kMostRounds = 20;

// The length of a vector, as a number to compare: the squares tell the order of most, the roots that of the rest.
class Length {
 public:
  explicit Length(XY vector) : vector_(vector), square_(vector.x * vector.x + vector.y * vector.y) {}

  friend bool operator<(const Length& a, const Length& b) {
    constexpr double kSure = 1.0 + 1e-14, kLeastSquare = 1e-290;
    if (b.square_ > kLeastSquare && a.square_ * kSure < b.square_) return true;
    if (a.square_ > kLeastSquare && b.square_ * kSure < a.square_) return false;
    return a.Root() < b.Root();
  }

 private:
  [[nodiscard]] double Root() const { return std::hypot(vector_.x, vector_.y); }

  XY vector_;
  double square_;
};

Length LengthBetween(XY first, XY second) { return Length({first.x - second.x, first.y - second.y}); }

// From a segment to a place.
Length OffsetOf(XY from, XY to, XY place) {
  const double dx = to.x - from.x, dy = to.y - from.y;
  const double square = dx * dx + dy * dy;
  if (square == 0.0) return LengthBetween(from, place);
  const double along = std::clamp(((place.x - from.x) * dx + (place.y - from.y) * dy) / square, 0.0, 1.0);
  return Length({from.x + along * dx - place.x, from.y + along * dy - place.y});
}

// A segment that is led through places which it passes within the tolerance.
struct Led {
  XY from, to;
  double tolerance;

  /// True where both ways that come of it are shorter than the segment. So segments only ever become shorter, and the
  /// leading comes to an end also in triangles hardly larger than the tolerance, where every side passes the corner
  /// across.
  [[nodiscard]] bool LeadsThrough(XY place, const Length& offset) const {
    if (place == from || place == to || Length({tolerance, 0.0}) < offset) return false;
    const Length whole = LengthBetween(from, to);
    return LengthBetween(from, place) < whole && LengthBetween(place, to) < whole;
  }
  /// What is led through lies within. Wide enough for the rounding of offsets: the tolerance is above it.
  [[nodiscard]] Box Surroundings() const {
    const double reach = 8.0 * tolerance;
    const Box box = Box::Of(from, to);
    return {box.xmin - reach, box.ymin - reach, box.xmax + reach, box.ymax + reach};
  }
  [[nodiscard]] bool LeadsThrough(XY place) const { return LeadsThrough(place, OffsetOf(from, to, place)); }
};

// Moves the vertices to their settled places. True when a line changed.
bool SettleVertices(LineList& lines, PlaceCluster& cluster) {
  bool changed = false;
  for (std::vector<XY>& line : lines) {
    for (XY& vertex : line) {
      const XY settled = cluster.Settle(vertex);
      changed = changed || settled != vertex;
      vertex = settled;
    }
    const auto repeated = std::unique(line.begin(), line.end());
    changed = changed || repeated != line.end();
    line.erase(repeated, line.end());
  }
  std::erase_if(lines, [](const std::vector<XY>& line) { return line.size() < 2; });
  return changed;
}

struct SegmentKey {
  std::size_t line, start;
  auto operator<=>(const SegmentKey&) const = default;
};

// The segments of all lines, found by place.
class SegmentIndex {
 public:
  explicit SegmentIndex(const LineList& lines) {
    std::vector<Box> boxes;
    for (std::size_t line = 0; line < lines.size(); ++line) {
      for (std::size_t start = 0; start + 1 < lines[line].size(); ++start) {
        keys_.push_back({line, start});
        boxes.push_back(Box::Of(lines[line][start], lines[line][start + 1]));
      }
    }
    tree_ = BoxTree(boxes);
  }

  template <class Visit>
  void NearTo(XY place, double distance, Visit&& visit) const {
    tree_.Meeting({place.x - distance, place.y - distance, place.x + distance, place.y + distance},
                  [&](std::uint32_t number) { visit(keys_[number]); });
  }

 private:
  std::vector<SegmentKey> keys_;
  BoxTree tree_;
};

std::vector<XY> DistinctVertices(const LineList& lines) {
  std::vector<XY> vertices;
  for (const std::vector<XY>& line : lines) vertices.insert(vertices.end(), line.begin(), line.end());
  std::ranges::sort(vertices, {}, [](XY vertex) { return std::pair(vertex.x, vertex.y); });
  const auto repeated = std::ranges::unique(vertices);
  vertices.erase(repeated.begin(), repeated.end());
  return vertices;
}

// A segment with the places that it is led through, and the nearest of them.
struct Way {
  XY from, to;
  std::vector<XY> passed;
  std::size_t nearest = 0;
};

Way WayThrough(const Led& led, const std::vector<XY>& candidates) {
  Way way{led.from, led.to, {}};
  std::optional<Length> least;
  const Box near = led.Surroundings();
  for (const XY candidate : candidates) {
    if (!near.Meets(Box::Of(candidate))) continue;
    const Length offset = OffsetOf(led.from, led.to, candidate);
    if (!led.LeadsThrough(candidate, offset)) continue;
    if (!least || offset < *least) {
      way.nearest = way.passed.size();
      least = offset;
    }
    way.passed.push_back(candidate);
  }
  return way;
}

// Appends the way from one place to another, without its start, through those of the candidates that it passes within
// the tolerance. The nearest comes first, and the ways to and from it are looked at anew: a way through all of them at
// once would run to and fro between candidates on both sides. Each way keeps only the places that are its own, so that
// the memory is that of the candidates.
void AppendWay(XY from, XY to, const std::vector<XY>& candidates, double tolerance, std::vector<XY>& line) {
  std::vector<Way> open{WayThrough({from, to, tolerance}, candidates)};
  while (!open.empty()) {
    EndIfStopped();
    Way way = std::move(open.back());
    open.pop_back();
    if (way.passed.empty()) {
      line.push_back(way.to);
      continue;
    }
    const XY nearest = way.passed[way.nearest];
    std::erase(way.passed, nearest);
    open.push_back(WayThrough({nearest, way.to, tolerance}, way.passed));
    open.push_back(WayThrough({way.from, nearest, tolerance}, way.passed));
  }
}

// A vertex that a segment passes.
struct Passed {
  SegmentKey segment;
  XY vertex;
};

std::vector<Passed> PassedVertices(const LineList& lines, double tolerance) {
  const SegmentIndex index(lines);
  std::vector<Passed> passed;
  for (const XY vertex : DistinctVertices(lines)) {
    index.NearTo(vertex, tolerance, [&](const SegmentKey& key) {
      const XY from = lines[key.line][key.start], to = lines[key.line][key.start + 1];
      if (Led{from, to, tolerance}.LeadsThrough(vertex)) passed.push_back({key, vertex});
    });
  }
  std::ranges::stable_sort(passed, {}, &Passed::segment);
  return passed;
}

// Leads segments through the vertices that they pass within the tolerance. True when a line changed.
bool LeadThroughVertices(LineList& lines, double tolerance) {
  const std::vector<Passed> passed = PassedVertices(lines, tolerance);
  for (auto next = passed.begin(); next != passed.end();) {
    const std::size_t number = next->segment.line;
    const std::vector<XY> old = std::move(lines[number]);
    std::vector<XY> line{old.front()}, candidates;
    for (std::size_t start = 0; start + 1 < old.size(); ++start) {
      candidates.clear();
      for (; next != passed.end() && next->segment == SegmentKey{number, start}; ++next) {
        candidates.push_back(next->vertex);
      }
      AppendWay(old[start], old[start + 1], candidates, tolerance, line);
    }
    lines[number] = std::move(line);
  }
  return !passed.empty();
}

void SplitAtCrossings(LineList& lines) {
  lines = Noded(std::move(lines));
  std::erase_if(lines, [](const std::vector<XY>& line) { return line.size() < 2; });
}

// The tolerance, or 0 when it is finer than the coordinates themselves.
double Perceptible(double tolerance, const LineList& lines) {
  double largest = 0.0;
  for (const std::vector<XY>& line : lines) {
    for (const XY vertex : line) largest = std::max({largest, std::fabs(vertex.x), std::fabs(vertex.y)});
  }
  return tolerance > largest * std::numeric_limits<double>::epsilon() ? tolerance : 0.0;
}

}  // namespace

std::size_t PlaceCluster::CellHash::operator()(const Cell& cell) const {
  return std::hash<std::int64_t>()(cell.column) * 1000003U ^ std::hash<std::int64_t>()(cell.row);
}

PlaceCluster::Cell PlaceCluster::CellOf(XY place) const {
  return {static_cast<std::int64_t>(std::floor(place.x / distance_)),
          static_cast<std::int64_t>(std::floor(place.y / distance_))};
}

XY PlaceCluster::Settle(XY place) {
  const Cell own = CellOf(place);
  const XY* nearest = nullptr;
  double least = distance_;
  for (std::int64_t column = own.column - 1; column <= own.column + 1; ++column) {
    for (std::int64_t row = own.row - 1; row <= own.row + 1; ++row) {
      const auto found = cells_.find({column, row});
      if (found == cells_.end()) continue;
      for (const XY& standing : found->second) {
        const double distance = std::hypot(standing.x - place.x, standing.y - place.y);
        if (distance > least || (nearest != nullptr && distance == least)) continue;
        nearest = &standing;
        least = distance;
      }
    }
  }
  if (nearest != nullptr) return *nearest;
  cells_[own].push_back(place);
  return place;
}

LineList NodeLines(LineList lines, double tolerance) {
  tolerance = Perceptible(tolerance, lines);
  if (tolerance == 0.0) {
    SplitAtCrossings(lines);
    return lines;
  }
  PlaceCluster cluster(tolerance);
  SettleVertices(lines, cluster);
  SplitAtCrossings(lines);
  for (int round = 0; round < kMostRounds; ++round) {
    const bool settled = SettleVertices(lines, cluster);
    const bool led = LeadThroughVertices(lines, tolerance);
    if (!settled && !led) break;
    SplitAtCrossings(lines);
  }
  return lines;
}

}  // namespace tessarine::engine
