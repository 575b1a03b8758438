// SPDX-License-Identifier: GPL-2.0-or-later
// A text with places for names and numbers, and its translation: "'%1' has no layer '%2'.".
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

namespace tessarine {

/// True where a text has a place, as "%1".
[[nodiscard]] bool HasPlace(const QString& text);

/// The translation with the blanks that stand around the text.
[[nodiscard]] QString InBlanksOf(const QString& text, const QString& translation);

/// A text and its translation have their places in common. What stands for a place may be somebody's name for
/// something, and stays; where the translation has the place as "%L1", it is a text of the suite, and is translated,
/// too. A pattern of one line that ends in a place fits no text that goes on in another line.
class TextPattern {
 public:
  using Translator = std::function<QString(const QString&)>;

  TextPattern(const QString& text, QString translation);

  /// How many characters stand between the places: the more, the more a fit says.
  [[nodiscard]] int Weight() const { return weight_; }

  /// The translation of a text that was made by the pattern, with what stands for its places; null where it wasn't
  /// made by it. Each place takes as little as it can.
  [[nodiscard]] std::optional<QString> Translate(const QString& text, const Translator& translate) const;

 private:
  [[nodiscard]] std::optional<QStringList> ValuesIn(const QString& text) const;

  QStringList pieces_;        // one more than places
  std::vector<int> numbers_;  // of the places, in the order of the text
  QString translation_;
  int weight_ = 0;
};

}  // namespace tessarine
