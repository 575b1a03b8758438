// SPDX-License-Identifier: GPL-2.0-or-later
// The texts of the host's own windows, read from its sources: none is left without a translation.
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <set>

#include "hosts/windows/translation.h"
#include "tests/hosts/windows/windows_fixture.h"

namespace tessarine {
namespace {

using ::testing::IsEmpty;

// Identifiers that look like texts, and headings of the manual, which is in English.
const std::set<std::string> kNoTexts = {
    "ESRI Shapefile", "double precision", "Personal Geodatabase", "Feature Dataset", "Feature Class", "dBASE Table",
    "Text File", "SQLite format 3", "model name", "Tessarine Suite", "As the data", "Closing leg", "Wrap to a boundary",
    "Planetographic and planetocentric latitudes", "Graphic elements to shapes", "Select graphic elements",
    "Name graphic elements", "The report", "The progress window",
    // What a fault says is the same in all languages, as at the terminal.
    "more like it)", "there is no field '%1'", "The program reads personal geodatabases through ODBC only: install",
    "a driver for them (odbc-mdbtools), or name another output."};

QString ReadText(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

/// A literal of a source, and the statement ahead of it.
struct Literal {
  QString text, statement;

  [[nodiscard]] bool IsTranslated() const { return statement.endsWith(QStringLiteral("Translated(")); }
  [[nodiscard]] bool IsOfFault() const {
    static const QRegularExpression faults(QStringLiteral("Raise|Fault|require\\("));
    return faults.match(statement).hasMatch();
  }
  // Two words or more, and no mark-up or code.
  [[nodiscard]] bool LooksLikeText() const {
    static const QRegularExpression words(QStringLiteral("[A-Za-z]{2,}[,:]? [A-Za-z]{2,}"));
    return words.match(text).hasMatch() && !text.contains(QRegularExpression(QStringLiteral("[<{$]"))) &&
           !kNoTexts.contains(text.toStdString());
  }
};

// Literals that follow each other are one.
std::vector<Literal> LiteralsOf(QString source) {
  const QString literal = QStringLiteral(R"("(?:[^"\\\n]|\\.)*")");
  static const QRegularExpression comments(QStringLiteral("^\\s*#.*$|(^|\\s)//.*$"),
                                           QRegularExpression::MultilineOption);
  static const QRegularExpression one(literal), joined(literal + QStringLiteral("(?:\\s*") + literal + ")*");
  static const QRegularExpression end_of_statement(QStringLiteral("[;{}]\\s"));
  source.remove(comments);
  std::vector<Literal> literals;
  for (auto found = joined.globalMatch(source); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    QString text;
    for (auto piece = one.globalMatch(match.captured()); piece.hasNext();) {
      const QString quoted = piece.next().captured();
      text += quoted.midRef(1, quoted.size() - 2);
    }
    text.replace(QStringLiteral("\\\""), QStringLiteral("\"")).replace(QStringLiteral("\\n"), QStringLiteral("\n"));
    const QString ahead = source.left(match.capturedStart());
    literals.push_back({text.trimmed(), ahead.mid(ahead.lastIndexOf(end_of_statement) + 1).trimmed()});
  }
  return literals;
}

// A text that is put together of pieces is found by its pattern; the pieces lie between the places of that.
bool IsPieceOfPattern(const QString& text, const QString& translations) {
  QString escaped = text.toHtmlEscaped().replace(QStringLiteral("&quot;"), QStringLiteral("\""));
  return translations.contains(escaped.replace(QStringLiteral("&#39;"), QStringLiteral("'")));
}

std::vector<std::string> Untranslated(const QString& folder, const QString& translations) {
  std::vector<std::string> missing;
  QDirIterator sources(folder, {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
  while (sources.hasNext()) {
    const QString source = sources.next();
    for (const Literal& literal : LiteralsOf(ReadText(source))) {
      if (HasTranslation(literal.text)) continue;
      const bool is_shown = literal.LooksLikeText() && !literal.IsOfFault();
      if (literal.IsTranslated() || (is_shown && !IsPieceOfPattern(literal.text, translations))) {
        missing.push_back(sources.fileName().toStdString() + ": " + literal.text.toStdString());
      }
    }
  }
  return missing;
}

TEST(ShownTexts, AreReadFromSources) {
  const std::vector<Literal> literals = LiteralsOf(QStringLiteral(
      "f(Translated(\"One \"\n \"text\"));\n// \"no text\"\nRaise(kWrong, \"the layer \\\"\" + name);\n\"two words\""));
  ASSERT_EQ(literals.size(), 3U);
  EXPECT_EQ(literals[0].text, QStringLiteral("One text"));
  EXPECT_TRUE(literals[0].IsTranslated());
  EXPECT_EQ(literals[1].text, QStringLiteral("the layer \""));
  EXPECT_TRUE(literals[1].IsOfFault());
  EXPECT_TRUE(literals[2].LooksLikeText() && !literals[2].IsTranslated() && !literals[2].IsOfFault());
}

TEST(ShownTexts, OfTheHostHaveTranslations) {
  const testing::QtSession qt;
  if (!UseLanguage(QLocale(QLocale::German))) GTEST_SKIP() << "Built without lrelease.";
  const QString hosts = QStringLiteral(TESSARINE_SOURCE_DIR "/src/hosts/");
  const QString translations = ReadText(hosts + QStringLiteral("windows/translations/tessarine_de.ts"));
  for (const char* room : {"windows", "qgis"}) {
    EXPECT_THAT(Untranslated(hosts + QLatin1String(room), translations), IsEmpty());
  }
  UseLanguage(QLocale::c());
}

}  // namespace
}  // namespace tessarine
