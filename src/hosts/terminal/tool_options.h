// SPDX-License-Identifier: GPL-2.0-or-later
// The options of a tool's command, made from its ToolSpec, and the arguments that they stand for.
#pragma once

#include <CLI/App.hpp>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/terminal/common_options.h"
#include "hosts/terminal/layer_source.h"
#include "hosts/terminal/output_place.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/spheroid_options.h"
#include "platform/tool.h"

namespace tessarine {

/// What a command line gave, by the names of the parameters: texts, which are read when the command runs.
struct ToolOptions {
  CommonOptions common;
  SourceOptions source;
  std::vector<std::string> sources;
  OutputOptions output;
  bool only_selected = false;  ///< a copy holds the chosen records alone
  std::map<std::string, std::vector<std::string>, std::less<>> texts;
  std::map<std::string, bool, std::less<>> flags;
  std::map<std::string, SourceOptions, std::less<>> layers;  ///< beside the source
  SpheroidOptions spheroid;
};

/// The tool of this name; fault 5 for none.
[[nodiscard]] const ITool& ToolNamed(std::string_view name);
[[nodiscard]] std::vector<const ITool*> AllToolsOfSuite();

/// Adds the command of a tool with an option for each of its parameters, those of every run, and its example.
CLI::App& AddToolCommand(CLI::App& parent, const ToolSpec& spec, ToolOptions& options);

/// The values of all parameters but layers and outputs. Raises `Refusal` for numbers that are none, for a reference
/// that the tool's output can't bear, and for spheroids that there aren't.
[[nodiscard]] Arguments ReadArguments(const ToolSpec& spec, const ToolOptions& options);

/// "MEASURE" or "MEASURE=FIELD,FIELD".
[[nodiscard]] ToolMeasure ReadMeasure(const std::string& text);

/// What stands against a run, with the parameters as options.
[[nodiscard]] std::string ObjectionText(const Objection& objection);

}  // namespace tessarine
