// SPDX-License-Identifier: GPL-2.0-or-later
// The end of a run that the user stopped in the midst of work that has no records to count.
//
//   const bool finished = UnlessStopped([&] { UniteAll(shapes); });   // the run
//   ...
//   EndIfStopped();                                                   // each loop of UniteAll, once a second or
//   oftener
#pragma once

#include <exception>
#include <type_traits>
#include <utility>

#include "platform/host.h"

namespace tessarine {

/// The user stopped the run. It is no fault: traps pass it on unreported, to the run that ends by it.
class RunStopped : public std::exception {
 public:
  [[nodiscard]] const char* what() const noexcept override { return "The run was stopped."; }
};

/// Raises `RunStopped` once the user asked the run to stop.
inline void EndIfStopped() {
  if (StopRequested()) throw RunStopped();
}

/// Asks for a stop now and then, in loops over the vertices of one shape.
class StopPoll {
 public:
  void operator()() {
    constexpr unsigned kOftenEnough = 1U << 14;
    if (++steps_ % kOftenEnough == 0) EndIfStopped();
  }

 private:
  unsigned steps_ = 0;
};

/// Does the work and returns what it does, or true when it returns nothing; false when it was stopped.
template <class Work>
[[nodiscard]] bool UnlessStopped(Work&& work) {
  try {
    if constexpr (std::is_void_v<std::invoke_result_t<Work>>) {
      std::forward<Work>(work)();
      return true;
    } else {
      return std::forward<Work>(work)();
    }
  } catch (const RunStopped&) {
    return false;
  }
}

}  // namespace tessarine
