// SPDX-License-Identifier: GPL-2.0-or-later
// The places where outputs are made, and how people read of them.
#pragma once

#include <string>
#include <string_view>

namespace tessarine {

/// In the name of the hidden folder, and what lies in it: ".roads.shp.tessarine-Ab12Cd/new/roads.shp".
inline constexpr std::string_view kStagingMark = ".tessarine-";
inline constexpr std::string_view kStagingFolder = "new";
/// After the name of an output where a GeoPackage is worked on that becomes it.
inline constexpr std::string_view kWorkEnding = ".work.gpkg";

/// What a failure says, for people: with the place of an output instead of that where it is made, beside it and hidden.
/// Where the disk there is full, it says just that.
[[nodiscard]] std::string WithShownPlaces(const std::string& text);

}  // namespace tessarine
