// SPDX-License-Identifier: GPL-2.0-or-later
// The tools for graphic elements as a program runs them: arguments in, objections or work out, no dialog on the way.
#include <set>

#include "graphics/graphics_fixture.h"
#include "outputs/formats.h"
#include "tools/tool.h"

namespace tessarine::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using Given = std::initializer_list<std::pair<const char*, Arguments::Value>>;
using Texts = std::vector<std::string>;

class GraphicsTools : public GraphicsTest {
 protected:
  static const Tool& Named(std::string_view name) {
    for (const Tool* tool : AllTools()) {
      if (tool->Spec().name == name) return *tool;
    }
    throw std::runtime_error("no such tool");
  }
  static Arguments Of(Given given) {
    Arguments arguments;
    for (const auto& [name, value] : given) arguments.Set(name, value);
    return arguments;
  }
  ToolOutput Output(const std::string& name) const { return {FormatOfPath(name)->kind, folder.Path(), "", name, ""}; }
  std::string ObjectionTo(std::string_view tool, const Arguments& arguments) const {
    const auto objection = Named(tool).Validate(arguments, application);
    return objection ? objection->parameter + "|" + objection->text : "";
  }
  std::string Run(std::string_view tool, const Arguments& arguments) {
    EXPECT_EQ(ObjectionTo(tool, arguments), "");
    RunContext context = HostContext();
    return ToPlainText(ReadRtf(Named(tool).Run(context, arguments, application)));
  }
  // A mark for each element of the map.
  std::string Selection() const {
    std::string marks;
    for (const auto& element : document->Map().Elements()) marks += element->selected ? 'S' : '-';
    return marks;
  }
  void AddSome() {
    Add("marker", At(1, 2), "camp", true);
    Add("line", PolylineOf({{{0, 0}, {1, 1}}}), "Road");
    Add("circle", Inside(CircularArc::Circle({5, 40}, 3, true)), "road");
    Add("text", At(1, 2), "Area 1");
  }
};

// Those that need a document are no tools for a program that has none.
TEST_F(GraphicsTools, WorkOnTheDocumentAndAlone) {
  std::set<std::string_view> of_document;
  for (const Tool* tool : AllTools()) {
    const ToolSpec& spec = tool->Spec();
    if (spec.works_on != ToolSubject::Document) continue;
    of_document.insert(spec.name);
    for (const ToolParameter& parameter : spec.parameters) EXPECT_NE(parameter.kind, ParameterKind::Layer);
  }
  EXPECT_THAT(of_document, ElementsAre("graphics name", "graphics new", "graphics select", "graphics to-features"));
}

TEST_F(GraphicsTools, WhatStandsAgainstARunIsSaidOfItsParameter) {
  const char* const layout = "layout";
  const char* const bare = "bare";
  const char* const some = "some";
  const char* const nowhere = "no reference";
  struct Row {
    const char* document;
    const char* tool;
    Given given;
    const char* objection;
  };
  const Row rows[] = {
      {some, "graphics to-features", {{"to", std::string("circles")}}, "|'circles' is no shape: give points,"},
      {some, "graphics to-features", {{"to", std::string("points")}, {"both", true}}, "|{both} takes lines and"},
      {layout, "graphics to-features", {{"to", std::string("points")}}, "|Conversion Unavailable in Layout View..."},
      {bare, "graphics to-features", {{"to", std::string("points")}}, "|No graphics available..."},
      {nowhere, "graphics to-features", {{"to", std::string("points")}}, "|The map has no spatial reference"},
      {some,
       "graphics to-features",
       {{"to", std::string("polygons")}, {"selected", true}},
       "|No selected graphic polygons in map!  No new Feature Class"},
      {some, "graphics to-features", {{"to", std::string("polylines")}}, "|No selected graphic polylines in map!"},
      {some, "graphics to-features", {{"to", std::string("polylines")}, {"all", true}}, ""},
      {bare, "graphics new", {{"shapes", std::string("points")}}, ""},
      {bare, "graphics new", {{"shapes", std::string("point")}}, "|'point' is no shape"},
      {nowhere, "graphics new", {{"shapes", std::string("points")}}, "|The map has no spatial reference"},
      {some, "graphics select", {}, "|Tell what to select: a type, as {circles}, a {name}, or a {pattern}."},
      {some, "graphics select", {{"frames", true}}, "frames|the view has none."},
      {some,
       "graphics select",
       {{"name", Texts{"ROAD", "lane"}}},
       "name|no graphic element is named 'lane'. There are: Area 1, Road, camp."},
      {bare, "graphics select", {{"pattern", std::string("*")}}, "|No graphic element of the view has a name."},
      {layout, "graphics select", {{"points", true}}, "points|the view has none."},
      {bare,
       "graphics name",
       {{"name", std::string("x")}, {"selected", true}},
       "selected|no graphic element is selected."},
      {some,
       "graphics name",
       {},
       "|Your 'Name' value is an empty string, so your 1 selected graphic elements will\r\n"},
      {some,
       "graphics name",
       {{"all", true}},
       "|Your 'Name' value is an empty string, so your 4 graphic elements will"},
      {some, "graphics name", {{"name", std::string("x")}}, ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.document) + ", " + row.tool + ": " + row.objection);
    document = std::make_shared<MapDocument>();
    application->document = document;
    if (row.document != nowhere) Reference("EPSG:4326");
    if (row.document != bare) AddSome();
    document->SetLayoutActive(row.document == layout);
    const std::string told = ObjectionTo(row.tool, Of(row.given));
    EXPECT_THAT(told, StartsWith(row.objection));
    EXPECT_EQ(told.empty(), *row.objection == '\0');
  }
}

