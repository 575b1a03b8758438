// SPDX-License-Identifier: GPL-2.0-or-later
// Makes the suite's classes from their identifiers, through the component exports alone.
#pragma once

#include <memory>
#include <string>

#include "platform/component.h"
#include "platform/fault.h"
#include "platform/object.h"

namespace tessarine {

/// A new object of the class, checked to implement the interface. Fault 5 names the class when the suite has none of
/// this identifier.
[[nodiscard]] ObjectRef CreateComponent(const std::string& class_id, const char* interface_name);

template <class Interface>
[[nodiscard]] std::shared_ptr<Interface> CreateComponentAs(const std::string& class_id, const char* interface_name) {
  return Require(Cast<Interface>(CreateComponent(class_id, interface_name)), class_id);
}

}  // namespace tessarine
