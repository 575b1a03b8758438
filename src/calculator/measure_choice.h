// SPDX-License-Identifier: GPL-2.0-or-later
// Which measures of a layer somebody means, into which fields they go, and what must be asked before.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "calculator/field_name_rules.h"
#include "calculator/geometry_options.h"
#include "calculator/measure_catalogue.h"
#include "platform/map.h"
#include "platform/measure_catalog.h"
#include "platform/tool.h"

namespace tessarine {

/// The fields of a layer that a measure may be written to, as far as the layer shows them.
[[nodiscard]] std::vector<std::string> NumericFieldNames(const IFeatureLayer& layer);
/// The index of the numeric field that has the name, of the last of several; 0 where a new field is proposed. A field
/// of that name that is the first of all counts as none, so dialogs list its name twice and call it new.
[[nodiscard]] std::size_t ProposedPosition(std::string_view default_name,
                                           const std::vector<std::string>& numeric_names);
/// The name of the new field that is proposed: the default one, or one with a number after it where a field bears that
/// which can't be written to and isn't among the numeric ones, as one that the layer shows from another table.
[[nodiscard]] std::string NewFieldName(std::string_view default_name, const IFeatureClass& features,
                                       const std::vector<std::string>& numeric_names);
/// The field that is proposed where a measure would go: the one at that index, in its own case, or else a new one.
[[nodiscard]] std::string ProposedField(std::string_view default_name, const IFeatureClass& features,
                                        const std::vector<std::string>& numeric_names);
/// The field that is meant by a name: the numeric field of that name, in its own case, or else a new one.
[[nodiscard]] std::string MeantField(const std::string& name, const std::vector<std::string>& numeric_names);
[[nodiscard]] bool IsTaken(const std::string& name, const std::vector<std::string>& numeric_names);

/// A question that a run asks before it begins: names that may not be valid, and data that would be overwritten.
struct NameQuestion {
  RunQuestion question;
  std::string title, text;
};
[[nodiscard]] std::optional<NameQuestion> DoubtfulNames(const IFeatureLayer& layer,
                                                        const std::vector<NamedField>& fields);
[[nodiscard]] std::optional<NameQuestion> TakenNames(const std::vector<NamedField>& fields,
                                                     const std::vector<std::string>& numeric_names);

/// Why another spheroid or kind of latitude means nothing for the layer's measures; empty where it does.
[[nodiscard]] std::string WhyNoSpheroid(const IFeatureClass& features);
/// "Polygon Feature Class:  Geographic Coordinate System".
[[nodiscard]] std::string KindOfClassLine(esriGeometryType shape, SpatialKind kind);
/// "Spheroid: WGS 1984,  Maj.Rad. = ...", or that it is unknown.
[[nodiscard]] std::string SpheroidLine(const std::string& name, double semi_major, double semi_minor);
inline constexpr const char* kUnknownSpheroid = "Spheroid Unknown";

/// What the calculator offers for a layer.
[[nodiscard]] MeasureOffer OfferOf(const IFeatureLayer& layer);

/// Measures with their fields, or what is wrong with the wish for them.
struct MeasureChoice {
  std::vector<OptionEntry> options;  ///< by their ids
  std::vector<NamedField> fields;    ///< in the same order
  std::optional<Objection> objection = std::nullopt;
};
/// The measures of these names, or all. A name is a caption, a label of the report or an option id, in any case. What
/// is wrong is told of the parameter "measure".
[[nodiscard]] MeasureChoice MeasuresCalled(const IFeatureLayer& layer, const std::vector<ToolMeasure>& wishes,
                                           bool all);

}  // namespace tessarine
