// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/paths.h"

#include <algorithm>

#include "platform/fault.h"

namespace tessarine {

std::string ToNativePath(std::string_view path) {
  std::string native(path);
  std::ranges::replace(native, '\\', '/');
  return native;
}

std::string FromNativePath(std::string_view native) {
  if (native.find('\\') != std::string_view::npos) {
    Raise(kInvalidCall, "The path '" + std::string(native) + "' holds a backslash: rename the file or folder first.");
  }
  std::string path(native);
  std::ranges::replace(path, '/', '\\');
  return path;
}

}  // namespace tessarine
