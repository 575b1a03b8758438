// SPDX-License-Identifier: GPL-2.0-or-later
// What kinds of values the properties of a GeoJSON file have, as they are written there.
#pragma once

#include <string>

namespace tessarine::qgis {

/// The first property that holds values of several kinds: texts, numbers, flags, lists or objects; null is of none.
/// Empty where there is no such property. Reads the file once, a block at a time; empty for one that can't be read.
/// Native path.
[[nodiscard]] std::string MixedProperty(const std::string& path);

}  // namespace tessarine::qgis
