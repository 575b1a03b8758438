// SPDX-License-Identifier: GPL-2.0-or-later
// "1 graphic element", "2 graphic elements".
#pragma once

#include <string>

namespace tessarine {

[[nodiscard]] inline std::string CountedElements(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " graphic element" : " graphic elements");
}

}  // namespace tessarine
