// SPDX-License-Identifier: GPL-2.0-or-later
// Nasty attributes through every command, format by format. Each value of the output is the source's own, or the run
// tells that it isn't.
#include <gmock/gmock.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string_view>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using nlohmann::json;

constexpr int kRecords = 4;

struct Column {
  const char* name;
  OGRFieldType type;
  OGRFieldSubType subtype;
  std::vector<const char*> values;  ///< one for each record, as text; nothing is null
};

const std::vector<Column>& Columns() {
  static const std::string wide(300, 'w');
  static const std::string letters = [] {
    std::string text = "x";
    for (int count = 0; count < 140; ++count) text += "ä";
    return text;
  }();
  static const std::vector<Column> columns = {
      {"k", OFTInteger, OFSTNone, {"1", "2", "3", "4"}},
      {"fid", OFTInteger, OFSTNone, {"501", "502", "503", nullptr}},
      {"OBJECTID", OFTInteger, OFSTNone, {"78", "77", "76", nullptr}},
      {"FID_1", OFTInteger, OFSTNone, {"5", "6", "7", nullptr}},
      {"Shape", OFTString, OFSTNone, {"round", "square", "", nullptr}},
      {"Uniq_ID", OFTString, OFSTNone, {"mine", "too", "", nullptr}},
      {"a b", OFTString, OFSTNone, {"blank 1", "blank 2", "b3", nullptr}},
      {"a_b", OFTString, OFSTNone, {"line 1", "line 2", "l3", nullptr}},
      {"select", OFTString, OFSTNone, {"from", "where", "by", nullptr}},
      {"gr\xC3\xB6\xC3\x9F"
       "e",
       OFTReal,
       OFSTNone,
       {"0.1", "-2.5", "1e-300", nullptr}},
      {"a_long_name_one", OFTString, OFSTNone, {"one", "", "uno", nullptr}},
      {"a_long_name_two", OFTString, OFSTNone, {"two", "", "due", nullptr}},
      {"small", OFTInteger, OFSTInt16, {"-32768", "32767", "0", nullptr}},
      {"flag", OFTInteger, OFSTBoolean, {"1", "0", "1", nullptr}},
      {"whole", OFTInteger, OFSTNone, {"-2147483648", "2147483647", "0", nullptr}},
      {"big", OFTInteger64, OFSTNone, {"123456789012345678", "-9007199254740993", "7", nullptr}},
      {"real", OFTReal, OFSTNone, {"-1.79769313486e+308", "0.333333333333333333", "12345678.25", nullptr}},
      {"number", OFTReal, OFSTNone, {"nan", "inf", "-inf", nullptr}},
      {"single", OFTReal, OFSTFloat32, {"0.25", "-16777216", "1267650600228229401496703205376", nullptr}},
      {"text", OFTString, OFSTNone, {wide.c_str(), letters.c_str(), " two\nlines ", nullptr}},
      {"day", OFTDate, OFSTNone, {"2024/02/29", "1999/12/30", "1970/01/01", nullptr}},
      {"clock", OFTTime, OFSTNone, {"12:34:56", "00:00:00", "23:59:59", nullptr}},
      {"moment",
       OFTDateTime,
       OFSTNone,
       {"2024/02/29 12:34:56", "2024/02/29 12:34:56.789", "2024/02/29 12:34:56+02", nullptr}},
  };
  return columns;
}

struct Format {
  const char* name;
  const char* driver;
  const char* file;
};
constexpr Format kSources[] = {{"Shapefile", "ESRI Shapefile", "nasty.shp"},
                               {"GeoPackage", "GPKG", "nasty.gpkg"},
                               {"GeoJson", "GeoJSON", "nasty.geojson"},
                               {"FlatGeobuf", "FlatGeobuf", "nasty.fgb"},
                               {"Geodatabase", "OpenFileGDB", "nasty.gdb"}};

enum class Shapes : std::uint8_t { Polygons, Lines, Points };

constexpr const char* kOutputs[] = {".shp", ".gdb/made", ".gpkg", ".geojson", ".fgb"};

struct Command {
  const char* name;
  Shapes shapes;  ///< whose attributes it carries
  std::vector<std::string> options;
};
const std::vector<Command>& Commands() {
  static const std::vector<Command> commands = {
      {"vertices", Shapes::Polygons, {"-a"}},
      {"label-points", Shapes::Polygons, {"-a"}},
      {"centroids", Shapes::Polygons, {"-a"}},
      {"spherical-centroids", Shapes::Polygons, {"-a"}},
      {"to-polylines", Shapes::Polygons, {"-a"}},
      {"split", Shapes::Polygons, {"-a"}},
      {"to-polygons", Shapes::Lines, {"-a"}},
      {"wrap", Shapes::Polygons, {"--range", "360"}},
      {"combine", Shapes::Polygons, {"-a", "--where", "k = 2"}},
      {"build-polygons", Shapes::Points, {}},
      {"to-centric", Shapes::Polygons, {"--spheroid", "WGS 1984"}},
      {"calculate", Shapes::Polygons, {"-m", "Sph. Area=measured", "--yes"}},
  };
  return commands;
}

