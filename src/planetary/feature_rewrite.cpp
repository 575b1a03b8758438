// SPDX-License-Identifier: GPL-2.0-or-later
#include "planetary/feature_rewrite.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "planetary/carried_fields.h"
#include "platform/run_scope.h"
#include "platform/run_stop.h"
#include "platform/text_formats.h"
#include "support/MyGeneralOperations.h"
#include "support/attribute_copy.h"
#include "support/foretold_changes.h"
#include "support/frmOrlProgressMeter.h"
#include "support/journal_report.h"
#include "support/record_pipeline.h"
#include "support/records_read.h"
#include "support/rows_on_disk.h"
#include "support/run_progress.h"
#include "support/trapped_run.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

constexpr const char* kTask = "Converting Features...";
constexpr const char* kPartial = "  [Partial]";
constexpr const char* kChanged = "The output holds another area, length or number of places than the input.";
constexpr const char* kEmptied = "A feature that had a shape came out with an empty one.";

// The request that the description makes for a run that reads this class.
OutputRequest RequestFor(const OutputDescription& description, const std::shared_ptr<IFeatureClass>& input) {
  OutputRequest request;
  request.geometry_type = description.ShapeType();
  request.reference = description.Reference();
  request.place = description.Place();
  request.fields = description.Fields();
  request.dialog_title = description.DialogTitle();
  request.sources = {input};
  return request;
}

// The place that the class got in the end: the user may have named another one.
OutputPlace PlaceGot(const IFeatureClass& output, const OutputRequest& request) {
  OutputPlace place = request.place;
  if (output.Category().starts_with("Shapefile")) {
    place.dataset.clear();
    place.name = MyGeneralOperations::WithShapefileEnding(place.name);
  }
  return place;
}

std::string ShownName(const OutputPlace& place) {
  return place.dataset.empty() ? place.name : place.dataset + ":" + place.name;
}

// All carried fields, in the order that the output was created with.
AttributeCopy CopyOf(const IFeatureClass& from, const IFeatureClass& to) {
  const std::vector<std::int32_t> sources = CarriedPositions(*from.Fields());
  return {sources, LastAttributes(*to.Fields(), sources.size()), *to.Fields()};
}

// `shape` is a private copy, or null.
RewrittenShape Rewrite(const ShapeRewrite& rewrite, const GeometryRef& shape, const RewrittenRecord& record) {
  if (!shape || shape->IsEmpty()) {
    record.journal.skipped_oids.push_back(record.oid);
    return {shape, "  --> Feature at OID #" + std::to_string(record.oid) + " is empty..."};
  }
  RewrittenShape rewritten;
  if (!UnlessStopped([&] { rewritten = rewrite(shape, record); })) rewritten.stopped = true;
  if (rewritten.shape && rewritten.shape->IsEmpty()) {
    record.journal.NoteWarning(kEmptied, record.oid);
    if (rewritten.problem.empty()) {
      rewritten.problem = "  --> Feature at OID #" + std::to_string(record.oid) + " came out empty...";
    }
  }
  return rewritten;
}

// What the work on one record noted in a journal of its own.
void TakeRecordNotes(const RunJournal& notes, std::int64_t oid, RunJournal& journal) {
  std::ranges::copy(notes.skipped_oids, std::back_inserter(journal.skipped_oids));
  for (const RunWarning& warning : notes.warnings) {
    for (std::int64_t time = 0; time < warning.count; ++time) journal.NoteWarning(warning.text, oid);
  }
  for (const RunFault& fault : notes.faults) journal.NoteFault(fault.first, oid);
}

// The features one by one, or on several threads.
class RewriteLoop {
 public:
  RewriteLoop(RunContext& context, const FeatureRewrite& run, IFeatureClass& input,
              const std::shared_ptr<IFeatureClass>& output, RunProgress& progress, RewriteFacts& facts)
      : context_(context),
        journal_(context.journal),
        run_(run),
        progress_(progress),
        facts_(facts),
        attributes_(CopyOf(input, *output)),
        reader_(input.Search(nullptr, Recycling::No)),
        writer_(output->Insert(true)),
        buffer_(output->CreateFeatureBuffer()) {}

  // False when the user stopped the run.
  bool Run() {
    const bool finished = context_.jobs > 1 ? UnlessStopped([this] { return WorkOnSeveral(); }) : WorkOneByOne();
    writer_->Close();
    return finished;
  }

 private:
  struct Rewritten {
    RewrittenShape shape;
    RunJournal notes;
    std::optional<Fault> fault;
  };

  bool WorkOneByOne() {
    const KeepGoing keep_going = [this] { return progress_.GoesOn(); };
    while (const std::shared_ptr<IFeature> feature = reader_->NextFeature()) {
      if (!Step()) return false;
      const std::int64_t oid = feature->OID();
      RewrittenShape rewritten;
      static_cast<void>(WorkOnRecord(journal_, oid, [&] {
        rewritten = Rewrite(run_.rewrite, feature->ShapeCopy(), {oid, journal_, keep_going});
      }));
      if (rewritten.stopped) return false;
      Write(*feature, oid, rewritten);
    }
    return true;
  }

