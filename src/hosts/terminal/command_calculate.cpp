// Geometric attributes, written into the attribute table of a layer or of a copy of it.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>

#include "engine/copy_layer.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/geometry_script.h"
#include "hosts/terminal/layer_source.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/session.h"
#include "hosts/terminal/spheroid_options.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

struct CalculateOptions {
  CommonOptions common;
  SourceOptions source;
  std::string copy;
  std::vector<std::string> measures;
  bool all_measures = false;
  bool planetocentric = false;
  SpheroidOptions spheroid;
};

std::string NameOf(const LayerPlace& place) {
  return place.layer.empty() ? fs::path(place.path).stem().string() : place.layer;
}

// A place for work beside another, of the same format where that can be changed in place.
LayerPlace PlaceBeside(const LayerPlace& place) {
  if (EndsWithIgnoringCase(place.path, ".shp")) return {place.path + ".working.shp", ""};
  const std::string ending = ChangesInPlace(place.path) ? fs::path(place.path).extension().string() : ".gpkg";
  return {place.path + ".working" + ending, NameOf(place)};
}

/// The copy that -o names. Where something stands there already, and where the format can't be changed in place, it is
/// made beside its place and put there at the end. Unless it is kept, nothing of it stays and nothing else was touched.
class WorkingCopy {
 public:
  WorkingCopy(const CalculateOptions& options, const LayerPlace& source) : target_(ParseLayerPlace(options.copy)) {
    Check(options, source);
    working_ = ChangesInPlace(target_.path) && !LayerExists(target_) ? target_ : PlaceBeside(target_);
    CopyLayer(source, working_);
  }
  ~WorkingCopy() {
    try {
      if (!kept_ || working_.path != target_.path) RemoveLayer(working_);
    } catch (const Fault&) {
      // What can't be removed stays.
    }
  }
  WorkingCopy(const WorkingCopy&) = delete;
  WorkingCopy& operator=(const WorkingCopy&) = delete;

  [[nodiscard]] const LayerPlace& Place() const { return working_; }
  [[nodiscard]] std::string Name() const { return NameOf(target_); }
  /// The copy's place at the end, as a report tells it.
  [[nodiscard]] std::string OutputPath() const {
    const bool container = ChangesInPlace(target_.path) && !EndsWithIgnoringCase(target_.path, ".shp");
    return FromNativePath(target_.path) + (container ? "\\" + NameOf(target_) : "");
  }
  void Keep() {
    kept_ = true;
    if (working_.path != target_.path) CopyLayer(working_, target_);
  }

 private:
  void Check(const CalculateOptions& options, const LayerPlace& source) const {
    if (!CanWriteFormatOf(target_.path)) {
      throw Refusal("-o " + options.copy +
                    ": no format is known for this ending. Name a .shp, .gpkg, .gdb/NAME, "
                    ".geojson or another file that GDAL writes.");
    }
    if (!fs::is_directory(fs::path(target_.path).parent_path())) {
      throw Refusal("-o " + options.copy + ": there is no folder '" + fs::path(target_.path).parent_path().string() +
                    "'.");
    }
    std::error_code error;
    if (fs::equivalent(source.path, target_.path, error) && (target_.layer.empty() || target_.layer == source.layer)) {
      throw Refusal("-o " + options.copy + " is the source itself: name another file, or leave -o out.");
    }
    if (LayerExists(target_) && !options.common.overwrite) {
      throw Refusal("'" + options.copy + "' exists already: add --overwrite to replace it, or name another.");
    }
  }

  LayerPlace target_, working_;
  bool kept_ = false;
};

// The copy is nothing when the source itself is changed.
ExitStatus Calculate(const CalculateOptions& options, const SourceOptions& source, const WorkingCopy* copy) {
  Session session(options.common);
  const std::shared_ptr<DocumentFeatureLayer> layer = TakeLayer(session.Document(), source);
  if (copy != nullptr) {
    layer->SetName(copy->Name());
    session.TellOutput(copy->OutputPath());
  }
  const GeometryAnswers answers{options.measures, options.all_measures, ChooseSpheroid(options.spheroid),
                                options.planetocentric};
  GeometryScript script(answers, *layer);
  return session.Run("Tessarine.clsConvertGeometry", &script);
}

// The source's layer by its place; the document's layers by what they were opened from.
LayerPlace SourcePlace(const CalculateOptions& options) {
  const Session session(options.common);
  const std::shared_ptr<DocumentFeatureLayer> layer = TakeLayer(session.Document(), options.source);
  return {layer->Source().path, layer->Source().layer};
}

ExitStatus CalculateOnCopy(const CalculateOptions& options) {
  WorkingCopy copy(options, SourcePlace(options));
  SourceOptions source = options.source;
  source.source = copy.Place().path;
  source.layer = copy.Place().layer;
  CalculateOptions on_copy = options;
  on_copy.common.document.clear();
  const ExitStatus status = Calculate(on_copy, source, &copy);
  if (status != ExitStatus::Refused) copy.Keep();
  return status;
}

ExitStatus RunCalculate(const CalculateOptions& options) {
  CheckReportFile(options.common.report_file);
  if (options.measures.empty() && !options.all_measures) {
    throw Refusal("Nothing to calculate: name measures with -m, or give --all-measures. 'tessarine measures " +
                  options.source.source + "' lists them.");
  }
  if (options.copy.empty() || options.common.dry_run) return Calculate(options, options.source, nullptr);
  return CalculateOnCopy(options);
}

}  // namespace

void AddCalculateCommand(CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<CalculateOptions>();
  CLI::App& command = *program.add_subcommand(
      "calculate", "Write lengths, areas, centroids, azimuths and counts of features into their attribute table");
  command.add_option("source", options->source.source, "The data: a path, PATH:LAYER, or a layer of the document")
      ->required();
  command
      .add_option("-m,--measure", options->measures,
                  "A measure, with its fields where they shall have other names than the proposed ones; repeat it for "
                  "more. 'tessarine measures' lists them")
      ->type_name("MEASURE[=FIELD[,FIELD]]")
      ->allow_extra_args(false);
  command.add_flag("--all-measures", options->all_measures, "All measures of the layer");
  command
      .add_option("-o,--output", options->copy,
                  "Leave the source as it is and work on this copy of the layer: NAME.shp, NAME.gpkg[:LAYER], "
                  "NAME.gdb/LAYER, or any other file that GDAL writes")
      ->type_name("COPY");
  command.add_option("-l,--layer", options->source.layer, "The layer, where the data holds several");
  command.add_option("-w,--where", options->source.where,
                     "Calculate only for the records that meet this SQL condition");
  AddSpheroidOptions(command, options->spheroid);
  command.add_flag("--planetocentric", options->planetocentric, "The latitudes of the data are planetocentric");
  AddCommonOptions(command, options->common);
  command.footer(
      "Example:\n  tessarine calculate tests/data/countries.shp -m \"Sph. Area\" -m \"Sph. Centroid=LON,LAT\" -o "
      "measured.gpkg");
  command.callback([&chosen, options] {
    options->common.command_line = chosen.command_line;
    chosen.run = [options] { return RunCalculate(*options); };
  });
}

}  // namespace tessarine
