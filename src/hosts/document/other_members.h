// SPDX-License-Identifier: GPL-2.0-or-later
// Members of a document's file that the suite doesn't know: other programs' own, kept as they are.
#pragma once

#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <span>

namespace tessarine {

/// What an object of the file holds beside what the suite reads.
class OtherMembers {
 public:
  OtherMembers() = default;
  /// The members of an object but for the known ones.
  OtherMembers(const nlohmann::json& object, std::span<const char* const> known);

  /// Adds them to an object that is to be written. What stands there already stays.
  void AddTo(nlohmann::json& object) const;

 private:
  std::shared_ptr<const nlohmann::json> members_;  // null where there are none
};

}  // namespace tessarine
