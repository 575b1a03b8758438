// The error trap that every procedure of the suite runs its body in.
//
//   double DegToRad(double x) {
//     return Trap("DegToRad", [&] { return x * kPi / 180.0; });
//   }
//
// A fault inside goes to the fault reporter under the procedure's name and source file, and the call returns the
// empty result of its type: 0, "", nothing. Without a fault a trap costs nothing.
#pragma once

#include <exception>
#include <source_location>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "platform/fault.h"

namespace tessarine {

/// Where a trap stands.
struct TrapSite {
  std::string procedure;  ///< with its trailing blank, as "IPersistVariant_Save "
  std::string source;     ///< "geodesy/vincenty.cpp"
  bool top = true;        ///< ends the fault; otherwise the reporter raises it again to the caller
};

/// Takes a fault from a trap. For a site that isn't `top` it must raise.
using FaultReporter = void (*)(const TrapSite& site, const Fault& fault);

/// Sets the reporter of the process and answers the one before. Nothing means: faults end silently in a top trap and
/// pass through the others. The suite installs its own when it starts.
FaultReporter SetFaultReporter(FaultReporter reporter);

/// The fault in flight; for use inside a catch block. Standard exceptions become faults of number 5.
[[nodiscard]] Fault CurrentFault();

namespace detail {
/// Calls the reporter for the exception in flight; for a site that isn't top it always raises.
void ReportCurrentFault(std::string_view procedure, bool top, const std::source_location& where);

template <class Body>
auto RunTrapped(std::string_view procedure, bool top, Body&& body, const std::source_location& where)
    -> std::invoke_result_t<Body> {
  using Result = std::invoke_result_t<Body>;
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    ReportCurrentFault(procedure, top, where);
  }
  if constexpr (!std::is_void_v<Result>) return Result{};
}
}  // namespace detail

/// Runs the body; a fault ends here, is reported, and the result is empty.
template <class Body>
auto Trap(std::string_view procedure, Body&& body, const std::source_location where = std::source_location::current())
    -> std::invoke_result_t<Body> {
  return detail::RunTrapped(procedure, true, std::forward<Body>(body), where);
}

/// Runs the body; a fault ends here, `on_fault` makes the result of it, and it is reported.
template <class Body, class OnFault>
auto TrapWith(std::string_view procedure, Body&& body, OnFault&& on_fault,
              const std::source_location where = std::source_location::current()) -> std::invoke_result_t<Body> {
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    auto result = std::forward<OnFault>(on_fault)(CurrentFault());
    detail::ReportCurrentFault(procedure, true, where);
    return result;
  }
}

/// Runs the body; a fault takes this procedure's line on and goes to the caller.
template <class Body>
auto TrapAndPassOn(std::string_view procedure, Body&& body,
                   const std::source_location where = std::source_location::current()) -> std::invoke_result_t<Body> {
  return detail::RunTrapped(procedure, false, std::forward<Body>(body), where);
}

}  // namespace tessarine
