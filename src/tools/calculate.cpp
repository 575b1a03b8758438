// SPDX-License-Identifier: GPL-2.0-or-later
// Lengths, areas, centroids, azimuths and counts of features, written into their attribute table.
#include "calculator/calculation_copy.h"
#include "calculator/field_meanings.h"
#include "calculator/frmGeometry.h"
#include "calculator/measure_choice.h"
#include "calculator/modCalcGeometry.h"
#include "platform/reference_spheroid.h"
#include "platform/run_scope.h"
#include "platform/text_formats.h"
#include "support/layer_listing.h"
#include "tools/common/tool_parts.h"
#include "tools/tool.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

// Radii that somebody gave have no other name.
constexpr const char* kCustomSpheroid = "Custom Spheroid";

const ToolSpec kSpec{
    .name = "calculate",
    .title = "Calculate Geometry",
    .text = "Write lengths, areas, centroids, azimuths and counts of features into their attribute table",
    .takes = "points, multipoints, polylines and polygons",
    .makes = "A field or two for each measure, in the layer itself.",
    .class_name = "clsConvertGeometry",
    .parameters =
        {
            SourceParameter(AllShapes()),
            {.name = "measure",
             .kind = ParameterKind::Measures,
             .text = "A measure, with its fields where they shall have other names than the proposed ones; repeat it "
                     "for more. 'tessarine measures' lists them",
             .of = "source"},
            {.name = "all-measures", .kind = ParameterKind::Flag, .text = "All measures of the layer"},
            {.name = "spheroid",
             .kind = ParameterKind::Spheroid,
             .text = "Compute on this spheroid",
             .otherwise = "the data's own"},
            {.name = "planetocentric",
             .kind = ParameterKind::Flag,
             .text = "The latitudes of the data are planetocentric"},
            {.name = "output",
             .kind = ParameterKind::Output,
             .text = "Leave the source as it is and work on this copy of the layer"},
        },
    .one_of = {"measure", "all-measures"},
    .without_one_of =
        "Nothing to calculate: name measures with {measure}, or give {all-measures}. 'tessarine measures "
        "{source}' lists them.",
    .spreads = true,
    .example =
        "tessarine calculate tests/data/countries.shp -m \"Sph. Area\" -m \"Sph. Centroid=LON,LAT\" -o "
        "measured.gpkg",
};

class CalculateTool final : public Tool {
 public:
  [[nodiscard]] const ToolSpec& Spec() const override { return kSpec; }

  [[nodiscard]] const CommandTexts& Command() const override {
    static constexpr CommandTexts kTexts{
        "clsConvertGeometry",
        "CalcGeometry",
        "C&alculate Geometry",
        "Calculate Geometry",
        "Calculate geometric attributes of data, including spherical area and spheroidal length...",
        117,
        {Menu::Shapes, 1}};
    return kTexts;
  }

  [[nodiscard]] std::optional<Arguments> Ask(const std::shared_ptr<IApplication>& application) const override {
    const std::shared_ptr<clsExtension> extension = ExtensionOf(application);
    {
      frmGeometry dialog;
      dialog.SetArcApplication(application);
      dialog.ShowModal();
    }
    if (!extension->ShouldContinue) return std::nullopt;
    const GeometryOptions options(extension->GeometryOptions);
    Arguments arguments;
    arguments.Set("source", options.Layer());
    std::vector<ToolMeasure> measures;
    const IFeatureClass& features = *Require(options.Layer()->FeatureClass(), "FeatureClass");
    for (const OptionEntry& entry : options.Options()) {
      measures.push_back(MeasureOf(entry, options.UseFlags(), features));
    }
    arguments.Set("measure", measures);
    arguments.Set("spheroid", ToolSpheroid{options.SpheroidName(), options.SemiMajor(), options.SemiMinor()});
    arguments.Set("planetocentric", options.Geocentric());
    arguments.records = options.AllRecords() ? ToolRecords::All : ToolRecords::Selected;
    arguments.confirmed = true;
    extension->GeometryOptions = nullptr;
    return arguments;
  }

