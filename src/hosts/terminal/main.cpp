// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/program.h"

int main(int argc, char** argv) { return tessarine::RunProgram(argc, argv); }
