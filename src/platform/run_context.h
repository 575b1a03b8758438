// SPDX-License-Identifier: GPL-2.0-or-later
// Everything that a run needs from outside: the clock, what it says and asks, what it makes beside its output, its
// journal. It is passed down; nothing in a run asks for the host of the process.
//
//   std::string Convert(RunContext& run, ...) {
//     RunScope scope(run);                       // begins and ends the journal
//     run.feedback.Announce("...");
//     ++run.journal.read;
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/data.h"
#include "platform/date.h"
#include "platform/map.h"
#include "platform/run_journal.h"
#include "platform/trap.h"

namespace tessarine {

class IGxDialog;
class IOperatingSystem;

class IClock {
 public:
  virtual ~IClock() = default;
  /// Local time, to the second or better; for texts. It jumps when somebody sets the clock.
  [[nodiscard]] virtual Date Now() const = 0;
  /// Seconds since some moment, for spans; it never goes back.
  [[nodiscard]] virtual double SteadySeconds() const;
};

/// What a run asks. Whoever answers knows the question by this, not by its words.
enum class RunQuestion : std::uint8_t {
  ReplaceOutput,     ///< something stands under the name of the output: may it go when the new one is whole?
  UseDoubtfulNames,  ///< fields get names that their storage may not take: shall they be used?
  OverwriteFields,   ///< measures go into fields that hold data: may these go?
  ConfirmRun,        ///< what the arguments ask for is odd: shall the run begin?
};

/// What a run says and asks while it works, and how it is stopped. Called on the run's thread.
class IRunFeedback {
 public:
  virtual ~IRunFeedback() = default;
  /// Tells the user something before a run begins. Who sees the report at once need not be told.
  virtual void Announce(const std::string&) {}
  /// Tells the user something that the run stumbled on, and returns when that was read.
  virtual void Tell(const std::string& text, const std::string& title) = 0;
  /// True for Yes.
  [[nodiscard]] virtual bool Ask(RunQuestion question, const std::string& text, const std::string& title) = 0;
  /// True once the user asked the run to stop by other means than the Stop button of a progress form; it stays so.
  /// Costs next to nothing: loops may ask at every record.
  [[nodiscard]] virtual bool StopRequested() const { return false; }
  /// Takes a fault that ended in a trap. False: the reporter of the process shows it.
  virtual bool TakeFault(const TrapSite&, const Fault&) { return false; }
  /// Gives the event queue its turn.
  virtual void PumpEvents() {}
  /// Shows the hourglass until the pointer is restored; faces without a pointer do nothing.
  virtual void ShowWaitPointer() {}
  virtual void RestoreMousePointer() {}
  /// The short sound at the end of a run; faces without one stay silent.
  virtual void Beep() {}
};

/// What a user wants of an output beyond what its tool makes.
struct OutputWishes {
  SpatialReferenceRef reference;  ///< that the new features are brought to on the way out; null for the tool's own
  bool stamps = false;            ///< the layer tells where it is from
  std::string command_line;       ///< that it tells, without passwords
  std::string version;            ///< of the suite
};

/// What a run makes beside its output, and what it knows of the machine.
class IRunServices {
 public:
  virtual ~IRunServices() = default;
  [[nodiscard]] virtual IOperatingSystem& System() = 0;
  [[nodiscard]] virtual std::shared_ptr<IGxDialog> CreateGxDialog() = 0;
  [[nodiscard]] virtual std::shared_ptr<IFeatureLayer> CreateFeatureLayer() = 0;
  [[nodiscard]] virtual std::shared_ptr<ISimpleRenderer> CreateSimpleRenderer() = 0;
  [[nodiscard]] virtual OutputWishes Wishes() const { return {}; }
};

struct RunContext {
  const IClock& clock;
  IRunFeedback& feedback;
  IRunServices& services;
  RunJournal& journal;
  unsigned jobs = 1;  ///< threads that pure work on records may keep busy, the run's own among them
};

/// The context whose run the thread is at; null outside of `RunScope`.
[[nodiscard]] RunContext* RunningContext();

/// Makes a context the thread's, and the one before again at its end.
class RunningContextScope {
 public:
  explicit RunningContextScope(RunContext& run);
  ~RunningContextScope();
  RunningContextScope(const RunningContextScope&) = delete;
  RunningContextScope& operator=(const RunningContextScope&) = delete;

 private:
  RunContext* before_;
};

}  // namespace tessarine
