// SPDX-License-Identifier: GPL-2.0-or-later
// What the numbers of a JSON file are, as they are written there.
#pragma once

#include <string>

namespace tessarine::qgis {

/// Whether a whole number in the file is beyond -2^63 to 2^63 - 1. Reads the file once, a block at a time; false for
/// one that can't be read. Native path.
[[nodiscard]] bool HasWiderIntegers(const std::string& path);

}  // namespace tessarine::qgis
