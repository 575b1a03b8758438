// SPDX-License-Identifier: GPL-2.0-or-later
// Runs the program as a user does, in a folder of its own.
#pragma once

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tessarine::testing {

struct ProgramOutcome {
  int status = -1;
  std::string out, err;
};

/// Runs `tessarine` with these arguments; standard input is the file, neither output is a terminal.
[[nodiscard]] ProgramOutcome RunTessarine(const std::vector<std::string>& arguments,
                                          const std::string& input = "/dev/null");

/// The same, with an interrupt or another signal a tenth of a second after `file` is seen to hold more than `bytes`.
[[nodiscard]] ProgramOutcome RunAndInterrupt(const std::vector<std::string>& arguments,
                                             const std::filesystem::path& file, std::uintmax_t bytes,
                                             int signal = SIGINT);

/// The same without a signal, but no file can grow beyond so many bytes, as on a disk that is full.
[[nodiscard]] ProgramOutcome RunWithoutRoom(const std::vector<std::string>& arguments, std::uintmax_t bytes);

[[nodiscard]] std::string ReadFile(const std::filesystem::path& path);
void WriteFile(const std::filesystem::path& path, const std::string& text);

/// A fixture with a folder that goes away again.
class ProgramTest : public ::testing::Test {
 protected:
  ProgramTest();
  ~ProgramTest() override;

  [[nodiscard]] std::string In(const std::string& name) const { return (folder_ / name).string(); }
  [[nodiscard]] static std::string Data(const std::string& name) { return TESSARINE_TEST_DATA "/" + name; }
  /// Names of what stands in the folder.
  [[nodiscard]] std::vector<std::string> Left() const;

  std::filesystem::path folder_;
};

}  // namespace tessarine::testing
