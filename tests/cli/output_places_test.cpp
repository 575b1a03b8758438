// SPDX-License-Identifier: GPL-2.0-or-later
// Where the commands write, and what they leave alone.
#include <gmock/gmock.h>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class OutputPlaces : public ProgramTest {
 protected:
  // A folder of shapefiles that is the data's and the outputs' at once.
  std::string CopyOf(const std::string& name) const {
    const fs::path folder = folder_ / "data";
    fs::create_directories(folder);
    for (const char* ending : {".shp", ".shx", ".dbf", ".prj", ".cpg"}) {
      fs::copy_file(Data(name + ending), folder / (name + ending));
    }
    return folder.string();
  }
};

TEST_F(OutputPlaces, AFolderTakesTheProposedNameWithANumberWhereItIsTaken) {
  fs::create_directories(In("out"));
  const auto centroids = [&](const std::vector<std::string>& more) {
    std::vector<std::string> arguments = {"centroids", Data("countries.shp"), "-o",     In("out"),
                                          "--report",  In("run.txt"),         "--quiet"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const ProgramOutcome run = RunTessarine(arguments);
    EXPECT_EQ(run.status, 0) << run.err;
    return ReadFile(In("run.txt"));
  };
  EXPECT_THAT(centroids({}), HasSubstr("** " + In("out/Centroids.shp") + "\n"));
  EXPECT_THAT(centroids({}), HasSubstr("** " + In("out/Centroids_2.shp") + "\n"));
  EXPECT_THAT(centroids({"--overwrite"}), HasSubstr("** " + In("out/Centroids_3.shp") + "\n"));
}

TEST_F(OutputPlaces, AGeodatabaseThatCannotBeOpenedIsRefused) {
  fs::create_directories(In("broken.gdb"));
  WriteFile(In("broken.gdb/gdb"), "no geodatabase");
  for (const char* option : {"--quiet", "--overwrite", "--dry-run"}) {
    const ProgramOutcome run =
        RunTessarine({"centroids", Data("countries.shp"), "-o", In("broken.gdb/centers"), option});
    EXPECT_EQ(run.status, 2) << option;
    EXPECT_THAT(run.err, HasSubstr("The output '" + In("broken.gdb/centers") + "' can't be made."));
  }
}

TEST_F(OutputPlaces, DataThatIsReadByWayOfItsFolderIsNotReplaced) {
  const std::string folder = CopyOf("countries");
  const std::string before = ReadFile(folder + "/countries.shp");
  for (const std::vector<std::string>& source : {std::vector<std::string>{folder}, {folder, "-l", "countries"}}) {
    std::vector<std::string> arguments = {"centroids", "-o", folder + "/countries.shp", "--overwrite"};
    arguments.insert(arguments.begin() + 1, source.begin(), source.end());
    const ProgramOutcome run = RunTessarine(arguments);
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("is read by this run: name another output."));
    EXPECT_EQ(ReadFile(folder + "/countries.shp"), before);
  }
}

}  // namespace
}  // namespace tessarine::testing
