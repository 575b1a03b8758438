// SPDX-License-Identifier: GPL-2.0-or-later
// The host's message boxes.
#pragma once

#include <QWidget>
#include <string>

#include "platform/host.h"

namespace tessarine {

/// Shows a message and waits for the answer. Its buttons are "cmdOK", "cmdCancel", "cmdYes" and "cmdNo"; Escape and the
/// title bar are Cancel, or No, or the only OK.
MessageAnswer ShowMessageBox(QWidget* parent, const std::string& text, const std::string& title, MessageButtons buttons,
                             MessageIcon icon);

}  // namespace tessarine
