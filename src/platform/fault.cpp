// SPDX-License-Identifier: MIT
#include "platform/fault.h"

namespace tessarine {

std::string SourceFileName(std::string_view path) {
  constexpr std::string_view kRoot = "src/";
  const auto at = path.rfind(kRoot);
  return std::string(at == std::string_view::npos ? path : path.substr(at + kRoot.size()));
}

}  // namespace tessarine
