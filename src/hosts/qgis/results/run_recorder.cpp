// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/results/run_recorder.h"

#include <utility>

#include "hosts/qgis/layers.h"
#include "hosts/qgis/results/result_layer.h"
#include "outputs/formats.h"
#include "outputs/layer_copy.h"
#include "platform/paths.h"

namespace tessarine::qgis {
namespace {

// Whether a run is going to replace what it finds; one that finds another name doesn't.
bool Replaces(const ITool& tool, const Arguments& arguments) {
  const auto output = arguments.Get<ToolOutput>("output");
  const Format* format = FormatOfKind(output.kind);
  if (format == nullptr || output.name.empty() || tool.Spec().renames) return false;
  try {
    std::string name = output.name;
    if (!format->container && FormatOfPath(name) != format) name += format->ending;
    return output.directory.starts_with('\\') && Stands({format, ToNativePath(output.directory), output.dataset, name});
  } catch (const Fault&) {
    return false;  // the run is going to tell
  }
}

Writes WritesOf(const ITool& tool, const Arguments& arguments) {
  return tool.Spec().WritesIntoSource() && !arguments.Has("output") ? Writes::Source : Writes::Output;
}

QgsVectorLayer* SourceOf(const Arguments& arguments) {
  const auto source = Cast<VectorLayer>(arguments.Get<std::shared_ptr<IFeatureLayer>>(kSourceParameter));
  return source ? source->Shown() : nullptr;
}

}  // namespace

void RunRecorder::Begin(const ITool& tool, const Arguments& arguments) {
  // What changes the document alone is seen there.
  running_ = nullptr;
  if (tool.Spec().Find("output") == nullptr) return;
  running_ = std::make_unique<Running>(
      Running{tool, arguments, LineOfRun(tool, arguments, WritesOf(tool, arguments)), tool.Meanings(arguments), {}});
  if (Replaces(tool, arguments)) running_->line.SetReplaces();
}

void RunRecorder::Take(QgsVectorLayer& layer) {
  if (running_) running_->added.emplace_back(&layer);
}

void RunRecorder::End(const RunJournal& journal, const std::string& report) {
  const auto run = std::exchange(running_, nullptr);
  if (!run || journal.Outcome() == RunOutcome::Cancelled) return;
  const ToolSpec& spec = run->tool.Spec();
  const bool makes_class = WritesOf(run->tool, run->arguments) == Writes::Output;
  run->line.SetOutput(ToNativePath(journal.output_path));
  TerminalLine line = run->line.Line();
  const ResultOrigin origin = OriginOf(spec, run->arguments, run->meanings, journal, line.text);
  for (const QPointer<QgsVectorLayer>& layer : run->added) {
    if (layer) DressResult(*layer, origin);
  }
  QgsVectorLayer* source = SourceOf(run->arguments);
  const bool has_filled = !makes_class && journal.Outcome() != RunOutcome::Failed;
  if (source != nullptr && has_filled) NoteCalculation(*source, origin);
  PastRun past = PastRunOf(RunFrom::Menus, spec.title, journal, report, std::move(line));
  if (!makes_class && source != nullptr) past.output = source->name();
  RunHistory::Post(std::move(past));
}

}  // namespace tessarine::qgis
