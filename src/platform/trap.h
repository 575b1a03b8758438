// SPDX-License-Identifier: GPL-2.0-or-later
// The error trap that every procedure of the suite runs its body in.
//
//   double DegToRad(double x) {
//     return Trap("DegToRad", [&] { return x * kPi / 180.0; });
//   }
//
// A fault inside goes to the fault reporter under the procedure's name and source file, and the call returns the
// empty result of its type: 0, "", null. Without a fault a trap costs nothing.
//
// Routines that tools call for each record use `TrapHelper`: as long as a record is in hand, their faults go on to the
// loop, which knows the record and writes no number that a failed routine returned.
#pragma once

#include <cstdint>
#include <exception>
#include <optional>
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
  std::int32_t line = 0;
};

/// Takes a fault that ends in a trap.
using FaultReporter = void (*)(const TrapSite& site, const Fault& fault);

/// Sets the reporter of the process and returns the one before. Nothing means: faults end silently. The suite installs
/// its own when it starts.
FaultReporter SetFaultReporter(FaultReporter reporter);

/// Reports a fault as one that ended in this procedure.
void ReportFault(std::string_view procedure, const Fault& fault,
                 const std::source_location where = std::source_location::current());

void ReportFault(const TrapSite& site, const Fault& fault);

/// While it lives, the thread works on one record of a run, and helpers pass their faults on.
class RecordInHand {
 public:
  explicit RecordInHand(std::int64_t oid);
  ~RecordInHand();
  RecordInHand(const RecordInHand&) = delete;
  RecordInHand& operator=(const RecordInHand&) = delete;

  /// The record that the thread works on; empty between two records.
  [[nodiscard]] static std::optional<std::int64_t> Oid();

 private:
  std::optional<std::int64_t> before_;
};

/// The fault in flight; for use inside a catch block. Standard exceptions become faults of number 5. A stop is no
/// fault: `RunStopped` is raised again and goes on to the run that it ends.
[[nodiscard]] Fault CurrentFault();

namespace detail {
/// Where the fault in flight goes.
enum class TrapKind { Ends, EndsWithoutRecord, PassesOn };

/// Reports the exception in flight, or raises it again as a fault that bears the procedure.
void TakeCurrentFault(std::string_view procedure, TrapKind kind, const std::source_location& where);

template <class Body>
auto RunTrapped(std::string_view procedure, TrapKind kind, Body&& body, const std::source_location& where)
    -> std::invoke_result_t<Body> {
  using Result = std::invoke_result_t<Body>;
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    TakeCurrentFault(procedure, kind, where);
  }
  if constexpr (!std::is_void_v<Result>) return Result{};
}
}  // namespace detail

/// Runs the body; a fault ends here, is reported, and the result is empty.
template <class Body>
auto Trap(std::string_view procedure, Body&& body, const std::source_location where = std::source_location::current())
    -> std::invoke_result_t<Body> {
  return detail::RunTrapped(procedure, detail::TrapKind::Ends, std::forward<Body>(body), where);
}

/// Runs the body; a fault ends here, `on_fault` makes the result of it, and it is reported.
template <class Body, class OnFault>
auto TrapWith(std::string_view procedure, Body&& body, OnFault&& on_fault,
              const std::source_location where = std::source_location::current()) -> std::invoke_result_t<Body> {
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    auto result = std::forward<OnFault>(on_fault)(CurrentFault());
    detail::TakeCurrentFault(procedure, detail::TrapKind::Ends, where);
    return result;
  }
}

/// The trap of a routine that tools call for each record. While a record is in hand a fault takes this procedure's line
/// on and goes to the caller; at other times it ends here as in `Trap`.
template <class Body>
auto TrapHelper(std::string_view procedure, Body&& body,
                const std::source_location where = std::source_location::current()) -> std::invoke_result_t<Body> {
  return detail::RunTrapped(procedure, detail::TrapKind::EndsWithoutRecord, std::forward<Body>(body), where);
}

/// Runs the body; a fault takes this procedure's line on and goes to the caller.
template <class Body>
auto TrapAndPassOn(std::string_view procedure, Body&& body,
                   const std::source_location where = std::source_location::current()) -> std::invoke_result_t<Body> {
  return detail::RunTrapped(procedure, detail::TrapKind::PassesOn, std::forward<Body>(body), where);
}

}  // namespace tessarine
