// SPDX-License-Identifier: GPL-2.0-or-later
// One name for all or for the selected graphic elements of the focus map. Groups are named as wholes.
//
// The arguments are "name", which takes the names away where it is empty or not given, and the flags "all" and
// "selected". The dialog fills them, too.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/application.h"
#include "platform/tool.h"

namespace tessarine {

struct ElementCounts {
  std::int32_t all = 0, selected = 0;
};
/// Those of the focus map.
[[nodiscard]] ElementCounts CountElements(const IMxDocument& document);

/// That nothing is selected where only such elements are asked for, or the question whether names may go.
[[nodiscard]] std::optional<Objection> ObjectionToNaming(const Arguments& arguments, const IMxDocument& document);

/// Names them and returns how many. The document isn't marked as changed.
std::int32_t NameElements(const Arguments& arguments, const IMxDocument& document);

/// "4 of 12 graphic elements named 'road'."
[[nodiscard]] std::string NamingSentence(std::int32_t named, const IMxDocument& document, const std::string& name);

/// The same of what `NameElements` would come to. Nothing is named.
[[nodiscard]] std::string PlannedNaming(const Arguments& arguments, const IMxDocument& document);

}  // namespace tessarine
