// SPDX-License-Identifier: GPL-2.0-or-later
// Data of the formats that people bring, made by GDAL and read through DataSource.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <numbers>

#include "engine/test_layers.h"
#include "outputs/staged_output.h"

namespace tessarine {
namespace {

using testing::Box;
using testing::FaultOf;
using testing::FaultTextOf;
using testing::PolygonOf;
using testing::PolylineOf;
using testing::TemporaryFolder;
using testing::TestLayer;
using testing::WriteLayer;

struct Format {
  const char* driver;
  const char* file;
  const char* layer;
  const char* category;  // what a catalog shows; nothing where no catalog has a word of its own
  bool keeps_nulls;      // rows without geometry can be stored
};
constexpr Format kFormats[] = {
    {"ESRI Shapefile", "lakes.shp", "lakes", "Shapefile Feature Class", true},
    {"GPKG", "data.gpkg", "lakes", "GPKG Feature Class", true},
    {"OpenFileGDB", "data.gdb", "lakes", "File Geodatabase Feature Class", true},
    {"GeoJSON", "lakes.geojson", "lakes", nullptr, true},
    {"KML", "lakes.kml", "lakes", nullptr, false},
    {"FlatGeobuf", "lakes.fgb", "lakes", nullptr, false},
};

std::vector<std::shared_ptr<IFeature>> AllOf(IFeatureClass& features) {
  std::vector<std::shared_ptr<IFeature>> all;
  const auto cursor = features.Search(nullptr, Recycling::No);
  while (auto feature = cursor->NextFeature()) all.push_back(feature);
  return all;
}

// Written counter-clockwise outside and clockwise inside, against the order that shapefiles keep.
TEST(Formats, PolygonsComeWithExteriorRingsClockwise) {
  for (const Format& format : kFormats) {
    SCOPED_TRACE(format.driver);
    const TemporaryFolder folder;
    TestLayer layer{format.driver, folder.Native(format.file), format.layer, wkbMultiPolygon, {}};
    layer.rows.push_back({"MULTIPOLYGON (((0 0,8 0,8 8,0 8,0 0),(1 1,1 2,2 2,2 1,1 1)),((20 0,21 0,21 1,20 1,20 0)))",
                          "Lake \xC3\x89lan", 2.5});
    if (format.keeps_nulls) layer.rows.push_back({"", "nowhere", -1.0});
    WriteLayer(layer);

    const auto source = DataSource::Open(folder.Native(format.file));
    EXPECT_EQ(source->LayerNames(), std::vector<std::string>{format.layer});
    const auto lakes = source->OpenFeatureClass("");
    EXPECT_EQ(lakes->ShapeType(), esriGeometryPolygon);
    EXPECT_EQ(lakes->SpatialReference()->FactoryCode(), 4326);
    if (format.category != nullptr) {
      EXPECT_EQ(lakes->Category(), format.category);
    }
    EXPECT_EQ(lakes->Extent(), Envelope(0.0, 0.0, 21.0, 8.0));
    const auto features = AllOf(*lakes);
    EXPECT_EQ(lakes->FeatureCount(nullptr), static_cast<std::int32_t>(layer.rows.size()));
    ASSERT_EQ(features.size(), layer.rows.size());
    const auto shape = Cast<Polygon>(features[0]->Shape());
    ASSERT_NE(shape, nullptr);
    EXPECT_EQ(shape->Area(), 64.0);
    EXPECT_EQ(shape->ExteriorRingCount(), 2);
    ASSERT_EQ(shape->GeometryCount(), 3);
    std::string order;
    for (std::int32_t part = 0; part < 3; ++part) order += shape->Ring(part)->IsExterior() ? "ring " : "hole ";
    EXPECT_EQ(order, "ring hole ring ");
    EXPECT_EQ(shape->SpatialReference(), lakes->SpatialReference());
    const std::int32_t name = lakes->FindField("NAME"), size = lakes->FindField("size");
    EXPECT_EQ(features[0]->Value(name).AsText(), "Lake Élan");
    EXPECT_EQ(features[0]->Value(size).AsDouble(), 2.5);
    if (format.keeps_nulls) {
      ASSERT_NE(features[1]->Shape(), nullptr);
      EXPECT_TRUE(features[1]->Shape()->IsEmpty());
      EXPECT_EQ(features[1]->Shape()->GeometryType(), esriGeometryPolygon);
      EXPECT_TRUE(features[1]->Extent().IsEmpty());
    }
  }
}

TEST(Formats, LinesAndPointsLoseHeightsAndMeasures) {
  for (const Format& format : kFormats) {
    SCOPED_TRACE(format.driver);
    const TemporaryFolder folder;
    WriteLayer({format.driver,
                folder.Native(format.file),
                format.layer,
                wkbLineString25D,
                {{"LINESTRING Z (0 0 100,3 4 200,3 5 300)", "a"}}});
    const auto lines = DataSource::Open(folder.Native(format.file))->OpenFeatureClass(format.layer);
    EXPECT_EQ(lines->ShapeType(), esriGeometryPolyline);
    const auto line = Cast<Polyline>(AllOf(*lines).at(0)->Shape());
    EXPECT_TRUE(line->IsEqual(*PolylineOf({{{0, 0}, {3, 4}, {3, 5}}})));
  }
  const TemporaryFolder folder;
  WriteLayer({"GPKG", folder.Native("m.gpkg"), "m", wkbPointZM, {{"POINT ZM (1 2 3 4)"}, {"POINT ZM EMPTY"}}});
  const auto points = AllOf(*DataSource::Open(folder.Native("m.gpkg"))->OpenFeatureClass(""));
  EXPECT_EQ(Cast<Point>(points.at(0)->Shape())->Coordinates(), (XY{1.0, 2.0}));
  EXPECT_TRUE(points.at(1)->Shape()->IsEmpty());
}

TEST(Formats, ArcsAreKeptWhereTheFormatKeepsThem) {
  const TemporaryFolder folder;
  WriteLayer({"GPKG",
              folder.Native("arcs.gpkg"),
              "arcs",
              wkbCurvePolygon,
              {{"CURVEPOLYGON (CIRCULARSTRING (0 0,2 0,0 0))"},
               {"CURVEPOLYGON (COMPOUNDCURVE (CIRCULARSTRING (0 0,1 1,2 0),(2 0,0 0)))"}},
              32612});
  const auto shapes = AllOf(*DataSource::Open(folder.Native("arcs.gpkg"))->OpenFeatureClass(""));
  EXPECT_NEAR(Cast<Polygon>(shapes.at(0)->Shape())->Area(), std::numbers::pi, 1e-12);
  const auto half = Cast<Polygon>(shapes.at(1)->Shape());
  EXPECT_NEAR(half->Area(), std::numbers::pi / 2.0, 1e-12);
  EXPECT_TRUE(half->HasCurves());
  EXPECT_EQ(half->SegmentCount(), 2);
}

TEST(Formats, ALayerOfMixedShapesCountsAsOneForEachKind) {
  const TemporaryFolder folder;
  WriteLayer({"GeoJSON",
              folder.Native("mixed.geojson"),
              "mixed",
              wkbUnknown,
              {{"POINT (1 2)", "p"},
               {"LINESTRING (0 0,1 1)", "l"},
               {"MULTILINESTRING ((0 0,1 1),(5 5,6 6))", "ll"},
               {"POLYGON ((0 0,0 1,1 1,0 0))", "a"}}});
  const auto source = DataSource::Open(folder.Native("mixed.geojson"));
  EXPECT_EQ(source->LayerNames(), (std::vector<std::string>{"mixed (points)", "mixed (lines)", "mixed (polygons)"}));
  const auto lines = source->OpenFeatureClass("MIXED (lines)");
  EXPECT_EQ(lines->ShapeType(), esriGeometryPolyline);
  EXPECT_EQ(lines->FeatureCount(nullptr), 2);
  EXPECT_EQ(testing::NamesOf(lines->Search(nullptr, Recycling::Yes), lines->FindField("name")), "l ll ");
  const auto infos = source->Infos();
  ASSERT_EQ(infos.size(), 3U);
  EXPECT_EQ(infos[1].count, 2);
  EXPECT_EQ(infos[2].shape_type, esriGeometryPolygon);
  const std::string text = FaultTextOf([&] { (void)source->OpenFeatureClass(""); });
  EXPECT_NE(text.find("mixed (lines)"), std::string::npos) << text;
}

// Single and multiple shapes of one kind are one layer, and a row without a shape is still a row.
TEST(Formats, RowsWithoutAShapeCountInAnUntypedLayerOfOneKind) {
  const TemporaryFolder folder;
  const std::vector<testing::TestRow> rows = {
      {"POLYGON ((0 0,0 1,1 1,0 0))", "one"}, {"", "none"}, {"MULTIPOLYGON (((5 5,5 6,6 6,5 5)))", "many"}};
  WriteLayer({"GeoJSON", folder.Native("kind.geojson"), "kind", wkbUnknown, rows});
  WriteLayer({"GPKG", folder.Native("kind.gpkg"), "kind", wkbUnknown, rows});
  for (const char* file : {"kind.geojson", "kind.gpkg"}) {
    const auto source = DataSource::Open(folder.Native(file));
    EXPECT_EQ(source->LayerNames(), std::vector<std::string>{"kind"}) << file;
    const auto features = source->OpenFeatureClass("kind");
    EXPECT_EQ(features->FeatureCount(nullptr), 3) << file;
    EXPECT_EQ(testing::NamesOf(features->Search(nullptr, Recycling::Yes), features->FindField("name")),
              "one none many ")
        << file;
  }
}

TEST(Formats, TablesAndLayersAreFoundByName) {
  const TemporaryFolder folder;
  const std::string file = folder.Native("data.gpkg");
  WriteLayer({"GPKG", file, "Roads", wkbLineString, {{"LINESTRING (0 0,1 1)", "r"}}});
  WriteLayer({"GPKG", file, "notes", wkbNone, {{"", "n1"}, {"", "n2"}}});
  const auto source = DataSource::Open(file);
  EXPECT_EQ(source->DriverName(), "GPKG");
  EXPECT_EQ(source->OpenFeatureClass("")->Name(), "Roads") << "the only layer with shapes";
  EXPECT_EQ(source->OpenFeatureClass("roads")->Name(), "Roads");
  const auto notes = source->OpenTable("notes");
  EXPECT_EQ(notes->RowCount(nullptr), 2);
  EXPECT_EQ(testing::NamesOf(notes->SearchRows(nullptr, Recycling::Yes), notes->FindField("name")), "n1 n2 ");
  EXPECT_NE(FaultTextOf([&] { (void)source->OpenFeatureClass("notes"); }).find("notes"), std::string::npos);
  const std::string text = FaultTextOf([&] { (void)source->OpenFeatureClass("rivers"); });
  EXPECT_NE(text.find("rivers"), std::string::npos);
  EXPECT_NE(text.find("Roads, notes"), std::string::npos) << text;
}

TEST(Formats, DataWithoutAReferenceAndWithAnEsriOne) {
  const TemporaryFolder folder;
  WriteLayer({"ESRI Shapefile", folder.Native("plain.shp"), "plain", wkbPoint, {{"POINT (1 2)"}}, 0});
  const auto plain = DataSource::Open(folder.Native("plain.shp"))->OpenFeatureClass("");
  EXPECT_EQ(plain->SpatialReference()->Name(), "Unknown");
  WriteLayer({"ESRI Shapefile", folder.Native("utm.shp"), "utm", wkbPoint, {{"POINT (1 2)"}}, 32612});
  std::ifstream projection(folder.Native("utm.prj"));
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(projection), {}).find("PROJCS[\"WGS_1984_UTM_Zone_12N\""), 0U);
  const auto utm = DataSource::Open(folder.Native("utm.shp"))->OpenFeatureClass("");
  EXPECT_EQ(utm->SpatialReference()->Name(), "WGS 84 / UTM zone 12N");
}

