// SPDX-License-Identifier: GPL-2.0-or-later
// Databases made here: read back by us and by a reader that others wrote.
#include <array>
#include <cstdio>
#include <fstream>
#include <map>
#include <random>

#include "helpers/temporary_folder.h"
#include "jet/check.h"

namespace {

using namespace tessarine::jet;
using tessarine::testing::TemporaryFolder;
using ::testing::HasSubstr;

constexpr double kDate = 45000.25;

std::string OutputOf(const std::string& command) {
  std::string text;
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  std::array<char, 4096> part{};
  while (const std::size_t read = std::fread(part.data(), 1, part.size(), pipe)) text.append(part.data(), read);
  EXPECT_EQ(pclose(pipe), 0) << command << "\n" << text;
  return text;
}

void ExpectSound(const std::string& path) {
  Database database(path, Database::Mode::Read);
  const CheckReport report = CheckDatabase(database);
  EXPECT_THAT(report.findings, ::testing::IsEmpty());
  EXPECT_THAT(report.unknown_order, ::testing::IsEmpty());
  EXPECT_EQ(report.lost_pages, 0U);
}

TableSpec EveryType() {
  using enum ColumnType;
  return {"Everything",
          {{"Id", Long, 0, true},
           {"Flag", Flag},
           {"Tiny", Byte},
           {"Small", Short},
           {"Whole", Long},
           {"Money", Money},
           {"Single", Single},
           {"Real", Double},
           {"Day", Date},
           {"Raw", Binary, 20},
           {"Words", Text, 255},
           {"Blob", Ole},
           {"Notes", Memo},
           {"Key", Guid}},
          {{"PK", {"Id"}, Index::kUnique | Index::kRequired}, {"ByReal", {"Real"}}, {"ByKey", {"Key", "Whole"}}}};
}

RowValues RowOfEveryType() {
  return {std::monostate{},
          true,
          std::int32_t{255},
          std::int32_t{-32768},
          std::int32_t{-7},
          std::int64_t{12345678901},
          1.5F,
          -0.1,
          36526.5,
          Bytes{1, 0, 2},
          std::string("Zürich 東京 \xF0\x9F\x8C\x8D"),
          Bytes(9000, 7),
          std::string(5000, 'x') + "é",
          GuidOf("{F3783E6F-65CA-4514-8315-CE3985DAD3B1}")};
}

TEST(JetDatabase, EveryTypeComesBack) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("types.mdb");
  {
    const auto database = Database::Create(path, kDate);
    Table& table = database->CreateTable(EveryType(), kDate);
    table.Insert(RowOfEveryType());
    table.Insert(RowValues(14));
    database->Commit();
  }
  ExpectSound(path);
  Database database(path, Database::Mode::Read);
  Table& table = database.Open("everything");
  Table::Scan scan(table);
  ASSERT_TRUE(scan.Next());
  RowValues values = scan.Values();
  const RowValues expected = RowOfEveryType();
  EXPECT_EQ(values[0], Value(1));
  for (const std::size_t column : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 13})
    EXPECT_EQ(values[column], expected[column]) << column;
  EXPECT_EQ(Value(table.ReadLong(values[11])), expected[11]);
  EXPECT_EQ(Value(table.ReadMemo(values[12])), expected[12]);
  ASSERT_TRUE(scan.Next());
  values = scan.Values();
  EXPECT_EQ(values[0], Value(2));
  EXPECT_EQ(values[1], Value(false));
  for (std::size_t column = 2; column < 14; ++column) EXPECT_TRUE(IsNull(values[column])) << column;
  EXPECT_FALSE(scan.Next());
}

