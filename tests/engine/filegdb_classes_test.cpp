// SPDX-License-Identifier: GPL-2.0-or-later
// New classes of file geodatabases: the grid of their coordinates, their datasets; and what an update leaves alone.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "engine/filegdb_grid.h"
#include "engine/geodatabase_helpers.h"
#include "engine/promised_geodatabases.h"
#include "helpers/published.h"
#include "helpers/shapes.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using engine::GridFor;
using engine::GridUnit;
using testing::ContentOf;
using testing::FaultOf;
using testing::FaultTextOf;
using testing::FindingsOf;
using testing::ReadLayer;
using testing::TemporaryFolder;

std::shared_ptr<Fields> ShapeField(const std::string& reference, const Envelope& extent, esriGeometryType type) {
  auto fields = std::make_shared<Fields>();
  auto shape = std::make_shared<Field>();
  shape->Name = "Shape";
  shape->Type = esriFieldTypeGeometry;
  shape->GeometryDef = std::make_shared<GeometryDef>();
  shape->GeometryDef->GeometryType = type;
  shape->GeometryDef->SpatialReference = SpatialReferenceEnvironment::CreateFromText(reference);
  shape->GeometryDef->Extent = extent;
  fields->AddField(shape);
  return fields;
}

std::shared_ptr<Fields> PointFields(const std::string& reference, const Envelope& extent) {
  return ShapeField(reference, extent, esriGeometryPoint);
}

std::shared_ptr<IFeatureClass> MakeClass(const std::string& file, const std::string& name,
                                         const std::shared_ptr<Fields>& fields) {
  const auto workspace = CreateFileGDBWorkspaceFactory()->OpenFromFile(FromNativePath(file), 0);
  return workspace->CreateFeatureClass(name, fields, nullptr, nullptr, esriFTSimple, "Shape", "");
}

struct PlacedPoint {
  const char* what;
  const char* reference;  // "" for none
  double x, y, accuracy;
};

// Everything comes back as near as the unit asks for.
TEST(GeodatabaseGrid, HoldsTheExtentOfTheRun) {
  const PlacedPoint points[] = {
      {"longitudes two turns away", "EPSG:4326", -812.123456789, 45.5, 1e-9},
      {"degrees without a reference", "", 11.123456789, -47.987654321, 1e-9},
      {"far degrees without a reference", "", -1000.123456, 12.5, 1e-6},
      {"metres without a reference", "", 4512345.678, -5412345.678, 1e-3},
      {"metres beyond the usual grid", "EPSG:3857", -5e9, 20000.5, 1e-3},
      {"metres", "EPSG:3857", -20037508.25, 20000.125, 1e-4},
  };
  for (const PlacedPoint& point : points) {
    const TemporaryFolder folder;
    const std::string file = folder.Native("far.gdb");
    CreateFileGeodatabase(file);
    const Envelope extent(point.x - 1, point.y - 1, point.x + 1, point.y + 1);
    const auto features = MakeClass(file, "places", PointFields(point.reference, extent));
    const auto cursor = features->Insert(true);
    const auto buffer = features->CreateFeatureBuffer();
    buffer->SetShape(std::make_shared<Point>(point.x, point.y));
    cursor->InsertFeature(*buffer);
    cursor->Close();
    (void)testing::Published(features);
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
    const OGRFeatureUniquePtr read(dataset->GetLayer(0)->GetNextFeature());
    ASSERT_NE(read, nullptr) << point.what;
    ASSERT_NE(read->GetGeometryRef(), nullptr) << point.what;
    EXPECT_NEAR(read->GetGeometryRef()->toPoint()->getX(), point.x, point.accuracy) << point.what;
    EXPECT_NEAR(read->GetGeometryRef()->toPoint()->getY(), point.y, point.accuracy) << point.what;
    EXPECT_EQ(FindingsOf(file), "") << point.what;
  }
}

