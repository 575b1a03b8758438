// SPDX-License-Identifier: GPL-2.0-or-later
#include "planetary/planetary_runs.h"

#include "planetary/LongitudeForm.h"
#include "planetary/feature_rewrite.h"
#include "planetary/planetary_rules.h"
#include "platform/run_scope.h"
#include "shapes/MyGeometricOperations.h"
#include "shapes/short_steps.h"
#include "support/MyGeneralOperations.h"

namespace tessarine {
namespace {

using namespace MyGeometricOperations;

constexpr const char* kDegrees = " decimal degrees";
constexpr const char* kWrapName = "Wrap to Boundary";
constexpr std::string_view kWrapTitle = "Wrap to Boundary Conversion Complete:";
// The same for both directions.
constexpr std::string_view kLatitudeTitle = "OCentric to OGraphic Conversion Complete:";

struct Direction {
  std::string_view worker;
  const char* conversion;
  GeometryRef (*convert)(const GeometryRef& geometry, double& semi_major, double& semi_minor, double long_shift);
};

constexpr Direction kToGraphic{"CalcPlanetoCentricToPlanetoGraphic", "OCentric to OGraphic",
                               FeaturePlanetOCentricToPlanetOGraphic};
constexpr Direction kToCentric{"CalcPlanetoGraphicToPlanetoCentric", "OGraphic to OCentric",
                               FeaturePlanetOGraphicToPlanetOCentric};

std::string OptionText(std::int32_t option, const char* otherwise) {
  if (option == kWrap180) return "Wrap to Range -180 to 180 Degrees";
  if (option == kWrap360) return "Wrap to Range 0 to 360 Degrees";
  return otherwise;
}

ReportSection InputSection(const std::string& conversion, const IFeatureLayer& layer) {
  return {"Input Parameters:", {"  ** Conversion Type: " + conversion, "  ** Input Feature Layer: " + layer.Name()}};
}

std::string Degrees(double value) { return MyGeneralOperations::TrimZerosAndDecimals(value, false); }

// Nothing is said of steps that stay as they stand.
void AddSteps(const StepChoice& choice, ReportSection& section) {
  if (choice.steps == LongSteps::AsTheyStand) return;
  section.lines.emplace_back("  ** Steps of more than 180 Degrees:  The Short Way over the Edge");
  section.lines.push_back(std::string("  ** Rings round the Globe Hold:  ") + RowOfPole(choice.pole).report_text);
}

void AddFromDocument(const std::vector<std::string>& settings, std::vector<ReportSection>& sections) {
  if (settings.empty()) return;
  ReportSection section{"Taken from the Map Document:", {}};
  for (const std::string& setting : settings) section.lines.push_back("  ** " + setting);
  sections.push_back(std::move(section));
}

RewrittenMeasure MeasureOf(const WrappedShape& wrapped) {
  return {wrapped.measure_before, wrapped.measure_after, wrapped.rounding};
}

struct WrapTask {
  WrapBox box;
  double shift;
  StepChoice steps;
};

// The shape where the wrap finds it: shifted, and carried on over the edge where that is wanted.
struct Prepared {
  GeometryRef shape;
  ShortSteps steps;
};

Prepared Prepare(const GeometryRef& copy, const WrapTask& task) {
  Prepared prepared{task.shift != 0.0 ? FeatureLongitudeShift(copy, task.shift) : copy, {}};
  if (prepared.shape && task.steps.steps == LongSteps::ShortWay) {
    prepared.steps = TakeShortSteps(*prepared.shape, task.steps.pole);
  }
  return prepared;
}

RewrittenShape WrapFeature(const GeometryRef& copy, const WrapTask& task, const RewrittenRecord& record) {
  const std::int64_t oid = record.oid;
  const std::string feature = std::to_string(oid);
  const std::string failure =
      "  --> Failed to wrap feature at OID #" + feature + ".  Wrap function apparently crashed...";
  RunJournal& journal = record.journal;
  Prepared prepared;
  WrappedShape wrapped;
  static_cast<void>(WorkOnRecord(journal, oid, [&] { prepared = Prepare(copy, task); }));
  if (!prepared.shape) return {copy, failure};
  static_cast<void>(WorkOnRecord(
      journal, oid, [&] { wrapped = WrapOwnShape(CloneOf(*prepared.shape), task.box, record.keep_going); }));
  if (wrapped.stopped) return {.stopped = true};
  if (!wrapped.shape) return {prepared.shape, failure};
  const bool empty = wrapped.shape->IsEmpty();
  return {wrapped.shape, empty ? "  --> Wrapped Feature at OID #" + feature + " is empty..." : "", false,
          MeasureOf(wrapped), prepared.steps};
}

// Boxes, shifts and latitudes are degrees. A layer in another angular unit goes through degrees and back.
template <class Rewrite>
auto ThroughDegrees(const IFeatureLayer& layer, Rewrite rewrite) {
  const SpatialReferenceRef reference = Require(layer.FeatureClass(), "FeatureClass")->SpatialReference();
  const auto geographic = Cast<const GeographicCoordinateSystem>(reference);
  const SpatialReferenceRef degrees = geographic ? geographic->InDegrees() : nullptr;
  return [=](const GeometryRef& shape, const RewrittenRecord& record) mutable -> RewrittenShape {
    if (!degrees) return rewrite(shape, record);
    shape->SetSpatialReference(reference);
    BringToDegrees(*shape);
    RewrittenShape rewritten = rewrite(shape, record);
    if (rewritten.shape) {
      rewritten.shape->SetSpatialReference(degrees);
      rewritten.shape->Project(reference);
    }
    return rewritten;
  };
}

FeatureRewrite WrapRun(const WrapArguments& arguments) {
  const std::shared_ptr<IFeatureLayer> layer = Require(arguments.Layer(), "layer");
  const WrapTask task{arguments.Box(), arguments.Shift(), arguments.Steps()};
  ReportSection boundary{"Boundary Parameters:",
                         {"  ** Option:  " + OptionText(arguments.Option(), "Custom Wrap Boundaries"),
                          "  ** Western Boundary:  " + Degrees(task.box.west),
                          "  ** Northern Boundary:  " + Degrees(task.box.north) + kDegrees,
                          "  ** Eastern Boundary:  " + Degrees(task.box.east) + kDegrees,
                          "  ** Southern Boundary:  " + Degrees(task.box.south) + kDegrees,
                          "  ** Longitudinal Shift:  " + Degrees(task.shift) + kDegrees}};
  AddSteps(task.steps, boundary);
  std::vector<ReportSection> sections{InputSection(kWrapName, *layer), boundary};
  AddFromDocument(arguments.FromDocument(), sections);
  return {"WrapToBoundaries",
          kWrapName,
          kWrapTitle,
          sections,
          layer,
          arguments.Output(),
          ThroughDegrees(*layer, [task](const GeometryRef& shape, const RewrittenRecord& record) {
            return WrapFeature(shape, task, record);
          })};
}

FeatureRewrite LatitudeRun(const Direction& direction, const GeoCentricArguments& arguments) {
  const std::shared_ptr<IFeatureLayer> layer = Require(arguments.Layer(), "layer");
  const std::int32_t option = arguments.Option();
  double semi_major = arguments.SemiMajorAxis(), semi_minor = arguments.SemiMinorAxis();
  const double shift = arguments.Shift();
  std::vector<ReportSection> sections{
      InputSection(direction.conversion, *layer),
      {"Spheroid Parameters:",
       {"  ** Spheroid Name:  " + arguments.SpheroidName(),
        "  ** Spheroid Semi-Major (Equatorial) Radius:  " + BoxNumber(semi_major) + " meters",
        "  ** Spheroid Semi-Minor (Polar) Radius:  " + BoxNumber(semi_minor) + " meters",
        "  ** Longitudinal Shift:  " + BoxNumber(shift) + kDegrees,
        "  ** Wrap Option:  " + OptionText(option, "No Wrap Option")}}};
  AddFromDocument(arguments.FromDocument(), sections);
  return {direction.worker,
          direction.conversion,
          kLatitudeTitle,
          sections,
          layer,
          arguments.Output(),
          ThroughDegrees(*layer,
                         [=, convert = direction.convert](const GeometryRef& shape,
                                                          const RewrittenRecord& record) mutable -> RewrittenShape {
                           RunJournal& journal = record.journal;
                           const RewrittenShape failed{nullptr, "  --> Failed to convert feature at OID #" +
                                                                    std::to_string(record.oid) +
                                                                    ".  It is written without a shape..."};
                           GeometryRef converted;
                           WrappedShape wrapped;
                           static_cast<void>(WorkOnRecord(journal, record.oid, [&] {
                             converted = convert(shape, semi_major, semi_minor, shift);
                           }));
                           if (!converted) return failed;
                           if (option != kWrap180 && option != kWrap360) return {.shape = converted};
                           const WrapBox& box = option == kWrap180 ? kBox180 : kBox360;
                           static_cast<void>(WorkOnRecord(journal, record.oid, [&] {
                             wrapped = WrapOwnShape(converted, box, record.keep_going);
                           }));
                           if (!wrapped.shape && !wrapped.stopped) return failed;
                           return {.shape = wrapped.shape, .stopped = wrapped.stopped, .measure = MeasureOf(wrapped)};
                         }),
          RunSpheroid{arguments.SpheroidName(), semi_major, semi_minor}};
}

template <const Direction& kDirection>
std::string RunLatitudes(RunContext& context, const std::shared_ptr<IApplication>& application,
                         const std::shared_ptr<IMxDocument>& document, const std::shared_ptr<VarArray>& arguments,
                         bool show_progress) {
  return Trap(kDirection.worker, [&] {
    const GeoCentricArguments given(Require(arguments, "Arguments"));
    return RewriteFeatures(context, LatitudeRun(kDirection, given), application, document, show_progress);
  });
}

template <const Direction& kDirection>
std::string PlanLatitudes(RunContext& context, const std::shared_ptr<VarArray>& arguments) {
  return Trap(kDirection.worker, [&] {
    return PlanRewrite(context, LatitudeRun(kDirection, GeoCentricArguments(Require(arguments, "Arguments"))));
  });
}

std::string RunWrap(RunContext& context, const std::shared_ptr<IApplication>& application,
                    const std::shared_ptr<IMxDocument>& document, const std::shared_ptr<VarArray>& arguments,
                    bool show_progress) {
  return Trap("WrapToBoundaries", [&] {
    const WrapArguments given(Require(arguments, "Arguments"));
    return RewriteFeatures(context, WrapRun(given), application, document, show_progress);
  });
}

std::string PlanWrap(RunContext& context, const std::shared_ptr<VarArray>& arguments) {
  return Trap("WrapToBoundaries",
              [&] { return PlanRewrite(context, WrapRun(WrapArguments(Require(arguments, "Arguments")))); });
}

}  // namespace

const PlanetaryWork kWrapToBoundaries{RunWrap, PlanWrap};
const PlanetaryWork kCentricToGraphic{RunLatitudes<kToGraphic>, PlanLatitudes<kToGraphic>};
const PlanetaryWork kGraphicToCentric{RunLatitudes<kToCentric>, PlanLatitudes<kToCentric>};

}  // namespace tessarine
