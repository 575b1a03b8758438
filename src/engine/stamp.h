// SPDX-License-Identifier: GPL-2.0-or-later
// Where a layer is from: what its metadata tell of the run that made it.
#pragma once

#include <cpl_string.h>

#include <filesystem>
#include <string>
#include <vector>

#include "outputs/formats.h"
#include "platform/run_journal.h"

namespace tessarine::engine {

struct StampLine {
  std::string key;
  std::string value;
};

/// What a stamp tells of a run: the command where there is one, the version, the spheroid where it is known, and the
/// time, which is now.
[[nodiscard]] std::vector<StampLine> StampLines(const RunJournal& journal, const std::string& command_line,
                                                const std::string& version);

/// Adds what the run in hand wants to be told to the options of a new layer, for formats that take it there; nothing
/// where it wants nothing told.
void AddStamp(const Format& format, CPLStringList& options);

/// The same for a layer of a GeoPackage that stands already.
void StampGeoPackage(const std::filesystem::path& file, const std::string& layer);

}  // namespace tessarine::engine