TEST(GeodatabaseGrid, IsThatOfGdalWhereItFits) {
  EXPECT_FALSE(GridFor(Envelope(-180, -90, 180, 90), GridUnit::Degrees));
  EXPECT_FALSE(GridFor(Envelope(0, 0, 500000, 9000000), GridUnit::Length));
  EXPECT_FALSE(GridFor({}, GridUnit::Degrees));
  EXPECT_FALSE(GridFor({}, GridUnit::Length));
  EXPECT_EQ(GridFor(Envelope(-500, 0, 1, 1), GridUnit::Degrees)->grid.xy_scale, 1e9);
  EXPECT_FALSE(GridFor({}, GridUnit::Length, 0.3048));
  EXPECT_EQ(GridFor({}, GridUnit::Length, 1000.0)->grid.xy_scale, 1e7);
  EXPECT_EQ(GridFor(Envelope(0, 0, 20000, 20000), GridUnit::Length, 1000.0)->grid.xy_scale, 1e7);
  // Radians.
  EXPECT_EQ(GridFor(Envelope(-3, -1, 3, 1), GridUnit::Degrees, 57.3)->grid.xy_scale, 1e11);
}

TEST(GeodatabaseGrid, AShapeBeyondItIsNamed) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("far.gdb");
  CreateFileGeodatabase(file);
  const auto features = MakeClass(file, "places", PointFields("EPSG:4326", {}));
  const auto cursor = features->Insert(true);
  const auto buffer = features->CreateFeatureBuffer();
  const auto insert = [&] { cursor->InsertFeature(*buffer); };
  buffer->SetShape(std::make_shared<Point>(-812.5, 45.0));
  EXPECT_EQ(FaultOf(insert), kCoordinateRange);
  const std::string text = FaultTextOf(insert);
  EXPECT_NE(text.find("Coordinate out of range"), std::string::npos) << text;
  EXPECT_NE(text.find("-812.5"), std::string::npos) << text;
  EXPECT_NE(text.find("'places' keeps none below x -400"), std::string::npos) << text;
  buffer->SetShape(nullptr);
  insert();
  buffer->SetShape(std::make_shared<Point>(12.0, 45.0));
  insert();
  cursor->Close();
  (void)testing::Published(features);
  const auto rows = ReadLayer(file, "places");
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].wkt, "");
  EXPECT_EQ(rows[1].wkt, "POINT (12 45)");
}

// Valid before the format rounds them to a tenth of a millimetre, and after.
TEST(GeodatabaseGrid, PolygonsStayValidOnIt) {
  using Rings = std::vector<std::vector<XY>>;
  const struct {
    const char* name;
    Rings rings;
  } rows[] = {
      {"a needle that leans over", {{{0.00004, 0}, {3, 10.00004}, {7, 10}, {7, 0}, {3.00003, 9.9999}, {0.00004, 0}}}},
      {"crossing triangles",
       {{{3, 0}, {5, 3}, {6, 4}, {2, 0}, {5, 2}, {3, 0}},
        {{6, 1}, {2, 0}, {5, 3}, {6, 1}},
        {{4, 1}, {3, 6}, {5, 5}, {1, 3}, {4, 1}},
        {{0, 2}, {0, 6}, {2, 4}, {4, 0}, {1, 5}, {0, 2}}}},
      {"a plain one, off the grid", {{{0.12345678, 0}, {0, 10}, {10, 10.98765432}, {0.12345678, 0}}}},
  };
  const TemporaryFolder folder;
  const std::string file = folder.Native("areas.gdb");
  CreateFileGeodatabase(file);
  const auto features = MakeClass(file, "areas", ShapeField("EPSG:32633", {}, esriGeometryPolygon));
  const auto cursor = features->Insert(true);
  const auto buffer = features->CreateFeatureBuffer();
  std::vector<double> areas;
  for (const auto& row : rows) {
    const auto polygon = testing::PolygonOf(row.rings);
    polygon->Simplify();
    areas.push_back(polygon->Area());
    buffer->SetShape(polygon);
    cursor->InsertFeature(*buffer);
  }
  EXPECT_NEAR(areas[1], 10.9442331531408, 1e-12);
  cursor->Close();
  (void)testing::Published(features);
  const auto stored = ReadLayer(file, "areas");
  ASSERT_EQ(stored.size(), std::size(rows));
  for (std::size_t at = 0; at < stored.size(); ++at) {
    OGRGeometry* shape = nullptr;
    ASSERT_EQ(OGRGeometryFactory::createFromWkt(stored[at].wkt.c_str(), nullptr, &shape), OGRERR_NONE);
    const std::unique_ptr<OGRGeometry> read(shape);
    EXPECT_TRUE(read->IsValid()) << rows[at].name << " " << stored[at].wkt;
    EXPECT_NEAR(OGR_G_Area(OGRGeometry::ToHandle(read.get())), areas[at], 5e-3) << rows[at].name;
  }
}

