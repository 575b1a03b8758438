// SPDX-License-Identifier: GPL-2.0-or-later
// What a personal geodatabase doesn't take, and what isn't known of one: told, and nothing else of it is lost.
#include <gdal_priv.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "engine/data_source.h"
#include "engine/ogr_source.h"
#include "engine/personal_geodatabase_catalog.h"
#include "engine/personal_geodatabase_edit.h"
#include "engine/promised_geodatabases.h"
#include "engine/test_layers.h"
#include "helpers/published.h"
#include "jet/check.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using testing::FaultTextOf;
using ::testing::HasSubstr;
using testing::Published;
using testing::TemporaryFolder;

const char* const kSample = TESSARINE_TEST_DATA "/personal_geodatabase.mdb";

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::string CopyOfSample(const TemporaryFolder& folder) {
  const std::string path = folder.Native("copy.mdb");
  fs::copy_file(kSample, path);
  fs::permissions(path, fs::perms::owner_write, fs::perm_options::add);
  return path;
}

// Changes the file behind the back of the suite.
void Tamper(const std::string& path, const std::function<void(jet::Database&)>& change) {
  jet::Database database(path, jet::Database::Mode::Write);
  change(database);
  database.Commit();
}
void TamperWithPages(const std::string& path, const std::function<void(jet::Database&)>& change) {
  jet::Database database(path, jet::Database::Mode::Write);
  change(database);
  database.File().Flush();
}

FieldRef NewField(const char* name, esriFieldType type, std::int32_t length = 0) {
  auto field = std::make_shared<Field>();
  field->Name = name;
  field->Type = type;
  field->Length = length;
  return field;
}

std::shared_ptr<IFeatureClass> MakeClass(const std::string& path, const std::string& name) {
  auto fields = std::make_shared<Fields>();
  const FieldRef shape = NewField("Shape", esriFieldTypeGeometry);
  shape->GeometryDef = std::make_shared<GeometryDef>();
  shape->GeometryDef->GeometryType = esriGeometryPoint;
  shape->GeometryDef->SpatialReference = SpatialReferenceEnvironment::CreateFromText("EPSG:4326");
  fields->AddField(shape);
  fields->AddField(NewField("words", esriFieldTypeString, 10));
  const KeptPromise promise = fs::exists(path) ? nullptr : PromiseFileGeodatabase(path);
  const auto workspace = CreateAccessWorkspaceFactory()->OpenFromFile(FromNativePath(path), 0);
  return Published(workspace->CreateFeatureClass(name, fields, nullptr, nullptr, esriFTSimple, "Shape", ""));
}

std::size_t CountRows(IFeatureClass& features) {
  std::size_t count = 0;
  const auto cursor = features.Search(nullptr, Recycling::Yes);
  while (cursor->NextFeature()) ++count;
  return count;
}

// A column of "Point" is of a type that came with later versions.
void MakeStrange(const std::string& path) {
  TamperWithPages(path, [](jet::Database& database) {
    const jet::TableDefinition definition = database.Open("Point").Definition();
    const std::size_t columns = 63 + definition.indexes.size() * 12;
    (*database.File().Edit(definition.page))[columns + 25] = 0x13;
  });
}

TEST(PersonalGeodatabaseSafety, ATableThatIsntUnderstoodCostsNoOther) {
  const TemporaryFolder folder;
  const std::string path = CopyOfSample(folder);
  MakeStrange(path);
  const auto source = DataSource::Open(path);
  int problems = 0;
  for (const LayerInfo& info : source->Infos()) {
    if (info.problem.empty()) {
      EXPECT_GT(info.count, 0) << info.name;
      continue;
    }
    ++problems;
    EXPECT_EQ(info.name, "Point");
    EXPECT_EQ(info.shape_type, esriGeometryPoint);
    EXPECT_THAT(info.problem, HasSubstr("type 19, which isn't known"));
  }
  EXPECT_EQ(problems, 1);
  EXPECT_EQ(source->LayerNames().size(), 16U);
  EXPECT_THAT(FaultTextOf([&] { (void)source->OpenFeatureClass("Point"); }),
              HasSubstr("'Point' in '" + path + "' can't be used: "));
  EXPECT_EQ(CountRows(*source->OpenFeatureClass("Polygon")), 2U);
}

