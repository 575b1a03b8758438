// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/run_journal.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "platform/reference_spheroid.h"

namespace tessarine {
namespace {

struct ChangeRow {
  ValueChange change;
  std::string_view key;
  std::string_view words;
};

constexpr std::array kChanges = {
    ChangeRow{ValueChange::None, "none", "as it was"},
    ChangeRow{ValueChange::OutOfRange, "out_of_range", "too large for the field, written as null"},
    ChangeRow{ValueChange::NotFinite, "not_finite", "no finite number, written as null"},
    ChangeRow{ValueChange::TextCut, "text_cut", "cut to the width of the field"},
    ChangeRow{ValueChange::Rounded, "rounded", "rounded to the digits that the field keeps"},
    ChangeRow{ValueChange::TimeDropped, "time_dropped", "written without time of day"},
    ChangeRow{ValueChange::DayAdded, "day_added", "that had no day, stored with one"},
    ChangeRow{ValueChange::ZoneDropped, "zone_dropped", "written without time zone"},
    ChangeRow{ValueChange::ZoneToUtc, "zone_to_utc", "brought to UTC, without a time zone of their own"},
    ChangeRow{ValueChange::Unreadable, "unreadable", "that can't be converted, written as null"},
    ChangeRow{ValueChange::NullFilled, "null_filled", "that were null, written as 0 or as an empty text"},
    ChangeRow{ValueChange::MarkDropped, "mark_dropped", "without the mark of byte order in front"},
    ChangeRow{ValueChange::BadText, "bad_text", "that are no UTF-8, read as Latin-1"},
    ChangeRow{ValueChange::OtherText, "other_text", "that the format keeps with other characters"},
};

const ChangeRow& RowOf(ValueChange change) { return *std::ranges::find(kChanges, change, &ChangeRow::change); }

void ListOid(std::vector<std::int64_t>& oids, std::int64_t oid) {
  if (oids.size() < RunJournal::kListedOids) oids.push_back(oid);
}

}  // namespace

std::string_view ValueChangeWords(ValueChange change) { return RowOf(change).words; }
std::string_view ValueChangeKey(ValueChange change) { return RowOf(change).key; }

std::optional<RunSpheroid> SpheroidOf(const RunJournal& journal) {
  if (journal.spheroid) return journal.spheroid;
  const auto body = SpheroidBeneath(journal.reference);
  if (!body) return std::nullopt;
  return RunSpheroid{body->Name(), body->SemiMajorAxis(), body->SemiMinorAxis()};
}

void RunJournal::NoteChange(std::string_view field, ValueChange kind, std::int64_t oid) {
  if (kind == ValueChange::None) return;
  const auto known = std::ranges::find_if(
      changed, [&](const ChangedValues& values) { return values.kind == kind && values.field == field; });
  if (known != changed.end()) {
    ++known->count;
  } else {
    changed.push_back({std::string(field), kind, 1, oid});
  }
}

void RunJournal::NoteName(std::string_view asked, std::string_view name_written) {
  if (asked != name_written) changed_names.push_back({std::string(asked), std::string(name_written)});
}

void RunJournal::NoteWarning(std::string_view text, std::int64_t oid) {
  auto known = std::ranges::find(warnings, text, &RunWarning::text);
  if (known == warnings.end()) {
    if (warnings.size() >= kListedKinds) {
      ++other_warnings;
      return;
    }
    known = warnings.insert(known, {std::string(text), 0, {}});
  }
  ++known->count;
  ListOid(known->first_oids, oid);
}

void RunJournal::NoteFault(const Fault& fault, std::int64_t oid) {
  // A record that several faults met is one record.
  if (unmeasured_oids.empty() || unmeasured_oids.back() != oid) unmeasured_oids.push_back(oid);
  const std::string place = fault.Place();
  auto known = std::ranges::find_if(faults, [&](const RunFault& row) {
    return row.number == fault.Number() && row.place == place && row.description == fault.what();
  });
  if (known == faults.end()) {
    if (faults.size() >= kListedKinds) {
      ++other_faults;
      return;
    }
    known = faults.insert(known, {fault.Number(), fault.Description(), place, 0, {}, 0, fault});
  }
  if (known->count > 0 && known->last_oid == oid) return;
  known->last_oid = oid;
  ++known->count;
  ListOid(known->first_oids, oid);
}

void RunJournal::TakeNotes(const RunJournal& notes) {
  const auto append = [](auto& list, const auto& more) { list.insert(list.end(), more.begin(), more.end()); };
  append(changed_names, notes.changed_names);
  append(planned_questions, notes.planned_questions);
  append(unmeasured_oids, notes.unmeasured_oids);
  for (const RunWarning& warning : notes.warnings) {
    // One that counts no records says the same however often it comes.
    const bool is_known = std::ranges::any_of(warnings, [&](const RunWarning& own) {
      return own.count == 0 && warning.count == 0 && own.text == warning.text;
    });
    if (!is_known) warnings.push_back(warning);
  }
  append(faults, notes.faults);
  if (notes.brought) brought = notes.brought;
  other_warnings += notes.other_warnings;
  other_faults += notes.other_faults;
  for (const ChangedValues& values : notes.changed) {
    const auto known = std::ranges::find_if(
        changed, [&](const ChangedValues& own) { return own.kind == values.kind && own.field == values.field; });
    if (known == changed.end()) {
      changed.push_back(values);
    } else {
      known->count += values.count;
    }
  }
}

void RunJournal::Fail(std::string_view reason) {
  failed = true;
  if (failure.empty()) failure = reason;
}

std::int64_t RunJournal::FaultCount() const {
  return std::accumulate(faults.begin(), faults.end(), other_faults,
                         [](std::int64_t sum, const RunFault& fault) { return sum + fault.count; });
}

RunOutcome RunJournal::Outcome() const {
  if (failed) return RunOutcome::Failed;
  if (stopped) return RunOutcome::Stopped;
  if (cancelled) return RunOutcome::Cancelled;
  return unmeasured_oids.empty() ? RunOutcome::Done : RunOutcome::Incomplete;
}

}  // namespace tessarine
