// SPDX-License-Identifier: GPL-2.0-or-later
// The walk over the vertices of one or several parts.
#pragma once

#include <functional>
#include <memory>

#include "platform/geometry.h"

namespace tessarine::detail {

/// How a walk reaches the parts of the shape that it was made for. The shape must outlive the walk.
struct VertexSource {
  std::function<std::int32_t()> part_count;
  std::function<IPointCollection&(std::int32_t)> part;
};

[[nodiscard]] std::shared_ptr<IEnumVertex> MakeVertexEnumerator(VertexSource source);

}  // namespace tessarine::detail
