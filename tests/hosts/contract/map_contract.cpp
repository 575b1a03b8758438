// SPDX-License-Identifier: GPL-2.0-or-later
// Layers, fields, selections, tables and results in the map.
#include <gmock/gmock.h>

#include "engine/test_layers.h"
#include "helpers/published.h"
#include "hosts/contract/host_contract.h"

namespace tessarine::testing {

using ::testing::HasSubstr;

void HostContract::SetUp() { host_ = GetParam().make(); }

void HostContract::OpenTowns(const std::string& name, const std::string& group) {
  WriteLayer({GetParam().driver,
              FileOf(name),
              name,
              wkbPoint,
              {{"POINT (0 0)", "a", 1.0}, {"POINT (5 5)", "b", 2.0}, {"POINT (9 9)", "c", 3.0}, {"", "d", 4.0}}});
  host_->OpenLayer(FileOf(name), name, group);
}

std::shared_ptr<IFeatureLayer> HostContract::Layer(const std::string& name) const {
  const auto layers = host_->Map()->Layers(nullptr, true);
  layers->Reset();
  while (const auto layer = layers->Next()) {
    if (layer->Name() == name) return Cast<IFeatureLayer>(layer);
  }
  return nullptr;
}

std::vector<std::int64_t> HostContract::Oids(IFeatureClass& features, const std::string& names) {
  std::vector<std::int64_t> oids;
  const std::int32_t field = features.FindField("name");
  const auto cursor = features.Search(nullptr, Recycling::Yes);
  while (const auto row = cursor->NextFeature()) {
    if (names.find(row->Value(field).AsText()) != std::string::npos) oids.push_back(row->OID());
  }
  return oids;
}

std::string HostContract::Names(ICursor& cursor, std::int32_t field) { return NamesOf(&cursor, field); }

TEST_P(HostContract, LayersComeInMapOrder) {
  OpenTowns("top");
  OpenTowns("inner", "group");
  OpenTowns("last");
  const auto walk = [&](bool recursive) {
    std::string names;
    const auto layers = host_->Map()->Layers(nullptr, recursive);
    for (int turn = 0; turn < 2; ++turn) {
      layers->Reset();
      while (const auto layer = layers->Next()) names += layer->Name() + " ";
    }
    return names;
  };
  EXPECT_EQ(walk(true), "top group inner last top group inner last ");
  EXPECT_EQ(walk(false), "top group last top group last ");
  EXPECT_EQ(host_->Map()->LayerCount(), 3);
  EXPECT_EQ(host_->Map()->Layer(2)->Name(), "last");
  EXPECT_TRUE(Is<IGroupLayer>(host_->Map()->Layer(1)));
  EXPECT_EQ(host_->Map()->Layer(2), host_->Map()->Layer(2)) << "a layer met twice is the same";
  EXPECT_EQ(Layer("last")->FeatureClass(), Layer("last")->FeatureClass());
  for (const std::int32_t index : {-1, 3}) EXPECT_EQ(FaultOf([&] { (void)host_->Map()->Layer(index); }), kInvalidCall);

  EXPECT_EQ(host_->Document()->SelectedLayer(), nullptr);
  host_->MakeCurrent("inner");
  EXPECT_EQ(host_->Document()->SelectedLayer(), Layer("inner"));
  Layer("last")->SetName("renamed");
  EXPECT_EQ(host_->Map()->Layer(2)->Name(), "renamed");
}

TEST_P(HostContract, ALayerWhoseDataIsGone) {
  host_->OpenLayer(FileOf("gone"), "gone", "");
  const auto layer = Layer("gone");
  ASSERT_NE(layer, nullptr);
  EXPECT_FALSE(layer->Valid());
  EXPECT_EQ(layer->FeatureClass(), nullptr);
  EXPECT_EQ(layer->DataSourceType(), "");
  EXPECT_EQ(Cast<IFeatureSelection>(layer)->SelectionSet(), nullptr);
  EXPECT_EQ(Cast<ILayerFields>(layer)->FindField("name"), -1);
  EXPECT_TRUE(Cast<IGeoDataset>(layer)->Extent().IsEmpty());
  EXPECT_EQ(host_->Map()->SelectionCount(), 0);
}

TEST_P(HostContract, FieldsAndHowTheLayerShowsThem) {
  OpenTowns();
  const auto features = Class("towns");
  const FieldsRef fields = features->Fields();
  ASSERT_EQ(fields->FieldCount(), 4);
  EXPECT_EQ(fields->Field(0)->Type, esriFieldTypeOID);
  EXPECT_FALSE(fields->Field(0)->Editable);
  EXPECT_EQ(fields->Field(1)->Type, esriFieldTypeGeometry);
  EXPECT_EQ(fields->Field(1)->GeometryDef->GeometryType, esriGeometryPoint);
  EXPECT_EQ(fields->Field(1)->GeometryDef->SpatialReference->FactoryCode(), 4326);
  EXPECT_EQ(fields->Field(2)->Type, esriFieldTypeString);
  EXPECT_EQ(fields->Field(2)->Length, 40);
  EXPECT_EQ(fields->Field(3)->Type, esriFieldTypeDouble);
  EXPECT_EQ(features->FindField("SIZE"), 3);
  EXPECT_EQ(features->FindField("other"), -1);
  EXPECT_EQ(features->ShapeType(), esriGeometryPoint);
  EXPECT_EQ(features->ShapeFieldName(), fields->Field(1)->Name);
  EXPECT_EQ(features->Extent(), Envelope(0, 0, 9, 9));
  EXPECT_EQ(features->SpatialReference()->FactoryCode(), 4326);
  EXPECT_THAT(features->FullName(), HasSubstr(FromNativePath(FileOf("towns"))));

  const auto shown = Cast<ILayerFields>(Layer("towns"));
  EXPECT_EQ(shown->FieldInfo(2).Alias, "name");
  EXPECT_TRUE(shown->FieldInfo(0).Visible && shown->FieldInfo(2).Visible);
  host_->SetFieldInfo("towns", "size", {"Inhabitants", false});
  EXPECT_EQ(shown->FieldInfo(3).Alias, "Inhabitants");
  EXPECT_FALSE(shown->FieldInfo(3).Visible);
  EXPECT_EQ(shown->FindField("size"), 3) << "an alias is no name";
  EXPECT_NE(FaultOf([&] { (void)shown->FieldInfo(4); }), 0);
}

TEST_P(HostContract, SelectedRowsInTheOrderOfTheirIdentifiers) {
  OpenTowns();
  const auto features = Class("towns");
  const std::int32_t name = features->FindField("name"), size = features->FindField("size");
  std::vector<std::int64_t> oids = Oids(*features, "ac");
  std::swap(oids.front(), oids.back());
  EXPECT_EQ(Cast<IFeatureSelection>(Layer("towns"))->SelectionSet()->Count(), 0);
  host_->SelectRows("towns", oids);
  const auto selection = Cast<ISelectionSet2>(Cast<IFeatureSelection>(Layer("towns"))->SelectionSet());
  ASSERT_NE(selection, nullptr);
  EXPECT_EQ(selection->Count(), 2);
  EXPECT_EQ(host_->Map()->SelectionCount(), 2);
  EXPECT_EQ(Names(*selection->Search(nullptr, Recycling::Yes), name), "a c ");
  QueryFilter filter;
  filter.WhereClause = "size > 1";
  EXPECT_EQ(Names(*selection->Search(&filter, Recycling::Yes), name), "c ");

  const auto cursor = selection->Update(nullptr, Recycling::No);
  while (const auto row = cursor->NextRow()) {
    row->SetValue(size, 10.0 * row->Value(size).AsDouble());
    cursor->UpdateRow(row);
  }
  cursor->Close();
  std::vector<double> sizes;
  for (const TestRow& row : ReadLayer(FileOf("towns"))) sizes.push_back(row.size);
  EXPECT_THAT(sizes, ::testing::ElementsAre(10.0, 2.0, 30.0, 4.0));
}

TEST_P(HostContract, TablesStandBesideTheLayers) {
  OpenTowns();
  WriteLayer({GetParam().driver,
              folder_.Native(std::string("owners") + GetParam().ending),
              "owners",
              wkbNone,
              {{"", "ann", 1.0}, {"", "bob", 2.0}}});
  const bool shapefile = std::string(GetParam().ending) == ".shp";
  const std::string file = shapefile ? folder_.Native("owners.dbf") : FileOf("owners");
  host_->OpenTable(file, "owners");
  EXPECT_EQ(host_->Map()->LayerCount(), 1);
  const auto tables = Cast<IStandaloneTableCollection>(host_->Map());
  ASSERT_EQ(tables->StandaloneTableCount(), 1);
  EXPECT_EQ(FaultOf([&] { (void)tables->StandaloneTable(1); }), kInvalidCall);
  EXPECT_EQ(tables->StandaloneTable(0)->Name(), "owners");
  const auto table = tables->StandaloneTable(0)->Table();
  const std::int32_t name = table->FindField("name");
  EXPECT_EQ(table->Fields()->Field(0)->Type, esriFieldTypeOID);
  EXPECT_EQ(name, 1) << "there is no shape field";
  EXPECT_EQ(table->RowCount(nullptr), 2);
  EXPECT_EQ(Names(*table->SearchRows(nullptr, Recycling::Yes), name), "ann bob ");

  QueryFilter filter;
  filter.WhereClause = "name = 'bob'";
  const auto cursor = table->UpdateRows(&filter, Recycling::No);
  const auto row = cursor->NextRow();
  row->SetValue(name, "robert");
  cursor->UpdateRow(row);
  EXPECT_EQ(cursor->NextRow(), nullptr);
  cursor->Close();
  EXPECT_EQ(table->GetRow(row->OID())->Value(name).AsText(), "robert");
  EXPECT_EQ(ReadLayer(file).back().name, "robert");
}

TEST_P(HostContract, ResultsComeToTheTopWithTheirSymbol) {
  OpenTowns();
  host_->Draw("marker", std::make_shared<Point>(1, 1), "#ff0000");
  const auto fields = std::make_shared<Fields>();
  const auto oid = std::make_shared<Field>(), shape = std::make_shared<Field>();
  oid->Name = "OBJECTID", oid->Type = esriFieldTypeOID;
  shape->Name = "Shape", shape->Type = esriFieldTypeGeometry;
  shape->GeometryDef = std::make_shared<GeometryDef>();
  shape->GeometryDef->GeometryType = esriGeometryPoint;
  shape->GeometryDef->SpatialReference = SpatialReferenceEnvironment::CreateFromText("EPSG:4326");
  fields->AddField(oid);
  fields->AddField(shape);
  const auto store = CreateShapefileWorkspaceFactory()->OpenFromFile(folder_.Path(), 0);
  const auto made = store->CreateFeatureClass("result", fields, nullptr, nullptr, esriFTSimple, "Shape", "");
  const auto cursor = made->Insert(true);
  const auto buffer = made->CreateFeatureBuffer();
  buffer->SetShape(std::make_shared<Point>(3, 4));
  cursor->InsertFeature(*buffer);
  cursor->Close();
  testing::Published(made);

  const auto layer = host_->NewLayer();
  layer->SetFeatureClass(made);
  layer->SetName("result of the run");
  const auto graphics = Cast<IActiveView>(host_->Map())->GraphicsContainer();
  graphics->Reset();
  const auto renderer = host_->NewRenderer();
  renderer->SetSymbol(Cast<IMarkerElement>(graphics->Next())->Symbol());
  Cast<IGeoFeatureLayer>(layer)->SetRenderer(renderer);
  host_->Document()->AddLayer(layer);

  EXPECT_EQ(host_->Map()->Layer(0), layer);
  EXPECT_EQ(host_->Map()->LayerCount(), 2);
  EXPECT_EQ(layer->Name(), "result of the run");
  EXPECT_TRUE(layer->Valid());
  EXPECT_EQ(layer->FeatureClass()->FeatureCount(nullptr), 1);
  EXPECT_EQ(layer->FeatureClass()->Extent(), Envelope(3, 4, 3, 4));
  EXPECT_EQ(layer->DataSourceType(), "Shapefile Feature Class");
  EXPECT_EQ(host_->ColorOf(layer), "#ff0000");
}

TEST_P(HostContract, TheReferenceIsTheMapsOwnOrThatOfItsFirstLayerWithOne) {
  EXPECT_TRUE(Is<const UnknownCoordinateSystem>(host_->Map()->SpatialReference()));
  // Databases have a reference for data that has none.
  WriteLayer({"ESRI Shapefile", folder_.Native("loose.shp"), "loose", wkbPoint, {{"POINT (1 2)"}}, 0});
  host_->OpenLayer(folder_.Native("loose.shp"), "loose", "");
  EXPECT_TRUE(Is<const UnknownCoordinateSystem>(Cast<IGeoDataset>(Layer("loose"))->SpatialReference()));
  OpenTowns("towns", "group");
  EXPECT_EQ(host_->Map()->SpatialReference()->FactoryCode(), 4326);
  host_->SetMapReference("EPSG:32612");
  EXPECT_EQ(host_->Map()->SpatialReference()->FactoryCode(), 32612);
  EXPECT_EQ(Class("towns")->SpatialReference()->FactoryCode(), 4326);

  const auto view = Cast<IActiveView>(host_->Map());
  view->SetExtent({1000, 2000, 1400, 2300});
  const Envelope seen = view->Extent();
  // A window of another form shows more.
  EXPECT_TRUE(seen.XMin() <= 1000 && seen.YMin() <= 2000 && seen.XMax() >= 1400 && seen.YMax() >= 2300);
  EXPECT_NEAR((seen.XMin() + seen.XMax()) / 2, 1200, 1e-6);
}

}  // namespace tessarine::testing
