// SPDX-License-Identifier: GPL-2.0-or-later
// A working copy of a file geodatabase, which takes its place when it is whole.
//
// It is a staged output whose files are links to those of the geodatabase as long as they stay as they are, so that it
// costs what the changed tables cost. Whatever ends the program before it is published leaves the geodatabase as it
// was, and a folder that the next copy of the same geodatabase clears away.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "outputs/staged_output.h"

namespace tessarine::engine {

class FileGdbWorkingCopy {
 public:
  /// Makes the copy; where there is no geodatabase yet, only the name of one. Faults: another run changes this
  /// geodatabase, or the folder around it can't be written to.
  explicit FileGdbWorkingCopy(const std::string& native_path);
  /// Removes what was not published.
  ~FileGdbWorkingCopy();
  FileGdbWorkingCopy(const FileGdbWorkingCopy&) = delete;
  FileGdbWorkingCopy& operator=(const FileGdbWorkingCopy&) = delete;

  /// The folder to work in.
  [[nodiscard]] const std::string& Folder() const { return folder_; }
  /// The geodatabase itself, links resolved.
  [[nodiscard]] const std::string& Target() const { return target_; }
  /// True where there was no geodatabase before.
  [[nodiscard]] bool IsNew() const { return lock_ < 0; }

  /// From here on the files whose names begin so may be changed. Costs a copy of each.
  void OwnFiles(const std::string& prefix) const;
  /// Puts the copy in the place of the geodatabase. Fault where that was changed by another program meanwhile; it stays
  /// as it is then.
  void Publish();

 private:
  struct Stamp {
    std::int64_t size = 0, seconds = 0, nanoseconds = 0;
    bool operator==(const Stamp&) const = default;
  };
  using Stamps = std::map<std::string, Stamp>;

  void Lock();
  void LinkAll() const;
  [[nodiscard]] static Stamps StampsOf(const std::string& folder);

  std::string target_, folder_;
  int lock_ = -1;
  std::unique_ptr<StagedOutput> staged_;
  Stamps stamps_;
};

}  // namespace tessarine::engine
