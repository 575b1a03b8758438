// SPDX-License-Identifier: GPL-2.0-or-later
// Polygons from the regions between lines.
#include "conversion/cluster_tolerance.h"
#include "conversion/field_choice.h"
#include "conversion/frmBuildParams.h"
#include "conversion/mod_92_functions.h"
#include "conversion/run_data.h"
#include "platform/text_formats.h"
#include "support/layer_listing.h"
#include "tools/common/tool_parts.h"
#include "tools/tool.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;
using mod_92_functions::BuildChoices;

constexpr const char* kBaseName = "Polygons";

const ToolSpec kSpec{
    .name = "build-polygons",
    .title = "Build Polygons",
    .text = "Polygons from the regions that lines bound together",
    .takes = "polylines",
    .makes = "A class of polygons, one for each region, with Uniq_ID, its Area and the chosen fields of a label point.",
    .class_name = "clsBuildPolygon",
    .parameters =
        {
            SourceParameter({esriGeometryPolyline}),
            OutputParameter(),
            {.name = "cluster-tolerance",
             .kind = ParameterKind::Number,
             .text = "Lines closer than this count as meeting",
             .unit = "the unit of the coordinates",
             .least = 0.0,
             .otherwise = "the tolerance of the data's reference"},
            {.name = "labels",
             .kind = ParameterKind::Layer,
             .text = "Points whose attributes the polygons take",
             .needs = "label-fields",
             .shapes = {esriGeometryPoint}},
            {.name = "label-fields",
             .kind = ParameterKind::Fields,
             .text = "The fields of the points to carry over",
             .of = "labels",
             .needs = "labels"},
            {.name = "label-choice",
             .kind = ParameterKind::Choice,
             .text = "Of several points in a polygon take the first, or the one nearest to its centre",
             .choices = {"first", "nearest"},
             .needs = "labels",
             .remembered = true},
        },
    .result = ToolResult::Regions,
    .several_sources = false,
    .renames = true,
    .example =
        "tessarine to-polylines tests/data/countries.shp -o boundaries.shp\n"
        "  tessarine build-polygons boundaries.shp --labels tests/data/cities.shp --label-fields name -o regions.shp",
};

class BuildPolygonsTool final : public Tool {
 public:
  [[nodiscard]] const ToolSpec& Spec() const override { return kSpec; }

  [[nodiscard]] const CommandTexts& Command() const override {
    static constexpr CommandTexts kTexts{"clsBuildPolygon",
                                         "BuildPolygon",
                                         "Buil&d Polygons from Polylines",
                                         "Similar to ArcInfo Build",
                                         "Build polygons based on the regions bounded by polylines...",
                                         121,
                                         {Menu::Shapes, 8}};
    return kTexts;
  }

  [[nodiscard]] std::optional<Arguments> Ask(const std::shared_ptr<IApplication>& application) const override {
    const std::shared_ptr<clsExtension> extension = ExtensionOf(application);
    {
      frmBuildParams dialog;
      dialog.SetArcApplication(application);
      dialog.ShowModal();
    }
    if (!extension->ShouldContinue) return std::nullopt;
    Arguments arguments;
    arguments.Set("source", extension->SelectedLayer);
    arguments.Set("output", RememberedOutput(*extension));
    arguments.Set("cluster-tolerance", extension->BuildClusterTolerance);
    arguments.records = extension->DoAllRecords ? ToolRecords::All : ToolRecords::Selected;
    if (extension->BuildShouldTransferLabels) {
      arguments.Set("labels", extension->SelectedPointLayer);
      arguments.Set("label-fields", NamesOf(*extension->SelectedFields));
      arguments.label_records = extension->BuildUseAllLabelPoints ? ToolRecords::All : ToolRecords::Selected;
    }
    arguments.Set("label-choice", std::string(extension->BuildUseFirstLabelPoint ? "first" : "nearest"));
    extension->SelectedLayer = nullptr;
    extension->SelectedFeatureClass = nullptr;
    extension->SelectedFields = nullptr;
    extension->SelectedPointLayer = nullptr;
    return arguments;
  }

