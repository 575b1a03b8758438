// SPDX-License-Identifier: GPL-2.0-or-later
// What the workspaces share.
#pragma once

#include <memory>
#include <string>

#include "engine/ogr_source.h"
#include "engine/workspace_of.h"
#include "platform/data.h"

namespace tessarine::engine {

/// Removes a shapefile with all files that belong to it.
void DeleteShapefile(const std::string& native_path);

/// What a new class shall be.
struct NewClass {
  std::string name;
  const Fields* fields;
  std::string shape_field;
};

/// How a layer holds shapes of one part and of several.
enum class LayerShapes : std::uint8_t {
  AsOne,     ///< it doesn't tell them apart: a shapefile
  Multiple,  ///< each line and polygon counts as one of several parts
  Any,       ///< each is what it is
};

/// Creates an empty layer in a dataset and adds the attribute fields, in their order. Returns the name that the format
/// gave the layer; it may have given the fields other names, too.
[[nodiscard]] std::string CreateLayer(GDALDataset& dataset, const NewClass& request, CPLStringList options,
                                      LayerShapes shapes);

/// The shape definition of the request's shape field; fault 5 when there is none.
[[nodiscard]] const GeometryDef& ShapeDefinition(const NewClass& request);

/// A folder that a new file can be made in, or a fault that says what is wrong with it.
void RequireWritableFolder(const std::string& native_folder);

}  // namespace tessarine::engine
