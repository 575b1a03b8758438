// SPDX-License-Identifier: GPL-2.0-or-later
// The graphic elements of a document: their list, import from drawings, and the tools for them.
#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <memory>

#include "hosts/document/document_file.h"
#include "hosts/document/document_layer.h"
#include "hosts/document/drawing_import.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/counted_elements.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/session.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

// --- list ----------------------------------------------------------------------------------------------------------

// Rows of a list are lines.
std::string OnOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](unsigned char c) { return c < 0x20 || c == 0x7F; }, ' ');
  return text;
}

std::string ShapeText(const GeometryRef& shape) {
  if (!shape || shape->IsEmpty()) return "no shape";
  if (const auto point = Cast<Point>(shape)) return NumberText(point->X()) + ", " + NumberText(point->Y());
  const auto parted = Cast<PartedShape>(shape);
  if (!parted) return "multipoint";
  return fmt::format("{} part{}, {} vertices{}", parted->GeometryCount(), parted->GeometryCount() == 1 ? "" : "s",
                     parted->PointCount(), parted->HasCurves() ? ", with curves" : "");
}

void PrintElement(const GraphicElement& element, const std::string& number, int depth) {
  const auto symbol = Cast<DocumentSymbol>(element.drawn_with);
  fmt::print("{:>5}  {}  {:<11}  {:<24}  {:<32}  {}\n", number, element.selected ? "*" : " ",
             std::string(static_cast<std::size_t>(depth), ' ') + element.Kind(), OnOneLine(element.Name()),
             ShapeText(element.shape), symbol ? OnOneLine(symbol->definition) : "");
  const auto* group = dynamic_cast<const GroupElement*>(&element);
  if (group == nullptr) return;
  for (const auto& member : group->members) PrintElement(*member, "", depth + 1);
}

void PrintView(const char* title, const DocumentView& view) {
  fmt::print("{}: {}, {} selected\n", title, CountedElements(view.Elements().size()), view.ElementSelectionCount());
  int number = 0;
  for (const auto& element : view.Elements()) PrintElement(*element, std::to_string(++number), 0);
}

ExitStatus RunList(const std::string& path) {
  const std::shared_ptr<MapDocument> document = OpenDocument(path);
  PrintView(document->LayoutActive() ? "Map" : "Map (the active view)", document->Map());
  PrintView(document->LayoutActive() ? "Layout (the active view)" : "Layout", document->Layout());
  return ExitStatus::Done;
}

// --- import --------------------------------------------------------------------------------------------------------

struct ImportOptions {
  CommonOptions common;
  std::string drawing, layer, name_field;
  bool select = false;
};

std::shared_ptr<MapDocument> OpenOrBegin(const std::string& path) {
  if (fs::exists(path)) return OpenDocument(path);
  if (!EndsWithIgnoringCase(path, ".json"))
    throw Refusal("A new map document's name must end in .json: '" + path + "'.");
  auto document = std::make_shared<MapDocument>();
  document->path = path;
  document->Map().SetName(fs::path(path).stem().string());
  return document;
}

ExitStatus RunImport(const ImportOptions& options) {
  const std::shared_ptr<MapDocument> document = OpenOrBegin(options.common.document);
  Drawing drawing;
  try {
    drawing = ReadDrawing(options.drawing, options.layer, options.name_field);
  } catch (const Fault& fault) {
    throw Refusal(fault.Description());
  }
  if (drawing.shapes.empty()) throw Refusal("'" + options.drawing + "' holds no shape that could be drawn.");
  const ImportResult result = AddDrawing(drawing, options.select, document->Map());
  if (!options.common.dry_run) WriteDocumentFile(*document);
  if (options.common.quiet) return ExitStatus::Done;
  fmt::print("Imported: markers {}, lines {}, polygons {}{}.\n", result.markers, result.lines, result.polygons,
             result.texts > 0 ? ", texts " + std::to_string(result.texts) : "");
  if (result.skipped > 0) {
    fmt::print("Left out: {}, without a shape or outside of the map's projection.\n", result.skipped);
  }
  return ExitStatus::Done;
}

void AddImport(CLI::App& graphics, ChosenCommand& chosen) {
  auto options = std::make_shared<ImportOptions>();
  CLI::App& command =
      *graphics.add_subcommand("import", "Add the shapes of a drawing to a map document, as graphic elements");
  command.add_option("drawing", options->drawing, "KML, GeoJSON or any vector file that GDAL reads")->required();
  command.add_option("document", options->common.document, "The map document; it is made where there is none")
      ->required()
      ->type_name("MAP.json");
  command.add_option("-l,--layer", options->layer, "Only this layer");
  command.add_option("--name-field", options->name_field,
                     "The field that holds the names; 'name', 'title' or 'label' when left out");
  command.add_flag("-s,--select", options->select, "Select the new elements");
  AddQuietRun(command, options->common);
  command.footer("Example:\n  tessarine graphics import tests/data/drawing.kml tests/data/graphics.json --dry-run");
  command.callback([&chosen, options] { chosen.run = [options] { return RunImport(*options); }; });
}

void AddList(CLI::App& graphics, ChosenCommand& chosen) {
  auto options = std::make_shared<CommonOptions>();
  CLI::App& command =
      AddDocumentCommand(graphics, "list", "Tell the graphic elements of the map and of the layout", *options);
  command.footer("Example:\n  tessarine graphics list tests/data/graphics.json");
  command.callback([&chosen, options] { chosen.run = [options] { return RunList(options->document); }; });
}

}  // namespace

void AddGraphicToolsCommand(CLI::App& program, ChosenCommand& chosen) {
  CLI::App& graphics = *program.add_subcommand(
      "graphics", "List, select and name a document's graphic elements, make features of them, import drawings");
  graphics.require_subcommand(1);
  AddList(graphics, chosen);
  AddToolCommands(graphics, "graphics", chosen);
  AddImport(graphics, chosen);
  graphics.footer(
      "tessarine graphics COMMAND --help tells the options of each.\n\n"
      "Example:\n  tessarine graphics list tests/data/graphics.json");
}

}  // namespace tessarine
