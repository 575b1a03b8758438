// SPDX-License-Identifier: GPL-2.0-or-later
// What layers of the program have beyond the contract of all hosts: filters, data in memory, edit sessions.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <qgsproject.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorlayer.h>

#include <QUndoStack>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>

#include "engine/test_layers.h"
#include "helpers/shapes.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "hosts/qgis/columns.h"
#include "hosts/qgis/json_kinds.h"
#include "hosts/qgis/layer_row.h"
#include "hosts/qgis/layers.h"
#include "hosts/windows/qt_text.h"

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
  const auto cursor = features.Search(filter, Recycling::Yes);
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

  const auto cursor = features->Update(nullptr, Recycling::Yes);
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

FieldRef NewDouble(const std::string& name) {
  const auto field = std::make_shared<Field>();
  field->Name = field->AliasName = name;
  field->Type = esriFieldTypeDouble;
  return field;
}

// Who undoes an edit of many records isn't to read each of them.
TEST(LayerClass, WhatAnEditWritesOverIsKnownToTheUndo) {
  const auto layer = PointsInMemory();
  ASSERT_TRUE(layer->startEditing());
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
  features->AddField(NewDouble("Sph_Len"));
  const auto row = std::dynamic_pointer_cast<qgis::LayerRow>(features->GetFeature(1));
  ASSERT_TRUE(row);
  for (const char* field : {"Sph_Len", "size"}) row->SetValue(features->FindField(field), 7);
  qgis::RowChanges changes;
  row->AddChanges(changes);
  const QgsAttributeMap before = changes.before.value(1);
  ASSERT_EQ(before.size(), 2);
  EXPECT_EQ(before.first(), 1);
  EXPECT_TRUE(before.last().isValid() && before.last().isNull());
  EXPECT_EQ(before.last().type(), QVariant::Double);
}

// Each row gets ten times its size.
void Multiply(IFeatureClass& features, const std::string& into, const std::shared_ptr<IFeatureCursor>& cursor) {
  while (const auto row = cursor->NextFeature()) {
    row->SetValue(features.FindField(into), row->Value(features.FindField("size")).AsLong() * 10);
    cursor->UpdateFeature(row);
  }
  cursor->Close();
}

std::string TextOf(const QgsFeature& row) {
  std::string text;
  for (const QVariant& value : row.attributes()) text += value.isNull() ? "- " : FromQt(value.toString()) + " ";
  return text;
}

// What the data hold, whatever the layer's edit buffer says.
std::string Stored(const QgsVectorLayer& layer) {
  std::string rows;
  QgsFeatureIterator stored = layer.dataProvider()->getFeatures();
  for (QgsFeature row; stored.nextFeature(row);) rows += TextOf(row) + "| ";
  return rows;
}

TEST(LayerClass, ChangesOfALayerThatIsEditedAreOneCommandOfTheUsers) {
  const auto layer = PointsInMemory();
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer, qgis::RowBatches{2, 2});
  ASSERT_TRUE(layer->startEditing());
  ASSERT_TRUE(layer->changeAttributeValue(2, 0, 20));
  ASSERT_TRUE(layer->deleteFeature(3));
  EXPECT_TRUE(features->CanBypassEditSession());
  const std::shared_ptr<IEdit> edit = features->BeginEdit();
  const FieldRef added[] = {NewDouble("ten")};
  features->AddFields(added);
  EXPECT_TRUE(features->Fields()->Field(features->FindField("ten"))->Editable);
  Multiply(*features, "ten", features->Update(nullptr, Recycling::No));
  Multiply(*features, "size", features->Update(nullptr, Recycling::No));
  edit->Finish();

  EXPECT_EQ(layer->undoStack()->count(), 3) << "the user's two, and ours";
  const auto seen = [&](QgsFeatureId oid) { return TextOf(layer->getFeature(oid)); };
  EXPECT_EQ(seen(1), "10 10 ");
  EXPECT_EQ(seen(2), "200 200 ");
  EXPECT_EQ(Stored(*layer), "1 | 2 | 3 | ") << "nothing is saved yet";

  std::vector<QVariant> told;
  QObject::connect(layer.get(), &QgsVectorLayer::attributeValueChanged, layer.get(),
                   [&](QgsFeatureId oid, int field, const QVariant& value) {
                     if (oid == 2 && field == 0) told.push_back(value);
                   });
  layer->undoStack()->undo();
  EXPECT_EQ(told, (std::vector<QVariant>{20})) << "open tables are told the value before";
  EXPECT_EQ(seen(1), "1 ");
  EXPECT_EQ(seen(2), "20 ");
  layer->undoStack()->redo();
  ASSERT_TRUE(layer->commitChanges());
  EXPECT_EQ(Stored(*layer), "10 10 | 200 200 | ");
}

