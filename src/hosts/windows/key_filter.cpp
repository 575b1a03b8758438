// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/key_filter.h"

namespace tessarine {

std::int32_t KeyOf(const QKeyEvent& event) {
  constexpr std::int32_t kBackspace = 8;
  const bool command = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0 &&
                       (event.modifiers() & Qt::GroupSwitchModifier) == 0;
  if (command) return 0;
  if (event.key() == Qt::Key_Backspace) return kBackspace;
  const QString text = event.text();
  if (text.isEmpty() || !text.at(0).isPrint()) return 0;
  return text.size() == 1 && text.at(0).unicode() < 0x80 ? text.at(0).unicode() : kBeyondAscii;
}

QString WithDecimalPoint(QString number) {
  constexpr QLatin1Char kComma(','), kPoint('.');
  if (!number.contains(kComma)) return number;
  const bool comma_is_last = number.lastIndexOf(kComma) > number.lastIndexOf(kPoint);
  const QLatin1Char decimal = comma_is_last ? kComma : kPoint;
  number.remove(comma_is_last ? kPoint : kComma);
  if (number.count(decimal) > 1) return number.remove(decimal);
  return number.replace(decimal, kPoint);
}

Replacement Compare(const QString& before, const QString& now) {
  int start = 0;
  while (start < before.size() && start < now.size() && before.at(start) == now.at(start)) ++start;
  int end = 0;
  while (end < before.size() - start && end < now.size() - start &&
         before.at(before.size() - 1 - end) == now.at(now.size() - 1 - end)) {
    ++end;
  }
  return {start, before.size() - start - end, now.mid(start, now.size() - start - end)};
}

}  // namespace tessarine
