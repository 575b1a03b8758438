// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/foretold_changes.h"

#include <algorithm>

#include "outputs/column_loss.h"
#include "outputs/list_fields.h"
#include "platform/text_formats.h"
#include "support/output_kinds.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

// What becomes of a field in this kind of output.
MadeColumn ColumnOf(const Field& field, std::int32_t kind) {
  const bool shapefile = kind == kShapefile;
  switch (field.Type) {
    case esriFieldTypeDate:
      return field.Content == DateContent::Time ? MadeColumn::Text : shapefile ? MadeColumn::Day : MadeColumn::AsAsked;
    case esriFieldTypeInteger64:
      return shapefile ? MadeColumn::AsAsked : MadeColumn::Double;
    case esriFieldTypeString:
      return shapefile ? MadeColumn::DbaseText : MadeColumn::AsAsked;
    default:
      return MadeColumn::AsAsked;
  }
}

bool IsCarried(const Field& field, const std::vector<CarriedField>& fields) {
  return std::ranges::any_of(fields, [&](const CarriedField& carried) { return carried.source->Name == field.Name; });
}

// Kinds that some tools or all leave out, by no choice of the user.
bool MayBeLeftOut(const Field& field) {
  switch (field.Type) {
    case esriFieldTypeBlob:
    case esriFieldTypeRaster:
    case esriFieldTypeGUID:
    case esriFieldTypeGlobalID:
    case esriFieldTypeXML:
      return true;
    default:
      return false;
  }
}

// What formats count of the shapes; a new class counts its own.
bool IsStoredMeasure(const Field& field) {
  return EqualsIgnoringCase(field.Name, "Shape_Area") || EqualsIgnoringCase(field.Name, "Shape_Length");
}

// Whoever names some fields knows that the others stay behind.
bool AllOthersAreCarried(const Fields& input, const std::vector<CarriedField>& fields) {
  return !fields.empty() && std::ranges::all_of(input, [&](const FieldRef& field) {
    return !IsAttribute(*field) || MayBeLeftOut(*field) || IsStoredMeasure(*field) || IsCarried(*field, fields);
  });
}

std::string LostNumbers(const Fields& input) {
  for (const FieldRef& field : input) {
    if (field->Type != esriFieldTypeGeometry || !field->GeometryDef) continue;
    const GeometryDef& shape = *field->GeometryDef;
    if (shape.HasZ && shape.HasM) return "heights (Z) and measures (M)";
    if (shape.HasZ) return "heights (Z)";
    if (shape.HasM) return "measures (M)";
  }
  return "";
}

}  // namespace

std::vector<std::string> ForetoldLosses(const IFeatureClass& input, std::string_view layer,
                                        const std::vector<CarriedField>& fields) {
  std::vector<std::string> sentences;
  const std::string of_layer = " of '" + std::string(layer) + "'";
  const FieldsRef all = input.Fields();
  if (const std::string numbers = LostNumbers(*all); !numbers.empty()) {
    sentences.push_back("The " + numbers + " of the shapes" + of_layer + " are left out: the output is flat.");
  }
  for (const CarriedField& carried : fields) {
    if (!HoldsLists(input, all->IndexOf(*carried.source))) continue;
    sentences.push_back("The lists in the field '" + carried.source->Name + "'" + of_layer +
                        " are written as texts of JSON.");
  }
  if (!AllOthersAreCarried(*all, fields)) return sentences;
  for (const FieldRef& field : *all) {
    if (!MayBeLeftOut(*field) || IsCarried(*field, fields)) continue;
    const char* kind = field->Type == esriFieldTypeBlob || field->Type == esriFieldTypeRaster
                           ? "binary values"
                           : "identifiers and XML of a geodatabase";
    sentences.push_back("The field '" + field->Name + "'" + of_layer + " is left out: " + kind +
                        " are not carried over.");
  }
  return sentences;
}

void AnnounceLosses(RunContext& context, const IFeatureClass& input, std::string_view layer,
                    const std::vector<CarriedField>& fields) {
  for (const std::string& sentence : ForetoldLosses(input, layer, fields)) {
    context.feedback.Announce(sentence);
    context.journal.warnings.push_back({sentence, 0, {}});
  }
}

std::vector<std::string> ForetoldChanges(const std::vector<CarriedField>& fields, std::int32_t output_kind) {
  std::vector<std::string> sentences;
  // The classes of all other formats tell of their columns themselves.
  const bool tells_columns = output_kind == kShapefile || output_kind == kFileGeodatabase;
  if (output_kind == kPersonalGeodatabase || output_kind == kUnknownOutput) return sentences;
  for (const auto& [field, name] : fields) {
    if (name != field->Name) sentences.push_back("The field '" + field->Name + "' is written as '" + name + "'.");
    const std::string loss = tells_columns ? ForetoldLoss(*field, ColumnOf(*field, output_kind)) : "";
    if (!loss.empty()) sentences.push_back("In the field '" + name + "', " + loss);
  }
  return sentences;
}

void AnnounceChanges(RunContext& context, const std::vector<CarriedField>& fields, std::int32_t output_kind) {
  for (const std::string& sentence : ForetoldChanges(fields, output_kind)) context.feedback.Announce(sentence);
}

}  // namespace tessarine
