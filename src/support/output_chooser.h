// SPDX-License-Identifier: GPL-2.0-or-later
// The choice of an output feature class, as every dialog with an output box offers it: a proposed path, a typed path
// or a place picked in the browse dialog.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "outputs/output_place.h"
#include "platform/application.h"
#include "platform/tool.h"
#include "session/clsExtension.h"
#include "support/output_kinds.h"

namespace tessarine::MyGeneralOperations {

/// The place of a class at this backslash path. The name of a feature dataset is a part of the path that no workspace
/// knows, so it leaves the directory; formats without such datasets have none.
[[nodiscard]] OutputPlace PlaceAtPath(const std::string& path, std::int32_t kind, const std::string& dataset);

/// The path without one "\" or "/" at its end.
[[nodiscard]] std::string WithoutTrailingSlash(std::string path);

/// The place, without a name, that the last run left in the extension, or beside the document when that place is gone.
[[nodiscard]] OutputPlace RememberedPlace(const clsExtension& extension,
                                          const std::shared_ptr<IApplication>& application);
/// A free name in the place: the base name, with a number where it is taken.
[[nodiscard]] OutputPlace ProposeName(OutputPlace place, const std::string& base_name);
/// The proposal for a new output: a free name in the place that the last run left in the extension, or beside the
/// document when that place is gone.
[[nodiscard]] OutputPlace ProposeOutput(const clsExtension& extension, const std::shared_ptr<IApplication>& application,
                                        const std::string& base_name);

/// Takes over a path that names a format beyond shapefiles and geodatabases, by the ending of its file or container; a
/// container alone stands for a layer of its own name. False, and nothing changed, for every other path.
[[nodiscard]] bool FollowNamedFormat(const std::string& text, OutputPlace& place);

/// Takes over a path that was typed. A format that it names is its kind, as `FollowNamedFormat` finds it. Else the
/// kind follows from the last four characters of the whole path, so a feature class typed into a geodatabase counts as
/// a shapefile; only browsing names such places.
void FollowTypedPath(const std::string& text, OutputPlace& place);

/// Shows the browse dialog until the user picks a usable place or gives up. True when the choice changed.
[[nodiscard]] bool BrowseForOutput(const std::string& text, OutputPlace& place,
                                   const std::string& title = "Enter the name of your new Feature Class or Shapefile:");
/// The same, taking every item of a geodatabase for a place in it.
struct AnyGeodatabasePlace {};
inline constexpr AnyGeodatabasePlace kAnyGeodatabasePlace;
[[nodiscard]] bool BrowseForOutput(const std::string& text, OutputPlace& place, AnyGeodatabasePlace);

/// The path that a run gets: the text as typed, or, for the formats beyond shapefiles and geodatabases, the choice's
/// own.
[[nodiscard]] std::string ChosenPath(const std::string& text, const OutputPlace& place);

/// What stands against an output at this path: a name that can't be, or no folder, geodatabase or container to make it
/// in. Empty where it can be made.
[[nodiscard]] std::optional<Objection> ObjectionTo(const std::string& path, const OutputPlace& place);
/// The same for a text in an output's box; the user is told of it. True where the output can be made.
[[nodiscard]] bool OutputWorkspaceExists(const std::string& text, const OutputPlace& place);

/// The place of an argument, as a run takes it: in a folder it gets the base name, with a number where that is taken;
/// names in geodatabases become legal ones.
[[nodiscard]] OutputPlace PlaceFor(const ToolOutput& output, const std::string& base_name);
/// The argument for a place that a dialog was left with: its whole path was typed or shown.
[[nodiscard]] ToolOutput ShownArgument(const OutputPlace& place);

/// The output that the dialog was left with: the path in `NewShapefileLocation` and the place that is remembered.
[[nodiscard]] ToolOutput RememberedOutput(const clsExtension& extension);

/// The place at this path, of the kind and in the dataset that are remembered.
[[nodiscard]] OutputPlace RememberedPlaceAt(const std::string& path, const clsExtension& extension);

/// Leaves kind, place and dataset in the extension, where the next dialog starts.
void RememberOutput(const OutputPlace& place, clsExtension& extension);

}  // namespace tessarine::MyGeneralOperations
