// SPDX-License-Identifier: GPL-2.0-or-later
// What a built library tells about the machine that built it.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace {

std::string Bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(BinariesTest, NoPathOfTheBuildMachineStandsInThem) {
  for (const char* path : {TESSARINE_SUITE_LIBRARY, TESSARINE_PLATFORM_LIBRARY, TESSARINE_PROGRAM}) {
    const std::string bytes = Bytes(path);
    ASSERT_NE(bytes.find("ELF"), std::string::npos) << path;
    for (const std::string folder : {TESSARINE_SOURCE_DIR, TESSARINE_BUILD_DIR}) {
      const std::size_t at = bytes.find(folder);
      EXPECT_EQ(at, std::string::npos) << path << ": " << bytes.substr(at, 120).c_str();
    }
  }
  EXPECT_NE(Bytes(TESSARINE_SUITE_LIBRARY).find("src/conversion/modCreateVertices.cpp"), std::string::npos)
      << "the places of faults are named below the source root";
}

TEST(BinariesTest, TheGeodesyLibraryNeedsNoOther) {
  const std::string alone = Bytes(TESSARINE_GEODESY_EXAMPLE), platform = Bytes(TESSARINE_PLATFORM_LIBRARY);
  ASSERT_NE(alone.find("libm.so"), std::string::npos);
  for (const char* library : {"libgdal", "libgeos", "libproj", "libsqlite3"}) {
    EXPECT_NE(platform.find(library), std::string::npos) << library;
    EXPECT_EQ(alone.find(library), std::string::npos) << library;
  }
  EXPECT_EQ(alone.find("libtessarine"), std::string::npos);
}

}  // namespace
