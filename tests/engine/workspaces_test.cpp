// SPDX-License-Identifier: GPL-2.0-or-later
// Folders of shapefiles and geodatabases as workspaces.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "engine/local_system.h"
#include "engine/promised_geodatabases.h"
#include "engine/test_layers.h"
#include "helpers/published.h"

namespace tessarine {
namespace {

using testing::Box;
using testing::FaultOf;
using testing::FaultTextOf;
using testing::PolygonOf;
using testing::Published;
using testing::ReadLayer;
using testing::TemporaryFolder;
using testing::WriteLayer;

FieldRef NewField(const char* name, esriFieldType type, std::int32_t length = 0, std::int32_t precision = 0,
                  std::int32_t scale = 0) {
  auto field = std::make_shared<Field>();
  field->Name = name;
  field->Type = type;
  field->Length = length;
  field->Precision = precision;
  field->Scale = scale;
  return field;
}

FieldsRef NewFields(esriGeometryType shape_type, int epsg) {
  auto fields = std::make_shared<Fields>();
  fields->AddField(NewField("OBJECTID", esriFieldTypeOID));
  const FieldRef shape = NewField("Shape", esriFieldTypeGeometry);
  shape->GeometryDef = std::make_shared<GeometryDef>();
  shape->GeometryDef->GeometryType = shape_type;
  shape->GeometryDef->SpatialReference = SpatialReferenceEnvironment::CreateFromText("EPSG:" + std::to_string(epsg));
  fields->AddField(shape);
  fields->AddField(NewField("Uniq_ID", esriFieldTypeInteger, 0, 9));
  fields->AddField(NewField("Code", esriFieldTypeSmallInteger, 0, 4));
  fields->AddField(NewField("Area", esriFieldTypeDouble, 0, 16, 8));
  fields->AddField(NewField("name", esriFieldTypeString, 20));
  fields->AddField(NewField("Made", esriFieldTypeDate));
  return fields;
}

std::shared_ptr<IFeatureClass> CreateIn(IFeatureWorkspace& workspace, const std::string& name,
                                        const FieldsRef& fields) {
  return Published(workspace.CreateFeatureClass(name, fields, nullptr, nullptr, esriFTSimple, "Shape", ""));
}

// One row of every field, written through the class and read back by it and by GDAL.
void FillAndCheck(IFeatureClass& features, const std::string& file, bool days_only) {
  const auto field = [&](const char* name) { return features.FindField(name); };
  {
    const auto cursor = features.Insert(true);
    const auto buffer = features.CreateFeatureBuffer();
    buffer->SetShape(PolygonOf({Box(0, 0, 10, 10), Box(2, 2, 4, 4, false), Box(20, 0, 21, 1)}));
    buffer->SetValue(field("Uniq_ID"), 123456789);
    buffer->SetValue(field("Code"), std::int16_t{-12});
    buffer->SetValue(field("Area"), 97.125);
    buffer->SetValue(field("name"), "Łódź");
    buffer->SetValue(field("Made"), MakeDate(2024, 2, 29, 13, 14, 15));
    cursor->InsertFeature(*buffer);
    EXPECT_EQ(buffer->SetValue(field("Uniq_ID"), 3e9), ValueChange::OutOfRange);
    cursor->Flush();
  }
  const auto row = features.Search(nullptr, Recycling::No)->NextFeature();
  ASSERT_NE(row, nullptr);
  EXPECT_EQ(row->Value(field("Uniq_ID")), Variant(123456789));
  EXPECT_EQ(row->Value(field("Code")), Variant(std::int16_t{-12}));
  EXPECT_EQ(row->Value(field("Area")), Variant(97.125));
  EXPECT_EQ(row->Value(field("name")), Variant("Łódź"));
  EXPECT_EQ(row->Value(field("Made")).AsDate(), days_only ? MakeDate(2024, 2, 29) : MakeDate(2024, 2, 29, 13, 14, 15));
  EXPECT_EQ(row->Value(0), Variant(static_cast<std::int32_t>(row->OID())));
  const auto shape = Cast<Polygon>(row->Value(features.FindField(features.ShapeFieldName())).AsObject<IGeometry>());
  ASSERT_NE(shape, nullptr);
  EXPECT_EQ(shape->Area(), 97.0);
  EXPECT_EQ(shape->ExteriorRingCount(), 2);
  const auto rows = ReadLayer(file, features.Name());
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].name, "Łódź");
  EXPECT_NE(rows[0].wkt.find("MULTIPOLYGON"), std::string::npos) << rows[0].wkt;
}

