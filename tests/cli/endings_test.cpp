// SPDX-License-Identifier: GPL-2.0-or-later
// How runs end that don't go their way: signals, questions, streams that take nothing, values that are empty, plans of
// what would be refused.
#include <fcntl.h>
#include <pty.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <nlohmann/json.hpp>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class Endings : public ProgramTest {
 protected:
  // What stands after the command goes to the shell: where the streams lead.
  int Shell(const std::string& arguments, const std::string& streams) {
    const std::string line =
        std::string("'") + TESSARINE_PROGRAM + "' " + arguments + " 2>'" + In("err") + "' " + streams;
    const int status = std::system(line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  [[nodiscard]] std::string Errors() const { return ReadFile(In("err")); }
};

struct EmptyRow {
  const char* name;
  std::vector<std::string> arguments;
};

void PrintTo(const EmptyRow& row, std::ostream* out) { *out << row.name; }

class EmptyValues : public ProgramTest, public ::testing::WithParamInterface<EmptyRow> {};

TEST_P(EmptyValues, AreRefused) {
  std::vector<std::string> arguments = GetParam().arguments;
  for (std::string& argument : arguments) {
    if (argument == "SHP") argument = Data("countries.shp");
    if (argument == "MAP") argument = Data("graphics.json");
    if (argument == "OUT") argument = In("out.shp");
  }
  const ProgramOutcome run = RunTessarine(arguments);
  EXPECT_EQ(run.status, 2) << run.out;
  EXPECT_THAT(run.err, HasSubstr("there is nothing behind it"));
  EXPECT_THAT(Left(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Options, EmptyValues,
    ::testing::Values(
        EmptyRow{"where", {"vertices", "SHP", "-o", "OUT", "--where", ""}},
        EmptyRow{"blanks", {"vertices", "SHP", "-o", "OUT", "--where", "  "}},
        EmptyRow{"layer", {"split", "SHP", "-o", "OUT", "--layer", ""}},
        EmptyRow{"document", {"wrap", "SHP", "--range", "360", "-o", "OUT", "--document", ""}},
        EmptyRow{"report", {"centroids", "SHP", "-o", "OUT", "--report", ""}},
        EmptyRow{"tolerance", {"build-polygons", "SHP", "-o", "OUT", "-t", ""}},
        EmptyRow{"label where",
                 {"build-polygons", "SHP", "-o", "OUT", "--labels", "SHP", "--label-fields", "a", "--label-where", ""}},
        EmptyRow{"shift", {"to-graphic", "SHP", "-o", "OUT", "--shift", ""}},
        EmptyRow{"spheroid", {"calculate", "SHP", "--all-measures", "-o", "OUT", "--spheroid", ""}},
        EmptyRow{"source", {"info", ""}}, EmptyRow{"pattern", {"graphics", "select", "MAP", "--pattern", ""}},
        EmptyRow{"name", {"graphics", "name", "MAP", "", "--yes"}},
        EmptyRow{"reference", {"graphics", "new", "MAP", "points", "-o", "OUT", "--reference", ""}}),
    [](const auto& row) {
      std::string name = row.param.name;
      std::erase(name, ' ');
      return name;
    });

TEST_F(Endings, AReportThatCanNotBePrintedIsNoSuccess) {
  const std::string vertices = "vertices '" + Data("countries.shp") + "' --overwrite -o '" + In("v.shp") + "'";
  for (const std::string& command : {vertices, "info '" + Data("countries.shp") + "'", std::string("--help")}) {
    EXPECT_EQ(Shell(command, ">/dev/full"), 1) << command;
    EXPECT_THAT(Errors(), HasSubstr("Standard output can't be written")) << command;
  }
  EXPECT_EQ(Shell(vertices + " --quiet", ">/dev/full"), 0) << Errors();
  EXPECT_EQ(Shell(vertices + " --quiet --report '" + In("full.json") + "'", ">/dev/null; rm -f '" + In("x") + "'"), 0);
}

TEST_F(Endings, AClosedStreamTakesNoFileOfTheRun) {
  EXPECT_EQ(Shell("vertices '" + Data("countries.shp") + "' -o '" + In("v.shp") + "'", "<&- >&-"), 1) << Errors();
  for (const char* ending : {"shp", "shx", "dbf", "prj"}) {
    EXPECT_THAT(ReadFile(In(std::string("v.") + ending)), Not(HasSubstr("Shapes to Vertices"))) << ending;
  }
}

// The program with a terminal on its standard input, at a question.
class AtQuestion : public Endings, public ::testing::WithParamInterface<int> {};

TEST_P(AtQuestion, ASignalIsAnsweredAndLeavesTheOldOutput) {
  ASSERT_EQ(RunTessarine({"vertices", Data("countries.shp"), "-o", In("v.shp"), "-q"}).status, 0);
  const std::string before = ReadFile(In("v.shp"));
  int master = -1;
  const pid_t child = forkpty(&master, nullptr, nullptr, nullptr);
  if (child == 0) {
    const int out = open(In("out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(out, STDOUT_FILENO);
    execl(TESSARINE_PROGRAM, TESSARINE_PROGRAM, "split", Data("countries.shp").c_str(), "-o", In("v.shp").c_str(),
          static_cast<char*>(nullptr));
    _exit(127);
  }
  std::string shown;
  char bytes[256];
  const auto read_until = [&](const char* words) {
    while (shown.find(words) == std::string::npos) {
      const ssize_t count = read(master, bytes, sizeof bytes);
      if (count <= 0) return false;
      shown.append(bytes, static_cast<std::size_t>(count));
    }
    return true;
  };
  ASSERT_TRUE(read_until("[y/N]")) << shown;
  kill(child, GetParam());
  EXPECT_TRUE(read_until("Stopping...")) << shown;
  while (read(master, bytes, sizeof bytes) > 0) {
  }
  int status = 0;
  waitpid(child, &status, 0);
  close(master);
  EXPECT_TRUE(WIFEXITED(status)) << "the first signal doesn't kill";
  EXPECT_EQ(WEXITSTATUS(status), 1);
  EXPECT_EQ(ReadFile(In("v.shp")), before);
}

INSTANTIATE_TEST_SUITE_P(Signals, AtQuestion, ::testing::Values(SIGINT, SIGTERM, SIGHUP));

TEST_F(Endings, APlanIsRefusedForWhatTheRunIsRefusedFor) {
  ASSERT_EQ(RunTessarine({"vertices", Data("cities.shp"), "-o", In("x.shp")}).status, 2);
  ASSERT_EQ(RunTessarine({"vertices", Data("countries.shp"), "-o", In("taken.shp"), "-q"}).status, 0);
  fs::create_directory(folder_ / "broken.gdb");
  fs::create_directory(folder_ / "junk.gdb");
  WriteFile(In("junk.gdb/gdb"), "no geodatabase");
  WriteFile(In("junk.gdb/a00000001.gdbtable"), "no table");
  struct Row {
    std::vector<std::string> arguments;
    std::string words;
  };
  const std::vector<Row> rows = {
      {{"vertices", Data("countries.shp"), "-o", In("none/x.shp")}, In("none")},
      {{"vertices", Data("countries.shp"), "-o", In("none/x.gdb/v")}, "no folder '" + In("none") + "'"},
      {{"vertices", Data("countries.shp"), "-o", In("taken.shp")}, "exists already"},
      {{"vertices", Data("cities.shp"), "-o", In("x.shp")}, "wrong kind"},
      {{"wrap", Data("countries.shp"), "--range", "360", "-o", In("broken.gdb/v")}, "broken.gdb"},
      {{"graphics", "to-features", Data("graphics.json"), "--to", "points", "--all", "-o", In("broken.gdb/v")},
       "broken.gdb"},
      {{"graphics", "to-features", Data("graphics.json"), "--to", "points", "--all", "-o", In("junk.gdb/v")},
       "junk.gdb"},
      {{"graphics", "new", Data("graphics.json"), "points", "-o", In("junk.gdb/v")}, "junk.gdb"},
      {{"graphics", "new", Data("graphics.json"), "points", "-o", In("none/x.gdb/v")},
       "no folder '" + In("none") + "'"},
  };
  for (const Row& row : rows) {
    std::vector<std::string> planned = row.arguments;
    planned.emplace_back("--dry-run");
    const ProgramOutcome run = RunTessarine(row.arguments), plan = RunTessarine(planned);
    EXPECT_EQ(run.status, 2) << row.arguments[3];
    EXPECT_EQ(plan.status, 2) << row.arguments[3] << plan.out;
    EXPECT_EQ(plan.err, run.err);
    EXPECT_THAT(plan.err, HasSubstr(row.words));
  }
}

TEST_F(Endings, APlanTellsOutputFieldsAndQuestions) {
  ASSERT_EQ(RunTessarine({"vertices", Data("countries.shp"), "-o", In("v.shp"), "-q"}).status, 0);
  ASSERT_EQ(RunTessarine({"vertices", Data("countries.shp"), "-f", "name", "-o", In("v.shp"), "--overwrite", "-n", "-q",
                          "-r", In("p.json")})
                .status,
            0);
  const json plan = json::parse(ReadFile(In("p.json")));
  EXPECT_EQ(plan["outcome"], "planned");
  EXPECT_EQ(plan["output"], In("v.shp"));
  EXPECT_EQ(plan["spatial_reference"]["name"], "WGS 84");
  EXPECT_EQ(plan["plan"]["fields"].back(), "name");
  ASSERT_EQ(plan["plan"]["questions"].size(), 1U);
  EXPECT_THAT(plan["plan"]["questions"][0].get<std::string>(), HasSubstr("overwrite"));
}

TEST_F(Endings, ALayerWithoutReferenceIsNamedAsThat) {
  for (const char* ending : {"shp", "shx", "dbf"}) {
    fs::copy(Data(std::string("countries.") + ending), folder_);
  }
  const ProgramOutcome run = RunTessarine({"wrap", In("countries.shp"), "--range", "360", "-o", In("w.shp")});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("no spatial reference"));
}

// A report is one more output: it takes the place of nothing that the run reads or writes otherwise.
TEST_F(Endings, AReportOverDataOfItsRunIsRefused) {
  const std::string lines = In("lines.json");
  WriteFile(lines, R"({"type": "FeatureCollection", "features": [{"type": "Feature", "properties": {"n": 1},
    "geometry": {"type": "LineString", "coordinates": [[0, 0], [1, 0], [1, 1], [0, 0]]}}]})");
  fs::copy_file(Data("graphics.json"), In("map.json"));
  fs::create_symlink(lines, In("link.json"));
  ASSERT_EQ(RunTessarine({"build-polygons", lines, "-o", In("g.gdb/old"), "-q"}).status, 0);
  struct Row {
    std::vector<std::string> command;
    std::string report;
  };
  const Row rows[] = {
      {{"build-polygons", lines, "-o", In("out.shp")}, lines},
      {{"build-polygons", lines, "-o", In("out.shp"), "--dry-run"}, lines},
      {{"vertices", lines, "-a", "-o", In("out.shp")}, In("link.json")},
      {{"build-polygons", lines, "-o", In("g.gdb/out")}, In("g.gdb/report.json")},
      {{"vertices", In("g.gdb:old"), "-a", "-o", In("out.shp")}, In("g.gdb/report.txt")},
      {{"calculate", lines, "--all-measures", "-o", In("out.json")}, In("out.json")},
      {{"graphics", "to-features", In("map.json"), "--to", "polygons", "-o", In("out.shp")}, In("map.json")},
  };
  const std::string before = ReadFile(lines), map_before = ReadFile(In("map.json"));
  for (const Row& row : rows) {
    std::vector<std::string> arguments = row.command;
    arguments.insert(arguments.end(), {"--report", row.report});
    const ProgramOutcome run = RunTessarine(arguments);
    EXPECT_EQ(run.status, 2) << row.report << "\n" << run.err;
    EXPECT_THAT(run.err, HasSubstr("The report can't be written to '" + row.report + "'"));
  }
  EXPECT_EQ(ReadFile(lines), before);
  EXPECT_EQ(ReadFile(In("map.json")), map_before);
  EXPECT_FALSE(fs::exists(In("out.shp")) || fs::exists(In("out.json")) || fs::exists(In("g.gdb/report.json")));
}

// A document may remember records that have gone since.
TEST_F(Endings, SelectedRecordsThatAreGoneAreToldAndTheOthersTaken) {
  const auto document = [&](const std::string& selection) {
    WriteFile(In("map.json"), R"({"format": "tessarine map document", "map": {"name": "M", "layers": [{"name": "c",
      "source": ")" + Data("countries.shp") +
                                  R"(", "selection": )" + selection + "}]}}");
  };
  const auto read_by = [&](const std::vector<std::string>& arguments) {
    document("[1, 9999, 3]");
    std::vector<std::string> all = arguments;
    all.insert(all.end(), {"-d", In("map.json"), "-q", "--report", In("r.json")});
    const ProgramOutcome run = RunTessarine(all);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err.find("selects 1 record of 'c'") != std::string::npos, all[1] == "c") << run.err;
    return json::parse(ReadFile(In("r.json"))).at("records").at("read").get<int>();
  };
  EXPECT_EQ(read_by({"centroids", "c", "-o", In("a.shp")}), 2);
  EXPECT_EQ(read_by({"calculate", "c", "-m", "Number of Parts", "-o", In("b.gpkg"), "--only-selected"}), 2);
  // Another layer's selection is no affair of a run.
  EXPECT_EQ(read_by({"centroids", Data("countries.shp"), "-w", "FID < 5", "-o", In("c.shp")}), 5);

  document("[9999]");
  const ProgramOutcome none = RunTessarine({"centroids", "c", "-d", In("map.json"), "-o", In("d.shp")});
  EXPECT_EQ(none.status, 2);
  EXPECT_THAT(none.err, HasSubstr("None of the records that the document selects in 'c' is there"));
}

