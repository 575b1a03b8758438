// SPDX-License-Identifier: GPL-2.0-or-later
// The makers of the command classes.
#pragma once

#include <memory>

#include "frame/commands/command_table.h"

namespace tessarine {

/// Dialog, run and report of the row's tool. Polygon building tells by its caption that it needs a newer host where it
/// does.
std::shared_ptr<ICommand> MakeToolCommand(const CommandRow& row);

// Direct actions on the graphic elements of the focus map.
std::shared_ptr<ICommand> MakeSelectAllCommand(const CommandRow& row);
std::shared_ptr<ICommand> MakeUnselectAllCommand(const CommandRow& row);
std::shared_ptr<ICommand> MakeFlipSelectionCommand(const CommandRow& row);
std::shared_ptr<ICommand> MakeZoomCommand(const CommandRow& row);

std::shared_ptr<ICommand> MakeAboutCommand(const CommandRow& row);

}  // namespace tessarine