TEST(JetDatabase, AReaderOfOthersReadsThem) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("types.mdb");
  const auto database = Database::Create(path, kDate);
  Table& table = database->CreateTable(EveryType(), kDate);
  RowValues row = RowOfEveryType();
  row[11] = Bytes{1, 2, 3};
  table.Insert(row);
  database->CreateTable({"Second", {{"Id", ColumnType::Long}}, {}}, kDate);
  database->Commit();
  EXPECT_EQ(OutputOf("mdb-tables -1 " + path), "Everything\nSecond\n");
  EXPECT_EQ(OutputOf("mdb-count " + path + " Everything"), "1\n");
  const std::string json = OutputOf("mdb-json " + path + " Everything");
  for (const char* part :
       {"\"Id\":1", "\"Flag\":1", "\"Tiny\":255", "\"Small\":-32768", "\"Whole\":-7", "\"Real\":-0.1", "\"Single\":1.5",
        "\"Day\":\"01/01/00 12:00:00\"", "\"Words\":\"Zürich 東京 "}) {
    EXPECT_THAT(json, HasSubstr(part));
  }
  EXPECT_THAT(json, HasSubstr("\"$binary\": \"AQID\""));
  EXPECT_NE(json.find(std::string(5000, 'x') + "é\""), std::string::npos);
  const std::string schema = OutputOf("mdb-schema " + path + " access -T Everything");
  EXPECT_THAT(schema, HasSubstr("[Words]\t\t\tText (255)"));
  EXPECT_THAT(schema, HasSubstr("[Id]\t\t\tLong Integer"));
}

// What the table should hold, told by identifier.
struct Model {
  std::map<std::int32_t, std::pair<std::string, Bytes>> rows;
  std::map<std::int32_t, RowId> places;
};

void ExpectRows(Table& table, const Model& model) {
  std::size_t count = 0;
  for (Table::Scan scan(table); scan.Next(); ++count) {
    const RowValues values = scan.Values();
    const auto found = model.rows.find(std::get<std::int32_t>(values[0]));
    ASSERT_NE(found, model.rows.end());
    EXPECT_EQ(std::get<std::string>(values[1]), found->second.first);
    EXPECT_EQ(table.ReadLong(values[2]), found->second.second);
  }
  EXPECT_EQ(count, model.rows.size());
  EXPECT_EQ(table.RowCount(), model.rows.size());
}

class Torture {
 public:
  explicit Torture(unsigned seed) : random_(seed) {}

  void Work(Table& table, int steps) {
    for (int step = 0; step < steps; ++step) {
      const auto what = random_() % 10;
      if (what < 4 || model_.rows.empty()) {
        Insert(table);
      } else if (what < 8) {
        Update(table);
      } else {
        Delete(table);
      }
    }
  }
  [[nodiscard]] const Model& Expected() const { return model_; }

 private:
  std::string RandomText() { return std::string(random_() % 200, static_cast<char>('a' + random_() % 26)); }
  Bytes RandomBytes() {
    constexpr std::array<std::size_t, 5> kLengths = {0, 64, 65, 4076, 9500};
    return Bytes(kLengths[random_() % kLengths.size()] + random_() % 3, static_cast<std::uint8_t>(random_()));
  }
  void Insert(Table& table) {
    const std::int32_t number = table.NextNumber();
    auto& row = model_.rows[number];
    row = {RandomText(), RandomBytes()};
    model_.places[number] = table.Insert({std::monostate{}, row.first, row.second});
  }
  std::int32_t Any() {
    auto found = model_.rows.lower_bound(static_cast<std::int32_t>(random_() % (model_.rows.rbegin()->first + 1)));
    return found->first;
  }
  void Update(Table& table) {
    const std::int32_t number = Any();
    auto& row = model_.rows[number];
    ValueChanges changes;
    if (random_() % 2 == 0) changes.emplace_back(1, row.first = RandomText());
    if (random_() % 2 == 0) changes.emplace_back(2, row.second = RandomBytes());
    model_.places[number] = table.Update(model_.places[number], changes);
  }
  void Delete(Table& table) {
    const std::int32_t number = Any();
    table.Delete(model_.places[number]);
    model_.rows.erase(number);
    model_.places.erase(number);
  }

  std::mt19937 random_;
  Model model_;
};

TEST(JetDatabase, ThousandsOfChangesLeaveASoundFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("torture.mdb");
  Torture torture(7);
  {
    const auto database = Database::Create(path, kDate);
    database->CreateTable(
        {"T",
         {{"Id", ColumnType::Long, 0, true}, {"Words", ColumnType::Text, 255}, {"Blob", ColumnType::Ole}},
         {{"PK", {"Id"}, Index::kUnique | Index::kRequired}, {"ByWords", {"Words", "Id"}}}},
        kDate);
    database->Commit();
  }
  for (int round = 0; round < 6; ++round) {
    Database database(path, Database::Mode::Write);
    Table& table = database.Open("T");
    torture.Work(table, 1500);
    database.Commit();
    ExpectRows(table, torture.Expected());
  }
  ExpectSound(path);
  EXPECT_EQ(OutputOf("mdb-count " + path + " T"), std::to_string(torture.Expected().rows.size()) + "\n");
  const std::string ids = OutputOf("mdb-json " + path + " T | grep -c Id");
  EXPECT_EQ(ids, std::to_string(torture.Expected().rows.size()) + "\n");
}

