// SPDX-License-Identifier: GPL-2.0-or-later
// What isn't known of a file costs the table that has it, and no other; what is there stays as it is.
#include <algorithm>
#include <filesystem>
#include <functional>

#include "helpers/temporary_folder.h"
#include "jet/check.h"

namespace {

using namespace tessarine::jet;
using tessarine::testing::TemporaryFolder;
using ::testing::HasSubstr;

constexpr double kDate = 45000.25;

template <class Work>
std::string ErrorOf(Work&& work) {
  try {
    work();
  } catch (const Error& error) {
    return error.what();
  }
  return "(no error)";
}

TableSpec Cities(const std::string& name) {
  return {name,
          {{"Id", ColumnType::Long, 0, true}, {"Town", ColumnType::Text, 50}, {"Fill", ColumnType::Text, 255}},
          {{"PK", {"Id"}, Index::kUnique | Index::kRequired}, {"ByTown", {"Town"}}}};
}

// Two tables alike, of three rows each; the first is then changed byte by byte.
void MakeCities(const std::string& path) {
  const auto database = Database::Create(path, kDate);
  for (const char* name : {"Strange", "Plain"}) {
    Table& table = database->CreateTable(Cities(name), kDate);
    for (const char* town : {"Lima", "Zurich", "Oslo"}) table.Insert({std::monostate{}, std::string(town), {}});
  }
  database->Commit();
}

std::size_t CountRows(const Table& table) {
  std::size_t count = 0;
  for (Table::Scan scan(table); scan.Next();) ++count;
  return count;
}

void ChangePage(const std::string& path, std::uint32_t page, const std::function<void(Page&)>& change) {
  Database database(path, Database::Mode::Write);
  change(*database.File().Edit(page));
  database.File().Flush();
}

std::uint32_t PageOf(const std::string& path, const std::string& table) {
  Database database(path, Database::Mode::Read);
  return database.Open(table).Definition().page;
}

struct StrangeRow {
  const char* name;
  std::size_t at;  // in the page of the definition
  std::uint8_t value;
  const char* told;
};
constexpr std::size_t kColumnsAt = 63 + 2 * 12;  // after the counts of two indexes

TEST(JetUnknownParts, ATableThatIsntUnderstoodCostsNoOther) {
  const StrangeRow kRows[] = {
      {"type of a column", kColumnsAt + 25, 0x11, "type 17, which isn't known"},
      {"kind of page", 0, 9, "is no definition of a table"},
      {"count of columns", 45, 0xFF, "type 0, which isn't known"},
      {"map of its pages", 56, 0x70, "points to page"},
  };
  for (const StrangeRow& row : kRows) {
    const TemporaryFolder folder;
    const std::string path = folder.Native("strange.mdb");
    MakeCities(path);
    ChangePage(path, PageOf(path, "Strange"), [&](Page& page) { page[row.at] = row.value; });
    {
      Database database(path, Database::Mode::Write);
      EXPECT_TRUE(database.Has("Strange")) << row.name;
      const std::string error = ErrorOf([&] { (void)database.Open("Strange"); });
      EXPECT_THAT(error, HasSubstr("the table 'Strange'")) << row.name;
      EXPECT_THAT(error, HasSubstr(row.told)) << row.name;
      EXPECT_THAT(ErrorOf([&] { database.DropTable("Strange"); }), HasSubstr("'Strange'")) << row.name;
      EXPECT_THAT(ErrorOf([&] { (void)database.CreateTable(Cities("strange"), kDate); }), HasSubstr("already"));
      database.Open("Plain").Insert({std::monostate{}, std::string("Rome"), {}});
      database.CreateTable(Cities("New"), kDate).Insert({std::monostate{}, std::string("Bern"), {}});
      database.Commit();
    }
    Database database(path, Database::Mode::Read);
    EXPECT_EQ(CountRows(database.Open("Plain")), 4U) << row.name;
    EXPECT_EQ(CountRows(database.Open("New")), 1U) << row.name;
    const CheckReport report = CheckDatabase(database);
    ASSERT_EQ(report.findings.size(), 1U) << row.name;
    EXPECT_THAT(report.findings.front(), HasSubstr(row.told)) << row.name;
  }
}

// The definition would be written anew, without what isn't known.
TEST(JetUnknownParts, ADefinitionThatIsntWhollyKnownGetsNoColumn) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("strange.mdb");
  MakeCities(path);
  ChangePage(path, PageOf(path, "Strange"), [](Page& page) { page[30] = 7; });
  Database database(path, Database::Mode::Write);
  EXPECT_THAT(ErrorOf([&] {
                database.AddColumn("Strange", {"More", ColumnType::Double});
              }),
              HasSubstr("'Strange' holds what isn't known here"));
  database.Open("Strange").Insert({std::monostate{}, std::string("Rome"), {}});
  database.AddColumn("Plain", {"More", ColumnType::Double});
  database.Commit();
  EXPECT_EQ((*database.File().Read(database.Open("Strange").Definition().page))[30], 7);
}

