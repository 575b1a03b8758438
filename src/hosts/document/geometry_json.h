// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes as JSON, true curves included.
//
//   {"type": "point", "at": [x, y]}
//   {"type": "multipoint", "points": [[x, y], ...]}
//   {"type": "polyline", "parts": [[[x, y], [x, y], {"arc": [x, y], "center": [x, y], "sweep": a}, ...], ...]}
//
// A part is a list of vertices; an object in it is the curve that leads to its vertex: "arc", "ellipse" (with
// "center", "axes", "rotation", "start", "sweep") or "bezier" (with "controls"). "polygon" parts are rings.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "platform/geometry.h"

namespace tessarine {

[[nodiscard]] nlohmann::json GeometryToJson(const IGeometry& geometry);

/// Reads what `GeometryToJson` wrote. Fault 5 names the place in the document and what is wrong with it.
[[nodiscard]] GeometryRef GeometryFromJson(const nlohmann::json& json, const std::string& place);

}  // namespace tessarine
