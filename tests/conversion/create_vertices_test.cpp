// SPDX-License-Identifier: GPL-2.0-or-later
// The common run of the conversions, told on Shapes to Vertices; outputs are read back with GDAL alone.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "conversion/modCreateVertices.h"
#include "engine/data_source.h"
#include "engine/promised_geodatabases.h"
#include "helpers/memory_class.h"
#include "helpers/stored_layer.h"
#include "helpers/suite_fixture.h"
#include "platform/rich_text.h"
#include "support/output_kinds.h"
#include "support/progress_form.h"

namespace tessarine {
namespace {

using ::testing::HasSubstr;
using testing::MemoryClass;
using testing::NewField;
using ::testing::Not;
using testing::ReadStored;
using testing::StoredLayer;

GeometryRef Square(double left, double bottom, double side, bool hole = false) {
  auto polygon = std::make_shared<Polygon>();
  const auto ring = [](double x, double y, double s) {
    return std::make_shared<Ring>(std::vector<XY>{{x, y}, {x, y + s}, {x + s, y + s}, {x + s, y}, {x, y}});
  };
  polygon->AddGeometry(ring(left, bottom, side));
  if (hole) {
    const auto inner = ring(left + side / 4, bottom + side / 4, side / 2);
    inner->ReverseOrientation();
    polygon->AddGeometry(inner);
  }
  return polygon;
}

std::vector<XY> PointsOf(const StoredLayer& output) {
  std::vector<XY> points;
  for (const auto& row : output.rows) points.push_back({row.shape->toPoint()->getX(), row.shape->toPoint()->getY()});
  return points;
}

class VerticesTest : public testing::SuiteTest {
 protected:
  std::shared_ptr<MemoryClass> features;
  std::shared_ptr<DocumentFeatureLayer> layer = std::make_shared<DocumentFeatureLayer>();
  std::string report;  // as RTF