// Maps of pages have three forms, by how far the file goes; an index of this many rows has three levels.
TEST(JetDatabase, LargeFilesKeepTheirMaps) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("large.mdb");
  constexpr std::int32_t kRows = 70000;
  {
    const auto database = Database::Create(path, kDate);
    Table& table = database->CreateTable({"T",
                                          {{"Id", ColumnType::Long, 0, true}, {"Fill", ColumnType::Binary, 510}},
                                          {{"PK", {"Id"}, Index::kUnique | Index::kRequired}}},
                                         kDate);
    Table& blobs = database->CreateTable({"Blobs", {{"Blob", ColumnType::Ole}}, {}}, kDate);
    for (std::int32_t row = 0; row < kRows; ++row) table.Insert({std::monostate{}, Bytes(400, 1)});
    blobs.Insert({Bytes(110'000'000, 3)});
    database->Commit();
    EXPECT_GT(database->File().PageCount(), 32736U);
  }
  ExpectSound(path);
  EXPECT_EQ(OutputOf("mdb-count " + path + " T"), "70000\n");
  EXPECT_EQ(OutputOf("mdb-json " + path + " T | wc -l"), "70000\n");
  {
    Database database(path, Database::Mode::Write);
    database.DropTable("Blobs");
    Table& table = database.Open("T");
    std::vector<RowId> odd;
    for (Table::Scan scan(table); scan.Next();) {
      if (std::get<std::int32_t>(scan.Values()[0]) % 2 == 1) odd.push_back(scan.Id());
    }
    for (const RowId row : odd) table.Delete(row);
    const std::uint32_t before = database.File().PageCount();
    database.CreateTable({"Again", {{"Blob", ColumnType::Ole}}, {}}, kDate).Insert({Bytes(90'000'000, 4)});
    database.Commit();
    EXPECT_EQ(database.File().PageCount(), before) << "freed pages are used again";
  }
  ExpectSound(path);
  EXPECT_EQ(OutputOf("mdb-count " + path + " T"), "35000\n");
}

TEST(JetDatabase, ColumnsAreAddedBehindTheRowsThatAreThere) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("columns.mdb");
  const auto database = Database::Create(path, kDate);
  Table& table = database->CreateTable({"T", {{"Id", ColumnType::Long, 0, true}}, {}}, kDate);
  const RowId first = table.Insert({std::monostate{}});
  database->AddColumn("T", {"Real", ColumnType::Double});
  database->AddColumn("T", {"Notes", ColumnType::Memo});
  database->AddColumn("T", {"Flag", ColumnType::Flag});
  EXPECT_EQ(table.Read(first), (RowValues{1, {}, {}, false}));
  table.Insert({std::monostate{}, 2.5, std::string("two"), true});
  for (int more = 0; more < 120; ++more)
    database->AddColumn("T", {"A_column_with_a_long_name_" + std::to_string(more), ColumnType::Text, 10});
  const RowId moved = table.Update(first, {{1, 1.5}, {123, std::string("last")}});
  database->Commit();
  EXPECT_EQ(table.Read(moved)[1], Value(1.5));
  ExpectSound(path);
  const std::string json = OutputOf("mdb-json " + path + " T");
  EXPECT_THAT(json, HasSubstr("\"Real\":1.5"));
  EXPECT_THAT(json, HasSubstr("\"Notes\":\"two\""));
  EXPECT_THAT(json, HasSubstr("\"A_column_with_a_long_name_119\":\"last\""));
}

TEST(JetDatabase, ATableThatIsDroppedLeavesNothing) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("drop.mdb");
  const auto database = Database::Create(path, kDate);
  database->Commit();
  const std::uint32_t before = database->File().PageCount();
  for (int round = 0; round < 3; ++round) {
    Table& table = database->CreateTable(EveryType(), kDate);
    table.Insert(RowOfEveryType());
    database->Commit();
    database->DropTable("Everything");
    database->Commit();
  }
  EXPECT_LT(database->File().PageCount(), before + 40);
  EXPECT_EQ(OutputOf("mdb-tables -1 " + path), "");
  ExpectSound(path);
}

