// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/tool_algorithm.h"

#include <qgsexception.h>

#include <QPointer>
#include <algorithm>
#include <iterator>
#include <utility>

#include "hosts/document/component_loader.h"
#include "hosts/qgis/layers.h"
#include "hosts/qgis/processing/in_place_report.h"
#include "hosts/qgis/processing/output_goal.h"
#include "hosts/qgis/processing/run_notes.h"
#include "hosts/qgis/processing/run_turn.h"
#include "hosts/qgis/processing/tool_parameters.h"
#include "hosts/qgis/processing/tool_run.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/pictures.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/application.h"
#include "platform/command_line.h"
#include "platform/paths.h"
#include "platform/run_stop.h"

namespace tessarine::qgis {
namespace {

struct CountOutput {
  const char* name;
  const char* text;
};
constexpr CountOutput kRead{"READ", "Records read"};
constexpr CountOutput kWritten{"WRITTEN", "Records written"};
constexpr CountOutput kFailed{"FAILED", "Records that met a fault"};

// Whatever goes wrong below becomes what the program expects.
template <class Work>
auto AsProgramErrors(Work&& work) {
  try {
    return std::forward<Work>(work)();
  } catch (const Fault& fault) {
    throw QgsProcessingException(Translated(LinesToQt(fault.Description())));
  }
}

// The fault in other words, raised where it was.
Fault Reworded(const Fault& fault, const std::string& description) {
  Fault reworded(fault.Number(), fault.Source(), description, fault.Line(), fault.File());
  reworded.PassThrough(fault.Calls());
  return reworded;
}

// Runs the tool, lets `hand_over` bring what was made to where it belongs, and tells how both ended. `hand_over` takes
// the run's journal and its report and may change them, and throws where the output doesn't arrive.
template <class HandOver>
void RunAndTell(ToolRun& run, Arguments arguments, const OutputGoal& goal, RunNotes& notes,
                QgsProcessingFeedback& feedback, HandOver&& hand_over) {
  try {
    run.Run(std::move(arguments), goal);
  } catch (const Fault& fault) {
    const std::string why = goal.AsNamed(fault.Description());
    notes.TellRefusal(Translated(LinesToQt(why)));
    throw Reworded(fault, why);
  } catch (const QgsProcessingException& error) {
    notes.TellRefusal(error.what());
    throw;
  }
  RunJournal journal = run.Journal();
  std::string report = run.Report();
  // What the output is called in the end is known when it has arrived.
  const auto tell = [&] {
    report = goal.ReportAsNamed(report);
    run.TellReport(report);
    notes.TellEnd(journal, report, feedback);
  };
  journal.failure = goal.AsNamed(journal.failure);
  try {
    if (!journal.failure.empty()) Raise(kEngine, journal.failure);
    std::forward<HandOver>(hand_over)(journal, report);
  } catch (const RunStopped&) {
    journal.stopped = true;
    tell();
    throw;
  } catch (const Fault& fault) {
    const std::string why = goal.AsNamed(fault.Description());
    journal.Fail(why);
    tell();
    throw Reworded(fault, why);
  } catch (const QgsProcessingException& error) {
    journal.Fail(FromQt(error.what()));
    tell();
    throw;
  }
  tell();
}

QString Sentence(std::string_view text) {
  const QString shown = Translated(text);
  return shown + (shown.endsWith(QLatin1Char('.')) ? "" : ".");
}

}  // namespace

QString ToolAlgorithm::name() const { return ToQt(Spec().name); }

QString ToolAlgorithm::displayName() const { return Translated(Spec().title); }

QString ToolAlgorithm::shortDescription() const { return Sentence(Spec().text); }

QString ToolAlgorithm::shortHelpString() const {
  const ToolSpec& spec = Spec();
  QString help = Sentence(spec.text) + QStringLiteral("\n\n") + Translated("Takes") + QLatin1Char(' ') +
                 Sentence(spec.takes) + QStringLiteral("\n\n") + Sentence(spec.makes);
  if (spec.WritesIntoSource()) {
    help += QLatin1Char(' ') + Translated("Here that is a copy; the layer stays as it is.");
  }
  for (const QgsProcessingParameterDefinition* parameter : parameterDefinitions()) {
    if (!parameter->help().isEmpty()) help += "\n\n" + parameter->description() + ": " + parameter->help();
  }
  return help;
}

QStringList ToolAlgorithm::tags() const { return {ToQt(Spec().name), QStringLiteral("tessarine")}; }

QIcon ToolAlgorithm::icon() const {
  const auto command = CreateComponentAs<ICommand>("Tessarine." + std::string(Spec().class_name), "ICommand");
  const auto picture = command->Bitmap();
  return picture ? PictureOf(picture->ResourceId()) : QgsProcessingAlgorithm::icon();
}

QgsProcessingAlgorithm* ToolAlgorithm::createInstance() const { return new ToolAlgorithm(tool_); }

QgsProcessingAlgorithm::Flags ToolAlgorithm::flags() const {
  // The nearer class edits every layer in place.
  // NOLINTNEXTLINE(bugprone-parent-virtual-call)
  const Flags flags = QgsProcessingAlgorithm::flags();
  return KeepsRecords(Spec()) ? flags | FlagSupportsInPlaceEdits : flags;
}

bool ToolAlgorithm::supportInPlaceEdit(const QgsMapLayer* layer) const {
  const auto* edited = qobject_cast<const QgsVectorLayer*>(layer);
  if (edited == nullptr || !KeepsRecords(Spec())) return false;
  // What the tools make is flat: heights and measures would be lost.
  if (QgsWkbTypes::hasZ(edited->wkbType()) || QgsWkbTypes::hasM(edited->wkbType())) return false;
  const auto& shapes = Spec().Find(kSourceParameter)->shapes;
  return std::ranges::find(shapes, ShapeTypeOf(edited->wkbType())) != shapes.end();
}

void ToolAlgorithm::initAlgorithm(const QVariantMap& configuration) {
  in_place_ = configuration.value(QStringLiteral("IN_PLACE")).toBool();
  QgsProcessingFeedback silent(false);
  RunHost host(silent);
  const ThreadHostScope scope(host);
  for (auto& definition : DefinitionsOf(Spec())) addParameter(definition.release());  // the algorithm owns it
  for (const CountOutput& count : {kRead, kWritten, kFailed}) {
    addOutput(new QgsProcessingOutputNumber(QLatin1String(count.name), Translated(count.text)));
  }
}

bool ToolAlgorithm::checkParameterValues(const QVariantMap& parameters, QgsProcessingContext& context,
                                         QString* message) const {
  if (!QgsProcessingAlgorithm::checkParameterValues(parameters, context, message)) return false;
  QString objection;
  try {
    objection = ObjectionTo(parameters, context);
  } catch (const Fault& fault) {
    objection = Translated(LinesToQt(fault.Description()));
  }
  if (objection.isEmpty()) return true;
  if (message != nullptr) *message = objection;
  return false;
}

// The layers as the program has them: their rows aren't looked at.
QString ToolAlgorithm::ObjectionTo(const QVariantMap& parameters, QgsProcessingContext& context) const {
  // While others have the turn, the run itself is going to look.
  const RunTurn turn;
  if (!turn.Taken()) return {};
  QgsProcessingFeedback silent(false);
  ToolRun run(tool_, silent);
  Arguments arguments = ReadArguments(Spec(), *this, parameters, context);
  for (const ToolParameter& parameter : Spec().parameters) {
    if (parameter.kind != ParameterKind::Layer) continue;
    QgsVectorLayer* layer = LayerOf(*parameterDefinition(NameOf(parameter)), parameters, context);
    if (layer == nullptr && !parameter.required) continue;
    if (layer == nullptr || !layer->isValid()) return {};  // the run tells of it
    arguments.Set(parameter.name, std::shared_ptr<IFeatureLayer>(std::make_shared<VectorLayer>(*layer)));
  }
  const OutputGoal goal(*parameterDefinition(QLatin1String(kOutput)), parameters, context);
  PromisePlace(goal.Place(), nullptr, run.Places());
  arguments.Set("output", goal.Argument());
  const auto objection = tool_.Validate(arguments, run.Application());
  return objection ? ObjectionText(Spec(), *objection) : QString();
}

bool ToolAlgorithm::prepareAlgorithm(const QVariantMap& parameters, QgsProcessingContext& context,
                                     QgsProcessingFeedback* feedback) {
  if (in_place_) {
    MoveInPlace(parameters, context, *feedback);
    return true;
  }
  return AsProgramErrors([&] {
    for (const ToolParameter& parameter : Spec().parameters) {
      if (parameter.kind != ParameterKind::Layer) continue;
      const QgsProcessingParameterDefinition& definition = *parameterDefinition(NameOf(parameter));
      if (!parameter.required && LayerOf(definition, parameters, context) == nullptr) continue;
      layers_.try_emplace(std::string(parameter.name), definition, parameters, context);
    }
    return true;
  });
}

QVariantMap ToolAlgorithm::processAlgorithm(const QVariantMap& parameters, QgsProcessingContext& context,
                                            QgsProcessingFeedback* feedback) {
  return AsProgramErrors([&] {
    bool waits = false;
    const RunTurn turn([&] {
      if (std::exchange(waits, true)) feedback->setProgressText(Translated("Waiting for another run of the suite"));
      return feedback->isCanceled();
    });
    QVariantMap results;
    const bool finished = turn.Taken() && UnlessStopped([&] { results = RunTool(parameters, context, *feedback); });
    if (!finished) feedback->pushWarning(Translated("The run was stopped before its output was whole."));
    return results;
  });
}

// The program answers a failure here by giving up all edits of the layer, the user's own too. So it is told in the log,
// and the features stay as they are.
void ToolAlgorithm::MoveInPlace(const QVariantMap& parameters, QgsProcessingContext& context,
                                QgsProcessingFeedback& feedback) {
  const auto tell = [&](const QString& why) {
    feedback.reportError(why + QLatin1Char('\n') + Translated("All features stay as they are."));
  };
  const QgsProcessingParameterDefinition& source = *parameterDefinition(QStringLiteral("INPUT"));
  const QPointer<QgsVectorLayer> edited = LayerOf(source, parameters, context);
  if (!edited) return tell(Translated("The layer has gone."));
  const QgsFeatureIds chosen = edited->selectedFeatureIds();
  try {
    const RunTurn turn;
    if (!turn.Taken()) Raise(kInvalidCall, "Another run of the suite is at work: wait for its end.");
    ChosenLayer layer(source, parameters, context, CopiedFields::Identifiers);
    ToolRun run(tool_, feedback);
    run.SetTurns(turns_);
    OutputGoal goal(*parameterDefinition(QLatin1String(kOutput)), parameters, context);
    goal.SetShownName(edited->name());
    Arguments arguments = ReadArguments(Spec(), *this, parameters, context);
    const bool finished = UnlessStopped([&] {
      run.Take(std::string(kSourceParameter), layer, arguments);
      RunNotes notes(tool_, arguments, goal);
      notes.SetLayer(std::string(kSourceParameter), layer.Words());
      RunAndTell(run, std::move(arguments), goal, notes, feedback, [&](RunJournal& journal, std::string& report) {
        if (journal.stopped || journal.output_path.empty()) throw RunStopped();
        if (!edited) Raise(kEngine, "The layer has gone while the run was at work.");
        const std::size_t kept =
            moved_.Take(*goal.Open(journal.output_path), *edited, chosen, journal, feedback, turns_);
        notes.SetKept(kept);
        journal.written = static_cast<std::int64_t>(moved_.Count());
        report = InPlaceReport(report, FromQt(edited->name()), moved_.Count(), kept);
      });
    });
    if (!finished) tell(Translated("The run was stopped."));
  } catch (const Fault& fault) {
    tell(Translated(LinesToQt(fault.Description())));
  } catch (const QgsProcessingException& error) {
    tell(error.what());
  }
  // The program writes the features that are selected now.
  if (edited) edited->selectByIds(moved_.Writable(*edited, chosen, turns_));
}

QgsFeatureList ToolAlgorithm::processFeature(const QgsFeature& feature, QgsProcessingContext&, QgsProcessingFeedback*) {
  turns_.Give();
  return {moved_.Moved(feature)};
}

QVariantMap ToolAlgorithm::RunTool(const QVariantMap& parameters, QgsProcessingContext& context,
                                   QgsProcessingFeedback& feedback) {
  ToolRun run(tool_, feedback);
  OutputGoal goal(*parameterDefinition(QLatin1String(kOutput)), parameters, context);
  Arguments arguments = ReadArguments(Spec(), *this, parameters, context);
  for (auto& [name, layer] : layers_) run.Take(name, layer, arguments);
  RunNotes notes(tool_, arguments, goal);
  for (const auto& [name, layer] : layers_) notes.SetLayer(name, layer.Words());
  QVariantMap results;
  RunAndTell(run, std::move(arguments), goal, notes, feedback, [&](const RunJournal& journal, const std::string&) {
    if (journal.stopped && goal.IsNamedFile() && !journal.output_path.empty()) {
      feedback.pushWarning(Translated("The run was stopped; '%1' holds what was written until then.")
                               .arg(ToQt(ToNativePath(journal.output_path))));
      return;
    }
    if (journal.stopped) throw RunStopped();
    if (journal.output_path.empty()) Raise(kEngine, "The run made no output. Its log tells why.");
    const QString made = goal.HandOver(journal.output_path, feedback);
    notes.DressWhenShown(made, journal, context);
    results = {{QLatin1String(kOutput), made},
               {QLatin1String(kRead.name), QVariant::fromValue<qlonglong>(journal.read)},
               {QLatin1String(kWritten.name), QVariant::fromValue<qlonglong>(journal.written)},
               {QLatin1String(kFailed.name), QVariant::fromValue<qlonglong>(std::ssize(journal.unmeasured_oids))}};
  });
  return results;
}

}  // namespace tessarine::qgis
