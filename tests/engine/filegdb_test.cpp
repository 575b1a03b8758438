// SPDX-License-Identifier: GPL-2.0-or-later
// File geodatabases stay whole through every kind of change: looked at byte by byte, and read back by GDAL.
#include <cpl_error.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "engine/filegdb_edit.h"
#include "engine/filegdb_table.h"
#include "engine/geodatabase_helpers.h"
#include "outputs/layer_copy.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using engine::CheckFileGeodatabase;
using engine::FindGdbTable;
using testing::ClassName;
using testing::ContentOf;
using testing::FaultOf;
using testing::FaultTextOf;
using testing::FindingsOf;
using testing::ReadLayer;
using testing::TemporaryFolder;
using testing::WriteGeodatabase;

FieldRef NewField(const std::string& name, esriFieldType type) {
  auto field = std::make_shared<Field>();
  field->Name = name;
  field->Type = type;
  if (type == esriFieldTypeString) field->Length = 200;
  return field;
}

std::vector<FieldRef> Doubles(int count) {
  std::vector<FieldRef> fields;
  for (int index = 0; index < count; ++index) {
    fields.push_back(NewField("measure_" + std::to_string(index), esriFieldTypeDouble));
  }
  return fields;
}

std::shared_ptr<IFeatureClass> OpenClass(const std::string& file, const std::string& name) {
  return DataSource::Open(file)->OpenFeatureClass(name);
}

void SetAll(IFeatureClass& features, const std::string& field, const Variant& value) {
  const std::int32_t index = features.FindField(field);
  const auto cursor = features.Update(nullptr, Recycling::No);
  while (const auto feature = cursor->NextFeature()) {
    feature->SetValue(index, value);
    cursor->UpdateFeature(feature);
  }
  cursor->Close();
}

class Geodatabases : public ::testing::TestWithParam<int> {
 protected:
  void SetUp() override {
    WriteGeodatabase(file_, GetParam(), kRows);
    ASSERT_EQ(FindingsOf(file_), "") << "as GDAL made it";
  }
  // After each change: whole, and all but the changed class as before.
  void ExpectWhole(const std::string& step) {
    EXPECT_EQ(FindingsOf(file_), "") << step;
    testing::Content now = ContentOf(file_);
    EXPECT_EQ(now.size(), before_.size()) << step;
    for (const auto& [name, rows] : before_) {
      if (name == changed_) continue;
      EXPECT_EQ(now[name], rows) << step << ": " << name;
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Native()), fs::directory_iterator()), 1)
        << step << ": nothing is left beside it";
  }

  // The first ones and the last.
  static std::vector<int> Changed() { return GetParam() == 2 ? std::vector{0, 1} : std::vector{0, 1, GetParam() - 1}; }

  static constexpr int kRows = 12;
  TemporaryFolder folder_;
  std::string file_ = folder_.Native("town.gdb");
  testing::Content before_;
  std::string changed_;
};

// Each class gets its fields in turn: the definitions in the catalogue grow again and again, and want each other's
// places.
TEST_P(Geodatabases, StayWholeWhereFieldsAreAdded) {
  before_ = ContentOf(file_);
  for (const int index : Changed()) {
    const auto features = OpenClass(file_, ClassName(index));
    features->AddFields(Doubles(17));
    EXPECT_EQ(features->Fields()->FieldCount(), 4 + 17);
    std::vector<std::string> added;
    for (const FieldRef& field : Doubles(17)) added.push_back(field->Name);
    changed_ = ClassName(index);
    ExpectWhole("fields of " + changed_);
    const auto rows = before_[changed_];
    EXPECT_EQ(ContentOf(file_, added)[changed_], rows) << "all that stood there before";
    before_ = ContentOf(file_);
    SetAll(*features, "measure_16", 1.25);
    ExpectWhole("values of " + changed_);
    EXPECT_EQ(ContentOf(file_, added)[changed_], rows) << "all but the new values";
    before_ = ContentOf(file_);
  }
}

