// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/table.h"

#include <algorithm>

#include "jet/index_key.h"

namespace tessarine::jet {

Table::Table(PageFile& file, FreePages& free_pages, TableDefinition definition, std::string name)
    : file_(file),
      free_pages_(free_pages),
      definition_(std::move(definition)),
      name_(std::move(name)),
      rows_(file, free_pages, definition_.page, definition_.owned, definition_.roomy) {}

std::size_t Table::ColumnPlace(const std::string& name) const {
  const Column* column = definition_.FindColumn(name);
  if (column == nullptr) throw Error("the table '" + name_ + "' has no column '" + name + "'");
  return static_cast<std::size_t>(column - definition_.columns.data());
}

Table::Scan::Scan(const Table& table) : table_(table) {}

bool Table::Scan::Next() {
  while (true) {
    while (next_slot_ >= slots_) {
      page_ = table_.rows_.Owned().FirstFrom(page_ == PageSet::kNone ? 0 : page_ + 1);
      if (page_ == PageSet::kNone) return false;
      held_ = table_.file_.Read(page_);
      const DataPageView view(*held_);
      if (view.Owner() != table_.definition_.page) {
        throw Error("page " + std::to_string(page_) + " isn't one of the table '" + table_.name_ + "'");
      }
      slots_ = view.SlotCount();
      next_slot_ = 0;
    }
    const std::size_t slot = next_slot_++;
    const DataPageView view(*held_);
    const SlotState state = view.State(slot);
    if (state == SlotState::Target || state == SlotState::Deleted) continue;
    id_ = {page_, static_cast<std::uint8_t>(slot)};
    if (state == SlotState::Row) {
      row_ = {held_, view.Row(slot), state};
    } else {
      row_ = table_.Follow(id_);
    }
    return true;
  }
}

RowStore::Stored Table::Follow(RowId id) const {
  RowStore::Stored stored = rows_.Read(id);
  if (stored.state == SlotState::Row) return stored;
  if (stored.state == SlotState::Pointer) {
    stored = rows_.Read(RowId::FromPointer(Get32(stored.bytes, 0)));
    if (stored.state == SlotState::Target) return stored;
  }
  throw Error("the table '" + name_ + "' has no row in slot " + std::to_string(id.slot) + " of page " +
              std::to_string(id.page));
}

RowValues Table::Read(RowId id) const { return UnpackRow(definition_, Follow(id).bytes); }

Bytes Table::ReadLong(const Value& value) const {
  const auto* reference = std::get_if<LongReference>(&value);
  return reference == nullptr ? Bytes() : ReadLongValue(file_, *reference);
}

RowStore& Table::LongStore(std::uint16_t column) {
  std::unique_ptr<RowStore>& store = long_stores_[column];
  if (store) return *store;
  const auto maps = std::ranges::find(definition_.long_columns, column, &LongColumnMaps::column);
  if (maps == definition_.long_columns.end()) throw Error("a column of long values in '" + name_ + "' has no maps");
  store = std::make_unique<RowStore>(file_, free_pages_, kLongValueOwner, maps->owned, maps->roomy);
  return *store;
}

LongReference Table::StoreLong(const Column& column, const Value& value, LongPlace place) {
  if (const auto* text = std::get_if<std::string>(&value); text != nullptr && column.type == ColumnType::Memo) {
    const Bytes stored = StoredTextValue(*text);
    return WriteLongValue(LongStore(column.number), stored, place);
  }
  const auto* bytes = std::get_if<Bytes>(&value);
  if (bytes == nullptr || column.type != ColumnType::Ole) {
    throw RowError("the value of column '" + column.name + "' is of another type than the column");
  }
  return WriteLongValue(LongStore(column.number), *bytes, place);
}

void Table::FreeLong(const Column& column, const Value& value) {
  if (const auto* reference = std::get_if<LongReference>(&value)) {
    DeleteLongValue(LongStore(column.number), *reference);
  }
}

// Long values go into the row where it has room for them.
Bytes Table::Pack(RowValues& values) {
  const RowValues given = values;
  const auto pack_with = [&](LongPlace place) {
    for (std::size_t index = 0; index < values.size(); ++index) {
      const Column& column = definition_.columns[index];
      const bool fresh =
          column.IsLong() && !IsNull(given[index]) && !std::holds_alternative<LongReference>(given[index]);
      if (fresh) values[index] = StoreLong(column, given[index], place);
    }
    return PackRow(definition_, values);
  };
  const auto free_stored = [&] {
    for (std::size_t index = 0; index < values.size(); ++index) {
      if (values[index] == given[index]) continue;
      FreeLong(definition_.columns[index], values[index]);
      values[index] = given[index];
    }
  };
  // A row that is refused leaves none of its long values behind.
  try {
    Bytes row = pack_with(LongPlace::InRowIfShort);
    if (row.size() <= kLongestRow) return row;
    free_stored();
    row = pack_with(LongPlace::Outside);
    if (row.size() <= kLongestRow) return row;
    throw RowError("a row of '" + name_ + "' takes " + std::to_string(row.size()) + " bytes, and the format keeps " +
                   std::to_string(kLongestRow) + " besides memos and binary values");
  } catch (const RowError&) {
    free_stored();
    throw;
  }
}

void Table::NoteNumber(const RowValues& values) {
  for (std::size_t index = 0; index < values.size(); ++index) {
    if (!definition_.columns[index].numbered) continue;
    if (const auto* number = std::get_if<std::int32_t>(&values[index])) {
      if (*number > static_cast<std::int32_t>(definition_.last_number)) {
        definition_.last_number = static_cast<std::uint32_t>(*number);
      }
    }
  }
}

void Table::BeforeChange() {
  if (!compared_) CompareIndexes();
  compared_ = true;
  changed_ = true;
}

bool Table::SameKey(const Index& index, const RowValues& one, const RowValues& other) const {
  return std::ranges::all_of(index.columns, [&](const IndexColumn& part) {
    const std::size_t place = definition_.PlaceOf(part.column);
    return one[place] == other[place];
  });
}

void Table::CheckKey(const Index& index, const RowValues& values) const {
  for (const IndexColumn& part : index.columns) {
    const std::size_t place = definition_.PlaceOf(part.column);
    CheckValue(definition_.columns[place], values[place]);
  }
  (void)IndexKey(definition_, index, values);
}

Key Table::KeyOf(std::size_t index, const RowValues& values, RowId id) const {
  try {
    return IndexKey(definition_, definition_.indexes[index], values);
  } catch (const UnknownOrder&) {
    const auto [kept, fresh] = kept_keys_.try_emplace(index);
    if (fresh) {
      for (const Key& entry : ReadIndexEntries(file_, definition_.indexes[index].root, definition_.page)) {
        kept->second[RowOfEntry(entry)] = KeyOfEntry(entry);
      }
    }
    const auto found = kept->second.find(id);
    if (found == kept->second.end()) throw;
    return found->second;
  }
}

void Table::MoveKeptKeys(RowId from, RowId to, const RowValues& before, const RowValues& values) {
  for (auto& [index, keys] : kept_keys_) {
    auto key = keys.extract(from);
    if (key.empty() || !SameKey(definition_.indexes[index], before, values)) continue;
    key.key() = to;
    keys.insert(std::move(key));
  }
}

RowId Table::Insert(RowValues values) {
  if (values.size() != definition_.columns.size()) throw Error("a row of '" + name_ + "' has another number of values");
  BeforeChange();
  for (std::size_t index = 0; index < values.size(); ++index) {
    if (definition_.columns[index].numbered && IsNull(values[index])) values[index] = NextNumber();
  }
  for (const Index& index : definition_.indexes) CheckKey(index, values);
  const Bytes row = Pack(values);
  const RowId id = rows_.Insert(row);
  NoteNumber(values);
  ++definition_.row_count;
  indexes_stale_ = true;
  return id;
}

RowId Table::InsertNamed(const NamedValues& named) {
  RowValues values(definition_.columns.size());
  for (const auto& [column, value] : named) values[ColumnPlace(column)] = value;
  return Insert(std::move(values));
}

RowId Table::Update(RowId id, const ValueChanges& changes) {
  BeforeChange();
  const RowValues before = Read(id);
  RowValues values = before;
  for (const auto& [column, value] : changes) values.at(column) = value;
  bool keys_change = false;
  for (const Index& index : definition_.indexes) {
    if (SameKey(index, before, values)) continue;
    CheckKey(index, values);
    keys_change = true;
  }
  const Bytes row = Pack(values);
  for (const auto& [column, value] : changes) FreeLong(definition_.columns[column], before[column]);
  NoteNumber(values);
  indexes_stale_ = indexes_stale_ || keys_change;
  const RowStore::Stored stored = rows_.Read(id);
  const bool moved = stored.state == SlotState::Pointer;
  const RowId place = moved ? RowId::FromPointer(Get32(stored.bytes, 0)) : id;
  RowId result = id;
  if (!rows_.Replace(place, row)) {
    if (moved) rows_.Delete(place);
    rows_.Delete(id);
    indexes_stale_ = true;
    result = rows_.Insert(row);
  }
  MoveKeptKeys(id, result, before, values);
  return result;
}

void Table::Delete(RowId id) {
  BeforeChange();
  const RowValues values = Read(id);
  for (std::size_t index = 0; index < values.size(); ++index) FreeLong(definition_.columns[index], values[index]);
  const RowStore::Stored stored = rows_.Read(id);
  if (stored.state == SlotState::Pointer) rows_.Delete(RowId::FromPointer(Get32(stored.bytes, 0)));
  rows_.Delete(id);
  for (auto& [index, keys] : kept_keys_) keys.erase(id);
  if (definition_.row_count > 0) --definition_.row_count;
  indexes_stale_ = true;
}

std::string Table::IndexLabel(std::size_t index) const {
  for (const IndexName& name : definition_.index_names) {
    if (name.index == index) return name.name;
  }
  return std::to_string(index);
}

std::vector<IndexEntries> Table::EntriesFromRows() const {
  std::vector<IndexEntries> all(definition_.indexes.size());
  if (all.empty()) return all;
  std::vector<std::size_t> indexed;
  for (const Index& index : definition_.indexes) {
    for (const IndexColumn& part : index.columns) indexed.push_back(definition_.PlaceOf(part.column));
  }
  for (IndexEntries& entries : all) entries.reserve(std::min<std::size_t>(definition_.row_count, 1U << 20U));
  RowValues values(definition_.columns.size());
  for (Scan scan(*this); scan.Next();) {
    for (const std::size_t place : indexed) values[place] = UnpackValue(definition_, scan.Bytes(), place);
    for (std::size_t index = 0; index < all.size(); ++index) {
      const Index& described = definition_.indexes[index];
      if (described.IgnoresNull() && AllNull(definition_, described, values)) continue;
      Key entry = KeyOf(index, values, scan.Id());
      AppendRowPlace(entry, scan.Id());
      all[index].push_back(std::move(entry));
    }
  }
  for (IndexEntries& entries : all) {
    if (!std::ranges::is_sorted(entries)) std::ranges::sort(entries);
  }
  return all;
}

void Table::CompareIndexes() const {
  const std::vector<IndexEntries> made = EntriesFromRows();
  for (std::size_t index = 0; index < made.size(); ++index) {
    if (made[index] == ReadIndexEntries(file_, definition_.indexes[index].root, definition_.page)) continue;
    throw Error("the index '" + IndexLabel(index) + "' of the table '" + name_ +
                "' isn't as it would be made here, so that writing could damage it");
  }
}

void Table::RebuildIndexes() {
  const std::vector<IndexEntries> all = EntriesFromRows();
  for (std::size_t place = 0; place < all.size(); ++place) {
    Index& index = definition_.indexes[place];
    const IndexEntries& entries = all[place];
    std::uint32_t distinct = 0;
    for (std::size_t entry = 0; entry < entries.size(); ++entry) {
      const bool new_key = entry == 0 || KeyOfEntry(entries[entry - 1]) != KeyOfEntry(entries[entry]);
      if (new_key) ++distinct;
    }
    if (index.IsUnique() && distinct != entries.size()) {
      throw Error("two rows of '" + name_ + "' have the same value in the unique index '" + IndexLabel(place) + "'");
    }
    for (const std::uint32_t page : IndexPagesFrom(file_, index.root, definition_.page).Pages()) {
      free_pages_.GiveBack(page);
    }
    const BuiltIndex built = BuildIndex(file_, free_pages_, entries, definition_.page);
    index.root = built.root;
    if (!definition_.system) index.row_count = definition_.row_count;
    index.distinct_count = distinct;
    WriteUsageMap(file_, index.map, built.pages, free_pages_);
  }
  indexes_stale_ = false;
}

void Table::Commit() {
  if (!changed_) return;
  if (indexes_stale_) RebuildIndexes();
  rows_.WriteMaps();
  for (const auto& [column, store] : long_stores_) store->WriteMaps();
  WriteCounts(file_, definition_);
  changed_ = false;
}

void Table::Clear() {
  changed_ = true;
  rows_.Clear();
  for (const LongColumnMaps& maps : definition_.long_columns) LongStore(maps.column).Clear();
  for (const Index& index : definition_.indexes) {
    for (const std::uint32_t page : IndexPagesFrom(file_, index.root, definition_.page).Pages()) {
      free_pages_.GiveBack(page);
    }
  }
}

}  // namespace tessarine::jet
