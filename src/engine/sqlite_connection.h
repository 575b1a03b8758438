// SPDX-License-Identifier: GPL-2.0-or-later
// The SQLite connection beneath a dataset of GDAL's.
#pragma once

#include <gdal_priv.h>
#include <sqlite3.h>

#include <memory>

namespace tessarine::engine {

struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using SqliteStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// The connection of a dataset that GDAL has open; null when GDAL was built with a SQLite of its own.
[[nodiscard]] sqlite3* ConnectionOf(GDALDataset& dataset);

}  // namespace tessarine::engine
