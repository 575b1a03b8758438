// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/way_out.h"

#include <sys/resource.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <filesystem>
#include <optional>

namespace tessarine {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kLeastRoom = 65536;  // bytes

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
  if (DiskIsFull(folder) || complaint.find("No space left") != std::string::npos)
    return ": there is no room left on its disk.";
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

}  // namespace tessarine
