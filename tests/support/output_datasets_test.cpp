// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/output_datasets.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "engine/data_source.h"
#include "engine/promised_geodatabases.h"
#include "helpers/memory_class.h"
#include "helpers/published.h"
#include "helpers/reported_faults.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "support/output_kinds.h"

namespace tessarine::MyGeneralOperations {
namespace {

using testing::MemoryClass;
using testing::NewField;
using testing::TemporaryFolder;
using testing::TestGxObject;
using testing::TestHost;

// Holds nothing and remembers what it was asked to create.
class RecordingWorkspace final : public IFeatureWorkspace {
 public:
  std::string name, shape_field;
  FieldsRef fields;
  std::shared_ptr<UID> clsid;

  [[nodiscard]] std::string PathName() const override { return ""; }
  [[nodiscard]] std::shared_ptr<ITable> OpenTable(const std::string&) override { Raise(kEngine, "none"); }
  [[nodiscard]] std::shared_ptr<IFeatureClass> OpenFeatureClass(const std::string&) override { Raise(kEngine, "none"); }
  [[nodiscard]] std::shared_ptr<IFeatureDataset> OpenFeatureDataset(const std::string&) override { return nullptr; }
  [[nodiscard]] std::shared_ptr<IFeatureClass> CreateFeatureClass(const std::string& class_name, const FieldsRef& list,
                                                                  const std::shared_ptr<UID>& id,
                                                                  const std::shared_ptr<UID>&, esriFeatureType,
                                                                  const std::string& shape,
                                                                  const std::string&) override {
    name = class_name, fields = list, clsid = id, shape_field = shape;
    return std::make_shared<MemoryClass>(esriGeometryPoint);
  }
};

std::shared_ptr<VarArray> FieldsNamed(const std::vector<std::string>& names) {
  auto list = std::make_shared<VarArray>();
  for (const std::string& name : names) list->Add(NewField(name, esriFieldTypeInteger));
  return list;
}

std::string NamesOf(const Fields& fields) {
  std::string names;
  for (const FieldRef& field : fields) names += field->Name + " ";
  return names;
}

struct Request {
  std::string directory = {}, name = {};
  std::int32_t kind = kShapefile;
  bool in_dataset = false;
  std::string dataset = {};
  esriGeometryType type = esriGeometryPoint;
  const char* reference = "EPSG:4326";

  std::shared_ptr<IFeatureClass> Create(const std::shared_ptr<VarArray>& fields = nullptr, bool unique_id = false) {
    return testing::Published(CreateGeneralFeatureClass(type, SpatialReferenceEnvironment::CreateFromText(reference),
                                                        directory, name, kind, fields, "Where to?", in_dataset, dataset,
                                                        false, unique_id, nullptr, 0));
  }
};

class OutputTest : public ::testing::Test {
 protected:
  TestHost host;
  testing::ReportedFaults reported;
  TemporaryFolder folder;

