// SPDX-License-Identifier: GPL-2.0-or-later
// The place that -o names.
#pragma once

#include <CLI/App.hpp>
#include <string>

#include "hosts/terminal/terminal_host.h"
#include "outputs/output_place.h"

namespace tessarine {

struct OutputOptions {
  std::string text;
  std::string format;  ///< empty where the path tells it
  std::string to;      ///< the reference that shapes are brought to; empty for that of the tool
  bool stamp = false;  ///< the layer tells where it is from
};

/// What -o says, for the help of a command.
inline constexpr const char* kOutputHelp =
    "NAME.gpkg[:LAYER], NAME.shp, NAME.gdb/CLASS, NAME.geojson, or any other file that GDAL writes; "
    "PG:CONNECTION:SCHEMA.TABLE; - for GeoJSON lines on standard output. 'tessarine formats' lists them";

/// The reference of this name or text. Raises `Refusal`, which names the option, for what is neither geographic nor
/// projected.
[[nodiscard]] SpatialReferenceRef ReadReference(const std::string& option, const std::string& text);

/// Adds --format and --stamp.
void AddFormatOption(CLI::App& command, OutputOptions& options);

struct NamedOutput {
  OutputPlace place;
  bool whole_container = false;          ///< the container was named without a layer in it
  SpatialReferenceRef wished = nullptr;  ///< that its shapes are brought to; null for that of the tool
  bool stamp = false;                    ///< it tells where it is from
};

enum class Folders { Allowed, Refused };

/// Reads "roads.shp", "town.gpkg", "town.gpkg:roads", "town.gdb/roads", "town.gdb/streets/roads", "roads.geojson",
/// "PG:dbname=town:public.roads" and the like; a folder, too, where it is allowed. A container without a layer means
/// the layer of its own name. Raises `Refusal` for anything else, and for a format that isn't to be had here, for a
/// reference that isn't one, and for a stamp that the format doesn't keep.
[[nodiscard]] NamedOutput ParseOutput(const OutputOptions& options, Folders folders);

/// Refuses a container that is there but can't be opened.
void RefuseBrokenContainer(const OutputPlace& place);

/// Refuses data that a run would write to in place and that can't be written to now.
void RefuseUnwritableSource(const std::shared_ptr<IFeatureClass>& features);

}  // namespace tessarine
