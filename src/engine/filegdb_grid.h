// SPDX-License-Identifier: GPL-2.0-or-later
// The grid that a new class of a file geodatabase keeps its coordinates on.
#pragma once

#include <ogrsf_frmts.h>

#include <optional>
#include <string>

#include "engine/filegdb_layout.h"
#include "platform/geometry_types.h"
#include "platform/spatial_reference.h"

namespace tessarine::engine {

enum class GridUnit { Degrees, Length, Unknown };

struct NewGrid {
  GdbGrid grid;
  double xy_tolerance = 0.0;
};

/// The grid for coordinates within `extent`, which may be empty where it isn't known. Nothing: GDAL's own does. Room is
/// left around the extent for shapes that come out larger than their sources. `size` is that of the unit in degrees or
/// metres: the steps of a larger one are as much finer.
[[nodiscard]] std::optional<NewGrid> GridFor(const Envelope& extent, GridUnit unit, double size = 1.0);
/// The same, by the unit of the reference; null is of no known unit.
[[nodiscard]] std::optional<NewGrid> GridFor(const Envelope& extent, const SpatialReferenceRef& reference);

/// The grid of a class that there is; empty where it isn't one of a file geodatabase, or keeps no shapes.
[[nodiscard]] std::optional<GdbGrid> GridOfClass(const std::string& native_path, const std::string& name);

/// Fault `kCoordinateRange` where the shape of the feature lies where the grid can't hold it. Without its shape the
/// feature can be written.
void RequireOnGrid(const GdbGrid& grid, const OGRFeature& feature, const std::string& class_name);

}  // namespace tessarine::engine
