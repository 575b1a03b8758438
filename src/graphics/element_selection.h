// SPDX-License-Identifier: GPL-2.0-or-later
// Selecting graphic elements of the active view by their type, by names, or by a pattern for names.
//
// The arguments are a flag for each type, by its word, "name" with the names and "pattern". The dialog fills them, too.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/application.h"
#include "platform/tool.h"

namespace tessarine {

struct ElementType {
  std::string_view word;     ///< in commands
  std::string_view caption;  ///< in the dialog
  std::string_view text;     ///< what a choice of it does
  bool (*fits)(const std::shared_ptr<IElement>& element);
};
/// The eleven types. Their order decides: an element belongs to the first that it fits.
[[nodiscard]] std::span<const ElementType> ElementTypes();

using Elements = std::vector<std::shared_ptr<IElement>>;

struct NamedElements {
  std::string name;  ///< in the spelling met first
  Elements elements;
};

/// The elements of a view by type and by name.
struct ElementCensus {
  std::vector<Elements> of_types;              ///< by the order of the types
  std::map<std::string, NamedElements> names;  ///< by the name without its case
};
[[nodiscard]] ElementCensus TakeCensus(const IMxDocument& document);

inline constexpr const char* kNothingToSelect = "Tell what to select: a type, as {circles}, a {name}, or a {pattern}.";

/// What stands against a selection: nothing asked for, a type or name that the view hasn't.
[[nodiscard]] std::optional<Objection> ObjectionToSelection(const Arguments& arguments, const IMxDocument& document);

/// Adds to the selection; what was selected before stays so. Where anything was chosen, the view is redrawn and the
/// document marked as changed.
void SelectElements(const Arguments& arguments, const std::shared_ptr<IMxDocument>& document);

/// "4 of 12 graphic elements selected.", of the active view.
[[nodiscard]] std::string SelectionSentence(const IMxDocument& document);

/// The same of what `SelectElements` would come to. Nothing is selected.
[[nodiscard]] std::string PlannedSelection(const Arguments& arguments, const IMxDocument& document);

}  // namespace tessarine
