// SPDX-License-Identifier: GPL-2.0-or-later
// The makers of the command classes.
#pragma once

#include <memory>

#include "frame/commands/command_table.h"

namespace tessarine {

/// The conversion of this option: dialog, worker, report.
template <std::int32_t Option>
std::shared_ptr<ICommand> MakeConversionCommand(const CommandRow& row);

// Direct actions on the graphic elements of the focus map.
std::shared_ptr<ICommand> MakeSelectAllCommand(const CommandRow& row);
std::shared_ptr<ICommand> MakeUnselectAllCommand(const CommandRow& row);
std::shared_ptr<ICommand> MakeFlipSelectionCommand(const CommandRow& row);
std::shared_ptr<ICommand> MakeZoomCommand(const CommandRow& row);

/// Tells by its caption that it needs a newer host where it does.
std::shared_ptr<ICommand> MakeBuildPolygonCommand(const CommandRow& row);

// Dialog, worker and report of the planetary tools.
std::shared_ptr<ICommand> MakeWrapBoundaryCommand(const CommandRow& row);
std::shared_ptr<ICommand> MakeCentricToGraphicCommand(const CommandRow& row);
std::shared_ptr<ICommand> MakeGraphicToCentricCommand(const CommandRow& row);

/// The geometry calculator.
std::shared_ptr<ICommand> MakeCalculateCommand(const CommandRow& row);

// Dialogs that do all the work themselves.
std::shared_ptr<ICommand> MakeNewShapefileCommand(const CommandRow& row);
std::shared_ptr<ICommand> MakeSelectGraphicsCommand(const CommandRow& row);
std::shared_ptr<ICommand> MakeNameGraphicsCommand(const CommandRow& row);
std::shared_ptr<ICommand> MakeAboutCommand(const CommandRow& row);

}  // namespace tessarine
