// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/commands/command_table.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "frame/commands/commands.h"

namespace tessarine {
namespace {

// The commands that are no tools: direct actions on graphic elements, which take no word, and the about dialog.
const CommandRow kOtherCommands[] = {
    {{"clsSelAllElements",
      "SelectAllGraphics",
      "Select All Graphic &Elements",
      "Select All Graphic Elements",
      "Select All Graphic Elements...",
      103,
      {Menu::Graphics, 3}},
     MakeSelectAllCommand},
    {{"clsUnselElements",
      "UnselectAllGraphics",
      "&Unselect All Graphic Elements",
      "Unselect All Graphic Elements",
      "Unselect All Graphic Elements...",
      104,
      {Menu::Graphics, 4}},
     MakeUnselectAllCommand},
    {{"clsFlipGraphicSel",
      "FlipSelection",
      "&Flip Graphic Element Selection",
      "Flip Graphic Element Selection",
      "Flip Graphic Element Selection...",
      107,
      {Menu::Graphics, 5}},
     MakeFlipSelectionCommand},
    {{"clsZoomToSelected",
      "ZoomSelGraphics",
      "&Zoom to Selected Graphic Elements",
      "Zoom to Selected Graphic Elements",
      "Zoom to Selected Graphic Elements...",
      105,
      {Menu::Graphics, 6}},
     MakeZoomCommand},
    {{"cmdAbout",
      "About",
      "About Tools for Tessarine Tools",
      "About Tools for Tessarine Tools",
      "About Tools for Tessarine Tools, and Manual",
      120,
      {Menu::Root, 4, true}},
     MakeAboutCommand},
};

}  // namespace

std::span<const CommandRow> AllCommands() {
  static const std::vector<CommandRow> all = [] {
    std::vector<CommandRow> rows(std::begin(kOtherCommands), std::end(kOtherCommands));
    for (const Tool* tool : AllTools()) {
      const auto shares = [&](const CommandRow& row) {
        return std::string_view(row.texts.class_name) == tool->Command().class_name;
      };
      if (std::ranges::none_of(rows, shares)) rows.push_back({tool->Command(), MakeToolCommand, tool});
    }
    std::ranges::sort(rows, {},
                      [](const CommandRow& row) { return std::pair(row.texts.place.menu, row.texts.place.position); });
    return rows;
  }();
  return all;
}

}  // namespace tessarine
