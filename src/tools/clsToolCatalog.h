// SPDX-License-Identifier: GPL-2.0-or-later
// The tools as hosts reach them.
#pragma once

#include <string>
#include <vector>

#include "support/frmReport_modal.h"
#include "tools/tool.h"

namespace tessarine {

class clsToolCatalog final : public IToolCatalog {
 public:
  [[nodiscard]] std::vector<const ITool*> Tools() const override { return {AllTools().begin(), AllTools().end()}; }
  void ShowReport(const std::string& report) const override { ShowReportWindow(report); }
};

}  // namespace tessarine
