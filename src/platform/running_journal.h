// SPDX-License-Identifier: GPL-2.0-or-later
// The journal of the run that the thread is at, or else the host.
#pragma once

#include "platform/run_journal.h"

namespace tessarine {

/// Null where no host serves the process.
[[nodiscard]] RunJournal* RunningJournal();

}  // namespace tessarine
