// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/face_map.h"

#include <algorithm>
#include <numeric>

#include "engine/box_tree.h"
#include "engine/turn.h"

namespace tessarine::engine {
namespace {

constexpr std::uint32_t kNone = FaceMap::kNone;

// Finds the face in which a place lies that no edge passes.
class FaceSearch {
 public:
  FaceSearch(const PlanarGraph& graph, const std::vector<FaceMap::Ring>& rings,
             const std::vector<std::uint32_t>& ring_of)
      : graph_(graph), rings_(rings), ring_of_(ring_of), odd_(rings.size(), kNotAsked), edges_(EdgeBoxes(graph)) {
    for (std::uint32_t ring = 0; ring < rings.size(); ++ring) {
      if (!rings[ring].encloses) continue;
      Box box;
      for (const std::uint32_t place : rings[ring].places) box.Add(Box::Of(graph.Place(place)));
      shells_.push_back(ring);
      boxes_.push_back(box);
    }
    shell_tree_ = BoxTree(boxes_);
  }

  /// The smallest enclosing ring around the place; `kNone` outside of all.
  std::uint32_t ShellAround(XY place) {
    double reach = place.x;
    std::vector<std::uint32_t> asked;
    shell_tree_.Meeting(Box::Of(place), [&](std::uint32_t shell) {
      if (boxes_[shell].xmax == place.x) return;
      asked.push_back(shells_[shell]);
      odd_[shells_[shell]] = 0;
      reach = std::max(reach, boxes_[shell].xmax);
    });
    if (asked.empty()) return kNone;
    // A ray to the right crosses the rings around the place an odd number of times.
    edges_.Meeting({place.x, place.y, reach, place.y}, [&](std::uint32_t edge) {
      if (!IsCrossed(edge, place)) return;
      for (const std::uint32_t ring : {ring_of_[std::size_t{2} * edge], ring_of_[std::size_t{2} * edge + 1]}) {
        if (odd_[ring] != kNotAsked) odd_[ring] ^= 1;
      }
    });
    std::uint32_t smallest = kNone;
    for (const std::uint32_t ring : asked) {
      if (odd_[ring] == 1 && (smallest == kNone || Area(ring) < Area(smallest))) smallest = ring;
      odd_[ring] = kNotAsked;
    }
    return smallest;
  }

 private:
  static constexpr char kNotAsked = 2;

  static std::vector<Box> EdgeBoxes(const PlanarGraph& graph) {
    std::vector<Box> boxes;
    boxes.reserve(graph.Edges().size());
    for (const PlanarGraph::Edge& edge : graph.Edges()) {
      boxes.push_back(Box::Of(graph.Place(edge.low), graph.Place(edge.high)));
    }
    return boxes;
  }

  [[nodiscard]] bool IsCrossed(std::uint32_t edge, XY place) const {
    const XY low = graph_.Place(graph_.Edges()[edge].low), high = graph_.Place(graph_.Edges()[edge].high);
    if ((low.y > place.y) == (high.y > place.y)) return false;
    return low.y < high.y ? Turn(low, high, place) > 0 : Turn(high, low, place) > 0;
  }

  [[nodiscard]] double Area(std::uint32_t ring) const {
    std::vector<XY> vertices;
    for (const std::uint32_t place : rings_[ring].places) vertices.push_back(graph_.Place(place));
    return ChordArea(vertices);
  }

