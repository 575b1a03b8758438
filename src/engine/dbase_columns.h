// SPDX-License-Identifier: GPL-2.0-or-later
// New columns of a dBASE table.
#pragma once

#include <cstddef>
#include <span>

#include "engine/attribute_update.h"
#include "engine/ogr_source.h"
#include "platform/field.h"

namespace tessarine::engine {

/// Adds the first of these fields to the table of a shapefile, all in one rewriting, and returns how many: as far as
/// they are doubles with a width and decimals, under short plain names that the table doesn't have yet. 0 for a table
/// that has to be left to GDAL. Rows hold null there. The table is replaced by the new one when that is whole, so a run
/// that is killed leaves either of the two. Raises a fault, and leaves the table as it was, where there is no room on
/// the disk.
[[nodiscard]] std::size_t AddDbaseColumns(const OgrSource& source, std::span<const FieldRef> fields,
                                          std::int64_t block_bytes = kDbaseBlock);

}  // namespace tessarine::engine
