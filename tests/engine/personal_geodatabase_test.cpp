// SPDX-License-Identifier: GPL-2.0-or-later
// Personal geodatabases: read as the library's own driver reads them over another reader, and written so that it can.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>

#include "engine/data_source.h"
#include "engine/ogr_source.h"
#include "engine/personal_geodatabase_edit.h"
#include "engine/test_layers.h"
#include "helpers/temporary_folder.h"
#include "jet/check.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using testing::TemporaryFolder;

const char* const kSample = TESSARINE_TEST_DATA "/personal_geodatabase.mdb";

// The library's driver, over the drivers of others.
engine::DatasetHandle OpenByOthers(const std::string& path) {
  engine::RegisterDrivers();
  CPLSetConfigOption("PGEO_DRIVER_TEMPLATE", "DRIVER=libmdbodbc.so;DBQ=%s");
  const char* const drivers[] = {"PGeo", nullptr};
  return engine::DatasetHandle(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR, drivers));
}

std::string WktOf(const OGRGeometry* shape) {
  OGRWktOptions options;
  options.variant = wkbVariantIso;
  return shape == nullptr ? "null" : shape->exportToWkt(options);
}

std::unique_ptr<OGRGeometry> ShapeOf(const std::string& wkt) {
  OGRGeometry* shape = nullptr;
  EXPECT_EQ(OGRGeometryFactory::createFromWkt(wkt.c_str(), nullptr, &shape), OGRERR_NONE) << wkt;
  return std::unique_ptr<OGRGeometry>(shape);
}

// Rows by identifier: shape, then the fields by name in capitals.
using Row = std::map<std::string, std::string>;
std::map<GIntBig, Row> RowsOf(OGRLayer& layer) {
  std::map<GIntBig, Row> rows;
  for (const auto& feature : layer) {
    Row& row = rows[feature->GetFID()];
    row["(shape)"] = WktOf(feature->GetGeometryRef());
    for (int index = 0; index < feature->GetFieldCount(); ++index) {
      const std::string name = feature->GetFieldDefnRef(index)->GetNameRef();
      if (name == layer.GetFIDColumn()) continue;
      row[name] = feature->IsFieldSetAndNotNull(index) != 0 ? feature->GetFieldAsString(index) : "(null)";
    }
  }
  return rows;
}

// The library gives the number that the format has for none.
std::map<GIntBig, Row> WithoutMissingMeasures(std::map<GIntBig, Row> rows) {
  const std::string none = "-1.79769313486232E+308";
  for (auto& [fid, row] : rows) {
    std::string& shape = row.at("(shape)");
    for (std::size_t at = 0; (at = shape.find(none)) != std::string::npos;) shape.replace(at, none.size(), "nan");
  }
  return rows;
}

void ExpectSound(const std::string& path) {
  jet::Database database(path, jet::Database::Mode::Read);
  EXPECT_THAT(jet::CheckDatabase(database).findings, ::testing::IsEmpty());
}

TEST(PersonalGeodatabase, ClassesOfOthersAreReadAsTheLibraryReadsThem) {
  const engine::DatasetHandle theirs = OpenByOthers(kSample);
  ASSERT_NE(theirs, nullptr) << "mdbtools and odbc-mdbtools are needed";
  const engine::DatasetHandle ours = engine::OpenDataset(kSample);
  ASSERT_EQ(ours->GetLayerCount(), 16);
  int rows = 0;
  for (OGRLayer* layer : ours->GetLayers()) {
    OGRLayer* other = theirs->GetLayerByName(layer->GetName());
    ASSERT_NE(other, nullptr) << layer->GetName();
    const auto own_rows = RowsOf(*layer);
    // Of these the library takes the measures from beyond the bytes.
    if (std::string_view(layer->GetName()) == "MultiPointZM") {
      EXPECT_EQ(own_rows.at(2).at("(shape)"),
                "MULTIPOINT ZM ((27.573825503 -18.770134228 0 1),"
                "(41.5268456380001 -19.434563758 10 nan))");
    } else {
      EXPECT_EQ(own_rows, WithoutMissingMeasures(RowsOf(*other))) << layer->GetName();
    }
    EXPECT_EQ(layer->GetFeatureCount(), other->GetFeatureCount());
    EXPECT_TRUE(layer->GetSpatialRef()->IsSame(other->GetSpatialRef())) << layer->GetName();
    OGREnvelope box, other_box;
    EXPECT_EQ(layer->GetExtent(&box), OGRERR_NONE);
    EXPECT_EQ(other->GetExtent(&other_box), OGRERR_NONE);
    // Theirs went through 15 digits of text.
    EXPECT_NEAR(box.MinX, other_box.MinX, 1e-9) << layer->GetName();
    EXPECT_NEAR(box.MaxY, other_box.MaxY, 1e-9) << layer->GetName();
    rows += static_cast<int>(own_rows.size());
  }
  EXPECT_EQ(rows, 42);
}