  const PlanarGraph& graph_;
  const std::vector<FaceMap::Ring>& rings_;
  const std::vector<std::uint32_t>& ring_of_;
  std::vector<char> odd_;  // how often the ray crosses each ring, modulo 2
  std::vector<std::uint32_t> shells_;
  std::vector<Box> boxes_;  // of the shells
  BoxTree edges_, shell_tree_;
};

}  // namespace

FaceMap::FaceMap(const PlanarGraph& graph) : graph_(graph) {
  walk_of_ = graph.Walks(walk_starts_);
  ring_of_.assign(walk_of_.size(), kNone);
  shell_of_.assign(walk_starts_.size(), kNone);
  FindRings();
  if (sure_) FindComponents();
  if (sure_ && components_.size() > 1) FindSurroundings();
}

// Each time a walk comes back to a place, what lies between is a ring.
void FaceMap::FindRings() {
  std::vector<std::uint32_t> depth(graph_.PlaceCount(), kNone), trail;
  for (const std::uint32_t start : walk_starts_) {
    depth[graph_.FromOf(start)] = 0;
    std::uint32_t half = start;
    do {
      trail.push_back(half);
      const std::uint32_t to = graph_.ToOf(half);
      if (depth[to] != kNone) TakeRing(trail, depth[to], depth);
      depth[to] = static_cast<std::uint32_t>(trail.size());
      half = graph_.Next(half);
    } while (half != start && sure_);
    depth[graph_.FromOf(start)] = kNone;
    sure_ = sure_ && trail.empty();
    if (!sure_) return;
  }
}

void FaceMap::TakeRing(std::vector<std::uint32_t>& trail, std::size_t begin, std::vector<std::uint32_t>& depth) {
  const auto number = static_cast<std::uint32_t>(rings_.size());
  Ring ring{{}, walk_of_[trail.back()], false};
  std::vector<std::uint32_t>& places = ring.places;
  places.reserve(trail.size() - begin);
  for (std::size_t at = begin; at < trail.size(); ++at) {
    places.push_back(graph_.FromOf(trail[at]));
    ring_of_[trail[at]] = number;
    depth[places.back()] = kNone;
  }
  trail.resize(begin);
  if (places.size() < 3) {
    sure_ = false;
    return;
  }
  std::ranges::rotate(places, std::ranges::min_element(places));
  ring.encloses = Turn(graph_.Place(places.back()), graph_.Place(places[0]), graph_.Place(places[1])) > 0;
  if (ring.encloses) {
    // A face has one outer boundary.
    if (shell_of_[ring.walk] != kNone) sure_ = false;
    shell_of_[ring.walk] = number;
  }
  rings_.push_back(std::move(ring));
}

void FaceMap::FindComponents() {
  // The highest place of a component is its root.
  std::vector<std::uint32_t> roots(graph_.PlaceCount(), kNone);
  const auto root_of = [&](std::uint32_t place) {
    while (roots[place] != place) place = roots[place] = roots[roots[place]];
    return place;
  };
  for (const PlanarGraph::Edge& edge : graph_.Edges()) {
    for (const std::uint32_t place : {edge.low, edge.high}) {
      if (roots[place] == kNone) roots[place] = place;
    }
    const std::uint32_t a = root_of(edge.low), b = root_of(edge.high);
    roots[std::min(a, b)] = std::max(a, b);
  }
  std::size_t place_count = 0, component_count = 0;
  for (std::uint32_t place = 0; place < roots.size(); ++place) {
    place_count += roots[place] != kNone ? 1U : 0U;
    component_count += roots[place] == place ? 1U : 0U;
  }
  for (std::uint32_t walk = 0; walk < walk_starts_.size(); ++walk) {
    if (shell_of_[walk] == kNone) components_.push_back({walk, root_of(graph_.FromOf(walk_starts_[walk]))});
  }
  std::ranges::sort(components_, std::greater(), &Component::top);
  // One walk goes around each component, and by Euler's formula its places and faces are two more than its edges.
  const auto same_top = [](const Component& a, const Component& b) { return a.top == b.top; };
  sure_ = components_.size() == component_count &&
          std::ranges::adjacent_find(components_, same_top) == components_.end() &&
          place_count + walk_starts_.size() == graph_.Edges().size() + 2 * component_count;
}

void FaceMap::FindSurroundings() {
  FaceSearch search(graph_, rings_, ring_of_);
  for (const Component& component : components_) {
    shell_of_[component.outer_walk] = search.ShellAround(graph_.Place(component.top));
  }
}

}  // namespace tessarine::engine
