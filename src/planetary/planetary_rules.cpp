// SPDX-License-Identifier: GPL-2.0-or-later
#include "planetary/planetary_rules.h"

#include <algorithm>
#include <array>

#include "planetary/LongitudeForm.h"
#include "platform/reference_spheroid.h"

namespace tessarine {
namespace {

using geodesy::EnclosedPole;

constexpr std::array kPoles = {PoleRow{EnclosedPole::SmallerPart, "", "the smaller part", "Smaller Part"},
                               PoleRow{EnclosedPole::North, "north", "the north pole", "North Pole"},
                               PoleRow{EnclosedPole::South, "south", "the south pole", "South Pole"},
                               PoleRow{EnclosedPole::Both, "both", "both poles", "Both Poles"},
                               PoleRow{EnclosedPole::Neither, "neither", "neither pole", "Neither Pole"}};

constexpr const char* kInvalidSpheroid = "Invalid Spheroid Parameter:";

SpatialReferenceRef ReferenceOf(const IFeatureLayer& layer) {
  const std::shared_ptr<IFeatureClass> features = layer.FeatureClass();
  return features ? features->SpatialReference() : nullptr;
}

BoxReading Wrong(BoxSide side, const char* title, const char* text) {
  return {{}, Objection{"bounds", text, title}, side};
}

}  // namespace

bool IsGeographic(const IFeatureLayer& layer) { return Is<const GeographicCoordinateSystem>(ReferenceOf(layer)); }

std::span<const PoleRow> AllPoles() { return kPoles; }

const PoleRow& RowOfPole(EnclosedPole pole) {
  const auto* row = std::ranges::find(kPoles, pole, &PoleRow::pole);
  return row != kPoles.end() ? *row : kPoles.front();
}

const PoleRow& RowOfPole(std::string_view word) {
  const auto* row = std::ranges::find(kPoles, word, &PoleRow::word);
  return row != kPoles.end() ? *row : kPoles.front();
}

BoxReading ReadBox(const BoxTexts& texts) {
  struct Side {
    BoxSide side;
    const std::string& text;
    double WrapBox::*value;
    const char* refusal;
  };
  const Side sides[] = {{BoxSide::North, texts.north, &WrapBox::north, "Northern Boundary Value is invalid..."},
                        {BoxSide::East, texts.east, &WrapBox::east, "Eastern Boundary Value is invalid..."},
                        {BoxSide::South, texts.south, &WrapBox::south, "Southern Boundary Value is invalid..."},
                        {BoxSide::West, texts.west, &WrapBox::west, "Western Boundary Value is invalid..."}};
  BoxReading reading;
  for (const Side& side : sides) {
    const std::optional<double> value = NumberIn(side.text);
    if (!value) return Wrong(side.side, "Invalid Boundary Value:", side.refusal);
    reading.box.*side.value = *value;
  }
  constexpr const char* kInvalidValues = "Invalid Boundary Values:";
  if (reading.box.west >= reading.box.east) {
    return Wrong(BoxSide::East, kInvalidValues, "Western Boundary Value >= Eastern Boundary Value...");
  }
  if (reading.box.south >= reading.box.north) {
    return Wrong(BoxSide::North, kInvalidValues, "Southern Boundary Value >= Northern Boundary Value...");
  }
  return reading;
}

std::optional<Objection> ObjectionToMajorAxis(double semi_major) {
  if (semi_major > 0.0) return std::nullopt;
  return Objection{"spheroid", "Semi-Major (Equatorial) Radius value must be >= 0...", kInvalidSpheroid};
}

std::optional<Objection> ObjectionToMinorAxis(double semi_minor) {
  if (semi_minor > 0.0) return std::nullopt;
  return Objection{"spheroid", "Semi-Minor (Polar) Radius value must be >= 0...", kInvalidSpheroid};
}

ToolSpheroid SpheroidOf(const IFeatureLayer& layer) {
  const auto spheroid = Require(SpheroidBeneath(ReferenceOf(layer)), "Spheroid");
  return {spheroid->Name(), spheroid->SemiMajorAxis(), spheroid->SemiMinorAxis()};
}

}  // namespace tessarine
