// SPDX-License-Identifier: GPL-2.0-or-later
// The words for shape types, as files and lists show them.
#pragma once

#include <string>

#include "platform/geometry_types.h"

namespace tessarine {

/// "point", "multipoint", "polyline" or "polygon"; `otherwise` for any other type.
[[nodiscard]] std::string ShapeWord(esriGeometryType type, const std::string& otherwise);

}  // namespace tessarine
