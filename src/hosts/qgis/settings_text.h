// SPDX-License-Identifier: GPL-2.0-or-later
// The settings of the suite as one text, which a project keeps.
//
// The map program ships headers of another release of the same JSON library; what includes ours stays apart from them.
#pragma once

#include <string>

#include "platform/application.h"

namespace tessarine::qgis {

[[nodiscard]] std::string WriteSettings(IPersistVariant& extension);
/// A fault for a text that holds no settings.
void ReadSettings(IPersistVariant& extension, const std::string& text);

}  // namespace tessarine::qgis