TEST(PersonalGeodatabaseSafety, BesideATableThatIsntUnderstoodOthersAreWritten) {
  const TemporaryFolder folder;
  const std::string path = CopyOfSample(folder);
  MakeStrange(path);
  EXPECT_THAT(FaultTextOf([&] { (void)MakeClass(path, "point"); }), HasSubstr("exists already"));
  EXPECT_EQ(CountRows(*MakeClass(path, "fresh")), 0U);
  const auto polygons = DataSource::Open(path, FileAccess::Change)->OpenFeatureClass("Polygon");
  const FieldRef field = NewField("twice", esriFieldTypeDouble);
  polygons->AddFields({&field, 1});
  EXPECT_EQ(DataSource::Open(path)->LayerNames().size(), 17U);
  jet::Database database(path, jet::Database::Mode::Read);
  EXPECT_THAT(jet::CheckDatabase(database).findings, ::testing::ElementsAre(HasSubstr("'Point'")));
  // The rows of the strange table are where they were.
  jet::Database before(kSample, jet::Database::Mode::Read);
  for (const std::uint32_t page : before.Open("Point").Rows().Owned().Pages()) {
    EXPECT_EQ(*database.File().Read(page), *before.File().Read(page));
  }
}

// The library of others can't be asked for these; they are what the sample's own classes say.
TEST(PersonalGeodatabaseSafety, ExtentsTellHeightsAndMeasures) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("made.mdb");
  const char* const kSides[] = {"ExtentLeft", "ExtentBottom", "ExtentRight", "ExtentTop",
                                "ZLow",       "ZHigh",        "MLow",        "MHigh"};
  const auto sides = [&](const std::string& file) {
    std::map<std::string, std::vector<std::string>> all;
    jet::Database database(file, jet::Database::Mode::Read);
    const jet::Table& table = database.Open("GDB_GeomColumns");
    for (jet::Table::Scan scan(table); scan.Next();) {
      const engine::PersonalRow row(table, scan.Values());
      if (row.Text("TableName") == "GDB_Items") continue;
      for (const char* side : kSides) all[row.Text("TableName")].push_back(std::to_string(row.Real(side)));
    }
    return all;
  };
  const engine::DatasetHandle sample = engine::OpenDataset(kSample);
  auto edit = engine::PersonalEdit::Begin(path);
  {
    const engine::DatasetHandle made = engine::OpenDataset(path, FileAccess::Change);
    for (OGRLayer* layer : sample->GetLayers()) {
      OGRSpatialReference reference(*layer->GetSpatialRef());
      OGRLayer* copy = made->CreateLayer(layer->GetName(), &reference, layer->GetGeomType(), nullptr);
      ASSERT_NE(copy, nullptr);
      for (const auto& feature : layer) {
        OGRFeature row(copy->GetLayerDefn());
        row.SetGeometry(feature->GetGeometryRef());
        ASSERT_EQ(copy->CreateFeature(&row), OGRERR_NONE);
      }
    }
  }
  engine::PersonalEdit::End(edit);
  auto expected = sides(kSample);
  EXPECT_EQ(expected.size(), 16U);
  // It had a line there once that was deleted; extents only grow.
  EXPECT_EQ(expected.at("Polyline").at(1), "20.431208");
  expected.at("Polyline").at(1) = "30.729866";
  EXPECT_EQ(sides(path), expected);
}

struct WordsRow {
  const char* name;
  std::string given, kept;
  ValueChange change = ValueChange::None;
};

