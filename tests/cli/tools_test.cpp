// SPDX-License-Identifier: GPL-2.0-or-later
// The tools as data: their list for other programs, and the examples that their help shows.
#include <gmock/gmock.h>

#include <filesystem>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using ::testing::HasSubstr;

class Tools : public ProgramTest {
 protected:
  [[nodiscard]] nlohmann::json List() const {
    const ProgramOutcome run = RunTessarine({"tools", "--json"});
    EXPECT_EQ(run.status, 0) << run.err;
    return nlohmann::json::parse(run.out);
  }

  // Those of a tool's command; tools of a group stand after its word.
  [[nodiscard]] static std::vector<std::string> CommandOf(const std::string& name) {
    std::istringstream words(name);
    return {std::istream_iterator<std::string>(words), {}};
  }

  // The words of a command line, without the program's name; data come from their folder, and outputs go to the test's.
  [[nodiscard]] std::vector<std::string> WordsOf(const std::string& line) const {
    std::vector<std::string> words;
    char quote = '\0';  // that a word stands in
    std::string word;
    for (const char c : line + " ") {
      const bool is_quote = quote != '\0' ? c == quote : c == '"' || c == '\'';
      if (is_quote) {
        quote = quote != '\0' ? '\0' : c;
      } else if (c == ' ' && quote == '\0') {
        if (!word.empty()) words.push_back(word);
        word.clear();
      } else {
        word += c;
      }
    }
    words.erase(words.begin());
    for (std::string& one : words) {
      constexpr std::string_view kData = "tests/data/";
      if (one.ends_with(".json")) {
        // Tools change the documents that they work on.
        const std::string own = In(one.substr(kData.size()));
        std::filesystem::copy_file(Data(one.substr(kData.size())), own,
                                   std::filesystem::copy_options::overwrite_existing);
        one = own;
      } else if (one.starts_with(kData)) {
        one = Data(one.substr(kData.size()));
      } else if (one.ends_with(".shp") || one.ends_with(".gpkg")) {
        one = In(one);
      }
    }
    return words;
  }
};

TEST_F(Tools, EveryToolTellsWhatItTakesAndEveryExampleRuns) {
  std::set<std::string> names;
  for (const auto& tool : List()) {
    const auto name = tool.at("name").get<std::string>();
    SCOPED_TRACE(name);
    EXPECT_TRUE(names.insert(name).second);
    for (const char* text : {"title", "text", "takes", "makes", "example"}) {
      EXPECT_FALSE(tool.at(text).get<std::string>().empty()) << text;
    }
    for (const std::string& left : Left()) std::filesystem::remove_all(In(left));
    std::istringstream lines(tool.at("example").get<std::string>());
    for (std::string line; std::getline(lines, line);) {
      const ProgramOutcome run = RunTessarine(WordsOf(line));
      EXPECT_EQ(run.status, 0) << line << "\n" << run.err;
    }
    // Each parameter is an option of the command, or its source.
    std::vector<std::string> asking = CommandOf(name);
    asking.emplace_back("--help");
    const std::string help = RunTessarine(asking).out;
    std::set<std::string> parameters;
    for (const auto& parameter : tool.at("parameters")) parameters.insert(parameter.at("name").get<std::string>());
    for (const auto& parameter : tool.at("parameters")) {
      const auto option = parameter.at("name").get<std::string>();
      const bool by_place = option == "source" || parameter.value("by_place", false);
      EXPECT_THAT(help, HasSubstr(by_place ? option : "--" + option));
      for (const char* other : {"of", "needs", "excludes"}) {
        EXPECT_TRUE(!parameter.contains(other) || parameters.contains(parameter.at(other).get<std::string>()))
            << option;
      }
    }
  }
  EXPECT_EQ(names.size(), 17U);
}

// Words that a reader of the list in another language has to go by.
TEST_F(Tools, ParametersSayTheirKindsUnitsAndRanges) {
  std::map<std::string, nlohmann::json> by_name;
  for (const auto& tool : List()) {
    for (const auto& parameter : tool.at("parameters")) {
      by_name[tool.at("name").get<std::string>() + "." + parameter.at("name").get<std::string>()] = parameter;
    }
  }
  EXPECT_EQ(by_name.at("wrap.shift").at("unit"), "degrees");
  EXPECT_EQ(by_name.at("label-points.source").at("shapes"), nlohmann::json({"polygon"}));
  EXPECT_EQ(by_name.at("split.source").at("shapes").size(), 4U);
  EXPECT_EQ(by_name.at("wrap.bounds").at("kind"), "box");
  EXPECT_EQ(by_name.at("wrap.pole").at("choices"), nlohmann::json({"north", "south", "both", "neither"}));
  EXPECT_EQ(by_name.at("build-polygons.cluster-tolerance").at("least"), 0.0);
  EXPECT_EQ(by_name.at("to-graphic.spheroid").at("kind"), "spheroid");
  EXPECT_EQ(by_name.at("calculate.measure").at("of"), "source");
  EXPECT_TRUE(by_name.at("vertices.output").at("required").get<bool>());
  EXPECT_FALSE(by_name.at("vertices.fields").at("required").get<bool>());
  EXPECT_FALSE(by_name.at("calculate.output").at("required").get<bool>());
  EXPECT_EQ(by_name.at("graphics to-features.to").at("choices"), nlohmann::json({"points", "polylines", "polygons"}));
  EXPECT_EQ(by_name.at("graphics new.reference").at("kind"), "reference");
  EXPECT_EQ(by_name.at("graphics select.name").at("kind"), "texts");
  EXPECT_EQ(by_name.at("graphics name.selected").at("excludes"), "all");
}