TEST(Formats, FaultsNameWhatCantBeOpened) {
  const TemporaryFolder folder;
  EXPECT_NE(FaultTextOf([&] { (void)DataSource::Open(folder.Native("gone.gpkg")); }).find("gone.gpkg"),
            std::string::npos);
  std::ofstream(folder.Native("text.gpkg")) << "no geopackage at all";
  EXPECT_NE(FaultTextOf([&] { (void)DataSource::Open(folder.Native("text.gpkg")); }).find("text.gpkg"),
            std::string::npos);
  std::ofstream(folder.Native("cut.geojson")) << R"({"type":"FeatureCollection","features":[{"type":"Feature",)";
  EXPECT_EQ(FaultOf([&] { (void)DataSource::Open(folder.Native("cut.geojson")); }), kEngine);
}

TEST(Formats, ABrokenShapefileIsRefused) {
  const auto opens = [](const TemporaryFolder& folder) {
    return FaultTextOf([&] { (void)DataSource::Open(folder.Native("s.shp"))->OpenFeatureClass(""); });
  };
  struct Row {
    const char* part;
    std::ptrdiff_t keep;  // bytes; -1 removes the file
    const char* told;
  };
  for (const Row& row : {Row{".shx", -1, ".shx"}, Row{".dbf", -1, ".dbf"}, Row{".shp", 90, "s.shp"},
                         Row{".shp", 120, "s.shp"}, Row{".shx", 104, "s.shx"}, Row{".shx", 0, "s.shx"}}) {
    const TemporaryFolder folder;
    WriteLayer({"ESRI Shapefile", folder.Native("s.shp"), "s", wkbPoint, {{"POINT (1 2)"}, {"POINT (3 4)"}}});
    EXPECT_EQ(opens(folder), "");
    std::filesystem::path part = folder.Native("s.shp");
    part.replace_extension(row.part);
    if (row.keep < 0) {
      std::filesystem::remove(part);
    } else {
      std::filesystem::resize_file(part, static_cast<std::uintmax_t>(row.keep));
    }
    const std::string text = opens(folder);
    EXPECT_NE(text.find(row.told), std::string::npos) << row.part << " " << row.keep << ": " << text;
    EXPECT_FALSE(row.keep < 0 && std::filesystem::exists(part)) << "nothing is rebuilt in silence";
  }
}

// A run that died between the renames of its shapefile had made all of it: whoever opens the file or its folder next
// gets the whole.
TEST(Formats, OpeningEndsWhatADeadRunWasAboutToRename) {
  static int steps_left;
  for (const char* opened : {"lakes.shp", ""}) {
    const TemporaryFolder folder;
    const std::string path = folder.Native("lakes.shp");
    WriteLayer({"ESRI Shapefile", path, "lakes", wkbPolygon, {{"POLYGON ((0 0,0 1,1 1,0 0))", "old"}}});
    const pid_t child = fork();
    if (child == 0) {
      StagedOutput staged(path, StagedOutput::Begin::Copy);
      steps_left = 4;
      before_publishing_step = [] {
        if (steps_left-- == 0) _exit(0);
      };
      staged.Publish();
      _exit(1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    ASSERT_FALSE(std::filesystem::exists(path));
    const auto source = DataSource::Open(*opened == '\0' ? folder.Native() : path);
    EXPECT_EQ(AllOf(*source->OpenFeatureClass("lakes")).size(), 1U);
  }
}

}  // namespace
}  // namespace tessarine
