// SPDX-License-Identifier: GPL-2.0-or-later
// Outputs in another reference than their source, and layers that tell where they are from.
#include <gmock/gmock.h>

#include <cmath>
#include <numbers>

#include "cli/brought_runs.h"

namespace tessarine::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Pair;

// The projection of EPSG:3857 in its own formulas.
struct Place {
  double x = 0.0, y = 0.0;
};
Place Mercator(double longitude, double latitude) {
  constexpr double kRadius = 6378137.0, kDegree = std::numbers::pi / 180.0;
  return {kRadius * longitude * kDegree, kRadius * std::log(std::tan(std::numbers::pi / 4 + latitude * kDegree / 2))};
}

using Brought = BroughtRuns;

struct ReadRow {
  std::string texts;
  std::vector<double> numbers;
  OGREnvelope box;
};

std::vector<ReadRow> ReadRows(const std::string& path) {
  std::vector<ReadRow> rows;
  const auto data = OpenData(path);
  if (data == nullptr) return rows;
  for (const auto& feature : *data->GetLayer(0)) {
    ReadRow row;
    for (int index = 0; index < feature->GetFieldCount(); ++index) {
      const bool text = feature->GetFieldDefnRef(index)->GetType() == OFTString;
      if (text) row.texts += std::string(feature->GetFieldAsString(index)) + "|";
      if (!text) row.numbers.push_back(feature->GetFieldAsDouble(index));
    }
    if (feature->GetGeometryRef() != nullptr) feature->GetGeometryRef()->getEnvelope(&row.box);
    rows.push_back(row);
  }
  return rows;
}

// What FlatGeobuf writes has an order of its own.
void Sort(std::vector<ReadRow>& rows) {
  std::ranges::sort(rows, {}, [](const ReadRow& row) {
    std::vector<double> keys;
    for (const double number : row.numbers) keys.push_back(std::round(number * 1e3));
    return std::pair(row.texts, keys);
  });
}

struct ToolRow {
  const char* name;
  std::vector<std::string> arguments;
};

TEST_F(Brought, ShapesLieInTheReferenceAndValuesStay) {
  const std::vector<ToolRow> tools = {
      {"centroids", {"centroids", "@countries.shp", "--fields", "name"}},
      {"split", {"split", "@disputed_borders.shp", "--fields", "name"}},
      {"build", {"build-polygons", "%lines.shp"}},
      {"calculate", {"calculate", "@cities.shp", "-m", "1"}},
  };
  const std::vector<std::string> lines = {"--where", "continent = 'Africa'"};
  ASSERT_EQ(Run({"to-polylines", "@countries.shp"}, In("lines.shp"), "", lines).status, 0);
  for (const ToolRow& tool : tools) {
    ASSERT_EQ(Run(tool.arguments, In(std::string(tool.name) + ".gpkg"), "").status, 0) << tool.name;
    std::vector<ReadRow> meant = ReadRows(In(std::string(tool.name) + ".gpkg"));
    Sort(meant);
    for (const std::string place : {"o.shp", "o.gpkg", "o.gdb/o", "o.fgb", "o.geojson"}) {
      const std::string file = In(place.substr(0, place.find('/')));
      const ProgramOutcome run =
          Run(tool.arguments, In(place), "EPSG:3857", {"-r", In("r.json"), "--overwrite", "--yes"});
      ASSERT_EQ(run.status, 0) << tool.name << place << run.err;
      EXPECT_EQ(Report()["brought_to"]["name"], "WGS 84 / Pseudo-Mercator");
      EXPECT_EQ(std::string(OpenData(file)->GetLayer(0)->GetSpatialRef()->GetAuthorityCode(nullptr)), "3857") << place;
      std::vector<ReadRow> rows = ReadRows(file);
      Sort(rows);
      ASSERT_EQ(rows.size(), meant.size()) << tool.name << place;
      for (std::size_t row = 0; row < rows.size(); ++row) {
        ASSERT_EQ(rows[row].texts, meant[row].texts) << tool.name << place;
        ASSERT_EQ(rows[row].numbers.size(), meant[row].numbers.size()) << tool.name << place;
        for (std::size_t index = 0; index < rows[row].numbers.size(); ++index) {
          ASSERT_NEAR(rows[row].numbers[index], meant[row].numbers[index], 1e-5) << tool.name << place;
        }
        const Place least = Mercator(meant[row].box.MinX, meant[row].box.MinY);
        const Place most = Mercator(meant[row].box.MaxX, meant[row].box.MaxY);
        // A geodatabase keeps a tenth of a millimetre.
        ASSERT_NEAR(rows[row].box.MinX, least.x, 2e-3) << tool.name << place;
        ASSERT_NEAR(rows[row].box.MinY, least.y, 2e-3) << tool.name << place;
        ASSERT_NEAR(rows[row].box.MaxX, most.x, 2e-3) << tool.name << place;
        ASSERT_NEAR(rows[row].box.MaxY, most.y, 2e-3) << tool.name << place;
      }
    }
  }
}

