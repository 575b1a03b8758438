// SPDX-License-Identifier: GPL-2.0-or-later
// What kinds of storage demand of the names of fields. A name that breaks a rule is told to the user, who decides.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

/// A field name and the measure that asks for it.
struct NamedField {
  std::string caption;
  std::string name;
};

/// One line for each breach: too long, a first character that is no letter, a character that is neither a letter, a
/// digit nor "_". Empty when all names pass, as they all do for storage without rules; empty names are passed over.
[[nodiscard]] std::string FieldNameProblems(std::string_view data_source_type, const std::vector<NamedField>& fields);

/// The line's beginning, the same in all lists: the measure and the name.
[[nodiscard]] std::string FieldLine(const NamedField& field);

}  // namespace tessarine
