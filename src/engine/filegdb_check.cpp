// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/filegdb_check.h"

#include <cpl_minixml.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <memory>
#include <set>

#include "engine/engine_fault.h"
#include "engine/filegdb_table.h"

namespace tessarine::engine {
namespace {

using Findings = std::vector<std::string>;

bool IsOwnTable(std::string_view name) { return name.starts_with("GDB_"); }

// Of the geodatabase's own tables these must be there; others may be named and come with their first use.
constexpr std::array<std::string_view, 3> kNeeded = {"GDB_SystemCatalog", "GDB_SpatialRefs", "GDB_Items"};

bool IsNeeded(std::string_view name) { return !IsOwnTable(name) || std::ranges::find(kNeeded, name) != kNeeded.end(); }

bool HasFiles(const std::string& base) {
  std::error_code error;
  return std::filesystem::exists(base + ".gdbtable", error) && std::filesystem::exists(base + ".gdbtablx", error);
}

struct XmlFree {
  void operator()(CPLXMLNode* node) const { CPLDestroyXMLNode(node); }
};
using XmlTree = std::unique_ptr<CPLXMLNode, XmlFree>;

/// A row of GDB_Items.
struct Item {
  std::int64_t oid = 0;
  std::string uuid, name, path, definition;
};

// All rows of a table as texts by column; a blob or number stays the bytes that it is.
class Rows {
 public:
  Rows(const std::string& folder, const std::string& name) : table_(FindGdbTable(folder, name)) {}

  [[nodiscard]] bool IsUsable() const { return table_.IsUsable(); }

  template <class Look>
  void ForEach(Look&& look) const {
    table_.Places().ForEach([&](std::int64_t oid, std::int64_t offset) {
      const std::optional<std::string> row = table_.Row(offset);
      if (!row) return;
      if (const auto values = SplitGdbRow(table_.Description(), *row)) look(oid, *values);
    });
  }
  [[nodiscard]] std::string Text(const GdbValues& values, std::string_view column) const {
    const int index = table_.FindColumn(column);
    if (index < 0) return "";
    const auto& value = values[static_cast<std::size_t>(index)];
    if (!value) return "";
    const GdbColumn::Type type = table_.Description().columns[static_cast<std::size_t>(index)].type;
    // XML is UTF-8 whatever the texts are.
    return type == GdbColumn::kText ? GdbText(table_.Description(), *value) : std::string(*value);
  }

