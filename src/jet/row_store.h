// SPDX-License-Identifier: GPL-2.0-or-later
// Pages that hold rows of one owner: those of a table, or the long values of one of its columns.
#pragma once

#include <memory>
#include <optional>

#include "jet/data_page.h"
#include "jet/page_set.h"

namespace tessarine::jet {

class RowStore {
 public:
  /// The maps of the owned pages and of those with room for rows; `owner` is what the pages bear.
  RowStore(PageFile& file, FreePages& free_pages, std::uint32_t owner, RowId owned_map, RowId roomy_map);

  [[nodiscard]] const PageSet& Owned() const { return owned_; }
  [[nodiscard]] const PageSet& Roomy() const { return roomy_; }

  /// Puts a row where there is room. An error where it is longer than a page takes.
  RowId Insert(ByteSpan row);
  /// The bytes anew in their page; false, and nothing done, where it has no room.
  bool Replace(RowId id, ByteSpan row);
  void Delete(RowId id);
  /// As `Delete`; and a page that holds nothing any more is free.
  void DeleteAndShrink(RowId id);
  /// All pages are free.
  void Clear();
  /// The bytes of a slot, and a hold on their page. An error where the page is another owner's.
  struct Stored {
    std::shared_ptr<const Page> page;
    ByteSpan bytes;
    SlotState state;
  };
  [[nodiscard]] Stored Read(RowId id) const;
  /// Writes the maps where they changed.
  void WriteMaps();

 private:
  [[nodiscard]] std::uint32_t PageWithRoomFor(std::size_t length);
  void NoteRoom(std::uint32_t number, const Page& page);

  PageFile& file_;
  FreePages& free_pages_;
  std::uint32_t owner_;
  RowId owned_map_, roomy_map_;
  PageSet owned_, roomy_;
  std::uint32_t current_ = PageSet::kNone;
  bool changed_ = false;
};

}  // namespace tessarine::jet
