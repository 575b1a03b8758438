// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/tool_parameters.h"

#include <cmath>
#include <optional>

#include "hosts/document/component_loader.h"
#include "hosts/qgis/processing/choice_parameter.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/measure_catalog.h"
#include "platform/spheroid_catalog.h"
#include "platform/text_formats.h"

namespace tessarine::qgis {
namespace {

constexpr const char* kAsTheData = "As the data";
constexpr const char* kRadii = "RADII";
constexpr int kDecimals = 15;  // of a box for numbers; the program shows six unless it is told

std::vector<NamedSpheroid> AllSpheroids() {
  const auto catalog = CreateComponentAs<ISpheroidCatalog>("Tessarine.clsSpheroidCatalog", "ISpheroidCatalog");
  std::vector<NamedSpheroid> all;
  for (const SpheroidList list : {SpheroidList::Custom, SpheroidList::Planets, SpheroidList::Earth}) {
    for (NamedSpheroid& spheroid : catalog->Spheroids(list)) {
      // Nothing can be computed on others.
      if (spheroid.semi_major_axis > 0.0 && spheroid.semi_minor_axis > 0.0) all.push_back(std::move(spheroid));
    }
  }
  return all;
}

QStringList NamesOfSpheroids() {
  QStringList names{Translated(kAsTheData)};
  for (const NamedSpheroid& spheroid : AllSpheroids()) {
    const QString name = ToQt(spheroid.name);
    if (!names.contains(name)) names << name;
  }
  return names;
}

// The choice of none in any language: a model may have been made in another one.
bool IsOfTheData(const QString& name) {
  static const QStringList texts = InAllLanguages(kAsTheData);
  return name.isEmpty() || texts.contains(name);
}

/// A choice of a spheroid by its name. What the program doesn't find in its list, it takes for the first of it.
class SpheroidParameter final : public QgsProcessingParameterEnum {
 public:
  SpheroidParameter(const QString& name, const QString& label, bool optional)
      : QgsProcessingParameterEnum(name, label, NamesOfSpheroids(), false, Translated(kAsTheData), optional, true) {}
  [[nodiscard]] QgsProcessingParameterDefinition* clone() const override { return new SpheroidParameter(*this); }
  bool checkValueIsAcceptable(const QVariant& value, QgsProcessingContext* context) const override {
    const bool is_of_the_data = value.type() == QVariant::String && IsOfTheData(value.toString());
    return QgsProcessingParameterEnum::checkValueIsAcceptable(is_of_the_data ? defaultValue() : value, context);
  }
};

QStringList Words(const std::vector<std::string_view>& words) {
  QStringList list;
  for (const std::string_view word : words) list << ToQt(word);
  return list;
}

QStringList CaptionsOfMeasures() {
  QStringList captions;
  for (const std::string& caption :
       CreateComponentAs<IMeasureCatalog>("Tessarine.clsMeasureCatalog", "IMeasureCatalog")->Captions()) {
    captions << ToQt(caption);
  }
  return captions;
}

QList<int> TypesOf(const std::vector<esriGeometryType>& shapes) {
  QList<int> types;
  for (const esriGeometryType shape : shapes) {
    const int type = shape == esriGeometryPolyline  ? QgsProcessing::TypeVectorLine
                     : shape == esriGeometryPolygon ? QgsProcessing::TypeVectorPolygon
                                                    : QgsProcessing::TypeVectorPoint;
    if (!types.contains(type)) types << type;
  }
  return types;
}

QString HelpOf(const ToolParameter& parameter) {
  if (parameter.kind == ParameterKind::Measures) {
    return Translated("The measures to calculate; a layer has those of its shapes and its kind of reference.");
  }
  QString help = Translated(parameter.text);
  if (!parameter.unit.empty()) help += QStringLiteral(", ") + Translated("in %1").arg(Translated(parameter.unit));
  if (!parameter.otherwise.empty()) {
    help += QStringLiteral("; ") + Translated("otherwise %1").arg(Translated(parameter.otherwise));
  }
  // Programs without a window know the words from here.
  if (parameter.kind == ParameterKind::Choice) {
    help += QStringLiteral(": ") + Words(parameter.choices).join(QStringLiteral(", "));
  }
  return help + QLatin1Char('.');
}

std::unique_ptr<QgsProcessingParameterDefinition> NumberOf(const ToolParameter& parameter, const QString& label) {
  auto number = std::make_unique<QgsProcessingParameterNumber>(
      NameOf(parameter), label, QgsProcessingParameterNumber::Double, QVariant(), !parameter.required);
  if (parameter.least) number->setMinimum(*parameter.least);
  number->setMetadata({{QStringLiteral("widget_wrapper"), QVariantMap{{QStringLiteral("decimals"), kDecimals}}}});
  return number;
}

// One definition for each parameter but those of an output.
std::unique_ptr<QgsProcessingParameterDefinition> DefinitionOf(const ToolSpec& spec, const ToolParameter& parameter) {
  const QString name = NameOf(parameter);
  const QString label = LabelOf(parameter);
  const bool optional = !parameter.required;
  switch (parameter.kind) {
    case ParameterKind::Layer:
      return std::make_unique<QgsProcessingParameterFeatureSource>(name, label, TypesOf(parameter.shapes), QVariant(),
                                                                   optional);
    case ParameterKind::Fields:
      return std::make_unique<QgsProcessingParameterField>(name, label, QVariant(), NameOf(*spec.Find(parameter.of)),
                                                           QgsProcessingParameterField::Any, true, optional);
    case ParameterKind::Number:
      return NumberOf(parameter, label);
    case ParameterKind::Choice:
      return ChoiceParameter(name, label, Words(parameter.choices), ChoiceOf::One, optional);
    case ParameterKind::Flag:
      return std::make_unique<QgsProcessingParameterBoolean>(name, label, false, optional);
    case ParameterKind::Box:
      return std::make_unique<QgsProcessingParameterString>(
          name, label + QStringLiteral(" (") + Translated("west,south,east,north") + QLatin1Char(')'), QVariant(),
          false, optional);
    case ParameterKind::Spheroid:
      return std::make_unique<SpheroidParameter>(name, label, optional);
    case ParameterKind::Measures:
      return ChoiceParameter(name, label, CaptionsOfMeasures(), ChoiceOf::Several, optional);
    case ParameterKind::Output:
    // What only tools for documents ask for.
    case ParameterKind::Shapes:
    case ParameterKind::Text:
    case ParameterKind::Texts:
    case ParameterKind::Reference:
      break;
  }
  return nullptr;
}

// A text, since a box for numbers would round them.
std::unique_ptr<QgsProcessingParameterDefinition> RadiiBeside() {
  auto radii = std::make_unique<QgsProcessingParameterString>(
      QLatin1String(kRadii), Translated("Radii of another spheroid (semi-major,semi-minor, metres)"), QVariant(), false,
      true);
  radii->setFlags(radii->flags() | QgsProcessingParameterDefinition::FlagAdvanced);
  radii->setHelp(Translated("Compute on a spheroid of these radii in metres, as 3396190,3376200."));
  return radii;
}

bool IsGiven(const QVariant& value) {
  if (!value.isValid() || value.isNull()) return false;
  if (value.type() == QVariant::List || value.type() == QVariant::StringList) return !value.toList().isEmpty();
  return value.type() != QVariant::String || !value.toString().isEmpty();
}

std::vector<std::string> Texts(const QStringList& list) {
  std::vector<std::string> texts;
  for (const QString& text : list) texts.push_back(FromQt(text.trimmed()));
  return texts;
}

ToolSpheroid SpheroidNamed(const QString& name) {
  for (const NamedSpheroid& spheroid : AllSpheroids()) {
    if (ToQt(spheroid.name) == name) return {spheroid.name, spheroid.semi_major_axis, spheroid.semi_minor_axis};
  }
  Raise(kInvalidCall, "There is no spheroid '" + FromQt(name) + "'.");
}

ToolSpheroid SpheroidOfRadii(const QString& text) {
  const QStringList parts = text.split(QLatin1Char(','));
  bool has_major = false, has_minor = false;
  const double major = parts.value(0).trimmed().toDouble(&has_major);
  const double minor = parts.value(1).trimmed().toDouble(&has_minor);
  const bool positive = std::isfinite(major) && std::isfinite(minor) && major > 0.0 && minor > 0.0;
  if (parts.size() == 2 && has_major && has_minor && positive) return {"", major, minor};
  Raise(kInvalidCall, "The radii '" + FromQt(text) +
                          "' aren't understood: give the semi-major and the semi-minor axis in metres, both above 0, "
                          "as in 6378137,6356752.314.");
}

/// Reads one tool's values.
class ArgumentReader {
 public:
  ArgumentReader(const QgsProcessingAlgorithm& algorithm, const QVariantMap& parameters, QgsProcessingContext& context)
      : algorithm_(algorithm), parameters_(parameters), context_(context) {}

