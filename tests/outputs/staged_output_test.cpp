#include "outputs/staged_output.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <sstream>

#include "helpers/temporary_folder.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

void Write(const fs::path& path, const std::string& text) { std::ofstream(path) << text; }

std::string Read(const fs::path& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

std::vector<std::string> Names(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

class Staging : public ::testing::Test {
 protected:
  [[nodiscard]] fs::path At(const char* name) const { return folder_.Native(name); }
  [[nodiscard]] std::vector<std::string> Listed() const { return Names(folder_.Native()); }

  // Makes a shapefile of three files in the staging folder; the process then dies at the given point.
  void DieWhilePublishing(const std::function<void(StagedOutput&)>& at_the_end) const {
    const pid_t child = fork();
    if (child == 0) {
      StagedOutput staged(At("a.shp"), StagedOutput::Begin::Empty);
      for (const char* ending : {".shp", ".shx", ".dbf"}) {
        Write(fs::path(staged.Path()).replace_extension(ending), std::string("new") + ending);
      }
      at_the_end(staged);
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
  }

  testing::TemporaryFolder folder_;
};

TEST_F(Staging, TheFilesOfAShapefileAreFoundInAnyCase) {
  for (const char* name :
       {"a.shp", "a.SHX", "a.dbf", "a.qmd", "a.name.atx", "a.shp.xml", "ab.shp", "a.txt", "a.b.shp"}) {
    Write(At(name), "");
  }
  std::vector<std::string> names;
  for (const fs::path& file : FilesOfDataset(At("a.shp"))) names.push_back(file.filename().string());
  EXPECT_THAT(names, ElementsAre("a.SHX", "a.dbf", "a.name.atx", "a.qmd", "a.shp", "a.shp.xml"));
}

TEST_F(Staging, AShapefileTakesThePlaceOfAllOldFilesAtTheEnd) {
  for (const char* name : {"a.shp", "a.dbf", "a.sbn", "a.CPG"}) Write(At(name), "old");
  StagedOutput staged(At("a.shp"), StagedOutput::Begin::Empty);
  Write(staged.Path(), "new");
  Write(fs::path(staged.Path()).replace_extension(".dbf"), "new");
  EXPECT_EQ(Read(At("a.shp")), "old");
  staged.Publish();
  EXPECT_THAT(Listed(), ElementsAre("a.dbf", "a.shp"));
  EXPECT_EQ(Read(At("a.shp")) + Read(At("a.dbf")), "newnew");
}

TEST_F(Staging, AFolderIsExchangedAndACopyBeginsWithWhatIsThere) {
  fs::create_directory(At("g.gdb"));
  Write(At("g.gdb") / "one", "old");
  {
    StagedOutput staged(At("g.gdb"), StagedOutput::Begin::Copy);
    Write(staged.Path() / "two", "new");
    EXPECT_THAT(Names(At("g.gdb")), ElementsAre("one"));
    staged.Publish();
  }
  EXPECT_THAT(Names(At("g.gdb")), ElementsAre("one", "two"));
  EXPECT_THAT(Listed(), ElementsAre("g.gdb"));
}

TEST_F(Staging, WhatIsNotPublishedLeavesNothing) {
  Write(At("a.gpkg"), "old");
  { Write(StagedOutput(At("a.gpkg"), StagedOutput::Begin::Empty).Path(), "new"); }
  EXPECT_THAT(Listed(), ElementsAre("a.gpkg"));
  EXPECT_EQ(Read(At("a.gpkg")), "old");
}

TEST_F(Staging, TheNextRunClearsWhatADeadOneLeftAndLeavesALivingOneAlone) {
  Write(At("a.shp"), "old");
  DieWhilePublishing([](StagedOutput&) {});
  EXPECT_EQ(Listed().size(), 2U);
  StagedOutput living(At("a.shp"), StagedOutput::Begin::Empty);
  EXPECT_EQ(Listed().size(), 2U);
  FinishInterrupted(At("a.shp"));
  EXPECT_TRUE(fs::exists(living.Path().parent_path()));
  EXPECT_EQ(Read(At("a.shp")), "old");
}

TEST_F(Staging, APublicationThatDiedBetweenTwoRenamesIsEnded) {
  for (const char* name : {"a.shp", "a.shx", "a.dbf", "a.sbn"}) Write(At(name), "old");
  const auto ready = [](StagedOutput& staged) {
    const fs::path folder = staged.Path().parent_path().parent_path();
    Write(folder / "ready", "");
    fs::create_directory(folder / "old");
    return folder;
  };
  // Dead before the first old file was moved, between two of them, and between two of the new ones.
  const std::vector<std::function<void(StagedOutput&)>> points = {
      [&](StagedOutput& staged) { ready(staged); },
      [&](StagedOutput& staged) { fs::rename(At("a.shx"), ready(staged) / "old/a.shx"); },
      [&](StagedOutput& staged) {
        const fs::path folder = ready(staged);
        for (const fs::path& file : FilesOfDataset(At("a.shp"))) fs::rename(file, folder / "old" / file.filename());
        Write(folder / "moved", "");
        fs::rename(staged.Path(), At("a.shp"));
      }};
  for (const auto& point : points) {
    DieWhilePublishing(point);
    FinishInterrupted(At("a.shp"));
    EXPECT_THAT(Listed(), ElementsAre("a.dbf", "a.shp", "a.shx"));
    EXPECT_EQ(Read(At("a.shp")) + Read(At("a.shx")) + Read(At("a.dbf")), "new.shpnew.shxnew.dbf");
    Write(At("a.sbn"), "old");
  }
}

TEST_F(Staging, AMissingFolderIsNamed) {
  try {
    StagedOutput(At("nowhere") / "a.shp", StagedOutput::Begin::Empty);
    FAIL();
  } catch (const Fault& fault) {
    EXPECT_THAT(fault.Description(), ::testing::HasSubstr("nowhere"));
  }
}

}  // namespace
}  // namespace tessarine
