// SPDX-License-Identifier: GPL-2.0-or-later
// Polygons from the regions between lines, and the dialog in front of it.
#include "conversion/frmBuildParams.h"
#include "conversion/mod_92_functions.h"
#include "helpers/conversion_run.h"
#include "helpers/memory_class.h"
#include "helpers/shapes.h"

namespace tessarine {
namespace {

using namespace testing;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

std::string LineFeature(const std::string& coordinates) { return Feature(Shape("LineString", coordinates)); }
std::string PointFeature(const std::string& coordinates, const std::string& name) {
  return Feature(Shape("Point", coordinates), R"({"Area":")" + name + "\"}");
}

// Two squares of 10 side by side, with a line that ends freely.
const std::vector<std::string> kTwoSquares = {LineFeature("[[0,0],[20,0],[20,10],[0,10],[0,0]]"),
                                              LineFeature("[[10,-1],[10,11]]"), LineFeature("[[2,2],[5,5]]")};

class BuildPolygonsTest : public ConversionRunTest {
 protected:
  struct Labels {
    std::shared_ptr<DocumentFeatureLayer> layer;
    bool all, first;
  };
  std::string Build(const std::shared_ptr<DocumentFeatureLayer>& lines, double tolerance = 0.001,
                    const Labels& labels = {nullptr, true, false}, bool all_lines = true) {
    report = mod_92_functions::orlBuildPolygons(
        lines, all_lines, tolerance, labels.layer != nullptr, labels.all, labels.first, labels.layer,
        labels.layer ? FieldsOf(*labels.layer, {"Area"}) : nullptr, folder.Path("out.shp"), false, nullptr, document,
        application, extension);
    return ToPlainText(ReadRtf(report));
  }
};

TEST_F(BuildPolygonsTest, EveryRegionOnceAndNoFreeEnds) {
  const std::string text = Build(Layer("lines", kTwoSquares));
  EXPECT_EQ(Layout(), "Uniq_ID Area WGS 84 / UTM zone 12N");
  EXPECT_THAT(Rows(),
              ElementsAre("1 100 POLYGON ((0 0,0 10,10 10,10 0,0 0))", "2 100 POLYGON ((10 0,10 10,20 10,20 0,10 0))"));
  EXPECT_THAT(text, StartsWith("Build Polygons Function Complete:\n"
                               "---------------------------------------------\n"
                               "Input Parameters:\n"
                               "  ** Input Polyline Feature Layer:  lines\n"
                               "  ** Used all polylines to build polygons (n = 3)\n"
                               "  ** Cluster Tolerance: 0.001 metre\n"
                               "---------------------------------------------\n"
                               "  ** No label point attributes used...\n"));
  EXPECT_THAT(text, HasSubstr("  ** Contains 2 features\n"));
  EXPECT_THAT(report, AllOf(HasSubstr("metre\\par\\b ------"), Not(HasSubstr("zzz"))));
  EXPECT_EQ(document->Map().LayerCount(), 1);
  EXPECT_EQ(host.pointer_restored, 1);
}

TEST_F(BuildPolygonsTest, AStopEndsTheRunWithoutAFault) {
  host.stop_requested = true;
  EXPECT_EQ(Build(Layer("lines", kTwoSquares)), "");
  EXPECT_TRUE(host.journal.stopped);
  EXPECT_FALSE(host.journal.failed);
  EXPECT_THAT(host.error_reports, IsEmpty());
  EXPECT_THAT(host.messages.shown, IsEmpty());
}

TEST_F(BuildPolygonsTest, GapsCloseWithinTheToleranceOnly) {
  const std::vector<std::string> gap = {LineFeature("[[0,0],[10,0],[10,10],[0,10],[0,0.05]]")};
  EXPECT_EQ(Build(Layer("gap", gap), 0.01), "");
  ASSERT_EQ(host.messages.shown.size(), 1U);
  EXPECT_EQ(host.messages.shown[0].text,
            "No polygons were created from 'gap'!  Possibly no polylines intersected in such a way as to create a "
            "bounded region.  Function cancelled...");
  EXPECT_FALSE(folder.Has("out.shp")) << "nothing takes a name without polygons";
  EXPECT_EQ(document->Map().LayerCount(), 0);
  EXPECT_THAT(Build(Layer("gap", gap), 0.1), HasSubstr("out.shp\n"));
  EXPECT_THAT(Rows("out.shp"), ElementsAre(StartsWith("1 100 POLYGON")));
}

TEST_F(BuildPolygonsTest, WithoutLinesNothingIsMade) {
  const auto lines = Layer("lines", kTwoSquares);
  EXPECT_EQ(Build(lines, 0.001, {nullptr, true, false}, false), "");
  EXPECT_EQ(host.messages.shown.at(0).text, "No polylines available in 'lines'!  Function cancelled...");
  EXPECT_FALSE(folder.Has("out.shp"));
}

TEST_F(BuildPolygonsTest, LabelsComeFromTheFirstOrTheNearestPoint) {
  const auto lines = Layer("lines", kTwoSquares);
  // The centres are (5, 5) and (15, 5); "near" and "same" are equally far from the first. One lies on the border.
  const auto points =
      Layer("points", {PointFeature("[1,1]", "far"), PointFeature("[5,6]", "near"), PointFeature("[6,5]", "same"),
                       PointFeature("[20,9]", "edge"), PointFeature("[30,30]", "off")});
  points->SetSelectedOids({2, 4});
  const struct {
    Labels labels;
    std::vector<std::string> names;
  } cases[] = {{{points, true, true}, {"far", "edge"}},
               {{points, true, false}, {"near", "edge"}},
               {{points, false, false}, {"same", "NULL"}}};
  int number = 0;
  for (const auto& row : cases) {
    SCOPED_TRACE(row.names[0]);
    const std::string text = Build(lines, 0.001, row.labels);
    const std::string file = ++number == 1 ? "out.shp" : "out_" + std::to_string(number) + ".shp";
    // The own field gives way to the chosen one.
    EXPECT_EQ(Layout(file), "Uniq_ID Area_2 Area WGS 84 / UTM zone 12N");
    EXPECT_THAT(Rows(file), ElementsAre(StartsWith("1 100 " + row.names[0] + " POLY"),
                                        StartsWith("2 100 " + row.names[1] + " POLY")));
    EXPECT_THAT(text, HasSubstr("Label Point Layer:   points\n"));
    EXPECT_THAT(text, HasSubstr("       1] Area\n"));
    EXPECT_EQ(text.find("Missing Label Points: These polygons had no label points within the polygon boundary...\n"
                        "  ** OID Value = 1\n") != std::string::npos,
              row.names[1] == "NULL");
  }
}

// The index of a GeoPackage gives the points of a polygon in an order of its own. All points here are equally near to
// the centre.
TEST_F(BuildPolygonsTest, TheOrderOfThePointsIsThatOfTheRowsInEveryFormat) {
  const auto lines = Layer("lines", {LineFeature("[[0,0],[100,0],[100,100],[0,100],[0,0]]")});
  std::vector<std::string> features;
  for (int number = 0; number < 400; ++number) {
    features.push_back(PointFeature(number % 2 == 0 ? "[80,20]" : "[20,80]", "p" + std::to_string(number)));
  }
  Layer("points", features);
  const GDALDatasetUniquePtr source(GDALDataset::Open(folder.Native("points.geojson").c_str(), GDAL_OF_VECTOR));
  int built = 0;
  for (const std::string format : {"GPKG", "GeoJSON", "ESRI Shapefile"}) {
    SCOPED_TRACE(format);
    const std::string path = folder.Native(format == "GPKG" ? "p.gpkg" : format == "GeoJSON" ? "p.json" : "p.shp");
    {
      GDALDriver* const driver = GetGDALDriverManager()->GetDriverByName(format.c_str());
      const GDALDatasetUniquePtr copy(driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
      ASSERT_NE(copy->CopyLayer(source->GetLayer(0), "p"), nullptr);
    }
    const auto points = std::make_shared<DocumentFeatureLayer>();
    points->SetName(format);
    points->SetFeatureClass(DataSource::Open(path)->OpenFeatureClass(""));
    for (const bool take_first : {true, false}) {
      Build(lines, 0.001, {points, true, take_first});
      const std::string file = ++built == 1 ? "out.shp" : "out_" + std::to_string(built) + ".shp";
      EXPECT_THAT(Rows(file), ElementsAre(StartsWith("1 10000 p0 POLYGON"))) << take_first;
    }
  }
}

TEST_F(BuildPolygonsTest, ALineWithNoNumbersCostsNoPolygon) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  const auto features = std::make_shared<MemoryClass>(esriGeometryPolyline);
  features->reference = SpatialReferenceEnvironment::CreateFromText("EPSG:32612");
  features->Add(PolylineOf({Box(0, 0, 10, 10)}));
  features->Add(PolylineOf({{{5, 5}, {kNan, 7}}}));
  const auto layer = std::make_shared<DocumentFeatureLayer>();
  layer->SetName("odd");
  layer->SetFeatureClass(features);
  Build(layer);
  EXPECT_THAT(Rows(), ElementsAre(StartsWith("1 100 POLYGON")));
  EXPECT_THAT(host.journal.skipped_oids, ::testing::IsEmpty());
  EXPECT_EQ(host.journal.FaultCount(), 1);
  EXPECT_EQ(host.journal.read, 2);
}

TEST_F(BuildPolygonsTest, PointsInAnotherReferenceAreFound) {
  // By PROJ: (500000 + 5, 5) of zone 12 north is longitude -110.999955084, latitude 0.000045219.
  const auto lines = Layer("lines", {LineFeature("[[500000,0],[500010,0],[500010,10],[500000,10],[500000,0]]")});
  const auto points = Layer("points", {PointFeature("[-110.999955084,0.000045219]", "in")}, "4326");
  Build(lines, 0.001, {points, true, false});
  EXPECT_THAT(Rows(), ElementsAre(StartsWith("1 100 in POLYGON ((5000")));
  EXPECT_THAT(host.error_reports, IsEmpty());
}

TEST_F(BuildPolygonsTest, TheDialogAsksForAFieldToTransfer) {
  application->templates = {folder.Path("map.json")};
  auto lines = Layer("lines", kTwoSquares);
  document->Map().AddLayer(lines);
  {
    frmBuildParams form;
    form.SetArcApplication(application);
    EXPECT_EQ(form.txtCluster.Text(), "0.001");
    EXPECT_EQ(form.lblUnits.Caption(), "Units: metre");
    EXPECT_EQ(form.optAll.Caption(), "Use All Polylines (n = 3)");
    EXPECT_EQ(form.chkUseLabelPoints.Value(), CheckBox::kGrayed);
    EXPECT_EQ(form.cbxPointLayers.Text(), "[No Point Layers Available]");
    EXPECT_TRUE(form.cmdOK.Enabled());
    form.txtCluster.SetText("");
    EXPECT_FALSE(form.cmdOK.Enabled());
    form.txtCluster.Type("-1e.5");
    EXPECT_EQ(form.txtCluster.Text(), "1.5");
  }
  const auto points = Layer("points", {PointFeature("[1,1]", "a"), PointFeature("[2,2]", "b")});
  points->SetSelectedOids({1});
  document->Map().AddLayer(points);
  frmBuildParams form;
  form.SetArcApplication(application);
  EXPECT_FALSE(form.lbxFields.Enabled());
  EXPECT_TRUE(form.cmdOK.Enabled());
  form.chkUseLabelPoints.SetValue(CheckBox::kChecked);
  EXPECT_TRUE(form.lbxFields.Enabled());
  EXPECT_FALSE(form.cmdOK.Enabled());
  EXPECT_EQ(form.optSelLabelPoints.Caption(), "Only Selected Points (n = 1)");
  EXPECT_TRUE(form.optSelLabelPoints.Value());
  form.cmdSelFields.Press();
  EXPECT_EQ(form.cmdSelFields.Caption(), "Unselect All Fields");
  form.optFirstLabelPoint.SetValue(true);
  form.txtOutput.SetText(folder.Path("built.shp"));
  ASSERT_TRUE(form.cmdOK.Enabled());
  form.cmdOK.Press();
  EXPECT_TRUE(extension->ShouldContinue);
  EXPECT_TRUE(extension->BuildShouldTransferLabels && extension->BuildUseFirstLabelPoint);
  EXPECT_FALSE(extension->BuildUseAllLabelPoints);
  EXPECT_EQ(extension->SelectedPointLayer, std::shared_ptr<IFeatureLayer>(points));
  EXPECT_EQ(extension->SelectedFields->Count(), 1);
  EXPECT_EQ(extension->BuildClusterTolerance, 0.001);
  EXPECT_EQ(extension->AnalysisRecordCount, 3);
}

TEST_F(BuildPolygonsTest, WithoutLinesTheDialogIsDead) {
  application->templates = {folder.Path("map.json")};
  frmBuildParams form;
  form.SetArcApplication(application);
  EXPECT_FALSE(form.cmdOK.Enabled());
  EXPECT_FALSE(form.txtCluster.Enabled());
  EXPECT_TRUE(form.optAll.Value());
  EXPECT_EQ(form.lblUnits.Caption(), "Units:  [No Polyline Layer Selected]");
}

}  // namespace
}  // namespace tessarine
