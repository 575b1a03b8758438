// SPDX-License-Identifier: GPL-2.0-or-later
// What the planetary tools share.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "planetary/planetary_lists.h"
#include "planetary/planetary_runs.h"
#include "tools/common/tool_parts.h"
#include "tools/tool.h"

namespace tessarine {

/// The base name of their outputs.
inline constexpr const char* kPlanetaryOutput = "Output";
inline constexpr const char* kPlanetaryTakes = "layers in degrees of longitude and latitude";

[[nodiscard]] ToolParameter ShiftParameter();

/// Empty for a layer of features in degrees.
[[nodiscard]] std::optional<Objection> ObjectionToLayer(const ToolSpec& spec, const LayerRef& layer);
[[nodiscard]] std::optional<Objection> ObjectionToPlace(const Arguments& arguments);

/// What nobody gave stays as the document remembers it, and is named here.
using FromDocument = std::vector<std::string>;
/// The shift of the arguments, or the one that the extension remembers.
[[nodiscard]] double ShiftOf(const Arguments& arguments, const clsExtension& extension, FromDocument& from_document);
/// 180 and 360; 0 for any other word.
[[nodiscard]] std::int32_t WrapOptionOf(const std::string& word);
/// "180", "360", or the word for none of both.
[[nodiscard]] std::string WordOf(std::int32_t wrap_option, const char* otherwise);

/// The place that a dialog begins with: that of the last output, or the document's folder where that is gone.
[[nodiscard]] OutputPlace PlaceForDialog(clsExtension& extension, const std::shared_ptr<IApplication>& application);

/// What a run takes for the creation of its output; the extension remembers the place.
[[nodiscard]] std::shared_ptr<VarArray> DescribeOutput(const Arguments& arguments, clsExtension& extension);

/// Runs with a list of arguments, whose layer is released afterwards: its name alone stays for the next dialog.
[[nodiscard]] std::string RunWithList(const PlanetaryWork& work, RunContext& context,
                                      const std::shared_ptr<VarArray>& list,
                                      const std::shared_ptr<IApplication>& application);

}  // namespace tessarine