  bool WorkOnSeveral() {
    return SpreadRecords<Rewritten>(
        context_, *reader_, [this] { return Step(); },
        [this](const ReadRecord& record) {
          Rewritten rewritten;
          rewritten.fault = record.fault;
          if (rewritten.fault) return rewritten;
          const ShapeRewrite own = run_.rewrite;
          const KeepGoing keep_going = [] { return !StopRequested(); };
          KeepFault(record.oid, rewritten.fault, [&] {
            rewritten.shape = Rewrite(own, record.shape, {record.oid, rewritten.notes, keep_going});
          });
          return rewritten;
        },
        [this](const ReadRecord& record, const Rewritten& rewritten) {
          TakeRecordNotes(rewritten.notes, record.oid, journal_);
          if (rewritten.fault) {
            static_cast<void>(WorkOnRecord(journal_, record.oid, [&] { throw Fault(*rewritten.fault); }));
          }
          if (rewritten.shape.stopped) throw RunStopped();
          Write(*record.feature, record.oid, rewritten.shape);
        });
  }

  [[nodiscard]] bool Step() {
    if (!progress_.Step(++facts_.records_done)) return false;
    ++journal_.read;
    return true;
  }

  void Write(const IFeature& feature, std::int64_t oid, const RewrittenShape& rewritten) {
    if (facts_.measures.Add(rewritten.measure, oid)) journal_.NoteWarning(kChanged, oid);
    if (rewritten.steps.holds_north) facts_.poles.north.push_back(oid);
    if (rewritten.steps.holds_south) facts_.poles.south.push_back(oid);
    if (!rewritten.problem.empty()) facts_.problems += ProblemLine(rewritten.problem);
    if (!WorkOnRecord(journal_, oid, [&] { attributes_.Copy(feature, *buffer_, journal_); })) return;
    const auto write = [&](const GeometryRef& shape) {
      return WorkOnRecord(journal_, oid, [&] {
        buffer_->SetShape(shape);
        WriteRow([&] { writer_->InsertFeature(*buffer_); });
        ++journal_.written;
      });
    };
    // What the output can't hold is the shape, as a rule; the record isn't lost with it.
    if (write(rewritten.shape) || !rewritten.shape || !write(nullptr)) return;
    facts_.problems +=
        ProblemLine("  --> Feature at OID #" + std::to_string(oid) + " was written without its shape...");
  }

  RunContext& context_;
  RunJournal& journal_;
  const FeatureRewrite& run_;
  RunProgress& progress_;
  RewriteFacts& facts_;
  AttributeCopy attributes_;
  std::shared_ptr<IFeatureCursor> reader_, writer_;
  std::shared_ptr<IFeatureBuffer> buffer_;
};

void ShowResult(RunContext& context, const std::shared_ptr<IFeatureClass>& output, bool partial,
                const std::shared_ptr<IMxDocument>& document) {
  const std::shared_ptr<IFeatureLayer> layer = context.services.CreateFeatureLayer();
  layer->SetFeatureClass(output);
  layer->SetName(output->AliasName() + (partial ? kPartial : ""));
  layer->SetVisible(true);
  document->AddLayer(layer);
  document->UpdateContents();
}

std::string EndWithoutOutput(RunContext& context, const FeatureRewrite& run, const char* reason) {
  if (context.journal.cancelled) return "";
  context.feedback.Tell(std::string("No Feature Class Created:\r\n") + reason, "");
  context.journal.Fail(std::string("No feature class was created: ") + reason);
  return NoOutputReport(run.conversion);
}

// "Complete" is not said of a run that lost rows.
std::string TitleOf(const FeatureRewrite& run, const RunJournal& journal) {
  const bool lost = journal.failed || (!journal.stopped && journal.written < journal.read);
  return lost ? Replace(run.title, "Complete", std::string(OutcomeTitle(journal))) : std::string(run.title);
}

// Measures that changed have a section of their own, and shapes that came out empty a line each.
std::string OtherWarningLines(const RunJournal& journal, std::string_view layer) {
  RunJournal others;
  others.other_warnings = journal.other_warnings;
  std::ranges::copy_if(journal.warnings, std::back_inserter(others.warnings),
                       [](const RunWarning& warning) { return warning.text != kChanged && warning.text != kEmptied; });
  return WarningLines(others, layer);
}

