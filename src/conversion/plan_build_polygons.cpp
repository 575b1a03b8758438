// SPDX-License-Identifier: GPL-2.0-or-later
// The plan of the building of polygons: what its run would read and make.
#include <array>

#include "conversion/build_reports.h"
#include "conversion/field_transfer.h"
#include "conversion/mod_92_functions.h"
#include "conversion/plan_texts.h"
#include "conversion/run_data.h"
#include "conversion/run_reports.h"
#include "platform/report_heads.h"
#include "platform/rich_text.h"
#include "platform/run_scope.h"
#include "platform/trap.h"
#include "support/MyGeneralOperations.h"

namespace tessarine::mod_92_functions {
namespace {

constexpr std::array<std::string_view, 1> kMeasures = {"Area"};

std::string LabelLines(const BuildChoices& choices) {
  if (!choices.labels) return "  ** No label point attributes used...\\par\r\n";
  return "  ** Label Point Layer: " + EscapeRtf(choices.labels->Name()) + "\\par\r\n";
}

}  // namespace

std::string PlanBuildPolygons(RunContext& context, const BuildChoices& choices) {
  const RunScope scope(context);
  return Trap("PlanBuildPolygons", [&]() -> std::string {
    const std::shared_ptr<IFeatureLayer>& layer = Require(choices.lines, "layer");
    const SpatialReferenceRef reference = layer->FeatureClass()->SpatialReference();
    context.journal.reference = reference;
    const OutputPlace place = FreePlace(choices.output);
    const VarArray none;
    const FieldTransfer transfer =
        FieldTransfer::BesideChosen(kMeasures, choices.fields ? *choices.fields : none, place.Kind());
    std::vector<std::shared_ptr<IClass>> sources = {layer->FeatureClass()};
    if (choices.labels) sources.push_back(choices.labels->FeatureClass());
    return ReportHead() +
           "Build Polygons, planned only: nothing was written\\par\r\n\\pard Input:\\b0\\par\r\n"
           "  ** Input Polyline Feature Layer: " +
           EscapeRtf(layer->Name()) + "\\par\r\n  ** " +
           (choices.all_lines ? "Use All Polylines (n = " : "Selected Polylines (n = ") +
           std::to_string(CountInput(layer, choices.all_lines)) + ")\\par\r\n  ** Cluster Tolerance: " +
           MyGeneralOperations::TrimZerosAndDecimals(choices.cluster_tolerance, false) + " " +
           EscapeRtf(UnitWord(reference)) + "\\par\r\n" + LabelLines(choices) +
           "  ** Spatial Reference:  " + EscapeRtf(reference->Name()) + "\\par\r\n" +
           PlannedOutput(context, place, esriGeometryPolygon, transfer, layer->FeatureClass()->Extent(), sources,
                         ForetoldLosses(*layer->FeatureClass(), layer->Name(), transfer.Carried())) +
           "}";
  });
}

}  // namespace tessarine::mod_92_functions
