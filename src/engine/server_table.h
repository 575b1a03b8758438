// SPDX-License-Identifier: GPL-2.0-or-later
// What people have given a table of a PostgreSQL server besides its rows.
#pragma once

#include <gdal_priv.h>

#include <string>
#include <vector>

#include "platform/run_journal.h"

namespace tessarine::engine {

/// The views and tables that would go away with the table, as a list; empty for none.
[[nodiscard]] std::string DependentsOf(GDALDataset& dataset, const std::string& table);

/// Rights, indexes, constraints, triggers, comment and owner of a table that is replaced by another one of its name.
class TableBelongings {
 public:
  /// Reads them; none of a table that isn't there. Policies of rows can't be put again: the fault says so.
  TableBelongings(GDALDataset& dataset, std::string table);

  /// Gives them to the new table, in the transaction under way. What it can't take, as an index of a field that it
  /// doesn't have, the notes tell.
  void PutAgain(GDALDataset& dataset, RunJournal& notes) const;

 private:
  std::string table_;
  std::vector<std::string> statements_;
};

}  // namespace tessarine::engine
