// SPDX-License-Identifier: GPL-2.0-or-later
// The formats of outputs, and what each keeps.
#include <fmt/core.h>

#include <CLI/CLI.hpp>

#include "engine/format_abilities.h"
#include "hosts/terminal/commands.h"

namespace tessarine {
namespace {

constexpr std::size_t kUnlimited = 1000;

std::string Endings(const Format& format) {
  if (format.server) return "PG:...";
  std::string text(format.ending);
  for (const std::string_view ending : format.other_endings) text += ", " + std::string(ending);
  return text;
}

std::string NameLength(const NameRule& rule) {
  if (rule.longest >= kUnlimited) return "any";
  return std::to_string(rule.longest) + (rule.bytes ? " bytes" : "");
}

std::string Times(const ColumnAbilities& keeps) {
  std::string text;
  const auto add = [&](bool kept, const char* word) {
    if (kept) text += (text.empty() ? "" : ", ") + std::string(word);
  };
  add(keeps.days, "days");
  add(keeps.moments, "with time");
  add(keeps.times_of_day, "times alone");
  return text.empty() ? "as texts" : text;
}

const char* NullWord(Nulls nulls) {
  switch (nulls) {
    case Nulls::All:
      return "yes";
    case Nulls::NotTexts:
      return "not in texts";
    case Nulls::InDates:
      return "in dates alone";
    case Nulls::AsEmpty:
      return "as empty texts";
  }
  return "";
}

const char* YesOrNo(bool yes) { return yes ? "yes" : "no"; }

void PrintFormat(const Format& format) {
  const ColumnAbilities keeps = AbilitiesOf(format);
  fmt::print("{:<27}{:<34}{:<11}{:<7}{:<31}{:<15}{:<7}{:<9}{}\n", format.name, Endings(format),
             NameLength(format.field_names), YesOrNo(keeps.wide_numbers), Times(keeps), NullWord(format.nulls),
             YesOrNo(format.container), YesOrNo(format.rows_in_place), YesOrNo(format.stamp != StampPlace::None));
}

ExitStatus PrintFormats() {
  fmt::print("{:<27}{:<34}{:<11}{:<7}{:<31}{:<15}{:<7}{:<9}{}\n", "Format", "Endings", "Names", "64 bit", "Dates",
             "Null", "Layers", "In place", "Stamp");
  for (const Format& format : AllFormats()) {
    if (format.writable && CanWrite(format)) PrintFormat(format);
  }
  fmt::print(
      "\nNames: the longest name of a field. 64 bit: whole numbers beyond 2,147,483,647. Layers: one file, folder or\n"
      "database holds several. In place: 'calculate' without -o can write into it. Stamp: a layer takes what --stamp "
      "tells\n"
      "of it. --format takes a name of the table, a driver or an ending.\n\nThis machine's GDAL also writes these; "
      "what they keep is found out at each run, and "
      "--dry-run tells:\n");
  for (const OtherWriter& other : OtherWriters()) {
    fmt::print("  {:<16}{:<24}{}\n", other.driver, other.endings, other.description);
  }
  return ExitStatus::Done;
}

}  // namespace

void AddFormatsCommand(CLI::App& program, ChosenCommand& chosen) {
  CLI::App& command = *program.add_subcommand("formats", "List the formats of outputs, and what each keeps");
  command.footer("Example:\n  tessarine formats");
  command.callback([&chosen] { chosen.run = PrintFormats; });
}

}  // namespace tessarine
