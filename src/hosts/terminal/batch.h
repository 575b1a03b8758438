// SPDX-License-Identifier: GPL-2.0-or-later
// One command over several sources.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "hosts/terminal/common_options.h"
#include "hosts/terminal/exit_status.h"
#include "hosts/terminal/output_place.h"

namespace tessarine {

/// Runs a command for one source into one output.
using RunOnSource =
    std::function<ExitStatus(const std::string& source, const OutputOptions& output, const CommonOptions& common)>;

/// What a command does with a folder as the output of one source.
enum class OneIntoFolder {
  Itself,    ///< it has a name for the output
  BySource,  ///< the output is called like the source
};

/// Runs it for each source in turn. One source is run as it stands, but for the folder. Several print one line each and
/// a table at the end, go on after one that failed, and end with `Failed` if any did, or `Refused` if all were
/// refused; their output is a folder, or null for commands that work in place. There each bears the name of its
/// source, in the format that is asked for, or that of the source, or GeoPackage. Each
/// has a report of its own, with its name after that of the report file.
[[nodiscard]] ExitStatus RunOverSources(const std::vector<std::string>& sources, const OutputOptions& output,
                                        const CommonOptions& common, OneIntoFolder one, const RunOnSource& run);

}  // namespace tessarine
