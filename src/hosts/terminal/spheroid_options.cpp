// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/spheroid_options.h"

#include "hosts/document/spheroid_names.h"
#include "hosts/terminal/common_options.h"
#include "hosts/terminal/option_numbers.h"
#include "hosts/terminal/refusal.h"

namespace tessarine {
namespace {

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

ChosenSpheroid FromCatalog(const std::string& text) {
  const std::shared_ptr<ISpheroidCatalog> catalog = SpheroidCatalog();
  std::vector<NamedSpheroid> seen;
  for (const SpheroidList list : kSpheroidLists) {
    for (NamedSpheroid& spheroid : catalog->Spheroids(list)) {
      if (IsCalled(spheroid, text)) {
        if (const std::string why = WhyUnusable(spheroid); !why.empty()) throw Refusal(why);
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

std::string NearSpheroidsHint(const std::string& text, const std::vector<NamedSpheroid>& spheroids) {
  const std::string near = NearSpheroidsText(text, spheroids);
  return near.empty() ? " 'tessarine spheroids' lists all names and codes." : near;
}

}  // namespace tessarine
