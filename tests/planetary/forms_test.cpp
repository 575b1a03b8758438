// SPDX-License-Identifier: GPL-2.0-or-later
// The dialogs of the planetary tools.
#include "helpers/form_layout.h"
#include "planetary/frmBoundaryWrap.h"
#include "planetary/frmGeoCentric.h"
#include "tests/planetary/planetary_fixture.h"

namespace tessarine {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class PlanetaryFormTest : public testing::PlanetaryTest {
 protected:
  frmBoundaryWrap wrap;
  frmGeoCentric geo;

  void SetUp() override {
    PlanetaryTest::SetUp();
    extension->DirectoryPath = folder.Path();
    AddLayer("streets", "EPSG:32612");
    earth = AddLayer("coast", "EPSG:4326");
    mars = AddLayer("valleys", "ESRI:104905");
  }
  std::shared_ptr<DocumentFeatureLayer> AddLayer(const char* name, const char* reference) {
    const auto data = std::make_shared<testing::MemoryClass>(esriGeometryPolyline);
    data->reference = SpatialReferenceEnvironment::CreateFromText(reference);
    auto added = std::make_shared<DocumentFeatureLayer>();
    added->SetName(name);
    added->SetFeatureClass(data);
    document->Map().AppendLayer(added);
    return added;
  }
  void OpenWrap() {
    wrap.SetArcApplication(application);
    wrap.Load();
  }
  void OpenGeo() {
    geo.SetArcApplication(GeoCentricInput::Make(application, extension, folder.Path(), 1, " Direction:", "Select."));
    geo.Load();
  }
  std::string LastMessage() {
    if (host.messages.shown.empty()) return "";
    const auto shown = host.messages.shown.back();
    host.messages.shown.clear();
    return shown.title + "|" + shown.text;
  }

