// SPDX-License-Identifier: GPL-2.0-or-later
// The classes that the graphics dialog makes, read back with GDAL alone.
#include <cmath>
#include <numbers>

#include "engine/data_source.h"
#include "graphics/frmGraphicsShapefile.h"
#include "graphics/graphics_fixture.h"

namespace tessarine::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr double kPi = std::numbers::pi;
// The cube root of a squared times b of WGS 1984.
const double kSphereRadius = std::cbrt(6378137.0 * 6378137.0 * 6356752.314245);
// An eighth of the sphere's surface.
const double kOctant = kPi * kSphereRadius * kSphereRadius / 2.0;

class GraphicsRun : public GraphicsTest {
 protected:
  /// Presses OK with a conversion chosen; the output is "out.shp".
  void Convert(std::int32_t line, bool selected = false, const std::string& output = "out.shp") {
    frmGraphicsShapefile dialog;
    Show<frmGraphicsShapefile>(dialog, [&](frmGraphicsShapefile& form) {
      form.optConvert.SetValue(true);
      form.chkSelected.SetValue(selected ? CheckBox::kChecked : CheckBox::kUnchecked);
      form.lbxGraphics.SetListIndex(line);
      if (host.chosen_reference) form.cmdSpRef.Press();
      form.txtOutput.SetText(folder.Path(output));
      form.cmdOK.Press();
      still_open = form.Visible();
    });
  }
  std::vector<double> Numbers(const char* field, const std::string& file = "out.shp") const {
    std::vector<double> numbers;
    EachFeature(file, [&](OGRFeature& feature) { numbers.push_back(feature.GetFieldAsDouble(field)); });
    return numbers;
  }
  std::shared_ptr<TestFeatureLayer> NewLayer() const {
    return document->Map().LayerCount() > 0 ? Cast<TestFeatureLayer>(document->Map().Layer(0)) : nullptr;
  }
  bool still_open = false;
};

TEST_F(GraphicsRun, AreasLieOnTheSphereWhateverTheMapsProjection) {
  // Plate carree of a sphere with the radius a: the octant's corners lie at a * pi / 2.
  const double quarter = 6378137.0 * kPi / 2.0;
  struct Row {
    const char* map;
    const char* output;
    double side;
  };
  const Row rows[] = {
      {"EPSG:4326", nullptr, 90.0},
      {"+proj=eqc +a=6378137 +b=6356752.314245 +units=m", nullptr, quarter},
      {"+proj=eqc +a=6378137 +b=6356752.314245 +units=m", "+proj=longlat +a=6378137 +b=6356752.314245", quarter},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.map) + " to " + (row.output != nullptr ? row.output : "itself"));
    document = std::make_shared<MapDocument>();
    application->document = document;
    Reference(row.map);
    host.chosen_reference = row.output != nullptr ? SpatialReferenceEnvironment::CreateFromText(row.output) : nullptr;
    host.messages.answers = {MessageAnswer::Yes};
    Add("polygon", PolygonOf({{{0, 0}, {0, row.side}, {row.side, 0}, {0, 0}}}));
    Convert(3);
    const std::vector<double> areas = Numbers("Area");
    ASSERT_EQ(areas.size(), 1U);
    EXPECT_NEAR(areas[0], kOctant, 1e-9 * kOctant);
  }
}

TEST_F(GraphicsRun, LengthsAreGeodesicAndPolygonsBecomeTheirBoundaries) {
  // Meridian arcs of WGS 1984 from the equator: 4984944.378 m to 45 degrees, 10001965.729 m to the pole.
  Add("line", PolylineOf({{{7, 0}, {7, 45}, {7, 90}}}), "meridian");
  Add("polygon", PolygonOf({{{0, 0}, {0, 45}, {1e-9, 45}, {0, 0}}}));
  Convert(2);
  const std::vector<double> lengths = Numbers("Length");
  ASSERT_EQ(lengths.size(), 2U);
  EXPECT_NEAR(lengths[0], 10001965.729, 1e-3);
  EXPECT_NEAR(lengths[1], 2 * 4984944.378, 2e-3);
  EXPECT_THAT(report, HasSubstr("Conversion Count:\n1 polyline graphics\n1 polygon graphics\n"));
  EXPECT_THAT(report, HasSubstr("Convert all graphic polylines and polygons to Polyline Feature Class"));
  EXPECT_THAT(report, HasSubstr("   1] <- NO NAME ->  (1 elements)\n   2] meridian  (1 elements)\n"));
}

