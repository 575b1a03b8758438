// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/usage_errors.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace tessarine {
namespace {

// Letters to change, add, leave out or exchange with their neighbour (optimal string alignment).
std::size_t Distance(const std::string& from, const std::string& to) {
  std::vector<std::vector<std::size_t>> steps(from.size() + 1, std::vector<std::size_t>(to.size() + 1));
  for (std::size_t row = 0; row <= from.size(); ++row) steps[row][0] = row;
  for (std::size_t column = 0; column <= to.size(); ++column) steps[0][column] = column;
  for (std::size_t row = 1; row <= from.size(); ++row) {
    for (std::size_t column = 1; column <= to.size(); ++column) {
      const std::size_t change = from[row - 1] == to[column - 1] ? 0 : 1;
      steps[row][column] =
          std::min({steps[row - 1][column] + 1, steps[row][column - 1] + 1, steps[row - 1][column - 1] + change});
      const bool exchanged =
          row > 1 && column > 1 && from[row - 1] == to[column - 2] && from[row - 2] == to[column - 1];
      if (exchanged) steps[row][column] = std::min(steps[row][column], steps[row - 2][column - 2] + 1);
    }
  }
  return steps.back().back();
}

std::vector<std::string> CommandNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    if (!command->get_name().empty()) names.push_back(command->get_name());
  }
  return names;
}

std::vector<std::string> OptionNames(const CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  for (const CLI::App* group : app.get_subcommands([](const CLI::App* each) { return each->get_name().empty(); })) {
    for (std::string& name : OptionNames(*group)) names.push_back(std::move(name));
  }
  return names;
}

std::string Suggestion(const std::string& nearest) { return nearest.empty() ? "" : " Did you mean '" + nearest + "'?"; }

// The command that the words lead to, as deep as they are known; `next` is the first word after it.
const CLI::App& CommandOf(const CLI::App& program, const std::vector<std::string>& words, std::size_t& next) {
  const CLI::App* command = &program;
  for (next = 0; next < words.size(); ++next) {
    const std::vector<std::string> names = CommandNames(*command);
    if (std::ranges::find(names, words[next]) == names.end()) break;
    command = command->get_subcommand(words[next]);
  }
  return *command;
}

std::string FullName(const CLI::App& command) {
  const CLI::App* parent = command.get_parent();
  return (parent == nullptr ? "" : FullName(*parent) + " ") + command.get_name();
}

// The first option among the words that the command doesn't know; empty where there is none.
std::string UnknownOption(const CLI::App& command, const std::vector<std::string>& words, std::size_t next) {
  for (; next < words.size() && words[next] != "--"; ++next) {
    const std::string name = words[next].substr(0, words[next].find('='));
    if (name.size() < 2 || name[0] != '-') continue;
    const bool long_name = name[1] == '-';
    const std::string known = long_name ? name : name.substr(0, 2);
    if (command.get_option_no_throw(known) == nullptr) return known;
  }
  return "";
}

}  // namespace

std::string NearestName(const std::string& typed, const std::vector<std::string>& names) {
  std::string nearest;
  // The dashes of an option are no letters of it.
  const std::size_t letters = typed.size() - std::min(typed.size(), typed.find_first_not_of('-'));
  std::size_t least = letters / 3 + 1;
  for (const std::string& name : names) {
    const bool begun = letters >= 2 && name.starts_with(typed);
    const std::size_t distance = begun ? 0 : Distance(typed, name);
    if (distance >= least) continue;
    least = distance;
    nearest = name;
  }
  return nearest;
}

std::string UsageErrorText(const CLI::App& program, const CLI::ParseError& error,
                           const std::vector<std::string>& words) {
  std::size_t next = 0;
  const CLI::App& command = CommandOf(program, words, next);
  const std::string help = " '" + FullName(command) + " --help' tells what there is.";
  const bool at_word = next < words.size() && !words[next].starts_with('-');
  if (!CommandNames(command).empty() && command.get_require_subcommand_min() > 0 && at_word) {
    return "There is no command '" + words[next] + "'." + Suggestion(NearestName(words[next], CommandNames(command))) +
           help;
  }
  if (const std::string option = UnknownOption(command, words, next); !option.empty()) {
    return "There is no option '" + option + "'." + Suggestion(NearestName(option, OptionNames(command))) + help;
  }
  const std::string text = error.what();
  const bool ended = !text.empty() && (text.back() == '.' || text.back() == '?');
  return text + (ended ? "" : ".") + help;
}

}  // namespace tessarine
