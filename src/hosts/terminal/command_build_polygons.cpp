// SPDX-License-Identifier: GPL-2.0-or-later
// Polygons from the regions between lines.
#include <CLI/CLI.hpp>
#include <cmath>
#include <memory>
#include <optional>

#include "hosts/terminal/commands.h"
#include "hosts/terminal/form_answers.h"
#include "hosts/terminal/layer_source.h"
#include "hosts/terminal/option_numbers.h"
#include "hosts/terminal/output_run.h"
#include "hosts/terminal/output_wishes.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/session.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr const char* kCommand = "build-polygons";
constexpr const char* kExample =
    "tessarine to-polylines tests/data/countries.shp -o boundaries.shp\n"
    "  tessarine build-polygons boundaries.shp --labels tests/data/cities.shp --label-fields name -o regions.shp";
constexpr int kToleranceDecimals = 15;

struct BuildOptions {
  CommonOptions common;
  SourceOptions lines;
  SourceOptions labels;
  OutputOptions output;
  std::vector<std::string> sources;  ///< one
  std::optional<std::string> tolerance;
  std::vector<std::string> label_fields;
  std::string label_choice;
};

// The tolerance as the form's box takes it: plain digits.
std::string ToleranceText(const std::string& option) {
  // A comma would be read as a separator of thousands, as the dialog reads it.
  const std::optional<double> number = option.find(',') == std::string::npos ? OptionNumber(option) : std::nullopt;
  if (!number || !std::isfinite(*number) || *number < 0.0) {
    throw Refusal("--cluster-tolerance: '" + Trim(option) + "' is no number of 0 or more with a decimal point.");
  }
  std::string text = FixedText(*number, kToleranceDecimals);
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  return text;
}

// Answers the dialog.
class BuildParamsScript final : public FormScript {
 public:
  BuildParamsScript(const BuildOptions& options, const DocumentFeatureLayer& lines,
                    const std::shared_ptr<DocumentFeatureLayer>& labels, const OutputPlace& output)
      : options_(options), lines_(lines), labels_(labels), output_(output) {}

  void Answer(Form& form) override {
    ChooseLayer(ControlOf<ListBox>(form, "lbxLayers"), lines_, kCommand, "polylines");
    if (options_.tolerance) TypeTolerance(ControlOf<TextBox>(form, "txtCluster"));
    if (labels_) ChooseLabels(form);
    ChooseOutput(form, output_);
    ControlOf<CommandButton>(form, "cmdOK").Press();
  }

 private:
  void TypeTolerance(TextBox& box) const {
    box.SetText("");
    box.Type(ToleranceText(*options_.tolerance));
  }

  void ChooseLabels(Form& form) const {
    ControlOf<CheckBox>(form, "chkUseLabelPoints").SetValue(CheckBox::kChecked);
    auto& layers = ControlOf<ComboBox>(form, "cbxPointLayers");
    layers.SetListIndex(PointLine(layers));
    ChooseFields(ControlOf<ListBox>(form, "lbxFields"), *labels_, "--label-fields", options_.label_fields, false);
    if (options_.label_choice.empty()) return;
    const bool first = options_.label_choice == "first";
    ControlOf<OptionButton>(form, first ? "optFirstLabelPoint" : "optCentroidLabelPoint").SetValue(true);
  }

  std::int32_t PointLine(const ComboBox& layers) const {
    for (std::int32_t line = 0; line < layers.ListCount(); ++line) {
      if (layers.List(line) == labels_->Name()) return line;
    }
    throw Refusal("--labels: the layer '" + labels_->Name() + "' is of the wrong kind: labels are points.");
  }

  const BuildOptions& options_;
  const DocumentFeatureLayer& lines_;
  const std::shared_ptr<DocumentFeatureLayer>& labels_;
  const OutputPlace& output_;
};

ExitStatus RunBuildPolygons(const BuildOptions& options) {
  if (options.sources.size() > 1) {
    throw Refusal("'build-polygons' builds from the lines of one layer, and " + std::to_string(options.sources.size()) +
                  " sources were named. Put the lines into one layer first, or run it for each.");
  }
  CheckReportFile(options.common.report_file);
  if (options.tolerance) (void)ToleranceText(*options.tolerance);
  const NamedOutput output = ParseOutput(options.output, Folders::Allowed);
  const OutputPlace& place = output.place;
  Session session(options.common);
  std::shared_ptr<DocumentFeatureLayer> labels;
  if (!options.labels.source.empty()) labels = TakeLayer(session.Document(), options.labels);
  const std::shared_ptr<DocumentFeatureLayer> lines = TakeLayer(session.Document(), options.lines);
  RefuseSource(place, *lines);
  if (labels) RefuseSource(place, *labels);
  const TerminalManners manners = options.common.Manners();
  // The run would rather take another name than ask.
  if (manners.overwrite || manners.yes) session.Host().LocalSystem().GiveFree(FromNativePath(place.NativePath()));
  BuildParamsScript script(options, *lines, labels, place);
  return RunInto(session, "Tessarine.clsBuildPolygon", script, output, lines->SpatialReference(),
                 lines->FeatureClass()->Extent(), options.common);
}

void AddLabelOptions(CLI::App& command, BuildOptions& options) {
  CLI::Option& labels = *command.add_option("--labels", options.labels.source,
                                            "Points whose attributes the polygons take: a path, PATH:LAYER, or a "
                                            "layer of the document");
  CLI::Option& fields = *command.add_option("--label-fields", options.label_fields,
                                            "The fields of the points to carry over, with commas between");
  fields.delimiter(',')->allow_extra_args(false);
  fields.needs(&labels);
  labels.needs(&fields);
  command.add_option("--label-layer", options.labels.layer, "The layer of the points, where their data holds several")
      ->needs(&labels);
  command.add_option("--label-where", options.labels.where, "Take only the points that meet this SQL condition")
      ->needs(&labels);
  command
      .add_option("--label-choice", options.label_choice,
                  "Of several points in a polygon take the first, or the one nearest to its centre")
      ->check(CLI::IsMember({"first", "nearest"}))
      ->needs(&labels);
}

}  // namespace

void AddBuildPolygonsCommand(CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<BuildOptions>();
  CLI::App& command = *program.add_subcommand(kCommand, "One polygon for each region that lines bound together");
  command.add_option("lines", options->sources, std::string("The lines. ") + kSourceHelp)->required();
  command
      .add_option("-o,--output", options->output.text, std::string("The new class, or a folder for it: ") + kOutputHelp)
      ->required();
  AddSourceOptions(command, options->lines);
  command.add_option("-t,--cluster-tolerance", options->tolerance,
                     "The distance under which lines count as meeting, in the unit of the data");
  AddLabelOptions(command, *options);
  AddFormatOption(command, options->output);
  AddReferenceOption(command, options->output);
  AddCommonOptions(command, options->common);
  command.footer(std::string("Example:\n  ") + kExample);
  command.callback([&chosen, options] {
    options->common.command_line = chosen.command_line;
    options->lines.source = options->sources.front();
    chosen.run = [options] { return RunBuildPolygons(*options); };
  });
}

}  // namespace tessarine
