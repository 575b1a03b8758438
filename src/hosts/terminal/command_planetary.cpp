// The planetary tools: wrap to a box, and latitudes of planets.
#include <CLI/CLI.hpp>
#include <memory>

#include "hosts/terminal/commands.h"
#include "hosts/terminal/form_answers.h"
#include "hosts/terminal/layer_source.h"
#include "hosts/terminal/output_run.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/session.h"
#include "hosts/terminal/spheroid_options.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr const char* kTakes = "layers in degrees of longitude and latitude";

struct PlanetaryOptions {
  CommonOptions common;
  SourceOptions source;
  std::string output;
  std::string shift;
};

struct WrapOptions : PlanetaryOptions {
  std::string range;
  std::string bounds;  ///< four numbers with commas between
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

// The form passes over a shift that is no number; here somebody would miss it.
void CheckShift(const std::string& shift) {
  if (!shift.empty() && !IsNumericText(shift)) {
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
  void ChooseSource(Form& form) const { ChooseLayer(ControlOf<ListBox>(form, "lbxLayers"), layer_, command_, kTakes); }
  void PressOk(Form& form) const {
    if (!options_.shift.empty()) ControlOf<TextBox>(form, "txtLongShift").SetText(options_.shift);
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
    const char* option = options_.range == "180" ? "optWrap180" : options_.range == "360" ? "optWrap360" : "optCustom";
    ControlOf<OptionButton>(form, option).SetValue(true);
    if (!options_.bounds.empty()) TypeBounds(form);
    PressOk(form);
  }

 private:
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

template <class MakeScript>
ExitStatus RunPlanetary(const PlanetaryOptions& options, const char* class_id, MakeScript&& make_script) {
  CheckReportFile(options.common.report_file);
  CheckShift(options.shift);
  const OutputPlace place = ParseOutputPlace(options.output);
  Session session(options.common);
  const std::shared_ptr<DocumentFeatureLayer> layer = TakeLayer(session.Document(), options.source);
  RefuseSource(place, *layer);
  auto script = make_script(*layer, place);
  return RunInto(session, class_id, script, place, layer->SpatialReference(), options.common);
}

ExitStatus RunWrap(const WrapOptions& options) {
  if (options.range.empty() && options.bounds.empty()) {
    throw Refusal("'wrap' needs a box: --range 180, --range 360 or --bounds W,S,E,N.");
  }
  if (!options.bounds.empty() && SplitAtCommas(options.bounds).size() != 4) {
    throw Refusal("--bounds takes four numbers: west, south, east and north, as in --bounds -90,-90,270,90.");
  }
  return RunPlanetary(options, "Tessarine.clsWrapBoundary",
                      [&](const auto& layer, const OutputPlace& place) { return WrapScript(options, layer, place); });
}

ExitStatus RunLatitudes(const LatitudeRow& row, const LatitudeOptions& options) {
  return RunPlanetary(options, row.class_id, [&](const auto& layer, const OutputPlace& place) {
    return LatitudeScript(row, options, layer, place);
  });
}

void AddPlanetaryOptions(CLI::App& command, PlanetaryOptions& options) {
  command.add_option("source", options.source.source, "The data: a path, PATH:LAYER, or a layer of the document")
      ->required();
  command
      .add_option("-o,--output", options.output,
                  "The new class: NAME.shp, a folder, GEODATABASE.gdb/NAME or GEODATABASE.gdb/DATASET/NAME")
      ->required();
  command.add_option("-l,--layer", options.source.layer, "The layer, where the data holds several");
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
  AddCommonOptions(command, options->common);
  command.footer("Example:\n  tessarine wrap tests/data/countries.shp --range 360 -o countries_360.shp");
  command.callback([&chosen, options] {
    options->common.command_line = chosen.command_line;
    chosen.run = [options] { return RunWrap(*options); };
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
  command.footer(std::string("Example:\n  ") + row.example);
  command.callback([&row, &chosen, options] {
    options->common.command_line = chosen.command_line;
    chosen.run = [&row, options] { return RunLatitudes(row, *options); };
  });
}

}  // namespace

void AddPlanetaryCommands(CLI::App& program, ChosenCommand& chosen) {
  AddWrap(program, chosen);
  for (const LatitudeRow& row : kLatitudeRows) AddLatitudes(row, program, chosen);
}

}  // namespace tessarine