TEST(LayerClass, AnEditThatIsGivenUpOrChangesNothingLeavesNoCommand) {
  const auto layer = PointsInMemory();
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
  ASSERT_TRUE(layer->startEditing());
  const FieldRef added[] = {NewDouble("ten")};
  std::shared_ptr<IEdit> edit = features->BeginEdit();
  features->AddFields(added);
  edit->Abandon();
  EXPECT_EQ(layer->fields().count(), 1);
  features->BeginEdit()->Finish();
  EXPECT_FALSE(layer->isModified());
  EXPECT_FALSE(layer->undoStack()->canUndo());

  edit = features->BeginEdit();
  Multiply(*features, "size", features->Update(nullptr, Recycling::No));
  edit = nullptr;
  EXPECT_EQ(layer->undoStack()->count(), 1) << "let go, it keeps what was written";
  EXPECT_EQ(Sizes(*features), "10 20 30 ");
}

TEST(LayerClass, RowsOfALayerThatIsEditedComeAndGoThroughItsBuffer) {
  const auto layer = PointsInMemory();
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
  ASSERT_TRUE(layer->startEditing());
  const auto cursor = features->Insert(true);
  const auto buffer = features->CreateFeatureBuffer();
  buffer->SetShape(std::make_shared<Point>(7, 8));
  buffer->SetValue(features->FindField("size"), 4);
  cursor->InsertFeature(*buffer);
  cursor->Close();
  features->GetFeature(1)->Delete();
  EXPECT_EQ(features->FeatureCount(nullptr), 3);
  EXPECT_EQ(layer->dataProvider()->featureCount(), 3);
  ASSERT_TRUE(layer->rollBack());
  EXPECT_EQ(Sizes(*features), "1 2 3 ");
}

TEST(LayerClass, RowsGoInBatches) {
  const auto layer = PointsInMemory();
  for (const qgis::RowBatches batches : {qgis::RowBatches{1, 2}, qgis::RowBatches{2, 1}, qgis::RowBatches{2, 3}}) {
    const auto features = std::make_shared<qgis::LayerFeatures>(*layer, batches);
    const std::int32_t size = features->FindField("size");
    const auto cursor = features->Update(nullptr, Recycling::No);
    std::string stored;
    while (const auto row = cursor->NextFeature()) {
      row->SetValue(size, row->Value(size).AsLong() + 1);
      cursor->UpdateFeature(row);
      stored += Stored(*layer) + "/ ";
    }
    cursor->Close();
    const char* expected = batches.write == 2   ? "1 | 2 | 3 | / 2 | 3 | 3 | / 2 | 3 | 3 | / "
                           : batches.write == 1 ? "3 | 3 | 4 | / 3 | 4 | 4 | / 3 | 4 | 5 | / "
                                                : "3 | 4 | 5 | / 3 | 4 | 5 | / 4 | 5 | 6 | / ";
    EXPECT_EQ(stored, expected);
    EXPECT_EQ(Sizes(*features), batches.write == 2 ? "2 3 4 " : batches.write == 1 ? "3 4 5 " : "4 5 6 ");
  }
}

TEST(LayerClass, ALayerThatCanOnlyBeReadTakesNoChanges) {
  const auto layer = PointsInMemory();
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
  layer->setReadOnly(true);
  EXPECT_FALSE(features->CanBypassEditSession());
  EXPECT_EQ(FaultOf([&] { (void)features->Update(nullptr, Recycling::Yes); }), kEngine);
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
  const auto cursor = features->Update(nullptr, Recycling::Yes);
  while (const auto row = cursor->NextFeature()) {
    row->SetValue(features->FindField("size"), 7);
    cursor->UpdateFeature(row);
  }
  cursor->Close();
  EXPECT_EQ(Sizes(*features), "7 7 7 ");
  EXPECT_EQ(layer->selectedFeatureIds(), (QgsFeatureIds{1, 3}));
}

// Three points of sizes 1 to 3 in a file.
std::unique_ptr<QgsVectorLayer> PointsInFile(const std::string& driver, const std::string& file) {
  WriteLayer(
      {driver, file, "points", wkbPoint, {{"POINT (1 1)", "a", 1}, {"POINT (2 2)", "b", 2}, {"POINT (3 3)", "c", 3}}});
  return std::make_unique<QgsVectorLayer>(ToQt(file), QStringLiteral("points"), QStringLiteral("ogr"));
}

struct FileRow {
  const char* driver;
  const char* ending;
};

