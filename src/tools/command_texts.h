// SPDX-License-Identifier: GPL-2.0-or-later
// What menus and toolbars show of a command.
#pragma once

#include <cstdint>

namespace tessarine {

enum class Menu : std::uint8_t { Root, Shapes, Graphics, Geodesic };

struct MenuPlace {
  Menu menu;
  std::int32_t position;             ///< from 1 on
  bool group = false;                ///< a separator line stands above
  const char* class_name = nullptr;  ///< as the menu spells it; null where it does as the class
};

struct CommandTexts {
  const char* class_name;
  const char* name;  ///< without the common prefix
  const char* caption;
  const char* tooltip;
  const char* message;
  std::int32_t bitmap_id;
  MenuPlace place;
};

}  // namespace tessarine
