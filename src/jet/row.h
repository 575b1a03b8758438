// SPDX-License-Identifier: GPL-2.0-or-later
// Rows as bytes.
//
// A row begins with the number of columns the table had when it was written. The fixed columns follow at their places,
// then those of variable length one after the other, then, where the table has columns of variable length: the place
// after the last, the places of all from the last to the first, their number. At the end a bit for each column, lowest
// first: set where the column isn't null. A flag has no other place than its bit. Columns after those that the row
// knows are null.
#pragma once

#include <map>
#include <vector>

#include "jet/table_definition.h"

namespace tessarine::jet {

/// The values of a row, in the order of the table's columns.
using RowValues = std::vector<Value>;

/// Values of long columns come as `LongReference`s.
[[nodiscard]] RowValues UnpackRow(const TableDefinition& table, ByteSpan row);
/// One column's value, by its place among the table's columns.
[[nodiscard]] Value UnpackValue(const TableDefinition& table, ByteSpan row, std::size_t column);

/// An error where the value doesn't fit the column; null fits all.
void CheckValue(const Column& column, const Value& value);

/// Long values must be references. An error names the column whose value doesn't fit it.
[[nodiscard]] Bytes PackRow(const TableDefinition& table, const RowValues& values);

}  // namespace tessarine::jet
