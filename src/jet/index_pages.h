// SPDX-License-Identifier: GPL-2.0-or-later
// The pages of an index: a tree whose leaves hold a key and the place of its row, page first, highest byte first.
//
// Leaves are pages 04 01, the pages above them 03 01. At 12, 16 and 20 the pages before and after of the same level
// and that of what was added at the end; at 24 the number of bytes that all entries share with the first and leave out;
// at 26 the height above the leaves; from 27 to 479 a bit for each byte after: set where an entry ends. Entries of the
// pages above are the last entry of a page below and its number.
//
// An index is always made anew from its rows: a whole one is written faster than it is changed entry by entry, and
// nothing can go wrong in the midst of it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "jet/index_key.h"
#include "jet/page_set.h"

namespace tessarine::jet {

/// Keys with the places of their rows, as they stand in the leaves.
using IndexEntries = std::vector<Key>;

/// What the leaves hold, in their order. An error for a tree that is damaged.
[[nodiscard]] IndexEntries ReadIndexEntries(PageFile& file, std::uint32_t root, std::uint32_t owner);
/// All pages of the tree.
[[nodiscard]] PageSet IndexPagesFrom(PageFile& file, std::uint32_t root, std::uint32_t owner);

struct BuiltIndex {
  std::uint32_t root = 0;
  PageSet pages;
};
/// Writes a tree of these entries, which are sorted.
[[nodiscard]] BuiltIndex BuildIndex(PageFile& file, FreePages& free_pages, const IndexEntries& entries,
                                    std::uint32_t owner);

/// Adds the place of its row to a key.
void AppendRowPlace(Key& key, RowId row);
/// The key without the place, and the place.
[[nodiscard]] inline std::string_view KeyOfEntry(std::string_view entry) { return entry.substr(0, entry.size() - 4); }
[[nodiscard]] RowId RowOfEntry(std::string_view entry);

}  // namespace tessarine::jet
