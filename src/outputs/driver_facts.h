// SPDX-License-Identifier: GPL-2.0-or-later
// What is known of the drivers of the engine's library, whether the table of formats has a row for them or not.
#pragma once

#include <string_view>

#include "outputs/formats.h"

namespace tessarine {

/// What holds for whatever the driver writes: its first row, where it has one, without what belongs to the ending
/// alone. It has no kind; of a driver that nobody knows, nothing is expected.
[[nodiscard]] Format FactsOfDriver(std::string_view driver);

}  // namespace tessarine
