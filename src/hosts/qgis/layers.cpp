// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/layers.h"

#include <qgsattributetableconfig.h>
#include <qgseditorwidgetsetup.h>
#include <qgslayertree.h>
#include <qgsrenderer.h>
#include <qgssinglesymbolrenderer.h>

#include "hosts/document/document_layer.h"
#include "hosts/qgis/layer_file.h"
#include "hosts/qgis/temporary_layers.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"
#include "outputs/formats.h"
#include "platform/fault.h"
#include "platform/paths.h"

namespace tessarine::qgis {
namespace {

/// A layer that the suite can name, but not work on.
template <class Kind>
class OtherLayer final : public Kind {
 public:
  explicit OtherLayer(QgsMapLayer& layer) : layer_(&layer) {}
  [[nodiscard]] std::string Name() const override { return layer_ ? FromQt(layer_->name()) : ""; }
  void SetName(const std::string& name) override {
    if (layer_) layer_->setName(ToQt(name));
  }
  [[nodiscard]] bool Valid() const override { return layer_ && layer_->isValid(); }
  void SetVisible(bool visible) override {
    if (!layer_) return;
    if (auto* node = QgsProject::instance()->layerTreeRoot()->findLayer(layer_)) {
      node->setItemVisibilityChecked(visible);
    }
  }

 private:
  QPointer<QgsMapLayer> layer_;
};

class GroupOfLayers final : public IGroupLayer {
 public:
  explicit GroupOfLayers(QgsLayerTreeGroup& group) : group_(&group) {}
  [[nodiscard]] std::string Name() const override { return group_ ? FromQt(group_->name()) : ""; }
  void SetName(const std::string& name) override {
    if (group_) group_->setName(ToQt(name));
  }
  [[nodiscard]] bool Valid() const override { return !group_.isNull(); }
  void SetVisible(bool visible) override {
    if (group_) group_->setItemVisibilityChecked(visible);
  }