TEST_P(Geodatabases, StayWholeWhereRowsGrowComeAndGo) {
  before_ = ContentOf(file_);
  for (const int index : Changed()) {
    changed_ = ClassName(index);
    const auto features = OpenClass(file_, changed_);
    for (const char* text :
         {"a text that is longer than the one before", "short", "and longer than ever before, by far"}) {
      SetAll(*features, "name", text);
      ExpectWhole(changed_ + " gets " + text);
    }
    features->GetFeature(3)->Delete();
    ExpectWhole(changed_ + " loses a row");
    const auto feature = features->GetFeature(5);
    feature->SetValue(features->FindField("name"), "stored by itself, and in a place that is free");
    feature->Store();
    ExpectWhole(changed_ + " stores a row");
    const auto cursor = features->Insert(true);
    const auto buffer = features->CreateFeatureBuffer();
    for (int row = 0; row < 3; ++row) {
      buffer->SetValue(features->FindField("name"), "new");
      cursor->InsertFeature(*buffer);
    }
    cursor->Close();
    ExpectWhole(changed_ + " gets rows");
    EXPECT_EQ(features->FeatureCount(nullptr), kRows - 1 + 3);
    before_ = ContentOf(file_);
  }
}

// Copies a class of the geodatabase under another name.
void CopyClass(const std::string& file, const std::string& name, const std::string& copy, bool replaces) {
  const LayerCopyRequest request{.source = OpenClass(file, name),
                                 .place = {FormatOfPath(file), file, "", copy},
                                 .only = std::nullopt,
                                 .selected = {},
                                 .replaces = replaces,
                                 .result_fields = {},
                                 .question = "",
                                 .reference = nullptr,
                                 .plan_only = false};
  Cast<IStagedDataset>(MakeLayerCopy(request).output)->Publish();
}

TEST_P(Geodatabases, StayWholeWhereClassesComeAndGo) {
  before_ = ContentOf(file_);
  CopyClass(file_, ClassName(0), "copied", false);
  before_["copied"] = before_[ClassName(0)];
  ExpectWhole("a copy");
  OpenClass(file_, ClassName(1))->Delete();
  before_.erase(ClassName(1));
  ExpectWhole("a class less");
  OpenClass(file_, "copied")->AddFields(Doubles(9));
  CopyClass(file_, ClassName(0), "copied", true);
  ExpectWhole("a copy over another");
  OpenClass(file_, "copied")->Delete();
  before_.erase("copied");
  ExpectWhole("the copy removed");
}

INSTANTIATE_TEST_SUITE_P(Sizes, Geodatabases, ::testing::Values(2, 5, 20),
                         [](const auto& size) { return "Of" + std::to_string(size.param); });

void ChangeByte(const std::string& path, std::streamoff at, char value) {
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(at, at < 0 ? std::ios::end : std::ios::beg);
  file.put(value);
}

TEST(GeodatabaseCheck, FindsWhatGdalBreaks) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("town.gdb");
  WriteGeodatabase(file, 2, 3);
  bool broken = false;
  for (int index = 0; index < 2; ++index) {
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    OGRLayer* layer = dataset->GetLayerByName(ClassName(index).c_str());
    const CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    for (int field = 0; field < 40; ++field) {
      OGRFieldDefn definition(("measure_" + std::to_string(field)).c_str(), OFTReal);
      ASSERT_EQ(layer->CreateField(&definition), OGRERR_NONE);
    }
    broken = broken || !CheckFileGeodatabase(file).empty();
  }
  // Later versions of GDAL may write it whole.
  const bool breaks = std::string_view(GDALVersionInfo("VERSION_NUM")).starts_with("306");
  EXPECT_TRUE(broken || !breaks);
}

