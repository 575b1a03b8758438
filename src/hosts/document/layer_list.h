// SPDX-License-Identifier: GPL-2.0-or-later
// The layers of a map, one after the other.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "platform/map.h"

namespace tessarine {

class LayerList final : public IEnumLayer {
 public:
  explicit LayerList(std::vector<std::shared_ptr<ILayer>> layers) : layers_(std::move(layers)) {}
  void Reset() override { next_ = 0; }
  [[nodiscard]] std::shared_ptr<ILayer> Next() override { return next_ < layers_.size() ? layers_[next_++] : nullptr; }

 private:
  std::vector<std::shared_ptr<ILayer>> layers_;
  std::size_t next_ = 0;
};

}  // namespace tessarine