TEST(Workspaces, AFolderOfShapefiles) {
  const TemporaryFolder folder;
  const auto factory = CreateShapefileWorkspaceFactory();
  EXPECT_TRUE(factory->IsWorkspace(folder.Path()));
  EXPECT_FALSE(factory->ContainsWorkspace(folder.Path()));
  const auto workspace = factory->OpenFromFile(folder.Path(), 0);
  EXPECT_EQ(workspace->PathName(), folder.Path());
  EXPECT_NE(FaultOf([&] { (void)workspace->OpenFeatureClass("lakes"); }), 0);
  EXPECT_NE(FaultOf([&] { (void)workspace->OpenTable("lakes"); }), 0);
  EXPECT_NE(FaultOf([&] { (void)workspace->OpenFeatureDataset("lakes"); }), 0);

  const auto lakes = CreateIn(*workspace, "lakes", NewFields(esriGeometryPolygon, 32612));
  FillAndCheck(*lakes, folder.Native("lakes.shp"), true);
  EXPECT_EQ(lakes->Name(), "lakes");
  EXPECT_EQ(lakes->FullName(), folder.Path("lakes.shp"));
  EXPECT_EQ(lakes->Workspace()->PathName(), folder.Path());
  EXPECT_EQ(lakes->SpatialReference()->Name(), "WGS 84 / UTM zone 12N");
  EXPECT_EQ(lakes->Fields()->Field(0)->Type, esriFieldTypeOID);
  EXPECT_EQ(lakes->Fields()->Field(0)->Name, "FID");
  const auto& area = *lakes->Fields()->Field(lakes->FindField("Area"));
  EXPECT_EQ(area.Precision, 16);
  EXPECT_EQ(area.Scale, 8);
  EXPECT_TRUE(factory->ContainsWorkspace(folder.Path()));
  EXPECT_EQ(workspace->OpenFeatureClass("lakes.shp")->FeatureCount(nullptr), 1);
  EXPECT_EQ(workspace->OpenTable("lakes")->RowCount(nullptr), 1);
  EXPECT_NE(FaultTextOf([&] {
              (void)CreateIn(*workspace, "lakes", NewFields(esriGeometryPolygon, 32612));
            }).find("lakes.shp"),
            std::string::npos);
  lakes->Delete();
  EXPECT_TRUE(folder.IsEmpty()) << "all parts are gone";
}

TEST(Workspaces, FieldsAreReadBackUnderTheNamesThatTheFormatGaveThem) {
  const TemporaryFolder folder;
  CreateFileGeodatabase(folder.Native("a.gdb"));
  struct Row {
    std::shared_ptr<IFeatureWorkspace> workspace;
    const char* asked;
    const char* made;
  };
  const Row rows[] = {{CreateShapefileWorkspaceFactory()->OpenFromFile(folder.Path(), 0), "ElevenChars", "ElevenChar"},
                      {CreateFileGDBWorkspaceFactory()->OpenFromFile(folder.Path("a.gdb"), 0), "select", "select_"}};
  for (const Row& row : rows) {
    auto fields = std::make_shared<Fields>(*NewFields(esriGeometryPoint, 4326));
    fields->AddField(NewField(row.asked, esriFieldTypeDouble));
    const auto made = CreateIn(*row.workspace, "p", fields);
    EXPECT_EQ(made->Fields()->Field(made->Fields()->FieldCount() - 1)->Name, row.made);
    EXPECT_EQ(made->FindField(row.asked), -1);
  }
}

