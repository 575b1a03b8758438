// SPDX-License-Identifier: GPL-2.0-or-later
// The texts that a person can meet in a window, a log or a message, read from the sources: none is left without a
// translation.
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <set>

#include "hosts/windows/text_pattern.h"
#include "hosts/windows/translation_file.h"
#include "tests/hosts/windows/source_texts.h"
#include "tests/hosts/windows/untranslated_texts.h"
#include "tests/hosts/windows/windows_fixture.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const QString kSources = QStringLiteral(TESSARINE_SOURCE_DIR "/src/");

QString ReadText(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

QHash<QString, QString> Translations() {
  QFile file(kSources + QStringLiteral("hosts/windows/translations/tessarine_de.ts"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return ReadTranslations(file);
}

QRegularExpression Form(const char* form) {
  return QRegularExpression(QLatin1String(form), QRegularExpression::DotMatchesEverythingOption);
}

// Two words or more; no queries, examples, mark-up, code or parts of reports.
bool LooksLikeText(const QString& text) {
  static const QRegularExpression words = Form("[A-Za-z]{2,}[^A-Za-z]* [^A-Za-z]*[A-Za-z]{2,}");
  static const QRegularExpression code =
      Form(R"(\\par|\\[bf]\d? |\\f\d|zzz|^\n?\t|^ *\*\*|^tessarine |</?\w+[ >]|^\* \{|::\w|\{\n|\n +\{|\w+ \{ |\$\w)"
           R"(|^(SELECT|INSERT|UPDATE|CREATE|ALTER|EXPLAIN|RELEASE|ROLLBACK|SAVEPOINT|%1 BETWEEN)\b)");
  return text.contains(words) && !text.contains(code);
}

// Reports and the terminal speak English to everybody.
bool SpeaksEnglish(const QString& path) {
  static const QRegularExpression english = Form("^hosts/terminal/|(^|[_/])reports?[_.]|rich_text_");
  // Documents of the terminal, and names that are the same in all languages.
  static const QRegularExpression named = Form(
      "^hosts/document/(?!spheroid_names|component_loader)|spheroid_tables|personal_geodatabase_(kinds|xml)|"
      "expressions/function_table");
  return path.contains(english) || path.contains(named);
}

// Fewer characters than these between the places of a text fit too much.
constexpr int kTellingWeight = 12;

bool Fits(const TextPattern& pattern, const QString& text) {
  return pattern.Weight() >= kTellingWeight && pattern.Translate(text, [](const QString& part) { return part; });
}

/// What has a translation: a text, a part of one with places, or the form of several.
class Known {
 public:
  explicit Known(const QHash<QString, QString>& translations) {
    for (auto text = translations.cbegin(); text != translations.cend(); ++text) {
      texts_.insert(InOneLine(text.key()), text.value());
    }
    for (auto text = texts_.cbegin(); text != texts_.cend(); ++text) {
      if (HasPlace(text.key())) patterns_.emplace_back(text.key(), text.value());
    }
  }

  // Patterns end with their line, and here it is all one.
  [[nodiscard]] bool Holds(const QString& made) const { return HoldsLine(InOneLine(made)); }

 private:
  static QString InOneLine(QString text) { return text.replace(QLatin1Char('\n'), QLatin1Char(' ')); }

  [[nodiscard]] bool HoldsLine(const QString& made) const {
    static const QRegularExpression printed(QStringLiteral("%(s|lld)"));
    QString text = made.trimmed();
    for (int place = 1; text.contains(printed); ++place) {
      text.replace(text.indexOf(printed), printed.match(text).capturedLength(), QStringLiteral("%%1").arg(place));
    }
    if (texts_.contains(text)) return true;
    // A part of a text that the source goes on with.
    const TextPattern form(text == made ? text : QStringLiteral("%98") + made + QStringLiteral("%99"), QString());
    return std::any_of(patterns_.begin(), patterns_.end(), [&](const TextPattern& one) { return Fits(one, text); }) ||
           std::any_of(texts_.keyBegin(), texts_.keyEnd(), [&](const QString& key) { return Fits(form, key); });
  }

  QHash<QString, QString> texts_;
  std::vector<TextPattern> patterns_;
};

/// Calls with the file and each text of the sources that looks like one for people.
template <class Visit>
void VisitTexts(Visit&& visit) {
  QDirIterator sources(kSources, {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
  while (sources.hasNext()) {
    const QString source = sources.next();
    if (SpeaksEnglish(source.mid(kSources.size()))) continue;
    for (const QString& text : testing::TextsOf(ReadText(source))) {
      if (LooksLikeText(text)) visit(sources.fileName().toStdString(), text);
    }
  }
}

std::vector<std::string> TextsIn(const char* source) {
  std::vector<std::string> texts;
  for (const QString& text : testing::TextsOf(QString::fromLatin1(source))) texts.push_back(text.toStdString());
  return texts;
}

TEST(ShownTexts, AreReadFromSources) {
  EXPECT_THAT(TextsIn("f(Translated(\"One \"\n \"text\"));  // \"no text\"\n/* \"none\" */ g(\"two\");"),
              ElementsAre("One text", "two"));
  EXPECT_THAT(
      TextsIn("Raise(kWrong, \"'\" + path + \"' has \" + std::to_string(rows(\"of all\")) + \" rows\\r\\n.\");"),
      ElementsAre("'%1' has %2 rows\n.", "of all"));
  EXPECT_THAT(TextsIn("return std::string(\"The \\\"\") + name + '\"' + (is_new ? \" is new\" : Old(\"was\"));"),
              ElementsAre("The \"%1\"%2", " is new", "was"));
  EXPECT_THAT(TextsIn("#include \"a file.h\"\nconst Row rows[] = {{\"a\", 1}, {R\"(b \"c\")\", 2}}; x += \"d\";"),
              ElementsAre("a", "b \"c\"", "d"));
  EXPECT_THAT(TextsIn("kMap[\"key\"] = Label(\"of it\") + \": \" + text;"), ElementsAre("key", "%1: %2", "of it"));
}

// Of two, one would count, and a translator might mend the other.
TEST(ShownTexts, AreTranslatedOnce) {
  const QString file = ReadText(kSources + QStringLiteral("hosts/windows/translations/tessarine_de.ts"));
  QStringList once;
  for (auto sources = Form("<source>(.*?)</source>").globalMatch(file); sources.hasNext();) {
    once << sources.next().captured(1).trimmed();
  }
  EXPECT_GT(once.size(), 1000);
  std::vector<std::string> twice;
  std::sort(once.begin(), once.end());
  for (auto at = std::adjacent_find(once.begin(), once.end()); at != once.end();
       at = std::adjacent_find(at + 1, once.end())) {
    twice.push_back(at->toStdString());
  }
  EXPECT_THAT(twice, IsEmpty());
}

TEST(ShownTexts, HaveTranslations) {
  const QHash<QString, QString> translations = Translations();
  const Known known(translations);
  std::set<std::string> needless(std::begin(testing::kUntranslatedTexts), std::end(testing::kUntranslatedTexts));
  VisitTexts([&](const std::string& file, const QString& text) {
    if (testing::NeedsNoTranslation(text.trimmed().toStdString())) {
      needless.erase(text.trimmed().toStdString());
    } else {
      EXPECT_TRUE(known.Holds(text)) << "No German for \"" << text.toStdString() << "\" of " << file;
    }
  });
  EXPECT_THAT(needless, IsEmpty()) << "These are in no source any more.";
}

// What a fault says is put into the language where it is shown, and nowhere else.
TEST(ShownTexts, OfFaultsAreTranslatedByTheProgramsHost) {
  static const QRegularExpression plain(
      QStringLiteral("(?<!Translated\\()\\b(LinesToQt|ToQt)\\([a-z_.]*Description\\(\\)"));
  int translated = 0;
  QDirIterator sources(kSources + QStringLiteral("hosts/qgis"), {QStringLiteral("*.cpp")}, QDir::Files,
                       QDirIterator::Subdirectories);
  while (sources.hasNext()) {
    const QString text = ReadText(sources.next());
    EXPECT_FALSE(text.contains(plain)) << sources.fileName().toStdString();
    translated += text.count(QStringLiteral("Translated(LinesToQt(fault.Description()))"));
  }
  EXPECT_GT(translated, 4);
}

TEST(ShownTexts, KeepTheirPlacesInTranslations) {
  static const QRegularExpression place(QStringLiteral("%L?(\\d+)"));
  const auto places_of = [](const QString& text) {
    std::set<QString> places;
    for (auto found = place.globalMatch(text); found.hasNext();) places.insert(found.next().captured(1));
    return places;
  };
  const QHash<QString, QString> translations = Translations();
  ASSERT_GT(translations.size(), 500);
  for (auto text = translations.cbegin(); text != translations.cend(); ++text) {
    EXPECT_EQ(places_of(text.key()), places_of(text.value())) << text.key().toStdString();
  }
}

}  // namespace
}  // namespace tessarine
