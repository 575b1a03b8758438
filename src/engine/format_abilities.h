// SPDX-License-Identifier: GPL-2.0-or-later
// What the GDAL of this machine does with a format.
#pragma once

#include <string>
#include <vector>

#include "outputs/formats.h"

namespace tessarine {

/// False where this machine's GDAL has no driver for it, or one that only reads.
[[nodiscard]] bool CanWrite(const Format& format);

/// The format of a name: one of the table, a driver of GDAL's, or an ending. Null where none can be written.
[[nodiscard]] const Format* FormatToWriteAs(const std::string& name);

/// What a column can hold besides texts, whole numbers of 32 bits and doubles.
struct ColumnAbilities {
  bool wide_numbers = false;  ///< whole numbers of 64 bits
  bool days = false, times_of_day = false, moments = false;
  bool bytes = false;
  bool lists = false;
};
/// As GDAL tells them; empty where it doesn't.
[[nodiscard]] ColumnAbilities AbilitiesOf(const Format& format);

/// Formats that aren't in the table and that GDAL writes vector files of, by their endings.
struct OtherWriter {
  std::string driver, endings, description;
};
[[nodiscard]] std::vector<OtherWriter> OtherWriters();

/// Opens the server of this connection for writing. The fault names what to look at.
void RequireWritableServer(const std::string& connection);

}  // namespace tessarine
