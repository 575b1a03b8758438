// SPDX-License-Identifier: GPL-2.0-or-later
// Damaged files end in an error, never in a crash or a walk without end.
#include <fstream>
#include <iterator>
#include <random>

#include "helpers/temporary_folder.h"
#include "jet/check.h"

namespace {

using namespace tessarine::jet;
using tessarine::testing::TemporaryFolder;

std::string Whole(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Store(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// A small database with all that a reader meets.
std::string SmallDatabase(const std::string& path) {
  const auto database = Database::Create(path, 45000);
  Table& table = database->CreateTable({"T",
                                        {{"Id", ColumnType::Long, 0, true},
                                         {"Words", ColumnType::Text, 100},
                                         {"Blob", ColumnType::Ole},
                                         {"Notes", ColumnType::Memo}},
                                        {{"PK", {"Id"}, Index::kUnique}, {"ByWords", {"Words"}}}},
                                       45000);
  for (int row = 0; row < 300; ++row) {
    table.Insert({std::monostate{}, "row " + std::to_string(row), Bytes(static_cast<std::size_t>(row) * 30, 1),
                  std::string("note")});
  }
  database->Commit();
  return Whole(path);
}

// Reads everything, and then writes; says whether the checker or an error noticed something.
bool ReadAndWrite(const std::string& path) {
  try {
    bool noticed = false;
    {
      Database database(path, Database::Mode::Read);
      noticed = !CheckDatabase(database).findings.empty();
    }
    Database database(path, Database::Mode::Write);
    for (const TableEntry& entry : database.Tables()) {
      if (entry.name != "T") continue;
      Table& table = database.Open(entry.name);
      std::vector<RowId> rows;
      for (Table::Scan scan(table); scan.Next() && rows.size() < 20;) rows.push_back(scan.Id());
      for (const RowId row : rows) table.Update(row, {{table.ColumnPlace("Words"), std::string("changed")}});
      if (!rows.empty()) table.Delete(rows.front());
      table.Insert(RowValues(table.Definition().columns.size()));
    }
    database.Commit();
    return noticed;
  } catch (const Error& error) {
    EXPECT_STRNE(error.what(), "");
    return true;
  }
}

TEST(JetDamage, BytesOfAnyPageChanged) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("damaged.mdb");
  const std::string sound = SmallDatabase(path);
  std::mt19937 random(20260314);
  int noticed = 0;
  constexpr int kRounds = 400;
  for (int round = 0; round < kRounds; ++round) {
    std::string bytes = sound;
    // The beginnings of pages hold what leads on.
    const std::size_t page = random() % (bytes.size() / kPageSize);
    for (auto count = 1 + random() % 4; count > 0; --count) {
      const std::size_t at = random() % 2 == 0 ? random() % 64 : random() % kPageSize;
      bytes[page * kPageSize + at] = static_cast<char>(random() % 3 == 0 ? 0xFF : random());
    }
    Store(path, bytes);
    if (ReadAndWrite(path)) ++noticed;
  }
  EXPECT_GT(noticed, kRounds / 4);
}

TEST(JetDamage, PagesExchangedAndFilesCut) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("damaged.mdb");
  const std::string sound = SmallDatabase(path);
  std::mt19937 random(7);
  const std::size_t pages = sound.size() / kPageSize;
  for (int round = 0; round < 100; ++round) {
    std::string bytes = sound;
    const std::size_t one = random() % pages, other = random() % pages;
    if (one == other) continue;
    bytes.replace(one * kPageSize, kPageSize, sound, other * kPageSize, kPageSize);
    Store(path, bytes);
    ReadAndWrite(path);
  }
  for (int round = 0; round < 40; ++round) {
    Store(path, sound.substr(0, random() % sound.size()));
    EXPECT_TRUE(ReadAndWrite(path));
  }
}

}  // namespace
