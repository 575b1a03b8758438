// SPDX-License-Identifier: GPL-2.0-or-later
// The class table of the suite: every class that a host may make by its identifier.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "platform/component.h"

namespace tessarine {

struct ComponentClass {
  std::string prog_id;
  std::vector<std::string> interfaces;
  std::function<ObjectRef()> make;
};

[[nodiscard]] const std::vector<ComponentClass>& ComponentClasses();

}  // namespace tessarine
