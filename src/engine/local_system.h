// SPDX-License-Identifier: GPL-2.0-or-later
// The clock and the operating system of this machine, for hosts that have nothing of their own to put in their place.
#pragma once

#include <string>

#include "platform/host.h"

namespace tessarine {

class SystemClock final : public IClock {
 public:
  [[nodiscard]] Date Now() const override;
};

class LocalOperatingSystem : public IOperatingSystem {
 public:
  [[nodiscard]] bool Exists(const std::string& path) const override;
  [[nodiscard]] bool IsFile(const std::string& path) const override;
  [[nodiscard]] std::string ReadTextFile(const std::string& path) const override;
  [[nodiscard]] std::string LongPathName(const std::string& path) const override;
  [[nodiscard]] std::string UserName() const override;
  /// Hands the file to the desktop's opener, which works on after the program has ended.
  void ShellExecute(const std::string& path, const std::string& folder) override;
  [[nodiscard]] std::string ProgramFolder() const override;
};

}  // namespace tessarine
