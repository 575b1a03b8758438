// SPDX-License-Identifier: GPL-2.0-or-later
// What is told of a command line that can't be read.
#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace tessarine {

/// The one of the names that takes the fewest letters to change, to add, to leave out or to exchange with their
/// neighbour; empty where none is near: more than a third of the letters would have to change.
[[nodiscard]] std::string NearestName(const std::string& typed, const std::vector<std::string>& names);

/// The sentences for a command line that `program` refused with this error: what is wrong, the nearest known name of a
/// command or option, and how to learn more. `words` are those of the command line, without the program's name.
[[nodiscard]] std::string UsageErrorText(const CLI::App& program, const CLI::ParseError& error,
                                         const std::vector<std::string>& words);

}  // namespace tessarine
