// SPDX-License-Identifier: GPL-2.0-or-later
// Names and texts in statements, as a database itself reads them.
#include "engine/sql.h"

#include <gmock/gmock.h>

#include "engine/engine_fault.h"
#include "engine/test_layers.h"

namespace tessarine::engine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Sql, AnyCharacterMayBeInNamesAndTexts) {
  const testing::TemporaryFolder folder;
  testing::WriteLayer({"GPKG", folder.Native("a.gpkg"), "plain", wkbPoint, {{"POINT (1 2)"}}});
  const GDALDatasetUniquePtr data(GDALDataset::Open(folder.Native("a.gpkg").c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
  ASSERT_NE(data, nullptr);
  const GdalErrorScope errors;
  for (const std::string odd : {"a \"b\" c", "it's; DROP", "x.y", "größe"}) {
    const std::string table = SqlName(odd), column = SqlName("column " + odd);
    RunSql(*data, "CREATE TABLE " + table + " (" + column + " TEXT)");
    RunSql(*data, "INSERT INTO " + table + " VALUES (" + SqlText(odd) + "), (" + SqlText("'") + ")");
    EXPECT_THAT(AskSqlTexts(*data, "SELECT " + column + " FROM " + table + " ORDER BY rowid"), ElementsAre(odd, "'"));
  }
  EXPECT_FALSE(errors.Failed()) << errors.Text();
  EXPECT_THAT(AskSqlTexts(*data, "SELECT nothing FROM nowhere"), IsEmpty());
  EXPECT_TRUE(errors.Failed());
}

TEST(Sql, ATableOfAServerStandsInItsSchema) {
  EXPECT_EQ(SqlTable("My \"Towns\""), "\"My \"\"Towns\"\"\"");
  EXPECT_EQ(SqlTable("Own Schema.My Towns"), "\"Own Schema\".\"My Towns\"");
  EXPECT_EQ(SqlTable("a.b.c"), "\"a\".\"b.c\"");
}

}  // namespace
}  // namespace tessarine::engine
