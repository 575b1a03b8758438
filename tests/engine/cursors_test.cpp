// SPDX-License-Identifier: GPL-2.0-or-later
// Reading, writing and selecting rows: one contract for every format that can be written.
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

using testing::Box;
using testing::FaultOf;
using testing::FaultTextOf;
using testing::NamesOf;
using testing::PolygonOf;
using testing::ReadLayer;
using testing::TemporaryFolder;
using testing::TestLayer;
using testing::WriteLayer;

struct Store {
  const char* driver;
  const char* file;
};

class Cursors : public ::testing::TestWithParam<Store> {
 protected:
  void SetUp() override {
    file_ = folder_.Native(GetParam().file);
    WriteLayer({GetParam().driver,
                file_,
                "towns",
                wkbPoint,
                {{"POINT (0 0)", "a", 1.0}, {"POINT (5 5)", "b", 2.0}, {"POINT (9 9)", "c", 3.0}, {"", "d", 4.0}}});
    towns_ = Open();
    name_ = towns_->FindField("name");
    size_ = towns_->FindField("size");
  }
  std::shared_ptr<IFeatureClass> Open() { return DataSource::Open(file_)->OpenFeatureClass("towns"); }
  std::string Names(const QueryFilter* filter) { return NamesOf(towns_->Search(filter, true), name_); }

  TemporaryFolder folder_;
  std::string file_;
  std::shared_ptr<IFeatureClass> towns_;
  std::int32_t name_ = -1, size_ = -1;
};

TEST_P(Cursors, RecyclingAnswersOneObjectRefilled) {
  const auto recycling = towns_->Search(nullptr, true);
  const auto first = recycling->NextFeature();
  const auto shape = first->Shape();
  EXPECT_EQ(recycling->NextFeature(), first);
  EXPECT_EQ(first->Value(name_).AsText(), "b");
  EXPECT_NE(first->Shape(), shape);
  EXPECT_EQ(Cast<Point>(shape)->X(), 0.0) << "a shape taken before stays as it was";

  auto keeping = towns_->Search(nullptr, false);
  const auto a = keeping->NextFeature(), b = keeping->NextFeature();
  EXPECT_NE(a, b);
  while (keeping->NextFeature()) {
  }
  EXPECT_EQ(keeping->NextFeature(), nullptr) << "the end stays the end";
  keeping.reset();
  EXPECT_EQ(a->Value(name_).AsText(), "a") << "rows outlive their cursor";
  EXPECT_NE(a->ShapeCopy(), a->Shape());
  EXPECT_EQ(Cast<IFeatureClass>(a->Table()), towns_);
  EXPECT_LT(a->OID(), b->OID());
  EXPECT_EQ(towns_->GetFeature(b->OID())->Value(name_).AsText(), "b");
  EXPECT_EQ(FaultOf([&] { (void)towns_->GetFeature(99999); }), kInvalidCall);
  EXPECT_EQ(FaultOf([&] { (void)a->Value(99); }), kInvalidCall);
  EXPECT_EQ(FaultOf([&] { (void)a->Value(-1); }), kInvalidCall);
}

