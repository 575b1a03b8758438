// SPDX-License-Identifier: GPL-2.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "conversion/frmLayerFields.h"
#include "engine/data_source.h"
#include "helpers/fake_application.h"
#include "helpers/form_layout.h"
#include "helpers/memory_class.h"
#include "helpers/reported_faults.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "hosts/document/document_layer.h"
#include "hosts/document/map_document.h"

namespace tessarine {
namespace {

using ::testing::HasSubstr;
using testing::MemoryClass;
using testing::NewField;
using testing::TestGxObject;

std::string Lines(const ListBox& list) {
  std::string lines;
  for (std::int32_t line = 0; line < list.ListCount(); ++line) lines += list.List(line) + " ";
  return lines;
}

class LayerFieldsTest : public ::testing::Test {
 protected:
  testing::TestHost host;
  testing::ReportedFaults reported;
  testing::TemporaryFolder folder;
  std::shared_ptr<testing::FakeApplication> application = std::make_shared<testing::FakeApplication>();
  std::shared_ptr<MapDocument> document = std::make_shared<MapDocument>();
  std::shared_ptr<clsExtension> extension = std::make_shared<clsExtension>();
  frmLayerFields form;

  void SetUp() override {
    application->document = document;
    application->extension = extension;
    application->templates = {folder.Path("map.json")};
    extension->DirectoryPath = folder.Path();
  }
  void TearDown() override { EXPECT_THAT(host.error_reports, ::testing::IsEmpty()); }

