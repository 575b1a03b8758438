// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of single formats: what each of them has of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "engine/attribute_update.h"
#include "engine/dbase_columns.h"
#include "engine/filegdb_edit.h"
#include "engine/ogr_class.h"
#include "engine/ogr_cursor.h"
#include "engine/test_layers.h"

namespace tessarine {
namespace {

using testing::FaultTextOf;
using testing::NamesOf;
using testing::ReadLayer;
using testing::TemporaryFolder;
using testing::TestLayer;
using testing::WriteLayer;

TEST(Shapefiles, NothingIsAddedBehindANameThatIsCut) {
  const TemporaryFolder folder;
  WriteLayer({"ESRI Shapefile", folder.Native("towns.shp"), "towns", wkbPoint, {{"POINT (0 0)", "a", 1.0}}});
  const auto towns = DataSource::Open(folder.Native("towns.shp"))->OpenFeatureClass("");
  std::vector<FieldRef> fields;
  for (const char* name : {"First", "ElevenChars", "Never"}) {
    auto field = std::make_shared<Field>();
    field->Name = name;
    field->Type = esriFieldTypeDouble;
    fields.push_back(field);
  }
  EXPECT_THAT(FaultTextOf([&] { towns->AddFields(fields); }), ::testing::HasSubstr("'ElevenChars'"));
  EXPECT_GE(towns->FindField("First"), 0);
  EXPECT_EQ(towns->FindField("Never"), -1);
  EXPECT_EQ(towns->FindField("ElevenChar"), -1) << "no empty field of the cut name";
}

// A program that is killed in the midst of a change, with part of it in the file and the journal beside it.
void DieWhileChanging(const std::string& file) {
  const pid_t child = fork();
  if (child == 0) {
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    for (const char* statement :
         {"PRAGMA cache_size = 1", "BEGIN", "UPDATE towns SET name = 'changed' || hex(zeroblob(200))"}) {
      dataset->ReleaseResultSet(dataset->ExecuteSQL(statement, nullptr, nullptr));
    }
    kill(getpid(), SIGKILL);
  }
  waitpid(child, nullptr, 0);
}

TEST(GeoPackages, AChangeThatWasKilledIsUndoneByReading) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("t.gpkg");
  std::vector<testing::TestRow> rows;
  for (int row = 0; row < 2000; ++row) rows.push_back({"POINT (0 0)", "before", 1.0});
  WriteLayer({"GPKG", file, "towns", wkbPoint, rows});
  DieWhileChanging(file);
  ASSERT_GT(std::filesystem::file_size(file + "-journal"), 0U) << "the test leaves no journal";
  const auto towns = DataSource::Open(file)->OpenFeatureClass("towns");
  const std::int32_t name = towns->FindField("name");
  const auto cursor = towns->Search(nullptr, Recycling::Yes);
  int count = 0;
  while (const auto row = cursor->NextFeature()) count += row->Value(name).AsText() == "before" ? 1 : 0;
  EXPECT_EQ(count, 2000);
}

TEST(Shapefiles, ATableWithNewColumnsKeepsItsPlaceAndPermissions) {
  namespace fs = std::filesystem;
  const TemporaryFolder folder;
  WriteLayer({"ESRI Shapefile", folder.Native("towns.shp"), "towns", wkbPoint, {{"POINT (0 0)", "\xc3\xa9", 1.0}}});
  const auto files = [&] { return std::distance(fs::directory_iterator(folder.Native("")), {}); };
  const auto count = files();
  const fs::path table = folder.Native("towns.dbf"), real = folder.Native("real.dbf");
  fs::permissions(table, fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
  fs::rename(table, real);
  fs::create_symlink(real, table);
  const auto towns = DataSource::Open(folder.Native("towns.shp"))->OpenFeatureClass("");
  auto field = std::make_shared<Field>();
  field->Name = "Area";
  field->Type = esriFieldTypeDouble;
  field->Precision = 16;
  field->Scale = 12;
  towns->AddField(field);
  EXPECT_TRUE(fs::is_symlink(table));
  EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
  EXPECT_EQ(files(), count + 1) << "the link, and nothing left over";
  EXPECT_EQ(ReadLayer(folder.Native("towns.shp")).at(0).name, "\xc3\xa9");
  EXPECT_EQ(towns->FindField("Area"), towns->FindField("size") + 1);
}

// Rows whose attributes change stand beside one whose text GDAL must encode, and one whose shape changes.
TEST(Shapefiles, ReadingGoesOnBehindARowThatIsWrittenWhole) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("towns.shp");
  WriteLayer({"ESRI Shapefile",
              file,
              "towns",
              wkbPoint,
              {{"POINT (0 0)", "a", 1.0}, {"POINT (1 1)", "b", 2.0}, {"POINT (2 2)", "c", 3.0}, {"", "d", 4.0}}});
  const auto towns = DataSource::Open(file)->OpenFeatureClass("");
  const std::int32_t name = towns->FindField("name"), size = towns->FindField("size");
  QueryFilter filter;
  filter.WhereClause = "size <> 2";
  const auto cursor = towns->Update(&filter, Recycling::No);
  const std::string foreign_name = "\xc3\xa9lan";
  while (const auto row = cursor->NextFeature()) {
    row->SetValue(size, row->Value(size).AsDouble() + 10.0);
    if (row->Value(name).AsText() == "a") row->SetValue(name, foreign_name);
    if (row->Value(name).AsText() == "c") row->SetShape(std::make_shared<Point>(7.0, 8.0));
    cursor->UpdateFeature(row);
  }
  cursor->Close();
  std::string rows;
  for (const auto& row : ReadLayer(file)) rows += row.wkt + " " + row.name + " " + std::to_string(int(row.size)) + ",";
  EXPECT_EQ(rows, "POINT (0 0) " + foreign_name + " 11,POINT (1 1) b 2,POINT (7 8) c 13, d 14,");
  EXPECT_EQ(NamesOf(towns->Search(nullptr, Recycling::Yes), name), foreign_name + " b c d ");
}

// Reading goes on across the commits.
TEST(GeoPackages, RowsOfStagedDataAreAllReadAndWritten) {
  constexpr int kRows = 2 * static_cast<int>(engine::kRowsPerCommit) + 5;
  const TemporaryFolder folder;
  const std::string file = folder.Native("staged.gpkg");
  TestLayer layer{"GPKG", file, "towns", wkbPoint, {}};
  for (int row = 0; row < kRows; ++row) layer.rows.push_back({"POINT (1 2)", "town", 0.0});
  WriteLayer(layer);
  const auto source = std::make_shared<engine::OgrSource>(folder.Native("towns.geojson"), file, "towns");
  const auto towns = std::make_shared<engine::OgrFeatureClass>(source);
  const auto cursor = towns->Update(nullptr, Recycling::No);
  int read = 0;
  while (const auto row = cursor->NextFeature()) {
    row->SetValue(towns->FindField("size"), 0.5 + read++);
    cursor->UpdateFeature(row);
  }
  cursor->Close();
  EXPECT_EQ(read, kRows);
  int written = 0;
  for (const auto& row : ReadLayer(file)) {
    if (row.size == 0.5 + written) ++written;
  }
  EXPECT_EQ(written, kRows);
}

// GDAL prints all decimals and cuts them off at the width of the column.
TEST(Shapefiles, NumbersAreRoundedToTheirColumnWhoeverWritesTheRow) {
  constexpr int kRows = 300;
  const TemporaryFolder folder;
  const std::string file = folder.Native("lots.shp");
  GDALAllRegister();
  {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
    const GDALDatasetUniquePtr data(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRLayer* layer = data->CreateLayer("lots", nullptr, wkbPoint);
    OGRFieldDefn area("area", OFTReal);
    area.SetWidth(16);
    area.SetPrecision(12);
    ASSERT_EQ(layer->CreateField(&area), OGRERR_NONE);
    OGRFeature row(layer->GetLayerDefn());
    OGRPoint point(1.0, 2.0);
    row.SetGeometry(&point);
    for (int number = 0; number < kRows; ++number, row.SetFID(OGRNullFID)) {
      ASSERT_EQ(layer->CreateFeature(&row), OGRERR_NONE);
    }
  }
  const auto value_of = [](int number) { return 304967522.1234561 + 1017.0370369 * number; };
  {
    const auto lots = DataSource::Open(file)->OpenFeatureClass("");
    const auto cursor = lots->Update(nullptr, Recycling::No);
    std::vector<std::shared_ptr<IFeature>> by_themselves;
    for (int number = 0; const auto row = cursor->NextFeature(); ++number) {
      row->SetValue(lots->FindField("area"), value_of(number));
      if (number % 3 == 2) {
        by_themselves.push_back(row);
        continue;
      }
      if (number % 3 == 1) row->SetShape(std::make_shared<Point>(7.0, 8.0));
      cursor->UpdateFeature(row);
    }
    cursor->Close();
    for (const auto& row : by_themselves) row->Store();
  }
  const GDALDatasetUniquePtr written(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
  int number = 0;
  for (const auto& row : *written->GetLayer(0)) {
    std::array<char, 40> expected;
    std::snprintf(expected.data(), expected.size(), "%.6f", value_of(number));
    EXPECT_EQ(row->GetFieldAsDouble(0), std::strtod(expected.data(), nullptr)) << number;
    ++number;
  }
  EXPECT_EQ(number, kRows);
}

TEST(ShapefileRows, ThoseWithADeletionMarkAreNotCounted) {
  const TemporaryFolder folder;
  std::vector<testing::TestRow> rows(300, {"POINT (1 2)", "a", 1.0});
  WriteLayer({"ESRI Shapefile", folder.Native("towns.shp"), "towns", wkbPoint, rows});
  {
    const GDALDatasetUniquePtr dataset(
        GDALDataset::Open(folder.Native("towns.shp").c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    for (const int row : {0, 7, 299}) ASSERT_EQ(dataset->GetLayer(0)->DeleteFeature(row), OGRERR_NONE);
  }
  const auto towns = DataSource::Open(folder.Native("towns.shp"))->OpenFeatureClass("towns");
  EXPECT_EQ(towns->FeatureCount(nullptr), 297);
  int read = 0;
  for (const auto cursor = towns->Search(nullptr, Recycling::Yes); cursor->NextFeature();) ++read;
  EXPECT_EQ(read, 297);
}

// Rows are held back in blocks and written when one is full or left: here each row is a block of its own.
TEST(Blocks, RowsOfManyBlocksAreWrittenInAnyOrder) {
  constexpr int kRows = 7;
  constexpr std::array kOrder = {5, 0, 6, 1, 0, 3};
  for (const char* file : {"a.shp", "a.gdb"}) {
    SCOPED_TRACE(file);
    const TemporaryFolder folder;
    const std::string path = folder.Native(file);
    const bool shapefile = std::string(file) == "a.shp";
    TestLayer layer{shapefile ? "ESRI Shapefile" : "OpenFileGDB", path, "a", wkbPoint, {}};
    for (int row = 0; row < kRows; ++row) layer.rows.push_back({"POINT (1 2)", "row " + std::to_string(row), -1.0});
    WriteLayer(layer);
    {
      std::shared_ptr<engine::FileGdbEdit> edit = shapefile ? nullptr : engine::FileGdbEdit::Begin(path);
      const engine::OgrSource source(path, "a", std::nullopt);
      GDALDatasetUniquePtr dataset(GDALDataset::Open((edit ? edit->Folder() : path).c_str(), GDAL_OF_VECTOR));
      OGRLayer& rows = *dataset->GetLayer(0);
      if (edit) edit->TableChanges("a");
      const auto update =
          shapefile ? engine::OpenDbaseUpdate(source, rows, 1) : engine::OpenFileGdbUpdate(source, rows, 1);
      ASSERT_NE(update, nullptr);
      const int name = rows.GetLayerDefn()->GetFieldIndex("name"), size = rows.GetLayerDefn()->GetFieldIndex("size");
      for (std::size_t step = 0; step < kOrder.size(); ++step) {
        const OGRFeatureUniquePtr row(rows.GetFeature(kOrder.at(step) + (shapefile ? 0 : 1)));
        row->SetField(name, ("longer than before " + std::to_string(step)).c_str());
        row->SetField(size, static_cast<double>(step));
        ASSERT_TRUE(update->Write(*row, std::array{name, size}));
      }
      update->Finish();
      dataset.reset();
      if (edit) engine::FileGdbEdit::End(edit);
    }
    const GDALDatasetUniquePtr written(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
    std::vector<std::string> found;
    for (const auto& row : *written->GetLayer(0)) {
      found.push_back(std::string(row->GetFieldAsString("name")) + " " +
                      std::to_string(row->GetFieldAsInteger("size")));
    }
    const std::vector<std::string> expected = {
        "longer than before 4 4", "longer than before 3 3", "row 2 -1", "longer than before 5 5", "row 4 -1",
        "longer than before 0 0", "longer than before 2 2"};
    EXPECT_EQ(found, expected);
  }
}

TEST(Blocks, NewColumnsOfATableOfManyBlocksLeaveTheOthersInTheirRows) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("a.shp");
  TestLayer layer{"ESRI Shapefile", path, "a", wkbPoint, {}};
  for (int row = 0; row < 5; ++row) layer.rows.push_back({"POINT (1 2)", "row " + std::to_string(row), row / 4.0});
  WriteLayer(layer);
  auto field = std::make_shared<Field>();
  field->Name = "more";
  field->Type = esriFieldTypeDouble;
  field->Precision = 20;
  field->Scale = 5;
  const std::vector<FieldRef> fields = {field};
  ASSERT_EQ(engine::AddDbaseColumns(engine::OgrSource(path, "a", std::nullopt), fields, 1), 1U);
  const GDALDatasetUniquePtr written(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
  int row = 0;
  for (const auto& feature : *written->GetLayer(0)) {
    EXPECT_EQ(feature->GetFieldAsString("name"), "row " + std::to_string(row));
    EXPECT_EQ(feature->GetFieldAsDouble("size"), row / 4.0);
    EXPECT_EQ(feature->IsFieldSetAndNotNull(feature->GetFieldIndex("more")), 0);
    ++row;
  }
  EXPECT_EQ(row, 5);
}

}  // namespace
}  // namespace tessarine