  [[nodiscard]] std::optional<Objection> Validate(const Arguments& arguments,
                                                  const std::shared_ptr<IApplication>&) const override {
    const LayerRef layer = SourceOf(arguments);
    const bool copies = arguments.Has("output");
    if (!Takes(kSpec, "source", layer)) {
      return Objection{"", "The layer '" + layer->Name() + "' is of the wrong kind: measures are for " +
                               std::string(kSpec.takes) + "."};
    }
    const bool other_spheroid = arguments.Has("spheroid") || arguments.Get<bool>("planetocentric");
    const std::string reason = WhyNoSpheroid(*Require(layer->FeatureClass(), "FeatureClass"));
    if (other_spheroid && !arguments.confirmed && !reason.empty()) {
      return Objection{"", "{spheroid}, {radii} and {planetocentric} can't be used on '" + layer->Name() + "'. " +
                               Replace(reason, ":", ".")};
    }
    if (copies && arguments.records == ToolRecords::Selected && !AnySelected(*layer)) {
      return Objection{"only-selected", "no record is selected. Add {where}, or select records in the document."};
    }
    if (!copies && !CanBeChanged(*layer)) {
      return Objection{"", "The records of '" + layer->Name() +
                               "' can't be changed in place: their file may not be written, or its format is only "
                               "written as a whole. Work on a copy: {output} COPY."};
    }
    return ObjectionToMeasures(arguments, layer);
  }

  [[nodiscard]] std::string Run(RunContext& context, const Arguments& arguments,
                                const std::shared_ptr<IApplication>& application) const override {
    RunScope scope(context);
    std::optional<LayerForMeasures> work = InPlace(arguments);
    std::string report;
    if (arguments.Has("output")) {
      std::optional<RunSpheroid> spheroid;
      if (arguments.Has("spheroid")) {
        const ToolSpheroid given = SpheroidFor(arguments, nullptr);
        spheroid = RunSpheroid{given.name, given.semi_major, given.semi_minor};
      }
      work = MakeCopy(scope, CopyWish(arguments, context.services.Wishes().reference), spheroid, report);
    }
    const std::shared_ptr<VarArray> options = work ? Confirmed(context, arguments, *work) : nullptr;
    return options ? modCalcGeometry::CalcGeometry(scope, options, application) : report;
  }

  [[nodiscard]] std::vector<FieldMeaning> Meanings(const Arguments& arguments) const override {
    const LayerRef layer = SourceOf(arguments);
    return MeaningsOf(*layer, Chosen(arguments, InPlace(arguments)));
  }

  [[nodiscard]] std::string Plan(RunContext& context, const Arguments& arguments,
                                 const std::shared_ptr<IApplication>& application) const override {
    const LayerForMeasures work = arguments.Has("output")
                                      ? PlanCopy(CopyWish(arguments, context.services.Wishes().reference))
                                      : InPlace(arguments);
    const std::shared_ptr<VarArray> options = Confirmed(context, arguments, work);
    return options ? modCalcGeometry::PlanGeometry(context, options, application) : "";
  }

 private:
  [[nodiscard]] static ToolMeasure MeasureOf(const OptionEntry& entry, const ComboUseFlags& flags,
                                             const IFeatureClass& features) {
    const MeasureRow* row =
        FindMeasure(features.ShapeType(), SpatialKindOf(features.SpatialReference()), entry.OptionId());
    ToolMeasure measure{row != nullptr ? std::string(row->caption) : std::to_string(entry.OptionId()), {}};
    for (const std::int32_t position : {0, 1}) {
      if (UsesField(flags, entry.OptionId(), position)) measure.fields.push_back(entry.Field(position));
    }
    return measure;
  }

  [[nodiscard]] static bool CanBeChanged(const IFeatureLayer& layer) {
    const auto info = Cast<IObjectClassInfo2>(layer.FeatureClass());
    return !info || info->CanBypassEditSession();
  }

  [[nodiscard]] static LayerForMeasures InPlace(const Arguments& arguments) {
    return {SourceOf(arguments), arguments.Get<std::vector<ToolMeasure>>("measure")};
  }

