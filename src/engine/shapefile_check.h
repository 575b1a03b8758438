// A look at the files of a shapefile before it is opened.
#pragma once

#include <string>

namespace tessarine::engine {

/// Raises a fault when the .shx or .dbf is missing, or the .shp or .shx is shorter than its header says.
void CheckShapefile(const std::string& native_path);

}  // namespace tessarine::engine
