// SPDX-License-Identifier: GPL-2.0-or-later
// Geometric attributes, written into the attribute table of a layer or of a copy of it.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "engine/data_source.h"
#include "engine/layer_copy.h"
#include "hosts/terminal/batch.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/copy_place.h"
#include "hosts/terminal/layer_source.h"
#include "hosts/terminal/output_wishes.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/session.h"
#include "hosts/terminal/tool_options.h"
#include "platform/run_scope.h"
#include "platform/run_stop.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

struct CalculateOptions : ToolOptions {
  bool only_selected = false;
};

std::vector<ToolMeasure> MeasuresOf(const CalculateOptions& options) {
  return ReadArguments(ToolNamed("calculate").Spec(), options).Get<std::vector<ToolMeasure>>("measure");
}

ExitStatus Calculate(const CalculateOptions& options, const std::vector<ToolMeasure>& measures, Session& session,
                     const std::shared_ptr<DocumentFeatureLayer>& layer) {
  const ITool& tool = ToolNamed("calculate");
  Arguments arguments = ReadArguments(tool.Spec(), options);
  arguments.Set("source", std::shared_ptr<IFeatureLayer>(layer));
  arguments.Set("measure", measures);
  if (const auto spheroid = ChooseSpheroid(options.spheroid)) {
    arguments.Set("spheroid", ToolSpheroid{spheroid->name, spheroid->semi_major_axis, spheroid->semi_minor_axis});
  }
  return session.Run(tool, arguments);
}

// Where a run would only find out that nothing can be written.
void RefuseReadOnly(const DocumentFeatureLayer& layer) {
  const auto info = Cast<IObjectClassInfo2>(layer.FeatureClass());
  if (!info || info->CanBypassEditSession()) return;
  throw Refusal("The records of '" + layer.Name() +
                "' can't be changed in place: their file may not be written, or its format is only written as a whole. "
                "Work on a copy: -o COPY.");
}

ExitStatus CalculateInPlace(const CalculateOptions& options) {
  if (options.only_selected) throw Refusal("--only-selected is for copies: name one with -o.");
  if (!options.output.to.empty()) throw Refusal("--to is for copies: name one with -o.");
  if (options.output.stamp) throw Refusal("--stamp is for copies: name one with -o.");
  Session session(options.common);
  const std::shared_ptr<DocumentFeatureLayer> layer = TakeLayer(session.Document(), options.source);
  RefuseReadOnly(*layer);
  RefuseUnwritableSource(layer->FeatureClass());
  return Calculate(options, MeasuresOf(options), session, layer);
}

// Puts the copy in the place of its source for this run, with what the document says of fields and selection.
std::shared_ptr<DocumentFeatureLayer> TakeCopy(const LayerCopy& copy, const DocumentFeatureLayer& source,
                                               const std::vector<std::int64_t>& selected, Session& session) {
  auto layer = std::make_shared<DocumentFeatureLayer>();
  layer->SetFeatureClass(copy.output);
  layer->SetName(FreeLayerName(session.Document(), copy.output->Name()));
  for (const CopiedField& field : copy.fields) {
    for (const auto& [name, info] : source.FieldInfos()) {
      if (!field.worked.empty() && EqualsIgnoringCase(name, field.source)) layer->SetFieldInfo(field.worked, info);
    }
  }
  if (!selected.empty()) layer->SetSelection(SelectByOids(copy.output, selected));
  session.Document().Map().AddLayer(layer);
  session.Document().SetSelectedLayer(layer);
  session.KeepForRunOnly(layer);
  return layer;
}

std::vector<std::string> FieldsOfMeasures(const std::vector<ToolMeasure>& measures) {
  std::vector<std::string> fields;
  for (const ToolMeasure& measure : measures) fields.insert(fields.end(), measure.fields.begin(), measure.fields.end());
  return fields;
}

// The measures with the fields as the copy calls them: a field of the source may have got another name in it, and
// a name that the format reserves is changed for a new field as for one of the source.
std::vector<ToolMeasure> MeasuresOfCopy(std::vector<ToolMeasure> measures, const LayerCopy& copy,
                                        const NameRule& rule) {
  for (ToolMeasure& measure : measures) {
    for (std::string& name : measure.fields) {
      const auto same = [&](const CopiedField& field) {
        return !field.worked.empty() && EqualsIgnoringCase(field.source, name);
      };
      const auto field = std::ranges::find_if(copy.fields, same);
      if (field != copy.fields.end()) {
        name = field->worked;
      } else if (std::ranges::find(rule.reserved, LowerCase(name)) != rule.reserved.end()) {
        name = LegalName(rule, name);
      }
    }
  }
  return measures;
}

// The identifiers in the copy; those of the source where it is only planned.
std::vector<std::int64_t> SelectedInCopy(const LayerCopy& copy, const std::vector<std::int64_t>& selected,
                                         bool plan_only) {
  if (plan_only) return selected;
  std::vector<std::int64_t> own;
  for (const auto& [source, target] : copy.oids) {
    if (std::ranges::binary_search(selected, source)) own.push_back(target);
  }
  return own;
}

