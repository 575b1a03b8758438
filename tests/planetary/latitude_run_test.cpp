// SPDX-License-Identifier: GPL-2.0-or-later
// The conversions of planetary latitudes as runs.
#include <cmath>

#include "tests/planetary/planetary_fixture.h"

namespace tessarine {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::StoredLayer;

struct Body {
  const char* name;
  double a, b;
};

constexpr Body kMars{"Mars 2000", 3396190.0, 3376200.0};
constexpr Body kEarth{"WGS 1984", 6378137.0, 6356752.31424518};
constexpr Body kMoon{"Moon 2000", 1737400.0, 1737400.0};

class LatitudeRunTest : public testing::PlanetaryTest {
 protected:
  std::string Convert(PlanetaryRun* run, const Body& body, std::int32_t option = kCustomOrNoWrap, double shift = 0.0) {
    return ToPlainText(ReadRtf(run(application, document, extension, Arguments(body, option, shift), false)));
  }
  std::shared_ptr<VarArray> Arguments(const Body& body, std::int32_t option, double shift) {
    return GeoCentricArguments::Make(layer, body.name, body.a, body.b, shift, option,
                                     OutputDescription::Make(*layer, place));
  }
};

std::vector<XY> Vertices(const OGRGeometry& shape) {
  std::vector<XY> vertices;
  if (wkbFlatten(shape.getGeometryType()) == wkbPolygon) {
    for (const OGRLinearRing* ring : *shape.toPolygon()) {
      for (const OGRPoint& point : *ring) vertices.push_back({point.getX(), point.getY()});
    }
    return vertices;
  }
  for (const OGRPolygon* part : *shape.toMultiPolygon()) {
    for (const XY vertex : Vertices(*part)) vertices.push_back(vertex);
  }
  return vertices;
}

TEST_F(LatitudeRunTest, ForthAndBackEveryLatitudeReturns) {
  const StoredLayer before = testing::ReadStored(TESSARINE_TEST_DATA "/countries.shp");
  for (const Body& body : {kMars, kEarth, kMoon}) {
    UseCountries();
    place.name = std::string(body.name) + " graphic.shp";
    Convert(CalcPlanetoCentricToPlanetoGraphic, body);
    const StoredLayer graphic = Output();
    UseStored(place.name);
    place.name = std::string(body.name) + " centric.shp";
    Convert(CalcPlanetoGraphicToPlanetoCentric, body);
    const StoredLayer centric = Output();
    ASSERT_EQ(graphic.rows.size(), before.rows.size());
    ASSERT_EQ(centric.rows.size(), before.rows.size());
    double worst = 0.0, farthest = 0.0;
    for (std::size_t row = 0; row < before.rows.size(); ++row) {
      const std::vector<XY> first = Vertices(*before.rows[row].shape), there = Vertices(*graphic.rows[row].shape),
                            last = Vertices(*centric.rows[row].shape);
      ASSERT_EQ(first.size(), last.size());
      for (std::size_t index = 0; index < first.size(); ++index) {
        EXPECT_EQ(last[index].x, first[index].x);
        worst = std::max(worst, std::fabs(last[index].y - first[index].y));
        farthest = std::max(farthest, std::fabs(there[index].y - first[index].y));
      }
    }
    EXPECT_LT(worst, 1e-9) << body.name << ", degrees";
    // The two latitudes are farthest apart where the sine of their difference is (a*a - b*b) / (a*a + b*b).
    const double bound =
        std::asin((body.a * body.a - body.b * body.b) / (body.a * body.a + body.b * body.b)) * 180 / M_PI;
    EXPECT_NEAR(farthest, bound, 1e-4) << body.name;
  }
  EXPECT_THAT(host.error_reports, IsEmpty());
}

TEST_F(LatitudeRunTest, PointsWithShiftAndWrap) {
  struct Row {
    PlanetaryRun* run;
    std::int32_t option;
    double shift;
    XY from, to;
  };
  const Row rows[] = {
      {CalcPlanetoCentricToPlanetoGraphic, kCustomOrNoWrap, 0, {10, 45}, {10, 45.19242}},
      {CalcPlanetoGraphicToPlanetoCentric, kCustomOrNoWrap, 0, {10, 45.19242}, {10, 45}},
      {CalcPlanetoGraphicToPlanetoCentric, kCustomOrNoWrap, 200, {170, 0}, {370, 0}},
      {CalcPlanetoCentricToPlanetoGraphic, kWrap360, 0, {-10, -45}, {350, -45.19242}},
      {CalcPlanetoCentricToPlanetoGraphic, kWrap180, 350, {0, 0}, {-10, 0}},
      {CalcPlanetoGraphicToPlanetoCentric, kWrap180, 10, {170, 0}, {180, 0}},
  };
  int number = 0;
  for (const Row& row : rows) {
    Use(esriGeometryPoint);
    features->Add(std::make_shared<Point>(row.from));
    place.name = "p" + std::to_string(++number) + ".shp";
    EXPECT_THAT(Convert(row.run, kEarth, row.option, row.shift), Not(HasSubstr("-->")));
    const StoredLayer output = Output();
    const OGRPoint* point = output.rows.at(0).shape->toPoint();
    EXPECT_EQ(point->getX(), row.to.x) << number;
    EXPECT_NEAR(point->getY(), row.to.y, 5e-6) << number;
  }
}

TEST_F(LatitudeRunTest, TheReportNamesTheSpheroidAndOneTitleForBoth) {
  Use(esriGeometryPoint);
  features->Add(std::make_shared<Point>());
  // Longitudes past what a double holds fail, and the feature is stored without a shape.
  features->Add(std::make_shared<Point>(1e308, 0));
  const std::string text = Convert(CalcPlanetoGraphicToPlanetoCentric, kEarth, kWrap360, 1e308);
  for (const char* line :
       {"OCentric to OGraphic Conversion Complete:\n", "  ** Conversion Type: OGraphic to OCentric\n",
        "Spheroid Parameters:\n  ** Spheroid Name:  WGS 1984\n",
        "  ** Spheroid Semi-Major (Equatorial) Radius:  6378137 meters\n",
        "  ** Spheroid Semi-Minor (Polar) Radius:  6356752.31424518 meters\n",
        "  ** Wrap Option:  Wrap to Range 0 to 360 Degrees\n", "  --> Feature at OID #1 is empty...\n",
        "Contains 2 features\n"}) {
    EXPECT_THAT(text, HasSubstr(line));
  }
  EXPECT_THAT(text, HasSubstr("  --> Failed to convert feature at OID #2.  It is written without a shape...\n"));
  const StoredLayer output = Output();
  EXPECT_FALSE(output.rows.at(1).shape);
  EXPECT_FALSE(host.error_reports.empty());

  place.name = "q.shp";
  features->rows.clear();
  const std::string other = Convert(CalcPlanetoCentricToPlanetoGraphic, kMars, kCustomOrNoWrap, -0.25);
  EXPECT_THAT(other, HasSubstr("OCentric to OGraphic Conversion Complete:\n"));
  EXPECT_THAT(other, HasSubstr("  ** Conversion Type: OCentric to OGraphic\n"));
  EXPECT_THAT(other, HasSubstr("  ** Longitudinal Shift:  -0.25 decimal degrees\n  ** Wrap Option:  No Wrap Option\n"));
}

TEST_F(LatitudeRunTest, APlanWritesNothing) {
  Use(esriGeometryPoint, {testing::NewField("2009_area_km", esriFieldTypeInteger)});
  const auto plan = [&] {
    RunContext context = HostContext();
    return ToPlainText(ReadRtf(kGraphicToCentric.plan(context, Arguments(kMars, kWrap180, 0))));
  };
  EXPECT_THAT(plan(), HasSubstr("OGraphic to OCentric Conversion, planned only: nothing was written"));
  EXPECT_THAT(plan(), HasSubstr("Z009_area_  <--  2009_area_km"));
  EXPECT_THAT(plan(), Not(HasSubstr("Already Exists")));
  EXPECT_TRUE(folder.IsEmpty());
  Convert(CalcPlanetoGraphicToPlanetoCentric, kMars);
  EXPECT_THAT(plan(), HasSubstr("Already Exists"));
}

}  // namespace
}  // namespace tessarine
