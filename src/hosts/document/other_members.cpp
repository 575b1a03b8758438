// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/other_members.h"

#include <nlohmann/json.hpp>

namespace tessarine {

using nlohmann::json;

OtherMembers::OtherMembers(const json& object, std::span<const char* const> known) {
  if (!object.is_object()) return;
  json members = object;
  for (const char* name : known) members.erase(name);
  if (!members.empty()) members_ = std::make_shared<const json>(std::move(members));
}

void OtherMembers::AddTo(json& object) const {
  if (!members_) return;
  for (const auto& [name, value] : members_->items()) {
    if (!object.contains(name)) object[name] = value;
  }
}

}  // namespace tessarine
