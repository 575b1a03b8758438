// SPDX-License-Identifier: GPL-2.0-or-later
// Standard input as a source, and standard output as an output: GeoJSON lines.
#pragma once

#include <string>

namespace tessarine {

inline constexpr const char* kPipe = "-";

/// Takes standard input to its end into a file, which goes away when the program ends, and returns its path. Refuses an
/// input without a feature.
[[nodiscard]] std::string SpoolStandardInput();

/// The file in which an output is made that goes to standard output, once it is whole. From then on reports go to
/// standard error.
[[nodiscard]] std::string FileOfPipedOutput();
[[nodiscard]] bool OutputIsPiped();
/// Copies the file to standard output. What that doesn't take is told when the program ends.
void SendPipedOutput();

/// The text with the file called what the user calls it.
[[nodiscard]] std::string WithoutPipedFile(const std::string& text);

}  // namespace tessarine
