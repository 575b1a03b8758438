// SPDX-License-Identifier: GPL-2.0-or-later
// Changes of a layer that belong together.
#pragma once

#include <memory>

#include "hosts/qgis/layer_class.h"
#include "platform/data.h"

namespace tessarine::qgis {

/// While it lasts, what is changed goes to the edit buffer of a layer that the user edits, as one command that can be
/// undone; and to the file itself where the layer shows just a file that the engine changes in place, which takes a
/// small part of the provider's time and keeps geodatabases whole. Null for data that only their provider changes.
/// Faults of a file that can't be opened or is held by others.
[[nodiscard]] std::shared_ptr<IEdit> BeginLayerEdit(const std::shared_ptr<LayerClass>& rows);

}  // namespace tessarine::qgis
