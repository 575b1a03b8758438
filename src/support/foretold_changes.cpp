#include "support/foretold_changes.h"

#include <algorithm>

#include "platform/host.h"
#include "platform/text_formats.h"
#include "support/output_kinds.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

constexpr std::int32_t kLongestDbaseText = 254;

// What the column of a field loses in this kind of output; empty for nothing.
std::string ForetoldLoss(const Field& field, std::int32_t kind) {
  const bool shapefile = kind == kShapefile;
  if (field.Type == esriFieldTypeDate && field.Content == DateContent::Time) return "times of day become texts.";
  if (field.Type == esriFieldTypeDate && field.Content == DateContent::DayAndTime && shapefile) {
    return "times of day are left out, a dBASE table keeps days only.";
  }
  if (field.Type == esriFieldTypeInteger64 && kind == kFileGeodatabase) {
    return "whole numbers beyond 9,007,199,254,740,992 that no double holds exactly become null.";
  }
  if (field.Type == esriFieldTypeString && shapefile && field.Length > kLongestDbaseText) {
    return "texts longer than 254 bytes are cut.";
  }
  return "";
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

void AnnounceLosses(const IFeatureClass& input, std::string_view layer, const std::vector<CarriedField>& fields,
                    RunJournal& journal) {
  for (const std::string& sentence : ForetoldLosses(input, layer, fields)) {
    Host().Announce(sentence);
    journal.warnings.push_back({sentence, 0, {}});
  }
}

std::vector<std::string> ForetoldChanges(const std::vector<CarriedField>& fields, std::int32_t output_kind) {
  std::vector<std::string> sentences;
  if (output_kind != kShapefile && output_kind != kFileGeodatabase) return sentences;
  for (const auto& [field, name] : fields) {
    if (name != field->Name) sentences.push_back("The field '" + field->Name + "' is written as '" + name + "'.");
    const std::string loss = ForetoldLoss(*field, output_kind);
    if (!loss.empty()) sentences.push_back("In the field '" + name + "', " + loss);
  }
  return sentences;
}

void AnnounceChanges(const std::vector<CarriedField>& fields, std::int32_t output_kind) {
  for (const std::string& sentence : ForetoldChanges(fields, output_kind)) Host().Announce(sentence);
}

}  // namespace tessarine
