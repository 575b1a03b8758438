// SPDX-License-Identifier: GPL-2.0-or-later
// The record loops of the calculator. They differ in their names and words alone; what is measured stands in the
// catalogue.
#include <optional>

#include "calculator/calculation_report.h"
#include "calculator/measured_record.h"
#include "calculator/measures.h"
#include "calculator/modCalcGeometry.h"
#include "calculator/record_loop.h"
#include "calculator/result_fields.h"
#include "platform/run_scope.h"
#include "support/attribute_copy.h"
#include "support/frmOrlProgressMeter.h"
#include "support/journal_report.h"
#include "support/records_read.h"
#include "support/run_progress.h"

namespace tessarine::modCalcGeometry {
namespace {

class RecordLoop {
 public:
  RecordLoop(RunContext& context, const std::shared_ptr<VarArray>& carrier,
             const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes, bool show_progress)
      : context_(context),
        options_(carrier),
        application_(application),
        indexes_(indexes),
        show_progress_(show_progress),
        layer_(Require(options_.Layer(), "layer")),
        features_(Require(layer_->FeatureClass(), "FeatureClass")),
        entries_(options_.Options()),
        settings_(MeasureSettingsOf(features_->ShapeType(), features_->SpatialReference(), options_)),
        measures_(ResolveMeasures(entries_, settings_.shape, settings_.kind, indexes_)) {}

  /// What the report tells of problems.
  std::string Run(std::int32_t& record_count) {
    OpenCursor(record_count);
    if (options_.AllRecords()) NoteLeftOut(*features_, journal_);
    RunProgress progress = Progress(record_count);
    if (!(MayWorkInBatches() ? WorkInBatches(progress) : WorkOneByOne(progress))) {
      journal_.stopped = true;
      cursor_->Close();
      return StoppedProblemReport(journal_, layer_->Name(), record_);
    }
    cursor_->Close();
    RequireRecords(journal_, record_count, layer_->Name());
    progress.Finish();
    return ProblemReport(journal_, layer_->Name());
  }

  /// Ends a run that can't go on. Whatever the table took stays.
  std::string Fail(const Fault& fault) {
    if (cursor_) {
      try {
        cursor_->Close();
      } catch (const Fault&) {
        // Nothing tells how many of them came through.
        journal_.written = 0;
      }
    }
    return FailedProblemReport(journal_, layer_->Name(), record_, fault);
  }

  [[nodiscard]] std::string LayerName() const { return layer_->Name(); }

 private:
  void OpenCursor(std::int32_t& record_count) {
    if (options_.AllRecords()) {
      record_count = features_->FeatureCount(nullptr);
      cursor_ = Require(features_->Update(nullptr, Recycling::No), "cursor");
      return;
    }
    const auto selection = Cast<ISelectionSet2>(Require(Cast<IFeatureSelection>(layer_), "selection")->SelectionSet());
    record_count = Require(selection, "SelectionSet")->Count();
    cursor_ = Require(Cast<IFeatureCursor>(selection->Update(nullptr, Recycling::No)), "cursor");
  }

  RunProgress Progress(std::int32_t count) const {
    RunProgressWords words;
    words.status_text = "Calculating Geometry on " + layer_->Name();
    words.log_lead = "Calculating Geometry on " + std::string(ShapeNoun(settings_.shape, 2)) + "...\r\nBegan Job: ";
    words.repeated_action = "Calculating " + std::string(ShapeNoun(settings_.shape, 1)) + " Attributes...";
    return {context_,
            std::move(words),
            application_,
            count,
            show_progress_ ? std::make_shared<frmOrlProgressMeter>() : nullptr,
            LogView::AsLastTime};
  }

  // Axes of 0 are found by the first record that is converted, and those before it do without. One thread works in
  // batches, too: a database that reads and writes in turn looks its place up for each row.
  [[nodiscard]] bool MayWorkInBatches() const {
    return !settings_.geocentric || (settings_.semi_major > 0.0 && settings_.semi_minor > 0.0);
  }

  // False when the user stopped the run.
  bool WorkOneByOne(RunProgress& progress) {
    while (const std::shared_ptr<IFeature> feature = cursor_->NextFeature()) {
      if (!Step(progress)) return false;
      const ReadRecord record = ReadRecordOf(feature);
      Write(record, MeasureAll(record, measures_, settings_));
    }
    return true;
  }

  bool WorkInBatches(RunProgress& progress) {
    return SpreadRecords<MeasuredRecord>(
        context_, *cursor_, [&] { return Step(progress); },
        [this](const ReadRecord& record) {
          MeasureSettings settings = settings_;
          return MeasureAll(record, measures_, settings);
        },
        [this](const ReadRecord& record, const MeasuredRecord& measured) { Write(record, measured); });
  }

