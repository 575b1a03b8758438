// SPDX-License-Identifier: GPL-2.0-or-later
// The table of commands.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "platform/application.h"

namespace tessarine {

struct CommandRow {
  const char* class_name;
  const char* name;  ///< without the common prefix
  const char* caption;
  const char* tooltip;
  const char* message;
  std::int32_t bitmap_id;
  std::shared_ptr<ICommand> (*make)(const CommandRow& row);
};

[[nodiscard]] std::span<const CommandRow> AllCommands();

}  // namespace tessarine
