// SPDX-License-Identifier: GPL-2.0-or-later
// Selects graphic elements by type, by name or by a pattern for names.
#include "graphics/frmSelectGraphics.h"
#include "platform/rich_text.h"
#include "tools/common/graphics_parts.h"
#include "tools/common/tool_parts.h"

namespace tessarine {
namespace {

std::vector<ToolParameter> Parameters() {
  std::vector<ToolParameter> parameters;
  for (const ElementType& type : ElementTypes()) {
    parameters.push_back({.name = type.word, .kind = ParameterKind::Flag, .text = type.text});
  }
  parameters.push_back({.name = "name",
                        .kind = ParameterKind::Texts,
                        .text = "Select the elements of this name; may be given several times"});
  parameters.push_back({.name = "pattern",
                        .kind = ParameterKind::Text,
                        .text = "Select the elements whose names match: * is any run of characters, & or ? any one"});
  return parameters;
}

class GraphicsSelectTool final : public Tool {
 public:
  GraphicsSelectTool()
      : spec_{.name = "graphics select",
              .title = "Select Graphics",
              .text = "Add graphic elements of the active view to the selection, by type or name",
              .takes = kGraphicsTakes,
              .makes = "A selection of graphic elements, in the document itself; what was selected stays so.",
              .class_name = "clsSelGraphics",
              .parameters = Parameters(),
              .works_on = ToolSubject::Document,
              .reference = ToolReference::None,
              .several_sources = false,
              .example = "tessarine graphics select tests/data/graphics.json --circles --pattern 'area*' --dry-run"} {
    for (const ToolParameter& parameter : spec_.parameters) spec_.one_of.push_back(parameter.name);
    spec_.without_one_of = kNothingToSelect;
  }

  [[nodiscard]] const ToolSpec& Spec() const override { return spec_; }

  [[nodiscard]] const CommandTexts& Command() const override {
    static constexpr CommandTexts kTexts{"clsSelGraphics",
                                         "SelectGraphics",
                                         "Select Graphic Elements by &Type",
                                         "Select Graphic Elements by Type",
                                         "Select Graphics by Type or Name...",
                                         106,
                                         {Menu::Graphics, 2, true}};
    return kTexts;
  }

  [[nodiscard]] std::optional<Arguments> Ask(const std::shared_ptr<IApplication>& application) const override {
    ShowDialog<frmSelectGraphics>(application);
    return std::nullopt;
  }

  [[nodiscard]] std::optional<Objection> Validate(const Arguments& arguments,
                                                  const std::shared_ptr<IApplication>& application) const override {
    return ObjectionToSelection(arguments, *DocumentOf(application));
  }

  [[nodiscard]] std::string Run(RunContext&, const Arguments& arguments,
                                const std::shared_ptr<IApplication>& application) const override {
    const std::shared_ptr<IMxDocument> document = DocumentOf(application);
    SelectElements(arguments, document);
    return PlainTextToRtf(SelectionSentence(*document));
  }

  [[nodiscard]] std::string Plan(RunContext&, const Arguments& arguments,
                                 const std::shared_ptr<IApplication>& application) const override {
    return PlainTextToRtf(PlannedSelection(arguments, *DocumentOf(application)));
  }

 private:
  ToolSpec spec_;
};

}  // namespace

namespace tools {

const Tool& GraphicsSelect() {
  static const GraphicsSelectTool tool;
  return tool;
}

}  // namespace tools
}  // namespace tessarine
