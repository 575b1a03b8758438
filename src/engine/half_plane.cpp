// SPDX-License-Identifier: GPL-2.0-or-later
// The rings are taken apart into chains that run strictly inside the half plane from the line to the line. Going along
// the line just inside of it, one enters the area or leaves it wherever a chain begins or ends, so that in this order
// two ends each bound a stretch of the line that closes the area.
#include "engine/half_plane.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "engine/turn.h"

namespace tessarine::engine {
namespace {

using Vertices = std::vector<XY>;

// The half plane seen from its line.
class View {
 public:
  explicit View(const HalfPlane& half)
      : upright_(half.kept == HalfPlane::Kept::West || half.kept == HalfPlane::Kept::East),
        greater_(half.kept == HalfPlane::Kept::East || half.kept == HalfPlane::Kept::North),
        line_(half.line) {}

  /// 1 inside, 0 on the line, -1 outside.
  [[nodiscard]] int SideOf(XY place) const {
    const double across = upright_ ? place.x : place.y;
    if (across == line_) return 0;
    return (across > line_) == greater_ ? 1 : -1;
  }
  [[nodiscard]] double Along(XY place) const { return upright_ ? place.y : place.x; }
  /// Whether by rising x or y the area, which lies at the right of its rings, begins where a chain begins.
  [[nodiscard]] bool AreaBeginsWithChain() const { return upright_ != greater_; }

  /// Both half planes of a line get the same place.
  [[nodiscard]] XY Crossing(XY a, XY b) const {
    if (upright_ ? b.x < a.x : b.y < a.y) std::swap(a, b);
    if (upright_) return {line_, Between(a.y, b.y, (line_ - a.x) / (b.x - a.x))};
    return {Between(a.x, b.x, (line_ - a.y) / (b.y - a.y)), line_};
  }

 private:
  static double Between(double a, double b, double share) {
    return std::clamp(a + (b - a) * share, std::min(a, b), std::max(a, b));
  }
  bool upright_, greater_;
  double line_;
};

struct Chain {
  Vertices places;               ///< both ends on the line, all others inside
  bool goes_along_line = false;  ///< to the next chain of its ring
  Vertices along_line;           ///< the vertices by which it does
  std::size_t ring_next = 0;     ///< the next chain of its ring
  std::size_t area_next = 0;     ///< the chain that goes on where this one ends
  bool taken = false;
};

// Adds the chains of a ring that has vertices inside and others.
void AddChains(const View& view, const Vertices& ring, std::vector<Chain>& chains) {
  const std::size_t count = ring.size() - 1, first = chains.size();
  const auto at = [&](std::size_t index) { return ring[index % count]; };
  const auto end_on_line = [&](XY outer, XY inner) {
    return view.SideOf(outer) == 0 ? outer : view.Crossing(outer, inner);
  };
  std::size_t index = 0;
  while (view.SideOf(at(index)) > 0) ++index;
  while (view.SideOf(at(index)) <= 0) ++index;
  for (const std::size_t end = index + count; index < end;) {
    Chain chain;
    chain.places.push_back(end_on_line(at(index + count - 1), at(index)));
    for (; view.SideOf(at(index)) > 0; ++index) chain.places.push_back(at(index));
    chain.places.push_back(end_on_line(at(index), at(index - 1)));
    chain.goes_along_line = true;
    for (; index < end && view.SideOf(at(index)) <= 0; ++index) {
      if (view.SideOf(at(index)) < 0) chain.goes_along_line = false;
      chain.along_line.push_back(at(index));
    }
    chain.ring_next = index < end ? chains.size() + 1 : first;
    chains.push_back(std::move(chain));
  }
}

// Where a chain begins or ends on the line.
struct ChainEnd {
  std::size_t chain;
  bool begins;
  XY place;  ///< on the line
  XY inner;  ///< the chain's vertex next to it
};

std::vector<ChainEnd> EndsInOrder(const View& view, const std::vector<Chain>& chains) {
  std::vector<ChainEnd> ends;
  ends.reserve(2 * chains.size());
  for (std::size_t index = 0; index < chains.size(); ++index) {
    const Vertices& places = chains[index].places;
    ends.push_back({index, true, places.front(), places[1]});
    ends.push_back({index, false, places.back(), places[places.size() - 2]});
  }
  const int earlier = view.AreaBeginsWithChain() ? -1 : 1;
  std::ranges::sort(ends, [&](const ChainEnd& a, const ChainEnd& b) {
    const double along_a = view.Along(a.place), along_b = view.Along(b.place);
    return along_a != along_b ? along_a < along_b : Turn(a.place, a.inner, b.inner) == earlier;
  });
  return ends;
}

// False where the ends don't alternate as those of an area do.
bool JoinChains(const View& view, std::vector<Chain>& chains) {
  const std::vector<ChainEnd> ends = EndsInOrder(view, chains);
  for (std::size_t index = 0; index < ends.size(); index += 2) {
    const ChainEnd &low = ends[index], &high = ends[index + 1];
    if (low.begins == high.begins || low.begins != view.AreaBeginsWithChain()) return false;
    chains[(low.begins ? high : low).chain].area_next = (low.begins ? low : high).chain;
  }
  return true;
}

void Append(Vertices& ring, const Vertices& places) {
  for (const XY place : places) {
    if (ring.empty() || ring.back() != place) ring.push_back(place);
  }
}

// A ring of chains that follow each other, from this one on.
Vertices RingFrom(std::vector<Chain>& chains, std::size_t start) {
  Vertices ring;
  for (std::size_t index = start; !chains[index].taken; index = chains[index].area_next) {
    Chain& chain = chains[index];
    chain.taken = true;
    Append(ring, chain.places);
    if (chain.goes_along_line && chain.area_next == chain.ring_next) Append(ring, chain.along_line);
  }
  if (ring.back() != ring.front()) ring.push_back(ring.front());
  return ring;
}

}  // namespace

std::optional<LineList> CutToHalfPlane(const LineList& rings, const HalfPlane& half) {
  const View view(half);
  LineList inside;
  std::vector<Chain> chains;
  for (const Vertices& ring : rings) {
    if (ring.size() < 4) continue;
    const auto is_inside = [&](XY place) { return view.SideOf(place) > 0; };
    if (std::ranges::all_of(ring, is_inside)) {
      inside.push_back(ring);
    } else if (std::ranges::any_of(ring, is_inside)) {
      AddChains(view, ring, chains);
    }
  }
  if (!JoinChains(view, chains)) return std::nullopt;
  for (std::size_t index = 0; index < chains.size(); ++index) {
    if (chains[index].taken) continue;
    Vertices ring = RingFrom(chains, index);
    if (ring.size() > 3) inside.push_back(std::move(ring));
  }
  return inside;
}

}  // namespace tessarine::engine
