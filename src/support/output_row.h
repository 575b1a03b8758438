// SPDX-License-Identifier: GPL-2.0-or-later
// The row of a dialog in which its output is named.
#pragma once

#include <string>

#include "platform/form.h"
#include "support/output_chooser.h"

namespace tessarine::MyGeneralOperations {

/// A box for the path, and what is known of the place that it names. The dialog calls `FollowText` when the box
/// changes.
class OutputRow {
 public:
  /// Takes over a path that was typed, as `FollowTypedPath` does.
  using Reader = void (*)(const std::string& text, OutputPlace& place);

  OutputRow(TextBox& box, Reader reader) : box_(box), reader_(reader) {}
  OutputRow(const OutputRow&) = delete;
  OutputRow& operator=(const OutputRow&) = delete;

  [[nodiscard]] const OutputPlace& Place() const { return place_; }
  /// The path that a run gets.
  [[nodiscard]] std::string Path() const { return ChosenPath(box_.Text(), place_); }

  void Show(OutputPlace place);
  void FollowText() { reader_(box_.Text(), place_); }
  /// Shows the browse dialog, under a title of its own where one is given. True when the place changed.
  bool Browse(const char* title = nullptr);
  /// True where the output can be made. Else the user is told why not, and is in the box again.
  [[nodiscard]] bool PlaceExists();

 private:
  TextBox& box_;
  Reader reader_;
  OutputPlace place_;
};

}  // namespace tessarine::MyGeneralOperations
