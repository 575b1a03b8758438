// SPDX-License-Identifier: GPL-2.0-or-later
// The tables that a personal geodatabase keeps its own account in.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jet/database.h"

namespace tessarine::engine {

/// The flags of an index over identifiers: each value once, and none absent.
inline constexpr std::uint8_t kIdentifier = jet::Index::kUnique | jet::Index::kRequired;

/// Those of every geodatabase: references, classes, their fields, items and how they relate.
[[nodiscard]] std::vector<jet::TableSpec> OwnTables();

/// The table of the cells that the shapes of a class lie in.
[[nodiscard]] jet::TableSpec ShapeIndexTable(const std::string& name);

}  // namespace tessarine::engine
