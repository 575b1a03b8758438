// SPDX-License-Identifier: GPL-2.0-or-later
// Rows of personal geodatabases: a bad value costs itself, a bad row costs itself, and what is the user's stays so.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cmath>
#include <functional>

#include "engine/engine_fault.h"
#include "engine/ogr_source.h"
#include "engine/personal_geodatabase_catalog.h"
#include "engine/personal_geodatabase_edit.h"
#include "engine/personal_geodatabase_values.h"
#include "engine/reading_warnings.h"
#include "engine/test_layers.h"
#include "helpers/temporary_folder.h"
#include "jet/check.h"
#include "outputs/formats.h"

namespace tessarine {
namespace {

using ::testing::HasSubstr;
using testing::TemporaryFolder;

void Edit(const std::string& path, const std::function<void(GDALDataset&)>& work) {
  auto edit = engine::PersonalEdit::Begin(path);
  {
    const engine::DatasetHandle dataset = engine::OpenDataset(path, FileAccess::Change);
    work(*dataset);
  }
  engine::PersonalEdit::End(edit);
}

struct FieldRow {
  std::string name;
  OGRFieldType type = OFTString;
  int width = 0;
  std::string alias = {};
};

std::unique_ptr<OGRFieldDefn> FieldOf(const FieldRow& row) {
  auto field = std::make_unique<OGRFieldDefn>(row.name.c_str(), row.type);
  field->SetWidth(row.width);
  field->SetAlternativeName(row.alias.c_str());
  return field;
}

OGRLayer* MakeLayer(GDALDataset& dataset, OGRwkbGeometryType type, const std::vector<FieldRow>& fields,
                    const char* reference = "EPSG:4326") {
  OGRSpatialReference own;
  EXPECT_EQ(own.SetFromUserInput(reference), OGRERR_NONE);
  OGRLayer* layer = dataset.CreateLayer("made", &own, type, nullptr);
  EXPECT_NE(layer, nullptr) << CPLGetLastErrorMsg();
  std::vector<std::unique_ptr<OGRFieldDefn>> made;
  std::vector<OGRFieldDefn*> wanted;
  for (const FieldRow& row : fields) wanted.push_back(made.emplace_back(FieldOf(row)).get());
  engine::ShareOutRow(wanted);
  for (OGRFieldDefn* field : wanted) EXPECT_EQ(layer->CreateField(field), OGRERR_NONE) << CPLGetLastErrorMsg();
  return layer;
}

OGRFeatureUniquePtr NewFeature(OGRLayer& layer, const std::string& wkt) {
  OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer.GetLayerDefn()));
  OGRGeometry* shape = nullptr;
  EXPECT_EQ(OGRGeometryFactory::createFromWkt(wkt.c_str(), nullptr, &shape), OGRERR_NONE) << wkt;
  feature->SetGeometryDirectly(shape);
  return feature;
}

std::size_t RowsOf(const std::string& path, const std::string& table) {
  jet::Database database(path, jet::Database::Mode::Read);
  EXPECT_THAT(jet::CheckDatabase(database).findings, ::testing::IsEmpty());
  return database.Open(table).RowCount();
}

// Only the class's description tells which columns follow the shape.
TEST(PersonalGeodatabaseRows, LengthsOfTheUserStay) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("own.mdb");
  const auto add_row = [](OGRLayer& layer) {
    const OGRFeatureUniquePtr feature = NewFeature(layer, "LINESTRING (0 0,3 4)");
    feature->SetField("SHAPE_Length", 1113.5);
    feature->SetField("Other", 7.0);
    ASSERT_EQ(layer.CreateFeature(feature.get()), OGRERR_NONE) << CPLGetLastErrorMsg();
  };
  Edit(path, [&](GDALDataset& dataset) {
    add_row(*MakeLayer(dataset, wkbMultiLineString, {{"SHAPE_Length", OFTReal}, {"Other", OFTReal}}));
  });
  {
    jet::Database database(path, jet::Database::Mode::Write);
    jet::Table& items = database.Open("GDB_Items");
    const std::size_t column = items.ColumnPlace("Definition");
    for (jet::Table::Scan scan(items); scan.Next();) {
      std::string text = items.ReadMemo(scan.Values()[column]);
      const std::string empty = "<LengthFieldName></LengthFieldName>";
      if (const std::size_t at = text.find(empty); at != std::string::npos) {
        items.Update(scan.Id(), {{column, text.replace(at, empty.size(), "<LengthFieldName>Other</LengthFieldName>")}});
        break;
      }
    }
    database.Commit();
  }
  Edit(path, [&](GDALDataset& dataset) { add_row(*dataset.GetLayer(0)); });
  const engine::DatasetHandle dataset = engine::OpenDataset(path);
  std::vector<std::pair<double, double>> rows;
  for (const auto& feature : dataset->GetLayer(0)) {
    rows.emplace_back(feature->GetFieldAsDouble("SHAPE_Length"), feature->GetFieldAsDouble("Other"));
  }
  EXPECT_EQ(rows, (std::vector<std::pair<double, double>>{{1113.5, 7.0}, {1113.5, 5.0}}));
}

