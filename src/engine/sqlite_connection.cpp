// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/sqlite_connection.h"

#include <string>
#include <vector>

#include "engine/engine_fault.h"
#include "engine/sql.h"

namespace tessarine::engine {

sqlite3* ConnectionOf(GDALDataset& dataset) {
  const GdalErrorScope quiet;
  const std::vector<std::string> version = AskSqlTexts(dataset, "SELECT sqlite_source_id()");
  const bool same = !version.empty() && version.front() == sqlite3_sourceid();
  return same ? static_cast<sqlite3*>(dataset.GetInternalHandle("SQLITE_HANDLE")) : nullptr;
}

}  // namespace tessarine::engine
