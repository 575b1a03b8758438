// SPDX-License-Identifier: GPL-2.0-or-later
// A look at the files of a shapefile before it is opened.
#pragma once

#include <string>

namespace tessarine::engine {

/// Raises a fault when the .shx or .dbf is missing, one of the three is shorter than its header says, or the .dbf has
/// another number of rows than there are shapes.
void CheckShapefile(const std::string& native_path);

}  // namespace tessarine::engine
