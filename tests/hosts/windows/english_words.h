// SPDX-License-Identifier: GPL-2.0-or-later
// Finds what is left in English in the windows of a German program, wherever it comes from.
#pragma once

#include <QSet>
#include <QStringList>
#include <QWidget>

namespace tessarine::testing {

/// All that a person can read in a window: its title, captions, tool tips, what boxes, lists and tables hold, and what
/// stands in boxes that are empty.
[[nodiscard]] QStringList ShownTextsOf(const QWidget& window);

/// The English words of the suite: those of its texts that occur in no German one.
class EnglishWords {
 public:
  EnglishWords();

  [[nodiscard]] int Count() const { return words_.size(); }

  /// The texts among these that have one of the words, each with the word behind it. What stands in quotes or is a path
  /// may be somebody's name for something.
  [[nodiscard]] QStringList In(const QStringList& texts) const;

 private:
  QSet<QString> words_;
};

}  // namespace tessarine::testing
