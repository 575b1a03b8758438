// SPDX-License-Identifier: GPL-2.0-or-later
// The reports of the planetary runs, as RTF.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fault.h"
#include "platform/geometry_types.h"

namespace tessarine {

/// A section of a report: its heading and its lines, all of them plain text.
struct ReportSection {
  std::string heading;
  std::vector<std::string> lines;
};

/// Where the features went, in plain text.
struct OutputFacts {
  std::string class_name;
  std::string workspace;  ///< a backslash path
  std::int32_t count = 0;
};

/// How much of a shape there was and is: area, length or number of places.
struct RewrittenMeasure {
  double before = 0.0, after = 0.0;
  double rounding = 0.0;  ///< the difference that says nothing
};

/// The account of a run: what went in and came out over all features, and where the two differ.
struct MeasureAccount {
  esriGeometryType type = esriGeometryNull;
  double before = 0.0, after = 0.0;
  std::int64_t differing = 0;
  std::vector<std::int64_t> first_oids;  ///< of those that differ

  /// True when the measures of the feature differ.
  bool Add(const RewrittenMeasure& measure, std::int64_t oid);
};

/// The features that were taken to hold a pole.
struct HeldPoles {
  std::vector<std::int64_t> north, south;
};

/// How the run went. Texts are plain, apart from those that are said to be RTF.
struct RewriteFacts {
  std::int32_t records_done = 0;
  bool stopped = false;
  std::string problems;    ///< RTF; empty when there was none
  std::string time_spent;  ///< RTF
  MeasureAccount measures;
  HeldPoles poles;
};

/// A line of the section of problems, as RTF.
[[nodiscard]] std::string ProblemLine(const std::string& text);

[[nodiscard]] std::string RewriteReport(std::string_view title, const std::vector<ReportSection>& sections,
                                        const OutputFacts& output, const RewriteFacts& facts);
/// The report of a run whose output could not be made. `conversion` is its name, as "Wrap to Boundary".
[[nodiscard]] std::string NoOutputReport(std::string_view conversion);
/// The report of a run that a fault ended.
[[nodiscard]] std::string FaultReport(std::string_view conversion, std::string_view worker, const RewriteFacts& facts,
                                      const Fault& fault);
/// The report of a run that is only planned.
[[nodiscard]] std::string PlanReport(std::string_view conversion, const std::vector<ReportSection>& sections);

}  // namespace tessarine
