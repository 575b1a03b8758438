// SPDX-License-Identifier: GPL-2.0-or-later
// Runs on several threads: files and reports are those of one, byte for byte.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cmath>
#include <random>
#include <regex>

#include "cli/copied_data.h"

namespace tessarine::testing {
namespace {

using ::testing::HasSubstr;

constexpr int kRecords = 900;  // several batches

// Regular ones, and now and then one that has something to tell of: none, empty, over the edge, beyond a pole, crossing
// itself, with a coordinate that is no number, of two parts.
std::string PolygonText(int number, std::mt19937& random) {
  const auto draw = [&](int least, int most) { return least + static_cast<int>(random() % (most - least)); };
  const double x = draw(-1700, 1700) / 10.0, y = draw(-800, 800) / 10.0, size = draw(1, 40) / 10.0;
  const auto ring = [&](double west, double south, double width) {
    const auto text = [](double a, double b) { return std::to_string(a) + " " + std::to_string(b); };
    return "(" + text(west, south) + "," + text(west, south + width) + "," + text(west + width, south + width) + "," +
           text(west + width, south) + "," + text(west, south) + ")";
  };
  switch (number % 40) {
    case 3:
      return "";
    case 7:
      return "POLYGON EMPTY";
    case 11:
      return "POLYGON((179 10,-179 10,-179 12,179 12,179 10))";
    case 17:
      return "POLYGON" + ("(" + ring(x, 89.5, 2.0)) + ")";
    case 23:
      return "POLYGON((0 0,10 10,10 0,0 10,0 0))";
    case 29:
      return "MULTIPOLYGON((" + ring(x, y, size) + "),(" + ring(x + 5.0, y, 1.0) + "))";
    case 31:
      return "POLYGON((0 0,0 1,inf 1,1 0,0 0))";
    default:
      return "POLYGON(" + ring(x, y, size) + ")";
  }
}

class Jobs : public Copies {
 protected:
  void WriteLayer(const std::string& path, const char* driver_name) const {
    GDALAllRegister();
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(driver_name);
    const GDALDatasetUniquePtr data(driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRSpatialReference wgs84;
    wgs84.SetWellKnownGeogCS("WGS84");
    wgs84.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    OGRLayer* layer = data->CreateLayer("records", &wgs84, wkbMultiPolygon);
    OGRFieldDefn name("name", OFTString), narrow("narrow", OFTReal);
    name.SetWidth(12);
    narrow.SetWidth(7);
    narrow.SetPrecision(1);
    for (OGRFieldDefn* field : {&name, &narrow}) layer->CreateField(field);
    std::mt19937 random(16);
    for (int number = 0; number < kRecords; ++number) {
      OGRFeature row(layer->GetLayerDefn());
      row.SetField(0, ("row " + std::to_string(number)).c_str());
      const std::string text = PolygonText(number, random);
      OGRGeometry* shape = nullptr;
      if (!text.empty()) OGRGeometryFactory::createFromWkt(text.c_str(), nullptr, &shape);
      row.SetGeometryDirectly(OGRGeometryFactory::forceToMultiPolygon(shape));
      ASSERT_EQ(layer->CreateFeature(&row), OGRERR_NONE);
    }
  }

  // Some nearly antipodal, some without length, some without a shape; in Mercator, so that they are projected first.
  static void WriteLines(const std::string& path) {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
    const GDALDatasetUniquePtr data(driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRSpatialReference mercator;
    mercator.importFromEPSG(3395);
    OGRLayer* layer = data->CreateLayer("records", &mercator, wkbLineString);
    std::mt19937 random(17);
    const auto draw = [&](double most) { return most * (static_cast<double>(random() % 2001) / 1000.0 - 1.0); };
    for (int number = 0; number < kRecords; ++number) {
      OGRFeature row(layer->GetLayerDefn());
      OGRLineString line;
      const double x = draw(2e7), y = draw(1e7);
      line.addPoint(x, y);
      if (number % 20 == 7) line.addPoint(x < 0.0 ? x + 20037508.0 : x - 20037508.0, -y);
      for (int vertex = 0; vertex < 12; ++vertex) line.addPoint(number % 20 == 3 ? x : x + draw(1e5), y);
      if (number % 20 != 11) row.SetGeometry(&line);
      ASSERT_EQ(layer->CreateFeature(&row), OGRERR_NONE);
    }
  }

  // Squares, each over many others.
  static void WriteCrowd(const std::string& path) {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
    const GDALDatasetUniquePtr data(driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRLayer* layer = data->CreateLayer("records", nullptr, wkbPolygon);
    std::mt19937 random(18);
    for (int number = 0; number < kRecords; ++number) {
      OGRFeature row(layer->GetLayerDefn());
      const double x = static_cast<double>(random() % 20011) / 7.0, y = static_cast<double>(random() % 20011) / 7.0;
      OGRLinearRing ring;
      for (const auto& [dx, dy] : {std::pair(0, 0), {0, 300}, {310, 290}, {300, 10}, {0, 0}})
        ring.addPoint(x + dx, y + dy);
      OGRPolygon square;
      square.addRing(&ring);
      row.SetGeometry(&square);
      ASSERT_EQ(layer->CreateFeature(&row), OGRERR_NONE);
    }
  }

  // Without the command line, and what tells the time.
  static std::string Steady(const std::filesystem::path& path) {
    static const std::regex kOfEachRun(
        R"re(("(start|end|elapsed_seconds|command_line)": [^\n]*)|([^\\]*[0-9]+:[0-9]+:[0-9]+ [AP]M)|(Elapsed: [^\\]*))re");
    static const std::regex kLastChange(R"re([0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\.[0-9]{3}Z)re");
    const std::string text = ReadFile(path);
    if (path.extension() == ".json") return std::regex_replace(text, kOfEachRun, "");
    return path.extension() == ".gpkg" ? std::regex_replace(text, kLastChange, "") : text;
  }

  // What a command leaves in a folder of its own, and what it says. `{}` stands for the folder.
  std::string Outcome(std::vector<std::string> arguments, const std::string& jobs, const std::string& source) {
    const std::filesystem::path place = In("place");
    std::filesystem::remove_all(place);
    std::filesystem::create_directory(place);
    if (!source.empty()) {
      for (const auto& file : std::filesystem::directory_iterator(folder_ / source)) {
        std::filesystem::copy(file.path(), place / file.path().filename());
      }
    }
    for (std::string& argument : arguments)
      argument = std::regex_replace(argument, std::regex("\\{\\}"), place.string());
    arguments.insert(arguments.end(), {"-j", jobs, "-r", (place / "report.json").string()});
    const ProgramOutcome run = RunTessarine(arguments);
    std::string all = std::to_string(run.status) + run.err;
    std::set<std::filesystem::path> files;
    for (const auto& file : std::filesystem::directory_iterator(place)) files.insert(file.path());
    for (const std::filesystem::path& file : files) {
      all += "\n" + file.filename().string() + "\n" + Steady(file);
    }
    return all;
  }
};

TEST_F(Jobs, MakeNoDifference) {
  for (const char* folder : {"shp", "gpkg", "lines", "crowd"}) std::filesystem::create_directory(In(folder));
  WriteLayer(In("shp/records.shp"), "ESRI Shapefile");
  WriteLayer(In("gpkg/records.gpkg"), "GPKG");
  WriteLines(In("lines/records.shp"));
  WriteCrowd(In("crowd/records.shp"));
  const std::vector<std::string> measures{"-m", "Sph. Area", "-m", "Sph. Centroid", "-m", "Perimeter Length=narrow"};
  const auto in_place = [&](const char* path) {
    std::vector<std::string> arguments{"calculate", path, "--yes"};
    arguments.insert(arguments.end(), measures.begin(), measures.end());
    return arguments;
  };
  const struct {
    const char* name;
    std::vector<std::string> arguments;
    const char* source;
  } rows[] = {
      {"measures in a shapefile", in_place("{}/records.shp"), "shp"},
      {"measures in a GeoPackage", in_place("{}/records.gpkg"), "gpkg"},
      {"measures of lines", {"calculate", "{}/records.shp", "--yes", "--all-measures"}, "lines"},
      {"centroids", {"centroids", In("gpkg/records.gpkg"), "-o", "{}/out.shp"}, ""},
      {"centres on the globe", {"spherical-centroids", In("gpkg/records.gpkg"), "-o", "{}/out.shp"}, ""},
      {"boundaries", {"to-polylines", In("gpkg/records.gpkg"), "-o", "{}/out.geojson"}, ""},
      {"parts", {"split", In("shp/records.shp"), "-o", "{}/out.shp"}, ""},
      {"union", {"combine", In("shp/records.shp"), "-o", "{}/out.shp"}, ""},
      {"union of a crowd", {"combine", In("crowd/records.shp"), "-o", "{}/out.shp"}, ""},
      {"wrap", {"wrap", In("gpkg/records.gpkg"), "--range", "360", "--short-steps", "-o", "{}/out.shp"}, ""},
      {"latitudes", {"to-graphic", In("shp/records.shp"), "-o", "{}/out.shp"}, ""},
  };
  for (const auto& row : rows) {
    const std::string one = Outcome(row.arguments, "1", row.source);
    EXPECT_THAT(one, HasSubstr("report.json")) << row.name;
    EXPECT_THAT(one, HasSubstr("\"read\": 900")) << row.name;
    for (const char* jobs : {"2", "4"}) {
      // The bytes of files would fill pages.
      EXPECT_TRUE(Outcome(row.arguments, jobs, row.source) == one) << row.name << " by " << jobs << " threads";
    }
  }
}

TEST_F(Jobs, KeepTheirMannersWhenStopped) {
  std::filesystem::create_directory(In("shp"));
  GDALAllRegister();
  const std::string path = In("shp/lines.shp");
  {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
    const GDALDatasetUniquePtr data(driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRSpatialReference wgs84;
    wgs84.SetWellKnownGeogCS("WGS84");
    OGRLayer* layer = data->CreateLayer("lines", &wgs84, wkbLineString);
    OGRLineString line;
    for (int vertex = 0; vertex < 10'000; ++vertex) line.addPoint(vertex * 1e-3, std::sin(vertex * 0.1));
    for (int number = 0; number < 400; ++number) {
      OGRFeature row(layer->GetLayerDefn());
      row.SetGeometry(&line);
      ASSERT_EQ(layer->CreateFeature(&row), OGRERR_NONE);
    }
  }
  const ProgramOutcome run =
      RunAndInterrupt({"calculate", path, "-m", "Spheroidal Length", "--yes", "-j", "2", "-r", In("report.json"), "-q"},
                      In("shp/lines.dbf"), 0);
  EXPECT_EQ(run.status, 1) << run.err;
  const nlohmann::json report = nlohmann::json::parse(ReadFile(In("report.json")));
  EXPECT_EQ(report["outcome"], "stopped");
  // What was written stays, from the first record on.
  const std::int64_t written = report["records"]["written"];
  EXPECT_LT(written, 400);
  const auto data = OpenData(path);
  std::int64_t measured = 0;
  for (const auto& row : *data->GetLayer(0)) {
    const int field = row->GetFieldCount() - 1;
    if (row->IsFieldSetAndNotNull(field) == 0) break;
    ++measured;
  }
  EXPECT_EQ(measured, written);
}

TEST_F(Jobs, OfNoSenseAreRefused) {
  for (const char* jobs : {"0", "many", "2.5", "100000"}) {
    const ProgramOutcome run = RunTessarine({"calculate", Data("countries.shp"), "-m", "1", "-j", jobs, "-n"});
    EXPECT_EQ(run.status, 2) << jobs;
    EXPECT_THAT(run.err, HasSubstr("--jobs")) << jobs;
  }
}

}  // namespace
}  // namespace tessarine::testing
