// SPDX-License-Identifier: GPL-2.0-or-later
// The colours of forms and controls in a palette.
#pragma once

#include <QColor>
#include <QPalette>
#include <cstdint>

namespace tessarine {

/// True for 0xRRGGBB, False for a system colour.
[[nodiscard]] bool IsExplicitColor(std::int32_t color);

/// The colour itself, system colours taken from the palette.
[[nodiscard]] QColor ColorOf(std::int32_t color, const QPalette& palette);

/// True when a text of this colour has the contrast of a readable one.
[[nodiscard]] bool IsReadableOn(const QColor& background, const QColor& text);

/// The colour of a text on a background. A system colour that can't be read there gives way to black or white, so that
/// forms with colours of their own stay readable under a dark theme; a colour of the form's own becomes lighter on a
/// dark background.
[[nodiscard]] QColor TextColorOn(const QColor& background, std::int32_t fore_color, const QPalette& palette);

/// The ground of a box of text in a window of this colour: a shade that is farther from the middle.
[[nodiscard]] QColor BoxColorOn(const QColor& window);

/// Text that is there to help, not typed: as dim as can be read on this background.
[[nodiscard]] QColor DimTextOn(const QColor& background, const QColor& text);

/// The colour of a text that is disabled: half way into its background, whatever that is.
[[nodiscard]] QColor FadedText(const QColor& text, const QColor& background);

}  // namespace tessarine