TEST(GeodatabaseDatasets, AreOneInAnyCase) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("town.gdb");
  CreateFileGeodatabase(file);
  const auto workspace = CreateFileGDBWorkspaceFactory()->OpenFromFile(FromNativePath(file), 0);
  const auto reference = SpatialReferenceEnvironment::CreateFromText("EPSG:32612");
  for (const auto& [dataset_name, name] : {std::pair("ds", "a"), std::pair("DS", "b")}) {
    const KeptPromise promise = PromiseFeatureDataset(file, dataset_name, reference);
    const auto dataset = workspace->OpenFeatureDataset(dataset_name);
    (void)testing::Published(
        dataset->CreateFeatureClass(name, PointFields("EPSG:32612", {}), nullptr, nullptr, esriFTSimple, "Shape", ""));
  }
  EXPECT_TRUE(FeatureDatasetReference(file, "Ds")->IsEqual(*reference));
  const GDALDatasetUniquePtr written(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
  EXPECT_EQ(written->GetRootGroup()->GetGroupNames(), std::vector<std::string>{"ds"});
  EXPECT_EQ(written->GetRootGroup()->OpenGroup("ds")->GetVectorLayerNames(), (std::vector<std::string>{"a", "b"}));
  EXPECT_NE(FaultTextOf([&] { (void)MakeClass(file, "B", PointFields("EPSG:4326", {})); }).find("exists already"),
            std::string::npos);
  EXPECT_EQ(FindingsOf(file), "");
}

