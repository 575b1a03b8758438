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
#include "support/trapped_run.h"

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
  const RunInput input = OpenInput(layer, all_lines, Recycling::Yes);
  Lines lines{input.features, {}, input.count};
  while (const std::shared_ptr<IFeature> feature = input.cursor->NextFeature()) {
    EndIfStopped();
    ++journal.read;
    const std::int64_t oid = feature->OID();
    static_cast<void>(WorkOnRecord(journal, oid, [&] {
      const GeometryRef shape = feature->Shape();
      if (shape && !CanMeetOthers(*shape)) Raise(kInvalidCall, std::string(kNotUsable));
      if (shape) {
        lines.shapes.push_back(shape);
      } else {
        journal.skipped_oids.push_back(oid);
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
  const std::shared_ptr<IFeatureCursor> cursor = output.Update(nullptr, Recycling::No);
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

// A run from the lines to the report of their polygons.
class PolygonBuilding {
 public:
  PolygonBuilding(RunContext& context, const BuildChoices& choices, const std::shared_ptr<IMxDocument>& document,
                  const std::shared_ptr<IApplication>& application)
      : context_(context), scope_(context), choices_(choices), document_(document), application_(application) {}

  std::string Run() {
    const auto build = [&] {
      return TrapRun(
          {context_, kWorker, layer_name_, output_}, [this] { return Build(); },
          [this](const Fault& fault) { return BuildFailureReport(fault, journal_, layer_name_); });
    };
    std::string report;
    if (!UnlessStopped([&] { report = build(); })) {
      journal_.stopped = true;
      DiscardUnpublished(context_, output_);
      TellFaults();
    }
    return report;
  }

 private:
  std::string Build() {
    const BusySigns busy(context_.feedback, application_);
    const Lines lines = CollectLines(journal_, choices_.lines, choices_.all_lines);
    if (lines.shapes.empty()) {
      return GiveUp(context_, "No polylines available in '" + layer_name_ + "'!  Function cancelled...");
    }
    facts_.line_count = lines.count;
    if (!MakeOutput(lines.features)) return EndWithoutOutput(context_);
    ConstructPolygons(lines, choices_.cluster_tolerance, *output_);
    facts_.output_count = output_->FeatureCount(nullptr);
    if (facts_.output_count == 0) {
      return GiveUp(context_,
                    "No polygons were created from '" + layer_name_ +
                        "'!  Possibly no polylines intersected in such a way as to create a bounded region.  Function "
                        "cancelled...");
    }
    Complete();
    AddResultLayer(context_, output_, output_->Name(), *document_);
    document_->ActiveView()->PartialRefresh(esriViewGeography, nullptr, nullptr);
    return Report();
  }

  // False when the user gave up.
  bool MakeOutput(const std::shared_ptr<IFeatureClass>& lines) {
    const OutputPlace place = FreePlace(choices_.output);
    const VarArray none;
    transfer_.emplace(FieldTransfer::BesideChosen(kMeasures, choices_.fields ? *choices_.fields : none, place.Kind()));
    if (choices_.all_lines) NoteLeftOut(*lines, journal_);
    journal_.reference = lines->SpatialReference();
    extent_ = lines->Extent();
    const auto points = choices_.labels ? choices_.labels->FeatureClass() : nullptr;
    request_ = RequestFor(place, "Specify New Polygon Feature Class Name:");
    request_.geometry_type = esriGeometryPolygon;
    request_.reference = journal_.reference;
    request_.envelope = &extent_;
    request_.fields = transfer_->OutputFields();
    request_.sources = {lines};
    if (points) request_.sources.push_back(points);
    AnnounceLosses(context_, *lines, layer_name_, transfer_->Carried());
    AnnounceChanges(context_, transfer_->Carried(), place.Kind());
    output_ = CreateOutput(context_, request_);
    if (!output_) return false;
    facts_.output_path = OutputPath(*output_, request_);
    facts_.unit = UnitWord(request_.reference);
    transfer_->Bind(points.get(), *output_);
    return true;
  }

  // Numbers, measures and labels.
  void Complete() {
    std::optional<LabelSearch> labels;
    if (choices_.labels) {
      labels.emplace(choices_.labels, choices_.all_labels, choices_.first_label, output_->SpatialReference(),
                     transfer_->Attributes());
    }
    facts_.unlabelled = CompletePolygons(journal_, *output_, *transfer_, labels);
    journal_.written = facts_.output_count;
    PublishOutput(context_, *output_, request_);
    CheckRowsWritten(journal_, *output_);
    facts_.output_count = static_cast<std::int32_t>(journal_.written);
    TellFaults();
  }

  std::string Report() {
    scope_.End();
    facts_.line_layer = layer_name_;
    facts_.all_lines = choices_.all_lines;
    facts_.cluster_tolerance = choices_.cluster_tolerance;
    facts_.transfers_labels = choices_.labels != nullptr;
    if (choices_.labels) facts_.point_layer = choices_.labels->Name();
    facts_.all_points = choices_.all_labels;
    facts_.first_point = choices_.first_label;
    facts_.field_report = transfer_->FieldReport();
    facts_.reference_name = (journal_.brought ? journal_.brought->reference : request_.reference)->Name();
    facts_.time_spent = ReturnTimeElapsedRTF(journal_.begin, journal_.end, kReportFontSize, journal_.elapsed_seconds);
    return BuildReport(facts_, journal_);
  }

  void TellFaults() { ReportRecordFaults(journal_, kWorker, layer_name_); }

  RunContext& context_;
  RunScope scope_;
  RunJournal& journal_ = scope_.Journal();
  const BuildChoices& choices_;
  const std::shared_ptr<IMxDocument>& document_;
  const std::shared_ptr<IApplication>& application_;
  const std::string layer_name_ = choices_.lines ? choices_.lines->Name() : "";
  BuildFacts facts_;
  Envelope extent_;
  OutputRequest request_;
  std::optional<FieldTransfer> transfer_;
  std::shared_ptr<IFeatureClass> output_;
};

}  // namespace

OutputPlace FreePlace(const OutputPlace& place) {
  OutputPlace free = place;
  free.name = aml_func_mod::ReturnFilename(aml_func_mod::MakeUniqueFilename(place.Path()));
  return free;
}

std::string BuildPolygons(RunContext& context, const BuildChoices& choices,
                          const std::shared_ptr<IMxDocument>& document,
                          const std::shared_ptr<IApplication>& application) {
  return PolygonBuilding(context, choices, document, application).Run();
}

}  // namespace tessarine::mod_92_functions
