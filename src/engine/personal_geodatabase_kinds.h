// SPDX-License-Identifier: GPL-2.0-or-later
// The kinds of items that geodatabases know, and how items may relate: the content of two tables that is the same in
// every geodatabase.
#pragma once

#include <span>

namespace tessarine::engine {

struct ItemKind {
  const char *identifier, *parent, *name;
};
struct RelationKind {
  const char *identifier, *origin, *destination, *name, *forward, *backward;
  bool contains;
};

[[nodiscard]] std::span<const ItemKind> ItemKinds();
[[nodiscard]] std::span<const RelationKind> RelationKinds();

}  // namespace tessarine::engine
