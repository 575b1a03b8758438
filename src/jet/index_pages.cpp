// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/index_pages.h"

#include <algorithm>
#include <bit>

namespace tessarine::jet {
namespace {

constexpr std::uint8_t kNode = 3, kLeaf = 4;
constexpr std::size_t kEntriesAt = 480;
constexpr std::size_t kMaskAt = 27;
constexpr std::size_t kMaskLength = kEntriesAt - kMaskAt;
constexpr std::size_t kRoom = kPageSize - kEntriesAt;
constexpr int kDeepest = 16;

void CheckPage(const Page& page, std::uint32_t owner) {
  if ((page[0] != kNode && page[0] != kLeaf) || Get32(page, 4) != owner) {
    throw Error("an index leads to a page that isn't its own");
  }
}

IndexEntries EntriesOf(const Page& page) {
  IndexEntries entries;
  const std::size_t shared = Get16(page, 24);
  Key prefix;
  std::size_t begin = 0;
  for (std::size_t byte = 0; byte < kMaskLength; ++byte) {
    for (unsigned bits = page[kMaskAt + byte]; bits != 0; bits &= bits - 1) {
      const std::size_t end = byte * 8 + static_cast<unsigned>(std::countr_zero(bits));
      const ByteSpan part = Part(ByteSpan(page), kEntriesAt + begin, end - begin);
      Key entry = prefix;
      entry.append(part.begin(), part.end());
      if (entries.empty()) prefix = entry.substr(0, shared);
      if (entry.size() < 4) throw Error("an entry of an index is too short");
      entries.push_back(std::move(entry));
      begin = end;
    }
  }
  return entries;
}

std::uint32_t HighFirst(std::string_view bytes) {
  std::uint32_t number = 0;
  for (const char byte : bytes.substr(bytes.size() - 4)) number = number << 8U | static_cast<std::uint8_t>(byte);
  return number;
}

void Collect(PageFile& file, std::uint32_t number, std::uint32_t owner, int depth, PageSet& pages) {
  if (depth > kDeepest || pages.Contains(number)) throw Error("the pages of an index run in a circle");
  pages.Insert(number);
  const std::shared_ptr<const Page> page = file.Read(number);
  CheckPage(*page, owner);
  if ((*page)[0] == kLeaf) return;
  for (const Key& entry : EntriesOf(*page)) Collect(file, HighFirst(entry), owner, depth + 1, pages);
  const std::uint32_t tail = Get32(*page, 20);
  if (tail != 0 && !pages.Contains(tail)) Collect(file, tail, owner, depth + 1, pages);
}

std::uint32_t FirstLeaf(PageFile& file, std::uint32_t number, std::uint32_t owner) {
  for (int depth = 0; depth <= kDeepest; ++depth) {
    const std::shared_ptr<const Page> page = file.Read(number);
    CheckPage(*page, owner);
    if ((*page)[0] == kLeaf) return number;
    const IndexEntries entries = EntriesOf(*page);
    number = entries.empty() ? Get32(*page, 20) : HighFirst(entries.front());
  }
  throw Error("the pages of an index run in a circle");
}

// One level of a tree from left to right.
class Level {
 public:
  Level(PageFile& file, FreePages& free_pages, std::uint32_t owner, std::uint8_t height, PageSet& pages)
      : file_(file), free_pages_(free_pages), owner_(owner), height_(height), pages_(pages) {
    Begin();
  }

  void Add(const Key& entry) {
    if (used_ + entry.size() > kRoom) {
      const std::uint32_t before = numbers_.back();
      Begin();
      Put32(*file_.Edit(before), 16, numbers_.back());
      Put32(*page_, 12, before);
    }
    std::memcpy(page_->data() + kEntriesAt + used_, entry.data(), entry.size());
    used_ += entry.size();
    (*page_)[kMaskAt + used_ / 8] = static_cast<std::uint8_t>((*page_)[kMaskAt + used_ / 8] | 1U << (used_ % 8));
    Put16(*page_, 2, kRoom - used_);
    last_.back() = entry;
  }

  [[nodiscard]] const std::vector<std::uint32_t>& Numbers() const { return numbers_; }
  /// The last entry of each page, with the page's number after.
  [[nodiscard]] IndexEntries EntriesAbove() const {
    IndexEntries above;
    for (std::size_t index = 0; index < numbers_.size(); ++index) {
      above.push_back(last_[index]);
      for (unsigned shift = 32; shift > 0; shift -= 8) {
        above.back().push_back(static_cast<char>(numbers_[index] >> (shift - 8)));
      }
    }
    return above;
  }

 private:
  void Begin() {
    const std::uint32_t number = free_pages_.Take();
    numbers_.push_back(number);
    last_.emplace_back();
    pages_.Insert(number);
    page_ = file_.Edit(number);
    page_->fill(0);
    Put8(*page_, 0, height_ == 0 ? kLeaf : kNode);
    Put8(*page_, 1, 1);
    Put16(*page_, 2, kRoom);
    Put32(*page_, 4, owner_);
    Put8(*page_, 26, height_);
    used_ = 0;
  }

  PageFile& file_;
  FreePages& free_pages_;
  std::uint32_t owner_;
  std::uint8_t height_;
  PageSet& pages_;
  std::vector<std::uint32_t> numbers_;
  IndexEntries last_;
  std::shared_ptr<Page> page_;
  std::size_t used_ = 0;
};

}  // namespace

void AppendRowPlace(Key& key, RowId row) {
  for (unsigned shift = 24; shift > 0; shift -= 8) key.push_back(static_cast<char>(row.page >> (shift - 8)));
  key.push_back(static_cast<char>(row.slot));
}

RowId RowOfEntry(std::string_view entry) { return RowId::FromPointer(HighFirst(entry)); }

IndexEntries ReadIndexEntries(PageFile& file, std::uint32_t root, std::uint32_t owner) {
  IndexEntries all;
  PageSet seen;
  for (std::uint32_t number = FirstLeaf(file, root, owner); number != 0;) {
    if (seen.Contains(number)) throw Error("the leaves of an index run in a circle");
    seen.Insert(number);
    const std::shared_ptr<const Page> page = file.Read(number);
    CheckPage(*page, owner);
    if ((*page)[0] != kLeaf) throw Error("the leaves of an index lead to a page of another kind");
    IndexEntries entries = EntriesOf(*page);
    std::ranges::move(entries, std::back_inserter(all));
    number = Get32(*page, 16);
  }
  return all;
}

PageSet IndexPagesFrom(PageFile& file, std::uint32_t root, std::uint32_t owner) {
  PageSet pages;
  Collect(file, root, owner, 0, pages);
  return pages;
}

BuiltIndex BuildIndex(PageFile& file, FreePages& free_pages, const IndexEntries& entries, std::uint32_t owner) {
  BuiltIndex built;
  IndexEntries above;
  const IndexEntries* level_entries = &entries;
  for (std::uint8_t height = 0; height < kDeepest; ++height) {
    Level level(file, free_pages, owner, height, built.pages);
    for (const Key& entry : *level_entries) {
      if (entry.size() > kRoom / 4) throw Error("a key is too long for its index");
      level.Add(entry);
    }
    if (level.Numbers().size() == 1) {
      built.root = level.Numbers().front();
      return built;
    }
    above = level.EntriesAbove();
    level_entries = &above;
  }
  throw Error("an index is too large");
}

}  // namespace tessarine::jet
