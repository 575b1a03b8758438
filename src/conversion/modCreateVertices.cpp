// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/modCreateVertices.h"

#include <vector>

#include "conversion/conversion_step.h"
#include "conversion/field_transfer.h"
#include "conversion/output_frame.h"
#include "conversion/recorded_output.h"
#include "conversion/run_data.h"
#include "conversion/run_reports.h"
#include "platform/finite_shape.h"
#include "platform/run_scope.h"
#include "platform/run_stop.h"
#include "support/MyGeneralOperations.h"
#include "support/progress_text.h"
#include "support/record_pipeline.h"
#include "support/records_read.h"
#include "support/rows_on_disk.h"
#include "support/run_progress.h"

namespace tessarine::modCreateVertices {
namespace {

using namespace MyGeneralOperations;

constexpr std::string_view kNotFinite =
    "Features with a coordinate that is infinite or no number have no output: mend or remove these coordinates.";

constexpr std::string_view kTooFar =
    "Features with a coordinate beyond 1e100 can't be joined: mend or remove these coordinates.";

constexpr std::string_view kNothingLeft =
    "A part or feature was written without a shape, because it bounds no area or has no length.";

bool MaySpread(const RunContext& context, const ConversionStep& step) { return context.jobs > 1 && step.IsPure(); }

// Writes output features: one buffer, refilled for each of them.
class OutputWriter final : public ConversionSink {
 public:
  OutputWriter(const std::shared_ptr<IFeatureClass>& output, const FieldTransfer& transfer, RunJournal& journal)
      : transfer_(transfer),
        journal_(journal),
        fields_(output->Fields()),
        buffer_(output->CreateFeatureBuffer()),
        cursor_(output->Insert(true)) {}

  /// The input feature that comes now.
  void SetInput(std::int64_t oid) { oid_ = oid; }
  /// The attributes repeat on every output feature of one input feature and stay in the buffer until the next.
  void BeginFeature(const IFeature& input) {
    oid_ = input.OID();
    transfer_.CopyAttributes(input, *buffer_, journal_);
  }

  void SetShape(const GeometryRef& shape) override {
    if (shape && shape->IsEmpty()) Warn(kNothingLeft);
    buffer_->SetShape(shape);
  }
  void SetMeasure(std::size_t index, double value) override {
    const std::int32_t place = transfer_.MeasureIndex(index);
    NoteMeasureChange(journal_, *fields_->Field(place), buffer_->SetValue(place, value), oid_);
  }
  void Insert() override {
    buffer_->SetValue(transfer_.UniqueIdIndex(), count_ + 1);
    InsertUnnumbered();
    ++count_;
  }
  void InsertUnnumbered() override {
    WriteRow([this] { cursor_->InsertFeature(*buffer_); });
    ++journal_.written;
  }
  void Skip(std::string_view reason) override {
    journal_.skipped_oids.push_back(oid_);
    Warn(reason);
  }
  void Warn(std::string_view text) override { journal_.NoteWarning(text, oid_); }
  void Flush() { cursor_->Flush(); }
  /// Flushes, and tells of rows that could not be written.
  void Close() { cursor_->Close(); }

 private:
  const FieldTransfer& transfer_;
  RunJournal& journal_;
  FieldsRef fields_;
  std::shared_ptr<IFeatureBuffer> buffer_;
  std::shared_ptr<IFeatureCursor> cursor_;
  std::int32_t count_ = 0;
  std::int64_t oid_ = 0;  // of the input feature in hand
};

// The features of the input go through a step, one by one or on several threads.
class FeatureLoop {
 public:
  FeatureLoop(const ConversionRun& run, const StepContext& step_context, const RunInput& input, OutputWriter& writer,
              RunProgress& progress, RunFacts& facts, RunContext& context)
      : run_(run),
        input_(input),
        writer_(writer),
        progress_(progress),
        facts_(facts),
        context_(context),
        journal_(context.journal),
        step_(run.make_step(step_context)) {}

