// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/elapsed_time.h"

#include <algorithm>
#include <cmath>

#include "platform/text_formats.h"
#include "platform/trap.h"

namespace tessarine::MyGeneralOperations {
namespace {

constexpr std::string_view kTemplate =
    "\\b\\fszzzFontSizezzz Analysis Began:\\b0\\i    zzzTimeBeganzzz\\par\r\n"
    "\\b\\i0 Analysis Complete:\\b0\\i    zzzTimeEndzzz\\par\r\n"
    "\\b\\i0 Time Elapsed:\\b0\\i    zzzTimeElapsedzzz\\par";

std::string Counted(std::int64_t value, const char* singular, const char* plural) {
  return std::to_string(value) + (value == 1 ? singular : plural);
}

std::string ElapsedText(double seconds) {
  auto rest = static_cast<std::int64_t>(std::floor(std::max(0.0, seconds)));
  const std::int64_t days = rest / 86400;
  rest %= 86400;
  const std::int64_t hours = rest / 3600;
  rest %= 3600;
  const std::int64_t minutes = rest / 60;
  std::string text = Counted(rest % 60, " second...", " seconds...");
  if (days > 0 || hours > 0 || minutes > 0) text = Counted(minutes, " minute", " minutes") + ", " + text;
  if (days > 0 || hours > 0) text = Counted(hours, " hour", " hours") + ", " + text;
  if (days > 0) text = Counted(days, " day", " days") + ", " + text;
  return text;
}

}  // namespace

std::string ReturnTimeElapsed(Date begin, Date end) {
  return ReturnTimeElapsed(begin, end, static_cast<double>(SecondsBetween(begin, end)));
}

std::string ReturnTimeElapsed(Date begin, Date end, double seconds) {
  return TrapHelper("ReturnTimeElapsed", [&] {
    return "Analysis Began: " + LongDate(begin) + ";  " + LongTime(begin) + "\r\n" +
           "Analysis Complete: " + LongDate(end) + ";  " + LongTime(end) + "\r\n" +
           "Time Elapsed: " + ElapsedText(seconds);
  });
}

std::string ReturnTimeElapsedRTF(Date begin, Date end, std::int32_t font_size) {
  return ReturnTimeElapsedRTF(begin, end, font_size, static_cast<double>(SecondsBetween(begin, end)));
}

std::string ReturnTimeElapsedRTF(Date begin, Date end, std::int32_t font_size, double seconds) {
  return TrapHelper("ReturnTimeElapsedRTF", [&] {
    std::string text = Replace(kTemplate, "zzzFontSizezzz", std::to_string(font_size * 2));
    text = Replace(text, "zzzTimeBeganzzz", LongDate(begin) + " at " + LongTime(begin));
    text = Replace(text, "zzzTimeEndzzz", LongDate(end) + " at " + LongTime(end));
    return Replace(text, "zzzTimeElapsedzzz", ElapsedText(seconds));
  });
}

}  // namespace tessarine::MyGeneralOperations
