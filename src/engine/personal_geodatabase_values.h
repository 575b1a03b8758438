// SPDX-License-Identifier: GPL-2.0-or-later
// Values of columns of personal geodatabases as GDAL has them.
#pragma once

#include <ogrsf_frmts.h>

#include <memory>
#include <span>

#include "jet/database.h"

namespace tessarine::engine {

/// The width of a field of whole numbers from 0 to 255, which GDAL has no type for.
inline constexpr int kByteWidth = 3;
/// 64 bits of ten-thousandths, in whole units.
inline constexpr double kMostMoney = 922337203685477.0;

/// Fields of money have a width, and the decimals that they keep.
[[nodiscard]] std::unique_ptr<OGRFieldDefn> FieldOfColumn(const jet::Column& column);
/// Of texts that are together too wide for the rows of a new table, takes their width from the widest, which become
/// memos. The fields are all that the table is to have besides its identifier and shape.
void ShareOutRow(std::span<OGRFieldDefn* const> fields);
/// The column for a new field after those of the table. A text longer than 255 characters becomes a memo, and so does
/// one that could make the rows too long for a page. A `jet::Error` for lists.
[[nodiscard]] jet::ColumnSpec ColumnOfField(const OGRFieldDefn& field, const jet::TableDefinition& table);

/// Null where the column is.
void PutColumnValue(const jet::Table& table, std::size_t column, const jet::Value& value, OGRFeature& feature,
                    int attribute);
/// A `jet::Error` that names the field where the value doesn't fit the column.
[[nodiscard]] jet::Value ColumnValueOf(const OGRFeature& feature, int attribute, const jet::Column& column);

/// Days since 30 December 1899; the part of a day counts away from zero.
[[nodiscard]] double PersonalDate(int year, int month, int day, double seconds);
/// The same for now, in UTC.
[[nodiscard]] double PersonalDateNow();

/// In the plane of the coordinates: the length of lines and rings, and the area; 0 for other shapes.
[[nodiscard]] double LengthOfShape(const OGRGeometry& shape);
[[nodiscard]] double AreaOfShape(const OGRGeometry& shape);

}  // namespace tessarine::engine
