// SPDX-License-Identifier: GPL-2.0-or-later
// The poll by which a run learns that the user stopped it.
#pragma once

#include <memory>

#include "platform/application.h"
#include "platform/form.h"

namespace tessarine::MyGeneralOperations {

/// True when Stop was pressed on the progress form; the form's log then says so. Every poll keeps the form's two
/// settings in the extension, where the next tool finds them. False for any other form.
[[nodiscard]] bool BailOutOfProgress(const std::shared_ptr<Form>& form,
                                     const std::shared_ptr<IApplication>& application);

}  // namespace tessarine::MyGeneralOperations
