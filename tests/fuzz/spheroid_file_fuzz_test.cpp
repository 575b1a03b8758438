// SPDX-License-Identifier: GPL-2.0-or-later
// Damaged custom spheroid files: whatever the bytes, the reader gives spheroids or a fault.
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "fuzz/mutator.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "spheroids/spheroid_entries.h"

namespace tessarine {
namespace {

testing::Mutator DamagedFiles() {
  return {testing::TextsOf(TESSARINE_SOURCE_DIR "/tests/fuzz/corpus/spheroids"),
          {",", "\n", "\r", "\r\n", "e", "E+", "-", ".", "999999999", " (2)", " ", "\xFF", std::string(1, '\0'),
           "\xEF\xBB\xBF", "inf", "nan", "0x1"}};
}

// The number of spheroids, -1 for a fault. Any other exception leaves this function and fails the test.
template <class Read>
int Outcome(Read&& read) {
  std::vector<USGS_Functions::SpheroidEntry> entries;
  try {
    entries = read();
  } catch (const Fault& fault) {
    EXPECT_FALSE(fault.Description().empty());
    return -1;
  }
  std::set<std::string> names;
  for (const USGS_Functions::SpheroidEntry& entry : entries) {
    EXPECT_TRUE(std::isfinite(entry.semi_major_axis) && std::isfinite(entry.semi_minor_axis)) << entry.name;
    EXPECT_TRUE(names.insert(LowerCase(entry.name)).second) << entry.name;
    EXPECT_EQ(entry.name.find_first_of(",\r\n"), std::string::npos) << entry.name;
  }
  return static_cast<int>(entries.size());
}

// A run that only ever took one way would have tried nothing, hence the counts.
TEST(SpheroidFileFuzz, EveryTextIsRead) {
  testing::Mutator mutator = DamagedFiles();
  int with_spheroids = 0, without = 0;
  for (int round = 0; round < 20000; ++round) {
    const std::string text = mutator.Next();
    ++(Outcome([&] { return USGS_Functions::ReadCustomSpheroids(text); }) > 0 ? with_spheroids : without);
    ASSERT_FALSE(HasFailure()) << "in round " << round;
  }
  EXPECT_GT(with_spheroids, 1000);
  EXPECT_GT(without, 1000);
}

TEST(SpheroidFileFuzz, EveryFileIsReadOrRefused) {
  const testing::TemporaryFolder folder;
  const testing::TestHost host;
  testing::Mutator mutator = DamagedFiles();
  int read = 0, refused = 0;
  for (int round = 0; round < 200; ++round) {
    folder.Write("spheroids.dat", mutator.Next());
    const int count = Outcome([&] { return USGS_Functions::ReadCustomSpheroidFile(folder.Path("spheroids.dat")); });
    EXPECT_NE(count, 0);
    ++(count > 0 ? read : refused);
    ASSERT_FALSE(HasFailure()) << "in round " << round;
  }
  EXPECT_GT(read, 20);
  EXPECT_GT(refused, 20);
}

}  // namespace
}  // namespace tessarine
