// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/measure_choice.h"

#include <algorithm>
#include <map>

#include "calculator/result_fields.h"
#include "platform/reference_spheroid.h"
#include "platform/text_formats.h"
#include "support/MyGeneralOperations.h"
#include "support/aml_func_mod.h"

namespace tessarine {
namespace {

constexpr const char* kDashes = "---------------------------------------------------------\r\n";
constexpr const char* kDoubtfulText =
    "The following field names might not be valid, either because they are too long or they contain "
    "invalid characters.  If they are invalid, they may corrupt your data.  Please click 'YES' to continue "
    "and use these field names, or 'NO' if you wish to exit and define new names:\r\n";
constexpr const char* kTakenText =
    "The following field names already exist in your dataset, and therefore the existing data will be "
    "overwritten. Please click 'YES' to continue and use these field names, or 'NO' if you wish to exit "
    "and define new names:\r\n";
constexpr const char* kGeographicOnly = "Advanced functions available only for Geographic Datasets:";
constexpr const char* kNotForPoints = "Advanced functions irrelevant for Point feature classes:";

const char* KindWord(SpatialKind kind) {
  switch (kind) {
    case SpatialKind::Geographic:
      return "Geographic";
    case SpatialKind::Projected:
      return "Projected";
    default:
      return "Unknown";
  }
}

bool IsCalled(const MeasureRow& row, const std::string& name) {
  const auto same = [&](std::string_view text) { return EqualsIgnoringCase(text, name); };
  if (same(row.caption) || same(std::to_string(row.option_id))) return true;
  return std::ranges::any_of(row.report_labels, [&](std::string_view label) { return !label.empty() && same(label); });
}

// Why no measure can be written to the field, as the end of a sentence; empty where it can.
std::string Obstacle(const IFeatureClass& features, const std::string& name) {
  const std::int32_t index = features.FindField(name);
  if (index < 0) return "";
  const FieldRef field = features.Fields()->Field(index);
  if (field->Type == esriFieldTypeOID) return "it identifies the records";
  if (field->Type == esriFieldTypeGeometry) return "it holds the shapes";
  if (field->Type == esriFieldTypeBlob) return "it holds binary data";
  return field->Editable ? "" : "the data don't let it be changed";
}

std::string WishText(const ToolMeasure& wish) {
  std::string text = wish.name;
  for (std::size_t index = 0; index < wish.fields.size(); ++index)
    text += (index == 0 ? '=' : ',') + wish.fields[index];
  return text;
}

Objection Wrong(const ToolMeasure& wish, const std::string& what) {
  return {"", "{measure} \"" + WishText(wish) + "\": " + what};
}

// What is wrong with the fields that a wish names.
std::optional<Objection> ObjectionToFields(const IFeatureClass& features, const ToolMeasure& wish,
                                           const MeasureRow& row) {
  for (const std::string& name : wish.fields) {
    if (name.empty()) return Wrong(wish, "a field without a name can't be made. Name it, or leave the '=' out.");
    const std::string obstacle = Obstacle(features, name);
    if (obstacle.empty()) continue;
    return Wrong(wish, "the field '" + name + "' can't be written to: " + obstacle + ". Name another field.");
  }
  const std::size_t count = row.FieldCount();
  if (wish.fields.size() == count) return std::nullopt;
  return Wrong(wish, "this measure has " + (count == 1 ? std::string("one field") : std::to_string(count) + " fields") +
                         ", but " + std::to_string(wish.fields.size()) + " are named.");
}

}  // namespace

std::vector<std::string> NumericFieldNames(const IFeatureLayer& layer) {
  std::vector<std::string> names;
  const auto* layer_fields = dynamic_cast<const ILayerFields*>(&layer);
  for (const FieldRef& field : *layer.FeatureClass()->Fields()) {
    if (!aml_func_mod::FieldIsNumeric(*field)) continue;
    if (layer_fields != nullptr && layer_fields->FindField(field->Name) < 0) continue;
    names.push_back(field->Name);
  }
  return names;
}

std::size_t ProposedPosition(std::string_view default_name, const std::vector<std::string>& numeric_names) {
  std::size_t position = 0;
  for (std::size_t index = 0; index < numeric_names.size(); ++index) {
    if (EqualsIgnoringCase(numeric_names[index], default_name)) position = index;
  }
  return position;
}

std::string NewFieldName(std::string_view default_name, const IFeatureClass& features,
                         const std::vector<std::string>& numeric_names) {
  const std::string name(default_name);
  const std::int32_t index = features.FindField(name);
  if (index < 0 || IsTaken(name, numeric_names) || features.Fields()->Field(index)->Editable) return name;
  std::int32_t counter = 1;
  return FreeFieldName(features, name, counter);
}

std::string ProposedField(std::string_view default_name, const IFeatureClass& features,
                          const std::vector<std::string>& numeric_names) {
  const std::size_t position = ProposedPosition(default_name, numeric_names);
  return position > 0 ? numeric_names[position] : NewFieldName(default_name, features, numeric_names);
}

std::string MeantField(const std::string& name, const std::vector<std::string>& numeric_names) {
  const auto found =
      std::ranges::find_if(numeric_names, [&](const std::string& other) { return EqualsIgnoringCase(other, name); });
  return found != numeric_names.end() ? *found : name;
}

bool IsTaken(const std::string& name, const std::vector<std::string>& numeric_names) {
  return std::ranges::any_of(numeric_names, [&](const std::string& other) { return EqualsIgnoringCase(other, name); });
}

std::optional<NameQuestion> DoubtfulNames(const IFeatureLayer& layer, const std::vector<NamedField>& fields) {
  const std::string problems = FieldNameProblems(layer.DataSourceType(), fields);
  if (problems.empty()) return std::nullopt;
  return NameQuestion{RunQuestion::UseDoubtfulNames,
                      " Possible Problems with Field Names:", std::string(kDoubtfulText) + kDashes + problems};
}

std::optional<NameQuestion> TakenNames(const std::vector<NamedField>& fields,
                                       const std::vector<std::string>& numeric_names) {
  std::string taken;
  for (const NamedField& field : fields) {
    if (IsTaken(field.name, numeric_names)) taken += FieldLine(field) + "\r\n";
  }
  if (taken.empty()) return std::nullopt;
  return NameQuestion{RunQuestion::OverwriteFields, " Confirm Field Names:", std::string(kTakenText) + kDashes + taken};
}

std::string WhyNoSpheroid(const IFeatureClass& features) {
  if (features.ShapeType() == esriGeometryPoint) return kNotForPoints;
  return SpatialKindOf(features.SpatialReference()) == SpatialKind::Geographic ? "" : kGeographicOnly;
}

std::string KindOfClassLine(esriGeometryType shape, SpatialKind kind) {
  return std::string(ShapeNoun(shape, 1)) + " Feature Class:  " + KindWord(kind) + " Coordinate System";
}

std::string SpheroidLine(const std::string& name, double semi_major, double semi_minor) {
  using MyGeneralOperations::TrimZerosAndDecimals;
  return "Spheroid: " + name + ",  Maj.Rad. = " + TrimZerosAndDecimals(semi_major, false) +
         "m,  Min.Rad. = " + TrimZerosAndDecimals(semi_minor, false) + "m";
}

MeasureOffer OfferOf(const IFeatureLayer& layer) {
  const std::shared_ptr<IFeatureClass> features = Require(layer.FeatureClass(), "FeatureClass");
  const SpatialReferenceRef reference = features->SpatialReference();
  const SpatialKind kind = SpatialKindOf(reference);
  const std::vector<std::string> numeric = NumericFieldNames(layer);
  MeasureOffer offer{KindOfClassLine(features->ShapeType(), kind), kUnknownSpheroid, {}};
  if (const auto spheroid = SpheroidBeneath(reference)) {
    offer.spheroid = SpheroidLine(spheroid->Name(), spheroid->SemiMajorAxis(), spheroid->SemiMinorAxis());
  }
  for (const MeasureRow& row : MeasuresOf(features->ShapeType(), kind)) {
    OfferedMeasure measure{row.option_id, std::string(row.caption), {}, row.slow, {}};
    for (std::size_t index = 0; index < row.FieldCount(); ++index) {
      measure.report_labels.emplace_back(row.report_labels[index]);
      const std::string field = ProposedField(row.default_fields[index], *features, numeric);
      measure.fields.push_back({field, IsTaken(field, numeric)});
    }
    offer.measures.push_back(std::move(measure));
  }
  return offer;
}

MeasureChoice MeasuresCalled(const IFeatureLayer& layer, const std::vector<ToolMeasure>& wishes, bool all) {
  const std::shared_ptr<IFeatureClass> features = Require(layer.FeatureClass(), "FeatureClass");
  const std::span<const MeasureRow> rows =
      MeasuresOf(features->ShapeType(), SpatialKindOf(features->SpatialReference()));
  const std::vector<std::string> numeric = NumericFieldNames(layer);
  std::map<std::int32_t, std::vector<std::string>> named;  // the fields of each option; none for the proposed ones
  MeasureChoice choice;
  if (all) {
    for (const MeasureRow& row : rows) named[row.option_id];
  }
  for (const ToolMeasure& wish : wishes) {
    const auto row = std::ranges::find_if(rows, [&](const MeasureRow& one) { return IsCalled(one, wish.name); });
    if (row == rows.end()) {
      std::string offered;
      for (const MeasureRow& one : rows) offered += (offered.empty() ? "" : ", ") + std::string(one.caption);
      choice.objection =
          Wrong(wish, "'" + layer.Name() + "' has no measure '" + wish.name + "'. It has: " + offered + ".");
      return choice;
    }
    std::vector<std::string>& fields = named[row->option_id];
    if (wish.fields.empty()) continue;
    choice.objection = fields.empty()
                           ? ObjectionToFields(*features, wish, *row)
                           : Wrong(wish, "the fields of this measure were named before; a run writes it once.");
    if (choice.objection) return choice;
    fields = wish.fields;
  }
  for (const MeasureRow& row : rows) {
    const auto chosen = named.find(row.option_id);
    if (chosen == named.end()) continue;
    std::vector<std::string> fields;
    for (std::size_t index = 0; index < row.FieldCount(); ++index) {
      fields.push_back(chosen->second.empty() ? ProposedField(row.default_fields[index], *features, numeric)
                                              : MeantField(chosen->second[index], numeric));
      choice.fields.push_back({std::string(row.caption), fields.back()});
    }
    choice.options.emplace_back(static_cast<std::int16_t>(row.option_id), fields.front(),
                                fields.size() > 1 ? fields.back() : std::string());
  }
  return choice;
}

}  // namespace tessarine