  // False when the user stopped the run.
  bool Run() {
    if (!(MaySpread(context_, *step_) ? WorkOnSeveral() : WorkOneByOne())) return false;
    if (step_->TakesFeatures()) RequireRecords(journal_, input_.count, facts_.layer_name);
    step_->Finish(writer_);
    return true;
  }

 private:
  [[nodiscard]] bool Joins() const { return run_.kind == RunKind::Joining; }

  bool WorkOneByOne() {
    while (const std::shared_ptr<IFeature> feature = input_.cursor->NextFeature()) {
      const std::int64_t oid = feature->OID();
      // One feature for all bears the attributes of the first, whether that has a shape or not.
      if (Joins() && facts_.records_done == 0) {
        static_cast<void>(WorkOnRecord(journal_, oid, [&] { writer_.BeginFeature(*feature); }));
      }
      if (!step_->TakesFeatures()) break;
      if (!Step()) return false;
      const bool converted = WorkOnRecord(journal_, oid, [&] {
        const GeometryRef shape = feature->Shape();
        const bool has_shape = shape && !shape->IsEmpty();
        if (!Takes(oid, has_shape, has_shape && HasOnlyFiniteCoordinates(*shape))) return;
        if (Joins() && !CanMeetOthers(*shape)) return writer_.Skip(kTooFar);
        if (!Joins()) writer_.BeginFeature(*feature);
        step_->Convert(shape, writer_);
      });
      if (converted && run_.flushes_each_feature) writer_.Flush();
    }
    return true;
  }

  struct Converted {
    bool is_finite = false;
    RecordedOutput output;
  };

  bool WorkOnSeveral() {
    return SpreadRecords<Converted>(
        context_, *input_.cursor, [this] { return Step(); },
        [this](const ReadRecord& record) {
          Converted converted;
          converted.is_finite = record.has_shape && HasOnlyFiniteCoordinates(*record.shape);
          if (converted.is_finite) {
            KeepFault(record.oid, converted.output.fault, [&] { step_->Convert(record.shape, converted.output); });
          }
          return converted;
        },
        [this](const ReadRecord& record, const Converted& converted) { Write(record, converted); });
  }

  void Write(const ReadRecord& record, const Converted& converted) {
    static_cast<void>(WorkOnRecord(journal_, record.oid, [&] {
      if (record.fault) throw Fault(*record.fault);
      if (!Takes(record.oid, record.has_shape, converted.is_finite)) return;
      writer_.BeginFeature(*record.feature);
      converted.output.TellTo(writer_);
    }));
  }

  [[nodiscard]] bool Step() {
    ++facts_.records_done;
    if (!progress_.Step(facts_.records_done)) return false;
    ++journal_.read;
    return true;
  }

  // Whether the step gets the record's shape; tells why not.
  [[nodiscard]] bool Takes(std::int64_t oid, bool has_shape, bool is_finite) {
    if (!has_shape) {
      journal_.skipped_oids.push_back(oid);
      return false;
    }
    writer_.SetInput(oid);
    if (!is_finite) writer_.Skip(kNotFinite);
    return is_finite;
  }

