// SPDX-License-Identifier: GPL-2.0-or-later
// The one door between the suite's backslash paths and the machine's own.
#pragma once

#include <string>
#include <string_view>

namespace tessarine {

/// "\home\ann\roads.shp" becomes "/home/ann/roads.shp".
[[nodiscard]] std::string ToNativePath(std::string_view path);
/// The other way. A native name that itself holds a backslash can't be told apart and raises fault 5.
[[nodiscard]] std::string FromNativePath(std::string_view native);

}  // namespace tessarine
