#include "support/foretold_changes.h"

#include "platform/host.h"
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

}  // namespace

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
