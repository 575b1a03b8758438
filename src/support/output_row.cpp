// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/output_row.h"

namespace tessarine::MyGeneralOperations {

void OutputRow::Show(const OutputChoice& choice) {
  // The text's own change event reads the path as typed; what is known of the place comes after it.
  const OutputChoice known = choice;
  box_.SetText(known.FullPath());
  choice_ = known;
}

bool OutputRow::Browse(const char* title) {
  OutputChoice choice = choice_;
  const bool changed =
      title == nullptr ? BrowseForOutput(box_.Text(), choice) : BrowseForOutput(box_.Text(), choice, title);
  if (!changed) return false;
  Show(choice);
  return true;
}

bool OutputRow::PlaceExists() {
  if (OutputWorkspaceExists(box_.Text(), choice_)) return true;
  box_.SetFocus();
  return false;
}

}  // namespace tessarine::MyGeneralOperations
