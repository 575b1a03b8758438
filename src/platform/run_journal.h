// What a run did: the data that its report, its JSON, its exit status and every message at its end are made from, so
// that they can't disagree.
#pragma once

#include <cstdint>
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
  std::string place;  ///< file and line of where it was raised, as "geodesy/vincenty.cpp:120"
  std::int64_t count = 0;
  std::vector<std::int64_t> first_oids;  ///< up to `kListedOids`; empty where no record was in hand
};

/// A field or class that bears another name in the output than it was asked for.
struct ChangedName {
  std::string asked;
  std::string written;
};

class RunJournal {
 public:
  static constexpr std::size_t kListedOids = 10;

  std::int64_t read = 0;
  std::int64_t written = 0;                   ///< rows that are in the output
  std::vector<std::int64_t> skipped_oids;     ///< records that a run passed over: they had nothing to work on
  std::vector<std::int64_t> unmeasured_oids;  ///< records that a fault kept from being worked on
  std::vector<ChangedValues> changed;         ///< in the order of their first record
  std::vector<ChangedName> changed_names;
  std::vector<RunWarning> warnings;
  std::vector<RunFault> faults;
  bool stopped = false;
  bool failed = false;
  bool cancelled = false;  ///< the user gave up at a question: nothing was done, and nothing failed
  std::string failure;     ///< why the run failed, a sentence; empty otherwise
  Date begin, end;
  std::string output_path;  ///< a backslash path of what is on the disk, empty when no output was made
  SpatialReferenceRef reference;

  /// Counts a value that the output holds otherwise. `ValueChange::None` does nothing.
  void NoteChange(std::string_view field, ValueChange kind, std::int64_t oid);
  void NoteName(std::string_view asked, std::string_view written);
  void NoteWarning(std::string_view text, std::int64_t oid);
  /// Counts a fault that met a record; the record counts as unmeasured.
  void NoteFault(const Fault& fault, std::int64_t oid);
  /// Ends the run as failed for this reason. The first reason stays.
  void Fail(std::string_view reason);

  [[nodiscard]] std::int64_t FaultCount() const;
};

}  // namespace tessarine
