// SPDX-License-Identifier: GPL-2.0-or-later
// Faults of the engine: what the libraries underneath complain of, in their own words.
#pragma once

#include <cpl_error.h>

#include <string>

#include "platform/fault.h"

namespace tessarine::engine {

[[noreturn]] inline void RaiseEngineFault(const std::string& text,
                                          const std::source_location where = std::source_location::current()) {
  throw Fault(kEngine, "Engine", text, static_cast<std::int32_t>(where.line()), SourceFileName(where.file_name()));
}

/// The number with which our own layers report a row that their format refuses; others can be written.
inline constexpr CPLErrorNum kRowRefusedByFormat = 7001;

/// Collects GDAL's messages while it lives, so that none is printed and faults can quote them.
class GdalErrorScope {
 public:
  GdalErrorScope() { CPLPushErrorHandlerEx(Collect, this); }
  ~GdalErrorScope() { CPLPopErrorHandler(); }
  GdalErrorScope(const GdalErrorScope&) = delete;
  GdalErrorScope& operator=(const GdalErrorScope&) = delete;

  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] bool Failed() const { return failed_; }
  /// The first failure was of the row alone.
  [[nodiscard]] bool RowRefused() const { return row_refused_; }
  void Clear() {
    text_.clear();
    failed_ = row_refused_ = false;
  }
  /// " (GDAL says: ...)" or nothing, to stand after a message of our own.
  [[nodiscard]] std::string Quote() const { return text_.empty() ? "" : " (GDAL says: " + text_ + ")"; }

 private:
  static void CPL_STDCALL Collect(CPLErr severity, CPLErrorNum number, const char* message) {
    auto* scope = static_cast<GdalErrorScope*>(CPLGetErrorHandlerUserData());
    if (severity >= CE_Failure && !scope->failed_) {
      scope->failed_ = true;
      scope->row_refused_ = number == kRowRefusedByFormat;
    }
    // The first failure says most; warnings before it only count while nothing failed.
    if (severity < CE_Warning || scope->text_.size() > 400) return;
    scope->text_ += (scope->text_.empty() ? "" : "; ") + std::string(message);
  }

  std::string text_;
  bool failed_ = false, row_refused_ = false;
};

/// Raises the fault of a row that GDAL didn't write. Where a rule of its table refused the row, others can be written;
/// everything else counts as a failure of the output. The advice stands at the end of the text.
[[noreturn]] inline void RaiseRowNotWritten(const std::string& what, const GdalErrorScope& errors,
                                            const std::string& advice,
                                            const std::source_location where = std::source_location::current()) {
  // The second is of a coordinate that a file geodatabase can't hold.
  const bool of_this_row = errors.RowRefused() || errors.Text().find("constraint failed") != std::string::npos ||
                           errors.Text().find("Cannot encode") != std::string::npos;
  if (!of_this_row) RaiseEngineFault(what + errors.Quote() + advice, where);
  throw Fault(kRowRefused, "Engine", what + errors.Quote() + advice, static_cast<std::int32_t>(where.line()),
              SourceFileName(where.file_name()));
}

/// The fault of a record, for the journal.
[[nodiscard]] inline Fault RecordFault(std::int32_t number, const std::string& text,
                                       const std::source_location where = std::source_location::current()) {
  return {number, "Engine", text, static_cast<std::int32_t>(where.line()), SourceFileName(where.file_name())};
}

}  // namespace tessarine::engine
