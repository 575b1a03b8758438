// SPDX-License-Identifier: GPL-2.0-or-later
// The one-click tools for graphic elements of a document: selection and zoom.
#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "hosts/terminal/commands.h"
#include "hosts/terminal/counted_elements.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/session.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

struct GraphicsOptions {
  CommonOptions common;
  bool all = false, none = false, flip = false;
};

ExitStatus ClickOn(const GraphicsOptions& options, const char* class_id) {
  Session session(options.common);
  const ExitStatus status = session.Click(class_id);
  const DocumentMap& map = session.Document().Map();
  if (!options.common.quiet && status == ExitStatus::Done) {
    fmt::print("{} of {} selected.\n", map.ElementSelectionCount(), CountedElements(map.Elements().size()));
  }
  return status;
}

ExitStatus RunSelect(const GraphicsOptions& options) {
  const char* class_id = options.all    ? "Tessarine.clsSelAllElements"
                         : options.none ? "Tessarine.clsUnselElements"
                                        : "Tessarine.clsFlipGraphicSel";
  return ClickOn(options, class_id);
}

ExitStatus RunZoom(const GraphicsOptions& options) {
  Session session(options.common);
  const bool any = session.Document().Map().ElementSelectionCount() > 0;
  const ExitStatus status = session.Click("Tessarine.clsZoomToSelected");
  if (options.common.quiet || status != ExitStatus::Done) return status;
  if (!session.Document().Dirty()) {
    fmt::print("{}; the view stays.\n",
               any ? "The selected graphic elements have no shape" : "No graphic element is selected");
    return status;
  }
  const Envelope extent = session.Document().ActiveView()->Extent();
  fmt::print("Extent: {}, {}, {}, {}\n", NumberText(extent.XMin()), NumberText(extent.YMin()),
             NumberText(extent.XMax()), NumberText(extent.YMax()));
  return status;
}

}  // namespace

void AddGraphicsCommands(CLI::App& program, ChosenCommand& chosen) {
  auto select = std::make_shared<GraphicsOptions>();
  CLI::App& selection =
      AddDocumentCommand(program, "select-graphics",
                         "Select all graphic elements of a document's map, none, or the others", select->common);
  AddQuietRun(selection, select->common);
  CLI::Option_group& kinds = *selection.add_option_group("selection");
  kinds.add_flag("--all", select->all, "Select all graphic elements");
  kinds.add_flag("--none", select->none, "Select none");
  kinds.add_flag("--flip", select->flip, "Select those that aren't selected");
  kinds.require_option(1);
  selection.footer("Example:\n  tessarine select-graphics tests/data/graphics.json --all --dry-run");
  selection.callback([&chosen, select] { chosen.run = [select] { return RunSelect(*select); }; });

  auto zoom = std::make_shared<GraphicsOptions>();
  CLI::App& zooming =
      AddDocumentCommand(program, "zoom", "Zoom a document's view to the selected graphic elements", zoom->common);
  AddQuietRun(zooming, zoom->common);
  zooming.footer("Example:\n  tessarine zoom tests/data/graphics.json --dry-run");
  zooming.callback([&chosen, zoom] { chosen.run = [zoom] { return RunZoom(*zoom); }; });
}

}  // namespace tessarine
