// SPDX-License-Identifier: GPL-2.0-or-later
// The look of results, by what their features stand for.
#pragma once

#include <qgsvectorlayer.h>

#include <string>
#include <vector>

#include "platform/tool.h"

namespace tessarine::qgis {

/// Gives symbols, and labels where a field names the features: one of the carried ones, or one that is called like a
/// name. A layer with a style of its own keeps it, by a file beside it, its container, the project or the program's
/// settings; so do layers of features that are those of the source.
void StyleResult(QgsVectorLayer& layer, ToolResult kind, const std::vector<std::string>& carried);

}  // namespace tessarine::qgis
