// The record loops of the calculator. They differ in their names and words alone; what is measured stands in the
// catalogue.
#include "calculator/calculation_progress.h"
#include "calculator/calculation_report.h"
#include "calculator/measures.h"
#include "calculator/modCalcGeometry.h"
#include "platform/host.h"
#include "platform/trap.h"

namespace tessarine::modCalcGeometry {
namespace {

class RecordLoop {
 public:
  RecordLoop(const std::shared_ptr<VarArray>& carrier, const std::shared_ptr<IApplication>& application,
             const FieldIndexes& indexes, bool show_progress)
      : options_(carrier),
        application_(application),
        indexes_(indexes),
        show_progress_(show_progress),
        layer_(Require(options_.Layer(), "layer")),
        features_(Require(layer_->FeatureClass(), "FeatureClass")),
        entries_(options_.Options()),
        settings_(MeasureSettingsOf(features_->ShapeType(), features_->SpatialReference(), options_)),
        measures_(ResolveMeasures(entries_, settings_.Shape, settings_.Kind, indexes_)) {}

  std::string Run(std::int32_t& record_count) {
    const std::shared_ptr<IFeatureCursor> cursor = OpenCursor(record_count);
    CalculationProgress progress(std::string(ShapeNoun(settings_.Shape, 1)), std::string(ShapeNoun(settings_.Shape, 2)),
                                 layer_->Name(), application_, record_count, show_progress_);
    RunJournal& journal = Host().Journal();
    std::int32_t record = 0;
    while (const std::shared_ptr<IFeature> feature = cursor->NextFeature()) {
      ++record;
      if (!progress.Step(record)) {
        journal.stopped = true;
        cursor->Close();
        return StoppedProblemReport(empty_features_, record);
      }
      ++journal.read;
      Calculate(*feature);
      cursor->UpdateFeature(feature);
      ++journal.written;
    }
    cursor->Close();
    progress.Finish();
    return ProblemReport(empty_features_);
  }

 private:
  std::shared_ptr<IFeatureCursor> OpenCursor(std::int32_t& record_count) const {
    if (options_.AllRecords()) {
      record_count = features_->FeatureCount(nullptr);
      return Require(features_->Update(nullptr, false), "cursor");
    }
    const auto selection = Cast<ISelectionSet2>(Require(Cast<IFeatureSelection>(layer_), "selection")->SelectionSet());
    record_count = Require(selection, "SelectionSet")->Count();
    const auto cursor = Cast<IFeatureCursor>(selection->Update(nullptr, false));
    return Require(cursor, "cursor");
  }

  void Calculate(IFeature& feature) {
    // A copy, because the measures project and simplify it.
    const GeometryRef shape = feature.ShapeCopy();
    if (!shape || shape->IsEmpty()) {
      empty_features_ += EmptyFeatureLine(feature.OID());
      Host().Journal().skipped_oids.push_back(feature.OID());
      WriteNullValues(entries_, settings_.Shape, settings_.Kind, feature, indexes_);
      return;
    }
    const std::unique_ptr<MeasureRecord> record = BeginRecord(shape, settings_);
    for (const ChosenMeasure& measure : measures_) WriteValues(measure, Measure(*measure.row, *record), feature);
  }

  GeometryOptions options_;
  const std::shared_ptr<IApplication>& application_;
  const FieldIndexes& indexes_;
  bool show_progress_;
  std::shared_ptr<IFeatureLayer> layer_;
  std::shared_ptr<IFeatureClass> features_;
  std::vector<OptionEntry> entries_;
  MeasureSettings settings_;
  std::vector<ChosenMeasure> measures_;
  std::string empty_features_;
};

std::string RunLoop(const char* routine, const std::shared_ptr<VarArray>& options,
                    const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                    std::int32_t& record_count, bool show_progress) {
  return TrapWith(
      routine, [&] { return RecordLoop(options, application, indexes, show_progress).Run(record_count); },
      [](const Fault&) {
        Host().Journal().failed = true;
        return std::string();
      });
}

}  // namespace

std::string CalcGeometryPoint(const std::shared_ptr<VarArray>& options,
                              const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                              std::int32_t& record_count, bool show_progress, bool) {
  return RunLoop("CalcGeometryPoint", options, application, indexes, record_count, show_progress);
}

std::string CalcGeometryMultipoint(const std::shared_ptr<VarArray>& options,
                                   const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                                   std::int32_t& record_count, bool show_progress, bool) {
  return RunLoop("CalcGeometryMultipoint", options, application, indexes, record_count, show_progress);
}

std::string CalcGeometryPolyline(const std::shared_ptr<VarArray>& options,
                                 const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                                 std::int32_t& record_count, bool show_progress, bool) {
  return RunLoop("CalcGeometryPolyline", options, application, indexes, record_count, show_progress);
}

std::string CalcGeometryPolygon(const std::shared_ptr<VarArray>& options,
                                const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                                std::int32_t& record_count, bool show_progress, bool) {
  return RunLoop("CalcGeometryPolygon", options, application, indexes, record_count, show_progress);
}

}  // namespace tessarine::modCalcGeometry
