// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/local_numbers.h"

#include <QDate>
#include <QLocale>
#include <QRegularExpression>
#include <QTime>

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

// The suite's forms of moments, as Qt names their parts.
constexpr const char* kTime = "h:mm:ss AP";
constexpr const char* kShortDate = "M/d/yyyy";
constexpr const char* kLongDate = "dddd, MMMM d, yyyy";

const QRegularExpression& Moment() {
  static const QRegularExpression moment(QStringLiteral(
      R"((?<time>\d{1,2}:\d{2}:\d{2} [AP]M)|(?<short>\d{1,2}/\d{1,2}/\d{4})|(?<long>[A-Z][a-z]+day, [A-Z][a-z]+ \d{1,2}, \d{4}))"));
  return moment;
}

// A locale's short form has two digits for the year where that is the custom, and its long time names the zone.
QString ShownDate(const QDate& date) {
  const QLocale locale;
  QString form = locale.dateFormat(QLocale::ShortFormat);
  if (!form.contains(QLatin1String("yyyy"))) form.replace(QLatin1String("yy"), QLatin1String("yyyy"));
  return locale.toString(date, form);
}

QString ShownTime(const QTime& time) {
  const QLocale locale;
  return locale.toString(time, locale.timeFormat(QLocale::LongFormat).remove(QLatin1Char('t')).trimmed());
}

QString ShownMoment(const QRegularExpressionMatch& match) {
  const QLocale suite = QLocale::c();
  const QString told = match.captured();
  if (!match.captured(QStringLiteral("time")).isEmpty()) return ShownTime(suite.toTime(told, QLatin1String(kTime)));
  if (!match.captured(QStringLiteral("short")).isEmpty())
    return ShownDate(suite.toDate(told, QLatin1String(kShortDate)));
  return QLocale().toString(suite.toDate(told, QLatin1String(kLongDate)), QLocale::LongFormat);
}

}  // namespace

QString InLocale(std::string_view number) {
  const QLocale locale;
  const bool has_groups = !locale.numberOptions().testFlag(QLocale::OmitGroupSeparator);
  return WithSigns(number, has_groups ? QString(locale.groupSeparator()) : QString());
}

QString ForTables(std::string_view number) { return WithSigns(number, QString()); }

QString CountText(std::int64_t count) { return QLocale().toString(static_cast<qlonglong>(count)); }

QString NumberInLocale(const QString& text) {
  static const QRegularExpression number(QStringLiteral(R"(^-?(\d+|\d{1,3}(,\d{3})+)(\.\d+)?$)"));
  return number.match(text).hasMatch() ? InLocale(text.toStdString()) : QString();
}

QString PercentInLocale(const QString& text) {
  static const QRegularExpression percent(QStringLiteral(R"(^\(([\d.]+)%\)$)"));
  const QRegularExpressionMatch match = percent.match(text);
  return match.hasMatch() ? QStringLiteral("(%1%)").arg(NumberInLocale(match.captured(1))) : QString();
}

QString MomentInLocale(const QString& text) {
  static const QRegularExpression separator(QStringLiteral("^([,;]? +| at )?$"));
  QString shown;
  int behind = 0;
  for (auto moments = Moment().globalMatch(text); moments.hasNext();) {
    const QRegularExpressionMatch match = moments.next();
    const QString between = text.mid(behind, match.capturedStart() - behind);
    const QString moment = ShownMoment(match);
    if (!separator.match(between).hasMatch() || between.isEmpty() != (behind == 0) || moment.isEmpty()) return {};
    shown += (between == QLatin1String(" at ") ? QStringLiteral(", ") : between) + moment;
    behind = match.capturedEnd();
  }
  return behind == text.size() ? shown : QString();
}

}  // namespace tessarine
