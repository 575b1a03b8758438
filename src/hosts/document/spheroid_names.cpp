// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/spheroid_names.h"

#include <algorithm>
#include <compare>
#include <numeric>
#include <optional>
#include <sstream>

#include "hosts/document/component_loader.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr std::size_t kMostNearNames = 5;

// Letters and digits alone, in small letters: "Mars - Phobos" and "mars phobos" become the same.
std::string Essence(const std::string& name) {
  std::string essence = LowerCase(name);
  std::erase_if(essence, [](char c) { return c == ' ' || c == '-' || c == '_'; });
  return essence;
}

// EPSG registers codes up to 32767; those of ESRI lie above.
constexpr std::int32_t kLastOfEpsg = 32767;

// Whether the text is the code, alone or after the authority that registers it.
bool IsCodeOf(const NamedSpheroid& spheroid, const std::string& text) {
  if (spheroid.code == 0) return false;
  const std::string_view authority = spheroid.code <= kLastOfEpsg ? "epsg:" : "esri:";
  const bool has_authority = LowerCase(text).starts_with(authority);
  return Trim(has_authority ? text.substr(authority.size()) : text) == std::to_string(spheroid.code);
}

// How many letters to insert, drop or change to make one text the other.
std::size_t EditDistance(const std::string& first, const std::string& second) {
  std::vector<std::size_t> row(second.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= first.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= second.size(); ++j) {
      const std::size_t changed = diagonal + (first[i - 1] == second[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
    }
  }
  return row.back();
}

struct Remoteness {
  std::size_t nearest = 0;  // letters to the name or to one of its words, 0 for a name that holds the text
  std::size_t whole = 0;    // letters to the whole name

  auto operator<=>(const Remoteness&) const = default;
};

// Empty for names too far off.
std::optional<Remoteness> RemotenessOf(const std::string& text, const std::string& name) {
  const std::string essence = Essence(name);
  if (text.empty() || essence.empty()) return std::nullopt;
  const std::size_t whole = EditDistance(text, essence);
  if (essence.find(text) != std::string::npos || text.find(essence) != std::string::npos) return Remoteness{0, whole};
  std::size_t nearest = whole;
  std::istringstream words(LowerCase(name));
  for (std::string word; words >> word;) nearest = std::min(nearest, EditDistance(text, word));
  const std::size_t limit = std::clamp<std::size_t>(text.size() / 2, 1, 3);
  return nearest <= limit ? std::optional(Remoteness{nearest, whole}) : std::nullopt;
}

}  // namespace

std::shared_ptr<ISpheroidCatalog> SpheroidCatalog() {
  return CreateComponentAs<ISpheroidCatalog>("Tessarine.clsSpheroidCatalog", "ISpheroidCatalog");
}

bool IsCalled(const NamedSpheroid& spheroid, std::string_view text) {
  const std::string trimmed = Trim(text);
  if (IsCodeOf(spheroid, trimmed)) return true;
  const std::string wanted = Essence(trimmed);
  return !wanted.empty() && Essence(spheroid.name) == wanted;
}

std::string CodeText(const NamedSpheroid& spheroid) {
  if (spheroid.code == 0) return "";
  return (spheroid.code <= kLastOfEpsg ? "EPSG:" : "ESRI:") + std::to_string(spheroid.code);
}

std::string WhyUnusable(const NamedSpheroid& spheroid) {
  if (spheroid.semi_major_axis > 0.0 && spheroid.semi_minor_axis > 0.0) return "";
  return "Nothing can be computed on the spheroid '" + spheroid.name + "': its axes are " +
         NumberText(spheroid.semi_major_axis) + " and " + NumberText(spheroid.semi_minor_axis) +
         " metres, and both must be above 0.";
}

std::vector<std::string> NearSpheroidNames(const std::string& text, const std::vector<NamedSpheroid>& spheroids) {
  struct Near {
    Remoteness remoteness;
    const std::string* name;
  };
  const std::string wanted = Essence(text);
  std::vector<Near> near;
  for (const NamedSpheroid& spheroid : spheroids) {
    const std::optional<Remoteness> remoteness = RemotenessOf(wanted, spheroid.name);
    if (remoteness) near.push_back({*remoteness, &spheroid.name});
  }
  std::ranges::stable_sort(near, {}, &Near::remoteness);
  std::vector<std::string> names;
  for (const Near& one : near) {
    if (names.size() < kMostNearNames) names.push_back(*one.name);
  }
  return names;
}

std::string NearSpheroidsText(const std::string& text, const std::vector<NamedSpheroid>& spheroids) {
  std::string names;
  for (const std::string& name : NearSpheroidNames(text, spheroids)) {
    names += (names.empty() ? "'" : ", '") + name + "'";
  }
  return names.empty() ? "" : " Near are " + names + ".";
}

}  // namespace tessarine
