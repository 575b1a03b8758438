// SPDX-License-Identifier: GPL-2.0-or-later
// Centroids and label points. Expected places are worked out by hand.
#include "helpers/conversion_run.h"

namespace tessarine {
namespace {

using namespace testing;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using namespace modCreateVertices;

// A bracket open to the right: a square of 4 without the 3 by 2 bite; its centre lies in the bite.
constexpr const char* kBracket = "[[[0,0],[4,0],[4,1],[1,1],[1,3],[4,3],[4,4],[0,4],[0,0]]]";

class CentroidsTest : public ConversionRunTest {};

TEST_F(CentroidsTest, OfPolygonsMayLieOutsideLabelPointsMayNot) {
  const auto layer = Layer(
      "fields", {Feature(Shape("Polygon", kBracket), R"({"name":"bracket"})"), Feature("null", R"({"name":"nothing"})"),
                 // A hole in the left half moves the centre to the right:
                 // (16 * 2 - 4 * 1.5) / 12 = 13 / 6.
                 Feature(Shape("Polygon",
                               "[[[0,0],[4,0],[4,4],[0,4],[0,0]],"
                               "[[0.5,1],[2.5,1],[2.5,3],[0.5,3],[0.5,1]]]"),
                         R"({"name":"hole"})")});
  const std::string text = Run(ConvertToCentroids, layer, {"name"});
  EXPECT_EQ(Layout(), "Uniq_ID X_Coord Y_Coord name WGS 84 / UTM zone 12N");
  // (16 * 2 - 6 * 2.5) / 10
  EXPECT_THAT(Rows(), ElementsAre(StartsWith("1 1.7 2 bracket POINT (1.7 2"),
                                  StartsWith("2 2.16666667 2 hole POINT (2.166666666666")));
  EXPECT_THAT(text, HasSubstr("Shapes to Centroids Successful:"));
  EXPECT_THAT(text, HasSubstr("  ** Contains 2 centroids"));
  EXPECT_THAT(text, HasSubstr("Empty Geometries Found: These features were skipped in the analysis...\n"
                              "  ** OID Value = 1\n---------------------------------------------\n"));

  host.messages.answers = {MessageAnswer::Yes};
  const std::string labels = Run(ConvertToLabelPoints, layer);
  EXPECT_THAT(labels, HasSubstr("Empty Polygons Found:"));
  EXPECT_THAT(labels, HasSubstr("  ** Contains 2 label points"));
  ASSERT_EQ(Rows().size(), 2U);
  // Inside the bracket: in the square and not in its bite.
  const GDALDatasetUniquePtr written(GDALDataset::Open(folder.Native("out.shp").c_str(), GDAL_OF_VECTOR));
  const OGRFeatureUniquePtr first(written->GetLayer(0)->GetNextFeature());
  const double x = first->GetGeometryRef()->toPoint()->getX(), y = first->GetGeometryRef()->toPoint()->getY();
  EXPECT_TRUE(x > 0 && x < 4 && y > 0 && y < 4 && (x < 1 || y < 1 || y > 3)) << x << " " << y;
}

// The first runs along one line, the second is drawn along a diagonal whose places no double holds.
const std::vector<std::string> kTwoFlatOfFour = {
    Feature(Shape("Polygon", "[[[0,0],[0,1],[1,1],[1,0],[0,0]]]"), R"({"name":"a"})"),
    Feature(Shape("Polygon", "[[[3,3],[4,3],[5,3],[3,3]]]"), R"({"name":"flat"})"),
    Feature(Shape("Polygon", "[[[0.1,0.1],[0.2,0.2],[0.7,0.7],[0.1,0.1]]]"), R"({"name":"flat too"})"),
    Feature(Shape("Polygon", "[[[4,0],[4,1],[5,1],[5,0],[4,0]]]"), R"({"name":"b"})")};

TEST_F(CentroidsTest, APolygonWithoutAreaCostsNoOther) {
  const auto layer = Layer("fields", kTwoFlatOfFour, "4326");
  const struct {
    const char* name;
    ConversionWorker& worker;
    const char* heading;
  } runs[] = {{"centroids", ConvertToCentroids, "Empty Geometries Found:"},
              {"label points", ConvertToLabelPoints, "Empty Polygons Found:"},
              {"spherical centroids", ConvertToSphericalCentroid, "Empty Features Found:"}};
  for (const auto& run : runs) {
    SCOPED_TRACE(run.name);
    host.messages.answers = {MessageAnswer::Yes};
    const std::string text = Run(run.worker, layer, {"name"});
    EXPECT_THAT(Rows(), ElementsAre(AllOf(StartsWith("1 0.5 0.5"), HasSubstr(" a POINT (0.5")),
                                    AllOf(StartsWith("2 4.5 0.5"), HasSubstr(" b POINT (4.5"))));
    EXPECT_THAT(text, HasSubstr(std::string(run.heading) + " These features were skipped in the analysis...\n"
                                                           "  ** OID Value = 1\n  ** OID Value = 2\n"));
    EXPECT_THAT(host.journal.skipped_oids, ElementsAre(1, 2));
    ASSERT_EQ(host.journal.warnings.size(), 1U);
    EXPECT_EQ(host.journal.warnings[0].count, 2);
    EXPECT_FALSE(host.journal.failed);
  }
}

// The loops cancel each other out: no centre of gravity, but room for a label.
TEST_F(CentroidsTest, AFigureOfEightHasALabelPointOnly) {
  const auto layer = Layer("eight", {Feature(Shape("Polygon", "[[[0,0],[2,2],[2,0],[0,2],[0,0]]]"))});
  EXPECT_THAT(Run(ConvertToCentroids, layer), HasSubstr("OID Value = 0\n"));
  EXPECT_TRUE(Rows().empty());
  host.messages.answers = {MessageAnswer::Yes};
  EXPECT_THAT(Run(ConvertToLabelPoints, layer), HasSubstr("Contains 1 label points"));
}

TEST_F(CentroidsTest, OfLinesHalveTheLengthOfAllParts) {
  // The first part is 4 long, the second 8: half of 12 lies 2 into the second.
  const auto layer = Layer("lines", {Feature(Shape("MultiLineString", "[[[0,0],[4,0]],[[10,10],[10,18]]]")),
                                     Feature(Shape("LineString", "[[0,0],[3,0],[3,1]]"))});
  EXPECT_THAT(Run(ConvertToCentroids, layer), HasSubstr("Contains 2 centroids"));
  EXPECT_THAT(Rows(), ElementsAre("1 10 12 POINT (10 12)", "2 2 0 POINT (2 0)"));
}

TEST_F(CentroidsTest, OfMultipointsCountRepeatedPointsTwice) {
  const auto layer =
      Layer("wells", {Feature(Shape("MultiPoint", "[[0,0],[0,0],[6,3]]")), Feature(Shape("MultiPoint", "[[7,8]]"))});
  Run(ConvertToCentroids, layer);
  EXPECT_THAT(Rows(), ElementsAre("1 2 1 POINT (2 1)", "2 7 8 POINT (7 8)"));
}

}  // namespace
}  // namespace tessarine
