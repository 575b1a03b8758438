// SPDX-License-Identifier: GPL-2.0-or-later
// A host for one thread: runs in the background have theirs beside the one that serves the process.
#pragma once

#include "platform/host.h"

namespace tessarine {

/// While it lives, `Host()` and `HostContext()` return this host on the thread that made it. Other threads, those of a
/// worker pool too, keep the host of the process.
class ThreadHostScope {
 public:
  explicit ThreadHostScope(IHost& host);
  ~ThreadHostScope();
  ThreadHostScope(const ThreadHostScope&) = delete;
  ThreadHostScope& operator=(const ThreadHostScope&) = delete;

 private:
  IHost* before_;
};

}  // namespace tessarine