  std::shared_ptr<IGxObject> Folder() const { return std::make_shared<TestGxObject>(folder.Path(), "Folder"); }
};

TEST_F(OutputTest, AShapefileWithTheCallersFieldsBehindItsOwn) {
  Request request{folder.Path("old.shp"), "roads.json"};
  request.directory = folder.Path();
  const auto output = request.Create(FieldsNamed({"Unique_ID", "lanes"}), true);
  ASSERT_NE(output, nullptr);
  EXPECT_TRUE(folder.Has("roads.shp"));
  EXPECT_EQ(output->ShapeType(), esriGeometryPoint);
  EXPECT_NE(NamesOf(*output->Fields()).find("Unique_ID2 Unique_ID lanes "), std::string::npos);
  EXPECT_EQ(output->SpatialReference()->FactoryCode(), 4326);
  EXPECT_TRUE(host.messages.shown.empty());
}

TEST_F(OutputTest, TheTenthUniqueNameGetsTwoDigits) {
  std::vector<std::string> shapefile_names{"Unique_ID"}, geodatabase_names{"Object_ID"};
  for (int number = 2; number <= 9; ++number) {
    shapefile_names.push_back("Unique_ID" + std::to_string(number));
    geodatabase_names.push_back("Object_ID" + std::to_string(number));
  }
  Request request{folder.Path(), "many"};
  const auto output = request.Create(FieldsNamed(shapefile_names), true);
  ASSERT_NE(output, nullptr);
  EXPECT_NE(output->FindField("Unique_I10"), -1);

  const auto workspace = std::make_shared<RecordingWorkspace>();
  (void)CreateGDBFeatureClass(workspace, "many", esriFTSimple, nullptr, request.type, FieldsNamed(geodatabase_names),
                              nullptr, nullptr, "", false, 2, nullptr, 0);
  EXPECT_EQ(workspace->fields->Field(1)->Name, "Object_ID10");
  EXPECT_EQ(workspace->fields->Field(1)->Type, esriFieldTypeOID);
}

TEST_F(OutputTest, ATakenNameIsOverwrittenOrAskedForAnew) {
  Request first{folder.Path(), "roads"};
  ASSERT_NE(first.Create(FieldsNamed({"old_field"})), nullptr);

  host.messages.answers = {MessageAnswer::Yes};
  Request again{folder.Path(), "roads"};
  const auto output = again.Create(FieldsNamed({"new_field"}));
  ASSERT_NE(output, nullptr);
  EXPECT_EQ(output->FindField("old_field"), -1);
  EXPECT_NE(output->FindField("new_field"), -1);
  EXPECT_EQ(host.messages.shown[0].title, "Feature Class Already Exists:");
  EXPECT_EQ(host.messages.shown[0].text, "The Feature Class 'roads.shp' already exists!  Do you wish to overwrite it?");

  host.messages.answers = {MessageAnswer::No};
  host.browse.answers = {{Folder(), "others"}};
  Request other{folder.Path(), "roads"};
  EXPECT_NE(other.Create(), nullptr);
  EXPECT_TRUE(folder.Has("others.shp"));
  EXPECT_EQ(host.browse.titles, std::vector<std::string>{"Where to?"});

  host.messages.answers = {MessageAnswer::No};
  Request given_up{folder.Path(), "roads"};
  EXPECT_EQ(given_up.Create(), nullptr);
  EXPECT_EQ(given_up.name, "");
}

TEST_F(OutputTest, CancelledAndImpossibleRequests) {
  Request nowhere{"", "roads"};
  EXPECT_EQ(nowhere.Create(), nullptr);
  EXPECT_EQ(host.browse.button_captions, std::vector<std::string>{"Enter"});
  EXPECT_TRUE(host.messages.shown.empty());

  Request three{folder.Path(), "roads", 3};
  EXPECT_EQ(three.Create(), nullptr);
  ASSERT_EQ(host.messages.shown.size(), 1U);
  EXPECT_EQ(host.messages.shown[0].title, "Invalid Output Type:");

  host.browse.answers = {{std::make_shared<TestGxObject>(folder.Path(), "Coverage"), "roads"}};
  Request coverage;
  EXPECT_EQ(coverage.Create(), nullptr);
  ASSERT_EQ(host.messages.shown.size(), 2U);
  EXPECT_EQ(host.messages.shown[1].text,
            "Unexpected Feature Class Type (Coverage)!  Need to write new code for this...");
  EXPECT_TRUE(folder.IsEmpty());
  EXPECT_TRUE(host.error_reports.empty());
}

TEST_F(OutputTest, AShapefileFolderMayBeNamedByAShapefileInIt) {
  std::string directory = folder.Path("old.shp"), name = "new.shp";
  esriGeometryType type = esriGeometryPolygon;
  EXPECT_NE(testing::Published(CreateShapefileFeatureClass(directory, name, nullptr, type, nullptr, false)), nullptr);
  EXPECT_TRUE(folder.Has("new.shp"));

  directory = folder.Path("gone"), name = "new";
  EXPECT_EQ(CreateShapefileFeatureClass(directory, name, nullptr, type, nullptr, false), nullptr);
  ASSERT_EQ(host.messages.shown.size(), 1U);
  EXPECT_EQ(host.messages.shown[0].text,
            "Unable to create Feature Class:\r\n" + folder.Native("gone") + " is not a valid workspace...");
}

TEST_F(OutputTest, AClassInAFeatureDataset) {
  CreateFileGeodatabase(folder.Native("a.gdb"));
  const KeptPromise promise = PromiseFeatureDataset(folder.Native("a.gdb"), "traffic",
                                                    SpatialReferenceEnvironment::CreateFromText("EPSG:32612"));
  Request request{folder.Path("a.gdb") + "\\", "roads", kFileGeodatabase, true, "traffic"};
  EXPECT_EQ(request.Create(), nullptr) << "data in degrees don't belong into a dataset in metres";
  ASSERT_EQ(host.error_reports.size(), 1U);
  EXPECT_THAT(host.error_reports[0], ::testing::HasSubstr("The feature dataset 'traffic' is in"));
  request.reference = "EPSG:32612";
  const auto output = request.Create(FieldsNamed({"lanes"}));
  ASSERT_NE(output, nullptr) << host.error_reports.back();
  EXPECT_EQ(output->SpatialReference()->FactoryCode(), 32612) << "that of the dataset";
  EXPECT_NE(output->FindField("lanes"), -1);

  Request again{folder.Path("a.gdb"), "roads", kFileGeodatabase, true, "traffic"};
  again.reference = "EPSG:32612";
  EXPECT_EQ(again.Create(), nullptr);
  ASSERT_EQ(host.messages.shown.size(), 1U);
  EXPECT_NE(host.messages.shown[0].text.find("'traffic:roads'"), std::string::npos);
}

TEST(GeodatabaseClassTest, FeatureTypesForceTheShapeType) {
  struct Row {
    esriFeatureType feature_type;
    esriGeometryType given, made;
    const char* clsid;  // nothing: no class
  };
  const Row rows[] = {
      {esriFTSimple, esriGeometryPolygon, esriGeometryPolygon, "esriGeoDatabase.Feature"},
      {esriFTSimple, esriGeometryLine, esriGeometryPolyline, "esriGeoDatabase.Feature"},
      {esriFTSimpleJunction, esriGeometryPolygon, esriGeometryPoint, "esriGeoDatabase.SimpleJunctionFeature"},
      {esriFTSimpleEdge, esriGeometryPoint, esriGeometryPolyline, "esriGeoDatabase.SimpleEdgeFeature"},
      {esriFTComplexJunction, esriGeometryPolygon, esriGeometryPolygon, "esriGeoDatabase.ComplexJunctionFeature"},
      {esriFTComplexEdge, esriGeometryPoint, esriGeometryPolyline, "esriGeoDatabase.ComplexEdgeFeature"},
      {esriFTAnnotation, esriGeometryPolygon, esriGeometryPolygon, nullptr},
  };
  const Envelope extent(0, 0, 100, 100);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.feature_type);
    const auto workspace = std::make_shared<RecordingWorkspace>();
    esriGeometryType type = row.given;
    const auto made = CreateGDBFeatureClass(workspace, "x", row.feature_type, nullptr, type, nullptr, nullptr, nullptr,
                                            "", false, 2, &extent, 800);
    EXPECT_EQ(made != nullptr, row.clsid != nullptr);
    EXPECT_EQ(type, row.made);
    if (!made || row.clsid == nullptr) continue;
    EXPECT_EQ(workspace->clsid->Value, row.clsid);
    EXPECT_EQ(workspace->shape_field, "Shape");
    const auto definition = workspace->fields->Field(0)->GeometryDef;
    EXPECT_EQ(definition->GeometryType, row.made);
    EXPECT_EQ(definition->GridSize(0), 50.0);  // four tiles over 100 by 100
  }
}

TEST(GridSizeTest, AboutTwoHundredFeaturesToATile) {
  const Envelope flat(0, 0, 1000, 10), wide(0, 0, 400, 100), empty;
  EXPECT_EQ(GridSizeFor(&flat, 200), 10.0);
  EXPECT_EQ(GridSizeFor(&wide, 3200), 50.0);
  EXPECT_EQ(GridSizeFor(&flat, 0), 100.0);
  EXPECT_EQ(GridSizeFor(&empty, 200), 100.0);
  EXPECT_EQ(GridSizeFor(nullptr, 200), 100.0);
}

}  // namespace
}  // namespace tessarine::MyGeneralOperations