TEST(LayerClass, WithinAnEditAFileIsChangedItself) {
  for (const FileRow& row :
       {FileRow{"GPKG", ".gpkg"}, FileRow{"ESRI Shapefile", ".shp"}, FileRow{"OpenFileGDB", ".gdb"}}) {
    SCOPED_TRACE(row.driver);
    TestHost host;
    const TemporaryFolder folder;
    const auto layer = PointsInFile(row.driver, folder.Native("points" + std::string(row.ending)));
    ASSERT_TRUE(layer->isValid());
    const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
    const std::vector<QgsFeatureId> oids = [&] {
      const QgsFeatureIds all = layer->allFeatureIds();
      return std::vector<QgsFeatureId>(all.begin(), all.end());
    }();
    layer->selectByIds({*std::ranges::max_element(oids)});

    const std::shared_ptr<IEdit> edit = features->BeginEdit();
    ASSERT_NE(edit, nullptr);
    const FieldRef added[] = {NewDouble("ten"), NewDouble("hundred")};
    features->AddFields(added);
    ASSERT_GE(features->FindField("hundred"), 0);
    Multiply(*features, "ten", features->Update(nullptr, Recycling::No));
    qgis::LayerSelection selection(features);
    Multiply(*features, "hundred", Cast<IFeatureCursor>(selection.Update(nullptr, Recycling::No)));
    edit->Finish();

    EXPECT_EQ(layer->selectedFeatureCount(), 1);
    std::string seen;
    QgsFeatureIterator rows = layer->getFeatures();
    for (QgsFeature read; rows.nextFeature(read);) {
      const QVariant ten = read.attribute("ten"), hundred = read.attribute("hundred");
      seen += FromQt(ten.toString()) + ":" + (hundred.isNull() ? "-" : FromQt(hundred.toString())) + " ";
    }
    EXPECT_EQ(seen, "10:- 20:- 30:30 ");
    EXPECT_GE(features->FindField("ten"), 0) << "the layer itself has it, too";
  }
}

// What the file alone doesn't tell goes by the provider.
TEST(LayerClass, OnlyALayerThatShowsJustAFileIsChangedAsOne) {
  TestHost host;
  const TemporaryFolder folder;
  const auto layer = PointsInFile("GPKG", folder.Native("points.gpkg"));
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
  EXPECT_NE(features->BeginEdit(), nullptr);
  ASSERT_TRUE(layer->setSubsetString(QStringLiteral("size > 1")));
  EXPECT_EQ(features->BeginEdit(), nullptr);
  ASSERT_TRUE(layer->setSubsetString(QString()));
  const QgsCoordinateReferenceSystem own = layer->crs();
  layer->setCrs(QgsCoordinateReferenceSystem(QStringLiteral("EPSG:3857")));
  EXPECT_EQ(features->BeginEdit(), nullptr);
  layer->setCrs(own);
  layer->addExpressionField(QStringLiteral("size + 1"), QgsField(QStringLiteral("more"), QVariant::Int));
  EXPECT_EQ(features->BeginEdit(), nullptr);
  const auto memory = PointsInMemory();
  EXPECT_EQ(std::make_shared<qgis::LayerFeatures>(*memory)->BeginEdit(), nullptr);
}