// One byte is enough, wherever it is.
TEST(GeodatabaseCheck, FindsATornByte) {
  struct Damage {
    const char* what;
    const char* table;
    const char* ending;
    std::streamoff at;
    char value;
    const char* finding;
  };
  const Damage damages[] = {
      {"the number of rows", "class_0", ".gdbtable", 4, 77, "rows, there are 6"},
      {"the longest row", "GDB_Items", ".gdbtable", 9, 0, "the header tells of rows up to"},
      {"the size of the file", "class_0", ".gdbtable", 25, 99, "bytes, the file has"},
      {"an offset", "class_0", ".gdbtablx", 16 + 5, 1, "row 2"},
      {"the offset of an item", "GDB_Items", ".gdbtablx", 16, 1, "GDB_Items"},
      {"an index without a column", "class_0", ".gdbindexes", -4, 'Q', "isn't there"},
  };
  for (const Damage& damage : damages) {
    const TemporaryFolder folder;
    const std::string file = folder.Native("town.gdb");
    WriteGeodatabase(file, 2, 6);
    ASSERT_EQ(FindingsOf(file), "");
    ChangeByte(FindGdbTable(file, damage.table) + damage.ending, damage.at, damage.value);
    EXPECT_NE(FindingsOf(file).find(damage.finding), std::string::npos) << damage.what << ": " << FindingsOf(file);
  }
  const TemporaryFolder folder;
  const std::string file = folder.Native("town.gdb");
  WriteGeodatabase(file, 2, 6);
  fs::remove(FindGdbTable(file, "class_1") + ".gdbtablx");
  EXPECT_NE(FindingsOf(file).find("a file of 'class_1'"), std::string::npos);
}

// What shares bytes is told by its names, before and behind rows that lie well.
TEST(GeodatabaseCheck, NamesRowsThatOverlap) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("town.gdb");
  WriteGeodatabase(file, 2, 6);
  const engine::GdbTable table(FindGdbTable(file, "class_0"), FileAccess::Change);
  const engine::GdbRowPlaces& rows = table.Places();
  rows.Set(5, rows.Find(2));
  EXPECT_NE(FindingsOf(file).find("row 2 and row 5 overlap"), std::string::npos) << FindingsOf(file);
  EXPECT_EQ(FindingsOf(file).find("row 3 and"), std::string::npos) << FindingsOf(file);
}

TEST(GeodatabaseRows, AreTheSameOneByOneAndInAWalk) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("town.gdb");
  WriteGeodatabase(file, 2, 500);
  const engine::GdbTable table(FindGdbTable(file, ClassName(0)));
  ASSERT_TRUE(table.IsUsable());
  std::vector<std::int64_t> offsets;
  table.Places().ForEach([&](std::int64_t, std::int64_t offset) { offsets.push_back(offset); });
  ASSERT_EQ(offsets.size(), 500U);
  std::vector<std::int64_t> tried = offsets;
  tried.insert(tried.end(), offsets.rbegin(), offsets.rend());
  tried.insert(tried.end(), {0, table.File().Size(), table.File().Size() - 4, offsets.front()});
  engine::GdbRowScan rows(table);
  for (const std::int64_t offset : tried) {
    EXPECT_EQ(rows.RowSize(offset), table.RowSize(offset)) << offset;
    const std::optional<std::string> row = table.Row(offset);
    const std::optional<std::string_view> walked = rows.Row(offset);
    ASSERT_EQ(walked.has_value(), row.has_value()) << offset;
    EXPECT_EQ(walked.value_or(""), row.value_or("")) << offset;
  }
}

TEST(GeodatabaseEdit, IsSeenByOthersAtItsEnd) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("town.gdb");
  WriteGeodatabase(file, 3, 4);
  const testing::Content before = ContentOf(file);
  const auto untouched = [&] { return fs::hard_link_count(FindGdbTable(file, "class_2") + ".gdbtable"); };
  const auto features = OpenClass(file, "class_0");
  const auto edit = features->BeginEdit();
  features->AddFields(Doubles(1));
  SetAll(*features, "measure_0", 7.5);
  EXPECT_EQ(ContentOf(file), before) << "as it was, for others";
  EXPECT_EQ(features->GetFeature(1)->Value(features->FindField("measure_0")), Variant(7.5)) << "as it will be, for us";
  EXPECT_EQ(untouched(), 2U) << "what doesn't change is no copy";
  edit->Finish();
  EXPECT_NE(ContentOf(file)["class_0"][0].find("measure_0=7.5"), std::string::npos);
  EXPECT_EQ(untouched(), 1U) << "the old one is gone";
  EXPECT_EQ(FindingsOf(file), "");
}

