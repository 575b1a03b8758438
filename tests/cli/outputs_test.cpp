// SPDX-License-Identifier: GPL-2.0-or-later
// Every tool into every format, read back by GDAL and held against the shapefile of the same run.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iomanip>
#include <sstream>

#include "cli/output_runs.h"

namespace tessarine::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct ToolRow {
  const char* name;
  std::vector<std::string> arguments;  // "@" stands for the folder of the test data, "%" for that of the test
  bool without_shapes = false;         // some of its rows have none
};

// Parameter rows in failure messages are their names.
void PrintTo(const ToolRow& row, std::ostream* out) { *out << row.name; }

const std::vector<ToolRow>& Tools() {
  static const std::vector<ToolRow> rows = {
      {"vertices", {"vertices", "@disputed_borders.shp", "--all-fields"}},
      {"label_points", {"label-points", "@countries.shp", "--fields", "name,pop_est"}},
      {"centroids", {"centroids", "@countries.shp", "--all-fields"}},
      {"spherical_centroids", {"spherical-centroids", "@countries.shp", "--fields", "name"}},
      {"to_polygons", {"to-polygons", "@disputed_borders.shp", "--all-fields"}, true},
      {"to_polylines", {"to-polylines", "@countries.shp", "--fields", "name,gdp_md_est"}},
      {"split", {"split", "@countries.shp", "--fields", "name,iso_a3"}},
      {"combine", {"combine", "@countries.shp", "--where", "continent = 'Africa'", "--fields", "continent"}},
      {"build_polygons", {"build-polygons", "%lines.shp", "--labels", "@cities.shp", "--label-fields", "name"}},
      {"wrap", {"wrap", "@countries.shp", "--range", "360"}},
      {"to_graphic", {"to-graphic", "@countries.shp", "--spheroid", "WGS 1984"}},
      {"to_centric", {"to-centric", "@cities.shp", "--radii", "3396190,3376200"}},
      {"to_features", {"graphics", "to-features", "%graphics.json", "--to", "polygons", "--all"}},
      {"calculate", {"calculate", "@countries.shp", "-m", "Sph. Area=AREA", "-m", "Sph. Centroid=LON,LAT"}},
  };
  return rows;
}

// The row of a class, as far as all formats keep it.
struct ReadRow {
  std::vector<std::string> texts;
  std::vector<double> numbers;  // those of the texts that are numbers, else 0
  double size = 0.0;            // of its shape: area, or length
  int vertices = 0;
  OGREnvelope box;
};

int VerticesOf(const OGRGeometry& shape) {
  if (const auto* collection = dynamic_cast<const OGRGeometryCollection*>(&shape)) {
    int count = 0;
    for (const OGRGeometry* part : *collection) count += VerticesOf(*part);
    return count;
  }
  if (const auto* polygon = dynamic_cast<const OGRPolygon*>(&shape)) {
    int count = 0;
    for (const OGRLinearRing* ring : *polygon) count += ring->getNumPoints();
    return count;
  }
  const auto* line = dynamic_cast<const OGRSimpleCurve*>(&shape);
  return line != nullptr ? line->getNumPoints() : 1;
}

// The area of polygons, the length of lines.
double SizeOf(const OGRGeometry& shape) {
  if (const auto* collection = dynamic_cast<const OGRGeometryCollection*>(&shape)) {
    double size = 0.0;
    for (const OGRGeometry* part : *collection) size += SizeOf(*part);
    return size;
  }
  if (const auto* surface = dynamic_cast<const OGRSurface*>(&shape)) return surface->get_Area();
  const auto* curve = dynamic_cast<const OGRCurve*>(&shape);
  return curve != nullptr ? curve->get_Length() : 0.0;
}

