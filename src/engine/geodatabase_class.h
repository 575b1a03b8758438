// SPDX-License-Identifier: GPL-2.0-or-later
// New classes of file geodatabases.
#pragma once

#include <gdal_priv.h>

#include <functional>
#include <memory>
#include <string>

#include "engine/filegdb_edit.h"
#include "outputs/output_place.h"
#include "platform/geometry_types.h"
#include "platform/spatial_reference.h"

namespace tessarine::engine {

struct GeodatabaseWish {
  OutputPlace place;      ///< the geodatabase need not be there
  bool replaces = false;  ///< a class or table of the name goes away
  SpatialReferenceRef reference;
  Envelope extent;  ///< of the shapes to come; empty where that isn't known
};

struct NewGeodatabaseClass {
  std::shared_ptr<FileGdbEdit> edit;  ///< ends with the publication of the class
  std::string name;                   ///< as the format gave it
};

/// Makes a layer in the open geodatabase and returns its name. The options hold dataset and grid.
using LayerMaker = std::function<std::string(GDALDataset& dataset, CPLStringList options)>;

/// Makes a class, in a new edit or the one under way, and the geodatabase where there is none. A fault leaves nothing.
[[nodiscard]] NewGeodatabaseClass MakeInGeodatabase(const GeodatabaseWish& wish, const LayerMaker& make);

}  // namespace tessarine::engine
