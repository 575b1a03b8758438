// SPDX-License-Identifier: GPL-2.0-or-later
// Columns of every kind: which field they come as, which column a field becomes, and what its values become.
#include <gtest/gtest.h>

#include <array>
#include <fstream>

#include "engine/test_layers.h"
#include "helpers/published.h"

namespace tessarine {
namespace {

using testing::TemporaryFolder;

struct OgrColumn {
  const char* name;
  OGRFieldType type;
  OGRFieldSubType subtype = OFSTNone;
  int width = 0;
};

// A layer of one point with these columns; texts are read by OGR.
void WriteColumns(const char* driver_name, const std::string& file, const std::vector<OgrColumn>& columns,
                  const std::vector<const char*>& values) {
  GDALAllRegister();
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(driver_name);
  const GDALDatasetUniquePtr dataset(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  ASSERT_NE(dataset, nullptr) << file;
  OGRLayer* layer = dataset->CreateLayer("points", nullptr, wkbPoint, nullptr);
  for (const OgrColumn& column : columns) {
    OGRFieldDefn definition(column.name, column.type);
    definition.SetSubType(column.subtype);
    definition.SetWidth(column.width);
    ASSERT_EQ(layer->CreateField(&definition), OGRERR_NONE) << column.name;
  }
  OGRFeature feature(layer->GetLayerDefn());
  for (std::size_t index = 0; index < values.size(); ++index) feature.SetField(static_cast<int>(index), values[index]);
  OGRPoint point(1, 2);
  feature.SetGeometry(&point);
  ASSERT_EQ(layer->CreateFeature(&feature), OGRERR_NONE);
}

std::shared_ptr<IFeatureClass> Opened(const std::string& file) { return DataSource::Open(file)->OpenFeatureClass(""); }

struct RoleRow {
  const char* driver;
  const char* file;
};

TEST(Columns, AttributesBearAnyNameAndTheRolesGiveWay) {
  for (const RoleRow& row :
       {RoleRow{"GeoJSON", "p.geojson"}, RoleRow{"ESRI Shapefile", "p.shp"}, RoleRow{"FlatGeobuf", "p.fgb"}}) {
    SCOPED_TRACE(row.driver);
    const TemporaryFolder folder;
    WriteColumns(row.driver, folder.Native(row.file),
                 {{"shape", OFTString}, {"OBJECTID", OFTInteger}, {"fid", OFTInteger}}, {"round", "501", "101"});
    const auto points = Opened(folder.Native(row.file));
    const auto feature = points->Search(nullptr, Recycling::No)->NextFeature();
    EXPECT_EQ(feature->Value(points->FindField("Shape")).AsText(), "round");
    EXPECT_EQ(feature->Value(points->FindField("OBJECTID")).AsLong(), 501);
    EXPECT_EQ(feature->Value(points->FindField("FID")).AsLong(), 101);
    EXPECT_EQ(Cast<Point>(feature->Shape())->X(), 1.0);
    EXPECT_NE(points->Fields()->Field(points->FindField(points->ShapeFieldName()))->Type, esriFieldTypeString);
    EXPECT_EQ(points->Fields()->Field(0)->Type, esriFieldTypeOID);
    EXPECT_EQ(points->FindField(points->Fields()->Field(0)->Name), 0) << "its name is its own";
  }
}

struct SourceRow {
  const char* driver;
  const char* file;
  OgrColumn column;
  const char* value;
  esriFieldType type;
  Variant read;
};

TEST(Columns, ValuesAreReadExactly) {
  Date zoned = MakeDate(2020, 5, 17, 12, 34, 56.789), clock{45296.25 / 86400.0};
  zoned.zone = 90;
  clock.time_only = true;
  const std::string large = "123456789012345678";
  for (const SourceRow& row : {
           SourceRow{"GPKG",
                     "p.gpkg",
                     {"v", OFTInteger64},
                     large.c_str(),
                     esriFieldTypeInteger64,
                     std::int64_t{123456789012345678}},
           SourceRow{"GeoJSON",
                     "p.geojson",
                     {"v", OFTInteger64},
                     large.c_str(),
                     esriFieldTypeInteger64,
                     std::int64_t{123456789012345678}},
           SourceRow{"ESRI Shapefile",
                     "p.shp",
                     {"v", OFTInteger64, OFSTNone, 18},
                     large.c_str(),
                     esriFieldTypeInteger64,
                     std::int64_t{123456789012345678}},
           SourceRow{"ESRI Shapefile",
                     "p.shp",
                     {"v", OFTInteger64, OFSTNone, 20},
                     "-1234567890123456789",
                     esriFieldTypeInteger64,
                     std::int64_t{-1234567890123456789}},
           SourceRow{
               "GeoJSON", "p.geojson", {"v", OFTDateTime}, "2020/05/17 12:34:56.789+0130", esriFieldTypeDate, zoned},
           SourceRow{"GeoJSON", "p.geojson", {"v", OFTTime}, "12:34:56.250", esriFieldTypeDate, clock},
           SourceRow{"GPKG", "p.gpkg", {"v", OFTInteger, OFSTInt16}, "-7", esriFieldTypeSmallInteger, std::int16_t{-7}},
           SourceRow{"GPKG", "p.gpkg", {"v", OFTInteger, OFSTBoolean}, "1", esriFieldTypeSmallInteger, std::int16_t{1}},
       }) {
    SCOPED_TRACE(std::string(row.driver) + " " + row.value);
    const TemporaryFolder folder;
    WriteColumns(row.driver, folder.Native(row.file), {row.column}, {row.value});
    const auto points = Opened(folder.Native(row.file));
    const std::int32_t index = points->FindField("v");
    EXPECT_EQ(points->Fields()->Field(index)->Type, row.type);
    const Variant value = points->Search(nullptr, Recycling::No)->NextFeature()->Value(index);
    if (row.read.kind() == Variant::Kind::Date) {
      EXPECT_EQ(IsoText(value.AsDate()), IsoText(row.read.AsDate()));
    } else {
      EXPECT_EQ(value, row.read);
    }
  }
}

struct OutputRow {
  const char* what;
  esriFieldType type;
  DateContent content;
  Variant value;
  const char* shapefile;  // as GDAL reads it back
  ValueChange in_shapefile;
  const char* geodatabase;
  ValueChange in_geodatabase;
};

FieldsRef FieldsWith(const OutputRow& row) {
  auto fields = std::make_shared<Fields>();
  auto shape = std::make_shared<Field>();
  shape->Name = "Shape";
  shape->Type = esriFieldTypeGeometry;
  shape->GeometryDef = std::make_shared<GeometryDef>();
  shape->GeometryDef->GeometryType = esriGeometryPoint;
  fields->AddField(shape);
  auto field = std::make_shared<Field>();
  field->Name = "v";
  field->Type = row.type;
  field->Content = row.content;
  fields->AddField(field);
  return fields;
}

void ExpectWritten(IFeatureWorkspace& workspace, const std::string& file, const OutputRow& row, const char* text,
                   ValueChange change) {
  SCOPED_TRACE(file);
  const auto points = workspace.CreateFeatureClass("p", FieldsWith(row), nullptr, nullptr, esriFTSimple, "Shape", "");
  const auto buffer = points->CreateFeatureBuffer();
  buffer->SetShape(std::make_shared<Point>(1, 2));
  EXPECT_EQ(buffer->SetValue(points->FindField("v"), row.value), change);
  const auto cursor = points->Insert(true);
  cursor->InsertFeature(*buffer);
  cursor->Close();
  static_cast<void>(testing::Published(points));
  const GDALDatasetUniquePtr written(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
  const OGRFeatureUniquePtr feature(written->GetLayer(0)->GetNextFeature());
  // GDAL prints numbers with the decimals of their column, however large they are.
  const bool real = feature->GetFieldDefnRef(0)->GetType() == OFTReal;
  const std::string value = real ? CPLSPrintf("%.15g", feature->GetFieldAsDouble(0)) : feature->GetFieldAsString(0);
  EXPECT_EQ(feature->IsFieldSetAndNotNull(0) != 0 ? value : "null", text);
}

TEST(Columns, ValuesAreWrittenExactlyOrToldToBeChanged) {
  Date zoned = MakeDate(2020, 5, 17, 12, 34, 56.0), clock{45296.25 / 86400.0};
  zoned.zone = 90;
  clock.time_only = true;
  const std::string words(300, 'b'), shorter(254, 'b');
  using enum ValueChange;
  constexpr DateContent kBoth = DateContent::DayAndTime;
  const std::array rows = {
      OutputRow{"18 digits", esriFieldTypeInteger64, kBoth, std::int64_t{123456789012345678}, "123456789012345678",
                None, "null", OutOfRange},
      OutputRow{"a double's whole number", esriFieldTypeInteger64, kBoth, std::int64_t{1234567890123}, "1234567890123",
                None, "1234567890123", None},
      OutputRow{"ten digits of 32 bits", esriFieldTypeInteger, kBoth, -2147483647 - 1, "-2147483648", None,
                "-2147483648", None},
      OutputRow{"no number", esriFieldTypeDouble, kBoth, std::nan(""), "null", NotFinite, "null", NotFinite},
      OutputRow{"beyond decimals", esriFieldTypeDouble, kBoth, -1.7e308, "-1.7e+308", None, "-1.7e+308", None},
      OutputRow{"a long text", esriFieldTypeString, kBoth, words, shorter.c_str(), TextCut, words.c_str(), None},
      OutputRow{"Latin-1", esriFieldTypeString, kBoth, "K\xF6ln", "K\xC3\xB6ln", BadText, "K\xC3\xB6ln", BadText},
      OutputRow{"a moment", esriFieldTypeDate, kBoth, zoned, "2020/05/17", TimeDropped, "2020/05/17 11:04:56+00",
                ZoneToUtc},
      OutputRow{"a day", esriFieldTypeDate, DateContent::Day, MakeDate(2020, 5, 17), "2020/05/17", None,
                "2020/05/17 00:00:00+00", None},
      OutputRow{"a time of day", esriFieldTypeDate, DateContent::Time, clock, "12:34:56.250", None, "12:34:56.250",
                None},
      OutputRow{"16 bits", esriFieldTypeSmallInteger, kBoth, std::int16_t{-32767}, "-32767", None, "-32767", None},
  };
  for (const OutputRow& row : rows) {
    SCOPED_TRACE(row.what);
    const TemporaryFolder folder;
    ExpectWritten(*CreateShapefileWorkspaceFactory()->OpenFromFile(folder.Path(), 0), folder.Native("p.shp"), row,
                  row.shapefile, row.in_shapefile);
    CreateFileGeodatabase(folder.Native("g.gdb"));
    ExpectWritten(*CreateFileGDBWorkspaceFactory()->OpenFromFile(folder.Path("g.gdb"), 0), folder.Native("g.gdb"), row,
                  row.geodatabase, row.in_geodatabase);
  }
}

TEST(Columns, ValuesOfStoredRowsStayWithinTheirColumns) {
  struct Row {
    const char* driver;
    const char* file;
    OgrColumn column;
    Variant value;
    const char* text;
    ValueChange change;
  };
  for (const Row& row : {
           Row{"GPKG", "p.gpkg", {"v", OFTInteger, OFSTInt16}, 40000, "null", ValueChange::OutOfRange},
           Row{"GPKG", "p.gpkg", {"v", OFTInteger, OFSTBoolean}, 7, "null", ValueChange::OutOfRange},
           Row{"OpenFileGDB", "g.gdb", {"v", OFTInteger, OFSTInt16}, 12.25, "12", ValueChange::Rounded},
           Row{"OpenFileGDB", "g.gdb", {"v", OFTInteger, OFSTInt16}, 40000, "null", ValueChange::OutOfRange},
           Row{"ESRI Shapefile",
               "p.shp",
               {"v", OFTInteger, OFSTNone, 4},
               std::int16_t{-9999},
               "null",
               ValueChange::OutOfRange},
           Row{"ESRI Shapefile", "p.shp", {"v", OFTString, OFSTNone, 3}, "four", "fou", ValueChange::TextCut},
           Row{"GPKG", "p.gpkg", {"v", OFTString, OFSTNone, 3}, "four", "fou", ValueChange::TextCut},
       }) {
    SCOPED_TRACE(std::string(row.driver) + " " + row.value.AsText());
    const TemporaryFolder folder;
    WriteColumns(row.driver, folder.Native(row.file), {row.column}, {"1"});
    const auto points = Opened(folder.Native(row.file));
    {
      const auto cursor = points->Update(nullptr, Recycling::No);
      const auto feature = cursor->NextFeature();
      EXPECT_EQ(feature->SetValue(points->FindField("v"), row.value), row.change);
      cursor->UpdateFeature(feature);
      cursor->Close();
    }
    const GDALDatasetUniquePtr written(GDALDataset::Open(folder.Native(row.file).c_str(), GDAL_OF_VECTOR));
    const OGRFeatureUniquePtr feature(written->GetLayer(0)->GetNextFeature());
    EXPECT_STREQ(feature->IsFieldSetAndNotNull(0) != 0 ? feature->GetFieldAsString(0) : "null", row.text);
  }
}

TEST(Columns, DatesBefore1970AreThoseThatAGeodatabaseHolds) {
  for (const char* date : {"0099-01-01T00:00:00", "1899-12-30T23:59:59", "1950-03-04T05:06:07", "1969-12-31T23:59:58",
                           "1970-01-01T00:00:01", "2020-02-29T12:00:00"}) {
    const TemporaryFolder folder;
    WriteColumns("OpenFileGDB", folder.Native("d.gdb"), {{"at", OFTDateTime}}, {date});
    const auto points = Opened(folder.Native("d.gdb"));
    const auto feature = points->Search(nullptr, Recycling::No)->NextFeature();
    EXPECT_EQ(IsoText(feature->Value(points->FindField("at")).AsDate()), date);
  }
}

}  // namespace
}  // namespace tessarine
