// SPDX-License-Identifier: GPL-2.0-or-later
// The suite as the host's geoprocessing framework sees it: a factory that names itself and hands out no tool. The
// commands are the way to the suite's work.
#pragma once

#include <memory>
#include <string>

#include "platform/arrays.h"
#include "platform/geoprocessing.h"

namespace tessarine {

class clsFunctionFactory final : public IGPFunctionFactory {
 public:
  [[nodiscard]] std::shared_ptr<UID> CLSID() const override;
  [[nodiscard]] std::string Name() const override { return "Tessarine Toolset"; }
  [[nodiscard]] std::string Alias() const override { return "Tessarine_FunctionFactory"; }
  /// Nothing, whatever the name.
  [[nodiscard]] std::shared_ptr<IGPFunction> GetFunction(const std::string& name) const override;
  [[nodiscard]] std::shared_ptr<IGPName> GetFunctionName(const std::string& name) const override;
  /// The names of the first two functions. While there are none this ends in a fault report and an empty list.
  [[nodiscard]] std::shared_ptr<IEnumGPName> GetFunctionNames() const override;
  [[nodiscard]] std::shared_ptr<IEnumGPEnvironment> GetFunctionEnvironments() const override;

 private:
  std::shared_ptr<VarArray> functions_ = std::make_shared<VarArray>();
};

}  // namespace tessarine
