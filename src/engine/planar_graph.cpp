// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/planar_graph.h"

#include <algorithm>

#include "engine/turn.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

constexpr std::ptrdiff_t kFewAround = 16;  // edges that are sorted faster by inserting them

struct Visit {
  XY place;
  std::uint32_t vertex;  // among the vertices of all lines
};

// The number of the place of each vertex; `places` takes the places in order.
std::vector<std::uint32_t> NumberPlaces(const LineList& lines, std::vector<XY>& places) {
  std::vector<Visit> visits;
  std::size_t count = 0;
  for (const std::vector<XY>& line : lines) count += line.size();
  visits.reserve(count);
  for (const std::vector<XY>& line : lines) {
    for (const XY vertex : line) visits.push_back({vertex, static_cast<std::uint32_t>(visits.size())});
  }
  std::ranges::sort(visits, [](const Visit& a, const Visit& b) {
    return a.place.x != b.place.x ? a.place.x < b.place.x : a.place.y < b.place.y;
  });
  std::vector<std::uint32_t> numbers(count);
  for (const Visit& visit : visits) {
    if (places.empty() || places.back() != visit.place) places.push_back(visit.place);
    numbers[visit.vertex] = static_cast<std::uint32_t>(places.size() - 1);
  }
  return numbers;
}

}  // namespace

PlanarGraph::PlanarGraph(const LineList& lines) {
  const std::vector<std::uint32_t> numbers = NumberPlaces(lines, places_);
  StopPoll poll;
  auto number = numbers.begin();
  for (const std::vector<XY>& line : lines) {
    for (std::size_t at = 0; at + 1 < line.size(); ++at) {
      poll();
      const std::uint32_t from = *(number + static_cast<std::ptrdiff_t>(at));
      const std::uint32_t to = *(number + static_cast<std::ptrdiff_t>(at) + 1);
      if (from != to) edges_.push_back({std::min(from, to), std::max(from, to), 1, from < to ? 1 : -1});
    }
    number += static_cast<std::ptrdiff_t>(line.size());
  }
  std::ranges::sort(edges_, {}, [](const Edge& edge) { return std::uint64_t{edge.low} << 32U | edge.high; });
  std::size_t kept = 0;
  for (const Edge& edge : edges_) {
    if (kept > 0 && edges_[kept - 1].low == edge.low && edges_[kept - 1].high == edge.high) {
      edges_[kept - 1].passes += 1;
      edges_[kept - 1].upwards += edge.upwards;
    } else {
      edges_[kept++] = edge;
    }
  }
  edges_.resize(kept);
}

void PlanarGraph::DropLooseEdges() {
  DropDangles();
  Link();
  DropBridges();
}

void PlanarGraph::DropDangles() {
  // The exclusive or of a place's edges is its last edge once the others are gone.
  std::vector<std::uint32_t> degrees(places_.size()), last(places_.size());
  for (std::uint32_t number = 0; number < edges_.size(); ++number) {
    for (const std::uint32_t place : {edges_[number].low, edges_[number].high}) {
      ++degrees[place];
      last[place] ^= number;
    }
  }
  std::vector<char> dropped(edges_.size(), 0);
  for (std::uint32_t start = 0; start < places_.size(); ++start) {
    for (std::uint32_t place = start; degrees[place] == 1;) {
      const std::uint32_t number = last[place];
      dropped[number] = 1;
      const std::uint32_t across = edges_[number].low == place ? edges_[number].high : edges_[number].low;
      degrees[place] = 0;
      --degrees[across];
      last[across] ^= number;
      place = across;
    }
  }
  KeepEdges([&](std::size_t number) { return dropped[number] == 0; });
}

void PlanarGraph::DropBridges() {
  std::vector<std::uint32_t> starts;
  const std::vector<std::uint32_t> walks = Walks(starts);
  const std::size_t before = edges_.size();
  KeepEdges([&](std::size_t number) { return walks[2 * number] != walks[2 * number + 1]; });
  if (edges_.size() != before) Link();
}

// Counter-clockwise, from straight down on: first the edges to higher places, then those to lower ones.
void PlanarGraph::SortAround(std::uint32_t place, std::uint32_t* begin, std::uint32_t* end) const {
  if (end - begin < 2) return;
  const XY center = places_[place];
  const auto comes_first = [&](std::uint32_t a, std::uint32_t b) {
    const bool a_lower = (a & 1U) != 0, b_lower = (b & 1U) != 0;
    return a_lower != b_lower ? b_lower : Turn(center, places_[ToOf(b)], places_[ToOf(a)]) < 0;
  };
  if (end - begin > kFewAround) {
    std::stable_sort(begin, end, comes_first);
    return;
  }
  for (std::uint32_t* at = begin + 1; at < end; ++at) {
    const std::uint32_t half = *at;
    std::uint32_t* to = at;
    for (; to > begin && comes_first(half, to[-1]); --to) *to = to[-1];
    *to = half;
  }
}

void PlanarGraph::Link() {
  std::vector<std::uint32_t> starts(places_.size() + 1), around(HalfEdgeCount());
  for (const Edge& edge : edges_) {
    ++starts[edge.low];
    ++starts[edge.high];
  }
  std::uint32_t sum = 0;
  for (std::uint32_t& start : starts) sum = start += sum;
  for (std::uint32_t half = 0; half < around.size(); ++half) around[--starts[FromOf(half)]] = half;
  next_.resize(around.size());
  for (std::uint32_t place = 0; place < places_.size(); ++place) {
    std::uint32_t* const begin = around.data() + starts[place];
    std::uint32_t* const end = around.data() + starts[place + 1];
    SortAround(place, begin, end);
    // Who comes in along an edge turns into the next edge clockwise, to keep the face at the left.
    for (std::uint32_t* at = begin; at < end; ++at) next_[Twin(*at)] = at == begin ? end[-1] : at[-1];
  }
}

std::vector<std::uint32_t> PlanarGraph::Walks(std::vector<std::uint32_t>& starts) const {
  std::vector<std::uint32_t> walks(next_.size(), kNone);
  for (std::uint32_t start = 0; start < next_.size(); ++start) {
    if (walks[start] != kNone) continue;
    const auto number = static_cast<std::uint32_t>(starts.size());
    for (std::uint32_t half = start; walks[half] == kNone; half = next_[half]) walks[half] = number;
    starts.push_back(start);
  }
  return walks;
}

}  // namespace tessarine::engine
