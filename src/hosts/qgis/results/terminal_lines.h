// SPDX-License-Identifier: GPL-2.0-or-later
// The line at the terminal for a run in the program.
#pragma once

#include <string>

#include "platform/command_line.h"
#include "platform/tool.h"

namespace tessarine::qgis {

/// What a run writes: a new class or copy, or into its source.
enum class Writes { Output, Source };

/// Collects what the line needs while the run goes on: the layers before it, which it may change, and the output when
/// it has its name.
class LineOfRun {
 public:
  LineOfRun(const ITool& tool, Arguments arguments, Writes writes);

  /// For a run whose layers aren't in the arguments as layers of the program.
  void SetLayer(std::string_view parameter, LayerWords words);
  /// An output stands there and goes.
  void SetReplaces() { words_.replaces = true; }
  /// The native path of the output; for one in memory any other text, for which the line has a file of the tool's name.
  /// Empty where the run made none.
  void SetOutput(const std::string& output);

  [[nodiscard]] TerminalLine Line() const;

 private:
  const ITool& tool_;
  Arguments arguments_;
  Writes writes_;
  CommandWords words_;
};

}  // namespace tessarine::qgis
