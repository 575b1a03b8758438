#include "engine/local_system.h"

#include <pwd.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <system_error>

#include "platform/paths.h"

extern char** environ;

namespace tessarine {
namespace fs = std::filesystem;

Date SystemClock::Now() const {
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&seconds, &local);
  return MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
}

bool LocalOperatingSystem::Exists(const std::string& path) const {
  std::error_code error;
  return fs::exists(ToNativePath(path), error);
}

bool LocalOperatingSystem::IsFile(const std::string& path) const {
  std::error_code error;
  return fs::is_regular_file(ToNativePath(path), error);
}

std::string LocalOperatingSystem::LongPathName(const std::string& path) const {
  std::error_code error;
  const fs::path absolute = fs::absolute(ToNativePath(path), error);
  return error ? std::string() : FromNativePath(absolute.lexically_normal().string());
}

std::string LocalOperatingSystem::UserName() const {
  const passwd* entry = getpwuid(geteuid());
  if (entry != nullptr) return entry->pw_name;
  const char* user = std::getenv("USER");
  return user != nullptr ? user : "";
}

void LocalOperatingSystem::ShellExecute(const std::string& path, const std::string& folder) {
  std::string native = ToNativePath(path);
  std::string opener = "xdg-open";
  char* arguments[] = {opener.data(), native.data(), nullptr};
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (!folder.empty()) posix_spawn_file_actions_addchdir_np(&actions, ToNativePath(folder).c_str());
  pid_t child = 0;
  const int failed = posix_spawnp(&child, opener.c_str(), &actions, nullptr, arguments, environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) {
    Raise(kInvalidCall, "No program could be started to open '" + native + "': install xdg-utils or open it by hand.");
  }
  // The opener itself returns at once; waiting for it leaves no dead process behind.
  waitpid(child, nullptr, 0);
}

std::string LocalOperatingSystem::ProgramFolder() const {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  return error ? std::string() : FromNativePath(program.parent_path().string());
}

}  // namespace tessarine
