// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/long_value.h"

#include <algorithm>

namespace tessarine::jet {
namespace {

constexpr std::uint32_t kInRow = 0x80000000;
constexpr std::uint32_t kOneRow = 0x40000000;
constexpr std::uint32_t kLengthMask = 0x3FFFFFFF;
constexpr std::size_t kReferenceLength = 12;
constexpr std::size_t kLongestInRow = 64;
constexpr std::size_t kLongestPart = 4076;
constexpr std::size_t kNextLength = 4;

RowStore::Stored ReadPart(PageFile& file, RowId id) {
  RowStore::Stored stored{file.Read(id.page), {}, SlotState::Row};
  const DataPageView view(*stored.page);
  if (view.Owner() != kLongValueOwner) throw Error("a long value isn't where its row says");
  stored.bytes = view.Row(id.slot);
  if (view.State(id.slot) != SlotState::Row) throw Error("a long value was deleted");
  return stored;
}

LongReference Reference(std::size_t length, std::uint32_t flags, std::uint32_t pointer) {
  LongReference reference;
  Append32(reference.bytes, length | flags);
  Append32(reference.bytes, pointer);
  Append32(reference.bytes, 0);
  return reference;
}

std::size_t LongValueLength(const LongReference& reference) { return Get32(reference.bytes, 0) & kLengthMask; }

}  // namespace

std::vector<RowId> LongValueParts(PageFile& file, const LongReference& reference) {
  const std::uint32_t head = Get32(reference.bytes, 0);
  if ((head & kInRow) != 0) return {};
  std::vector<RowId> parts;
  const std::size_t most = LongValueLength(reference) / 16 + 2;
  for (std::uint32_t next = Get32(reference.bytes, 4); next != 0;) {
    parts.push_back(RowId::FromPointer(next));
    if ((head & kOneRow) != 0) break;
    if (parts.size() > most) throw Error("a long value has no end");
    next = Get32(ReadPart(file, parts.back()).bytes, 0);
  }
  return parts;
}

Bytes ReadLongValue(PageFile& file, const LongReference& reference) {
  const std::uint32_t head = Get32(reference.bytes, 0);
  const std::size_t length = LongValueLength(reference);
  if ((head & kInRow) != 0) {
    const ByteSpan value = Part(reference.bytes, kReferenceLength, length);
    return {value.begin(), value.end()};
  }
  if (length > std::uint64_t{file.PageCount()} * kPageSize) throw Error("a long value is longer than its file");
  Bytes value;
  value.reserve(length);
  const bool one = (head & kOneRow) != 0;
  for (std::uint32_t next = Get32(reference.bytes, 4); next != 0 && value.size() < length;) {
    const RowStore::Stored part = ReadPart(file, RowId::FromPointer(next));
    const ByteSpan bytes = one ? part.bytes : part.bytes.subspan(std::min(kNextLength, part.bytes.size()));
    if (!one && bytes.empty()) throw Error("a part of a long value is empty");
    next = one ? 0 : Get32(part.bytes, 0);
    AppendBytes(value, bytes);
  }
  if (value.size() < length) throw Error("a long value is shorter than its row says");
  value.resize(length);
  return value;
}

LongReference WriteLongValue(RowStore& store, ByteSpan value, LongPlace place) {
  if (value.size() > kLengthMask) throw Error("a value is longer than 1 GB");
  if (value.empty() || (place == LongPlace::InRowIfShort && value.size() <= kLongestInRow)) {
    LongReference reference = Reference(value.size(), kInRow, 0);
    AppendBytes(reference.bytes, value);
    return reference;
  }
  if (value.size() <= kLongestPart) return Reference(value.size(), kOneRow, store.Insert(value).Pointer());
  constexpr std::size_t kStep = kLongestPart - kNextLength;
  std::uint32_t next = 0;
  for (std::size_t part = (value.size() + kStep - 1) / kStep; part-- > 0;) {
    Bytes row;
    Append32(row, next);
    AppendBytes(row, value.subspan(part * kStep, std::min(kStep, value.size() - part * kStep)));
    next = store.Insert(row).Pointer();
  }
  return Reference(value.size(), 0, next);
}

void DeleteLongValue(RowStore& store, const LongReference& reference) {
  const std::uint32_t head = Get32(reference.bytes, 0);
  if ((head & kInRow) != 0) return;
  for (std::uint32_t next = Get32(reference.bytes, 4); next != 0;) {
    const RowId id = RowId::FromPointer(next);
    const RowStore::Stored part = store.Read(id);
    if (part.state != SlotState::Row) throw Error("a long value was deleted");
    next = (head & kOneRow) != 0 ? 0 : Get32(part.bytes, 0);
    store.DeleteAndShrink(id);
  }
}

}  // namespace tessarine::jet