TEST_P(Cursors, FiltersByConditionAndPlace) {
  QueryFilter filter;
  filter.WhereClause = "size >= 2 AND name <> 'c'";
  EXPECT_EQ(Names(&filter), "b d ");
  EXPECT_EQ(towns_->FeatureCount(&filter), 2);
  EXPECT_EQ(Names(nullptr), "a b c d ") << "no filter is left behind";

  filter.WhereClause = "";
  // The triangle's box holds all three points, the triangle itself two.
  filter.Geometry = PolygonOf({{{-1, -1}, {-1, 10}, {10, 10}, {-1, -1}}});
  EXPECT_EQ(Names(&filter), "a b c ");
  filter.Geometry = PolygonOf({{{0, 0}, {0, 10}, {10, 10}, {6, 7}, {0, 0}}});
  EXPECT_EQ(Names(&filter), "a ");
  filter.Geometry = PolygonOf({Box(5, 5, 20, 20)});
  filter.WhereClause = "size < 3";
  EXPECT_EQ(Names(&filter), "b ");
  EXPECT_EQ(towns_->FeatureCount(&filter), 1);

  QueryFilter wrong;
  wrong.WhereClause = "nosuchfield = 1";
  for (const char* condition : {"nosuchfield = 1", "size >", "name = 'x"}) {
    wrong.WhereClause = condition;
    EXPECT_NE(FaultTextOf([&] { (void)Names(&wrong); }).find(condition), std::string::npos) << condition;
    EXPECT_NE(FaultTextOf([&] { (void)towns_->FeatureCount(&wrong); }).find(condition), std::string::npos) << condition;
  }
  EXPECT_EQ(Names(nullptr), "a b c d ");

  QueryFilter narrow;
  narrow.SubFields = "NAME, Shape";
  const auto row = towns_->Search(&narrow, true)->NextFeature();
  EXPECT_EQ(row->Value(name_).AsText(), "a");
  EXPECT_TRUE(row->Value(size_).IsNull()) << "left out";
  EXPECT_FALSE(row->Shape()->IsEmpty());
  EXPECT_EQ(towns_->Search(nullptr, true)->NextFeature()->Value(size_).AsDouble(), 1.0);
}

TEST_P(Cursors, InsertedRowsAreThereForEveryReader) {
  ASSERT_EQ(Names(nullptr), "a b c d ");
  {
    const auto cursor = towns_->Insert(true);
    const auto buffer = towns_->CreateFeatureBuffer();
    const auto point = std::make_shared<Point>(7.0, 8.0);
    buffer->SetShape(point);
    buffer->SetValue(name_, "e");
    buffer->SetValue(size_, 0.1);
    point->SetX(7.5);  // the buffer keeps the reference
    cursor->InsertFeature(*buffer);
    buffer->SetShape(std::make_shared<Point>());
    buffer->SetValue(name_, Null{});
    buffer->SetValue(size_, "12.5");
    cursor->InsertFeature(*buffer);
    EXPECT_EQ(buffer->SetValue(size_, "twelve"), ValueChange::Unreadable);
    EXPECT_EQ(FaultOf([&] { buffer->SetValue(0, 5); }), kInvalidCall) << "the identifier";
    cursor->Flush();
    EXPECT_EQ(FaultOf([&] { cursor->UpdateRow(nullptr); }), kInvalidCall);
  }
  EXPECT_EQ(towns_->FeatureCount(nullptr), 6);
  const auto rows = ReadLayer(file_, "towns");
  ASSERT_EQ(rows.size(), 6U);
  EXPECT_EQ(rows[4].wkt, "POINT (7.5 8)");
  EXPECT_EQ(rows[4].name, "e");
  EXPECT_EQ(rows[4].size, 0.1);
  EXPECT_EQ(rows[5].name, "");
  EXPECT_EQ(rows[5].size, 12.5);
}

TEST_P(Cursors, UpdatesWriteBackWhatWasRead) {
  {
    QueryFilter filter;
    filter.WhereClause = "size < 4";
    const auto cursor = towns_->Update(&filter, true);
    while (const auto row = cursor->NextFeature()) {
      row->SetValue(size_, row->Value(size_).AsDouble() * 10.0);
      if (row->Value(name_).AsText() == "b") row->SetShape(std::make_shared<Point>(50.0, 60.0));
      cursor->UpdateFeature(row);
    }
    cursor->Flush();
  }
  auto rows = ReadLayer(file_, "towns");
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[0].size + rows[1].size + rows[2].size + rows[3].size, 64.0);
  EXPECT_EQ(rows[0].wkt, "POINT (0 0)") << "a shape that wasn't set stays";
  EXPECT_EQ(rows[1].wkt, "POINT (50 60)");
  EXPECT_EQ(Names(nullptr), "a b c d ");

  const auto row = towns_->Search(nullptr, false)->NextFeature();
  row->SetValue(name_, "first");
  row->Store();
  EXPECT_EQ(towns_->GetFeature(row->OID())->Value(name_).AsText(), "first");
  row->Delete();
  EXPECT_EQ(Names(nullptr), "b c d ");
  EXPECT_EQ(towns_->FeatureCount(nullptr), 3);
}

