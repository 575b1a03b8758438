// SPDX-License-Identifier: GPL-2.0-or-later
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

int g_steps_left = 0;
void DieAtStep() {
  if (g_steps_left-- == 0) _exit(0);
}

// Whatever the point at which the process dies, the old output stands there or the new one, and after the next look
// nothing else does.
TEST_F(Staging, APublicationThatDiesAtAnyPointLeavesOneOutputWhole) {
  int old_outputs = 0, torn_to_others = 0;
  int steps = 0;
  for (bool died = true; died; ++steps) {
    ASSERT_LT(steps, 100);
    for (const char* name : {"a.shp", "a.shx", "a.dbf", "a.SBN"}) Write(At(name), "old");
    DieWhilePublishing([&](StagedOutput& staged) {
      g_steps_left = steps;
      before_publishing_step = DieAtStep;
      staged.Publish();
      Write(At("ended"), "");
    });
    died = !fs::remove(At("ended"));
    // Nobody takes a half for the whole: without its .shp there is nothing to open.
    const std::string seen = Read(At("a.shp"));
    if (seen.empty()) ++torn_to_others;
    if (seen == "old") {
      EXPECT_EQ(Read(At("a.shx")) + Read(At("a.dbf")) + Read(At("a.SBN")), "oldoldold") << steps;
    }
    if (seen == "new.shp") {
      EXPECT_EQ(Read(At("a.shx")) + Read(At("a.dbf")), "new.shxnew.dbf") << steps;
    }

    FinishInterrupted(steps % 2 == 0 ? At("a.shp") : fs::path(folder_.Native()));
    if (Read(At("a.shp")) == "old") {
      ++old_outputs;
      EXPECT_THAT(Listed(), ElementsAre("a.SBN", "a.dbf", "a.shp", "a.shx")) << steps;
    } else {
      EXPECT_THAT(Listed(), ElementsAre("a.dbf", "a.shp", "a.shx")) << steps;
      EXPECT_EQ(Read(At("a.shp")) + Read(At("a.shx")) + Read(At("a.dbf")), "new.shpnew.shxnew.dbf") << steps;
    }
  }
  EXPECT_GT(steps, 8);
  EXPECT_GT(old_outputs, 0);
  EXPECT_GT(torn_to_others, 0);
}

TEST_F(Staging, WhatOthersWroteSinceADeathIsLeftAlone) {
  for (const char* name : {"a.shp", "a.shx", "a.dbf"}) Write(At(name), "old");
  DieWhilePublishing([](StagedOutput& staged) {
    g_steps_left = 4;
    before_publishing_step = DieAtStep;
    staged.Publish();
  });
  ASSERT_FALSE(fs::exists(At("a.shp")));
  for (const char* name : {"a.shp", "a.shx", "a.dbf"}) Write(At(name), "theirs");
  FinishInterrupted(At("a.shp"));
  EXPECT_THAT(Listed(), ElementsAre("a.dbf", "a.shp", "a.shx"));
  EXPECT_EQ(Read(At("a.shp")) + Read(At("a.dbf")), "theirstheirs");
}

TEST_F(Staging, AnOutputThatCameToBeMeanwhileIsKeptUnlessItMayBeReplaced) {
  StagedOutput staged(At("a.shp"), StagedOutput::Begin::Empty);
  Write(staged.Path(), "new");
  Write(At("a.dbf"), "theirs");
  EXPECT_THROW(staged.Publish(StagedOutput::Standing::Keep), Fault);
  EXPECT_EQ(Read(At("a.dbf")), "theirs");
  staged.Publish(StagedOutput::Standing::Replace);
  EXPECT_THAT(Listed(), ElementsAre("a.shp"));
}

TEST_F(Staging, ALinkToAFolderOrAFileIsFollowedAndLinksOfPartsAreReplaced) {
  fs::create_directory(At("real"));
  fs::create_directory(At("real") / "g.gdb");
  Write(At("real") / "b.gpkg", "old");
  Write(At("real") / "a.shp", "old");
  fs::create_symlink(At("real") / "g.gdb", At("g.gdb"));
  fs::create_symlink(At("real") / "b.gpkg", At("b.gpkg"));
  fs::create_symlink(At("real") / "a.shp", At("a.shp"));
  {
    StagedOutput staged(At("g.gdb"), StagedOutput::Begin::Copy);
    Write(staged.Path() / "one", "new");
    staged.Publish();
  }
  for (const char* name : {"b.gpkg", "a.shp"}) {
    StagedOutput staged(At(name), StagedOutput::Begin::Empty);
    Write(staged.Path(), "new");
    staged.Publish();
  }
  EXPECT_TRUE(fs::is_symlink(At("g.gdb")));
  EXPECT_EQ(Read(At("real") / "g.gdb/one"), "new");
  EXPECT_TRUE(fs::is_symlink(At("b.gpkg")));
  EXPECT_EQ(Read(At("real") / "b.gpkg"), "new");
  EXPECT_FALSE(fs::is_symlink(At("a.shp")));
  EXPECT_EQ(Read(At("a.shp")) + Read(At("real") / "a.shp"), "newold");
  EXPECT_THAT(Names(At("real")), ElementsAre("a.shp", "b.gpkg", "g.gdb"));
}

TEST_F(Staging, AFullFolderOfTheNameIsKeptAndAnEmptyOneReplaced) {
  fs::create_directory(At("a.shp"));
  Write(At("a.shp") / "letter.txt", "dear");
  StagedOutput staged(At("a.shp"), StagedOutput::Begin::Empty);
  Write(staged.Path(), "new");
  EXPECT_THROW(staged.Publish(), Fault);
  EXPECT_EQ(Read(At("a.shp") / "letter.txt"), "dear");
  fs::remove(At("a.shp") / "letter.txt");
  staged.Publish();
  EXPECT_EQ(Read(At("a.shp")), "new");
}

TEST_F(Staging, ANewFileIsAsOpenToOthersAsTheOldOne) {
  Write(At("a.shp"), "old");
  fs::permissions(At("a.shp"), fs::perms::owner_read | fs::perms::owner_write);
  StagedOutput staged(At("a.shp"), StagedOutput::Begin::Empty);
  Write(staged.Path(), "new");
  staged.Publish();
  EXPECT_EQ(fs::status(At("a.shp")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
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
