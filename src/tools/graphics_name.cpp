// SPDX-License-Identifier: GPL-2.0-or-later
// Gives graphic elements of the map a name.
#include "graphics/element_naming.h"
#include "graphics/frmNameElements.h"
#include "platform/rich_text.h"
#include "platform/run_scope.h"
#include "tools/common/graphics_parts.h"
#include "tools/common/tool_parts.h"

namespace tessarine {
namespace {

const ToolSpec kSpec{
    .name = "graphics name",
    .title = "Name Graphics",
    .text = "Give graphic elements of the map a name",
    .takes = kGraphicsTakes,
    .makes = "Names of graphic elements, in the document itself.",
    .class_name = "clsNameGraphics",
    .parameters =
        {
            {.name = "name",
             .kind = ParameterKind::Text,
             .text = "The name; none takes the names away, which --yes confirms",
             .by_place = true},
            {.name = "all", .kind = ParameterKind::Flag, .text = "Name all elements"},
            {.name = "selected",
             .kind = ParameterKind::Flag,
             .text = "Name the selected elements alone",
             .excludes = "all"},
        },
    .works_on = ToolSubject::Document,
    .reference = ToolReference::None,
    .several_sources = false,
    .asks = true,
    .note = "Without {all} or {selected} it names the selected elements where there are any, else all.",
    .example = "tessarine graphics name tests/data/graphics.json road --selected --dry-run",
};

class GraphicsNameTool final : public Tool {
 public:
  [[nodiscard]] const ToolSpec& Spec() const override { return kSpec; }

  [[nodiscard]] const CommandTexts& Command() const override {
    static constexpr CommandTexts kTexts{"clsNameGraphics",          "NameGraphics",
                                         "&Name Graphic Elements",   "Name Graphic Elements",
                                         "Name Graphic Elements...", 108,
                                         {Menu::Graphics, 7}};
    return kTexts;
  }

  [[nodiscard]] std::optional<Arguments> Ask(const std::shared_ptr<IApplication>& application) const override {
    ShowDialog<frmNameElements>(application);
    return std::nullopt;
  }

  [[nodiscard]] std::optional<Objection> Validate(const Arguments& arguments,
                                                  const std::shared_ptr<IApplication>& application) const override {
    return ObjectionToNaming(arguments, *DocumentOf(application));
  }

  [[nodiscard]] std::string Run(RunContext& context, const Arguments& arguments,
                                const std::shared_ptr<IApplication>& application) const override {
    const RunScope scope(context);
    const std::shared_ptr<IMxDocument> document = DocumentOf(application);
    const std::int32_t named = NameElements(arguments, *document);
    context.journal.read = context.journal.written = named;
    return PlainTextToRtf(NamingSentence(named, *document, arguments.Get<std::string>("name")));
  }

  [[nodiscard]] std::string Plan(RunContext& context, const Arguments& arguments,
                                 const std::shared_ptr<IApplication>& application) const override {
    const RunScope scope(context);
    return PlainTextToRtf(PlannedNaming(arguments, *DocumentOf(application)));
  }
};

}  // namespace

namespace tools {

const Tool& GraphicsName() {
  static const GraphicsNameTool tool;
  return tool;
}

}  // namespace tools
}  // namespace tessarine
