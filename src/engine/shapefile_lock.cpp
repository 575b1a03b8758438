// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/shapefile_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "engine/engine_fault.h"
#include "engine/held_by_file.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

// The .shp is locked, since the table beside it is replaced when it gets new columns.
class HeldLock {
 public:
  explicit HeldLock(const std::string& path) : handle_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (handle_ < 0 || flock(handle_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
    close(handle_);
    RaiseEngineFault("'" + path + "' is being changed by another run: wait for its end, then try again.");
  }
  ~HeldLock() {
    if (handle_ >= 0) close(handle_);
  }
  HeldLock(const HeldLock&) = delete;
  HeldLock& operator=(const HeldLock&) = delete;

 private:
  int handle_;
};

class LockedEdit final : public IEdit {
 public:
  explicit LockedEdit(std::shared_ptr<HeldLock> lock) : lock_(std::move(lock)) {}
  void Finish() override { lock_ = nullptr; }
  void Abandon() override { lock_ = nullptr; }

 private:
  std::shared_ptr<HeldLock> lock_;
};

}  // namespace

std::shared_ptr<IEdit> LockShapefile(const std::string& native_path) {
  static HeldByFile<HeldLock> locks;
  return std::make_shared<LockedEdit>(
      locks.FindOrMake(native_path, [&] { return std::make_shared<HeldLock>(native_path); }));
}

}  // namespace tessarine::engine
