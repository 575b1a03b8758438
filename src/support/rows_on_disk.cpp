// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/rows_on_disk.h"

#include "platform/paths.h"

namespace tessarine {

std::int64_t ReadableRows(const std::shared_ptr<IFeatureClass>& output) {
  std::int64_t rows = 0;
  if (!output) return rows;
  try {
    const std::shared_ptr<IFeatureCursor> cursor = output->Search(nullptr, Recycling::Yes);
    while (cursor->NextFeature()) ++rows;
  } catch (const std::exception&) {
    // What was read until here can be read.
  }
  return rows;
}

void CheckRowsWritten(RunJournal& journal, const IFeatureClass& output) {
  const std::int64_t held = output.FeatureCount(nullptr);
  if (held < journal.written) {
    journal.Fail("Only " + std::to_string(held) + " of the " + std::to_string(journal.written) +
                 " rows that were written are in '" + ToNativePath(output.FullName()) + "': it isn't whole.");
  }
  journal.written = held;
}

}  // namespace tessarine
