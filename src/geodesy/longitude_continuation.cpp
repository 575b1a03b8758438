// SPDX-License-Identifier: MIT
#include "geodesy/longitude_continuation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "geodesy/polar_rings.h"
#include "platform/vertex_rings.h"

namespace tessarine::geodesy {
namespace {

using Vertices = std::vector<XY>;

constexpr double kTurn = 360.0;
constexpr double kHalfTurn = 180.0;
constexpr double kSamePlace = 1e-9;  // in turns

void MoveByTurns(Vertices& ring, double turns) {
  if (turns == 0.0) return;
  for (XY& vertex : ring) vertex.x += turns * kTurn;
}

// A ring as the search for the one around it needs it.
struct Nested {
  std::span<const XY> ring;
  Envelope box;
  double area;
  std::size_t place;
};

Nested NestedOf(const Vertices& ring, std::size_t place) {
  return {ring, ExtentOf(ring), std::fabs(MomentsOf(ring).area), place};
}

// A ring may touch the one around it, so one vertex on the line decides nothing: most of the vertices and middles do.
bool LiesIn(std::span<const XY> inner, double shift, std::span<const XY> outer) {
  int inside = 0, outside = 0;
  for (std::size_t index = 0; index + 1 < inner.size(); ++index) {
    const XY from = inner[index], to = inner[index + 1];
    for (const XY probe : {from, XY{(from.x + to.x) / 2.0, (from.y + to.y) / 2.0}}) {
      ++(Encloses(outer, {probe.x + shift, probe.y}) ? inside : outside);
    }
    if (index == 1 && (inside == 0 || outside == 0)) break;
  }
  return inside > outside;
}

// The turns that bring a ring into another one, the fewest first; empty where it doesn't lie inside.
std::optional<double> TurnsInto(const Nested& outer, const Nested& inner) {
  if (inner.box.YMin() < outer.box.YMin() || inner.box.YMax() > outer.box.YMax()) return std::nullopt;
  const double least = std::ceil((outer.box.XMin() - inner.box.XMin()) / kTurn);
  const double most = std::floor((outer.box.XMax() - inner.box.XMax()) / kTurn);
  std::vector<double> turns;
  for (double turn = least; turn <= most; ++turn) turns.push_back(turn);
  std::ranges::sort(turns, {}, [](double turn) { return std::fabs(turn); });
  for (const double turn : turns) {
    if (LiesIn(inner.ring, turn * kTurn, outer.ring)) return turn;
  }
  return std::nullopt;
}

// From the largest to the smallest, so that what a ring is brought into stands at its own place already.
void BringInside(std::vector<Vertices>& rings) {
  std::vector<Nested> nested;
  nested.reserve(rings.size());
  for (std::size_t place = 0; place < rings.size(); ++place) nested.push_back(NestedOf(rings[place], place));
  std::ranges::stable_sort(nested, std::ranges::greater(), &Nested::area);
  for (std::size_t inner = 1; inner < nested.size(); ++inner) {
    for (std::size_t outer = inner; outer-- > 0;) {
      const std::optional<double> turns = TurnsInto(nested[outer], nested[inner]);
      if (!turns) continue;
      if (*turns != 0.0) {
        Vertices& ring = rings[nested[inner].place];
        MoveByTurns(ring, *turns);
        nested[inner] = NestedOf(ring, nested[inner].place);
      }
      break;
    }
  }
}

bool HasWidth(const Vertices& ring) {
  return std::ranges::any_of(ring, [&](XY vertex) { return vertex.x != ring.front().x; });
}

void Close(Vertices& ring) {
  if (ring.size() > 1 && ring.front() != ring.back() && TurnsOf(ring) == 0) ring.push_back(ring.front());
}

}  // namespace

double CarriedOn(double from, double longitude) {
  const double step = longitude - from;
  if (!(std::fabs(step) > kHalfTurn) || !std::isfinite(step)) return longitude;
  return longitude - std::round(step / kTurn) * kTurn;
}

double WithinOneTurn(double from, double longitude) {
  const double step = longitude - from;
  // The iteration of the inverse problem takes what is this near to a turn for one.
  constexpr double kAlmost = kTurn - 1e-9;
  if (!(std::fabs(step) >= kAlmost) || !std::isfinite(step)) return longitude;
  return longitude - std::round(step / kTurn) * kTurn;
}

bool HasLongStep(std::span<const XY> vertices) {
  for (std::size_t index = 1; index < vertices.size(); ++index) {
    if (std::fabs(vertices[index].x - vertices[index - 1].x) > kHalfTurn) return true;
  }
  return false;
}

std::vector<XY> CarriedOn(std::span<const XY> vertices) {
  Vertices carried;
  carried.reserve(vertices.size() + 2);
  const auto first = std::ranges::find_if_not(vertices, IsAtPole);
  if (first == vertices.end()) return {vertices.begin(), vertices.end()};
  double longitude = first->x;
  bool from_pole = false;
  for (const XY vertex : vertices) {
    if (IsAtPole(vertex)) {
      carried.push_back({longitude, vertex.y});
      from_pole = true;
      continue;
    }
    const double before = longitude;
    longitude = CarriedOn(before, vertex.x);
    if (from_pole && longitude != before) carried.push_back({longitude, carried.back().y});
    carried.push_back({longitude, vertex.y});
    from_pole = false;
  }
  return carried;
}

int TurnsOf(std::span<const XY> ring) {
  if (ring.size() < 2) return 0;
  // From a pole back to it, any longitudes may stand at the ends: that is no turn.
  const double turns = (ring.back().x - ring.front().x) / kTurn;
  return std::fabs(std::remainder(turns, 1.0)) <= kSamePlace ? static_cast<int>(std::lround(turns)) : 0;
}

ArrangedPolygon ArrangedRings(std::vector<std::vector<XY>> rings, EnclosedPole pole) {
  for (Vertices& ring : rings) Close(ring);
  std::vector<Seam> seams = JoinRingsRoundTheGlobe(rings, pole);
  if (rings.size() > 1) BringInside(rings);
  return {std::move(rings), std::move(seams)};
}

std::vector<std::vector<XY>> ContinuedRings(std::vector<std::vector<XY>> rings, EnclosedPole pole) {
  bool changed = false;
  for (Vertices& ring : rings) {
    const bool open = ring.size() > 1 && ring.front() != ring.back();
    if (!HasLongStep(ring) && !(open && std::fabs(ring.back().x - ring.front().x) > kHalfTurn)) continue;
    Vertices closed = ring;
    if (open) closed.push_back(ring.front());
    closed = CarriedOn(closed);
    if (!HasWidth(closed)) continue;
    ring = std::move(closed);
    changed = true;
  }
  return changed ? ArrangedRings(std::move(rings), pole).rings : rings;
}

}  // namespace tessarine::geodesy
