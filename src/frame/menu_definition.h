// SPDX-License-Identifier: GPL-2.0-or-later
// Toolbar and menus are tables; this walks them.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/application.h"

namespace tessarine {

struct MenuItem {
  std::string id;
  bool group;  ///< a separator line stands above the item
};

/// Answers the calls of a menu from its table. A position outside the table does nothing.
class MenuDefinition : public IMenuDef {
 public:
  [[nodiscard]] std::int32_t ItemCount() const override { return static_cast<std::int32_t>(items_.size()); }
  void GetItemInfo(std::int32_t position, ItemDef& item) const override;
  [[nodiscard]] std::string Name() const override { return name_; }
  [[nodiscard]] std::string Caption() const override { return caption_; }

 protected:
  MenuDefinition(const char* name, const char* caption, std::vector<MenuItem> items)
      : name_(name), caption_(caption), items_(std::move(items)) {}

 private:
  const char* name_;
  const char* caption_;
  std::vector<MenuItem> items_;
};

}  // namespace tessarine
