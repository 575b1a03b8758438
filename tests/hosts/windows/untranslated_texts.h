// SPDX-License-Identifier: GPL-2.0-or-later
// Literals of several words that need no translation of their own.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace tessarine::testing {

inline constexpr std::string_view kUntranslatedTexts[] = {
    // What the error window and its report tell those who mend the program.
    "%1Tessarine Tools v. %2:  %3",
    "An error has occured in the application.   Record the call stack sequence%1and the description of the "
    "error.%2%3Error Call Stack Sequence %4%5%6%7%8",
    "Error Number %1%2%3%4Description%5%6%7%8%9",
    "Raised in",
    "Record Call Stack Sequence - Bottom line is error line.%1%2%3%4%5%6",
    "the options of GeometryOptions",
    // Parts of reports, plans and logs.
    "%1 --> \n          [time stamp %2]",
    "Analysis Began: %1;  %2\nAnalysis Complete: %3;  %4\nTime Elapsed: %5",
    "Boundary Box",
    "Boundary Parameters:",
    "Conversion Option:",
    "Convert all graphic points to Point Feature Class",
    "Convert all graphic polygons to Polygon Feature Class",
    "Convert all graphic polylines and polygons to Polygon Feature Class",
    "Convert all graphic polylines and polygons to Polyline Feature Class",
    "Convert all graphic polylines to Polyline Feature Class",
    "Convert selected graphic points to Point Feature Class",
    "Convert selected graphic polygons to Polygon Feature Class",
    "Convert selected graphic polylines and polygons to Polygon Feature Class",
    "Convert selected graphic polylines and polygons to Polyline Feature Class",
    "Convert selected graphic polylines to Polyline Feature Class",
    "Create Empty Point Feature Class",
    "Create Empty Polygon Feature Class",
    "Create Empty Polyline Feature Class",
    "Custom Wrap Boundaries",
    "Empty Shapefile Created and Added to Map",
    "Empty Shapefile, planned only: nothing was written",
    "Feature Class Option:",
    "Graphics to Feature Classes Conversion %1",
    "Graphics to Feature Classes Conversion Complete",
    "Graphics to Feature Classes Conversion, planned only: nothing was written",
    "Joined All Records (n =",
    "Joined Selected Records (n =",
    "Longitudinal Shift:  %1 decimal degrees",
    "No Wrap Option",
    "OCentric to OGraphic Conversion Complete:",
    "Operation cancelled prematurely at %1;  %2\n---------------------------------------------------------\n%3",
    "Split All Records (n =",
    "Split Selected Records (n =",
    "Taken from the Map Document:",
    "Wrap Option",
    "Wrap to Boundary Conversion Complete:",
    "Wrap to Range -180 to 180 Degrees",
    "Wrap to Range 0 to 360 Degrees",
    "decimal degrees",
    "label points",
    "spherical centroids",
    "vertex points",
    "--> Failed to convert feature at OID #%1.  It is written without a shape...",
    "--> Failed to wrap feature at OID #%1.  Wrap function apparently crashed...",
    "--> Feature at OID #%1 came out empty...",
    "--> Feature at OID #%1 is empty...",
    "--> Feature at OID #%1 was written without its shape...",
    "--> Wrapped Feature at OID #%1 is empty...",
    "<-- No Fields -->",
    // Headings of the manual, which is in English.
    "Graphic elements to shapes",
    "Planetographic and planetocentric latitudes",
    "The progress window",
    "The report",
    "Wrap to a boundary",
    // Names, which are the same in all languages.
    "Comma Separated Values",
    "GeoJSON Lines",
    "GeographicLib Geodesic",
    "GeographicLib GeodesicExact",
    "Geography Markup Language",
    "Keyhole Markup Language",
    "MapInfo File",
    "MapInfo Interchange",
    "MapInfo Table",
    "Tessarine Suite",
    "Tessarine Toolset",
    "graphics name",
    "graphics new",
    "graphics select",
    "graphics to-features",
    "utm 12n, EPSG:4326, +proj=...",
    // What files, libraries and the registry call things.
    "Datafile Format",
    "ESRI Shapefile",
    "Int16 Float32",
    "Integer Real String DateTime Binary",
    "Raster Catalog",
    "SOFTWARE\\Microsoft\\Shared Tools Location",
    "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO",
    "SQLite format 3",
    "Standard ACE DB",
    "Standard Jet DB",
    "Undefined geographic SRS",
    "arc feature class",
    "double precision",
    "geometry type",
    "model name",
    "point feature class",
    "polygon feature class",
    "dddd, MMMM d, yyyy",
    "h:mm:ss AP",
    // What libraries complain of, to be recognised.
    "Cannot encode",
    "Invalid content",
    "Invalid value",
    "No space left",
    "cannot be represented",
    "constraint failed",
    "not valid UTF-8",
    "out of range",
    "parsed incompletely",
    "too many digits",
    // Pieces of texts that have translations.
    "Began Job:",
    "Began Job: %1 %2",
    "Data Graphs",
    "Group Elements",
    "No graphic",
    "Selected Records",
    "Unexpected Feature Class Type (",
    "graphic element",
    "graphic elements",
};

/// True for these, without blanks around them.
[[nodiscard]] inline bool NeedsNoTranslation(const std::string& text) {
  return std::ranges::find(kUntranslatedTexts, text) != std::end(kUntranslatedTexts);
}

}  // namespace tessarine::testing
