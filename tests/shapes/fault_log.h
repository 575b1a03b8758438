// SPDX-License-Identifier: GPL-2.0-or-later
// Collects what the error traps report while a test runs.
#pragma once

#include <string>
#include <vector>

#include "platform/trap.h"

namespace tessarine::testing {

/// Put one on the stack; the reporter of before comes back with its end.
class FaultLog {
 public:
  FaultLog() : previous_(SetFaultReporter(&FaultLog::Keep)) { Entries().clear(); }
  ~FaultLog() { SetFaultReporter(previous_); }
  FaultLog(const FaultLog&) = delete;
  FaultLog& operator=(const FaultLog&) = delete;

  /// "atan2 6" for each report, in order: the procedure with its blank, and the fault's number.
  [[nodiscard]] const std::vector<std::string>& Reports() const { return Entries(); }

 private:
  static void Keep(const TrapSite& site, const Fault& fault) {
    Entries().push_back(site.procedure + std::to_string(fault.Number()));
  }
  static std::vector<std::string>& Entries() {
    static std::vector<std::string> entries;
    return entries;
  }

  FaultReporter previous_;
};

}  // namespace tessarine::testing
