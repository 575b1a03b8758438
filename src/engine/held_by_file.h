// SPDX-License-Identifier: GPL-2.0-or-later
// What is kept once for each file of the process, as long as somebody holds it.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace tessarine::engine {

/// The real path of a file or folder, the same for all names of it: links are followed, and no "/" stands at the end.
/// What isn't there yet is named by what of its path is there.
[[nodiscard]] std::string RealFileKey(const std::string& native_path);

/// Things by the real paths of their files. Any thread may call it. Who holds a thing holds it alone or with others;
/// what the thing itself allows to several threads is its own matter.
template <class Thing>
class HeldByFile {
 public:
  /// The one that somebody holds; null where nobody does.
  [[nodiscard]] std::shared_ptr<Thing> Find(const std::string& native_path) {
    if (IsEmpty()) return nullptr;
    const std::string key = RealFileKey(native_path);
    const std::lock_guard lock(guard_);
    const auto found = things_.find(key);
    return found == things_.end() ? nullptr : found->second.lock();
  }

  /// The same, or the one that `make` returns, which may not ask this for anything.
  template <class Make>
  [[nodiscard]] std::shared_ptr<Thing> FindOrMake(const std::string& native_path, Make&& make) {
    const std::string key = RealFileKey(native_path);
    const std::lock_guard lock(guard_);
    std::erase_if(things_, [](const auto& entry) { return entry.second.expired(); });
    if (const auto found = things_.find(key); found != things_.end()) {
      if (auto held = found->second.lock()) return held;
    }
    std::shared_ptr<Thing> made = make();
    things_.insert_or_assign(key, made);
    return made;
  }

  /// From now on this is the one of the file.
  void Put(const std::string& native_path, const std::shared_ptr<Thing>& thing) {
    std::string key = RealFileKey(native_path);
    const std::lock_guard lock(guard_);
    things_.insert_or_assign(std::move(key), thing);
  }

  void Forget(const std::string& native_path) {
    const std::string key = RealFileKey(native_path);
    const std::lock_guard lock(guard_);
    things_.erase(key);
  }

  [[nodiscard]] bool IsEmpty() {
    const std::lock_guard lock(guard_);
    return things_.empty();
  }

 private:
  std::mutex guard_;
  std::map<std::string, std::weak_ptr<Thing>> things_;
};

}  // namespace tessarine::engine
