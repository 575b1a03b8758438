// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/temporary_layers.h"

#include <qgsmemoryproviderutils.h>
#include <qgsproject.h>
#include <qgsvectordataprovider.h>

#include <QTemporaryDir>

#include "hosts/document/class_over_class.h"
#include "hosts/windows/qt_text.h"
#include "outputs/format_workspace.h"
#include "platform/fault.h"
#include "platform/paths.h"

namespace tessarine::qgis {
namespace {

constexpr int kRowsAtOnce = 5000;

std::string Place() { return std::string(TemporaryLayers()->ending); }

std::unique_ptr<QgsVectorLayer> OpenGeoPackage(const std::string& path, const std::string& name) {
  QgsVectorLayer::LayerOptions options(QgsProject::instance()->transformContext());
  options.loadDefaultStyle = false;
  auto layer =
      std::make_unique<QgsVectorLayer>(ToQt(path + "|layername=" + name), ToQt(name), QStringLiteral("ogr"), options);
  if (layer->isValid()) return layer;
  Raise(kEngine, "The rows of the temporary layer '" + name + "' can't be read: " + FromQt(layer->error().summary()));
}

void AddRows(QgsVectorLayer& layer, QgsFeatureList& rows) {
  QgsVectorDataProvider& provider = *layer.dataProvider();
  provider.clearErrors();
  if (!provider.addFeatures(rows, QgsFeatureSink::FastInsert) || provider.hasErrors()) {
    Raise(kEngine, "The temporary layer '" + FromQt(layer.name()) +
                       "' doesn't take its rows: " + FromQt(provider.errors().join(QStringLiteral("; "))));
  }
  rows.clear();
}

// A layer in memory with the rows of a GeoPackage's; their identifiers are no attributes of it.
std::unique_ptr<QgsVectorLayer> CopyToMemory(const QgsVectorLayer& source) {
  const QgsAttributeList keys = source.primaryKeyAttributes();
  QgsFields fields;
  QgsAttributeList kept;
  for (int index = 0; index < source.fields().count(); ++index) {
    if (keys.contains(index)) continue;
    fields.append(source.fields().at(index));
    kept.append(index);
  }
  std::unique_ptr<QgsVectorLayer> layer(
      QgsMemoryProviderUtils::createMemoryLayer(source.name(), fields, source.wkbType(), source.crs()));
  if (!layer || !layer->isValid() || layer->fields().count() != fields.count()) {
    Raise(kEngine, "The temporary layer '" + FromQt(source.name()) + "' can't be made.");
  }
  QgsFeatureIterator features = source.getFeatures();
  QgsFeature read;
  QgsFeatureList rows;
  while (features.nextFeature(read)) {
    QgsFeature row(layer->fields());
    row.setGeometry(read.geometry());
    for (int index = 0; index < kept.count(); ++index) row.setAttribute(index, read.attribute(kept.at(index)));
    rows.append(row);
    if (rows.count() == kRowsAtOnce) AddRows(*layer, rows);
  }
  if (!rows.isEmpty()) AddRows(*layer, rows);
  if (layer->featureCount() != source.featureCount()) {
    Raise(kEngine, "The temporary layer '" + FromQt(source.name()) + "' holds " +
                       std::to_string(layer->featureCount()) + " of " + std::to_string(source.featureCount()) +
                       " rows.");
  }
  layer->updateExtents();
  return layer;
}

/// Hands everything on to the class of the GeoPackage.
class TemporaryClass final : public ClassOverClass,
                             public IStagedDataset,
                             public IPlannedClass,
                             public IObjectClassInfo2,
                             public ITemporaryClass {
 public:
  TemporaryClass(std::unique_ptr<QTemporaryDir> folder, std::string file, std::shared_ptr<IFeatureClass> worked)
      : ClassOverClass(std::move(worked)), folder_(std::move(folder)), file_(std::move(file)) {}

  [[nodiscard]] std::string FullName() const override { return Place() + "\\" + Name(); }
  [[nodiscard]] std::string BrowseName() const override { return Name(); }
  [[nodiscard]] std::string Category() const override { return std::string(TemporaryLayers()->category); }
  [[nodiscard]] std::shared_ptr<IWorkspace> Workspace() const override;
  void Delete() override { Discard(); }
  [[nodiscard]] bool CanBypassEditSession() const override { return true; }

  // IStagedDataset
  void Publish() override {
    Staged().Publish();
    layer_ = CopyToMemory(*OpenGeoPackage(file_, Name()));
  }
  void Discard() override {
    layer_ = nullptr;
    Staged().Discard();
  }
  [[nodiscard]] const RunJournal* Notes() const override { return Staged().Notes(); }
  [[nodiscard]] std::vector<std::string> Foretold() const override { return Staged().Foretold(); }
  [[nodiscard]] const PlannedClass& Planned() const override {
    return Require(Cast<IPlannedClass>(Beneath()), "IPlannedClass")->Planned();
  }

  [[nodiscard]] std::unique_ptr<QgsVectorLayer> TakeLayer() override { return std::move(layer_); }

 private:
  [[nodiscard]] IStagedDataset& Staged() const { return dynamic_cast<IStagedDataset&>(*Beneath()); }

  std::unique_ptr<QTemporaryDir> folder_;
  std::string file_;
  std::unique_ptr<QgsVectorLayer> layer_;
};

class TemporaryWorkspace final : public IFeatureWorkspace {
 public:
  [[nodiscard]] std::string PathName() const override { return Place(); }
  [[nodiscard]] std::shared_ptr<ITable> OpenTable(const std::string& name) override { RaiseMissing(name); }
  [[nodiscard]] std::shared_ptr<IFeatureClass> OpenFeatureClass(const std::string& name) override {
    RaiseMissing(name);
  }
  [[nodiscard]] std::shared_ptr<IFeatureDataset> OpenFeatureDataset(const std::string& name) override {
    RaiseMissing(name);
  }
  [[nodiscard]] std::shared_ptr<IFeatureClass> CreateFeatureClass(const std::string& name, const FieldsRef& fields,
                                                                  const std::shared_ptr<UID>& clsid,
                                                                  const std::shared_ptr<UID>& extclsid,
                                                                  esriFeatureType feature_type,
                                                                  const std::string& shape_field,
                                                                  const std::string& keyword) override {
    auto folder = std::make_unique<QTemporaryDir>();
    if (!folder->isValid()) {
      Raise(kPathAccess, "No folder can be made for the work on the temporary layer '" + name +
                             "': " + FromQt(folder->errorString()) + ".");
    }
    const std::string file = FromQt(folder->filePath(QStringLiteral("work.gpkg")));
    const auto workspace = CreateFormatWorkspaceFactory(*FormatOfPath(file))->OpenFromFile(FromNativePath(file), 0);
    auto worked = workspace->CreateFeatureClass(name, fields, clsid, extclsid, feature_type, shape_field, keyword);
    return std::make_shared<TemporaryClass>(std::move(folder), file, std::move(worked));
  }

 private:
  // New layers may bear any name: the program tells layers apart by more than that.
  [[noreturn]] static void RaiseMissing(const std::string& name) {
    Raise(kPathNotFound, "There is no temporary layer '" + name + "' to open.");
  }
};

class TemporaryFactory final : public IWorkspaceFactory {
 public:
  [[nodiscard]] std::shared_ptr<IFeatureWorkspace> OpenFromFile(const std::string&, std::int32_t) override {
    return std::make_shared<TemporaryWorkspace>();
  }
  [[nodiscard]] bool IsWorkspace(const std::string& path) const override { return path == Place(); }
  [[nodiscard]] bool ContainsWorkspace(const std::string&) const override { return false; }
};

std::shared_ptr<IWorkspace> TemporaryClass::Workspace() const { return std::make_shared<TemporaryWorkspace>(); }

}  // namespace

std::shared_ptr<IWorkspaceFactory> CreateMemoryWorkspaceFactory() { return std::make_shared<TemporaryFactory>(); }

}  // namespace tessarine::qgis
