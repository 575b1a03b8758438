// SPDX-License-Identifier: GPL-2.0-or-later
// The host's own windows under the themes of the program.
#pragma once

#include <QWidget>

namespace tessarine {

/// Keeps the texts of a window readable: where the program has a theme, labels and boxes get colours that stand out
/// from their ground, in the shade of the theme, now and whenever the theme changes.
void KeepReadable(QWidget& window);

}  // namespace tessarine
