// SPDX-License-Identifier: GPL-2.0-or-later
// Makes the traps report through the suite's own error handling while it lives; `TestHost::error_reports` collects.
#pragma once

#include "session/ErrorHandling.h"

namespace tessarine::testing {

class ReportedFaults {
 public:
  ReportedFaults() { ErrorHandling::Install(); }
  ~ReportedFaults() { SetFaultReporter(nullptr); }
  ReportedFaults(const ReportedFaults&) = delete;
  ReportedFaults& operator=(const ReportedFaults&) = delete;
};

}  // namespace tessarine::testing
