// SPDX-License-Identifier: GPL-2.0-or-later
// The commands of the tools, and the list of them all.
#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>

#include "hosts/terminal/batch.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/output_checks.h"
#include "hosts/terminal/output_run.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/selected_class.h"
#include "hosts/terminal/tool_options.h"
#include "outputs/output_argument.h"
#include "platform/paths.h"
#include "platform/shape_words.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

using LayerRef = std::shared_ptr<DocumentFeatureLayer>;

// Tools that take all records of a layer get, of a selection, a layer of its own for this run alone.
LayerRef LayerOfSelection(const LayerRef& layer, const SourceOptions& source, Session& session,
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

LayerRef TakeSource(const ToolSpec& spec, const ToolOptions& options, Session& session) {
  const std::size_t known_layers = session.Document().Map().AllLayers().size();
  const LayerRef layer = TakeLayer(session.Document(), options.source);
  return spec.whole_layers ? LayerOfSelection(layer, options.source, session, known_layers) : layer;
}

// Without a document nothing is remembered.
void RefuseNone(const ToolSpec& spec, const Arguments& arguments, const std::string& source, bool has_document) {
  const auto may_be_there = [&](std::string_view name) {
    return arguments.Has(name) || (has_document && spec.Find(name)->remembered);
  };
  if (spec.one_of.empty() || std::ranges::any_of(spec.one_of, may_be_there)) return;
  const bool remembers = std::ranges::any_of(spec.one_of, [&](auto name) { return spec.Find(name)->remembered; });
  const std::string text = Replace(std::string(spec.without_one_of), "{source}", source) +
                           (remembers ? " A {document} that remembers one serves, too." : "");
  throw Refusal(ObjectionText({"", text}));
}

// A tool for the map document.
ExitStatus RunOnDocument(const ITool& tool, const ToolOptions& options) {
  const ToolSpec& spec = tool.Spec();
  CheckReportFile(options.common.report_file);
  Arguments arguments = ReadArguments(spec, options);
  RefuseNone(spec, arguments, "", true);
  if (spec.Find("output") == nullptr) return Session(options.common).Run(tool, arguments);
  const NamedOutput output = ParseOutput(options.output, Folders::Allowed);
  Session session(options.common);
  arguments.Set("output", ArgumentFor(output.place));
  const auto* chosen = arguments.Find<SpatialReferenceRef>("reference");
  return RunInto(session, tool, arguments, output,
                 chosen != nullptr ? *chosen : session.Document().Map().SpatialReference(), Envelope(), options.common);
}

void RefuseOptionsOfCopies(const ToolOptions& options) {
  const char* const option = options.only_selected        ? "--only-selected"
                             : !options.output.to.empty() ? "--to"
                             : options.output.stamp       ? "--stamp"
                                                          : nullptr;
  if (option != nullptr) throw Refusal(std::string(option) + " is for copies: name one with -o.");
}

// The layers, and what was chosen for them.
LayerRef TakeLayers(const ToolSpec& spec, const ToolOptions& options, const OutputPlace& place, Session& session,
                    Arguments& arguments) {
  if (const auto spheroid = ChooseSpheroid(options.spheroid)) {
    // Typed radii have no name but the tool's own word for such.
    arguments.Set("spheroid", ToolSpheroid{options.spheroid.radii.empty() ? spheroid->name : "",
                                           spheroid->semi_major_axis, spheroid->semi_minor_axis});
  }
  for (const auto& [name, other] : options.layers) {
    if (other.source.empty()) continue;
    const LayerRef layer = TakeLayer(session.Document(), other);
    RefuseSource(place, *layer);
    arguments.Set(name, std::shared_ptr<IFeatureLayer>(layer));
  }
  const LayerRef layer = TakeSource(spec, options, session);
  RefuseSource(place, *layer);
  arguments.Set("source", std::shared_ptr<IFeatureLayer>(layer));
  return layer;
}

ExitStatus RunInPlace(const ITool& tool, const ToolOptions& options, Arguments& arguments) {
  RefuseOptionsOfCopies(options);
  Session session(options.common);
  const LayerRef layer = TakeLayers(tool.Spec(), options, OutputPlace(), session, arguments);
  RefuseUnwritableSource(layer->FeatureClass());
  return session.Run(tool, arguments);
}

ExitStatus RunTool(const ITool& tool, const ToolOptions& options) {
  const ToolSpec& spec = tool.Spec();
  CheckReportFile(options.common.report_file);
  Arguments arguments = ReadArguments(spec, options);
  RefuseNone(spec, arguments, options.source.source, !options.common.document.empty());
  const bool copies = spec.WritesIntoSource();
  if (copies && options.output.text.empty()) return RunInPlace(tool, options, arguments);
  const NamedOutput output = ParseOutput(options.output, copies ? Folders::Refused : Folders::Allowed);
  const OutputPlace& place = output.place;
  Session session(options.common);
  const std::size_t known_layers = session.Document().Map().AllLayers().size();
  const LayerRef layer = TakeLayers(spec, options, place, session, arguments);
  // The document has no part in a copy.
  if (copies && session.Document().Map().AllLayers().size() > known_layers) session.KeepForRunOnly(layer);
  if (options.only_selected) arguments.records = ToolRecords::Selected;
  arguments.Set("output", ArgumentFor(place));
  const TerminalManners manners = options.common.Manners();
  // Such a run would rather take another name than ask.
  if (spec.renames && (manners.overwrite || manners.yes)) {
    session.Host().LocalSystem().GiveFree(FromNativePath(place.NativePath()));
  }
  const SpatialReferenceRef own = layer->SpatialReference();
  const SpatialReferenceRef geographic = spec.reference == ToolReference::Geographic ? GeographicOf(own) : nullptr;
  // In another reference than the data's own the tool finds out what they cover.
  return RunInto(session, tool, arguments, output, geographic ? geographic : own,
                 geographic && geographic != own ? Envelope() : layer->FeatureClass()->Extent(), options.common);
}

ExitStatus RunOverAll(const ITool& tool, const ToolOptions& options) {
  if (tool.Spec().works_on == ToolSubject::Document) return RunOnDocument(tool, options);
  if (!tool.Spec().several_sources && options.sources.size() > 1) {
    throw Refusal("'" + std::string(tool.Spec().name) + "' takes one layer, and " +
                  std::to_string(options.sources.size()) +
                  " sources were named. Put the features into one layer first, or run it for each.");
  }
  return RunOverSources(options.sources, options.output, options.common,
                        tool.Spec().WritesIntoSource() ? OneIntoFolder::BySource : OneIntoFolder::Itself,
                        [&](const std::string& source, const OutputOptions& output, const CommonOptions& common) {
                          ToolOptions own = options;
                          own.source.source = source;
                          own.output = output;
                          own.common = common;
                          return RunTool(tool, own);
                        });
}

const char* KindWord(ParameterKind kind) {
  switch (kind) {
    case ParameterKind::Layer:
      return "layer";
    case ParameterKind::Fields:
      return "fields";
    case ParameterKind::Number:
      return "number";
    case ParameterKind::Box:
      return "box";
    case ParameterKind::Choice:
      return "choice";
    case ParameterKind::Flag:
      return "flag";
    case ParameterKind::Spheroid:
      return "spheroid";
    case ParameterKind::Measures:
      return "measures";
    case ParameterKind::Output:
      return "output";
    case ParameterKind::Shapes:
      return "shapes";
    case ParameterKind::Text:
      return "text";
    case ParameterKind::Texts:
      return "texts";
    case ParameterKind::Reference:
      return "reference";
  }
  return "";
}

const char* ReferenceWord(ToolReference reference) {
  switch (reference) {
    case ToolReference::Source:
      return "source";
    case ToolReference::Geographic:
      return "geographic";
    case ToolReference::SourceAlone:
      return "source alone";
    case ToolReference::Chosen:
      return "chosen";
    case ToolReference::None:
      return "none";
  }
  return "";
}

nlohmann::ordered_json ParameterJson(const ToolParameter& parameter) {
  nlohmann::ordered_json json = {{"name", parameter.name},
                                 {"kind", KindWord(parameter.kind)},
                                 {"text", parameter.text},
                                 {"required", parameter.required}};
  const auto add = [&](const char* key, std::string_view text) {
    if (!text.empty()) json[key] = text;
  };
  for (const esriGeometryType shape : parameter.shapes) json["shapes"].push_back(ShapeWord(shape, "other"));
  add("unit", parameter.unit);
  if (parameter.least) json["least"] = *parameter.least;
  if (!parameter.choices.empty()) json["choices"] = parameter.choices;
  add("otherwise", parameter.otherwise);
  add("of", parameter.of);
  add("needs", parameter.needs);
  add("excludes", parameter.excludes);
  if (parameter.remembered) json["remembered"] = true;
  if (parameter.by_place) json["by_place"] = true;
  return json;
}

void PrintToolsJson() {
  auto json = nlohmann::ordered_json::array();
  for (const ITool* tool : AllToolsOfSuite()) {
    const ToolSpec& spec = tool->Spec();
    nlohmann::ordered_json row = {{"name", spec.name},
                                  {"title", spec.title},
                                  {"text", spec.text},
                                  {"takes", spec.takes},
                                  {"makes", spec.makes},
                                  {"works_on", spec.works_on == ToolSubject::Document ? "document" : "layers"},
                                  {"reference", ReferenceWord(spec.reference)},
                                  {"whole_layers", spec.whole_layers},
                                  {"several_sources", spec.several_sources},
                                  {"spreads", spec.spreads},
                                  {"parameters", nlohmann::ordered_json::array()},
                                  {"example", spec.example}};
    for (const ToolParameter& parameter : spec.parameters) row["parameters"].push_back(ParameterJson(parameter));
    if (!spec.one_of.empty()) row["one_of"] = spec.one_of;
    json.push_back(std::move(row));
  }
  fmt::print("{}\n", json.dump(2));
}

ExitStatus PrintTools(bool as_json) {
  if (as_json) {
    PrintToolsJson();
    return ExitStatus::Done;
  }
  for (const ITool* tool : AllToolsOfSuite()) {
    const ToolSpec& spec = tool->Spec();
    fmt::print("{}: {}\n  takes {}\n  {}\n", spec.name, spec.text, spec.takes, spec.makes);
    for (const ToolParameter& parameter : spec.parameters) {
      fmt::print("    {:<18}  {:<8}  {}\n", parameter.name, KindWord(parameter.kind), parameter.text);
    }
  }
  return ExitStatus::Done;
}

}  // namespace

