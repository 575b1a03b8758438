// SPDX-License-Identifier: GPL-2.0-or-later
// A tool as the suite knows it: its ToolSpec and its run, the row of its command, and its dialog.
//
// Each file of this folder is named after its tool, with "_" for "-" and blanks. label_points.cpp defines
//
//   const Tool& tools::LabelPoints();
//
// and the build makes the list of them all from the names of the files.
#pragma once

#include <memory>
#include <optional>
#include <span>

#include "platform/tool.h"
#include "tools/command_texts.h"

namespace tessarine {

class Tool : public ITool {
 public:
  /// Tools may share a command, whose dialog then asks for all of them: the first one's row is that of the menu.
  [[nodiscard]] virtual const CommandTexts& Command() const = 0;
  /// Shows the dialog. What it was left with; empty where the user gave up, or where the dialog has done the work.
  [[nodiscard]] virtual std::optional<Arguments> Ask(const std::shared_ptr<IApplication>& application) const = 0;
};

/// In the order of the menus.
[[nodiscard]] std::span<const Tool* const> AllTools();

}  // namespace tessarine
