// SPDX-License-Identifier: GPL-2.0-or-later
// Values that are too long for a row.
//
// A row keeps twelve bytes of each: its length with flags above the 30th bit, a pointer, four zeros. Flag 0x80000000:
// the value follows in the row itself. 0x40000000: it is the one row of a page of long values that the pointer tells.
// None: that row begins with the pointer to the next part and so on, until a pointer is 0.
#pragma once

#include "jet/row_store.h"
#include "jet/value.h"

namespace tessarine::jet {

[[nodiscard]] Bytes ReadLongValue(PageFile& file, const LongReference& reference);

enum class LongPlace {
  InRowIfShort,  ///< up to 64 bytes stay in the row
  Outside,
};
[[nodiscard]] LongReference WriteLongValue(RowStore& store, ByteSpan value, LongPlace place);
/// Frees what the value takes outside of its row.
void DeleteLongValue(RowStore& store, const LongReference& reference);
/// The pages that the value lies on, for the checker.
[[nodiscard]] std::vector<RowId> LongValueParts(PageFile& file, const LongReference& reference);

}  // namespace tessarine::jet