TEST_F(GraphicsRun, CurvesBecomeTwoHundredPieces) {
  Add("circle", Inside(CircularArc::Circle({5, 40}, 3, true)));
  Add("ellipse", Inside(EllipticArc::Ellipse({5, 0}, 4, 2, 0.5, true)));
  Add("line", Along(BezierCurve{{0, 0}, {1, 2}, {2, -2}, {3, 0}}));
  Convert(3);
  // A regular polygon of 200 corners; an ellipse's corners lie at equal arcs, which costs a little more.
  const double planar[] = {0.5 * 200 * 9 * std::sin(2 * kPi / 200), 8 * kPi};
  const double tolerance[] = {1e-9, 1e-2};
  std::size_t index = 0;
  EachFeature("out.shp", [&](OGRFeature& feature) {
    const OGRPolygon& polygon = *feature.GetGeometryRef()->toPolygon();
    EXPECT_EQ(polygon.getExteriorRing()->getNumPoints(), 201);
    EXPECT_NEAR(polygon.get_Area(), planar[index], tolerance[index]) << index;
    ++index;
  });
  EXPECT_EQ(index, 2U);
  host.messages.answers = {MessageAnswer::Yes};
  Convert(1);
  EachFeature("out.shp",
              [&](OGRFeature& feature) { EXPECT_EQ(feature.GetGeometryRef()->toLineString()->getNumPoints(), 201); });
  EXPECT_TRUE(Cast<Polyline>(document->Map().Elements()[2]->shape)->HasCurves()) << "the element keeps its shape";
}

TEST_F(GraphicsRun, PointsKeepTheReferenceOfTheOutput) {
  host.chosen_reference = SpatialReferenceEnvironment::CreateFromText("EPSG:32631");
  Add("marker", At(3, 0), "east", true);
  Add("marker", At(3, 1));
  Convert(0, true);
  EXPECT_EQ(EachFeature("out.shp",
                        [](OGRFeature& feature) {
                          // The central meridian of the zone at the equator.
                          EXPECT_NEAR(feature.GetFieldAsDouble("X_Coord"), 500000.0, 1e-6);
                          EXPECT_NEAR(feature.GetFieldAsDouble("Y_Coord"), 0.0, 1e-6);
                          EXPECT_EQ(feature.GetFieldAsInteger("Unique_ID"), 1);
                        }),
            1);
  EXPECT_THAT(report, HasSubstr("   [X_Coord]:  Coordinates in WGS 84 / UTM zone 31N\n"));
  EXPECT_THAT(report, HasSubstr("          *** Data Frame Projection  WGS 84\n"));
}

TEST_F(GraphicsRun, ShapesWithoutAReferenceAreLabelledAndStayInPlace) {
  Reference("EPSG:32631");
  host.chosen_reference = SpatialReferenceEnvironment::CreateFromText("EPSG:4326");
  const auto element = Add("marker", At(3, 50));
  element->shape->SetSpatialReference(std::make_shared<UnknownCoordinateSystem>());
  Convert(0);
  EXPECT_THAT(Numbers("X_Coord"), ::testing::ElementsAre(3.0));
  EXPECT_THAT(Numbers("Y_Coord"), ::testing::ElementsAre(50.0));
  EXPECT_THAT(report, HasSubstr("          *** Data Frame Projection = WGS 84 / UTM zone 31N\n"));
}

