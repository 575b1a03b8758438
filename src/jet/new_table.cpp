// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/new_table.h"

#include <algorithm>
#include <array>

namespace tessarine::jet {
namespace {

std::uint16_t FixedLength(ColumnType type) {
  switch (type) {
    case ColumnType::Flag:
    case ColumnType::Byte:
      return 1;
    case ColumnType::Short:
      return 2;
    case ColumnType::Long:
    case ColumnType::Single:
      return 4;
    case ColumnType::Money:
    case ColumnType::Double:
    case ColumnType::Date:
      return 8;
    case ColumnType::Guid:
      return 16;
    default:
      return 0;
  }
}

std::uint16_t LengthOf(const ColumnSpec& spec) {
  if (spec.type == ColumnType::Text) {
    if (spec.length == 0 || spec.length > kLongestText) {
      throw Error("the text column '" + spec.name + "' must be 1 to 255 characters long");
    }
    return static_cast<std::uint16_t>(spec.length * 2);
  }
  if (spec.type == ColumnType::Binary) {
    if (spec.length == 0 || spec.length > 510) {
      throw Error("the binary column '" + spec.name + "' must be 1 to 510 bytes long");
    }
    return static_cast<std::uint16_t>(spec.length);
  }
  if (spec.type == ColumnType::Numeric) throw Error("columns of decimal numbers aren't made");
  return FixedLength(spec.type);
}

bool IsFixed(ColumnType type) { return FixedLength(type) > 0 && type != ColumnType::Guid; }

bool ComesBefore(const std::string& one, const std::string& other) {
  return std::ranges::lexicographical_compare(one, other, {}, LowerLetter, LowerLetter);
}

void FormatIndexRoot(Page& page, std::uint32_t owner) {
  page.fill(0);
  Put16(page, 0, 0x0104);
  Put16(page, 2, kPageSize - 480);
  Put32(page, 4, owner);
}

}  // namespace

Column NextColumn(const TableDefinition& table, const ColumnSpec& spec) {
  if (table.columns.size() >= kMostColumns || table.columns_ever >= kMostColumns) {
    throw Error("a table can't have more than 255 columns");
  }
  if (spec.name.empty() || StoredText(spec.name).size() > 128) {
    throw Error("'" + spec.name + "' can't be the name of a column: it must be 1 to 64 characters long");
  }
  const bool illegal = spec.name.find_first_of(".!`[]") != std::string::npos || spec.name.front() == ' ' ||
                       std::ranges::any_of(spec.name, [](char c) { return static_cast<unsigned char>(c) < 0x20U; });
  if (illegal) {
    throw Error("'" + spec.name +
                "' can't be the name of a column: choose one without . ! ` [ ], and without a blank " + "in front");
  }
  if (table.FindColumn(spec.name) != nullptr) throw Error("there are two columns '" + spec.name + "'");
  Column column;
  column.name = spec.name;
  column.type = spec.type;
  column.number = table.columns_ever;
  column.order = table.columns_ever;
  column.variable_number = table.variable_columns;
  column.length = LengthOf(spec);
  column.fixed = IsFixed(spec.type);
  column.numbered = spec.numbered;
  column.flags = static_cast<std::uint8_t>((column.fixed ? 1U : 0U) | 2U | (spec.numbered ? 4U : 0U));
  const bool has_place = column.fixed && spec.type != ColumnType::Flag;
  if (has_place) column.fixed_offset = static_cast<std::uint16_t>(table.FixedEnd());
  if (!column.fixed) column.detail = kTextOrder;
  return column;
}

TableDefinition DefineTable(const TableSpec& spec) {
  TableDefinition table;
  for (const ColumnSpec& column_spec : spec.columns) {
    const Column column = NextColumn(table, column_spec);
    table.columns.push_back(column);
    ++table.columns_ever;
    if (!column.fixed) ++table.variable_columns;
  }
  std::vector<IndexSpec> sorted = spec.indexes;
  std::ranges::sort(sorted, ComesBefore, &IndexSpec::name);
  for (const IndexSpec& index_spec : sorted) {
    Index index;
    index.flags = Index::kAlways | index_spec.flags;
    for (const std::string& name : index_spec.columns) {
      const Column* column = table.FindColumn(name);
      if (column == nullptr) throw Error("an index is on a column '" + name + "' that isn't there");
      index.columns.push_back({column->number, false});
    }
    table.index_names.push_back(IndexName::Of(index_spec.name, table.indexes.size()));
    table.indexes.push_back(index);
  }
  return table;
}

namespace {

// An empty map in a row of the page, or of a new one where that is full; 0 for none yet.
RowId NewMap(PageFile& file, FreePages& free_pages, std::uint32_t& page) {
  const Bytes empty(kMapRowLength);
  if (page != 0 && !DataPageView(*file.Read(page)).HasRoomFor(empty.size())) page = 0;
  if (page == 0) {
    page = free_pages.Take();
    DataPage::Format(*file.Edit(page), 0);
  }
  return {page, DataPage(*file.Edit(page)).Insert(empty)};
}

}  // namespace

void PlaceParts(PageFile& file, FreePages& free_pages, std::uint32_t& maps, TableDefinition& table) {
  table.owned = NewMap(file, free_pages, maps);
  table.roomy = NewMap(file, free_pages, maps);
  for (Index& index : table.indexes) {
    index.map = NewMap(file, free_pages, maps);
    index.root = free_pages.Take();
    FormatIndexRoot(*file.Edit(index.root), table.page);
    PageSet pages;
    pages.Insert(index.root);
    WriteUsageMap(file, index.map, pages, free_pages);
  }
  for (const Column& column : table.columns) PlaceLongColumn(file, free_pages, maps, column, table);
}

void PlaceLongColumn(PageFile& file, FreePages& free_pages, std::uint32_t& maps, const Column& column,
                     TableDefinition& table) {
  if (!column.IsLong()) return;
  const RowId owned = NewMap(file, free_pages, maps);
  table.long_columns.push_back({column.number, owned, NewMap(file, free_pages, maps)});
}

void WriteGrownDefinition(PageFile& file, FreePages& free_pages, const TableDefinition& table,
                          std::vector<std::uint32_t> pages) {
  while (pages.size() < DefinitionPageCount(PackTableDefinition(table).size())) pages.push_back(free_pages.Take());
  WriteTableDefinition(file, table, pages);
}

}  // namespace tessarine::jet
