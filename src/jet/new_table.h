// SPDX-License-Identifier: GPL-2.0-or-later
// Pages of a new table.
#pragma once

#include <span>

#include "jet/database.h"

namespace tessarine::jet {

/// Columns and indexes without the places of their maps and roots. An error for what the format doesn't take.
[[nodiscard]] TableDefinition DefineTable(const TableSpec& spec);
/// A column after those of the table.
[[nodiscard]] Column NextColumn(const TableDefinition& table, const ColumnSpec& spec);

/// Gives the table its maps and the roots of its indexes. `maps` is the page whose rows the maps become, 0 for a new
/// one; a full page is followed by a new one.
void PlaceParts(PageFile& file, FreePages& free_pages, std::uint32_t& maps, TableDefinition& table);
/// Gives one column of long values its maps; nothing to do for others.
void PlaceLongColumn(PageFile& file, FreePages& free_pages, std::uint32_t& maps, const Column& column,
                     TableDefinition& table);
/// Writes a definition to its pages, and to as many new ones after them as it needs.
void WriteGrownDefinition(PageFile& file, FreePages& free_pages, const TableDefinition& table,
                          std::vector<std::uint32_t> pages);

}  // namespace tessarine::jet
