// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/spheroid_options.h"

#include <algorithm>
#include <array>
#include <compare>
#include <numeric>
#include <sstream>

#include "hosts/document/component_loader.h"
#include "hosts/terminal/common_options.h"
#include "hosts/terminal/option_numbers.h"
#include "hosts/terminal/refusal.h"
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

// Nothing for names too far off.
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

[[noreturn]] void RefuseRadii(const std::string& text) {
  throw Refusal("--radii " + text +
                " isn't understood: give the semi-major and the semi-minor axis in metres, both "
                "above 0, as in --radii 6378137,6356752.314.");
}

double Radius(const std::string& field, const std::string& text) {
  const std::optional<double> radius = OptionNumber(field);
  if (!radius || !(*radius > 0.0)) RefuseRadii(text);
  return *radius;
}

ChosenSpheroid FromRadii(const std::string& text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos || text.find(',', comma + 1) != std::string::npos) RefuseRadii(text);
  return {"Custom Spheroid", Radius(text.substr(0, comma), text), Radius(text.substr(comma + 1), text)};
}

// The custom file may hold any numbers, and the dialogs take no others than these.
void CheckAxes(const NamedSpheroid& spheroid) {
  if (spheroid.semi_major_axis > 0.0 && spheroid.semi_minor_axis > 0.0) return;
  throw Refusal("Nothing can be computed on the spheroid '" + spheroid.name + "': its axes are " +
                NumberText(spheroid.semi_major_axis) + " and " + NumberText(spheroid.semi_minor_axis) +
                " metres, and both must be above 0.");
}

ChosenSpheroid FromCatalog(const std::string& text) {
  const std::shared_ptr<ISpheroidCatalog> catalog = SpheroidCatalog();
  const std::string wanted = Essence(text);
  std::vector<NamedSpheroid> seen;
  for (const SpheroidList list : {SpheroidList::Custom, SpheroidList::Planets, SpheroidList::Earth}) {
    for (NamedSpheroid& spheroid : catalog->Spheroids(list)) {
      const bool by_code = spheroid.code != 0 && std::to_string(spheroid.code) == Trim(text);
      if (by_code || (!wanted.empty() && Essence(spheroid.name) == wanted)) {
        CheckAxes(spheroid);
        return {spheroid.name, spheroid.semi_major_axis, spheroid.semi_minor_axis};
      }
      seen.push_back(std::move(spheroid));
    }
  }
  throw Refusal("There is no spheroid '" + text + "'." + NearSpheroidsHint(text, seen));
}

}  // namespace

void AddSpheroidOptions(CLI::App& command, SpheroidOptions& options) {
  CLI::Option* spheroid =
      command
          .add_option("--spheroid", options.spheroid,
                      "Compute on this spheroid instead of the data's own; 'tessarine spheroids' lists them")
          ->type_name("NAME|CODE");
  command
      .add_option("--radii", options.radii,
                  "Compute on a spheroid of these radii in metres: semi-major (equatorial), semi-minor (polar)")
      ->type_name("A,B")
      ->excludes(spheroid);
}

std::optional<ChosenSpheroid> ChooseSpheroid(const SpheroidOptions& options) {
  if (!options.radii.empty()) return FromRadii(options.radii);
  if (options.spheroid.empty()) return std::nullopt;
  try {
    return FromCatalog(options.spheroid);
  } catch (const Fault& fault) {
    throw Refusal(fault.Description());
  }
}

std::shared_ptr<ISpheroidCatalog> SpheroidCatalog() {
  return CreateComponentAs<ISpheroidCatalog>("Tessarine.clsSpheroidCatalog", "ISpheroidCatalog");
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

std::string NearSpheroidsHint(const std::string& text, const std::vector<NamedSpheroid>& spheroids) {
  std::string names;
  for (const std::string& name : NearSpheroidNames(text, spheroids))
    names += (names.empty() ? "'" : ", '") + name + "'";
  return names.empty() ? " 'tessarine spheroids' lists all names and codes." : " Near are " + names + ".";
}

}  // namespace tessarine
