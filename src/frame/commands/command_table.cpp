// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/commands/command_table.h"

#include "frame/commands/commands.h"

namespace tessarine {
namespace {

constexpr CommandRow kCommands[] = {
    {"cmdNewShapefile", "MakeShapefile", "&Graphic Elements to Shapes", "Create New Shapefile",
     "Create new shapefile, either empty or by converting graphics...", 101, MakeNewShapefileCommand},
    {"clsSelGraphics", "SelectGraphics", "Select Graphic Elements by &Type", "Select Graphic Elements by Type",
     "Select Graphics by Type or Name...", 106, MakeSelectGraphicsCommand},
    {"clsSelAllElements", "SelectAllGraphics", "Select All Graphic &Elements", "Select All Graphic Elements",
     "Select All Graphic Elements...", 103, MakeSelectAllCommand},
    {"clsUnselElements", "UnselectAllGraphics", "&Unselect All Graphic Elements", "Unselect All Graphic Elements",
     "Unselect All Graphic Elements...", 104, MakeUnselectAllCommand},
    {"clsZoomToSelected", "ZoomSelGraphics", "&Zoom to Selected Graphic Elements", "Zoom to Selected Graphic Elements",
     "Zoom to Selected Graphic Elements...", 105, MakeZoomCommand},
    {"clsFlipGraphicSel", "FlipSelection", "&Flip Graphic Element Selection", "Flip Graphic Element Selection",
     "Flip Graphic Element Selection...", 107, MakeFlipSelectionCommand},
    {"clsNameGraphics", "NameGraphics", "&Name Graphic Elements", "Name Graphic Elements", "Name Graphic Elements...",
     108, MakeNameGraphicsCommand},
    {"clsShapesToVertices", "ShapesToVertices", "Convert Shapes to &Vertices", "Shapes to Vertices",
     "Convert Polylines and Polygons to Vertex Point shapefiles...", 109, MakeConversionCommand<1>},
    {"clsConvertToPolyline", "PolygonToPolyline", "Convert Polygons to Poly&lines", "Polygons to Polylines",
     "Convert Polygons to Polylines...", 110, MakeConversionCommand<32>},
    {"clsConvertToPolygon", "PolylineToPolygon", "Convert &Polylines to Polygons", "Polylines to Polygons",
     "Convert Polylines to Polygons...", 111, MakeConversionCommand<16>},
    {"clsConvertLabelpoint", "PolygonToLabelPoints", "Convert Polygons to La&bel Points", "Polygons to Label Points",
     "Extract label points within polygons...", 112, MakeConversionCommand<2>},
    {"clsConvertCentroid", "PolygonToCentroid", "Convert Shapes to &Centroids", "Shapes to Centroids",
     "Identify centroids of Polygons and Polylines...", 113, MakeConversionCommand<4>},
    {"clsConvertSphCentroid", "Spherical_Centroid", "Convert Features to &Spherical Centroids",
     "Features to Spherical Centroids", "Calculate centroid of feature draped over sphere...", 119,
     MakeConversionCommand<8>},
    {"clsConvertSplit", "SplitMultipart", "Split &Multipart Features", "Split Multipart Features",
     "Split multipart features into single objects...", 115, MakeConversionCommand<64>},
    {"clsConvertJoin", "JoinFeatures", "Combine &Features", "Combine Features",
     "Combine multiple features into a single multipart object...", 116, MakeConversionCommand<128>},
    {"clsConvertGeometry", "CalcGeometry", "C&alculate Geometry", "Calculate Geometry",
     "Calculate geometric attributes of data, including spherical area and spheroidal length...", 117,
     MakeCalculateCommand},
    {"cmdAbout", "About", "About Tools for Tessarine Tools", "About Tools for Tessarine Tools",
     "About Tools for Tessarine Tools, and Manual", 120, MakeAboutCommand},
    {"clsBuildPolygon", "BuildPolygon", "Buil&d Polygons from Polylines", "Similar to ArcInfo Build",
     "Build polygons based on the regions bounded by polylines...", 121, MakeBuildPolygonCommand},
    {"clsWrapBoundary", "WrapBoundary", "&Wrap Boundary", "",
     "Wrap a feature class around a particular range of longitude and latitude values...", 124,
     MakeWrapBoundaryCommand},
    {"OCentricToOGraphic", "OCentric_OGraphic", "O&Centric to OGraphic", "",
     "Convert a Planetocentric (Geocentric) Feature Class to a Planetographic (Geographic) Feature Class...", 122,
     MakeCentricToGraphicCommand},
    {"OGraphicToOCentric", "OGraphic_OCentric", "O&Graphic to OCentric", "",
     "Convert a Planetographic (Geographic) Feature Class to a Planetocentric (Geocentric) Feature Class...", 123,
     MakeGraphicToCentricCommand},
};

}  // namespace

std::span<const CommandRow> AllCommands() { return kCommands; }

}  // namespace tessarine
