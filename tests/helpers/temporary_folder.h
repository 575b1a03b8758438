// SPDX-License-Identifier: GPL-2.0-or-later
// A folder of its own for a test, gone with it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "platform/paths.h"

namespace tessarine::testing {

class TemporaryFolder {
 public:
  TemporaryFolder() : path_(std::filesystem::temp_directory_path() / "tessarine_XXXXXX") {
    std::string name = path_.string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// The folder, or something in it, as a native path.
  [[nodiscard]] std::string Native(const std::string& name = "") const {
    return name.empty() ? path_.string() : (path_ / name).string();
  }
  /// The same as a backslash path.
  [[nodiscard]] std::string Path(const std::string& name = "") const { return FromNativePath(Native(name)); }
  void Write(const std::string& name, const std::string& text = "x") const { std::ofstream(path_ / name) << text; }
  [[nodiscard]] bool Has(const std::string& name) const { return std::filesystem::exists(path_ / name); }
  [[nodiscard]] bool IsEmpty() const { return std::filesystem::is_empty(path_); }

 private:
  std::filesystem::path path_;
};

}  // namespace tessarine::testing
