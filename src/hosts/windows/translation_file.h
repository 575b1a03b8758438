// SPDX-License-Identifier: GPL-2.0-or-later
// A file of translations (.ts), as translators write it.
#pragma once

#include <QHash>
#include <QIODevice>
#include <QString>

namespace tessarine {

/// The translations by their texts, both without blanks around them. Texts that are marked as unfinished, or as no
/// longer in use, are left out. Empty where the file is no such file, or is damaged.
[[nodiscard]] QHash<QString, QString> ReadTranslations(QIODevice& file);

}  // namespace tessarine
