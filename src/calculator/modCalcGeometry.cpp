// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/modCalcGeometry.h"

#include <algorithm>

#include "calculator/calculation_report.h"
#include "calculator/record_loop.h"
#include "calculator/result_fields.h"
#include "platform/known_ids.h"
#include "platform/paths.h"
#include "platform/rich_text.h"
#include "platform/run_stop.h"
#include "platform/text_formats.h"
#include "support/MyGeneralOperations.h"
#include "support/dataset_names.h"
#include "support/elapsed_time.h"
#include "support/journal_report.h"

namespace tessarine::modCalcGeometry {
namespace {

// The meter opens above the first count, and from the second on where a measure is slow.
constexpr std::int32_t kLongRun = 1000;
constexpr std::int32_t kLongSlowRun = 11;

struct LoopRow {
  esriGeometryType shape;
  const char* routine;
};
constexpr LoopRow kLoops[] = {
    {esriGeometryPoint, "CalcGeometryPoint"},
    {esriGeometryMultipoint, "CalcGeometryMultipoint"},
    {esriGeometryPolyline, "CalcGeometryPolyline"},
    {esriGeometryPolygon, "CalcGeometryPolygon"},
};

std::shared_ptr<IFeatureClass> FeaturesOf(const GeometryOptions& options) {
  return Require(Require(options.Layer(), "layer")->FeatureClass(), "FeatureClass");
}

bool IsEditing(const IApplication& application) {
  const auto editor = Cast<IEditor>(application.FindExtensionByCLSID(UID(known_ids::kEditor)));
  return editor && editor->EditState() == esriStateEditing;
}

// Why the layer can't be changed; empty when it can.
std::string WhyUnchangeable(const GeometryOptions& options, const IApplication& application) {
  const std::shared_ptr<IFeatureClass> features = FeaturesOf(options);
  if (MyGeneralOperations::CheckDatafileFormat(*features)) return CompressedGeodatabaseReport(options.Layer()->Name());
  if (IsEditing(application)) return EditSessionReport();
  if (!CanEditWOEditSession(features)) return NotEditableReport();
  return "";
}

std::int32_t CountToDo(const GeometryOptions& options) {
  if (options.AllRecords()) return FeaturesOf(options)->FeatureCount(nullptr);
  const auto selection = Cast<IFeatureSelection>(options.Layer());
  return Require(Require(selection, "IFeatureSelection")->SelectionSet(), "SelectionSet")->Count();
}

CalculationFacts GatherFacts(const GeometryOptions& options) {
  const std::shared_ptr<IFeatureClass> features = FeaturesOf(options);
  const esriGeometryType shape = features->ShapeType();
  CalculationFacts facts;
  facts.layer_name = options.Layer()->Name();
  facts.reference_name = features->SpatialReference()->Name();
  facts.all_records = options.AllRecords();
  facts.record_count = CountToDo(options);
  facts.total_count = features->FeatureCount(nullptr);
  facts.noun = ShapeNoun(shape, facts.total_count);
  facts.field_report = FieldReport(options.Options(), shape, SpatialKindOf(features->SpatialReference()));
  facts.longitude_line = LongitudeLine(features->SpatialReference());
  facts.spheroid_name = options.SpheroidName();
  facts.semi_major = options.SemiMajor();
  facts.semi_minor = options.SemiMinor();
  facts.geocentric = options.Geocentric();
  return facts;
}

std::string RunShape(RunContext& context, const std::shared_ptr<VarArray>& options,
                     const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                     std::int32_t& record_count, bool show_progress) {
  const esriGeometryType shape = FeaturesOf(GeometryOptions(options))->ShapeType();
  for (const LoopRow& row : kLoops) {
    if (row.shape == shape)
      return RunLoop(context, row.routine, options, application, indexes, record_count, show_progress);
  }
  return "";
}

void RefreshTableWindow(const std::shared_ptr<IApplication>& application, const std::shared_ptr<ILayer>& layer) {
  const auto windows = Cast<ITableWindows>(application);
  const auto window = windows ? windows->FindViaLayer(layer) : nullptr;
  if (window) window->Refresh();
}

std::string Refused(RunContext& context, const std::string& report) {
  context.journal.Fail(report.starts_with("{\\rtf") ? ToPlainText(ReadRtf(report)) : report);
  return report;
}

// Whether it tells what keeps the data from being changed now: who holds them, or what they are. Nothing was changed
// yet.
bool IsRefusal(const Fault& fault) {
  constexpr std::int32_t kRefusals[] = {kInvalidCall, kPathAccess, kPathNotFound, kEngine};
  return std::ranges::find(kRefusals, fault.Number()) != std::end(kRefusals);
}

struct BegunEdit {
  std::shared_ptr<IEdit> edit;  // null where the format has none
  std::string refusal;          // empty where the run may go on
};

BegunEdit BeginEdit(IFeatureClass& features) {
  try {
    return {features.BeginEdit(), ""};
  } catch (const Fault& fault) {
    if (!IsRefusal(fault)) throw;
    return {nullptr, fault.Description()};
  }
}

std::string GiveUp(RunContext& context, IStagedDataset& copy) {
  copy.Discard();
  context.journal.written = 0;
  return NoCopyLine();
}

// A class that was made for this run takes its place now, with what was done until a stop; that of a run that failed
// is given up. Returns what the report tells of it.
std::string SettleCopy(RunContext& context, const std::shared_ptr<IFeatureClass>& features,
                       const std::string& layer_name) {
  const auto copy = Cast<IStagedDataset>(features);
  if (!copy) return "";
  RunJournal& journal = context.journal;
  if (journal.failed) return GiveUp(context, *copy);
  try {
    if (!UnlessStopped([&] { MyGeneralOperations::PublishOutput(context, *features, {}); })) {
      journal.stopped = true;
      return GiveUp(context, *copy);
    }
  } catch (const Fault& fault) {
    journal.Fail(fault.Description());
    return FailureSection(fault) + GiveUp(context, *copy);
  }
  if (copy->Notes() == nullptr) return "";
  journal.written = copy->Notes()->written;
  return CopySections(*copy->Notes(), layer_name);
}

std::string Calculate(RunScope& scope, const std::shared_ptr<VarArray>& carrier,
                      const std::shared_ptr<IApplication>& application) {
  RunContext& context = scope.Run();
  const GeometryOptions options(carrier);
  const std::shared_ptr<IFeatureClass> features = FeaturesOf(options);
  if (const std::string objection = WhyUnchangeable(options, *application); !objection.empty())
    return Refused(context, objection);

  std::vector<OptionEntry> entries = options.Options();
  const std::vector<std::string> names = FieldNamesInUse(entries, options.UseFlags());
  const std::string& layer_name = options.Layer()->Name();
  // New fields and their values appear together, where the format has edits.
  const auto [edit, refusal] = BeginEdit(*features);
  if (!refusal.empty()) {
    context.journal.Fail(refusal);
    return EditRefusedReport(layer_name, refusal);
  }
  if (const auto failed = MakeMissingFields(*features, names)) {
    if (edit) edit->Abandon();
    const std::string report = FieldNotAddedReport(failed->name, layer_name);
    context.feedback.Tell(report + "  Bailing out...\r\n" + failed->cause, "");
    context.journal.Fail(failed->cause);
    return report + "\r\n" + failed->cause;
  }
  const FieldIndexes indexes = CheckFields(context, *features, names, entries);

  CalculationFacts facts = GatherFacts(options);
  const bool slow = HasSlowMeasure(entries, features->ShapeType(), SpatialKindOf(features->SpatialReference()));
  const bool show_progress = facts.record_count > kLongRun || (slow && facts.record_count >= kLongSlowRun);
  RunJournal& journal = scope.Journal();
  if (!Is<IStagedDataset>(features)) journal.output_path = features->FullName();
  journal.reference = features->SpatialReference();
  if (facts.semi_major > 0.0) journal.spheroid = RunSpheroid{facts.spheroid_name, facts.semi_major, facts.semi_minor};
  const bool finished = UnlessStopped([&] {
    facts.problem_report = RunShape(context, carrier, application, indexes, facts.record_count, show_progress);
  });
  if (!finished) {
    journal.stopped = true;
    facts.problem_report = StoppedProblemReport(journal, layer_name, static_cast<std::int32_t>(journal.read));
  }
  if (edit) edit->Finish();
  facts.problem_report += SettleCopy(context, features, layer_name);
  RefreshTableWindow(application, options.Layer());
  scope.End();
  facts.outcome = OutcomeTitle(journal);
  facts.time_spent = MyGeneralOperations::ReturnTimeElapsedRTF(
      journal.begin, journal.end, MyGeneralOperations::kReportFontSize, journal.elapsed_seconds);
  return CalculationReport(facts);
}

// Whether the field is named for a measure of whole numbers, which no field rounds.
bool TakesCount(const GeometryOptions& options, const std::string& field) {
  const IFeatureClass& features = *FeaturesOf(options);
  const SpatialKind kind = SpatialKindOf(features.SpatialReference());
  return std::ranges::any_of(options.Options(), [&](const OptionEntry& entry) {
    const MeasureRow* row = FindMeasure(features.ShapeType(), kind, entry.OptionId());
    return row != nullptr && row->measure.kind == MeasuredKind::Count && EqualsIgnoringCase(entry.FirstField(), field);
  });
}

}  // namespace

std::string CalcGeometry(RunContext& context, const std::shared_ptr<VarArray>& options,
                         const std::shared_ptr<IApplication>& application) {
  RunScope scope(context);
  return CalcGeometry(scope, options, application);
}

std::string CalcGeometry(RunScope& scope, const std::shared_ptr<VarArray>& options,
                         const std::shared_ptr<IApplication>& application) {
  return TrapWith(
      "CalcGeometry", [&] { return Calculate(scope, options, Require(application, "IApplication")); },
      [&](const Fault& fault) {
        scope.Journal().Fail(fault.Description());
        return FailedCalculation(fault);
      });
}

std::string PlanGeometry(RunContext& context, const std::shared_ptr<VarArray>& carrier,
                         const std::shared_ptr<IApplication>& application) {
  const RunScope scope(context);
  return Trap("PlanGeometry", [&]() -> std::string {
    const GeometryOptions options(carrier);
    if (const std::string objection = WhyUnchangeable(options, *application); !objection.empty())
      return Refused(context, objection);
    RunJournal& journal = context.journal;
    journal.output_path = FeaturesOf(options)->FullName();
    journal.reference = FeaturesOf(options)->SpatialReference();
    std::string missing, present;
    std::vector<std::string> rounded;
    const std::vector<std::string> names = FieldNamesInUse(options.Options(), options.UseFlags());
    for (const std::string& name : names) {
      journal.planned_fields.push_back(name);
      const std::int32_t index = FeaturesOf(options)->FindField(name);
      std::string& list = index < 0 ? missing : present;
      list += (list.empty() ? "" : ", ") + name;
      const std::string rounding =
          index < 0 || TakesCount(options, name) ? "" : RoundingOf(*FeaturesOf(options)->Fields()->Field(index));
      if (!rounding.empty()) rounded.push_back("In the field '" + name + "', " + rounding);
    }
    for (const std::string& sentence : rounded) journal.warnings.push_back({sentence, 0, {}});
    CalculationFacts facts = GatherFacts(options);
    facts.rounded = std::move(rounded);
    if (const auto copy = Cast<IStagedDataset>(FeaturesOf(options))) {
      // It is only there to be tried on.
      if (const auto failed = MakeMissingFields(*FeaturesOf(options), names)) {
        return Refused(context, FieldNotAddedReport(failed->name, facts.layer_name) + " " + failed->cause);
      }
      if (copy->Notes() != nullptr) journal.TakeNotes(*copy->Notes());
      facts.foretold = copy->Foretold();
      facts.foretold.insert(facts.foretold.begin(), "It is written to '" + ToNativePath(journal.output_path) + "'.");
      for (const std::string& question : journal.planned_questions) facts.foretold.push_back(question);
    }
    return PlannedCalculation(facts, missing, present);
  });
}

bool CanEditWOEditSession(const std::shared_ptr<IFeatureClass>& features) {
  return Trap("CanEditWOEditSession", [&] {
    const auto info = Cast<IObjectClassInfo2>(features);
    if (!Require(info, "IObjectClassInfo2")->CanBypassEditSession()) return false;
    const auto versioned = Cast<IVersionedObject>(features);
    return !versioned || !versioned->IsRegisteredAsVersioned();
  });
}

}  // namespace tessarine::modCalcGeometry
