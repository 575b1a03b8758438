// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/check.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include "jet/index_key.h"

namespace tessarine::jet {
namespace {

constexpr std::size_t kMostFindings = 50;

class Checker {
 public:
  explicit Checker(Database& database) : database_(database), file_(database.File()), users_(file_.PageCount()) {}

  CheckReport Run() {
    Use(0, "the header");
    Use(1, "the map of free pages");
    Try("the map of free pages", [&] {
      UseMap({1, 0});
      free_ = ReadUsageMap(file_, {1, 0});
    });
    for (const TableEntry& entry : database_.Tables()) Try(entry.name, [&] { CheckTable(database_.Open(entry.name)); });
    for (std::uint32_t page = 0; page < file_.PageCount(); ++page) {
      if (users_[page].empty() && !free_.Contains(page)) ++report_.lost_pages;
      if (!users_[page].empty() && free_.Contains(page))
        Find("page " + std::to_string(page) + " of " + users_[page] + " is free");
    }
    return std::move(report_);
  }

 private:
  void Find(const std::string& text) {
    if (report_.findings.size() < kMostFindings) report_.findings.push_back(text);
  }

  void Try(const std::string& what, const std::function<void()>& work) {
    try {
      work();
    } catch (const Error& error) {
      Find(what + ": " + error.what());
    }
  }

  void Use(std::uint32_t page, const std::string& user) {
    if (page >= users_.size()) {
      Find(user + " tells of page " + std::to_string(page) + ", which isn't there");
    } else if (!users_[page].empty() && users_[page] != user) {
      Find("page " + std::to_string(page) + " is used by " + users_[page] + " and " + user);
    } else {
      users_[page] = user;
    }
  }

  void UseMap(RowId place) {
    Use(place.page, place.page == 1 ? "the map of free pages" : "maps");
    const Bytes row = ReadMapRow(file_, place);
    if (!map_rows_.insert(place).second) Find("two maps are in one place of page " + std::to_string(place.page));
    for (std::size_t at = 1; !row.empty() && row[0] == 1 && at + 4 <= row.size(); at += 4) {
      if (const std::uint32_t page = Get32(row, at); page != 0)
        Use(page, "a map at " + std::to_string(place.Pointer()));
    }
  }

  void UseAll(const PageSet& pages, const std::string& user) {
    for (const std::uint32_t page : pages.Pages()) Use(page, user);
  }

  void CheckTable(Table& table) {
    const TableDefinition& definition = table.Definition();
    const std::string name = "'" + table.Name() + "'";
    for (const std::uint32_t page : DefinitionPages(file_, definition.page)) Use(page, "the definition of " + name);
    UseMap(definition.owned);
    UseMap(definition.roomy);
    UseAll(table.Rows().Owned(), "rows of " + name);
    CheckStore(table.Rows(), definition.page, name);
    for (const LongColumnMaps& maps : definition.long_columns) {
      UseMap(maps.owned);
      UseMap(maps.roomy);
      const RowStore& store = table.LongStore(maps.column);
      UseAll(store.Owned(), "long values of " + name + ", column " + std::to_string(maps.column));
      CheckStore(store, kLongValueOwner, name);
    }
    CheckRows(table);
    const std::vector<IndexEntries> made = table.EntriesFromRows();
    for (std::size_t index = 0; index < made.size(); ++index) CheckIndex(table, index, made[index]);
  }

  void CheckStore(const RowStore& store, std::uint32_t owner, const std::string& name) {
    for (const std::uint32_t number : store.Roomy().Pages()) {
      if (!store.Owned().Contains(number)) Find("page " + std::to_string(number) + " with room isn't one of " + name);
    }
    for (const std::uint32_t number : store.Owned().Pages()) {
      const std::shared_ptr<const Page> page = file_.Read(number);
      const DataPageView view(*page);
      if (view.Owner() != owner) Find("page " + std::to_string(number) + " of " + name + " bears another owner");
      if (view.FreeBytes() != view.Room())
        Find("page " + std::to_string(number) + " of " + name + " tells another room");
      for (std::size_t slot = 0; slot < view.SlotCount(); ++slot) (void)view.Row(slot);
    }
  }

