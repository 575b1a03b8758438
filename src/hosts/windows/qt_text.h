// SPDX-License-Identifier: GPL-2.0-or-later
// Text between the suite, which speaks UTF-8, and Qt, which speaks UTF-16.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tessarine {

[[nodiscard]] inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

/// The same with the line ends of a text widget.
[[nodiscard]] inline QString LinesToQt(std::string_view text) {
  return ToQt(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

[[nodiscard]] inline std::string FromQt(const QString& text) { return text.toStdString(); }

/// A count of characters as an index into UTF-16, and back. Both stop at the end of the text.
[[nodiscard]] inline int IndexOfCharacter(const QString& text, int characters) {
  int index = 0;
  for (; characters > 0 && index < text.size(); --characters) {
    index += text.at(index).isHighSurrogate() && index + 1 < text.size() ? 2 : 1;
  }
  return index;
}
[[nodiscard]] inline int CharactersBefore(const QString& text, int index) {
  int characters = 0;
  for (int at = 0; at < index && at < text.size(); ++characters) {
    at += text.at(at).isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
  }
  return characters;
}

}  // namespace tessarine