TEST(PersonalGeodatabaseSafety, TextsAreAsWideAsTheirUtf16Units) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("words.mdb");
  const auto features = MakeClass(path, "places");
  const std::string globe = "\xF0\x9F\x8C\x8D";
  const WordsRow kRows[] = {
      {"ten letters", "abcdefghij", "abcdefghij"},
      {"ten letters of two bytes", "äöüäöüäöüß", "äöüäöüäöüß"},
      {"ten letters of three bytes", "東京東京東京東京東京", "東京東京東京東京東京"},
      {"eleven letters", "äöüäöüäöüßx", "äöüäöüäöüß", ValueChange::TextCut},
      {"five globes", globe + globe + globe + globe + globe, globe + globe + globe + globe + globe},
      {"six globes", globe + globe + globe + globe + globe + globe, globe + globe + globe + globe + globe,
       ValueChange::TextCut},
      {"a globe across the end", "abcdefghi" + globe, "abcdefghi", ValueChange::TextCut},
      {"a mark of byte order",
       "\xEF\xBB\xBF"
       "abc",
       "abc", ValueChange::MarkDropped},
  };
  const std::int32_t words = features->FindField("words");
  {
    const auto cursor = features->Insert(true);
    for (const WordsRow& row : kRows) {
      const auto buffer = features->CreateFeatureBuffer();
      EXPECT_EQ(buffer->SetValue(words, row.given), row.change) << row.name;
      cursor->InsertFeature(*buffer);
    }
    cursor->Flush();
  }
  const auto cursor = features->Search(nullptr, Recycling::Yes);
  for (const WordsRow& row : kRows) EXPECT_EQ(cursor->NextFeature()->Value(words), Variant(row.kept)) << row.name;
}

TEST(PersonalGeodatabaseSafety, WhatCantBeReadIsToldInItsOwnWords) {
  const TemporaryFolder folder;
  const std::string path = CopyOfSample(folder);
  {
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(0x3E);
    file.put('\x11');
  }
  EXPECT_EQ(
      FaultTextOf([&] { (void)DataSource::Open(path); }),
      "The personal geodatabase can't be read: '" + path +
          "' is encrypted. Save it by the program that made it as .mdb of the years from 2000 on, unencrypted, or "
          "in another format.");
}

struct NumberRow {
  const char* name;
  const char* field;
  Variant given, kept;
  ValueChange change;
};

// A number without room costs its record nothing.
TEST(PersonalGeodatabaseSafety, NumbersThatDontFitAreNull) {
  const TemporaryFolder folder;
  const std::string path = CopyOfSample(folder);
  Tamper(path, [](jet::Database& database) {
    database.AddColumn("Polygon", {"tiny", jet::ColumnType::Byte});
    database.AddColumn("Polygon", {"price", jet::ColumnType::Money});
  });
  const NumberRow kRows[] = {
      {"most of a byte", "tiny", 255, std::int16_t{255}, ValueChange::None},
      {"more than a byte", "tiny", 256, Null(), ValueChange::OutOfRange},
      {"less than a byte", "tiny", -1, Null(), ValueChange::OutOfRange},
      {"money", "price", -12345.6789, -12345.6789, ValueChange::None},
      {"a tenth of a ten-thousandth", "price", 1.23456, 1.2346, ValueChange::Rounded},
      {"too much money", "price", 1e18, Null(), ValueChange::OutOfRange},
  };
  for (const NumberRow& row : kRows) {
    const auto features = DataSource::Open(path, FileAccess::Change)->OpenFeatureClass("Polygon");
    const std::int32_t field = features->FindField(row.field);
    {
      const auto cursor = features->Update(nullptr, Recycling::No);
      const auto feature = cursor->NextFeature();
      EXPECT_EQ(feature->SetValue(field, row.given), row.change) << row.name;
      cursor->UpdateFeature(feature);
      cursor->Flush();
    }
    EXPECT_EQ(features->Search(nullptr, Recycling::Yes)->NextFeature()->Value(field), row.kept) << row.name;
  }
}

