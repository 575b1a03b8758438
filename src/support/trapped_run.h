// SPDX-License-Identifier: GPL-2.0-or-later
// How a run that makes an output ends when it meets a fault.
#pragma once

#include <memory>
#include <source_location>
#include <string>
#include <string_view>
#include <utility>

#include "platform/run_scope.h"
#include "platform/trap.h"
#include "support/output_datasets.h"

namespace tessarine {

/// What of a run is looked at when a fault ends it; it may change until then.
struct RunAtFault {
  RunContext& context;
  std::string_view worker;                       ///< the procedure that the fault is told of
  const std::string& layer_name;                 ///< whose records were worked on
  const std::shared_ptr<IFeatureClass>& output;  ///< null as long as there is none
};

/// Runs the body and returns its report. A fault ends it: the journal keeps what it says, an output that isn't
/// published goes, faults of records are told, and `on_fault` makes the report.
template <class Body, class OnFault>
[[nodiscard]] std::string TrapRun(const RunAtFault& run, Body&& body, OnFault&& on_fault,
                                  const std::source_location where = std::source_location::current()) {
  const auto give_up = [&](const Fault& fault) -> std::string {
    run.context.journal.Fail(fault.Description());
    MyGeneralOperations::DiscardUnpublished(run.context, run.output);
    ReportRecordFaults(run.context.journal, run.worker, run.layer_name, where);
    return on_fault(fault);
  };
  return TrapWith(run.worker, std::forward<Body>(body), give_up, where);
}

}  // namespace tessarine