TEST_F(Brought, RecordsWithoutAPlaceCostThemselvesAlone) {
  MakeLayer("s.gpkg", {{"near", "POLYGON ((10 10,20 10,20 20,10 10))"},
                       {"behind", "POLYGON ((170 10,171 10,171 11,170 10))"},
                       {"nothing", ""},
                       {"half", "MULTIPOLYGON (((0 0,1 0,1 1,0 0)),((170 0,171 0,171 1,170 0)))"}});
  const std::string globe = "+proj=ortho +lat_0=15 +lon_0=15 +datum=WGS84";
  for (const std::string place : {"o.shp", "o.gpkg", "o.gdb/o", "o.geojson"}) {
    const std::string file = In(place.substr(0, place.find('/')));
    const ProgramOutcome copy =
        Run({"calculate", "%s.gpkg", "-m", "Sph. Area=AREA"}, In(place), globe, {"-r", In("r.json")});
    EXPECT_EQ(copy.status, 1) << place << copy.err;
    EXPECT_EQ(Report()["faults"][0]["first_oids"], nlohmann::json({2, 4})) << place;
    EXPECT_EQ(Report()["records"]["written"], 4) << place;
    std::map<std::string, bool> shapes;
    const auto data = OpenData(file);
    for (const auto& row : *data->GetLayer(0)) {
      shapes[row->GetFieldAsString("name")] = row->GetGeometryRef() != nullptr;
      EXPECT_EQ(row->GetFieldAsDouble("AREA") > 0.0, row->GetFieldAsString("name") != std::string("nothing")) << place;
    }
    EXPECT_THAT(shapes,
                ElementsAre(Pair("behind", false), Pair("half", false), Pair("near", true), Pair("nothing", false)))
        << place;
    std::filesystem::remove_all(file);
  }
  // Parts of a record that have a place are there, and the others are told by the record.
  EXPECT_EQ(Run({"split", "%s.gpkg", "-a"}, In("p.gpkg"), globe, {"-r", In("r.json")}).status, 1);
  EXPECT_EQ(Report()["faults"][0]["first_oids"], nlohmann::json({2, 4}));
  EXPECT_EQ(Report()["records"]["written"], 4);
  EXPECT_EQ(Values(In("p.gpkg"), "", "name", "name").size(), 3U);
  // Where a record can't be without a shape, it isn't there.
  EXPECT_EQ(Run({"calculate", "%s.gpkg", "-m", "Sph. Area=AREA"}, In("o.fgb"), globe, {"-r", In("r.json")}).status, 1);
  EXPECT_EQ(Report()["records"]["written"], 1);
}

// The poles lie at infinity in a Mercator projection, and come out at 2.4e8 m by the rounding of their latitude.
TEST_F(Brought, APoleInMercatorCostsItsShapeAlone) {
  MakeLayer("s.gpkg", {{"north", "POLYGON ((0 80,10 80,0 90,0 80))"},
                       {"near", "POLYGON ((0 80,10 80,0 89.9,0 80))"},
                       {"south", "POLYGON ((0 -80,10 -80,10 -90,0 -90,0 -80))"}});
  for (const std::string place : {"o.gpkg", "o.geojson"}) {
    for (const char* reference : {"EPSG:3857", "EPSG:3395"}) {
      EXPECT_EQ(
          Run({"calculate", "%s.gpkg", "-m", "1"}, In(place), reference, {"-r", In("r.json"), "--overwrite"}).status,
          1);
      EXPECT_EQ(Report()["faults"][0]["first_oids"], nlohmann::json({1, 3})) << place << reference;
      std::string shapes;
      const auto data = OpenData(In(place));
      for (const auto& row : *data->GetLayer(0)) shapes += row->GetGeometryRef() != nullptr ? '+' : '-';
      EXPECT_EQ(shapes, "-+-") << place << reference;
    }
  }
}

