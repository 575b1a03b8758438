// SPDX-License-Identifier: GPL-2.0-or-later
// Letters that lead to controls with the Alt key.
#pragma once

#include <QString>
#include <vector>

namespace tessarine {

/// The letter behind the mark of a caption, in lower case; a null character where none is marked.
[[nodiscard]] QChar MnemonicOf(const QString& caption);
/// The caption without its mark.
[[nodiscard]] QString WithoutMnemonic(QString caption);

/// A caption of a window, and whether it may get a letter that it doesn't mark itself.
struct MarkedCaption {
  QString text;
  bool wants_letter = false;
};

/// Gives each letter to one caption: first to those that mark it, in their order, then to those that want one, who take
/// the first letter of a word where it is free. A mark that another one has already goes; a caption whose letters are
/// all taken stays without.
void ShareLetters(std::vector<MarkedCaption>& captions);

}  // namespace tessarine
