// SPDX-License-Identifier: GPL-2.0-or-later
// What a layer of the program is given when a run has made or filled it. Nothing of it is written into data.
#pragma once

#include <qgsvectorlayer.h>

#include "hosts/qgis/results/result_origin.h"

namespace tessarine::qgis {

/// For a new layer: look, labels, aliases and metadata.
void DressResult(QgsVectorLayer& layer, const ResultOrigin& origin);

/// For a layer whose rows were calculated: aliases, and what was done in its history.
void NoteCalculation(QgsVectorLayer& layer, const ResultOrigin& origin);

/// Names what the fields hold. An alias that somebody else has chosen stays.
void NameFields(QgsVectorLayer& layer, const std::vector<FieldAlias>& aliases);

/// Adds to the layer's metadata what they don't tell yet, and to its history how it was made.
void TellOrigin(QgsVectorLayer& layer, const ResultOrigin& origin);

}  // namespace tessarine::qgis
