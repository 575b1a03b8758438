// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/local_system.h"

#include <cpl_string.h>
#include <pwd.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/paths.h"

extern char** environ;

namespace tessarine {
namespace fs = std::filesystem;

namespace {

std::string Utf8FromLatin1(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80U) {
      text += c;
    } else {
      text += static_cast<char>(0xC0U | (byte >> 6U));
      text += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return text;
}

}  // namespace

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

std::string LocalOperatingSystem::ReadTextFile(const std::string& path) const {
  const std::string native = ToNativePath(path);
  if (!IsFile(path)) Raise(kPathNotFound, "There is no file '" + native + "'.");
  std::ifstream file(native, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file) Raise(kInvalidCall, "The file '" + native + "' can't be read: check its permissions.");
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
  const bool utf8 = CPLIsUTF8(bytes.data(), static_cast<int>(bytes.size())) != 0;
  return utf8 ? bytes : Utf8FromLatin1(bytes);
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
  // A program is started by itself, and goes on when this one ends.
  const bool program = IsFile(path) && access(native.c_str(), X_OK) == 0;
  std::string opener = program ? "setsid" : "xdg-open", detached = "-f";
  std::vector<char*> arguments = {opener.data()};
  if (program) arguments.push_back(detached.data());
  arguments.insert(arguments.end(), {native.data(), nullptr});
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (!folder.empty()) posix_spawn_file_actions_addchdir_np(&actions, ToNativePath(folder).c_str());
  pid_t child = 0;
  const int failed = posix_spawnp(&child, opener.c_str(), &actions, nullptr, arguments.data(), environ);
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
