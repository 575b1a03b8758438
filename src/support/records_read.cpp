// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/records_read.h"

#include "platform/fault.h"

namespace tessarine {

void NoteLeftOut(const IFeatureClass& features, RunJournal& journal) {
  for (const LeftOutRecords& records : features.LeftOut()) {
    const std::string text =
        records.kind.empty()
            ? "A record without a shape belongs to no kind of a layer that mixes them: it was skipped."
            : "A shape of the kind " + records.kind + " is no point, line or polygon: its record was skipped.";
    for (const std::int64_t oid : records.oids) {
      journal.left_out_oids.push_back(oid);
      journal.NoteWarning(text, oid);
    }
  }
}

void RequireRecords(const RunJournal& journal, std::int64_t announced, std::string_view layer) {
  if (announced == 0 || journal.read > 0) return;
  Raise(kEngine, "None of the " + std::to_string(announced) + " records of '" + std::string(layer) +
                     "' can be read: its data are damaged or no longer there.");
}

}  // namespace tessarine