TEST_P(Cursors, OneReadsWhileAnotherWrites) {
  const auto reader = towns_->Search(nullptr, false);
  const auto first = reader->NextFeature();
  {
    const auto writer = towns_->Update(nullptr, false);
    const auto row = writer->NextFeature();
    row->SetValue(size_, 77.0);
    writer->UpdateFeature(row);
    writer->Flush();
  }
  EXPECT_EQ(NamesOf(reader, name_), "b c d ");
  EXPECT_EQ(first->Value(size_).AsDouble(), 1.0);
  EXPECT_EQ(ReadLayer(file_, "towns").at(0).size, 77.0);
  EXPECT_EQ(towns_->GetFeature(first->OID())->Value(size_).AsDouble(), 77.0);
}

TEST_P(Cursors, WhatOneClassObjectWritesAnotherSees) {
  const auto other = Open();
  EXPECT_EQ(other->FeatureCount(nullptr), 4);
  EXPECT_EQ(NamesOf(other->Search(nullptr, true), name_), "a b c d ");
  {
    const auto buffer = towns_->CreateFeatureBuffer();
    buffer->SetShape(std::make_shared<Point>(1.0, 1.0));
    buffer->SetValue(name_, "e");
    (void)towns_->Insert(true)->InsertFeature(*buffer);
  }
  EXPECT_EQ(other->FeatureCount(nullptr), 5);
  EXPECT_EQ(NamesOf(other->Search(nullptr, true), name_), "a b c d e ");
}

TEST_P(Cursors, NewFieldsCanBeFilledAtOnce) {
  auto field = std::make_shared<Field>();
  field->Name = "Measure";
  field->Type = esriFieldTypeDouble;
  field->Precision = 16;
  field->Scale = 8;
  towns_->AddField(field);
  const std::int32_t index = towns_->FindField("MEASURE");
  ASSERT_GE(index, 0);
  EXPECT_EQ(towns_->Fields()->Field(index)->Type, esriFieldTypeDouble);
  {
    const auto cursor = towns_->Update(nullptr, true);
    double value = -123456789.125;
    while (const auto row = cursor->NextFeature()) {
      EXPECT_TRUE(row->Value(index).IsNull());
      row->SetValue(index, value);
      cursor->UpdateFeature(row);
      value = 1.5e15;
    }
  }
  const auto cursor = towns_->Search(nullptr, true);
  EXPECT_EQ(cursor->NextFeature()->Value(index).AsDouble(), -123456789.125) << "digits behind the point give way";
  EXPECT_EQ(cursor->NextFeature()->Value(index).AsDouble(), 1.5e15);
  EXPECT_EQ(Names(nullptr), "a b c d ");
  EXPECT_NE(FaultTextOf([&] { towns_->AddField(field); }), "") << "the name is taken";
}

