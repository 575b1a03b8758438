// SPDX-License-Identifier: GPL-2.0-or-later
// The two runs that make a class of a map's graphic elements, or an empty one, by arguments of tools. The dialog fills
// such arguments, too, and refuses what is refused here.
//
// A conversion takes "to" (the shapes of the class, a word of `kGraphicShapes`), the flags "both", "all" and
// "selected", "reference" and "output"; an empty class takes "shapes", "reference" and "output".
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "graphics/graphic_harvest.h"
#include "graphics/graphics_options.h"
#include "platform/tool.h"

namespace tessarine {

/// The base name of their outputs.
inline constexpr const char* kGraphicsOutput = "NewShape";
inline constexpr const char* kNoGraphics = "No graphics available...";

/// A word for the shapes of a class, and the lines of `ConversionAt` that make such.
struct GraphicShape {
  const char* word;
  esriGeometryType type;
  std::int32_t line;       ///< takes elements of this shape alone
  std::int32_t both_line;  ///< takes lines and polygons; -1 where there is none
};
inline constexpr GraphicShape kGraphicShapes[] = {{"points", esriGeometryPoint, 0, -1},
                                                  {"polylines", esriGeometryPolyline, 1, 2},
                                                  {"polygons", esriGeometryPolygon, 3, 4}};
/// The row of a line of `ConversionAt`.
[[nodiscard]] const GraphicShape& ShapeOfConversion(std::int32_t line);

/// The elements of a document, or why none can be converted: as a layout is the active view, or as there are none.
struct GraphicsAtHand {
  std::optional<GraphicHarvest> harvest;
  const char* why_none = nullptr;
};
[[nodiscard]] GraphicsAtHand GraphicsOf(const IMxDocument& document);

/// What stands against a conversion whose set has nothing that it takes. Without a title where the set has.
[[nodiscard]] std::optional<Objection> ObjectionToSet(const GraphicConversion& conversion,
                                                      const GraphicHarvest& harvest, bool selected);

[[nodiscard]] std::optional<Objection> ObjectionToConversion(const Arguments& arguments, const IMxDocument& document);
[[nodiscard]] std::optional<Objection> ObjectionToEmptyClass(const Arguments& arguments, const IMxDocument& document);

/// Whether a run is carried out or only told.
enum class GraphicsWork { Run, Plan };

/// Makes the class, fills it, adds it to the map as a layer and returns the report; empty where nothing was made, which
/// the user knows and the journal notes as cancelled. Faults come out; the journal has them, and nothing is left of the
/// class.
[[nodiscard]] std::string ConvertGraphics(RunContext& context, const Arguments& arguments,
                                          const std::shared_ptr<IApplication>& application, GraphicsWork work);
/// The same for a class without features.
[[nodiscard]] std::string MakeEmptyClass(RunContext& context, const Arguments& arguments,
                                         const std::shared_ptr<IApplication>& application, GraphicsWork work);

}  // namespace tessarine
