// SPDX-License-Identifier: GPL-2.0-or-later
// The plan of a conversion: what its run would read, make and ask.
#include "conversion/field_transfer.h"
#include "conversion/modCreateVertices.h"
#include "conversion/output_frame.h"
#include "conversion/plan_texts.h"
#include "conversion/run_data.h"
#include "conversion/run_reports.h"
#include "platform/report_heads.h"
#include "platform/rich_text.h"
#include "platform/run_scope.h"
#include "platform/trap.h"

namespace tessarine::modCreateVertices {
namespace {

std::string RefusalLine(std::string_view reason) {
  if (reason.empty()) return "";
  return "\\b The run would be refused:\\b0\\par\r\n  ** " + EscapeRtf(std::string(reason)) + "\\par\r\n";
}

}  // namespace

std::string PlanConversion(RunContext& context, const ConversionRun& run, const ConversionChoices& choices) {
  const RunScope scope(context);
  return Trap("PlanConversion", [&]() -> std::string {
    const std::shared_ptr<IFeatureLayer>& layer = choices.layer;
    const std::shared_ptr<IFeatureClass> input = Require(layer->FeatureClass(), "FeatureClass");
    if (!CanFrame(run, input->SpatialReference())) {
      context.journal.failed = true;
      return UnknownReferenceReport(run);
    }
    const OutputFrame frame = FrameOf(run, *input);
    context.journal.reference = frame.reference;
    const ShapeRule rule = RuleFor(run, input->ShapeType());
    const FieldTransfer transfer =
        FieldTransfer::BesideInput(*input, rule.measure_fields, *choices.fields, choices.output.Kind());
    return ReportHead() + std::string(run.words.report_title) +
           ", planned only: nothing was written\\par\r\n\\pard Input:\\b0\\par\r\n"
           "  ** Input Feature Layer: " +
           EscapeRtf(layer->Name()) + "\\par\r\n  ** " +
           std::string(choices.all_records ? run.words.all_label : run.words.selected_label) +
           std::to_string(CountInput(layer, choices.all_records)) +
           ")\\par\r\n  ** Spatial Reference:  " + EscapeRtf(input->SpatialReference()->Name()) + "\\par\r\n" +
           PlannedOutput(context, choices.output, rule.output, transfer, frame.extent, {input},
                         ForetoldLosses(*input, layer->Name(), transfer.Carried())) +
           RefusalLine(WhyNever(run, input->ShapeType())) + "}";
  });
}

}  // namespace tessarine::modCreateVertices
