// SPDX-License-Identifier: GPL-2.0-or-later
// Values on their way through whole runs: carried exactly, or told.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <nlohmann/json.hpp>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kTriangle = R"({"type":"Polygon","coordinates":[[[-20,0],[-20,1],[-10,1],[-20,0]]]})";

std::string Feature(const std::string& properties, const std::string& geometry = kTriangle) {
  return R"({"type":"Feature","properties":)" + properties + R"(,"geometry":)" + geometry + "}";
}

std::string Collection(const std::vector<std::string>& features) {
  std::string text = R"({"type":"FeatureCollection","features":[)";
  for (const std::string& feature : features) text += (text.back() == '[' ? "" : ",") + feature;
  return text + "]}";
}

class Values : public ProgramTest {
 protected:
  // The values of one field in order, as GDAL alone reads them.
  static std::vector<std::string> Column(const std::string& file, const char* field) {
    GDALAllRegister();
    const GDALDatasetUniquePtr data(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
    std::vector<std::string> values;
    if (!data) return values;
    for (const auto& row : *data->GetLayer(0)) {
      const int index = row->GetFieldIndex(field);
      values.emplace_back(index < 0                               ? "no such field"
                          : row->IsFieldSetAndNotNull(index) == 0 ? "null"
                                                                  : row->GetFieldAsString(index));
    }
    return values;
  }

  static std::vector<std::string> Changes(const json& report) {
    std::vector<std::string> changes;
    for (const json& row : report["changed"]) {
      changes.push_back(row["field"].get<std::string>() + " " + row["kind"].get<std::string>() + " " +
                        std::to_string(row["count"].get<int>()) + " " + std::to_string(row["first_oid"].get<int>()));
    }
    return changes;
  }
};

TEST_F(Values, AreCarriedOrToldByConversions) {
  WriteFile(
      In("a.geojson"),
      Collection({Feature(R"({"pid":123456789012345678,"t":"short","made":"2020-05-17T00:00:00","long_field_name":1})"),
                  Feature(R"({"pid":7,"t":")" + std::string(300, 'b') +
                          R"(","made":"2020-05-17T12:34:56+01:30","long_field_name":2})")}));
  const ProgramOutcome run = RunTessarine({"split", In("a.geojson"), "-a", "-o", In("a.shp"), "-r", In("a.json")});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err,
            "tessarine: In the field 'made', times of day are left out, the format keeps days only.\n"
            "tessarine: The field 'long_field_name' is written as 'long_field'.\n");
  EXPECT_THAT(Column(In("a.shp"), "pid"), ElementsAre("123456789012345678", "7"));
  EXPECT_THAT(Column(In("a.shp"), "t"), ElementsAre("short", std::string(254, 'b')));
  EXPECT_THAT(Column(In("a.shp"), "made"), ElementsAre("2020/05/17", "2020/05/17"));
  const json report = json::parse(ReadFile(In("a.json")));
  EXPECT_THAT(Changes(report), ElementsAre("t text_cut 1 1", "made time_dropped 1 1"));
  EXPECT_THAT(run.out, HasSubstr("Changed Values:"));
  EXPECT_THAT(run.out, HasSubstr("t:  1 value cut to the width of the field (OID 1)"));

  const ProgramOutcome geodatabase =
      RunTessarine({"split", In("a.geojson"), "-a", "-o", In("a.gdb/v"), "-r", In("g.json")});
  EXPECT_THAT(geodatabase.err, HasSubstr("'pid', whole numbers beyond 9,007,199,254,740,992"));
  EXPECT_THAT(Column(In("a.gdb"), "pid"), ElementsAre("null", "7"));
  EXPECT_THAT(Changes(json::parse(ReadFile(In("g.json")))),
              ElementsAre("pid out_of_range 1 0", "made zone_to_utc 1 1"));
}

TEST_F(Values, AreForetoldByThePlan) {
  WriteFile(In("a.geojson"), Collection({Feature(R"({"made":"2020-05-17T12:34:56"})")}));
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"split", In("a.geojson"), "-a"}, {"wrap", In("a.geojson"), "--range", "360"}}) {
    std::vector<std::string> arguments = command;
    arguments.insert(arguments.end(), {"-o", In("a.shp"), "--dry-run"});
    const ProgramOutcome plan = RunTessarine(arguments);
    EXPECT_EQ(plan.status, 0) << plan.err;
    EXPECT_THAT(plan.out, HasSubstr("Foretold:\n  ** In the field 'made', times of day are left out")) << command[0];
  }
}

