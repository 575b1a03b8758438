// SPDX-License-Identifier: GPL-2.0-or-later
// Pages of a new table.
#pragma once

#include <span>

#include "jet/database.h"

namespace tessarine::jet {

/// Columns and indexes without the places of their maps and roots. An error for what the format doesn't take.
[[nodiscard]] TableDefinition DefineTable(const TableSpec& spec);
/// A column behind those of the table.
[[nodiscard]] Column NextColumn(const TableDefinition& table, const ColumnSpec& spec);

/// Gives an empty map a row on the page, or on a new page where that is full; 0 for none yet.
[[nodiscard]] RowId NewMap(PageFile& file, FreePages& free_pages, std::uint32_t& page);
/// Gives maps and roots to all that has none, and the definition its pages.
void PlaceTable(PageFile& file, FreePages& free_pages, TableDefinition& table);
/// An empty page of an index.
void FormatIndexRoot(Page& page, std::uint32_t owner);

}  // namespace tessarine::jet
