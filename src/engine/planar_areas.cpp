// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/planar_areas.h"

#include <algorithm>
#include <ranges>

#include "engine/face_map.h"
#include "platform/fault.h"

namespace tessarine::engine {
namespace {

constexpr std::uint32_t kNone = FaceMap::kNone;

void RequireSure(bool sure) {
  if (!sure)
    Raise(kInvalidCall, "The areas between the lines can't be found: the lines meet elsewhere than at vertices.");
}

// The ring turned round: a graph's rings keep the area at their left.
std::vector<XY> VerticesOf(const FaceMap::Ring& ring, const PlanarGraph& graph) {
  std::vector<XY> vertices;
  vertices.reserve(ring.places.size() + 1);
  vertices.push_back(graph.Place(ring.places.front()));
  for (const std::uint32_t place : ring.places | std::views::reverse) vertices.push_back(graph.Place(place));
  return vertices;
}

// The faces whose walks meet the condition, with the rings that are cut out of them.
template <class Condition>
AreaList AreasOf(const FaceMap& map, const PlanarGraph& graph, Condition&& condition) {
  std::vector<const FaceMap::Ring*> shells, holes;
  for (const FaceMap::Ring& ring : map.Rings()) {
    const std::uint32_t shell = map.ShellOf(ring.walk);
    if (shell == kNone || !condition(map.Rings()[shell].walk)) continue;
    (ring.encloses ? shells : holes).push_back(&ring);
  }
  std::ranges::sort(shells, {}, &FaceMap::Ring::places);
  std::ranges::sort(holes, {}, &FaceMap::Ring::places);
  AreaList areas;
  areas.reserve(shells.size());
  std::vector<std::size_t> area_of(map.Rings().size());
  for (const FaceMap::Ring* shell : shells) {
    area_of[static_cast<std::size_t>(shell - map.Rings().data())] = areas.size();
    areas.push_back({VerticesOf(*shell, graph)});
  }
  for (const FaceMap::Ring* hole : holes) {
    areas[area_of[map.ShellOf(hole->walk)]].push_back(VerticesOf(*hole, graph));
  }
  return areas;
}

// Of a graph in which each edge has the inside at one hand only.
AreaList AlternatingAreas(PlanarGraph& graph) {
  graph.Link();
  const FaceMap map(graph);
  RequireSure(map.IsSure());
  const std::vector<std::int32_t> levels = map.Levels([](std::uint32_t) { return 1; });
  return AreasOf(map, graph, [&](std::uint32_t walk) { return levels[walk] % 2 != 0; });
}

}  // namespace

AreaList FacesBetween(const LineList& lines) {
  PlanarGraph graph(lines);
  graph.DropLooseEdges();
  const FaceMap map(graph);
  RequireSure(map.IsSure());
  return AreasOf(map, graph, [](std::uint32_t) { return true; });
}

AreaList EvenOddAreas(const LineList& rings) {
  PlanarGraph graph(rings);
  graph.KeepEdges([&](std::size_t edge) { return graph.Edges()[edge].passes % 2 != 0; });
  return AlternatingAreas(graph);
}

AreaList CoveredAreas(const LineList& rings) {
  PlanarGraph graph(rings);
  graph.KeepEdges([&](std::size_t edge) { return graph.Edges()[edge].upwards != 0; });
  graph.Link();
  const FaceMap map(graph);
  RequireSure(map.IsSure());
  const std::vector<std::int32_t> covers = map.Levels([&](std::uint32_t half) {
    const std::int32_t upwards = graph.Edges()[half / 2].upwards;
    return half % 2 == 0 ? -upwards : upwards;
  });
  RequireSure(std::ranges::all_of(covers, [](std::int32_t count) { return count >= 0; }));
  graph.KeepEdges([&](std::size_t edge) {
    const auto half = static_cast<std::uint32_t>(2 * edge);
    return (covers[map.WalkOf(half)] > 0) != (covers[map.WalkOf(half + 1)] > 0);
  });
  return AlternatingAreas(graph);
}

std::vector<std::shared_ptr<Path>> PartsOf(AreaList areas) {
  std::vector<std::shared_ptr<Path>> parts;
  for (AreaRings& rings : areas) {
    for (std::vector<XY>& ring : rings) parts.push_back(std::make_shared<Ring>(std::move(ring)));
  }
  return parts;
}

}  // namespace tessarine::engine
