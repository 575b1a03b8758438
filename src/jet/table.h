// SPDX-License-Identifier: GPL-2.0-or-later
// The rows of one table.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "jet/index_pages.h"
#include "jet/long_value.h"
#include "jet/row.h"

namespace tessarine::jet {

/// New values by the place of their column.
using ValueChanges = std::vector<std::pair<std::size_t, Value>>;
/// Values by the name of their column.
using NamedValues = std::vector<std::pair<const char*, Value>>;

/// Rows are changed in the file; indexes, maps and counts by `Commit`. Before the first change all indexes are made
/// from the rows and compared with what is there: where they differ, something about them isn't known here, and the
/// table isn't written to. A row whose key can't be made keeps the one that its index has, as long as its indexed
/// values stay.
class Table {
 public:
  Table(PageFile& file, FreePages& free_pages, TableDefinition definition, std::string name);

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const TableDefinition& Definition() const { return definition_; }
  [[nodiscard]] std::uint32_t RowCount() const { return definition_.row_count; }
  /// The place of a column of this name; an error that names it where there is none.
  [[nodiscard]] std::size_t ColumnPlace(const std::string& name) const;

  /// Walks over the rows in the order in which they lie. No row may be changed meanwhile.
  class Scan {
   public:
    explicit Scan(const Table& table);
    /// False after the last row.
    bool Next();
    [[nodiscard]] RowId Id() const { return id_; }
    /// Valid until the next call of `Next`.
    [[nodiscard]] ByteSpan Bytes() const { return row_.bytes; }
    [[nodiscard]] RowValues Values() const { return UnpackRow(table_.definition_, row_.bytes); }

   private:
    const Table& table_;
    std::uint32_t page_ = PageSet::kNone;
    std::shared_ptr<const Page> held_;
    std::size_t slots_ = 0, next_slot_ = 0;
    RowId id_;
    RowStore::Stored row_;
  };
  /// An error where there is no such row.
  [[nodiscard]] RowValues Read(RowId id) const;
  /// The bytes of an OLE value; empty for null.
  [[nodiscard]] Bytes ReadLong(const Value& value) const;
  /// The text of a memo; empty for null.
  [[nodiscard]] std::string ReadMemo(const Value& value) const { return TextOf(ReadLong(value)); }

  /// Values of long columns are texts and bytes. A numbered column that is null gets the next number.
  RowId Insert(RowValues values);
  /// The same by the names of columns; null where none is given.
  RowId InsertNamed(const NamedValues& named);
  /// The row's place, which changes where it no longer fits.
  RowId Update(RowId id, const ValueChanges& changes);
  void Delete(RowId id);
  /// The number that the next row will get.
  [[nodiscard]] std::int32_t NextNumber() const { return static_cast<std::int32_t>(definition_.last_number + 1); }

  /// The entries that the indexes have to have by the rows, sorted; costs one walk over the rows. An `UnknownOrder` for
  /// a row whose key can't be made and isn't in the index either.
  [[nodiscard]] std::vector<IndexEntries> EntriesFromRows() const;
  /// Whether a key of this index was taken from it by `EntriesFromRows`.
  [[nodiscard]] bool HasKeptKeys(std::size_t index) const { return kept_keys_.contains(index); }
  /// An error that names the first index that isn't as it would be made here.
  void CompareIndexes() const;
  void Commit();
  /// Frees everything but the definition's pages.
  void Clear();

  [[nodiscard]] const RowStore& Rows() const { return rows_; }
  [[nodiscard]] RowStore& LongStore(std::uint16_t column);
  [[nodiscard]] std::string IndexLabel(std::size_t index) const;
  /// Another definition of the same rows.
  void Redefine(TableDefinition definition) { definition_ = std::move(definition); }
  /// What is written next isn't compared: for a table that was made just now.
  void TrustIndexes() { compared_ = true; }
  void BeforeChange();

 private:
  friend class Scan;
  [[nodiscard]] RowStore::Stored Follow(RowId id) const;
  [[nodiscard]] Bytes Pack(RowValues& values);
  [[nodiscard]] LongReference StoreLong(const Column& column, const Value& value, LongPlace place);
  void FreeLong(const Column& column, const Value& value);
  void NoteNumber(const RowValues& values);
  [[nodiscard]] Key KeyOf(std::size_t index, const RowValues& values, RowId id) const;
  [[nodiscard]] bool SameKey(const Index& index, const RowValues& one, const RowValues& other) const;
  void CheckKey(const Index& index, const RowValues& values) const;
  void MoveKeptKeys(RowId from, RowId to, const RowValues& before, const RowValues& values);
  void RebuildIndexes();

  PageFile& file_;
  FreePages& free_pages_;
  TableDefinition definition_;
  std::string name_;
  RowStore rows_;
  std::map<std::uint16_t, std::unique_ptr<RowStore>> long_stores_;
  // By index: the keys on disk of the rows whose keys can't be made.
  mutable std::map<std::size_t, std::map<RowId, Key>> kept_keys_;
  bool compared_ = false, changed_ = false, indexes_stale_ = false;
};

}  // namespace tessarine::jet
