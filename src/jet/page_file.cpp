// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/page_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <numeric>

namespace tessarine::jet {
namespace {

constexpr std::size_t kKeptPages = 1024;
constexpr std::uint64_t kLargestFile = (1ULL << 31U) - kPageSize;
constexpr std::size_t kMaskedAt = 0x18;
constexpr std::size_t kMaskedLength = 0x80;
constexpr std::array<std::uint8_t, 4> kHeaderKey = {0xC7, 0xDA, 0x39, 0x6B};
constexpr std::uint32_t kGeneralOrder = 0x409;
constexpr char kSignature[] = "Standard Jet DB";

void ApplyRc4(std::span<std::uint8_t> bytes) {
  std::array<std::uint8_t, 256> state{};
  std::iota(state.begin(), state.end(), std::uint8_t{0});
  std::uint8_t second = 0;
  for (std::size_t first = 0; first < state.size(); ++first) {
    second = static_cast<std::uint8_t>(second + state[first] + kHeaderKey[first % kHeaderKey.size()]);
    std::swap(state[first], state[second]);
  }
  std::uint8_t first = 0;
  second = 0;
  for (std::uint8_t& byte : bytes) {
    first = static_cast<std::uint8_t>(first + 1);
    second = static_cast<std::uint8_t>(second + state[first]);
    std::swap(state[first], state[second]);
    byte = static_cast<std::uint8_t>(byte ^ state[static_cast<std::uint8_t>(state[first] + state[second])]);
  }
}

[[noreturn]] void ThrowErrno(const std::string& text) { throw Error(text + ": " + std::strerror(errno)); }

int OpenFile(const std::string& path, PageFile::Mode mode, const std::string& shown) {
  int flags = O_CLOEXEC;
  if (mode == PageFile::Mode::Read) flags |= O_RDONLY;
  if (mode == PageFile::Mode::Write) flags |= O_RDWR;
  if (mode == PageFile::Mode::Create) flags |= O_RDWR | O_CREAT | O_TRUNC;
  const int file = open(path.c_str(), flags, 0666);
  if (file < 0) ThrowErrno("'" + shown + "' can't be opened");
  return file;
}

}  // namespace

Bytes UnmaskHeader(const Page& page) {
  Bytes plain(page.begin() + kMaskedAt, page.begin() + kMaskedAt + kMaskedLength);
  ApplyRc4(plain);
  return plain;
}

void MaskHeader(ByteSpan plain, Page& page) {
  const ByteSpan part = Part(plain, 0, kMaskedLength);
  std::ranges::copy(part, page.begin() + kMaskedAt);
  ApplyRc4(std::span(page).subspan(kMaskedAt, kMaskedLength));
}

PageFile::PageFile(const std::string& path, Mode mode, const std::string& shown)
    : shown_(shown.empty() ? path : shown), mode_(mode), file_(OpenFile(path, mode, shown_)) {
  slots_.reserve(kKeptPages);
  if (mode_ == Mode::Create) return;
  try {
    struct stat status {};
    if (fstat(file_, &status) != 0) ThrowErrno("'" + shown_ + "' can't be read");
    if (!S_ISREG(status.st_mode)) throw Error("'" + shown_ + "' is no file");
    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (size > kLargestFile + kPageSize) throw Error("'" + shown_ + "' is larger than the format's 2 GB");
    page_count_ = static_cast<std::uint32_t>(size / kPageSize);
    CheckHeader();
  } catch (...) {
    close(file_);
    throw;
  }
}

PageFile::~PageFile() { close(file_); }

void PageFile::CheckHeader() {
  std::array<std::uint8_t, 0x18> begin{};
  if (pread(file_, begin.data(), begin.size(), 0) != static_cast<ssize_t>(begin.size())) {
    throw Error("'" + shown_ + "' is too short for a personal geodatabase");
  }
  const auto text = [&](const char* expected) {
    return std::memcmp(begin.data() + 4, expected, std::strlen(expected) + 1) == 0;
  };
  if (text("Standard ACE DB") || (text(kSignature) && begin[0x14] > 1)) {
    throw Error("'" + shown_ +
                "' is a database of a newer format (.accdb); only the format of .mdb from 2000 on is read");
  }
  if (!text(kSignature)) throw Error("'" + shown_ + "' is no database of the format .mdb");
  if (begin[0x14] == 0) {
    throw Error("'" + shown_ + "' is a database of the format from before 2000 (Jet 3); only the later one is read");
  }
  const std::shared_ptr<const Page> page = Read(0);
  const Bytes plain = UnmaskHeader(*page);
  if (Get16(plain, 0x3E - kMaskedAt) != 0) throw Error("'" + shown_ + "' is encrypted");
  if (Writable() && Get32(plain, 0x6E - kMaskedAt) != kGeneralOrder) {
    throw Error("'" + shown_ +
                "' sorts its texts by another order than the general one (1033), so that its indexes "
                "can't be written");
  }
}

std::shared_ptr<const Page> PageFile::Read(std::uint32_t number) { return Load(number).page; }

std::shared_ptr<Page> PageFile::Edit(std::uint32_t number) {
  if (!Writable()) throw Error("'" + shown_ + "' was opened for reading only");
  Slot& slot = Load(number);
  slot.changed = true;
  return slot.page;
}

PageFile::Slot& PageFile::Load(std::uint32_t number) {
  if (const auto found = places_.find(number); found != places_.end()) {
    Slot& slot = slots_[found->second];
    slot.recent = true;
    return slot;
  }
  if (number >= page_count_) {
    throw Error("'" + shown_ + "' points to page " + std::to_string(number) + ", and it has " +
                std::to_string(page_count_));
  }
  auto page = std::make_shared<Page>();
  const ssize_t read =
      pread(file_, page->data(), kPageSize, static_cast<off_t>(number) * static_cast<off_t>(kPageSize));
  if (read != static_cast<ssize_t>(kPageSize))
    ThrowErrno("page " + std::to_string(number) + " of '" + shown_ + "' can't be read");
  return Keep(number, std::move(page));
}

PageFile::Slot& PageFile::Keep(std::uint32_t number, std::shared_ptr<Page> page) {
  if (slots_.size() < kKeptPages) {
    slots_.push_back({number, std::move(page)});
    places_[number] = slots_.size() - 1;
    return slots_.back();
  }
  MakeRoom();
  places_.erase(slots_[hand_].number);
  slots_[hand_] = {number, std::move(page)};
  places_[number] = hand_;
  return slots_[hand_];
}

// The first page, from the hand on, that was not asked for since the hand last passed, and that nobody holds.
void PageFile::MakeRoom() {
  for (std::size_t step = 0; step < 3 * slots_.size(); ++step) {
    hand_ = (hand_ + 1) % slots_.size();
    Slot& slot = slots_[hand_];
    if (slot.page.use_count() > 1) continue;
    if (!slot.recent) {
      if (slot.changed) WriteSlot(slot);
      return;
    }
    slot.recent = false;
  }
  throw Error("too many pages of '" + shown_ + "' are held at a time");
}

void PageFile::WriteSlot(Slot& slot) {
  const off_t place = static_cast<off_t>(slot.number) * static_cast<off_t>(kPageSize);
  if (pwrite(file_, slot.page->data(), kPageSize, place) != static_cast<ssize_t>(kPageSize)) {
    ThrowErrno("'" + shown_ + "' can't be written");
  }
  slot.changed = false;
}

std::uint32_t PageFile::Append() {
  if (!Writable()) throw Error("'" + shown_ + "' was opened for reading only");
  if (static_cast<std::uint64_t>(page_count_ + 1) * kPageSize > kLargestFile) {
    throw Error("'" + shown_ + "' can't grow beyond 2 GB, the limit of its format");
  }
  const std::uint32_t number = page_count_++;
  Slot& slot = Keep(number, std::make_shared<Page>());
  slot.changed = true;
  return number;
}

void PageFile::Flush() {
  std::vector<Slot*> changed;
  for (Slot& slot : slots_) {
    if (slot.changed) changed.push_back(&slot);
  }
  std::ranges::sort(changed, {}, &Slot::number);
  for (Slot* slot : changed) WriteSlot(*slot);
}

}  // namespace tessarine::jet
