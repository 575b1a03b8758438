// SPDX-License-Identifier: GPL-2.0-or-later
// What there is to know of a data source: its layers, references and fields.
#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "engine/data_source.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/layer_source.h"
#include "hosts/terminal/refusal.h"
#include "platform/run_journal.h"
#include "platform/shape_words.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

struct InfoOptions {
  std::string source;
  std::string layer;
};

const char* TypeWord(esriFieldType type) {
  switch (type) {
    case esriFieldTypeSmallInteger:
      return "small integer";
    case esriFieldTypeInteger:
      return "integer";
    case esriFieldTypeInteger64:
      return "long integer";
    case esriFieldTypeSingle:
      return "single";
    case esriFieldTypeDouble:
      return "double";
    case esriFieldTypeString:
      return "text";
    case esriFieldTypeGUID:
    case esriFieldTypeGlobalID:
      return "unique id";
    case esriFieldTypeXML:
      return "xml";
    case esriFieldTypeDate:
      return "date";
    case esriFieldTypeOID:
      return "identifier";
    case esriFieldTypeGeometry:
      return "shape";
    default:
      return "binary";
  }
}

std::string WidthText(const Field& field) {
  if (field.Type == esriFieldTypeString) return field.Length > 0 ? std::to_string(field.Length) : "";
  if (field.Precision == 0) return "";
  return field.Scale > 0 ? fmt::format("{}.{}", field.Precision, field.Scale) : std::to_string(field.Precision);
}

void PrintSpheroid(const GeographicCoordinateSystem& geographic) {
  const Spheroid& spheroid = *geographic.Datum()->Spheroid();
  fmt::print("  Spheroid:    {}, semi-major axis {} m, semi-minor axis {} m\n", spheroid.Name(),
             NumberText(spheroid.SemiMajorAxis()), NumberText(spheroid.SemiMinorAxis()));
}

void PrintReference(const SpatialReferenceRef& reference) {
  if (const auto projected = Cast<const ProjectedCoordinateSystem>(reference)) {
    fmt::print("  Coordinates: projected, {}\n", projected->Name());
    PrintSpheroid(*projected->GeographicCoordinateSystem());
  } else if (const auto geographic = Cast<const GeographicCoordinateSystem>(reference)) {
    fmt::print("  Coordinates: geographic, {}\n", geographic->Name());
    PrintSpheroid(*geographic);
  } else {
    fmt::print("  Coordinates: unknown, no reference is declared\n");
  }
}

void PrintLeftOut(const LeftOutRecords& records) {
  std::string oids;
  const std::size_t listed = std::min(records.oids.size(), RunJournal::kListedOids);
  for (std::size_t index = 0; index < listed; ++index) {
    oids += (index == 0 ? "" : ", ") + std::to_string(records.oids[index]);
  }
  if (listed < records.oids.size()) oids += ", ...";
  const std::string what = records.kind.empty() ? "without a shape, in a layer that mixes kinds of them"
                                                : "of the kind " + records.kind + ", which no tool takes";
  fmt::print("  Skipped:     {} more {} (OID {})\n", records.oids.size(), what, oids);
}

void PrintLayer(const LayerInfo& info) {
  fmt::print("Layer: {}\n  Shape type:  {}\n", info.name, ShapeWord(info.shape_type, "none (a table)"));
  if (!info.problem.empty()) {
    fmt::print("  Unreadable:  {}\n", info.problem);
    return;
  }
  if (info.shape_type != esriGeometryNull) PrintReference(info.reference);
  fmt::print("  Records:     {}\n", info.count);
  for (const LeftOutRecords& records : info.left_out) PrintLeftOut(records);
  fmt::print("  Fields:\n");
  for (const FieldRef& field : *info.fields) {
    fmt::print("    {:<24} {:<14} {}\n", field->Name, TypeWord(field->Type), WidthText(*field));
  }
}

ExitStatus RunInfo(const InfoOptions& options) {
  std::string path, layer;
  SplitSource(options.source, path, layer);
  if (!options.layer.empty()) layer = options.layer;
  std::shared_ptr<DataSource> source;
  try {
    source = DataSource::Open(path);
  } catch (const Fault& fault) {
    throw Refusal(fault.Description());
  }
  const std::vector<LayerInfo> infos = source->Infos();
  if (infos.empty()) throw Refusal("'" + path + "' holds no layer.");
  fmt::print("Source: {}\nFormat: {}\n", path, source->DriverName());
  bool found = false;
  for (const LayerInfo& info : infos) {
    if (!layer.empty() && !EqualsIgnoringCase(info.name, layer)) continue;
    fmt::print("\n");
    PrintLayer(info);
    found = true;
  }
  if (!found) {
    std::string names;
    for (const LayerInfo& info : infos) names += (names.empty() ? "" : ", ") + info.name;
    throw Refusal("'" + path + "' has no layer '" + layer + "'. It has: " + names + ".");
  }
  return ExitStatus::Done;
}

}  // namespace

void AddInfoCommand(CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<InfoOptions>();
  CLI::App& command =
      *program.add_subcommand("info", "Tell the layers, references, spheroids, record counts and fields of data");
  command.add_option("source", options->source, "The data: a path, or PATH:LAYER")->required();
  command.add_option("-l,--layer", options->layer, "Only this layer");
  command.footer("Example:\n  tessarine info tests/data/countries.shp");
  command.callback([&chosen, options] { chosen.run = [options] { return RunInfo(*options); }; });
}

}  // namespace tessarine
