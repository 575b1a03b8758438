// SPDX-License-Identifier: GPL-2.0-or-later
// The toolbar, the root menu and the three sub-menus.
#pragma once

#include "frame/menu_definition.h"

namespace tessarine {

/// Carries nothing but the root menu.
class clsToolBar final : public IToolBarDef {
 public:
  [[nodiscard]] std::int32_t ItemCount() const override { return 1; }
  void GetItemInfo(std::int32_t position, ItemDef& item) const override;
  [[nodiscard]] std::string Name() const override { return "Tessarine_ToolBar"; }
  [[nodiscard]] std::string Caption() const override { return "Tessarine Tools"; }
};

class clsMenu final : public MenuDefinition, public IRootLevelMenu {
 public:
  clsMenu();
};

class clsShapeSubMenu final : public MenuDefinition {
 public:
  clsShapeSubMenu();
};

class clsGraphicsSubMenu final : public MenuDefinition {
 public:
  clsGraphicsSubMenu();
};

class clsGeodesicSubMenu final : public MenuDefinition {
 public:
  clsGeodesicSubMenu();
};

}  // namespace tessarine