struct UnfitRow {
  const char* name;
  std::size_t column;
  Value value;
  const char* told;
};

TEST(JetDatabase, ValuesThatDontFitAreRefused) {
  const TemporaryFolder folder;
  const auto database = Database::Create(folder.Native("unfit.mdb"), kDate);
  Table& table = database->CreateTable(EveryType(), kDate);
  const UnfitRow kRows[] = {
      {"whole number", 3, std::int32_t{40000}, "'Small' is too large"},
      {"byte", 2, std::int32_t{-1}, "'Tiny' is too large"},
      {"long text", 10, std::string(256, 'x'), "'Words' is too long"},
      {"bytes", 9, Bytes(21), "'Raw' is too long"},
      {"identifier", 13, Bytes(15), "'Key' is of another length"},
      {"type", 7, std::string("x"), "'Real' is of another type"},
      {"long type", 12, 1.0, "'Notes' is of another type"},
  };
  for (const UnfitRow& row : kRows) {
    RowValues values(14);
    values[row.column] = row.value;
    try {
      table.Insert(values);
      ADD_FAILURE() << row.name;
    } catch (const Error& error) {
      EXPECT_THAT(error.what(), HasSubstr(row.told)) << row.name;
    }
  }
  EXPECT_EQ(table.RowCount(), 0U);
  table.Insert({std::int32_t{5}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}});
  EXPECT_EQ(table.NextNumber(), 6);
  table.Insert({std::int32_t{5}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}});
  EXPECT_THROW(database->Commit(), Error) << "two rows under one number";
}

TEST(JetDatabase, FilesOfOtherKindsAreRefusedByName) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("other.mdb");
  struct Change {
    std::size_t at;
    std::uint8_t value;
    const char* told;
    Database::Mode mode = Database::Mode::Read;
  };
  const Change kChanges[] = {{0x14, 0, "before 2000"},
                             {0x14, 2, "newer format"},
                             {4, 'X', "no database"},
                             {0x3E, 0x55, "encrypted"},
                             {0x6E, 0x55, "another order", Database::Mode::Write}};
  for (const Change& change : kChanges) {
    Database::Create(path, kDate)->Commit();
    {
      std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
      file.seekp(static_cast<std::streamoff>(change.at));
      file.put(static_cast<char>(change.value));
    }
    try {
      const Database database(path, change.mode);
      ADD_FAILURE() << change.told;
    } catch (const Error& error) {
      EXPECT_THAT(error.what(), HasSubstr(change.told));
    }
  }
}

// Rows don't lie in the order of an index.
TEST(JetDatabase, TextsOfAnotherOrderAreRead) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("other.mdb");
  {
    const auto database = Database::Create(path, kDate);
    database->CreateTable(EveryType(), kDate).Insert(RowOfEveryType());
    Page& header = *database->File().Edit(0);
    Bytes plain = UnmaskHeader(header);
    Put32(plain, 0x56, 0x407);
    MaskHeader(plain, header);
    database->Commit();
  }
  Database database(path, Database::Mode::Read);
  Table::Scan scan(database.Open("Everything"));
  ASSERT_TRUE(scan.Next());
  EXPECT_EQ(scan.Values()[10], RowOfEveryType()[10]);
}

// An index that isn't as we would make it keeps us from writing.
TEST(JetDatabase, AnIndexThatIsntUnderstoodKeepsItsTableFromBeingWritten) {
  const TemporaryFolder folder;
  const std::string path = folder.Native("index.mdb");
  {
    const auto database = Database::Create(path, kDate);
    Table& table = database->CreateTable({"T", {{"Id", ColumnType::Long}}, {{"ById", {"Id"}}}}, kDate);
    table.Insert({std::int32_t{3}});
    database->Commit();
    std::shared_ptr<Page> root = database->File().Edit(table.Definition().indexes[0].root);
    (*root)[480 + 4] = 4;
    database->File().Flush();
  }
  Database database(path, Database::Mode::Write);
  try {
    database.Open("T").Insert({std::int32_t{4}});
    ADD_FAILURE() << "written";
  } catch (const Error& error) {
    EXPECT_THAT(error.what(), HasSubstr("'ById' of the table 'T'"));
  }
  EXPECT_THAT(CheckDatabase(database).findings,
              ::testing::ElementsAre("the index 'ById' of 'T' doesn't hold what the rows say"));
}

}  // namespace
