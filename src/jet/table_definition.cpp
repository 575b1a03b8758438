// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/table_definition.h"

#include <algorithm>

namespace tessarine::jet {
namespace {

constexpr std::uint32_t kMagic = 0x659;
constexpr std::uint32_t kIndexMagic = 0x783;
constexpr std::size_t kHeaderLength = 63;
constexpr std::size_t kIndexCountsLength = 12;
constexpr std::size_t kColumnLength = 25;
constexpr std::size_t kIndexLength = 52;
constexpr std::size_t kIndexNameLength = 28;
constexpr std::size_t kIndexColumns = 10;
constexpr std::uint16_t kNoColumn = 0xFFFF;
constexpr std::size_t kChainHeader = 8;
constexpr std::size_t kChainPart = kPageSize - kChainHeader;
constexpr std::uint8_t kFixed = 1, kNumbered = 4;

bool IsKnown(std::uint8_t type) { return (type >= 1 && type <= 12) || type == 15 || type == 16; }

Column ReadColumn(ByteSpan bytes) {
  Column column;
  const std::uint8_t type = Get8(bytes, 0);
  if (!IsKnown(type)) throw Error("a column is of type " + std::to_string(type) + ", which isn't known");
  column.type = static_cast<ColumnType>(type);
  column.number = Get16(bytes, 5);
  column.variable_number = Get16(bytes, 7);
  column.order = Get16(bytes, 9);
  std::ranges::copy(Part(bytes, 11, 4), column.detail.begin());
  if (column.type == ColumnType::Numeric) column.scale = column.detail[1];
  column.flags = Get8(bytes, 15);
  column.more_flags = Get8(bytes, 16);
  column.fixed = (column.flags & kFixed) != 0;
  column.numbered = (column.flags & kNumbered) != 0;
  column.fixed_offset = Get16(bytes, 21);
  column.length = Get16(bytes, 23);
  return column;
}

Bytes PackColumn(const Column& column) {
  Bytes bytes(kColumnLength);
  Put8(bytes, 0, static_cast<std::uint8_t>(column.type));
  Put32(bytes, 1, kMagic);
  Put16(bytes, 5, column.number);
  Put16(bytes, 7, column.variable_number);
  Put16(bytes, 9, column.order);
  std::ranges::copy(column.detail, bytes.begin() + 11);
  Put8(bytes, 15, column.flags);
  Put8(bytes, 16, column.more_flags);
  Put16(bytes, 21, column.fixed_offset);
  Put16(bytes, 23, column.length);
  return bytes;
}

Index ReadIndex(ByteSpan bytes) {
  Index index;
  for (std::size_t place = 0; place < kIndexColumns; ++place) {
    const std::uint16_t column = Get16(bytes, 4 + place * 3);
    if (column != kNoColumn) index.columns.push_back({column, Get8(bytes, 6 + place * 3) != 1});
  }
  index.map = RowId::FromPointer(Get32(bytes, 34));
  index.root = Get32(bytes, 38);
  index.flags = Get8(bytes, 46);
  return index;
}

Bytes PackIndex(const Index& index) {
  Bytes bytes(kIndexLength);
  Put32(bytes, 0, kIndexMagic);
  for (std::size_t place = 0; place < kIndexColumns; ++place) {
    const bool used = place < index.columns.size();
    Put16(bytes, 4 + place * 3, used ? index.columns[place].column : kNoColumn);
    Put8(bytes, 6 + place * 3, used ? (index.columns[place].descending ? 2 : 1) : 0);
  }
  Put32(bytes, 34, index.map.Pointer());
  Put32(bytes, 38, index.root);
  Put8(bytes, 46, index.flags);
  return bytes;
}

// Walks over the structure from part to part.
class Walk {
 public:
  explicit Walk(ByteSpan bytes) : bytes_(bytes), at_(kHeaderLength) {}
  ByteSpan Next(std::size_t length) {
    const ByteSpan part = Part(bytes_, at_, length);
    at_ += length;
    return part;
  }
  std::string Name() {
    const std::size_t length = Get16(Next(2), 0);
    std::string name = TextOf(Next(length));
    if (StoredText(name).size() != length) throw Error("a name in the definition of a table is no text");
    return name;
  }

