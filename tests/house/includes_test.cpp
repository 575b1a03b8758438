// SPDX-License-Identifier: GPL-2.0-or-later
// The walls of the house: who may include whom.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

// What the engine shows to hosts; the rest of it is its own business.
const std::vector<const char*> kEngineFace = {"data_source.h",
                                              "dataset_files.h",
                                              "drawing.h",
                                              "file_access.h",
                                              "format_abilities.h",
                                              "local_system.h",
                                              "ogr_geometry.h",
                                              "personal_geodatabase.h",
                                              "promised_geodatabases.h",
                                              "remote_source.h",
                                              "stamp.h",
                                              "topology_stop.h",
                                              "versions.h",
                                              "workspace_of.h"};

struct Room {
  const char* folder;                 // below src/
  std::vector<const char*> allowed;   // prefixes of quoted includes
  bool libraries;                     // may see more than the standard library
  std::vector<const char*> engine{};  // headers of the engine that it may see, too
};

// `frame/commands` and the like stand before `frame`, so that the longer prefix is found first; hosts stand by name.
const std::vector<Room> kRooms = {
    {"platform/", {"platform/"}, false},
    // It stands alone, with the values that the platform shares.
    {"geodesy/", {"geodesy/", "platform/fault.h", "platform/geometry_types.h", "platform/vertex_rings.h"}, false},
    {"shapes/", {"platform/", "geodesy/", "shapes/"}, false},
    {"outputs/", {"platform/", "outputs/"}, false},
    {"jet/", {"jet/"}, false},
    {"engine/", {"platform/", "outputs/", "jet/", "engine/"}, true},
    {"session/", {"platform/", "session/"}, false},
    {"support/", {"platform/", "geodesy/", "shapes/", "outputs/", "session/", "support/"}, false},
    {"spheroids/", {"platform/", "geodesy/", "shapes/", "session/", "support/", "spheroids/"}, false},
    {"conversion/", {"platform/", "geodesy/", "shapes/", "outputs/", "session/", "support/", "conversion/"}, false},
    {"calculator/",
     {"platform/", "geodesy/", "shapes/", "outputs/", "session/", "support/", "spheroids/", "calculator/"},
     false},
    {"graphics/", {"platform/", "geodesy/", "shapes/", "outputs/", "session/", "support/", "graphics/"}, false},
    {"planetary/",
     {"platform/", "geodesy/", "shapes/", "outputs/", "session/", "support/", "spheroids/", "planetary/"},
     false},
    {"tools/",
     {"platform/", "geodesy/", "shapes/", "outputs/", "session/", "support/", "conversion/", "calculator/", "graphics/",
      "planetary/", "spheroids/", "tools/"},
     false},
    {"frame/commands/",
     {"platform/", "geodesy/", "shapes/", "outputs/", "session/", "support/", "frame/", "spheroids/", "conversion/",
      "calculator/", "graphics/", "planetary/", "tools/"},
     false},
    {"frame/published/",
     {"platform/", "outputs/", "session/", "support/", "conversion/", "calculator/", "planetary/", "frame/published/"},
     false},
    {"frame/", {"platform/", "geodesy/", "shapes/", "session/", "support/", "frame/"}, false},
    {"hosts/document/", {"platform/", "outputs/", "hosts/document/"}, true, kEngineFace},
    {"hosts/terminal/", {"platform/", "outputs/", "geodesy/", "hosts/document/", "hosts/terminal/"}, true, kEngineFace},
    {"hosts/windows/", {"platform/", "outputs/", "hosts/windows/"}, true, kEngineFace},
    {"hosts/qgis/", {"platform/", "outputs/", "hosts/document/", "hosts/windows/", "hosts/qgis/"}, true, kEngineFace},
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
  for (const char* header : room.engine) {
    if (include == std::string("engine/") + header) return true;
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
        EXPECT_EQ(RoomOf(name), nullptr) << path << ": headers of our own stand in quotation marks, not <" << name
                                         << ">";
      }
    }
  }
  EXPECT_GT(files, 50);
  EXPECT_GT(includes, 200);
}

// Hosts know commands, forms and the extension by their identifiers alone.
TEST(House, HostsIncludeNoClassOfTheSuite) {
  const fs::path hosts = fs::path(TESSARINE_SOURCE_DIR) / "src/hosts";
  const std::regex suite(
      R"re(#include "(frame|session|support|conversion|calculator|graphics|planetary|spheroids|tools)/)re");
  for (const auto& entry : fs::recursive_directory_iterator(hosts)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) {
      EXPECT_FALSE(std::regex_search(line, suite)) << entry.path() << ": " << line;
    }
  }
}