struct Case {
  Format source;
  const char* output;
};

class Torture : public ProgramTest, public ::testing::WithParamInterface<Case> {
 protected:
  void SetUp() override { GDALAllRegister(); }

  [[nodiscard]] std::string Make(const Format& format, Shapes shapes) const {
    constexpr std::array kPrefixes = {"polygons_", "lines_", "points_"};
    constexpr std::array kTypes = {wkbPolygon, wkbLineString, wkbPoint};
    const auto kind = static_cast<std::size_t>(shapes);
    const std::string path = In(kPrefixes.at(kind) + std::string(format.file));
    std::filesystem::remove_all(path);
    CPLPushErrorHandler(CPLQuietErrorHandler);
    GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(format.driver);
    GDALDatasetUniquePtr dataset(driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    if (!dataset) throw std::runtime_error("nothing can be made at " + path);
    OGRSpatialReference reference;
    reference.importFromEPSG(4326);
    reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    const char* options[] = {"FID=row_number", nullptr};
    const bool names_fid = std::string(format.driver) == "GPKG" || std::string(format.driver) == "OpenFileGDB";
    OGRLayer* layer =
        dataset->CreateLayer("nasty", &reference, kTypes.at(kind), names_fid ? const_cast<char**>(options) : nullptr);
    if (layer == nullptr) throw std::runtime_error("no layer in " + path);
    // What the format makes of a column is its own affair; the source is what GDAL reads of it.
    std::vector<const Column*> made;
    for (const Column& column : Columns()) {
      OGRFieldDefn field(column.name, column.type);
      field.SetSubType(column.subtype);
      if (layer->CreateField(&field) == OGRERR_NONE) made.push_back(&column);
    }
    for (int record = 0; record < kRecords; ++record) AddRow(*layer, made, record, shapes);
    CPLPopErrorHandler();
    return path;
  }

  static void AddRow(OGRLayer& layer, const std::vector<const Column*>& columns, int record, Shapes shapes) {
    OGRFeature feature(layer.GetLayerDefn());
    for (int index = 0; index < static_cast<int>(columns.size()); ++index) {
      const char* value = columns[static_cast<std::size_t>(index)]->values[static_cast<std::size_t>(record)];
      if (value == nullptr) {
        feature.SetFieldNull(index);
      } else if (layer.GetLayerDefn()->GetFieldDefn(index)->GetType() == OFTReal) {
        feature.SetField(index, std::strtod(value, nullptr));
      } else {
        feature.SetField(index, value);
      }
    }
    const double x = 10.0 * record;
    OGRLinearRing ring;
    ring.addPoint(x, 0);
    ring.addPoint(x, 1);
    ring.addPoint(x + 1, 1);
    ring.addPoint(x, 0);
    if (shapes == Shapes::Points) {
      OGRPoint point(x + 0.3, 0.7);
      feature.SetGeometry(&point);
    } else if (shapes == Shapes::Lines) {
      OGRLineString line;
      line.addSubLineString(&ring);
      feature.SetGeometry(&line);
    } else {
      OGRPolygon polygon;
      polygon.addRing(&ring);
      feature.SetGeometry(&polygon);
    }
    if (layer.CreateFeature(&feature) != OGRERR_NONE) ADD_FAILURE() << "record " << record << " can't be written";
  }
};

// A value in the words of GDAL, without what the type of its column adds.
std::string TextOf(const OGRFeature& feature, int index) {
  if (feature.IsFieldSetAndNotNull(index) == 0) return "<null>";
  switch (feature.GetFieldDefnRef(index)->GetType()) {
    case OFTInteger:
    case OFTInteger64:
      return std::to_string(feature.GetFieldAsInteger64(index));
    case OFTReal: {
      const double number = feature.GetFieldAsDouble(index);
      if (std::fabs(number) < 9e15 && number == std::floor(number)) return std::to_string(std::llround(number));
      // Number columns of dBASE tables hold 15 digits.
      return CPLSPrintf("%.15g", number);
    }
    case OFTDate:
    case OFTDateTime: {
      int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
      float second = 0.0F;
      feature.GetFieldAsDateTime(index, &year, &month, &day, &hour, &minute, &second, &zone);
      // Local time, UTC and no zone at all are the same to most formats.
      return CPLSPrintf("%04d/%02d/%02d %02d:%02d:%06.3f %d", year, month, day, hour, minute,
                        static_cast<double>(second), zone <= 1 || zone == 100 ? 0 : zone);
    }
    default:
      return feature.GetFieldAsString(index);
  }
}

// A dBASE column knows no empty text, and GDAL reads its texts without the blanks around them.
std::string AsDbaseHasIt(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? "<null>" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

using Rows = std::map<std::string, std::vector<std::string>>;  // by the text of `k`

struct Table {
  std::vector<std::string> names;
  Rows rows;
};

Table ReadTable(const std::string& path) {
  Table table;
  GDALDatasetUniquePtr dataset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
  if (!dataset) return table;
  OGRLayer* layer = dataset->GetLayer(0);
  const OGRFeatureDefn& definition = *layer->GetLayerDefn();
  for (int index = 0; index < definition.GetFieldCount(); ++index) {
    table.names.emplace_back(definition.GetFieldDefn(index)->GetNameRef());
  }
  const int key = definition.GetFieldIndex("k");
  if (key < 0) return table;
  for (const auto& feature : *layer) {
    std::vector<std::string>& row = table.rows[TextOf(*feature, key)];
    row.clear();
    for (int index = 0; index < definition.GetFieldCount(); ++index) row.push_back(TextOf(*feature, index));
  }
  return table;
}

TEST_P(Torture, EveryValueIsThereOrItIsTold) {
  for (const Command& command : Commands()) {
    SCOPED_TRACE(command.name);
    // What is calculated stands after the columns of the source.
    const bool copies = std::string_view(command.name) == "calculate";
    const std::string source = Make(GetParam().source, command.shapes);
    const Table from = ReadTable(source);
    const std::string output = In(std::string(command.name) + GetParam().output);
    const std::string report = In("report.json");
    std::vector<std::string> arguments = {command.name, source, "-o", output, "--report", report, "-q", "--overwrite"};
    if (command.shapes == Shapes::Points) {
      arguments[1] = Make(GetParam().source, Shapes::Lines);
      std::string fields;
      for (const std::string& name : from.names) fields += (fields.empty() ? "" : ",") + name;
      arguments.insert(arguments.end(), {"--labels", source, "--label-fields", fields});
    }
    arguments.insert(arguments.end(), command.options.begin(), command.options.end());
    const ProgramOutcome run = RunTessarine(arguments);
    ASSERT_EQ(run.status, 0) << run.err;

    const Table to = ReadTable(
        output.substr(0, output.find(".gdb/") == std::string::npos ? output.size() : output.find(".gdb/") + 4));
    const bool one = command.name == std::string("combine");
    ASSERT_EQ(to.rows.size(), one ? 1 : from.rows.size());
    ASSERT_GE(to.names.size(), from.names.size())
        << ::testing::PrintToString(to.names) << " of " << ::testing::PrintToString(from.names);
    const std::size_t own = copies ? 0 : to.names.size() - from.names.size();
    std::set<std::string> distinct(to.names.begin(), to.names.end());
    EXPECT_EQ(distinct.size(), to.names.size());

    const bool dbase = output.ends_with(".shp");
    std::map<std::string, int> differing, told;
    std::map<std::string, std::string> examples;
    for (const auto& [key, row] : from.rows) {
      if (one && key != "2") continue;
      ASSERT_TRUE(to.rows.contains(key)) << key;
      for (std::size_t index = 0; index < row.size(); ++index) {
        const std::string& written = to.rows.at(key)[own + index];
        const bool same = row[index] == written || (dbase && AsDbaseHasIt(row[index]) == written);
        if (same) continue;
        ++differing[to.names[own + index]];
        examples[to.names[own + index]] = row[index] + " is written as " + written;
      }
    }
    const json facts = json::parse(ReadFile(report));
    for (const json& entry : facts.at("changed")) told[entry.at("field")] += entry.at("count").get<int>();
    for (const auto& [field, count] : differing) {
      EXPECT_GE(told[field], count) << field << " of " << output << ": " << examples[field] << "\n"
                                    << facts.at("changed").dump(1);
    }
    for (const auto& [field, count] : told) {
      EXPECT_GT(differing[field], 0) << field << " of " << output << " is told to differ " << count << " times";
    }
    EXPECT_EQ(facts.at("records").at("read"), one ? 1 : kRecords);
  }
}

std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const Format& source : kSources) {
    for (const char* output : kOutputs) cases.push_back({source, output});
  }
  return cases;
}

INSTANTIATE_TEST_SUITE_P(Formats, Torture, ::testing::ValuesIn(Cases()), [](const auto& row) {
  const std::string output = row.param.output;
  return row.param.source.name + ("To_" + output.substr(1, output.find('/') - 1));
});

}  // namespace
}  // namespace tessarine::testing