  std::shared_ptr<DocumentFeatureLayer> earth, mars;
};

TEST_F(PlanetaryFormTest, BothOpenWithTheLayersInDegreesAndTheRememberedChoices) {
  extension->LongitudeShift = -12.25;
  extension->LongitudeWrapOption = kWrap360;
  extension->CustomBoundaryWest = -90.5;
  extension->CustomBoundaryEast = 270;
  extension->CustomBoundaryNorth = 45;
  extension->CustomBoundarySouth = 60;  // no box
  OpenWrap();
  OpenGeo();
  for (LongitudeForm* form : std::initializer_list<LongitudeForm*>{&wrap, &geo}) {
    ASSERT_EQ(form->lbxLayers.ListCount(), 2);
    EXPECT_EQ(form->lbxLayers.List(0) + form->lbxLayers.List(1), "coastvalleys");
    EXPECT_EQ(form->lbxLayers.ListIndex(), 0);
    EXPECT_TRUE(form->optWrap360.Value());
    EXPECT_EQ(form->txtLongShift.Text(), "-12.25");
    EXPECT_EQ(form->txtOutput.Text(), folder.Path("Output.shp"));
    EXPECT_TRUE(form->cmdOK.Enabled());
    EXPECT_THAT(testing::LayoutProblems(*form), IsEmpty());
    form->Resize(form->Width() + 80, form->Height() + 60);
    EXPECT_THAT(testing::LayoutProblems(*form), IsEmpty());
  }
  EXPECT_EQ(wrap.Caption(), " Wrap to Boundary:");
  EXPECT_EQ(geo.Caption(), " Direction:");
  EXPECT_EQ(wrap.txtWest.Text() + wrap.txtNorth.Text() + wrap.txtEast.Text() + wrap.txtSouth.Text(), "-18090180-90");
  EXPECT_FALSE(wrap.txtWest.Enabled());
  EXPECT_EQ(wrap.txtWest.BackColor(), kButtonFace);
  wrap.optCustom.SetValue(true);
  EXPECT_TRUE(wrap.txtSouth.Enabled());
  EXPECT_EQ(wrap.txtSouth.BackColor(), kWindowBackground);

  extension->CustomBoundarySouth = -60;
  extension->LongitudeWrapOption = 7;
  folder.Write("Output.shp");
  frmBoundaryWrap second;
  second.SetArcApplication(application);
  EXPECT_TRUE(second.optCustom.Value());
  EXPECT_EQ(second.txtWest.Text(), "-90.5");
  EXPECT_EQ(second.txtOutput.Text(), folder.Path("Output_2.shp"));
  EXPECT_THAT(host.error_reports, IsEmpty());
}

TEST_F(PlanetaryFormTest, WithoutALayerInDegreesThereIsNoOk) {
  document = std::make_shared<MapDocument>();
  application->document = document;
  AddLayer("streets", "EPSG:32612");
  extension->ShouldContinue = true;
  OpenWrap();
  OpenGeo();
  EXPECT_FALSE(wrap.cmdOK.Enabled() || geo.cmdOK.Enabled() || extension->ShouldContinue);
  EXPECT_THAT(geo.lblCurrent.Caption(), HasSubstr("WGS 1984"));
  EXPECT_EQ(geo.txtMinor.Text(), "6356752.31424518");
}

TEST_F(PlanetaryFormTest, OkOfTheWrapRefusesWhatIsNoBox) {
  OpenWrap();
  wrap.optCustom.SetValue(true);
  struct Row {
    const char *west, *east, *south, *north, *message;
    const TextBox* focus;
  };
  const Row rows[] = {
      {"x", "x", "x", "", "Invalid Boundary Value:|Northern Boundary Value is invalid...", &wrap.txtNorth},
      {"x", "1e999", "x", "9", "Invalid Boundary Value:|Eastern Boundary Value is invalid...", &wrap.txtEast},
      {"x", "5", "-", "9", "Invalid Boundary Value:|Southern Boundary Value is invalid...", &wrap.txtSouth},
      {".", "5", "9", "9", "Invalid Boundary Value:|Western Boundary Value is invalid...", &wrap.txtWest},
      {"5", "5", "9", "9", "Invalid Boundary Values:|Western Boundary Value >= Eastern Boundary Value...",
       &wrap.txtEast},
      {"4", "5", "9", "9", "Invalid Boundary Values:|Southern Boundary Value >= Northern Boundary Value...",
       &wrap.txtNorth},
  };
  for (const Row& row : rows) {
    wrap.txtWest.SetText(row.west);
    wrap.txtEast.SetText(row.east);
    wrap.txtSouth.SetText(row.south);
    wrap.txtNorth.SetText(row.north);
    wrap.cmdOK.Press();
    EXPECT_EQ(LastMessage(), row.message);
    EXPECT_EQ(wrap.ActiveControl(), row.focus);
    EXPECT_FALSE(extension->ShouldContinue);
  }
  wrap.txtNorth.SetText("45.5");
  wrap.txtOutput.SetText(folder.Path("gone") + "\\a.shp");
  wrap.cmdOK.Press();
  EXPECT_EQ(LastMessage(), "Failed to Create Feature Class:|Unable to create Feature Class:\r\n" +
                               folder.Native("gone") + " is not a valid workspace...");
  EXPECT_EQ(wrap.ActiveControl(), &wrap.txtOutput);

  wrap.txtOutput.SetText(folder.Path("a"));
  wrap.txtLongShift.SetText("15.5");
  wrap.txtLongShift.SetText("15.5-");
  wrap.cmdOK.Press();
  EXPECT_EQ(LastMessage(), "");
  EXPECT_TRUE(extension->ShouldContinue);
  const WrapArguments chosen(extension->frmBoundaryWrapReturn);
  EXPECT_EQ(chosen.Layer(), earth);
  EXPECT_EQ(chosen.Option(), 0);
  EXPECT_EQ(chosen.Shift(), 15.5) << "the last valid text";
  EXPECT_EQ(chosen.Box().north, 45.5);
  EXPECT_EQ(chosen.Output().Place().name, "a.shp");
  EXPECT_EQ(chosen.Output().Reference(), earth->SpatialReference());
  EXPECT_EQ(extension->frmBoundaryWrapReturn->Element(1).AsDouble(), 4.0);
  EXPECT_EQ(extension->frmBoundaryWrapReturn->Element(4).AsDouble(), 9.0);
  EXPECT_EQ(extension->CustomBoundaryNorth, 45.5);
  EXPECT_EQ(extension->LongitudeShift, 15.5);
  EXPECT_EQ(extension->DirectoryType, "Shapefile");
}

TEST_F(PlanetaryFormTest, StepsOverTheEdgeAreAChoiceThatIsOffAtFirst) {
  using geodesy::EnclosedPole;
  OpenWrap();
  EXPECT_EQ(wrap.chkShortSteps.Value(), CheckBox::kUnchecked);
  EXPECT_FALSE(wrap.cboPole.Enabled());
  wrap.cmdOK.Press();
  EXPECT_EQ(WrapArguments(extension->frmBoundaryWrapReturn).Steps().steps, LongSteps::AsTheyStand);

  frmBoundaryWrap second;
  second.SetArcApplication(application);
  second.chkShortSteps.SetValue(CheckBox::kChecked);
  EXPECT_TRUE(second.cboPole.Enabled());
  EXPECT_EQ(second.cboPole.Text(), "the smaller part");
  second.cboPole.SetListIndex(2);
  second.cmdOK.Press();
  const StepChoice chosen = WrapArguments(extension->frmBoundaryWrapReturn).Steps();
  EXPECT_EQ(chosen.steps, LongSteps::ShortWay);
  EXPECT_EQ(chosen.pole, EnclosedPole::South);

  // As with the layer, the next dialog shows the last choice.
  ReleaseLayer(*extension->frmBoundaryWrapReturn);
  frmBoundaryWrap third;
  third.SetArcApplication(application);
  EXPECT_EQ(third.chkShortSteps.Value(), CheckBox::kChecked);
  EXPECT_EQ(third.cboPole.Text(), "the south pole");
  // A list of eight elements says nothing of steps.
  const auto shorter = std::make_shared<VarArray>();
  for (int element = 0; element < 8; ++element) shorter->Add(0.0);
  EXPECT_EQ(WrapArguments(shorter).Steps().steps, LongSteps::AsTheyStand);
  EXPECT_TRUE(WrapArguments(shorter).FromDocument().empty());
}

TEST_F(PlanetaryFormTest, TheNextDialogSelectsTheLayerOfTheLastRunAgain) {
  OpenWrap();
  wrap.lbxLayers.SetListIndex(1);
  wrap.optWrap180.SetValue(true);
  wrap.cmdOK.Press();
  ASSERT_TRUE(extension->frmBoundaryWrapReturn);
  ReleaseLayer(*extension->frmBoundaryWrapReturn);
  EXPECT_EQ(WrapArguments(extension->frmBoundaryWrapReturn).Layer(), nullptr);
  frmBoundaryWrap next;
  next.SetArcApplication(application);
  EXPECT_EQ(next.lbxLayers.List(next.lbxLayers.ListIndex()), "valleys");
  EXPECT_TRUE(next.optWrap180.Value());
  EXPECT_EQ(extension->frmBoundaryWrapReturn, nullptr);
  next.cmdOK.Press();
  next.cmdCancel.Press();
  EXPECT_EQ(extension->frmBoundaryWrapReturn, nullptr);
  EXPECT_FALSE(extension->ShouldContinue);
}

TEST_F(PlanetaryFormTest, TheSpheroidIsTheLayersUntilItIsTypedOrLoaded) {
  OpenGeo();
  EXPECT_EQ(geo.lblCurrent.Caption(),
            "Current Spheroid = " + SpatialReferenceEnvironment::CreateSpheroid(7030)->Name());
  geo.lbxLayers.SetListIndex(1);
  EXPECT_THAT(geo.lblCurrent.Caption(), HasSubstr("Mars"));
  EXPECT_EQ(geo.txtMajor.Text() + " " + geo.txtMinor.Text(), "3396190 3376200");
  geo.txtMinor.SetText("");
  EXPECT_EQ(geo.lblCurrent.Caption(), "Current Spheroid = <-- Custom Spheroid -->");
  geo.txtMinor.Type("-12a.5.5");
  EXPECT_EQ(geo.txtMinor.Text(), "12.55");
  geo.txtMinor.SetText("0");
  geo.txtMajor.SetText("");
  geo.cmdOK.Press();
  EXPECT_EQ(LastMessage(), "Invalid Spheroid Parameter:|Semi-Major (Equatorial) Radius value must be >= 0...");
  geo.txtMajor.SetText("1000");
  geo.cmdOK.Press();
  EXPECT_EQ(LastMessage(), "Invalid Spheroid Parameter:|Semi-Minor (Polar) Radius value must be >= 0...");

  const auto load = [&](const char* button) {
    host.forms.modal = [=](Form& form) {
      EXPECT_EQ(form.Name(), "frmSpheroidOptions");
      form.FindAs<TextBox>("txtMajor")->SetText("2000");
      form.FindAs<TextBox>("txtMinor")->SetText("1999.5");
      form.FindAs<CommandButton>(button)->Press();
    };
    geo.cmdGetSpheroid.Press();
  };
  load("cmdCancel");
  EXPECT_EQ(geo.txtMajor.Text(), "1000");
  load("cmdOK");
  EXPECT_EQ(geo.lblCurrent.Caption(), "Current Spheroid = Custom Spheroid");
  geo.optWrap180.SetValue(true);
  geo.cmdOK.Press();
  const GeoCentricArguments chosen(extension->frmGeoCentricReturn);
  EXPECT_EQ(chosen.Layer(), mars);
  EXPECT_EQ(chosen.SpheroidName(), "Custom Spheroid");
  EXPECT_EQ(chosen.SemiMajorAxis(), 2000.0);
  EXPECT_EQ(chosen.SemiMinorAxis(), 1999.5);
  EXPECT_EQ(chosen.Option(), kWrap180);
  EXPECT_EQ(extension->LongitudeWrapOption, kWrap180);
  EXPECT_FALSE(geo.Visible());
}

TEST(TypedOutput, TheFolderTellsTheKind) {
  struct Row {
    const char *text, *directory, *name;
    std::int32_t kind;
    const char* dataset;
  };
  const Row rows[] = {
      {"C:\\data\\a", "C:\\data", "a.shp", 1, ""},
      {"C:\\data\\a.txt", "C:\\data", "a.shp", 1, ""},
      {"C:\\data\\a.geojson", "C:\\data", "a.geojson", 17, ""},
      {"C:\\data\\a.gpkg\\b c", "C:\\data\\a.gpkg", "b c", 16, ""},
      {"C:\\data\\b.gdb\\a", "C:\\data\\b.gdb", "a", 2, ""},
      {"C:\\b.MDB\\a", "C:\\b.MDB", "a", 4, ""},
      {"C:\\x.gdb\\set\\n", "C:\\x.gdb", "n", 2, "set"},
      {"C:\\x.gdb\\other\\n", "C:\\x.gdb\\other", "n.shp", 1, ""},
  };
  for (const Row& row : rows) {
    OutputPlace place = PlaceIn(MyGeneralOperations::kFileGeodatabase, "C:\\x.gdb", "m", "set");
    FollowTypedOutput(row.text, place);
    EXPECT_EQ(place.Directory(), row.directory) << row.text;
    EXPECT_EQ(place.name, row.name) << row.text;
    EXPECT_EQ(place.Kind(), row.kind) << row.text;
    EXPECT_EQ(place.dataset, row.dataset) << row.text;
  }
}

}  // namespace
}  // namespace tessarine