 private:
  ByteSpan bytes_;
  std::size_t at_;
};

void AppendName(Bytes& bytes, const std::string& name) {
  const Bytes stored = StoredText(name);
  Append16(bytes, stored.size());
  AppendBytes(bytes, stored);
}

Bytes ReadChain(PageFile& file, std::uint32_t page) {
  Bytes bytes;
  for (const std::uint32_t number : DefinitionPages(file, page)) {
    const std::shared_ptr<const Page> part = file.Read(number);
    AppendBytes(bytes, ByteSpan(*part).subspan(bytes.empty() ? 0 : kChainHeader));
  }
  return bytes;
}

void Check(const TableDefinition& table) {
  std::vector<bool> numbers(table.columns_ever);
  for (const Column& column : table.columns) {
    if (column.number >= table.columns_ever || numbers[column.number]) {
      throw Error("the columns of a table are numbered in contradiction");
    }
    numbers[column.number] = true;
    if (!column.fixed && column.variable_number >= table.variable_columns) {
      throw Error("the columns of a table are counted in contradiction");
    }
  }
  for (const Index& index : table.indexes) {
    for (const IndexColumn& column : index.columns) (void)table.PlaceOf(column.column);
  }
}

// Changes what a definition holds at some places of its pages.
class Patch {
 public:
  Patch(PageFile& file, std::uint32_t page) : file_(file), pages_(DefinitionPages(file, page)) {}
  void Set(std::size_t offset, std::uint32_t number) {
    Bytes bytes;
    Append32(bytes, number);
    for (std::size_t index = 0; index < bytes.size(); ++index, ++offset) {
      const std::size_t part = offset < kPageSize ? 0 : 1 + (offset - kPageSize) / kChainPart;
      const std::size_t place = part == 0 ? offset : kChainHeader + (offset - kPageSize) % kChainPart;
      if (part >= pages_.size()) throw Error("the definition of a table is shorter than it tells");
      (*file_.Edit(pages_[part]))[place] = bytes[index];
    }
  }

