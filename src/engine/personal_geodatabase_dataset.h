// Personal geodatabases as data sets of GDAL's, which the library itself reads only through ODBC.
#pragma once

#include <string>

#include "engine/ogr_source.h"
#include "platform/data.h"

namespace tessarine::engine {

struct NewClass;

/// Opens the geodatabase as the edit under way has it; for writing it can be used in an edit only. Null where it can't
/// be opened; GDAL's error handler is told why.
[[nodiscard]] DatasetHandle OpenPersonalGeodatabase(const std::string& native_path, bool update);

/// The workspace over the geodatabase at a native path, which need not be there yet.
[[nodiscard]] std::shared_ptr<IFeatureWorkspace> PersonalWorkspaceAt(const std::string& native_path);

}  // namespace tessarine::engine
