// SPDX-License-Identifier: GPL-2.0-or-later
// What a conversion run is, apart from its step for each feature: one row for each. The rows stand with their tools.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "platform/geometry_types.h"
#include "platform/spatial_reference.h"

namespace tessarine {

class ConversionStep;
struct StepContext;

namespace modCreateVertices {

/// The words of a run, in the order in which a person meets them.
struct RunWords {
  std::string_view status_lead_in;  ///< the layer's name follows
  std::string_view action_text;
  std::string_view repeated_action;  ///< the action text inside the loop
  std::string_view name_prompt;
  std::string_view skipped_heading;
  std::string_view report_title;
  std::string_view all_label, selected_label;
  std::string_view count_noun;
};

/// What a run makes of an input of one shape type.
struct ShapeRule {
  esriGeometryType input;  ///< `esriGeometryNull` stands for every type
  esriGeometryType output;
  /// Base names of the double fields that the run writes after `Uniq_ID`.
  std::span<const std::string_view> measure_fields;
};

/// How a run goes through its features.
enum class RunKind {
  Planar,      ///< each feature by itself, in the input's reference
  Geographic,  ///< the same, but the output is in degrees of longitude and latitude
  Joining,     ///< one output feature for all, with the attributes of the first; never a progress dialog
};

struct ConversionRun {
  std::int32_t conversion_option;
  std::string_view worker;
  RunKind kind;
  std::span<const ShapeRule> rules;
  /// The progress dialog is shown when the count of records exceeds this.
  std::int32_t progress_threshold;
  bool reports_skipped;  ///< the report lists features without a shape
  bool flushes_each_feature;
  RunWords words;
  std::unique_ptr<ConversionStep> (*make_step)(const StepContext& context);
};

/// The run of an option, null when there is none.
[[nodiscard]] const ConversionRun* FindRun(std::int32_t conversion_option);
/// What the run makes of an input of this type. A type without a rule gives no measure, and no output type unless the
/// run joins, which keeps the type of its input.
[[nodiscard]] ShapeRule RuleFor(const ConversionRun& run, esriGeometryType input);
/// Why the run can do nothing with an input of this type, a sentence; empty where it can.
[[nodiscard]] std::string_view WhyNever(const ConversionRun& run, esriGeometryType input);
/// The reference that the output of the run takes for an input in this one.
[[nodiscard]] SpatialReferenceRef OutputReference(const ConversionRun& run, const SpatialReferenceRef& input);

}  // namespace modCreateVertices
}  // namespace tessarine
