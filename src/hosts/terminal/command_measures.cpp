// SPDX-License-Identifier: GPL-2.0-or-later
// What the geometry calculator offers for a layer.
#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>

#include "hosts/document/component_loader.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/layer_source.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/session.h"
#include "platform/measure_catalog.h"

namespace tessarine {
namespace {

struct MeasuresOptions {
  CommonOptions common;
  SourceOptions source;
  bool json = false;
};

std::string FieldText(const OfferedMeasure& measure) {
  std::string text;
  for (const OfferedMeasure::Field& field : measure.fields) {
    text += (text.empty() ? "" : ", ") + field.name + (field.taken ? " (exists)" : "");
  }
  return text;
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : ", ") + text;
  return joined;
}

void PrintTable(const std::string& layer, const MeasureOffer& offered) {
  std::size_t width = 7, field_width = 6;
  for (const OfferedMeasure& measure : offered.measures) {
    width = std::max(width, measure.caption.size());
    field_width = std::max(field_width, FieldText(measure).size());
  }
  fmt::print("{}\n{}\n{}\n\n", layer, offered.feature_type, offered.spheroid);
  const auto print_row = [&](const std::string& id, const std::string& caption, const std::string& fields,
                             const char* slow, const std::string& labels) {
    fmt::print("{:>2}  {:<{}}  {:<{}}  {:<4}  {}\n", id, caption, width, fields, field_width, slow, labels);
  };
  print_row("Id", "Measure", "Fields", "Slow", "In the report");
  for (const OfferedMeasure& measure : offered.measures) {
    print_row(std::to_string(measure.option_id), measure.caption, FieldText(measure), measure.slow ? "yes" : "",
              Joined(measure.report_labels));
  }
}

void PrintJson(const std::string& layer, const MeasureOffer& offered) {
  nlohmann::ordered_json json = {{"layer", layer},
                                 {"feature_type", offered.feature_type},
                                 {"spheroid", offered.spheroid},
                                 {"measures", nlohmann::ordered_json::array()}};
  for (const OfferedMeasure& measure : offered.measures) {
    nlohmann::ordered_json row = {{"id", measure.option_id},
                                  {"caption", measure.caption},
                                  {"fields", nlohmann::ordered_json::array()},
                                  {"report_labels", measure.report_labels},
                                  {"slow", measure.slow}};
    for (const OfferedMeasure::Field& field : measure.fields) {
      row["fields"].push_back({{"name", field.name}, {"exists", field.taken}});
    }
    json["measures"].push_back(std::move(row));
  }
  fmt::print("{}\n", json.dump(2));
}

ExitStatus RunMeasures(const MeasuresOptions& options) {
  Session session(options.common);
  const std::shared_ptr<DocumentFeatureLayer> layer = TakeLayer(session.Document(), options.source);
  const MeasureOffer offer =
      CreateComponentAs<IMeasureCatalog>("Tessarine.clsMeasureCatalog", "IMeasureCatalog")->Offer(*layer);
  if (offer.measures.empty()) {
    throw Refusal("The layer '" + layer->Name() +
                  "' is of the wrong kind: measures are for points, multipoints, polylines and polygons.");
  }
  if (options.json) {
    PrintJson(layer->Name(), offer);
  } else {
    PrintTable(layer->Name(), offer);
  }
  return ExitStatus::Done;
}

}  // namespace

void AddMeasuresCommand(CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<MeasuresOptions>();
  CLI::App& command = *program.add_subcommand(
      "measures", "List the measures that 'calculate' has for a layer, with the fields that they write by default");
  command.add_option("source", options->source.source, "The data: a path, PATH:LAYER, or a layer of the document")
      ->required();
  command.add_option("-l,--layer", options->source.layer, "The layer, where the data holds several");
  command.add_option("-d,--document", options->common.document, "Take the layer from this map document")
      ->type_name("MAP.json");
  command.add_flag("--json", options->json, "Print JSON");
  command.footer("Example:\n  tessarine measures tests/data/countries.shp");
  command.callback([&chosen, options] { chosen.run = [options] { return RunMeasures(*options); }; });
}

}  // namespace tessarine
