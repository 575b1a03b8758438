// SPDX-License-Identifier: GPL-2.0-or-later
// Geodatabases and feature datasets that aren't there yet and come to be with their first class.
#pragma once

#include <memory>
#include <string>

#include "platform/spatial_reference.h"

namespace tessarine {

/// What was announced counts as there as long as one of these is kept; it may be kept, and let go, on any thread. Runs
/// that announce the same thing at one time don't disturb each other.
using KeptPromise = std::shared_ptr<const void>;

/// Announces a geodatabase: opening its workspace succeeds, and its first class makes it.
[[nodiscard]] KeptPromise PromiseFileGeodatabase(const std::string& native_path);

/// Announces a feature dataset: opening it succeeds, and its first class makes it with this reference, which may be
/// null for one that isn't known.
[[nodiscard]] KeptPromise PromiseFeatureDataset(const std::string& native_geodatabase, const std::string& name,
                                                const SpatialReferenceRef& reference);

namespace engine {

[[nodiscard]] bool IsPromisedGeodatabase(const std::string& native_path);

struct PromisedDataset {
  bool promised = false;
  SpatialReferenceRef reference;  ///< of the last announcement
};

/// The name in any case.
[[nodiscard]] PromisedDataset FindPromisedDataset(const std::string& native_geodatabase, const std::string& name);

}  // namespace engine
}  // namespace tessarine
