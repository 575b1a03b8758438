// SPDX-License-Identifier: GPL-2.0-or-later
// The calculation run: its checks, its fields, its loop and its report.
#include <gmock/gmock.h>

#include <functional>

#include "calculator/calculator_layers.h"
#include "calculator/modCalcGeometry.h"
#include "platform/rich_text.h"

namespace tessarine {
namespace {

using namespace testing;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class RunTest : public CalculatorTest {
 protected:
  // All records, on WGS 84, the options with their fields.
  std::string Run(const std::shared_ptr<DocumentFeatureLayer>& layer, const std::vector<OptionEntry>& entries,
                  bool all_records = true, bool plan = false) {
    GeometryChoices choices;
    choices.layer = layer;
    choices.all_records = all_records;
    choices.options = entries;
    choices.use_flags =
        ComboUseFlagsOf(layer->FeatureClass()->ShapeType(), SpatialKindOf(layer->FeatureClass()->SpatialReference()));
    choices.spheroid_name = "WGS 84";
    choices.semi_major = 6378137.0;
    choices.semi_minor = 6356752.314245179;
    const auto carrier = GeometryOptions(choices).Carrier();
    RunContext context = HostContext();
    return plan ? modCalcGeometry::PlanGeometry(context, carrier, application)
                : modCalcGeometry::CalcGeometry(carrier, application);
  }
  std::shared_ptr<DocumentFeatureLayer> Points(int count, const std::string& file = "towns.gpkg", int epsg = 32633) {
    std::vector<TestRow> rows;
    for (int row = 0; row < count; ++row) rows.push_back({"POINT (500000 " + std::to_string(row) + ")", "t", 1.0});
    return Add(file, wkbPoint, rows, epsg);
  }
};

TEST_F(RunTest, ValuesAndReportOfAPolygonLayerWithAnEmptyFeature) {
  const auto layer = Add("areas.shp", wkbPolygon, {{kSquare, "a", 1.0}, {"", "empty", 2.0}, {kSquareWithHole, "c"}});
  const std::string report = Run(layer, {OptionEntry(1, "AREA", ""), OptionEntry(2, "LON", "LAT"),
                                         OptionEntry(4, "PARTS", ""), OptionEntry(5, "size", "")});
  EXPECT_THAT(host.error_reports, IsEmpty());
  EXPECT_EQ(Row("areas.shp", 0).at("PARTS"), "1.000000000000");
  EXPECT_EQ(Row("areas.shp", 2).at("PARTS"), "1.000000000000") << "a hole is no part";
  EXPECT_EQ(std::stod(Row("areas.shp", 0).at("size")), 5.0);
  EXPECT_EQ(std::stod(Row("areas.shp", 2).at("size")), 10.0);
  EXPECT_NEAR(std::stod(Row("areas.shp", 0).at("LON")), 10.5, 1e-9);
  // A degree by a degree of the sphere with the mean radius of WGS 84: R^2 * pi/180 * (sin 41 - sin 40).
  EXPECT_NEAR(std::stod(Row("areas.shp", 0).at("AREA")) / 9.399e9, 1.0, 0.003);
  for (const char* field : {"AREA", "LON", "LAT", "PARTS", "size"}) {
    EXPECT_EQ(std::stod(Row("areas.shp", 1).at(field)), -9999.0) << field;
  }
  EXPECT_EQ(Row("areas.shp", 1).at("name"), "empty");

  EXPECT_EQ(report.find("{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\r\n"
                        "{\\*\\generator Msftedit 5.41.15.1507;}\\viewkind4\\uc1\\pard\\qc\\b\\f0\\fs16 Geometry "
                        "Calculation Successful:\\par\r\n"),
            0U);
  EXPECT_THAT(report, HasSubstr("  ** Contains 3 Polygons\\par\r\n  ** Calculated Geometry for All Features (n = 3)"));
  EXPECT_THAT(report, HasSubstr("       3] Spherical Centroid Y-Coordinate: \\i Field Name = [LAT]\\i0\\par\r\n"
                                "       4] Count of Sub-Polygons: \\i Field Name = [PARTS]\\i0\\par\r\n"));
  EXPECT_THAT(report, HasSubstr("  ** Spheroid Semi-Minor (Polar) Radius: 6356752.31424518 meters\\par\r\n"
                                "  ** Coordinate System: Data are in Planetographic Coordinates\\par\r\n"));
  EXPECT_THAT(report, HasSubstr("geometry fields...\\par\r\n  ** OID Value = 1\\par\r\n\r\n\\b ----------"));
  EXPECT_THAT(report, HasSubstr("\\par\r\n\\pard\\qc \\b\\fs16 Analysis Began:"));
  EXPECT_THAT(report, Not(HasSubstr("zzz")));
  EXPECT_EQ(host.journal.written, 3);
  EXPECT_THAT(host.journal.skipped_oids, ElementsAre(1));
  EXPECT_EQ(application->status_bar->steps, 3);
  EXPECT_EQ(application->status_bar->progress_text, "Calculating Geometry on areas");
  EXPECT_FALSE(application->status_bar->bar_visible);
}

TEST_F(RunTest, ProjectedPointsAndTheSelectedOnesAlone) {
  const auto layer = Points(30);
  layer->SetSelection(SelectByOids(layer->FeatureClass(), {3, 5}));
  const std::string report = Run(layer, {OptionEntry(2, "LON", "LAT")}, false);
  EXPECT_NEAR(std::stod(Row("towns.gpkg", 2).at("LON")), 15.0, 1e-9) << "the central meridian";
  EXPECT_EQ(Row("towns.gpkg", 3).at("LON"), "null");
  EXPECT_THAT(report, HasSubstr("Calculated Geometry for Selected Features (n = 2)"));
  EXPECT_THAT(report, HasSubstr("Contains 30 Points"));
  EXPECT_THAT(report, HasSubstr("\\b ---------------------------------------------\\par\r\n\\pard\\qc \\b\\fs16"))
      << "no problems: the times follow the rule";
}

struct MeterRow {
  int count;
  bool slow;
  bool shown;
};

TEST_F(RunTest, TheMeterIsForLongRuns) {
  for (const MeterRow& row : {MeterRow{10, true, false}, MeterRow{11, true, true}, MeterRow{1000, false, false},
                              MeterRow{1001, false, true}}) {
    const std::string file = "lines" + std::to_string(row.count) + ".gpkg";
    const auto layer = Add(file, wkbLineString,
                           std::vector<TestRow>(static_cast<std::size_t>(row.count), {"LINESTRING (1 2,3 4)", "", 0}));
    host.forms.shown.clear();
    Run(layer, {row.slow ? OptionEntry(1, "LEN", "") : OptionEntry(8, "NUM", "")});
    EXPECT_EQ(!host.forms.shown.empty(), row.shown) << row.count;
  }
  EXPECT_THAT(host.error_reports, IsEmpty());
}

TEST_F(RunTest, ABadRecordCostsItsOwnValuesAlone) {
  // A longitude past all reckoning in the second record.
  const auto layer = Add("fields.shp", wkbPolygon,
                         {{testing::kSquare, "a", 1},
                          {"POLYGON ((10 40,10 41,1e308 41,11 40,10 40))", "b", 2},
                          {testing::kSquare, "c", 3}});
  const std::string report = Run(layer, {OptionEntry(1, "AREA", ""), OptionEntry(4, "PARTS", "")});
  EXPECT_NEAR(std::stod(Row("fields.shp", 0).at("AREA")), std::stod(Row("fields.shp", 2).at("AREA")), 1e-6);
  EXPECT_GT(std::stod(Row("fields.shp", 2).at("AREA")), 9e9);
  EXPECT_EQ(std::stod(Row("fields.shp", 1).at("AREA")), -9999);
  EXPECT_NE(std::stod(Row("fields.shp", 1).at("PARTS")), -9999) << "what can be measured is";
  EXPECT_THAT(host.journal.unmeasured_oids, ElementsAre(1));
  EXPECT_EQ(host.journal.written, 3);
  EXPECT_EQ(host.journal.Outcome(), RunOutcome::Incomplete);
  EXPECT_THAT(report, HasSubstr("Geometry Calculation Finished with Problems:"));
  EXPECT_THAT(report, HasSubstr("Layer 'fields', OID Value = 1\\par"));
  ASSERT_EQ(host.error_reports.size(), 1U) << "told once";
  EXPECT_THAT(host.error_reports[0], HasSubstr("\tCalcGeometryPolygon calculator/record_loops.cpp Line : "));
  EXPECT_THAT(host.error_reports[0], HasSubstr("Layer 'fields', OID 1\r\n"));

  // The next run in the process tells of itself alone.
  Run(Points(3), {OptionEntry(1, "X", "Y")});
  EXPECT_EQ(host.journal.read, 3);
  EXPECT_EQ(host.journal.written, 3);
  EXPECT_THAT(host.journal.unmeasured_oids, IsEmpty());
}

TEST_F(RunTest, AStoppedRunKeepsWhatItWrote) {
  const auto layer = Points(1200);
  // Two looks at the clock make a second: a record in two is an update.
  host.clock.step = 0.5;
  Form* meter = nullptr;
  host.forms.modeless = [&](Form& form) { meter = &form; };
  host.on_pump = [&] {
    if (host.journal.written >= 5) meter->FindAs<CommandButton>("cmdStop")->Press();
  };
  const std::string report = Run(layer, {OptionEntry(1, "X", "Y")});
  ASSERT_TRUE(host.journal.stopped);
  const auto written = static_cast<int>(host.journal.written);
  EXPECT_THAT(report, HasSubstr("Geometry Calculation Successful:"));
  EXPECT_THAT(report, HasSubstr("\\par\r\nExited Function Prematurely at Record " + std::to_string(written + 1) +
                                "\\par\r\n\\pard\\qc "));
  EXPECT_THAT(report, HasSubstr("All Features (n = 1200)"));
  EXPECT_NE(Row("towns.gpkg", written - 1).at("X"), "null");
  EXPECT_EQ(Row("towns.gpkg", written).at("X"), "null");
  EXPECT_TRUE(application->status_bar->bar_visible) << "the bar stays as it was";
}

TEST_F(RunTest, AFieldThatCanNotBeMadeEndsTheRun) {
  const auto layer = Points(2);
  const std::string report = Run(layer, {OptionEntry(1, "X", ""), OptionEntry(2, "LON", "LAT")});
  EXPECT_EQ(report, "Failed to add field '' to Feature Layer towns!\r\n" + host.journal.failure);
  EXPECT_THAT(host.journal.failure, HasSubstr("without a name"));
  ASSERT_EQ(host.messages.shown.size(), 1U);
  EXPECT_EQ(host.messages.shown[0].text,
            "Failed to add field '' to Feature Layer towns!  Bailing out...\r\n" + host.journal.failure);
  EXPECT_TRUE(Row("towns.gpkg", 0).contains("X")) << "fields made before stay";
  EXPECT_FALSE(Row("towns.gpkg", 0).contains("LON"));
  EXPECT_TRUE(host.journal.failed);
}

TEST_F(RunTest, AFieldThatCanNotBeWrittenIsReplacedInNameOnly) {
  const auto layer = Points(2, "towns.shp");
  const std::string report = Run(layer, {OptionEntry(1, "FID", "Y"), OptionEntry(2, "FID", "LAT")});
  ASSERT_EQ(host.messages.shown.size(), 2U);
  EXPECT_EQ(host.messages.shown[0].title, "Problem with Field Name 'FID':");
  EXPECT_EQ(host.messages.shown[0].text, "The field named 'FID' was not editable!  Substituting the name 'FID2'...");
  EXPECT_THAT(host.messages.shown[1].text, HasSubstr("'FID3'")) << "the counter runs on";
  EXPECT_EQ(Row("towns.shp", 0).at("FID2"), "null") << "the new field stays empty";
  ASSERT_EQ(host.error_reports.size(), 1U);
  EXPECT_THAT(host.error_reports[0], HasSubstr("CalcGeometryPoint "));
  EXPECT_THAT(report, HasSubstr("Projected X-Coordinate: \\i Field Name = [FID2]"));
  EXPECT_THAT(report, StartsWith("{\\rtf1"));
}

class EditingApplication final : public IApplication {
 public:
  class Editor final : public IEditor {
   public:
    esriEditState state = esriStateNotEditing;
    [[nodiscard]] esriEditState EditState() const override { return state; }
  };
  std::shared_ptr<FakeApplication> inner;
  std::shared_ptr<Editor> editor = std::make_shared<Editor>();
  [[nodiscard]] std::shared_ptr<IDocument> Document() const override { return inner->Document(); }
  [[nodiscard]] std::shared_ptr<IStatusBar> StatusBar() const override { return inner->StatusBar(); }
  [[nodiscard]] std::shared_ptr<ITemplates> Templates() const override { return inner->Templates(); }
  [[nodiscard]] ObjectRef FindExtensionByCLSID(const UID& uid) const override {
    return uid.Value == "esriEditor.Editor" ? ObjectRef(editor) : inner->FindExtensionByCLSID(uid);
  }
};

// Shows the table of one layer, and keeps what the file held at each refresh.
class ShowingApplication final : public IApplication, public ITableWindows {
 public:
  class Window final : public ITableWindow {
   public:
    explicit Window(const ShowingApplication& owner) : owner_(owner) {}
    void Refresh() override { owner_.refreshed.push_back(owner_.look()); }

