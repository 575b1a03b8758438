// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/filegdb_working_copy.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <vector>

#include "engine/engine_fault.h"
#include "outputs/way_out.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

constexpr int kLockTries = 3;

// The geodatabase itself where the path is a link to it.
std::string RealPath(const std::string& path) {
  std::error_code error;
  const fs::path real = fs::weakly_canonical(fs::absolute(path), error);
  std::string text = (error ? fs::absolute(path) : real).lexically_normal().string();
  while (text.size() > 1 && text.ends_with('/')) text.pop_back();
  return text;
}

[[noreturn]] void Fail(const std::string& path, const std::string& what, int code) {
  const std::string reason = std::strerror(code);
  RaiseEngineFault("'" + path + "' " + what + " (" + reason + ")" + WayOut(path, reason));
}

// What the file system complains of is told like all else.
template <class Work>
auto Told(const std::string& path, Work&& work) {
  try {
    return work();
  } catch (const fs::filesystem_error& error) {
    Fail(path, "can't be copied", error.code().value());
  }
}

// Shares the blocks where the file system can; copies else.
void CopyFile(const fs::path& from, const fs::path& to) {
  const int in = open(from.c_str(), O_RDONLY | O_CLOEXEC);
  if (in < 0) Fail(from.string(), "can't be read", errno);
  struct stat status {};
  fstat(in, &status);
  const int out = open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, status.st_mode & 07777U);
  const bool shared = out >= 0 && ioctl(out, FICLONE, in) == 0;
  if (out >= 0) {
    // An owner that can't be kept becomes the user, as after any copy.
    if (fchown(out, status.st_uid, status.st_gid) != 0) errno = 0;
    close(out);
  }
  close(in);
  if (shared) return;
  std::error_code error;
  fs::copy_file(from, to, fs::copy_options::overwrite_existing, error);
  if (error) Fail(to.string(), "can't be made", error.value());
}

}  // namespace

FileGdbWorkingCopy::FileGdbWorkingCopy(const std::string& native_path) : target_(RealPath(native_path)) {
  FinishInterrupted(target_);
  const fs::path around = fs::path(target_).parent_path();
  const bool exists = fs::exists(target_);
  if (exists && access(around.c_str(), W_OK) != 0) {
    RaiseEngineFault("The folder '" + around.string() + "' can't be written to, and '" + target_ +
                     "' is changed by a copy beside it: check the permissions, or copy the geodatabase elsewhere.");
  }
  if (exists) Lock();
  try {
    staged_ = std::make_unique<StagedOutput>(target_, StagedOutput::Begin::Empty);
    folder_ = staged_->Path().string();
    if (!exists) return;
    Told(target_, [&] {
      stamps_ = StampsOf(target_);
      LinkAll();
    });
  } catch (...) {
    if (lock_ >= 0) close(lock_);
    throw;
  }
}

FileGdbWorkingCopy::~FileGdbWorkingCopy() {
  if (lock_ >= 0) close(lock_);
}

void FileGdbWorkingCopy::Lock() {
  for (int tries = 0; tries < kLockTries; ++tries) {
    lock_ = open(target_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (lock_ < 0) Fail(target_, "can't be opened", errno);
    // Some network file systems have no such locks.
    const bool taken = flock(lock_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    struct stat own {
    }, now{};
    const bool same = !taken && fstat(lock_, &own) == 0 && stat(target_.c_str(), &now) == 0 &&
                      own.st_ino == now.st_ino && own.st_dev == now.st_dev;
    if (same) return;
    close(lock_);
    lock_ = -1;
    if (taken) break;
  }
  RaiseEngineFault("'" + target_ + "' is being changed by another run: wait for its end, then try again.");
}

void FileGdbWorkingCopy::LinkAll() const {
  struct stat status {};
  stat(target_.c_str(), &status);
  if (mkdir(folder_.c_str(), status.st_mode & 07777U) != 0) Fail(folder_, "can't be made", errno);
  if (chown(folder_.c_str(), status.st_uid, status.st_gid) != 0) errno = 0;
  chmod(folder_.c_str(), status.st_mode & 07777U);
  for (const auto& entry : fs::recursive_directory_iterator(target_)) {
    const fs::path to = fs::path(folder_) / entry.path().lexically_relative(target_);
    std::error_code error;
    if (entry.is_symlink()) {
      fs::copy_symlink(entry.path(), to);
    } else if (entry.is_directory()) {
      fs::create_directory(to, entry.path());
    } else {
      fs::create_hard_link(entry.path(), to, error);
      if (error) CopyFile(entry.path(), to);
    }
  }
}

void FileGdbWorkingCopy::OwnFiles(const std::string& prefix) const {
  std::vector<fs::path> linked;
  Told(folder_, [&] {
    for (const auto& entry : fs::directory_iterator(folder_)) {
      const std::string name = entry.path().filename().string();
      if (!name.starts_with(prefix) || !entry.is_regular_file()) continue;
      if (entry.is_symlink() || entry.hard_link_count() > 1) linked.push_back(entry.path());
    }
    for (const fs::path& path : linked) {
      const fs::path own = path.string() + ".own";
      CopyFile(path, own);
      fs::rename(own, path);
    }
  });
}

FileGdbWorkingCopy::Stamps FileGdbWorkingCopy::StampsOf(const std::string& folder) {
  Stamps stamps;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().lexically_relative(folder).string();
    struct stat status {};
    // Readers come and go with locks of their own.
    if (EndsWithIgnoringCase(name, ".lock") || stat(entry.path().c_str(), &status) != 0) continue;
    stamps[name] = {status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
  }
  return stamps;
}

void FileGdbWorkingCopy::Publish() {
  if (IsNew() && fs::exists(target_)) RaiseEngineFault("'" + target_ + "' was made by another program meanwhile.");
  if (!IsNew() && Told(target_, [&] { return StampsOf(target_); }) != stamps_) {
    RaiseEngineFault("'" + target_ + "' was changed by another program while this run worked on it; it stays as that " +
                     "program left it, and nothing of this run is in it. Close the other program, then try again.");
  }
  staged_->Publish();
}

}  // namespace tessarine::engine
