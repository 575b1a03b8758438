// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/layer_class.h"

#include <qgsproject.h>
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorlayereditbuffer.h>
#include <qgsvectorlayerjoininfo.h>
#include <qgsvirtuallayerdefinition.h>

#include <QFileInfo>
#include <QSet>
#include <QSignalBlocker>
#include <QStorageInfo>
#include <QUrl>
#include <algorithm>
#include <limits>

#include "engine/dataset_files.h"
#include "engine/workspace_of.h"
#include "hosts/qgis/layer_edit.h"
#include "hosts/qgis/layer_file.h"
#include "hosts/qgis/layer_row.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"
#include "outputs/formats.h"
#include "platform/fault.h"
#include "platform/paths.h"

namespace tessarine::qgis {
namespace {

constexpr qint64 kShxBytesPerRow = 8;
constexpr int kWidestNumber = 33;            // of a column whose width isn't told
constexpr qint64 kRoomToSpare = 256 * 1024;  // for what else a change writes

// Data that the program can open isn't compressed, and has no other property that counts.
class NoProperties final : public IPropertySet {
 public:
  [[nodiscard]] Variant GetProperty(std::string_view) const override { return {}; }
};

struct FilePlace {
  QString path, layer;
};

FilePlace PlaceOf(const QString& provider, const QString& source) {
  const QVariantMap parts = QgsProviderRegistry::instance()->decodeUri(provider, source);
  FilePlace place{parts.value(QStringLiteral("path")).toString(), parts.value(QStringLiteral("layerName")).toString()};
  if (place.layer.isEmpty()) place.layer = QFileInfo(place.path).completeBaseName();
  return place;
}

FilePlace PlaceOf(const QgsVectorLayer& layer) {
  return layer.providerType() == QStringLiteral("ogr") ? PlaceOf(layer.providerType(), layer.source()) : FilePlace();
}

void AddFiles(DatasetFiles& found, const QString& provider, const QString& source) {
  const FilePlace place = PlaceOf(provider, source);
  if (place.path.isEmpty()) return;
  DatasetFiles more = engine::FilesOfLayer(FromQt(place.path), FromQt(place.layer));
  found.files.insert(found.files.end(), more.files.begin(), more.files.end());
  found.classes.insert(found.classes.end(), more.classes.begin(), more.classes.end());
}

// Layers may refer to each other in a circle.
void AddFiles(DatasetFiles& found, const QgsVectorLayer& layer, QSet<QString>& seen) {
  if (seen.contains(layer.id())) return;
  seen.insert(layer.id());
  if (layer.providerType() == QStringLiteral("virtual")) {
    const QgsVirtualLayerDefinition queried =
        QgsVirtualLayerDefinition::fromUrl(QUrl::fromEncoded(layer.source().toUtf8()));
    for (const auto& source : queried.sourceLayers()) {
      if (!source.isReferenced()) {
        AddFiles(found, source.provider(), source.source());
      } else if (auto* other = QgsProject::instance()->mapLayer<QgsVectorLayer*>(source.reference())) {
        AddFiles(found, *other, seen);
      }
    }
  } else {
    AddFiles(found, layer.providerType(), layer.source());
  }
  for (const QgsVectorLayerJoinInfo& join : layer.vectorJoins()) {
    if (const QgsVectorLayer* other = join.joinLayer()) AddFiles(found, *other, seen);
  }
}

// What the provider says is quoted in a fault of ours; the program would show one message for each row.
class QuietProvider {
 public:
  explicit QuietProvider(QgsVectorLayer& layer) : provider_(*layer.dataProvider()), quiet_(&provider_) {
    provider_.clearErrors();
  }
  [[nodiscard]] QgsVectorDataProvider* operator->() const { return &provider_; }

