// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers among the options of commands.
#pragma once

#include <optional>
#include <string>

#include "platform/fault.h"
#include "platform/text_formats.h"

namespace tessarine {

/// The number that an option's text stands for; empty where it is none, or too large for one.
[[nodiscard]] inline std::optional<double> OptionNumber(const std::string& text) {
  if (!IsNumericText(text)) return std::nullopt;
  try {
    return ToNumber(text);
  } catch (const Fault&) {
    return std::nullopt;
  }
}

}  // namespace tessarine
