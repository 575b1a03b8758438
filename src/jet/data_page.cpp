// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/data_page.h"

#include <algorithm>

namespace tessarine::jet {
namespace {

constexpr std::size_t kSlotsAt = 14;
constexpr std::size_t kPlaceMask = 0x1FFF;
constexpr std::size_t kPointer = 0x4000;
constexpr std::size_t kTarget = 0x8000;
constexpr std::size_t kDeleted = kPointer | kTarget;

}  // namespace

DataPageView::DataPageView(const Page& page) : page_(page), slot_count_(Get16(page, 12)) {
  if (page[0] != 1) throw Error("a page of rows was expected, and one of another kind is there");
  if (kSlotsAt + slot_count_ * 2 > kPageSize) throw Error("a page of rows has more slots than room");
}

SlotState DataPageView::State(std::size_t slot) const {
  const std::size_t entry = Get16(page_, kSlotsAt + slot * 2) & kDeleted;
  if (entry == kDeleted) return SlotState::Deleted;
  if (entry == kPointer) return SlotState::Pointer;
  return entry == kTarget ? SlotState::Target : SlotState::Row;
}

std::size_t DataPageView::Begin(std::size_t slot) const { return Get16(page_, kSlotsAt + slot * 2) & kPlaceMask; }

std::size_t DataPageView::EndOf(std::size_t slot) const { return slot == 0 ? kPageSize : Begin(slot - 1); }

ByteSpan DataPageView::Row(std::size_t slot) const {
  if (slot >= slot_count_) throw Error("a row is told of in a slot that isn't there");
  const std::size_t begin = Begin(slot), end = EndOf(slot);
  if (begin < kSlotsAt + slot_count_ * 2 || begin > end || end > kPageSize) {
    throw Error("a row reaches beyond its page");
  }
  return ByteSpan(page_).subspan(begin, end - begin);
}

std::size_t DataPageView::Room() const {
  const std::size_t begin = slot_count_ == 0 ? kPageSize : Begin(slot_count_ - 1);
  const std::size_t slots_end = kSlotsAt + slot_count_ * 2;
  return begin > slots_end && begin <= kPageSize ? begin - slots_end : 0;
}

bool DataPageView::HasRoomFor(std::size_t length) const { return slot_count_ < kMostSlots && Room() >= length + 2; }

void DataPage::Format(Page& page, std::uint32_t owner) {
  page.fill(0);
  Put16(page, 0, 0x0101);
  Put16(page, 2, kPageSize - kSlotsAt);
  Put32(page, 4, owner);
}

std::uint8_t DataPage::Insert(ByteSpan row) {
  const DataPageView view(page_);
  if (!view.HasRoomFor(row.size())) throw Error("a page has no room for a row");
  const std::size_t slot = view.SlotCount();
  const std::size_t end = slot == 0 ? kPageSize : Get16(page_, kSlotsAt + (slot - 1) * 2) & kPlaceMask;
  const std::size_t begin = end - row.size();
  std::ranges::copy(row, page_.begin() + static_cast<std::ptrdiff_t>(begin));
  Put16(page_, kSlotsAt + slot * 2, begin);
  Put16(page_, 12, slot + 1);
  Put16(page_, 2, DataPageView(page_).Room());
  return static_cast<std::uint8_t>(slot);
}

bool DataPage::Replace(std::size_t slot, ByteSpan row) {
  const DataPageView view(page_);
  const std::size_t before = view.Row(slot).size();
  if (row.size() > before + view.Room()) return false;
  Resize(slot, row.size());
  std::ranges::copy(row, page_.begin() + (Get16(page_, kSlotsAt + slot * 2) & kPlaceMask));
  return true;
}

void DataPage::Delete(std::size_t slot) {
  Resize(slot, 0);
  Put16(page_, kSlotsAt + slot * 2, Get16(page_, kSlotsAt + slot * 2) | kDeleted);
}

// The row ends where it did; the rows after it, which lie before it, move.
void DataPage::Resize(std::size_t slot, std::size_t length) {
  const DataPageView view(page_);
  const std::size_t count = view.SlotCount();
  const std::size_t before = view.Row(slot).size();
  if (length == before) return;
  for (std::size_t index = slot; index < count; ++index) (void)view.Row(index);
  const std::size_t begin = Get16(page_, kSlotsAt + slot * 2) & kPlaceMask;
  const std::size_t last = Get16(page_, kSlotsAt + (count - 1) * 2) & kPlaceMask;
  const std::size_t moved = begin - last;
  const std::size_t target = last + before - length;
  std::memmove(page_.data() + target, page_.data() + last, moved);
  for (std::size_t index = slot; index < count; ++index) {
    const std::size_t entry = Get16(page_, kSlotsAt + index * 2);
    Put16(page_, kSlotsAt + index * 2, (entry & ~kPlaceMask) | ((entry & kPlaceMask) + before - length));
  }
  Put16(page_, 2, DataPageView(page_).Room());
}

}  // namespace tessarine::jet
