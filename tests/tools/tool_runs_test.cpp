// SPDX-License-Identifier: GPL-2.0-or-later
// Tools as a program runs them: arguments in, objections or a class out, no dialog on the way.
#include <set>

#include "helpers/conversion_run.h"
#include "outputs/formats.h"
#include "tools/tool.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using testing::Feature;
using ::testing::HasSubstr;
using testing::Shape;

class ToolRuns : public testing::ConversionRunTest {
 protected:
  using LayerRef = std::shared_ptr<IFeatureLayer>;

  static const Tool& Named(std::string_view name) {
    for (const Tool* tool : AllTools()) {
      if (tool->Spec().name == name) return *tool;
    }
    throw std::runtime_error("no such tool");
  }
  ToolOutput Output(const std::string& name) const { return {FormatOfPath(name)->kind, folder.Path(""), "", name, ""}; }
  LayerRef Lines(const std::string& epsg = "32612") {
    return Layer("lines", {Feature(Shape("LineString", "[[0,0],[3,4]]"), R"({"name":"a","Name2":1})")}, epsg);
  }
  std::string ObjectionTo(const Tool& tool, const Arguments& arguments) const {
    const auto objection = tool.Validate(arguments, application);
    return objection ? objection->parameter + "|" + objection->text : "";
  }
};

TEST_F(ToolRuns, MakeAClassOfArgumentsAndShowNoForm) {
  const Tool& tool = Named("vertices");
  Arguments arguments;
  arguments.Set("source", Lines());
  arguments.Set("fields", std::vector<std::string>{"NAME"});
  arguments.Set("output", Output("out.shp"));
  EXPECT_EQ(ObjectionTo(tool, arguments), "");
  RunContext context = HostContext();
  const std::string plan = ToPlainText(ReadRtf(tool.Plan(context, arguments, application)));
  EXPECT_THAT(plan, HasSubstr("planned only"));
  EXPECT_TRUE(Rows().empty());
  EXPECT_THAT(ToPlainText(ReadRtf(tool.Run(context, arguments, application))), HasSubstr("Contains 2 vertex points"));
  EXPECT_THAT(Rows(), ElementsAre("1 0 0 a POINT (0 0)", "2 3 4 a POINT (3 4)"));
  EXPECT_TRUE(host.forms.shown.empty());
  EXPECT_EQ(extension->DirectoryType, "Shapefile");
}

TEST_F(ToolRuns, AFolderGetsTheToolsOwnNameAndAFreeNumber) {
  Arguments arguments;
  arguments.Set("source", Lines());
  arguments.Set("output", ToolOutput{0, folder.Path(""), "", "", ""});
  RunContext context = HostContext();
  for (int run = 0; run < 2; ++run) (void)Named("vertices").Run(context, arguments, application);
  EXPECT_EQ(Rows("vertex.shp").size(), 2U);
  EXPECT_EQ(Rows("vertex_2.shp").size(), 2U);
}

TEST_F(ToolRuns, WhatStandsAgainstARunIsSaidOfItsParameter) {
  const LayerRef lines = Lines();
  const LayerRef degrees = Layer("degrees", {Feature(Shape("LineString", "[[0,0],[3,4]]"))}, "4326");
  const LayerRef points = Layer("towns", {Feature(Shape("Point", "[0,0]"), R"({"name":"x"})")});
  const auto with = [&](const LayerRef& source, std::initializer_list<std::pair<const char*, Arguments::Value>> more) {
    Arguments arguments;
    arguments.Set("source", source);
    arguments.Set("output", Output("out.shp"));
    for (const auto& [name, value] : more) arguments.Set(name, value);
    return arguments;
  };
  using Texts = std::vector<std::string>;
  struct Row {
    const char* tool;
    Arguments arguments;
    const char* objection;
  };
  const Row rows[] = {
      {"to-polylines", with(lines, {}), "|The layer 'lines' is of the wrong kind: 'to-polylines' takes polygons."},
      {"vertices", with(lines, {{"fields", Texts{"no"}}}), "fields|'lines' has no field 'no'. It has: name, Name2."},
      {"split", with(points, {}), "|'towns' holds points. Features of this kind have no parts to split"},
      {"vertices", with(lines, {{"output", ToolOutput{1, "\\no\\such", "", "o.shp", ""}}}),
       "output|Unable to create Feature Class:\r\n/no/such is not a valid workspace..."},
      {"wrap", with(lines, {{"range", std::string("180")}}),
       "|The layer 'lines' is of the wrong kind: 'wrap' takes layers in degrees"},
      {"wrap", with(degrees, {}), "|'wrap' needs a box: {range} 180"},
      {"wrap", with(degrees, {{"bounds", Texts{"0", "0", "10"}}}), "|{bounds} takes four numbers"},
      {"wrap", with(degrees, {{"bounds", Texts{"0", "x", "10", "10"}}}),
       "bounds|Southern Boundary Value is invalid..."},
      {"wrap", with(degrees, {{"bounds", Texts{"0", "10", "10", "10"}}}),
       "bounds|Southern Boundary Value >= Northern Boundary Value..."},
      {"to-centric", with(degrees, {{"spheroid", ToolSpheroid{"", 1.0, 0.0}}}),
       "spheroid|Semi-Minor (Polar) Radius value must be >= 0..."},
      {"build-polygons", with(lines, {{"labels", lines}, {"label-fields", Texts{"name"}}}),
       "labels|the layer 'lines' is of the wrong kind: labels are points."},
      {"calculate", with(lines, {}), "|Nothing to calculate"},
      {"calculate", with(lines, {{"measure", std::vector<ToolMeasure>{{"Perimeter", {}}}}}),
       "|{measure} \"Perimeter\": 'lines' has no measure 'Perimeter'. It has: "},
      {"calculate", with(lines, {{"all-measures", true}, {"planetocentric", true}}),
       "|{spheroid}, {radii} and {planetocentric} can't be used on 'lines'."},
  };
  extension->Startup(Variant(application));
  for (const Row& row : rows) {
    EXPECT_THAT(ObjectionTo(Named(row.tool), row.arguments), ::testing::StartsWith(row.objection)) << row.tool;
  }
  EXPECT_EQ(ObjectionTo(Named("wrap"), with(degrees, {{"range", std::string("360")}})), "");
}

