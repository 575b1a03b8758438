// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/held_by_file.h"

#include <filesystem>
#include <system_error>

namespace tessarine::engine {

namespace fs = std::filesystem;

std::string RealFileKey(const std::string& native_path) {
  std::error_code error;
  const fs::path whole = fs::absolute(native_path, error);
  if (error) return native_path;
  const fs::path real = fs::weakly_canonical(whole, error);
  std::string key = (error ? whole : real).lexically_normal().string();
  while (key.size() > 1 && key.ends_with('/')) key.pop_back();
  return key;
}

}  // namespace tessarine::engine