  void Read(const ToolParameter& parameter, Arguments& arguments) const {
    const QString name = NameOf(parameter);
    if (parameter.kind == ParameterKind::Spheroid) {
      if (const auto spheroid = Spheroid(name)) arguments.Set(parameter.name, *spheroid);
      return;
    }
    if (!IsGiven(parameters_.value(name))) return;
    const QgsProcessingParameterDefinition* definition = algorithm_.parameterDefinition(name);
    switch (parameter.kind) {
      case ParameterKind::Fields:
        arguments.Set(parameter.name,
                      Texts(QgsProcessingParameters::parameterAsFields(definition, parameters_, context_)));
        return;
      case ParameterKind::Number:
        arguments.Set(parameter.name, QgsProcessingParameters::parameterAsDouble(definition, parameters_, context_));
        return;
      case ParameterKind::Flag:
        if (QgsProcessingParameters::parameterAsBoolean(definition, parameters_, context_)) {
          arguments.Set(parameter.name, true);
        }
        return;
      case ParameterKind::Choice:
        arguments.Set(parameter.name,
                      FromQt(QgsProcessingParameters::parameterAsEnumString(definition, parameters_, context_)));
        return;
      case ParameterKind::Box:
        arguments.Set(parameter.name, Texts(Text(name).split(QLatin1Char(','))));
        return;
      case ParameterKind::Measures: {
        std::vector<ToolMeasure> measures;
        for (const std::string& measure :
             Texts(QgsProcessingParameters::parameterAsEnumStrings(definition, parameters_, context_))) {
          measures.push_back({measure, {}});
        }
        arguments.Set(parameter.name, std::move(measures));
        return;
      }
      default:
        return;
    }
  }