  [[nodiscard]] std::optional<Objection> Validate(const Arguments& arguments,
                                                  const std::shared_ptr<IApplication>& application) const override {
    if (const auto extension = FindExtension(application); extension && !extension->IsVersion92()) {
      return Objection{"", "This command is disabled: the document's host is too old for it."};
    }
    if (const auto objection = ObjectionToKind(kSpec, SourceOf(arguments))) return objection;
    if (const auto labels = arguments.Get<LayerRef>("labels")) {
      if (!Takes(kSpec, "labels", labels)) {
        return Objection{"labels", "the layer '" + labels->Name() + "' is of the wrong kind: labels are points."};
      }
      if (const auto objection = LabelFields(arguments).objection) return objection;
    }
    const OutputOfRun output = OutputOf(arguments, kBaseName);
    return ObjectionTo(output.path, output.place);
  }

  [[nodiscard]] std::string Run(RunContext& context, const Arguments& arguments,
                                const std::shared_ptr<IApplication>& application) const override {
    const std::shared_ptr<clsExtension> memory = MemoryOf(application);
    const OutputOfRun output = OutputOf(arguments, kBaseName);
    const BuildChoices choices = Choices(arguments, output, *memory);
    Remember(choices, output, *memory);
    return mod_92_functions::BuildPolygons(context, choices, DocumentOf(application), application);
  }

  [[nodiscard]] std::string Plan(RunContext& context, const Arguments& arguments,
                                 const std::shared_ptr<IApplication>& application) const override {
    return mod_92_functions::PlanBuildPolygons(
        context, Choices(arguments, OutputOf(arguments, kBaseName), *MemoryOf(application)));
  }

 private:
  [[nodiscard]] static FieldChoice LabelFields(const Arguments& arguments) {
    return FieldsCalled(*arguments.Get<LayerRef>("labels"), StoredMeasures::Listed,
                        arguments.Get<std::vector<std::string>>("label-fields"), "label-fields");
  }

  // What nobody gave is as the extension remembers it.
  [[nodiscard]] static BuildChoices Choices(const Arguments& arguments, const OutputOfRun& output,
                                            const clsExtension& extension) {
    BuildChoices choices;
    choices.lines = SourceOf(arguments);
    choices.all_lines = ReadsAll(choices.lines, arguments.records);
    const SpatialReferenceRef reference = Require(choices.lines->FeatureClass(), "FeatureClass")->SpatialReference();
    choices.cluster_tolerance =
        arguments.Get<double>("cluster-tolerance", ToNumber(ProposedClusterTolerance(*reference)));
    choices.labels = arguments.Get<LayerRef>("labels");
    if (choices.labels) {
      choices.fields = LabelFields(arguments).fields;
      choices.all_labels = ReadsAll(choices.labels, arguments.label_records);
    }
    const auto choice = arguments.Get<std::string>("label-choice");
    choices.first_label = choice.empty() ? extension.BuildUseFirstLabelPoint : choice == "first";
    choices.output = output.Place();
    return choices;
  }

  static void Remember(const BuildChoices& choices, const OutputOfRun& output, clsExtension& extension) {
    RememberRun(output, CountInput(choices.lines, choices.all_lines), extension);
    extension.BuildClusterTolerance = choices.cluster_tolerance;
    extension.BuildShouldTransferLabels = choices.labels != nullptr;
    extension.BuildUseAllLabelPoints = choices.all_labels;
    extension.BuildUseFirstLabelPoint = choices.first_label;
  }
};

}  // namespace

namespace tools {

const Tool& BuildPolygons() {
  static const BuildPolygonsTool tool;
  return tool;
}

}  // namespace tools
}  // namespace tessarine
