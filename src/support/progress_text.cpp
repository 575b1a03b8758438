#include "support/progress_text.h"

#include <cmath>
#include <limits>

#include "platform/fault.h"
#include "platform/host.h"
#include "platform/text_formats.h"
#include "platform/trap.h"

namespace tessarine::MyGeneralOperations {
namespace {

std::int32_t Checked(std::int64_t value) {
  if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()) {
    Raise(kOverflow, "Overflow.");
  }
  return static_cast<std::int32_t>(value);
}

}  // namespace

double PercentDone(std::int32_t done, std::int32_t total) {
  const float fraction = total > 0 ? static_cast<float>(done) / static_cast<float>(total) : 0.0F;
  return ToNumber(FixedText(static_cast<double>(fraction * 100.0F), 2));
}

std::string CalcTimeLeft(const std::string& prefix, Date start, std::int32_t done, std::int32_t total) {
  return Trap("CalcTimeLeft", [&] {
    const double percent = PercentDone(done, total);
    const std::int64_t elapsed = SecondsBetween(start, Host().Clock().Now());
    const std::int32_t product = Checked(static_cast<std::int64_t>(total) * elapsed);
    if (done == 0) Raise(kDivisionByZero, "Division by zero.");
    const std::int64_t left = std::llrint(static_cast<double>(product) / done) - elapsed;
    const std::int64_t hours = left / 3600;
    const std::int64_t minutes = left % 3600 / 60;
    return prefix + ".....[record #" + std::to_string(done) + " of " + std::to_string(total) + "  ---  " +
           NumberText(percent) + "%]....." + "Est. Time Left = " + std::to_string(hours) + ":" + TwoDigits(minutes) +
           ":" + TwoDigits(left % 60) + "...";
  });
}

}  // namespace tessarine::MyGeneralOperations