TEST(PersonalGeodatabaseSafety, AFileThatMayNotBeWrittenIsRefused) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("kept.mdb");
  fs::copy_file(kSample, path);
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
  fs::permissions(folder.Native(), fs::perms::all);
  // The superuser may write everything.
  const bool all_powerful = geteuid() == 0;
  if (all_powerful) {
    ASSERT_EQ(seteuid(65534), 0);
  }
  const std::string told = FaultTextOf([&] { engine::RequireWritableGeodatabase(path, engine::PersonalUse::Rows); });
  if (all_powerful) {
    ASSERT_EQ(seteuid(0), 0);
  }
  EXPECT_EQ(told, "'" + path + "' can't be written to: check its permissions.");
}

struct RefusedRow {
  const char* name;
  std::function<void(const std::string& path)> prepare;
  const char* told;
};

// Before anything is written, and with nothing left beside the file.
TEST(PersonalGeodatabaseSafety, WhatIsntSafeIsRefused) {
  const auto rename = [](const char* table, const char* name) {
    return [=](const std::string& path) {
      Tamper(path, [&](jet::Database& database) {
        jet::Table& objects = database.Open("MSysObjects");
        const std::size_t column = objects.ColumnPlace("Name");
        std::optional<jet::RowId> found;
        for (jet::Table::Scan scan(objects); scan.Next();) {
          if (scan.Values()[column] == jet::Value(std::string(table))) found = scan.Id();
        }
        objects.Update(found.value(), {{column, std::string(name)}});
      });
    };
  };
  const auto break_index = [](const std::string& path) {
    TamperWithPages(path, [](jet::Database& database) {
      const jet::TableDefinition definition = database.Open("GDB_GeomColumns").Definition();
      (*database.File().Edit(definition.indexes[0].root))[480 + 4] ^= 1U;
    });
  };
  const RefusedRow kRows[] = {
      {"version 9", rename("GDB_Items", "GDB_ObjectClasses"), "it is no geodatabase of version 10"},
      {"index", break_index, "of the table 'GDB_GeomColumns' isn't as it would be made here"},
      {"no map of free pages",
       [](const std::string& path) {
         TamperWithPages(path, [](jet::Database& database) { (*database.File().Edit(1))[0] = 7; });
       },
       "a page of rows was expected"},
  };
  for (const RefusedRow& row : kRows) {
    const TemporaryFolder folder;
    const std::string path = CopyOfSample(folder);
    row.prepare(path);
    const std::string before = BytesOf(path);
    const std::string told = FaultTextOf([&] { (void)MakeClass(path, "fresh"); });
    EXPECT_THAT(told, HasSubstr(row.told)) << row.name;
    EXPECT_THAT(told, HasSubstr("'" + path + "'")) << row.name;
    EXPECT_EQ(BytesOf(path), before) << row.name;
    int files = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(folder.Native())) ++files;
    EXPECT_EQ(files, 1) << row.name;
  }
}

// Rows of such geodatabases can be edited all the same.
TEST(PersonalGeodatabaseSafety, AGeodatabaseOfVersion9IsReadAndItsRowsAreWritten) {
  const TemporaryFolder folder;
  const std::string path = CopyOfSample(folder);
  Tamper(path, [](jet::Database& database) {
    database.DropTable("GDB_Items");
    database.DropTable("GDB_ItemRelationships");
  });
  const auto polygons = DataSource::Open(path, FileAccess::Change)->OpenFeatureClass("Polygon");
  const FieldRef field = NewField("twice", esriFieldTypeDouble);
  polygons->AddFields({&field, 1});
  {
    const auto cursor = polygons->Update(nullptr, Recycling::No);
    while (const auto row = cursor->NextFeature()) {
      row->SetValue(polygons->FindField("twice"), 2.5);
      cursor->UpdateFeature(row);
    }
    cursor->Flush();
  }
  const auto row = DataSource::Open(path)->OpenFeatureClass("Polygon")->Search(nullptr, Recycling::Yes)->NextFeature();
  EXPECT_EQ(row->Value(polygons->FindField("twice")), Variant(2.5));
  jet::Database database(path, jet::Database::Mode::Read);
  EXPECT_THAT(jet::CheckDatabase(database).findings, ::testing::IsEmpty());
}

}  // namespace
}  // namespace tessarine