  std::shared_ptr<DocumentFeatureLayer> AddLayer(const char* name, esriGeometryType type, int rows = 3,
                                                 std::vector<FieldRef> fields = {}) {
    const auto features = std::make_shared<MemoryClass>(type, std::move(fields));
    for (int row = 0; row < rows; ++row) features->Add(std::make_shared<Polygon>());
    auto layer = std::make_shared<DocumentFeatureLayer>();
    layer->SetName(name);
    layer->SetFeatureClass(features);
    document->Map().AppendLayer(layer);
    return layer;
  }
  void Open(std::int32_t option = 1) {
    form.SetArcApplication(application);
    form.SetConversionOption(option);
    form.Load();
  }
};

TEST_F(LayerFieldsTest, EachConversionOffersItsLayers) {
  AddLayer("points", esriGeometryPoint);
  AddLayer("areas", esriGeometryPolygon);
  AddLayer("clusters", esriGeometryMultipoint);
  document->Map().AppendLayer(std::make_shared<DocumentFeatureLayer>("broken", LayerSource{"/gone.shp", ""}));
  AddLayer("lines", esriGeometryPolyline);
  struct Row {
    std::int32_t option;
    const char* caption;
    const char* layers;
    const char* name;
  };
  const Row rows[] = {
      {1, " Shapes to Vertices:", "areas clusters lines ", "vertex"},
      {2, " Polygons to Label Points:", "areas ", "Label_Points"},
      {4, " Shapes to Centroids:", "areas clusters lines ", "Centroids"},
      {8, " Shapes to Spherical Centroids:", "areas clusters lines ", "Spherical_Centroids"},
      {16, " Polylines to Polygons:", "lines ", "Polygons"},
      {32, " Polygons to Polylines:", "areas ", "Polylines"},
      {64, " Split Multipart Features:", "points areas clusters lines ", "Split_Shapes"},
      {128, " Combine Features:", "points areas clusters lines ", "Combined_Shapes"},
  };
  for (const Row& row : rows) {
    Open(row.option);
    EXPECT_EQ(form.Caption(), row.caption);
    EXPECT_EQ(Lines(form.lbxLayers), row.layers);
    EXPECT_EQ(form.lbxLayers.ListIndex(), 0);
    EXPECT_EQ(form.txtOutput.Text(), folder.Path(std::string(row.name) + ".shp"));
    EXPECT_EQ(form.optAll.Caption(), row.option == 128 ? "Combine All Records (n = 3)" : "Convert All Records (n = 3)");
    EXPECT_THAT(form.txtMessage.Text(), HasSubstr("This function will "));
    EXPECT_TRUE(form.cmdOK.Enabled());
  }
  EXPECT_THAT(form.txtMessage.Text(), ::testing::EndsWith("selecting the respective attribute fields."));
  Open(3);
  EXPECT_EQ(form.lbxLayers.ListCount() + form.lbxFields.ListCount(), 0);
  EXPECT_NE(form.txtOutput.Text(), "");
  EXPECT_FALSE(form.cmdOK.Enabled());
}

TEST_F(LayerFieldsTest, TheChosenLayerOfTheMapIsPreferredWhereItFits) {
  const auto points = AddLayer("points", esriGeometryPoint);
  AddLayer("areas", esriGeometryPolygon);
  const auto lines = AddLayer("lines", esriGeometryPolyline);
  document->SetSelectedLayer(lines);
  Open();
  EXPECT_EQ(form.lbxLayers.List(form.lbxLayers.ListIndex()), "lines");
  document->SetSelectedLayer(points);
  Open();
  EXPECT_EQ(form.lbxLayers.List(form.lbxLayers.ListIndex()), "areas");
}

TEST_F(LayerFieldsTest, NoLayerOfTheRightKind) {
  AddLayer("points", esriGeometryPoint);
  extension->ShouldContinue = true;
  Open();
  EXPECT_EQ(form.lbxLayers.ListCount(), 0);
  EXPECT_TRUE(form.optAll.Value());
  EXPECT_FALSE(form.cmdOK.Enabled());
  form.CloseByUser();
  EXPECT_FALSE(extension->ShouldContinue);
}

TEST_F(LayerFieldsTest, FieldsThatNoOutputCanCarryAreLeftOut) {
  std::vector<FieldRef> fields;
  for (std::int32_t type = esriFieldTypeSmallInteger; type <= esriFieldTypeXML; ++type) {
    fields.push_back(NewField("f" + std::to_string(type), static_cast<esriFieldType>(type)));
  }
  fields.push_back(NewField("SHAPE_Length", esriFieldTypeDouble));
  fields.push_back(NewField("shape_area", esriFieldTypeDouble));
  fields.push_back(NewField("Shape_Areas", esriFieldTypeDouble));
  const auto layer = AddLayer("areas", esriGeometryPolygon, 1, fields);
  layer->SetFieldInfo("f4", {"Name of owner", true});
  Open();
  EXPECT_EQ(Lines(form.lbxFields), "f0 f1 f2 f3 Name of owner f5 Shape_Areas ");
  form.lbxFields.SetSelected(6, true);
  form.lbxFields.SetSelected(4, true);
  form.cmdOK.Press();
  ASSERT_EQ(extension->SelectedFields->Count(), 2);
  EXPECT_EQ(extension->SelectedFields->Element(0).AsObject<Field>(), fields[4]) << "the class's own field";
  EXPECT_EQ(extension->SelectedFields->Element(1).AsObject<Field>(), fields[15]);
}

TEST_F(LayerFieldsTest, TheButtonOfTheFieldsIsAToggle) {
  AddLayer("areas", esriGeometryPolygon, 1, {NewField("a", esriFieldTypeInteger), NewField("b", esriFieldTypeInteger)});
  AddLayer("lines", esriGeometryPolyline, 1, {NewField("c", esriFieldTypeInteger)});
  Open();
  form.lbxFields.SetSelected(0, true);
  form.lbxFields.SetSelected(1, true);
  EXPECT_EQ(form.cmdSelFields.Caption(), "Select All Fields");
  form.cmdSelFields.Press();
  EXPECT_EQ(form.lbxFields.SelCount(), 2);
  EXPECT_EQ(form.cmdSelFields.Caption(), "Unselect All Fields");
  form.cmdSelFields.Press();
  EXPECT_EQ(form.lbxFields.SelCount(), 0);
  form.cmdSelFields.Press();
  form.lbxLayers.SetListIndex(1);
  EXPECT_EQ(Lines(form.lbxFields), "c ");
  EXPECT_EQ(form.cmdSelFields.Caption(), "Select All Fields") << "a new layer starts anew";
}

TEST_F(LayerFieldsTest, RecordOptionsFollowTheSelection) {
  const auto with = AddLayer("with", esriGeometryPolygon, 5);
  with->SetSelectedOids({2, 4});
  AddLayer("without", esriGeometryPolygon, 4);
  const auto unknown = std::make_shared<testing::TestFeatureLayer>();  // a layer that has no selection to ask for
  unknown->SetName("unknown");
  unknown->SetFeatureClass(std::make_shared<MemoryClass>(esriGeometryPolygon));
  document->Map().AppendLayer(unknown);
  struct Row {
    const char* all;
    const char* selected;
    bool has_selection;
    std::int32_t count;
  };
  const Row rows[] = {
      {"Convert All Records (n = 5)", "Convert Selected Records (n = 2)", true, 2},
      {"Convert All Records (n = 4)", "Convert Selected Records (n = 0)", false, 4},
      {"Convert All Records (n = 0)", "Unable to get selection...", false, 0},
  };
  for (std::int32_t line : {2, 0, 1}) {
    const Row& row = rows[line];
    Open();
    form.lbxLayers.SetListIndex(line);
    EXPECT_EQ(form.optAll.Caption(), row.all);
    EXPECT_EQ(form.optSel.Caption(), row.selected);
    EXPECT_TRUE(form.optAll.Enabled());
    EXPECT_EQ(form.optSel.Enabled(), row.has_selection);
    EXPECT_EQ(form.optSel.Value(), row.has_selection);
    EXPECT_EQ(form.optAll.Value(), !row.has_selection);
    form.cmdOK.Press();
    EXPECT_EQ(extension->DoAllRecords, !row.has_selection);
    EXPECT_EQ(extension->AnalysisRecordCount, row.count);
  }
}

TEST_F(LayerFieldsTest, OkLeavesTheChoicesAndCancelTakesThemBack) {
  AddLayer("areas", esriGeometryPolygon);
  Open();
  EXPECT_FALSE(extension->ShouldContinue);
  form.txtOutput.SetText(folder.Path("corners"));
  form.cmdOK.Press();
  EXPECT_FALSE(form.Loaded());
  EXPECT_TRUE(extension->ShouldContinue);
  EXPECT_EQ(extension->NewShapefileLocation, folder.Path("corners"));
  EXPECT_EQ(extension->DirectoryPath, folder.Path());
  EXPECT_EQ(extension->DirectoryType, "Shapefile");
  EXPECT_EQ(extension->SelectedLayer->Name(), "areas");
  EXPECT_EQ(extension->SelectedFields->Count(), 0);

  Open();
  form.cmdCancel.Press();
  EXPECT_FALSE(extension->ShouldContinue);
  EXPECT_EQ(extension->SelectedLayer, nullptr);
  EXPECT_EQ(extension->SelectedFields, nullptr);
}

TEST_F(LayerFieldsTest, AFolderThatIsNotThereKeepsTheFormOpen) {
  AddLayer("areas", esriGeometryPolygon);
  Open();
  form.txtOutput.SetText(folder.Path("gone") + "\\out.shp");
  form.cmdOK.Press();
  EXPECT_TRUE(form.Loaded());
  EXPECT_FALSE(extension->ShouldContinue);
  EXPECT_EQ(form.ActiveControl(), &form.txtOutput);
  ASSERT_EQ(host.messages.shown.size(), 1U);
  EXPECT_EQ(host.messages.shown[0].title, "Failed to Create Feature Class:");
  EXPECT_EQ(host.messages.shown[0].text,
            "Unable to create Feature Class:\r\n" + folder.Native("gone") + " is not a valid workspace...");
}

TEST_F(LayerFieldsTest, TheProposalStartsWhereTheLastRunEnded) {
  AddLayer("areas", esriGeometryPolygon);
  folder.Write("vertex.shp");
  CreateFileGeodatabase(folder.Native("a.gdb"));
  std::filesystem::create_directory(folder.Native("other"));
  struct Row {
    const char* name;
    std::string directory;
    const char* type;
    bool in_dataset;
    std::string proposed, type_after;
  };
  const Row rows[] = {
      {"a name that is taken", folder.Path(), "Shapefile", false, folder.Path("vertex_2.shp"), "Shapefile"},
      {"a trailing separator", folder.Path("other") + "\\", "", false, folder.Path("other") + "\\vertex.shp",
       "Shapefile"},
      {"a geodatabase", folder.Path("a.gdb"), "File Geodatabase", false, folder.Path("a.gdb") + "\\vertex",
       "File Geodatabase"},
      {"a feature dataset", folder.Path("a.gdb"), "File Geodatabase", true, folder.Path("a.gdb") + "\\survey\\vertex",
       "File Geodatabase"},
      {"a place that is gone", folder.Path("gone.gdb"), "File Geodatabase", true, folder.Path("vertex_2.shp"),
       "Shapefile"},
      {"a kind that nobody knows", folder.Path("other"), "Coverage", false, folder.Path("vertex_2.shp"), "Shapefile"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    extension->DirectoryPath = row.directory;
    extension->DirectoryType = row.type;
    extension->IsFeatureDataset = row.in_dataset;
    extension->FeatDatasetName = row.in_dataset ? "survey" : "";
    Open();
    EXPECT_EQ(form.txtOutput.Text(), row.proposed);
    form.cmdOK.Press();
    EXPECT_EQ(extension->DirectoryType, row.type_after);
    EXPECT_EQ(extension->IsFeatureDataset, row.in_dataset && row.type_after == row.type);
  }
}

TEST_F(LayerFieldsTest, BrowsingForAPlace) {
  AddLayer("areas", esriGeometryPolygon);
  Open();
  const std::string before = form.txtOutput.Text();
  form.cmdGetWorkspace.Press();
  EXPECT_EQ(form.txtOutput.Text(), before) << "cancelled";
  EXPECT_EQ(host.browse.titles.back(), "Enter the name of your new Feature Class or Shapefile:");
  EXPECT_EQ(host.browse.starting_locations.back(), folder.Path());

  const auto coverage = std::make_shared<TestGxObject>(folder.Path("cov"), "Coverage");
  host.browse.answers = {{coverage, "x"}};
  host.messages.answers = {MessageAnswer::Cancel};
  form.cmdGetWorkspace.Press();
  EXPECT_EQ(form.txtOutput.Text(), before);
  ASSERT_EQ(host.messages.shown.size(), 1U);
  EXPECT_EQ(host.messages.shown[0].title, "Invalid Feature Class Type:");
  EXPECT_THAT(host.messages.shown[0].text, HasSubstr("Unexpected Feature Class Type (Coverage)!\r\n"));

  CreateFileGeodatabase(folder.Native("a.gdb"));
  const auto geodatabase = std::make_shared<TestGxObject>(folder.Path("a.gdb"), "File Geodatabase");
  host.browse.answers = {{coverage, "x"}, {geodatabase, "2 roads.SHP"}};
  form.cmdGetWorkspace.Press();
  EXPECT_EQ(form.txtOutput.Text(), folder.Path("a.gdb") + "\\z2_roads");
  form.cmdOK.Press();
  EXPECT_EQ(extension->DirectoryType, "File Geodatabase");
  EXPECT_EQ(extension->DirectoryPath, folder.Path("a.gdb"));

  // The same path typed by hand means the class in the geodatabase, never a shapefile among its tables.
  Open();
  form.txtOutput.SetText(folder.Path("a.gdb") + "\\roads");
  form.cmdOK.Press();
  EXPECT_EQ(extension->DirectoryType, "File Geodatabase");
}

TEST_F(LayerFieldsTest, LayoutHoldsAtEverySize) {
  AddLayer("areas", esriGeometryPolygon, 1234)->SetSelectedOids({1});
  Open();
  const std::vector<std::string> none;
  EXPECT_TRUE(form.Topmost());
  EXPECT_NEAR(form.Left() + form.Width() / 2, 500, 1e-9);
  EXPECT_NEAR(form.Top() + form.Height() / 3, 200, 1e-9);
  EXPECT_EQ(testing::LayoutProblems(form), none);
  const double button = form.cmdOK.Width(), message = form.txtMessage.Width(), list = form.lbxFields.Height();
  form.Resize(form.Width() + 160, form.Height() + 90);
  EXPECT_EQ(testing::LayoutProblems(form), none);
  EXPECT_NEAR(form.cmdOK.Width(), button, 1e-4);
  EXPECT_NEAR(form.txtMessage.Width(), message + 160, 1e-4);
  EXPECT_NEAR(form.lbxFields.Height(), list + 90, 1e-4);
  form.Resize(form.MinimumWidth(), form.MinimumHeight());
  EXPECT_EQ(testing::LayoutProblems(form), none) << "at the smallest size";
}

}  // namespace
}  // namespace tessarine