  [[nodiscard]] static CopyForMeasures CopyWish(const Arguments& arguments, const SpatialReferenceRef& reference) {
    return {SourceOf(arguments), arguments.Get<ToolOutput>("output"), arguments.records,
            arguments.Get<std::vector<ToolMeasure>>("measure"), reference};
  }

  [[nodiscard]] static MeasureChoice Chosen(const Arguments& arguments, const LayerForMeasures& work) {
    return MeasuresCalled(*work.layer, work.measures, arguments.Get<bool>("all-measures"));
  }

  // What is wrong with measures and fields, by the columns of the class that the run will change.
  [[nodiscard]] static std::optional<Objection> ObjectionToMeasures(const Arguments& arguments, const LayerRef& layer) {
    LayerForMeasures work = InPlace(arguments);
    if (arguments.Has("output") && CanBeCopied(layer->FeatureClass())) {
      try {
        work = TryCopy(CopyWish(arguments, nullptr));
      } catch (const Fault& fault) {
        return Objection{"", fault.Description()};
      }
    }
    const MeasureChoice choice = Chosen(arguments, work);
    if (choice.objection) return choice.objection;
    if (!choice.options.empty()) return std::nullopt;
    return Objection{"", "Nothing to calculate: name measures, or take all. 'tessarine measures' lists them."};
  }

  // The options of a run, null where the user doesn't agree to the names of its fields.
  [[nodiscard]] static std::shared_ptr<VarArray> Confirmed(RunContext& context, const Arguments& arguments,
                                                           const LayerForMeasures& work) {
    const LayerRef& layer = work.layer;
    const std::shared_ptr<IFeatureClass> features = Require(layer->FeatureClass(), "FeatureClass");
    const MeasureChoice choice = Chosen(arguments, work);
    // A face that doesn't validate learns it here: a dialog may leave any name for a field.
    if (choice.objection) {
      const std::string sentence =
          SentenceOf(*choice.objection, [](std::string_view parameter) { return std::string(parameter); });
      context.feedback.Tell(sentence, " Confirm Field Names:");
      context.journal.Fail(sentence);
      context.journal.cancelled = true;
      return nullptr;
    }
    const auto agrees = [&](const std::optional<NameQuestion>& asked) {
      return !asked || context.feedback.Ask(asked->question, asked->text, asked->title);
    };
    if (!arguments.confirmed && !(agrees(DoubtfulNames(*layer, choice.fields)) &&
                                  agrees(TakenNames(choice.fields, NumericFieldNames(*layer))))) {
      context.journal.cancelled = true;
      return nullptr;
    }
    GeometryChoices choices;
    choices.layer = layer;
    // A copy of the selected records holds no others.
    const bool copies_selected = arguments.Has("output") && arguments.records == ToolRecords::Selected;
    choices.all_records = copies_selected || ReadsAll(layer, arguments.records);
    choices.options = choice.options;
    choices.use_flags = ComboUseFlagsOf(features->ShapeType(), SpatialKindOf(features->SpatialReference()));
    const ToolSpheroid spheroid = SpheroidFor(arguments, features->SpatialReference());
    choices.spheroid_name = spheroid.name;
    choices.semi_major = spheroid.semi_major;
    choices.semi_minor = spheroid.semi_minor;
    choices.geocentric = arguments.Get<bool>("planetocentric");
    return GeometryOptions(choices).Carrier();
  }

  [[nodiscard]] static ToolSpheroid SpheroidFor(const Arguments& arguments, const SpatialReferenceRef& reference) {
    if (const auto* given = arguments.Find<ToolSpheroid>("spheroid")) {
      return given->name.empty() ? ToolSpheroid{kCustomSpheroid, given->semi_major, given->semi_minor} : *given;
    }
    const auto spheroid = SpheroidBeneath(reference);
    if (!spheroid) return {};
    return {spheroid->Name(), spheroid->SemiMajorAxis(), spheroid->SemiMinorAxis()};
  }
};

}  // namespace

namespace tools {

const Tool& Calculate() {
  static const CalculateTool tool;
  return tool;
}

}  // namespace tools
}  // namespace tessarine