  const ConversionRun& run_;
  const RunInput& input_;
  OutputWriter& writer_;
  RunProgress& progress_;
  RunFacts& facts_;
  RunContext& context_;
  RunJournal& journal_;
  std::unique_ptr<ConversionStep> step_;
};

RunProgressWords ProgressWords(const ConversionRun& run, const std::string& layer_name) {
  RunProgressWords words;
  words.status_text = std::string(run.words.status_lead_in) + layer_name;
  words.action_text = run.words.action_text;
  words.repeated_action = run.words.repeated_action;
  return words;
}

}  // namespace

std::string RunConversion(RunContext& context, const ConversionRun& run, const ConversionChoices& choices,
                          const std::shared_ptr<IApplication>& application, ProgressShown shown) {
  RunFacts facts;
  RunScope scope(context);
  RunJournal& journal = scope.Journal();
  std::shared_ptr<IFeatureClass> output;
  const auto tell_faults = [&] { ReportRecordFaults(journal, run.worker, facts.layer_name); };
  const auto run_body = [&]() -> std::string {
    const auto document = Cast<IMxDocument>(application->Document());
    const RunInput input =
        OpenInput(choices.layer, choices.all_records, context.jobs > 1 ? Rows::Stay : Rows::Recycled);
    facts.layer_name = choices.layer->Name();
    facts.all_records = choices.all_records;
    facts.record_count = input.count;
    RunProgress progress(context, ProgressWords(run, facts.layer_name), application, input.count,
                         shown == ProgressShown::Yes && run.kind != RunKind::Joining);

    const SpatialReferenceRef reference = input.features->SpatialReference();
    if (!CanFrame(run, reference)) {
      journal.Fail("'" + facts.layer_name +
                   "' has no known coordinate system, and this run must know it: define the projection of the data.");
      return UnknownReferenceReport(run);
    }
    facts.reference_name = Require(reference, "SpatialReference")->Name();
    const OutputFrame frame = FrameOf(run, *input.features);
    journal.reference = frame.reference;
    const esriGeometryType input_type = input.features->ShapeType();
    // Before an output of the same name would be replaced.
    if (const std::string_view reason = WhyNever(run, input_type); !reason.empty()) {
      Raise(kTypeMismatch, std::string(reason));
    }
    const ShapeRule rule = RuleFor(run, input_type);
    FieldTransfer transfer =
        FieldTransfer::BesideInput(*input.features, rule.measure_fields, *choices.fields, choices.output.Kind());
    if (choices.all_records) NoteLeftOut(*input.features, journal);
    OutputRequest request = RequestFor(choices.output, run.words.name_prompt);
    request.geometry_type = rule.output;
    request.reference = frame.reference;
    request.envelope = &frame.extent;
    request.fields = transfer.OutputFields();
    request.sources = {input.features};
    AnnounceLosses(context, *input.features, facts.layer_name, transfer.Carried());
    AnnounceChanges(context, transfer.Carried(), request.place.Kind());
    output = CreateOutput(context, request);
    if (!output) {
      progress.Abandon();
      return EndWithoutOutput(context);
    }
    facts.output_path = OutputPath(*output, request);
    transfer.Bind(input.features.get(), *output);
    facts.field_report = transfer.FieldReport();

    {
      OutputWriter writer(output, transfer, journal);
      const StepContext step_context{input_type, reference, frame.reference};
      const bool finished =
          UnlessStopped([&] { return FeatureLoop(run, step_context, input, writer, progress, facts, context).Run(); });
      writer.Close();
      journal.stopped = !finished;
      PublishOutput(context, *output, request);
      CheckRowsWritten(journal, *output);
      tell_faults();
      if (!finished) return StoppedReport(run, facts, journal);
    }
    AddResultLayer(context, output, output->Name(), *document);
    document->UpdateContents();
    progress.Finish();
    document->ActiveView()->PartialRefresh(esriViewGeography, nullptr, nullptr);

    scope.End();
    if (journal.brought) facts.reference_name = journal.brought->reference->Name();
    facts.output_count = static_cast<std::int32_t>(journal.written);
    facts.time_spent = ReturnTimeElapsedRTF(journal.begin, journal.end, kReportFontSize, journal.elapsed_seconds);
    return SuccessReport(run, facts, journal);
  };
  const auto on_fault = [&](const Fault& fault) {
    journal.Fail(fault.Description());
    DiscardUnpublished(context, output);
    tell_faults();
    return FailureReport(run, facts, journal, fault);
  };
  return TrapWith(run.worker, run_body, on_fault);
}

}  // namespace tessarine::modCreateVertices