std::vector<ReadRow> ReadRows(const std::string& path, const std::vector<std::string>& fields,
                              const char* name = nullptr) {
  std::vector<ReadRow> rows;
  const auto data = OpenData(path);
  if (data == nullptr || data->GetLayerCount() == 0) return rows;
  OGRLayer* const found = name == nullptr ? data->GetLayer(0) : data->GetLayerByName(name);
  if (found == nullptr) return rows;
  OGRLayer& layer = *found;
  for (const auto& feature : layer) {
    ReadRow row;
    for (const std::string& field : fields) {
      const int index = feature->GetFieldIndex(field.c_str());
      EXPECT_GE(index, 0) << path << " has no " << field;
      if (index < 0) return rows;
      row.texts.emplace_back(feature->GetFieldAsString(index));
      row.numbers.push_back(std::strtod(row.texts.back().c_str(), nullptr));
    }
    if (const OGRGeometry* shape = feature->GetGeometryRef()) {
      row.size = SizeOf(*shape);
      row.vertices = VerticesOf(*shape);
      shape->getEnvelope(&row.box);
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

// The same for a row of any format, where one keeps an order of its own.
std::string KeyOf(const ReadRow& row) {
  std::ostringstream key;
  for (std::size_t index = 0; index < row.texts.size(); ++index) {
    if (row.numbers[index] != 0.0) {
      key << std::setprecision(6) << row.numbers[index] << ' ';
    } else if (row.texts[index].find_first_not_of("0.-") != std::string::npos) {
      key << row.texts[index] << ' ';
    }
  }
  key << std::llround(row.box.MinX * 1e6) << ' ' << std::llround(row.box.MaxY * 1e6);
  return key.str();
}

// How far values may differ.
struct Tolerance {
  double share = 1e-9;  // of a number; a column of a shapefile has 8 decimals besides
  int vertices = 0;     // that are merged
  bool needles = true;  // parts thinner than a step are kept
};

// The grid of a geodatabase merges vertices that lie closer than its step, which changes measures of the shape.
constexpr Tolerance kOnGrid{1e-6, 5, false};

bool Near(double first, double second, double share) {
  return first == second || std::fabs(first - second) <= 2e-8 + share * std::fabs(first);
}

std::string Difference(const ReadRow& meant, const ReadRow& read, const Tolerance& tolerance) {
  for (std::size_t index = 0; index < meant.texts.size(); ++index) {
    const std::string& text = meant.texts[index];
    const bool number = !text.empty() && text.find_first_not_of("0123456789.-+e") == std::string::npos;
    const bool same =
        number ? Near(meant.numbers[index], read.numbers[index], tolerance.share) : text == read.texts[index];
    if (!same) return text + " reads back as " + read.texts[index];
  }
  if (read.vertices > meant.vertices || meant.vertices - read.vertices > tolerance.vertices) {
    return "vertices " + std::to_string(read.vertices);
  }
  const auto near = [](double first, double second) { return Near(first, second, 1e-9); };
  const bool box = near(meant.box.MinX, read.box.MinX) && near(meant.box.MaxX, read.box.MaxX) &&
                   near(meant.box.MinY, read.box.MinY) && near(meant.box.MaxY, read.box.MaxY);
  if (tolerance.needles && !box) return "the shape lies elsewhere";
  return std::fabs(meant.size - read.size) <= 1e-6 * std::max(1.0, meant.size) ? "" : "another size";
}

class EveryTool : public ProgramTest, public ::testing::WithParamInterface<ToolRow> {
 protected:
  // The run adds its layer to the document.
  EveryTool() { std::filesystem::copy_file(Data("graphics.json"), In("graphics.json")); }

  // Some of the tools read lines.
  void MakeLines() const {
    if (!GetParam().arguments[1].starts_with('%')) return;
    ASSERT_EQ(RunTessarine({"to-polylines", Data("countries.shp"), "-o", In("lines.shp"), "-q"}).status, 0);
  }
  ProgramOutcome Run(const std::string& output, const std::vector<std::string>& more) const {
    std::vector<std::string> arguments;
    for (std::string word : GetParam().arguments) {
      if (word.starts_with('@')) word = Data(word.substr(1));
      if (word.starts_with('%')) word = In(word.substr(1));
      arguments.push_back(word);
    }
    arguments.insert(arguments.end(), {"-o", output, "-q"});
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunTessarine(arguments);
  }
  // The fields that the run itself says it would make, or, of a calculation, those that it would fill.
  std::vector<std::string> PlannedFields(const std::string& output) const {
    const ProgramOutcome plan = Run(output, {"-n", "-r", In("plan.json")});
    EXPECT_EQ(plan.status, 0) << plan.err;
    auto fields = nlohmann::json::parse(ReadFile(In("plan.json")))["plan"]["fields"].get<std::vector<std::string>>();
    // Geodatabases number their rows themselves.
    std::erase(fields, "Unique_ID");
    return fields;
  }
};

TEST_P(EveryTool, WritesTheSameIntoATableOfAServer) {
  const char* connection = std::getenv("TESSARINE_POSTGRES");
  if (connection == nullptr) GTEST_SKIP() << "TESSARINE_POSTGRES names no server";
  const std::string server = "PG:" + std::string(connection), place = server + ":tessarine_tool";
  MakeLines();
  const std::vector<std::string> names = PlannedFields(In("base.gpkg"));
  ASSERT_EQ(Run(In("base.gpkg"), {}).status, 0);
  const std::vector<ReadRow> base = ReadRows(In("base.gpkg"), names);
  ASSERT_FALSE(base.empty());
  const ProgramOutcome run = Run(place, {"--overwrite"});
  ASSERT_EQ(run.status, 0) << run.err;
  const std::vector<ReadRow> rows = ReadRows(server, names, "tessarine_tool");
  ASSERT_EQ(rows.size(), base.size());
  for (std::size_t index = 0; index < rows.size(); ++index) {
    ASSERT_EQ(Difference(base[index], rows[index], Tolerance()), "") << index;
  }
  GDALDatasetUniquePtr data(GDALDataset::Open(server.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
  data->ExecuteSQL("DROP TABLE tessarine_tool", nullptr, nullptr);
}

TEST_P(EveryTool, WritesTheSameIntoEveryFormat) {
  MakeLines();
  const std::vector<std::string> names = PlannedFields(In("base.shp"));
  ASSERT_FALSE(names.empty());
  ASSERT_EQ(Run(In("base.shp"), {}).status, 0);
  const std::vector<ReadRow> base = ReadRows(In("base.shp"), names);
  ASSERT_FALSE(base.empty());
  for (const std::string place : {"o.gpkg", "o.gdb/o", "o.fgb", "o.geojson", "o.csv", "o.sqlite:o", "o.gml"}) {
    std::vector<ReadRow> meant = base;
    const std::vector<std::string> planned = PlannedFields(In(place));
    EXPECT_FALSE(fs::exists(In("o.fgb")) && place == "o.fgb");
    const ProgramOutcome run = Run(In(place), {});
    const bool leaves_out = place == "o.fgb" && GetParam().without_shapes;
    ASSERT_EQ(run.status, leaves_out ? 1 : 0) << place << run.err;
    if (leaves_out) std::erase_if(meant, [](const ReadRow& row) { return row.vertices == 0; });
    ASSERT_EQ(planned.size(), names.size()) << place;
    std::vector<ReadRow> rows = ReadRows(In(place.substr(0, place.find_first_of("/:"))), planned);
    if (place == "o.fgb") {
      std::ranges::sort(rows, {}, KeyOf);
      std::ranges::sort(meant, {}, KeyOf);
    }
    ASSERT_EQ(rows.size(), meant.size()) << place;
    for (std::size_t index = 0; index < rows.size(); ++index) {
      ASSERT_EQ(Difference(meant[index], rows[index], place == "o.gdb/o" ? kOnGrid : Tolerance()), "")
          << place << ", row " << index << " " << rows[index].texts[0];
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Tools, EveryTool, ::testing::ValuesIn(Tools()),
                         [](const auto& tool) { return std::string(tool.param.name); });

using Outputs = OutputRuns;

TEST_F(Outputs, AContainerKeepsItsOtherLayers) {
  for (const std::string file : {"town.gpkg", "town.sqlite", "town.gdb"}) {
    const std::string container = In(file);
    const auto place = [&](const std::string& layer) {
      return container + (file.ends_with("gdb") ? "/" : ":") + layer;
    };
    ASSERT_EQ(Centroids(place("first")).status, 0) << file;
    ASSERT_EQ(RunTessarine({"wrap", Data("cities.shp"), "--range", "360", "-q", "-o", place("second")}).status, 0);
    const ProgramOutcome taken = Centroids(place("second"));
    EXPECT_EQ(taken.status, 2);
    EXPECT_THAT(taken.err, HasSubstr("exists already: add --overwrite"));
    EXPECT_EQ(CountOf(container, "second"), 243);
    ASSERT_EQ(Centroids(place("second"), {"--overwrite"}).status, 0);
    EXPECT_EQ(CountOf(container, "first"), 177);
    EXPECT_EQ(CountOf(container, "second"), 177);
  }
}

TEST_F(Outputs, AContainerThatStandsIsEnteredOnlyByALayerOrConsent) {
  ASSERT_EQ(Centroids(In("town.gpkg:first")).status, 0);
  const ProgramOutcome refused = Centroids(In("town.gpkg"));
  EXPECT_EQ(refused.status, 2);
  EXPECT_THAT(refused.err, HasSubstr("add --overwrite to put the layer 'town' into it"));
  EXPECT_EQ(Centroids(In("town.gpkg"), {"--overwrite"}).status, 0);
  EXPECT_THAT(Layers(In("town.gpkg")), ElementsAre("first", "town"));
}

TEST_F(Outputs, NamesAndTypesFollowTheFormat) {
  WriteFile(In("s.geojson"), R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{)"
                             R"("population_density_of_2010":9007199254740993,"seen at":"2020-02-29T12:30:15Z",)"
                             R"("fid":7,"Uniq_ID":"own","long":")" +
                                 std::string(300, 'x') +
                                 R"("},"geometry":{"type":"LineString","coordinates":[[0,0],[2,0]]}}]})");
  for (const std::string place : {"o.gpkg", "o.fgb", "o.geojson", "o.sqlite"}) {
    ASSERT_EQ(RunTessarine({"centroids", In("s.geojson"), "--all-fields", "-q", "-o", In(place)}).status, 0) << place;
    const auto data = OpenData(In(place));
    ASSERT_NE(data, nullptr);
    OGRLayer& layer = *data->GetLayer(0);
    const OGRFeatureUniquePtr row(layer.GetNextFeature());
    EXPECT_EQ(row->GetFieldAsInteger64("population_density_of_2010"), 9007199254740993) << place;
    EXPECT_EQ(std::string(row->GetFieldAsString("seen at")), "2020/02/29 12:30:15+00") << place;
    EXPECT_EQ(std::string(row->GetFieldAsString("long")).size(), 300U) << place;
    EXPECT_EQ(row->GetFieldAsInteger("fid"), 7) << place;
    EXPECT_EQ(std::string(row->GetFieldAsString("Uniq_ID")), "own") << place;
    EXPECT_EQ(row->GetFieldAsInteger("Uniq_ID_2"), 1) << place;
    EXPECT_EQ(row->GetFieldAsDouble("X_Coord"), 1.0) << place;
  }
}

// SQLite checks every node of an index itself; GDAL finds by it what it finds without.
TEST_F(Outputs, GeoPackagesAreIndexedWhole) {
  struct Row {
    std::vector<std::string> arguments;
    GIntBig least;
  };
  for (const Row& row :
       {Row{{"vertices", Data("countries.shp")}, 10000}, Row{{"centroids", Data("countries.shp")}, 177},
        Row{{"centroids", Data("countries.shp"), "--where", "name = 'Italy'"}, 1},
        Row{{"calculate", Data("cities.shp"), "-m", "1"}, 243}}) {
    std::vector<std::string> arguments = row.arguments;
    arguments.insert(arguments.end(), {"-q", "--overwrite", "-o", In("o.gpkg:it's o")});
    ASSERT_EQ(RunTessarine(arguments).status, 0);
    const auto data = OpenData(In("o.gpkg"));
    OGRLayer& layer = *data->GetLayer(0);
    EXPECT_GE(layer.GetFeatureCount(), row.least);
    EXPECT_NE(layer.TestCapability(OLCFastSpatialFilter), 0);
    OGRLayer* check = data->ExecuteSQL("SELECT rtreecheck('rtree_it''s o_geom')", nullptr, nullptr);
    ASSERT_NE(check, nullptr);
    EXPECT_STREQ(OGRFeatureUniquePtr(check->GetNextFeature())->GetFieldAsString(0), "ok") << row.arguments[0];
    data->ReleaseResultSet(check);
    constexpr double kBox[] = {5.0, 35.0, 20.0, 50.0};
    GIntBig inside = 0;
    for (const auto& feature : layer) {
      OGREnvelope box;
      feature->GetGeometryRef()->getEnvelope(&box);
      if (box.MaxX >= kBox[0] && box.MaxY >= kBox[1] && box.MinX <= kBox[2] && box.MinY <= kBox[3]) ++inside;
    }
    layer.SetSpatialFilterRect(kBox[0], kBox[1], kBox[2], kBox[3]);
    EXPECT_EQ(layer.GetFeatureCount(), inside) << row.arguments[0];
    EXPECT_GT(inside, 0);
  }
}

TEST_F(Outputs, TimesOfAZoneAreMomentsInAGeoPackage) {
  WriteFile(In("s.geojson"), R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{)"
                             R"("at":"2020-03-01T01:30:00+02:00"},"geometry":{"type":"LineString",)"
                             R"("coordinates":[[0,0],[2,0]]}}]})");
  ASSERT_EQ(RunTessarine({"centroids", In("s.geojson"), "-a", "-q", "-o", In("o.gpkg"), "-r", In("r.json")}).status, 0);
  EXPECT_THAT(Values(In("o.gpkg"), "", "Uniq_ID", "at"), ElementsAre(std::pair("1", "2020/02/29 23:30:00+00")));
  EXPECT_EQ(Report()["changed"][0]["kind"], "zone_to_utc");
}

TEST_F(Outputs, LongitudesAndLatitudesAreAllThatSomeFormatsKeep) {
  std::filesystem::copy_file(Data("graphics.json"), In("graphics.json"));
  ASSERT_EQ(RunTessarine({"graphics", "new", In("graphics.json"), "polylines", "--reference", "EPSG:32633", "-o",
                          In("utm.shp"), "-q"})
                .status,
            0);
  {
    GDALDatasetUniquePtr data(GDALDataset::Open(In("utm.shp").c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    OGRFeature row(data->GetLayer(0)->GetLayerDefn());
    OGRLineString line;
    line.addPoint(500000.0, 0.0);
    line.addPoint(500000.0, 2000.0);
    row.SetGeometry(&line);
    ASSERT_EQ(data->GetLayer(0)->CreateFeature(&row), OGRERR_NONE);
  }
  for (const std::string place : {"o.kml", "o.geojsonl"}) {
    ASSERT_EQ(RunTessarine({"vertices", In("utm.shp"), "-q", "-o", In(place), "-r", In("r.json")}).status, 0) << place;
    EXPECT_THAT(Report()["warnings"], IsEmpty()) << place;
    const auto data = OpenData(In(place));
    OGREnvelope box;
    ASSERT_EQ(data->GetLayer(0)->GetExtent(&box), OGRERR_NONE);
    // The central meridian of the zone, and 2 km by the scale of 0.9996.
    EXPECT_NEAR(box.MaxX, 15.0, 1e-9) << place;
    EXPECT_NEAR(box.MaxY, 2000.0 / 0.9996 / 110574.3, 1e-6) << place;
  }
}

TEST_F(Outputs, RefusedBeforeTheFirstWrite) {
  fs::create_directories(In("folder.geojson"));
  struct Row {
    std::string place;
    std::vector<std::string> more;
    const char* says;
  };
  for (const Row& row : {Row{"o.xyz", {}, "names no format that is known"},
                         Row{"o.dat", {"--format", "nonsense"}, "is no format that can be written"},
                         Row{"o.dxf", {}, "keeps no fields"}, Row{"o.xlsx", {}, "keeps no shapes"},
                         Row{"folder.geojson", {"--overwrite"}, "is a folder and isn't replaced by a file"},
                         Row{"none/o.gpkg", {}, "there is no folder"}, Row{"o.gpkg:a/b", {}, "holds no slash"},
                         Row{"PG:dbname=x", {}, "names no table"}}) {
    std::vector<std::string> more = row.more;
    const ProgramOutcome run = Centroids(row.place.starts_with("PG:") ? row.place : In(row.place), more);
    EXPECT_EQ(run.status, 2) << row.place << run.err;
    EXPECT_THAT(run.err, HasSubstr(row.says)) << row.place;
  }
  EXPECT_THAT(Left(), ElementsAre("folder.geojson"));
}

TEST_F(Outputs, TheSourceIsNoTarget) {
  ASSERT_EQ(Centroids(In("s.gpkg:points")).status, 0);
  ASSERT_EQ(Centroids(In("s.geojson")).status, 0);
  for (const std::string place : {"s.gpkg:points", "s.geojson"}) {
    const std::string file = In(place.substr(0, place.find(':')));
    const std::string before = ReadFile(file);
    const ProgramOutcome run =
        RunTessarine({"wrap", In(place), "--range", "360", "-q", "--overwrite", "-o", In(place)});
    EXPECT_EQ(run.status, 2) << place;
    EXPECT_THAT(run.err, HasSubstr("is read by this run"));
    EXPECT_EQ(ReadFile(file), before);
  }
}

TEST_F(Outputs, AFullDiskLeavesTheOldOutput) {
  for (const std::string place : {"o.gpkg", "o.geojson", "o.fgb", "o.sqlite"}) {
    ASSERT_EQ(RunTessarine({"centroids", Data("countries.shp"), "-q", "-o", In(place)}).status, 0);
    const std::string before = ReadFile(In(place));
    const ProgramOutcome run =
        RunWithoutRoom({"wrap", Data("countries.shp"), "--range", "360", "-q", "--overwrite", "-o", In(place)}, 150000);
    EXPECT_EQ(run.status, 1) << place << run.err;
    EXPECT_TRUE(ReadFile(In(place)) == before) << place;
    EXPECT_THAT(LeftBeside({place}), IsEmpty()) << place;
    fs::remove(In(place));
  }
}

TEST_F(Outputs, TheTableOfFormatsNamesWhatEachKeeps) {
  const ProgramOutcome run = RunTessarine({"formats"});
  EXPECT_EQ(run.status, 0);
  for (const char* ending : {".shp", ".gpkg", ".gdb", ".geojson", ".geojsonl", ".fgb", ".kml", ".csv", ".sqlite",
                             ".gml", ".tab", ".mif", "DXF"}) {
    EXPECT_THAT(run.out, HasSubstr(ending));
  }
}

}  // namespace
}  // namespace tessarine::testing