TEST_F(Tools, ACommaIsNoDecimalPointOfAnyNumber) {
  const ProgramOutcome run =
      RunTessarine({"wrap", Data("countries.shp"), "--range", "180", "--shift", "1,5", "-o", In("o.shp")});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("--shift: '1,5' is no number of degrees."));
}

// Status 2 promises that nothing was written, the document neither.
TEST_F(Tools, WhoDeclinesAQuestionKeepsTheDocumentAsItIs) {
  std::filesystem::copy_file(Data("graphics.json"), In("map.json"));
  ASSERT_EQ(RunTessarine({"calculate", Data("countries.shp"), "-m", "Sph. Area=A", "-o", In("taken.gpkg")}).status, 0);
  const std::string before = ReadFile(In("map.json"));
  const ProgramOutcome run =
      RunTessarine({"calculate", In("taken.gpkg"), "-d", In("map.json"), "-m", "Sph. Area=A", "--no"});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("already exist in your dataset"));
  EXPECT_EQ(ReadFile(In("map.json")), before);
}

TEST_F(Tools, ADocumentRemembersTheLastOutput) {
  std::filesystem::copy_file(Data("graphics.json"), In("map.json"));
  ASSERT_EQ(RunTessarine({"vertices", Data("countries.shp"), "-d", In("map.json"), "-o", In("v.shp")}).status, 0);
  const auto settings = nlohmann::json::parse(ReadFile(In("map.json"))).at("settings");
  EXPECT_THAT(settings.dump(), HasSubstr("v.shp"));
}

// A copy is tried before a record is copied, and its user knows the source.
TEST_F(Tools, RefusalsOfMeasuresOnACopyNameTheSource) {
  const ProgramOutcome run =
      RunTessarine({"calculate", Data("countries.shp"), "-m", "Volume", "-o", In("copy.gpkg"), "-r", In("r.txt")});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("-m \"Volume\": 'countries' has no measure 'Volume'. It has: "));
  EXPECT_TRUE(Left().empty());
}

// Each row of the table has its reason, and so has the report of each source.
TEST_F(Tools, SeveralSourcesSayWhyTheyAreRefused) {
  std::filesystem::create_directory(In("out"));
  const std::string borders = Data("disputed_borders.shp"), countries = Data("countries.shp");
  const ProgramOutcome run =
      RunTessarine({"wrap", countries, borders, "--bounds", "10,0,5,20", "-o", In("out"), "--report", In("r.json")});
  EXPECT_EQ(run.status, 2);
  for (const std::string& source : {countries, borders}) {
    EXPECT_THAT(run.out, HasSubstr(source + ": refused, Western Boundary Value >= Eastern Boundary Value..."));
  }
  for (const char* report : {"r_countries.json", "r_disputed_borders.json"}) {
    const auto told = nlohmann::json::parse(ReadFile(In(report)));
    EXPECT_EQ(told.at("outcome"), "refused");
    EXPECT_THAT(told.at("failure").get<std::string>(), HasSubstr("Western Boundary Value"));
  }
  const ProgramOutcome quiet =
      RunTessarine({"wrap", countries, borders, "--bounds", "10,0,5,20", "-o", In("out"), "-q"});
  EXPECT_THAT(quiet.err, HasSubstr(borders + ": refused, Western Boundary Value"));
}

TEST_F(Tools, AMeasureNeedsANameForItsField) {
  const ProgramOutcome run = RunTessarine({"calculate", Data("countries.shp"), "-m", "Sph. Area=", "-o", In("o.gpkg")});
  EXPECT_EQ(run.status, 2);
  EXPECT_THAT(run.err, HasSubstr("-m \"Sph. Area=\": a field without a name"));
  EXPECT_TRUE(Left().empty());
}

}  // namespace
}  // namespace tessarine::testing
