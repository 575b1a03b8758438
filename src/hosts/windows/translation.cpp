// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/translation.h"

#include <QRegularExpression>
#include <QTranslator>
#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "hosts/windows/mnemonics.h"
#include "hosts/windows/translated_patterns.h"

// The translations lie in the library; those of an archive have to be asked for.
static void InitTranslations() {
#ifdef TESSARINE_TRANSLATIONS
  Q_INIT_RESOURCE(tessarine_translations);
#endif
}

namespace tessarine {
namespace {

constexpr const char* kContext = "Tessarine";

/// A text with places for names and numbers, as "%1 of %2".
struct Pattern {
  QRegularExpression form;
  QString translation;
};

struct Language {
  QTranslator texts;
  std::vector<Pattern> patterns;

  [[nodiscard]] QString Find(const QString& text) const { return texts.translate(kContext, text.toUtf8().constData()); }
};

std::unique_ptr<Language>& InUse() {
  static std::unique_ptr<Language> language;
  return language;
}

// Each place of the pattern takes as little as it can.
QRegularExpression FormOf(const QString& pattern) {
  static const QRegularExpression places(QStringLiteral("%\\d"));
  QString form = QRegularExpression::escape(pattern);
  form.replace(QStringLiteral("\\%"), QStringLiteral("%")).replace(places, QStringLiteral("(.*?)"));
  return QRegularExpression(QRegularExpression::anchoredPattern(form), QRegularExpression::DotMatchesEverythingOption);
}

bool HasLetter(const QString& text) {
  return std::any_of(text.begin(), text.end(), [](QChar character) { return character.isLetter(); });
}

// Blanks around a text, as captions of windows have them, are no part of it.
QString Found(const Language& language, const QString& text) {
  const QString plain = text.trimmed();
  if (const QString exact = language.Find(plain); !exact.isEmpty()) return exact;
  for (const Pattern& pattern : language.patterns) {
    const QRegularExpressionMatch match = pattern.form.match(plain);
    if (!match.hasMatch()) continue;
    // A text for a place may have a translation itself.
    QString whole = pattern.translation;
    for (int place = match.lastCapturedIndex(); place > 0; --place) {
      const QString part = match.captured(place);
      const QString found = HasLetter(part) ? Found(language, part) : QString();
      whole.replace(QStringLiteral("%%1").arg(place), found.isEmpty() ? part : found);
    }
    return whole;
  }
  return {};
}

}  // namespace

bool UseLanguage(const QLocale& language) {
  InitTranslations();
  InUse() = nullptr;
  auto fresh = std::make_unique<Language>();
  const QString code = language.name().section(QLatin1Char('_'), 0, 0);
  if (!fresh->texts.load(QStringLiteral(":/tessarine/tessarine_%1.qm").arg(code))) return false;
  for (const char* pattern : kTranslatedPatterns) {
    const QString text = QString::fromUtf8(pattern);
    const QString translation = fresh->Find(text);
    if (!translation.isEmpty()) fresh->patterns.push_back({FormOf(text), translation});
  }
  InUse() = std::move(fresh);
  return true;
}

QString Translated(const QString& text) {
  if (!InUse() || !HasLetter(text)) return text;
  const QString found = Found(*InUse(), text);
  return found.isEmpty() ? text : found;
}

QString Translated(std::string_view text) {
  return Translated(QString::fromUtf8(text.data(), static_cast<int>(text.size())));
}

bool HasTranslation(const QString& text) { return !HasLetter(text) || (InUse() && !Found(*InUse(), text).isEmpty()); }

}  // namespace tessarine