TEST_F(GraphicsRun, NamesAreCountedAndLookAndLayerFollow) {
  const struct { const char* name; } rows[] = {{"b\\{x}"}, {"road"}, {""}, {"Road"}};
  for (const auto& row : rows) Add("polygon", PolygonOf({Box(0, 0, 1, 1)}), row.name);
  Convert(3);
  EXPECT_THAT(report, HasSubstr("The following graphic element names were added to the attribute table:\n"
                                "   1] <- NO NAME ->  (1 elements)\n   2] b\\{x}  (1 elements)\n"
                                "   3] road  (2 elements)\n"));
  EXPECT_THAT(report, HasSubstr("   4 Records\n"));
  EXPECT_THAT(report, HasSubstr("Shapefile saved to:\n   " + folder.Native("out.shp")));
  EXPECT_THAT(Numbers("Unique_ID"), ::testing::ElementsAre(1, 2, 3, 4));
  ASSERT_NE(NewLayer(), nullptr);
  EXPECT_EQ(NewLayer()->Name(), "out");
  EXPECT_EQ(Cast<DocumentSymbol>(Cast<TestRenderer>(NewLayer()->renderer)->symbol)->definition, "polygon0");
  EXPECT_TRUE(document->Dirty());
  EXPECT_EQ(host.beeps, 1);
  EXPECT_EQ(extension->DirectoryPath, folder.Path());
  EXPECT_EQ(host.journal.written, 4);
}

TEST_F(GraphicsRun, GeodatabaseClassesBearNoUniqueId) {
  CreateFileGeodatabase(folder.Native("x.gdb"));
  Add("marker", At(1, 2));
  frmGraphicsShapefile dialog;
  Show<frmGraphicsShapefile>(dialog, [&](frmGraphicsShapefile& form) {
    host.browse.answers = {{std::make_shared<TestGxObject>(folder.Path("x.gdb"), "File Geodatabase"), "dots"}};
    form.cmdGetWorkspace.Press();
    form.optConvert.SetValue(true);
    form.lbxGraphics.SetListIndex(0);
    form.cmdOK.Press();
  });
  EXPECT_EQ(EachFeature("x.gdb",
                        [](OGRFeature& feature) {
                          EXPECT_EQ(feature.GetFieldIndex("Unique_ID"), -1);
                          EXPECT_EQ(feature.GetFieldIndex("Name"), -1) << "no element has a name";
                          EXPECT_EQ(feature.GetFieldAsDouble("Y_Coord"), 2.0);
                        }),
            1);
  EXPECT_EQ(extension->DirectoryType, "File Geodatabase");
  EXPECT_THAT(report, HasSubstr(folder.Native("x.gdb/dots")));
}

TEST_F(GraphicsRun, AnEmptySetAsksAndMakesNothing) {
  struct Row {
    std::int32_t line;
    bool selected;
    const char* title;
    const char* sentence;
  };
  const Row rows[] = {
      {0, false, "Unable to Make Point Feature Class:", "No graphic points in map!"},
      {1, true, "Unable to Make Polyline Feature Class:", "No selected graphic polylines in map!"},
      {2, true, "Unable to Make Polyline Feature Class:", "No selected graphic polylines or polygons in map!"},
      {3, true, "Unable to Make Polygon Feature Class:", "No selected graphic polygons in map!"},
      {4, true, "Unable to Make Polygon Feature Class:", "No selected graphic polygons in map!"},
  };
  Add("line", PolylineOf({{{0, 0}, {1, 1}}}));
  for (const Row& row : rows) {
    for (const MessageAnswer answer : {MessageAnswer::Ok, MessageAnswer::Cancel}) {
      host.messages.answers = {answer};
      Convert(row.line, row.selected);
      EXPECT_EQ(host.messages.shown.back().title, row.title);
      EXPECT_EQ(host.messages.shown.back().text,
                std::string(row.sentence) +
                    "  No new Feature Class will be made.\r\nDo you wish to go back and "
                    "\r\nmake a different selection?");
      EXPECT_EQ(still_open, answer == MessageAnswer::Ok) << row.line;
    }
  }
  EXPECT_FALSE(folder.Has("out.shp"));
  EXPECT_EQ(report, "");
}

