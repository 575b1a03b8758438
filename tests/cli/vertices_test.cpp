// SPDX-License-Identifier: GPL-2.0-or-later
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <nlohmann/json.hpp>
#include <regex>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

GDALDatasetUniquePtr OpenData(const std::string& path) {
  GDALAllRegister();
  return GDALDatasetUniquePtr(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
}

std::string MaskTimes(const std::string& report) {
  return std::regex_replace(report, std::regex("(Began|Complete):   .*|Time Elapsed:   .*"), "$1 TIME");
}

class Vertices : public ProgramTest {};

TEST_F(Vertices, OfTheCountriesWithTwoFields) {
  const ProgramOutcome run = RunTessarine({"vertices", Data("countries.shp"), "--fields", "name,pop_est", "-o",
                                           In("vertex.shp"), "--report", In("run.json")});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(MaskTimes(run.out),
            "Shapes to Vertices Successful:\n"
            "---------------------------------------------\n"
            "Input Parameters:\n"
            "  ** Input Feature Layer: countries\n"
            "  ** Convert All Records (n = 177)\n"
            "  ** Fields to Include:\n"
            "       1] pop_est\n"
            "       2] name\n"
            "---------------------------------------------\n"
            "Output:\n"
            "  ** " +
                In("vertex.shp") +
                "\n"
                "  ** Spatial Reference:  WGS 84\n"
                "  ** Contains 10643 vertex points\n"
                "---------------------------------------------\n"
                "Analysis Began TIME\n"
                "Analysis Complete TIME\n"
                " TIME\n\n");

  const auto output = OpenData(In("vertex.shp"));
  ASSERT_TRUE(output);
  OGRLayer& layer = *output->GetLayer(0);
  ASSERT_EQ(layer.GetLayerDefn()->GetFieldCount(), 5);
  EXPECT_EQ(wkbFlatten(layer.GetGeomType()), wkbPoint);
  // Every vertex in the file's own order, as GDAL alone reads the countries.
  const auto input = OpenData(Data("countries.shp"));
  OGRFeatureUniquePtr row(layer.GetNextFeature());
  int number = 0;
  const auto check_ring = [&](const OGRFeature& country, const OGRLinearRing& ring) {
    for (const OGRPoint& vertex : ring) {
      ASSERT_TRUE(row);
      EXPECT_EQ(row->GetFieldAsInteger("Uniq_ID"), ++number);
      EXPECT_EQ(row->GetGeometryRef()->toPoint()->getX(), vertex.getX());
      EXPECT_EQ(row->GetGeometryRef()->toPoint()->getY(), vertex.getY());
      EXPECT_NEAR(row->GetFieldAsDouble("X_Coord"), vertex.getX(), 5e-9);
      EXPECT_NEAR(row->GetFieldAsDouble("Y_Coord"), vertex.getY(), 5e-9);
      EXPECT_STREQ(row->GetFieldAsString("name"), country.GetFieldAsString("name"));
      EXPECT_EQ(row->GetFieldAsDouble("pop_est"), country.GetFieldAsDouble("pop_est"));
      row.reset(layer.GetNextFeature());
    }
  };
  for (const auto& country : input->GetLayer(0)) {
    const OGRGeometry* shape = country->GetGeometryRef();
    if (wkbFlatten(shape->getGeometryType()) == wkbPolygon) {
      for (const OGRLinearRing* ring : *shape->toPolygon()) check_ring(*country, *ring);
    } else {
      for (const OGRPolygon* part : *shape->toMultiPolygon()) {
        for (const OGRLinearRing* ring : *part) check_ring(*country, *ring);
      }
    }
  }
  EXPECT_EQ(number, 10643);

  const json report = json::parse(ReadFile(In("run.json")));
  EXPECT_EQ(report["records"]["read"], 177);
  EXPECT_EQ(report["records"]["written"], 10643);
  EXPECT_EQ(report["outcome"], "done");
  EXPECT_EQ(report["spatial_reference"]["spheroid"]["semi_major_axis"], 6378137.0);
  EXPECT_EQ(report["versions"]["gdal"], GDALVersionInfo("RELEASE_NAME"));
  EXPECT_THAT(report["command_line"], HasSubstr("--fields name,pop_est"));
}

struct PlaceRow {
  const char* name;
  std::vector<std::string> arguments;  ///< OUT stands for the test's folder
  const char* written;
  const char* layer;
  int rows;
};

// Parameter rows in failure messages are their names.
void PrintTo(const PlaceRow& row, std::ostream* out) { *out << row.name; }

class VerticesInto : public ProgramTest, public ::testing::WithParamInterface<PlaceRow> {};

TEST_P(VerticesInto, Place) {
  std::vector<std::string> arguments{"vertices", Data("countries.shp"), "--quiet"};
  for (std::string argument : GetParam().arguments) {
    if (argument.starts_with("OUT/")) argument = In(argument.substr(4));
    arguments.push_back(argument);
  }
  const ProgramOutcome run = RunTessarine(arguments);
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out + run.err, "");
  const auto output = OpenData(In(GetParam().written));
  ASSERT_TRUE(output);
  OGRLayer* layer = output->GetLayerByName(GetParam().layer);
  ASSERT_TRUE(layer);
  EXPECT_EQ(layer->GetFeatureCount(), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(
    All, VerticesInto,
    ::testing::Values(
        // Counts of vertices come from `ogrinfo -sql "SELECT SUM(ST_NPoints(geometry))" -dialect sqlite`.
        PlaceRow{"geodatabase", {"-o", "OUT/new.gdb/points"}, "new.gdb", "points", 10643},
        PlaceRow{"feature dataset", {"-o", "OUT/new.gdb/shapes/points"}, "new.gdb", "points", 10643},
        PlaceRow{"geodatabase alone", {"-o", "OUT/new.gdb"}, "new.gdb", "new", 10643},
        PlaceRow{"personal geodatabase alone", {"-o", "OUT/new.mdb"}, "new.mdb", "new", 10643},
        PlaceRow{"GeoPackage alone", {"-o", "OUT/new.gpkg"}, "new.gpkg", "new", 10643},
        PlaceRow{"folder", {"-o", "OUT/"}, "vertex.shp", "vertex", 10643},
        PlaceRow{
            "selection", {"--where", "continent = 'Africa'", "-o", "OUT/africa.shp"}, "africa.shp", "africa", 2242},
        PlaceRow{"all fields", {"--all-fields", "-o", "OUT/all.shp"}, "all.shp", "all", 10643}));

struct RefusalRow {
  const char* name;
  std::vector<std::string> arguments;
  std::vector<std::string> said;  ///< all of these on standard error
};

void PrintTo(const RefusalRow& row, std::ostream* out) { *out << row.name; }

class VerticesRefuse : public ProgramTest, public ::testing::WithParamInterface<RefusalRow> {
 protected:
  VerticesRefuse() {
    namespace fs = std::filesystem;
    fs::create_directory(folder_ / "in");
    for (const char* ending : {".shp", ".shx", ".dbf", ".prj"}) {
      fs::copy_file(Data("countries") + ending, In("in/short") + ending);
      fs::copy_file(Data("countries") + ending, In("in/whole") + ending);
      if (std::string(ending) != ".dbf") fs::copy_file(Data("countries") + ending, In("in/nodbf") + ending);
    }
    fs::resize_file(In("in/short.shp"), 5000);
    for (const char* name : {"in/fewer", "in/cut"}) {
      for (const char* ending : {".shp", ".shx", ".dbf"}) fs::copy_file(Data("countries") + ending, In(name) + ending);
    }
    // The number of rows stands at byte 4: 177 become 170.
    std::string table = ReadFile(In("in/fewer.dbf"));
    table[4] = static_cast<char>(170);
    WriteFile(In("in/fewer.dbf"), table);
    fs::resize_file(In("in/cut.dbf"), fs::file_size(In("in/cut.dbf")) - 3);
    WriteFile(In("in/text.shp"), "This is no shapefile.");
    WriteFile(In("in/damaged.json"), "{\"format\": ");
  }
};

TEST_P(VerticesRefuse, WithoutATrace) {
  std::vector<std::string> arguments{"vertices"};
  for (std::string argument : GetParam().arguments) {
    if (argument.starts_with("DATA/")) argument = Data(argument.substr(5));
    if (argument.starts_with("OUT/")) argument = In(argument.substr(4));
    arguments.push_back(argument);
  }
  const ProgramOutcome run = RunTessarine(arguments);
  EXPECT_EQ(run.status, 2) << run.out << run.err;
  EXPECT_EQ(run.out, "");
  for (const std::string& words : GetParam().said) EXPECT_THAT(run.err, HasSubstr(words));
  EXPECT_THAT(Left(), ElementsAre("in"));
}

INSTANTIATE_TEST_SUITE_P(
    All, VerticesRefuse,
    ::testing::Values(
        RefusalRow{"no file", {"DATA/nothing.shp", "-o", "OUT/x.shp"}, {"There is no file or folder", "nothing.shp"}},
        RefusalRow{"no vector data", {"OUT/in/damaged.json", "-o", "OUT/x.shp"}, {"damaged.json", "no vector data"}},
        RefusalRow{"no shapefile", {"OUT/in/text.shp", "-o", "OUT/x.shp"}, {"text.shp"}},
        RefusalRow{"cut off", {"OUT/in/short.shp", "-o", "OUT/x.shp"}, {"short.shp", "cut off"}},
        RefusalRow{"fewer rows than shapes",
                   {"OUT/in/fewer.shp", "-o", "OUT/x.shp"},
                   {"fewer.shp", "177 shapes", "fewer.dbf' has 170 rows", "Copy all its parts"}},
        RefusalRow{"fewer rows in a folder", {"OUT/in", "-l", "fewer", "-o", "OUT/x.shp"}, {"fewer.shp", "170 rows"}},
        RefusalRow{"table cut off", {"OUT/in/cut.shp", "-o", "OUT/x.shp"}, {"cut.dbf", "177 rows", "it has 176"}},
        RefusalRow{"attributes missing", {"OUT/in/nodbf.shp", "-o", "OUT/x.shp"}, {"nodbf", ".dbf"}},
        RefusalRow{"unknown layer", {"DATA/countries.shp", "-l", "rivers", "-o", "OUT/x.shp"}, {"rivers", "countries"}},
        RefusalRow{"unknown field",
                   {"DATA/countries.shp", "-f", "names", "-o", "OUT/x.shp"},
                   {"--fields", "'names'", "It has: pop_est, continent, name"}},
        RefusalRow{
            "points", {"DATA/cities.shp", "-o", "OUT/x.shp"}, {"wrong kind", "polylines, polygons or multipoints"}},
        RefusalRow{"no folder", {"DATA/countries.shp", "-o", "OUT/none/x.shp"}, {"none"}},
        RefusalRow{"onto itself", {"OUT/in/whole.shp", "-o", "OUT/in/whole.shp", "--overwrite"}, {"read by this run"}},
        RefusalRow{"dataset of letters that an index can't take",
                   {"DATA/countries.shp", "-o", "OUT/x.mdb/Größe/v"},
                   {"no name for a feature dataset", "Gr__e"}},
        RefusalRow{"no ending", {"DATA/countries.shp", "-o", "OUT/x.abc"}, {"x.abc", "names no format"}},
        RefusalRow{"broken condition", {"DATA/countries.shp", "-w", "name = = 1", "-o", "OUT/x.shp"}, {"name = = 1"}},
        RefusalRow{"empty selection", {"DATA/countries.shp", "-w", "name = ''", "-o", "OUT/x.shp"}, {"No record"}},
        RefusalRow{
            "report ending", {"DATA/countries.shp", "-o", "OUT/x.shp", "--report", "OUT/r.doc"}, {"r.doc", "json"}},
        RefusalRow{"damaged document",
                   {"countries", "--document", "OUT/in/damaged.json", "-o", "OUT/x.shp"},
                   {"damaged.json", "no JSON"}},
        RefusalRow{"no output", {"DATA/countries.shp"}, {"--output"}},
        RefusalRow{"unknown option", {"DATA/countries.shp", "-o", "OUT/x.shp", "--colour"}, {"--colour"}}));

TEST_F(Vertices, KeepWhatStandsThereUnlessToldToOverwrite) {
  const std::vector<std::string> all{"vertices", Data("countries.shp"), "-o", In("v.shp"), "-q"};
  ASSERT_EQ(RunTessarine(all).status, 0);
  const std::string before = ReadFile(In("v.dbf"));
  std::vector<std::string> some = all;
  some.insert(some.end(), {"--where", "name = 'Fiji'"});
  const ProgramOutcome refused = RunTessarine(some);
  EXPECT_EQ(refused.status, 2);
  EXPECT_THAT(refused.err, HasSubstr("--overwrite"));
  EXPECT_EQ(ReadFile(In("v.dbf")), before);
  some.push_back("--overwrite");
  EXPECT_EQ(RunTessarine(some).status, 0);
  const auto output = OpenData(In("v.shp"));
  EXPECT_EQ(output->GetLayer(0)->GetFeatureCount(), 22);
}

TEST_F(Vertices, DryRunPrintsThePlanAndWritesNothing) {
  const ProgramOutcome run = RunTessarine(
      {"vertices", Data("countries.shp"), "-a", "-o", In("x.gdb/shapes/v"), "--dry-run", "--where", "name > 'T'"});
  EXPECT_EQ(run.status, 0) << run.err;
  for (const char* words : {"countries", "x.gdb", "shapes", "Uniq_ID", "X_Coord", "gdp_md_est"}) {
    EXPECT_THAT(run.out, HasSubstr(words));
  }
  EXPECT_THAT(Left(), IsEmpty());
}

// 60,000 lines of three vertices, as GeoJSON.
void WriteManyLines(const std::string& path) {
  std::string text = R"({"type":"FeatureCollection","features":[)";
  for (int line = 0; line < 60000; ++line) {
    const std::string x = std::to_string(line % 360 - 180) + ".5";
    text += std::string(line > 0 ? "," : "") + R"({"type":"Feature","properties":{"n":)" + std::to_string(line) +
            R"(},"geometry":{"type":"LineString","coordinates":[[)" + x + ",0],[" + x + ",1],[" + x + ",2]]}}";
  }
  WriteFile(path, text + "]}");
}

TEST_F(Vertices, StoppedRunLeavesAValidPartAndSaysSo) {
  WriteManyLines(In("many.json"));
  const ProgramOutcome run =
      RunAndInterrupt({"vertices", In("many.json"), "-o", In("v.shp"), "--report", In("r.json")}, In("v.dbf"), 10000);
  EXPECT_EQ(run.status, 1) << run.err;
  EXPECT_THAT(run.out, HasSubstr("Exited Function Prematurely at Record"));
  EXPECT_THAT(run.out, HasSubstr("Partial output saved to " + In("v.shp")));
  const json report = json::parse(ReadFile(In("r.json")));
  EXPECT_EQ(report["outcome"], "stopped");
  const auto output = OpenData(In("v.shp"));
  ASSERT_TRUE(output);
  const auto rows = output->GetLayer(0)->GetFeatureCount();
  EXPECT_EQ(report["records"]["written"], rows);
  EXPECT_EQ(rows % 3, 0);
  EXPECT_LT(rows, 180000);
}

TEST_F(Vertices, StoppedRunLeavesASoundPersonalGeodatabase) {
  WriteManyLines(In("many.json"));
  const ProgramOutcome run = RunAndInterrupt(
      {"vertices", In("many.json"), "-o", In("v.mdb/points"), "--report", In("r.json")}, In("many.json"), 1000);
  EXPECT_EQ(run.status, 1) << run.err;
  const json report = json::parse(ReadFile(In("r.json")));
  EXPECT_EQ(report["outcome"], "stopped");
  const auto written = report["records"]["written"].get<std::int64_t>();
  EXPECT_EQ(written % 3, 0);
  EXPECT_LT(written, 180000);
  const ProgramOutcome info = RunTessarine({"info", In("v.mdb")});
  EXPECT_THAT(info.out, HasSubstr("Records:     " + std::to_string(written) + "\n"));
  EXPECT_THAT(Left(), ::testing::UnorderedElementsAre("many.json", "r.json", "v.mdb"));
}

TEST_F(Vertices, ReportInEveryKind) {
  for (const char* ending : {"rtf", "txt", "html", "json"}) {
    const std::string report = In(std::string("r.") + ending);
    ASSERT_EQ(
        RunTessarine({"vertices", Data("countries.shp"), "-o", In("v.shp"), "--overwrite", "-q", "--report", report})
            .status,
        0);
    EXPECT_THAT(ReadFile(report), HasSubstr("Contains 10643 vertex points")) << ending;
    // As a person sees it: the path is native in every kind.
    if (std::string(ending) != "rtf") {
      EXPECT_THAT(ReadFile(report), HasSubstr(In("v.shp"))) << ending;
    }
  }
  EXPECT_THAT(ReadFile(In("r.rtf")), ::testing::StartsWith("{\\rtf1"));
  EXPECT_THAT(ReadFile(In("r.html")), HasSubstr("<b>"));
}

TEST_F(Vertices, WithoutRoomTheReportTellsWhatIsOnTheDisk) {
  for (const char* name : {"out.shp", "out.gdb/out", "out.mdb/out"}) {
    const std::filesystem::path path(In(name));
    const bool shapefile = path.extension() == ".shp";
    const ProgramOutcome run = RunWithoutRoom(
        {"vertices", Data("countries.shp"), "-o", path.string(), "-q", "--report", In("r.json")}, 200'000);
    EXPECT_EQ(run.status, 1) << name;
    EXPECT_THAT(run.err, HasSubstr("(ulimit -f)")) << name;
    const json report = json::parse(ReadFile(In("r.json")));
    EXPECT_EQ(report["outcome"], "failed") << name;
    EXPECT_THAT(report["failure"].get<std::string>(), HasSubstr("(ulimit -f)"));
    EXPECT_THAT(report["report"].get<std::string>(), HasSubstr("!!!  Shapes to Vertices Failed  !!!"));
    std::int64_t readable = 0;
    if (const auto output = OpenData(shapefile ? path.string() : path.parent_path().string())) {
      for (const auto& row : *output->GetLayer(0)) readable += row->GetGeometryRef() != nullptr ? 1 : 0;
    }
    EXPECT_EQ(report["records"]["written"], readable) << name;
  }
}

}  // namespace
}  // namespace tessarine::testing
