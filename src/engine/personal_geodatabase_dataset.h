// SPDX-License-Identifier: GPL-2.0-or-later
// Personal geodatabases as data sets of GDAL's, which the library itself reads only through ODBC.
#pragma once

#include <string>

#include "engine/ogr_source.h"
#include "engine/personal_geodatabase.h"

namespace tessarine::engine {

/// Where a layer tells why it can't be read: an item of its default metadata.
inline constexpr const char* kWhyUnreadable = "WHY_UNREADABLE";

/// Opens the geodatabase as the edit under way has it; for writing it can be used in an edit only. Null where it can't
/// be opened; GDAL's error handler is told why. A table that can't be read costs no other: its layer tells why.
[[nodiscard]] DatasetHandle OpenPersonalGeodatabase(const std::string& native_path, FileAccess access);

/// What there is to know of the format as of others that the library writes. It isn't registered: other parts of the
/// process open such files as they did.
[[nodiscard]] GDALDriver& PersonalDriver();

}  // namespace tessarine::engine
