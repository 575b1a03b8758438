// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/common/conversion_tool.h"

#include "conversion/frmLayerFields.h"
#include "conversion/run_data.h"
#include "tools/common/tool_parts.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

ToolSpec SpecOf(const ConversionRow& row) {
  return {.name = row.words.name,
          .title = row.run.words.report_title,
          .text = row.words.text,
          .takes = row.words.takes,
          .makes = row.words.makes,
          .class_name = row.command.class_name,
          .parameters = {SourceParameter(ShapesOf(row.dialog.layer_mask)), OutputParameter(), FieldsParameter(),
                         AllFieldsParameter()},
          .result = row.words.result,
          .reference = row.run.kind == modCreateVertices::RunKind::Geographic ? ToolReference::Geographic
                                                                              : ToolReference::Source,
          .spreads = true,
          .example = row.words.example};
}

const ConversionTool* FindTool(std::int32_t option) {
  for (const Tool* tool : AllTools()) {
    const auto* conversion = dynamic_cast<const ConversionTool*>(tool);
    if (conversion != nullptr && conversion->Row().run.conversion_option == option) return conversion;
  }
  return nullptr;
}

}  // namespace

ConversionTool::ConversionTool(const ConversionRow& row) : row_(row), spec_(SpecOf(row)) {}

std::optional<Arguments> ConversionTool::Ask(const std::shared_ptr<IApplication>& application) const {
  const std::shared_ptr<clsExtension> extension = ExtensionOf(application);
  {
    frmLayerFields dialog;
    dialog.SetArcApplication(application);
    dialog.SetConversionOption(row_.run.conversion_option);
    dialog.ShowModal();
  }
  if (!extension->ShouldContinue) return std::nullopt;
  Arguments arguments;
  arguments.Set("source", extension->SelectedLayer);
  arguments.Set("fields", NamesOf(*extension->SelectedFields));
  arguments.Set("output", RememberedOutput(*extension));
  arguments.records = extension->DoAllRecords ? ToolRecords::All : ToolRecords::Selected;
  extension->SelectedLayer = nullptr;
  extension->SelectedFeatureClass = nullptr;
  extension->SelectedFields = nullptr;
  return arguments;
}

FieldChoice ConversionTool::ChosenFields(const Arguments& arguments) {
  const LayerRef layer = SourceOf(arguments);
  if (arguments.Get<bool>("all-fields")) return AllFields(*layer, StoredMeasures::LeftOut);
  return FieldsCalled(*layer, StoredMeasures::LeftOut, arguments.Get<std::vector<std::string>>("fields"), "fields");
}

std::optional<Objection> ConversionTool::Validate(const Arguments& arguments,
                                                  const std::shared_ptr<IApplication>&) const {
  const LayerRef layer = SourceOf(arguments);
  if (const auto objection = ObjectionToKind(spec_, layer)) return objection;
  // Names that are wrong beside --all-fields are wrong all the same.
  const FieldChoice named =
      FieldsCalled(*layer, StoredMeasures::LeftOut, arguments.Get<std::vector<std::string>>("fields"), "fields");
  if (named.objection) return named.objection;
  const OutputOfRun output = OutputOf(arguments, std::string(row_.dialog.default_output_name));
  if (const auto objection = ObjectionTo(output.path, output.place)) return objection;
  const esriGeometryType shape = Require(layer->FeatureClass(), "FeatureClass")->ShapeType();
  const std::string reason(WhyNever(row_.run, shape));
  if (reason.empty()) return std::nullopt;
  return Objection{"", "'" + layer->Name() + "' holds points. " + reason, "", Objection::kToldByPlan};
}

OutputOfRun ConversionTool::Output(const Arguments& arguments) const {
  return OutputOf(arguments, std::string(row_.dialog.default_output_name));
}

modCreateVertices::ConversionChoices ConversionTool::Choices(const Arguments& arguments,
                                                             const OutputOfRun& output) const {
  modCreateVertices::ConversionChoices choices;
  choices.layer = SourceOf(arguments);
  choices.fields = ChosenFields(arguments).fields;
  choices.all_records = ReadsAll(choices.layer, arguments.records);
  choices.output = output.Place();
  return choices;
}

std::string ConversionTool::Run(RunContext& context, const Arguments& arguments,
                                const std::shared_ptr<IApplication>& application) const {
  const OutputOfRun output = Output(arguments);
  const modCreateVertices::ConversionChoices choices = Choices(arguments, output);
  const std::int32_t count = CountInput(choices.layer, choices.all_records);
  RememberRun(output, count, *MemoryOf(application));
  return modCreateVertices::RunConversion(context, row_.run, choices, application,
                                          count > row_.run.progress_threshold ? modCreateVertices::ProgressShown::Yes
                                                                              : modCreateVertices::ProgressShown::No);
}

std::string ConversionTool::Plan(RunContext& context, const Arguments& arguments,
                                 const std::shared_ptr<IApplication>&) const {
  return modCreateVertices::PlanConversion(context, row_.run, Choices(arguments, Output(arguments)));
}

const modCreateVertices::ConversionRun* modCreateVertices::FindRun(std::int32_t conversion_option) {
  const ConversionTool* tool = FindTool(conversion_option);
  return tool == nullptr ? nullptr : &tool->Row().run;
}

const LayerFieldsTexts* FindLayerFieldsTexts(std::int32_t conversion_option) {
  const ConversionTool* tool = FindTool(conversion_option);
  return tool == nullptr ? nullptr : &tool->Row().dialog;
}

}  // namespace tessarine