TEST(Workspaces, ANewShapefileIsNowhereUntilItIsPublished) {
  const TemporaryFolder folder;
  const auto workspace = CreateShapefileWorkspaceFactory()->OpenFromFile(folder.Path(), 0);
  const auto create = [&] {
    return workspace->CreateFeatureClass("a", NewFields(esriGeometryPoint, 4326), nullptr, nullptr, esriFTSimple,
                                         "Shape", "");
  };
  {
    const auto given_up = create();
    EXPECT_EQ(given_up->FullName(), folder.Path("a.shp")) << "messages tell of the place that was named";
    EXPECT_FALSE(folder.Has("a.shp"));
    Cast<IStagedDataset>(given_up)->Discard();
    EXPECT_TRUE(folder.IsEmpty());
  }
  { (void)create(); }
  EXPECT_TRUE(folder.IsEmpty()) << "a class that is never published leaves nothing";

  const auto kept = create();
  folder.Write("a.dbf", "theirs");
  EXPECT_NE(FaultTextOf([&] { Cast<IStagedDataset>(kept)->Publish(); }).find("came to be"), std::string::npos);
  EXPECT_FALSE(folder.Has("a.shp"));
  EXPECT_NE(FaultTextOf([&] { (void)create(); }).find("exists already"), std::string::npos);
  EXPECT_TRUE(workspace->HoldsName("A.shp") == folder.Has("A.dbf")) << "as the file system tells cases apart";
  EXPECT_TRUE(workspace->HoldsName("a"));
  workspace->AllowReplacing("a.shp");
  const auto replacing = create();
  EXPECT_EQ(std::filesystem::file_size(folder.Native("a.dbf")), 6U);
  Cast<IStagedDataset>(replacing)->Publish();
  EXPECT_EQ(replacing->FeatureCount(nullptr), 0);
  EXPECT_TRUE(folder.Has("a.shp"));
}

// What stands under the name of a table, of either case, is found as a table and as a part of a shapefile.
TEST(Workspaces, ALoneTableIsFoundByTheNameOfAShapefile) {
  const TemporaryFolder folder;
  const auto workspace = CreateShapefileWorkspaceFactory()->OpenFromFile(folder.Path(), 0);
  (void)CreateIn(*workspace, "t", NewFields(esriGeometryPoint, 4326));
  for (const char* ending : {".shp", ".shx", ".prj", ".cpg"}) std::filesystem::remove(folder.Native("t") + ending);
  for (const char* name : {"t", "t.shp", "t.dbf"}) {
    EXPECT_NE(workspace->OpenTable(name), nullptr) << name;
    EXPECT_TRUE(workspace->HoldsName(name)) << name;
  }
  std::filesystem::rename(folder.Native("t.dbf"), folder.Native("t.DBF"));
  EXPECT_NE(workspace->OpenTable("t.shp"), nullptr);
}

TEST(Workspaces, AFailedCreationLeavesNothingBehind) {
  const TemporaryFolder folder;
  const auto workspace = CreateShapefileWorkspaceFactory()->OpenFromFile(folder.Path(), 0);
  EXPECT_NE(FaultOf([&] { (void)CreateIn(*workspace, "p", std::make_shared<Fields>()); }), 0) << "no shape field";
  EXPECT_TRUE(folder.IsEmpty());
}

// A dBASE number field has room for its width: digits after the point give way, then it is an overflow.
TEST(Workspaces, NumbersFitDbaseByFewerDecimalsOrAnExponent) {
  const TemporaryFolder folder;
  const auto workspace = CreateShapefileWorkspaceFactory()->OpenFromFile(folder.Path(), 0);
  const auto features = CreateIn(*workspace, "a", NewFields(esriGeometryPolygon, 4326));
  const auto buffer = features->CreateFeatureBuffer();
  const std::int32_t area = features->FindField("Area");
  struct Row {
    double value, stored;
  };
  const Row rows[] = {{1234567.123456789, 1234567.12345679},
                      {-1234567.123456789, -1234567.1234568},
                      {1234567890123456.0, 1234567890123456.0},
                      {-999999999999999.0, -999999999999999.0},
                      {123456789012.3456, 123456789012.346}};
  {
    const auto cursor = features->Insert(false);
    for (const Row& row : rows) {
      buffer->SetValue(area, row.value);
      cursor->InsertFeature(*buffer);
    }
  }
  const auto cursor = features->Search(nullptr, Recycling::Yes);
  for (const Row& row : rows) EXPECT_DOUBLE_EQ(cursor->NextFeature()->Value(area).AsDouble(), row.stored);
  for (const double value : {1e16, -1e15}) {
    EXPECT_EQ(buffer->SetValue(area, value), ValueChange::None) << value;
    EXPECT_EQ(buffer->Value(area).AsDouble(), value);
  }
}

