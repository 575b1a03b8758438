// SPDX-License-Identifier: GPL-2.0-or-later
// The texts of a calculation run, in the order in which the reader sees them.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "calculator/geometry_options.h"
#include "calculator/measure_catalogue.h"
#include "platform/run_journal.h"

namespace tessarine {

struct CalculationFacts {
  std::string layer_name, reference_name;
  bool all_records = true;
  std::int32_t record_count = 0;  ///< records to be done
  std::int32_t total_count = 0;   ///< records of the layer
  std::string_view noun;          ///< of the total
  std::string field_report, problem_report, time_spent;
  std::string longitude_line;  ///< as `LongitudeLine` has it
  std::string spheroid_name;
  double semi_major = 0.0, semi_minor = 0.0;
  bool geocentric = false;
  std::string_view outcome = "Successful";
  std::vector<std::string> rounded;   ///< of a planned run: which fields keep fewer digits, sentence by sentence
  std::vector<std::string> foretold;  ///< of a copy: what its format can't keep, sentence by sentence
};

/// The numbered lines "label: field name" of the chosen measures.
[[nodiscard]] std::string FieldReport(std::span<const OptionEntry> entries, esriGeometryType shape, SpatialKind kind);
/// True when one of the chosen measures takes its time.
[[nodiscard]] bool HasSlowMeasure(std::span<const OptionEntry> entries, esriGeometryType shape, SpatialKind kind);

[[nodiscard]] std::string CalculationReport(const CalculationFacts& facts);
/// What a run tells of the copy that it worked on: what was noted while its records were copied; empty without any.
[[nodiscard]] std::string CopySections(const RunJournal& notes, const std::string& layer_name);
/// That nothing of the copy is kept, since the run ended this way before it was whole.
[[nodiscard]] std::string NoCopyLine();
/// The same as a report, of a run that ended while the layer's records were copied.
[[nodiscard]] std::string NoCopyReport(const RunJournal& journal, const std::string& layer_name);
/// What stands in place of it before anything is written.
[[nodiscard]] std::string PlannedCalculation(const CalculationFacts& facts, const std::string& new_fields,
                                             const std::string& overwritten_fields);

[[nodiscard]] std::string CompressedGeodatabaseReport(const std::string& layer_name);
[[nodiscard]] std::string EditSessionReport();
[[nodiscard]] std::string NotEditableReport();
/// The data can't be changed now, for this reason: a sentence.
[[nodiscard]] std::string EditRefusedReport(const std::string& layer_name, const std::string& why);
[[nodiscard]] std::string FieldNotAddedReport(const std::string& field_name, const std::string& layer_name);

/// What a reader has to know of the coordinates among the results, a line that begins with blanks and stars: the prime
/// meridian that longitudes are relative to, where it isn't Greenwich's, and the angular unit, where it isn't the
/// degree; empty otherwise.
[[nodiscard]] std::string LongitudeLine(const SpatialReferenceRef& reference);

/// What a run tells of its empty features and of those that met a fault; empty when there were none.
[[nodiscard]] std::string ProblemReport(const RunJournal& journal, const std::string& layer_name);
/// The same of a run that was stopped at a record.
[[nodiscard]] std::string StoppedProblemReport(const RunJournal& journal, const std::string& layer_name,
                                               std::int32_t record);
/// The same of a run that a fault ended at a record.
[[nodiscard]] std::string FailedProblemReport(const RunJournal& journal, const std::string& layer_name,
                                              std::int32_t record, const Fault& fault);
/// The report of a run that ended before its first record.
[[nodiscard]] std::string FailedCalculation(const Fault& fault);

}  // namespace tessarine
