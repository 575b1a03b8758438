// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/layer_edit.h"

#include <utility>

#include "engine/data_source.h"
#include "hosts/qgis/columns.h"
#include "hosts/qgis/json_kinds.h"
#include "hosts/qgis/json_numbers.h"
#include "hosts/qgis/layer_file.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"
#include "platform/fault.h"

namespace tessarine::qgis {
namespace {

const QString kCommandTitle = QStringLiteral("Calculate Geometry");

/// One command of a layer that is being edited; one that has changed nothing leaves nothing to undo.
class BufferEdit final : public IEdit {
 public:
  explicit BufferEdit(std::shared_ptr<LayerClass> rows) : rows_(std::move(rows)), layer_(&rows_->Layer()) {
    rows_->ForgetBuffered();
    layer_->beginEditCommand(kCommandTitle);
  }
  ~BufferEdit() override { BufferEdit::Finish(); }
  BufferEdit(const BufferEdit&) = delete;
  BufferEdit& operator=(const BufferEdit&) = delete;

  void Finish() override { End(rows_->HasBuffered()); }
  void Abandon() override { End(false); }

 private:
  void End(bool keep) {
    QgsVectorLayer* const layer = std::exchange(layer_, nullptr);
    // Saving or undoing all edits has ended it.
    if (layer == nullptr || !layer->isEditable() || !layer->isEditCommandActive()) return;
    if (keep) {
      layer->endEditCommand();
    } else {
      layer->destroyEditCommand();
    }
    layer->triggerRepaint();
  }

  std::shared_ptr<LayerClass> rows_;
  QPointer<QgsVectorLayer> layer_;
};

/// The layer's rows are those of the file until it ends; then the program reads the file again.
class FileEdit final : public IEdit {
 public:
  FileEdit(std::shared_ptr<LayerClass> rows, const std::shared_ptr<IFeatureClass>& stored)
      : rows_(std::move(rows)), edit_(stored->BeginEdit()) {
    rows_->WorkOn(stored);
  }
  ~FileEdit() override {
    try {
      edit_ = nullptr;
      Leave();
    } catch (const Fault&) {
      // Whoever wanted to know has called Finish.
    }
  }
  FileEdit(const FileEdit&) = delete;
  FileEdit& operator=(const FileEdit&) = delete;

  void Finish() override { End(&IEdit::Finish); }
  void Abandon() override { End(&IEdit::Abandon); }

 private:
  void End(void (IEdit::*how)()) {
    const std::shared_ptr<IEdit> edit = std::exchange(edit_, nullptr);
    try {
      if (edit) (*edit.*how)();
    } catch (...) {
      Leave();
      throw;
    }
    Leave();
  }
  void Leave() {
    const std::shared_ptr<LayerClass> rows = std::exchange(rows_, nullptr);
    if (!rows) return;
    rows->WorkOn(nullptr);
    rows->ShowChanges(false);
  }

  std::shared_ptr<LayerClass> rows_;
  std::shared_ptr<IEdit> edit_;
};

bool IsSame(const IFeatureClass& stored, const QgsVectorLayer& layer) {
  for (const QgsField& field : layer.fields()) {
    if (stored.FindField(FromQt(field.name())) < 0) return false;
  }
  return stored.ShapeType() == ShapeTypeOf(layer.wkbType());
}

// The class in the file; null where it isn't as the layer is, or is changed by its provider only.
std::shared_ptr<IFeatureClass> StoredClassOf(const QgsVectorLayer& layer) {
  if (ShapeTypeOf(layer.wkbType()) == esriGeometryNull) return nullptr;
  const std::optional<LayerFile> file = FileShownBy(layer);
  if (!file) return nullptr;
  try {
    const auto stored = DataSource::Open(file->path)->OpenFeatureClass(file->layer);
    const auto info = Cast<IObjectClassInfo2>(stored);
    return info && info->CanBypassEditSession() && IsSame(*stored, layer) ? stored : nullptr;
  } catch (const Fault&) {
    // GDAL's own way damages them.
    if (FactsOfLayer(layer).store == FileStore::FileGeodatabase) throw;
    return nullptr;
  }
}

// Databases let several write; a file of another kind is written anew, and who has it open for editing overwrites that.
void RequireNoOtherEditor(const QgsVectorLayer& layer) {
  if (FactsOfLayer(layer).sqlite) return;
  for (const QgsVectorLayer* other : OthersOfFile(layer)) {
    if (!other->isEditable()) continue;
    Raise(kInvalidCall, "The layer '" + FromQt(other->name()) + "' shows the same file as '" + FromQt(layer.name()) +
                            "' and is being edited: save or give up its edits first.");
  }
}

// What GDAL couldn't read, and texts that it took for dates, would be others afterwards. Who edits the layer has the
// program write it so in any case.
void RequireChangedInPlace(const QgsVectorLayer& layer) {
  if (!FactsOfLayer(layer).rewritten || layer.isEditable()) return;
  Raise(kInvalidCall, "The file '" + FileOf(layer).path + "' of the layer '" + FromQt(layer.name()) +
                          "' can only be written anew as a whole, without what can't be read of it: export the layer "
                          "to a GeoPackage, and work on that, or switch editing on and save the layer yourself.");
}

// GDAL writes such a file as a whole, with all that it has read of it. Formats whose numbers have no bounds take values
// of any kind under one name, too.
void RequireKeptValues(const QgsVectorLayer& layer) {
  if (!FactsOfLayer(layer).narrow_integers) return;
  const std::string path = FileOf(layer).path;
  if (const std::string mixed = MixedProperty(path); !mixed.empty()) {
    Raise(kInvalidCall, "The file '" + path + "' of the layer '" + FromQt(layer.name()) +
                            "' holds values of several kinds in '" + mixed +
                            "', as numbers beside texts, which would be written as values of one kind: export the "
                            "layer to a GeoPackage, and work on that.");
  }
  if (!HasWiderIntegers(path)) return;
  Raise(kInvalidCall, "The file '" + path + "' of the layer '" + FromQt(layer.name()) +
                          "' holds whole numbers of more than 64 bits, which would be written as others: export the "
                          "layer to a GeoPackage, and work on that.");
}

}  // namespace

std::shared_ptr<IEdit> BeginLayerEdit(const std::shared_ptr<LayerClass>& rows) {
  QgsVectorLayer& layer = rows->Layer();
  RequireNoOtherEditor(layer);
  RequireChangedInPlace(layer);
  RequireKeptValues(layer);
  if (layer.isEditable()) return std::make_shared<BufferEdit>(rows);
  const std::shared_ptr<IFeatureClass> stored = StoredClassOf(layer);
  return stored ? std::make_shared<FileEdit>(rows, stored) : nullptr;
}

}  // namespace tessarine::qgis
