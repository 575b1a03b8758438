// SPDX-License-Identifier: GPL-2.0-or-later
// Splitting and combining. Expected shapes by hand.
#include "conversion/steps.h"
#include "helpers/conversion_run.h"
#include "helpers/memory_class.h"
#include "helpers/shapes.h"

namespace tessarine {
namespace {

using namespace testing;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using namespace modCreateVertices;

class SplitCombineTest : public ConversionRunTest {};

TEST_F(SplitCombineTest, SplitsEveryKindUnderRunningNumbers) {
  const struct {
    const char* name;
    std::vector<std::string> features;
    const char* layout;
    std::vector<std::string> rows;
  } cases[] = {
      {"areas",
       {Feature(Shape("MultiPolygon",
                      "[[[[0,0],[0,9],[9,9],[9,0],[0,0]],[[1,1],[3,1],[3,3],[1,3],[1,1]]],"
                      "[[[20,0],[20,2],[22,2],[22,0],[20,0]]]]"),
                R"({"name":"isles"})"),
        Feature("null", R"({"name":"sunk"})"),
        Feature(Shape("MultiPolygon", "[[[[0,0],[0,1],[1,1],[1,0],[0,0]]]]"), R"({"name":"rock"})")},
       "Uniq_ID Area name WGS 84 / UTM zone 12N",
       {"1 77 isles POLYGON ((0 0,0 9,9 9,9 0,0 0),(1 1,3 1,3 3,1 3,1 1))",
        "2 4 isles POLYGON ((20 0,20 2,22 2,22 0,20 0))", "3 1 rock POLYGON ((0 0,0 1,1 1,1 0,0 0))"}},
      {"paths",
       {Feature(Shape("MultiLineString", "[[[0,0],[3,4]],[[1,1],[1,2],[2,2]]]"), R"({"name":"a"})")},
       "Uniq_ID Length name WGS 84 / UTM zone 12N",
       {"1 5 a LINESTRING (0 0,3 4)", "2 2 a LINESTRING (1 1,1 2,2 2)"}},
      {"wells",
       {Feature(Shape("MultiPoint", "[[5,6],[5,6],[7,8]]"), R"({"name":"w"})")},
       "Uniq_ID X_Coord Y_Coord name WGS 84 / UTM zone 12N",
       {"1 5 6 w POINT (5 6)", "2 5 6 w POINT (5 6)", "3 7 8 w POINT (7 8)"}},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    host.messages.answers = {MessageAnswer::Yes};
    const std::string text = Run(SplitMultipart, Layer(row.name, row.features), {"name"});
    EXPECT_EQ(Layout(), row.layout);
    EXPECT_EQ(Rows(), row.rows);
    EXPECT_THAT(text, HasSubstr("Split All Records (n = " + std::to_string(row.features.size()) + ")"));
    EXPECT_EQ(text.find("Empty Features Found:") != std::string::npos, row.features.size() == 3);
  }
}

TEST_F(SplitCombineTest, AHoleOutsideOfAllShellsIsAFeatureAndTold) {
  const auto layer = Layer("areas", {Feature(Shape("Polygon", "[[[0,0],[0,1],[1,1],[1,0],[0,0]]]")),
                                     Feature(Shape("Polygon",
                                                   "[[[0,0],[0,9],[9,9],[9,0],[0,0]],[[1,1],[2,1],[2,2],[1,2],[1,1]],"
                                                   "[[15,5],[17,5],[17,6],[15,6],[15,5]]]"))});
  Run(SplitMultipart, layer);
  EXPECT_THAT(Rows(), ElementsAre(StartsWith("1 1 POLYGON"), StartsWith("2 80 POLYGON"),
                                  "3 2 POLYGON ((15 5,15 6,17 6,17 5,15 5))"));
  ASSERT_EQ(host.journal.warnings.size(), 1U);
  EXPECT_THAT(host.journal.warnings[0].first_oids, ElementsAre(1));
}

TEST_F(SplitCombineTest, PartsThatBoundNothingAreTold) {
  const auto layer =
      Layer("flat", {Feature(Shape("Polygon", "[[[0,0],[0,1],[1,1],[1,0],[0,0]]]")),
                     Feature(Shape("MultiPolygon", "[[[[0,0],[0,1],[1,1],[0,0]]],[[[5,5],[6,6],[7,7],[5,5]]]]"))});
  Run(SplitMultipart, layer);
  EXPECT_EQ(Rows().size(), 3U);
  ASSERT_EQ(host.journal.warnings.size(), 1U);
  EXPECT_THAT(host.journal.warnings[0].text, HasSubstr("written without a shape"));
  EXPECT_THAT(host.journal.warnings[0].first_oids, ElementsAre(1));
}

TEST_F(SplitCombineTest, ShapesWithNoNumbersAreFaultsOfTheirRecordsInEveryRun) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN(), kInfinity = std::numeric_limits<double>::infinity();
  const auto features = std::make_shared<MemoryClass>(esriGeometryPolygon);
  features->reference = SpatialReferenceEnvironment::CreateFromText("EPSG:4326");
  features->Add(PolygonOf({Box(0, 0, 2, 2)}));
  features->Add(PolygonOf({{{0, 0}, {0, 2}, {kNan, 2}, {2, 0}, {0, 0}}}));
  features->Add(PolygonOf({Box(5, 5, 7, 7), {{0, 0}, {0, 2}, {2, kInfinity}, {2, 0}, {0, 0}}}));
  features->Add(PolygonOf({Box(0, 4, 2, 6)}));
  const auto layer = std::make_shared<DocumentFeatureLayer>();
  layer->SetName("odd");
  layer->SetFeatureClass(features);
  const struct {
    ConversionWorker& worker;
    std::size_t rows;
  } runs[] = {
      {ConvertToVertices, 10},  {ConvertToLabelPoints, 2}, {ConvertToCentroids, 2}, {ConvertToSphericalCentroid, 2},
      {PolygonsToPolylines, 2}, {SplitMultipart, 2},       {JoinFeatures, 1}};
  for (const auto& run : runs) {
    SCOPED_TRACE(run.rows);
    host.messages.answers = {MessageAnswer::Yes};
    const std::string text = Run(run.worker, layer);
    EXPECT_EQ(Rows().size(), run.rows);
    EXPECT_EQ(host.journal.unmeasured_oids.size(), 2U);
    EXPECT_TRUE(host.journal.skipped_oids.empty());
    EXPECT_EQ(host.journal.Outcome(), RunOutcome::Incomplete);
    EXPECT_THAT(text, HasSubstr("infinite or no number"));
  }
}

TEST_F(SplitCombineTest, AShapeTooFarAwayToMeetOthersIsLeftOutOfTheUnion) {
  const auto features = std::make_shared<MemoryClass>(esriGeometryPolygon);
  features->reference = SpatialReferenceEnvironment::CreateFromText("EPSG:32633");
  features->Add(PolygonOf({Box(0, 0, 2, 2)}));
  features->Add(PolygonOf({{{0, 0}, {0, 1e300}, {2, 2}, {2, 0}, {0, 0}}}));
  const auto layer = std::make_shared<DocumentFeatureLayer>();
  layer->SetName("far");
  layer->SetFeatureClass(features);
  Run(JoinFeatures, layer);
  EXPECT_EQ(Rows().size(), 1U);
  EXPECT_THAT(host.journal.unmeasured_oids, ElementsAre(2));
  EXPECT_FALSE(host.journal.failed);
  // By itself it can be split.
  host.messages.answers = {MessageAnswer::Yes};
  Run(SplitMultipart, layer);
  EXPECT_EQ(Rows().size(), 2U);
}

TEST_F(SplitCombineTest, SplittingPointsFailsForWantOfAnOutputType) {
  folder.Write("out.shp", "somebody's");
  const std::string text = Run(SplitMultipart, Layer("cities", {Feature(Shape("Point", "[1,2]"))}));
  EXPECT_THAT(text, HasSubstr("!!!  Split Multipart Shapes Failed  !!!"));
  EXPECT_THAT(text, HasSubstr("Function = SplitMultipart\n"));
  EXPECT_THAT(host.messages.shown, IsEmpty());  // nobody was asked to have a file replaced in vain
  EXPECT_TRUE(folder.Has("out.shp"));
}

TEST_F(SplitCombineTest, AStopWithinTheUnionEndsTheRun) {
  const auto layer = Layer("areas", {Feature(Shape("Polygon", "[[[0,0],[0,2],[2,2],[2,0],[0,0]]]")),
                                     Feature(Shape("Polygon", "[[[1,0],[1,2],[4,2],[4,0],[1,0]]]"))});
  // Stopped once the last record was read: what is left is the union.
  application->status_bar->on_step = [this] { host.stop_requested = application->status_bar->steps == 2; };
  EXPECT_THAT(Run(JoinFeatures, layer), HasSubstr("Exited Function Prematurely"));
  EXPECT_TRUE(host.journal.stopped);
  EXPECT_EQ(host.journal.written, 0);
  EXPECT_THAT(host.error_reports, IsEmpty());
}

TEST_F(SplitCombineTest, TouchingAndOverlappingPolygonsDissolve) {
  const auto layer =
      Layer("areas", {Feature("null", R"({"name":"first","pop":null})"),
                      Feature(Shape("Polygon", "[[[0,0],[0,2],[2,2],[2,0],[0,0]]]"), R"({"name":"second","pop":5})"),
                      Feature(Shape("Polygon", "[[[2,0],[2,2],[4,2],[4,0],[2,0]]]")),
                      Feature(Shape("Polygon", "[[[3,1],[3,3],[5,3],[5,1],[3,1]]]"))});
  layer->SetSelectedOids({0, 1, 2});
  // The attributes are those of the first record, which has no shape.
  const std::string text = Run(JoinFeatures, layer, {"name", "pop"}, false, true);
  EXPECT_EQ(Layout(), "Uniq_ID Area name pop WGS 84 / UTM zone 12N");
  ASSERT_EQ(Rows().size(), 1U);
  EXPECT_THAT(Rows()[0], StartsWith("1 8 first NULL POLYGON (("));
  EXPECT_EQ(Rows()[0].find("),("), std::string::npos);
  EXPECT_THAT(text, HasSubstr("Join Features Successful:"));
  EXPECT_THAT(text, HasSubstr("Joined Selected Records (n = 3)"));
  EXPECT_THAT(text, HasSubstr("Contains 1 feature\n"));
  EXPECT_THAT(text, HasSubstr("Empty Features Found:"));
  EXPECT_THAT(text, HasSubstr("OID Value = 0\n"));
  EXPECT_THAT(host.forms.shown, IsEmpty());  // no progress dialog, though one was asked for

  host.messages.answers = {MessageAnswer::Yes};
  Run(JoinFeatures, layer);
  EXPECT_THAT(Rows()[0], StartsWith("1 11 POLYGON (("));  // 4 + 4 + 4 - 1
}

TEST_F(SplitCombineTest, LinesAreCountedOnceAndNothingIsStillOneFeature) {
  Run(JoinFeatures,
      Layer("roads", {Feature(Shape("LineString", "[[0,0],[10,0]]")), Feature(Shape("LineString", "[[4,0],[14,0]]"))}));
  EXPECT_THAT(Rows(), ElementsAre(StartsWith("1 14 LINESTRING (0 0,")));
  host.messages.answers = {MessageAnswer::Yes};
  const auto empty = Layer("none", {Feature("null"), Feature(R"({"type":"LineString","coordinates":[]})")});
  EXPECT_THAT(Run(JoinFeatures, empty), HasSubstr("OID Value = 0\n  ** OID Value = 1\n"));
  EXPECT_THAT(Rows(), ElementsAre("1 0 none"));
}

TEST_F(SplitCombineTest, MultipointsGiveOneBareFeature) {
  const auto layer = Layer("wells", {Feature(Shape("MultiPoint", "[[5,6],[7,8]]"), R"({"name":"w"})")});
  EXPECT_THAT(Run(JoinFeatures, layer, {"name"}), HasSubstr("Contains 1 feature\n"));
  EXPECT_EQ(Layout(), "Uniq_ID name WGS 84 / UTM zone 12N");
  EXPECT_THAT(Rows(), ElementsAre("NULL w none"));
  EXPECT_EQ(application->status_bar->steps, 0);
}

TEST_F(SplitCombineTest, CombiningPointsFailsBeforeAnythingIsMade) {
  const auto layer = Layer("cities", {Feature(Shape("Point", "[1,2]")), Feature(Shape("Point", "[3,4]"))});
  EXPECT_THAT(Run(JoinFeatures, layer), HasSubstr("!!!  Join Features Failed  !!!"));
  EXPECT_EQ(host.error_reports.size(), 1U);
  EXPECT_FALSE(folder.Has("out.shp"));
}

// What a step hands on, without a class that may refuse it.
struct Recorder final : ConversionSink {
  GeometryRef shape;
  double measure = -1.0;
  int inserted = 0;
  void SetShape(const GeometryRef& value) override { shape = value; }
  void SetMeasure(std::size_t, double value) override { measure = value; }
  void Insert() override { ++inserted; }
  void InsertUnnumbered() override {}
  void Skip(std::string_view) override {}
  void Warn(std::string_view) override {}
};

TEST_F(SplitCombineTest, CoincidingPointsCountOnce) {
  Recorder recorder;
  const auto step = MakeJoinStep({esriGeometryPoint, nullptr, nullptr});
  for (const XY at : {XY{1, 2}, XY{3, 4}, XY{1, 2}}) step->Convert(std::make_shared<Point>(at), recorder);
  EXPECT_EQ(recorder.inserted, 0);
  step->Finish(recorder);
  EXPECT_EQ(recorder.measure, 2.0);
  EXPECT_EQ(recorder.inserted, 1);
  EXPECT_EQ(Cast<Multipoint>(recorder.shape)->PointCount(), 2);
}

}  // namespace
}  // namespace tessarine