// The report of a run that ended before its copy was whole.
std::string NoCopyReport(const RunJournal& journal, const std::string& layer) {
  const std::string cause =
      journal.stopped ? "The run was stopped while the records of " + layer + " were copied." : journal.failure;
  return PlainReport(std::string("Geometry Calculation ") + (journal.stopped ? "Stopped:" : "Failed:"),
                     {cause, "Nothing of the copy is kept."});
}

// Nothing where the user stopped it or it failed, which the journal tells.
std::optional<LayerCopy> MakeCopy(const LayerCopyRequest& request, RunJournal& journal) {
  try {
    std::optional<LayerCopy> copy;
    if (!UnlessStopped([&] { copy = MakeLayerCopy(request); })) journal.stopped = true;
    return copy;
  } catch (const Fault& fault) {
    if (request.plan_only || fault.Number() == kInvalidCall) throw Refusal(fault.Description());
    journal.Fail(fault.Description());
    return std::nullopt;
  }
}

ExitStatus CalculateOnCopy(const CalculateOptions& options) {
  const NamedOutput target = ParseOutput(options.output, Folders::Refused);
  Session session(options.common);
  const std::size_t known_layers = session.Document().Map().AllLayers().size();
  const std::shared_ptr<DocumentFeatureLayer> source = TakeLayer(session.Document(), options.source);
  // The copy stands for it.
  if (session.Document().Map().AllLayers().size() > known_layers) session.Document().Map().RemoveLayer(*source);
  RefuseUnusableCopy(target, *source, options.common);
  std::vector<std::int64_t> selected =
      source->SelectionSet()->Count() > 0 ? source->SelectedOids() : std::vector<std::int64_t>();
  if (options.only_selected && selected.empty()) {
    throw Refusal("--only-selected: no record is selected. Add --where, or select records in the document.");
  }
  RefuseUnreachableReference(target, source->SpatialReference(), source->FeatureClass()->Extent());
  const ReplacementAnswer answer = AskToReplace(target, options.common);
  if (answer.replacing == Replacing::Declined) return ExitStatus::Refused;

  LayerCopyRequest request{source->FeatureClass(),
                           target.place,
                           std::nullopt,
                           answer.replacing == Replacing::Agreed,
                           FieldsOfMeasures(MeasuresOf(options)),
                           answer.question,
                           target.wished,
                           options.common.dry_run};
  if (options.only_selected) request.only = selected;
  RunJournal& journal = session.Host().Journal();
  session.Host().SetWishes(WishesFor(target, options.common));
  std::optional<LayerCopy> copy;
  {
    RunContext context = HostContext();
    const RunScope scope(context);
    // Some formats take their stamp when the class is made.
    journal.reference = source->SpatialReference();
    if (const auto chosen = ChooseSpheroid(options.spheroid)) {
      journal.spheroid = RunSpheroid{chosen->name, chosen->semi_major_axis, chosen->semi_minor_axis};
    }
    copy = MakeCopy(request, journal);
  }
  if (!copy) return session.EndEarly(NoCopyReport(journal, source->Name()));
  if (!options.common.dry_run) {
    for (const std::string& sentence : Cast<IStagedDataset>(copy->output)->Foretold()) Host().Announce(sentence);
  }
  selected =
      options.only_selected ? std::vector<std::int64_t>() : SelectedInCopy(*copy, selected, options.common.dry_run);
  return Calculate(options, MeasuresOfCopy(MeasuresOf(options), *copy, target.place.format->field_names), session,
                   TakeCopy(*copy, *source, selected, session));
}

ExitStatus RunCalculate(const CalculateOptions& options) {
  CheckReportFile(options.common.report_file);
  if (options.texts.at("measure").empty() && !options.flags.at("all-measures")) {
    throw Refusal("Nothing to calculate: name measures with -m, or give --all-measures. 'tessarine measures " +
                  options.source.source + "' lists them.");
  }
  return options.output.text.empty() ? CalculateInPlace(options) : CalculateOnCopy(options);
}

}  // namespace

void AddCalculateCommand(CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<CalculateOptions>();
  CLI::App& command = AddToolCommand(program, ToolNamed("calculate").Spec(), *options);
  command
      .add_option("-o,--output", options->output.text,
                  std::string("Leave the source as it is and work on this copy of the layer: ") + kOutputHelp)
      ->type_name("COPY");
  command.add_flag("--only-selected", options->only_selected,
                   "Copy only the records that meet --where, or that are selected in the document");
  AddFormatOption(command, options->output);
  AddReferenceOption(command, options->output);
  command.callback([&chosen, options] {
    options->common.command_line = chosen.command_line;
    chosen.run = [options] {
      return RunOverSources(options->sources, options->output, options->common, OneIntoFolder::BySource,
                            [&](const std::string& source, const OutputOptions& copy, const CommonOptions& common) {
                              CalculateOptions own = *options;
                              own.source.source = source;
                              own.output = copy;
                              own.common = common;
                              return RunCalculate(own);
                            });
    };
  });
}

}  // namespace tessarine
