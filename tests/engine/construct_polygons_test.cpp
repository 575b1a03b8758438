// SPDX-License-Identifier: GPL-2.0-or-later
// Regions between lines; counts by Euler's formula, areas by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "engine/line_cluster.h"
#include "helpers/shapes.h"
#include "helpers/temporary_folder.h"
#include "platform/feature_construction.h"

namespace tessarine {
namespace {

using namespace testing;

using Areas = std::vector<double>;

// The areas of the regions in the order in which they were added.
Areas RegionsOf(const std::vector<std::vector<XY>>& lines, double tolerance, const Envelope* bounds = nullptr) {
  const TemporaryFolder folder;
  auto shape = std::make_shared<Field>();
  shape->Name = "Shape";
  shape->Type = esriFieldTypeGeometry;
  shape->GeometryDef = std::make_shared<GeometryDef>();
  shape->GeometryDef->GeometryType = esriGeometryPolygon;
  auto fields = std::make_shared<Fields>();
  fields->AddField(shape);
  const auto target = CreateShapefileWorkspaceFactory()
                          ->OpenFromFile(folder.Path(), 0)
                          ->CreateFeatureClass("regions", fields, nullptr, nullptr, esriFTSimple, "Shape", "");
  GeometryBag bag;
  for (const auto& line : lines) bag.AddGeometry(PolylineOf({line}));
  const Envelope all = bag.Envelope();
  FeatureConstruction().ConstructPolygonsFromGeometries(*target, bounds != nullptr ? *bounds : all, bag, tolerance);
  Areas areas;
  const auto cursor = target->Search(nullptr, Recycling::Yes);
  while (const auto feature = cursor->NextFeature()) {
    areas.push_back(std::round(Cast<Polygon>(feature->Shape())->Area() * 1e6) / 1e6);
  }
  return areas;
}

TEST(ConstructPolygons, OneForEachBoundedRegion) {
  const std::vector<XY> square = Box(0, 0, 10, 10);
  const struct {
    const char* name;
    std::vector<std::vector<XY>> lines;
    double tolerance;
    Areas areas;
  } rows[] = {
      {"a loop", {square}, 0.0, {100}},
      {"the same loop twice, once turned round", {square, Box(0, 0, 10, 10, false)}, 0.0, {100}},
      {"a cross bounds nothing", {{{0, 0}, {10, 10}}, {{0, 10}, {10, 0}}}, 0.01, {}},
      {"four overshooting sides",
       {{{-1, 0}, {11, 0}}, {{-1, 10}, {11, 10}}, {{0, -1}, {0, 11}}, {{10, -1}, {10, 11}}},
       0.0,
       {100}},
      {"an island is cut out and stands alone", {square, Box(2, 2, 4, 4)}, 0.0, {96, 4}},
      {"both diagonals", {square, {{0, 0}, {10, 10}}, {{0, 10}, {10, 0}}}, 0.0, {25, 25, 25, 25}},
      {"a free end inside", {square, {{5, 5}, {7, 7}}}, 0.0, {100}},
      {"gap within the tolerance", {{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0.4}}}, 0.5, {100}},
      {"gap as wide as the tolerance", {{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0.5}}}, 0.5, {100}},
      {"gap beyond the tolerance", {{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0.6}}}, 0.5, {}},
      {"an end short of a side", {square, {{5, 0.3}, {5, 10}}}, 0.5, {49.25, 49.25}},
      {"a line along a border", {square, {{0.2, 0}, {0.3, 5}, {0.2, 10}}}, 0.5, {98.5}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(RegionsOf(row.lines, row.tolerance), row.areas);
  }
}

TEST(ConstructPolygons, InOneOrderWhateverTheOrderOfTheLines) {
  std::vector<std::vector<XY>> lines;
  for (int at = 0; at <= 6; ++at) {
    // A net of bars at 0, 1, 3, 6 and so on: every mesh has an area of its own sizes.
    const double place = at * (at + 1) / 2.0;
    lines.push_back({{place, 0}, {place, 21}});
    lines.push_back({{0, place}, {21, place}});
  }
  const Areas areas = RegionsOf(lines, 0.001);
  EXPECT_EQ(areas.size(), 36U);
  EXPECT_EQ(Areas(areas.begin(), areas.begin() + 7), (Areas{1, 2, 3, 4, 5, 6, 2}));
  std::ranges::reverse(lines);
  EXPECT_EQ(RegionsOf(lines, 0.001), areas);
}

TEST(ConstructPolygons, OnlyLinesWithinTheBoundsCount) {
  const Envelope bounds(0, 0, 5, 5);
  EXPECT_EQ(RegionsOf({Box(1, 1, 3, 3), Box(20, 20, 30, 30)}, 0.001, &bounds), Areas{4});
}

TEST(ConstructPolygons, RefusesAToleranceBelowZero) {
  EXPECT_EQ(FaultOf([] { (void)RegionsOf({Box(0, 0, 1, 1)}, -1.0); }), kInvalidCall);
  EXPECT_EQ(FaultOf([] { (void)RegionsOf({Box(0, 0, 1, 1)}, std::nan("")); }), kInvalidCall);
}

TEST(NodeLines, KeepsPlacesApartAndSettles) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(0, 100), step(-5, 5);
  engine::LineList lines;
  for (int number = 0; number < 200; ++number) {
    std::vector<XY> line{{place(random), place(random)}};
    for (int vertex = 0; vertex < 3; ++vertex)
      line.push_back({line.back().x + step(random), line.back().y + step(random)});
    lines.push_back(line);
  }
  constexpr double kTolerance = 0.5;
  const engine::LineList noded = engine::NodeLines(lines, kTolerance);
  std::vector<XY> vertices;
  for (const auto& line : noded) {
    for (const XY vertex : line) {
      if (std::ranges::find(vertices, vertex) == vertices.end()) vertices.push_back(vertex);
    }
  }
  ASSERT_GT(vertices.size(), 500U);
  for (std::size_t first = 0; first < vertices.size(); ++first) {
    for (std::size_t second = first + 1; second < vertices.size(); ++second) {
      EXPECT_GT(std::hypot(vertices[first].x - vertices[second].x, vertices[first].y - vertices[second].y), kTolerance);
    }
  }
  // Done again, nothing moves any more: a fixed point was reached.
  EXPECT_EQ(engine::NodeLines(noded, kTolerance), noded);
}

}  // namespace
}  // namespace tessarine
