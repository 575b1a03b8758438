// SPDX-License-Identifier: GPL-2.0-or-later
// Attribute values from the rows of one class to those of another.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/data.h"
#include "platform/run_journal.h"

namespace tessarine {

/// The positions of the last attributes of a class, in order: where the fields lie that it was created with, whatever
/// names its format gave them. Fault 5 when it has fewer.
[[nodiscard]] std::vector<std::int32_t> LastAttributes(const Fields& fields, std::size_t count);

/// Attributes without their row.
struct KeptAttributes {
  std::int64_t oid = 0;
  std::vector<Variant> values;
};

/// Which attribute goes where.
class AttributeCopy {
 public:
  AttributeCopy() = default;
  /// Position by position. Names of the output are those that it shows.
  AttributeCopy(const std::vector<std::int32_t>& from, const std::vector<std::int32_t>& to, const Fields& output);

  /// Nulls stay null. Values that change on the way are counted.
  void Copy(const IRow& from, IRowBuffer& to, RunJournal& journal) const;

  /// The attributes that are copied, for a copy when the row is gone. Raises the fault of one that can't be read.
  [[nodiscard]] KeptAttributes Keep(const IRow& from) const;
  void Copy(const KeptAttributes& from, IRowBuffer& to, RunJournal& journal) const;

 private:
  struct Pair {
    std::int32_t from, to;
    std::string name;
  };
  static void CopyValue(const Pair& pair, const Variant& value, std::int64_t oid, IRowBuffer& to, RunJournal& journal);

  std::vector<Pair> pairs_;
};

/// Counts what became of a measure that a run wrote, but for decimals that its own column has no room for: that is what
/// the column's decimals are for.
void NoteMeasureChange(RunJournal& journal, const Field& field, ValueChange change, std::int64_t oid);

}  // namespace tessarine