TEST(Workspaces, AFileGeodatabase) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("data.gdb");
  const auto factory = CreateFileGDBWorkspaceFactory();
  EXPECT_NE(FaultOf([&] { (void)factory->OpenFromFile(folder.Path("data.gdb"), 0); }), 0);
  CreateFileGeodatabase(file);
  EXPECT_TRUE(factory->IsWorkspace(folder.Path("data.gdb")));
  EXPECT_FALSE(factory->IsWorkspace(folder.Path()));
  EXPECT_TRUE(factory->ContainsWorkspace(folder.Path()));
  EXPECT_FALSE(CreateShapefileWorkspaceFactory()->IsWorkspace(folder.Path("data.gdb")));
  const auto workspace = factory->OpenFromFile(folder.Path("data.gdb"), 0);
  const auto lakes = CreateIn(*workspace, "lakes", NewFields(esriGeometryPolygon, 32612));
  FillAndCheck(*lakes, file, false);
  EXPECT_EQ(lakes->Fields()->Field(0)->Name, "OBJECTID");
  EXPECT_EQ(lakes->ShapeFieldName(), "Shape");
  EXPECT_EQ(lakes->FullName(), folder.Path("data.gdb/lakes"));
  EXPECT_EQ(lakes->Workspace()->PathName(), folder.Path("data.gdb"));
  EXPECT_EQ(lakes->PropertySet()->GetProperty("Datafile Format"), Variant(0));
  EXPECT_NE(FaultOf([&] { (void)CreateIn(*workspace, "lakes", NewFields(esriGeometryPoint, 4326)); }), 0);
  EXPECT_NE(FaultOf([&] { (void)workspace->OpenFeatureClass("rivers"); }), 0);
  lakes->Delete();
  EXPECT_NE(FaultOf([&] { (void)workspace->OpenFeatureClass("lakes"); }), 0);
}

// A geodatabase that is promised is made by the first class that is published, and a class that is given up leaves the
// geodatabase as it was.
TEST(Workspaces, AClassOfAGeodatabaseIsNowhereUntilItIsPublished) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("new.gdb");
  const auto factory = CreateFileGDBWorkspaceFactory();
  KeptPromise promise = PromiseFileGeodatabase(file);
  const auto workspace = factory->OpenFromFile(folder.Path("new.gdb"), 0);
  EXPECT_FALSE(workspace->HoldsName("a"));
  EXPECT_TRUE(factory->IsWorkspace(folder.Path("new.gdb")));
  KeptPromise same = PromiseFileGeodatabase(file);
  promise.reset();
  EXPECT_TRUE(factory->IsWorkspace(folder.Path("new.gdb"))) << "the other promise of the same place holds";
  same.reset();
  EXPECT_FALSE(factory->IsWorkspace(folder.Path("new.gdb"))) << "nobody promises it any more";
  promise = PromiseFileGeodatabase(file);
  const auto create = [&](const char* name) {
    return workspace->CreateFeatureClass(name, NewFields(esriGeometryPoint, 4326), nullptr, nullptr, esriFTSimple,
                                         "Shape", "");
  };
  { (void)create("a"); }
  EXPECT_TRUE(folder.IsEmpty());
  (void)Published(create("a"));
  EXPECT_TRUE(workspace->HoldsName("A"));

  EXPECT_NE(FaultTextOf([&] { (void)create("A"); }).find("exists already"), std::string::npos);
  workspace->AllowReplacing("a");
  {
    const auto given_up = create("a");
    EXPECT_EQ(given_up->FullName(), folder.Path("new.gdb/a"));
  }
  EXPECT_EQ(ReadLayer(file, "a").size(), 0U) << "the old class stands";
  workspace->AllowReplacing("a");
  (void)Published(create("a"));
  (void)Published(create("b"));
  EXPECT_TRUE(workspace->HoldsName("a") && workspace->HoldsName("b"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Native()), {}), 1) << "nothing lies beside it";
}

