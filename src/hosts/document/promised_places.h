// SPDX-License-Identifier: GPL-2.0-or-later
// Places of outputs that a run counts on before they are there.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "engine/local_system.h"
#include "engine/promised_geodatabases.h"
#include "outputs/output_place.h"
#include "platform/spatial_reference.h"

namespace tessarine {

/// The operating system, with places that a run counts on but that aren't made yet, and without those that the user
/// has agreed to replace.
class PromisingSystem : public LocalOperatingSystem {
 public:
  void Promise(const std::string& path) { promised_.insert(path); }
  /// Keeps what was promised elsewhere as long as this lives.
  void Keep(KeptPromise promise) { kept_.push_back(std::move(promise)); }
  /// The data set at this path counts as gone, with whatever ending.
  void GiveFree(const std::string& path) { free_.insert(WithoutEnding(path)); }
  [[nodiscard]] bool Exists(const std::string& path) const override {
    if (free_.contains(WithoutEnding(path))) return false;
    return promised_.contains(path) || LocalOperatingSystem::Exists(path);
  }

 private:
  [[nodiscard]] static std::string WithoutEnding(const std::string& path) {
    const std::size_t point = path.rfind('.');
    return point == std::string::npos || path.find('\\', point) != std::string::npos ? path : path.substr(0, point);
  }

  std::set<std::string> promised_, free_;
  std::vector<KeptPromise> kept_;
};

/// Makes the place ready for a run: a container that isn't there, and a new feature dataset with the given reference,
/// are promised; the first class makes them.
void PromisePlace(const OutputPlace& place, const SpatialReferenceRef& reference, PromisingSystem& system);

}  // namespace tessarine
