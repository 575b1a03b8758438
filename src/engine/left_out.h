// SPDX-License-Identifier: GPL-2.0-or-later
// Records whose shapes are of a kind that no class holds.
#pragma once

#include <vector>

#include "engine/ogr_source.h"
#include "platform/data.h"

namespace tessarine::engine {

/// Records without a shape, under an empty kind, where the layer mixes kinds: they belong to none. And collections of
/// points, lines and polygons, triangulations and solids among the shapes of a layer, by kind. A walk over the layer
/// where its type leaves the kind of shapes open.
[[nodiscard]] std::vector<LeftOutRecords> FindLeftOut(OgrSource& source);

}  // namespace tessarine::engine
