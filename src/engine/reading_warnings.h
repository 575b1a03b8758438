// SPDX-License-Identifier: GPL-2.0-or-later
// What GDAL tells of values and shapes that it reads otherwise than they are stored.
//
// It tells some of it once in the life of a program, when a file is opened first, long before a run reads it; so it is
// kept by file.
#pragma once

#include <cpl_error.h>

#include <string>
#include <vector>

#include "platform/run_journal.h"

namespace tessarine::engine {

/// In a warning of a value that can't be read, and is null to whoever reads the row.
inline constexpr const char* kDamagedValue = "is damaged and counts as null";

/// Collects GDAL's messages while it lives, failures and warnings apart, so that none is printed.
class ReadingScope {
 public:
  ReadingScope() { CPLPushErrorHandlerEx(Collect, this); }
  ~ReadingScope() { CPLPopErrorHandler(); }
  ReadingScope(const ReadingScope&) = delete;
  ReadingScope& operator=(const ReadingScope&) = delete;

  [[nodiscard]] bool Failed() const { return failed_; }
  /// Up to 20.
  [[nodiscard]] const std::vector<std::string>& Warnings() const { return warnings_; }
  /// The first failure; empty without one.
  [[nodiscard]] const std::string& Failure() const { return failure_; }
  /// " (GDAL says: ...)" with the first failure, or else the first warning; empty without either.
  [[nodiscard]] std::string Quote() const;
  void Clear();

 private:
  static void CPL_STDCALL Collect(CPLErr severity, CPLErrorNum number, const char* message);

  std::string failure_;
  std::vector<std::string> warnings_;
  bool failed_ = false;
};

/// Keeps the warnings that tell of a changed value, and lets all others go.
void KeepReadingWarnings(const std::string& path, const ReadingScope& scope);
/// Another file stands at this path now.
void ForgetReadingWarnings(const std::string& path);

/// Notes what was kept of the file as warnings without a record, each once.
void TellReadingWarnings(const std::string& path, RunJournal& journal);
/// The same in the journal of the host's run; nothing where no host serves the process.
void TellReadingWarnings(const std::string& path);

}  // namespace tessarine::engine
