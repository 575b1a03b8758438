// SPDX-License-Identifier: GPL-2.0-or-later
// The table of commands: one for each tool, and those that are no tools.
#pragma once

#include <memory>
#include <span>

#include "platform/application.h"
#include "tools/tool.h"

namespace tessarine {

struct CommandRow {
  CommandTexts texts;
  std::shared_ptr<ICommand> (*make)(const CommandRow& row);
  const Tool* tool = nullptr;  ///< that the command runs; null for commands that are none
};

/// In the order of the menus.
[[nodiscard]] std::span<const CommandRow> AllCommands();

}  // namespace tessarine
