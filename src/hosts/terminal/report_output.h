// The report of a run, as a person or a program reads it.
#pragma once

#include <string>

#include "hosts/terminal/common_options.h"
#include "hosts/terminal/terminal_host.h"

namespace tessarine {

/// Prints the report to standard output, with emphasis on a terminal.
void PrintReport(const std::string& rtf, bool on_terminal);

/// Checks that a report file's ending names a form and that its folder exists. Raises `Refusal`.
void CheckReportFile(const std::string& path);

/// Writes the report in the form that the file's ending names: .txt, .rtf, .html or .json.
void WriteReport(const std::string& rtf, const CommonOptions& options, TerminalHost& host);

}  // namespace tessarine
