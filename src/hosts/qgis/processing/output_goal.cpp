// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/output_goal.h"

#include <qgsdatasourceuri.h>
#include <qgsfeaturesink.h>
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorlayer.h>

#include <QFileInfo>

#include "engine/format_abilities.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "outputs/layer_copy.h"
#include "outputs/output_argument.h"
#include "platform/fault.h"
#include "platform/paths.h"
#include "platform/run_stop.h"

namespace tessarine::qgis {
namespace {

constexpr int kRowsBetweenLooks = 500;

// What somebody named; empty for what the program has to put a place to.
QString Named(const QgsProcessingParameterDefinition& definition, const QVariantMap& parameters,
              const QgsProcessingContext& context) {
  QVariant value = parameters.value(definition.name());
  if (value.canConvert<QgsProcessingOutputLayerDefinition>()) {
    const auto layer = value.value<QgsProcessingOutputLayerDefinition>();
    if (layer.useRemapping()) return {};
    value = QVariant::fromValue(layer.sink);
  }
  if (value.canConvert<QgsProperty>()) {
    return value.value<QgsProperty>().valueAsString(context.expressionContext());
  }
  return value.toString();
}

// "ogr:dbname='town.gpkg' table="roads" (geom)"
std::optional<OutputPlace> PlaceInDatabaseFile(const QString& uri) {
  const QgsDataSourceUri parts(uri);
  const Format* format = FormatOfPath(FromQt(parts.database()));
  if (format == nullptr || !format->container || parts.table().isEmpty()) return std::nullopt;
  return OutputPlace{format, FromQt(QFileInfo(parts.database()).absoluteFilePath()), "", FromQt(parts.table())};
}

// Empty for what is no file of a format that the suite writes.
std::optional<OutputPlace> PlaceOf(const QString& named) {
  if (named.isEmpty() || named == QgsProcessing::TEMPORARY_OUTPUT) return std::nullopt;
  const QString scheme = named.section(QLatin1Char(':'), 0, 0);
  const bool has_scheme = named.contains(QLatin1Char(':')) && !scheme.contains(QLatin1Char('/'));
  if (has_scheme && scheme == QStringLiteral("ogr")) return PlaceInDatabaseFile(named.mid(scheme.size() + 1));
  if (has_scheme && QgsProviderRegistry::instance()->providerList().contains(scheme)) return std::nullopt;
  const QFileInfo file(named);
  const Format* format = FormatToWrite(FromQt(file.absoluteFilePath()));
  if (format == nullptr || !format->writable || !CanWrite(*format)) return std::nullopt;
  if (format->container) {
    return OutputPlace{format, FromQt(file.absoluteFilePath()), "", FromQt(file.completeBaseName())};
  }
  return OutputPlace{format, FromQt(file.absolutePath()), "", FromQt(file.fileName())};
}

void CopyRows(QgsVectorLayer& source, const QgsAttributeList& kept, QgsFeatureSink& sink,
              QgsProcessingFeedback& feedback) {
  const auto raise = [&](long long count) {
    Raise(kEngine, "The output takes no more than " + std::to_string(count) + " of the " +
                       std::to_string(source.featureCount()) + " features: " + FromQt(sink.lastError()));
  };
  QgsFeatureIterator features = source.getFeatures();
  long long count = 0;
  for (QgsFeature read; features.nextFeature(read); ++count) {
    if (count % kRowsBetweenLooks == 0 && feedback.isCanceled()) throw RunStopped();
    QgsAttributes values;
    for (const int index : kept) values.append(read.attribute(index));
    QgsFeature row;
    row.setAttributes(values);
    row.setGeometry(read.geometry());
    if (!sink.addFeature(row, QgsFeatureSink::FastInsert)) raise(count);
  }
  if (!sink.flushBuffer()) raise(0);
}

}  // namespace

OutputGoal::OutputGoal(const QgsProcessingParameterDefinition& definition, const QVariantMap& parameters,
                       QgsProcessingContext& context)
    : definition_(definition), parameters_(parameters), context_(context) {
  if (const auto place = PlaceOf(Named(definition, parameters, context))) {
    place_ = *place;
    return;
  }
  folder_ = std::make_unique<QTemporaryDir>();
  if (!folder_->isValid()) {
    Raise(kPathAccess, "No folder can be made for the work on the output: " + FromQt(folder_->errorString()) + ".");
  }
  place_ = *PlaceOf(folder_->filePath(QStringLiteral("output.gpkg")));
}

ToolOutput OutputGoal::Argument() const { return ArgumentFor(place_); }

QString OutputGoal::AsNamed(QString text) const {
  if (IsNamedFile()) return text;
  QString name = shown_name_.isEmpty() ? Named(definition_, parameters_, context_) : shown_name_;
  if (name.isEmpty() || name == QgsProcessing::TEMPORARY_OUTPUT) name = Translated("Temporary layer");
  return text.replace(ToQt(place_.container), name);
}

QString OutputGoal::HandOver(const std::string& output_path, QgsProcessingFeedback& feedback) {
  return IsNamedFile() ? ShowFile(output_path) : FillSink(output_path, feedback);
}

QString OutputGoal::SourceText(const std::string& output_path) const {
  const QString file = ToQt(ToNativePath(output_path));
  if (!place_.InContainer()) return file;
  return ToQt(place_.container) + QStringLiteral("|layername=") + file.section(QLatin1Char('/'), -1);
}

std::unique_ptr<QgsVectorLayer> OutputGoal::Open(const std::string& output_path) const {
  QgsVectorLayer::LayerOptions options(context_.transformContext());
  options.loadDefaultStyle = false;
  auto layer = std::make_unique<QgsVectorLayer>(SourceText(output_path), QStringLiteral("output"),
                                                QStringLiteral("ogr"), options);
  if (!layer->isValid()) Raise(kEngine, "What was written can't be read again: " + FromQt(layer->error().summary()));
  return layer;
}

QString OutputGoal::ShowFile(const std::string& output_path) {
  const QString shown = SourceText(output_path);
  // The program notes under which name it is going to show it; that may have become another.
  const QString noted = QgsProcessingParameters::parameterAsOutputLayer(&definition_, parameters_, context_);
  QMap<QString, QgsProcessingContext::LayerDetails> to_show = context_.layersToLoadOnCompletion();
  if (noted != shown && to_show.contains(noted)) {
    to_show.insert(shown, to_show.take(noted));
    context_.setLayersToLoadOnCompletion(to_show);
  }
  return shown;
}

QString OutputGoal::FillSink(const std::string& output_path, QgsProcessingFeedback& feedback) {
  const std::unique_ptr<QgsVectorLayer> made = Open(output_path);
  QgsVectorLayer& layer = *made;
  const QgsAttributeList keys = layer.primaryKeyAttributes();
  QgsFields fields;
  QgsAttributeList kept;
  for (int index = 0; index < layer.fields().count(); ++index) {
    if (keys.contains(index)) continue;
    fields.append(layer.fields().at(index));
    kept.append(index);
  }
  QString identifier;
  const std::unique_ptr<QgsFeatureSink> sink(QgsProcessingParameters::parameterAsSink(
      &definition_, parameters_, fields, layer.wkbType(), layer.crs(), context_, identifier));
  if (!sink) {
    Raise(kEngine, "The output '" + FromQt(Named(definition_, parameters_, context_)) +
                       "' can't be made: the program has no way to write it.");
  }
  CopyRows(layer, kept, *sink, feedback);
  return identifier;
}

}  // namespace tessarine::qgis
