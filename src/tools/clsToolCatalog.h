// SPDX-License-Identifier: GPL-2.0-or-later
// The tools as hosts reach them.
#pragma once

#include <vector>

#include "tools/tool.h"

namespace tessarine {

class clsToolCatalog final : public IToolCatalog {
 public:
  [[nodiscard]] std::vector<const ITool*> Tools() const override { return {AllTools().begin(), AllTools().end()}; }
};

}  // namespace tessarine
