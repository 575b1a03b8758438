// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/scratch_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "helpers/temporary_folder.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

class ScratchFolderTest : public ::testing::Test {
 protected:
  testing::TemporaryFolder folder;

  // Whatever else runs in this process goes on with the folder that it had.
  ScratchFolderTest() { Set(folder.Native()); }
  ~ScratchFolderTest() override {
    if (before_.empty()) {
      unsetenv("TMPDIR");
    } else {
      Set(before_);
    }
  }
  static void Set(const std::string& path) { setenv("TMPDIR", path.c_str(), 1); }

 private:
  std::string before_ = std::getenv("TMPDIR") == nullptr ? "" : std::getenv("TMPDIR");
};

TEST_F(ScratchFolderTest, GoesAwayWithAllThatIsInIt) {
  {
    const ScratchFolder first("plan"), second("plan");
    EXPECT_NE(first.Path(), second.Path());
    EXPECT_EQ(first.Path().parent_path(), fs::path(folder.Native()));
    EXPECT_TRUE(first.Path().filename().string().starts_with("tessarine-plan-"));
    fs::create_directory(first.Path() / "deep");
    std::ofstream(first.Path() / "deep" / "file") << "x";
  }
  EXPECT_TRUE(folder.IsEmpty());
}

TEST_F(ScratchFolderTest, APlaceThatTakesNoFolderIsTold) {
  folder.Write("file");
  for (const char* place : {"nowhere", "file"}) {
    Set(folder.Native(place));
    try {
      const ScratchFolder scratch("plan");
      ADD_FAILURE() << place;
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.Number(), kPathAccess) << place;
      EXPECT_NE(fault.Description().find("TMPDIR"), std::string::npos) << fault.Description();
    }
  }
}

}  // namespace
}  // namespace tessarine
