// SPDX-License-Identifier: GPL-2.0-or-later
// A class of the graphic elements of a map, with their measures and names.
#include "graphics/frmGraphicsShapefile.h"
#include "tools/common/graphics_parts.h"
#include "tools/common/tool_parts.h"

namespace tessarine {
namespace {

const ToolSpec kSpec{
    .name = "graphics to-features",
    .title = "Graphics to Features",
    .text = "Make a feature class of graphic elements",
    .takes = kGraphicsTakes,
    .makes =
        "A class of points with their coordinates, of lines with their lengths or of polygons with their areas, "
        "with the names of the elements, and a layer of it in the map.",
    .class_name = "cmdNewShapefile",
    .parameters =
        {
            {.name = "to",
             .kind = ParameterKind::Shapes,
             .text = "points, polylines or polygons",
             .required = true,
             .choices = {"points", "polylines", "polygons"}},
            {.name = "both",
             .kind = ParameterKind::Flag,
             .text = "Take lines and polygons alike, as polylines or as polygons"},
            {.name = "all", .kind = ParameterKind::Flag, .text = "Take all elements"},
            {.name = "selected",
             .kind = ParameterKind::Flag,
             .text = "Take the selected elements alone",
             .excludes = "all"},
            OutputParameter(),
            ReferenceParameter(),
        },
    .works_on = ToolSubject::Document,
    .reference = ToolReference::Chosen,
    .several_sources = false,
    .note = "Without {all} or {selected} it takes the selected elements where there are any, else all.",
    .example = "tessarine graphics to-features tests/data/graphics.json --to polygons --all -o areas.shp",
};

class GraphicsToFeaturesTool final : public Tool {
 public:
  [[nodiscard]] const ToolSpec& Spec() const override { return kSpec; }

  [[nodiscard]] const CommandTexts& Command() const override {
    static const CommandTexts texts = MakeShapefileTexts(1);
    return texts;
  }

  [[nodiscard]] std::optional<Arguments> Ask(const std::shared_ptr<IApplication>& application) const override {
    ShowDialog<frmGraphicsShapefile>(application);
    return std::nullopt;
  }

  [[nodiscard]] std::optional<Objection> Validate(const Arguments& arguments,
                                                  const std::shared_ptr<IApplication>& application) const override {
    return ObjectionToConversion(arguments, *DocumentOf(application));
  }

  [[nodiscard]] std::string Run(RunContext& context, const Arguments& arguments,
                                const std::shared_ptr<IApplication>& application) const override {
    return ConvertGraphics(context, arguments, application, GraphicsWork::Run);
  }

  [[nodiscard]] std::string Plan(RunContext& context, const Arguments& arguments,
                                 const std::shared_ptr<IApplication>& application) const override {
    return ConvertGraphics(context, arguments, application, GraphicsWork::Plan);
  }
};

}  // namespace

namespace tools {

const Tool& GraphicsToFeatures() {
  static const GraphicsToFeaturesTool tool;
  return tool;
}

}  // namespace tools
}  // namespace tessarine
