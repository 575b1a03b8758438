// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/row_store.h"

namespace tessarine::jet {
namespace {

// A page with less room than this counts as full.
constexpr std::size_t kLittleRoom = 64;
// So many pages are looked at before a new one is taken.
constexpr int kPagesTried = 4;

}  // namespace

RowStore::RowStore(PageFile& file, FreePages& free_pages, std::uint32_t owner, RowId owned_map, RowId roomy_map)
    : file_(file),
      free_pages_(free_pages),
      owner_(owner),
      owned_map_(owned_map),
      roomy_map_(roomy_map),
      owned_(ReadUsageMap(file, owned_map)),
      roomy_(ReadUsageMap(file, roomy_map)) {}

RowStore::Stored RowStore::Read(RowId id) const {
  Stored stored{file_.Read(id.page), {}, SlotState::Row};
  const DataPageView view(*stored.page);
  if (view.Owner() != owner_)
    throw Error("page " + std::to_string(id.page) + " belongs to something else than its rows");
  stored.bytes = view.Row(id.slot);
  stored.state = view.State(id.slot);
  return stored;
}

RowId RowStore::Insert(ByteSpan row) {
  if (row.size() > kPageSize - 20) throw Error("a row of " + std::to_string(row.size()) + " bytes is too long");
  const std::uint32_t number = PageWithRoomFor(row.size());
  const std::shared_ptr<Page> page = file_.Edit(number);
  const std::uint8_t slot = DataPage(*page).Insert(row);
  NoteRoom(number, *page);
  return {number, slot};
}

std::uint32_t RowStore::PageWithRoomFor(std::size_t length) {
  const auto fits = [&](std::uint32_t number) {
    const std::shared_ptr<const Page> page = file_.Read(number);
    const DataPageView view(*page);
    return view.Owner() == owner_ && view.HasRoomFor(length);
  };
  if (current_ != PageSet::kNone && owned_.Contains(current_) && fits(current_)) return current_;
  std::uint32_t number = roomy_.FirstFrom(0);
  for (int tried = 0; tried < kPagesTried && number != PageSet::kNone; ++tried) {
    if (owned_.Contains(number) && fits(number)) return current_ = number;
    number = roomy_.FirstFrom(number + 1);
  }
  current_ = free_pages_.Take();
  DataPage::Format(*file_.Edit(current_), owner_);
  owned_.Insert(current_);
  changed_ = true;
  return current_;
}

void RowStore::NoteRoom(std::uint32_t number, const Page& page) {
  const bool roomy = DataPageView(page).HasRoomFor(kLittleRoom);
  if (roomy == roomy_.Contains(number)) return;
  if (roomy) {
    roomy_.Insert(number);
  } else {
    roomy_.Erase(number);
  }
  changed_ = true;
}

bool RowStore::Replace(RowId id, ByteSpan row) {
  (void)Read(id);
  const std::shared_ptr<Page> page = file_.Edit(id.page);
  if (!DataPage(*page).Replace(id.slot, row)) return false;
  NoteRoom(id.page, *page);
  return true;
}

void RowStore::Delete(RowId id) {
  (void)Read(id);
  const std::shared_ptr<Page> page = file_.Edit(id.page);
  DataPage(*page).Delete(id.slot);
  NoteRoom(id.page, *page);
}

void RowStore::DeleteAndShrink(RowId id) {
  Delete(id);
  const std::shared_ptr<const Page> page = file_.Read(id.page);
  const DataPageView view(*page);
  for (std::size_t slot = 0; slot < view.SlotCount(); ++slot) {
    if (view.State(slot) != SlotState::Deleted) return;
  }
  owned_.Erase(id.page);
  roomy_.Erase(id.page);
  free_pages_.GiveBack(id.page);
  changed_ = true;
}

void RowStore::Clear() {
  for (const std::uint32_t page : owned_.Pages()) free_pages_.GiveBack(page);
  owned_ = {};
  roomy_ = {};
  current_ = PageSet::kNone;
  changed_ = true;
}

void RowStore::WriteMaps() {
  if (!changed_) return;
  WriteUsageMap(file_, owned_map_, owned_, free_pages_);
  WriteUsageMap(file_, roomy_map_, roomy_, free_pages_);
  changed_ = false;
}

}  // namespace tessarine::jet
