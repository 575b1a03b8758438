// SPDX-License-Identifier: GPL-2.0-or-later
// Cuts features at the sides of a box and brings what lies outside in at the other side.
#include "planetary/LongitudeForm.h"
#include "planetary/frmBoundaryWrap.h"
#include "planetary/planetary_rules.h"
#include "platform/text_formats.h"
#include "tools/common/planetary_parts.h"

namespace tessarine {
namespace {

const ToolSpec kSpec{
    .name = "wrap",
    .title = "Wrap to Boundary",
    .text = "Cut features at the sides of a box and bring what lies outside in at the other side",
    .takes = kPlanetaryTakes,
    .makes = "A class of the source's kind with its attributes, all shapes within the box.",
    .class_name = "clsWrapBoundary",
    .parameters =
        {
            SourceParameter(AllShapes()),
            OutputParameter(),
            {.name = "range",
             .kind = ParameterKind::Choice,
             .text = "Longitudes from -180 to 180 or from 0 to 360 degrees",
             .choices = {"180", "360"},
             .remembered = true},
            {.name = "bounds",
             .kind = ParameterKind::Box,
             .text = "A box of your own",
             .unit = "degrees",
             .excludes = "range",
             .remembered = true},
            {.name = "short-steps",
             .kind = ParameterKind::Flag,
             .text = "Steps of more than 180 degrees mean the short way: from 170 to -170 are 20 degrees over the "
                     "edge, not 340 across the map"},
            {.name = "pole",
             .kind = ParameterKind::Choice,
             .text = "What rings round the globe hold: one ring the north or the south pole, two rings both or "
                     "neither. Without it they hold the smaller part of the sphere",
             .choices = {"north", "south", "both", "neither"},
             .needs = "short-steps"},
            ShiftParameter(),
        },
    .result = ToolResult::Moved,
    .reference = ToolReference::SourceAlone,
    .why_no_other_reference =
        "wrapped longitudes are a matter of the data's own degrees; a box from 0 to 360 or over the edge of the map "
        "would be lost in another reference.",
    .one_of = {"range", "bounds"},
    .without_one_of = "'wrap' needs a box: {range} 180, {range} 360 or {bounds} W,S,E,N.",
    .whole_layers = true,
    .spreads = true,
    .example = "tessarine wrap tests/data/countries.shp --range 360 -o countries_360.shp",
};

struct ChosenBox {
  WrapBox box{};
  std::int32_t option = kCustomOrNoWrap;
};

// That of the range of 180 is what the dialog shows before anybody chose one.
std::optional<ChosenBox> RememberedBox(const clsExtension& extension) {
  if (extension.LongitudeWrapOption == kWrap180) return ChosenBox{kBox180, kWrap180};
  if (extension.LongitudeWrapOption == kWrap360) return ChosenBox{kBox360, kWrap360};
  const WrapBox box{extension.CustomBoundaryWest, extension.CustomBoundaryNorth, extension.CustomBoundaryEast,
                    extension.CustomBoundarySouth};
  const bool is_box = box.west < box.east && box.south < box.north;
  const bool is_first =
      box.west == kBox180.west && box.east == kBox180.east && box.south == kBox180.south && box.north == kBox180.north;
  if (!is_box || is_first) return std::nullopt;
  return ChosenBox{box, kCustomOrNoWrap};
}

BoxReading ReadBounds(const std::vector<std::string>& sides) {
  if (sides.size() == 4) return ReadBox({sides[0], sides[1], sides[2], sides[3]});
  return {{},
          Objection{"", "{bounds} takes four numbers: west, south, east and north, as in {bounds} -90,-90,270,90."}};
}

class WrapTool final : public Tool {
 public:
  [[nodiscard]] const ToolSpec& Spec() const override { return kSpec; }

  [[nodiscard]] const CommandTexts& Command() const override {
    static constexpr CommandTexts kTexts{
        "clsWrapBoundary",
        "WrapBoundary",
        "&Wrap Boundary",
        "",
        "Wrap a feature class around a particular range of longitude and latitude values...",
        124,
        {Menu::Geodesic, 3, true}};
    return kTexts;
  }

