// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/output_checks.h"

#include <unistd.h>

#include <filesystem>

#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

// What has to be there already: a new geodatabase is made in its folder.
fs::path ExistingPart(const OutputPlace& place) {
  const fs::path container = place.container;
  return place.InContainer() && !fs::exists(container) ? container.parent_path() : container;
}

void RefuseDocument(const OutputPlace& place, const std::string& document) {
  if (document.empty() || place.IsFolder() || !place.Overlaps({{document}, {}})) return;
  throw Refusal("'" + place.NativePath() + "' would replace this run's map document '" + document +
                "': name another output.");
}

}  // namespace

void RefuseUnusablePlace(const OutputPlace& place, const CommonOptions& options) {
  if (const auto problem = NameProblem(place)) throw Refusal(*problem);
  RefuseDocument(place, options.document);
  if (place.format != nullptr && place.format->server) return RefuseBrokenContainer(place);
  const fs::path part = ExistingPart(place);
  const std::string output = "The output '" + place.NativePath() + "' can't be made: ";
  const bool is_file = place.InContainer() && !place.format->folder && fs::is_regular_file(part);
  if (!is_file && !fs::is_directory(part)) throw Refusal(output + "there is no folder '" + part.string() + "'.");
  if (access(part.c_str(), W_OK) != 0) {
    throw Refusal(output + "'" + part.string() + "' can't be written to; check its permissions.");
  }
  const fs::path file = place.InContainer() ? fs::path(place.container) : fs::path(place.NativePath());
  std::error_code error;
  // Of the others their own tools tell what is in the way.
  if (!place.IsFolder() && !place.format->HasOwnWorkspace() && fs::is_directory(file, error)) {
    throw Refusal("'" + file.string() + "' is a folder and isn't replaced by a file: name another output.");
  }
  RefuseBrokenContainer(place);
  RefuseReportOver(options.report_file, {place.InContainer() ? place.container : place.NativePath()}, kIsOutput);
}

}  // namespace tessarine
