// SPDX-License-Identifier: GPL-2.0-or-later
// What a checker finds in the copy that an edit is about to put in place of its data.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tessarine::engine {

/// Gives the edit up, by a fault, where its copy has findings that the data don't have. `look_at_data` returns those of
/// the data, and is called where there are any in the copy alone; null for data that weren't there before.
void RequireNoNewFindings(const std::string& path, std::vector<std::string> in_copy,
                          const std::function<std::vector<std::string>()>& look_at_data);

}  // namespace tessarine::engine
