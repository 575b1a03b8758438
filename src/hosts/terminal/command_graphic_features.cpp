// SPDX-License-Identifier: GPL-2.0-or-later
// Features of graphic elements, and empty feature classes: the graphics dialog in the terminal.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>

#include "hosts/terminal/commands.h"
#include "hosts/terminal/form_answers.h"
#include "hosts/terminal/output_checks.h"
#include "hosts/terminal/output_place.h"
#include "hosts/terminal/output_wishes.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/session.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

struct ShapeRow {
  const char* word;
  const char* control;
  std::int32_t line;       ///< of the conversion that takes elements of this shape alone
  std::int32_t both_line;  ///< of the one that takes lines and polygons; -1 where there is none
};

constexpr ShapeRow kShapes[] = {
    {"points", "optPoint", 0, -1}, {"polylines", "optPolyline", 1, 2}, {"polygons", "optPolygon", 3, 4}};

struct FeatureOptions {
  CommonOptions common;
  bool convert = false;
  std::string shape = "polygons";
  bool both = false, all = false, selected = false;
  OutputOptions output;
  std::string reference;
};

const ShapeRow& RowOf(const std::string& word) {
  for (const ShapeRow& row : kShapes) {
    if (word == row.word) return row;
  }
  throw Refusal("'" + word +
                "' is no shape: give points, polylines or polygons. The output's reference is named by --reference.");
}

class GraphicsScript final : public FormScript {
 public:
  explicit GraphicsScript(const FeatureOptions& options) : options_(options) {}

  void Answer(Form& form) override {
    if (options_.convert) {
      ChooseConversion(form);
    } else {
      ControlOf<OptionButton>(form, "optNew").SetValue(true);
      ControlOf<OptionButton>(form, RowOf(options_.shape).control).SetValue(true);
    }
    if (!options_.reference.empty()) ControlOf<CommandButton>(form, "cmdSpRef").Press();
    ControlOf<CommandButton>(form, "cmdGetWorkspace").Press();
    auto& ok = ControlOf<CommandButton>(form, "cmdOK");
    if (!ok.Enabled()) {
      throw Refusal("The map has no spatial reference: name that of the output with --reference.");
    }
    ok.Press();
  }

 private:
  void ChooseConversion(Form& form) const {
    auto& list = ControlOf<ListBox>(form, "lbxGraphics");
    auto& convert = ControlOf<OptionButton>(form, "optConvert");
    if (!convert.Enabled()) throw Refusal(list.ListCount() > 0 ? list.List(0) : "No graphics available...");
    convert.SetValue(true);
    auto& selected = ControlOf<CheckBox>(form, "chkSelected");
    if (options_.all) selected.SetValue(CheckBox::kUnchecked);
    if (options_.selected) selected.SetValue(CheckBox::kChecked);
    const ShapeRow& row = RowOf(options_.shape);
    list.SetListIndex(options_.both ? row.both_line : row.line);
  }

  const FeatureOptions& options_;
};

// A free name for an output that is given as a folder.
void NameInFolder(OutputPlace& place) {
  if (!place.IsFolder()) return;
  place.format = FormatOfPath(".shp");
  place.name = FirstFreePath(fs::path(place.container) / "NewShape.shp").filename().string();
}

SpatialReferenceRef ReferenceOf(const FeatureOptions& options, const DocumentMap& map) {
  if (options.reference.empty()) return map.SpatialReference();
  SpatialReferenceRef reference;
  try {
    reference = SpatialReferenceEnvironment::CreateFromText(options.reference);
  } catch (const Fault& fault) {
    throw Refusal("--reference: " + fault.Description());
  }
  if (Is<const UnknownCoordinateSystem>(reference)) {
    throw Refusal("--reference: '" + options.reference + "' is neither geographic nor projected.");
  }
  return reference;
}

ExitStatus RunFeatures(const FeatureOptions& options) {
  CheckReportFile(options.common.report_file);
  const ShapeRow& shape = RowOf(options.shape);
  if (options.both && shape.both_line < 0) {
    throw Refusal("--both takes lines and polygons: convert --to polylines or --to polygons with it.");
  }
  NamedOutput output = ParseOutput(options.output, Folders::Allowed);
  OutputPlace& place = output.place;
  NameInFolder(place);
  RefuseUnusablePlace(place, options.common);
  Session session(options.common);
  RefuseTakenPlace(output, options.common);
  const SpatialReferenceRef reference = ReferenceOf(options, session.Document().Map());
  CheckDataset(place, reference);
  const PreparedPlace prepared(place, reference, session.Host().LocalSystem());
  session.Host().SetBrowsePlace(prepared.Browse());
  session.Host().SetChosenReference(reference);
  session.Host().SetWishes(WishesFor(output, options.common));
  GraphicsScript script(options);
  const ExitStatus status = session.Run("Tessarine.cmdNewShapefile", &script);
  // Without a report nothing was made, and a message has told why.
  return status == ExitStatus::Done && !session.Host().Report() ? ExitStatus::Refused : status;
}

void AddPlaceOptions(CLI::App& command, FeatureOptions& options) {
  command
      .add_option("-o,--output", options.output.text, std::string("The new class, or a folder for it: ") + kOutputHelp)
      ->required();
  command.add_option("--reference", options.reference,
                     "The output's spatial reference, as EPSG:32612; the map's when left out");
  AddFormatOption(command, options.output);
  AddRunOptions(command, options.common);
}

void Choose(CLI::App& command, ChosenCommand& chosen, const std::shared_ptr<FeatureOptions>& options) {
  command.callback([&chosen, options] {
    options->common.command_line = chosen.command_line;
    chosen.run = [options] { return RunFeatures(*options); };
  });
}

}  // namespace

void AddGraphicFeaturesCommands(CLI::App& graphics, ChosenCommand& chosen) {
  auto convert = std::make_shared<FeatureOptions>();
  convert->convert = true;
  CLI::App& conversion =
      AddDocumentCommand(graphics, "to-features", "Make a feature class of graphic elements", convert->common);
  conversion.add_option("-t,--to", convert->shape, "points, polylines or polygons")->required()->type_name("SHAPES");
  conversion.add_flag("-b,--both", convert->both, "Take lines and polygons alike, as polylines or as polygons");
  CLI::Option* all = conversion.add_flag("-a,--all", convert->all, "Take all elements");
  conversion.add_flag("-s,--selected", convert->selected, "Take the selected elements alone")->excludes(all);
  AddPlaceOptions(conversion, *convert);
  conversion.footer(
      "Without --all or --selected it takes the selected elements where there are any, else all.\n\n"
      "Example:\n  tessarine graphics to-features tests/data/graphics.json --to polygons --all -o areas.shp");
  Choose(conversion, chosen, convert);

  auto empty = std::make_shared<FeatureOptions>();
  CLI::App& creation = AddDocumentCommand(graphics, "new", "Make an empty feature class", empty->common);
  creation.add_option("shapes", empty->shape, "points, polylines or polygons")->required()->type_name("SHAPES");
  AddPlaceOptions(creation, *empty);
  creation.footer("Example:\n  tessarine graphics new tests/data/graphics.json polylines -o tracks.shp");
  Choose(creation, chosen, empty);
}

}  // namespace tessarine
