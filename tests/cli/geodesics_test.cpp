// SPDX-License-Identifier: GPL-2.0-or-later
#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

class Geodesics : public ProgramTest {
 protected:
  // Runs with these lines as standard input, and gives the lines of the answer.
  std::vector<std::string> Lines(std::vector<std::string> arguments, const std::string& input, int status) {
    WriteFile(In("input"), input);
    const ProgramOutcome run = RunTessarine(arguments, In("input"));
    EXPECT_EQ(run.status, status) << run.err;
    EXPECT_EQ(run.err, "");
    std::vector<std::string> lines;
    std::istringstream out(run.out);
    for (std::string line; std::getline(out, line);) lines.push_back(line);
    return lines;
  }
};

// Expected numbers come from PROJ's `geod`, which solves both problems exactly.
TEST_F(Geodesics, AgreeWithAnExactSolution) {
  const ProgramOutcome inverse = RunTessarine({"inverse", "2.35", "48.86", "-73.94", "40.67", "--json"});
  ASSERT_EQ(inverse.status, 0) << inverse.err;
  const json line = json::parse(inverse.out);
  EXPECT_NEAR(line["distance"], 5850960.340388, 1e-4);
  EXPECT_NEAR(line["azimuth1"], 360.0 - 68.258250537, 1e-7);
  EXPECT_NEAR(line["azimuth2"], 180.0 + 53.71473, 1e-7);

  const ProgramOutcome direct =
      RunTessarine({"direct", "2.35", "48.86", "1000000", "90", "--radii", "3396190,3376200", "--json"});
  ASSERT_EQ(direct.status, 0) << direct.err;
  const json end = json::parse(direct.out);
  EXPECT_NEAR(end["lon"], 27.0206335002, 2e-9);
  EXPECT_NEAR(end["lat"], 46.1143033365, 2e-9);
  EXPECT_NEAR(end["azimuth2"], 180.0 - 71.6800259275, 1e-7);
  const json named =
      json::parse(RunTessarine({"direct", "2.35", "48.86", "1000000", "90", "--spheroid", "mars 2000", "--json"}).out);
  EXPECT_NEAR(named["lon"], 27.0206335002, 2e-9);
}

TEST_F(Geodesics, BadLinesAreAnsweredInTheirPlace) {
  const std::vector<std::string> lines = Lines({"inverse"}, "0 0 1 0\n0 0 north 0\n0, 95, 1, 0\n1 2 3\n-1 0 0 0\n", 1);
  ASSERT_EQ(lines.size(), 5U);
  // One degree of the equator.
  EXPECT_EQ(lines[0], "111319.4908 90.00000000 90.00000000");
  EXPECT_THAT(lines[1], HasSubstr("line 2: 'north' is no number for lon2"));
  EXPECT_THAT(lines[2], HasSubstr("line 3: lat1 is 95"));
  EXPECT_THAT(lines[3], HasSubstr("line 4: 3 numbers instead of four"));
  EXPECT_EQ(lines[4], lines[0]);
  EXPECT_EQ(json::parse(Lines({"direct", "--json"}, "0 0 nan 0\n", 1).at(0))["line"], 1);
  EXPECT_TRUE(Lines({"direct"}, "", 0).empty());
  EXPECT_THAT(Lines({"inverse"}, "+-1 0 0 0\n+1 0 0 0\r\n", 1).at(0), HasSubstr("'+-1' is no number for lon1"));
  // Bytes that are no UTF-8 neither end the run nor spoil the JSON.
  const std::vector<std::string> quoted = Lines({"inverse", "--json"}, "\xff\xfe 0 1 0\n0 0 1 0\n", 1);
  ASSERT_EQ(quoted.size(), 2U);
  EXPECT_EQ(json::parse(quoted[0])["line"], 1);
  EXPECT_NEAR(json::parse(quoted[1])["distance"], 111319.490793, 1e-6);
}

