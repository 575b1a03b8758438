// Personal geodatabases: read as the library's own driver reads them over another reader, and written so that it can.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

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

std::string WktOf(const OGRGeometry* shape) { return shape == nullptr ? "null" : shape->exportToWkt(); }

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

void ExpectSound(const std::string& path) {
  jet::Database database(path, jet::Database::Mode::Read);
  EXPECT_THAT(jet::CheckDatabase(database).findings, ::testing::IsEmpty());
}

TEST(PersonalGeodatabase, ClassesOfOthersAreReadAsTheLibraryReadsThem) {
  const engine::DatasetHandle theirs = OpenByOthers(kSample);
  ASSERT_NE(theirs, nullptr) << "mdbtools and odbc-mdbtools are needed";
  const engine::DatasetHandle ours = engine::OpenDataset(kSample, false);
  ASSERT_EQ(ours->GetLayerCount(), 16);
  int rows = 0;
  for (OGRLayer* layer : ours->GetLayers()) {
    OGRLayer* other = theirs->GetLayerByName(layer->GetName());
    ASSERT_NE(other, nullptr) << layer->GetName();
    const auto own_rows = RowsOf(*layer);
    EXPECT_EQ(own_rows, RowsOf(*other)) << layer->GetName();
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
    engine::DatasetHandle dataset = engine::OpenDataset(path, true);
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
  const engine::DatasetHandle sample = engine::OpenDataset(kSample, false);
  const engine::DatasetHandle changed = OpenByOthers(path);
  for (OGRLayer* layer : sample->GetLayers()) {
    EXPECT_EQ(RowsOf(*layer), RowsOf(*changed->GetLayerByName(layer->GetName()))) << layer->GetName();
  }
}

}  // namespace
}  // namespace tessarine