   private:
    const ShowingApplication& owner_;
  };
  std::shared_ptr<FakeApplication> inner;
  std::shared_ptr<ILayer> shown;
  std::function<std::string()> look;
  mutable std::vector<std::string> refreshed;
  [[nodiscard]] std::shared_ptr<IDocument> Document() const override { return inner->Document(); }
  [[nodiscard]] std::shared_ptr<IStatusBar> StatusBar() const override { return inner->StatusBar(); }
  [[nodiscard]] std::shared_ptr<ITemplates> Templates() const override { return inner->Templates(); }
  [[nodiscard]] ObjectRef FindExtensionByCLSID(const UID& uid) const override {
    return inner->FindExtensionByCLSID(uid);
  }
  [[nodiscard]] std::shared_ptr<ITableWindow> FindViaLayer(const std::shared_ptr<ILayer>& layer) const override {
    return layer == shown ? std::make_shared<Window>(*this) : nullptr;
  }
};

TEST_F(RunTest, AnOpenTableIsReadAgainOnceTheValuesAreWritten) {
  const auto layer = Points(1, "shown.gpkg");
  const auto showing = std::make_shared<ShowingApplication>();
  showing->inner = application;
  showing->shown = layer;
  showing->look = [&] {
    const auto row = Row("shown.gpkg", 0);
    return row.contains("X") ? row.at("X") : "";
  };
  GeometryChoices choices;
  choices.options = {OptionEntry(1, "X", "Y")};
  choices.use_flags[0] = choices.use_flags[1] = true;
  for (const auto& done : {layer, Points(1, "hidden.gpkg")}) {
    choices.layer = done;
    (void)modCalcGeometry::CalcGeometry(GeometryOptions(choices).Carrier(), showing);
  }
  ASSERT_EQ(showing->refreshed.size(), 1U) << "the other layer's table isn't open";
  EXPECT_EQ(std::stod(showing->refreshed[0]), 500000.0);
}

TEST_F(RunTest, LayersThatCanNotBeChangedNow) {
  const auto points = Points(1);
  auto editing = std::make_shared<EditingApplication>();
  editing->inner = application;
  GeometryChoices choices;
  choices.layer = points;
  choices.options = {OptionEntry(1, "X", "Y")};
  choices.use_flags[0] = choices.use_flags[1] = true;
  editing->editor->state = esriStateEditing;
  EXPECT_EQ(modCalcGeometry::CalcGeometry(GeometryOptions(choices).Carrier(), editing),
            "FUNCTION FAILED:  This fuction is written to run outside of an edit session and therefore requires that "
            "ArcMap not be in edit mode.  Please turn off your edit session before running this function.");
  EXPECT_FALSE(Row("towns.gpkg", 0).contains("X"));
  editing->editor->state = esriStateEditingUnfocused;
  EXPECT_THAT(modCalcGeometry::CalcGeometry(GeometryOptions(choices).Carrier(), editing), HasSubstr("Successful"));

  folder.Write("fixed.kml",
               "<kml><Placemark><name>a</name><Point><coordinates>1,2</coordinates></Point></Placemark></kml>");
  EXPECT_THAT(Run(Open("fixed.kml", "fixed"), {OptionEntry(1, "X", "Y")}),
              StartsWith("FUNCTION FAILED:  This layer cannot be edited outside of an edit session.  It may be a "
                         "versioned dataset. Please try copying"));

  const auto packed = Add("packed.gdb", wkbPoint, {{"POINT (1 2)"}});
  folder.Write("packed.gdb/a00000009.cdf");
  const std::string report = Run(packed, {OptionEntry(1, "X", "Y")});
  EXPECT_THAT(ToPlainText(ReadRtf(report)), HasSubstr("The layer 'packed' comes from a compressed file geodatabase."));
  EXPECT_THAT(report, EndsWith("and then File Geodatabase...\\f1\\fs20\\par\r\n}"));
  EXPECT_FALSE(Row("packed.gdb", 0).contains("X"));
}

TEST_F(RunTest, APlanWritesNothing) {
  const auto layer = Add("areas.gpkg", wkbPolygon, {{kSquare}});
  const std::string plan =
      ToPlainText(ReadRtf(Run(layer, {OptionEntry(1, "AREA", ""), OptionEntry(3, "size", "")}, true, true)));
  EXPECT_THAT(plan, HasSubstr("planned only: nothing was written"));
  EXPECT_THAT(plan, HasSubstr("New: AREA"));
  EXPECT_THAT(plan, HasSubstr("Overwritten: size"));
  EXPECT_FALSE(Row("areas.gpkg", 0).contains("AREA"));
}

}  // namespace
}  // namespace tessarine