 private:
  PageFile& file_;
  std::vector<std::uint32_t> pages_;
};

}  // namespace

bool SameName(const std::string& one, const std::string& other) {
  return std::ranges::equal(one, other, {}, LowerLetter, LowerLetter);
}

IndexName IndexName::Of(const std::string& name, std::size_t index, std::uint8_t kind) {
  Bytes stored(kIndexNameLength);
  Put32(stored, 0, kMagic);
  Put32(stored, 4, index);
  Put32(stored, 8, index);
  Put32(stored, 13, 0xFFFFFFFF);
  Put16(stored, 21, 0x0404);
  Put8(stored, 23, kind);
  return {name, static_cast<std::uint32_t>(index), stored};
}

const Column* TableDefinition::FindColumn(const std::string& name) const {
  const auto found = std::ranges::find_if(columns, [&](const Column& column) { return SameName(column.name, name); });
  return found == columns.end() ? nullptr : &*found;
}

std::size_t TableDefinition::PlaceOf(std::uint16_t number) const {
  const auto found = std::ranges::find(columns, number, &Column::number);
  if (found == columns.end()) throw Error("an index tells of a column that isn't there");
  return static_cast<std::size_t>(found - columns.begin());
}

std::size_t TableDefinition::FixedEnd() const {
  std::size_t end = 0;
  for (const Column& column : columns) {
    const bool takes_room = column.fixed && column.type != ColumnType::Flag;
    if (takes_room) end = std::max<std::size_t>(end, std::size_t{column.fixed_offset} + column.length);
  }
  return end;
}

std::vector<std::uint32_t> DefinitionPages(PageFile& file, std::uint32_t page) {
  std::vector<std::uint32_t> pages;
  for (std::uint32_t next = page; next != 0;) {
    const std::shared_ptr<const Page> part = file.Read(next);
    if ((*part)[0] != 2) throw Error("page " + std::to_string(next) + " is no definition of a table");
    pages.push_back(next);
    if (pages.size() > 64) throw Error("the definition of a table has no end");
    next = Get32(*part, 4);
  }
  return pages;
}

TableDefinition ReadTableDefinition(PageFile& file, std::uint32_t page) {
  const Bytes bytes = ReadChain(file, page);
  TableDefinition table;
  table.page = page;
  table.row_count = Get32(bytes, 16);
  table.last_number = Get32(bytes, 20);
  table.system = Get8(bytes, 40) == 'S';
  table.columns_ever = Get16(bytes, 41);
  table.variable_columns = Get16(bytes, 43);
  const std::size_t columns = Get16(bytes, 45);
  const std::size_t names = Get32(bytes, 47);
  const std::size_t indexes = Get32(bytes, 51);
  if (columns > 255 || names > 1000 || indexes > 1000) throw Error("the definition of a table is damaged");
  table.owned = RowId::FromPointer(Get32(bytes, 55));
  table.roomy = RowId::FromPointer(Get32(bytes, 59));
  Walk walk(bytes);
  const ByteSpan counts = walk.Next(indexes * kIndexCountsLength);
  for (std::size_t index = 0; index < columns; ++index) table.columns.push_back(ReadColumn(walk.Next(kColumnLength)));
  for (Column& column : table.columns) column.name = walk.Name();
  for (std::size_t index = 0; index < indexes; ++index) {
    table.indexes.push_back(ReadIndex(walk.Next(kIndexLength)));
    table.indexes.back().row_count = Get32(counts, index * kIndexCountsLength);
    table.indexes.back().distinct_count = Get32(counts, index * kIndexCountsLength + 4);
  }
  for (std::size_t index = 0; index < names; ++index) {
    const ByteSpan stored = walk.Next(kIndexNameLength);
    table.index_names.push_back({"", Get32(stored, 8), {stored.begin(), stored.end()}});
  }
  for (IndexName& name : table.index_names) name.name = walk.Name();
  for (std::uint16_t column = Get16(walk.Next(2), 0); column != kNoColumn; column = Get16(walk.Next(2), 0)) {
    const ByteSpan maps = walk.Next(8);
    table.long_columns.push_back({column, RowId::FromPointer(Get32(maps, 0)), RowId::FromPointer(Get32(maps, 4))});
  }
  Check(table);
  return table;
}

Bytes PackTableDefinition(const TableDefinition& table) {
  Bytes bytes(kHeaderLength);
  Put16(bytes, 0, 0x0102);
  Put32(bytes, 12, kMagic);
  Put32(bytes, 16, table.row_count);
  Put32(bytes, 20, table.last_number);
  Put8(bytes, 24, 1);
  Put8(bytes, 40, table.system ? 'S' : 'N');
  Put16(bytes, 41, table.columns_ever);
  Put16(bytes, 43, table.variable_columns);
  Put16(bytes, 45, table.columns.size());
  Put32(bytes, 47, table.index_names.size());
  Put32(bytes, 51, table.indexes.size());
  Put32(bytes, 55, table.owned.Pointer());
  Put32(bytes, 59, table.roomy.Pointer());
  for (const Index& index : table.indexes) {
    Append32(bytes, index.row_count);
    Append32(bytes, index.distinct_count);
    Append32(bytes, 0);
  }
  for (const Column& column : table.columns) AppendBytes(bytes, PackColumn(column));
  for (const Column& column : table.columns) AppendName(bytes, column.name);
  for (const Index& index : table.indexes) AppendBytes(bytes, PackIndex(index));
  for (const IndexName& name : table.index_names) AppendBytes(bytes, name.stored);
  for (const IndexName& name : table.index_names) AppendName(bytes, name.name);
  for (const LongColumnMaps& maps : table.long_columns) {
    Append16(bytes, maps.column);
    Append32(bytes, maps.owned.Pointer());
    Append32(bytes, maps.roomy.Pointer());
  }
  Append16(bytes, kNoColumn);
  Put32(bytes, 8, bytes.size());
  return bytes;
}

bool IsWhollyKnown(PageFile& file, std::uint32_t page) {
  constexpr std::size_t kPlaceOfPage = 8;  // what comes first tells of the page, not of the table
  const Bytes stored = ReadChain(file, page), packed = PackTableDefinition(ReadTableDefinition(file, page));
  return std::ranges::equal(ByteSpan(packed).subspan(kPlaceOfPage),
                            Part(stored, kPlaceOfPage, packed.size() - kPlaceOfPage));
}

void WriteCounts(PageFile& file, const TableDefinition& table) {
  Patch patch(file, table.page);
  patch.Set(16, table.row_count);
  patch.Set(20, table.last_number);
  for (std::size_t index = 0; index < table.indexes.size(); ++index) {
    patch.Set(kHeaderLength + index * kIndexCountsLength, table.indexes[index].row_count);
    patch.Set(kHeaderLength + index * kIndexCountsLength + 4, table.indexes[index].distinct_count);
  }
  std::size_t names = 0;
  for (const Column& column : table.columns) names += 2 + StoredText(column.name).size();
  const std::size_t begin =
      kHeaderLength + table.indexes.size() * kIndexCountsLength + table.columns.size() * kColumnLength + names;
  for (std::size_t index = 0; index < table.indexes.size(); ++index) {
    patch.Set(begin + index * kIndexLength + 38, table.indexes[index].root);
  }
}

std::size_t DefinitionPageCount(std::size_t length) {
  return length <= kPageSize ? 1 : 1 + (length - kPageSize + kChainPart - 1) / kChainPart;
}

void WriteTableDefinition(PageFile& file, const TableDefinition& table, const std::vector<std::uint32_t>& pages) {
  const Bytes bytes = PackTableDefinition(table);
  if (DefinitionPageCount(bytes.size()) != pages.size()) throw Error("a definition of a table lost its pages");
  std::size_t done = 0;
  for (std::size_t index = 0; index < pages.size(); ++index) {
    const std::size_t begin = index == 0 ? 0 : kChainHeader;
    const std::size_t length = std::min(kPageSize - begin, bytes.size() - done);
    const std::shared_ptr<Page> page = file.Edit(pages[index]);
    page->fill(0);
    std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(done), length,
                page->begin() + static_cast<std::ptrdiff_t>(begin));
    Put16(*page, 0, 0x0102);
    const std::size_t used = begin + length;
    Put16(*page, 2, used + kChainHeader <= kPageSize ? kPageSize - kChainHeader - used : 0);
    Put32(*page, 4, index + 1 < pages.size() ? pages[index + 1] : 0);
    done += length;
  }
}

}  // namespace tessarine::jet