TEST_F(Brought, EdgesOverTheRimOfTheMapAreTold) {
  MakeLayer("s.gpkg", {{"fine", "POLYGON ((10 10,20 10,20 20,10 20,10 10))"},
                       {"over", "POLYGON ((170 10,190 10,190 20,170 20,170 10))"},
                       {"wide", "POLYGON ((-170 10,170 10,170 20,-170 20,-170 10))"}});
  for (const std::string place : {"o.gpkg", "o.geojson"}) {
    ASSERT_EQ(Run({"split", "%s.gpkg", "-a"}, In(place), "EPSG:3857", {"-r", In("r.json"), "--overwrite"}).status, 0);
    EXPECT_EQ(Report()["warnings"][0]["first_oids"], nlohmann::json({2})) << place;
    ASSERT_EQ(Run({"calculate", "%s.gpkg", "-m", "Sph. Area=AREA"}, In("c" + place), "EPSG:3857", {"-r", In("r.json")})
                  .status,
              0);
    bool told = false;
    const nlohmann::json report = Report();
    for (const auto& warning : report["warnings"]) {
      if (warning["text"].get<std::string>().starts_with("An edge of the shape")) {
        told = warning["first_oids"] == nlohmann::json({2});
      }
    }
    EXPECT_TRUE(told) << place << Report()["warnings"];
  }
  // A ring round a pole doesn't close in degrees.
  MakeLayer("pole.gpkg",
            {{"round", "POLYGON ((-1e6 -1e6,1e6 -1e6,1e6 1e6,-1e6 1e6,-1e6 -1e6))"},
             {"beside", "POLYGON ((1e6 1e6,2e6 1e6,2e6 2e6,1e6 1e6))"}},
            "EPSG:3031");
  ASSERT_EQ(Run({"split", "%pole.gpkg", "-a"}, In("p.gpkg"), "EPSG:4326", {"-r", In("r.json")}).status, 0);
  EXPECT_EQ(Report()["warnings"][0]["first_oids"], nlohmann::json({1}));
}

TEST_F(Brought, TheTransformationBetweenDatumsIsNamed) {
  MakeLayer("s.gpkg", {{"New York", "POINT (-74 40.7)"}}, "EPSG:4267");
  const ProgramOutcome plan =
      Run({"calculate", "%s.gpkg", "-m", "1"}, In("o.gpkg"), "EPSG:4326", {"-n", "-r", In("r.json")});
  ASSERT_EQ(plan.status, 0) << plan.err;
  EXPECT_THAT(Report()["report"], HasSubstr("from 'NAD27' to 'WGS 84' by 'NAD27 to WGS 84"));
  EXPECT_THAT(Left(), ElementsAre("r.json", "s.gpkg"));
  ASSERT_EQ(
      Run({"calculate", "%s.gpkg", "-m", "Lon.,Lat.=LON,LAT"}, In("o.gpkg"), "EPSG:4326", {"-r", In("r.json")}).status,
      2);
  ASSERT_EQ(Run({"calculate", "%s.gpkg", "-m", "1"}, In("o.gpkg"), "EPSG:4326").status, 0);
  const auto data = OpenData(In("o.gpkg"));
  const OGRFeatureUniquePtr row(data->GetLayer(0)->GetNextFeature());
  EXPECT_EQ(row->GetFieldAsDouble("Longitude"), -74.0);
  // The datum of 1927 lies some 35 metres to the west there.
  const double metres = (row->GetGeometryRef()->toPoint()->getX() + 74.0) * 84300.0;
  EXPECT_NEAR(metres, 36.0, 5.0);
}

// One choice, by where the data lie, for plan and run alike.
TEST_F(Brought, ThePlanNamesTheTransformationOfTheRun) {
  MakeLayer("far.gpkg", {{"a", "POLYGON ((10 50,11 50,11 51,10 50))"}});
  MakeLayer("ohio.gpkg", {{"a", "POLYGON ((-83 40,-82 40,-82 41,-83 40))"}}, "EPSG:4267");
  MakeLayer("datumless.gpkg", {{"a", "POLYGON ((10 50,11 50,11 51,10 50))"}}, "+proj=longlat +ellps=bessel +no_defs");
  struct Row {
    const char *source, *reference, *place, *told;
  };
  for (const Row& row : {Row{"%far.gpkg", "EPSG:2056", "o.gpkg", "made for another area than where the data lie"},
                         Row{"%ohio.gpkg", "EPSG:4326", "o.gpkg", "by 'NAD27 to WGS 84"},
                         Row{"%datumless.gpkg", "EPSG:4326", "o.gpkg", "No transformation between the two datums"},
                         // What is brought to degrees for its format.
                         Row{"%ohio.gpkg", "", "o.kml", "by 'NAD27 to WGS 84"},
                         Row{"%datumless.gpkg", "", "o.geojsonl", "No transformation between the two datums"}}) {
    for (const std::vector<std::string>& tool : {std::vector<std::string>{"split", row.source},
                                                 std::vector<std::string>{"calculate", row.source, "-m", "1"}}) {
      const auto sentence = [&](const std::string& text) {
        const std::size_t from = text.find("Shapes are brought");
        return from == std::string::npos ? "" : text.substr(from, text.find('\n', from) - from);
      };
      ASSERT_EQ(Run(tool, In(row.place), row.reference, {"-n", "-r", In("r.json"), "--overwrite"}).status, 0)
          << row.source;
      const std::string planned = sentence(Report()["report"]);
      const ProgramOutcome run = Run(tool, In(row.place), row.reference, {"--overwrite"});
      ASSERT_EQ(run.status, 0) << run.err;
      EXPECT_THAT(planned, HasSubstr(row.told)) << tool[0] << row.source;
      EXPECT_EQ(planned, sentence(run.err)) << tool[0] << row.source;
    }
  }
  // 190 m lie between the two datums there.
  ASSERT_EQ(Run({"calculate", "%far.gpkg", "-m", "1"}, In("o.gpkg"), "EPSG:2056", {"--overwrite"}).status, 0);
  OGREnvelope box;
  ASSERT_EQ(OpenData(In("o.gpkg"))->GetLayer(0)->GetExtent(&box), OGRERR_NONE);
  EXPECT_NEAR(box.MinY, 1542205.7, 1.0);
}

