// SPDX-License-Identifier: GPL-2.0-or-later
// The planetary tools: wrap to a box, and latitudes of planets.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "hosts/terminal/batch.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/form_answers.h"
#include "hosts/terminal/layer_source.h"
#include "hosts/terminal/option_numbers.h"
#include "hosts/terminal/output_run.h"
#include "hosts/terminal/output_wishes.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/selected_class.h"
#include "hosts/terminal/session.h"
#include "hosts/terminal/spheroid_options.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr const char* kTakes = "layers in degrees of longitude and latitude";

struct PlanetaryOptions {
  CommonOptions common;
  SourceOptions source;
  std::vector<std::string> sources;
  OutputOptions output;
  std::string shift;
};

struct WrapOptions : PlanetaryOptions {
  std::string range;
  std::string bounds;  ///< four numbers with commas between
  bool short_steps = false;
  std::string pole;
};

struct LatitudeRow {
  const char* name;
  const char* class_id;
  const char* description;
  const char* example;
};

constexpr LatitudeRow kLatitudeRows[] = {
    {"to-graphic", "Tessarine.OCentricToOGraphic", "Planetocentric latitudes to planetographic ones",
     "tessarine to-graphic tests/data/countries.shp --spheroid \"WGS 1984\" -o graphic.shp"},
    {"to-centric", "Tessarine.OGraphicToOCentric", "Planetographic latitudes to planetocentric ones",
     "tessarine to-centric tests/data/countries.shp --radii 3396190,3376200 --wrap 360 -o centric.shp"},
};

struct LatitudeOptions : PlanetaryOptions {
  SpheroidOptions spheroid;
  std::string wrap;
};

constexpr const char* kNeedsBox =
    "'wrap' needs a box: --range 180, --range 360 or --bounds W,S,E,N, or a --document that remembers one.";

// The lines of the dialog, behind the one that leaves it to the data.
constexpr const char* kPoles[] = {"north", "south", "both", "neither"};

std::int32_t PoleLineOf(const std::string& name) {
  const auto* found = std::ranges::find(kPoles, name);
  return static_cast<std::int32_t>(found - kPoles) + 1;
}

std::vector<std::string> SplitAtCommas(const std::string& text) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == ',') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

// The form passes over a shift that is no number, or too large a one; here somebody would miss it.
void CheckShift(const std::string& shift) {
  if (!shift.empty() && !OptionNumber(shift)) {
    throw Refusal("--shift: '" + shift + "' is no number of degrees.");
  }
}

// What the answers to both dialogs share.
class PlanetaryScript : public FormScript {
 public:
  PlanetaryScript(const char* command, const PlanetaryOptions& options, const DocumentFeatureLayer& layer,
                  const OutputPlace& output)
      : command_(command), options_(options), layer_(layer), output_(output) {}

 protected:
  void ChooseSource(Form& form) const {
    const SpatialReferenceRef reference = layer_.SpatialReference();
    if (!reference || Is<const UnknownCoordinateSystem>(reference)) {
      throw Refusal("The layer '" + layer_.Name() + "' has no spatial reference: '" + command_ + "' takes " + kTakes +
                    ". Declare the reference of the data first, as with a .prj file.");
    }
    ChooseLayer(ControlOf<ListBox>(form, "lbxLayers"), layer_, command_, kTakes);
  }
  // What nobody named on the command line stays as the document remembers it, and is told.
  static void NoteFromDocument(Form& form, const std::string& setting) {
    auto& label = ControlOf<Label>(form, "lblFromDocument");
    label.SetCaption(label.Caption() + setting + "\n");
  }
  void PressOk(Form& form) const {
    auto& shift = ControlOf<TextBox>(form, "txtLongShift");
    if (!options_.shift.empty()) {
      shift.SetText(options_.shift);
    } else if (shift.Text() != "0") {
      NoteFromDocument(form, "Longitudinal Shift:  " + shift.Text() + " decimal degrees");
    }
    ChooseOutput(form, output_);
    ControlOf<CommandButton>(form, "cmdOK").Press();
  }

 private:
  const char* command_;
  const PlanetaryOptions& options_;
  const DocumentFeatureLayer& layer_;
  const OutputPlace& output_;
};

class WrapScript final : public PlanetaryScript {
 public:
  WrapScript(const WrapOptions& options, const DocumentFeatureLayer& layer, const OutputPlace& output)
      : PlanetaryScript("wrap", options, layer, output), options_(options) {}

  void Answer(Form& form) override {
    ChooseSource(form);
    ChooseBox(form);
    ControlOf<CheckBox>(form, "chkShortSteps")
        .SetValue(options_.short_steps ? CheckBox::kChecked : CheckBox::kUnchecked);
    if (!options_.pole.empty()) {
      ControlOf<ComboBox>(form, "cboPole").SetListIndex(PoleLineOf(options_.pole));
    }
    PressOk(form);
  }

