// Begins and ends the journal of a run, however the run ends, and does its records one by one.
#pragma once

#include <utility>

#include "platform/host.h"
#include "platform/run_journal.h"
#include "platform/trap.h"

namespace tessarine {

class RunScope {
 public:
  /// Empties the journal and notes the time.
  RunScope(RunJournal& journal, const IClock& clock)
      : journal_(journal), clock_(clock), begin_seconds_(clock.SteadySeconds()) {
    journal_ = RunJournal();
    journal_.begin = clock_.Now();
  }
  ~RunScope() { End(); }
  RunScope(const RunScope&) = delete;
  RunScope& operator=(const RunScope&) = delete;

  /// Notes the end of the run now, for reports that tell it; once.
  void End() {
    if (ended_) return;
    journal_.end = clock_.Now();
    journal_.elapsed_seconds = clock_.SteadySeconds() - begin_seconds_;
    ended_ = true;
  }
  [[nodiscard]] RunJournal& Journal() const { return journal_; }

 private:
  RunJournal& journal_;
  const IClock& clock_;
  double begin_seconds_;
  bool ended_ = false;
};

/// Works on one record. A fault of it goes to the journal and the answer is False; the run goes on. Only a fault that
/// ends the run comes out.
template <class Body>
[[nodiscard]] bool WorkOnRecord(RunJournal& journal, std::int64_t oid, Body&& body) {
  const RecordInHand in_hand;
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
