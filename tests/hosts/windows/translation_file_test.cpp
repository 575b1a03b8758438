// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/translation_file.h"

#include <gtest/gtest.h>

#include <QBuffer>

#include "hosts/windows/text_pattern.h"

namespace tessarine {
namespace {

QHash<QString, QString> Read(const char* messages) {
  QByteArray text = QByteArray(
                        "<?xml version=\"1.0\" encoding=\"utf-8\"?><!DOCTYPE TS><TS version=\"2.1\" language=\"fr\">"
                        "<context><name>Tessarine</name>") +
                    messages + "</context></TS>";
  QBuffer file(&text);
  file.open(QIODevice::ReadOnly);
  return ReadTranslations(file);
}

TEST(TranslationFile, HoldsWhatIsDone) {
  const auto read = Read(
      "<message><source>Cancel</source><translation>Annuler</translation></message>"
      "<message><source> There is no file &apos;%1&apos;. </source><translation>\n Pas de fichier "
      "'%1'.</translation></message>"
      "<message><source>Yes</source><translation type=\"unfinished\">Oui</translation></message>"
      "<message><source>Gone</source><translation type=\"vanished\">Parti</translation></message>"
      "<message><source>Empty</source><translation></translation></message>");
  EXPECT_EQ(read.size(), 2);
  EXPECT_EQ(read.value("Cancel"), "Annuler");
  EXPECT_EQ(read.value("There is no file '%1'."), "Pas de fichier '%1'.");
}

TEST(TranslationFile, HoldsNothingWhereItIsDamaged) {
  EXPECT_TRUE(Read("<message><source>Cancel</source><translation>Annuler</message>").isEmpty());
}

struct PatternCase {
  const char *name, *pattern, *translation, *text, *made;
};

const PatternCase kPatterns[] = {
    {"places in another order", "%1 of %2", "%2, darin %1", "3 of 5", "5, darin 3"},
    {"as little as fits", "a %1 b %2", "%1|%2", "a x b y b z", "x|y b z"},
    {"a value like a place", "a %1 b %2", "%1|%2", "a %2 b %1", "%2|%1"},
    {"more than nine places", "%1%2%3%4%5%6%7%8%9 %10", "%10", " x", "x"},
    {"a text to translate, with its blanks", "a%1.", "b%L1.", "a Yes .", "b <Yes> ."},
    {"another end", "a %1.", "b %1.", "a x", nullptr},
    {"beginning and end in each other", "aba%1ba", "%1", "aba", nullptr},
    {"a piece that is missing", "a %1, %2", "%1", "a x y", nullptr},
};

TEST(TextPattern, FindsWhatStandsForItsPlaces) {
  for (const auto& [name, pattern, translation, text, made] : kPatterns) {
    const auto whole = TextPattern(pattern, translation).Translate(text, [](const QString& part) {
      return "<" + part.trimmed() + ">";
    });
    EXPECT_EQ(whole.value_or("none").toStdString(), made == nullptr ? "none" : made) << name;
  }
}

}  // namespace
}  // namespace tessarine
