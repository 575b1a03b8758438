// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/trap.h"

#include "platform/run_context.h"
#include "platform/run_stop.h"
#include "platform/silence.h"

namespace tessarine {
namespace {

FaultReporter g_reporter = nullptr;
thread_local std::optional<std::int64_t> t_record_in_hand;
thread_local int t_silences = 0;

}  // namespace

Fault CurrentFault() {
  try {
    throw;
  } catch (const RunStopped&) {
    throw;
  } catch (const Fault& fault) {
    return fault;
  } catch (const std::exception& error) {
    return {kInvalidCall, "Tessarine", error.what()};
  } catch (...) {
    return {kInvalidCall, "Tessarine", "Unknown error."};
  }
}

FaultReporter SetFaultReporter(FaultReporter reporter) { return std::exchange(g_reporter, reporter); }

void ReportFault(std::string_view procedure, const Fault& fault, const std::source_location where) {
  ReportFault(
      {std::string(procedure) + " ", SourceFileName(where.file_name()), static_cast<std::int32_t>(where.line())},
      fault);
}

void ReportFault(const TrapSite& site, const Fault& fault) {
  if (t_silences > 0) return;
  RunContext* const run = RunningContext();
  if (run != nullptr && run->feedback.TakeFault(site, fault)) return;
  if (g_reporter != nullptr) g_reporter(site, fault);
}

Silence::Silence() { ++t_silences; }
Silence::~Silence() { --t_silences; }

RecordInHand::RecordInHand(std::int64_t oid) : before_(std::exchange(t_record_in_hand, oid)) {}
RecordInHand::~RecordInHand() { t_record_in_hand = before_; }
std::optional<std::int64_t> RecordInHand::Oid() { return t_record_in_hand; }

namespace detail {

void TakeCurrentFault(std::string_view procedure, TrapKind kind, const std::source_location& where) {
  Fault fault = CurrentFault();
  const bool ends = kind == TrapKind::Ends || (kind == TrapKind::EndsWithoutRecord && !t_record_in_hand);
  if (ends) {
    ReportFault(procedure, fault, where);
    return;
  }
  const std::string file = SourceFileName(where.file_name());
  // The place where it was raised is a line of its own, where that isn't in the deepest procedure's file.
  if (fault.Calls().empty() && fault.Line() != 0 && fault.File() != file) fault.PassThrough({"Raised in", "", 0});
  fault.PassThrough({std::string(procedure), file, static_cast<std::int32_t>(where.line())});
  throw fault;
}

}  // namespace detail
}  // namespace tessarine
