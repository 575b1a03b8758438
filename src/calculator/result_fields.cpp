// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/result_fields.h"

#include <algorithm>

#include "outputs/formats.h"
#include "platform/free_name.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr std::int32_t kPrecision = 16;
constexpr std::int32_t kScale = 12;
// Of a number with 15 digits: its sign, its point, and an exponent.
constexpr std::int32_t kLongestNumber = 22;

// The last characters of a UTF-8 text.
std::string LastCharacters(const std::string& text, std::size_t count) {
  std::size_t at = text.size();
  while (at > 0 && count > 0) {
    --at;
    if ((static_cast<unsigned char>(text[at]) & 0xC0U) != 0x80U) --count;
  }
  return text.substr(at);
}

void ReplaceName(std::vector<OptionEntry>& entries, const std::string& name, const std::string& substitute) {
  for (OptionEntry& entry : entries) {
    if (entry.FirstField() == name) entry.SetFirstField(substitute);
    if (entry.SecondField() == name) entry.SetSecondField(substitute);
  }
}

}  // namespace

std::string FreeFieldName(const IFeatureClass& features, const std::string& name, std::int32_t& counter) {
  const auto numbered = [&](int) { return LastCharacters(name + std::to_string(++counter), kDbaseNameLength); };
  return FirstFree(name, numbered, [&](const std::string& candidate) { return features.FindField(candidate) != -1; });
}

FieldRef NewResultField(const std::string& name) {
  auto field = std::make_shared<Field>();
  field->Name = name;
  field->Type = esriFieldTypeDouble;
  field->Precision = kPrecision;
  field->Scale = kScale;
  return field;
}

bool KeepsLess(const Field& field) {
  switch (field.Type) {
    case esriFieldTypeSmallInteger:
    case esriFieldTypeInteger:
    case esriFieldTypeInteger64:
    case esriFieldTypeSingle:
      return true;
    case esriFieldTypeDouble:
      return field.Precision > 0 && field.Scale < kScale;
    case esriFieldTypeString:
      return field.Length > 0 && field.Length < kLongestNumber;
    default:
      return false;
  }
}

std::string RoundingOf(const Field& field) {
  if (!KeepsLess(field)) return "";
  switch (field.Type) {
    case esriFieldTypeSingle:
      return "numbers are rounded to about 7 digits.";
    case esriFieldTypeString:
      return "numbers keep the decimals that " + std::to_string(field.Length) + " characters have room for.";
    case esriFieldTypeDouble:
      if (field.Scale == 1) return "numbers are rounded to 1 decimal.";
      return "numbers are rounded to " + std::to_string(field.Scale) + " decimals.";
    default:
      return "numbers are rounded to whole ones.";
  }
}

std::optional<FieldFailure> MakeMissingFields(IFeatureClass& features, const std::vector<std::string>& names) {
  std::vector<FieldRef> missing;
  for (const std::string& name : names) {
    const auto same = [&](const FieldRef& field) { return EqualsIgnoringCase(field->Name, name); };
    if (features.FindField(name) < 0 && std::ranges::none_of(missing, same)) missing.push_back(NewResultField(name));
  }
  std::string cause = "The format of the data doesn't keep a field under this name.";
  try {
    if (!missing.empty()) features.AddFields(missing);
  } catch (const Fault& fault) {
    cause = fault.Description();
  }
  for (const std::string& name : names) {
    if (features.FindField(name) < 0) return FieldFailure{name, cause};
  }
  return std::nullopt;
}

FieldIndexes CheckFields(RunContext& context, IFeatureClass& features, const std::vector<std::string>& names,
                         std::vector<OptionEntry>& entries) {
  struct Substitution {
    std::string name, substitute;
  };
  FieldIndexes indexes;
  std::vector<Substitution> substitutions;
  std::int32_t counter = 1;
  for (const std::string& name : names) {
    std::string current = name;
    if (!features.Fields()->Field(features.FindField(name))->Editable) {
      current = FreeFieldName(features, name, counter);
      features.AddField(NewResultField(current));
      context.feedback.Tell(
          "The field named '" + name + "' was not editable!  Substituting the name '" + current + "'...",
          "Problem with Field Name '" + name + "':");
      substitutions.push_back({name, current});
    }
    indexes.Add(current, features.FindField(name));
  }
  for (const Substitution& pair : substitutions) ReplaceName(entries, pair.name, pair.substitute);
  return indexes;
}

}  // namespace tessarine
