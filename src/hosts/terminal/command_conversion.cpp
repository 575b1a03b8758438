// SPDX-License-Identifier: GPL-2.0-or-later
// The conversions of features.
#include <CLI/CLI.hpp>
#include <memory>

#include "hosts/terminal/batch.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/form_answers.h"
#include "hosts/terminal/layer_source.h"
#include "hosts/terminal/output_run.h"
#include "hosts/terminal/output_wishes.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/session.h"

namespace tessarine {
namespace {

struct ConversionRow {
  const char* name;
  const char* class_id;
  const char* description;
  const char* takes;  ///< the shapes that the tool takes, in words
  bool geographic;    ///< the output is in degrees, whatever the input
  const char* example;
  const char* without_points = nullptr;  ///< why the tool can do nothing with points
};

constexpr ConversionRow kConversions[] = {
    {"vertices", "Tessarine.clsShapesToVertices", "One point for each vertex of lines, polygons and multipoints",
     "polylines, polygons or multipoints", false,
     "tessarine vertices tests/data/countries.shp --fields name,pop_est -o vertex.shp"},
    {"label-points", "Tessarine.clsConvertLabelpoint", "One point inside each polygon", "polygons", false,
     "tessarine label-points tests/data/countries.shp --fields name -o labels.shp"},
    {"centroids", "Tessarine.clsConvertCentroid",
     "The centre of each polygon or multipoint and the middle of each line, on the plane",
     "polylines, polygons or multipoints", false,
     "tessarine centroids tests/data/countries.shp --fields name --where \"continent = 'Africa'\" -o centroids.shp"},
    {"spherical-centroids", "Tessarine.clsConvertSphCentroid", "The same on the globe, as longitude and latitude",
     "polylines, polygons or multipoints", true,
     "tessarine spherical-centroids tests/data/countries.shp --fields name -o centers.shp"},
    {"to-polygons", "Tessarine.clsConvertToPolygon", "Close the parts of lines to polygons", "polylines", false,
     "tessarine to-polygons tests/data/disputed_borders.shp --all-fields -o areas.shp"},
    {"to-polylines", "Tessarine.clsConvertToPolyline", "The boundaries of polygons as lines", "polygons", false,
     "tessarine to-polylines tests/data/countries.shp --fields name -o boundaries.shp"},
    {"split", "Tessarine.clsConvertSplit", "One feature for each part of multipart features", "features", false,
     "tessarine split tests/data/countries.shp --fields name,iso_a3 -o parts.shp", "points have no parts to split"},
    {"combine", "Tessarine.clsConvertJoin", "One feature for all: the union of lines or polygons", "features", false,
     "tessarine combine tests/data/countries.shp --where \"continent = 'Africa'\" --fields continent -o africa.shp",
     "what points make is a multipoint, which the new class of points can't hold"},
};

struct ConversionOptions {
  CommonOptions common;
  SourceOptions source;
  std::vector<std::string> sources;
  OutputOptions output;
  std::vector<std::string> fields;
  bool all_fields = false;
};

// Answers the dialog of the conversions.
class LayerFieldsScript final : public FormScript {
 public:
  LayerFieldsScript(const ConversionRow& row, const ConversionOptions& options, const DocumentFeatureLayer& layer,
                    const OutputPlace& output)
      : row_(row), options_(options), layer_(layer), output_(output) {}

  void Answer(Form& form) override {
    ChooseLayer(ControlOf<ListBox>(form, "lbxLayers"), layer_, row_.name, row_.takes);
    ChooseFields(ControlOf<ListBox>(form, "lbxFields"), layer_, "--fields", options_.fields, options_.all_fields);
    ChooseOutput(form, output_);
    ControlOf<CommandButton>(form, "cmdOK").Press();
  }

 private:
  const ConversionRow& row_;
  const ConversionOptions& options_;
  const DocumentFeatureLayer& layer_;
  const OutputPlace& output_;
};

// The reference that the output will bear.
SpatialReferenceRef OutputReference(const ConversionRow& row, const DocumentFeatureLayer& layer) {
  const SpatialReferenceRef own = layer.SpatialReference();
  const SpatialReferenceRef geographic = row.geographic ? GeographicOf(own) : nullptr;
  return geographic ? geographic : own;
}

ExitStatus RunConversionCommand(const ConversionRow& row, const ConversionOptions& options) {
  CheckReportFile(options.common.report_file);
  const NamedOutput output = ParseOutput(options.output, Folders::Allowed);
  const OutputPlace& place = output.place;
  Session session(options.common);
  const std::shared_ptr<DocumentFeatureLayer> layer = TakeLayer(session.Document(), options.source);
  RefuseSource(place, *layer);
  LayerFieldsScript script(row, options, *layer, place);
  const SpatialReferenceRef reference = OutputReference(row, *layer);
  // In another reference than the data's own the tool finds out what they cover.
  const bool own = reference == layer->SpatialReference();
  const auto run = [&] {
    return RunInto(session, row.class_id, script, output, reference, own ? layer->FeatureClass()->Extent() : Envelope(),
                   options.common);
  };
  if (row.without_points != nullptr && layer->FeatureClass()->ShapeType() == esriGeometryPoint) {
    // The plan says so too.
    if (options.common.dry_run) (void)run();
    throw Refusal(std::string(row.name) + ": '" + layer->Name() + "' holds points: " + row.without_points + ".");
  }
  return run();
}

void AddConversion(const ConversionRow& row, CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<ConversionOptions>();
  CLI::App& command = *program.add_subcommand(row.name, row.description);
  command.add_option("source", options->sources, kSourceHelp)->required();
  command
      .add_option("-o,--output", options->output.text, std::string("The new class, or a folder for it: ") + kOutputHelp)
      ->required();
  AddSourceOptions(command, options->source);
  command.add_option("-f,--fields", options->fields, "The attribute fields to carry over, with commas between")
      ->delimiter(',')
      ->allow_extra_args(false);
  command.add_flag("-a,--all-fields", options->all_fields, "Carry all attribute fields over");
  AddFormatOption(command, options->output);
  AddReferenceOption(command, options->output);
  AddCommonOptions(command, options->common);
  AddJobsOption(command, options->common);
  command.footer(std::string("Example:\n  ") + row.example);
  command.callback([&row, &chosen, options] {
    options->common.command_line = chosen.command_line;
    chosen.run = [&row, options] {
      return RunOverSources(options->sources, options->output, options->common, OneIntoFolder::Itself,
                            [&](const std::string& source, const OutputOptions& output, const CommonOptions& common) {
                              ConversionOptions own = *options;
                              own.source.source = source;
                              own.output = output;
                              own.common = common;
                              return RunConversionCommand(row, own);
                            });
    };
  });
}

}  // namespace

void AddConversionCommands(CLI::App& program, ChosenCommand& chosen) {
  for (const ConversionRow& row : kConversions) AddConversion(row, program, chosen);
}

}  // namespace tessarine
