// Begins and ends the journal of a run, however the run ends.
#pragma once

#include "platform/host.h"
#include "platform/run_journal.h"

namespace tessarine {

class RunScope {
 public:
  /// Empties the journal and notes the time.
  RunScope(RunJournal& journal, const IClock& clock) : journal_(journal), clock_(clock) {
    journal_ = RunJournal();
    journal_.begin = clock_.Now();
  }
  ~RunScope() { End(); }
  RunScope(const RunScope&) = delete;
  RunScope& operator=(const RunScope&) = delete;

  /// Notes the end of the run now, for reports that tell it; once.
  void End() {
    if (!ended_) journal_.end = clock_.Now();
    ended_ = true;
  }
  [[nodiscard]] RunJournal& Journal() const { return journal_; }

 private:
  RunJournal& journal_;
  const IClock& clock_;
  bool ended_ = false;
};

}  // namespace tessarine
