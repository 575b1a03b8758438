// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/progress_bail_out.h"

#include "platform/at_hand.h"
#include "platform/host.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "session/clsExtension.h"
#include "support/elapsed_time.h"
#include "support/progress_form.h"

namespace tessarine::MyGeneralOperations {

bool BailOutOfProgress(const std::shared_ptr<Form>& form, const std::shared_ptr<IApplication>& application) {
  return Trap("BailOutOfProgress", [&] {
    const auto extension = FindExtension(application);
    const auto progress = Cast<ProgressForm>(form);
    if (!progress) return false;
    Require(extension, "clsExtension")->ProgressDialogAutoClose = progress->chkClose.Value() == CheckBox::kChecked;
    extension->ProgressDialogSetExpanded = progress->SetExpanded();
    if (progress->ShouldContinue()) return false;

    FeedbackAtHand().RestoreMousePointer();
    const Date now = ClockAtHand().Now();
    progress->AppendDetails("\r\nOperation cancelled prematurely at " + LongDate(now) + ";  " + LongTime(now) +
                            "\r\n---------------------------------------------------------\r\n" +
                            ReturnTimeElapsed(progress->ProgBeginTime(), now, progress->ElapsedSeconds()));
    if (progress->chkClose.Value() == CheckBox::kChecked) progress->Frame()->SetVisible(false);
    return true;
  });
}

}  // namespace tessarine::MyGeneralOperations
