// SPDX-License-Identifier: GPL-2.0-or-later
// Begins and ends the journal of a run, however the run ends, and does its records one by one.
#pragma once

#include <utility>

#include "platform/run_context.h"
#include "platform/trap.h"

namespace tessarine {

class RunScope {
 public:
  /// Empties the journal, notes the time, and makes the context the thread's.
  explicit RunScope(RunContext& run) : run_(run), running_(run), begin_seconds_(run.clock.SteadySeconds()) {
    run_.journal = RunJournal();
    run_.journal.begin = run_.clock.Now();
  }
  ~RunScope() { End(); }
  RunScope(const RunScope&) = delete;
  RunScope& operator=(const RunScope&) = delete;

  /// Notes the end of the run now, for reports that tell it; once.
  void End() {
    if (ended_) return;
    run_.journal.end = run_.clock.Now();
    run_.journal.elapsed_seconds = run_.clock.SteadySeconds() - begin_seconds_;
    ended_ = true;
  }
  [[nodiscard]] RunContext& Run() const { return run_; }
  [[nodiscard]] RunJournal& Journal() const { return run_.journal; }

 private:
  RunContext& run_;
  RunningContextScope running_;
  double begin_seconds_;
  bool ended_ = false;
};

/// Works on one record. A fault of it goes to the journal, and it returns false; the run goes on. Only a fault that
/// ends the run comes out.
template <class Body>
[[nodiscard]] bool WorkOnRecord(RunJournal& journal, std::int64_t oid, Body&& body) {
  const RecordInHand in_hand(oid);
  try {
    std::forward<Body>(body)();
    return true;
  } catch (...) {
    const Fault fault = CurrentFault();
    if (fault.EndsRun()) throw fault;
    journal.NoteFault(fault, oid);
    return false;
  }
}

/// True when a fault of writing concerns the one row: others can still be written.
[[nodiscard]] inline bool ConcernsOneRow(const Fault& fault) {
  return fault.Number() != kEngine && fault.Number() != kPathAccess && fault.Number() != kPathNotFound;
}

/// Writes a row. A fault that is not about this row ends the run.
template <class Write>
auto WriteRow(Write&& write) -> std::invoke_result_t<Write> {
  try {
    return std::forward<Write>(write)();
  } catch (const Fault& fault) {
    if (ConcernsOneRow(fault)) throw;
    throw fault.EndingTheRun();
  }
}

/// Reports the faults of the records, each kind once with the records that it met, under the name of the routine that
/// went through them.
void ReportRecordFaults(const RunJournal& journal, std::string_view procedure, std::string_view layer,
                        std::source_location where = std::source_location::current());

}  // namespace tessarine