// A class with Z, M, arcs, more columns that may be null than two bytes have bits, a blob and a date, in a dataset.
void WriteRichClass(const std::string& file, OGRwkbGeometryType type, const std::vector<const char*>& shapes) {
  GDALAllRegister();
  const GDALDatasetUniquePtr dataset(
      GetGDALDriverManager()->GetDriverByName("OpenFileGDB")->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  OGRSpatialReference reference;
  reference.importFromEPSG(32612);
  const char* const options[] = {"FEATURE_DATASET=rich", nullptr};
  OGRLayer* layer = dataset->CreateLayer("rich_class", &reference, type, const_cast<char**>(options));
  ASSERT_NE(layer, nullptr);
  for (int index = 0; index < 21; ++index) {
    OGRFieldDefn field(("f" + std::to_string(index)).c_str(), index % 3 == 0   ? OFTString
                                                              : index % 3 == 1 ? OFTInteger
                                                                               : OFTReal);
    ASSERT_EQ(layer->CreateField(&field), OGRERR_NONE);
  }
  OGRFieldDefn blob("blob", OFTBinary), date("made", OFTDateTime), small("small", OFTInteger);
  small.SetSubType(OFSTInt16);
  for (OGRFieldDefn* field : {&blob, &date, &small}) ASSERT_EQ(layer->CreateField(field), OGRERR_NONE);
  int row = 0;
  for (const char* wkt : shapes) {
    OGRFeature feature(layer->GetLayerDefn());
    OGRGeometry* shape = nullptr;
    ASSERT_EQ(OGRGeometryFactory::createFromWkt(wkt, nullptr, &shape), OGRERR_NONE) << wkt;
    feature.SetGeometryDirectly(shape);
    for (int index = 0; index < 21; ++index) {
      if ((row + index) % 4 != 0) feature.SetField(index, row * 100 + index);
    }
    feature.SetField(feature.GetFieldIndex("blob"), 3, "\x01\x00\x02");
    feature.SetField("made", 2024, 2, 29, 13, 14, 15.0F, 100);
    feature.SetField("small", -12);
    ASSERT_EQ(layer->CreateFeature(&feature), OGRERR_NONE) << wkt;
    ++row;
  }
}

TEST(GeodatabaseUpdates, LeaveAllOtherColumnsAlone) {
  const struct {
    OGRwkbGeometryType type;
    std::vector<const char*> shapes;
  } classes[] = {
      {wkbMultiCurveZM,
       {"MULTILINESTRING ZM ((0 0 1 2,5 5 3 4))", "MULTICURVE ZM (CIRCULARSTRING ZM (0 0 1 1,5 5 2 2,10 0 3 3))",
        "MULTILINESTRING ZM ((0 0 1 2,5 5 3 4,9 9 9 9),(20 20 1 1,21 21 2 2))"}},
      {wkbMultiSurface,
       {"MULTISURFACE (CURVEPOLYGON (CIRCULARSTRING (0 0,5 5,10 0,5 -5,0 0)))", "MULTIPOLYGON (((0 0,0 9,9 9,0 0)))"}},
      {wkbPointZM, {"POINT ZM (1 2 3 4)", "POINT ZM (5 6 7 8)"}},
      {wkbMultiPointM, {"MULTIPOINT M ((0 0 1),(5 0 2))", "MULTIPOINT M ((3 3 3))"}},
  };
  for (const auto& kind : classes) {
    const TemporaryFolder folder;
    const std::string file = folder.Native("rich.gdb");
    WriteRichClass(file, kind.type, kind.shapes);
    ASSERT_EQ(FindingsOf(file), "");
    const auto before = ContentOf(file, {"f1", "f3", "f5", "small"});
    const auto features = DataSource::Open(file)->OpenFeatureClass("rich_class");
    const auto cursor = features->Update(nullptr, Recycling::No);
    while (const auto feature = cursor->NextFeature()) {
      feature->SetValue(features->FindField("f1"), std::int32_t{77});
      feature->SetValue(features->FindField("f3"), "a text that makes the row grow, and move to the end of the file");
      feature->SetValue(features->FindField("f5"), Variant(Null{}));
      feature->SetValue(features->FindField("small"), std::int16_t{32767});
      cursor->UpdateFeature(feature);
    }
    cursor->Close();
    EXPECT_EQ(ContentOf(file, {"f1", "f3", "f5", "small"}), before) << OGRGeometryTypeToName(kind.type);
    const std::string row = ContentOf(file)["rich_class"][1];
    for (const char* part : {"|f1=77|", "|f3=a text that makes", "|f5=null|", "|small=32767"}) {
      EXPECT_NE(row.find(part), std::string::npos) << part << " in " << row;
    }
    EXPECT_EQ(FindingsOf(file), "") << OGRGeometryTypeToName(kind.type);
  }
}

// The process is killed while it adds a field and fills it.
TEST(GeodatabaseEdit, SurvivesAKillAtAnyMoment) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("town.gdb");
  testing::WriteGeodatabase(file, 3, 300);
  const testing::Content before = ContentOf(file);
  const auto work = [&](const std::string& name) {
    const auto features = DataSource::Open(file)->OpenFeatureClass("class_1");
    const auto edit = features->BeginEdit();
    auto field = std::make_shared<Field>();
    field->Name = name;
    field->Type = esriFieldTypeDouble;
    features->AddField(field);
    const auto cursor = features->Update(nullptr, Recycling::No);
    while (const auto feature = cursor->NextFeature()) {
      feature->SetValue(features->FindField(name), 1.5);
      cursor->UpdateFeature(feature);
    }
    cursor->Close();
    edit->Finish();
  };
  std::mt19937 random(20240229);
  for (int run = 0; run < 12; ++run) {
    const std::string name = "run_" + std::to_string(run);
    const pid_t child = fork();
    if (child == 0) {
      work(name);
      _exit(0);
    }
    usleep(static_cast<useconds_t>(random() % 120000));
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(FindingsOf(file), "") << name;
    const testing::Content now = ContentOf(file);
    EXPECT_EQ(now.at("class_0"), before.at("class_0")) << name;
    EXPECT_EQ(now.at("class_1").size(), before.at("class_1").size()) << name;
    for (const std::string& row : now.at("class_1")) {
      const bool has_value = row.find("|" + name + "=1.5") != std::string::npos;
      const bool is_new = now.at("class_1")[0].find(name) != std::string::npos;
      EXPECT_EQ(has_value, is_new) << name << ": old or new, nothing between: " << row;
    }
  }
  work("last");
  for (const auto& entry : fs::directory_iterator(folder.Native())) {
    EXPECT_FALSE(entry.path().filename().string().starts_with(".")) << entry.path();
  }
  EXPECT_EQ(FindingsOf(file), "");
}

}  // namespace
}  // namespace tessarine