// Names that stand for something else are refused before anything is done, by the plan too.
TEST_F(Endings, AGeodatabaseThatAnotherProgramHasOpenIsRefusedBeforeTheRun) {
  ASSERT_EQ(RunTessarine({"to-polylines", Data("countries.shp"), "-q", "-o", In("x.mdb/lines")}).status, 0);
  const std::string before = ReadFile(In("x.mdb"));
  WriteFile(In("x.ldb"), "");
  const ProgramOutcome run = RunTessarine({"calculate", In("x.mdb:lines"), "--all-measures"});
  EXPECT_EQ(run.status, 2) << run.err;
  EXPECT_THAT(run.err, HasSubstr("x.ldb"));
  EXPECT_EQ(ReadFile(In("x.mdb")), before);
}

TEST_F(Endings, NamesThatAreTakenOtherwiseAreRefused) {
  ASSERT_EQ(RunTessarine({"centroids", Data("countries.shp"), "-o", In("g.gdb/ds/v"), "-q"}).status, 0);
  fs::create_directory(In("full.shp"));
  WriteFile(In("full.shp/kept"), "mine");
  struct Row {
    const char* output;
    const char* cause;
  };
  for (const Row& row : {Row{"g.gdb/ds", "'ds' is a feature dataset of"}, Row{"g.gdb/v/x", "'v' is a class of"},
                         Row{"full.shp", "is a folder with something in it"}}) {
    for (const char* mode : {"--quiet", "--dry-run"}) {
      const ProgramOutcome run =
          RunTessarine({"centroids", Data("countries.shp"), "-o", In(row.output), "--overwrite", mode});
      EXPECT_EQ(run.status, 2) << row.output << mode;
      EXPECT_THAT(run.err, HasSubstr(row.cause));
    }
  }
  EXPECT_EQ(ReadFile(In("full.shp/kept")), "mine");
  EXPECT_THAT(Left(), ElementsAre("full.shp", "g.gdb"));
}

