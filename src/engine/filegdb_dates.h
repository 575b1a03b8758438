// SPDX-License-Identifier: GPL-2.0-or-later
// Dates of file geodatabases as GDAL reads them.
#pragma once

#include "platform/date.h"

namespace tessarine::engine {

/// The date that a column holds, of what GDAL read: GDAL 3.6 reads times before 1970 a second too late. It is asked
/// once for a date of known seconds.
[[nodiscard]] Date WithoutLateness(Date read);

}  // namespace tessarine::engine
