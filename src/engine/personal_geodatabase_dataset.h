// SPDX-License-Identifier: GPL-2.0-or-later
// Personal geodatabases as data sets of GDAL's, which the library itself reads only through ODBC.
#pragma once

#include <string>

#include "engine/ogr_source.h"

namespace tessarine::engine {

/// Opens the geodatabase as the edit under way has it; for writing it can be used in an edit only. Null where it can't
/// be opened; GDAL's error handler is told why.
[[nodiscard]] DatasetHandle OpenPersonalGeodatabase(const std::string& native_path, bool update);

/// What there is to know of the format as of others that the library writes. It isn't registered: other parts of the
/// process open such files as they did.
[[nodiscard]] GDALDriver& PersonalDriver();

}  // namespace tessarine::engine
