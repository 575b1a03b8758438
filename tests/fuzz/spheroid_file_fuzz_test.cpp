// SPDX-License-Identifier: GPL-2.0-or-later
// Damaged custom spheroid files: whatever the bytes, the reader gives spheroids or a fault.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>

#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "spheroids/spheroid_entries.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> Corpus() {
  std::set<fs::path> paths;
  for (const auto& entry : fs::directory_iterator(TESSARINE_SOURCE_DIR "/tests/fuzz/corpus/spheroids")) {
    paths.insert(entry.path());
  }
  std::vector<std::string> texts;
  for (const fs::path& path : paths) {
    std::ifstream file(path, std::ios::binary);
    texts.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return texts;
}

class Mutator {
 public:
  explicit Mutator(std::vector<std::string> corpus) : corpus_(std::move(corpus)) {}

  std::string Next() {
    std::string text = corpus_[Below(corpus_.size())];
    for (std::size_t count = 1 + Below(6); count > 0; --count) Mutate(text);
    return text;
  }

 private:
  std::size_t Below(std::size_t bound) { return bound == 0 ? 0 : random_() % bound; }

  void Mutate(std::string& text) {
    static const std::string kTelling[] = {",",
                                           "\n",
                                           "\r",
                                           "\r\n",
                                           "e",
                                           "E+",
                                           "-",
                                           ".",
                                           "999999999",
                                           " (2)",
                                           " ",
                                           "\xFF",
                                           std::string(1, '\0'),
                                           "\xEF\xBB\xBF",
                                           "inf",
                                           "nan",
                                           "0x1"};
    const std::size_t at = Below(text.size() + 1);
    switch (Below(5)) {
      case 0:
        text.insert(at, kTelling[Below(std::size(kTelling))]);
        return;
      case 1:
        text.erase(at, 1 + Below(8));
        return;
      case 2:
        if (at < text.size()) text[at] = static_cast<char>(random_() & 0xFFU);
        return;
      case 3: {
        const std::string piece = text.substr(at, Below(40));
        text.insert(Below(text.size() + 1), piece);
        return;
      }
      default:
        text += corpus_[Below(corpus_.size())].substr(0, Below(60));
    }
  }

  std::vector<std::string> corpus_;
  std::mt19937 random_{20260314};
};

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
  const std::vector<std::string> corpus = Corpus();
  ASSERT_GE(corpus.size(), 4U);
  Mutator mutator(corpus);
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
  Mutator mutator(Corpus());
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