 private:
  QPointer<QgsLayerTreeGroup> group_;
};

// As the program's provider of files takes it.
QString ProviderSourceOf(const IDataset& dataset) {
  const LayerSource source = SourceOf(dataset);
  return ToQt(source.layer.empty() ? source.path : source.path + "|layername=" + source.layer);
}

bool IsHidden(const QgsVectorLayer& layer, int attribute) {
  if (layer.editorWidgetSetup(attribute).type() == QStringLiteral("Hidden")) return true;
  const QString name = layer.fields().at(attribute).name();
  const QVector<QgsAttributeTableConfig::ColumnConfig> columns = layer.attributeTableConfig().columns();
  return std::ranges::any_of(columns, [&](const auto& column) { return column.name == name && column.hidden; });
}

std::shared_ptr<ILayer> MakeLayer(QgsMapLayer& layer) {
  if (auto* vector = qobject_cast<QgsVectorLayer*>(&layer)) return std::make_shared<VectorLayer>(*vector);
  switch (layer.type()) {
    case QgsMapLayerType::RasterLayer:
      return std::make_shared<OtherLayer<IRasterLayer>>(layer);
    case QgsMapLayerType::MeshLayer:
      return std::make_shared<OtherLayer<ITinLayer>>(layer);
    default:
      return std::make_shared<OtherLayer<ILayer>>(layer);
  }
}

}  // namespace

VectorLayer::VectorLayer(QgsVectorLayer& layer) { Attach(layer); }

void VectorLayer::Attach(QgsVectorLayer& layer) {
  layer_ = &layer;
  own_class_ = std::make_shared<LayerFeatures>(layer);
  class_ = nullptr;
  if (renderer_) ApplyRenderer();
  if (!visible_) SetVisible(false);
}

std::unique_ptr<QgsVectorLayer> VectorLayer::MakeShown() const {
  const auto dataset = Require(Cast<IDataset>(class_), "IDataset");
  if (const auto temporary = Cast<ITemporaryClass>(class_)) {
    std::unique_ptr<QgsVectorLayer> layer = temporary->TakeLayer();
    if (!layer) Raise(kObjectNotSet, "The temporary layer '" + dataset->Name() + "' isn't made yet, or shown already.");
    if (!name_.empty()) layer->setName(ToQt(name_));
    return layer;
  }
  QgsVectorLayer::LayerOptions options(QgsProject::instance()->transformContext());
  options.loadDefaultStyle = true;
  auto layer = std::make_unique<QgsVectorLayer>(
      ProviderSourceOf(*dataset), ToQt(name_.empty() ? dataset->Name() : name_), QStringLiteral("ogr"), options);
  if (layer->isValid()) return layer;
  std::string why = FromQt(layer->error().summary());
  const Format* format = FormatOfPath(SourceOf(*dataset).path);
  if (format != nullptr && format->store == FileStore::PersonalGeodatabase) {
    why += (why.empty() ? "" : " ") +
           std::string("The program reads personal geodatabases through ODBC only: install ") +
           "a driver for them (odbc-mdbtools), or name another output.";
  }
  Raise(kEngine, "'" + ToNativePath(dataset->FullName()) + "' was written, but can't be shown in the map: " + why);
}

std::string VectorLayer::Name() const { return layer_ ? FromQt(layer_->name()) : name_; }

void VectorLayer::SetName(const std::string& name) {
  name_ = name;
  if (layer_) layer_->setName(ToQt(name));
}

bool VectorLayer::Valid() const { return layer_ ? DataAreThere(*layer_) : class_ != nullptr; }

void VectorLayer::SetVisible(bool visible) {
  visible_ = visible;
  if (!layer_) return;
  if (auto* node = QgsProject::instance()->layerTreeRoot()->findLayer(layer_)) node->setItemVisibilityChecked(visible);
}

std::shared_ptr<IFeatureClass> VectorLayer::FeatureClass() const {
  if (!own_class_) return class_;
  // One whose data have gone says so itself, at the first touch.
  return layer_ && layer_->isValid() ? own_class_ : nullptr;
}

std::string VectorLayer::DataSourceType() const {
  const std::shared_ptr<IFeatureClass> features = FeatureClass();
  return features ? features->Category() : "";
}

void VectorLayer::SetRenderer(const std::shared_ptr<IFeatureRenderer>& renderer) {
  renderer_ = Cast<SingleRenderer>(renderer);
  if (layer_) ApplyRenderer();
}

void VectorLayer::ApplyRenderer() const {
  if (!renderer_ || !renderer_->Symbol()) return;
  layer_->setRenderer(new QgsSingleSymbolRenderer(renderer_->Symbol()->Symbol().clone()));  // the layer owns it
  layer_->triggerRepaint();
}

std::shared_ptr<ISelectionSet> VectorLayer::SelectionSet() const {
  if (!own_class_ || FeatureClass() == nullptr) return nullptr;
  return std::make_shared<LayerSelection>(own_class_);
}

tessarine::FieldInfo VectorLayer::FieldInfo(std::int32_t index) const {
  const FieldRef field = Require(FeatureClass(), "FeatureClass")->Fields()->Field(index);
  if (!own_class_) return {field->AliasName, true};
  const int attribute = own_class_->Traits()->columns.AttributeOf(index);
  if (attribute == Columns::kNoAttribute) return {field->AliasName, true};
  return {FromQt(layer_->attributeDisplayName(attribute)), !IsHidden(*layer_, attribute)};
}

// What the layer shows of other tables, or computes, is none of its own fields.
std::int32_t VectorLayer::FindField(std::string_view name) const {
  const std::shared_ptr<IFeatureClass> features = FeatureClass();
  const std::int32_t index = features ? features->FindField(name) : -1;
  if (index < 0 || !own_class_) return index;
  const Columns& columns = own_class_->Traits()->columns;
  const int attribute = columns.AttributeOf(index);
  return attribute == Columns::kNoAttribute || IsStored(layer_->fields(), attribute) ? index : -1;
}

SpatialReferenceRef VectorLayer::SpatialReference() const {
  if (layer_) return ReferenceOf(layer_->crs());
  return class_ ? class_->SpatialReference() : std::make_shared<UnknownCoordinateSystem>();
}

Envelope VectorLayer::Extent() const {
  const std::shared_ptr<IFeatureClass> features = FeatureClass();
  return features ? features->Extent() : Envelope();
}

ProjectTable::ProjectTable(QgsVectorLayer& layer) : table_(std::make_shared<LayerTable>(layer)) {}

std::string ProjectTable::Name() const { return FromQt(table_->Layer().name()); }

bool IsTable(const QgsMapLayer& layer) {
  const auto* vector = qobject_cast<const QgsVectorLayer*>(&layer);
  return vector != nullptr && vector->isValid() && !vector->isSpatial();
}

template <class Make>
std::shared_ptr<ILayer> LayerBook::Find(QObject& shown, Make&& make) {
  Entry& entry = entries_[&shown];
  // Another object may have come to live at the same address.
  if (!entry.shown) entry = {&shown, make()};
  return entry.layer;
}

std::shared_ptr<ILayer> LayerBook::Of(QgsMapLayer& layer) {
  return Find(layer, [&] { return MakeLayer(layer); });
}

std::shared_ptr<ILayer> LayerBook::Of(QgsLayerTreeGroup& group) {
  return Find(group, [&] { return std::make_shared<GroupOfLayers>(group); });
}

void LayerBook::Know(QgsMapLayer& shown, const std::shared_ptr<ILayer>& layer) { entries_[&shown] = {&shown, layer}; }

}  // namespace tessarine::qgis