TEST(PersonalGeodatabaseRows, WideTextsShareTheRow) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("wide.mdb");
  std::vector<FieldRow> fields = {{"narrow", OFTString, 20}};
  for (int index = 0; index < 6; ++index) fields.push_back({"text" + std::to_string(index), OFTString, 254});
  for (int index = 0; index < 200; ++index) fields.push_back({"real" + std::to_string(index), OFTReal});
  const std::string full(254, 'x');
  Edit(path, [&](GDALDataset& dataset) {
    OGRLayer* layer = MakeLayer(dataset, wkbPoint, fields);
    const OGRFeatureUniquePtr feature = NewFeature(*layer, "POINT (1 2)");
    for (int index = 0; index < layer->GetLayerDefn()->GetFieldCount(); ++index) {
      if (index > 6) feature->SetField(index, 1.5);
      if (index > 0 && index < 7) feature->SetField(index, full.c_str());
    }
    ASSERT_EQ(layer->CreateFeature(feature.get()), OGRERR_NONE) << CPLGetLastErrorMsg();
  });
  const engine::DatasetHandle dataset = engine::OpenDataset(path);
  const OGRFeatureUniquePtr feature(dataset->GetLayer(0)->GetNextFeature());
  ASSERT_NE(feature, nullptr);
  EXPECT_EQ(feature->GetFieldDefnRef(0)->GetWidth(), 20);
  for (int index = 1; index < 7; ++index) EXPECT_EQ(feature->GetFieldAsString(index), full) << index;
}

// Nothing of it is in the file: no cell of the grid, no extent.
TEST(PersonalGeodatabaseRows, ARefusedRowCostsItself) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("refused.mdb");
  Edit(path, [](GDALDataset& dataset) {
    OGRLayer* layer = MakeLayer(dataset, wkbPoint, {{"words", OFTString, 5}, {"notes", OFTString}});
    for (const char* words : {"short", "much too long", "last"}) {
      const std::string wkt = std::string(words).size() > 5 ? "POINT (100 50)" : "POINT (1 2)";
      const OGRFeatureUniquePtr feature = NewFeature(*layer, wkt);
      feature->SetField("words", words);
      feature->SetField("notes", std::string(3000, 'n').c_str());
      const engine::GdalErrorScope errors;
      const bool written = layer->CreateFeature(feature.get()) == OGRERR_NONE;
      EXPECT_EQ(written, std::string(words).size() <= 5) << words;
      EXPECT_EQ(errors.RowRefused(), !written) << errors.Text();
    }
  });
  EXPECT_EQ(RowsOf(path, "made"), 2U);
  EXPECT_EQ(RowsOf(path, "made_SHAPE_Index"), 2U);
  OGREnvelope box;
  const engine::DatasetHandle dataset = engine::OpenDataset(path);
  ASSERT_EQ(dataset->GetLayer(0)->GetExtent(&box), OGRERR_NONE);
  EXPECT_EQ(box.MaxX, 1.0);
}

