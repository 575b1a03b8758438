// SPDX-License-Identifier: GPL-2.0-or-later
// The graphic elements of a document: their list, selection by type and name, names, and import from drawings.
#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>

#include "hosts/document/document_file.h"
#include "hosts/document/drawing_import.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/counted_elements.h"
#include "hosts/terminal/form_answers.h"
#include "hosts/terminal/session.h"
#include "platform/letter_case.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

void AddQuietRun(CLI::App& command, CommonOptions& options) {
  command.add_flag("-q,--quiet", options.quiet, "Print nothing");
  command.add_flag("-n,--dry-run", options.dry_run, "Run, but leave the document's file as it is");
}

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
  const auto symbol = Cast<DocumentSymbol>(element.DrawnWith);
  fmt::print("{:>5}  {}  {:<11}  {:<24}  {:<32}  {}\n", number, element.Selected ? "*" : " ",
             std::string(static_cast<std::size_t>(depth), ' ') + element.Kind(), OnOneLine(element.Name()),
             ShapeText(element.Shape), symbol ? OnOneLine(symbol->Definition) : "");
  const auto* group = dynamic_cast<const GroupElement*>(&element);
  if (group == nullptr) return;
  for (const auto& member : group->Members) PrintElement(*member, "", depth + 1);
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

// --- select --------------------------------------------------------------------------------------------------------

struct TypeRow {
  const char* option;
  const char* control;
};

constexpr std::array kTypes = {
    TypeRow{"points", "chkPoints"},     TypeRow{"lines", "chkLines"},
    TypeRow{"polygons", "chkPolygons"}, TypeRow{"rectangles", "chkRectangles"},
    TypeRow{"ellipses", "chkEllipses"}, TypeRow{"circles", "chkCircles"},
    TypeRow{"text", "chkText"},         TypeRow{"pictures", "chkPictures"},
    TypeRow{"data-graphs", "chkData"},  TypeRow{"groups", "chkGroup"},
    TypeRow{"frames", "chkFrames"},
};

struct SelectOptions {
  CommonOptions common;
  std::array<bool, kTypes.size()> types{};
  std::vector<std::string> names;
  std::string pattern;

  [[nodiscard]] bool Any() const {
    return std::ranges::find(types, true) != types.end() || !names.empty() || !pattern.empty();
  }
};

class SelectScript final : public FormScript {
 public:
  explicit SelectScript(const SelectOptions& options) : options_(options) {}

  void Answer(Form& form) override {
    for (std::size_t index = 0; index < kTypes.size(); ++index) {
      if (options_.types[index]) Tick(ControlOf<CheckBox>(form, kTypes[index].control), kTypes[index].option);
    }
    auto& list = ControlOf<ListBox>(form, "lbxNamesActive");
    auto& pattern = ControlOf<TextBox>(form, "txtName");
    if ((!options_.names.empty() || !options_.pattern.empty()) && !pattern.Enabled()) {
      throw Refusal("No graphic element of the view has a name.");
    }
    for (const std::string& name : options_.names) list.SetSelected(LineOf(list, name), true);
    pattern.SetText(options_.pattern);
    ControlOf<CommandButton>(form, "cmdOK").Press();
  }

 private:
  static void Tick(CheckBox& box, const char* option) {
    if (!box.Enabled()) throw Refusal(std::string("--") + option + ": the view has none.");
    box.SetValue(CheckBox::kChecked);
  }

  // A line is the name with its count behind.
  static std::int32_t LineOf(const ListBox& list, const std::string& name) {
    std::string names;
    for (std::int32_t line = 0; line < list.ListCount(); ++line) {
      const std::string own = list.List(line).substr(0, list.List(line).rfind(" ["));
      if (FoldedCase(own) == FoldedCase(name)) return line;
      names += (names.empty() ? "" : ", ") + own;
    }
    throw Refusal("--name: no graphic element is named '" + name + "'. There are: " + names + ".");
  }

  const SelectOptions& options_;
};

ExitStatus RunSelect(const SelectOptions& options) {
  if (!options.Any()) throw Refusal("Tell what to select: a type, as --circles, a --name, or a --pattern.");
  Session session(options.common);
  SelectScript script(options);
  const ExitStatus status = session.Run("Tessarine.clsSelGraphics", &script);
  if (options.common.quiet || status != ExitStatus::Done) return status;
  const MapDocument& document = session.Document();
  const DocumentView& view = document.LayoutActive() ? static_cast<const DocumentView&>(document.Layout())
                                                     : static_cast<const DocumentView&>(document.Map());
  fmt::print("{} of {} selected.\n", view.ElementSelectionCount(), CountedElements(view.Elements().size()));
  return status;
}

