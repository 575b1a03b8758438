// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/mod_92_functions.h"

#include <array>
#include <optional>

#include "conversion/build_reports.h"
#include "conversion/field_transfer.h"
#include "conversion/label_search.h"
#include "conversion/run_data.h"
#include "platform/feature_construction.h"
#include "platform/finite_shape.h"
#include "platform/run_scope.h"
#include "platform/run_stop.h"
#include "support/MyGeneralOperations.h"
#include "support/aml_func_mod.h"
#include "support/attempt.h"
#include "support/records_read.h"
#include "support/rows_on_disk.h"

namespace tessarine::mod_92_functions {
namespace {

using namespace MyGeneralOperations;

constexpr const char* kWorker = "orlBuildPolygons";
constexpr std::array<std::string_view, 1> kMeasures = {"Area"};

constexpr std::string_view kNotUsable =
    "Lines with a coordinate that is infinite, no number or beyond 1e100 bound nothing: mend or remove these "
    "coordinates.";

constexpr std::string_view kTooSmall =
    "A polygon is so small that the coordinates of the output leave nothing of it: it is there without a shape.";

/// The moving picture and the hourglass while the run lasts, however it ends.
class BusySigns {
 public:
  BusySigns(IRunFeedback& feedback, const std::shared_ptr<IApplication>& application)
      : feedback_(feedback), animation_(Require(application->StatusBar(), "StatusBar")->ProgressAnimation()) {
    if (animation_) {
      animation_->Show();
      animation_->Play();
    }
    feedback_.ShowWaitPointer();
  }
  ~BusySigns() {
    Attempt([this] {
      if (animation_) {
        animation_->Stop();
        animation_->Hide();
      }
      feedback_.RestoreMousePointer();
    });
  }
  BusySigns(const BusySigns&) = delete;
  BusySigns& operator=(const BusySigns&) = delete;

