// SPDX-License-Identifier: GPL-2.0-or-later
// Choices among words of the suite. Scripts, models and the program's history hold the words as the suite has them; the
// toolbox shows them in the user's language.
#pragma once

#include <qgsprocessingparameters.h>

#include <memory>

namespace tessarine::qgis {

enum class ChoiceOf { One, Several };

/// A parameter whose values are words of the list: a text, or a list of texts. A word in a translation isn't taken:
/// what one user writes has to run at another's.
[[nodiscard]] std::unique_ptr<QgsProcessingParameterDefinition> ChoiceParameter(const QString& name,
                                                                                const QString& label,
                                                                                const QStringList& words, ChoiceOf of,
                                                                                bool optional);

/// Make the kind of parameter known to the program, and its box to the program's dialogs. The program keeps them until
/// its end. For the main thread, any number of times.
void AddChoiceParameters();
void AddChoiceBoxes();

}  // namespace tessarine::qgis