TEST(GeodatabaseEdit, LeavesWhatAnotherProgramWrote) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("town.gdb");
  WriteGeodatabase(file, 2, 4);
  const auto features = OpenClass(file, "class_0");
  const auto edit = features->BeginEdit();
  features->AddFields(Doubles(1));
  {
    const GDALDatasetUniquePtr other(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    OGRLayer* layer = other->GetLayerByName("class_1");
    const OGRFeatureUniquePtr row(layer->GetFeature(2));
    row->SetField("size", 99.0);
    ASSERT_EQ(layer->SetFeature(row.get()), OGRERR_NONE);
  }
  const testing::Content theirs = ContentOf(file);
  EXPECT_NE(FaultTextOf([&] { edit->Finish(); }).find("changed by another program"), std::string::npos);
  EXPECT_EQ(ContentOf(file), theirs);
}

TEST(GeodatabaseEdit, HasOneWriterAtATime) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("town.gdb");
  WriteGeodatabase(file, 2, 4);
  const auto first = std::make_unique<engine::FileGdbWorkingCopy>(file);
  EXPECT_NE(FaultTextOf([&] { const engine::FileGdbWorkingCopy second(file); }).find("being changed by another run"),
            std::string::npos);
}

TEST(GeodatabaseIndexes, OutliveNewFieldsAndNewValues) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("town.gdb");
  WriteGeodatabase(file, 2, 30);
  {
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    OGRFieldDefn broad(
        "gr\xC3\xB6\xC3\x9F"
        "e",
        OFTReal);
    ASSERT_EQ(dataset->GetLayerByName("class_1")->CreateField(&broad), OGRERR_NONE);
    dataset->ExecuteSQL("CREATE INDEX by_size ON class_1(size)", nullptr, nullptr);
    dataset->ExecuteSQL("CREATE INDEX by_name ON class_1(name)", nullptr, nullptr);
    dataset->ExecuteSQL(
        "CREATE INDEX by_broad ON class_1(gr\xC3\xB6\xC3\x9F"
        "e)",
        nullptr, nullptr);
  }
  const std::string base = FindGdbTable(file, "class_1");
  const auto has_files = [&] {
    return fs::exists(base + ".by_size.atx") && fs::exists(base + ".by_name.atx") &&
           fs::exists(base + ".by_broad.atx") && fs::exists(base + ".spx");
  };
  ASSERT_TRUE(has_files());
  const auto features = OpenClass(file, "class_1");
  features->AddFields(Doubles(9));
  EXPECT_TRUE(has_files()) << "after new fields";
  EXPECT_EQ(FindingsOf(file), "");
  const auto count = [&](const std::string& where) {
    QueryFilter filter;
    filter.WhereClause = where;
    return features->FeatureCount(&filter);
  };
  EXPECT_EQ(count("size < 5"), 5);
  EXPECT_EQ(count("name = 'n7'"), 1);
  SetAll(*features, "size", 3.25);
  SetAll(*features,
         "gr\xC3\xB6\xC3\x9F"
         "e",
         4.5);
  EXPECT_TRUE(has_files()) << "after new values";
  EXPECT_EQ(count("size = 3.25"), 30);
  EXPECT_EQ(count("size < 3"), 0);
  EXPECT_EQ(count("gr\xC3\xB6\xC3\x9F"
                  "e = 4.5"),
            30);
  EXPECT_EQ(count("name = 'n7'"), 1);
  EXPECT_EQ(FindingsOf(file), "");
}

}  // namespace
}  // namespace tessarine