 private:
  GdbTable table_;
};

std::vector<Item> ReadItems(const Rows& rows) {
  std::vector<Item> items;
  rows.ForEach([&](std::int64_t oid, const GdbValues& values) {
    items.push_back({oid, rows.Text(values, "UUID"), rows.Text(values, "Name"), rows.Text(values, "Path"),
                     rows.Text(values, "Definition")});
  });
  return items;
}

// The columns that a definition names; empty where the definition can't be read.
std::optional<std::vector<std::string>> DefinedColumns(const Item& item) {
  const GdalErrorScope quiet;
  const XmlTree tree(CPLParseXMLString(item.definition.c_str()));
  if (!tree) return std::nullopt;
  CPLStripXMLNamespace(tree.get(), nullptr, TRUE);
  CPLXMLNode* list = CPLSearchXMLNode(tree.get(), "=GPFieldInfoExs");
  if (list == nullptr) return std::nullopt;
  std::vector<std::string> names;
  for (CPLXMLNode* node = list->psChild; node != nullptr; node = node->psNext) {
    if (node->eType == CXT_Element) names.emplace_back(CPLGetXMLValue(node, "Name", ""));
  }
  return names;
}

void CheckDefinition(const Item& item, const GdbTable& table, Findings& findings) {
  const auto defined = DefinedColumns(item);
  if (!defined) {
    findings.push_back("the definition of '" + item.name + "' in GDB_Items can't be read");
    return;
  }
  const std::vector<GdbColumn>& columns = table.Description().columns;
  for (const GdbColumn& column : columns) {
    if (std::ranges::find(*defined, column.name) != defined->end()) continue;
    findings.push_back("the definition of '" + item.name + "' lacks its column '" + column.name + "'");
  }
  for (const std::string& name : *defined) {
    if (table.FindColumn(name) >= 0) continue;
    findings.push_back("the definition of '" + item.name + "' names a column '" + name + "' that the table lacks");
  }
}

void CheckItems(const std::string& folder, const std::vector<Item>& items, Findings& findings) {
  std::set<std::string> uuids;
  for (const Item& item : items) {
    const std::string row = "row " + std::to_string(item.oid) + " of GDB_Items";
    if (item.uuid.empty()) findings.push_back(row + " has no identifier");
    if (!item.uuid.empty() && !uuids.insert(item.uuid).second) {
      findings.push_back(row + " has the identifier of another");
    }
  }
  for (const auto& [number, name] : GdbTableNames(folder)) {
    if (IsOwnTable(name)) continue;
    const auto is_item = [&](const Item& item) {
      return item.name == name && (item.path.empty() || item.path.ends_with("\\" + name));
    };
    if (std::ranges::count_if(items, is_item) != 1) {
      findings.push_back("'" + name + "' has " + std::to_string(std::ranges::count_if(items, is_item)) +
                         " rows in GDB_Items");
      continue;
    }
    const GdbTable table(GdbTableBase(folder, number));
    if (table.IsUsable()) CheckDefinition(*std::ranges::find_if(items, is_item), table, findings);
  }
}

void CheckRelationships(const Rows& relationships, const std::vector<Item>& items, Findings& findings) {
  std::set<std::string> placed;
  const auto is_known = [&](const std::string& uuid) {
    return std::ranges::find(items, uuid, &Item::uuid) != items.end();
  };
  relationships.ForEach([&](std::int64_t oid, const GdbValues& values) {
    const std::string origin = relationships.Text(values, "OriginID"),
                      destination = relationships.Text(values, "DestID");
    placed.insert(destination);
    if (is_known(origin) && is_known(destination)) return;
    findings.push_back("row " + std::to_string(oid) + " of GDB_ItemRelationships tells of an item that isn't there");
  });
  for (const Item& item : items) {
    // The folder that all lie in has no other.
    if (item.path.empty() || item.path == "\\" || placed.contains(item.uuid)) continue;
    findings.push_back("GDB_ItemRelationships doesn't tell where '" + item.name + "' lies");
  }
}

void CheckNames(const std::string& folder, const std::vector<std::pair<std::int64_t, std::string>>& names,
                Findings& findings) {
  std::set<std::string> seen;
  for (const auto& [number, name] : names) {
    if (!seen.insert(name).second) findings.push_back("the catalogue has two tables '" + name + "'");
    const std::string base = GdbTableBase(folder, number);
    if (IsNeeded(name) && !HasFiles(base)) {
      findings.push_back("a file of '" + name + "' (" + std::filesystem::path(base).filename().string() +
                         ") is missing");
    }
  }
}

void Append(Findings& all, const Findings& more) { all.insert(all.end(), more.begin(), more.end()); }

}  // namespace

Findings CheckGdbCatalogue(const std::string& native_path) {
  Findings findings;
  const auto names = GdbTableNames(native_path);
  if (names.empty()) return {"the catalogue can't be read"};
  CheckNames(native_path, names, findings);
  for (const auto& [number, name] : names) {
    const std::string base = GdbTableBase(native_path, number);
    if (IsOwnTable(name) && HasFiles(base)) Append(findings, CheckGdbTable(base, name));
  }
  const Rows item_rows(native_path, "GDB_Items"), relationships(native_path, "GDB_ItemRelationships");
  // Older geodatabases keep their definitions elsewhere.
  if (!item_rows.IsUsable() || !relationships.IsUsable()) return findings;
  const std::vector<Item> items = ReadItems(item_rows);
  CheckItems(native_path, items, findings);
  CheckRelationships(relationships, items, findings);
  return findings;
}

Findings CheckFileGeodatabase(const std::string& native_path) {
  Findings findings = CheckGdbCatalogue(native_path);
  for (const auto& [number, name] : GdbTableNames(native_path)) {
    const std::string base = GdbTableBase(native_path, number);
    if (!IsOwnTable(name) && HasFiles(base)) Append(findings, CheckGdbTable(base, name));
  }
  return findings;
}

}  // namespace tessarine::engine