  [[nodiscard]] bool Step(RunProgress& progress) {
    ++record_;
    if (!progress.Step(record_)) return false;
    ++journal_.read;
    return true;
  }

  void Write(const ReadRecord& record, const MeasuredRecord& measured) {
    const std::int64_t oid = record.oid;
    IFeature& feature = *record.feature;
    if (measured.fault) NoteFault(*measured.fault, oid);
    if (!measured.fault && !record.has_shape) {
      journal_.skipped_oids.push_back(oid);
      static_cast<void>(WorkOnRecord(journal_, oid, [&] {
        WriteNullValues(entries_, settings_.shape, settings_.kind, feature, indexes_, NoteFor(oid));
      }));
    } else {
      for (std::size_t place = 0; place < measures_.size(); ++place) {
        Write(measures_[place], place < measured.results.size() ? &measured.results[place] : nullptr, feature, oid);
      }
    }
    for (const MeasureWarning warning : measured.warnings) journal_.NoteWarning(WarningText(warning), oid);
    const bool stored = WorkOnRecord(journal_, oid, [&] { WriteRow([&] { cursor_->UpdateFeature(record.feature); }); });
    if (stored) ++journal_.written;
  }

  // One that ends the run comes out.
  void NoteFault(const Fault& fault, std::int64_t oid) {
    static_cast<void>(WorkOnRecord(journal_, oid, [&] { throw Fault(fault); }));
  }

  // Decimals that a field of the run's own has no room for are nobody's loss; those of a narrower one are.
  ChangeNote NoteFor(std::int64_t oid) {
    return [this, oid](std::int32_t index, ValueChange change) {
      if (change == ValueChange::None) return;
      const Field& field = *features_->Fields()->Field(index);
      if (KeepsLess(field)) {
        journal_.NoteChange(field.Name, change, oid);
      } else {
        NoteMeasureChange(journal_, field, change, oid);
      }
    };
  }

  // A measure that fails, or finds no room, leaves the others of its record alone. `result` is null where the record
  // couldn't be measured.
  void Write(const ChosenMeasure& measure, const MeasuredRecord::Result* result, IFeature& feature, std::int64_t oid) {
    std::optional<std::int32_t> full;
    const bool written = result != nullptr && WorkOnRecord(journal_, oid, [&] {
                           if (result->fault) throw Fault(*result->fault);
                           full = WriteValues(measure, result->values, feature, NoteFor(oid));
                         });
    // What stands there isn't of this measure, perhaps: no mark goes over it.
    if (full) return NoteFault(NoRoomFor(measure, *full), oid);
    if (written) return;
    static_cast<void>(WorkOnRecord(journal_, oid, [&] { WriteMissing(measure, feature, NoteFor(oid)); }));
  }

  [[nodiscard]] Fault NoRoomFor(const ChosenMeasure& measure, std::int32_t full) const {
    const Fields& fields = *features_->Fields();
    const std::int32_t other = full == measure.first ? measure.second : measure.first;
    return NoRoomIn(fields.Field(full)->Name, other < 0 ? "" : fields.Field(other)->Name);
  }

  RunContext& context_;
  RunJournal& journal_ = context_.journal;
  GeometryOptions options_;
  const std::shared_ptr<IApplication>& application_;
  const FieldIndexes& indexes_;
  bool show_progress_;
  std::shared_ptr<IFeatureLayer> layer_;
  std::shared_ptr<IFeatureClass> features_;
  std::vector<OptionEntry> entries_;
  MeasureSettings settings_;
  std::vector<ChosenMeasure> measures_;
  std::shared_ptr<IFeatureCursor> cursor_;
  std::int32_t record_ = 0;
};

}  // namespace

std::string RunLoop(RunContext& context, const char* routine, const std::shared_ptr<VarArray>& options,
                    const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                    std::int32_t& record_count, bool show_progress) {
  std::optional<RecordLoop> loop;
  const auto tell_faults = [&] { ReportRecordFaults(context.journal, routine, loop ? loop->LayerName() : ""); };
  return TrapWith(
      routine,
      [&] {
        std::string problems = loop.emplace(context, options, application, indexes, show_progress).Run(record_count);
        tell_faults();
        return problems;
      },
      [&](const Fault& fault) {
        context.journal.Fail(fault.Description());
        tell_faults();
        return loop ? loop->Fail(fault) : FailureSection(fault);
      });
}

}  // namespace tessarine::modCalcGeometry