 private:
  void ChooseBox(Form& form) const {
    if (options_.range.empty() && options_.bounds.empty()) {
      if (!RemembersBox(form)) throw Refusal(kNeedsBox);
      NoteFromDocument(form, "Boundary Box");
      return;
    }
    const char* option = options_.range == "180" ? "optWrap180" : options_.range == "360" ? "optWrap360" : "optCustom";
    ControlOf<OptionButton>(form, option).SetValue(true);
    if (!options_.bounds.empty()) TypeBounds(form);
  }
  // Without a remembered box the form shows its own, which is that of the range of 180.
  static bool RemembersBox(Form& form) {
    const auto text = [&form](const char* box) { return ControlOf<TextBox>(form, box).Text(); };
    return !ControlOf<OptionButton>(form, "optCustom").Value() || text("txtWest") != "-180" ||
           text("txtEast") != "180" || text("txtSouth") != "-90" || text("txtNorth") != "90";
  }
  void TypeBounds(Form& form) const {
    constexpr const char* kSides[] = {"txtWest", "txtSouth", "txtEast", "txtNorth"};
    const std::vector<std::string> bounds = SplitAtCommas(options_.bounds);
    for (std::size_t side = 0; side < bounds.size(); ++side) {
      ControlOf<TextBox>(form, kSides[side]).SetText(bounds[side]);
    }
  }

  const WrapOptions& options_;
};

class LatitudeScript final : public PlanetaryScript {
 public:
  LatitudeScript(const LatitudeRow& row, const LatitudeOptions& options, const DocumentFeatureLayer& layer,
                 const OutputPlace& output)
      : PlanetaryScript(row.name, options, layer, output),
        options_(options),
        spheroid_(ChooseSpheroid(options.spheroid)) {}

  void Answer(Form& form) override {
    if (form.Name() == "frmSpheroidOptions") {
      FillSpheroidForm(form, *spheroid_);
      ControlOf<CommandButton>(form, "cmdOK").Press();
      return;
    }
    ChooseSource(form);
    if (spheroid_) TakeSpheroid(form);
    if (!options_.wrap.empty()) {
      const char* option = options_.wrap == "180" ? "optWrap180" : options_.wrap == "360" ? "optWrap360" : "optNoWrap";
      ControlOf<OptionButton>(form, option).SetValue(true);
    } else if (!ControlOf<OptionButton>(form, "optNoWrap").Value()) {
      NoteFromDocument(form, "Wrap Option");
    }
    PressOk(form);
  }

 private:
  void TakeSpheroid(Form& form) const {
    if (spheroid_->list) {
      ControlOf<CommandButton>(form, "cmdGetSpheroid").Press();
      return;
    }
    ControlOf<TextBox>(form, "txtMajor").SetText(ExactNumberText(spheroid_->semi_major_axis));
    ControlOf<TextBox>(form, "txtMinor").SetText(ExactNumberText(spheroid_->semi_minor_axis));
  }

  const LatitudeOptions& options_;
  std::optional<ChosenSpheroid> spheroid_;
};

// These tools take all records of a layer: of a selection they get a layer of its own, for this run alone.
std::shared_ptr<DocumentFeatureLayer> LayerOfSelection(const std::shared_ptr<DocumentFeatureLayer>& layer,
                                                       const SourceOptions& source, Session& session,
                                                       std::size_t known_layers) {
  if (!source.Selects()) return layer;
  MapDocument& document = session.Document();
  if (document.Map().AllLayers().size() > known_layers) document.Map().RemoveLayer(*layer);
  auto own = std::make_shared<DocumentFeatureLayer>();
  own->SetFeatureClass(SelectedClass(layer->FeatureClass(), layer->SelectedOids()));
  own->SetName(FreeLayerName(document, layer->Name()));
  document.Map().AddLayer(own);
  document.SetSelectedLayer(own);
  session.KeepForRunOnly(own);
  return own;
}

template <class Options, class Run>
ExitStatus RunOverAll(const Options& options, Run&& run) {
  return RunOverSources(options.sources, options.output, options.common, OneIntoFolder::Itself,
                        [&](const std::string& source, const OutputOptions& output, const CommonOptions& common) {
                          Options own = options;
                          own.source.source = source;
                          own.output = output;
                          own.common = common;
                          return run(own);
                        });
}