 private:
  IRunFeedback& feedback_;
  std::shared_ptr<IAnimationProgressor> animation_;  // null where the host has none
};

struct Lines {
  std::shared_ptr<IFeatureClass> features;
  std::vector<GeometryRef> shapes;
  std::int32_t count = 0;
};

Lines CollectLines(RunJournal& journal, const std::shared_ptr<IFeatureLayer>& layer, bool all_lines) {
  const RunInput input = OpenInput(layer, all_lines, Rows::Recycled);
  Lines lines{input.features, {}, input.count};
  while (const std::shared_ptr<IFeature> feature = input.cursor->NextFeature()) {
    EndIfStopped();
    ++journal.read;
    const std::int64_t oid = feature->OID();
    static_cast<void>(WorkOnRecord(journal, oid, [&] {
      const GeometryRef shape = feature->Shape();
      if (shape && CanMeetOthers(*shape)) {
        lines.shapes.push_back(shape);
      } else {
        journal.skipped_oids.push_back(oid);
        if (shape) journal.NoteWarning(kNotUsable, oid);
      }
    }));
  }
  return lines;
}

void ConstructPolygons(const Lines& lines, double tolerance, IFeatureClass& output) {
  GeometryBag bag;
  Envelope bounds;
  for (const GeometryRef& shape : lines.shapes) {
    bounds.Union(shape->Envelope());
    bag.AddGeometry(shape);
  }
  FeatureConstruction().ConstructPolygonsFromGeometries(output, bounds, bag, tolerance);
}

// Numbers and measures the polygons and gives them their labels. Returns the list of those without.
std::string CompletePolygons(RunJournal& journal, IFeatureClass& output, const FieldTransfer& transfer,
                             const std::optional<LabelSearch>& labels) {
  std::string unlabelled;
  std::int32_t count = 0;
  const std::shared_ptr<IFeatureCursor> cursor = output.Update(nullptr, false);
  while (const std::shared_ptr<IFeature> feature = cursor->NextFeature()) {
    EndIfStopped();
    const std::int64_t oid = feature->OID();
    static_cast<void>(WorkOnRecord(journal, oid, [&] {
      feature->SetValue(transfer.UniqueIdIndex(), ++count);
      const auto polygon = Cast<Polygon>(feature->Shape());
      const std::shared_ptr<Polygon> stored = CloneOf(*Require(polygon, "IPolygon"));
      polygon->Simplify();
      if (polygon->IsEmpty()) journal.NoteWarning(kTooSmall, oid);
      // A shapefile searches all its rows for room for each shape that changes.
      if (!polygon->IsEqual(*stored)) feature->SetShape(polygon);
      const FieldRef& area = output.Fields()->Field(transfer.MeasureIndex(0));
      NoteMeasureChange(journal, *area, feature->SetValue(transfer.MeasureIndex(0), polygon->Area()), oid);
      if (!labels) return;
      if (!labels->Label(*polygon, *feature, journal)) {
        unlabelled += "  ** OID Value = " + std::to_string(oid) + "\\par\r\n";
      }
    }));
    static_cast<void>(WorkOnRecord(journal, oid, [&] { WriteRow([&] { cursor->UpdateFeature(feature); }); }));
  }
  cursor->Flush();
  cursor->Close();
  return unlabelled;
}

// Ends a run that has nothing to work on.
std::string GiveUp(RunContext& context, const std::string& message) {
  context.journal.Fail(message);
  context.feedback.Tell(message, "");
  return "";
}

}  // namespace

OutputPlace FreePlace(const OutputPlace& place) {
  OutputPlace free = place;
  free.name = aml_func_mod::ReturnFilename(aml_func_mod::MakeUniqueFilename(place.Path()));
  return free;
}

std::string BuildPolygons(RunContext& context, const BuildChoices& choices,
                          const std::shared_ptr<IMxDocument>& document,
                          const std::shared_ptr<IApplication>& application) {
  RunScope scope(context);
  RunJournal& journal = scope.Journal();
  const std::shared_ptr<IFeatureLayer>& line_layer = choices.lines;
  const auto tell_faults = [&] { ReportRecordFaults(journal, kWorker, line_layer->Name()); };
  std::shared_ptr<IFeatureClass> output;
  const auto run_body = [&]() -> std::string {
    const BusySigns busy(context.feedback, application);
    const Lines lines = CollectLines(journal, line_layer, choices.all_lines);
    if (lines.shapes.empty()) {
      return GiveUp(context, "No polylines available in '" + line_layer->Name() + "'!  Function cancelled...");
    }

    BuildFacts facts;
    const OutputPlace place = FreePlace(choices.output);
    facts.output_path = place.Path();
    const VarArray none;
    FieldTransfer transfer =
        FieldTransfer::BesideChosen(kMeasures, choices.fields ? *choices.fields : none, place.Kind());
    if (choices.all_lines) NoteLeftOut(*lines.features, journal);
    const SpatialReferenceRef reference = lines.features->SpatialReference();
    const Envelope extent = lines.features->Extent();
    const auto points = choices.labels ? choices.labels->FeatureClass() : nullptr;
    OutputRequest request = RequestFor(place, "Specify New Polygon Feature Class Name:");
    request.geometry_type = esriGeometryPolygon;
    request.reference = reference;
    request.envelope = &extent;
    request.fields = transfer.OutputFields();
    request.sources = {lines.features};
    if (points) request.sources.push_back(points);
    journal.reference = reference;
    AnnounceLosses(context, *lines.features, line_layer->Name(), transfer.Carried());
    AnnounceChanges(context, transfer.Carried(), request.place.Kind());
    output = CreateOutput(context, request);
    if (!output) return EndWithoutOutput(context);
    facts.output_path = OutputPath(*output, request);
    transfer.Bind(points.get(), *output);

    ConstructPolygons(lines, choices.cluster_tolerance, *output);
    facts.output_count = output->FeatureCount(nullptr);
    if (facts.output_count == 0) {
      return GiveUp(context,
                    "No polygons were created from '" + line_layer->Name() +
                        "'!  Possibly no polylines intersected in such a way as to create a bounded region.  Function "
                        "cancelled...");
    }
    std::optional<LabelSearch> labels;
    if (choices.labels) {
      labels.emplace(choices.labels, choices.all_labels, choices.first_label, output->SpatialReference(),
                     transfer.Attributes());
    }
    facts.unlabelled = CompletePolygons(journal, *output, transfer, labels);
    journal.written = facts.output_count;
    PublishOutput(context, *output, request);
    CheckRowsWritten(journal, *output);
    facts.output_count = static_cast<std::int32_t>(journal.written);
    tell_faults();

    AddResultLayer(context, output, output->Name(), *document);
    document->ActiveView()->PartialRefresh(esriViewGeography, nullptr, nullptr);

    scope.End();
    facts.line_layer = line_layer->Name();
    facts.all_lines = choices.all_lines;
    facts.line_count = lines.count;
    facts.cluster_tolerance = choices.cluster_tolerance;
    facts.unit = UnitWord(reference);
    facts.transfers_labels = choices.labels != nullptr;
    if (choices.labels) facts.point_layer = choices.labels->Name();
    facts.all_points = choices.all_labels;
    facts.first_point = choices.first_label;
    facts.field_report = transfer.FieldReport();
    facts.reference_name = (journal.brought ? journal.brought->reference : reference)->Name();
    facts.time_spent = ReturnTimeElapsedRTF(journal.begin, journal.end, kReportFontSize, journal.elapsed_seconds);
    return BuildReport(facts, journal);
  };
  const auto on_fault = [&](const Fault& fault) {
    journal.Fail(fault.Description());
    DiscardUnpublished(context, output);
    tell_faults();
    return BuildFailureReport(fault, journal, line_layer->Name());
  };
  std::string report;
  if (!UnlessStopped([&] { report = TrapWith(kWorker, run_body, on_fault); })) {
    journal.stopped = true;
    DiscardUnpublished(context, output);
    tell_faults();
  }
  return report;
}

}  // namespace tessarine::mod_92_functions
