// SPDX-License-Identifier: GPL-2.0-or-later
// Tells what is broken in a file geodatabase, by its bytes alone: nothing of it goes through the library that wrote it.
//
// Of each table: the headers, the description of the columns, every row (within the file, as long as its values,
// apart from all others, from the description and from the free places), the free places, the indexes (there, of
// columns there are, with as many entries as the column has values). Of the catalogue: each table has its files; each
// class, table and feature dataset has one item with a definition that names its columns; what lies in what is told of
// items that there are. `filegdb_layout.h` tells the bytes.
#pragma once

#include <string>
#include <vector>

namespace tessarine::engine {

/// One sentence for each thing that is broken, without a period; empty for a whole geodatabase. Reads every row of
/// every table.
[[nodiscard]] std::vector<std::string> CheckFileGeodatabase(const std::string& native_path);

/// The same for one table; `base` is its path without an ending, `name` stands in the sentences.
[[nodiscard]] std::vector<std::string> CheckGdbTable(const std::string& base, const std::string& name);

/// The same for the catalogue, without the tables of the user.
[[nodiscard]] std::vector<std::string> CheckGdbCatalogue(const std::string& native_path);

}  // namespace tessarine::engine
