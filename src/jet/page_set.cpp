// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/page_set.h"

#include <algorithm>
#include <bit>
#include <functional>

#include "jet/data_page.h"

namespace tessarine::jet {
namespace {

constexpr std::size_t kBitsAt = 5;  // in a map of the short form
constexpr std::uint32_t kPagesPerMapPage = 4092 * 8;
constexpr std::size_t kMapPages = 17;
constexpr std::uint32_t kMapPageMagic = 0x0105;
constexpr std::uint32_t kFreeMapPage = 1;  // owned by itself

void InsertBits(PageSet& pages, std::uint32_t first, ByteSpan bits) {
  for (std::size_t index = 0; index < bits.size(); ++index) {
    for (unsigned byte = bits[index]; byte != 0; byte &= byte - 1) {
      pages.Insert(first + static_cast<std::uint32_t>(index * 8 + static_cast<unsigned>(std::countr_zero(byte))));
    }
  }
}

void PutBits(const PageSet& pages, std::uint32_t first, std::span<std::uint8_t> bits) {
  std::ranges::fill(bits, std::uint8_t{0});
  const std::uint64_t end = first + std::uint64_t{bits.size()} * 8;
  for (std::uint32_t page = pages.FirstFrom(first); page < end; page = pages.FirstFrom(page + 1)) {
    if (page == PageSet::kNone) break;
    bits[(page - first) / 8] = static_cast<std::uint8_t>(bits[(page - first) / 8] | 1U << ((page - first) % 8));
  }
}

// Makes the bytes of a map of the long form, and its pages.
void PutLongForm(PageFile& file, const PageSet& pages, std::span<std::uint8_t> row,
                 const std::function<std::uint32_t()>& new_page) {
  const bool was_long = row[0] == 1;
  if (!was_long) std::ranges::fill(row, std::uint8_t{0});
  row[0] = 1;
  const std::size_t pointers = std::min(kMapPages, (row.size() - 1) / 4);
  for (std::size_t index = 0; index < pointers; ++index) {
    const auto first = static_cast<std::uint32_t>(index * kPagesPerMapPage);
    const std::uint32_t next = pages.FirstFrom(first);
    std::uint32_t place = Get32(row, 1 + index * 4);
    if (place == 0 && (next == PageSet::kNone || next >= first + kPagesPerMapPage)) continue;
    if (place == 0) Put32(row, 1 + index * 4, place = new_page());
    const std::shared_ptr<Page> page = file.Edit(place);
    Put32(*page, 0, kMapPageMagic);
    PutBits(pages, first, std::span(*page).subspan(4));
  }
  if (pages.Last() != PageSet::kNone && pages.Last() / kPagesPerMapPage >= pointers) {
    throw Error("a map of pages in '" + file.ShownPath() + "' is full");
  }
}

}  // namespace

void PageSet::Insert(std::uint32_t page) {
  if (page / 64 >= words_.size()) words_.resize(page / 64 + 1);
  words_[page / 64] |= std::uint64_t{1} << (page % 64);
}

void PageSet::Erase(std::uint32_t page) {
  if (page / 64 < words_.size()) words_[page / 64] &= ~(std::uint64_t{1} << (page % 64));
}

std::uint32_t PageSet::FirstFrom(std::uint32_t page) const {
  for (std::size_t index = page / 64; index < words_.size(); ++index) {
    std::uint64_t word = words_[index];
    if (index == page / 64) word &= ~std::uint64_t{0} << (page % 64);
    if (word != 0) return static_cast<std::uint32_t>(index * 64 + static_cast<unsigned>(std::countr_zero(word)));
  }
  return kNone;
}

std::uint32_t PageSet::Last() const {
  for (std::size_t index = words_.size(); index-- > 0;) {
    if (words_[index] == 0) continue;
    return static_cast<std::uint32_t>(index * 64 + 63 - static_cast<unsigned>(std::countl_zero(words_[index])));
  }
  return kNone;
}

std::vector<std::uint32_t> PageSet::Pages() const {
  std::vector<std::uint32_t> pages;
  for (std::uint32_t page = FirstFrom(0); page != kNone; page = FirstFrom(page + 1)) pages.push_back(page);
  return pages;
}

Bytes ReadMapRow(PageFile& file, RowId place) {
  const std::shared_ptr<const Page> page = file.Read(place.page);
  const DataPageView view(*page);
  if (view.Owner() != (place.page == kFreeMapPage ? kFreeMapPage : 0))
    throw Error("a map of pages isn't where the database says");
  const ByteSpan row = view.Row(place.slot);
  return {row.begin(), row.end()};
}

PageSet ReadUsageMap(PageFile& file, RowId place) {
  const Bytes row = ReadMapRow(file, place);
  PageSet pages;
  if (row.empty() || row[0] > 1) throw Error("a map of pages is of an unknown form");
  if (row[0] == 0) {
    const std::uint32_t first = Get32(row, 1);
    if (first > 0x1000000) throw Error("a map of pages begins behind the end of the file");
    InsertBits(pages, first, ByteSpan(row).subspan(kBitsAt));
    return pages;
  }
  for (std::size_t index = 0; 1 + (index + 1) * 4 <= row.size(); ++index) {
    const std::uint32_t place_of_bits = Get32(row, 1 + index * 4);
    if (place_of_bits == 0) continue;
    const std::shared_ptr<const Page> bits = file.Read(place_of_bits);
    if (Get32(*bits, 0) != kMapPageMagic) throw Error("a map of pages leads to a page of another kind");
    InsertBits(pages, static_cast<std::uint32_t>(index * kPagesPerMapPage), ByteSpan(*bits).subspan(4));
  }
  return pages;
}

void WriteUsageMap(PageFile& file, RowId place, const PageSet& pages, FreePages& free_pages) {
  Bytes row = ReadMapRow(file, place);
  const std::uint32_t first = pages.FirstFrom(0);
  const std::uint32_t last = pages.Last();
  const std::size_t room = (row.size() - kBitsAt) * 8;
  if (row[0] == 0 && (last == PageSet::kNone || last - first / 8 * 8 < room)) {
    const std::uint32_t begin = last == PageSet::kNone || last < room ? 0 : first / 8 * 8;
    Put32(row, 1, begin);
    PutBits(pages, begin, std::span(row).subspan(kBitsAt));
  } else {
    PutLongForm(file, pages, row, [&] { return free_pages.Take(); });
  }
  const std::shared_ptr<Page> page = file.Edit(place.page);
  DataPage(*page).Replace(place.slot, row);
}

void FreePages::Read() { free_ = ReadUsageMap(file_, {1, 0}); }

std::uint32_t FreePages::Take() {
  const std::uint32_t free = free_.FirstFrom(0);
  if (free < file_.PageCount()) {
    free_.Erase(free);
    *file_.Edit(free) = Page{};
    return free;
  }
  const std::uint32_t page = file_.Append();
  free_.Erase(page);
  return page;
}

// Pages after the end of the file are free as far as the map goes. The map of the short form grows by 32 bytes at a
// time as long as page 1 has room for it.
void FreePages::Write() {
  constexpr std::size_t kGrowth = 32;
  constexpr std::size_t kLongestMap = 3900;
  Bytes row = ReadMapRow(file_, {1, 0});
  if (row[0] == 0 && Get32(row, 1) != 0) throw Error("the map of free pages doesn't begin at the first page");
  std::size_t length = row.size();
  while (length < kLongestMap && (length - kBitsAt) * 8 < file_.PageCount()) length += kGrowth;
  if (row[0] == 1 || (length - kBitsAt) * 8 < file_.PageCount()) {
    WriteLong();
    return;
  }
  const auto end = static_cast<std::uint32_t>((length - kBitsAt) * 8);
  for (std::uint32_t page = file_.PageCount(); page < end; ++page) free_.Insert(page);
  row.assign(length, 0);
  PutBits(free_, 0, std::span(row).subspan(kBitsAt));
  const std::shared_ptr<Page> page = file_.Edit(1);
  DataPage(*page).Replace(0, row);
}

void FreePages::WriteLong() {
  Bytes row = ReadMapRow(file_, {1, 0});
  if (row[0] == 0) row.assign(kMapRowLength, 0);
  const auto new_page = [&] {
    const std::uint32_t page = file_.Append();
    free_.Erase(page);
    return page;
  };
  // All map pages are there before the bits are written, so that the bits tell of them too.
  for (std::size_t index = 0; index * kPagesPerMapPage < file_.PageCount(); ++index) {
    if (row[0] == 1 && Get32(row, 1 + index * 4) != 0) continue;
    row[0] = 1;
    const std::uint32_t page = new_page();
    Put32(*file_.Edit(page), 0, kMapPageMagic);
    Put32(row, 1 + index * 4, page);
  }
  const std::uint32_t pages = (file_.PageCount() + kPagesPerMapPage - 1) / kPagesPerMapPage * kPagesPerMapPage;
  for (std::uint32_t page = file_.PageCount(); page < pages; ++page) free_.Insert(page);
  PutLongForm(file_, free_, row, new_page);
  const std::shared_ptr<Page> page = file_.Edit(1);
  DataPage(*page).Replace(0, row);
}

}  // namespace tessarine::jet
