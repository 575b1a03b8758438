// SPDX-License-Identifier: GPL-2.0-or-later
// Fault reports: every trapped fault of the suite comes here.
#pragma once

#include <cstdint>
#include <string>

#include "platform/trap.h"

namespace tessarine::ErrorHandling {

/// How a fault is shown: as a message, as a question whose Yes raises it again, or in the host's dialog of errors.
enum ReportForm : std::int32_t {
  kMessageBoxReport = 1,
  kDialogReport = 2,
  kChoiceReport = 3,
  kErrorDialogReport = 4,  ///< the form that every procedure here asks for
};

/// "Line : " and the number, or "" for 0.
[[nodiscard]] std::string GetErrorLineNumberString(std::int32_t line_number);

/// Takes a fault on its way out of a procedure.
///
/// A top procedure ends the fault: the call stack and the description are shown in the given form and the call
/// returns. Any other procedure adds its line on top of the description and the fault is raised again, so the lines
/// of the stack end with the deepest one. `procedure_name` is the whole line: the name with its blank, the source, a
/// blank and the line text.
void HandleError(bool top_procedure, const std::string& procedure_name, std::int32_t number, const std::string& source,
                 const std::string& description, std::int32_t version, std::int32_t parent_window);

/// Makes the traps of this process report here.
void Install();

}  // namespace tessarine::ErrorHandling
