// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/run_scope.h"

namespace tessarine {
namespace {

std::string Records(const RunFault& fault, std::string_view layer) {
  std::string text = "\r\n\tLayer '" + std::string(layer) + "', OID ";
  for (std::size_t index = 0; index < fault.first_oids.size(); ++index) {
    text += (index == 0 ? "" : ", ") + std::to_string(fault.first_oids[index]);
  }
  const std::int64_t more = fault.count - static_cast<std::int64_t>(fault.first_oids.size());
  return more > 0 ? text + " and " + std::to_string(more) + " more of the same" : text;
}

}  // namespace

void ReportRecordFaults(const RunJournal& journal, std::string_view procedure, std::string_view layer,
                        std::source_location where) {
  for (const RunFault& kind : journal.faults) {
    const Fault& first = kind.first;
    Fault told(first.Number(), first.Source(), first.Description() + Records(kind, layer), first.Line(), first.File());
    told.PassThrough(first.Calls());
    ReportFault(procedure, told, where);
  }
}

}  // namespace tessarine
