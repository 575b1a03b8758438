// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/published/clsFunctionFactory.h"

#include "frame/published/Functions.h"
#include "platform/trap.h"

namespace tessarine {
namespace {

constexpr std::int32_t kFunctionCount = 2;

}  // namespace

std::shared_ptr<UID> clsFunctionFactory::CLSID() const {
  return Trap("IGPFunctionFactory_CLSID", [] { return std::make_shared<UID>("Tessarine.clsFunctionFactory"); });
}

std::shared_ptr<IGPFunction> clsFunctionFactory::GetFunction(const std::string&) const { return nullptr; }

std::shared_ptr<IGPName> clsFunctionFactory::GetFunctionName(const std::string&) const { return nullptr; }

std::shared_ptr<IEnumGPName> clsFunctionFactory::GetFunctionNames() const {
  return Trap("IGPFunctionFactory_GetFunctionNames", [this] {
    auto names = std::make_shared<EnumGPName>();
    for (std::int32_t place = 1; place <= kFunctionCount; ++place) {
      names->Add(Functions::GetFunctionName(*functions_, place));
    }
    return std::shared_ptr<IEnumGPName>(names);
  });
}

std::shared_ptr<IEnumGPEnvironment> clsFunctionFactory::GetFunctionEnvironments() const { return nullptr; }

}  // namespace tessarine
