// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/common/planetary_parts.h"

#include "planetary/LongitudeForm.h"
#include "planetary/planetary_rules.h"
#include "support/layer_listing.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

// The progress dialog is shown for classes of more features than this.
constexpr std::int32_t kLargeRun = 500;

}  // namespace

ToolParameter ShiftParameter() {
  return {.name = "shift",
          .kind = ParameterKind::Number,
          .text = "Add this to every longitude first",
          .unit = "degrees",
          .otherwise = "0",
          .remembered = true};
}

std::optional<Objection> ObjectionToLayer(const ToolSpec& spec, const LayerRef& layer) {
  const SpatialReferenceRef reference = Require(layer->FeatureClass(), "FeatureClass")->SpatialReference();
  if (!reference || Is<const UnknownCoordinateSystem>(reference)) {
    return Objection{"", "The layer '" + layer->Name() + "' has no spatial reference: '" + std::string(spec.name) +
                             "' takes " + std::string(spec.takes) +
                             ". Declare the reference of the data first, as with a .prj file."};
  }
  if (IsGeographic(*layer)) return ObjectionToKind(spec, layer);
  return IsOfType(layer, kSpecialLayers) ? std::nullopt : std::optional(WrongKind(spec, layer));
}

std::optional<Objection> ObjectionToPlace(const Arguments& arguments) {
  const OutputOfRun output = OutputOf(arguments, kPlanetaryOutput);
  return ObjectionTo(output.path, output.place);
}

double ShiftOf(const Arguments& arguments, const clsExtension& extension, FromDocument& from_document) {
  if (const auto* shift = arguments.Find<double>("shift")) return *shift;
  const std::string remembered = BoxNumber(extension.LongitudeShift);
  if (remembered == BoxNumber(0.0)) return 0.0;
  from_document.push_back("Longitudinal Shift:  " + remembered + " decimal degrees");
  return extension.LongitudeShift;
}

std::int32_t WrapOptionOf(const std::string& word) {
  return word == "180" ? kWrap180 : word == "360" ? kWrap360 : kCustomOrNoWrap;
}

std::string WordOf(std::int32_t wrap_option, const char* otherwise) {
  return wrap_option == kWrap180 ? "180" : wrap_option == kWrap360 ? "360" : otherwise;
}

OutputPlace PlaceForDialog(clsExtension& extension, const std::shared_ptr<IApplication>& application) {
  const OutputPlace place = RememberedPlace(extension, application);
  extension.IsFeatureDataset = !place.dataset.empty();
  extension.FeatDatasetName = place.dataset;
  extension.DirectoryType = DirectoryTypeText(place.Kind());
  return place;
}

std::shared_ptr<VarArray> DescribeOutput(const Arguments& arguments, clsExtension& extension) {
  const OutputOfRun output = OutputOf(arguments, kPlanetaryOutput);
  RememberOutput(output.place, extension);
  return OutputDescription::Make(*SourceOf(arguments), output.place);
}

std::string RunWithList(const PlanetaryWork& work, RunContext& context, const std::shared_ptr<VarArray>& list,
                        const std::shared_ptr<IApplication>& application) {
  const LayerRef layer = Require(list->Element(0).AsObject<IFeatureLayer>(), "layer");
  const bool large = Require(layer->FeatureClass(), "FeatureClass")->FeatureCount(nullptr) > kLargeRun;
  const std::string report = work.run(context, application, DocumentOf(application), list, large);
  ReleaseLayer(*list);
  return report;
}

}  // namespace tessarine
