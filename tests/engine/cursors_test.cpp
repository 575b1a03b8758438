// SPDX-License-Identifier: GPL-2.0-or-later
// Reading, writing and selecting rows: one contract for every format that can be written.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
  std::string Names(const QueryFilter* filter) { return NamesOf(towns_->Search(filter, Recycling::Yes), name_); }

  TemporaryFolder folder_;
  std::string file_;
  std::shared_ptr<IFeatureClass> towns_;
  std::int32_t name_ = -1, size_ = -1;
};

TEST_P(Cursors, RecyclingAnswersOneObjectRefilled) {
  const auto recycling = towns_->Search(nullptr, Recycling::Yes);
  const auto first = recycling->NextFeature();
  const auto shape = first->Shape();
  EXPECT_EQ(recycling->NextFeature(), first);
  EXPECT_EQ(first->Value(name_).AsText(), "b");
  EXPECT_NE(first->Shape(), shape);
  EXPECT_EQ(Cast<Point>(shape)->X(), 0.0) << "a shape taken before stays as it was";

  auto keeping = towns_->Search(nullptr, Recycling::No);
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
  const auto row = towns_->Search(&narrow, Recycling::Yes)->NextFeature();
  EXPECT_EQ(row->Value(name_).AsText(), "a");
  EXPECT_TRUE(row->Value(size_).IsNull()) << "left out";
  EXPECT_FALSE(row->Shape()->IsEmpty());
  EXPECT_EQ(towns_->Search(nullptr, Recycling::Yes)->NextFeature()->Value(size_).AsDouble(), 1.0);
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
    const auto cursor = towns_->Update(&filter, Recycling::Yes);
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

  const auto row = towns_->Search(nullptr, Recycling::No)->NextFeature();
  row->SetValue(name_, "first");
  row->Store();
  EXPECT_EQ(towns_->GetFeature(row->OID())->Value(name_).AsText(), "first");
  row->Delete();
  EXPECT_EQ(Names(nullptr), "b c d ");
  EXPECT_EQ(towns_->FeatureCount(nullptr), 3);
}

TEST_P(Cursors, OneReadsWhileAnotherWrites) {
  const auto reader = towns_->Search(nullptr, Recycling::No);
  const auto first = reader->NextFeature();
  {
    const auto writer = towns_->Update(nullptr, Recycling::No);
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
  EXPECT_EQ(NamesOf(other->Search(nullptr, Recycling::Yes), name_), "a b c d ");
  {
    const auto buffer = towns_->CreateFeatureBuffer();
    buffer->SetShape(std::make_shared<Point>(1.0, 1.0));
    buffer->SetValue(name_, "e");
    (void)towns_->Insert(true)->InsertFeature(*buffer);
  }
  EXPECT_EQ(other->FeatureCount(nullptr), 5);
  EXPECT_EQ(NamesOf(other->Search(nullptr, Recycling::Yes), name_), "a b c d e ");
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
    const auto cursor = towns_->Update(nullptr, Recycling::Yes);
    double value = -123456789.125;
    while (const auto row = cursor->NextFeature()) {
      EXPECT_TRUE(row->Value(index).IsNull());
      row->SetValue(index, value);
      cursor->UpdateFeature(row);
      value = 1.5e15;
    }
  }
  const auto cursor = towns_->Search(nullptr, Recycling::Yes);
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

TEST_P(Cursors, SelectionsComeInTheOrderOfIdentifiers) {
  std::vector<std::int64_t> oids;
  const auto cursor = towns_->Search(nullptr, Recycling::Yes);
  while (const auto row = cursor->NextFeature()) oids.push_back(row->OID());
  const auto some = SelectByOids(towns_, {oids[2], oids[0], oids[2]});
  EXPECT_EQ(some->Count(), 2);
  EXPECT_EQ(NamesOf(some->Search(nullptr, Recycling::No), name_), "a c ");
  EXPECT_NE(Cast<IFeatureCursor>(some->Search(nullptr, Recycling::Yes)), nullptr);
  QueryFilter filter;
  filter.WhereClause = "size > 1";
  EXPECT_EQ(NamesOf(some->Search(&filter, Recycling::Yes), name_), "c ");
  const auto large = SelectByWhere(towns_, "size > 2");
  EXPECT_EQ(large->Count(), 2);
  EXPECT_EQ(NamesOf(large->Search(nullptr, Recycling::Yes), name_), "c d ");
  EXPECT_EQ(SelectByWhere(towns_, "size > 99")->Search(nullptr, Recycling::Yes)->NextRow(), nullptr);
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
  EXPECT_EQ(NamesOf(few->Search(nullptr, Recycling::No), name), "n7 n40 ");
  const auto recycling = few->Search(nullptr, Recycling::Yes);
  const auto first = recycling->NextRow();
  EXPECT_EQ(recycling->NextRow(), first) << "a recycling cursor answers one object";
}

}  // namespace
}  // namespace tessarine
