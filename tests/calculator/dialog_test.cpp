// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog of the calculator.
#include <gmock/gmock.h>

#include "calculator/calculator_layers.h"
#include "calculator/frmGeometry.h"
#include "helpers/form_layout.h"

namespace tessarine {
namespace {

using namespace testing;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::int32_t kWhite = 0xFFFFFF, kYellow = 0xFFFFC3;

class GeometryDialog : public CalculatorTest {
 protected:
  frmGeometry form;
  std::vector<std::string> questions;  ///< title and text of what was asked
  std::deque<bool> answers;            ///< Yes or No, in turn

  void Open() {
    host.forms.modal = [this](Form& shown) {
      if (shown.Name() != "frmMessageBox") return;
      questions.push_back(shown.Caption() + "|" + shown.FindAs<TextBox>("txtMessage")->Text());
      const bool yes = answers.empty() || answers.front();
      if (!answers.empty()) answers.pop_front();
      shown.FindAs<CommandButton>(yes ? "cmdYes" : "cmdNo")->Press();
    };
    form.SetArcApplication(application);
    form.Load();
  }
  void TearDown() override { EXPECT_THAT(host.error_reports, IsEmpty()); }
  std::string Captions() {
    std::string captions;
    for (int id = 1; id <= 11; ++id) {
      const auto* box = form.FindAs<CheckBox>("chk" + std::to_string(id));
      if (box->Visible()) captions += box->Caption() + "; ";
    }
    return captions;
  }
};

TEST_F(GeometryDialog, AMapWithoutLayersLeavesCancelAndManual) {
  Open();
  std::string enabled;
  for (const Control* control : form.Controls()) {
    if (control->Enabled()) enabled += control->Name() + " ";
  }
  EXPECT_EQ(enabled, "txtMessage Line1 cmdManual cmdCancel ");
  EXPECT_EQ(form.chk11.Caption(), "No Feature Layers");
  EXPECT_EQ(form.optAll.Caption(), "Calculate All Records");
}

TEST_F(GeometryDialog, TheControlsFollowTheLayer) {
  const auto areas = Add("areas.shp", wkbPolygon, {{kSquare}, {kSquare}});
  Add("towns.shp", wkbPoint, {{"POINT (1 2)"}});
  Add("roads.shp", wkbLineString, {{"LINESTRING (500000 2,500001 4)"}}, 32633);
  Add("plain.shp", wkbMultiPoint, {{"MULTIPOINT (1 2,3 4)"}}, 0);
  document->SetSelectedLayer(areas);
  Open();
  EXPECT_EQ(form.lbSelFeatureType.Caption(), "Polygon Feature Class:  Geographic Coordinate System");
  EXPECT_EQ(Captions(),
            "Sph. Area; Sph. Centroid; Perimeter Length; Number of Parts; Number of Vertices; Spheroidal Area; ");
  EXPECT_EQ(form.lblSpheroidOptions.Caption(), "Spheroid: WGS 84,  Maj.Rad. = 6378137m,  Min.Rad. = 6356752.31424518m");
  EXPECT_TRUE(form.cmdAdvanced.Enabled());
  EXPECT_EQ(form.optAll.Caption(), "Calculate All Records (n = 2)");
  EXPECT_EQ(form.optSel.Caption(), "Selected Records (n = 0)");
  EXPECT_FALSE(form.optSel.Enabled());
  EXPECT_FALSE(form.cmdOK.Enabled());
  EXPECT_THAT(LayoutProblems(form), IsEmpty());

  form.chk2.SetValue(CheckBox::kChecked);
  EXPECT_TRUE(form.cmdOK.Enabled());
  EXPECT_TRUE(form.cbx21.Visible() && form.cbx22.Visible());
  EXPECT_EQ(form.cbx21.Text() + " " + form.cbx22.Text(), "Longitude Latitude");
  form.chk1.SetValue(CheckBox::kChecked);
  EXPECT_FALSE(form.cbx12.Visible()) << "an area has one field";

  form.lbxLayers.SetListIndex(1);
  EXPECT_EQ(Captions(), "Longitude / Latitude; ");
  EXPECT_FALSE(form.cmdOK.Enabled() || form.cbx11.Visible()) << "a change of layer clears all ticks";
  EXPECT_EQ(form.cmdAdvanced.ToolTipText(), "Advanced functions irrelevant for Point feature classes:");
  form.lbxLayers.SetListIndex(2);
  EXPECT_EQ(form.lbSelFeatureType.Caption(), "Polyline Feature Class:  Projected Coordinate System");
  EXPECT_EQ(form.cmdAdvanced.ToolTipText(), "Advanced functions available only for Geographic Datasets:");
  for (int id = 1; id <= 11; ++id) form.FindAs<CheckBox>("chk" + std::to_string(id))->SetValue(CheckBox::kChecked);
  EXPECT_THAT(LayoutProblems(form), IsEmpty()) << "with all eleven rows";
  EXPECT_EQ(form.cbx111.Text(), "Vertices");
  form.Resize(500, 380);
  EXPECT_THAT(LayoutProblems(form), IsEmpty()) << "larger";
  form.lbxLayers.SetListIndex(3);
  EXPECT_EQ(form.lblSpheroidOptions.Caption(), "Spheroid Unknown");
}

TEST_F(GeometryDialog, ASelectionIsTheDefaultWhereThereIsOne) {
  const auto layer = Add("areas.shp", wkbPolygon, {{kSquare}, {kSquare}, {kSquare}});
  layer->SetSelection(SelectByOids(layer->FeatureClass(), {0, 2}));
  Open();
  EXPECT_TRUE(form.optSel.Value() && form.optSel.Enabled() && form.optAll.Enabled());
  EXPECT_FALSE(form.optAll.Value());
  EXPECT_EQ(form.optSel.Caption(), "Selected Records (n = 2)");
}

TEST_F(GeometryDialog, NamesOfExistingFieldsTurnYellow) {
  const auto layer = Add("areas.shp", wkbPolygon, {{kSquare}});
  for (const char* name : {"SPH_AREA", "Sph_Len"}) {
    auto field = std::make_shared<Field>();
    field->Name = name;
    field->Type = esriFieldTypeDouble;
    layer->FeatureClass()->AddField(field);
  }
  Open();
  form.chk1.SetValue(CheckBox::kChecked);
  EXPECT_EQ(form.cbx11.Text(), "SPH_AREA") << "as the table spells it";
  EXPECT_EQ(form.cbx11.BackColor(), kYellow);
  EXPECT_EQ(form.cbx21.BackColor(), kWhite);
  EXPECT_EQ(form.cbx21.List(0) + " " + form.cbx21.List(1), "Longitude size");
  form.cbx21.SetFocus();
  form.cbx21.SetText("SIZE");
  EXPECT_EQ(form.cbx21.BackColor(), kWhite);
  form.cmdCancel.SetFocus();
  EXPECT_EQ(form.cbx21.BackColor(), kYellow);
  EXPECT_EQ(form.cbx21.Text(), "size");
  EXPECT_EQ(form.cbx21.ListCount(), 3) << "the proposed name is gone";
  form.cbx21.SetFocus();
  form.cbx21.SetText("name");
  form.cmdCancel.SetFocus();
  EXPECT_EQ(form.cbx21.BackColor(), kWhite) << "a text field doesn't count";
}

TEST_F(GeometryDialog, ADefaultNameOfTheFirstNumericFieldStandsTwice) {
  const auto layer = Add("areas.shp", wkbPolygon, {{kSquare}});
  {
    const GDALDatasetUniquePtr dataset(
        GDALDataset::Open(folder.Native("areas.shp").c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    OGRFieldDefn parts("PARTS", OFTInteger);
    ASSERT_EQ(dataset->GetLayer(0)->AlterFieldDefn(1, &parts, ALTER_NAME_FLAG), OGRERR_NONE);
  }
  layer->SetFeatureClass(DataSource::Open(folder.Native("areas.shp"))->OpenFeatureClass(""));
  Open();
  EXPECT_EQ(form.cbx41.List(0) + " " + form.cbx41.List(1), "Parts PARTS");
  EXPECT_EQ(form.cbx41.BackColor(), kWhite);
}

TEST_F(GeometryDialog, BothQuestionsAndTheOptionsThatOkLeaves) {
  const auto layer = Add("areas.shp", wkbPolygon, {{kSquare}});
  Open();
  form.chk1.SetValue(CheckBox::kChecked);
  form.chk2.SetValue(CheckBox::kChecked);
  form.cbx11.SetText("1 long name");
  form.cbx21.SetText("size");
  form.cbx22.SetText("");
  answers = {true, false};
  form.cmdOK.Press();
  ASSERT_EQ(questions.size(), 2U);
  EXPECT_EQ(host.beeps, 2);
  const std::string line = "  --> Option 'Sph. Area',  Field Name = 1 long name";
  EXPECT_THAT(questions[0],
              HasSubstr("---------\r\n" + line + "  (> 10 characters)\r\n" + line +
                        "  (Begins with invalid character '1')\r\n" + line + "  (Contains invalid character ' ')\r\n" +
                        line + "  (Contains invalid character ' ')\r\n"));
  EXPECT_EQ(questions[0].find(" Possible Problems with Field Names:|The following field names might not be valid"), 0U);
  EXPECT_THAT(questions[1], HasSubstr(" Confirm Field Names:|The following field names already exist in your dataset, "
                                      "and therefore the existing data will be overwritten. Please click 'YES'"));
  EXPECT_THAT(questions[1], HasSubstr("--\r\n  --> Option 'Sph. Centroid',  Field Name = size\r\n"));
  EXPECT_FALSE(extension->ShouldContinue || extension->GeometryOptions) << "No to the second leaves nothing";

  answers = {true, true};
  form.cmdOK.Press();
  EXPECT_TRUE(extension->ShouldContinue);
  const GeometryOptions options(extension->GeometryOptions);
  EXPECT_EQ(options.Layer(), layer);
  EXPECT_TRUE(options.AllRecords());
  ASSERT_EQ(options.Options().size(), 2U);
  EXPECT_EQ(options.Options()[1].OptionId(), 2);
  EXPECT_EQ(options.Options()[1].FirstField(), "size");
  EXPECT_EQ(options.SpheroidName(), "WGS 84");
  EXPECT_EQ(options.SemiMajor(), 6378137.0);
  EXPECT_EQ(options.UseFlags()[2], true);
  EXPECT_FALSE(form.Loaded());
}

struct NameRow {
  const char* type;
  const char* name;
  const char* problems;  ///< the brackets of the lines
};

TEST(FieldNameRules, GoByTheKindOfStorage) {
  const NameRow rows[] = {
      {"Shapefile Feature Class", "Sph_Area10", ""},
      {"Shapefile Feature Class", "Sph_Area_11", "(> 10 characters)"},
      {"Shapefile Feature Class", "_a", "(Begins with invalid character '_')"},
      {"Shapefile Feature Class", "\xC3\xA9t\xC3\xA9",
       "(Begins with invalid character '\xC3\xA9')"
       "(Contains invalid character '\xC3\xA9')(Contains invalid character '\xC3\xA9')"},
      {"Arc Feature Class", "elevenchars", ""},
      {"POLYGON FEATURE CLASS", "seventeencharsabc", "(> 16 characters)"},
      {"File Geodatabase Feature Class", "a name of any length with blanks", ""},
      {"Shapefile Feature Class", "", ""},
  };
  for (const NameRow& row : rows) {
    const std::string line = "  --> Option 'Area',  Field Name = " + std::string(row.name) + "  ";
    const std::string problems = FieldNameProblems(row.type, {{"Area", row.name}});
    EXPECT_EQ(Replace(Replace(problems, line, ""), "\r\n", ""), row.problems) << row.name;
  }
}

TEST_F(GeometryDialog, AnotherSpheroidStaysUntilTheLayerChanges) {
  Add("areas.shp", wkbPolygon, {{kSquare}});
  Add("fields.shp", wkbPolygon, {{kSquare}});
  Open();
  host.forms.modal = [](Form& shown) {
    ASSERT_EQ(shown.Name(), "frmSpheroidOptionsExt");
    shown.FindAs<TextBox>("txtMajor")->SetText("3396190");
    shown.FindAs<TextBox>("txtMinor")->SetText("3376200");
    shown.FindAs<OptionButton>("optCentric")->SetValue(true);
    shown.FindAs<CommandButton>("cmdOK")->Press();
  };
  form.cmdAdvanced.Press();
  EXPECT_EQ(form.lblSpheroidOptions.Caption(), "Spheroid: Custom Spheroid,  Maj.Rad. = 3396190m,  Min.Rad. = 3376200m");
  form.chk4.SetValue(CheckBox::kChecked);
  form.cmdOK.Press();
  EXPECT_EQ(GeometryOptions(extension->GeometryOptions).SemiMinor(), 3376200.0);
  EXPECT_TRUE(GeometryOptions(extension->GeometryOptions).Geocentric());
}

}  // namespace
}  // namespace tessarine
