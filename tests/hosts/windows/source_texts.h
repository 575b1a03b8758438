// SPDX-License-Identifier: GPL-2.0-or-later
// The texts that sources put together, read from the sources themselves.
#pragma once

#include <QString>
#include <vector>

namespace tessarine::testing {

/// The texts of a source in the order in which they are made: a literal, or a sum of literals and values, which becomes
/// a text with places, as "There is no file '%1'.". Literals that follow each other are one; comments are none.
[[nodiscard]] std::vector<QString> TextsOf(const QString& source);

}  // namespace tessarine::testing
