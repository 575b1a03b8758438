// SPDX-License-Identifier: GPL-2.0-or-later
// The database's own tables, which every database has in the same places.
//
// MSysObjects (definition on page 2) has a row for each table, with the page of its definition as the number; MSysACEs
// (page 3) who may do what with it; MSysQueries (4) and MSysRelationships (5) are empty here. Tables belong to the
// container 0x0F000001. Owners are two bytes that depend on page 0's masked part; a set of both that was seen together
// is used for new databases.
#pragma once

#include <cstdint>

#include "jet/database.h"

namespace tessarine::jet {

inline constexpr std::uint32_t kObjectsPage = 2;
inline constexpr std::uint32_t kPermissionsPage = 3;
inline constexpr std::int32_t kTablesContainer = 0x0F000001;
inline constexpr std::int32_t kTableType = 1;
inline constexpr std::uint32_t kSystemFlags = 0x80000002;

/// Makes pages 0 to 5 of an empty file with what they lead to, all tables without rows.
void MakeSystemPages(PageFile& file, FreePages& free_pages);
/// The first rows of the database's own tables. `date` as for `Database::Create`.
void FillSystemTables(Table& objects, Table& permissions, double date);
/// Who may do what with a new table where no other tells.
struct Permission {
  std::int32_t rights = 0;
  Bytes user;
};
[[nodiscard]] std::vector<Permission> DefaultPermissions();

}  // namespace tessarine::jet
