// The journal of the run that the host is at.
#pragma once

#include "platform/run_journal.h"

namespace tessarine {

/// Nothing where no host serves the process.
[[nodiscard]] RunJournal* RunningJournal();

}  // namespace tessarine
