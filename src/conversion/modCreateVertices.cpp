#include "conversion/modCreateVertices.h"

#include <vector>

#include "conversion/conversion_step.h"
#include "conversion/field_transfer.h"
#include "conversion/output_frame.h"
#include "conversion/output_target.h"
#include "conversion/run_data.h"
#include "conversion/run_reports.h"
#include "platform/host.h"
#include "platform/trap.h"
#include "support/MyGeneralOperations.h"
#include "support/progress_text.h"
#include "support/run_progress.h"

namespace tessarine::modCreateVertices {
namespace {

using namespace MyGeneralOperations;

constexpr std::int32_t kReportFontSize = 8;

// Writes output features: one buffer, refilled for each of them.
class OutputWriter final : public ConversionSink {
 public:
  OutputWriter(const std::shared_ptr<IFeatureClass>& output, const FieldTransfer& transfer)
      : transfer_(transfer),
        fields_(output->Fields()),
        buffer_(output->CreateFeatureBuffer()),
        cursor_(output->Insert(true)) {}

  /// The attributes repeat on every output feature of one input feature and stay in the buffer until the next.
  void BeginFeature(const IFeature& input) {
    oid_ = input.OID();
    transfer_.CopyAttributes(input, *buffer_, Host().Journal());
  }

  void SetShape(const GeometryRef& shape) override { buffer_->SetShape(shape); }
  void SetMeasure(std::size_t index, double value) override {
    const std::int32_t place = transfer_.MeasureIndex(index);
    NoteMeasureChange(Host().Journal(), *fields_->Field(place), buffer_->SetValue(place, value), oid_);
  }
  void Insert() override {
    buffer_->SetValue(transfer_.UniqueIdIndex(), ++count_);
    InsertUnnumbered();
  }
  void InsertUnnumbered() override {
    cursor_->InsertFeature(*buffer_);
    ++Host().Journal().written;
  }
  void Flush() { cursor_->Flush(); }
  /// Flushes, and tells of rows that could not be written.
  void Close() { cursor_->Close(); }

 private:
  const FieldTransfer& transfer_;
  FieldsRef fields_;
  std::shared_ptr<IFeatureBuffer> buffer_;
  std::shared_ptr<IFeatureCursor> cursor_;
  std::int32_t count_ = 0;
  std::int64_t oid_ = 0;  // of the input feature in hand
};

// The features of the input, one by one. False when the user stopped the run.
bool ConvertFeatures(const ConversionRun& run, const StepContext& context, const RunInput& input, OutputWriter& writer,
                     RunProgress& progress, RunFacts& facts) {
  RunJournal& journal = Host().Journal();
  const bool joins = run.Kind == RunKind::Joining;
  const std::unique_ptr<ConversionStep> step = run.MakeStep(context);
  while (const std::shared_ptr<IFeature> feature = input.cursor->NextFeature()) {
    // One feature for all bears the attributes of the first, whether that has a shape or not.
    if (joins && facts.records_done == 0) writer.BeginFeature(*feature);
    if (!step->TakesFeatures()) break;
    ++facts.records_done;
    if (!progress.Step(facts.records_done)) return false;
    ++journal.read;
    const GeometryRef shape = feature->Shape();
    if (Require(shape, "Shape")->IsEmpty()) {
      facts.skipped_list += "  ** OID Value = " + std::to_string(feature->OID()) + "\\par\r\n";
      journal.skipped_oids.push_back(feature->OID());
      continue;
    }
    if (!joins) writer.BeginFeature(*feature);
    step->Convert(shape, writer);
    if (run.FlushesEachFeature) writer.Flush();
  }
  step->Finish(writer);
  return true;
}

RunProgressWords ProgressWords(const ConversionRun& run, const std::string& layer_name) {
  RunProgressWords words;
  words.StatusText = std::string(run.Words.StatusLeadIn) + layer_name;
  words.ActionText = run.Words.ActionText;
  words.RepeatedAction = run.Words.RepeatedAction;
  return words;
}

}  // namespace

std::string RunConversion(const ConversionRun& run, const std::shared_ptr<IFeatureLayer>& layer,
                          const std::shared_ptr<VarArray>& fields, bool all_records, const std::string& path,
                          const std::shared_ptr<IApplication>& application,
                          const std::shared_ptr<clsExtension>& extension, bool show_progress) {
  RunFacts facts;
  RunJournal& journal = Host().Journal();
  journal = RunJournal();
  journal.begin = Host().Clock().Now();
  const auto run_body = [&]() -> std::string {
    const auto document = Cast<IMxDocument>(application->Document());
    const RunInput input = OpenInput(layer, all_records);
    facts.layer_name = layer->Name();
    facts.all_records = all_records;
    facts.record_count = input.count;
    facts.output_path = path;
    RunProgress progress(ProgressWords(run, facts.layer_name), application, extension, input.count,
                         show_progress && run.Kind != RunKind::Joining);

    OutputTarget target = SplitOutputPath(path, *extension);
    const SpatialReferenceRef reference = input.features->SpatialReference();
    if (!CanFrame(run, reference)) {
      journal.failed = true;
      journal.end = Host().Clock().Now();
      return UnknownReferenceReport(run);
    }
    facts.reference_name = Require(reference, "SpatialReference")->Name();
    const OutputFrame frame = FrameOf(run, *input.features);
    journal.reference = frame.reference;
    const esriGeometryType input_type = input.features->ShapeType();
    const ShapeRule rule = RuleFor(run, input_type);
    FieldTransfer transfer = FieldTransfer::BesideInput(*input.features, rule.MeasureFields, *fields);
    const std::shared_ptr<IFeatureClass> output = CreateRunOutput(target, rule.Output, frame.reference, frame.extent,
                                                                  transfer.OutputFields(), run.Words.NamePrompt);
    journal.output_path = path;
    transfer.Bind(input.features.get(), *output);
    facts.field_report = transfer.FieldReport();

    {
      OutputWriter writer(output, transfer);
      const StepContext context{input_type, reference, frame.reference};
      const bool finished = ConvertFeatures(run, context, input, writer, progress, facts);
      writer.Close();
      if (!finished) {
        journal.stopped = true;
        journal.end = Host().Clock().Now();
        return StoppedReport(run, facts);
      }
    }
    AddResultLayer(output, target.name, *document);
    document->UpdateContents();
    progress.Finish();
    document->ActiveView()->PartialRefresh(esriViewGeography, nullptr, nullptr);

    journal.end = Host().Clock().Now();
    facts.output_count = output->FeatureCount(nullptr);
    facts.time_spent = ReturnTimeElapsedRTF(journal.begin, journal.end, kReportFontSize);
    return SuccessReport(run, facts);
  };
  const auto on_fault = [&](const Fault& fault) {
    journal.failed = true;
    journal.end = Host().Clock().Now();
    return FailureReport(run, facts, fault);
  };
  return TrapWith(run.Worker, run_body, on_fault);
}

std::string CalcTimeLeft(const std::string& prefix, Date start, std::int32_t done, std::int32_t total) {
  return MyGeneralOperations::CalcTimeLeft(prefix, start, done, total);
}

}  // namespace tessarine::modCreateVertices
