// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/common/latitude_tool.h"

#include "planetary/frmGeoCentric.h"
#include "planetary/planetary_rules.h"

namespace tessarine {
namespace {

constexpr const char* kInstruction =
    "Select your feature layer to convert from the list below.  If the default spheroid equatorial and polar "
    "radii are incorrect, you may enter the correct values or load predefined values.  You also have the option to "
    "apply a longitudinal shift to your output.  NOTE: Only geographically-projected feature layers listed... ";

constexpr const char* kNoWrap = "none";

ToolSpec SpecOf(const LatitudeRow& row, std::string_view why_no_other_reference) {
  return {.name = row.name,
          .title = row.title,
          .text = row.text,
          .takes = kPlanetaryTakes,
          .makes = row.makes,
          .class_name = row.command.class_name,
          .parameters = {SourceParameter(AllShapes()),
                         OutputParameter(),
                         {.name = "spheroid",
                          .kind = ParameterKind::Spheroid,
                          .text = "Compute on this spheroid",
                          .otherwise = "the data's own"},
                         {.name = "wrap",
                          .kind = ParameterKind::Choice,
                          .text = "Wrap longitudes to -180 to 180 or to 0 to 360 degrees, after the shift",
                          .choices = {"180", "360", kNoWrap},
                          .otherwise = kNoWrap,
                          .remembered = true},
                         ShiftParameter()},
          .result = ToolResult::Moved,
          .reference = ToolReference::SourceAlone,
          .why_no_other_reference = why_no_other_reference,
          .whole_layers = true,
          .spreads = true,
          .example = row.example};
}

// The choices of a run, which the extension remembers, as the list that it takes.
std::shared_ptr<VarArray> RunListOf(const Arguments& arguments, clsExtension& extension) {
  FromDocument from_document;
  const LayerRef layer = SourceOf(arguments);
  const auto* given = arguments.Find<ToolSpheroid>("spheroid");
  const ToolSpheroid spheroid = given != nullptr ? *given : SpheroidOf(*layer);
  std::int32_t option = extension.LongitudeWrapOption;
  if (arguments.Has("wrap")) {
    option = WrapOptionOf(arguments.Get<std::string>("wrap"));
  } else if (option == kWrap180 || option == kWrap360) {
    from_document.emplace_back("Wrap Option");
  } else {
    option = kCustomOrNoWrap;
  }
  const double shift = ShiftOf(arguments, extension, from_document);
  extension.LongitudeShift = shift;
  extension.LongitudeWrapOption = option;
  const std::shared_ptr<VarArray> list =
      GeoCentricArguments::Make(layer, spheroid.name.empty() ? kCustomSpheroid : spheroid.name, spheroid.semi_major,
                                spheroid.semi_minor, shift, option, DescribeOutput(arguments, extension));
  GeoCentricArguments(list).SetFromDocument(from_document);
  return list;
}

}  // namespace

LatitudeTool::LatitudeTool(const LatitudeRow& row)
    : row_(row),
      why_no_other_reference_("the latitudes that '" + std::string(row.name) +
                              "' makes are of a kind that no reference tells, so any transformation of them would be "
                              "wrong."),
      spec_(SpecOf(row, why_no_other_reference_)) {}

std::optional<Arguments> LatitudeTool::Ask(const std::shared_ptr<IApplication>& application) const {
  const std::shared_ptr<clsExtension> extension = ExtensionOf(application);
  const OutputPlace place = PlaceForDialog(*extension, application);
  {
    frmGeoCentric dialog;
    dialog.SetArcApplication(GeoCentricInput::Make(application, extension, place.Directory(), place.Kind(),
                                                   row_.dialog_caption, kInstruction));
    dialog.ShowModal();
  }
  if (!extension->ShouldContinue || !extension->frmGeoCentricReturn) return std::nullopt;
  const GeoCentricArguments chosen(extension->frmGeoCentricReturn);
  Arguments arguments;
  arguments.Set("source", chosen.Layer());
  arguments.Set("spheroid", ToolSpheroid{chosen.SpheroidName(), chosen.SemiMajorAxis(), chosen.SemiMinorAxis()});
  arguments.Set("wrap", WordOf(chosen.Option(), kNoWrap));
  arguments.Set("shift", chosen.Shift());
  arguments.Set("output", MyGeneralOperations::ShownArgument(chosen.Output().Place()));
  return arguments;
}

std::optional<Objection> LatitudeTool::Validate(const Arguments& arguments,
                                                const std::shared_ptr<IApplication>&) const {
  const LayerRef layer = SourceOf(arguments);
  if (const auto objection = ObjectionToLayer(spec_, layer)) return objection;
  const auto* given = arguments.Find<ToolSpheroid>("spheroid");
  const ToolSpheroid spheroid = given != nullptr ? *given : SpheroidOf(*layer);
  if (const auto objection = ObjectionToMajorAxis(spheroid.semi_major)) return objection;
  if (const auto objection = ObjectionToMinorAxis(spheroid.semi_minor)) return objection;
  return ObjectionToPlace(arguments);
}

std::string LatitudeTool::Run(RunContext& context, const Arguments& arguments,
                              const std::shared_ptr<IApplication>& application) const {
  const std::shared_ptr<clsExtension> memory = MemoryOf(application);
  memory->frmGeoCentricReturn = RunListOf(arguments, *memory);
  return RunWithList(row_.work, context, memory->frmGeoCentricReturn, application);
}

std::string LatitudeTool::Plan(RunContext& context, const Arguments& arguments,
                               const std::shared_ptr<IApplication>& application) const {
  return row_.work.plan(context, RunListOf(arguments, *MemoryOf(application)));
}

}  // namespace tessarine
