// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/map_document.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "helpers/memory_class.h"
#include "hosts/document/document_layer.h"
#include "hosts/document/settings_stream.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

using testing::MemoryClass;

std::shared_ptr<DocumentFeatureLayer> Countries() {
  return std::make_shared<DocumentFeatureLayer>("countries", LayerSource{TESSARINE_TEST_DATA "/countries.shp", ""});
}

std::string Walk(const IMap& map, bool recursive) {
  const auto layers = map.Layers(nullptr, recursive);
  layers->Reset();
  std::string names;
  while (const auto layer = layers->Next()) names += layer->Name() + " ";
  return names;
}

TEST(MapDocumentTest, LayersInMapOrder) {
  MapDocument document;
  DocumentMap& map = document.Map();
  const auto group = std::make_shared<DocumentGroupLayer>("group");
  const auto inner = std::make_shared<DocumentGroupLayer>("inner");
  inner->members = {std::make_shared<DocumentFeatureLayer>("deep", LayerSource{})};
  group->members = {inner, std::make_shared<DocumentFeatureLayer>("flat", LayerSource{})};
  map.AppendLayer(group);
  map.AppendLayer(std::make_shared<DocumentFeatureLayer>("last", LayerSource{}));
  document.AddLayer(std::make_shared<DocumentFeatureLayer>("top", LayerSource{}));
  EXPECT_EQ(Walk(map, true), "top group inner deep flat last ");
  EXPECT_EQ(Walk(map, false), "top group last ");
  EXPECT_EQ(map.Layer(2)->Name(), "last");
  EXPECT_THROW((void)map.Layer(3), Fault);
  EXPECT_THROW((void)map.Layer(-1), Fault);
  EXPECT_THROW((void)map.StandaloneTable(0), Fault);
}

TEST(MapDocumentTest, TheReferenceIsTheMapsOwnOrThatOfTheFirstLayerWithOne) {
  MapDocument document;
  DocumentMap& map = document.Map();
  EXPECT_TRUE(Is<const UnknownCoordinateSystem>(map.SpatialReference()));
  map.AppendLayer(std::make_shared<DocumentFeatureLayer>("gone", LayerSource{"/gone.shp", ""}));
  const auto unknown = std::make_shared<DocumentFeatureLayer>();
  unknown->SetFeatureClass(std::make_shared<MemoryClass>(esriGeometryPoint));
  map.AppendLayer(unknown);
  const auto group = std::make_shared<DocumentGroupLayer>("group");
  group->members = {Countries()};
  map.AppendLayer(group);
  EXPECT_TRUE(Is<const GeographicCoordinateSystem>(map.SpatialReference()));
  map.SetSpatialReference(SpatialReferenceEnvironment::CreateFromText("EPSG:32612"));
  EXPECT_EQ(map.SpatialReference()->FactoryCode(), 32612);
}

TEST(MapDocumentTest, TheActiveViewAndItsGraphics) {
  MapDocument document;
  document.Layout().AddElement(MakeElement("picture"));
  EXPECT_EQ(document.ActiveView()->GraphicsContainer()->Next(), nullptr);
  document.SetLayoutActive(true);
  const auto graphics = document.ActiveView()->GraphicsContainer();
  const auto picture = graphics->Next();
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(graphics->Next(), nullptr);
  graphics->Reset();
  EXPECT_EQ(graphics->Next(), picture);

  const auto selection = Cast<IGraphicsContainerSelect>(graphics);
  selection->SelectElement(picture);
  const auto selected = selection->SelectedElements();
  selection->UnselectAllElements();
  EXPECT_EQ(selected->Next(), picture) << "the list is as it was at the call";
  EXPECT_EQ(selection->ElementSelectionCount(), 0);
  EXPECT_THROW(selection->SelectElement(nullptr), Fault);
}

TEST(DocumentLayerTest, DataIsOpenedWhenItIsAskedFor) {
  const auto layer = Countries();
  layer->SetSelectedOids({5, 2, 7});
  EXPECT_EQ(layer->SelectedOids(), (std::vector<std::int64_t>{5, 2, 7}));
  ASSERT_TRUE(layer->Valid()) << layer->Problem();
  EXPECT_EQ(layer->FeatureClass()->FeatureCount(nullptr), 177);
  EXPECT_EQ(layer->SelectionSet()->Count(), 3);
  EXPECT_EQ(layer->SelectedOids(), (std::vector<std::int64_t>{2, 5, 7}));
  const std::string name = layer->FeatureClass()->Fields()->Field(2)->Name;
  layer->SetFieldInfo(LowerCase(name), {"Shown", false});
  EXPECT_EQ(layer->FieldInfo(layer->FindField(name)).Alias, "Shown");
  EXPECT_TRUE(layer->FieldInfo(1).Visible);
  EXPECT_EQ(layer->FindField("no such field"), -1);
  layer->SetSelectedOids({});
  EXPECT_EQ(layer->SelectionSet()->Count(), 0);
}

TEST(DocumentLayerTest, DataThatCanNotBeOpened) {
  DocumentFeatureLayer layer("gone", {"/gone/roads.shp", ""});
  EXPECT_FALSE(layer.Valid());
  EXPECT_NE(layer.Problem().find("/gone/roads.shp"), std::string::npos);
  EXPECT_EQ(layer.FeatureClass(), nullptr);
  EXPECT_EQ(layer.SelectionSet(), nullptr);
  EXPECT_EQ(layer.FindField("name"), -1);
  EXPECT_EQ(layer.DataSourceType(), "");
  EXPECT_TRUE(layer.Extent().IsEmpty());
  EXPECT_THROW((void)layer.FieldInfo(0), Fault);
}

TEST(GraphicElementTest, AGroupCoversItsMembers) {
  const auto group = std::make_shared<GroupElement>();
  NullDisplay display;
  Envelope bounds(9, 9, 9, 9);
  group->QueryBounds(display, bounds);
  EXPECT_TRUE(bounds.IsEmpty());
  for (const XY xy : {XY{-1, 2}, XY{4, -3}}) {
    const auto marker = MakeElement("marker");
    marker->shape = std::make_shared<Point>(xy);
    group->members.push_back(marker);
  }
  group->members.push_back(MakeElement("text"));
  group->QueryBounds(display, bounds);
  EXPECT_EQ(bounds, Envelope(-1, -3, 4, 2));
  EXPECT_EQ(group->ElementCount(), 3);
  EXPECT_THROW((void)group->Element(3), Fault);
  EXPECT_EQ(MakeElement("Marker"), nullptr);
}

TEST(SettingsStreamTest, EndsWithAFaultAndKeepsOnlyPlainValues) {
  std::vector<Variant> values{1.5};
  SettingsStream stream(values);
  EXPECT_EQ(stream.Read(), Variant(1.5));
  EXPECT_THROW((void)stream.Read(), Fault);
  EXPECT_THROW((void)SettingToJson(Null{}), Fault);
}

}  // namespace
}  // namespace tessarine
