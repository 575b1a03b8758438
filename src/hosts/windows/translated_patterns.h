// SPDX-License-Identifier: GPL-2.0-or-later
// The texts that hold names and numbers, as they are made. The first one that fits a text counts.
#pragma once

namespace tessarine {

inline constexpr const char* kTranslatedPatterns[] = {
    "Spheroid: %1,  Maj.Rad. = %2m,  Min.Rad. = %3m",
    "%1 Feature Class:  %2 Coordinate System",
    "Performing Calculations...%1 of %2...",
    "Consider All Label Points (n = %1)",
    "Convert Selected Records (n = %1)",
    "Combine Selected Records (n = %1)",
    "Name Selected Graphics (n = %1)",
    "Calculate All Records (n = %1)",
    "Only Selected Points (n = %1)",
    "Estimated time remaining:  %1",
    "Estimated completion time: %1",
    "Convert All Records (n = %1)",
    "Combine All Records (n = %1)",
    "Calculating %1 Attributes...",
    "Selected Polylines (n = %1)",
    "Use All Polylines (n = %1)",
    "Name All Graphics (n = %1)",
    "Selected Records (n = %1)",
    "All Label Points (n = %1)",
    "Selected Points (n = %1)",
    "Spatial Reference = %1",
    "Current Spheroid = %1",
    "Load '%1' Parameters",
    "Group Elements [%1]",
    "Data Graphs [%1]",
    "Rectangles [%1]",
    "Polygons [%1]",
    "Ellipses [%1]",
    "Pictures [%1]",
    "Began Job: %1",
    "Circles [%1]",
    "Points [%1]",
    "Frames [%1]",
    "Lines [%1]",
    "Version %1",
    "Units: %1",
    "Text [%1]",
};

}  // namespace tessarine
