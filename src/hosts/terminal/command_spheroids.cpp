// SPDX-License-Identifier: GPL-2.0-or-later
// The catalogue of spheroids: custom ones, planets and moons, Earth.
#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <array>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "hosts/document/map_document.h"
#include "hosts/document/spheroid_names.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/spheroid_options.h"
#include "hosts/terminal/terminal_host.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

struct SpheroidsOptions {
  bool earth = false, planets = false, custom = false;
  std::string find;
  std::string file;
  bool json = false;
};

struct ListTitle {
  SpheroidList list;
  const char* word;
  const char* title;
};
constexpr std::array kLists = {
    ListTitle{SpheroidList::Custom, "custom", "Custom spheroids"},
    ListTitle{SpheroidList::Planets, "planets", "Planets and moons"},
    ListTitle{SpheroidList::Earth, "earth", "Earth"},
};

struct ShownList {
  const ListTitle* title;
  std::vector<NamedSpheroid> spheroids;
};

bool Wanted(const SpheroidsOptions& options, SpheroidList list) {
  if (!options.earth && !options.planets && !options.custom) return true;
  switch (list) {
    case SpheroidList::Custom:
      return options.custom;
    case SpheroidList::Planets:
      return options.planets;
    default:
      return options.earth;
  }
}

std::vector<NamedSpheroid> TakeList(const ISpheroidCatalog& catalog, const SpheroidsOptions& options,
                                    SpheroidList list) {
  if (list != SpheroidList::Custom) return catalog.Spheroids(list);
  if (!options.file.empty()) return catalog.ReadCustomFile(FromNativePath(options.file));
  std::vector<NamedSpheroid> spheroids = catalog.Spheroids(list);
  if (spheroids.empty() && options.custom) {
    throw Refusal("There are no custom spheroids: the file '" + ToNativePath(catalog.CustomFile()) +
                  "' doesn't exist. Name another one with --file.");
  }
  return spheroids;
}

bool Matches(const NamedSpheroid& spheroid, const std::string& text) {
  return LowerCase(spheroid.name).find(LowerCase(text)) != std::string::npos ||
         (spheroid.code != 0 && std::to_string(spheroid.code) == text);
}

std::vector<ShownList> TakeLists(const SpheroidsOptions& options) {
  const std::shared_ptr<ISpheroidCatalog> catalog = SpheroidCatalog();
  std::vector<ShownList> lists;
  std::vector<NamedSpheroid> seen;
  bool found = false;
  for (const ListTitle& title : kLists) {
    if (!Wanted(options, title.list)) continue;
    std::vector<NamedSpheroid> spheroids = TakeList(*catalog, options, title.list);
    seen.insert(seen.end(), spheroids.begin(), spheroids.end());
    std::erase_if(spheroids, [&](const NamedSpheroid& spheroid) { return !Matches(spheroid, options.find); });
    found = found || !spheroids.empty();
    lists.push_back({&title, std::move(spheroids)});
  }
  if (!found) {
    throw Refusal("No spheroid's name holds '" + options.find + "'." + NearSpheroidsHint(options.find, seen));
  }
  return lists;
}

// Empty for axes that make no spheroid, as a custom file may hold them.
std::optional<double> Flattening(const NamedSpheroid& spheroid) {
  if (!(spheroid.semi_major_axis > 0.0 && spheroid.semi_minor_axis > 0.0)) return std::nullopt;
  return (spheroid.semi_major_axis - spheroid.semi_minor_axis) / spheroid.semi_major_axis;
}

std::string FlatteningText(const NamedSpheroid& spheroid) {
  const std::optional<double> flattening = Flattening(spheroid);
  if (!flattening) return "none";
  if (*flattening == 0.0) return "0";
  // More places would show the rounding of the semi-minor axis.
  std::string text = FixedText(1.0 / *flattening, 9);
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  return "1/" + text;
}

void PrintTable(const std::vector<ShownList>& lists) {
  std::size_t width = 4;
  for (const ShownList& list : lists) {
    for (const NamedSpheroid& spheroid : list.spheroids) width = std::max(width, spheroid.name.size());
  }
  bool first = true;
  for (const ShownList& list : lists) {
    if (list.spheroids.empty()) continue;
    fmt::print("{}{}\n{:>8}  {:<{}}  {:>18}  {:>18}  {}\n", first ? "" : "\n", list.title->title, "Code", "Name", width,
               "Semi-major axis, m", "Semi-minor axis, m", "Flattening");
    for (const NamedSpheroid& spheroid : list.spheroids) {
      fmt::print("{:>8}  {:<{}}  {:>18}  {:>18}  {}\n", spheroid.code == 0 ? "" : std::to_string(spheroid.code),
                 spheroid.name, width, NumberText(spheroid.semi_major_axis), NumberText(spheroid.semi_minor_axis),
                 FlatteningText(spheroid));
    }
    first = false;
  }
}

nlohmann::ordered_json JsonOf(const NamedSpheroid& spheroid, const char* list) {
  const std::optional<double> flattening = Flattening(spheroid);
  nlohmann::ordered_json json;
  json["list"] = list;
  if (spheroid.code != 0) json["code"] = spheroid.code;
  json["name"] = spheroid.name;
  json["semi_major_axis"] = spheroid.semi_major_axis;
  json["semi_minor_axis"] = spheroid.semi_minor_axis;
  json["flattening"] = flattening ? nlohmann::ordered_json(*flattening) : nlohmann::ordered_json(nullptr);
  return json;
}

void PrintJson(const std::vector<ShownList>& lists) {
  auto all = nlohmann::ordered_json::array();
  for (const ShownList& list : lists) {
    for (const NamedSpheroid& spheroid : list.spheroids) all.push_back(JsonOf(spheroid, list.title->word));
  }
  fmt::print("{}\n", all.dump(2));
}

ExitStatus RunSpheroids(const SpheroidsOptions& options) {
  const TerminalHost host({}, MapDocument().host_version);
  std::vector<ShownList> lists;
  try {
    lists = TakeLists(options);
  } catch (const Fault& fault) {
    throw Refusal(fault.Description());
  }
  if (options.json) {
    PrintJson(lists);
  } else {
    PrintTable(lists);
  }
  return ExitStatus::Done;
}

}  // namespace

void AddSpheroidsCommand(CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<SpheroidsOptions>();
  CLI::App& command =
      *program.add_subcommand("spheroids", "List the named spheroids with their codes, axes in metres and flattening");
  command.add_flag("--earth", options->earth, "List those of Earth");
  command.add_flag("--planets", options->planets, "List those of planets and moons");
  command.add_flag("--custom", options->custom, "List those of the custom file");
  command.add_option("--find", options->find, "Only names that hold this text, or this code")->type_name("TEXT");
  command
      .add_option("--file", options->file,
                  "Take the custom spheroids from this file instead of spheroids.dat beside the program; each line: "
                  "name, semi-major axis, semi-minor axis, remark")
      ->type_name("FILE");
  command.add_flag("--json", options->json, "Print JSON");
  command.footer("Example:\n  tessarine spheroids --planets --find mars");
  command.callback([&chosen, options] { chosen.run = [options] { return RunSpheroids(*options); }; });
}

}  // namespace tessarine
