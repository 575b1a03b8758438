// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/field_name_rules.h"

#include "outputs/formats.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view kNameCharacters = "abcdefghijklmnopqrstuvwxyz1234567890_";

struct LengthRule {
  std::string_view type;
  std::size_t longest;
};
constexpr LengthRule kLengthRules[] = {
    {"shapefile", kDbaseNameLength},
    {"arc feature class", 16},
    {"point feature class", 16},
    {"polygon feature class", 16},
};

const LengthRule* FindRule(std::string_view data_source_type) {
  const std::string type = LowerCase(data_source_type);
  for (const LengthRule& rule : kLengthRules) {
    if (type.find(rule.type) != std::string::npos) return &rule;
  }
  return nullptr;
}

std::vector<std::string> CharactersOf(const std::string& text) {
  std::vector<std::string> characters;
  for (const char c : text) {
    const bool continues = (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
    if (continues && !characters.empty()) {
      characters.back() += c;
    } else {
      characters.emplace_back(1, c);
    }
  }
  return characters;
}

bool IsOneOf(const std::string& character, std::string_view allowed) {
  return character.size() == 1 && allowed.find(LowerCase(character)) != std::string_view::npos;
}

std::string ProblemsOf(const NamedField& field, std::size_t longest) {
  const std::vector<std::string> characters = CharactersOf(field.name);
  std::string lines;
  if (characters.size() > longest) {
    lines += FieldLine(field) + "  (> " + std::to_string(longest) + " characters)\r\n";
  }
  if (!IsOneOf(characters.front(), kLetters)) {
    lines += FieldLine(field) + "  (Begins with invalid character '" + characters.front() + "')\r\n";
  }
  for (const std::string& character : characters) {
    if (IsOneOf(character, kNameCharacters)) continue;
    lines += FieldLine(field) + "  (Contains invalid character '" + character + "')\r\n";
  }
  return lines;
}

}  // namespace

std::string FieldLine(const NamedField& field) {
  return "  --> Option '" + field.caption + "',  Field Name = " + field.name;
}

std::string FieldNameProblems(std::string_view data_source_type, const std::vector<NamedField>& fields) {
  const LengthRule* rule = FindRule(data_source_type);
  if (rule == nullptr) return "";
  std::string lines;
  for (const NamedField& field : fields) {
    if (!field.name.empty()) lines += ProblemsOf(field, rule->longest);
  }
  return lines;
}

}  // namespace tessarine