TEST_F(ToolRuns, WhatADocumentRemembersStandsInForWhatNobodyGave) {
  extension->LongitudeWrapOption = 2;
  extension->LongitudeShift = 10.0;
  Arguments arguments;
  arguments.Set("source", LayerRef(Layer("degrees", {Feature(Shape("Point", "[-30,5]"))}, "4326")));
  arguments.Set("output", Output("out.shp"));
  EXPECT_EQ(ObjectionTo(Named("wrap"), arguments), "");
  RunContext context = HostContext();
  const std::string told = ToPlainText(ReadRtf(Named("wrap").Run(context, arguments, application)));
  EXPECT_THAT(told, HasSubstr("Taken from the Map Document:\n  ** Boundary Box\n"));
  EXPECT_THAT(Rows().at(0), HasSubstr("POINT (340 5)"));
}

TEST_F(ToolRuns, NeedNoExtensionAndShowTheMeterAllTheSame) {
  application->extension = nullptr;
  using Texts = std::vector<std::string>;
  const std::vector<std::string> square(501, Feature(Shape("LineString", "[[0,0],[1,0],[1,1],[0,0]]")));
  struct Row {
    const char* tool;
    const char* epsg;
    std::size_t rows;
  };
  for (const Row& row : {Row{"vertices", "32612", 2004}, Row{"combine", "32612", 1}, Row{"build-polygons", "32612", 1},
                         Row{"wrap", "4326", 501}, Row{"to-graphic", "4326", 501}}) {
    const std::string name = std::string(row.tool) + ".shp";
    Arguments arguments;
    arguments.Set("source", LayerRef(Layer("squares", square, row.epsg)));
    arguments.Set("output", Output(name));
    if (std::string(row.tool) == "wrap") arguments.Set("bounds", Texts{"-90", "-90", "270", "90"});
    EXPECT_EQ(ObjectionTo(Named(row.tool), arguments), "") << row.tool;
    RunContext context = HostContext();
    EXPECT_THAT(ToPlainText(ReadRtf(Named(row.tool).Plan(context, arguments, application))), HasSubstr("planned only"))
        << row.tool;
    (void)Named(row.tool).Run(context, arguments, application);
    EXPECT_FALSE(context.journal.failed) << row.tool << ": " << context.journal.failure;
    EXPECT_EQ(Rows(name).size(), row.rows) << row.tool;
  }
}

TEST_F(ToolRuns, TheMeterIsForMoreRecordsThanTheToolsThreshold) {
  struct Row {
    const char* tool;
    const char* epsg;
    std::size_t threshold;
  };
  const Row rows[] = {{"vertices", "32612", 500}, {"spherical-centroids", "32612", 20}, {"wrap", "4326", 500}};
  extension->Startup(Variant(application));
  for (const Row& row : rows) {
    for (const std::size_t count : {row.threshold, row.threshold + 1}) {
      const std::vector<std::string> features(count, Feature(Shape("LineString", "[[0,0],[3,4]]")));
      Arguments arguments;
      arguments.Set("source", LayerRef(Layer("many", features, row.epsg)));
      arguments.Set("output", ToolOutput{0, folder.Path(""), "", "", ""});
      if (std::string(row.tool) == "wrap") arguments.Set("range", std::string("360"));
      host.forms.shown.clear();
      RunContext context = HostContext();
      (void)Named(row.tool).Run(context, arguments, application);
      EXPECT_EQ(host.forms.shown.empty(), count == row.threshold) << row.tool << " " << count;
    }
  }
}

TEST_F(ToolRuns, TheTimeOfACopyIsPartOfTheCalculations) {
  Arguments arguments;
  arguments.Set("source", Lines());
  arguments.Set("measure", std::vector<ToolMeasure>{{"Plan. Length", {}}});
  arguments.Set("output", Output("measured.shp"));
  RunContext context = HostContext();
  host.clock.step = 1.0;
  const Date before = host.clock.now;
  (void)Named("calculate").Run(context, arguments, application);
  ASSERT_FALSE(context.journal.failed) << context.journal.failure;
  EXPECT_EQ(context.journal.written, 1);
  EXPECT_LE(context.journal.begin.serial, AddSeconds(before, 1.0).serial) << "one look at each clock";
}

TEST_F(ToolRuns, AnArgumentOfTheWrongTypeIsAFaultOfItsFace) {
  Arguments arguments;
  arguments.Set("shift", std::string("1"));
  EXPECT_THROW((void)arguments.Get<double>("shift"), Fault);
  EXPECT_EQ(arguments.Get<std::string>("shift"), "1");
  EXPECT_EQ(arguments.Get<double>("other", 3.0), 3.0);
}

}  // namespace
}  // namespace tessarine