TEST_F(Endings, AShapefileThatAnotherRunChangesIsLeftAlone) {
  for (const char* ending : {".shp", ".shx", ".dbf", ".prj", ".cpg"}) {
    fs::copy_file(Data("cities") + ending, In("cities") + ending);
  }
  const std::string before = ReadFile(In("cities.dbf"));
  const int held = open(In("cities.shp").c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_EQ(flock(held, LOCK_EX | LOCK_NB), 0);
  const ProgramOutcome run = RunTessarine({"calculate", In("cities.shp"), "--all-measures", "-y", "-q"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("is being changed by another run"));
  EXPECT_EQ(ReadFile(In("cities.dbf")), before);
  close(held);
  EXPECT_EQ(RunTessarine({"calculate", In("cities.shp"), "--all-measures", "-y", "-q"}).status, 0);
}

TEST_F(Endings, NamesThatGiveWayAreSaidBeforeTheRun) {
  WriteFile(In("a.json"), R"({"type": "FeatureCollection", "features": [{"type": "Feature",
    "properties": {"select": 1, "a b": 2}, "geometry": {"type": "LineString", "coordinates": [[0, 0], [1, 1]]}}]})");
  for (const std::vector<std::string>& tool :
       {std::vector<std::string>{"wrap", "--range", "360"}, {"vertices", "-a"}}) {
    std::vector<std::string> arguments = tool;
    arguments.insert(arguments.end(), {In("a.json"), "-o", In("g.gdb/" + tool[0]), "-q"});
    EXPECT_THAT(RunTessarine(arguments).err, HasSubstr("The field 'select' is written as 'select_'."));
  }
}

// Below the grid of a geodatabase nothing is left of a polygon: that is told.
TEST_F(Endings, PolygonsThatTheOutputHasNoRoomForAreTold) {
  WriteFile(In("l.json"), R"({"type": "FeatureCollection", "features": [
    {"type": "Feature", "properties": {}, "geometry": {"type": "LineString", "coordinates": [[0,0],[0,1],[1,1],[0,0]]}},
    {"type": "Feature", "properties": {}, "geometry": {"type": "LineString",
     "coordinates": [[5,5],[5,5.000000000001],[5.000000000001,5.000000000001],[5,5]]}}]})");
  const ProgramOutcome run =
      RunTessarine({"build-polygons", In("l.json"), "-t", "0", "-o", In("g.gdb/p"), "-q", "--report", In("r.json")});
  EXPECT_EQ(run.status, 0) << run.err;
  const json facts = json::parse(ReadFile(In("r.json")));
  EXPECT_EQ(facts.at("records").at("written"), 2);
  ASSERT_EQ(facts.at("warnings").size(), 1U);
  EXPECT_THAT(facts.at("warnings").at(0).at("text").get<std::string>(), HasSubstr("A polygon is so small"));
}

}  // namespace
}  // namespace tessarine::testing
