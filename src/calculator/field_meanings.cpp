// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/field_meanings.h"

#include <algorithm>

#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr const char* kMapUnits = "map units";

// Names of units as references have them, and what many of them are called.
struct UnitRow {
  std::string_view name;  ///< in lower case
  std::string_view words;
};
constexpr UnitRow kUnits[] = {
    {"degree", "degrees"},         {"grad", "grads"},
    {"radian", "radians"},         {"metre", "metres"},
    {"meter", "metres"},           {"kilometre", "kilometres"},
    {"kilometer", "kilometres"},   {"foot", "feet"},
    {"foot_us", "US survey feet"}, {"us survey foot", "US survey feet"},
};

std::string ManyOf(const std::string& unit) {
  const auto* const row = std::ranges::find(kUnits, LowerCase(unit), &UnitRow::name);
  if (row != std::end(kUnits)) return std::string(row->words);
  return unit.empty() ? std::string(kMapUnits) : "units of " + unit;
}

std::string DataUnit(const SpatialReferenceRef& reference) {
  if (const auto projected = Cast<const ProjectedCoordinateSystem>(reference)) {
    return ManyOf(projected->CoordinateUnit().Name);
  }
  const auto geographic = Cast<const GeographicCoordinateSystem>(reference);
  return geographic ? ManyOf(geographic->CoordinateUnit().Name) : kMapUnits;
}

}  // namespace

std::string UnitWords(MeasuredIn unit, const SpatialReferenceRef& reference) {
  switch (unit) {
    case MeasuredIn::Nothing:
      return "";
    case MeasuredIn::Degrees:
      return "degrees";
    case MeasuredIn::DataUnit:
      return DataUnit(reference);
    case MeasuredIn::DataUnitSquare:
      return "square " + DataUnit(reference);
    case MeasuredIn::Metres:
      return "metres";
    case MeasuredIn::MetresSquare:
      return "square metres";
  }
  return "";
}

std::vector<FieldMeaning> MeaningsOf(const IFeatureLayer& layer, const MeasureChoice& choice) {
  const std::shared_ptr<IFeatureClass> features = Require(layer.FeatureClass(), "FeatureClass");
  const SpatialReferenceRef reference = features->SpatialReference();
  std::vector<FieldMeaning> meanings;
  auto field = choice.fields.begin();
  for (const OptionEntry& option : choice.options) {
    const MeasureRow* row = FindMeasure(features->ShapeType(), SpatialKindOf(reference), option.OptionId());
    for (std::size_t index = 0; row != nullptr && index < row->FieldCount() && field != choice.fields.end(); ++index) {
      meanings.push_back({field->name, std::string(row->report_labels[index]), UnitWords(row->unit.unit, reference),
                          row->unit.on_spheroid});
      ++field;
    }
  }
  return meanings;
}

}  // namespace tessarine
