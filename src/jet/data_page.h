// SPDX-License-Identifier: GPL-2.0-or-later
// A page of rows: of a table, of long values or of usage maps.
//
// Byte 0 is 1, bytes 2 and 3 tell the free bytes, bytes 4 to 7 the owner: the page of the table's definition, "LVAL"
// for long values, 0 for usage maps. The number of slots stands at 12, from 14 on two bytes for each: where its row
// begins, and flags. Rows lie from the end of the page towards its beginning in the order of the slots, so that a row
// ends where the one before it begins. Flags: 0x4000 the row is a pointer to where it lies now; 0x8000 the row is
// pointed to and is none by itself; both: the row is deleted, its bytes are nobody's.
#pragma once

#include <cstdint>

#include "jet/bytes.h"

namespace tessarine::jet {

inline constexpr std::uint32_t kLongValueOwner = 0x4C41564C;  // "LVAL"
inline constexpr std::size_t kMostSlots = 255;
inline constexpr std::size_t kLongestRow = 4060;

enum class SlotState { Row, Pointer, Target, Deleted };

class DataPageView {
 public:
  /// An error where the page is none of rows.
  explicit DataPageView(const Page& page);

  [[nodiscard]] std::uint32_t Owner() const { return Get32(page_, 4); }
  [[nodiscard]] std::size_t SlotCount() const { return slot_count_; }
  [[nodiscard]] SlotState State(std::size_t slot) const;
  /// The bytes of a slot, whatever its state. An error where there is no such slot or it leaves the page.
  [[nodiscard]] ByteSpan Row(std::size_t slot) const;
  /// What the header tells.
  [[nodiscard]] std::size_t FreeBytes() const { return Get16(page_, 2); }
  /// What lies between the slots and the last row.
  [[nodiscard]] std::size_t Room() const;
  /// Whether a row of this length fits, with a slot of its own.
  [[nodiscard]] bool HasRoomFor(std::size_t length) const;

 private:
  [[nodiscard]] std::size_t Begin(std::size_t slot) const;
  [[nodiscard]] std::size_t EndOf(std::size_t slot) const;

  const Page& page_;
  std::size_t slot_count_;
};

class DataPage {
 public:
  explicit DataPage(Page& page) : page_(page) {}
  /// An empty page of rows.
  static void Format(Page& page, std::uint32_t owner);

  /// The new row's slot.
  std::uint8_t Insert(ByteSpan row);
  /// The bytes of a slot anew; other rows move. False, and nothing done, where there is no room.
  bool Replace(std::size_t slot, ByteSpan row);
  /// The slot stays, as a deleted one; its bytes are free.
  void Delete(std::size_t slot);

 private:
  void Resize(std::size_t slot, std::size_t length);

  Page& page_;
};

}  // namespace tessarine::jet
