// SPDX-License-Identifier: GPL-2.0-or-later
#include "planetary/planetary_lists.h"

#include "planetary/carried_fields.h"

namespace tessarine {
namespace {

constexpr const char* kBrowseTitle = "Enter the name of your new Feature Class or Shapefile:";

}  // namespace

std::vector<std::string> TextsAt(const VarArray& list, std::int32_t position) {
  if (list.Count() <= position) return {};
  const auto texts = list.Element(position).AsObject<StrArray>();
  return {texts->begin(), texts->end()};
}

void PutTexts(VarArray& list, std::int32_t position, const std::vector<std::string>& texts) {
  auto items = std::make_shared<StrArray>();
  for (const std::string& text : texts) items->Add(text);
  if (list.Count() == position) {
    list.Add(items);
  } else {
    list.SetElement(position, items);
  }
}

std::shared_ptr<VarArray> OutputDescription::Make(const IFeatureLayer& layer, const OutputPlace& place) {
  const std::shared_ptr<IFeatureClass> features = Require(layer.FeatureClass(), "FeatureClass");
  const CarriedFields carried = CarryFields(*features->Fields(), place.Kind());
  auto list = std::make_shared<VarArray>();
  list->Add(static_cast<std::int32_t>(features->ShapeType()));
  // References are shared and never changed; a list can only hold them without their const.
  list->Add(std::const_pointer_cast<SpatialReference>(features->SpatialReference()));
  list->Add(place.Directory());
  list->Add(place.name);
  list->Add(place.Kind());
  list->Add(carried.fields);
  list->Add(kBrowseTitle);
  list->Add(!place.dataset.empty());
  list->Add(place.dataset);
  list->Add(false);
  list->Add(false);
  list->Add(Variant());
  list->Add(0);
  list->Add(carried.names);
  return list;
}

OutputPlace OutputDescription::Place() const {
  return PlaceIn(At(kOutputKind).AsLong(), At(kDirectory).AsText(), At(kName).AsText(),
                 At(kIsFeatureDataset).AsBoolean() ? At(kFeatureDatasetName).AsText() : "");
}

std::shared_ptr<VarArray> WrapArguments::Make(const std::shared_ptr<IFeatureLayer>& layer, const WrapBox& box,
                                              std::int32_t option, std::shared_ptr<VarArray> output, double shift,
                                              const StepChoice& steps) {
  auto list = std::make_shared<VarArray>();
  list->Add(layer);
  for (const double side : {box.west, box.north, box.east, box.south}) list->Add(side);
  list->Add(option);
  list->Add(std::move(output));
  list->Add(shift);
  list->Add(static_cast<std::int32_t>(steps.steps));
  list->Add(static_cast<std::int32_t>(steps.pole));
  return list;
}

StepChoice WrapArguments::Steps() const {
  if (list_->Count() <= kPole) return {};
  return {static_cast<LongSteps>(At(kSteps).AsLong()), static_cast<geodesy::EnclosedPole>(At(kPole).AsLong())};
}

std::shared_ptr<VarArray> GeoCentricArguments::Make(const std::shared_ptr<IFeatureLayer>& layer,
                                                    const std::string& spheroid_name, double semi_major_axis,
                                                    double semi_minor_axis, double shift, std::int32_t wrap_option,
                                                    std::shared_ptr<VarArray> output) {
  auto list = std::make_shared<VarArray>();
  list->Add(layer);
  list->Add(spheroid_name);
  for (const double value : {semi_major_axis, semi_minor_axis, shift}) list->Add(value);
  list->Add(wrap_option);
  list->Add(std::move(output));
  return list;
}

void ReleaseLayer(VarArray& arguments) {
  const auto layer = arguments.Element(0).AsObject<IFeatureLayer>();
  if (layer) arguments.SetElement(0, layer->Name());
}

std::string ReleasedLayerName(const std::shared_ptr<VarArray>& arguments) {
  if (!arguments || arguments->Element(0).kind() != Variant::Kind::String) return "";
  return arguments->Element(0).Text();
}

std::shared_ptr<VarArray> GeoCentricInput::Make(const std::shared_ptr<IApplication>& application,
                                                const std::shared_ptr<clsExtension>& extension,
                                                const std::string& directory, std::int32_t output_kind,
                                                const std::string& caption, const std::string& instruction) {
  auto list = std::make_shared<VarArray>();
  list->Add(application);
  list->Add(extension);
  list->Add(directory);
  list->Add(output_kind);
  list->Add(caption);
  list->Add(instruction);
  return list;
}

}  // namespace tessarine
