// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/attribute_copy.h"

#include "platform/fault.h"

namespace tessarine {

std::vector<std::int32_t> LastAttributes(const Fields& fields, std::size_t count) {
  std::vector<std::int32_t> positions;
  for (std::int32_t index = 0; index < fields.FieldCount(); ++index) {
    if (IsAttribute(*fields.Field(index))) positions.push_back(index);
  }
  if (positions.size() < count) {
    Raise(kInvalidCall,
          "The output has " + std::to_string(positions.size()) + " fields instead of " + std::to_string(count) + ".");
  }
  positions.erase(positions.begin(), positions.end() - static_cast<std::ptrdiff_t>(count));
  return positions;
}

AttributeCopy::AttributeCopy(const std::vector<std::int32_t>& from, const std::vector<std::int32_t>& to,
                             const Fields& output) {
  if (from.size() != to.size()) {
    Raise(kInvalidCall, std::to_string(from.size()) + " fields can't be copied to " + std::to_string(to.size()) + ".");
  }
  for (std::size_t index = 0; index < from.size(); ++index) {
    pairs_.push_back({from[index], to[index], output.Field(to[index])->Name});
  }
}

void AttributeCopy::CopyValue(const Pair& pair, const Variant& value, std::int64_t oid, IRowBuffer& to,
                              RunJournal& journal) {
  const ValueChange change = to.SetValue(pair.to, value);
  if (change != ValueChange::None) journal.NoteChange(pair.name, change, oid);
}

void AttributeCopy::Copy(const IRow& from, IRowBuffer& to, RunJournal& journal) const {
  for (const Pair& pair : pairs_) CopyValue(pair, from.Value(pair.from), from.OID(), to, journal);
}

KeptAttributes AttributeCopy::Keep(const IRow& from) const {
  KeptAttributes kept{from.OID(), {}};
  kept.values.reserve(pairs_.size());
  for (const Pair& pair : pairs_) kept.values.push_back(from.Value(pair.from));
  return kept;
}

void AttributeCopy::Copy(const KeptAttributes& from, IRowBuffer& to, RunJournal& journal) const {
  for (std::size_t index = 0; index < pairs_.size(); ++index) {
    CopyValue(pairs_[index], from.values[index], from.oid, to, journal);
  }
}

void NoteMeasureChange(RunJournal& journal, const Field& field, ValueChange change, std::int64_t oid) {
  const bool only_decimals = change == ValueChange::Rounded && field.Type == esriFieldTypeDouble;
  if (!only_decimals) journal.NoteChange(field.Name, change, oid);
}

}  // namespace tessarine
