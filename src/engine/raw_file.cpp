#include "engine/raw_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "engine/engine_fault.h"

namespace tessarine::engine {

RawFile::RawFile(std::string path) : path_(std::move(path)), handle_(open(path_.c_str(), O_RDWR | O_CLOEXEC)) {}

RawFile::~RawFile() {
  if (handle_ >= 0) close(handle_);
}

void RawFile::Fail(const char* reason) const {
  RaiseEngineFault("'" + path_ + "' can't be changed (" + reason +
                   "): check the room on the disk and the permissions.");
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

}  // namespace tessarine::engine
