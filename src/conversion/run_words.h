// SPDX-License-Identifier: GPL-2.0-or-later
// Words and fields that several conversions share.
#pragma once

#include <array>
#include <string_view>

namespace tessarine::modCreateVertices {

inline constexpr std::array<std::string_view, 2> kCoordinates = {"X_Coord", "Y_Coord"};
inline constexpr std::array<std::string_view, 1> kArea = {"Area"};
inline constexpr std::array<std::string_view, 1> kLength = {"Length"};
inline constexpr std::array<std::string_view, 1> kCount = {"Count"};

inline constexpr std::string_view kEmptyGeometries =
    "\\b Empty Geometries Found:\\b0  These features were skipped in the analysis...\\par";
inline constexpr std::string_view kEmptyPolygons =
    "\\b Empty Polygons Found:\\b0  These features were skipped in the analysis...\\par";
inline constexpr std::string_view kEmptyPolylines =
    "\\b Empty Polylines Found:\\b0  These features were skipped in the analysis...\\par";
inline constexpr std::string_view kEmptyFeatures =
    "\\b Empty Features Found:\\b0  These features were skipped in the analysis...\\par";

}  // namespace tessarine::modCreateVertices
