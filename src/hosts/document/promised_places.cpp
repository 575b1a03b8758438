// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/promised_places.h"

#include <filesystem>

#include "platform/paths.h"

namespace tessarine {

namespace fs = std::filesystem;

void PromisePlace(const OutputPlace& place, const SpatialReferenceRef& reference, PromisingSystem& system) {
  if (!place.InContainer() || !place.format->writable) return;
  if (place.format->server) {
    system.Promise(FromNativePath(place.container));
    return;
  }
  if (!place.dataset.empty()) system.Keep(PromiseFeatureDataset(place.container, place.dataset, reference));
  if (fs::exists(place.container)) return;
  if (!fs::is_directory(fs::path(place.container).parent_path())) return;  // others tell of the missing folder
  if (place.format->feature_datasets) system.Keep(PromiseFileGeodatabase(place.container));
  system.Promise(FromNativePath(place.container));
}

}  // namespace tessarine