  [[nodiscard]] std::optional<Arguments> Ask(const std::shared_ptr<IApplication>& application) const override {
    const std::shared_ptr<clsExtension> extension = ExtensionOf(application);
    (void)PlaceForDialog(*extension, application);
    {
      frmBoundaryWrap dialog;
      dialog.SetArcApplication(application);
      dialog.ShowModal();
    }
    if (!extension->ShouldContinue || !extension->frmBoundaryWrapReturn) return std::nullopt;
    const WrapArguments chosen(extension->frmBoundaryWrapReturn);
    Arguments arguments;
    arguments.Set("source", chosen.Layer());
    if (chosen.Option() == kCustomOrNoWrap) {
      const WrapBox box = chosen.Box();
      arguments.Set("bounds", std::vector{ExactNumberText(box.west), ExactNumberText(box.south),
                                          ExactNumberText(box.east), ExactNumberText(box.north)});
    } else {
      arguments.Set("range", WordOf(chosen.Option(), ""));
    }
    const StepChoice steps = chosen.Steps();
    arguments.Set("short-steps", steps.steps == LongSteps::ShortWay);
    arguments.Set("pole", std::string(RowOfPole(steps.pole).word));
    arguments.Set("shift", chosen.Shift());
    arguments.Set("output", MyGeneralOperations::ShownArgument(chosen.Output().Place()));
    return arguments;
  }

  [[nodiscard]] std::optional<Objection> Validate(const Arguments& arguments,
                                                  const std::shared_ptr<IApplication>& application) const override {
    const bool is_given = arguments.Has("range") || arguments.Has("bounds");
    if (!is_given && !RememberedBox(*MemoryOf(application))) {
      return Objection{"", std::string(kSpec.without_one_of)};
    }
    if (const auto objection = ObjectionToLayer(kSpec, SourceOf(arguments))) return objection;
    if (const auto objection = ObjectionToPlace(arguments)) return objection;
    if (!arguments.Has("bounds")) return std::nullopt;
    return ReadBounds(arguments.Get<std::vector<std::string>>("bounds")).objection;
  }

  [[nodiscard]] std::string Run(RunContext& context, const Arguments& arguments,
                                const std::shared_ptr<IApplication>& application) const override {
    const std::shared_ptr<clsExtension> memory = MemoryOf(application);
    memory->frmBoundaryWrapReturn = RunListOf(arguments, *memory);
    return RunWithList(kWrapToBoundaries, context, memory->frmBoundaryWrapReturn, application);
  }

  [[nodiscard]] std::string Plan(RunContext& context, const Arguments& arguments,
                                 const std::shared_ptr<IApplication>& application) const override {
    return kWrapToBoundaries.plan(context, RunListOf(arguments, *MemoryOf(application)));
  }

 private:
  [[nodiscard]] static ChosenBox BoxOf(const Arguments& arguments, const clsExtension& extension,
                                       FromDocument& from_document) {
    const std::int32_t option = WrapOptionOf(arguments.Get<std::string>("range"));
    if (option == kWrap180) return {kBox180, option};
    if (option == kWrap360) return {kBox360, option};
    if (arguments.Has("bounds")) return {ReadBounds(arguments.Get<std::vector<std::string>>("bounds")).box, option};
    from_document.emplace_back("Boundary Box");
    return RememberedBox(extension).value_or(ChosenBox{});
  }

  // The list that the run takes; the extension remembers what is in it.
  [[nodiscard]] static std::shared_ptr<VarArray> RunListOf(const Arguments& arguments, clsExtension& extension) {
    FromDocument from_document;
    const auto [box, option] = BoxOf(arguments, extension, from_document);
    const double shift = ShiftOf(arguments, extension, from_document);
    StepChoice steps;
    if (arguments.Get<bool>("short-steps")) {
      steps = {LongSteps::ShortWay, RowOfPole(std::string_view(arguments.Get<std::string>("pole"))).pole};
    }
    extension.CustomBoundaryWest = box.west;
    extension.CustomBoundaryNorth = box.north;
    extension.CustomBoundaryEast = box.east;
    extension.CustomBoundarySouth = box.south;
    extension.LongitudeShift = shift;
    extension.LongitudeWrapOption = option;
    const std::shared_ptr<VarArray> list =
        WrapArguments::Make(SourceOf(arguments), box, option, DescribeOutput(arguments, extension), shift, steps);
    WrapArguments(list).SetFromDocument(from_document);
    return list;
  }
};

}  // namespace

namespace tools {

const Tool& Wrap() {
  static const WrapTool tool;
  return tool;
}

}  // namespace tools
}  // namespace tessarine