template <class MakeScript>
ExitStatus RunPlanetary(const PlanetaryOptions& options, const char* class_id, MakeScript&& make_script) {
  CheckReportFile(options.common.report_file);
  CheckShift(options.shift);
  const NamedOutput output = ParseOutput(options.output, Folders::Allowed);
  const OutputPlace& place = output.place;
  Session session(options.common);
  const std::size_t known_layers = session.Document().Map().AllLayers().size();
  const std::shared_ptr<DocumentFeatureLayer> taken = TakeLayer(session.Document(), options.source);
  const std::shared_ptr<DocumentFeatureLayer> layer = LayerOfSelection(taken, options.source, session, known_layers);
  RefuseSource(place, *layer);
  auto script = make_script(*layer, place);
  return RunInto(session, class_id, script, output, layer->SpatialReference(), layer->FeatureClass()->Extent(),
                 options.common);
}

ExitStatus RunWrap(const WrapOptions& options) {
  RefuseReference(
      options.output,
      "wrapped longitudes are a matter of the data's own degrees; a box from 0 to 360 or over the edge of the "
      "map would be lost in another reference.");
  const bool box_is_given = !options.range.empty() || !options.bounds.empty();
  if (!box_is_given && options.common.document.empty()) throw Refusal(kNeedsBox);
  if (!options.bounds.empty() && SplitAtCommas(options.bounds).size() != 4) {
    throw Refusal("--bounds takes four numbers: west, south, east and north, as in --bounds -90,-90,270,90.");
  }
  return RunPlanetary(options, "Tessarine.clsWrapBoundary",
                      [&](const auto& layer, const OutputPlace& place) { return WrapScript(options, layer, place); });
}

ExitStatus RunLatitudes(const LatitudeRow& row, const LatitudeOptions& options) {
  RefuseReference(options.output,
                  "the latitudes that '" + std::string(row.name) +
                      "' makes are of a kind that no reference tells, so any transformation of them would be wrong.");
  return RunPlanetary(options, row.class_id, [&](const auto& layer, const OutputPlace& place) {
    return LatitudeScript(row, options, layer, place);
  });
}

void AddPlanetaryOptions(CLI::App& command, PlanetaryOptions& options) {
  command.add_option("source", options.sources, kSourceHelp)->required();
  command
      .add_option("-o,--output", options.output.text, std::string("The new class, or a folder for it: ") + kOutputHelp)
      ->required();
  AddSourceOptions(command, options.source);
  AddFormatOption(command, options.output);
  AddRefusedReferenceOption(command, options.output);
  command.add_option("--shift", options.shift, "Add this to every longitude first")->type_name("DEGREES");
}

void AddWrap(CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<WrapOptions>();
  CLI::App& command = *program.add_subcommand(
      "wrap", "Cut features at the sides of a box and bring what lies outside in at the other side");
  AddPlanetaryOptions(command, *options);
  CLI::Option& range =
      *command.add_option("--range", options->range, "Longitudes from -180 to 180 or from 0 to 360 degrees")
           ->check(CLI::IsMember({"180", "360"}));
  command.add_option("--bounds", options->bounds, "A box of your own, in degrees")
      ->type_name("W,S,E,N")
      ->excludes(&range);
  CLI::Option& short_steps =
      *command.add_flag("--short-steps", options->short_steps,
                        "Steps of more than 180 degrees mean the short way: from 170 to -170 are 20 degrees over the "
                        "edge, not 340 across the map");
  command
      .add_option(
          "--pole", options->pole,
          "What rings round the globe hold: one ring the north or the south pole, two rings both or neither. Without "
          "it they hold the smaller part of the sphere")
      ->check(CLI::IsMember({"north", "south", "both", "neither"}))
      ->needs(&short_steps);
  AddCommonOptions(command, options->common);
  AddJobsOption(command, options->common);
  command.footer("Example:\n  tessarine wrap tests/data/countries.shp --range 360 -o countries_360.shp");
  command.callback([&chosen, options] {
    options->common.command_line = chosen.command_line;
    chosen.run = [options] { return RunOverAll(*options, RunWrap); };
  });
}

void AddLatitudes(const LatitudeRow& row, CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<LatitudeOptions>();
  CLI::App& command = *program.add_subcommand(row.name, row.description);
  AddPlanetaryOptions(command, *options);
  AddSpheroidOptions(command, options->spheroid);
  command.add_option("--wrap", options->wrap, "Wrap longitudes to -180 to 180 or to 0 to 360 degrees, after the shift")
      ->check(CLI::IsMember({"180", "360", "none"}));
  AddCommonOptions(command, options->common);
  AddJobsOption(command, options->common);
  command.footer(std::string("Example:\n  ") + row.example);
  command.callback([&row, &chosen, options] {
    options->common.command_line = chosen.command_line;
    chosen.run = [&row, options] {
      return RunOverAll(*options, [&row](const LatitudeOptions& own) { return RunLatitudes(row, own); });
    };
  });
}

}  // namespace

void AddPlanetaryCommands(CLI::App& program, ChosenCommand& chosen) {
  AddWrap(program, chosen);
  for (const LatitudeRow& row : kLatitudeRows) AddLatitudes(row, program, chosen);
}

}  // namespace tessarine
