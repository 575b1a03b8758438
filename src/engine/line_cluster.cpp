// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/line_cluster.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/box_tree.h"
#include "engine/way_through.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

// Leading lines through vertices may make new crossings, and these new places. Rounds beyond the first few happen
// only where the tolerance is as large as the shapes themselves.
constexpr int kMostRounds = 20;

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
      AppendWay({old[start], old[start + 1], tolerance}, candidates, line);
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