 private:
  QgsVectorDataProvider& provider_;
  QSignalBlocker quiet_;
};

[[noreturn]] void RaiseProviderFault(QgsVectorLayer& layer, const std::string& what) {
  const QStringList told = layer.dataProvider()->errors();
  layer.dataProvider()->clearErrors();
  std::string quoted = told.isEmpty() ? "." : ": " + FromQt(told.front());
  if (told.size() > 1) quoted += " (and " + std::to_string(told.size() - 1) + " more like it)";
  Raise(kEngine, what + " the layer '" + FromQt(layer.name()) + "'" + quoted);
}

// dBASE tables get new columns by moving all their rows, in the file itself: on a disk that becomes full meanwhile what
// they held before would be gone. Formats with a journal take such a change back.
void RequireRoomForFields(const QgsVectorLayer& layer, const QList<QgsField>& fields) {
  if (FactsOfLayer(layer).store != FileStore::Shapefile) return;
  const QFileInfo file(PlaceOf(layer).path);
  const QString table = file.path() + '/' + file.completeBaseName();
  const qint64 rows = QFileInfo(table + ".shx").size() / kShxBytesPerRow;
  qint64 width = 0;
  for (const QgsField& field : fields) width += std::max(field.length(), kWidestNumber);
  const qint64 needed = rows * width + kRoomToSpare;
  const QStorageInfo disk(file.path());
  if (!disk.isValid() || disk.bytesAvailable() >= needed) return;
  Raise(kEngine, "Fields can't be added to the layer '" + FromQt(layer.name()) + "': they take " +
                     std::to_string(needed) + " bytes, and its disk has room for " +
                     std::to_string(disk.bytesAvailable()) + ". Free some room first; the data are as they were.");
}

}  // namespace

QgsVectorLayer& LayerClass::Layer() const {
  if (!layer_ || !layer_->isValid()) {
    Raise(kObjectNotSet, "The layer '" + FromQt(name_) + "' can't be read: it is no longer in the project.");
  }
  if (!DataAreThere(*layer_)) {
    Raise(kPathNotFound, "The data of the layer '" + FromQt(name_) + "' can't be read: they have gone, or their " +
                             "program or server doesn't answer.");
  }
  return *layer_;
}

void ReloadKeepingSelection(QgsVectorLayer& layer) {
  const QgsFeatureIds selected = layer.selectedFeatureIds();
  layer.reload();
  if (!selected.isEmpty()) layer.selectByIds(selected);
}

std::shared_ptr<const LayerTraits> LayerClass::Traits() const {
  const QgsVectorLayer& layer = Layer();
  if (traits_ && traits_->fields == layer.fields() && traits_->reference == ReferenceOf(layer.crs())) return traits_;
  auto traits = std::make_shared<LayerTraits>();
  traits->columns = ColumnsOf(layer);
  traits->fields = layer.fields();
  traits->shape_type = ShapeTypeOf(layer.wkbType());
  traits->reference = ReferenceOf(layer.crs());
  traits->dbase = FactsOfLayer(layer).store == FileStore::Shapefile;
  traits_ = std::move(traits);
  return traits_;
}

void LayerClass::ChangeBuffer(QgsVectorLayer& layer, const RowChanges& changes) {
  const auto require = [&](bool done, const char* what) {
    if (!done) Raise(kEngine, std::string(what) + " the layer '" + FromQt(layer.name()) + "', which is being edited.");
    has_buffered_ = true;
  };
  for (auto row = changes.attributes.begin(); row != changes.attributes.end(); ++row) {
    const bool done = layer.changeAttributeValues(row.key(), row.value(), changes.before.value(row.key()), true);
    require(done, "Attributes can't be changed in");
  }
  for (auto row = changes.shapes.begin(); row != changes.shapes.end(); ++row) {
    QgsGeometry shape = row.value();
    require(layer.changeGeometry(row.key(), shape, true), "Shapes can't be changed in");
  }
}

void LayerClass::Change(const RowChanges& changes) {
  QgsVectorLayer& layer = Layer();
  if (layer.isEditable()) return ChangeBuffer(layer, changes);
  const QuietProvider provider(layer);
  // Provider fields come first, so that the layer's index is the provider's too.
  if (!changes.attributes.isEmpty() && !provider->changeAttributeValues(changes.attributes)) {
    RaiseProviderFault(layer, "Attributes can't be written to");
  }
  // The provider takes what is geometry alone.
  QgsGeometryMap shapes = changes.shapes;
  if (!shapes.isEmpty() && !provider->changeGeometryValues(shapes)) {
    RaiseProviderFault(layer, "Shapes can't be written to");
  }
}

void LayerClass::DeleteRow(QgsFeatureId oid) {
  QgsVectorLayer& layer = Layer();
  const bool done = layer.isEditable() ? layer.deleteFeature(oid) : QuietProvider(layer)->deleteFeatures({oid});
  if (!done) RaiseProviderFault(layer, "A row can't be deleted from");
  ShowChanges(true);
}

void LayerClass::ShowChanges(bool shapes_changed) {
  if (!layer_) return;
  // What is in an edit buffer has been told row by row.
  if (!layer_->isEditable()) {
    ReloadKeepingSelection(*layer_);
    // They would write the file as they read it, without what is new.
    for (QgsVectorLayer* other : OthersOfFile(*layer_)) {
      if (other->isEditable()) continue;
      ReloadKeepingSelection(*other);
      other->updateFields();
      other->triggerRepaint();
    }
  }
  if (shapes_changed) layer_->updateExtents();
  layer_->triggerRepaint();
}

void LayerClass::AddFields(std::span<const FieldRef> fields) {
  if (stored_) return stored_->AddFields(fields);
  QgsVectorLayer& layer = Layer();
  QList<QgsField> added;
  for (const FieldRef& field : fields) {
    added << NewFieldFor(*field, *layer.dataProvider());
    if (FindField(field->Name) < 0) continue;
    Raise(kInvalidCall, "The layer '" + FromQt(layer.name()) + "' has a field '" + field->Name + "' already.");
  }
  bool done = true;
  RequireRoomForFields(layer, added);
  if (layer.isEditable()) {
    // The program saves them before it has the new fields, and leaves these empty.
    if (!layer.editBuffer()->addedFeatures().isEmpty()) {
      Raise(kInvalidCall, "The layer '" + FromQt(layer.name()) +
                              "' has new features that aren't saved, whose values in new fields would be lost: save " +
                              "the edits of the layer first, or choose fields that it has.");
    }
    for (const QgsField& field : added) done = done && layer.addAttribute(field);
    has_buffered_ = true;
  } else {
    done = QuietProvider(layer)->addAttributes(added);
  }
  layer.updateFields();
  for (const FieldRef& field : fields) {
    if (layer.fields().lookupField(ToQt(field->Name)) >= 0) continue;
    RaiseProviderFault(layer,
                       "The field '" + field->Name + "' can't be added " + (done ? "under this name " : "") + "to");
  }
}

std::shared_ptr<IEdit> LayerClass::BeginEdit() { return BeginLayerEdit(shared_from_this()); }

std::string LayerClass::Name() const {
  const FilePlace place = PlaceOf(Layer());
  return FromQt(place.path.isEmpty() ? Layer().name() : place.layer);
}

std::string LayerClass::FullName() const {
  const QgsVectorLayer& layer = Layer();
  const FilePlace place = PlaceOf(layer);
  if (place.path.isEmpty()) return FromQt(layer.providerType()) + ": " + FromQt(layer.name());
  const bool shapefile = FactsOfLayer(layer).store == FileStore::Shapefile;
  return FromNativePath(FromQt(shapefile ? place.path : place.path + '/' + place.layer));
}

std::string LayerClass::Category() const {
  const QString storage = Layer().storageType();
  return CategoryOf(FromQt(storage.isEmpty() ? Layer().providerType() : storage));
}

std::shared_ptr<IWorkspace> LayerClass::Workspace() const {
  return engine::WorkspaceOf(FactsOfLayer(Layer()), FromQt(PlaceOf(Layer()).path));
}

std::shared_ptr<IPropertySet> LayerClass::PropertySet() const { return std::make_shared<NoProperties>(); }

void LayerClass::Delete() {
  Raise(kInvalidCall, "The data of the layer '" + FromQt(Layer().name()) + "' can't be deleted through the map.");
}

bool LayerClass::CanBypassEditSession() const {
  const QgsVectorLayer& layer = Layer();
  return !layer.readOnly() &&
         (layer.dataProvider()->capabilities() & QgsVectorDataProvider::ChangeAttributeValues) != 0;
}

DatasetFiles LayerClass::Files() const {
  DatasetFiles found;
  QSet<QString> seen;
  AddFiles(found, Layer(), seen);
  return found;
}

bool LayerClass::HoldsLists(std::int32_t field) const {
  const auto traits = Traits();
  if (field < 0 || field >= traits->columns.fields->FieldCount()) return false;
  const int attribute = traits->columns.AttributeOf(field);
  return attribute != Columns::kNoAttribute && IsList(traits->fields.at(attribute));
}

std::int32_t LayerClass::CountRows(const QueryFilter* filter) {
  if (stored_) return stored_->FeatureCount(filter);
  std::int64_t count = filter == nullptr ? Layer().featureCount() : -1;
  // Some providers don't know, and a filter always asks for a look at the rows.
  if (count < 0) {
    count = 0;
    const auto rows = OpenReader(filter, Recycling::Yes);
    while (rows->NextFeature()) ++count;
  }
  if (count > std::numeric_limits<std::int32_t>::max()) {
    Raise(kOverflow, "The layer '" + FromQt(Layer().name()) + "' holds more rows than can be counted.");
  }
  return static_cast<std::int32_t>(count);
}

std::shared_ptr<IFeature> LayerClass::ReadRow(std::int64_t oid) {
  if (stored_) return stored_->GetFeature(oid);
  const QgsFeature feature = Layer().getFeature(oid);
  if (!feature.isValid()) {
    Raise(kInvalidCall, "The layer '" + FromQt(Layer().name()) + "' has no row " + std::to_string(oid) + ".");
  }
  return std::make_shared<LayerRow>(Traits(), feature, weak_from_this());
}

std::string LayerFeatures::ShapeFieldName() const {
  const auto traits = Traits();
  return traits->columns.fields->Field(traits->columns.shape_index)->Name;
}

Envelope LayerFeatures::Extent() const { return EnvelopeOf(Layer().extent()); }

std::int32_t LayerFeatures::FeatureCount(const QueryFilter* filter) const {
  return const_cast<LayerFeatures*>(this)->CountRows(filter);
}

std::shared_ptr<IFeatureBuffer> LayerFeatures::CreateFeatureBuffer() {
  return std::make_shared<LayerRow>(Traits(), QgsFeature(Layer().fields()), weak_from_this());
}

std::int32_t LayerTable::RowCount(const QueryFilter* filter) const {
  return const_cast<LayerTable*>(this)->CountRows(filter);
}

LayerSelection::LayerSelection(std::shared_ptr<LayerClass> rows) : rows_(std::move(rows)) {
  const QgsFeatureIds chosen = rows_->Layer().selectedFeatureIds();
  oids_.assign(chosen.begin(), chosen.end());
  std::ranges::sort(oids_);
}

}  // namespace tessarine::qgis
