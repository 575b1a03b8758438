// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/raw_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "engine/engine_fault.h"
#include "outputs/shown_places.h"
#include "outputs/way_out.h"

namespace tessarine::engine {

RawFile::RawFile(std::string path, FileAccess access)
    : path_(std::move(path)),
      handle_(open(path_.c_str(), (access == FileAccess::Read ? O_RDONLY : O_RDWR) | O_CLOEXEC)) {}

RawFile::~RawFile() {
  if (handle_ >= 0) close(handle_);
}

void RawFile::Fail(const char* reason) const {
  RaiseEngineFault(
      WithShownPlaces("'" + path_ + "' can't be read or changed (" + reason + ")" + WayOut(path_, reason)));
}

std::int64_t RawFile::Size() const {
  struct stat status {};
  if (fstat(handle_, &status) != 0) Fail(std::strerror(errno));
  return status.st_size;
}

void RawFile::Read(std::int64_t offset, std::span<char> bytes) const {
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t got = pread(handle_, bytes.data() + done, bytes.size() - done, offset + static_cast<off_t>(done));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) Fail(std::strerror(errno));
    if (got == 0) Fail("it ends too early");
    done += static_cast<std::size_t>(got);
  }
}

void RawFile::Write(std::int64_t offset, std::span<const char> bytes) const {
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t put = pwrite(handle_, bytes.data() + done, bytes.size() - done, offset + static_cast<off_t>(done));
    if (put < 0 && errno == EINTR) continue;
    if (put <= 0) Fail(std::strerror(errno));
    done += static_cast<std::size_t>(put);
  }
}

namespace {

// The file itself where the path is a link to it.
std::string RealPath(const std::string& path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(path, error);
  return error ? path : real.string();
}

}  // namespace

FileReplacement::FileReplacement(const std::string& path)
    : target_(RealPath(path)), path_(target_ + ".XXXXXX"), file_(target_, mkostemp(path_.data(), O_CLOEXEC)) {
  struct stat status {};
  if (!file_.IsOpen() || stat(target_.c_str(), &status) != 0) return;
  // An owner that can't be kept becomes the user, as after any copy.
  if (chown(path_.c_str(), status.st_uid, status.st_gid) != 0) errno = 0;
  chmod(path_.c_str(), status.st_mode);
}

FileReplacement::~FileReplacement() {
  if (file_.IsOpen() && !path_.empty()) unlink(path_.c_str());
}

void FileReplacement::Commit() {
  if (rename(path_.c_str(), target_.c_str()) != 0) {
    const std::string reason = std::strerror(errno);
    RaiseEngineFault("'" + target_ + "' can't be replaced (" + reason + ")" + WayOut(target_, reason));
  }
  path_.clear();
}

}  // namespace tessarine::engine
