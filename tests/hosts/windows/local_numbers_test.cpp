// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/local_numbers.h"

#include <gtest/gtest.h>

#include <QLocale>

namespace tessarine {
namespace {

struct LocalNumber {
  const char *locale, *number, *shown, *pasted;
};

const LocalNumber kLocalNumbers[] = {
    {"en_US", "-10,059,303.655", "-10,059,303.655", "-10059303.655"},
    {"de_DE", "-10,059,303.655", "-10.059.303,655", "-10059303,655"},
    {"de_CH", "10,059,303.655", "10\u2019059\u2019303.655", "10059303.655"},
    {"de_DE", "3.5E-07", "3,5E-07", "3,5E-07"},
};

TEST(LocalNumbers, HaveTheSignsOfTheLocale) {
  for (const auto& [locale, number, shown, pasted] : kLocalNumbers) {
    QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
    EXPECT_EQ(InLocale(number).toStdString(), shown) << locale;
    EXPECT_EQ(ForTables(number).toStdString(), pasted) << locale;
  }
  QLocale::setDefault(QLocale::c());
}

TEST(LocalNumbers, HaveNoGroupsWhereTheUserWantsNone) {
  QLocale german(QLocale::German, QLocale::Germany);
  QLocale::setDefault(german);
  EXPECT_EQ(CountText(1234567).toStdString(), "1.234.567");
  german.setNumberOptions(QLocale::OmitGroupSeparator);
  QLocale::setDefault(german);
  EXPECT_EQ(InLocale("1,234.5").toStdString(), "1234,5");
  EXPECT_EQ(CountText(1234567).toStdString(), "1234567");
  QLocale::setDefault(QLocale::c());
}

}  // namespace
}  // namespace tessarine
