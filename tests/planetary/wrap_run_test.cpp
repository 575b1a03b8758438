// SPDX-License-Identifier: GPL-2.0-or-later
// The wrap as a run: what is stored and what is told.
#include <cmath>

#include "shapes/wrap.h"
#include "support/progress_form.h"
#include "tests/planetary/planetary_fixture.h"

namespace tessarine {
namespace {

using testing::Box;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::NewField;
using ::testing::Not;
using testing::PolygonOf;
using testing::PolylineOf;
using testing::StoredLayer;

class WrapRunTest : public testing::PlanetaryTest {};

TEST_F(WrapRunTest, PointsComeToLieInTheBoxAndItsEdgesBelongToIt) {
  struct Row {
    XY from, to;
  };
  const Row rows[] = {{{190, 10}, {-170, 10}}, {{180, 0}, {180, 0}}, {{-180, 0}, {-180, 0}}, {{540, 0}, {180, 0}},
                      {{0, 95}, {0, -85}},     {{5, 90}, {5, 90}},   {{5, -90}, {5, -90}},   {{12, 34}, {12, 34}}};
  Use(esriGeometryPoint);
  for (const Row& row : rows) features->Add(std::make_shared<Point>(row.from));
  features->Add(std::make_shared<Point>());
  // Neither a selection nor anything else limits the run.
  layer->SetSelectedOids({1});
  const std::string text = Wrap(kBox180, kWrap180);
  const StoredLayer output = Output();
  ASSERT_EQ(output.rows.size(), 9U);
  for (std::size_t index = 0; index < std::size(rows); ++index) {
    const OGRPoint* point = output.rows[index].shape->toPoint();
    EXPECT_EQ((XY{point->getX(), point->getY()}), rows[index].to) << index;
  }
  EXPECT_FALSE(output.rows[8].shape);
  EXPECT_THAT(text, HasSubstr("NOTE:  The following problems were found in the dataset:\n"
                              "  --> Feature at OID #9 is empty...\n"));
  for (const char* line :
       {"Wrap to Boundary Conversion Complete:\n", "  ** Conversion Type: Wrap to Boundary\n",
        "  ** Input Feature Layer: craters\n", "Boundary Parameters:\n",
        "  ** Option:  Wrap to Range -180 to 180 Degrees\n", "  ** Western Boundary:  -180\n",
        "  ** Northern Boundary:  90 decimal degrees\n", "  ** Eastern Boundary:  180 decimal degrees\n",
        "  ** Southern Boundary:  -90 decimal degrees\n", "  ** Longitudinal Shift:  0 decimal degrees\n",
        "Output:\n  ** Feature Class:  out.shp\n", "Contains 9 features\n", "Time Elapsed:   0 seconds..."}) {
    EXPECT_THAT(text, HasSubstr(line));
  }
  EXPECT_THAT(text, HasSubstr("  ** Workspace:  " + folder.Native() + "\n"));
  ASSERT_EQ(document->Map().LayerCount(), 1);
  EXPECT_EQ(document->Map().Layer(0)->Name(), "out");
  EXPECT_FALSE(application->status_bar->bar_visible);
  EXPECT_EQ(application->status_bar->maximum, 9);
  EXPECT_THAT(host.error_reports, IsEmpty());
}

TEST_F(WrapRunTest, LinesThatCrossStayOneRecord) {
  Use(esriGeometryPolyline);
  features->Add(PolylineOf({{{170, 0}, {190, 10}, {170, 20}}}));
  features->Add(PolylineOf({{{0, 0}, {900, 45}}}));
  features->Add(PolylineOf({{{-180, 0}, {-180, 10}}}));
  features->Add(PolylineOf({{{-180, 0}, {180, 10}}}));
  const std::string text = Wrap(kBox180, kWrap180);
  const StoredLayer output = Output();
  ASSERT_EQ(output.rows.size(), 4U);
  // Out at 180 and in again: two parts in the east, and one in the west that touches the edge twice.
  const OGRMultiLineString* twice = output.rows[0].shape->toMultiLineString();
  ASSERT_EQ(twice->getNumGeometries(), 3);
  std::vector<std::pair<double, double>> ranges;
  for (const OGRLineString* part : *twice) {
    OGREnvelope box;
    part->getEnvelope(&box);
    ranges.emplace_back(box.MinX, box.MaxX);
  }
  EXPECT_THAT(ranges, ::testing::UnorderedElementsAre(std::pair(170.0, 180.0), std::pair(170.0, 180.0),
                                                      std::pair(-180.0, -170.0)));
  EXPECT_NEAR(OGR_G_Length(OGRGeometry::ToHandle(output.rows[0].shape.get())), 2 * std::hypot(20.0, 10.0), 1e-12);
  // Two and a half boxes: 0 to 180 at home and two whole widths.
  EXPECT_EQ(output.rows[1].shape->toMultiLineString()->getNumGeometries(), 3);
  EXPECT_NEAR(OGR_G_Length(OGRGeometry::ToHandle(output.rows[1].shape.get())), std::hypot(900.0, 45.0), 1e-9);
  EXPECT_FALSE(output.rows[2].shape) << "on the western edge there is no tile to find";
  EXPECT_THAT(text, HasSubstr("  --> Wrapped Feature at OID #3 is empty...\n"));
  EXPECT_EQ(wkbFlatten(output.rows[3].shape->getGeometryType()), wkbLineString);
}

TEST_F(WrapRunTest, AreasOverManyBoxesAndFailuresInBetween) {
  Use(esriGeometryPolygon);
  features->Add(PolygonOf({Box(-900, -10, 900, 10)}));
  features->Add(PolygonOf({Box(0, 0, 1e18, 1)}));
  features->Add(PolygonOf({Box(350, -5, 370, 5)}));
  const std::string text = Wrap(kBox360, kWrap360, 0.0);
  const StoredLayer output = Output();
  ASSERT_EQ(output.rows.size(), 3U);
  EXPECT_NEAR(output.rows[0].Area(), 360.0 * 20.0, 1e-9);
  EXPECT_NEAR(output.rows[1].Area(), 1e18, 1.0) << "written as it stands";
  EXPECT_THAT(text, HasSubstr("  --> Failed to wrap feature at OID #2.  Wrap function apparently crashed...\n"));
  EXPECT_EQ(host.error_reports.size(), 1U);
  EXPECT_FALSE(host.journal.failed);
  EXPECT_NEAR(output.rows[2].Area(), 200.0, 1e-9);
  // One vertex each tenth of a degree along both cut edges, and the corners between.
  int vertices = 0;
  for (const OGRPolygon* part : *output.rows[2].shape->toMultiPolygon()) {
    vertices += part->getExteriorRing()->getNumPoints();
  }
  EXPECT_EQ(vertices, 2 * (101 + 2 + 1));
}

TEST_F(WrapRunTest, AShiftComesBeforeTheWrap) {
  Use(esriGeometryMultipoint);
  features->Add(std::make_shared<Multipoint>(std::vector<XY>{{170, 1}, {-170, 2}}));
  const std::string text = Wrap({-90, 45, 270, -45}, kCustomOrNoWrap, 110.5);
  const StoredLayer output = Output();
  const OGRMultiPoint* points = output.rows.at(0).shape->toMultiPoint();
  ASSERT_EQ(points->getNumGeometries(), 2);
  EXPECT_DOUBLE_EQ(output.rows[0].Extent().MinX, -79.5);
  EXPECT_DOUBLE_EQ(output.rows[0].Extent().MaxX, -59.5);
  EXPECT_THAT(text, HasSubstr("  ** Option:  Custom Wrap Boundaries\n  ** Western Boundary:  -90\n"));
  EXPECT_THAT(text, HasSubstr("  ** Longitudinal Shift:  110.5 decimal degrees\n"));
  EXPECT_THAT(text, Not(HasSubstr("NOTE:")));
}

TEST_F(WrapRunTest, AttributesTakeNamesThatAShapefileCanHold) {
  const std::vector<FieldRef> fields = {NewField("FID", esriFieldTypeOID),
                                        NewField("Shape", esriFieldTypeGeometry),
                                        NewField("name", esriFieldTypeString, 20),
                                        NewField("population_2010", esriFieldTypeInteger),
                                        NewField("population_2020", esriFieldTypeInteger),
                                        NewField("2009_area_km", esriFieldTypeInteger),
                                        NewField("1a", esriFieldTypeInteger),
                                        NewField("photo", esriFieldTypeBlob),
                                        NewField("scan", esriFieldTypeRaster)};
  Use(esriGeometryPoint, fields);
  const auto shape = std::make_shared<Point>(1, 2);
  features->Add(shape, {std::int32_t{1}, Variant(), "Tharsis", std::int32_t{10}, std::int32_t{20}, std::int32_t{30},
                        Null{}, Variant(), Variant()});
  Wrap(kBox180, kWrap180);
  EXPECT_EQ(Output().fields, "name population populatio2 Z009_area_ Z1a ");
  EXPECT_EQ(Output().rows.at(0).Values(), "Tharsis 10 20 30 NULL ");
  EXPECT_EQ(features->Fields()->Field(3)->Name, "population_2010") << "the input's fields stay as they are";

  CreateFileGeodatabase(folder.Native("a.gdb"));
  place = PlaceIn(MyGeneralOperations::kFileGeodatabase, folder.Path("a.gdb"), "craters");
  EXPECT_THAT(Wrap(kBox180, kWrap180), HasSubstr("  ** Feature Class:  craters\n"));
  const StoredLayer output = testing::ReadStored(folder.Native("a.gdb"), "craters");
  EXPECT_THAT(output.fields, ::testing::StartsWith("name population_2010 population_2020 "));
  EXPECT_EQ(output.rows.at(0).Values(), "Tharsis 10 20 30 NULL ");
}

TEST_F(WrapRunTest, WhatChangedIsTold) {
  Use(esriGeometryPolyline);
  features->Add(PolylineOf({{{0, 0}, {1, 0}}}));
  features->Add(PolylineOf({{{190, 0}, {180, 0}, {180, 10}, {170, 10}}}));
  features->Add(PolylineOf({{{170, 5}, {190, 5}}}));
  const std::string text = Wrap(kBox180, kWrap180);
  EXPECT_THAT(text, HasSubstr("NOTE:  The length of some features changed:\n  --> In:  51 degrees\n"
                              "  --> Out:  61 degrees\n  --> Changed at OID #2\n"));
  ASSERT_EQ(host.journal.warnings.size(), 1U);
  EXPECT_THAT(host.journal.warnings[0].first_oids, ::testing::ElementsAre(2));

  // Small shapes far from the box lose digits of their coordinates, which is no change.
  Use(esriGeometryPolygon);
  features->Add(PolygonOf({Box(3.1e-6, 1e-6, 1.31e-5, 1.1e-5)}));
  place.name = "far.shp";
  EXPECT_THAT(Wrap({3600, 90, 3960, -90}, kCustomOrNoWrap), Not(HasSubstr("changed")));
  EXPECT_TRUE(host.journal.warnings.empty());
}

TEST_F(WrapRunTest, StepsGoTheShortWayIfAskedFor) {
  Use(esriGeometryPolygon);
  features->Add(PolygonOf({{{170, 0}, {170, 10}, {-170, 10}, {-170, 0}, {170, 0}}}));
  features->Add(PolygonOf({{{0, 80}, {120, 80}, {-120, 80}, {0, 80}}}));
  const std::string as_given = Wrap(kBox180, kWrap180);
  EXPECT_THAT(as_given, Not(HasSubstr("Steps")));
  EXPECT_NEAR(Output().rows.at(0).Area(), 3400.0, 1e-9);
  place.name = "short.shp";
  const StepChoice short_way{LongSteps::ShortWay, geodesy::EnclosedPole::SmallerPart};
  const std::string text = Wrap(kBox180, kWrap180, 0.0, false, short_way);
  const StoredLayer output = Output();
  EXPECT_NEAR(output.rows.at(0).Area(), 200.0, 1e-9);
  EXPECT_NEAR(output.rows.at(1).Area(), 3600.0, 1e-9);
  EXPECT_THAT(text, HasSubstr("  ** Steps of more than 180 Degrees:  The Short Way over the Edge\n"
                              "  ** Rings round the Globe Hold:  Smaller Part\n"));
  EXPECT_THAT(text, HasSubstr("NOTE:  Rings round the globe were led over a pole:\n  --> North Pole:  OID #2\n-"));
  EXPECT_THAT(text, Not(HasSubstr("changed")));
  place.name = "south.shp";
  Wrap(kBox180, kWrap180, 0.0, false, {LongSteps::ShortWay, geodesy::EnclosedPole::South});
  EXPECT_NEAR(Output().rows.at(1).Area(), 360.0 * 170, 1e-9);
}

TEST_F(WrapRunTest, AStopIsSeenInsideAFeature) {
  Use(esriGeometryPolyline);
  std::vector<XY> zigzag;
  for (int step = 0; step < 400; ++step) zigzag.push_back({step * 0.7, step % 2 == 0 ? 0.0 : 50.0});
  features->Add(PolylineOf({{{0, 0}, {1, 0}}}));
  features->Add(PolylineOf({zigzag}));
  std::shared_ptr<ProgressForm> form;
  host.forms.modeless = [&](Form& shown) { form = dynamic_cast<ProgressForm&>(shown).shared_from_this(); };
  host.clock.step = 1;
  int pumped = 0;
  host.on_pump = [&] {
    if (++pumped == 20) form->cmdStop.Press();
  };
  const std::string text = Wrap({0, 1, 1, 0}, kCustomOrNoWrap, 0.0, true);
  EXPECT_THAT(text, HasSubstr("NOTE:  Exited Function Prematurely at Record 2\n"));
  EXPECT_LE(pumped, 21) << "nothing more was done";
  EXPECT_EQ(Output().rows.size(), 1U);
  EXPECT_TRUE(host.journal.stopped);
}

TEST_F(WrapRunTest, StopKeepsThePartialLayer) {
  Use(esriGeometryPoint);
  for (int index = 0; index < 6; ++index) features->Add(std::make_shared<Point>(index, 0));
  std::shared_ptr<ProgressForm> form;
  host.forms.modeless = [&](Form& shown) { form = dynamic_cast<ProgressForm&>(shown).shared_from_this(); };
  host.clock.step = 1;  // every look at the clock takes a second, so that every record updates
  host.on_pump = [&] {
    if (form->txtDetails.Text().find("Working on Feature 3 of 6...") != std::string::npos) form->cmdStop.Press();
  };
  const std::string text = Wrap(kBox180, kWrap180, 0.0, true);
  EXPECT_EQ(form->Name(), "frmOrlProgressMeter");
  EXPECT_THAT(
      text, HasSubstr("NOTE:  Exited Function Prematurely at Record " + std::to_string(host.journal.read + 1) + "\n"));
  EXPECT_TRUE(host.journal.stopped);
  EXPECT_GT(host.journal.written, 0);
  EXPECT_LT(host.journal.written, 6);
  EXPECT_EQ(Output().rows.size(), static_cast<std::size_t>(host.journal.written));
  ASSERT_EQ(document->Map().LayerCount(), 1);
  EXPECT_EQ(document->Map().Layer(0)->Name(), "out  [Partial]");
  EXPECT_EQ(form->cmdStop.Caption(), "Close");
  EXPECT_FALSE(application->status_bar->bar_visible);
}

TEST_F(WrapRunTest, WithoutAnOutputTheRunEnds) {
  Use(esriGeometryPoint);
  features->Add(std::make_shared<Point>(190, 0));
  Wrap(kBox180, kWrap180);
  // No to the question of overwriting, and the browse dialog is cancelled.
  const std::string text = Wrap(kBox180, kWrap180);
  EXPECT_EQ(host.messages.shown.size(), 1U) << "giving up is no failure";
  EXPECT_TRUE(host.journal.cancelled);
  EXPECT_FALSE(host.journal.failed);
  EXPECT_FALSE(application->status_bar->bar_visible);

  // The class that is read is never overwritten.
  UseStored("out.shp");
  host.messages.answers = {MessageAnswer::Ok, MessageAnswer::Yes};
  Wrap(kBox360, kWrap360);
  EXPECT_EQ(Output().rows.size(), 1U);
  EXPECT_THAT(host.messages.shown.back().text, HasSubstr("is read by this run: name another output."));

  Use(esriGeometryPoint);
  features->Add(std::make_shared<Point>(1, 1));
  features->fails_at = 1;
  place.name = "other.shp";
  const std::string failed = Wrap(kBox360, kWrap360);
  EXPECT_THAT(failed, HasSubstr("!!!  Wrap to Boundary Conversion Failed  !!!"));
  EXPECT_THAT(failed, HasSubstr("Error -2147467259:  The disk is {gone}."));
  EXPECT_THAT(host.error_reports.back(), HasSubstr("\tWrapToBoundaries "));
}

TEST_F(WrapRunTest, CountriesRoundAndBackKeepTheirAreas) {
  const StoredLayer before = testing::ReadStored(TESSARINE_TEST_DATA "/countries.shp");
  UseCountries();
  place.name = "round.shp";
  EXPECT_THAT(Wrap(kBox360, kWrap360), Not(HasSubstr("-->")));
  const StoredLayer round = Output();
  UseStored("round.shp");
  place.name = "back.shp";
  EXPECT_THAT(Wrap(kBox180, kWrap180), Not(HasSubstr("-->")));
  const StoredLayer back = Output();
  ASSERT_EQ(round.rows.size(), before.rows.size());
  ASSERT_EQ(back.rows.size(), before.rows.size());
  int told = 0;
  for (std::size_t index = 0; index < before.rows.size(); ++index) {
    const double area = before.rows[index].Area();
    EXPECT_EQ(back.rows[index].Values(), before.rows[index].Values());
    EXPECT_NEAR(round.rows[index].Area(), area, 1e-9 * area) << before.rows[index].Values();
    EXPECT_NEAR(back.rows[index].Area(), area, 1e-9 * area) << before.rows[index].Values();
    const OGREnvelope home = before.rows[index].Extent(), box = round.rows[index].Extent();
    EXPECT_GE(box.MinX, 0.0);
    EXPECT_LE(box.MaxX, 360.0);
    EXPECT_EQ(box.MinY, home.MinY);
    EXPECT_NEAR(back.rows[index].Extent().MinX, home.MinX, 1e-9) << before.rows[index].Values();
    EXPECT_NEAR(back.rows[index].Extent().MaxX, home.MaxX, 1e-9) << before.rows[index].Values();
    struct Row {
      const char* name;
      double round_width;  // of the vertices with 360 added to the longitudes below 0
    };
    for (const Row& row : {Row{"Fiji", 2.92163989}, Row{"Russia", 170.43977991}, Row{"Antarctica", 360}}) {
      if (before.rows[index].Values().find(row.name) == std::string::npos) continue;
      EXPECT_NEAR(home.MaxX - home.MinX, 360.0, 1e-6) << row.name;
      EXPECT_NEAR(box.MaxX - box.MinX, row.round_width, 1e-6) << row.name;
      ++told;
    }
  }
  EXPECT_EQ(told, 3);
}

TEST_F(WrapRunTest, InsideTheBoxTheCutLeavesNoTrace) {
  struct Row {
    const char* name;
    GeometryRef shape;
  };
  const Row rows[] = {
      {"line with a repeated vertex", PolylineOf({{{1, 2}, {1, 2}, {3, 4}}, {{5, 5}, {6, 6}}})},
      {"lines that cross", PolylineOf({{{0, 0}, {10, 10}}, {{0, 10}, {10, 0}}})},
      {"hole that runs the wrong way", PolygonOf({Box(0, 0, 10, 10, false), Box(2, 2, 4, 4, true)})},
      {"bow tie", PolygonOf({{{0, 0}, {10, 10}, {10, 0}, {0, 10}, {0, 0}}})},
      {"no area", PolygonOf({{{0, 0}, {5, 5}, {0, 0}}})},
      {"points twice", std::make_shared<Multipoint>(std::vector<XY>{{1, 1}, {2, 2}, {1, 1}})},
      {"touches the edge", PolygonOf({Box(170, 0, 180, 10)})},
      {"all in the next copy of the box", PolygonOf({Box(181.1, 0.7, 200.3, 10.9)})},
      {"three copies west and one north", PolylineOf({{{-1000.1, 95.3}, {-990.7, 100.9}}})},
      {"points around a corner", std::make_shared<Multipoint>(std::vector<XY>{{179, 1}, {181, 1}})},
  };
  for (const Row& row : rows) {
    const GeometryRef general = MyGeometricOperations::WrapToBoundary(row.shape, -180, 180, -90, 90, nullptr);
    const GeometryRef own = MyGeometricOperations::WrapOwnShape(CloneOf(*row.shape), kBox180, nullptr).shape;
    ASSERT_TRUE(general && own) << row.name;
    EXPECT_TRUE(own->IsEqual(*general)) << row.name;
  }
}

}  // namespace
}  // namespace tessarine
