// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/text_pattern.h"

#include <QRegularExpression>
#include <algorithm>
#include <utility>

namespace tessarine {
namespace {

const QRegularExpression& Place() {
  static const QRegularExpression place(QStringLiteral("%(L?)(\\d{1,2})"));
  return place;
}

}  // namespace

bool HasPlace(const QString& text) { return text.contains(Place()); }

QString InBlanksOf(const QString& text, const QString& translation) {
  const QString core = text.trimmed();
  const int at = text.indexOf(core);
  return text.left(at) + translation + text.mid(at + core.size());
}

TextPattern::TextPattern(const QString& text, QString translation) : translation_(std::move(translation)) {
  int from = 0;
  for (auto places = Place().globalMatch(text); places.hasNext();) {
    const QRegularExpressionMatch place = places.next();
    pieces_ << text.mid(from, place.capturedStart() - from);
    numbers_.push_back(place.captured(2).toInt());
    from = place.capturedEnd();
  }
  pieces_ << text.mid(from);
  for (const QString& piece : std::as_const(pieces_)) weight_ += piece.size();
}

std::optional<QStringList> TextPattern::ValuesIn(const QString& text) const {
  const QString &first = pieces_.front(), &last = pieces_.back();
  const int end = text.size() - last.size();
  if (end < first.size() || !text.startsWith(first) || !text.endsWith(last)) return std::nullopt;
  QStringList values;
  int from = first.size();
  for (int piece = 1; piece + 1 < pieces_.size(); ++piece) {
    const int at = text.indexOf(pieces_.at(piece), from);
    if (at < 0 || at + pieces_.at(piece).size() > end) return std::nullopt;
    values << text.mid(from, at - from);
    from = at + pieces_.at(piece).size();
  }
  values << text.mid(from, end - from);
  // What goes on in another line is another text, unless the pattern has lines of its own.
  const bool goes_on = last.isEmpty() && values.back().contains(QLatin1Char('\n'));
  const auto has_lines = [](const QString& piece) { return piece.contains(QLatin1Char('\n')); };
  if (goes_on && std::none_of(pieces_.begin(), pieces_.end(), has_lines)) return std::nullopt;
  return values;
}

std::optional<QString> TextPattern::Translate(const QString& text, const Translator& translate) const {
  const std::optional<QStringList> values = ValuesIn(text);
  if (!values) return std::nullopt;
  QString whole;
  int from = 0;
  for (auto places = Place().globalMatch(translation_); places.hasNext();) {
    const QRegularExpressionMatch match = places.next();
    whole += translation_.midRef(from, match.capturedStart() - from);
    from = match.capturedEnd();
    const auto number = std::find(numbers_.begin(), numbers_.end(), match.captured(2).toInt());
    if (number == numbers_.end()) continue;
    const QString& value = values->at(static_cast<int>(number - numbers_.begin()));
    const QString translation = match.captured(1).isEmpty() ? QString() : translate(value);
    whole += translation.isEmpty() ? value : InBlanksOf(value, translation);
  }
  return whole + translation_.mid(from);
}

}  // namespace tessarine
