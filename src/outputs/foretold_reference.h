// SPDX-License-Identifier: GPL-2.0-or-later
// What becomes of the spatial reference of an output.
#pragma once

#include <string>
#include <vector>

#include "outputs/formats.h"
#include "platform/geometry_types.h"
#include "platform/spatial_reference.h"

namespace tessarine {

/// What readers of a file of this format make of the reference, whole sentences; none where they find the shapes where
/// they were meant. Formats whose classes tell of it themselves foretell nothing. `extent` is that of the shapes, in
/// the reference; empty where it isn't known. Makes a small file of the format where nobody looks. Made by the engine.
[[nodiscard]] std::vector<std::string> ForetoldOfReference(const Format& format, const SpatialReferenceRef& reference,
                                                           const Envelope& extent);

}  // namespace tessarine
