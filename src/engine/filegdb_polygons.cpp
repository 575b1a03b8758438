// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/filegdb_polygons.h"

#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "engine/geos_bridge.h"
#include "engine/plain_ring.h"
#include "engine/planar_areas.h"
#include "engine/ring_nesting.h"
#include "engine/snap_rounding.h"

namespace tessarine::engine {
namespace {

// More steps are told apart by no double, let alone the places between them that noding looks at.
constexpr double kMostSteps = 1e14;
constexpr std::size_t kLeastVertices = 4;  // of a ring

// A place by its steps from the origin of the grid, as the format counts them.
struct Steps {
  const GdbGrid& grid;

  [[nodiscard]] XY Of(XY place) const {
    return {std::floor((place.x - grid.x_origin) * grid.xy_scale + 0.5),
            std::floor((place.y - grid.y_origin) * grid.xy_scale + 0.5)};
  }
  [[nodiscard]] XY Place(XY steps) const {
    return {steps.x / grid.xy_scale + grid.x_origin, steps.y / grid.xy_scale + grid.y_origin};
  }
};

template <class Add>
void EachRing(const OGRGeometry& shape, Add&& add) {
  const auto add_all = [&](const OGRPolygon& polygon) {
    for (const OGRLinearRing* ring : polygon) add(*ring);
  };
  if (shape.getGeometryType() == wkbPolygon) return add_all(*shape.toPolygon());
  for (const OGRPolygon* polygon : *shape.toMultiPolygon()) add_all(*polygon);
}

// The vertices of each ring, changed by `change` and none twice in succession.
template <class Change>
LineList RingsOf(const OGRGeometry& shape, Change&& change) {
  LineList rings;
  EachRing(shape, [&](const OGRLinearRing& ring) {
    std::vector<XY> vertices;
    vertices.reserve(static_cast<std::size_t>(ring.getNumPoints()));
    for (int index = 0; index < ring.getNumPoints(); ++index) {
      const XY place = change(XY{ring.getX(index), ring.getY(index)});
      if (vertices.empty() || vertices.back() != place) vertices.push_back(place);
    }
    if (vertices.size() >= kLeastVertices) rings.push_back(std::move(vertices));
  });
  return rings;
}

bool AreValid(const LineList& rings) {
  if (ArePlainRings(std::vector<std::span<const XY>>(rings.begin(), rings.end()))) return true;
  std::vector<Ring> paths;
  paths.reserve(rings.size());
  for (const std::vector<XY>& ring : rings) paths.emplace_back(ring);
  std::vector<const Path*> pointers;
  for (const Ring& path : paths) pointers.push_back(&path);
  return CheckedFlag(GEOSisValid_r(Geos(), NestedToGeos(NestRings(pointers)).get()));
}

std::unique_ptr<OGRMultiPolygon> ToOgr(const AreaList& areas, const Steps& steps) {
  auto shape = std::make_unique<OGRMultiPolygon>();
  for (const AreaRings& rings : areas) {
    auto polygon = std::make_unique<OGRPolygon>();
    for (const std::vector<XY>& vertices : rings) {
      auto ring = std::make_unique<OGRLinearRing>();
      for (const XY vertex : vertices) {
        const XY place = steps.Place(vertex);
        ring->addPoint(place.x, place.y);
      }
      polygon->addRingDirectly(ring.release());
    }
    shape->addGeometryDirectly(polygon.release());
  }
  return shape;
}

bool IsPlainPolygon(const OGRGeometry* shape) {
  if (shape == nullptr || shape->IsEmpty()) return false;
  return shape->getGeometryType() == wkbPolygon || shape->getGeometryType() == wkbMultiPolygon;
}

}  // namespace

void KeepValidOnGrid(const GdbGrid& grid, OGRFeature& feature) {
  const OGRGeometry* shape = feature.GetGeometryRef();
  if (!IsPlainPolygon(shape)) return;
  const Steps steps{grid};
  bool moved = false, too_far = false;
  LineList rounded = RingsOf(*shape, [&](XY vertex) {
    const XY place = steps.Of(vertex);
    moved = moved || steps.Place(place) != vertex;
    too_far = too_far || !(std::fabs(place.x) < kMostSteps && std::fabs(place.y) < kMostSteps);
    return place;
  });
  if (!moved || too_far || rounded.empty() || AreValid(rounded)) return;
  if (!AreValid(RingsOf(*shape, [](XY vertex) { return vertex; }))) return;
  const std::optional<LineList> led = SnapRounded(std::move(rounded), 1.0);
  const AreaList areas = led ? EvenOddAreas(*led) : AreaList{};
  if (areas.empty()) return;
  std::unique_ptr<OGRMultiPolygon> valid = ToOgr(areas, steps);
  valid->assignSpatialReference(shape->getSpatialReference());
  feature.SetGeometryDirectly(valid.release());
}

}  // namespace tessarine::engine
