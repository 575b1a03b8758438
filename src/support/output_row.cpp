// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/output_row.h"

#include <utility>

namespace tessarine::MyGeneralOperations {

void OutputRow::Show(OutputPlace place) {
  // The text's own change event reads the path as typed; what is known of the place comes after it.
  box_.SetText(place.Path());
  place_ = std::move(place);
}

bool OutputRow::Browse(const char* title) {
  OutputPlace place = place_;
  const bool changed =
      title == nullptr ? BrowseForOutput(box_.Text(), place) : BrowseForOutput(box_.Text(), place, title);
  if (!changed) return false;
  Show(std::move(place));
  return true;
}

bool OutputRow::PlaceExists() {
  if (OutputWorkspaceExists(box_.Text(), place_)) return true;
  box_.SetFocus();
  return false;
}

}  // namespace tessarine::MyGeneralOperations