  void CheckRows(Table& table) {
    const TableDefinition& definition = table.Definition();
    const std::string name = "'" + table.Name() + "'";
    std::set<RowId> targets;
    std::map<std::uint16_t, std::set<RowId>> long_parts;
    std::uint32_t count = 0;
    for (Table::Scan scan(table); scan.Next(); ++count) {
      NoteTarget(table, scan.Id(), targets);
      const RowValues values = scan.Values();
      for (std::size_t index = 0; index < values.size(); ++index) {
        const auto* reference = std::get_if<LongReference>(&values[index]);
        if (reference == nullptr) continue;
        (void)table.ReadLong(values[index]);
        for (const RowId part : LongValueParts(file_, *reference)) {
          if (!long_parts[definition.columns[index].number].insert(part).second) {
            Find("two rows of " + name + " share a long value on page " + std::to_string(part.page));
          }
        }
      }
    }
    if (count != definition.row_count) {
      Find(name + " tells of " + std::to_string(definition.row_count) + " rows and has " + std::to_string(count));
    }
    CheckSlots(table.Rows(), SlotState::Target, targets, "moved rows of " + name);
    for (const LongColumnMaps& maps : definition.long_columns) {
      CheckSlots(table.LongStore(maps.column), SlotState::Row, long_parts[maps.column], "long values of " + name);
    }
  }

  void NoteTarget(const Table& table, RowId id, std::set<RowId>& targets) {
    const RowStore::Stored stored = table.Rows().Read(id);
    if (stored.state != SlotState::Pointer) return;
    if (!targets.insert(RowId::FromPointer(Get32(stored.bytes, 0))).second) {
      Find("two rows of '" + table.Name() + "' lead to one place");
    }
  }

  // What is there must be what rows lead to.
  void CheckSlots(const RowStore& store, SlotState state, const std::set<RowId>& expected, const std::string& what) {
    std::set<RowId> found;
    for (const std::uint32_t number : store.Owned().Pages()) {
      const std::shared_ptr<const Page> page = file_.Read(number);
      const DataPageView view(*page);
      for (std::size_t slot = 0; slot < view.SlotCount(); ++slot) {
        if (view.State(slot) == state) found.insert({number, static_cast<std::uint8_t>(slot)});
      }
    }
    if (found != expected) {
      Find(what + ": " + std::to_string(found.size()) + " are there, and rows lead to " +
           std::to_string(expected.size()));
    }
  }

  void CheckIndex(const Table& table, std::size_t place, const IndexEntries& made) {
    const TableDefinition& definition = table.Definition();
    const Index& index = definition.indexes[place];
    const std::string label = "the index '" + table.IndexLabel(place) + "' of '" + table.Name() + "'";
    UseMap(index.map);
    const PageSet pages = IndexPagesFrom(file_, index.root, definition.page);
    UseAll(pages, label);
    if (!(pages == ReadUsageMap(file_, index.map))) Find(label + " has other pages than its map tells");
    const IndexEntries stored = ReadIndexEntries(file_, index.root, definition.page);
    if (!std::ranges::is_sorted(stored)) Find(label + " isn't in order");
    if (table.HasKeptKeys(place)) report_.unknown_order.push_back(label);
    if (stored != made) Find(label + " doesn't hold what the rows say");
  }

  Database& database_;
  PageFile& file_;
  CheckReport report_;
  std::vector<std::string> users_;
  std::set<RowId> map_rows_;
  PageSet free_;
};

}  // namespace

CheckReport CheckDatabase(Database& database) { return Checker(database).Run(); }

}  // namespace tessarine::jet