TEST(Workspaces, AFeatureDatasetOfAFileGeodatabase) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("data.gdb");
  CreateFileGeodatabase(file);
  const auto workspace = CreateFileGDBWorkspaceFactory()->OpenFromFile(folder.Path("data.gdb"), 0);
  EXPECT_NE(FaultTextOf([&] { (void)workspace->OpenFeatureDataset("water"); }).find("water"), std::string::npos);
  const auto reference = SpatialReferenceEnvironment::CreateFromText("EPSG:32612");
  {
    const KeptPromise given_up = PromiseFeatureDataset(file, "WATER", reference);
    EXPECT_NO_THROW((void)workspace->OpenFeatureDataset("water"));
  }
  EXPECT_NE(FaultOf([&] { (void)workspace->OpenFeatureDataset("water"); }), 0);
  const KeptPromise promise = PromiseFeatureDataset(file, "water", reference);
  const auto dataset = workspace->OpenFeatureDataset("water");
  EXPECT_TRUE(dataset->SpatialReference()->IsEqual(*reference));
  const auto lakes = Published(dataset->CreateFeatureClass("lakes", NewFields(esriGeometryPolygon, 32612), nullptr,
                                                           nullptr, esriFTSimple, "Shape", ""));
  FillAndCheck(*lakes, file, false);
  EXPECT_TRUE(FeatureDatasetReference(file, "water")->IsEqual(*reference));
  EXPECT_EQ(FeatureDatasetReference(file, "air"), nullptr);

  const GDALDatasetUniquePtr written(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
  const auto group = written->GetRootGroup()->OpenGroup("water");
  ASSERT_NE(group, nullptr);
  EXPECT_EQ(group->GetVectorLayerNames(), std::vector<std::string>{"lakes"});
}

TEST(Workspaces, APersonalGeodatabaseThatIsntUnderstoodStaysAsItIs) {
  const TemporaryFolder folder;
  std::ofstream(folder.Native("old.mdb")) << "Standard Jet DB";
  const auto factory = CreateAccessWorkspaceFactory();
  EXPECT_TRUE(factory->IsWorkspace(folder.Path("old.mdb")));
  EXPECT_TRUE(factory->ContainsWorkspace(folder.Path()));
  EXPECT_NE(FaultOf([&] { (void)factory->OpenFromFile(folder.Path("new.mdb"), 0); }), 0);
  const auto workspace = factory->OpenFromFile(folder.Path("old.mdb"), 0);
  EXPECT_NE(FaultOf([&] { (void)workspace->OpenFeatureDataset("water"); }), 0);
  const std::string text =
      FaultTextOf([&] { (void)CreateIn(*workspace, "lakes", NewFields(esriGeometryPoint, 4326)); });
  EXPECT_NE(text.find("old.mdb"), std::string::npos);
  EXPECT_NE(text.find("too short"), std::string::npos) << text;
  EXPECT_EQ(std::filesystem::file_size(folder.Native("old.mdb")), 15U);
}

TEST(LocalSystem, AnswersWithBackslashPaths) {
  const TemporaryFolder folder;
  std::ofstream(folder.Native("a.txt")) << "x";
  const LocalOperatingSystem system;
  EXPECT_TRUE(system.Exists(folder.Path()));
  EXPECT_FALSE(system.IsFile(folder.Path()));
  EXPECT_TRUE(system.IsFile(folder.Path("a.txt")));
  EXPECT_FALSE(system.Exists(folder.Path("b.txt")));
  EXPECT_EQ(system.LongPathName(folder.Path("x/../a.txt")), folder.Path("a.txt"));
}

}  // namespace
}  // namespace tessarine
