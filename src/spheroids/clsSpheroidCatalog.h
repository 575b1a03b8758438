// SPDX-License-Identifier: GPL-2.0-or-later
// The catalogue as a host asks for it.
#pragma once

#include "platform/spheroid_catalog.h"

namespace tessarine {

class clsSpheroidCatalog final : public ISpheroidCatalog {
 public:
  [[nodiscard]] std::string CustomFile() const override;
  [[nodiscard]] std::vector<NamedSpheroid> ReadCustomFile(const std::string& path) const override;
  [[nodiscard]] std::vector<NamedSpheroid> Spheroids(SpheroidList list) const override;
};

}  // namespace tessarine
