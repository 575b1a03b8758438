// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/output_goal.h"

#include <qgsdatasourceuri.h>
#include <qgsexception.h>
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
#include "platform/rich_text.h"
#include "platform/run_stop.h"
#include "platform/text_formats.h"

namespace tessarine::qgis {
namespace {

constexpr int kRowsBetweenLooks = 500;

std::optional<QgsProcessingOutputLayerDefinition> DefinitionIn(const QVariant& value) {
  if (!value.canConvert<QgsProcessingOutputLayerDefinition>()) return std::nullopt;
  return value.value<QgsProcessingOutputLayerDefinition>();
}

// What somebody named as the output, or as the layer to append to.
QString Named(const QgsProcessingParameterDefinition& definition, const QVariantMap& parameters,
              const QgsProcessingContext& context) {
  QVariant value = parameters.value(definition.name());
  if (const auto layer = DefinitionIn(value)) value = QVariant::fromValue(layer->sink);
  if (value.canConvert<QgsProperty>()) {
    return value.value<QgsProperty>().valueAsString(context.expressionContext());
  }
  return value.toString();
}

// "provider:uri"; a file stays as it is.
QString WithoutPassword(const QString& named) {
  const QString scheme = named.section(QLatin1Char(':'), 0, 0), rest = named.mid(scheme.size() + 1);
  QgsDataSourceUri uri(rest);
  if (uri.password().isEmpty()) return named;
  uri.setPassword({});
  return scheme + QLatin1Char(':') + uri.uri(false);
}

bool IsAppendedTo(const QVariant& value) {
  const auto layer = DefinitionIn(value);
  return layer && layer->useRemapping();
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
  const bool appends = IsAppendedTo(parameters.value(definition.name()));
  if (const auto place = appends ? std::nullopt : PlaceOf(Named(definition, parameters, context))) {
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

QString OutputGoal::ShownName() const {
  if (!shown_name_.isEmpty()) return shown_name_;
  const QString named = Named(definition_, parameters_, context_);
  if (IsAppendedTo(parameters_.value(definition_.name()))) {
    const QgsMapLayer* layer = QgsProcessingUtils::mapLayerFromString(named, context_, false);
    return layer != nullptr ? layer->name() : WithoutPassword(named);
  }
  const bool in_memory = named.startsWith(QStringLiteral("memory:"));
  if (!named.isEmpty() && !in_memory && named != QgsProcessing::TEMPORARY_OUTPUT) {
    return WithoutPassword(named);
  }
  const auto to_show = context_.layersToLoadOnCompletion();
  const QString name = to_show.contains(made_) ? to_show.value(made_).name : named.section(QLatin1Char(':'), 1);
  const QString kind = Translated("Temporary layer");
  return name.isEmpty() ? kind : kind + QStringLiteral(" '") + name + QLatin1Char('\'');
}

QString OutputGoal::AsNamed(QString text) const {
  if (IsNamedFile()) return text;
  const QString name = ShownName(), container = ToQt(place_.container);
  text.replace(container + QLatin1Char('/') + ToQt(place_.name), name);
  return text.replace(container, name);
}

std::string OutputGoal::AsNamed(std::string report) const {
  if (IsNamedFile()) return report;
  const std::string name = EscapeRtf(FromQt(ShownName())), container = EscapeRtf(place_.container);
  return Replace(Replace(std::move(report), container + "/" + EscapeRtf(place_.name), name), container, name);
}

QString OutputGoal::HandOver(const std::string& output_path, QgsProcessingFeedback& feedback) {
  made_ = IsNamedFile() ? ShowFile(output_path) : FillSink(output_path, feedback);
  return made_;
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

// What the program tells where it can't names the place as it was given.
std::unique_ptr<QgsFeatureSink> OutputGoal::OpenSink(const QgsVectorLayer& made, const QgsFields& fields,
                                                     QString& identifier) {
  try {
    return std::unique_ptr<QgsFeatureSink>(QgsProcessingParameters::parameterAsSink(
        &definition_, parameters_, fields, made.wkbType(), made.crs(), context_, identifier));
  } catch (const QgsProcessingException& error) {
    throw QgsProcessingException(error.what().replace(Named(definition_, parameters_, context_), ShownName()));
  }
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
  const std::unique_ptr<QgsFeatureSink> sink = OpenSink(layer, fields, identifier);
  if (!sink) {
    Raise(kEngine, "The output '" + FromQt(ShownName()) + "' can't be made: the program has no way to write it.");
  }
  CopyRows(layer, kept, *sink, feedback);
  return identifier;
}

}  // namespace tessarine::qgis
