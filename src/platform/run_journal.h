// SPDX-License-Identifier: GPL-2.0-or-later
// What a run did: the data that its report, its JSON, its exit status and every message at its end are made from, so
// that they can't disagree.
//
// `RunScope` empties it and notes the times; between that and its end the run writes, on its own thread, and nobody
// else: what the threads of a worker pool find comes back with their records. Hosts read it once the run is over.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/date.h"
#include "platform/fault.h"
#include "platform/spatial_reference.h"
#include "platform/value_change.h"

namespace tessarine {

/// The values of one field that the output holds otherwise than the source, by what became of them.
struct ChangedValues {
  std::string field;  ///< the name in the output
  ValueChange kind = ValueChange::None;
  std::int64_t count = 0;
  std::int64_t first_oid = 0;  ///< the record of the source that had the first of them
};

/// Something that many records may have in common and that a user should know of.
struct RunWarning {
  std::string text;  ///< a whole sentence, the same for all records
  std::int64_t count = 0;
  std::vector<std::int64_t> first_oids;  ///< up to `kListedOids`
};

/// Faults of one kind: the same number, place and description.
struct RunFault {
  std::int32_t number = 0;
  std::string description;
  std::string place;                     ///< file and line of where it was raised, as "geodesy/vincenty.cpp:120"
  std::int64_t count = 0;                ///< of records
  std::vector<std::int64_t> first_oids;  ///< up to `kListedOids`; empty where no record was in hand
  std::int64_t last_oid = 0;
  Fault first{0, "", ""};  ///< as it was caught
};

/// The body that the run measured on.
struct RunSpheroid {
  std::string name;
  double semi_major = 0.0, semi_minor = 0.0;  ///< metres
};

/// How a run ended, the worst first.
enum class RunOutcome : std::uint8_t {
  Failed,
  Stopped,
  Cancelled,
  Incomplete,  ///< it went to its end, but a fault kept it from working on some records
  Done,
};

/// A field or class that bears another name in the output than it was asked for.
struct ChangedName {
  std::string asked;
  std::string written;
};

class RunJournal;
/// The body that the run worked on: its own, or else that of the reference; empty where neither is known.
[[nodiscard]] std::optional<RunSpheroid> SpheroidOf(const RunJournal& journal);

/// Where features were brought to when they were whole, and how.
struct BroughtTo {
  SpatialReferenceRef reference;
  std::string way;  ///< a sentence that names both references and the transformation
};

class RunJournal {
 public:
  static constexpr std::size_t kListedOids = 10;
  /// So many kinds of faults and of warnings are kept apart; whatever else comes is only counted.
  static constexpr std::size_t kListedKinds = 20;

  std::int64_t read = 0;
  std::int64_t written = 0;                   ///< rows that are in the output
  std::vector<std::int64_t> skipped_oids;     ///< records that a run passed over: they had nothing to work on
  std::vector<std::int64_t> left_out_oids;    ///< records whose shapes are of a kind that no class holds
  std::vector<std::int64_t> unmeasured_oids;  ///< records that a fault kept from being worked on
  std::vector<ChangedValues> changed;         ///< in the order of their first record
  std::vector<ChangedName> changed_names;
  std::vector<RunWarning> warnings;
  std::vector<RunFault> faults;
  std::int64_t other_warnings = 0, other_faults = 0;  ///< of kinds past `kListedKinds`
  bool stopped = false;
  bool failed = false;
  bool cancelled = false;                   ///< the user gave up at a question: nothing was done, and nothing failed
  std::string failure;                      ///< why the run failed, a sentence; empty otherwise
  Date begin, end;                          ///< wall time, for texts
  double elapsed_seconds = 0.0;             ///< by a clock that nobody sets
  std::string output_path;                  ///< a backslash path of what is on the disk, empty when no output was made
  SpatialReferenceRef reference;            ///< that the run worked in
  std::optional<BroughtTo> brought;         ///< empty where the output is in that reference
  std::optional<RunSpheroid> spheroid;      ///< empty where the run measured on no spheroid, or on the reference's
  std::vector<std::string> planned_fields;  ///< of a run that was only planned: those that it would make or fill
  std::vector<std::string> planned_questions;  ///< what it would ask, whole sentences

  /// Counts a value that the output holds otherwise. `ValueChange::None` does nothing.
  void NoteChange(std::string_view field, ValueChange kind, std::int64_t oid);
  void NoteName(std::string_view asked, std::string_view written);
  void NoteWarning(std::string_view text, std::int64_t oid);
  /// Counts a fault that met a record: once for each kind, and the record counts as unmeasured once.
  void NoteFault(const Fault& fault, std::int64_t oid);
  /// Takes over names, changes, warnings, faults and questions that were noted before the run began.
  void TakeNotes(const RunJournal& notes);
  /// Ends the run as failed for this reason. The first reason stays.
  void Fail(std::string_view reason);

  [[nodiscard]] std::int64_t FaultCount() const;
  [[nodiscard]] RunOutcome Outcome() const;
};

}  // namespace tessarine