void AddToolCommands(CLI::App& parent, std::string_view group, ChosenCommand& chosen) {
  std::vector<const ITool*> tools = AllToolsOfSuite();
  const auto is_of_group = [&](const ITool* tool) {
    const std::string_view name = tool->Spec().name;
    return name.substr(0, name.rfind(' ') + 1) == (group.empty() ? "" : std::string(group) + " ");
  };
  std::erase_if(tools, [&](const ITool* tool) { return !is_of_group(tool); });
  // Those that make nothing new stand first.
  std::ranges::stable_partition(tools, [](const ITool* tool) { return tool->Spec().Find("output") == nullptr; });
  for (const ITool* tool : tools) {
    auto options = std::make_shared<ToolOptions>();
    AddToolCommand(parent, tool->Spec(), *options).callback([tool, &chosen, options] {
      options->common.command_line = chosen.command_line;
      chosen.run = [tool, options] { return RunOverAll(*tool, *options); };
    });
  }
}

void AddToolsCommand(CLI::App& program, ChosenCommand& chosen) {
  auto json = std::make_shared<bool>(false);
  CLI::App& command = *program.add_subcommand("tools", "List the tools: what each takes, asks and makes");
  command.add_flag("--json", *json, "Print all that is known of them as JSON, for other programs");
  command.footer("Example:\n  tessarine tools --json");
  command.callback([&chosen, json] { chosen.run = [json] { return PrintTools(*json); }; });
}

}  // namespace tessarine
