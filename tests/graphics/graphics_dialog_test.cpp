// SPDX-License-Identifier: GPL-2.0-or-later
// What the graphics dialog offers before anything is made.
#include "engine/data_source.h"
#include "graphics/frmGraphicsShapefile.h"
#include "graphics/graphic_harvest.h"
#include "graphics/graphics_fixture.h"
#include "helpers/form_layout.h"

namespace tessarine::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class GraphicsDialog : public GraphicsTest {
 protected:
  void AddSomeOfAll() {
    Add("marker", At(1, 2), "", true);
    Add("text", At(1, 2), "words", true);
    Add("line", PolylineOf({{{0, 0}, {1, 1}}}), "b");
    Add("line", PolylineOf({{{0, 0}, {2, 1}}}));
    Add("rectangle", PolygonOf({Box(0, 0, 1, 1)}));
    Add("frame", PolygonOf({Box(0, 0, 1, 1)}));
    Add("group", nullptr, "group");
    Add("polygon", std::make_shared<Multipoint>(), "other shape");
  }
};

TEST_F(GraphicsDialog, ElementsAreSortedByShape) {
  AddSomeOfAll();
  const GraphicHarvest harvest = HarvestGraphics(*document);
  const auto all = harvest.all.ConversionLines();
  EXPECT_THAT(std::vector(all->begin(), all->end()),
              ElementsAre("1) Point Shapefile: 1 Point", "2) Polyline Shapefile: 2 Polylines",
                          "3) Polyline Shapefile: 2 Polylines + 1 Polygon", "4) Polygon Shapefile: 1 Polygon",
                          "5) Polygon Shapefile: 2 Polylines + 1 Polygon"));
  const auto selected = harvest.selected.ConversionLines();
  EXPECT_EQ(selected->Element(0), "1) Point Shapefile: 1 Point");
  EXPECT_EQ(selected->Element(4), "5) Polygon Shapefile: 0 Polylines + 0 Polygons");
  EXPECT_TRUE(harvest.all.polylines.any_name);
  EXPECT_FALSE(harvest.all.points.any_name);
  EXPECT_EQ(Cast<DocumentSymbol>(harvest.all.polylines.first_symbol)->definition, "line2");
  EXPECT_NE(harvest.all.points.shapes->Element(0).AsObject<Point>(), document->Map().Elements()[0]->shape);
}

