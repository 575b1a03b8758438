// SPDX-License-Identifier: GPL-2.0-or-later
// What a file or data source is opened for.
#pragma once

#include <cstdint>

namespace tessarine {

enum class FileAccess : std::uint8_t { Read, Change };

}  // namespace tessarine