TEST_F(Geodesics, LongitudesATurnApartAreOneMeridian) {
  const std::vector<std::string> lines =
      Lines({"inverse"}, "180 10 180 50\n-180 10 180 50\n180 10 -180 50\n-180 10 540 50\n-180 10 180 10\n", 0);
  ASSERT_EQ(lines.size(), 5U);
  for (std::size_t line = 1; line < 4; ++line) EXPECT_EQ(lines[line], lines[0]);
  EXPECT_NEAR(std::stod(lines[0]), 4434992.2084, 2e-4);
  EXPECT_EQ(lines[4], "0.0000 0.00000000 0.00000000");
}

// Opposite places on the equator, over the pole: twice the quarter of the meridian. The other by the geodesics of PROJ.
TEST_F(Geodesics, AntipodalPairsAreSolvedAndMarked) {
  const ProgramOutcome run = RunTessarine({"inverse", "0", "0", "180", "0", "--json"});
  ASSERT_EQ(run.status, 0) << run.err;
  const json line = json::parse(run.out);
  EXPECT_NEAR(line["distance"], 20003931.458624, 1e-5);
  EXPECT_EQ(line["converged"], false);
  EXPECT_EQ(line["method"], "GeographicLib Geodesic");
  EXPECT_THAT(run.err, HasSubstr("line 1: nearly antipodal positions"));
  const ProgramOutcome plain = RunTessarine({"inverse", "0", "0.1", "179.7", "-0.3"});
  EXPECT_THAT(plain.out, HasSubstr("19975624.2897 158.44785049 21.55242340"));
  EXPECT_EQ(json::parse(RunTessarine({"inverse", "0", "0", "90", "0", "--json"}).out)["converged"], true);
}

// By GeographicLib's GeodSolve -E. The series is off by four parts in ten thousand there.
TEST_F(Geodesics, StronglyFlattenedSpheroidsAreToldAndSolvedExactlyOnRequest) {
  const std::vector<std::string> body = {"--radii", "30000,20010", "--json"};
  const auto solve = [&](std::vector<std::string> words) {
    words.insert(words.end(), body.begin(), body.end());
    return RunTessarine(words);
  };
  const ProgramOutcome series = solve({"inverse", "10", "10", "60", "50"});
  EXPECT_THAT(series.err, HasSubstr("Add --exact"));
  EXPECT_EQ(json::parse(series.out).count("method"), 0U);
  const ProgramOutcome exact = solve({"inverse", "10", "10", "60", "50", "--exact"});
  EXPECT_EQ(exact.err, "");
  const json line = json::parse(exact.out);
  EXPECT_EQ(line["method"], "GeographicLib GeodesicExact");
  EXPECT_EQ(line["converged"], true);
  EXPECT_NEAR(line["distance"], 26322.588061767, 1e-6);
  EXPECT_NEAR(line["azimuth1"], 51.00714673651588, 1e-9);
  EXPECT_GT(std::fabs(json::parse(series.out)["distance"].get<double>() - line["distance"].get<double>()), 0.1);
  // All digits of a number, as JSON has them.
  const json end =
      json::parse(solve({"direct", "10", "10", line["distance"].dump(), line["azimuth1"].dump(), "--exact"}).out);
  EXPECT_NEAR(end["lon"], 60.0, 1e-9);
  EXPECT_NEAR(end["lat"], 50.0, 1e-9);
  EXPECT_EQ(RunTessarine({"inverse", "10", "10", "60", "50"}).err, "");
}

TEST_F(Geodesics, RefuseSpheroidsThatAreNone) {
  const ProgramOutcome unknown = RunTessarine({"inverse", "0", "0", "1", "0", "--spheroid", "Marz 2000"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.err, HasSubstr("Mars 2000"));
  for (const char* radii : {"1000", "1000,-5", "1000,0", "nan,1000", "1e400,1", "1,2,3", ""}) {
    EXPECT_EQ(RunTessarine({"inverse", "0", "0", "1", "0", "--radii", radii}).status, 2) << radii;
  }
  EXPECT_EQ(RunTessarine({"inverse", "0", "0", "1", "0", "--spheroid", " "}).status, 2);
}

}  // namespace
}  // namespace tessarine::testing
