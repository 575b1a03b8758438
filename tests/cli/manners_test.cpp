// SPDX-License-Identifier: GPL-2.0-or-later
// How the terminal speaks: words that it doesn't know, the bar, lines for programs, answers given beforehand.
#include <gmock/gmock.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class Manners : public ProgramTest {};

TEST_F(Manners, WhatIsNotKnownIsNamedWithTheNearest) {
  struct Row {
    std::vector<std::string> words;
    const char* told;
  };
  const std::string lands = Data("countries.shp");
  for (const Row& row : {
           Row{{"vertcies", lands}, "There is no command 'vertcies'. Did you mean 'vertices'?"},
           Row{{"calc", lands}, "There is no command 'calc'. Did you mean 'calculate'?"},
           Row{{"xyzzy"}, "There is no command 'xyzzy'. 'tessarine --help'"},
           Row{{"graphics", "slect", "m.json"}, "There is no command 'slect'. Did you mean 'select'?"},
           Row{{"vertices", lands, "--outptu", In("v.shp")}, "There is no option '--outptu'. Did you mean '--output'?"},
           Row{{"vertices", lands, "--all-field=1", "-o", In("v.shp")}, "Did you mean '--all-fields'?"},
           Row{{"wrap", lands, "-Q"}, "There is no option '-Q'. 'tessarine wrap --help'"},
           Row{{"vertices", lands}, "--output is required"},
           Row{{}, "subcommand"},
           Row{{"vertices", lands, "-o", In("v.shp"), "--yes", "--no"}, "--no"},
       }) {
    const ProgramOutcome run = RunTessarine(row.words);
    EXPECT_EQ(run.status, 2) << row.told;
    EXPECT_THAT(run.err, StartsWith("tessarine: ")) << row.told;
    EXPECT_THAT(run.err, HasSubstr(row.told));
    EXPECT_THAT(run.err, HasSubstr("--help'")) << row.told;
    EXPECT_EQ(run.out, "") << row.told;
  }
  EXPECT_TRUE(Left().empty());
}

TEST_F(Manners, AListOfFieldsEndsBeforeTheSource) {
  const ProgramOutcome run =
      RunTessarine({"centroids", "--fields", "name,continent", Data("countries.shp"), "-o", In("c.shp")});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("continent"));
}

TEST_F(Manners, AReportTellsItsTimesWithTheirZoneAndItsCommandForAShell) {
  setenv("TZ", "Asia/Kathmandu", 1);
  const ProgramOutcome run = RunTessarine({"vertices", Data("countries.shp"), "-o", In("v.shp"), "-q", "--where",
                                           "name < 'C' & 1", "--report", In("r.json")});
  unsetenv("TZ");
  ASSERT_EQ(run.status, 2) << "no SQL: " << run.err;
  ASSERT_EQ(RunTessarine({"vertices", Data("countries.shp"), "-o", In("v~1;$(x).shp"), "-q", "--report", In("r.json")})
                .status,
            0);
  const json report = json::parse(ReadFile(In("r.json")));
  for (const char* key : {"start", "end"}) {
    EXPECT_TRUE(std::regex_match(report.at(key).get<std::string>(),
                                 std::regex(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d[+-]\d\d:\d\d)")))
        << report.at(key);
  }
  // A shell makes the same words of it.
  const std::string line = report.at("command_line");
  ASSERT_EQ(std::system(("printf '%s\\n' " + line + " > '" + In("words") + "'").c_str()), 0);
  EXPECT_THAT(ReadFile(In("words")), HasSubstr("\n" + In("v~1;$(x).shp") + "\n"));
}

TEST_F(Manners, ProgressIsLinesOfJsonWhereThatIsAskedFor) {
  const ProgramOutcome run =
      RunTessarine({"vertices", Data("countries.shp"), "-o", In("v.shp"), "-q", "--progress", "json"});
  ASSERT_EQ(run.status, 0) << run.err;
  std::istringstream lines(run.err);
  int count = 0;
  for (std::string text; std::getline(lines, text); ++count) {
    const json line = json::parse(text);
    EXPECT_EQ(line.at("of"), 177);
    EXPECT_GE(line.at("progress"), 0.0);
    EXPECT_LE(line.at("progress"), 1.0);
    EXPECT_THAT(line.at("text").get<std::string>(), StartsWith("Generating Vertices from countries"));
  }
  EXPECT_GT(count, 0);
  EXPECT_EQ(RunTessarine({"vertices", Data("countries.shp"), "-o", In("w.shp"), "--progress", "often"}).status, 2);
}

TEST_F(Manners, NoIsAnAnswerToo) {
  ASSERT_EQ(RunTessarine({"vertices", Data("countries.shp"), "-o", In("v.shp"), "-q"}).status, 0);
  const std::string before = ReadFile(In("v.shp"));
  const ProgramOutcome run = RunTessarine({"split", Data("countries.shp"), "-o", In("v.shp"), "--no"});
  EXPECT_EQ(run.status, 2) << run.err;
  EXPECT_EQ(ReadFile(In("v.shp")), before);
}

// What a terminal of this width shows, whose user says no: every line as it stood when the next one was drawn.
std::vector<std::string> LinesOnTerminal(const std::vector<std::string>& words, unsigned short columns) {
  const winsize size{24, columns, 0, 0};
  int master = -1;
  const pid_t child = forkpty(&master, nullptr, nullptr, &size);
  if (child == 0) {
    std::vector<char*> arguments;
    arguments.push_back(const_cast<char*>(TESSARINE_PROGRAM));
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execv(TESSARINE_PROGRAM, arguments.data());
    _exit(127);
  }
  EXPECT_EQ(write(master, "n\n", 2), 2);
  std::string all;
  char buffer[4096];
  for (ssize_t count = 0; (count = read(master, buffer, sizeof buffer)) > 0;)
    all.append(buffer, static_cast<std::size_t>(count));
  waitpid(child, nullptr, 0);
  close(master);
  std::vector<std::string> lines(1);
  for (const char c : all) {
    if (c == '\r' || c == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += c;
    }
  }
  return lines;
}

TEST_F(Manners, TheBarFitsItsTerminalAndNoTextStandsOnItsLine) {
  ASSERT_EQ(RunTessarine({"vertices", Data("countries.shp"), "-o", In("v.shp"), "-q"}).status, 0);
  const std::vector<std::string> lines = LinesOnTerminal({"split", Data("countries.shp"), "-o", In("v.shp")}, 80);
  bool bar = false, told = false;
  for (std::string line : lines) {
    const std::string clear = "\033[K";
    if (line.starts_with(clear)) line.erase(0, clear.size());
    EXPECT_LT(line.size(), 200U);
    const bool is_bar = line.starts_with("[#") || line.starts_with("[.");
    bar |= is_bar;
    told |= line.starts_with("Feature Class Already Exists");
    if (!is_bar) continue;
    EXPECT_LE(line.size(), 79U) << line;
    EXPECT_THAT(line, Not(HasSubstr("Already Exists")));
  }
  EXPECT_TRUE(bar);
  EXPECT_TRUE(told);
}

}  // namespace
}  // namespace tessarine::testing