TEST_F(GraphicsRun, AnOutputThatStaysLeavesNoLayerAndNoReport) {
  Add("marker", At(1, 2));
  Convert(0);
  const std::int32_t layers = document->Map().LayerCount();
  report.clear();
  host.messages.answers = {MessageAnswer::No};
  host.browse.answers = {{nullptr, ""}};
  Convert(0);
  EXPECT_EQ(document->Map().LayerCount(), layers);
  EXPECT_EQ(report, "");
  EXPECT_FALSE(still_open);
}

TEST_F(GraphicsRun, EmptyClassesHaveTheirFields) {
  struct Row {
    OptionButton frmGraphicsShapefile::*option;
    const char* file;
    const char* fields;
    OGRwkbGeometryType type;
  };
  const Row rows[] = {
      {&frmGraphicsShapefile::optPoint, "p.shp", "Unique_ID X_Coord Y_Coord ", wkbPoint},
      {&frmGraphicsShapefile::optPolyline, "l.shp", "Unique_ID Length ", wkbLineString},
      {&frmGraphicsShapefile::optPolygon, "a.shp", "Unique_ID Area ", wkbPolygon},
  };
  for (const Row& row : rows) {
    frmGraphicsShapefile dialog;
    Show<frmGraphicsShapefile>(dialog, [&](frmGraphicsShapefile& form) {
      (form.*row.option).SetValue(true);
      form.txtOutput.SetText(folder.Path(row.file));
      form.cmdOK.Press();
    });
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(folder.Native(row.file).c_str(), GDAL_OF_VECTOR));
    ASSERT_TRUE(dataset) << row.file;
    std::string names;
    for (int field = 0; field < dataset->GetLayer(0)->GetLayerDefn()->GetFieldCount(); ++field) {
      names += std::string(dataset->GetLayer(0)->GetLayerDefn()->GetFieldDefn(field)->GetNameRef()) + " ";
    }
    EXPECT_EQ(names, row.fields);
    EXPECT_EQ(dataset->GetLayer(0)->GetGeomType(), row.type);
    EXPECT_THAT(report, HasSubstr("Empty Shapefile Created and Added to Map\n   0 Records\n"));
    EXPECT_THAT(report, HasSubstr("Feature Class Option:\n   Create Empty "));
    EXPECT_THAT(report, Not(HasSubstr("Conversion Count:")));
  }
  EXPECT_EQ(document->Map().LayerCount(), 3);
  EXPECT_TRUE(document->Dirty());
}

TEST_F(GraphicsRun, ATypedPathOfAnotherFormatGivesThatFormat) {
  struct Row {
    const char *typed, *file, *driver, *layer;
  };
  for (const Row& row :
       {Row{"p.geojson", "p.geojson", "GeoJSON", "p"}, Row{"store.gpkg", "store.gpkg", "GPKG", "store"},
        Row{"store.gpkg\\more", "store.gpkg", "GPKG", "more"}, Row{"p", "p.shp", "ESRI Shapefile", "p"}}) {
    frmGraphicsShapefile dialog;
    Show<frmGraphicsShapefile>(dialog, [&](frmGraphicsShapefile& form) {
      form.optPoint.SetValue(true);
      // What was typed before leaves nothing behind.
      form.txtOutput.SetText(folder.Path("other.fgb"));
      form.txtOutput.SetText(folder.Path() + "\\" + row.typed);
      form.cmdOK.Press();
    });
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(folder.Native(row.file).c_str(), GDAL_OF_VECTOR));
    ASSERT_TRUE(dataset) << row.typed;
    EXPECT_STREQ(dataset->GetDriverName(), row.driver) << row.typed;
    EXPECT_NE(dataset->GetLayerByName(row.layer), nullptr) << row.typed;
  }
}

TEST_F(GraphicsRun, APlanWritesNothing) {
  host.plan_only = true;
  Add("marker", At(1, 2), "one");
  Convert(0);
  EXPECT_THAT(report, HasSubstr("planned only: nothing was written"));
  EXPECT_FALSE(folder.Has("out.shp"));
  EXPECT_EQ(document->Map().LayerCount(), 0);
  EXPECT_FALSE(document->Dirty());
}

}  // namespace
}  // namespace tessarine::testing
