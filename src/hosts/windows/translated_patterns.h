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
    "units of %1",
    "square %1",
    "No line at the terminal does the same: %1.",
    "a comma in the name of the field '%1' parts it in two",
    "only the first records of '%1' are read",
    "'%1' can't be named there, because %2",
    "the filter of '%1' is a whole query",
    "the selected records of '%1' are too many to be listed",
    "The Feature Class '%1' already exists!  Do you wish to overwrite it?",
    "Unable to create Feature Class:\n%1 is not a valid workspace...",
    "No Feature Class Created:\n%1",
    "Unable to Make %1 Feature Class:",
    "Unable to find the following file:\n\n%1\n\nBailing out...",
    "The following field names might not be valid, either because they are too long or they contain invalid "
    "characters.  If they are invalid, they may corrupt your data.  Please click 'YES' to continue and use these field "
    "names, or 'NO' if you wish to exit and define new names:\n%1",
    "The following field names already exist in your dataset, and therefore the existing data will be overwritten. "
    "Please click 'YES' to continue and use these field names, or 'NO' if you wish to exit and define new names:\n%1",
    "No selected graphic %1 in map!  No new Feature Class will be made.\nDo you wish to go back and \nmake a different "
    "selection?",
    "No graphic %1 in map!  No new Feature Class will be made.\nDo you wish to go back and \nmake a different "
    "selection?",
};

}  // namespace tessarine
