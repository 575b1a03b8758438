// SPDX-License-Identifier: GPL-2.0-or-later
// Where a result comes from: what its look, its form and its metadata are made from.
#pragma once

#include <string>
#include <vector>

#include "engine/stamp.h"
#include "platform/tool.h"

namespace tessarine::qgis {

struct FieldAlias {
  std::string field;
  std::string alias;  ///< "Spheroidal Length (metres, WGS 84)"
};

struct ResultOrigin {
  ToolResult kind = ToolResult::Features;
  std::string title;                 ///< of the tool
  std::string makes;                 ///< what comes out of it
  std::vector<std::string> carried;  ///< the fields that were chosen to be carried over
  std::vector<FieldAlias> aliases;
  std::vector<engine::StampLine> stamp;
};

/// Of a run that has ended. `line` is that of the terminal; empty where there is none.
[[nodiscard]] ResultOrigin OriginOf(const ToolSpec& spec, const Arguments& arguments,
                                    const std::vector<FieldMeaning>& meanings, const RunJournal& journal,
                                    const std::string& line);

}  // namespace tessarine::qgis
