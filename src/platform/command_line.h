// SPDX-License-Identifier: GPL-2.0-or-later
// The line that does at the terminal what somebody chose in a dialog or a toolbox, made from what its tool tells of
// itself.
//
//   CommandWords words;
//   words.layers["source"] = {.path = "/data/town.gpkg", .layer = "roads"};
//   words.output = "/data/corners.shp";
//   TerminalLineOf(tool.Spec(), arguments, words).text;
//   // tessarine vertices --fields=name --output=/data/corners.shp /data/town.gpkg --layer=roads
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/tool.h"

namespace tessarine {

/// A layer as commands name it.
struct LayerWords {
  std::string path;           ///< native
  std::string layer = {};     ///< where the data hold several; empty otherwise
  std::string where = {};     ///< the SQL condition of the records that are read; empty for all
  std::string why_none = {};  ///< why no command can name it, the end of a sentence; empty where one can
};

/// What only the host knows of a run.
struct CommandWords {
  std::map<std::string, LayerWords, std::less<>> layers;  ///< by the parameter
  std::string output;                                     ///< as --output takes it; empty for work in place
  bool replaces = false;                                  ///< something stood in its place
  std::vector<ToolSpheroid> spheroids;                    ///< those that have a name, the first of a name counts
};

/// A line for a POSIX shell, or the sentence that says why there is none.
struct TerminalLine {
  std::string text;
  std::string why_none;
};

/// Values that the tool would take by itself are left out: flags that aren't set, and the spheroid of the data.
[[nodiscard]] TerminalLine TerminalLineOf(const ToolSpec& spec, const Arguments& arguments, const CommandWords& words);

/// The text as one word of a POSIX shell: "it's" becomes 'it'\''s'; words without special characters stay.
[[nodiscard]] std::string ShellWord(std::string_view text);

/// The option for a part of what a layer is: "--where" of the source, "--label-where" of "labels".
[[nodiscard]] std::string LayerOption(std::string_view parameter, std::string_view part);

/// The parameter of the layer that a run works on.
inline constexpr std::string_view kSourceParameter = "source";

}  // namespace tessarine
