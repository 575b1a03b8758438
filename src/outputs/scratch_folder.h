// SPDX-License-Identifier: GPL-2.0-or-later
// A folder for files that nobody is to find.
#pragma once

#include <filesystem>
#include <string>

namespace tessarine {

/// A new folder among the temporary files of the system (TMPDIR, else /tmp), which goes away with all that is in it.
class ScratchFolder {
 public:
  /// The purpose is a part of its name. Fault where none can be made.
  explicit ScratchFolder(const std::string& purpose);
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace tessarine
