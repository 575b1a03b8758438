// SPDX-License-Identifier: GPL-2.0-or-later
// Reading and changing the rows of the map's layers.
#include <gmock/gmock.h>

#include <cmath>

#include "engine/test_layers.h"
#include "hosts/contract/host_contract.h"

namespace tessarine::testing {

using ::testing::HasSubstr;

TEST_P(HostContract, CursorsReadWhatTheFilterTakes) {
  OpenTowns();
  const auto towns = Class("towns");
  const std::int32_t name = towns->FindField("name"), size = towns->FindField("size");
  const auto names = [&](const QueryFilter* filter) { return Names(*towns->Search(filter, Recycling::Yes), name); };
  EXPECT_EQ(names(nullptr), "a b c d ");

  QueryFilter filter;
  filter.WhereClause = "size >= 2 AND name <> 'c'";
  EXPECT_EQ(names(&filter), "b d ");
  EXPECT_EQ(towns->FeatureCount(&filter), 2);
  filter.WhereClause = "";
  // The triangle's box holds all three points, the triangle itself two.
  filter.Geometry = PolygonOf({{{0, 0}, {0, 10}, {10, 10}, {6, 7}, {0, 0}}});
  EXPECT_EQ(names(&filter), "a ");
  filter.Geometry = PolygonOf({Box(5, 5, 20, 20)});
  filter.WhereClause = "size < 3";
  EXPECT_EQ(names(&filter), "b ");

  QueryFilter wrong;
  for (const char* condition : {"nosuchfield = 1", "size >"}) {
    wrong.WhereClause = condition;
    EXPECT_THAT(FaultTextOf([&] { (void)names(&wrong); }), HasSubstr(condition));
  }
  QueryFilter narrow;
  narrow.SubFields = "NAME, Shape";
  const auto row = towns->Search(&narrow, Recycling::Yes)->NextFeature();
  EXPECT_EQ(row->Value(name).AsText(), "a");
  EXPECT_TRUE(row->Value(size).IsNull()) << "left out";
  EXPECT_FALSE(row->Shape()->IsEmpty());
}

TEST_P(HostContract, RowsOfACursor) {
  OpenTowns();
  const auto towns = Class("towns");
  const std::int32_t name = towns->FindField("name");
  const auto recycling = towns->Search(nullptr, Recycling::Yes);
  const auto first = recycling->NextFeature();
  const auto shape = first->Shape();
  EXPECT_EQ(recycling->NextFeature(), first);
  EXPECT_EQ(first->Value(name).AsText(), "b");
  EXPECT_EQ(Cast<Point>(shape)->X(), 0.0) << "a shape taken before stays as it was";

  auto keeping = towns->Search(nullptr, Recycling::No);
  const auto a = keeping->NextFeature(), b = keeping->NextFeature();
  while (keeping->NextFeature()) {
  }
  EXPECT_EQ(keeping->NextFeature(), nullptr) << "the end stays the end";
  keeping.reset();
  EXPECT_EQ(a->Value(name).AsText(), "a") << "rows outlive their cursor";
  const auto copy = Cast<Point>(a->ShapeCopy());
  copy->PutCoords(77, 77);
  EXPECT_EQ(Cast<Point>(a->Shape())->X(), 0.0) << "the copy is private";
  EXPECT_NE(a->ShapeCopy(), a->Shape());
  EXPECT_EQ(a->Shape(), a->Shape());
  EXPECT_EQ(Cast<IFeatureClass>(a->Table()), towns);
  EXPECT_LT(a->OID(), b->OID());
  EXPECT_EQ(towns->GetFeature(b->OID())->Value(name).AsText(), "b");
  EXPECT_EQ(FaultOf([&] { (void)towns->GetFeature(99999); }), kInvalidCall);
  for (const std::int32_t index : {-1, 99}) EXPECT_EQ(FaultOf([&] { (void)a->Value(index); }), kInvalidCall);

  const auto last = towns->GetFeature(Oids(*towns, "d").front());
  ASSERT_NE(last->Shape(), nullptr);
  EXPECT_TRUE(last->Shape()->IsEmpty());
}

TEST_P(HostContract, ShapesKeepTheirPartsAndRunTheRightWay) {
  // The outer ring is given counter-clockwise, its hole clockwise, with a part beside it.
  WriteLayer({GetParam().driver,
              FileOf("areas"),
              "areas",
              wkbMultiPolygon,
              {{"MULTIPOLYGON (((0 0,10 0,10 10,0 10,0 0),(2 2,2 4,4 4,4 2,2 2)),((20 0,20 5,25 5,20 0)))", "a"}}});
  WriteLayer({GetParam().driver,
              FileOf("lines"),
              "lines",
              wkbMultiLineString,
              {{"MULTILINESTRING ((0 0,1 1,2 0),(5 5,6 6))", "a"}, {"MULTILINESTRING ((1 2,3 4))", "b"}}});
  host_->OpenLayer(FileOf("areas"), "areas", "");
  host_->OpenLayer(FileOf("lines"), "lines", "");
  const auto area = Cast<Polygon>(Class("areas")->Search(nullptr, Recycling::Yes)->NextFeature()->Shape());
  ASSERT_EQ(area->GeometryCount(), 3);
  EXPECT_EQ(area->SpatialReference()->FactoryCode(), 4326);
  // 100 less the hole of 4, and half of 5 by 5.
  EXPECT_DOUBLE_EQ(area->Area(), 108.5);
  std::vector<double> rings;
  for (const auto& part : area->Parts()) rings.push_back(Cast<Ring>(part)->Area());
  EXPECT_THAT(rings, ::testing::UnorderedElementsAre(100.0, -4.0, 12.5));
  const auto cursor = Class("lines")->Search(nullptr, Recycling::Yes);
  const auto line = Cast<Polyline>(cursor->NextFeature()->Shape());
  ASSERT_EQ(line->GeometryCount(), 2);
  EXPECT_THAT(line->Parts()[0]->Vertices(), ::testing::ElementsAre(XY{0, 0}, XY{1, 1}, XY{2, 0}));
  EXPECT_EQ(Cast<Polyline>(cursor->NextFeature()->ShapeCopy())->ToPoint(), (XY{3, 4}));
}

TEST_P(HostContract, FieldsAreAddedAndFilledInPlace) {
  OpenTowns();
  const auto towns = Class("towns");
  EXPECT_TRUE(Cast<IObjectClassInfo2>(towns)->CanBypassEditSession());
  const auto measure = std::make_shared<Field>();
  measure->Name = measure->AliasName = "measure";
  measure->Type = esriFieldTypeDouble;
  measure->Precision = 16;
  measure->Scale = 8;
  const auto count = std::make_shared<Field>();
  count->Name = count->AliasName = "count";
  count->Type = esriFieldTypeInteger;
  for (const auto& field : {measure, count}) towns->AddField(field);
  EXPECT_NE(FaultOf([&] { towns->AddField(measure); }), 0) << "the name is taken";
  const std::int32_t first = towns->FindField("measure"), second = towns->FindField("COUNT");
  ASSERT_TRUE(first == 4 && second == 5);

  const auto cursor = towns->Update(nullptr, Recycling::No);
  std::int32_t number = 0;
  while (const auto row = cursor->NextFeature()) {
    EXPECT_TRUE(row->Value(first).IsNull());
    row->SetValue(first, 0.5 + number);
    row->SetValue(second, ++number);
    EXPECT_EQ(row->Value(second), Variant(number)) << "seen before it is written";
    cursor->UpdateFeature(row);
  }
  cursor->Close();
  const GDALDatasetUniquePtr written(GDALDataset::Open(FileOf("towns").c_str(), GDAL_OF_VECTOR));
  number = 0;
  for (const auto& row : *written->GetLayer(0)) {
    EXPECT_EQ(row->GetFieldAsDouble("measure"), 0.5 + number);
    EXPECT_EQ(row->GetFieldAsInteger("count"), ++number);
    EXPECT_EQ(row->GetFieldAsDouble("size"), number) << "what wasn't set stays";
    EXPECT_EQ(row->GetGeometryRef() != nullptr, number < 4);
  }
  EXPECT_EQ(number, 4);
}

// A layer whose attributes bear the names of a row's roles, with a whole number of 64 bits.
void WriteRoles(const std::string& driver_name, const std::string& file) {
  GDALAllRegister();
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(driver_name.c_str());
  const GDALDatasetUniquePtr dataset(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  OGRLayer* layer = dataset->CreateLayer("roles", nullptr, wkbPoint, nullptr);
  OGRFieldDefn shape("Shape", OFTString), identifier("OBJECTID", OFTInteger), large("large", OFTInteger64);
  large.SetWidth(18);
  for (OGRFieldDefn* field : {&shape, &identifier, &large}) ASSERT_EQ(layer->CreateField(field), OGRERR_NONE);
  OGRFeature row(layer->GetLayerDefn());
  OGRPoint point(1, 2);
  row.SetGeometry(&point);
  row.SetField("Shape", "round");
  row.SetField("OBJECTID", 501);
  row.SetField("large", GIntBig{123456789012345678});
  ASSERT_EQ(layer->CreateFeature(&row), OGRERR_NONE);
}

TEST_P(HostContract, AttributesBearAnyNameAndKeepTheirValues) {
  WriteRoles(GetParam().driver, FileOf("roles"));
  host_->OpenLayer(FileOf("roles"), "roles", "");
  const auto roles = Class("roles");
  const auto row = roles->Search(nullptr, Recycling::No)->NextFeature();
  EXPECT_EQ(row->Value(roles->FindField("shape")).AsText(), "round");
  EXPECT_EQ(row->Value(roles->FindField("OBJECTID")).AsLong(), 501);
  EXPECT_EQ(Cast<Point>(row->Shape())->Y(), 2.0);
  EXPECT_EQ(roles->FindField(roles->ShapeFieldName()), 1);
  const std::int32_t large = roles->FindField("large");
  EXPECT_EQ(roles->Fields()->Field(large)->Type, esriFieldTypeInteger64);
  EXPECT_EQ(row->Value(large), Variant(std::int64_t{123456789012345678}));
  EXPECT_EQ(row->SetValue(large, std::int64_t{987654321987654321}), ValueChange::None);
  row->Store();
  EXPECT_EQ(Class("roles")->GetFeature(row->OID())->Value(large).AsLongLong(), 987654321987654321);
}

TEST_P(HostContract, ValuesThatDontFitAreTold) {
  OpenTowns();
  const auto towns = Class("towns");
  const std::int32_t name = towns->FindField("name"), size = towns->FindField("size");
  const auto row = towns->GetFeature(Oids(*towns, "a").front());
  EXPECT_EQ(row->SetValue(name, std::string(41, 'n')), ValueChange::TextCut);
  EXPECT_EQ(row->Value(name).AsText(), std::string(40, 'n'));
  EXPECT_EQ(row->SetValue(name, "K\xF6ln"), ValueChange::BadText);
  EXPECT_EQ(row->Value(name).AsText(), "K\xC3\xB6ln");
  for (const double number : {std::nan(""), HUGE_VAL}) {
    EXPECT_EQ(row->SetValue(size, number), ValueChange::NotFinite);
    EXPECT_TRUE(row->Value(size).IsNull());
  }
  EXPECT_EQ(row->SetValue(size, 12.5), ValueChange::None);
}

TEST_P(HostContract, RowsAreChangedInsertedAndDeleted) {
  OpenTowns();
  const auto towns = Class("towns");
  const std::int32_t name = towns->FindField("name"), size = towns->FindField("size");
  {
    QueryFilter filter;
    filter.WhereClause = "name = 'b'";
    const auto cursor = towns->Update(&filter, Recycling::Yes);
    const auto row = cursor->NextFeature();
    row->SetShape(std::make_shared<Point>(50, 60));
    cursor->UpdateFeature(row);
    EXPECT_EQ(cursor->NextFeature(), nullptr);
    cursor->Close();
  }
  const auto row = towns->GetFeature(Oids(*towns, "c").front());
  row->SetValue(size, "12.5");
  row->Store();
  EXPECT_EQ(row->SetValue(size, "twelve"), ValueChange::Unreadable);
  EXPECT_TRUE(row->Value(size).IsNull());
  EXPECT_EQ(FaultOf([&] { row->SetValue(0, 5); }), kInvalidCall) << "the identifier";
  EXPECT_EQ(FaultOf([&] { towns->Search(nullptr, Recycling::Yes)->UpdateRow(row); }), kInvalidCall)
      << "a reader writes nothing";
  {
    const auto cursor = towns->Insert(true);
    const auto buffer = towns->CreateFeatureBuffer();
    const auto point = std::make_shared<Point>(7, 8);
    buffer->SetShape(point);
    buffer->SetValue(name, "e");
    buffer->SetValue(size, Null{});
    point->SetX(7.5);  // the buffer keeps the reference
    cursor->InsertFeature(*buffer);
    cursor->Close();
  }
  EXPECT_EQ(towns->FeatureCount(nullptr), 5);
  const auto rows = ReadLayer(FileOf("towns"));
  ASSERT_EQ(rows.size(), 5U);
  EXPECT_EQ(rows[1].wkt, "POINT (50 60)");
  EXPECT_EQ(rows[1].size, 2.0);
  EXPECT_EQ(rows[2].size, 12.5);
  EXPECT_EQ(rows[4].wkt, "POINT (7.5 8)");
  EXPECT_EQ(rows[4].name, "e");
  towns->GetFeature(Oids(*towns, "e").front())->Delete();
  EXPECT_EQ(Names(*towns->Search(nullptr, Recycling::Yes), name), "a b c d ");
}

// Rows are read and written in batches of a few thousand.
TEST_P(HostContract, MoreRowsThanABatchHolds) {
  constexpr std::int32_t kCount = 6007;
  std::vector<TestRow> rows;
  for (std::int32_t row = 0; row < kCount; ++row) rows.push_back({"POINT (1 2)", "", static_cast<double>(row)});
  WriteLayer({GetParam().driver, FileOf("many"), "many", wkbPoint, rows});
  host_->OpenLayer(FileOf("many"), "many", "");
  const auto many = Class("many");
  const std::int32_t size = many->FindField("size");
  const auto add = [&](const std::shared_ptr<ICursor>& cursor, std::int32_t step, std::int32_t most) {
    std::int32_t count = 0;
    std::int64_t last = -1;
    while (const auto row = count < most ? cursor->NextRow() : nullptr) {
      EXPECT_GT(row->OID(), last);
      last = row->OID();
      row->SetValue(size, row->Value(size).AsDouble() + step);
      cursor->UpdateRow(row);
      ++count;
    }
    cursor->Close();
    return count;
  };
  EXPECT_EQ(add(many->Update(nullptr, Recycling::No), 10000, kCount), kCount);
  std::vector<std::int64_t> even;
  const auto reader = many->Search(nullptr, Recycling::Yes);
  while (const auto row = reader->NextFeature()) {
    if (std::fmod(row->Value(size).AsDouble(), 2.0) == 0.0) even.push_back(row->OID());
  }
  host_->SelectRows("many", even);
  const auto selection = Cast<ISelectionSet2>(Cast<IFeatureSelection>(Layer("many"))->SelectionSet());
  EXPECT_EQ(add(Cast<ICursor>(selection->Update(nullptr, Recycling::No)), 10000, kCount), kCount / 2 + 1);
  // Half done, it keeps what was written until then.
  constexpr std::int32_t kSome = 5500;
  EXPECT_EQ(add(many->Update(nullptr, Recycling::No), 100000, kSome), kSome);

  const std::vector<TestRow> written = ReadLayer(FileOf("many"));
  ASSERT_EQ(written.size(), static_cast<std::size_t>(kCount));
  for (std::int32_t row = 0; row < kCount; ++row) {
    const double expected = row + 10000 + (row % 2 == 0 ? 10000 : 0) + (row < kSome ? 100000 : 0);
    ASSERT_EQ(written[static_cast<std::size_t>(row)].size, expected) << row;
  }
}

}  // namespace tessarine::testing
