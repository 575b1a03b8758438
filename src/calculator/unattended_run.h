// SPDX-License-Identifier: GPL-2.0-or-later
// Work on one shape that belongs to no run: nobody is told anything, nothing stops it, and no host is asked.
#pragma once

#include <optional>
#include <type_traits>
#include <utility>

#include "platform/fault.h"
#include "platform/run_context.h"
#include "platform/trap.h"

namespace tessarine {

/// While it lives, faults of this thread's traps come here.
class UnattendedRun {
 public:
  UnattendedRun() = default;

  /// Raises what ended in a trap meanwhile, whose result is no number to go by.
  void RaiseTaken() const {
    if (feedback_.taken) throw Fault(*feedback_.taken);
  }

 private:
  struct StillClock final : IClock {
    [[nodiscard]] Date Now() const override { return {}; }
  };
  struct SilentFeedback final : IRunFeedback {
    void Tell(const std::string&, const std::string&) override {}
    [[nodiscard]] bool Ask(RunQuestion, const std::string&, const std::string&) override { return false; }
    bool TakeFault(const TrapSite&, const Fault& fault) override {
      if (!taken) taken = fault;
      return true;
    }
    std::optional<Fault> taken;
  };
  struct NoServices final : IRunServices {
    [[noreturn]] static void RaiseNone() { Raise(kInvalidCall, "The measures of one shape make and ask for nothing."); }
    [[nodiscard]] IOperatingSystem& System() override { RaiseNone(); }
    [[nodiscard]] std::shared_ptr<IGxDialog> CreateGxDialog() override { RaiseNone(); }
    [[nodiscard]] std::shared_ptr<IFeatureLayer> CreateFeatureLayer() override { RaiseNone(); }
    [[nodiscard]] std::shared_ptr<ISimpleRenderer> CreateSimpleRenderer() override { RaiseNone(); }
  };

  StillClock clock_;
  SilentFeedback feedback_;
  NoServices services_;
  RunJournal journal_;
  RunContext context_{clock_, feedback_, services_, journal_};
  RunningContextScope scope_{context_};
  RecordInHand in_hand_{0};
};

/// Does the work as such a run and returns what it returns. Faults come out.
template <class Work>
[[nodiscard]] std::invoke_result_t<Work> Unattended(Work&& work) {
  const UnattendedRun run;
  std::invoke_result_t<Work> result = std::forward<Work>(work)();
  run.RaiseTaken();
  return result;
}

}  // namespace tessarine
