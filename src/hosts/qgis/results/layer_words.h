// SPDX-License-Identifier: GPL-2.0-or-later
// How the terminal names what a run reads of a layer of the program.
#pragma once

#include <qgsvectorlayer.h>

#include "platform/command_line.h"

namespace tessarine::qgis {

enum class ReadRows { All, Selected };

/// The file with its layer, and the rows that the layer's filter and its selection leave as a condition.
[[nodiscard]] LayerWords WordsOf(const QgsVectorLayer& layer, ReadRows rows);

/// A condition that the rows of these identifiers meet alone: "fid IN (3,9) OR fid BETWEEN 20 AND 25".
[[nodiscard]] std::string RowsCondition(const std::string& key, const QgsFeatureIds& ids);

}  // namespace tessarine::qgis
