// How long a run took, in words.
#pragma once

#include <cstdint>
#include <string>

#include "platform/date.h"

namespace tessarine::MyGeneralOperations {

/// Three lines: when the analysis began, when it was complete, and the time between in days, hours, minutes and
/// seconds. Units ahead of the first that isn't 0 are left out.
[[nodiscard]] std::string ReturnTimeElapsed(Date begin, Date end);
/// The same as RTF, in a font of so many points.
[[nodiscard]] std::string ReturnTimeElapsedRTF(Date begin, Date end, std::int32_t font_size);

}  // namespace tessarine::MyGeneralOperations
