// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/published/Functions.h"

#include "platform/trap.h"

namespace tessarine::Functions {

std::shared_ptr<IGPName> GetFunctionName(const VarArray& functions, std::int32_t place) {
  return TrapAndPassOn("GetFunctionName", [&] {
    const auto function = functions.Element(place - 1).AsObject<IGPFunction>();
    return Cast<IGPName>(Require(function, "IGPFunction")->FullName());
  });
}

}  // namespace tessarine::Functions
