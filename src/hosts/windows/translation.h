// SPDX-License-Identifier: GPL-2.0-or-later
// The texts of forms, menus and tools in the user's language. The suite knows its own texts alone; what a person sees
// is translated here, on the way to the window.
#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>
#include <string_view>

namespace tessarine {

/// Takes the translations of this language from now on; those of none where there are no such. False where texts stay
/// as the suite has them.
bool UseLanguage(const QLocale& language);

/// The text in the language in use. One with names or numbers in it is found by the pattern that it was made by. A text
/// without a translation stays.
[[nodiscard]] QString Translated(const QString& text);
[[nodiscard]] QString Translated(std::string_view text);
[[nodiscard]] inline QString Translated(const char* text) { return Translated(std::string_view(text)); }

/// The text itself and its translations into all languages that there are, for values that are stored as they are
/// shown.
[[nodiscard]] QStringList InAllLanguages(const char* text);

/// True where the language in use has the text, or the pattern of it; texts without a letter need none.
[[nodiscard]] bool HasTranslation(const QString& text);

}  // namespace tessarine
