// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/chosen_layer.h"

#include <qgsjsonutils.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorfilewriter.h>

#include <QDateTime>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "hosts/qgis/layer_class.h"
#include "hosts/qgis/layer_file.h"
#include "hosts/qgis/processing/in_place_shapes.h"
#include "hosts/qgis/results/layer_words.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/local_numbers.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/fault.h"
#include "platform/free_name.h"
#include "platform/run_stop.h"

namespace tessarine::qgis {
namespace {

constexpr int kRowsBetweenLooks = 500;

QVariant ValueOf(const QgsProcessingParameterDefinition& definition, const QVariantMap& parameters) {
  return parameters.value(definition.name());
}

int KeyOf(const QgsVectorLayer& layer) {
  const QgsAttributeList keys = layer.dataProvider()->pkAttributeIndexes();
  return layer.providerType() == QStringLiteral("ogr") && keys.size() == 1 ? keys.front() : -1;
}

auto IsTakenIn(const QgsFields& fields) {
  return [&fields](const std::string& candidate) { return fields.lookupField(ToQt(candidate)) >= 0; };
}

QString FreeName(const QString& name, const QgsFields& fields) {
  return ToQt(FirstFreeOfOwn(FromQt(name), IsTakenIn(fields)));
}

// A GeoPackage takes no two names that differ in the case of their letters alone.
QgsField UnderFreeName(QgsField field, const QgsFields& columns) {
  field.setName(ToQt(FirstFree(FromQt(field.name()), IsTakenIn(columns))));
  return field;
}

// The run sees the fields under the names that they have in the layer.
void NameAsInLayer(const QStringList& names, const IFeatureClass& copy) {
  std::vector<FieldRef> attributes;
  for (const FieldRef& field : *copy.Fields()) {
    if (IsAttribute(*field)) attributes.push_back(field);
  }
  for (std::size_t index = 0; index < attributes.size() && std::cmp_less(index, names.size()); ++index) {
    Field& field = *attributes[index];
    const std::string name = FromQt(names.at(static_cast<int>(index)));
    if (field.AliasName == field.Name) field.AliasName = name;
    field.Name = name;
  }
}

// A column of the copy that holds what the layer holds. The places of a column round nothing but in a file.
QgsField CopyOf(const QgsField& field, bool in_file) {
  switch (field.type()) {
    case QVariant::Double:
      return in_file ? field : QgsField(field.name(), QVariant::Double);
    case QVariant::Time:
    case QVariant::List:
    case QVariant::StringList:
    case QVariant::Map:
      return {field.name(), QVariant::String};
    default:
      return field;
  }
}

QgsVectorFileWriter::SaveVectorOptions OptionsOfCopy(const QString& oid, const QgsFields& columns) {
  QgsVectorFileWriter::SaveVectorOptions options;
  options.driverName = QStringLiteral("GPKG");
  options.layerName = QStringLiteral("source");
  options.layerOptions << QStringLiteral("FID=") + oid
                       << QStringLiteral("GEOMETRY_NAME=") + FreeName(QStringLiteral("geom"), columns)
                       << QStringLiteral("SPATIAL_INDEX=NO");
  return options;
}

// Lists and the like are texts of JSON there. The writer drops the fractions of a moment's seconds: such are counted.
QVariant CopyOf(const QVariant& value, int& cut_seconds) {
  if (value.isNull()) return value;
  switch (value.type()) {
    case QVariant::Time: {
      const QTime time = value.toTime();
      return time.toString(time.msec() == 0 ? QStringLiteral("HH:mm:ss") : QStringLiteral("HH:mm:ss.zzz"));
    }
    case QVariant::DateTime:
      if (value.toDateTime().time().msec() != 0) ++cut_seconds;
      return value;
    case QVariant::List:
    case QVariant::StringList:
    case QVariant::Map:
      return QgsJsonUtils::encodeValue(value);
    default:
      return value;
  }
}

}  // namespace

QgsVectorLayer* LayerOf(const QgsProcessingParameterDefinition& definition, const QVariantMap& parameters,
                        QgsProcessingContext& context) {
  QVariant value = ValueOf(definition, parameters);
  if (value.canConvert<QgsProcessingFeatureSourceDefinition>()) {
    value = QVariant::fromValue(value.value<QgsProcessingFeatureSourceDefinition>().source);
  }
  return QgsProcessingParameters::parameterAsVectorLayer(&definition, value, context);
}

ChosenLayer::ChosenLayer(const QgsProcessingParameterDefinition& definition, const QVariantMap& parameters,
                         QgsProcessingContext& context, CopiedFields copied)
    : copied_(copied) {
  QgsVectorLayer* layer = LayerOf(definition, parameters, context);
  if (layer == nullptr || !layer->isValid() || layer->dataProvider() == nullptr || !layer->dataProvider()->isValid()) {
    Raise(kPathNotFound, "The layer for '" + FromQt(definition.description()) +
                             "' can't be read: there is none of this name, or its data have gone.");
  }
  name_ = layer->name();
  in_file_ = layer->providerType() == QStringLiteral("ogr");
  files_ = std::make_shared<LayerFeatures>(*layer)->Files();
  const QVariant value = ValueOf(definition, parameters);
  if (value.canConvert<QgsProcessingFeatureSourceDefinition>()) {
    const auto chosen = value.value<QgsProcessingFeatureSourceDefinition>();
    if (chosen.selectedFeaturesOnly) selected_ = layer->selectedFeatureIds();
    most_ = chosen.featureLimit;
  }
  words_ = WordsOf(*layer, selected_ ? ReadRows::Selected : ReadRows::All);
  if (most_ >= 0) words_.why_none = "only the first records of '" + FromQt(name_) + "' are read";
  const auto shown = copied_ == CopiedFields::All && !selected_ && most_ < 0 && HasOwnTexts(*layer)
                         ? FileShownBy(*layer)
                         : std::nullopt;
  if (shown) {
    file_ = LayerSource{shown->path, shown->layer};
    return;
  }
  if (ShapeTypeOf(layer->wkbType()) == esriGeometryNull) {
    Raise(kTypeMismatch, "The layer '" + FromQt(name_) + "' has no shapes of one type: points, lines or polygons.");
  }
  rows_ = std::make_unique<QgsVectorLayerFeatureSource>(layer);
  if (copied_ == CopiedFields::All) fields_ = layer->fields();
  wkb_type_ = layer->wkbType();
  reference_ = layer->crs();
  transforms_ = context.transformContext();
  key_ = copied_ == CopiedFields::All ? KeyOf(*layer) : -1;
}

std::shared_ptr<DocumentFeatureLayer> ChosenLayer::Open(QgsProcessingFeedback& feedback, WindowTurns* turns) {
  auto layer = file_ ? std::make_shared<DocumentFeatureLayer>(FromQt(name_), *file_) : OpenCopy(feedback, turns);
  if (!layer->Valid()) Raise(kEngine, layer->Problem());
  return layer;
}

std::shared_ptr<DocumentFeatureLayer> ChosenLayer::OpenCopy(QgsProcessingFeedback& feedback, WindowTurns* turns) {
  folder_ = std::make_unique<QTemporaryDir>();
  if (!folder_->isValid()) {
    Raise(kPathAccess, "No folder can be made for the work on the layer '" + FromQt(name_) +
                           "': " + FromQt(folder_->errorString()) + ".");
  }
  const QString file = folder_->filePath(QStringLiteral("source.gpkg"));
  const QString oid = key_ >= 0 ? fields_.at(key_).name() : FreeName(QStringLiteral("fid"), fields_);
  // The identifiers come in by a column that becomes the key; that of a file is one already.
  QgsFields columns;
  columns.append(QgsField(oid, QVariant::LongLong));
  QList<int> kept;
  QStringList names;
  for (int index = 0; index < fields_.count(); ++index) {
    if (index == key_) continue;
    columns.append(UnderFreeName(CopyOf(fields_.at(index), in_file_), columns));
    kept.append(index);
    names.append(fields_.at(index).name());
  }
  if (copied_ == CopiedFields::Identifiers) columns.append(QgsField(InPlaceShapes::kIdentifier, QVariant::LongLong));
  std::unique_ptr<QgsVectorFileWriter> writer(
      QgsVectorFileWriter::create(file, columns, wkb_type_, reference_, transforms_, OptionsOfCopy(oid, columns)));
  const auto raise = [&] {
    Raise(kEngine,
          "The features of the layer '" + FromQt(name_) + "' can't be copied: " + FromQt(writer->errorMessage()));
  };
  if (writer->hasError() != QgsVectorFileWriter::NoError) raise();
  QgsFeatureRequest request;
  if (selected_) request.setFilterFids(*selected_);
  if (most_ >= 0) request.setLimit(most_);
  QgsFeatureIterator features = rows_->getFeatures(request);
  int count = 0, cut_seconds = 0;
  for (QgsFeature read; features.nextFeature(read); ++count) {
    if (turns != nullptr) turns->Give();
    if (count % kRowsBetweenLooks == 0 && feedback.isCanceled()) throw RunStopped();
    QgsAttributes values;
    values.append(QVariant::fromValue<qlonglong>(read.id()));
    for (const int index : kept) values.append(CopyOf(read.attribute(index), cut_seconds));
    if (copied_ == CopiedFields::Identifiers) values.append(QVariant::fromValue<qlonglong>(read.id()));
    QgsFeature row(columns, read.id());
    row.setAttributes(values);
    row.setGeometry(read.geometry());
    if (!writer->addFeature(row, QgsFeatureSink::FastInsert)) raise();
  }
  if (!writer->flushBuffer()) raise();
  writer = nullptr;  // closes the file
  if (cut_seconds > 0) {
    feedback.pushWarning(
        Translated("%1 moments of the layer '%2' are worked with without the fractions of their seconds.")
            .arg(CountText(cut_seconds), name_));
  }
  auto layer = std::make_shared<DocumentFeatureLayer>(FromQt(name_), LayerSource{FromQt(file), "source"});
  if (layer->Valid() && layer->FeatureClass()->FeatureCount(nullptr) != count) {
    Raise(kEngine, "Of the " + std::to_string(count) + " features of the layer '" + FromQt(name_) + "' only " +
                       std::to_string(layer->FeatureClass()->FeatureCount(nullptr)) + " could be copied.");
  }
  if (layer->Valid()) NameAsInLayer(names, *layer->FeatureClass());
  for (const int index : kept) {
    if (!IsList(fields_.at(index))) continue;
    feedback.pushWarning(Translated(ToQt("The lists in the field '" + FromQt(fields_.at(index).name()) + "' of '" +
                                         FromQt(name_) + "' are written as texts of JSON.")));
  }
  return layer;
}

}  // namespace tessarine::qgis
