// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/promised_geodatabases.h"

#include <algorithm>
#include <mutex>
#include <ranges>
#include <vector>

#include "engine/held_by_file.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

using engine::RealFileKey;

struct Announcement {
  std::string geodatabase;
  std::string dataset;  // empty for the geodatabase itself
  SpatialReferenceRef reference;
};

// All that hold now. An announcement is taken out by whoever lets go of its promise last.
class Announcements {
 public:
  [[nodiscard]] static Announcements& OfTheProcess() {
    static Announcements all;
    return all;
  }

  [[nodiscard]] KeptPromise Add(Announcement announcement) {
    const auto kept = std::make_shared<const Announcement>(std::move(announcement));
    const std::lock_guard lock(guard_);
    std::erase_if(held_, [](const std::weak_ptr<const Announcement>& held) { return held.expired(); });
    held_.push_back(kept);
    return kept;
  }

  // The last one of the place; null where there is none.
  [[nodiscard]] std::shared_ptr<const Announcement> Find(const std::string& geodatabase, const std::string& dataset) {
    const std::string path = RealFileKey(geodatabase);
    const std::lock_guard lock(guard_);
    for (const std::weak_ptr<const Announcement>& held : held_ | std::views::reverse) {
      auto announcement = held.lock();
      if (announcement && announcement->geodatabase == path && EqualsIgnoringCase(announcement->dataset, dataset)) {
        return announcement;
      }
    }
    return nullptr;
  }

 private:
  std::mutex guard_;
  std::vector<std::weak_ptr<const Announcement>> held_;
};

}  // namespace

KeptPromise PromiseFileGeodatabase(const std::string& native_path) {
  return Announcements::OfTheProcess().Add({RealFileKey(native_path), "", nullptr});
}

KeptPromise PromiseFeatureDataset(const std::string& native_geodatabase, const std::string& name,
                                  const SpatialReferenceRef& reference) {
  return Announcements::OfTheProcess().Add({RealFileKey(native_geodatabase), name, reference});
}

namespace engine {

bool IsPromisedGeodatabase(const std::string& native_path) {
  return Announcements::OfTheProcess().Find(native_path, "") != nullptr;
}

PromisedDataset FindPromisedDataset(const std::string& native_geodatabase, const std::string& name) {
  const auto announcement = Announcements::OfTheProcess().Find(native_geodatabase, name);
  return announcement ? PromisedDataset{true, announcement->reference} : PromisedDataset{};
}

}  // namespace engine
}  // namespace tessarine
