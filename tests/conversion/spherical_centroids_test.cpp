// SPDX-License-Identifier: GPL-2.0-or-later
// Centroids on the globe. Expected places by symmetry, and from PROJ's geodesics and projections.
#include "helpers/conversion_run.h"
#include "helpers/memory_class.h"

namespace tessarine {
namespace {

using namespace testing;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using namespace modCreateVertices;

class SphericalCentroidsTest : public ConversionRunTest {
 protected:
  // The coordinates in the fields of a row; the point must bear the same.
  static XY Place(const std::string& row) {
    double x = 0, y = 0, px = 1e9, py = 1e9;
    int number = 0;
    EXPECT_EQ(std::sscanf(row.c_str(), "%d %lf %lf POINT (%lf %lf)", &number, &x, &y, &px, &py), 5) << row;
    EXPECT_NEAR(x, px, 1e-8);
    EXPECT_NEAR(y, py, 1e-8);
    return {x, y};
  }
};

TEST_F(SphericalCentroidsTest, OfAQuarterBandLiesOnItsMiddleMeridian) {
  // Between 0 and 10 degrees of longitude and the two parallels of 20: by symmetry at (5, 0).
  const auto layer = Layer(
      "bands", {Feature(Shape("Polygon", "[[[0,-20],[0,20],[10,20],[10,-20],[0,-20]]]")), Feature("null")}, "4326");
  const std::string text = Run(ConvertToSphericalCentroid, layer);
  EXPECT_EQ(Layout(), "Uniq_ID X_Coord Y_Coord WGS 84");
  ASSERT_EQ(Rows().size(), 1U);
  const XY center = Place(Rows()[0]);
  EXPECT_NEAR(center.x, 5.0, 1e-8);
  EXPECT_NEAR(center.y, 0.0, 1e-8);
  EXPECT_THAT(text, HasSubstr("Features to Spherical Centroids Successful:"));
  EXPECT_THAT(text, HasSubstr("Empty Features Found:"));
}

TEST_F(SphericalCentroidsTest, OfProjectedDataIsGeographic) {
  // About (500000, 0) of zone 12 north, which is longitude -111 on the equator; a metre is 8.98e-6 degrees.
  const auto layer = Layer("plots", {Feature(Shape("Polygon",
                                                   "[[[499000,-1000],[499000,1000],[501000,1000],"
                                                   "[501000,-1000],[499000,-1000]]]"))});
  const std::string text = Run(ConvertToSphericalCentroid, layer);
  EXPECT_EQ(Layout(), "Uniq_ID X_Coord Y_Coord WGS 84");
  EXPECT_THAT(text, HasSubstr("Spatial Reference:  WGS 84 / UTM zone 12N"));  // of the input
  const XY center = Place(Rows().at(0));
  EXPECT_NEAR(center.x, -111.0, 1e-7);
  EXPECT_NEAR(center.y, 0.0, 1e-7);
}

// A map that is cut at -30: boxes over the cut are torn, and their rings seem to run the other way there.
TEST_F(SphericalCentroidsTest, OfAPolygonOverTheEdgeOfItsMap) {
  std::vector<XY> ring = {{18924313.4, -5e5}, {19926188.8, -5e5}, {-19926188.8, -5e5}, {-18924313.4, -5e5},
                          {-18924313.4, 5e5}, {-19926188.8, 5e5}, {19926188.8, 5e5},   {18924313.4, 5e5}};
  ring.push_back(ring.front());
  std::string forward, backward;
  for (const XY vertex : ring) {
    const std::string text = "[" + std::to_string(vertex.x) + "," + std::to_string(vertex.y) + "]";
    forward += (forward.empty() ? "" : ",") + text;
    backward = text + (backward.empty() ? "" : ",") + backward;
  }
  const auto layer = Layer(
      "boxes", {Feature(Shape("Polygon", "[[" + forward + "]]")), Feature(Shape("Polygon", "[[" + backward + "]]"))},
      "3832");
  Run(ConvertToSphericalCentroid, layer);
  ASSERT_EQ(Rows().size(), 2U);
  for (const std::string& row : Rows()) {
    EXPECT_NEAR(Place(row).x, -30.0, 1e-7);
    EXPECT_NEAR(Place(row).y, 0.0, 1e-7);
  }
}

// A box about the equator, 20 grads east of Paris: the point bears grads, the fields tell degrees.
TEST_F(SphericalCentroidsTest, OfAReferenceInGradsIsToldInDegrees) {
  const auto layer = Layer("plots", {Feature(Shape("Polygon", "[[[19,-1],[19,1],[21,1],[21,-1],[19,-1]]]"))}, "4807");
  Run(ConvertToSphericalCentroid, layer);
  double x = 0, y = 0, px = 0, py = 0;
  int number = 0;
  ASSERT_EQ(std::sscanf(Rows().at(0).c_str(), "%d %lf %lf POINT (%lf %lf)", &number, &x, &y, &px, &py), 5);
  EXPECT_NEAR(x, 18.0, 1e-8);
  EXPECT_NEAR(px, 20.0, 1e-8);
  EXPECT_NEAR(y, 0.0, 1e-8);
  EXPECT_NEAR(py, 0.0, 1e-8);
}

TEST_F(SphericalCentroidsTest, OfAGlobeThereIsNone) {
  const auto layer =
      Layer("globes", {Feature(Shape("Polygon", "[[[-180,-90],[-180,90],[180,90],[180,-90],[-180,-90]]]"))}, "4326");
  Run(ConvertToSphericalCentroid, layer);
  EXPECT_THAT(Rows(), IsEmpty());
  ASSERT_EQ(host.journal.warnings.size(), 1U);
  EXPECT_THAT(host.journal.warnings[0].text, HasSubstr("more than 180 degrees of longitude wide"));
}

// What has no place is skipped and told; what may be told wrong is told with its place.
TEST_F(SphericalCentroidsTest, OfOddShapesAreSkippedOrTold) {
  const auto lines =
      Layer("lines",
            {Feature(Shape("LineString", "[[3,3],[3,3]]")), Feature(Shape("LineString", "[[-180,10],[180,10]]")),
             Feature(Shape("LineString", "[[0,0],[0,100]]"))},
            "4326");
  Run(ConvertToSphericalCentroid, lines);
  EXPECT_EQ(Rows().size(), 1U);
  EXPECT_EQ(host.journal.skipped_oids.size(), 2U);
  ASSERT_EQ(host.journal.warnings.size(), 2U);
  EXPECT_THAT(host.journal.warnings[0].text, HasSubstr("without length"));
  EXPECT_THAT(host.journal.warnings[1].text, HasSubstr("beyond a pole"));
}

TEST_F(SphericalCentroidsTest, OfLinesOnTheEquatorIsTheirMiddle) {
  const auto layer = Layer("lines", {Feature(Shape("LineString", "[[10,0],[12,0],[20,0]]"))}, "4326");
  Run(ConvertToSphericalCentroid, layer);
  // Lengths are taken on a body with the minor axis for its equator, but the walk is on the data's own: from 12 the
  // 3 degrees that remain shrink by b / a.
  const double ratio = 6356752.314245179 / 6378137.0;
  const XY middle = Place(Rows().at(0));
  EXPECT_NEAR(middle.x, 12.0 + 3.0 * ratio, 1e-8);
  EXPECT_NEAR(middle.y, 0.0, 1e-9);
}

TEST_F(SphericalCentroidsTest, OfMultipointsKnowsThatTheGlobeIsRound) {
  const auto layer = Layer("wells", {Feature(Shape("MultiPoint", "[[179,0],[-179,0]]"))}, "4326");
  Run(ConvertToSphericalCentroid, layer);
  EXPECT_NEAR(std::fabs(Place(Rows().at(0)).x), 180.0, 1e-8);
}

TEST_F(SphericalCentroidsTest, AnUnknownReferenceIsRefusedBeforeAnythingIsMade) {
  const SpatialReferenceRef unknown_ones[] = {std::make_shared<UnknownCoordinateSystem>(), nullptr};
  for (const SpatialReferenceRef& reference : unknown_ones) {
    const auto features = std::make_shared<MemoryClass>(esriGeometryPolygon);
    features->reference = reference;
    const auto layer = std::make_shared<DocumentFeatureLayer>();
    layer->SetName("plain");
    layer->SetFeatureClass(features);
    const std::string text = Run(ConvertToSphericalCentroid, layer);
    EXPECT_EQ(text.substr(0, text.find('\n')), "!!!  Features to Spherical Centroids Failed  !!!");
    EXPECT_THAT(text, HasSubstr("\nSelected Feature Class has unknown coordinate system...\n"));
    EXPECT_FALSE(folder.Has("out.shp"));
    EXPECT_TRUE(application->status_bar->bar_visible);
    EXPECT_THAT(host.error_reports, IsEmpty());
    EXPECT_TRUE(host.journal.failed);
  }
}

}  // namespace
}  // namespace tessarine
