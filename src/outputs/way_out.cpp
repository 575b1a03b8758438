// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/way_out.h"

#include <sys/resource.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <string_view>

#include "outputs/shown_places.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLeastRoom = 65536;  // bytes
constexpr const char* kNoRoom = ": there is no room left on its disk.";

bool DiskIsFull(const fs::path& folder) {
  struct statvfs disk {};
  if (statvfs(folder.c_str(), &disk) != 0) return false;
  return static_cast<std::uintmax_t>(disk.f_bavail) * disk.f_frsize < kLeastRoom;
}

std::optional<std::uintmax_t> FileSizeLimit() {
  struct rlimit limit {};
  if (getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return std::nullopt;
  return limit.rlim_cur;
}

bool MayWrite(const fs::path& path) {
  std::error_code error;
  return !fs::exists(path, error) || access(path.c_str(), W_OK) == 0;
}

}  // namespace

std::string WayOut(const std::string& path, const std::string& complaint) {
  const fs::path folder = fs::absolute(path).parent_path();
  const bool tells_of_it =
      complaint.find("No space left") != std::string::npos || complaint.find("disk is full") != std::string::npos;
  if (DiskIsFull(folder) || tells_of_it) return kNoRoom;
  if (!MayWrite(path) || !MayWrite(folder)) return ": it may not be written to; check its permissions.";
  // File geodatabases keep coordinates as whole steps from a corner.
  if (complaint.find("Cannot encode") != std::string::npos) {
    return ": a coordinate lies outside of the range that the output was made for.";
  }
  if (complaint.find("locked") != std::string::npos) return ": another program holds it; close it there.";
  if (const auto limit = FileSizeLimit()) {
    return ": files may not grow beyond " + std::to_string(*limit) + " bytes here (ulimit -f).";
  }
  return ".";
}

std::string WithShownPlaces(const std::string& text) {
  constexpr std::size_t kRandom = 6;
  const std::string inner = "/" + std::string(kStagingFolder) + "/";
  std::string shown = text;
  for (;;) {
    const std::size_t mark = shown.find(kStagingMark);
    const std::size_t hidden = mark == std::string::npos ? mark : shown.rfind("/.", mark);
    if (hidden == std::string::npos) return shown;
    const std::size_t behind = mark + kStagingMark.size() + kRandom;
    if (shown.compare(std::min(behind, shown.size()), inner.size(), inner) != 0) return shown;
    const std::size_t name = behind + inner.size();
    const std::size_t work = shown.find(kWorkEnding, name);
    const std::size_t end = shown.find('\'', name), begin = shown.rfind('\'', hidden) + 1;
    if (work != std::string::npos && work < end) shown.erase(work, kWorkEnding.size());
    shown.erase(hidden + 1, name - hidden - 1);
    if (begin == 0 || end == std::string::npos || !DiskIsFull(shown.substr(begin, hidden - begin))) continue;
    return shown.substr(begin - 1, shown.find('\'', begin) + 2 - begin) + " can't be written" + kNoRoom;
  }
}

}  // namespace tessarine
