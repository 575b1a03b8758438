// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/sqlite_connection.h"

#include <ogrsf_frmts.h>

#include <string_view>

#include "engine/engine_fault.h"

namespace tessarine::engine {

sqlite3* ConnectionOf(GDALDataset& dataset) {
  const GdalErrorScope quiet;
  OGRLayer* answer = dataset.ExecuteSQL("SELECT sqlite_source_id()", nullptr, nullptr);
  if (answer == nullptr) return nullptr;
  const OGRFeatureUniquePtr row(answer->GetNextFeature());
  const bool same = row && std::string_view(row->GetFieldAsString(0)) == sqlite3_sourceid();
  dataset.ReleaseResultSet(answer);
  return same ? static_cast<sqlite3*>(dataset.GetInternalHandle("SQLITE_HANDLE")) : nullptr;
}

}  // namespace tessarine::engine
