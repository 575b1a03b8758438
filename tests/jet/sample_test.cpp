// SPDX-License-Identifier: GPL-2.0-or-later
// A database that other software made: what we would write of it is what is there.
#include <algorithm>

#include "helpers/temporary_folder.h"
#include "jet/check.h"

namespace {

using namespace tessarine::jet;

const char* const kSample = TESSARINE_TEST_DATA "/personal_geodatabase.mdb";

TEST(JetSample, EveryPageMapIndexAndCountIsUnderstood) {
  Database database(kSample, Database::Mode::Read);
  const CheckReport report = CheckDatabase(database);
  EXPECT_THAT(report.findings, ::testing::IsEmpty());
  // A name there begins with a control character.
  EXPECT_THAT(report.unknown_order, ::testing::ElementsAre("the index 'ParentIdName' of 'MSysAccessStorage'"));
}

TEST(JetSample, EveryIndexMadeAnewHasTheSameEntries) {
  Database database(kSample, Database::Mode::Read);
  std::size_t indexes = 0, entries = 0;
  for (const TableEntry& entry : database.Tables()) {
    const Table& table = database.Open(entry.name);
    const std::vector<IndexEntries> made = table.EntriesFromRows();
    for (std::size_t index = 0; index < made.size(); ++index) {
      if (table.HasKeptKeys(index)) continue;
      const auto stored = ReadIndexEntries(database.File(), table.Definition().indexes[index].root, entry.page);
      EXPECT_EQ(stored, made[index]) << entry.name;
      ++indexes;
      entries += stored.size();
    }
  }
  EXPECT_EQ(indexes, 144U);
  EXPECT_GT(entries, 1000U);
}

TEST(JetSample, EveryRowAndDefinitionPackedAgainHasTheSameBytes) {
  Database database(kSample, Database::Mode::Read);
  int rows = 0, definitions = 0;
  for (const TableEntry& entry : database.Tables()) {
    const Table& table = database.Open(entry.name);
    for (Table::Scan scan(table); scan.Next(); ++rows) {
      EXPECT_TRUE(std::ranges::equal(PackRow(table.Definition(), scan.Values()), scan.Bytes()))
          << entry.name << " page " << scan.Id().page << " slot " << int{scan.Id().slot};
    }
    const Bytes packed = PackTableDefinition(table.Definition());
    Page stored = *database.File().Read(entry.page);
    stored[2] = stored[3] = 0;  // the free bytes of the page
    EXPECT_TRUE(std::equal(packed.begin(), packed.end(), stored.begin())) << entry.name;
    ++definitions;
  }
  EXPECT_EQ(rows, 542);
  EXPECT_EQ(definitions, 51);
}

TEST(JetSample, LongValuesOfAllThreePlacesAreRead) {
  Database database(kSample, Database::Mode::Read);
  Table& items = database.Open("GDB_Items");
  const std::size_t name = items.ColumnPlace("Name"), definition = items.ColumnPlace("Definition");
  const std::size_t path = items.ColumnPlace("Path");
  int found = 0;
  for (Table::Scan scan(items); scan.Next();) {
    const RowValues values = scan.Values();
    if (values[name] != Value(std::string("PointZM"))) continue;
    ++found;
    EXPECT_EQ(items.ReadMemo(values[path]), "\\PointDataset\\PointZM");
    const std::string xml = items.ReadMemo(values[definition]);
    EXPECT_TRUE(xml.starts_with("<DEFeatureClassInfo")) << xml.substr(0, 40);
    EXPECT_TRUE(xml.ends_with("</DEFeatureClassInfo>")) << xml.size();
  }
  EXPECT_EQ(found, 1);
}

// A new header has to look as those that are there; date and engine go with the owners.
TEST(JetSample, ANewHeaderIsThatOfTheSample) {
  const tessarine::testing::TemporaryFolder folder;
  const auto made = Database::Create(folder.Native("new.mdb"), 45000);
  made->Commit();
  Database sample(kSample, Database::Mode::Read);
  EXPECT_EQ(UnmaskHeader(*made->File().Read(0)), UnmaskHeader(*sample.File().Read(0)));
  EXPECT_TRUE(
      std::equal(made->File().Read(0)->begin(), made->File().Read(0)->begin() + 0xE00, sample.File().Read(0)->begin()));
  for (const char* name : {"MSysObjects", "MSysACEs", "MSysQueries", "MSysRelationships"}) {
    const TableDefinition& ours = made->Open(name).Definition();
    const TableDefinition& theirs = sample.Open(name).Definition();
    ASSERT_EQ(ours.columns.size(), theirs.columns.size());
    Page mine = *made->File().Read(ours.page), other = *sample.File().Read(theirs.page);
    const std::size_t columns = 63 + ours.indexes.size() * 12;
    EXPECT_TRUE(std::equal(mine.begin() + static_cast<std::ptrdiff_t>(columns),
                           mine.begin() + static_cast<std::ptrdiff_t>(columns + ours.columns.size() * 25),
                           other.begin() + static_cast<std::ptrdiff_t>(columns)))
        << name;
    for (std::size_t index = 0; index < ours.indexes.size(); ++index) {
      EXPECT_EQ(ours.indexes[index].flags, theirs.indexes[index].flags) << name;
      EXPECT_EQ(ours.index_names[index].stored, theirs.index_names[index].stored) << name;
    }
  }
}

}  // namespace
