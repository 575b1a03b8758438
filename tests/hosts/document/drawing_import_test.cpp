// SPDX-License-Identifier: GPL-2.0-or-later
// Drawings as graphic elements.
#include "hosts/document/drawing_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "helpers/shapes.h"
#include "helpers/temporary_folder.h"
#include "hosts/document/document_layer.h"

namespace tessarine {
namespace {

std::vector<std::string> Described(const DocumentMap& map) {
  std::vector<std::string> lines;
  for (const auto& element : map.Elements()) {
    const auto symbol = Cast<DocumentSymbol>(element->drawn_with);
    lines.push_back(std::string(element->Kind()) + "|" + element->Name() + "|" + (symbol ? symbol->definition : ""));
  }
  return lines;
}

TEST(DrawingImport, KmlWithSharedStyles) {
  MapDocument document;
  const ImportResult result = AddDrawing(ReadDrawing(TESSARINE_TEST_DATA "/drawing.kml", "", ""), true, document.Map());
  // KML colours are opacity, blue, green, red.
  EXPECT_THAT(
      Described(document.Map()),
      ::testing::ElementsAre("marker|Camp & co|marker #0000ff", "line|Track|line #ff0000 3",
                             "polygon|Field|fill #00ff007f", "marker|Several|", "marker|Several|", "line|Several|"));
  EXPECT_EQ(result.markers, 3);
  EXPECT_EQ(result.skipped, 1);
  EXPECT_EQ(document.Map().ElementSelectionCount(), 6);
  EXPECT_EQ(document.Map().SpatialReference()->FactoryCode(), 4326);
}

TEST(DrawingImport, GeoJsonIntoTheMapsReference) {
  const testing::TemporaryFolder folder;
  folder.Write("d.geojson", R"({"type":"FeatureCollection","features":[
    {"type":"Feature","properties":{"title":"shown","id":"7","stroke":"#FF0000","stroke-width":2.5},
     "geometry":{"type":"LineString","coordinates":[[3,0],[3,1]]}},
    {"type":"Feature","properties":{"title":"far"},"geometry":{"type":"Point","coordinates":[93,0]}},
    {"type":"Feature","properties":{},"geometry":null}]})");
  MapDocument document;
  document.Map().SetSpatialReference(SpatialReferenceEnvironment::CreateFromText("EPSG:32631"));
  const ImportResult result = AddDrawing(ReadDrawing(folder.Native("d.geojson"), "", "ID"), false, document.Map());
  // A quarter of the globe from its meridian the projection has no place.
  EXPECT_EQ(result.skipped, 2);
  EXPECT_THAT(Described(document.Map()), ::testing::ElementsAre("line|7|line #ff0000 2.5"));
  const auto line = Cast<Polyline>(document.Map().Elements()[0]->shape);
  EXPECT_NEAR(line->FromPoint().x, 500000.0, 1e-6);
  EXPECT_NEAR(line->FromPoint().y, 0.0, 1e-6);
}

TEST(DrawingImport, WordsBecomeTexts) {
  const testing::TemporaryFolder folder;
  folder.Write("d.dxf",
               "0\nSECTION\n2\nENTITIES\n0\nTEXT\n8\n0\n10\n1.0\n20\n2.0\n40\n3.0\n1\nHello words\n"
               "0\nPOINT\n8\n0\n10\n5.0\n20\n6.0\n0\nENDSEC\n0\nEOF\n");
  folder.Write("d.kml", R"(<kml xmlns="http://www.opengis.net/kml/2.2"><Document>
    <Style id="label"><IconStyle><scale>0</scale></IconStyle><LabelStyle><color>ff0000ff</color></LabelStyle></Style>
    <Style id="pin"><IconStyle><Icon><href>p.png</href></Icon></IconStyle><LabelStyle><color>ff0000ff</color></LabelStyle>
    </Style>
    <Placemark><name>Lake</name><styleUrl>#label</styleUrl><Point><coordinates>1,2</coordinates></Point></Placemark>
    <Placemark><name>Pin</name><styleUrl>#pin</styleUrl><Point><coordinates>3,4</coordinates></Point></Placemark>
    </Document></kml>)");
  for (const auto& [file, words] : {std::pair("d.dxf", "Hello words"), std::pair("d.kml", "Lake")}) {
    MapDocument document;
    const ImportResult result = AddDrawing(ReadDrawing(folder.Native(file), "", ""), false, document.Map());
    EXPECT_EQ(result.texts, 1) << file;
    EXPECT_EQ(result.markers, 1) << file;
    ASSERT_EQ(document.Map().Elements().size(), 2U) << file;
    EXPECT_TRUE(Is<ITextElement>(document.Map().Elements()[0])) << file;
    EXPECT_EQ(document.Map().Elements()[0]->content, words);
  }
}

TEST(DrawingImport, WhatIsMissingIsNamed) {
  const std::string kml = TESSARINE_TEST_DATA "/drawing.kml";
  EXPECT_THAT(testing::FaultTextOf([&] { (void)ReadDrawing(kml, "", "colour"); }), ::testing::HasSubstr("'colour'"));
  EXPECT_THAT(testing::FaultTextOf([&] { (void)ReadDrawing(kml, "other", ""); }), ::testing::HasSubstr("Drawn"));
  EXPECT_THAT(testing::FaultTextOf([] { (void)ReadDrawing("/none.kml", "", ""); }), ::testing::HasSubstr("/none.kml"));
}

TEST(MapDocument, ShapesTakeTheReferenceOfTheMap) {
  MapDocument document;
  document.Map().SetSpatialReference(SpatialReferenceEnvironment::CreateFromText("EPSG:32631"));
  for (DocumentView* view :
       {static_cast<DocumentView*>(&document.Map()), static_cast<DocumentView*>(&document.Layout())}) {
    const auto element = MakeElement("marker");
    element->shape = std::make_shared<Point>(1, 2);
    view->AddElement(element);
  }
  EXPECT_EQ(document.Map().Elements()[0]->Geometry()->SpatialReference()->FactoryCode(), 32631);
  EXPECT_EQ(document.Layout().Elements()[0]->Geometry()->SpatialReference(), nullptr);
}

}  // namespace
}  // namespace tessarine
