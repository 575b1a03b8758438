// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/progress_bail_out.h"

#include "platform/text_formats.h"
#include "platform/trap.h"
#include "session/clsExtension.h"
#include "support/elapsed_time.h"

namespace tessarine::MyGeneralOperations {

bool StopPressed(ProgressForm& form, const std::shared_ptr<IApplication>& application, IRunFeedback& feedback,
                 const IClock& clock) {
  return Trap("BailOutOfProgress", [&] {
    if (const auto extension = FindExtension(application)) {
      extension->ProgressDialogAutoClose = form.chkClose.Value() == CheckBox::kChecked;
      extension->ProgressDialogSetExpanded = form.SetExpanded();
    }
    if (form.ShouldContinue()) return false;

    feedback.RestoreMousePointer();
    const Date now = clock.Now();
    form.AppendDetails("\r\nOperation cancelled prematurely at " + LongDate(now) + ";  " + LongTime(now) +
                       "\r\n---------------------------------------------------------\r\n" +
                       ReturnTimeElapsed(form.ProgBeginTime(), now, form.ElapsedSeconds()));
    if (form.chkClose.Value() == CheckBox::kChecked) form.Frame()->SetVisible(false);
    return true;
  });
}

}  // namespace tessarine::MyGeneralOperations
