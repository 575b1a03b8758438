// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/commands/command_table.h"

#include <algorithm>
#include <vector>

#include "frame/commands/commands.h"

namespace tessarine {
namespace {

// The commands that are no tools: dialogs that do all the work themselves, and direct actions on graphic elements.
const CommandRow kOtherCommands[] = {
    {{"cmdNewShapefile",
      "MakeShapefile",
      "&Graphic Elements to Shapes",
      "Create New Shapefile",
      "Create new shapefile, either empty or by converting graphics...",
      101,
      {Menu::Graphics, 1}},
     MakeNewShapefileCommand},
    {{"clsSelGraphics",
      "SelectGraphics",
      "Select Graphic Elements by &Type",
      "Select Graphic Elements by Type",
      "Select Graphics by Type or Name...",
      106,
      {Menu::Graphics, 2, true}},
     MakeSelectGraphicsCommand},
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
    {{"clsNameGraphics",
      "NameGraphics",
      "&Name Graphic Elements",
      "Name Graphic Elements",
      "Name Graphic Elements...",
      108,
      {Menu::Graphics, 7}},
     MakeNameGraphicsCommand},
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
    for (const Tool* tool : AllTools()) rows.push_back({tool->Command(), MakeToolCommand, tool});
    std::ranges::sort(rows, {},
                      [](const CommandRow& row) { return std::pair(row.texts.place.menu, row.texts.place.position); });
    return rows;
  }();
  return all;
}

}  // namespace tessarine