// Their index of shapes is what we would write.
TEST(PersonalGeodatabase, TheGridOfShapesIsThatOfOthers) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("copy.mdb");
  fs::copy_file(kSample, path);
  fs::permissions(path, fs::perms::owner_write, fs::perm_options::add);
  const auto cells = [&] {
    std::map<std::string, std::map<std::int32_t, jet::RowValues>> all;
    jet::Database database(path, jet::Database::Mode::Read);
    for (const char* name : {"Polygon", "PolylineZM", "Point", "MultiPointM"}) {
      jet::Table& table = database.Open(std::string(name) + "_SHAPE_Index");
      for (jet::Table::Scan scan(table); scan.Next();) {
        all[name][std::get<std::int32_t>(scan.Values()[0])] = scan.Values();
      }
    }
    return all;
  };
  const auto before = cells();
  for (const char* name : {"Polygon", "PolylineZM", "Point", "MultiPointM"}) {
    auto edit = engine::PersonalEdit::Begin(path);
    engine::DatasetHandle dataset = engine::OpenDataset(path, FileAccess::Change);
    OGRLayer* layer = dataset->GetLayerByName(name);
    std::vector<OGRFeatureUniquePtr> features;
    for (auto& feature : layer) features.push_back(std::move(feature));
    for (const auto& feature : features) {
      const OGRFeatureUniquePtr moved(feature->Clone());
      OGRGeometry* shape = moved->GetGeometryRef();
      shape->swapXY();
      ASSERT_EQ(layer->SetFeature(moved.get()), OGRERR_NONE) << CPLGetLastErrorMsg();
      ASSERT_EQ(layer->SetFeature(feature.get()), OGRERR_NONE) << CPLGetLastErrorMsg();
    }
    dataset.reset();
    engine::PersonalEdit::End(edit);
  }
  EXPECT_EQ(cells(), before);
  ExpectSound(path);
  const engine::DatasetHandle sample = engine::OpenDataset(kSample);
  const engine::DatasetHandle changed = engine::OpenDataset(path);
  for (OGRLayer* layer : sample->GetLayers()) {
    EXPECT_EQ(RowsOf(*layer), RowsOf(*changed->GetLayerByName(layer->GetName()))) << layer->GetName();
  }
}

// Works on a class in an edit of its own.
template <class Work>
void Edit(const std::string& path, const std::string& name, Work&& work) {
  auto edit = engine::PersonalEdit::Begin(path);
  {
    const engine::DatasetHandle dataset = engine::OpenDataset(path, FileAccess::Change);
    OGRLayer* layer = dataset->GetLayerByName(name.c_str());
    ASSERT_NE(layer, nullptr) << name;
    work(*layer);
  }
  engine::PersonalEdit::End(edit);
}

void MakeLayer(const std::string& path, const std::string& name, OGRwkbGeometryType type) {
  auto edit = engine::PersonalEdit::Begin(path);
  {
    const engine::DatasetHandle dataset = engine::OpenDataset(path, FileAccess::Change);
    OGRSpatialReference reference;
    reference.importFromEPSG(4326);
    OGRLayer* layer = dataset->CreateLayer(name.c_str(), &reference, type, nullptr);
    ASSERT_NE(layer, nullptr) << CPLGetLastErrorMsg();
    struct FieldRow {
      const char* name;
      OGRFieldType type;
      OGRFieldSubType sub_type;
      int width;
    };
    const FieldRow rows[] = {
        {"small", OFTInteger, OFSTInt16, 0}, {"whole", OFTInteger, OFSTNone, 0}, {"wide", OFTInteger64, OFSTNone, 0},
        {"single", OFTReal, OFSTFloat32, 0}, {"real", OFTReal, OFSTNone, 0},     {"day", OFTDateTime, OFSTNone, 0},
        {"words", OFTString, OFSTNone, 60},  {"notes", OFTString, OFSTNone, 0},  {"bytes", OFTBinary, OFSTNone, 0}};
    for (const FieldRow& row : rows) {
      OGRFieldDefn field(row.name, row.type);
      field.SetSubType(row.sub_type);
      field.SetWidth(row.width);
      ASSERT_EQ(layer->CreateField(&field), OGRERR_NONE) << CPLGetLastErrorMsg();
    }
  }
  engine::PersonalEdit::End(edit);
}

