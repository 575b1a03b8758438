// SPDX-License-Identifier: GPL-2.0-or-later
// The functions that the suite adds to the map program's expressions: what they take, what they give, what their help
// says. A new one is a row of the table and a small function beside it.
#pragma once

#include <QVariant>
#include <span>

#include "hosts/qgis/expressions/function_call.h"

namespace tessarine::qgis {

struct FunctionArgument {
  const char* name;
  bool optional;
  const char* text;  ///< HTML, as all texts here
};

/// A call with its result, as the help shows it. Results are true on every machine.
struct FunctionExample {
  const char* call;
  const char* result;
};

struct FunctionRow {
  const char* name;
  const char* text;  ///< what it returns
  std::span<const FunctionArgument> arguments;
  std::span<const FunctionExample> examples;
  const char* notes;
  QVariant (*compute)(FunctionCall& call);  ///< raises `ArgumentError` and faults
};

[[nodiscard]] std::span<const FunctionRow> ExpressionFunctions();

/// The help of a function in the manner of the program's own.
[[nodiscard]] QString HelpOf(const FunctionRow& row);

}  // namespace tessarine::qgis
