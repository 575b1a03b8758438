// SPDX-License-Identifier: GPL-2.0-or-later
// A walk over a whole database that believes nothing.
//
// Every page belongs to exactly one: the header, the free ones, a definition, a map, the rows of a table, the long
// values of a column, an index. Every row can be read, with its long values, each of which belongs to it alone. Indexes
// hold what the rows say, in order, and counts and maps tell what is there.
#pragma once

#include <string>
#include <vector>

#include "jet/database.h"

namespace tessarine::jet {

struct CheckReport {
  std::vector<std::string> findings;       ///< what is wrong, with table and page
  std::vector<std::string> unknown_order;  ///< indexes with keys whose order isn't known here; each row has its entry
  std::uint32_t lost_pages = 0;            ///< used by nobody, and not free
};

/// Costs a walk over all rows for each table and index. Errors of the file itself are findings.
[[nodiscard]] CheckReport CheckDatabase(Database& database);

}  // namespace tessarine::jet
