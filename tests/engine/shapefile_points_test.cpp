// SPDX-License-Identifier: GPL-2.0-or-later
// Points that go past GDAL into a new shapefile, beside those that GDAL writes.
#include "engine/shapefile_points.h"

#include <functional>

#include "engine/ogr_class.h"
#include "engine/test_layers.h"

namespace tessarine::engine {
namespace {

using testing::TemporaryFolder;

constexpr int kRows = 400;

struct Columns {
  std::int32_t whole, wide, real, text, day;
};

// A new shapefile with columns of all kinds, in a folder.
std::string MakeShapefile(const TemporaryFolder& folder, const std::string& name, OGRwkbGeometryType type,
                          bool with_day) {
  GDALAllRegister();
  std::filesystem::create_directories(folder.Native(name));
  const std::string file = folder.Native(name + "/p.shp");
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
  const GDALDatasetUniquePtr dataset(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  OGRLayer* layer = dataset->CreateLayer("p", nullptr, type, nullptr);
  OGRFieldDefn whole("whole", OFTInteger), wide("wide", OFTInteger64), real("real", OFTReal), text("text", OFTString),
      day("day", OFTDate);
  whole.SetWidth(6);
  wide.SetWidth(18);
  real.SetWidth(16);
  real.SetPrecision(8);
  text.SetWidth(12);
  for (OGRFieldDefn* field : {&whole, &wide, &real, &text}) EXPECT_EQ(layer->CreateField(field), OGRERR_NONE);
  if (with_day) {
    EXPECT_EQ(layer->CreateField(&day), OGRERR_NONE);
  }
  return file;
}

struct FileRow {
  const char* name;
  OGRwkbGeometryType type;
  bool with_day;
  std::function<void(IFeatureBuffer&, const Columns&, int)> change;  // of a row
};

void PutPoint(IFeatureBuffer& row, double x, double y) { row.SetShape(std::make_shared<Point>(x, y)); }

const FileRow kFiles[] = {
    {"plain rows", wkbPoint, false, [](IFeatureBuffer&, const Columns&, int) {}},
    {"nulls", wkbPoint, true,
     [](IFeatureBuffer& row, const Columns& columns, int) {
       for (const auto column : {columns.whole, columns.wide, columns.real, columns.text}) row.SetValue(column, Null());
     }},
    {"numbers at the edge of their columns", wkbPoint, false,
     [](IFeatureBuffer& row, const Columns& columns, int number) {
       row.SetValue(columns.whole, -99999);
       row.SetValue(columns.wide, std::int64_t{-12345678901234567});
       const double numbers[] = {-0.0, 1e-300, 9999999.123456785, -12345678.87654321, 123456789012.5, 0.5, 2.5e-9};
       row.SetValue(columns.real, numbers[number % 7]);
     }},
    {"a number that widens its column", wkbPoint, false,
     [](IFeatureBuffer& row, const Columns& columns, int) { row.SetValue(columns.whole, 1234567); }},
    {"a number with an exponent", wkbPoint, false,
     [](IFeatureBuffer& row, const Columns& columns, int) { row.SetValue(columns.real, -1.5e300); }},
    {"a text that widens its column", wkbPoint, false,
     [](IFeatureBuffer& row, const Columns& columns, int) { row.SetValue(columns.text, std::string(40, 'w')); }},
    {"letters beyond ASCII", wkbPoint, false,
     [](IFeatureBuffer& row, const Columns& columns, int) { row.SetValue(columns.text, "Ærø"); }},
    {"an empty text", wkbPoint, false,
     [](IFeatureBuffer& row, const Columns& columns, int) { row.SetValue(columns.text, ""); }},
    {"a date", wkbPoint, true,
     [](IFeatureBuffer& row, const Columns& columns, int) { row.SetValue(columns.day, MakeDate(2026, 2, 3)); }},
    {"no shape", wkbPoint, false, [](IFeatureBuffer& row, const Columns&, int) { row.SetShape(nullptr); }},
    {"multipoints", wkbMultiPoint, false,
     [](IFeatureBuffer& row, const Columns&, int) {
       auto points = std::make_shared<Multipoint>();
       points->AddPoint(XY{3, 4});
       row.SetShape(points);
     }},
};

// Plain rows, and others among them.
void FillRows(const std::shared_ptr<OgrSource>& source, const FileRow& file) {
  const auto table = std::make_shared<OgrFeatureClass>(source);
  const Columns columns{table->FindField("whole"), table->FindField("wide"), table->FindField("real"),
                        table->FindField("text"), table->FindField("day")};
  const auto buffer = table->CreateFeatureBuffer();
  const auto cursor = table->Insert(true);
  for (int number = 0; number < kRows; ++number) {
    buffer->SetValue(columns.whole, number);
    buffer->SetValue(columns.wide, std::int64_t{10000000000} * number);
    buffer->SetValue(columns.real, number / 7.0);
    buffer->SetValue(columns.text, "row " + std::to_string(number));
    PutPoint(*buffer, number - 200.25, 90.0 / (number + 1));
    if (file.type != wkbPoint || number % 100 > 40) file.change(*buffer, columns, number);
    EXPECT_EQ(cursor->InsertFeature(*buffer), number);
  }
  cursor->Flush();
  cursor->Close();
}

std::string BytesOf(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(ShapefilePoints, AreTheFilesThatGdalWrites) {
  for (const FileRow& row : kFiles) {
    SCOPED_TRACE(row.name);
    const TemporaryFolder folder;
    const std::string staged = MakeShapefile(folder, "staged", row.type, row.with_day);
    const std::string standing = MakeShapefile(folder, "standing", row.type, row.with_day);
    FillRows(std::make_shared<OgrSource>(folder.Native("target.shp"), staged, "p"), row);
    FillRows(std::make_shared<OgrSource>(standing, "p", std::nullopt), row);
    for (const char* ending : {"shp", "shx", "dbf"}) {
      const std::string ours = BytesOf(folder.Native(std::string("staged/p.") + ending));
      EXPECT_TRUE(ours == BytesOf(folder.Native(std::string("standing/p.") + ending))) << ending;
      EXPECT_GT(ours.size(), kRows * 8U);
    }
  }
}

TEST(ShapefilePoints, GoPastGdalIntoNewShapefilesOfPlainPointsAlone) {
  struct Row {
    const char* name;
    OGRwkbGeometryType type;
    bool staged, with_row, goes;
  };
  for (const Row& row :
       {Row{"points", wkbPoint, true, false, true}, Row{"with height", wkbPoint25D, true, false, false},
        Row{"lines", wkbLineString, true, false, false}, Row{"in its place", wkbPoint, false, false, false},
        Row{"with a row", wkbPoint, true, true, false}}) {
    SCOPED_TRACE(row.name);
    const TemporaryFolder folder;
    const std::string file = MakeShapefile(folder, "staged", row.type, false);
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    OGRLayer& layer = *dataset->GetLayer(0);
    OGRFeature feature(layer.GetLayerDefn());
    if (row.with_row) {
      ASSERT_EQ(layer.CreateFeature(&feature), OGRERR_NONE);
    }
    const OgrSource source(row.staged ? folder.Native("target.shp") : file, file, "p");
    EXPECT_EQ(ShapefilePoints::Open(source, layer) != nullptr, row.goes);
  }
}

}  // namespace
}  // namespace tessarine::engine
