// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/dataset_names.h"

#include <algorithm>
#include <functional>

#include "outputs/formats.h"
#include "platform/fault.h"
#include "platform/free_name.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "support/aml_func_mod.h"
#include "support/attempt.h"

namespace tessarine::MyGeneralOperations {
namespace {

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsNameCharacter(char c) { return IsLetter(c) || (c >= '0' && c <= '9') || c == '_'; }
// The bytes after the first of a character outside ASCII; one "_" stands for the whole character.
bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

std::string CleanName(const std::string& text, const std::function<bool(char)>& allowed) {
  std::string clean;
  for (const char c : text) {
    if (!IsContinuation(c)) clean += allowed(c) ? c : '_';
  }
  return clean;
}

std::string FirstCharacters(const std::string& text, std::size_t count) {
  std::size_t end = 0;
  for (; end < text.size() && count > 0; --count) {
    ++end;
    while (end < text.size() && IsContinuation(text[end])) ++end;
  }
  return text.substr(0, end);
}

std::vector<std::string> NamesIn(const ObjectRef& existing) {
  std::vector<std::string> names;
  if (const auto fields = Cast<Fields>(existing)) {
    for (const FieldRef& field : *fields) names.push_back(field->Name);
  } else if (const auto list = Cast<VarArray>(existing)) {
    for (const Variant& element : *list) {
      if (const auto field = element.AsObject<Field>()) {
        names.push_back(field->Name);
      } else if (element.kind() == Variant::Kind::String) {
        names.push_back(element.Text());
      }
    }
  } else if (const auto texts = Cast<StrArray>(existing)) {
    names.assign(texts->begin(), texts->end());
  }
  return names;
}

}  // namespace

bool CheckIfFeatureClassExists(const std::shared_ptr<IFeatureWorkspace>& workspace, const std::string& name) {
  if (Attempt([&] { return workspace->OpenFeatureClass(name); })) return true;
  return Attempt([&] { return workspace->OpenTable(name); }) != nullptr;
}

std::string MakeUniqueGDBFeatureClassName(const std::shared_ptr<IFeatureWorkspace>& workspace,
                                          const std::string& name) {
  return TrapHelper("MakeUniqueGDBFeatureClassName", [&] {
    return FirstFree(name,
                     [&](const std::string& candidate) { return CheckIfFeatureClassExists(workspace, candidate); });
  });
}

std::string MakeUniqueShapeFilename(const std::string& path) { return aml_func_mod::MakeUniqueFilename(path); }

std::string ReplaceBadChars(const std::string& text, bool replace_dot, bool replace_backslash, bool replace_blank,
                            bool prefix_first_letter) {
  return TrapHelper("ReplaceBadChars", [&]() -> std::string {
    if (text.empty()) return "z";
    std::string clean = CleanName(text, [&](char c) {
      return IsNameCharacter(c) || (c == '.' && !replace_dot) || (c == '\\' && !replace_backslash) ||
             (c == ' ' && !replace_blank);
    });
    if (prefix_first_letter && !IsLetter(clean.front())) clean.insert(0, 1, 'z');
    return clean;
  });
}

std::string ReturnDBASEFieldName(const std::string& name, const ObjectRef& existing_fields) {
  return TrapHelper("ReturnDBASEFieldName", [&] {
    std::string legal = FirstCharacters(name.empty() ? "zField" : name, kDbaseNameLength);
    if (!IsLetter(legal.front())) legal = FirstCharacters("z" + legal, kDbaseNameLength);
    legal = CleanName(legal, IsNameCharacter);
    const std::vector<std::string> existing = NamesIn(existing_fields);
    const auto taken = [&](const std::string& candidate) {
      return std::ranges::any_of(existing,
                                 [&](const std::string& other) { return EqualsIgnoringCase(other, candidate); });
    };
    return FirstFreeWithin(kDbaseNameLength, legal, taken);
  });
}

std::string ConvertLongBinary(std::int32_t value, std::int32_t width) {
  return TrapHelper("ConvertLongBinary", [&] {
    if (value < 1) Raise(kInvalidCall, "Only values of at least 1 have such digits.");
    std::string digits;
    for (; value != 1; value /= 2) digits.insert(0, std::to_string(value % 2));
    digits.insert(0, "1");
    if (static_cast<std::int32_t>(digits.size()) < width) {
      digits.insert(0, static_cast<std::size_t>(width) - digits.size(), '0');
    }
    return digits;
  });
}

bool CheckDatafileFormat(const IDataset& dataset) {
  return TrapHelper("CheckDatafileFormat", [&] {
    if (LowerCase(dataset.Category()).find("file geodatabase") == std::string::npos) return false;
    // A feature dataset has no properties of its own.
    const std::shared_ptr<IPropertySet> properties = dataset.PropertySet();
    if (!properties) return false;
    const Variant format = properties->GetProperty("Datafile Format");
    return format.IsNumeric() && format.AsLong() == 1;
  });
}

}  // namespace tessarine::MyGeneralOperations
