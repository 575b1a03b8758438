// SPDX-License-Identifier: GPL-2.0-or-later
// Polylines to polygons, and back. Areas and lengths by hand.
#include "helpers/conversion_run.h"

namespace tessarine {
namespace {

using namespace testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using namespace modCreateVertices;

class ShapesTest : public ConversionRunTest {};

TEST_F(ShapesTest, LinesCloseToPolygons) {
  const auto layer = Layer(
      "lines",
      {Feature(Shape("MultiLineString", "[[[0,0],[0,4],[4,4],[4,0]]]"), R"({"name":"open"})"),
       Feature(Shape("MultiLineString", "[[[0,0],[5,5]]]"), R"({"name":"collapses"})"),
       Feature(Shape("MultiLineString", "[[[0,0],[0,6],[6,6],[6,0],[0,0]],[[1,1],[1,3],[3,3],[3,1],[1,1]]]"),
               R"({"name":"nested"})"),
       Feature("null", R"({"name":"empty"})"),
       Feature(Shape("MultiLineString", "[[[0,0],[0,1],[1,1]],[[8,0],[8,2],[10,2],[10,0]]]"), R"({"name":"apart"})")});
  const std::string text = Run(PolylinesToPolygons, layer, {"name"});
  EXPECT_EQ(Layout(), "Uniq_ID Area name WGS 84 / UTM zone 12N");
  EXPECT_THAT(Rows(),
              ElementsAre("1 16 open POLYGON ((0 0,0 4,4 4,4 0,0 0))",
                          // A line that bounds nothing is a record without a shape.
                          "2 0 collapses none", "3 32 nested POLYGON ((0 0,0 6,6 6,6 0,0 0),(1 1,3 1,3 3,1 3,1 1))",
                          StartsWith("4 4.5 apart MULTIPOLYGON ((")));
  EXPECT_THAT(text, HasSubstr("Empty Polylines Found:"));
  EXPECT_THAT(text, HasSubstr("OID Value = 3\n"));
  EXPECT_THAT(text, HasSubstr("Contains 4 polygons"));
}

TEST_F(ShapesTest, PolygonsOpenToTheirBoundaries) {
  const auto layer = Layer("areas", {Feature(Shape("MultiPolygon",
                                                   "[[[[0,0],[0,2],[2,2],[2,0],[0,0]]],"
                                                   "[[[10,0],[10,8],[18,8],[18,0],[10,0]],"
                                                   "[[12,2],[14,2],[14,4],[12,4],[12,2]]]]"),
                                             R"({"Length":7})")});
  const std::string text = Run(PolygonsToPolylines, layer, {"Length"});
  // The input bears the name of the own field, which gives way; the chosen field meets it no more.
  EXPECT_EQ(Layout(), "Uniq_ID Length_2 Length WGS 84 / UTM zone 12N");
  // 8 for the small square, 32 for the large one, 8 for its hole, in this order.
  EXPECT_THAT(Rows(), ElementsAre("1 48 7 MULTILINESTRING ((0 0,0 2,2 2,2 0,0 0),(10 0,10 8,18 8,18 0,10 0),"
                                  "(12 2,14 2,14 4,12 4,12 2))"));
  EXPECT_THAT(text, HasSubstr("Polygons to Polylines Successful:"));
  EXPECT_THAT(text, HasSubstr("Contains 1 polylines"));
}

TEST_F(ShapesTest, CrossedRingsAreRepairedOnTheWay) {
  // A bow tie of two triangles of 1 each: two loops of 2 + 2 * sqrt(2).
  const auto layer = Layer("ties", {Feature(Shape("Polygon", "[[[0,0],[0,2],[2,0],[2,2],[0,0]]]"))});
  Run(PolygonsToPolylines, layer);
  EXPECT_THAT(Rows(), ElementsAre(StartsWith("1 9.65685425 MULTILINESTRING ((")));
}

}  // namespace
}  // namespace tessarine