  void SetUp() override {
    extension->DirectoryType = "Shapefile";
    layer->SetName("parcels");
    UseFields({});
  }
  void UseFields(std::vector<FieldRef> fields) {
    features = std::make_shared<MemoryClass>(esriGeometryPolygon, std::move(fields));
    features->reference = SpatialReferenceEnvironment::CreateFromText("EPSG:32612");
    layer->SetFeatureClass(features);
  }
  // The report as a person reads it.
  std::string Run(const std::vector<std::string>& fields = {}, bool all = true, bool show_progress = false,
                  const std::string& name = "out.shp") {
    const auto chosen = std::make_shared<VarArray>();
    for (const std::string& field : fields) chosen->Add(features->Fields()->Field(features->FindField(field)));
    report = modCreateVertices::ConvertToVertices(layer, chosen, all, folder.Path(name), application, extension,
                                                  show_progress, false);
    return ToPlainText(ReadRtf(report));
  }
  StoredLayer Output() const { return ReadStored(folder.Native("out.shp")); }
};

TEST_F(VerticesTest, EveryVertexOfEveryRingWithItsClosingOne) {
  features->Add(Square(0, 0, 8, true));
  features->Add(Square(100, 50, 2));
  const std::string text = Run();
  const StoredLayer output = Output();
  EXPECT_EQ(output.fields, "Uniq_ID X_Coord Y_Coord ");
  ASSERT_EQ(output.rows.size(), 15U);
  std::vector<XY> first = PointsOf(output);
  first.resize(10);
  EXPECT_EQ(first, (std::vector<XY>{{0, 0}, {0, 8}, {8, 8}, {8, 0}, {0, 0}, {2, 2}, {6, 2}, {6, 6}, {2, 6}, {2, 2}}));
  EXPECT_EQ(output.rows[0].Values(), "1 0.00000000 0.00000000 ");
  EXPECT_EQ(output.rows[14].Values(), "15 100.00000000 50.00000000 ");
  EXPECT_THAT(output.reference, HasSubstr("UTM"));

  EXPECT_TRUE(report.starts_with("{\\rtf1\\ansi") && report.ends_with("}"));
  for (const char* line :
       {"Shapes to Vertices Successful:", "  ** Input Feature Layer: parcels", "  ** Convert All Records (n = 2)",
        "       <-- No Fields Selected -->", "  ** Spatial Reference:  WGS 84 / UTM zone 12N",
        "  ** Contains 15 vertex points", "Time Elapsed:   0 seconds..."}) {
    EXPECT_THAT(text, HasSubstr(line));
  }
  EXPECT_THAT(text, HasSubstr("  ** " + folder.Native("out.shp")));
  EXPECT_THAT(report, Not(HasSubstr("zzz")));
  ASSERT_EQ(document->Map().LayerCount(), 1);
  EXPECT_FALSE(application->status_bar->bar_visible);
  EXPECT_EQ(application->status_bar->progress_text, "Generating Vertices from parcels");
  EXPECT_EQ(application->status_bar->steps, 2);
  EXPECT_TRUE(host.forms.shown.empty());
  EXPECT_TRUE(host.error_reports.empty());
}

TEST_F(VerticesTest, AttributesRepeatUnderLegalNamesAndNullsStay) {
  UseFields({NewField("FID", esriFieldTypeOID), NewField("population_2010", esriFieldTypeInteger),
             NewField("population_2020", esriFieldTypeInteger), NewField("name", esriFieldTypeString, 20)});
  features->Add(Square(0, 0, 1), {std::int32_t{1}, std::int32_t{10}, Null{},
                                  "\xC3\x84"
                                  "bc"});
  features->Add(Square(5, 5, 1), {std::int32_t{2}, Null{}, std::int32_t{20}, Null{}});
  const std::string text = Run({"name", "population_2010", "population_2020"});
  const StoredLayer output = Output();
  EXPECT_EQ(output.fields, "Uniq_ID X_Coord Y_Coord name population populatio2 ");
  ASSERT_EQ(output.rows.size(), 10U);
  EXPECT_EQ(output.rows[4].Values(),
            "5 0.00000000 0.00000000 \xC3\x84"
            "bc 10 NULL ");
  EXPECT_EQ(output.rows[5].Values(), "6 5.00000000 5.00000000 NULL NULL 20 ");
  EXPECT_THAT(text, HasSubstr("       1] name\n       2] population_2010\n       3] population_2020\n"));
  EXPECT_EQ(features->Fields()->Field(1)->Name, "population_2010") << "the input's fields stay as they are";
}

TEST_F(VerticesTest, OwnNamesGiveWayToTheInputsNames) {
  UseFields({NewField("uniq_id", esriFieldTypeInteger), NewField("Uniq_ID_2", esriFieldTypeInteger),
             NewField("X_Coord", esriFieldTypeDouble)});
  features->Add(Square(3, 4, 1), {std::int32_t{7}, std::int32_t{8}, 9.5});
  Run({"uniq_id"});
  EXPECT_EQ(Output().fields, "Uniq_ID_3 X_Coord_2 Y_Coord uniq_id ");
  EXPECT_EQ(Output().rows.at(0).Values(), "1 3.00000000 4.00000000 7 ");
}

TEST_F(VerticesTest, FeaturesWithoutShapeAreSkippedInSilence) {
  features->Add(std::make_shared<Polygon>());
  features->Add(Square(0, 0, 1));
  features->Add(std::make_shared<Polygon>());
  const std::string text = Run();
  EXPECT_THAT(text, HasSubstr("Contains 5 vertex points"));
  EXPECT_THAT(text, Not(HasSubstr("OID")));
  EXPECT_EQ(host.journal.skipped_oids, (std::vector<std::int64_t>{1, 3}));
  EXPECT_EQ(host.journal.read, 3);
  EXPECT_EQ(host.journal.written, 5);

  features->rows.erase(features->rows.begin() + 1);
  host.messages.answers = {MessageAnswer::Yes};
  EXPECT_THAT(Run(), HasSubstr("Contains 0 vertex points"));
  EXPECT_TRUE(Output().rows.empty());
  EXPECT_EQ(Output().fields, "Uniq_ID X_Coord Y_Coord ");
}

TEST_F(VerticesTest, OnlyTheSelection) {
  for (int index = 0; index < 4; ++index) features->Add(Square(index * 10.0, 0, 1));
  layer->SetSelectedOids({4, 2});
  EXPECT_THAT(Run({}, false), HasSubstr("Convert Selected Records (n = 2)"));
  const StoredLayer output = Output();
  const std::vector<XY> points = PointsOf(output);
  ASSERT_EQ(points.size(), 10U);
  EXPECT_EQ(points[0], (XY{10, 0}));
  EXPECT_EQ(points[5], (XY{30, 0}));
  EXPECT_EQ(application->status_bar->maximum, 2);
}

TEST_F(VerticesTest, StopInsideAFeatureKeepsWhatWasWritten) {
  constexpr int kVertices = 100'000;
  std::vector<XY> ring;
  for (int index = 0; index < kVertices; ++index) {
    const double angle = -2.0 * std::numbers::pi * index / kVertices;
    ring.push_back({std::cos(angle), std::sin(angle)});
  }
  ring.push_back(ring.front());
  const auto polygon = std::make_shared<Polygon>();
  polygon->AddGeometry(std::make_shared<Ring>(std::move(ring)));
  features->Add(polygon);
  host.stop_at_question = 3;
  EXPECT_THAT(Run({}, true), HasSubstr("Exited Function Prematurely at Record "));
  EXPECT_TRUE(host.journal.stopped);
  EXPECT_GT(host.journal.written, 0);
  EXPECT_LT(host.journal.written, kVertices);
}

TEST_F(VerticesTest, StopInTheMiddleKeepsWhatWasWritten) {
  for (int index = 0; index < 6; ++index) features->Add(Square(index * 10.0, 0, 1));
  std::shared_ptr<ProgressForm> form;
  host.forms.modeless = [&](Form& shown) { form = dynamic_cast<ProgressForm&>(shown).shared_from_this(); };
  host.clock.step = 1;  // every look at the clock takes a second, so that every record updates
  host.on_pump = [&] {
    if (form->txtDetails.Text().find("Feature 3 of 6") != std::string::npos) form->cmdStop.Press();
  };
  const std::string text = Run({}, true, true);
  EXPECT_THAT(text, HasSubstr("Exited Function Prematurely at Record "));
  EXPECT_THAT(text, HasSubstr("Partial output saved to " + folder.Native("out.shp")));
  EXPECT_TRUE(report.ends_with("}"));
  EXPECT_TRUE(host.journal.stopped);
  EXPECT_EQ(Output().rows.size(), static_cast<std::size_t>(host.journal.written));
  EXPECT_EQ(host.journal.written % 5, 0);
  EXPECT_GT(host.journal.written, 0);
  EXPECT_LT(host.journal.read, 6);
  EXPECT_EQ(document->Map().LayerCount(), 0);
  EXPECT_THAT(form->txtDetails.Text(), HasSubstr("Operation cancelled prematurely at "));
  EXPECT_TRUE(host.error_reports.empty());
}

TEST_F(VerticesTest, AFailureIsToldTwiceAndLeavesNoOutput) {
  for (int index = 0; index < 4; ++index) features->Add(Square(index * 10.0, 0, 1));
  features->fails_at = 3;
  const std::string text = Run();
  for (const char* line :
       {"!!!  Shapes to Vertices Failed  !!!", "Module = modCreateVertices", "Function = ConvertToVertices",
        "Error -2147467259:  The disk is {gone}.", "Analyzing Record #2", "Rows in "}) {
    EXPECT_THAT(text, HasSubstr(line));
  }
  ASSERT_EQ(host.error_reports.size(), 1U);
  EXPECT_THAT(host.error_reports[0], HasSubstr("\tConvertToVertices "));
  EXPECT_TRUE(host.journal.failed);
  EXPECT_EQ(host.journal.failure, "The disk is {gone}.");
  EXPECT_EQ(host.journal.written, 0);
  EXPECT_FALSE(folder.Has("out.shp"));
  EXPECT_EQ(document->Map().LayerCount(), 0);
}

TEST_F(VerticesTest, ARecordThatFailsIsLeftOutAndTold) {
  for (int index = 0; index < 5; ++index) features->Add(Square(index * 10.0, 0, 1));
  features->Add(nullptr);
  features->rows[1]->broken = features->rows[3]->broken = true;
  const std::string text = Run();
  EXPECT_THAT(text, HasSubstr("Shapes to Vertices Finished with Problems:"));
  EXPECT_THAT(text, HasSubstr("Error 6:  The shape is broken."));
  EXPECT_THAT(text, HasSubstr("Layer 'parcels', OID Value = 2\n"));
  EXPECT_THAT(text, HasSubstr("Layer 'parcels', OID Value = 4\n"));
  const StoredLayer output = Output();
  ASSERT_EQ(output.rows.size(), 15U);
  EXPECT_EQ(output.rows.back().Values().substr(0, 3), "15 ") << "the numbers have no gap";
  EXPECT_EQ(host.journal.unmeasured_oids, (std::vector<std::int64_t>{2, 4}));
  EXPECT_EQ(host.journal.skipped_oids, (std::vector<std::int64_t>{6})) << "no shape at all is an empty one";
  EXPECT_EQ(host.journal.read, 6);
  EXPECT_EQ(host.journal.written, 15);
  EXPECT_FALSE(host.journal.failed);
  ASSERT_EQ(host.error_reports.size(), 1U);
  EXPECT_THAT(host.error_reports[0], HasSubstr("Layer 'parcels', OID 2, 4\r\n"));
  EXPECT_EQ(document->Map().LayerCount(), 1);
}

TEST_F(VerticesTest, AMissingPlaceFails) {
  EXPECT_THAT(Run({}, true, false, "gone/out.shp"), HasSubstr("Failed"));
  extension->DirectoryType = "Coverage";
  EXPECT_THAT(Run(), HasSubstr("Failed"));
  ASSERT_EQ(host.messages.shown.size(), 1U);
  EXPECT_EQ(host.messages.shown[0].title, "Invalid Output Type:");
}

TEST_F(VerticesTest, NamesFromDataAreEscapedInTheReport) {
  UseFields({NewField("a{b}\\c", esriFieldTypeInteger)});
  layer->SetName("W\xC3\xB6lls {old} \\x");
  features->Add(Square(0, 0, 1), {std::int32_t{1}});
  const std::string text = Run({"a{b}\\c"});
  EXPECT_THAT(text, HasSubstr("Layer: W\xC3\xB6lls {old} \\x\n"));
  EXPECT_THAT(text, HasSubstr("1] a{b}\\c\n"));
}

TEST_F(VerticesTest, AClassOfAFeatureDataset) {
  CreateFileGeodatabase(folder.Native("a.gdb"));
  const KeptPromise promise = PromiseFeatureDataset(folder.Native("a.gdb"), "survey", features->reference);
  extension->DirectoryType = "File Geodatabase";
  extension->IsFeatureDataset = true;
  extension->FeatDatasetName = "survey";
  features->Add(Square(0, 0, 1));
  EXPECT_THAT(Run({}, true, false, "a.gdb/survey/corners"), HasSubstr("Contains 5 vertex points"));
  const StoredLayer output = ReadStored(folder.Native("a.gdb"), "corners");
  EXPECT_EQ(output.rows.size(), 5U);
  EXPECT_EQ(output.fields, "Uniq_ID X_Coord Y_Coord ");
}

TEST_F(VerticesTest, APlanWritesNothing) {
  UseFields({NewField("population_2010", esriFieldTypeInteger)});
  features->Add(Square(0, 0, 1), {std::int32_t{1}});
  const auto chosen = std::make_shared<VarArray>();
  chosen->Add(features->Fields()->Field(0));
  const auto plan = [&] {
    RunContext context = HostContext();
    return ToPlainText(ReadRtf(modCreateVertices::PlanConversion(
        context, *modCreateVertices::FindRun(1),
        {layer, chosen, true, PlaceIn(MyGeneralOperations::kShapefile, folder.Path(""), "out.shp")})));
  };
  const std::string text = plan();
  EXPECT_TRUE(folder.IsEmpty());
  EXPECT_THAT(text, HasSubstr("population  <--  population_2010"));
  EXPECT_THAT(text, HasSubstr("Convert All Records (n = 1)"));
  EXPECT_THAT(text, Not(HasSubstr("Already Exists")));
  Run();
  EXPECT_THAT(plan(), HasSubstr("Already Exists"));
}

}  // namespace
}  // namespace tessarine