TEST_F(Brought, CopiesKeepHeightsAndMeasuresAndValuesThatARunOverwrites) {
  MakeLayer("s.gpkg", {{"zm", "LINESTRING ZM (0 0 3 4,1 0 7 8)"}, {"arc", "CIRCULARSTRING (0 0,1 1,2 0)"}});
  for (const std::string place : {"o.gpkg", "o.shp"}) {
    ASSERT_EQ(Run({"calculate", "%s.gpkg", "-m", "1=old"}, In(place), "EPSG:3857", {"-y"}).status, 0);
    const auto data = OpenData(In(place));
    const OGRFeatureUniquePtr row(data->GetLayer(0)->GetNextFeature());
    const OGRGeometry& shape = *row->GetGeometryRef();
    const auto& line = *dynamic_cast<const OGRLineString*>(&shape);
    EXPECT_EQ(line.getZ(1), 7.0) << place;
    EXPECT_EQ(line.getM(1), 8.0) << place;
    EXPECT_NEAR(line.getX(1), Mercator(1, 0).x, 1e-6) << place;
    // A degree of the equator.
    EXPECT_NEAR(row->GetFieldAsDouble("old"), 111319.49, 0.01) << place;
    const OGRFeatureUniquePtr arc(data->GetLayer(0)->GetNextFeature());
    EXPECT_GT(arc->GetGeometryRef()->toLineString()->getNumPoints(), 20) << place;
  }
}

TEST_F(Brought, OneOddRecordCostsNoOther) {
  MakeLayer("s.gpkg", {{"plain", "POLYGON ((0 0,1 0,1 1,0 0))"},
                       {"two", "MULTIPOLYGON (((2 2,3 2,3 3,2 2)),((5 5,6 5,6 6,5 5)))"},
                       {"arc", "CURVEPOLYGON (CIRCULARSTRING (10 10,11 11,12 10,11 9,10 10))"},
                       {"far", "POLYGON ((0 0,1e308 0,1 1,0 0))"}});
  for (const std::string place : {"o.shp", "o.fgb", "o.gdb/o", "o.sqlite"}) {
    const std::string file = In(place.substr(0, place.find('/')));
    ASSERT_EQ(Run({"calculate", "%s.gpkg", "-m", "Sph. Area=AREA"}, In(place), "").status, 1) << place;
    const auto areas = Values(file, "", "name", "AREA");
    for (const char* name : {"plain", "two", "arc"}) {
      ASSERT_EQ(areas.count(name), 1U) << place << name;
    }
    for (const char* name : {"plain", "two"}) {
      EXPECT_GT(std::stod(areas.at(name)), 1e9) << place << name;
    }
    const auto data = OpenData(file);
    double size = 0.0;
    for (const auto& row : *data->GetLayer(0)) {
      const OGRGeometry* shape = row->GetGeometryRef();
      if (row->GetFieldAsString("name") == std::string("arc")) size = OGR_G_Area(const_cast<OGRGeometry*>(shape));
    }
    EXPECT_NEAR(size, std::numbers::pi, 0.01) << place;
  }
  ASSERT_EQ(Run({"split", "%s.gpkg", "-a"}, In("p.gdb/p"), "").status, 1);
  EXPECT_EQ(Values(In("p.gdb"), "", "name", "name").size(), 3U);
}