TEST(LayerClass, RowsThatCanNotBeWrittenAreToldOnce) {
  TestHost host;
  const TemporaryFolder folder;
  const auto layer = PointsInFile("GPKG", folder.Native("points.gpkg"));
  // With a filter it is the provider that writes.
  ASSERT_TRUE(layer->setSubsetString(QStringLiteral("size > 0")));
  {
    const GDALDatasetUniquePtr dataset(
        GDALDataset::Open(folder.Native("points.gpkg").c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    dataset->ExecuteSQL("CREATE TRIGGER full BEFORE UPDATE ON points BEGIN SELECT RAISE(ABORT, 'no room left'); END",
                        nullptr, nullptr);
  }
  int messages = 0;
  QObject::connect(layer->dataProvider(), &QgsVectorDataProvider::raiseError, layer.get(), [&] { ++messages; });
  const auto features = std::make_shared<qgis::LayerFeatures>(*layer);
  const auto cursor = features->Update(nullptr, Recycling::No);
  while (const auto row = cursor->NextFeature()) {
    row->SetValue(features->FindField("size"), 7);
    cursor->UpdateFeature(row);
  }
  EXPECT_THAT(FaultTextOf([&] { cursor->Close(); }), ::testing::HasSubstr("no room left"));
  EXPECT_NE(FaultOf([&] { cursor->Close(); }), 0) << "nobody counts them as written";
  EXPECT_EQ(messages, 0);
}

TEST(LayerClass, ALayerWhoseFileHasGone) {
  TestHost host;
  const TemporaryFolder folder;
  for (const char* ending : {".gpkg", ".shp"}) {
    const auto layer = PointsInFile(ending == std::string(".shp") ? "ESRI Shapefile" : "GPKG",
                                    folder.Native(std::string("points") + ending));
    const qgis::VectorLayer shown(*layer);
    const auto features = shown.FeatureClass();
    EXPECT_TRUE(shown.Valid());
    std::filesystem::remove(folder.Native(std::string("points") + ending));
    EXPECT_FALSE(shown.Valid());
    for (const auto& touch : std::vector<std::function<void()>>{
             [&] { (void)features->FeatureCount(nullptr); }, [&] { (void)features->Search(nullptr, Recycling::Yes); },
             [&] { (void)features->BeginEdit(); }, [&] { (void)features->Fields(); },
             [&] { (void)shown.FeatureClass()->Extent(); }, [&] { (void)shown.SelectionSet(); }}) {
      EXPECT_EQ(FaultOf(touch), kPathNotFound) << ending;
    }
  }
}

TEST(LayerClass, PropertiesOfSeveralKindsWouldBeWrittenAsOne) {
  struct Row {
    const char* name;
    const char* first;  // the properties of the first feature, and of the second
    const char* second;
    const char* mixed;
  };
  TestHost host;
  const TemporaryFolder folder;
  for (const Row& row : std::vector<Row>{
           {"numbers", R"("a": 1, "b": "x")", R"("a": 2.5e3, "b": null)", ""},
           {"a number and a text", R"("b": null, "a": 12)", R"("a": "n, \"}{: 1")", "a"},
           {"a flag and a number", R"("a": true)", R"("a": 1)", "a"},
           {"a list and a number", R"("a": [1, "x"])", R"("a": 1)", "a"},
           {"kinds within values", R"("a": [1, "x", {"k": 1, "properties": {"z": 1}}])",
            R"("a": {"k": "x", "properties": {"z": "x"}})", ""},
           {"names that look alike", R"("a": 1, "a\"": "x")", R"("a": 2, "a\"": "y")", ""},
       }) {
    SCOPED_TRACE(row.name);
    const std::string path = folder.Native("values.geojson");
    const auto feature = [](const char* properties) {
      return std::string(R"({"type":"Feature","id":"x","properties":{)") + properties +
             R"(},"geometry":{"type":"Point","coordinates":[1,2]}})";
    };
    std::ofstream(path) << R"({"type":"FeatureCollection","name":7,"features":[)" << feature(row.first) << ",\n"
                        << feature(row.second) << "]}";
    EXPECT_EQ(qgis::MixedProperty(path), row.mixed);
    QgsVectorLayer layer(ToQt(path), QStringLiteral("values"), QStringLiteral("ogr"));
    ASSERT_TRUE(layer.isValid());
    const auto features = qgis::VectorLayer(layer).FeatureClass();
    EXPECT_EQ(FaultOf([&] { (void)features->BeginEdit(); }), kInvalidCall) << "it would be written anew";
    ASSERT_TRUE(layer.startEditing());
    EXPECT_EQ(FaultOf([&] { (void)features->BeginEdit(); }), *row.mixed != '\0' ? kInvalidCall : 0);
  }
}

TEST(Columns, WhatFieldsWithPlacesRoundIsTold) {
  struct Row {
    const char* name;
    QgsField field;
    bool dbase;
    double value, stored;
    ValueChange change;
  };
  const auto real = [](const char* type, int length, int decimals) {
    return QgsField(QStringLiteral("v"), QVariant::Double, QLatin1String(type), length, decimals);
  };
  const double null = std::nan("");
  const QgsField whole(QStringLiteral("v"), QVariant::Int, QStringLiteral("int4"));
  // A decimal number of a database has so many digits, and the server rounds it to whole ones; a column of dBASE counts
  // sign and point, too.
  for (const Row& row : std::vector<Row>{
           {"decimal", real("numeric", 10, 2), false, 12345678.125, 12345678.13, ValueChange::Rounded},
           {"all digits", real("numeric", 10, 2), false, -99999999.99, -99999999.99, ValueChange::None},
           {"one digit more", real("numeric", 10, 2), false, 1e8, null, ValueChange::OutOfRange},
           {"rounded to one more", real("numeric", 10, 2), false, 99999999.995, null, ValueChange::OutOfRange},
           {"no decimals", real("decimal", 6, 0), false, 12.75, 12.75, ValueChange::Rounded},
           {"without places", real("numeric", 0, 0), false, 12.75, 12.75, ValueChange::None},
           {"double", real("double precision", 0, 0), false, 1.0 / 3.0, 1.0 / 3.0, ValueChange::None},
           {"dBASE", real("Real", 10, 2), true, 12.125, 12.13, ValueChange::Rounded},
           {"whole", whole, false, 12.75, 13.0, ValueChange::Rounded},
       }) {
    const qgis::StoredValue stored = qgis::FitToField(row.value, row.field, row.dbase);
    EXPECT_EQ(stored.change, row.change) << row.name;
    EXPECT_EQ(stored.value.isNull(), std::isnan(row.stored)) << row.name;
    if (std::isnan(row.stored)) continue;
    EXPECT_NEAR(stored.value.toDouble(), row.stored, 1e-9) << row.name;
  }
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
