// SPDX-License-Identifier: GPL-2.0-or-later
// The file behind a layer.
#pragma once

#include <qgsvectorlayer.h>

#include <optional>
#include <string>
#include <vector>

namespace tessarine::qgis {

struct FileBehind {
  std::string path;       ///< a native path; empty for data in no file
  std::string layer;      ///< empty for files of one layer
  std::string why_other;  ///< in what the layer shows something else, the end of a sentence; empty where in nothing
};

/// The file of the layer's data. The layer's filter isn't looked at: it leaves rows out, but changes none.
[[nodiscard]] FileBehind FileOf(const QgsVectorLayer& layer);

struct LayerFile {
  std::string path;   ///< a native path
  std::string layer;  ///< empty for files of one layer
};

/// The file whose rows and reference the engine finds as the layer shows them. Empty for a layer with a filter,
/// joined or calculated fields, unsaved edits or a reference of the user's choice, and for data that lie in no file.
/// Texts may read otherwise where `HasOwnTexts` is false.
[[nodiscard]] std::optional<LayerFile> FileShownBy(const QgsVectorLayer& layer);

/// False where the program decodes texts by the user's choice.
[[nodiscard]] bool HasOwnTexts(const QgsVectorLayer& layer);

/// The other layers of the project whose data lie in the same file. Layers of a container count whatever their table.
[[nodiscard]] std::vector<QgsVectorLayer*> OthersOfFile(const QgsVectorLayer& layer);

/// Whether the data can be asked for: false when the file or folder of a layer has gone, though the program may hold
/// it open still, and when the provider has given up.
[[nodiscard]] bool DataAreThere(const QgsVectorLayer& layer);

}  // namespace tessarine::qgis
