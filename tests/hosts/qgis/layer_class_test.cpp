// SPDX-License-Identifier: GPL-2.0-or-later
// What layers of the program have beyond the contract of all hosts: filters, data in memory, edit sessions.
#include <gtest/gtest.h>
#include <qgsproject.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorlayer.h>

#include "helpers/shapes.h"
#include "hosts/qgis/columns.h"
#include "hosts/qgis/layers.h"

namespace tessarine::testing {
namespace {

// Three points of sizes 1 to 3.
std::unique_ptr<QgsVectorLayer> PointsInMemory() {
  auto layer = std::make_unique<QgsVectorLayer>(QStringLiteral("Point?crs=EPSG:4326&field=size:integer"),
                                                QStringLiteral("points"), QStringLiteral("memory"));
  QgsFeatureList rows;
  for (int size = 1; size <= 3; ++size) {
    QgsFeature row(layer->fields());
    row.setGeometry(QgsGeometry::fromPointXY(QgsPointXY(size, size)));
    row.setAttribute(0, size);
    rows << row;
  }
  layer->dataProvider()->addFeatures(rows);
  return layer;
}

std::string Sizes(IFeatureClass& features, const QueryFilter* filter = nullptr) {
  std::string sizes;
  const auto cursor = features.Search(filter, true);
  while (const auto row = cursor->NextFeature()) {
    sizes += std::to_string(row->Value(features.FindField("size")).AsLong()) + " ";
  }
  return sizes;
}

TEST(LayerClass, TheLayersFilterRestrictsWhatThereIs) {
  const auto layer = PointsInMemory();
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
  EXPECT_EQ(Sizes(*features), "1 2 3 ");
  ASSERT_TRUE(layer->setSubsetString(QStringLiteral("size <> 2")));
  EXPECT_EQ(Sizes(*features), "1 3 ");
  EXPECT_EQ(features->FeatureCount(nullptr), 2);
  QueryFilter filter;
  filter.WhereClause = "size > 1";
  EXPECT_EQ(Sizes(*features, &filter), "3 ");

  const auto cursor = features->Update(nullptr, true);
  while (const auto row = cursor->NextFeature()) {
    row->SetValue(features->FindField("size"), row->Value(features->FindField("size")).AsLong() * 10);
    cursor->UpdateFeature(row);
  }
  cursor->Close();
  ASSERT_TRUE(layer->setSubsetString(QString()));
  EXPECT_EQ(Sizes(*features), "10 2 30 ");
}

TEST(LayerClass, FieldsInMemoryHoldDoublesOfAnySize) {
  const auto layer = PointsInMemory();
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
  const auto field = std::make_shared<Field>();
  field->Name = field->AliasName = "Sph_Len";
  field->Type = esriFieldTypeDouble;
  field->Precision = 16;
  field->Scale = 12;
  features->AddField(field);
  const auto row = features->GetFeature(1);
  row->SetValue(features->FindField("Sph_Len"), 10001965.729312);
  row->Store();
  EXPECT_EQ(features->GetFeature(1)->Value(features->FindField("Sph_Len")).AsDouble(), 10001965.729312);
}

TEST(LayerClass, NothingIsWrittenBesideAnEditSession) {
  const auto layer = PointsInMemory();
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
  ASSERT_TRUE(layer->startEditing());
  EXPECT_FALSE(features->CanBypassEditSession());
  EXPECT_NE(FaultOf([&] { (void)features->Update(nullptr, true); }), 0);
  ASSERT_TRUE(layer->rollBack());
  EXPECT_TRUE(features->CanBypassEditSession());
}

// What is read is what the user sees: unsaved edits too.
TEST(LayerClass, ALayerThatIsEditedIsReadWithItsEdits) {
  const auto layer = PointsInMemory();
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
  ASSERT_TRUE(layer->startEditing());
  EXPECT_EQ(Sizes(*features), "1 2 3 ");
  ASSERT_TRUE(layer->changeAttributeValue(2, 0, 20));
  ASSERT_TRUE(layer->deleteFeature(3));
  const std::string seen = Sizes(*features);
  EXPECT_TRUE(seen == "1 20 " || seen == "20 1 ") << seen;
}

TEST(LayerClass, WritingKeepsTheSelection) {
  const auto layer = PointsInMemory();
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
  layer->selectByIds({1, 3});
  const auto cursor = features->Update(nullptr, true);
  while (const auto row = cursor->NextFeature()) {
    row->SetValue(features->FindField("size"), 7);
    cursor->UpdateFeature(row);
  }
  cursor->Close();
  EXPECT_EQ(Sizes(*features), "7 7 7 ");
  EXPECT_EQ(layer->selectedFeatureIds(), (QgsFeatureIds{1, 3}));
}

TEST(LayerClass, ALayerThatLeftTheProject) {
  auto layer = PointsInMemory();
  const qgis::VectorLayer shown(*layer);
  const auto features = shown.FeatureClass();
  layer = nullptr;
  EXPECT_FALSE(shown.Valid());
  EXPECT_EQ(shown.FeatureClass(), nullptr);
  EXPECT_EQ(FaultOf([&] { (void)features->FeatureCount(nullptr); }), kObjectNotSet);
}

}  // namespace
}  // namespace tessarine::testing
