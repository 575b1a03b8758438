// SPDX-License-Identifier: GPL-2.0-or-later
// The poll by which a run learns that the user stopped it.
#pragma once

#include <memory>

#include "platform/application.h"
#include "platform/form.h"
#include "platform/run_context.h"
#include "support/progress_form.h"

namespace tessarine::MyGeneralOperations {

/// True when Stop was pressed on the progress form; the form's log then says so. Every poll keeps the form's two
/// settings in the extension, where the next tool finds them, unless the application has none.
[[nodiscard]] bool StopPressed(ProgressForm& form, const std::shared_ptr<IApplication>& application,
                               IRunFeedback& feedback, const IClock& clock);

/// The same for any form, in the context of the run that the thread is at, or else of the process. False for a form of
/// another kind.
[[nodiscard]] bool BailOutOfProgress(const std::shared_ptr<Form>& form,
                                     const std::shared_ptr<IApplication>& application);

}  // namespace tessarine::MyGeneralOperations
