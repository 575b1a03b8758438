// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/menus.h"

#include "platform/trap.h"

namespace tessarine {
namespace {

constexpr MenuItem kRootItems[] = {
    {"Tessarine.clsShapeSubMenu", false},
    {"Tessarine.clsGeodesicSubMenu", false},
    {"Tessarine.clsGraphicsSubMenu", false},
    {"Tessarine.cmdAbout", true},
};

constexpr MenuItem kShapeItems[] = {
    {"Tessarine.clsConvertGeometry", false},   {"Tessarine.clsConvertLabelPoint", true},
    {"Tessarine.clsConvertCentroid", false},   {"Tessarine.clsConvertSphCentroid", false},
    {"Tessarine.clsShapesToVertices", false},  {"Tessarine.clsConvertToPolygon", false},
    {"Tessarine.clsConvertToPolyline", false}, {"Tessarine.clsBuildPolygon", false},
    {"Tessarine.clsConvertSplit", true},       {"Tessarine.clsConvertJoin", false},
};

constexpr MenuItem kGraphicsItems[] = {
    {"Tessarine.cmdNewShapefile", false},   {"Tessarine.clsSelGraphics", true},
    {"Tessarine.clsSelAllElements", false}, {"Tessarine.clsUnselElements", false},
    {"Tessarine.clsFlipGraphicSel", false}, {"Tessarine.clsZoomToSelected", false},
    {"Tessarine.clsNameGraphics", false},
};

constexpr MenuItem kGeodesicItems[] = {
    {"Tessarine.OGraphicToOCentric", false},
    {"Tessarine.OCentricToOGraphic", false},
    {"Tessarine.clsWrapBoundary", true},
};

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

clsMenu::clsMenu() : MenuDefinition("Tessarine", "&Tessarine Tools", kRootItems) {}

clsShapeSubMenu::clsShapeSubMenu() : MenuDefinition("ToolsForShapes", "Tools for Features and Shapes", kShapeItems) {}

clsGraphicsSubMenu::clsGraphicsSubMenu() : MenuDefinition("ToolsForGraphics", "Tools for Graphics", kGraphicsItems) {}

clsGeodesicSubMenu::clsGeodesicSubMenu()
    : MenuDefinition("GeodesicTools", "OCentric/OGraphic Geodesic Tools", kGeodesicItems) {}

}  // namespace tessarine
