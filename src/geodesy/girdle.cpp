// SPDX-License-Identifier: MIT
#include "geodesy/girdle.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

namespace tessarine::geodesy::detail {
namespace {

constexpr double kTurn = 360.0;
constexpr double kPole = 90.0;

std::size_t NextToPole(const Vertices& vertices, Side side) {
  const auto found = std::ranges::max_element(vertices, {}, [&](XY vertex) { return Reach(vertex, side); });
  return static_cast<std::size_t>(found - vertices.begin());
}

// A stretch of longitudes, west to east, beginning within a turn from 0.
struct Stretch {
  double west, east;
};

// What the rings between this one and the pole cover, in order, as if each were as high as the pole.
std::vector<Stretch> CoveredLongitudes(const Girdle& girdle, Side side, const Others& others) {
  double least = kPole;
  for (const XY vertex : girdle.vertices) least = std::min(least, Reach(vertex, side));
  std::vector<Stretch> covered;
  for (const Vertices& ring : others) {
    const bool higher = std::ranges::any_of(ring, [&](XY vertex) { return Reach(vertex, side) > least; });
    if (!higher) continue;
    const auto [west, east] = std::ranges::minmax(ring, {}, &XY::x);
    const double turns = std::floor(west.x / kTurn);
    covered.push_back({west.x - turns * kTurn, east.x - turns * kTurn});
  }
  std::ranges::sort(covered, {}, &Stretch::west);
  return covered;
}

bool Covers(const std::vector<Stretch>& covered, double longitude) {
  const double place = longitude - std::floor(longitude / kTurn) * kTurn;
  return std::ranges::any_of(covered, [&](const Stretch& stretch) {
    return (place >= stretch.west && place <= stretch.east) || place + kTurn <= stretch.east;
  });
}

// The middle of the widest stretch that nothing covers.
std::optional<double> FreeLongitude(const std::vector<Stretch>& covered) {
  double reached = covered.front().west, widest = 0.0;
  std::optional<double> free;
  const auto look = [&](double next) {
    if (next - reached > widest) widest = next - reached, free = (reached + next) / 2.0;
  };
  for (const Stretch& stretch : covered) {
    look(stretch.west);
    reached = std::max(reached, stretch.east);
  }
  look(covered.front().west + kTurn);
  return free;
}

// Puts a vertex where the ring meets a meridian next to the pole, and begins there.
void BeginOnMeridian(Girdle& girdle, double longitude, Side side) {
  const std::size_t count = girdle.vertices.size();
  std::size_t after = count;
  XY best{0.0, side == Side::North ? -kPole : kPole};
  for (std::size_t index = 0; index < count; ++index) {
    const XY from = girdle.vertices[index];
    XY to = girdle.vertices[(index + 1) % count];
    if (index + 1 == count) to.x += girdle.turn;
    const double west = std::min(from.x, to.x), east = std::max(from.x, to.x);
    const double at = longitude + std::ceil((west - longitude) / kTurn) * kTurn;
    if (at > east || west == east) continue;
    const XY met{at, from.y + (to.y - from.y) * ((at - from.x) / (to.x - from.x))};
    if (after == count || Reach(met, side) > Reach(best, side)) best = met, after = index;
  }
  if (after == count) return;
  girdle.vertices.insert(girdle.vertices.begin() + static_cast<std::ptrdiff_t>(after) + 1, best);
  BeginAt(girdle, after + 1);
}

// Whether anything of the ring lies between one of its vertices and the pole.
bool SeesPole(const Girdle& girdle, std::size_t place, Side side) {
  const std::size_t count = girdle.vertices.size();
  const XY at = girdle.vertices[place];
  for (std::size_t index = 0; index < count; ++index) {
    const std::size_t next = (index + 1) % count;
    if (index == place || next == place) continue;
    const XY from = girdle.vertices[index];
    XY to = girdle.vertices[next];
    if (next == 0) to.x += girdle.turn;
    const double west = std::min(from.x, to.x), east = std::max(from.x, to.x);
    const double met = at.x + std::ceil((west - at.x) / kTurn) * kTurn;
    if (met > east) continue;
    const double share = west == east ? 0.0 : (met - from.x) / (to.x - from.x);
    if (Reach({met, from.y + (to.y - from.y) * share}, side) >= Reach(at, side)) return false;
  }
  return true;
}

// A vertex whose meridian to the pole cuts nothing, looked for among those next to the pole. A vertex of the ring's own
// leaves its sides as they are.
std::optional<std::size_t> FreeVertex(const Girdle& girdle, Side side, const std::vector<Stretch>& covered) {
  constexpr std::size_t kMostLooks = 256;
  std::vector<std::size_t> places(girdle.vertices.size());
  std::iota(places.begin(), places.end(), std::size_t{0});
  std::ranges::stable_sort(places, std::ranges::greater(),
                           [&](std::size_t place) { return Reach(girdle.vertices[place], side); });
  if (places.size() > kMostLooks) places.resize(kMostLooks);
  for (const std::size_t place : places) {
    if (!Covers(covered, girdle.vertices[place].x) && SeesPole(girdle, place, side)) return place;
  }
  return std::nullopt;
}

}  // namespace

void BeginAt(Girdle& girdle, std::size_t first) {
  for (std::size_t index = 0; index < first; ++index) girdle.vertices[index].x += girdle.turn;
  std::ranges::rotate(girdle.vertices, girdle.vertices.begin() + static_cast<std::ptrdiff_t>(first));
}

void BeginAtSeam(Girdle& girdle, Side side, const Others& others) {
  BeginAt(girdle, NextToPole(girdle.vertices, side));
  const std::vector<Stretch> covered = CoveredLongitudes(girdle, side, others);
  if (!Covers(covered, girdle.vertices.front().x)) return;
  if (const std::optional<std::size_t> vertex = FreeVertex(girdle, side, covered)) {
    BeginAt(girdle, *vertex);
  } else if (const std::optional<double> free = FreeLongitude(covered)) {
    BeginOnMeridian(girdle, *free, side);
  }
}

}  // namespace tessarine::geodesy::detail
