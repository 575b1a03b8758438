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

/// A tool that this version of the suite doesn't hold: a click ends in a fault report that says so.
std::shared_ptr<ICommand> MakeUnavailableCommand(const CommandRow& row);
[[noreturn]] void RaiseUnavailable(const CommandRow& row);

}  // namespace tessarine
