// SPDX-License-Identifier: GPL-2.0-or-later
// Short ways to make shapes in tests.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/fault.h"
#include "platform/geometry.h"

namespace tessarine::testing {

inline std::shared_ptr<Ring> RingOf(std::vector<XY> vertices) { return std::make_shared<Ring>(std::move(vertices)); }

inline std::shared_ptr<Polygon> PolygonOf(const std::vector<std::vector<XY>>& rings) {
  auto polygon = std::make_shared<Polygon>();
  for (const auto& ring : rings) polygon->AddGeometry(RingOf(ring));
  return polygon;
}

inline std::shared_ptr<Polyline> PolylineOf(const std::vector<std::vector<XY>>& paths) {
  auto line = std::make_shared<Polyline>();
  for (const auto& path : paths) line->AddGeometry(std::make_shared<Path>(path));
  return line;
}

/// The closed rectangle from its lower left corner, clockwise or counter-clockwise.
inline std::vector<XY> Box(double xmin, double ymin, double xmax, double ymax, bool clockwise = true) {
  if (clockwise) return {{xmin, ymin}, {xmin, ymax}, {xmax, ymax}, {xmax, ymin}, {xmin, ymin}};
  return {{xmin, ymin}, {xmax, ymin}, {xmax, ymax}, {xmin, ymax}, {xmin, ymin}};
}

/// The fault number that a call raises; 0 when it raises none.
template <class Call>
std::int32_t FaultOf(Call&& call) {
  try {
    std::forward<Call>(call)();
  } catch (const Fault& fault) {
    return fault.Number();
  }
  return 0;
}

/// The description of the fault that a call raises; empty when it raises none.
template <class Call>
std::string FaultTextOf(Call&& call) {
  try {
    std::forward<Call>(call)();
  } catch (const Fault& fault) {
    return fault.Description();
  }
  return "";
}

}  // namespace tessarine::testing