OGRFeatureUniquePtr NewFeature(OGRLayer& layer, const std::string& wkt, int number) {
  OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer.GetLayerDefn()));
  feature->SetGeometryDirectly(ShapeOf(wkt).release());
  feature->SetField("small", number % 30000);
  feature->SetField("whole", number * 7);
  feature->SetField("single", number * 0.5 + 0.25);
  feature->SetField("real", number / 3.0);
  const std::string words = "Zürich 東京 " + std::to_string(number);
  feature->SetField("words", words.c_str());
  const std::string notes(static_cast<std::size_t>(number % 200), 'n');
  feature->SetField("notes", notes.c_str());
  const int day = feature->GetFieldIndex("day");
  feature->SetField(day, 1850 + number % 200, 1 + number % 12, 1 + number % 28, number % 24, number % 60, 30.0F, 0);
  return feature;
}

TEST(PersonalGeodatabase, WhatIsMadeIsReadByOthers) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("made.mdb");
  const std::map<std::string, std::pair<OGRwkbGeometryType, std::string>> classes = {
      {"points", {wkbPoint, "POINT (7.25 -12.5)"}},
      {"heights", {wkbPoint25D, "POINT Z (7.25 -12.5 100)"}},
      {"many", {wkbMultiPoint, "MULTIPOINT ((1 2),(3 4))"}},
      {"lines", {wkbMultiLineString, "MULTILINESTRING ((0 0,1 1,2 0),(5 5,6 6))"}},
      {"measured", {wkbMultiLineStringM, "MULTILINESTRING M ((0 0 1,1 1 2,2 0 3))"}},
      {"areas", {wkbMultiPolygon, "MULTIPOLYGON (((0 0,0 9,9 9,9 0,0 0),(1 1,2 1,2 2,1 1)),((20 0,20 1,21 1,20 0)))"}},
  };
  for (const auto& [name, kind] : classes) {
    MakeLayer(path, name, kind.first);
    Edit(path, name, [&](OGRLayer& layer) {
      for (int number = 1; number <= 300; ++number) {
        const OGRFeatureUniquePtr feature = NewFeature(layer, kind.second, number);
        if (number % 50 == 0) feature->SetGeometryDirectly(nullptr);
        if (number % 50 == 1) feature->SetFieldNull(feature->GetFieldIndex("words"));
        ASSERT_EQ(layer.CreateFeature(feature.get()), OGRERR_NONE) << CPLGetLastErrorMsg();
        EXPECT_EQ(feature->GetFID(), number);
      }
    });
  }
  ExpectSound(path);
  const engine::DatasetHandle ours = engine::OpenDataset(path);
  const engine::DatasetHandle theirs = OpenByOthers(path);
  ASSERT_NE(theirs, nullptr);
  EXPECT_EQ(ours->GetLayerCount(), static_cast<int>(classes.size()));
  for (const auto& [name, kind] : classes) {
    auto own = RowsOf(*ours->GetLayerByName(name.c_str())), other = RowsOf(*theirs->GetLayerByName(name.c_str()));
    ASSERT_EQ(own.size(), 300U);
    EXPECT_EQ(own.at(7).at("(shape)"), WktOf(ShapeOf(kind.second).get()));
    EXPECT_EQ(own.at(50).at("(shape)"), "null");
    EXPECT_EQ(own.at(51).at("words"), "(null)");
    EXPECT_EQ(own.at(7).at("words"), "Zürich 東京 7");
    EXPECT_EQ(own.at(7).at("day"), "1857/08/08 07:07:30");
    EXPECT_EQ(own.at(151).at("day"), "2001/08/12 07:31:30");
    ASSERT_EQ(other.size(), 300U);
    for (auto& [fid, row] : own) {
      // The other reader has its own way with dates, and with empty memos.
      for (const char* field : {"day", "notes"}) {
        row.erase(field);
        other.at(fid).erase(field);
      }
      EXPECT_EQ(row, other.at(fid)) << name << " " << fid;
    }
  }
}

