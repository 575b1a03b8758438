// SPDX-License-Identifier: GPL-2.0-or-later
// What to do about a file that can't be written.
#pragma once

#include <string>

namespace tessarine {

/// ": there is no room left on its disk." and the like, to stand after a message of our own and what the library says,
/// its `complaint`; "." where the cause isn't known.
[[nodiscard]] std::string WayOut(const std::string& path, const std::string& complaint);

}  // namespace tessarine
