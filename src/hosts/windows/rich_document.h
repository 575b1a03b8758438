// SPDX-License-Identifier: GPL-2.0-or-later
// Rich text as a document that Qt lays out, on a screen or on paper.
#pragma once

#include <QString>
#include <QTextDocument>

#include "platform/rich_text.h"

namespace tessarine {

/// Fills the document, in place of what it holds. Sizes are points, multiplied by `scale`.
void FillDocument(QTextDocument& document, const RichText& text, const QString& font_family, double scale);

enum class AppendedTo { LastLine, NewLine };
/// Puts text after what the document holds, in time of the text's length alone.
void AppendToDocument(QTextDocument& document, const RichText& text, AppendedTo place, const QString& font_family,
                      double scale);

}  // namespace tessarine
