// SPDX-License-Identifier: GPL-2.0-or-later
// How long a run took, in words.
#pragma once

#include <cstdint>
#include <string>

#include "platform/date.h"

namespace tessarine::MyGeneralOperations {

/// The size of a report's text, in points.
inline constexpr std::int32_t kReportFontSize = 8;

/// Three lines: when the analysis began, when it was complete, and the time between in days, hours, minutes and
/// seconds. Units ahead of the first that isn't 0 are left out. No time passes between dates in the wrong order.
[[nodiscard]] std::string ReturnTimeElapsed(Date begin, Date end);
/// The same as RTF, in a font of so many points.
[[nodiscard]] std::string ReturnTimeElapsedRTF(Date begin, Date end, std::int32_t font_size);

// The same for spans that a steady clock measured; the dates may contradict it when somebody set the clock.
[[nodiscard]] std::string ReturnTimeElapsed(Date begin, Date end, double seconds);
[[nodiscard]] std::string ReturnTimeElapsedRTF(Date begin, Date end, std::int32_t font_size, double seconds);

}  // namespace tessarine::MyGeneralOperations
