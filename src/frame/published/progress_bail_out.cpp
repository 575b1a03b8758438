// SPDX-License-Identifier: GPL-2.0-or-later
// The look whether the user stopped a run, for any form.
#include "support/progress_bail_out.h"

#include "platform/at_hand.h"

namespace tessarine::MyGeneralOperations {

bool BailOutOfProgress(const std::shared_ptr<Form>& form, const std::shared_ptr<IApplication>& application) {
  const auto progress = Cast<ProgressForm>(form);
  return progress && StopPressed(*progress, application, FeedbackAtHand(), ClockAtHand());
}

}  // namespace tessarine::MyGeneralOperations
