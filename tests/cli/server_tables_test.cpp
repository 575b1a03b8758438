// SPDX-License-Identifier: GPL-2.0-or-later
// Tables of a PostgreSQL server as outputs, looked at through a connection of the test's own.
#include <gmock/gmock.h>

#include <cstdlib>

#include "cli/output_runs.h"

namespace tessarine::testing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

// TESSARINE_POSTGRES holds the connection of a server with PostGIS, as "host=127.0.0.1 dbname=test user=test".
class ServerTables : public OutputRuns {
 protected:
  void SetUp() override {
    const char* named = std::getenv("TESSARINE_POSTGRES");
    if (named == nullptr) GTEST_SKIP() << "TESSARINE_POSTGRES names no server";
    connection = named;
    server = "PG:" + connection;
  }
  [[nodiscard]] GDALDatasetUniquePtr OpenServer() const {
    return GDALDatasetUniquePtr(GDALDataset::Open(server.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
  }

  std::string connection, server;
};

TEST_F(ServerTables, ATableOfAServerIsMadeInOneStep) {
  const std::string table = server + ":public.tessarine_centroids";
  ASSERT_EQ(Centroids(table, {"--overwrite"}).status, 0);
  EXPECT_EQ(CountOf(server, "tessarine_centroids"), 177);
  EXPECT_EQ(Centroids(table).status, 2);
  // A server that asks for none takes any password.
  const ProgramOutcome secret = Centroids("PG:password=geheim " + connection + ":public.tessarine_centroids");
  EXPECT_EQ(secret.status, 2);
  EXPECT_THAT(secret.out + secret.err, AllOf(HasSubstr("password=***"), Not(HasSubstr("geheim"))));
  EXPECT_EQ(Centroids(table, {"-n", "--overwrite"}).status, 0);
  EXPECT_EQ(Centroids(server + ":nowhere.centroids").status, 2);
  EXPECT_EQ(Calculate(Data("cities.shp"), server + ":nowhere.cities").status, 2);
  const ProgramOutcome itself = RunTessarine({"wrap", table, "--range", "360", "-q", "--overwrite", "-o", table});
  EXPECT_EQ(itself.status, 2);
  EXPECT_THAT(itself.err, HasSubstr("is read by this run"));
  // A run that fails keeps the table as it was.
  EXPECT_EQ(RunWithoutRoom({"vertices", Data("countries.shp"), "-q", "--overwrite", "-o", table}, 150000).status, 1);
  EXPECT_EQ(CountOf(server, "tessarine_centroids"), 177);
  ASSERT_EQ(RunTessarine({"wrap", table, "--range", "360", "-q", "-o", In("o.gpkg")}).status, 0);
  EXPECT_EQ(CountOf(In("o.gpkg"), "o"), 177);
  const GDALDatasetUniquePtr data = OpenServer();
  // Nor is it dropped with what others made of it.
  data->ExecuteSQL("CREATE VIEW tessarine_view AS SELECT * FROM tessarine_centroids", nullptr, nullptr);
  const ProgramOutcome viewed = Centroids(table, {"--overwrite"});
  EXPECT_EQ(viewed.status, 2);
  EXPECT_THAT(viewed.err + viewed.out, HasSubstr("tessarine_view"));
  EXPECT_EQ(CountOf(server, "tessarine_view"), 177);
  data->ExecuteSQL("DROP VIEW tessarine_view", nullptr, nullptr);
  data->ExecuteSQL("DROP TABLE tessarine_centroids", nullptr, nullptr);
}

std::string Answer(GDALDataset& data, const std::string& query) {
  OGRLayer* answer = data.ExecuteSQL(query.c_str(), nullptr, nullptr);
  if (answer == nullptr) return "none";
  std::string text;
  for (const auto& row : *answer) text += std::string(row->GetFieldAsString(0)) + ";";
  data.ReleaseResultSet(answer);
  return text;
}

TEST_F(ServerTables, ATableOfAServerKeepsWhatItIsGivenBesideItsRows) {
  const std::string table = server + ":public.My Towns";
  ASSERT_EQ(Centroids(table).status, 0);
  const GDALDatasetUniquePtr data = OpenServer();
  const auto execute = [&](const char* statement) { (void)Answer(*data, statement); };
  execute("CREATE ROLE tessarine_reader");
  execute("GRANT SELECT ON \"My Towns\" TO tessarine_reader");
  execute("GRANT INSERT ON \"My Towns\" TO PUBLIC");
  execute("CREATE INDEX my_index ON \"My Towns\" (\"Uniq_ID\")");
  execute("CREATE INDEX my_lower ON \"My Towns\" (lower(name))");
  execute("ALTER TABLE \"My Towns\" ADD CONSTRAINT my_check CHECK (\"Uniq_ID\" > -1)");
  execute("ALTER TABLE \"My Towns\" ADD COLUMN own int");
  execute("CREATE INDEX my_own ON \"My Towns\" (own)");
  const ProgramOutcome run = Centroids(table, {"--overwrite", "-r", In("r.json")});
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Answer(*data,
                   "SELECT indexname FROM pg_indexes WHERE tablename = 'My Towns' AND indexname LIKE 'my%' "
                   "ORDER BY 1"),
            "my_index;my_lower;");
  EXPECT_EQ(Answer(*data,
                   "SELECT grantee || ' ' || privilege_type FROM information_schema.role_table_grants WHERE "
                   "table_name = 'My Towns' AND grantee IN ('PUBLIC', 'tessarine_reader') ORDER BY 1"),
            "PUBLIC INSERT;tessarine_reader SELECT;");
  EXPECT_EQ(Answer(*data, "SELECT conname FROM pg_constraint WHERE conname = 'my_check'"), "my_check;");
  EXPECT_THAT(Report()["warnings"].dump(), HasSubstr("my_own"));
  EXPECT_EQ(CountOf(server, "My Towns"), 177);
  // A column that a run adds holds any number, under the name that was asked for.
  ASSERT_EQ(
      RunTessarine({"wrap", Data("countries.shp"), "--range", "360", "-q", "-o", server + ":tessarine_wide"}).status,
      0);
  // On one thread records are read while others are written.
  for (const char* jobs : {"1", "2"}) {
    const ProgramOutcome in_place =
        RunTessarine({"calculate", server + ":tessarine_wide", "-m", "Sph. Area=AREA", "-q", "--yes", "-j", jobs});
    ASSERT_EQ(in_place.status, 0) << in_place.err;
    EXPECT_EQ(Answer(*data, "SELECT count(*)::text FROM tessarine_wide WHERE \"AREA\" > 1e6"), "177;") << jobs;
    execute("UPDATE tessarine_wide SET \"AREA\" = NULL");
  }
  EXPECT_EQ(Answer(*data,
                   "SELECT data_type FROM information_schema.columns WHERE table_name = 'tessarine_wide' AND "
                   "column_name = 'AREA'"),
            "double precision;");
  execute("CREATE POLICY my_policy ON \"My Towns\" USING (true)");
  const ProgramOutcome refused = Centroids(table, {"--overwrite"});
  EXPECT_NE(refused.status, 0);
  EXPECT_THAT(refused.err + refused.out, HasSubstr("my_policy"));
  EXPECT_EQ(CountOf(server, "My Towns"), 177);
  for (const char* statement : {"DROP TABLE \"My Towns\"", "DROP TABLE tessarine_wide", "DROP ROLE tessarine_reader"}) {
    execute(statement);
  }
}

}  // namespace
}  // namespace tessarine::testing
