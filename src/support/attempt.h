// SPDX-License-Identifier: GPL-2.0-or-later
// Calls that are expected to fail in normal runs.
#pragma once

#include <type_traits>
#include <utility>

#include "platform/fault.h"

namespace tessarine::MyGeneralOperations {

/// What the call returns, or the empty value of its type when it fails.
template <class Call>
auto Attempt(Call&& call) -> decltype(call()) {
  try {
    return std::forward<Call>(call)();
  } catch (const Fault&) {
    if constexpr (!std::is_void_v<decltype(call())>) return {};
  }
}

}  // namespace tessarine::MyGeneralOperations