 private:
  [[nodiscard]] QString Text(const QString& name) const {
    return QgsProcessingParameters::parameterAsString(algorithm_.parameterDefinition(name), parameters_, context_);
  }

  [[nodiscard]] std::optional<ToolSpheroid> Spheroid(const QString& name) const {
    const QString radii = IsGiven(parameters_.value(QLatin1String(kRadii))) ? Text(QLatin1String(kRadii)) : QString();
    const QString chosen =
        QgsProcessingParameters::parameterAsEnumString(algorithm_.parameterDefinition(name), parameters_, context_);
    const bool is_named = !IsOfTheData(chosen);
    if (!radii.isEmpty() && is_named) {
      Raise(kInvalidCall, "Both a spheroid and radii are given: choose '" + FromQt(Translated(kAsTheData)) +
                              "', or leave the radii out.");
    }
    if (!radii.isEmpty()) return SpheroidOfRadii(radii);
    return is_named ? std::optional(SpheroidNamed(chosen)) : std::nullopt;
  }

  const QgsProcessingAlgorithm& algorithm_;
  const QVariantMap& parameters_;
  QgsProcessingContext& context_;
};

// What the parameters of a tool ask of each other.
void CheckRelations(const ToolSpec& spec, const QVariantMap& parameters) {
  const auto given = [&](std::string_view name) {
    const ToolParameter& parameter = *spec.Find(name);
    const QVariant value = parameters.value(NameOf(parameter));
    return parameter.kind == ParameterKind::Flag ? value.toBool() : IsGiven(value);
  };
  for (const ToolParameter& parameter : spec.parameters) {
    if (parameter.kind == ParameterKind::Output || !given(parameter.name)) continue;
    const auto label = [&](std::string_view name) { return "'" + FromQt(LabelOf(*spec.Find(name))) + "'"; };
    if (!parameter.needs.empty() && !given(parameter.needs)) {
      Raise(kInvalidCall, label(parameter.name) + " needs " + label(parameter.needs) + ".");
    }
    if (!parameter.excludes.empty() && given(parameter.excludes)) {
      Raise(kInvalidCall, label(parameter.name) + " can't be given beside " + label(parameter.excludes) + ".");
    }
  }
}

}  // namespace

QString NameOf(const ToolParameter& parameter) {
  if (parameter.name == "source") return QStringLiteral("INPUT");
  return ToQt(parameter.name).toUpper().replace(QLatin1Char('-'), QLatin1Char('_'));
}

QString LabelOf(const ToolParameter& parameter) {
  QString label = ToQt(parameter.name).replace(QLatin1Char('-'), QLatin1Char(' '));
  label[0] = label.at(0).toUpper();
  label = Translated(label);
  const bool short_unit = !parameter.unit.empty() && parameter.unit.find(' ') == std::string_view::npos;
  return short_unit && parameter.kind == ParameterKind::Number
             ? label + QStringLiteral(" (%1)").arg(Translated(parameter.unit))
             : label;
}

Definitions DefinitionsOf(const ToolSpec& spec) {
  Definitions definitions;
  for (const ToolParameter& parameter : spec.parameters) {
    auto definition = DefinitionOf(spec, parameter);
    if (!definition) continue;
    definition->setHelp(HelpOf(parameter));
    definitions.push_back(std::move(definition));
    if (parameter.kind == ParameterKind::Spheroid) definitions.push_back(RadiiBeside());
  }
  definitions.push_back(
      std::make_unique<QgsProcessingParameterFeatureSink>(QLatin1String(kOutput), Translated(spec.title)));
  return definitions;
}

Arguments ReadArguments(const ToolSpec& spec, const QgsProcessingAlgorithm& algorithm, const QVariantMap& parameters,
                        QgsProcessingContext& context) {
  CheckRelations(spec, parameters);
  Arguments arguments;
  const ArgumentReader reader(algorithm, parameters, context);
  for (const ToolParameter& parameter : spec.parameters) reader.Read(parameter, arguments);
  return arguments;
}

QString ObjectionText(const ToolSpec& spec, const Objection& objection) {
  const ToolParameter* about = objection.parameter.empty() ? nullptr : spec.Find(objection.parameter);
  // In the language first, where the parameters still stand by their names.
  const Objection shown{objection.parameter, FromQt(Translated(LinesToQt(objection.text)))};
  const std::string sentence = SentenceOf(shown, [&](std::string_view name) {
    const ToolParameter* parameter = spec.Find(name);
    // What only the terminal has is no more than a word here.
    return parameter != nullptr ? "'" + FromQt(LabelOf(*parameter)) + "'" : FromQt(Translated(name));
  });
  return (about == nullptr ? QString() : LabelOf(*about) + QStringLiteral(": ")) + ToQt(sentence);
}

}  // namespace tessarine::qgis
