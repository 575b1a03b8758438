// SPDX-License-Identifier: GPL-2.0-or-later
// Typing as the filters of text controls know it.
#pragma once

#include <QKeyEvent>
#include <QString>
#include <cstdint>

namespace tessarine {

/// What stands for a character beyond ASCII.
inline constexpr std::int32_t kBeyondAscii = 0x10000;

/// The ASCII code of a key that types something, 8 for backspace, 0 for keys that type nothing.
[[nodiscard]] std::int32_t KeyOf(const QKeyEvent& event);

/// A number with a decimal comma as one with a point. Of several points and commas the last one stands for the point if
/// it comes once, and the others group digits. A text without a comma stays.
[[nodiscard]] QString WithDecimalPoint(QString number);

/// The piece of a changed text that stands in place of a piece of the text before.
struct Replacement {
  int start = 0, removed = 0;
  QString inserted;
};

[[nodiscard]] Replacement Compare(const QString& before, const QString& now);

}  // namespace tessarine
