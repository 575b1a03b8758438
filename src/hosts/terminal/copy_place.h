// SPDX-License-Identifier: GPL-2.0-or-later
// The copy that -o of the calculator names.
#pragma once

#include <string>

#include "hosts/document/document_layer.h"
#include "hosts/terminal/common_options.h"
#include "outputs/output_place.h"

namespace tessarine {

struct CopyPlace {
  OutputPlace place;
  bool whole_container = false;  ///< the container was named without a layer in it
};

/// Reads "roads.shp", "town.gpkg", "town.gpkg:roads", "town.gdb/roads", "town.gdb/streets/roads", "roads.geojson" and
/// the like. A container without a layer means the layer of its own name. Raises `Refusal` for anything else.
[[nodiscard]] CopyPlace ParseCopyPlace(const std::string& text);

/// Refuses a place that no copy of the layer can be made at, whatever the user would agree to, such as that of the map
/// document, and a report over it or over the source.
void RefuseUnusableCopy(const CopyPlace& copy, const DocumentFeatureLayer& source, const CommonOptions& options);

enum class Replacing { Nothing, Agreed, Declined };
struct ReplacementAnswer {
  Replacing replacing = Replacing::Nothing;
  std::string question;  ///< that a plan tells of
};
/// Whether what stands at the place may go. Asks whoever can answer; raises `Refusal` where nobody can.
[[nodiscard]] ReplacementAnswer AskToReplace(const CopyPlace& copy, const CommonOptions& options);

}  // namespace tessarine
