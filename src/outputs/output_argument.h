// SPDX-License-Identifier: GPL-2.0-or-later
// Places of outputs as arguments of tools, and the other way.
#pragma once

#include "outputs/output_place.h"
#include "platform/tool.h"

namespace tessarine {

/// The place that an argument names.
[[nodiscard]] inline OutputPlace PlaceOf(const ToolOutput& output) {
  return PlaceIn(output.kind, output.directory, output.name, output.dataset);
}

/// The argument that names a place; one without a format is a folder.
[[nodiscard]] inline ToolOutput ArgumentFor(const OutputPlace& place) {
  if (place.IsFolder()) return {0, place.Directory(), "", "", ""};
  return {place.Kind(), place.Directory(), place.dataset, place.name, ""};
}

}  // namespace tessarine
