// SPDX-License-Identifier: GPL-2.0-or-later
// A database file as a row of pages, and what page 0 tells.
//
// Page 0 begins with 00 01 00 00 "Standard Jet DB" 00 and the version at 0x14: 0 for the older format with pages of
// 2048 bytes, 1 for this one, more for those of other endings. The bytes 0x18 to 0x97 are masked by RC4 under a fixed
// key. Unmasked they hold, among constants, at 0x3C the code page, at 0x3E the key of the pages (0 where they aren't
// masked), at 0x42 the password, at 0x6E the order of texts in indexes (0x409, version 0).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "jet/bytes.h"

namespace tessarine::jet {

/// The header's masked part as it is meant, 128 bytes.
[[nodiscard]] Bytes UnmaskHeader(const Page& page);
/// The reverse of `UnmaskHeader`.
void MaskHeader(ByteSpan plain, Page& page);

/// Pages are read when they are asked for and kept as long as there is room; changed ones are written when they make
/// room for others and by `Flush`. Not for several threads.
class PageFile {
 public:
  enum class Mode {
    Read,
    Write,
    Create,  ///< an empty file; what stands there goes
  };

  /// Checks that the file is of this format, and for writing that nothing about it is unknown; the error says what is.
  /// Errors name the file as `shown`, or by its path where that is empty.
  PageFile(const std::string& path, Mode mode, const std::string& shown = "");
  ~PageFile();
  PageFile(const PageFile&) = delete;
  PageFile& operator=(const PageFile&) = delete;

  /// As errors name it.
  [[nodiscard]] const std::string& ShownPath() const { return shown_; }
  [[nodiscard]] std::uint32_t PageCount() const { return page_count_; }
  [[nodiscard]] bool Writable() const { return mode_ != Mode::Read; }

  [[nodiscard]] std::shared_ptr<const Page> Read(std::uint32_t number);
  /// The page for changing. An error where the file was opened for reading.
  [[nodiscard]] std::shared_ptr<Page> Edit(std::uint32_t number);
  /// A new page of zeros after the last. An error at the format's limit of 2 GB.
  std::uint32_t Append();
  /// Writes what was changed. Not yet on the disk where the power fails.
  void Flush();

 private:
  struct Slot {
    std::uint32_t number;
    std::shared_ptr<Page> page;
    bool changed = false;
    bool recent = true;
  };

  void CheckHeader();
  Slot& Load(std::uint32_t number);
  Slot& Keep(std::uint32_t number, std::shared_ptr<Page> page);
  void MakeRoom();
  void WriteSlot(Slot& slot);

  std::string shown_;
  Mode mode_;
  int file_ = -1;
  std::uint32_t page_count_ = 0;
  std::vector<Slot> slots_;
  std::unordered_map<std::uint32_t, std::size_t> places_;  // of a page in `slots_`
  std::size_t hand_ = 0;                                   // where the search for room goes on
};

}  // namespace tessarine::jet
