// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/local_numbers.h"

#include <QLocale>

namespace tessarine {
namespace {

QString WithSigns(std::string_view number, const QString& group) {
  const QChar decimal = QLocale().decimalPoint();
  QString text;
  for (const char character : number) {
    if (character == ',')
      text += group;
    else
      text += character == '.' ? decimal : QLatin1Char(character);
  }
  return text;
}

}  // namespace

QString InLocale(std::string_view number) {
  const QLocale locale;
  const bool has_groups = !locale.numberOptions().testFlag(QLocale::OmitGroupSeparator);
  return WithSigns(number, has_groups ? QString(locale.groupSeparator()) : QString());
}

QString ForTables(std::string_view number) { return WithSigns(number, QString()); }

QString CountText(std::int64_t count) { return QLocale().toString(static_cast<qlonglong>(count)); }

}  // namespace tessarine
