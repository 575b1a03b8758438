// SPDX-License-Identifier: GPL-2.0-or-later
// The program as a whole: arguments in, exit status out.
#pragma once

namespace tessarine {

[[nodiscard]] int RunProgram(int argc, char** argv);

}  // namespace tessarine
