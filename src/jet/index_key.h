// SPDX-License-Identifier: GPL-2.0-or-later
// Keys of indexes: bytes that sort as the values do.
//
// Each value is a flag byte and what follows: 00 null; 7F, then whole numbers highest byte first with the sign turned,
// doubles highest byte first with the sign turned or, below zero, all bits; GUIDs in the order of their text, eight
// bytes, 09, eight bytes, 08; texts one or two bytes for each character whatever its case, then 01 00. Descending: the
// same bits turned over.
//
// Of the order of texts the letters A to Z, digits, blank and underline are known. A text with another character has no
// key here. Whoever has rows with such texts takes their keys from the index that is there.
#pragma once

#include <string>

#include "jet/row.h"

namespace tessarine::jet {

/// Bytes in the order of unsigned ones, as texts of characters compare. Those of numbers are short enough to take no
/// memory of their own.
using Key = std::string;

/// A value whose place in the order of an index isn't known.
class UnknownOrder : public RowError {
 public:
  using RowError::RowError;
};

/// The key of a row; an `UnknownOrder` names the column and the value. `values` are in the order of the table's
/// columns.
[[nodiscard]] Key IndexKey(const TableDefinition& table, const Index& index, const RowValues& values);
/// Whether all columns of the index are null in this row.
[[nodiscard]] bool AllNull(const TableDefinition& table, const Index& index, const RowValues& values);

}  // namespace tessarine::jet
