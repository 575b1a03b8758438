// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/mnemonics.h"

#include <set>

namespace tessarine {
namespace {

constexpr QLatin1Char kMark('&');

// The place of the mark; two in a row stand for the character itself.
int MarkIn(const QString& caption) {
  for (int at = caption.indexOf(kMark); at >= 0 && at + 1 < caption.size(); at = caption.indexOf(kMark, at + 2)) {
    if (caption.at(at + 1) != kMark && !caption.at(at + 1).isSpace()) return at;
  }
  return -1;
}

bool BeginsWord(const QString& caption, int at) { return at == 0 || !caption.at(at - 1).isLetterOrNumber(); }

void TakeFreeLetter(QString& caption, std::set<QChar>& taken) {
  for (const bool first_letters : {true, false}) {
    for (int at = 0; at < caption.size(); ++at) {
      const QChar letter = caption.at(at);
      // Letters beyond ASCII aren't on every keyboard.
      if (letter.unicode() >= 0x80 || !letter.isLetterOrNumber() || BeginsWord(caption, at) != first_letters) continue;
      if (!taken.insert(letter.toLower()).second) continue;
      caption.insert(at, kMark);
      return;
    }
  }
}

}  // namespace

QChar MnemonicOf(const QString& caption) {
  const int at = MarkIn(caption);
  return at < 0 ? QChar() : caption.at(at + 1).toLower();
}

QString WithoutMnemonic(QString caption) {
  const int at = MarkIn(caption);
  return at < 0 ? caption : caption.remove(at, 1);
}

void ShareLetters(std::vector<MarkedCaption>& captions) {
  std::set<QChar> taken;
  for (MarkedCaption& caption : captions) {
    const QChar letter = MnemonicOf(caption.text);
    if (letter.isNull() || taken.insert(letter).second) continue;
    caption.text = WithoutMnemonic(caption.text);
    caption.wants_letter = true;
  }
  for (MarkedCaption& caption : captions) {
    if (caption.wants_letter && MnemonicOf(caption.text).isNull()) TakeFreeLetter(caption.text, taken);
  }
}

}  // namespace tessarine
