// SPDX-License-Identifier: GPL-2.0-or-later
// The report of a run, as a person or a program reads it.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/terminal/common_options.h"
#include "hosts/terminal/exit_status.h"
#include "hosts/terminal/terminal_host.h"

namespace tessarine {

/// Prints the report to standard output or standard error, with emphasis on a terminal.
void PrintReport(const std::string& rtf, std::FILE* stream);

/// Checks that a report file's ending names a form and that its folder exists. Raises `Refusal`.
void CheckReportFile(const std::string& path);
/// The endings of report files, as ".txt, .rtf or .json".
[[nodiscard]] std::string ReportEndings();

inline constexpr std::string_view kIsOutput = "is this run's output";

/// Refuses a report file that is one of these files, or lies in one of these folders: `role` says what the run does
/// with them, as "is the map document". Empty paths are passed over.
void RefuseReportOver(const std::string& report_file, const std::vector<std::string>& files, std::string_view role);

/// Writes the report in the form that the file's ending names.
void WriteReport(const std::string& rtf, const CommonOptions& options, TerminalHost& host);

/// A report of a title and sentences alone, each a paragraph, as RTF.
[[nodiscard]] std::string PlainReport(const std::string& title, const std::vector<std::string>& sentences);

/// The same for a run that never began, or ended before it had a report.
void WriteReportOfNoRun(const std::string& why, ExitStatus status, const CommonOptions& options);

}  // namespace tessarine
