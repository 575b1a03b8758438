// SPDX-License-Identifier: GPL-2.0-or-later
// The walls of the house: who may include whom.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Room {
  const char* folder;                // below src/
  std::vector<const char*> allowed;  // prefixes of quoted includes
  bool libraries;                    // may see more than the standard library
};

// `frame/commands` stands before `frame`, so that the longer prefix is found first.
const std::vector<Room> kRooms = {
    {"platform/", {"platform/"}, false},
    {"geodesy/", {"platform/", "geodesy/"}, false},
    {"outputs/", {"platform/", "outputs/"}, false},
    {"jet/", {"jet/"}, false},
    {"engine/", {"platform/", "outputs/", "jet/", "engine/"}, true},
    {"frame/commands/",
     {"platform/", "geodesy/", "outputs/", "support/", "frame/", "spheroids/", "conversion/", "calculator/",
      "graphics/", "planetary/", "tools/"},
     false},
    {"frame/", {"platform/", "geodesy/", "support/", "frame/"}, false},
    {"tools/",
     {"platform/", "geodesy/", "outputs/", "support/", "conversion/", "calculator/", "graphics/", "planetary/",
      "spheroids/", "tools/", "frame/clsExtension.h"},
     false},
    {"support/",
     {"platform/", "geodesy/", "outputs/", "support/", "frame/clsExtension.h", "frame/ErrorHandling.h"},
     false},
    {"spheroids/",
     {"platform/", "geodesy/", "support/", "spheroids/", "frame/clsExtension.h", "frame/ErrorHandling.h"},
     false},
    {"conversion/",
     {"platform/", "geodesy/", "outputs/", "support/", "conversion/", "frame/clsExtension.h", "frame/ErrorHandling.h"},
     false},
    {"calculator/",
     {"platform/", "geodesy/", "outputs/", "support/", "spheroids/", "calculator/", "frame/clsExtension.h",
      "frame/ErrorHandling.h"},
     false},
    {"graphics/",
     {"platform/", "geodesy/", "outputs/", "support/", "graphics/", "frame/clsExtension.h", "frame/ErrorHandling.h"},
     false},
    {"planetary/",
     {"platform/", "geodesy/", "outputs/", "support/", "spheroids/", "planetary/", "frame/clsExtension.h",
      "frame/ErrorHandling.h"},
     false},
    {"hosts/", {""}, true},
};

// Headers of the C++ standard library and of POSIX that the suite itself may use.
bool IsSystemHeader(const std::string& name) {
  static const std::regex standard(R"re([a-z_]+|c?[a-z]+|(dlfcn|fcntl|unistd|linux/fs|sys/[a-z]+)\.h)re");
  return std::regex_match(name, standard);
}

const Room* RoomOf(const std::string& path) {
  for (const Room& room : kRooms) {
    if (path.starts_with(room.folder)) return &room;
  }
  return nullptr;
}

bool Allowed(const Room& room, const std::string& include) {
  for (const char* prefix : room.allowed) {
    if (include.starts_with(prefix)) return true;
  }
  return false;
}

TEST(House, EveryFileIncludesOnlyWhatItsRoomMaySee) {
  const fs::path source = fs::path(TESSARINE_SOURCE_DIR) / "src";
  const std::regex include_line(R"re(^\s*#\s*include\s*([<"])([^>"]+)[>"])re");
  int files = 0, includes = 0;
  for (const auto& entry : fs::recursive_directory_iterator(source)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".h" && extension != ".cpp") continue;
    const std::string path = entry.path().lexically_relative(source).generic_string();
    const Room* room = RoomOf(path);
    ASSERT_NE(room, nullptr) << path << " lies in no known folder";
    ++files;
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) {
      std::smatch match;
      if (!std::regex_search(line, match, include_line)) continue;
      ++includes;
      const std::string name = match[2];
      if (match[1] == "\"") {
        EXPECT_TRUE(Allowed(*room, name)) << path << " may not include " << name;
      } else {
        EXPECT_TRUE(room->libraries || IsSystemHeader(name)) << path << " may not include <" << name << ">";
      }
    }
  }
  EXPECT_GT(files, 50);
  EXPECT_GT(includes, 200);
}

// Hosts know commands, forms and the extension by their identifiers alone.
TEST(House, HostsIncludeNoClassOfTheSuite) {
  const fs::path hosts = fs::path(TESSARINE_SOURCE_DIR) / "src/hosts";
  const std::regex suite(R"re(#include "(frame|support|conversion|calculator|graphics|planetary|spheroids|tools)/)re");
  for (const auto& entry : fs::recursive_directory_iterator(hosts)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) {
      EXPECT_FALSE(std::regex_search(line, suite)) << entry.path() << ": " << line;
    }
  }
}

// A run gets a `RunContext`; only forms, commands and hosts know who serves the process.
TEST(House, RunsAskNoHostOfTheProcess) {
  const fs::path source = fs::path(TESSARINE_SOURCE_DIR) / "src";
  const std::regex call(R"re(\bHost\(\))re");
  int files = 0;
  for (const char* room : {"engine", "outputs", "geodesy", "conversion", "calculator", "planetary", "graphics", "tools"}) {
    for (const auto& entry : fs::recursive_directory_iterator(source / room)) {
      if (entry.path().filename().string().starts_with("frm")) continue;
      std::ifstream file(entry.path());
      ++files;
      for (std::string line; std::getline(file, line);) {
        EXPECT_FALSE(std::regex_search(line, call)) << entry.path() << ": " << line;
      }
    }
  }
  EXPECT_GT(files, 100);
}

TEST(House, EveryFileNamesItsLicence) {
  int files = 0;
  for (const char* folder : {"src", "tests", "bench"}) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(TESSARINE_SOURCE_DIR) / folder)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".h" && extension != ".cpp" && extension != ".py") continue;
      std::ifstream file(entry.path());
      std::string first, second;
      std::getline(file, first);
      std::getline(file, second);
      ++files;
      EXPECT_NE((first + second).find("SPDX-License-Identifier: GPL-2.0-or-later"), std::string::npos) << entry.path();
    }
  }
  EXPECT_GT(files, 500);
}

}  // namespace