TEST_F(Brought, RefusedWhereItWouldMeanNothing) {
  MakeLayer("unknown.gpkg", {{"a", "POLYGON ((0 0,1 0,1 1,0 0))"}}, "");
  struct Row {
    std::vector<std::string> arguments;
    std::string output, reference;
    const char* says;
  };
  for (const Row& row :
       {Row{{"wrap", "@countries.shp", "--range", "360"}, "o.shp", "EPSG:3035", "--to: wrapped longitudes"},
        Row{{"to-centric", "@countries.shp"}, "o.shp", "EPSG:3035", "of a kind that no reference tells"},
        Row{{"split", "@countries.shp"}, "o.kml", "EPSG:3035", "keeps longitudes and latitudes on WGS 84 alone"},
        Row{{"split", "@countries.shp"}, "-", "EPSG:3035", "keeps longitudes and latitudes on WGS 84 alone"},
        Row{{"split", "@countries.shp"}, "o.shp", "EPSG:30x35", "is no spatial reference"},
        Row{{"split", "@countries.shp"}, "o.shp", "LOCAL_CS[\"x\"]", "neither geographic nor projected"},
        Row{{"split", "%unknown.gpkg"}, "o.shp", "EPSG:3035", "without a known spatial reference"},
        Row{{"calculate", "%unknown.gpkg", "-m", "1"}, "o.shp", "EPSG:3035", "without a known spatial reference"},
        Row{{"split", "@countries.shp"}, "o.shp", "ESRI:104905", "There is no way from"}}) {
    const ProgramOutcome run = Run(row.arguments, row.output == "-" ? "-" : In(row.output), row.reference);
    EXPECT_EQ(run.status, 2) << row.says << run.err;
    EXPECT_THAT(run.err, HasSubstr(row.says));
  }
  EXPECT_EQ(RunTessarine({"calculate", Data("countries.shp"), "-m", "1", "--to", "EPSG:3035"}).status, 2);
  EXPECT_THAT(Left(), ElementsAre("unknown.gpkg"));
}

TEST_F(Brought, AStampTellsWhereALayerIsFrom) {
  const auto command = [&](const std::string& place) {
    return Run({"centroids", "@countries.shp", "--where", "name <> '<&\"'"}, In(place), "", {"--stamp"});
  };
  const auto expect = [](const std::string& text) {
    EXPECT_THAT(text, AllOf(HasSubstr("centroids"), HasSubstr("--stamp"), HasSubstr("6378137")));
  };
  ASSERT_EQ(command("o.gpkg").status, 0);
  const auto package = OpenData(In("o.gpkg"));
  OGRLayer& layer = *package->GetLayer(0);
  expect(std::string(layer.GetMetadataItem("TESSARINE_COMMAND")) + layer.GetMetadataItem("TESSARINE_SPHEROID"));
  EXPECT_THAT(layer.GetMetadataItem("TESSARINE_COMMAND"), HasSubstr("<&\""));
  EXPECT_THAT(layer.GetMetadataItem("TESSARINE_TIME"), HasSubstr("Z"));
  EXPECT_NE(layer.GetMetadataItem("TESSARINE_VERSION"), nullptr);
  ASSERT_EQ(command("o.geojson").status, 0);
  expect(OpenData(In("o.geojson"))->GetLayer(0)->GetMetadataItem("DESCRIPTION"));
  ASSERT_EQ(command("o.gdb/o").status, 0);
  const auto geodatabase = OpenData(In("o.gdb"));
  OGRLayer* documentation = geodatabase->ExecuteSQL("GetLayerMetadata o", nullptr, nullptr);
  ASSERT_NE(documentation, nullptr);
  expect(OGRFeatureUniquePtr(documentation->GetNextFeature())->GetFieldAsString(0));
  geodatabase->ReleaseResultSet(documentation);
  // A copy tells of the spheroid that it was measured on.
  ASSERT_EQ(Run({"calculate", "@countries.shp", "-m", "Sph. Area", "--radii", "3396190,3376200"}, In("c.gpkg"), "",
                {"--stamp"})
                .status,
            0);
  EXPECT_THAT(OpenData(In("c.gpkg"))->GetLayer(0)->GetMetadataItem("TESSARINE_SPHEROID"), HasSubstr("3376200"));
  for (const std::string place : {"x.shp", "x.fgb", "x.csv"}) {
    const ProgramOutcome refused = command(place);
    EXPECT_EQ(refused.status, 2) << place;
    EXPECT_THAT(refused.err, AllOf(HasSubstr("keeps no text about a layer"), HasSubstr("GeoPackage")));
  }
}

}  // namespace
}  // namespace tessarine::testing
