// SPDX-License-Identifier: GPL-2.0-or-later
// What the tools for graphic elements share.
#pragma once

#include <memory>
#include <string_view>

#include "tools/tool.h"

namespace tessarine {

/// The map document that they work on.
inline constexpr std::string_view kGraphicsTakes = "graphic elements of a map document";

/// The reference of an output that isn't the map's.
[[nodiscard]] ToolParameter ReferenceParameter();
/// The row of the command whose dialog makes classes of graphics and empty ones, for the tool at this position.
[[nodiscard]] CommandTexts MakeShapefileTexts(std::int32_t position);

/// Shows a dialog that does all further work itself, with the arguments that its tool takes.
template <class Dialog>
void ShowDialog(const std::shared_ptr<IApplication>& application) {
  Dialog dialog;
  dialog.SetArcApplication(application);
  dialog.ShowModal();
}

}  // namespace tessarine
