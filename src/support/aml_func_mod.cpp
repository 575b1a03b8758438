// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/aml_func_mod.h"

#include <algorithm>
#include <array>

#include "platform/at_hand.h"
#include "platform/free_name.h"
#include "platform/host.h"
#include "platform/text_formats.h"
#include "platform/trap.h"

namespace tessarine::aml_func_mod {
namespace {

std::vector<std::string> Parts(const std::string& text, char delimiter) {
  std::vector<std::string> parts;
  ParseString(text, parts, delimiter);
  return parts;
}

std::string Joined(const std::vector<std::string>& parts, std::size_t count, const char* glue) {
  std::string text;
  for (std::size_t index = 0; index < count; ++index) text += (index == 0 ? "" : glue) + parts[index];
  return text;
}

// What a shapefile or dBASE table can't be without: a lone one of them is somebody's data.
constexpr std::array kParts = {".shp", ".dbf", ".shx", ".SHP", ".DBF", ".SHX"};

// A shapefile and a dBASE table of the same name are one.
bool IsTaken(const std::string& path) {
  if (ExistFileDir(path)) return true;
  if (!EndsWithIgnoringCase(path, ".shp") && !EndsWithIgnoringCase(path, ".dbf")) return false;
  const std::string base = path.substr(0, path.size() - 4);
  return std::ranges::any_of(kParts, [&](const char* ending) { return ExistFileDir(base + ending); });
}

}  // namespace

void ParseString(const std::string& text, std::vector<std::string>& parts, char delimiter) {
  TrapHelper("ParseString", [&] {
    if (Trim(Subst(text, std::string(1, delimiter))).empty()) return;
    parts.assign(1, "");
    std::string part;
    std::optional<std::size_t> open_quote;  // where the pair began within the part
    const auto finish = [&] {
      parts.back() = Trim(part);
      part.clear();
      open_quote.reset();
    };
    for (const char c : text) {
      if (c == '"' && open_quote) {
        part.erase(*open_quote, 1);
        open_quote.reset();
      } else if (c == '"') {
        open_quote = part.size();
        part += c;
      } else if (c == delimiter && !open_quote) {
        finish();
        parts.emplace_back();
      } else {
        part += c;
      }
    }
    finish();
    for (std::string& element : parts) {
      if (!element.empty() && element.back() == delimiter) {
        element.pop_back();
        element = Trim(element);
      }
    }
  });
}

std::string Subst(const std::string& text, const std::string& find, const std::optional<std::string>& replacement) {
  return TrapHelper("Subst", [&]() -> std::string {
    if (find.empty()) return text;
    if (!replacement) {
      std::string rest = text, result;
      while (rest.find(find) != std::string::npos) {
        result += Before(rest, find);
        rest = After(rest, find);
      }
      return result + rest;
    }
    std::string result = text;
    std::size_t from = 0;
    for (std::size_t at = result.find(find); at != std::string::npos; at = result.find(find, from)) {
      // Overwriting never lengthens the text.
      const std::size_t count = std::min(replacement->size(), result.size() - at);
      result.replace(at, count, *replacement, 0, count);
      from = at + std::max<std::size_t>(1, count);
      if (from > result.size()) break;
    }
    return result;
  });
}

std::string Before(const std::string& text, const std::string& marker) {
  return TrapHelper("Before", [&] {
    const std::size_t at = text.find(marker);
    return at == std::string::npos ? std::string() : text.substr(0, at);
  });
}

std::string After(const std::string& text, const std::string& marker) {
  return TrapHelper("After", [&] {
    const std::size_t at = text.find(marker);
    return at == std::string::npos ? std::string() : text.substr(at + marker.size());
  });
}

std::string BasicTrimAvenue(const std::string& text, const std::string& left_set, const std::string& right_set) {
  return TrapHelper("BasicTrimAvenue", [&] {
    std::string rest = text;
    while (!rest.empty() && right_set.find(rest.back()) != std::string::npos) rest.pop_back();
    while (!rest.empty() && left_set.find(rest.front()) != std::string::npos) rest.erase(0, 1);
    return rest;
  });
}

std::string InsertCommas(const Variant& value) {
  return TrapHelper("InsertCommas", [&] {
    const std::string text = value.AsText();
    const std::size_t point = text.find('.');
    const std::string whole = text.substr(0, point);
    const std::string rest = point == std::string::npos ? "" : text.substr(point);
    if (whole.size() < 4) return whole + rest;
    std::string grouped;
    for (std::size_t index = 0; index < whole.size(); ++index) {
      if (index > 0 && (whole.size() - index) % 3 == 0) grouped += ',';
      grouped += whole[index];
    }
    return BasicTrimAvenue(grouped, ",", ",") + rest;
  });
}

bool FieldIsNumeric(const Field& field) {
  return field.Type == esriFieldTypeSmallInteger || field.Type == esriFieldTypeInteger ||
         field.Type == esriFieldTypeInteger64 || field.Type == esriFieldTypeSingle || field.Type == esriFieldTypeDouble;
}

std::string ClipExtension(const std::string& path) {
  return TrapHelper("ClipExtension", [&]() -> std::string {
    const std::vector<std::string> parts = Parts(path, '.');
    if (parts.empty()) return "";
    return parts.size() == 1 ? parts.front() : Joined(parts, parts.size() - 1, ".");
  });
}

std::string SetExtension(const std::string& path, const std::string& extension) {
  return TrapHelper("SetExtension", [&] { return ClipExtension(path) + "." + extension; });
}

std::string ReturnDir(const std::string& path) {
  return TrapHelper("ReturnDir", [&]() -> std::string {
    const std::vector<std::string> parts = Parts(path, '\\');
    if (parts.empty()) return "\\";
    return Joined(parts, std::max<std::size_t>(1, parts.size() - 1), "\\") + "\\";
  });
}

std::string ReturnFilename(const std::string& path) {
  return TrapHelper("ReturnFilename", [&]() -> std::string {
    const std::vector<std::string> parts = Parts(path, '\\');
    return parts.empty() ? "" : parts.back();
  });
}

std::string GetFullFileString(const std::string& path) {
  try {
    const std::string full = SystemAtHand().LongPathName(path);
    return full.empty() ? path : full;
  } catch (const Fault&) {
    return path;
  }
}

bool FileExists(const std::string& path) {
  return TrapHelper("FileExists", [&] { return SystemAtHand().IsFile(path); });
}

bool ExistFileDir(const std::string& path) {
  try {
    return SystemAtHand().Exists(path);
  } catch (const Fault&) {
    return false;
  }
}

std::string MakeUniqueFilename(const std::string& path) {
  return TrapHelper("MakeUniqueFilename", [&]() -> std::string {
    std::string base = path, extension;
    const std::size_t point = path.rfind('.');
    if (point != std::string::npos && point + 5 >= path.size()) {
      base = path.substr(0, point);
      extension = path.substr(point);
    }
    const auto numbered = [&](int number) { return base + "_" + std::to_string(number) + extension; };
    return FirstFree(path, numbered, IsTaken);
  });
}

std::string GetMxDocPath(const std::shared_ptr<IApplication>& application) {
  return TrapHelper("GetMxDocPath", [&] {
    const std::shared_ptr<ITemplates> templates = Require(application, "application")->Templates();
    return templates->Item(templates->Count() - 1);
  });
}

}  // namespace tessarine::aml_func_mod