TEST(PersonalGeodatabaseRows, ADamagedMemoCostsItsValueAlone) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("memo.mdb");
  Edit(path, [](GDALDataset& dataset) {
    OGRLayer* layer = MakeLayer(dataset, wkbPoint, {{"notes", OFTString}});
    for (int number = 1; number <= 3; ++number) {
      const OGRFeatureUniquePtr feature = NewFeature(*layer, "POINT (1 2)");
      feature->SetField("notes", std::string(600, static_cast<char>('a' + number)).c_str());
      ASSERT_EQ(layer->CreateFeature(feature.get()), OGRERR_NONE) << CPLGetLastErrorMsg();
    }
  });
  {
    jet::Database database(path, jet::Database::Mode::Write);
    const jet::Table& table = database.Open("made");
    for (jet::Table::Scan scan(table); scan.Next();) {
      const jet::RowValues values = scan.Values();
      if (std::get<std::int32_t>(values[table.ColumnPlace("OBJECTID")]) != 2) continue;
      const auto notes = std::get<jet::LongReference>(values[table.ColumnPlace("notes")]);
      const jet::RowId place = jet::LongValueParts(database.File(), notes).front();
      // The mark of a deleted row.
      (*database.File().Edit(place.page))[14 + 2U * place.slot + 1] |= 0x80U;
    }
    database.File().Flush();
  }
  const engine::DatasetHandle dataset = engine::OpenDataset(path);
  const engine::ReadingScope errors;
  std::vector<std::string> notes;
  for (const auto& feature : dataset->GetLayer(0)) {
    notes.push_back(feature->IsFieldNull(feature->GetFieldIndex("notes")) ? "null"
                                                                          : feature->GetFieldAsString("notes"));
  }
  EXPECT_EQ(notes, (std::vector<std::string>{std::string(600, 'b'), "null", std::string(600, 'd')}));
  ASSERT_EQ(errors.Warnings().size(), 1U);
  EXPECT_THAT(errors.Warnings()[0], HasSubstr("'notes' of record 2"));
}

TEST(PersonalGeodatabaseRows, ReferencesAliasesAndMissingMeasuresComeBack) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("rest.mdb");
  const char* const pole = "+proj=ob_tran +o_proj=longlat +o_lon_p=0 +o_lat_p=39.25 +lon_0=18 +R=6371229 +no_defs";
  Edit(path, [&](GDALDataset& dataset) {
    OGRLayer* layer = MakeLayer(dataset, wkbMultiLineStringM, {{"people", OFTInteger, 0, "People < 2020"}}, pole);
    const OGRFeatureUniquePtr feature = NewFeature(*layer, "LINESTRING M (0 0 1,1 1 2)");
    feature->GetGeometryRef()->toLineString()->setM(1, std::nan(""));
    ASSERT_EQ(layer->CreateFeature(feature.get()), OGRERR_NONE) << CPLGetLastErrorMsg();
    for (const char* name : {"a.b", "a!b", " a", "a[b"}) {
      const engine::GdalErrorScope quiet;
      OGRFieldDefn field(name, OFTInteger);
      EXPECT_NE(layer->CreateField(&field), OGRERR_NONE) << name;
    }
  });
  const engine::DatasetHandle dataset = engine::OpenDataset(path);
  OGRLayer* layer = dataset->GetLayer(0);
  EXPECT_STREQ(layer->GetLayerDefn()->GetFieldDefn(0)->GetAlternativeNameRef(), "People < 2020");
  OGRSpatialReference meant;
  ASSERT_EQ(meant.SetFromUserInput(pole), OGRERR_NONE);
  ASSERT_NE(layer->GetSpatialRef(), nullptr);
  EXPECT_TRUE(layer->GetSpatialRef()->IsSame(&meant));
  const OGRFeatureUniquePtr feature(layer->GetNextFeature());
  const OGRLineString* line = feature->GetGeometryRef()->toMultiLineString()->getGeometryRef(0);
  EXPECT_EQ(line->getM(0), 1.0);
  EXPECT_TRUE(std::isnan(line->getM(1)));
}

// Other programs hide tables that are called like those of the database itself.
TEST(PersonalGeodatabaseRows, ClassesArentCalledLikeTheDatabasesOwnTables) {
  const NameRule& rule = FormatOfPath("a.mdb")->class_names;
  for (const char* name : {"MSysRoads", "usys", "GDB_Items"}) EXPECT_EQ(LegalName(rule, name), std::string("_") + name);
  EXPECT_EQ(LegalName(rule, "Systems"), "Systems");
}

}  // namespace
}  // namespace tessarine
