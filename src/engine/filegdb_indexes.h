// SPDX-License-Identifier: GPL-2.0-or-later
// The indexes of one table of a file geodatabase.
#pragma once

#include <string>
#include <vector>

namespace tessarine::engine {

struct GdbIndex {
  std::string name;
  std::string expression;  ///< a column, or "LOWER(column)"
  std::string bytes;       ///< the entry as it is stored

  /// The column that it is made of.
  [[nodiscard]] std::string Column() const;
};

/// The indexes that a table is told to have; `base` is its path without an ending. Empty where there are none, or where
/// the list isn't understood.
[[nodiscard]] std::vector<GdbIndex> ReadGdbIndexes(const std::string& base);
/// Replaces the list.
void WriteGdbIndexes(const std::string& base, const std::vector<GdbIndex>& indexes);

/// The file that holds an index on an attribute.
[[nodiscard]] std::string GdbIndexFile(const std::string& base, const GdbIndex& index);
/// The file that holds the index on the shapes.
[[nodiscard]] std::string GdbSpatialIndexFile(const std::string& base);

}  // namespace tessarine::engine
