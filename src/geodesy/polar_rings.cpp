// SPDX-License-Identifier: MIT
#include "geodesy/polar_rings.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <numeric>

#include "geodesy/girdle.h"

namespace tessarine::geodesy {
namespace {

using detail::BeginAt;
using detail::Girdle;
using detail::Opposite;
using detail::Others;
using detail::Side;
using detail::Vertices;

constexpr double kTurn = 360.0;
constexpr double kPole = 90.0;

// The mean over the longitude, by which rings that don't meet are in order from pole to pole.
double MeanLatitude(const Vertices& ring) {
  double sum = 0.0;
  for (std::size_t index = 1; index < ring.size(); ++index) {
    sum += (ring[index].x - ring[index - 1].x) * (ring[index].y + ring[index - 1].y) / 2.0;
  }
  return sum / (ring.back().x - ring.front().x);
}

Girdle GirdleOf(const Vertices& ring, std::size_t place) {
  Girdle girdle{ring, TurnsOf(ring) * kTurn, place, MeanLatitude(ring)};
  girdle.vertices.pop_back();
  return girdle;
}

// To the right of its course.
Side InsideOf(const Girdle& girdle) { return girdle.turn < 0.0 ? Side::North : Side::South; }

Vertices LedOver(Girdle girdle, Side side, const Others& others, std::vector<Seam>& seams) {
  detail::BeginAtSeam(girdle, side, others);
  const double pole = side == Side::North ? kPole : -kPole;
  const XY begin = girdle.vertices.front();
  Vertices ring = std::move(girdle.vertices);
  ring.push_back({begin.x + girdle.turn, begin.y});
  if (begin.y != pole) {
    ring.push_back({begin.x + girdle.turn, pole});
    ring.push_back({begin.x, pole});
    seams.push_back({begin, {begin.x, pole}});
  }
  ring.push_back(begin);
  return ring;
}

void TurnWestward(Girdle& girdle) {
  if (girdle.turn < 0.0) return;
  // The first vertex stays the first, and the others follow from the far end.
  std::reverse(girdle.vertices.begin() + 1, girdle.vertices.end());
  for (std::size_t index = 1; index < girdle.vertices.size(); ++index) girdle.vertices[index].x -= girdle.turn;
  girdle.turn = -girdle.turn;
}

bool Crosses(XY a, XY b, XY c, XY d) {
  const auto turn = [](XY p, XY q, XY r) { return (q.x - p.x) * (r.y - p.y) - (q.y - p.y) * (r.x - p.x); };
  return turn(a, b, c) * turn(a, b, d) < 0.0 && turn(c, d, a) * turn(c, d, b) < 0.0;
}

// Whether a bridge meets a ring in any of the rounds that it could reach.
bool Meets(XY from, XY to, const Vertices& ring) {
  for (std::size_t index = 1; index < ring.size(); ++index) {
    for (const double shift : {-2.0 * kTurn, -kTurn, 0.0, kTurn, 2.0 * kTurn}) {
      const XY begin = ring[index - 1], end = ring[index];
      if (Crosses(from, to, {begin.x + shift, begin.y}, {end.x + shift, end.y})) return true;
    }
  }
  return false;
}

bool Meets(XY from, XY to, const Girdle& girdle) {
  const std::size_t count = girdle.vertices.size();
  for (std::size_t index = 0; index < count; ++index) {
    const XY begin = girdle.vertices[index];
    XY end = girdle.vertices[(index + 1) % count];
    if (index + 1 == count) end.x += girdle.turn;
    for (const double shift : {-2.0 * kTurn, -kTurn, 0.0, kTurn, 2.0 * kTurn}) {
      if (Crosses(from, to, {begin.x + shift, begin.y}, {end.x + shift, end.y})) return true;
    }
  }
  return false;
}

// Moves the whole ring until its first vertex is nearest to a longitude.
void MoveNear(Girdle& girdle, double longitude) {
  const double turns = std::round((longitude - girdle.vertices.front().x) / kTurn);
  for (XY& vertex : girdle.vertices) vertex.x += turns * kTurn;
}

// Begins both rings where a straight bridge between them meets neither, and none of the others: at a vertex of the
// lower ring, the northern ones first, and the nearest vertex of the upper one that can be seen from there. The two see
// each other somewhere; with others between them it may be too far to look for.
void FindBridge(Girdle& lower, Girdle& upper, const Others& others) {
  constexpr std::size_t kMostLooks = 64;
  std::vector<std::size_t> starts(lower.vertices.size());
  std::iota(starts.begin(), starts.end(), std::size_t{0});
  std::ranges::stable_sort(starts, std::ranges::greater(), [&](std::size_t index) { return lower.vertices[index].y; });
  if (starts.size() > kMostLooks) starts.resize(kMostLooks);
  struct Candidate {
    std::size_t index;
    double distance;
  };
  const auto is_free = [&](XY from, XY to) {
    return !Meets(from, to, lower) && !Meets(from, to, upper) &&
           std::ranges::none_of(others, [&](const Vertices& ring) { return Meets(from, to, ring); });
  };
  for (const std::size_t start : starts) {
    const XY from = lower.vertices[start];
    std::vector<Candidate> candidates;
    for (std::size_t index = 0; index < upper.vertices.size(); ++index) {
      const XY vertex = upper.vertices[index];
      candidates.push_back({index, std::hypot(std::remainder(vertex.x - from.x, kTurn), vertex.y - from.y)});
    }
    std::ranges::stable_sort(candidates, {}, &Candidate::distance);
    const auto seen = std::ranges::find_if(candidates, [&](const Candidate& candidate) {
      const XY vertex = upper.vertices[candidate.index];
      return is_free(from, {from.x + std::remainder(vertex.x - from.x, kTurn), vertex.y});
    });
    if (seen == candidates.end()) continue;
    BeginAt(lower, start);
    BeginAt(upper, seen->index);
    break;
  }
  MoveNear(upper, lower.vertices.front().x);
}

// Along the lower ring, over the bridge, back along the upper one, and over the bridge a turn before.
Vertices Joined(Girdle lower, Girdle upper, const Others& others, std::vector<Seam>& seams) {
  TurnWestward(lower);
  TurnWestward(upper);
  FindBridge(lower, upper, others);
  seams.push_back({lower.vertices.front(), upper.vertices.front()});
  Vertices ring = lower.vertices;
  ring.push_back({ring.front().x + lower.turn, ring.front().y});
  ring.push_back({upper.vertices.front().x + upper.turn, upper.vertices.front().y});
  ring.insert(ring.end(), upper.vertices.rbegin(), upper.vertices.rend());
  ring.push_back(ring.front());
  return ring;
}

// The part of the sphere that lies inside if the south pole does.
double PartFromSouth(const std::vector<Girdle>& from_south) {
  constexpr double kRadians = std::numbers::pi / 180.0;
  double part = 0.0, border = -1.0;
  bool inside = true;
  for (const Girdle& girdle : from_south) {
    const double height = std::sin(girdle.mean_latitude * kRadians);
    if (inside) part += (height - border) / 2.0;
    border = height;
    inside = !inside;
  }
  return inside ? part + (1.0 - border) / 2.0 : part;
}

Side BySense(const std::vector<Girdle>& from_south) {
  const auto first = std::ranges::min_element(from_south, {}, &Girdle::place);
  const Side side = InsideOf(*first);
  return (first - from_south.begin()) % 2 == 0 ? side : Opposite(side);
}

// Where the inside of the southernmost ring lies. Inside and outside take turns from ring to ring.
Side InsideOfFirst(const std::vector<Girdle>& from_south, EnclosedPole pole) {
  const bool odd = from_south.size() % 2 != 0;
  if (pole == EnclosedPole::BySense) return BySense(from_south);
  if (pole == (odd ? EnclosedPole::North : EnclosedPole::Neither)) return Side::North;
  if (pole == (odd ? EnclosedPole::South : EnclosedPole::Both)) return Side::South;
  constexpr double kHalf = 0.5, kSame = 1e-12;
  const double part = PartFromSouth(from_south);
  if (std::fabs(part - kHalf) <= kSame) return BySense(from_south);
  return part < kHalf ? Side::South : Side::North;
}

}  // namespace

std::vector<Seam> JoinRingsRoundTheGlobe(std::vector<std::vector<XY>>& rings, EnclosedPole pole) {
  std::vector<Girdle> girdles;
  Others others;
  for (std::size_t place = 0; place < rings.size(); ++place) {
    if (TurnsOf(rings[place]) != 0) {
      girdles.push_back(GirdleOf(rings[place], place));
    } else if (!rings[place].empty()) {
      others.push_back(rings[place]);
    }
  }
  if (girdles.empty()) return {};
  std::ranges::stable_sort(girdles, {}, &Girdle::mean_latitude);

  std::vector<Seam> seams;
  const auto put = [&](std::size_t place, Vertices ring) { rings[place] = std::move(ring); };
  std::size_t next = 0;
  if (InsideOfFirst(girdles, pole) == Side::South) {
    put(girdles[0].place, LedOver(girdles[0], Side::South, others, seams));
    next = 1;
  }
  for (; next + 1 < girdles.size(); next += 2) {
    const Girdle &lower = girdles[next], &upper = girdles[next + 1];
    put(std::max(lower.place, upper.place), {});
    put(std::min(lower.place, upper.place), Joined(lower, upper, others, seams));
  }
  if (next < girdles.size()) put(girdles[next].place, LedOver(girdles[next], Side::North, others, seams));
  std::erase_if(rings, [](const Vertices& ring) { return ring.empty(); });
  return seams;
}

}  // namespace tessarine::geodesy
