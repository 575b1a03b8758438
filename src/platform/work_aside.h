// SPDX-License-Identifier: GPL-2.0-or-later
// Long work that nothing can interrupt, while the windows of the host stay alive.
#pragma once

#include <chrono>
#include <future>
#include <utility>

#include "platform/host.h"

namespace tessarine {

/// Does the work on a thread of its own and waits for it. Meanwhile this thread asks for a stop, which gives windows
/// their turn; the work goes on to its end all the same. What it raises comes out here. The work knows nothing of the
/// run: it tells and asks nothing.
template <class Work>
void WorkAside(Work&& work) {
  constexpr auto kLook = std::chrono::milliseconds(20);
  std::future<void> done = std::async(std::launch::async, std::forward<Work>(work));
  while (done.wait_for(kLook) != std::future_status::ready) static_cast<void>(StopRequested());
  done.get();
}

}  // namespace tessarine
