// SPDX-License-Identifier: GPL-2.0-or-later
// Places that the browse dialog offers at its side: the project's folder, the user's, and those of the last answers.
#pragma once

#include <string>
#include <vector>

namespace tessarine {

struct SidePlace {
  std::string caption, path;  ///< the path is native
};

/// The places that are there, each once: the project's folder where there is one, the user's, then the recent ones.
[[nodiscard]] std::vector<SidePlace> SidePlaces(const std::string& project_folder);

/// Puts a place in front of the recent ones. They are kept among the settings that the program keeps for the user.
void NoteRecentPlace(const std::string& native_path);

}  // namespace tessarine