// A run gets a `RunContext`; only forms, commands, hosts and what is published know who serves the process. A few
// routines with fixed faces find the context of their run by its thread, and so does work that a pool's thread does.
TEST(House, RunsAskNoHostOfTheProcess) {
  const fs::path source = fs::path(TESSARINE_SOURCE_DIR) / "src";
  const std::regex call(R"re(\bHost(Context)?\(\))re");
  const std::regex at_hand(R"re(\b((System|Clock|Feedback)AtHand|TellUser|RunningContext)\()re");
  const std::set<std::string> by_thread = {"engine/construct_union.cpp",
                                           "engine/stamp.cpp",
                                           "shapes/planetary_latitude.cpp",
                                           "shapes/reshape.cpp",
                                           "shapes/wrap.cpp",
                                           "spheroids/spheroid_entries.cpp",
                                           "support/aml_func_mod.cpp",
                                           "support/numeric_helpers.cpp",
                                           "support/manual.cpp",
                                           "support/record_pipeline.cpp"};
  std::set<std::string> met;
  int files = 0;
  for (const char* room : {"engine", "outputs", "geodesy", "shapes", "conversion", "calculator", "planetary",
                           "graphics", "tools", "spheroids", "support", "session"}) {
    for (const auto& entry : fs::recursive_directory_iterator(source / room)) {
      const std::string name = entry.path().filename().string();
      // Forms, what only dialogs call, the reporter of faults, and the extension as it starts.
      if (name.starts_with("frm") || name == "progress_form.cpp" || name == "output_chooser.cpp" ||
          name == "ErrorHandling.cpp" || name == "clsExtension.cpp") {
        continue;
      }
      std::ifstream file(entry.path());
      ++files;
      for (std::string line; std::getline(file, line);) {
        EXPECT_FALSE(std::regex_search(line, call)) << entry.path() << ": " << line;
        if (std::regex_search(line, at_hand)) met.insert(entry.path().lexically_relative(source).generic_string());
      }
    }
  }
  EXPECT_EQ(met, by_thread);
  EXPECT_GT(files, 100);
}

// Where a line is written anew, its mutant has to follow.
TEST(House, EveryMutantFindsItsLine) {
  const fs::path root(TESSARINE_SOURCE_DIR);
  std::ifstream list(root / "tests/mutants.json");
  const nlohmann::json mutants = nlohmann::json::parse(list);
  for (const nlohmann::json& mutant : mutants) {
    std::ifstream file(root / mutant.at("file").get<std::string>());
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    const auto line = mutant.at("line").get<std::string>();
    const std::size_t found = text.find(line);
    EXPECT_NE(found, std::string::npos) << mutant.at("name");
    if (found == std::string::npos) continue;
    EXPECT_EQ(text.find(line, found + 1), std::string::npos) << mutant.at("name");
  }
  EXPECT_GT(mutants.size(), 30U);
}

// The geodesy library may go anywhere, with the values that it needs.
TEST(House, EveryFileNamesItsLicence) {
  const std::regex alone("^src/(geodesy/|platform/(fault|geometry_types|vertex_rings)\\.)");
  // Data and pictures; a page of text, and JSON, have no place for it.
  const std::regex without("^tests/(data|fuzz/corpus)/|\\.(md|json|png|svg|bmp|ico)$|__pycache__");
  int files = 0;
  for (const char* folder : {"src", "tests", "bench", "tools", "cmake", ".ci"}) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(TESSARINE_SOURCE_DIR) / folder)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream file(entry.path());
      std::string first, second, third;
      std::getline(file, first);
      std::getline(file, second);
      std::getline(file, third);
      const std::string path = entry.path().lexically_relative(TESSARINE_SOURCE_DIR).generic_string();
      if (std::regex_search(path, without) || path == "src/geodesy/LICENSE.MIT") continue;
      ++files;
      const char* licence = std::regex_search(path, alone) ? "MIT" : "GPL-2.0-or-later";
      const std::regex line(std::string("SPDX-License-Identifier: ") + licence + "( \\*/| -->)?$");
      const bool names_it =
          std::regex_search(first, line) || std::regex_search(second, line) || std::regex_search(third, line);
      EXPECT_TRUE(names_it) << path << " isn't under " << licence;
    }
  }
  EXPECT_GT(files, 500);
}

}  // namespace