void AddSelect(CLI::App& graphics, ChosenCommand& chosen) {
  auto options = std::make_shared<SelectOptions>();
  CLI::App& command = AddDocumentCommand(
      graphics, "select", "Add graphic elements of the active view to the selection, by type or name", options->common);
  for (std::size_t index = 0; index < kTypes.size(); ++index) {
    const std::string kind = kTypes[index].option;
    command.add_flag("--" + kind, options->types[index], "Select the " + Replace(kind, "-", " "));
  }
  command.add_option("--name", options->names, "Select the elements of this name; may be given several times")
      ->allow_extra_args(false);
  command.add_option("--pattern", options->pattern,
                     "Select the elements whose names match: * is any run of characters, & or ? any one");
  AddQuietRun(command, options->common);
  command.footer(
      "Example:\n  tessarine graphics select tests/data/graphics.json --circles --pattern 'area*' --dry-run");
  command.callback([&chosen, options] { chosen.run = [options] { return RunSelect(*options); }; });
}

// --- name ----------------------------------------------------------------------------------------------------------

struct NameOptions {
  CommonOptions common;
  std::string name;
  bool all = false, selected = false;
};

class NameScript final : public FormScript {
 public:
  explicit NameScript(const NameOptions& options) : options_(options) {}

  void Answer(Form& form) override {
    ControlOf<TextBox>(form, "txtName").SetText(options_.name);
    auto& selected = ControlOf<OptionButton>(form, "optSel");
    if (options_.selected && !selected.Enabled()) throw Refusal("--selected: no graphic element is selected.");
    if (options_.selected) selected.SetValue(true);
    if (options_.all) ControlOf<OptionButton>(form, "optAll").SetValue(true);
    on_selected_ = selected.Value();
    ControlOf<CommandButton>(form, "cmdOK").Press();
  }
  [[nodiscard]] bool OnSelected() const { return on_selected_; }

 private:
  const NameOptions& options_;
  bool on_selected_ = false;
};

ExitStatus RunName(const NameOptions& options) {
  Session session(options.common);
  NameScript script(options);
  const ExitStatus status = session.Run("Tessarine.clsNameGraphics", &script);
  if (status != ExitStatus::Done) return status;
  // Names leave a document clean, but here nothing else would keep them.
  if (!options.common.dry_run) WriteDocumentFile(session.Document());
  if (options.common.quiet) return status;
  const DocumentMap& map = session.Document().Map();
  const std::size_t count =
      script.OnSelected() ? static_cast<std::size_t>(map.ElementSelectionCount()) : map.Elements().size();
  fmt::print("{} of {} named '{}'.\n", count, CountedElements(map.Elements().size()), options.name);
  return status;
}

void AddName(CLI::App& graphics, ChosenCommand& chosen) {
  auto options = std::make_shared<NameOptions>();
  CLI::App& command = AddDocumentCommand(graphics, "name", "Give graphic elements of the map a name", options->common);
  command.add_option("name", options->name, "The name; none takes the names away, which --yes confirms");
  CLI::Option* all = command.add_flag("-a,--all", options->all, "Name all elements");
  command.add_flag("-s,--selected", options->selected, "Name the selected elements alone")->excludes(all);
  command.add_flag("-y,--yes", options->common.yes, "Answer Yes to every question");
  AddQuietRun(command, options->common);
  command.footer(
      "Without --all or --selected it names the selected elements where there are any, else all.\n\n"
      "Example:\n  tessarine graphics name tests/data/graphics.json road --selected --dry-run");
  command.callback([&chosen, options] { chosen.run = [options] { return RunName(*options); }; });
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
  document->Path = path;
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
  AddSelect(graphics, chosen);
  AddName(graphics, chosen);
  AddGraphicFeaturesCommands(graphics, chosen);
  AddImport(graphics, chosen);
  graphics.footer(
      "tessarine graphics COMMAND --help tells the options of each.\n\n"
      "Example:\n  tessarine graphics list tests/data/graphics.json");
}

}  // namespace tessarine
