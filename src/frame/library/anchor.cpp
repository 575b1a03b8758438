// SPDX-License-Identifier: GPL-2.0-or-later
// The shared library takes all its code from the archive; a library needs at least one source of its own.
namespace tessarine {}
