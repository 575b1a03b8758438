// SPDX-License-Identifier: GPL-2.0-or-later
// Puts a new class in its place, as a run does at its end.
#pragma once

#include <memory>

#include "platform/data.h"

namespace tessarine::testing {

inline std::shared_ptr<IFeatureClass> Published(std::shared_ptr<IFeatureClass> made) {
  if (const auto staged = Cast<IStagedDataset>(made)) staged->Publish();
  return made;
}

}  // namespace tessarine::testing