TEST_F(GraphicsDialog, FirstModeFollowsTheViewAndItsGraphics) {
  struct Row {
    const char* name;
    bool layout, graphics, selected, convert;
    const char* first_line;
  };
  const Row rows[] = {
      {"layout", true, true, true, false, "Conversion Unavailable in Layout View..."},
      {"nothing", false, false, false, false, "No graphics available..."},
      {"none selected", false, true, false, false, "1) Point Shapefile: 2 Points"},
      {"one selected", false, true, true, true, "1) Point Shapefile: 1 Point"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    document = std::make_shared<MapDocument>();
    application->document = document;
    document->SetLayoutActive(row.layout);
    if (row.graphics) Add("marker", At(0, 0), "", row.selected);
    if (row.graphics) Add("marker", At(1, 0));
    frmGraphicsShapefile dialog;
    Show<frmGraphicsShapefile>(dialog, [&](frmGraphicsShapefile& form) {
      const bool offered = row.graphics && !row.layout;
      EXPECT_EQ(form.optConvert.Value(), row.convert);
      EXPECT_EQ(form.optNew.Value(), !row.convert);
      EXPECT_EQ(form.optConvert.Enabled(), offered);
      EXPECT_EQ(form.chkSelected.Value() == CheckBox::kChecked, row.convert);
      EXPECT_EQ(form.lbxGraphics.List(0), row.first_line);
      EXPECT_EQ(form.lbxGraphics.ListCount(), offered ? 5 : 1);
      EXPECT_TRUE(form.optPolygon.Value());
      EXPECT_EQ(form.frmNew.Enabled(), !row.convert);
      EXPECT_EQ(form.lbxGraphics.Enabled(), row.convert);
      EXPECT_THAT(LayoutProblems(form), ::testing::IsEmpty());
      if (row.convert) {
        form.chkSelected.SetValue(CheckBox::kUnchecked);
        EXPECT_EQ(form.lbxGraphics.List(0), "1) Point Shapefile: 2 Points");
      }
    });
  }
}

// An element whose shape can't be had.
class BrokenElement final : public GraphicElement {
 public:
  [[nodiscard]] const char* Kind() const override { return "broken"; }
  [[nodiscard]] GeometryRef Geometry() const override { Raise(kInvalidCall, "It can't be drawn."); }
};

TEST_F(GraphicsDialog, ElementsThatCannotBeReadLeaveTheEmptyClasses) {
  document->Map().AddElement(std::make_shared<BrokenElement>());
  frmGraphicsShapefile dialog;
  Show<frmGraphicsShapefile>(dialog, [&](frmGraphicsShapefile& form) {
    EXPECT_FALSE(form.optConvert.Enabled());
    EXPECT_EQ(form.lbxGraphics.List(0), "No graphics available...");
    EXPECT_EQ(form.txtOutput.Text(), folder.Path("NewShape.shp"));
    EXPECT_TRUE(form.cmdOK.Enabled());
  });
  ASSERT_EQ(host.error_reports.size(), 1U);
  EXPECT_THAT(host.error_reports[0], HasSubstr("FillGraphicsArrays"));
  host.error_reports.clear();
}

TEST_F(GraphicsDialog, OkNeedsAChoiceAndAReference) {
  document->Map().SetSpatialReference(nullptr);
  Add("marker", At(0, 0), "", true);
  frmGraphicsShapefile dialog;
  Show<frmGraphicsShapefile>(dialog, [&](frmGraphicsShapefile& form) {
    // Two thirds of the screen of 1000 by 600, less two thirds of the width and a third of the height.
    EXPECT_DOUBLE_EQ(form.Left(), 2.0 * (1000.0 - form.Width()) / 3.0);
    EXPECT_DOUBLE_EQ(form.Top(), (1200.0 - form.Height()) / 3.0);
    EXPECT_EQ(form.lblSpRef.Caption(), "Spatial Reference = <-- No Spatial Reference Set -->");
    form.optNew.SetValue(true);
    EXPECT_FALSE(form.cmdOK.Enabled());
    form.cmdSpRef.Press();
    EXPECT_FALSE(form.cmdOK.Enabled()) << "a cancelled dialog changes nothing";
    host.chosen_reference = SpatialReferenceEnvironment::CreateFromText("EPSG:32631");
    form.cmdSpRef.Press();
    EXPECT_EQ(form.lblSpRef.Caption(), "Spatial Reference = WGS 84 / UTM zone 31N");
    EXPECT_TRUE(form.cmdOK.Enabled());
    form.optConvert.SetValue(true);
    EXPECT_FALSE(form.cmdOK.Enabled()) << "no conversion is chosen";
    form.lbxGraphics.SetListIndex(0);
    EXPECT_TRUE(form.cmdOK.Enabled());
    form.cmdSpRef.Press();
    EXPECT_EQ(host.initial_reference, host.chosen_reference);
  });
}

TEST_F(GraphicsDialog, ProposedOutputIsFree) {
  folder.Write("NewShape.shp");
  CreateFileGeodatabase(folder.Native("x.gdb"));
  struct Row {
    std::string directory;
    const char* type;
    std::string text;
  };
  application->templates = {folder.Path("map.json")};
  const Row rows[] = {
      {folder.Path(), "Shapefile", folder.Path("NewShape_2.shp")},
      {folder.Path(), "", folder.Path("NewShape_2.shp")},
      {folder.Path("gone"), "Shapefile", folder.Path("NewShape_2.shp")},
      {folder.Path("x.gdb"), "Coverage", folder.Path("NewShape_2.shp")},
      {folder.Path("x.gdb"), "File Geodatabase", folder.Path("x.gdb") + "\\NewShape"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.directory + " " + row.type);
    extension->DirectoryPath = row.directory;
    extension->DirectoryType = row.type;
    frmGraphicsShapefile dialog;
    Show<frmGraphicsShapefile>(dialog, [&](frmGraphicsShapefile& form) { EXPECT_EQ(form.txtOutput.Text(), row.text); });
  }
}

TEST_F(GraphicsDialog, BrowsingTakesFoldersAndWhateverLiesInAGeodatabase) {
  const auto place = [&](const char* path, const char* category) {
    return std::make_shared<TestGxObject>(folder.Path(path), category);
  };
  frmGraphicsShapefile dialog;
  Show<frmGraphicsShapefile>(dialog, [&](frmGraphicsShapefile& form) {
    const std::string before = form.txtOutput.Text();
    host.browse.answers = {{place("x.tin", "TIN Dataset"), "a"}, {nullptr, ""}};
    form.cmdGetWorkspace.Press();
    ASSERT_EQ(host.messages.shown.size(), 1U);
    EXPECT_EQ(host.messages.shown[0].title, "Invalid Feature Class Type:");
    EXPECT_THAT(host.messages.shown[0].text, HasSubstr("Unexpected Feature Class Type (TIN Dataset)!\r\n"));
    EXPECT_EQ(host.browse.titles.size(), 2U) << "OK opens it again";
    EXPECT_EQ(form.txtOutput.Text(), before);
    host.browse.answers = {{place("sub", "Folder"), "roads"}};
    form.cmdGetWorkspace.Press();
    EXPECT_EQ(form.txtOutput.Text(), folder.Path("sub") + "\\roads.shp");
    host.browse.answers = {{place("x.gdb", "File Geodatabase Topology"), "roads"}};
    form.cmdGetWorkspace.Press();
    EXPECT_EQ(form.txtOutput.Text(), folder.Path("x.gdb") + "\\roads");
    EXPECT_EQ(host.browse.titles.back(), "Enter the name of your new Feature Class or Shapefile:");
  });
}

}  // namespace
}  // namespace tessarine::testing