TEST_F(Values, AreToldByRewrites) {
  WriteFile(In("a.geojson"), Collection({Feature(R"({"t":")" + std::string(255, 'b') + R"(","Shape":"round"})")}));
  const ProgramOutcome run =
      RunTessarine({"wrap", In("a.geojson"), "--range", "360", "-o", In("w.shp"), "-r", In("w.json")});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(Column(In("w.shp"), "Shape"), ElementsAre("round"));
  EXPECT_THAT(Changes(json::parse(ReadFile(In("w.json")))), ElementsAre("t text_cut 1 0"));
  EXPECT_THAT(run.out, HasSubstr("t:  1 value cut to the width of the field (OID 0)"));
}

TEST_F(Values, ThatAnExistingFieldCantHoldLeaveItAndAreToldByTheCalculator) {
  WriteFile(In("a.geojson"), Collection({Feature(R"({"small":1})")}));
  GDALAllRegister();
  {
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("GPKG");
    const GDALDatasetUniquePtr data(driver->Create(In("a.gpkg").c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRSpatialReference reference;
    reference.importFromEPSG(32612);
    OGRLayer* layer = data->CreateLayer("a", &reference, wkbPolygon, nullptr);
    OGRFieldDefn small("small", OFTInteger);
    small.SetSubType(OFSTInt16);
    ASSERT_EQ(layer->CreateField(&small), OGRERR_NONE);
    OGRFeature row(layer->GetLayerDefn());
    row.SetField("small", 7);
    OGRGeometry* square = nullptr;
    OGRGeometryFactory::createFromWkt("POLYGON ((0 0,0 1000,1000 1000,1000 0,0 0))", nullptr, &square);
    row.SetGeometryDirectly(square);
    ASSERT_EQ(layer->CreateFeature(&row), OGRERR_NONE);
  }
  const ProgramOutcome run =
      RunTessarine({"calculate", In("a.gpkg"), "-m", "Plan. Area=small", "--yes", "-r", In("c.json")});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.out, HasSubstr("Geometry Calculation Finished with Problems"));
  EXPECT_THAT(run.out, HasSubstr("The field 'small' has no room for the value and keeps what it held"));
  EXPECT_THAT(Column(In("a.gpkg"), "small"), ElementsAre("7")) << run.out << run.err;
  EXPECT_THAT(Changes(json::parse(ReadFile(In("c.json")))), ElementsAre());
}

TEST_F(Values, RecordsWithoutAKnownKindOfShapeAreNamed) {
  const std::string mixed = R"({"type":"GeometryCollection","geometries":[{"type":"Point","coordinates":[1,2]},)" +
                            std::string(kTriangle) + "]}";
  WriteFile(In("m.geojson"), Collection({Feature("{}"), Feature("{}", mixed), Feature("{}")}));
  const ProgramOutcome info = RunTessarine({"info", In("m.geojson")});
  EXPECT_THAT(info.out, HasSubstr("Records:     2"));
  EXPECT_THAT(info.out, HasSubstr("Skipped:     1 more of the kind GEOMETRYCOLLECTION, which no tool takes (OID 1)"));
  const ProgramOutcome run = RunTessarine({"vertices", In("m.geojson"), "-o", In("v.shp"), "-r", In("v.json")});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("A shape of the kind GEOMETRYCOLLECTION is no point, line or polygon"));
  const json report = json::parse(ReadFile(In("v.json")));
  EXPECT_EQ(report["records"]["read"], 2);
  EXPECT_THAT(report["records"]["skipped_oids"].get<std::vector<int>>(), ElementsAre(1));
}

}  // namespace
}  // namespace tessarine::testing
