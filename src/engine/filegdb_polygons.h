// SPDX-License-Identifier: GPL-2.0-or-later
// Polygons on the grid of a class of a file geodatabase.
//
// A geodatabase rounds each vertex to a grid, commonly of a tenth of a millimetre. Rings that pass each other more
// closely than that may cross once they are rounded. Such polygons are led along the grid before they are written, by
// snap rounding, so that what is stored is valid; they stay within a step of the grid of where they were.
#pragma once

#include <ogrsf_frmts.h>

#include "engine/filegdb_layout.h"

namespace tessarine::engine {

/// Replaces a valid polygon of the feature where its rounded rings would not be valid. Shapes of other kinds, those
/// with curves, z or measures, those whose vertices are on the grid, and polygons that the grid leaves without area
/// stay; so do those that aren't valid as they are. Cost: that of a check for validity where a vertex is off the grid.
void KeepValidOnGrid(const GdbGrid& grid, OGRFeature& feature);

}  // namespace tessarine::engine
