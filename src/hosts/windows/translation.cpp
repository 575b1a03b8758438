// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/translation.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "hosts/windows/local_numbers.h"
#include "hosts/windows/text_pattern.h"
#include "hosts/windows/translation_file.h"

// The translations lie in the library; those of an archive have to be asked for.
static void InitTranslations() { Q_INIT_RESOURCE(tessarine_translations); }

namespace tessarine {
namespace {

const QString kFolder = QStringLiteral(":/tessarine/");
constexpr int kMostSentences = 12;  // of a line that is translated by sentences

bool HasLetter(const QString& text) {
  return std::any_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); });
}

/// The texts of a language.
class Language {
 public:
  explicit Language(QHash<QString, QString> texts) : texts_(std::move(texts)) {
    for (auto text = texts_.cbegin(); text != texts_.cend(); ++text) {
      if (HasPlace(text.key())) patterns_.emplace_back(text.key(), text.value());
    }
    std::ranges::stable_sort(patterns_, std::ranges::greater(), &TextPattern::Weight);
  }

  // Blanks around a text, as captions of windows have them, are no part of it.
  [[nodiscard]] QString Whole(const QString& text) const {
    const QString plain = text.trimmed();
    if (const auto known = texts_.find(plain); known != texts_.end()) return *known;
    for (const TextPattern& pattern : patterns_) {
      if (const auto made = pattern.Translate(plain, [this](const QString& part) { return Value(part); })) return *made;
    }
    return MomentInLocale(plain);
  }

  /// What is known of the text: the whole, or else its lines and sentences.
  [[nodiscard]] QString Any(const QString& text) const {
    if (!HasLetter(text)) return PercentInLocale(text);
    const QString whole = Whole(text);
    if (!whole.isEmpty()) return whole;
    const QStringList lines = text.trimmed().split(QLatin1Char('\n'));
    if (lines.size() == 1) return InSentences(lines.front());
    QStringList translations;
    bool has_any = false;
    for (const QString& line : lines) {
      const bool is_name = !line.trimmed().contains(QLatin1Char(' '));
      QString found = is_name ? QString() : Whole(line);
      if (!found.isEmpty()) {
        found = InBlanksOf(line, found);
      } else if (!is_name) {
        found = InSentences(line);
      }
      has_any = has_any || !found.isEmpty();
      translations << (found.isEmpty() ? line : found);
    }
    return has_any ? translations.join(QLatin1Char('\n')) : QString();
  }

 private:
  // What stands at a place: a number, or a text of the suite.
  [[nodiscard]] QString Value(const QString& text) const {
    const QString number = NumberInLocale(text.trimmed());
    return number.isEmpty() ? Any(text) : number;
  }

  // Sentences and brackets, of which texts are put together; the longest run of them that is known counts.
  [[nodiscard]] QString InSentences(const QString& line) const {
    static const QRegularExpression end(QStringLiteral("[.!?] +(?=\\S)|(?<=\\))(?=\\S)| (?=\\()"));
    std::vector<int> begins{0};
    for (auto ends = end.globalMatch(line); ends.hasNext();) begins.push_back(ends.next().capturedEnd());
    if (begins.size() < 2 || begins.size() > kMostSentences) return {};
    begins.push_back(line.size());
    QString whole;
    bool has_any = false;
    for (std::size_t first = 0; first + 1 < begins.size();) {
      const std::size_t behind = BehindLongestKnown(line, begins, first);
      const QString part = line.mid(begins[first], begins[std::max(behind, first + 1)] - begins[first]);
      whole += behind == first ? part : InBlanksOf(part, Whole(part));
      has_any = has_any || behind != first;
      first = std::max(behind, first + 1);
    }
    return has_any ? whole : QString();
  }

  // The place after it; the first one where none is known.
  [[nodiscard]] std::size_t BehindLongestKnown(const QString& line, const std::vector<int>& begins,
                                               std::size_t first) const {
    for (std::size_t behind = begins.size() - 1; behind > first; --behind) {
      if (first == 0 && behind + 1 == begins.size()) continue;
      const QString part = line.mid(begins[first], begins[behind] - begins[first]).trimmed();
      if (part.contains(QLatin1Char(' ')) && !Whole(part).isEmpty()) return behind;
    }
    return first;
  }

  QHash<QString, QString> texts_;
  std::vector<TextPattern> patterns_;  // those that say most first
};

std::unique_ptr<Language>& InUse() {
  static std::unique_ptr<Language> language;
  return language;
}

}  // namespace

bool UseLanguage(const QLocale& language) {
  InitTranslations();
  InUse() = nullptr;
  const QString code = language.name().section(QLatin1Char('_'), 0, 0);
  QFile file(kFolder + QStringLiteral("tessarine_%1.ts").arg(code));
  if (!file.open(QIODevice::ReadOnly)) return false;
  InUse() = std::make_unique<Language>(ReadTranslations(file));
  return true;
}

QString Translated(const QString& text) {
  if (!InUse()) return text;
  const QString found = InUse()->Any(text);
  return found.isEmpty() ? text : found;
}

QString Translated(std::string_view text) {
  return Translated(QString::fromUtf8(text.data(), static_cast<int>(text.size())));
}

QStringList InAllLanguages(const char* text) {
  InitTranslations();
  QStringList texts{QString::fromUtf8(text)};
  for (const QString& name : QDir(kFolder).entryList()) {
    QFile file(kFolder + name);
    if (!file.open(QIODevice::ReadOnly)) continue;
    const QString translation = ReadTranslations(file).value(texts.front());
    if (!translation.isEmpty()) texts << translation;
  }
  return texts;
}

bool HasTranslation(const QString& text) { return !HasLetter(text) || (InUse() && !InUse()->Whole(text).isEmpty()); }

}  // namespace tessarine