// The key of "Zürich" isn't known here. It stands for one that other software made.
class JetUnknownOrder : public ::testing::Test {
 protected:
  void SetUp() override {
    MakeCities(path_);
    Database database(path_, Database::Mode::Write);
    Table& table = database.Open("Strange");
    for (Table::Scan scan(table); scan.Next();) {
      if (scan.Values()[1] == Value(std::string("Zurich"))) row_ = scan.Id();
    }
    Page& page = *database.File().Edit(row_.page);
    const Bytes before = StoredText("Zurich"), after = StoredText("Zürich");
    const auto found = std::search(page.begin(), page.end(), before.begin(), before.end());
    ASSERT_NE(found, page.end());
    std::copy(after.begin(), after.end(), found);
    database.File().Flush();
  }
  Key KeyAt(RowId row) const {
    Database database(path_, Database::Mode::Read);
    const TableDefinition& definition = database.Open("Strange").Definition();
    for (const Key& entry : ReadIndexEntries(database.File(), definition.indexes[0].root, definition.page)) {
      if (RowOfEntry(entry) == row) return Key(KeyOfEntry(entry));
    }
    return {};
  }
  void ExpectSound(std::size_t rows) const {
    Database database(path_, Database::Mode::Read);
    const CheckReport report = CheckDatabase(database);
    EXPECT_THAT(report.findings, ::testing::IsEmpty());
    EXPECT_EQ(CountRows(database.Open("Strange")), rows);
  }
  const TemporaryFolder folder_;
  const std::string path_ = folder_.Native("order.mdb");
  RowId row_;
};

TEST_F(JetUnknownOrder, TheKeyThatIsThereStaysWithItsRow) {
  const Key key = KeyAt(row_);
  ASSERT_FALSE(key.empty());
  RowId moved;
  {
    Database database(path_, Database::Mode::Write);
    Table& table = database.Open("Strange");
    // So many that the row leaves its page when it grows.
    for (int count = 0; count < 200; ++count) table.Insert({std::monostate{}, std::string("Rome"), {}});
    moved = table.Update(row_, {{2, std::string(250, 'x')}});
    database.Commit();
  }
  EXPECT_NE(moved, row_);
  EXPECT_EQ(KeyAt(moved), key);
  EXPECT_EQ(KeyAt(row_), "");
  ExpectSound(203);
  Database database(path_, Database::Mode::Read);
  EXPECT_THAT(CheckDatabase(database).unknown_order, ::testing::ElementsAre("the index 'ByTown' of 'Strange'"));
}

TEST_F(JetUnknownOrder, AnotherTextOfItsKindIsRefused) {
  Database database(path_, Database::Mode::Write);
  Table& table = database.Open("Strange");
  const Value town = std::string("Genève");
  EXPECT_THAT(ErrorOf([&] { table.Update(row_, {{1, town}}); }), HasSubstr("'Town' can't take 'Genève'"));
  EXPECT_THAT(ErrorOf([&] { table.Insert({std::monostate{}, town, {}}); }), HasSubstr("can't take 'Genève'"));
  table.Update(row_, {{1, std::string("Geneva")}});
  database.Commit();
  ExpectSound(3);
}

TEST_F(JetUnknownOrder, TheRowCanGo) {
  {
    Database database(path_, Database::Mode::Write);
    database.Open("Strange").Delete(row_);
    database.Commit();
  }
  EXPECT_EQ(KeyAt(row_), "");
  ExpectSound(2);
}

TEST(JetLimits, NoFileGrowsBeyondTwoGigabytes) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("full.mdb");
  MakeCities(path);
  constexpr std::uintmax_t kMost = (std::uintmax_t{1} << 31U) - kPageSize;
  std::filesystem::resize_file(path, kMost);  // a hole
  {
    Database database(path, Database::Mode::Write);
    database.CreateTable({"Blobs", {{"Blob", ColumnType::Ole}}, {}}, kDate);
    // The pages that the map tells of as free are used up first.
    EXPECT_THAT(ErrorOf([&] { database.Open("Blobs").Insert({Bytes(3'000'000, 1)}); }),
                HasSubstr("can't grow beyond 2 GB, the limit of its format"));
  }
  std::filesystem::resize_file(path, kMost + 2 * kPageSize);
  EXPECT_THAT(ErrorOf([&] { const Database database(path, Database::Mode::Read); }),
              HasSubstr("larger than the format's 2 GB"));
}

TEST(JetLimits, ATextThatWouldBeReadAsPackedIsRefused) {
  const TemporaryFolder folder;
  const auto database = Database::Create(folder.Native("mark.mdb"), kDate);
  Table& table = database->CreateTable({"T", {{"Words", ColumnType::Text, 9}, {"Notes", ColumnType::Memo}}, {}}, kDate);
  const Value marked = std::string("\xEF\xBB\xBFx");
  EXPECT_THAT(ErrorOf([&] { table.Insert({marked, {}}); }), HasSubstr("U+FEFF"));
  EXPECT_THAT(ErrorOf([&] { table.Insert({Value(), marked}); }), HasSubstr("U+FEFF"));
}

}  // namespace