std::string RunBody(RunContext& context, const FeatureRewrite& run, const std::shared_ptr<IApplication>& application,
                    const std::shared_ptr<IMxDocument>& document, bool show_progress, RewriteFacts& facts,
                    RunScope& scope, std::shared_ptr<IFeatureClass>& written_to) {
  RunJournal& journal = scope.Journal();
  const std::shared_ptr<IFeatureClass> input = Require(Require(run.layer, "layer")->FeatureClass(), "FeatureClass");
  const std::int32_t announced = input->FeatureCount(nullptr);
  RunProgress progress(context, {"Converting " + run.layer->Name(), std::string(kTask) + "\r\n", kTask}, application,
                       announced, show_progress ? std::make_shared<frmOrlProgressMeter>() : nullptr);
  const std::vector<CarriedField> carried = CarriedUnder(*input->Fields(), *run.output.FieldNames());
  AnnounceLosses(context, *input, run.layer->Name(), carried);
  AnnounceChanges(context, carried, run.output.Place().Kind());
  NoteLeftOut(*input, journal);
  OutputRequest request = RequestFor(run.output, input);
  const Envelope extent = input->Extent();
  request.envelope = &extent;
  const std::shared_ptr<IFeatureClass> output = CreateOutput(context, request);
  if (!output) {
    progress.Abandon();
    return EndWithoutOutput(context, run, "Bailing out...");
  }
  written_to = output;
  facts.measures.type = input->ShapeType();
  const OutputPlace place = PlaceGot(*output, request);
  journal.reference = output->SpatialReference();

  facts.stopped = !RewriteLoop(context, run, *input, output, progress, facts).Run();
  if (!facts.stopped) RequireRecords(journal, announced, run.layer->Name());
  journal.stopped = facts.stopped;
  PublishOutput(context, *output, request);
  CheckRowsWritten(journal, *output);
  facts.stopped ? progress.Stop() : progress.Finish();
  ShowResult(context, output, facts.stopped, document);
  scope.End();
  facts.time_spent =
      ReturnTimeElapsedRTF(journal.begin, journal.end, MyGeneralOperations::kReportFontSize, journal.elapsed_seconds);
  facts.problems = OtherWarningLines(journal, run.layer->Name()) + facts.problems +
                   FaultLines(journal, run.layer->Name()) + ChangeLines(journal) + ChangedNameLines(journal);
  return RewriteReport(TitleOf(run, journal), run.sections,
                       {ShownName(place), place.Directory(), static_cast<std::int32_t>(journal.written)}, facts);
}

}  // namespace

std::string RewriteFeatures(RunContext& context, const FeatureRewrite& run,
                            const std::shared_ptr<IApplication>& application,
                            const std::shared_ptr<IMxDocument>& document, bool show_progress) {
  RewriteFacts facts;
  RunScope scope(context);
  RunJournal& journal = scope.Journal();
  journal.spheroid = run.spheroid;
  std::shared_ptr<IFeatureClass> output;
  const std::string layer_name = run.layer ? run.layer->Name() : "";
  const auto body = [&] {
    const std::string report = RunBody(context, run, application, document, show_progress, facts, scope, output);
    ReportRecordFaults(journal, run.worker, layer_name);
    return report;
  };
  const auto on_fault = [&](const Fault& fault) {
    facts.problems = OtherWarningLines(journal, layer_name) + facts.problems + FaultLines(journal, layer_name) +
                     ChangeLines(journal);
    return FaultReport(run.conversion, run.worker, facts, fault);
  };
  return TrapRun({context, run.worker, layer_name, output}, body, on_fault);
}

std::string PlanRewrite(RunContext& context, const FeatureRewrite& run) {
  const RunScope scope(context);
  RunJournal& journal = scope.Journal();
  journal.reference = run.output.Reference();
  const std::shared_ptr<IFeatureClass> features = Require(run.layer, "layer")->FeatureClass();
  OutputRequest request = RequestFor(run.output, features);
  const Envelope extent = features->Extent();
  request.envelope = &extent;
  const OutputPlan plan = PlanOutput(context, request);
  OutputPlace place = run.output.Place();
  place.name = request.place.name;
  std::vector<ReportSection> sections = run.sections;
  sections.push_back({"Output:",
                      {"  ** Feature Class:  " + ShownName(place), "  ** Workspace:  " + place.container,
                       "  ** " + DirectoryTypeText(place.Kind())}});
  ReportSection fields{"Fields:", {}};
  std::size_t index = 0;
  for (const Variant& element : *run.output.FieldNames()) {
    const std::string& source = element.AsObject<StrArray>()->Element(0);
    const PlannedField& field = plan.fields.at(index++);
    fields.lines.push_back("       " + (field.name.empty() ? "(left out)" : field.name) +
                           (source != field.name ? "  <--  " + source : "") +
                           (field.type.empty() ? "" : "  (" + field.type + ")"));
  }
  if (fields.lines.empty()) fields.lines.emplace_back("       <-- No Fields -->");
  sections.push_back(fields);
  ReportSection foretold{"Foretold:", {}};
  const FieldsRef input = run.layer->FeatureClass()->Fields();
  const std::vector<CarriedField> carried = CarriedUnder(*input, *run.output.FieldNames());
  std::vector<std::string> sentences = ForetoldLosses(*run.layer->FeatureClass(), run.layer->Name(), carried);
  const std::vector<std::string> changes = ForetoldChanges(carried, place.Kind());
  sentences.insert(sentences.end(), changes.begin(), changes.end());
  sentences.insert(sentences.end(), plan.foretold.begin(), plan.foretold.end());
  for (const std::string& sentence : sentences) foretold.lines.push_back("  ** " + sentence);
  if (!foretold.lines.empty()) sections.push_back(foretold);
  sections.push_back({"Questions:", {"  ** " + NotePlan(context, plan)}});
  return PlanReport(run.conversion, sections);
}

}  // namespace tessarine