TEST(PersonalGeodatabase, ManyChangesLeaveASoundGeodatabase) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("large.mdb");
  MakeLayer(path, "points", wkbPoint);
  MakeLayer(path, "areas", wkbMultiPolygon);
  constexpr int kPoints = 60000, kAreas = 3000;
  Edit(path, "points", [&](OGRLayer& layer) {
    OGRFeature feature(layer.GetLayerDefn());
    for (int number = 1; number <= kPoints; ++number) {
      feature.SetFID(OGRNullFID);
      feature.SetField("whole", number);
      feature.SetField("words", "short");
      OGRPoint point(number % 360 - 180.0, number % 180 - 90.0);
      feature.SetGeometry(&point);
      ASSERT_EQ(layer.CreateFeature(&feature), OGRERR_NONE) << CPLGetLastErrorMsg();
    }
  });
  Edit(path, "areas", [&](OGRLayer& layer) {
    for (int number = 1; number <= kAreas; ++number) {
      const std::string x = std::to_string(number % 170), y = std::to_string(number % 80);
      const std::string wkt =
          "MULTIPOLYGON (((" + x + " " + y + "," + x + " 81,171 81,171 " + y + "," + x + " " + y + ")))";
      const OGRFeatureUniquePtr feature = NewFeature(layer, wkt, number);
      ASSERT_EQ(layer.CreateFeature(feature.get()), OGRERR_NONE) << CPLGetLastErrorMsg();
    }
  });
  Edit(path, "points", [&](OGRLayer& layer) {
    for (int number = 1; number <= 16000; ++number) {
      const OGRFeatureUniquePtr feature(layer.GetFeature(number * 3));
      feature->SetField("words", "a text that is longer than the one before it was by far");
      feature->SetField("whole", -number);
      OGRPoint point(number % 90, 45.5);
      feature->SetGeometry(&point);
      ASSERT_EQ(layer.SetFeature(feature.get()), OGRERR_NONE) << CPLGetLastErrorMsg();
    }
    for (int number = 1; number <= 12000; ++number) ASSERT_EQ(layer.DeleteFeature(number * 5), OGRERR_NONE);
  });
  ExpectSound(path);
  jet::Database database(path, jet::Database::Mode::Read);
  EXPECT_EQ(database.Open("points").RowCount(), 48000U);
  EXPECT_EQ(database.Open("points_SHAPE_Index").RowCount(), 48000U);
  const engine::DatasetHandle dataset = engine::OpenDataset(path);
  OGRLayer* points = dataset->GetLayerByName("points");
  CPLPushErrorHandler(CPLQuietErrorHandler);
  EXPECT_EQ(OGRFeatureUniquePtr(points->GetFeature(5)), nullptr);
  CPLPopErrorHandler();
  const OGRFeatureUniquePtr changed(points->GetFeature(48));
  EXPECT_EQ(changed->GetFieldAsInteger("whole"), -16);
  EXPECT_EQ(WktOf(changed->GetGeometryRef()), WktOf(ShapeOf("POINT (16 45.5)").get()));
  EXPECT_EQ(dataset->GetLayerByName("areas")->GetFeatureCount(), kAreas);
  FILE* pipe = popen(("mdb-json " + path + " points | wc -l").c_str(), "r");
  int lines = 0;
  EXPECT_EQ(std::fscanf(pipe, "%d", &lines), 1);
  pclose(pipe);
  EXPECT_EQ(lines, 48000);
}

