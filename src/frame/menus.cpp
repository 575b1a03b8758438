// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/menus.h"

#include "frame/commands/command_table.h"
#include "platform/trap.h"

namespace tessarine {
namespace {

std::vector<MenuItem> ItemsOf(Menu menu, std::vector<MenuItem> items = {}) {
  for (const CommandRow& row : AllCommands()) {
    const MenuPlace& place = row.texts.place;
    if (place.menu != menu) continue;
    const char* class_name = place.class_name != nullptr ? place.class_name : row.texts.class_name;
    items.push_back({std::string("Tessarine.") + class_name, place.group});
  }
  return items;
}

}  // namespace

void MenuDefinition::GetItemInfo(std::int32_t position, ItemDef& item) const {
  Trap("IMenuDef_GetItemInfo", [&] {
    if (position < 0 || position >= ItemCount()) return;
    const MenuItem& row = items_[static_cast<std::size_t>(position)];
    item.ID = row.id;
    item.Group = row.group;
  });
}

void clsToolBar::GetItemInfo(std::int32_t position, ItemDef& item) const {
  Trap("IToolBarDef_GetItemInfo", [&] {
    if (position == 0) item.ID = "Tessarine.clsMenu";
  });
}

clsMenu::clsMenu()
    : MenuDefinition("Tessarine", "&Tessarine Tools",
                     ItemsOf(Menu::Root, {{"Tessarine.clsShapeSubMenu", false},
                                          {"Tessarine.clsGeodesicSubMenu", false},
                                          {"Tessarine.clsGraphicsSubMenu", false}})) {}

clsShapeSubMenu::clsShapeSubMenu()
    : MenuDefinition("ToolsForShapes", "Tools for Features and Shapes", ItemsOf(Menu::Shapes)) {}

clsGraphicsSubMenu::clsGraphicsSubMenu()
    : MenuDefinition("ToolsForGraphics", "Tools for Graphics", ItemsOf(Menu::Graphics)) {}

clsGeodesicSubMenu::clsGeodesicSubMenu()
    : MenuDefinition("GeodesicTools", "OCentric/OGraphic Geodesic Tools", ItemsOf(Menu::Geodesic)) {}

}  // namespace tessarine