TEST_F(GraphicsTools, MakeAClassAndALayerAndShowNoForm) {
  AddSome();
  const Arguments arguments =
      Of({{"to", std::string("polygons")}, {"both", true}, {"all", true}, {"output", Output("out.shp")}});
  RunContext context = HostContext();
  const std::string plan = ToPlainText(ReadRtf(Named("graphics to-features").Plan(context, arguments, application)));
  EXPECT_THAT(plan, HasSubstr("planned only: nothing was written"));
  EXPECT_EQ(document->Map().LayerCount(), 0);
  EXPECT_FALSE(folder.Has("out.shp"));
  EXPECT_THAT(Run("graphics to-features", arguments), HasSubstr("1 polyline graphics\n1 polygon graphics\n"));
  Texts names;
  EXPECT_EQ(EachFeature("out.shp", [&](OGRFeature& row) { names.emplace_back(row.GetFieldAsString("Name")); }), 2);
  EXPECT_THAT(names, ElementsAre("Road", "road"));
  EXPECT_EQ(document->Map().LayerCount(), 1);
  EXPECT_EQ(host.journal.written, 2);
  EXPECT_EQ(extension->DirectoryPath, folder.Path());
  EXPECT_THAT(host.forms.shown, IsEmpty());

  // A folder gets the tool's own name, and a free number.
  for (int run = 0; run < 2; ++run) {
    (void)Run("graphics new", Of({{"shapes", std::string("polylines")},
                                  {"reference", SpatialReferenceEnvironment::CreateFromText("EPSG:32631")},
                                  {"output", ToolOutput{0, folder.Path(), "", "", ""}}}));
  }
  const GDALDatasetUniquePtr second(GDALDataset::Open(folder.Native("NewShape_2.shp").c_str(), GDAL_OF_VECTOR));
  ASSERT_TRUE(second);
  EXPECT_EQ(second->GetLayer(0)->GetGeomType(), wkbLineString);
  EXPECT_TRUE(second->GetLayer(0)->GetSpatialRef()->IsProjected());
}

TEST_F(GraphicsTools, SelectAndNameElements) {
  AddSome();
  EXPECT_EQ(Run("graphics select", Of({{"circles", true}, {"pattern", std::string("area*")}})),
            "3 of 4 graphic elements selected.");
  EXPECT_EQ(Selection(), "S-SS");
  EXPECT_TRUE(document->Dirty());
  document->Map().UnselectAllElements();
  EXPECT_EQ(Run("graphics select", Of({{"name", Texts{"ROAD"}}})), "2 of 4 graphic elements selected.");
  EXPECT_EQ(Selection(), "-SS-") << "names differ in case alone";

  EXPECT_EQ(Run("graphics name", Of({{"name", std::string("lane")}})), "2 of 4 graphic elements named 'lane'.");
  EXPECT_EQ(document->Map().Elements()[0]->Name(), "camp");
  EXPECT_EQ(document->Map().Elements()[2]->Name(), "lane");
  EXPECT_EQ(host.journal.written, 2);
  Arguments clearing = Of({{"all", true}});
  clearing.confirmed = true;
  EXPECT_EQ(Run("graphics name", clearing), "4 of 4 graphic elements named ''.");
  for (const auto& element : document->Map().Elements()) EXPECT_EQ(element->Name(), "");
  EXPECT_THAT(host.forms.shown, IsEmpty());
}

// A plan says what a run would come to, and leaves the document as it is.
TEST_F(GraphicsTools, PlansChangeNothing) {
  AddSome();
  const auto plan = [&](std::string_view tool, const Arguments& arguments) {
    RunContext context = HostContext();
    return ToPlainText(ReadRtf(Named(tool).Plan(context, arguments, application)));
  };
  document->Map().Elements()[3]->selected = true;
  const Arguments circles = Of({{"circles", true}, {"name", Texts{"ROAD"}}, {"pattern", std::string("area*")}});
  EXPECT_THAT(plan("graphics select", circles), StartsWith("4 of 4 graphic elements would be selected."));
  const Arguments lane = Of({{"name", std::string("lane")}, {"selected", true}});
  EXPECT_THAT(plan("graphics name", lane), StartsWith("2 of 4 graphic elements would be named 'lane'."));
  EXPECT_THAT(plan("graphics name", Of({{"name", std::string("lane")}, {"all", true}})),
              StartsWith("4 of 4 graphic elements would be named 'lane'."));
  EXPECT_EQ(Selection(), "S--S");
  EXPECT_EQ(document->Map().Elements()[0]->Name(), "camp");
  EXPECT_FALSE(document->Dirty());

  EXPECT_EQ(Run("graphics select", circles), "4 of 4 graphic elements selected.");
  EXPECT_EQ(Run("graphics name", lane), "4 of 4 graphic elements named 'lane'.") << "all are selected now";
}

// Nobody is there to be asked again: what can't be made is noted as given up.
TEST_F(GraphicsTools, AnOutputThatIsDeclinedLeavesNothing) {
  AddSome();
  folder.Write("taken.shp", "old");
  host.messages.answers = {MessageAnswer::No};
  host.browse.answers = {{nullptr, ""}};
  EXPECT_EQ(Run("graphics new", Of({{"shapes", std::string("points")}, {"output", Output("taken.shp")}})), "");
  EXPECT_TRUE(host.journal.cancelled);
  EXPECT_EQ(document->Map().LayerCount(), 0);
}

}  // namespace
}  // namespace tessarine::testing