// Rows that grow move after the others in the file.
TEST(PersonalGeodatabase, RowsComeInTheOrderOfTheirNumbers) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("order.mdb");
  MakeLayer(path, "points", wkbPoint);
  Edit(path, "points", [&](OGRLayer& layer) {
    for (int number = 1; number <= 500; ++number) {
      const OGRFeatureUniquePtr feature = NewFeature(layer, "POINT (1 2)", number);
      ASSERT_EQ(layer.CreateFeature(feature.get()), OGRERR_NONE);
    }
  });
  Edit(path, "points", [&](OGRLayer& layer) {
    for (int number = 3; number <= 500; number += 3) {
      const OGRFeatureUniquePtr feature(layer.GetFeature(number));
      feature->SetField("words", "a text that is much longer than the one that was there");
      ASSERT_EQ(layer.SetFeature(feature.get()), OGRERR_NONE);
    }
    ASSERT_EQ(layer.DeleteFeature(100), OGRERR_NONE);
  });
  jet::Database database(path, jet::Database::Mode::Read);
  std::vector<std::int32_t> stored, read;
  for (jet::Table::Scan scan(database.Open("points")); scan.Next();) {
    stored.push_back(std::get<std::int32_t>(scan.Values()[0]));
  }
  EXPECT_FALSE(std::ranges::is_sorted(stored));
  const engine::DatasetHandle dataset = engine::OpenDataset(path);
  for (int round = 0; round < 2; ++round) {
    read.clear();
    for (const auto& feature : dataset->GetLayerByName("points")) {
      read.push_back(static_cast<std::int32_t>(feature->GetFID()));
    }
    EXPECT_EQ(read.size(), 499U);
    EXPECT_TRUE(std::ranges::is_sorted(read));
  }
}

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(PersonalGeodatabase, WhatIsntPublishedChangesNothing) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("kept.mdb");
  MakeLayer(path, "points", wkbPoint);
  const std::string before = BytesOf(path);
  auto edit = engine::PersonalEdit::Begin(path);
  {
    const engine::DatasetHandle dataset = engine::OpenDataset(path, FileAccess::Change);
    OGRLayer* layer = dataset->GetLayerByName("points");
    const OGRFeatureUniquePtr feature = NewFeature(*layer, "POINT (1 2)", 1);
    ASSERT_EQ(layer->CreateFeature(feature.get()), OGRERR_NONE);
    // This program sees it meanwhile.
    EXPECT_EQ(engine::OpenDataset(path)->GetLayerByName("points")->GetFeatureCount(), 1);
  }
  EXPECT_EQ(BytesOf(path), before);
  edit->Abandon();
  engine::PersonalEdit::End(edit);
  EXPECT_EQ(BytesOf(path), before);
  EXPECT_EQ(engine::OpenDataset(path)->GetLayerByName("points")->GetFeatureCount(), 0);
  int files = 0;
  for ([[maybe_unused]] const auto& entry : fs::directory_iterator(folder.Native())) ++files;
  EXPECT_EQ(files, 1);
}

struct RefusalRow {
  const char* name;
  void (*prepare)(const std::string& path);
  const char* told;
};

void Poke(const std::string& path, std::streamoff at, char value) {
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(at);
  file.put(value);
}

TEST(PersonalGeodatabase, WhatIsntUnderstoodIsRefusedBeforeItIsWritten) {
  const RefusalRow rows[] = {
      {"lock", [](const std::string& path) { std::ofstream(fs::path(path).replace_extension(".ldb")) << "x"; },
       "another program has it open"},
      {"encrypted", [](const std::string& path) { Poke(path, 0x3E, 0x11); }, "encrypted"},
      {"older", [](const std::string& path) { Poke(path, 0x14, 0); }, "before 2000"},
      {"newer", [](const std::string& path) { Poke(path, 0x14, 2); }, "newer format"},
      {"order", [](const std::string& path) { Poke(path, 0x6E, 0x11); }, "sorts its texts"},
  };
  for (const RefusalRow& row : rows) {
    const TemporaryFolder folder;
    const std::string path = folder.Native("refused.mdb");
    MakeLayer(path, "points", wkbPoint);
    row.prepare(path);
    const std::string before = BytesOf(path);
    try {
      (void)engine::PersonalEdit::Begin(path);
      ADD_FAILURE() << row.name;
    } catch (const Fault& fault) {
      EXPECT_THAT(fault.Description(), HasSubstr(row.told));
      EXPECT_THAT(fault.Description(), HasSubstr("refused.mdb"));
    }
    EXPECT_EQ(BytesOf(path), before) << row.name;
  }
}

}  // namespace
}  // namespace tessarine
