// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/edit_findings.h"

#include <algorithm>

#include "engine/engine_fault.h"

namespace tessarine::engine {

void RequireNoNewFindings(const std::string& path, std::vector<std::string> in_copy,
                          const std::function<std::vector<std::string>()>& look_at_data) {
  constexpr std::size_t kFindingsTold = 3;
  if (!in_copy.empty() && look_at_data) {
    const std::vector<std::string> before = look_at_data();
    std::erase_if(in_copy, [&](const std::string& text) { return std::ranges::find(before, text) != before.end(); });
  }
  if (in_copy.empty()) return;
  std::string text;
  for (std::size_t index = 0; index < in_copy.size() && index < kFindingsTold; ++index) {
    text += (index == 0 ? "" : "; ") + in_copy[index];
  }
  RaiseEngineFault("The changes of '" + path + "' were given up, because they would have damaged it: " + text +
                   ". It is as it was before. Work on a copy of the class, or on another format.");
}

}  // namespace tessarine::engine
