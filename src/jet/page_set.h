// SPDX-License-Identifier: GPL-2.0-or-later
// Usage maps: sets of page numbers.
//
// A map is a row of a data page that belongs to no table (owner 0; page 1 bears its own number). Its first byte tells
// its form. 0: the number of the first page it tells of in four bytes, then one bit for each page, lowest bit first,
// usually 64 bytes for 512 pages. 1: up to 17 page numbers, each of a page 05 01 00 00 with 4092 bytes of bits after,
// or 0 where none of its 32736 pages is in the set. The database has one map of the pages that are free (row 0 of page
// 1); every table has one of the pages it owns and one of those with room for rows; so has every column of long values;
// every index has one of its pages.
#pragma once

#include <cstdint>
#include <vector>

#include "jet/bytes.h"
#include "jet/page_file.h"

namespace tessarine::jet {

class PageSet {
 public:
  [[nodiscard]] bool Contains(std::uint32_t page) const {
    return page / 64 < words_.size() && (words_[page / 64] >> (page % 64) & 1U) != 0;
  }
  void Insert(std::uint32_t page);
  void Erase(std::uint32_t page);
  /// The first page from this on that is in the set; `kNone` where there is none.
  [[nodiscard]] std::uint32_t FirstFrom(std::uint32_t page) const;
  /// `kNone` for an empty set.
  [[nodiscard]] std::uint32_t Last() const;
  [[nodiscard]] std::vector<std::uint32_t> Pages() const;
  friend bool operator==(const PageSet& one, const PageSet& other) { return one.Pages() == other.Pages(); }

  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

 private:
  std::vector<std::uint64_t> words_;
};

/// A row of a data page as its bytes; an error where there is none.
[[nodiscard]] Bytes ReadMapRow(PageFile& file, RowId place);

[[nodiscard]] PageSet ReadUsageMap(PageFile& file, RowId place);

/// Gives pages out and takes them back: the map of free pages, in memory until `Write`. What a page is found to be free
/// beyond the end of the file doesn't count.
class FreePages {
 public:
  explicit FreePages(PageFile& file) : file_(file) {}

  void Read();
  /// For a new file: page 1 is made by `Write`.
  [[nodiscard]] std::uint32_t Take();
  void GiveBack(std::uint32_t page) { free_.Insert(page); }
  void Write();

 private:
  void WriteLong();

  PageFile& file_;
  PageSet free_;
};

/// Writes a map over the one at this place, in the other form where it outgrows the one it has.
void WriteUsageMap(PageFile& file, RowId place, const PageSet& pages, FreePages& free_pages);

inline constexpr std::size_t kMapRowLength = 69;

}  // namespace tessarine::jet
