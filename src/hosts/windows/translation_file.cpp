// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/translation_file.h"

#include <QXmlStreamReader>

namespace tessarine {

QHash<QString, QString> ReadTranslations(QIODevice& file) {
  QHash<QString, QString> translations;
  QXmlStreamReader reader(&file);
  QString text;
  while (!reader.atEnd()) {
    if (reader.readNext() != QXmlStreamReader::StartElement) continue;
    if (reader.name() == QLatin1String("source")) text = reader.readElementText().trimmed();
    if (reader.name() != QLatin1String("translation")) continue;
    const bool is_done = !reader.attributes().hasAttribute(QLatin1String("type"));
    const QString translation = reader.readElementText().trimmed();
    if (is_done && !translation.isEmpty()) translations.insert(text, translation);
  }
  return reader.hasError() ? QHash<QString, QString>() : translations;
}

}  // namespace tessarine
