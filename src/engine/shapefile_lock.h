// SPDX-License-Identifier: GPL-2.0-or-later
// One run at a time changes the table of a shapefile.
#pragma once

#include <memory>
#include <string>

#include "platform/data.h"

namespace tessarine::engine {

/// Holds a lock on the shapefile until the edit and all others of this process on it have gone; other processes of this
/// program are refused meanwhile, other programs take no notice. A fault that names the file where another process
/// holds it. File systems without locks give an edit that locks nothing.
[[nodiscard]] std::shared_ptr<IEdit> LockShapefile(const std::string& native_path);

}  // namespace tessarine::engine
