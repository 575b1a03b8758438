// SPDX-License-Identifier: GPL-2.0-or-later
// Lines for the terminal, and words for a shell, which a shell reads back.
#include "platform/command_line.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

namespace tessarine {
namespace {

ToolParameter Parameter(std::string_view name, ParameterKind kind, std::string_view needs = {}) {
  ToolParameter parameter{name, kind, ""};
  parameter.needs = needs;
  return parameter;
}

ToolParameter RequiredOutput() {
  ToolParameter parameter = Parameter("output", ParameterKind::Output);
  parameter.required = true;
  return parameter;
}

ToolSpec SpecWith(std::string_view name, std::vector<ToolParameter> parameters) {
  ToolSpec spec{};
  spec.name = name;
  spec.parameters = std::move(parameters);
  return spec;
}

const ToolSpec kSpec = SpecWith("make-it", {
                                               Parameter("source", ParameterKind::Layer),
                                               RequiredOutput(),
                                               Parameter("fields", ParameterKind::Fields),
                                               Parameter("all-fields", ParameterKind::Flag),
                                               Parameter("tolerance", ParameterKind::Number),
                                               Parameter("labels", ParameterKind::Layer),
                                               Parameter("label-choice", ParameterKind::Choice, "labels"),
                                               Parameter("bounds", ParameterKind::Box),
                                               Parameter("measure", ParameterKind::Measures),
                                               Parameter("spheroid", ParameterKind::Spheroid),
                                               Parameter("pole", ParameterKind::Choice, "all-fields"),
                                           });

using Texts = std::vector<std::string>;

Arguments With(std::string_view name, Arguments::Value value) {
  Arguments arguments;
  arguments.Set(name, std::move(value));
  return arguments;
}

CommandWords Words() {
  CommandWords words;
  words.layers["source"] = {.path = "/data/town.gpkg", .layer = "roads"};
  words.output = "/data/out.shp";
  words.spheroids = {{"Mars 2000", 3396190.0, 3376200.0}, {"Twice", 1.0, 1.0}, {"Twice", 2.0, 2.0}};
  return words;
}

struct LineRow {
  const char* what;
  Arguments arguments;
  const char* options;  // between the source and the output
};

TEST(CommandLine, HasAnOptionForEachValueThatIsGiven) {
  Arguments pole = With("pole", std::string("north"));
  pole.Set("all-fields", true);
  const LineRow rows[] = {
      {"nothing", {}, ""},
      {"fields", With("fields", Texts{"name", "pop est"}), "'--fields=name,pop est' "},
      {"no field", With("fields", Texts{}), ""},
      {"a flag", With("all-fields", true), "--all-fields "},
      {"a flag that isn't set", With("all-fields", false), ""},
      {"a number of all digits", With("tolerance", 0.1 + 0.2), "--tolerance=0.30000000000000004 "},
      {"a box", With("bounds", Texts{"-10", "35.5", "30", "70"}), "--bounds=-10,35.5,30,70 "},
      {"measures", With("measure", std::vector<ToolMeasure>{{"Sph. Area", {}}, {"Centroid", {"x", "y"}}}),
       "'--measure=Sph. Area' --measure=Centroid=x,y "},
      {"a choice without what it needs", With("label-choice", std::string("first")), ""},
      {"a choice whose flag isn't set", With("pole", std::string("north")), ""},
      {"a choice with it", pole, "--all-fields --pole=north "},
      {"a spheroid by its name", With("spheroid", ToolSpheroid{"Mars 2000", 3396190.0, 3376200.0}),
       "'--spheroid=Mars 2000' "},
      {"a spheroid with axes of its own", With("spheroid", ToolSpheroid{"Mars 2000", 3396190.0, 3376201.5}),
       "--radii=3396190,3376201.5 "},
      {"a name that another bears first", With("spheroid", ToolSpheroid{"Twice", 2.0, 2.0}), "--radii=2,2 "},
      {"a spheroid without a name", With("spheroid", ToolSpheroid{"", 3.0, 2.5}), "--radii=3,2.5 "},
  };
  for (const LineRow& row : rows) {
    EXPECT_EQ(TerminalLineOf(kSpec, row.arguments, Words()).text,
              "tessarine make-it /data/town.gpkg --layer=roads " + std::string(row.options) + "--output=/data/out.shp")
        << row.what;
  }
}

TEST(CommandLine, NamesOtherLayersRowsAndManners) {
  CommandWords words = Words();
  words.layers["source"].where = "FID IN (1,2)";
  words.layers["labels"] = {.path = "/data/my points.shp", .where = "name = 'a'"};
  words.replaces = true;
  Arguments arguments = With("label-choice", std::string("nearest"));
  arguments.confirmed = true;
  EXPECT_EQ(TerminalLineOf(kSpec, arguments, words).text,
            "tessarine make-it /data/town.gpkg --layer=roads '--where=FID IN (1,2)' '--labels=/data/my points.shp' "
            "'--label-where=name = '\\''a'\\''' --label-choice=nearest --output=/data/out.shp --overwrite --yes");
}

TEST(CommandLine, ACopyOfChosenRowsHoldsThemAlone) {
  const ToolSpec in_place =
      SpecWith("fill", {Parameter("source", ParameterKind::Layer), Parameter("output", ParameterKind::Output)});
  CommandWords words = Words();
  words.layers["source"].where = "a > 1";
  EXPECT_EQ(TerminalLineOf(in_place, {}, words).text,
            "tessarine fill /data/town.gpkg --layer=roads '--where=a > 1' --only-selected --output=/data/out.shp");
  words.output.clear();
  EXPECT_EQ(TerminalLineOf(in_place, {}, words).text, "tessarine fill /data/town.gpkg --layer=roads '--where=a > 1'");
}

TEST(CommandLine, SaysWhyThereIsNone) {
  const TerminalLine comma = TerminalLineOf(kSpec, With("fields", Texts{"a,b"}), Words());
  EXPECT_EQ(comma.text, "");
  EXPECT_EQ(comma.why_none,
            "No line at the terminal does the same: a comma in the name of the field 'a,b' parts it in two.");
  CommandWords words = Words();
  words.layers["source"].why_none = "'roads' lies in no file";
  EXPECT_EQ(TerminalLineOf(kSpec, {}, words).why_none,
            "No line at the terminal does the same: 'roads' lies in no file.");
}

std::string ReadByShell(const std::string& word) {
  const std::string command = "printf %s " + word;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::string text;
  for (int c = std::fgetc(pipe.get()); c != EOF; c = std::fgetc(pipe.get())) text += static_cast<char>(c);
  return text;
}

TEST(CommandLine, WordsComeThroughAShell) {
  const char* const texts[] = {"plain-word_1.5,/a:b=+@%",
                               "two words",
                               "it's",
                               "''",
                               "$HOME `id` \"x\" \\ !",
                               "a\nb",
                               "~",
                               "*",
                               "#x",
                               "a;b|c&d",
                               "(1)",
                               "größe"};
  for (const char* text : texts) EXPECT_EQ(ReadByShell(ShellWord(text)), text);
  EXPECT_EQ(ShellWord(""), "''");
  EXPECT_EQ(ShellWord("plain-word_1.5,/a:b=+@%"), "plain-word_1.5,/a:b=+@%");
}

}  // namespace
}  // namespace tessarine
