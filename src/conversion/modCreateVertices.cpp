// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/modCreateVertices.h"

#include <optional>
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
#include "support/trapped_run.h"

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
        if (Joins() && !CanMeetOthers(*shape)) Raise(kInvalidCall, std::string(kTooFar));
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

  // False for a record that has nothing to convert. Fault where its shape can't be worked on.
  [[nodiscard]] bool Takes(std::int64_t oid, bool has_shape, bool is_finite) {
    if (!has_shape) {
      journal_.skipped_oids.push_back(oid);
      return false;
    }
    writer_.SetInput(oid);
    if (!is_finite) Raise(kInvalidCall, std::string(kNotFinite));
    return true;
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

// A conversion from its first record to its report.
class Conversion {
 public:
  Conversion(RunContext& context, const ConversionRun& run, const ConversionChoices& choices,
             const std::shared_ptr<IApplication>& application, ProgressShown shown)
      : context_(context), scope_(context), run_(run), choices_(choices), application_(application), shown_(shown) {}

  std::string Run() {
    return TrapRun(
        {context_, run_.worker, facts_.layer_name, output_}, [this] { return Convert(); },
        [this](const Fault& fault) { return FailureReport(run_, facts_, journal_, fault); });
  }

 private:
  std::string Convert() {
    const auto document = Cast<IMxDocument>(application_->Document());
    input_ = OpenInput(choices_.layer, choices_.all_records, context_.jobs > 1 ? Recycling::No : Recycling::Yes);
    facts_.layer_name = choices_.layer->Name();
    facts_.all_records = choices_.all_records;
    facts_.record_count = input_.count;
    RunProgress progress(context_, ProgressWords(run_, facts_.layer_name), application_, input_.count,
                         shown_ == ProgressShown::Yes && run_.kind != RunKind::Joining);
    const SpatialReferenceRef reference = input_.features->SpatialReference();
    if (!CanFrame(run_, reference)) {
      journal_.Fail("'" + facts_.layer_name +
                    "' has no known coordinate system, and this run must know it: define the projection of the data.");
      return UnknownReferenceReport(run_);
    }
    facts_.reference_name = Require(reference, "SpatialReference")->Name();
    const OutputFrame frame = FrameOf(run_, *input_.features);
    if (!MakeOutput(frame)) {
      progress.Abandon();
      return EndWithoutOutput(context_);
    }
    journal_.stopped = !ConvertAll({input_.features->ShapeType(), reference, frame.reference}, progress);
    PublishOutput(context_, *output_, request_);
    CheckRowsWritten(journal_, *output_);
    ReportRecordFaults(journal_, run_.worker, facts_.layer_name);
    if (journal_.stopped) return StoppedReport(run_, facts_, journal_);
    AddResultLayer(context_, output_, output_->Name(), *document);
    document->UpdateContents();
    progress.Finish();
    document->ActiveView()->PartialRefresh(esriViewGeography, nullptr, nullptr);
    return Report();
  }

  // False when the user gave up.
  bool MakeOutput(const OutputFrame& frame) {
    journal_.reference = frame.reference;
    const IFeatureClass& features = *input_.features;
    // Before an output of the same name would be replaced.
    if (const std::string_view reason = WhyNever(run_, features.ShapeType()); !reason.empty()) {
      Raise(kTypeMismatch, std::string(reason));
    }
    const ShapeRule rule = RuleFor(run_, features.ShapeType());
    transfer_.emplace(
        FieldTransfer::BesideInput(features, rule.measure_fields, *choices_.fields, choices_.output.Kind()));
    if (choices_.all_records) NoteLeftOut(features, journal_);
    request_ = RequestFor(choices_.output, run_.words.name_prompt);
    request_.geometry_type = rule.output;
    request_.reference = frame.reference;
    request_.envelope = &frame.extent;
    request_.fields = transfer_->OutputFields();
    request_.sources = {input_.features};
    AnnounceLosses(context_, features, facts_.layer_name, transfer_->Carried());
    AnnounceChanges(context_, transfer_->Carried(), request_.place.Kind());
    output_ = CreateOutput(context_, request_);
    if (!output_) return false;
    facts_.output_path = OutputPath(*output_, request_);
    transfer_->Bind(&features, *output_);
    facts_.field_report = transfer_->FieldReport();
    return true;
  }

  // False when the user stopped it.
  bool ConvertAll(const StepContext& step_context, RunProgress& progress) {
    OutputWriter writer(output_, *transfer_, journal_);
    const bool finished = UnlessStopped(
        [&] { return FeatureLoop(run_, step_context, input_, writer, progress, facts_, context_).Run(); });
    writer.Close();
    return finished;
  }

  std::string Report() {
    scope_.End();
    if (journal_.brought) facts_.reference_name = journal_.brought->reference->Name();
    facts_.output_count = static_cast<std::int32_t>(journal_.written);
    facts_.time_spent = ReturnTimeElapsedRTF(journal_.begin, journal_.end, kReportFontSize, journal_.elapsed_seconds);
    return SuccessReport(run_, facts_, journal_);
  }

  RunContext& context_;
  RunScope scope_;
  RunJournal& journal_ = scope_.Journal();
  const ConversionRun& run_;
  const ConversionChoices& choices_;
  const std::shared_ptr<IApplication>& application_;
  ProgressShown shown_;
  RunFacts facts_;
  RunInput input_;
  OutputRequest request_;
  std::optional<FieldTransfer> transfer_;
  std::shared_ptr<IFeatureClass> output_;
};

}  // namespace

std::string RunConversion(RunContext& context, const ConversionRun& run, const ConversionChoices& choices,
                          const std::shared_ptr<IApplication>& application, ProgressShown shown) {
  return Conversion(context, run, choices, application, shown).Run();
}

}  // namespace tessarine::modCreateVertices
