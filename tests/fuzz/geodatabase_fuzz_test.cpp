// SPDX-License-Identifier: GPL-2.0-or-later
// Damaged personal geodatabases: whatever the bytes, their layers are read or a fault tells why not; and writing to one
// is refused, or leaves every class that could be read before.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <random>

#include "engine/data_source.h"
#include "fuzz/mutator.h"
#include "helpers/published.h"
#include "helpers/temporary_folder.h"
#include "platform/fault.h"
#include "platform/paths.h"

namespace tessarine::testing {
namespace {

constexpr std::size_t kPage = 4096;

// Some bytes of some pages anew, a page in place of another, or the end cut off.
class PageMutator {
 public:
  std::string Damage(std::string bytes) {
    const std::size_t pages = bytes.size() / kPage;
    for (std::size_t count = 1 + random_() % 3; count > 0; --count) {
      const std::size_t page = random_() % pages * kPage;
      switch (random_() % 8) {
        case 0:
          bytes.replace(page, kPage, bytes.substr(random_() % pages * kPage, kPage));
          break;
        default:
          for (std::size_t byte = 1 + random_() % 4; byte > 0; --byte) {
            // What leads on stands at the beginnings of pages.
            const std::size_t at = random_() % 2 == 0 ? random_() % 100 : random_() % kPage;
            bytes[page + at] = static_cast<char>(random_() % 4 == 0 ? 0xFF : random_());
          }
      }
    }
    if (random_() % 20 == 0) bytes.resize(random_() % bytes.size());
    return bytes;
  }

 private:
  std::mt19937 random_{20260314};
};

// The rows of each layer that can be read; a layer that can't be isn't among them.
std::map<std::string, std::size_t> ReadAll(const std::string& path) {
  std::map<std::string, std::size_t> rows;
  std::vector<std::string> names;
  try {
    names = DataSource::Open(path)->LayerNames();
  } catch (const Fault& fault) {
    EXPECT_NE(fault.Description().find(path), std::string::npos) << fault.Description();
    return rows;
  }
  for (const std::string& name : names) {
    try {
      const auto table = DataSource::Open(path)->OpenTable(name);
      const auto cursor = table->SearchRows(nullptr, Recycling::Yes);
      std::size_t count = 0;
      while (cursor->NextRow()) ++count;
      rows[name] = count;
    } catch (const Fault& fault) {
      EXPECT_FALSE(fault.Description().empty());
    }
  }
  return rows;
}

// True where a class came to be.
bool Write(const std::string& path) {
  try {
    const auto workspace = CreateAccessWorkspaceFactory()->OpenFromFile(FromNativePath(path), 0);
    auto fields = std::make_shared<Fields>();
    const auto shape = std::make_shared<Field>();
    shape->Name = "Shape";
    shape->Type = esriFieldTypeGeometry;
    shape->GeometryDef = std::make_shared<GeometryDef>();
    shape->GeometryDef->GeometryType = esriGeometryPoint;
    fields->AddField(shape);
    (void)Published(workspace->CreateFeatureClass("fresh", fields, nullptr, nullptr, esriFTSimple, "Shape", ""));
    return true;
  } catch (const Fault& fault) {
    EXPECT_FALSE(fault.Description().empty());
    return false;
  }
}

TEST(GeodatabaseFuzz, EveryGeodatabaseIsReadOrRefused) {
  const TemporaryFolder folder;
  std::vector<std::string> corpus = TextsOf(TESSARINE_TEST_DATA "/../fuzz/corpus/geodatabases");
  ASSERT_EQ(corpus.size(), 1U);
  PageMutator mutator;
  int whole = 0, part = 0, written = 0, refused = 0;
  const std::string path = folder.Native("damaged.mdb");
  folder.Write("damaged.mdb", corpus.front());
  const std::map<std::string, std::size_t> sound = ReadAll(path);
  ASSERT_EQ(sound.size(), 4U);
  for (int round = 0; round < 100; ++round) {
    SCOPED_TRACE(round);
    folder.Write("damaged.mdb", mutator.Damage(corpus.front()));
    const std::map<std::string, std::size_t> before = ReadAll(path);
    ++(before == sound ? whole : part);
    if (Write(path)) {
      ++written;
      std::map<std::string, std::size_t> after = ReadAll(path);
      EXPECT_EQ(after.erase("fresh"), 1U);
      EXPECT_EQ(after, before);
    } else {
      ++refused;
      EXPECT_EQ(ReadAll(path), before);
    }
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_GT(whole, 8);
  EXPECT_GT(part, 8);
  EXPECT_GT(written, 8);
  EXPECT_GT(refused, 8);
}

}  // namespace
}  // namespace tessarine::testing
