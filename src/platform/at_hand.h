// SPDX-License-Identifier: GPL-2.0-or-later
// What routines that are passed no context use of the world around them: that of the run that the thread is at, or else
// that of the process's host. Fault 91 where there is neither.
#pragma once

#include "platform/run_context.h"

namespace tessarine {

[[nodiscard]] IOperatingSystem& SystemAtHand();
[[nodiscard]] const IClock& ClockAtHand();
[[nodiscard]] IRunFeedback& FeedbackAtHand();

}  // namespace tessarine
