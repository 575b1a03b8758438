// SPDX-License-Identifier: GPL-2.0-or-later
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::Not;

class Spheroids : public ProgramTest {
 protected:
  static json Listed(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "spheroids");
    arguments.emplace_back("--json");
    const ProgramOutcome run = RunTessarine(arguments);
    EXPECT_EQ(run.status, 0) << run.err;
    return json::parse(run.out, nullptr, false);
  }
};

TEST_F(Spheroids, ListsAreChosenAndSearched) {
  EXPECT_EQ(Listed({"--earth"}).size(), 56U);
  EXPECT_EQ(Listed({"--planets"}).size(), 71U);
  const json pluto = Listed({"--find", "PLUTO"});
  ASSERT_EQ(pluto.size(), 2U);
  EXPECT_EQ(pluto[1]["name"], "Pluto - Charon");
  EXPECT_EQ(pluto[1]["list"], "planets");
  EXPECT_EQ(pluto[1]["code"], 107970);
  EXPECT_EQ(pluto[1]["flattening"], 0.0);
  const json wgs = Listed({"--find", "7030"});
  ASSERT_EQ(wgs.size(), 1U);
  EXPECT_NEAR(wgs[0]["semi_minor_axis"], 6356752.314245179, 1e-8);
  EXPECT_NEAR(wgs[0]["flattening"], 1 / 298.257223563, 1e-15);
}

TEST_F(Spheroids, TheTableIsForPeople) {
  const ProgramOutcome run = RunTessarine({"spheroids", "--find", "wgs 1984"});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("    7030  WGS 1984"));
  EXPECT_THAT(run.out, HasSubstr("             6378137    6356752.31424518  1/298.257223563\n"));
  EXPECT_THAT(run.out, Not(HasSubstr("Planets")));
}

TEST_F(Spheroids, ACustomFileIsReadInPlaceOfTheProgramsOwn) {
  WriteFile(In("mine.dat"), "Caf\xE9,2000,1500,x\r\nskipped\r\ncaf\xE9,0,1,x\r\n");
  const json custom = Listed({"--custom", "--file", In("mine.dat")});
  ASSERT_EQ(custom.size(), 2U);
  EXPECT_EQ(custom[0]["name"], "Caf\xC3\xA9");
  EXPECT_EQ(custom[0]["flattening"], 0.25);
  EXPECT_FALSE(custom[0].contains("code"));
  EXPECT_EQ(custom[1]["name"], "caf\xC3\xA9 (2)");
  EXPECT_TRUE(custom[1]["flattening"].is_null());
  EXPECT_EQ(Listed({"--file", In("mine.dat")}).size(), 129U);
}

TEST_F(Spheroids, RefusalsSayWhatHelps) {
  WriteFile(In("empty.dat"), "");
  struct Refused {
    std::vector<std::string> arguments;
    std::string says;
  };
  const Refused rows[] = {{{"--find", "marz"}, "Near are 'Mars"},
                          {{"--file", In("none.dat")}, "There is no file '" + In("none.dat") + "'"},
                          {{"--file", In("empty.dat")}, "tells no spheroid"},
                          {{"--custom"}, "Name another one with --file"}};
  for (const Refused& row : rows) {
    std::vector<std::string> arguments = row.arguments;
    arguments.insert(arguments.begin(), "spheroids");
    const ProgramOutcome run = RunTessarine(arguments);
    EXPECT_EQ(run.status, 2) << row.says;
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr(row.says));
  }
}

}  // namespace
}  // namespace tessarine::testing
