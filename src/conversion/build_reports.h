// SPDX-License-Identifier: GPL-2.0-or-later
// The report of the building of polygons, as RTF.
#pragma once

#include <cstdint>
#include <string>

#include "platform/run_journal.h"
#include "platform/spatial_reference.h"

namespace tessarine {

/// What the report tells of a run. Texts are plain; the report escapes them.
struct BuildFacts {
  std::string line_layer;
  bool all_lines = true;
  std::int32_t line_count = 0;
  double cluster_tolerance = 0.0;
  std::string unit;
  bool transfers_labels = false;
  std::string point_layer;
  bool all_points = true;
  bool first_point = false;
  std::string field_report;  ///< RTF already
  std::string output_path;   ///< a backslash path
  std::string reference_name;
  std::int32_t output_count = 0;
  std::string unlabelled;  ///< RTF already; empty when every polygon found its point
  std::string time_spent;  ///< RTF already
};

[[nodiscard]] std::string BuildReport(const BuildFacts& facts, const RunJournal& journal);
/// The report of a run that a fault ended.
[[nodiscard]] std::string BuildFailureReport(const Fault& fault, const RunJournal& journal,
                                             const std::string& line_layer);

/// The unit of a reference's coordinates as dialog and report name it.
[[nodiscard]] std::string UnitWord(const SpatialReferenceRef& reference);

}  // namespace tessarine
