// SPDX-License-Identifier: GPL-2.0-or-later
// An empty class of points, lines or polygons, to draw into.
#include "graphics/frmGraphicsShapefile.h"
#include "tools/common/graphics_parts.h"
#include "tools/common/tool_parts.h"

namespace tessarine {
namespace {

const ToolSpec kSpec{
    .name = "graphics new",
    .title = "Empty Feature Class",
    .text = "Make an empty feature class",
    .takes = "a map document",
    .makes = "A class without features, with the fields that graphics of its shape get, and a layer of it in the map.",
    .class_name = "cmdNewShapefile",
    .parameters =
        {
            {.name = "shapes",
             .kind = ParameterKind::Shapes,
             .text = "points, polylines or polygons",
             .required = true,
             .choices = {"points", "polylines", "polygons"},
             .by_place = true},
            OutputParameter(),
            ReferenceParameter(),
        },
    .works_on = ToolSubject::Document,
    .reference = ToolReference::Chosen,
    .several_sources = false,
    .example = "tessarine graphics new tests/data/graphics.json polylines -o tracks.shp",
};

class GraphicsNewTool final : public Tool {
 public:
  [[nodiscard]] const ToolSpec& Spec() const override { return kSpec; }

  // After the tool whose command it shares.
  [[nodiscard]] const CommandTexts& Command() const override {
    static const CommandTexts texts = MakeShapefileTexts(2);
    return texts;
  }

  [[nodiscard]] std::optional<Arguments> Ask(const std::shared_ptr<IApplication>& application) const override {
    ShowDialog<frmGraphicsShapefile>(application);
    return std::nullopt;
  }

  [[nodiscard]] std::optional<Objection> Validate(const Arguments& arguments,
                                                  const std::shared_ptr<IApplication>& application) const override {
    return ObjectionToEmptyClass(arguments, *DocumentOf(application));
  }

  [[nodiscard]] std::string Run(RunContext& context, const Arguments& arguments,
                                const std::shared_ptr<IApplication>& application) const override {
    return MakeEmptyClass(context, arguments, application, GraphicsWork::Run);
  }

  [[nodiscard]] std::string Plan(RunContext& context, const Arguments& arguments,
                                 const std::shared_ptr<IApplication>& application) const override {
    return MakeEmptyClass(context, arguments, application, GraphicsWork::Plan);
  }
};

}  // namespace

namespace tools {

const Tool& GraphicsNew() {
  static const GraphicsNewTool tool;
  return tool;
}

}  // namespace tools
}  // namespace tessarine
