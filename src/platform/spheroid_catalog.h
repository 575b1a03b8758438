// SPDX-License-Identifier: GPL-2.0-or-later
// What a host may ask of the suite's spheroid catalogue.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/object.h"

namespace tessarine {

enum class SpheroidList { Custom, Planets, Earth };

struct NamedSpheroid {
  std::string name;
  std::int32_t code = 0;                                ///< 0 for a custom one
  double semi_major_axis = 0.0, semi_minor_axis = 0.0;  ///< metres
};

class ISpheroidCatalog : public virtual Object {
 public:
  /// The backslash path of the custom spheroid file; the file need not exist.
  [[nodiscard]] virtual std::string CustomFile() const = 0;
  /// The spheroids of a custom file, in its order. Fault 76 when there is no such file, 5 when none of its lines tells
  /// a spheroid.
  [[nodiscard]] virtual std::vector<NamedSpheroid> ReadCustomFile(const std::string& path) const = 0;
  /// The planets or Earth in catalogue order, without those whose code this installation doesn't know; for custom
  /// ones those of `CustomFile`, none when it doesn't exist.
  [[nodiscard]] virtual std::vector<NamedSpheroid> Spheroids(SpheroidList list) const = 0;
};

}  // namespace tessarine
