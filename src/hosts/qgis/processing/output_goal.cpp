// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/output_goal.h"

#include <qgsdatasourceuri.h>
#include <qgsexception.h>
#include <qgsfeaturesink.h>
#include <qgsproviderregistry.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorfilewriter.h>
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
// Of a working copy; nothing else in a report is called so.
const QString kWorkedClass = QStringLiteral("tessarine_working_copy");

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

// "ogr:dbname='town.gpkg' table="roads" (geom)"
std::optional<OutputPlace> PlaceInDatabaseFile(const QString& uri) {
  const QgsDataSourceUri parts(uri);
  const Format* format = FormatOfPath(FromQt(parts.database()));
  if (format == nullptr || !format->container || parts.table().isEmpty()) return std::nullopt;
  return OutputPlace{format, FromQt(QFileInfo(parts.database()).absoluteFilePath()), "", FromQt(parts.table())};
}

// The program makes a GeoPackage of what bears no ending that it knows. So does the suite, with the same name: it looks
// for what stands there, and at what it has written.
QString WithEnding(const QString& named) {
  const QFileInfo file(named);
  if (!QgsVectorFileWriter::driverForExtension(file.suffix()).isEmpty()) return named;
  return file.absolutePath() + QLatin1Char('/') + file.completeBaseName() + QStringLiteral(".gpkg");
}

// Empty for what is no file of a format that the suite writes.
std::optional<OutputPlace> PlaceOf(const QString& named) {
  if (named.isEmpty() || named == QgsProcessing::TEMPORARY_OUTPUT) return std::nullopt;
  const QString scheme = named.section(QLatin1Char(':'), 0, 0);
  const bool has_scheme = named.contains(QLatin1Char(':')) && !scheme.contains(QLatin1Char('/'));
  if (has_scheme && scheme == QStringLiteral("ogr")) return PlaceInDatabaseFile(named.mid(scheme.size() + 1));
  if (has_scheme && QgsProviderRegistry::instance()->providerList().contains(scheme)) return std::nullopt;
  const QFileInfo file(WithEnding(named));
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
  if (const auto place = IsAppendedTo() ? std::nullopt : PlaceOf(Named(definition, parameters, context))) {
    place_ = *place;
    return;
  }
  folder_ = std::make_unique<QTemporaryDir>();
  if (!folder_->isValid()) {
    Raise(kPathAccess, "No folder can be made for the work on the output: " + FromQt(folder_->errorString()) + ".");
  }
  place_ = *PlaceOf(folder_->filePath(kWorkedClass + QStringLiteral(".gpkg")));
}

ToolOutput OutputGoal::Argument() const { return ArgumentFor(place_); }

bool OutputGoal::IsAppendedTo() const {
  const auto layer = DefinitionIn(parameters_.value(definition_.name()));
  return layer && layer->useRemapping();
}

// A file of a format that the program writes by itself; empty for anything else.
QString OutputGoal::NamedFile() const {
  const QString named = Named(definition_, parameters_, context_);
  const QString scheme = named.section(QLatin1Char(':'), 0, 0);
  if (made_.isEmpty() || scheme == QStringLiteral("memory") || named == QgsProcessing::TEMPORARY_OUTPUT) return {};
  const bool has_provider = scheme != named && QgsProviderRegistry::instance()->providerList().contains(scheme) &&
                            scheme != QStringLiteral("ogr");
  if (named.isEmpty() || has_provider || IsAppendedTo()) return {};
  const QVariantMap parts = QgsProviderRegistry::instance()->decodeUri(QStringLiteral("ogr"), made_);
  const QFileInfo file(parts.value(QStringLiteral("path")).toString());
  return file.exists() ? file.absoluteFilePath() : QString();
}

std::string OutputGoal::MadeFile(const std::string& output_path) const {
  if (output_path.empty()) return "";
  return IsNamedFile() ? ToNativePath(output_path) : FromQt(NamedFile());
}

QString OutputGoal::ShownName() const {
  if (!shown_name_.isEmpty()) return shown_name_;
  const QString named = Named(definition_, parameters_, context_);
  if (IsAppendedTo()) {
    const QgsMapLayer* layer = QgsProcessingUtils::mapLayerFromString(named, context_, false);
    return layer != nullptr ? layer->name() : WithoutPassword(named);
  }
  if (const QString file = NamedFile(); !file.isEmpty()) return file;
  const bool in_memory = named.startsWith(QStringLiteral("memory:"));
  if (!named.isEmpty() && !in_memory && named != QgsProcessing::TEMPORARY_OUTPUT) {
    return WithoutPassword(named);
  }
  const auto to_show = context_.layersToLoadOnCompletion();
  const QString name = to_show.contains(made_) ? to_show.value(made_).name : named.section(QLatin1Char(':'), 1);
  const QString kind = Translated("Temporary layer");
  return name.isEmpty() ? kind : kind + QStringLiteral(" '") + name + QLatin1Char('\'');
}

QString OutputGoal::ShownClass() const {
  const QString file = NamedFile();
  return file.isEmpty() ? ShownName() : QFileInfo(file).completeBaseName();
}

// `write` makes what is shown, and the paths that stand in the text, as the text has them.
template <class Write>
std::string OutputGoal::Renamed(std::string text, Write&& write) const {
  if (IsNamedFile()) return text;
  const std::string name = write(FromQt(ShownName()));
  for (const std::string& container : {place_.container, FromNativePath(place_.container)}) {
    for (const char* between : {"/", "\\"}) text = Replace(text, write(container + between + place_.name), name);
    text = Replace(text, write(container), name);
  }
  return Replace(text, write(place_.name), write(FromQt(ShownClass())));
}

std::string OutputGoal::AsNamed(std::string text) const {
  return Renamed(std::move(text), [](const std::string& plain) { return plain; });
}

QString OutputGoal::AsNamed(const QString& text) const { return ToQt(AsNamed(FromQt(text))); }

std::string OutputGoal::ReportAsNamed(std::string report) const {
  return Renamed(std::move(report), [](const std::string& plain) { return EscapeRtf(plain); });
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
