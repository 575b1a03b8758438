// SPDX-License-Identifier: GPL-2.0-or-later
// What the planetary tools take and refuse, for dialogs and for arguments alike.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "geodesy/longitude_continuation.h"
#include "platform/map.h"
#include "platform/tool.h"
#include "shapes/wrap.h"

namespace tessarine {

/// True for a layer whose reference is one of degrees, or of another angular unit.
[[nodiscard]] bool IsGeographic(const IFeatureLayer& layer);

/// What rings round the globe may hold.
struct PoleRow {
  geodesy::EnclosedPole pole;
  std::string_view word;  ///< as a choice; empty for the one that is taken without any
  const char* line;       ///< in the dialog
  const char* report_text;
};
[[nodiscard]] std::span<const PoleRow> AllPoles();
/// The row of a pole, or that of the word; the first for any other.
[[nodiscard]] const PoleRow& RowOfPole(geodesy::EnclosedPole pole);
[[nodiscard]] const PoleRow& RowOfPole(std::string_view word);

/// The sides of a box as somebody wrote them.
struct BoxTexts {
  std::string west, south, east, north;
};
enum class BoxSide { West, South, East, North };
struct BoxReading {
  WrapBox box{};
  std::optional<Objection> objection = std::nullopt;
  BoxSide wrong = BoxSide::North;  ///< that the objection is about
};
/// The box, or what is wrong with it: a side that is no number, or sides in the wrong order.
[[nodiscard]] BoxReading ReadBox(const BoxTexts& texts);

/// Empty for axes that make a spheroid.
[[nodiscard]] std::optional<Objection> ObjectionToMajorAxis(double semi_major);
[[nodiscard]] std::optional<Objection> ObjectionToMinorAxis(double semi_minor);

/// The name of a spheroid whose axes were typed.
inline constexpr const char* kCustomSpheroid = "<-- Custom Spheroid -->";
/// The spheroid of a layer's reference; fault 91 where it has none.
[[nodiscard]] ToolSpheroid SpheroidOf(const IFeatureLayer& layer);

}  // namespace tessarine
