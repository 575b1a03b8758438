// The table of conversion runs: one row tells all that a run is, apart from its step for each feature.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "platform/geometry_types.h"

namespace tessarine {

class ConversionStep;

namespace modCreateVertices {

/// The words of a run, in the order in which a person meets them.
struct RunWords {
  std::string_view StatusLeadIn;     ///< the layer's name follows
  std::string_view ActionText;
  std::string_view RepeatedAction;   ///< the action text inside the loop
  std::string_view NamePrompt;
  std::string_view SkippedHeading;
  std::string_view ReportTitle;
  std::string_view AllLabel, SelectedLabel;
  std::string_view CountNoun;
};

/// What the output class takes its shape type from.
enum class OutputShape { Point, Polyline, Polygon, LikeInputPart, LikeInput };

struct ConversionRun {
  std::int32_t ConversionOption;
  std::string_view Worker;
  OutputShape Shape;
  /// The progress dialog is shown when the count of records exceeds this.
  std::int32_t ProgressThreshold;
  /// Base names of the double fields that the run writes behind `Uniq_ID`.
  std::span<const std::string_view> MeasureFields;
  bool ReportsSkipped;         ///< the report lists features without a shape
  bool FlushesEachFeature;
  RunWords Words;
  std::unique_ptr<ConversionStep> (*MakeStep)();
};

/// The run of an option, nothing when there is none.
[[nodiscard]] const ConversionRun* FindRun(std::int32_t conversion_option);
[[nodiscard]] std::span<const ConversionRun> AllRuns();
/// The shape type of the output for an input of the given type.
[[nodiscard]] esriGeometryType OutputGeometry(OutputShape shape, esriGeometryType input);

}  // namespace modCreateVertices
}  // namespace tessarine