TEST_P(Cursors, FieldsComeInTheirOrderUpToTheFirstThatFails) {
  const auto field_of = [](const char* name, std::int32_t precision) {
    auto field = std::make_shared<Field>();
    field->Name = name;
    field->Type = esriFieldTypeDouble;
    field->Precision = precision;
    field->Scale = precision > 0 ? 12 : 0;
    return field;
  };
  const FieldRef fields[] = {field_of("Area", 16), field_of("Wide", 24), field_of("Open", 0), field_of("AREA", 16),
                             field_of("Never", 16)};
  EXPECT_THAT(FaultTextOf([&] { towns_->AddFields(fields); }), ::testing::HasSubstr("'AREA'"));
  std::string names;
  for (std::int32_t index = size_ + 1; index < towns_->Fields()->FieldCount(); ++index) {
    names += towns_->Fields()->Field(index)->Name + " ";
  }
  EXPECT_EQ(names, "Area Wide Open ");
  // GDAL finds the rows as they were, and nothing in the new columns.
  std::string rows;
  for (const auto& row : ReadLayer(file_, "towns")) rows += row.wkt + row.name + std::to_string(int(row.size)) + " ";
  EXPECT_EQ(rows, "POINT (0 0)a1 POINT (5 5)b2 POINT (9 9)c3 d4 ");
  const GDALDatasetUniquePtr dataset(GDALDataset::Open(file_.c_str(), GDAL_OF_VECTOR));
  for (const auto& row : *dataset->GetLayer(0)) {
    for (const char* name : {"Area", "Wide", "Open"}) {
      EXPECT_TRUE(!row->IsFieldSetAndNotNull(row->GetFieldIndex(name))) << name;
    }
  }
}

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
  const auto cursor = towns->Search(nullptr, true);
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
  const auto cursor = towns->Update(&filter, false);
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
  EXPECT_EQ(NamesOf(towns->Search(nullptr, true), name), foreign_name + " b c d ");
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
  const auto cursor = towns->Update(nullptr, false);
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
    const auto cursor = lots->Update(nullptr, false);
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

TEST_P(Cursors, SelectionsComeInTheOrderOfIdentifiers) {
  std::vector<std::int64_t> oids;
  const auto cursor = towns_->Search(nullptr, true);
  while (const auto row = cursor->NextFeature()) oids.push_back(row->OID());
  const auto some = SelectByOids(towns_, {oids[2], oids[0], oids[2]});
  EXPECT_EQ(some->Count(), 2);
  EXPECT_EQ(NamesOf(some->Search(nullptr, false), name_), "a c ");
  EXPECT_NE(Cast<IFeatureCursor>(some->Search(nullptr, true)), nullptr);
  QueryFilter filter;
  filter.WhereClause = "size > 1";
  EXPECT_EQ(NamesOf(some->Search(&filter, true), name_), "c ");
  const auto large = SelectByWhere(towns_, "size > 2");
  EXPECT_EQ(large->Count(), 2);
  EXPECT_EQ(NamesOf(large->Search(nullptr, true), name_), "c d ");
  EXPECT_EQ(SelectByWhere(towns_, "size > 99")->Search(nullptr, true)->NextRow(), nullptr);
  EXPECT_NE(FaultTextOf([&] { (void)SelectByWhere(towns_, "size >< 2"); }).find("size >< 2"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Stores, Cursors,
                         ::testing::Values(Store{"ESRI Shapefile", "towns.shp"}, Store{"GPKG", "data.gpkg"},
                                           Store{"OpenFileGDB", "data.gdb"}),
                         [](const auto& row) {
                           return std::string(row.param.file).substr(std::string(row.param.file).find('.') + 1);
                         });

// A few rows out of many are fetched one by one; the result is the same.
TEST(Selections, AFewRowsOutOfMany) {
  const TemporaryFolder folder;
  testing::TestLayer layer{"GPKG", folder.Native("many.gpkg"), "many", wkbPoint, {}};
  for (int row = 1; row <= 50; ++row) layer.rows.push_back({"POINT (0 0)", "n" + std::to_string(row)});
  WriteLayer(layer);
  const auto many = DataSource::Open(layer.file)->OpenFeatureClass("");
  const std::int32_t name = many->FindField("name");
  const auto few = SelectByOids(many, {40, 7});
  EXPECT_EQ(NamesOf(few->Search(nullptr, false), name), "n7 n40 ");
  const auto recycling = few->Search(nullptr, true);
  const auto first = recycling->NextRow();
  EXPECT_EQ(recycling->NextRow(), first) << "a recycling cursor answers one object";
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
  for (const auto cursor = towns->Search(nullptr, true); cursor->NextFeature();) ++read;
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
