// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/journal_report.h"

#include "platform/rich_text.h"
#include "support/aml_func_mod.h"

namespace tessarine {
namespace {

constexpr std::string_view kLineEnd = "\\par\r\n";
constexpr std::string_view kRule = "\\b ---------------------------------------------\\b0\\par\r\n";

std::string More(std::int64_t count, std::size_t listed) {
  const std::int64_t more = count - static_cast<std::int64_t>(listed);
  return more > 0 ? "       and " + std::to_string(more) + " more of the same" + std::string(kLineEnd) : "";
}

template <class Kind>
std::string RecordLines(const Kind& kind, std::string_view layer) {
  std::string lines;
  for (const std::int64_t oid : kind.first_oids) {
    lines += "       Layer '" + EscapeRtf(std::string(layer)) + "', OID Value = " + std::to_string(oid) +
             std::string(kLineEnd);
  }
  return lines + More(kind.count, kind.first_oids.size());
}

std::string FaultText(std::int32_t number, const std::string& description, const std::string& place) {
  return "Error " + std::to_string(number) + ":  " + EscapeRtf(description) +
         (place.empty() ? "" : "  (" + EscapeRtf(place) + ")");
}

std::string OtherLine(std::int64_t count, const char* noun) {
  return count == 0 ? "" : "  ** and " + std::to_string(count) + " " + noun + std::string(kLineEnd);
}

std::string Block(std::string_view heading, std::string_view sentence, const std::string& lines) {
  if (lines.empty()) return "";
  return "\\b " + std::string(heading) + "\\b0  " + std::string(sentence) + std::string(kLineEnd) + lines +
         std::string(kRule);
}

}  // namespace

std::string FaultLines(const RunJournal& journal, std::string_view layer) {
  std::string lines;
  for (const RunFault& fault : journal.faults) {
    lines += "  ** " + FaultText(fault.number, fault.description, fault.place) + std::string(kLineEnd) +
             RecordLines(fault, layer);
  }
  return lines + OtherLine(journal.other_faults, "faults of other kinds");
}

std::string WarningLines(const RunJournal& journal, std::string_view layer) {
  std::string lines;
  for (const RunWarning& warning : journal.warnings) {
    lines += "  ** " + EscapeRtf(warning.text) + std::string(kLineEnd) + RecordLines(warning, layer);
  }
  return lines + OtherLine(journal.other_warnings, "warnings of other kinds");
}

std::string ChangeLines(const RunJournal& journal) {
  std::string lines;
  for (const ChangedValues& values : journal.changed) {
    const bool one = values.count == 1;
    lines += "  ** " + EscapeRtf(values.field) + ":  " + aml_func_mod::InsertCommas(values.count) +
             (one ? " value " : " values ") + std::string(ValueChangeWords(values.kind)) +
             (one ? " (OID " : " (first at OID ") + std::to_string(values.first_oid) + ")" + std::string(kLineEnd);
  }
  return lines;
}

std::string ChangedNameLines(const RunJournal& journal) {
  std::string lines;
  for (const ChangedName& name : journal.changed_names) {
    lines +=
        "  ** '" + EscapeRtf(name.asked) + "' is written as '" + EscapeRtf(name.written) + "'" + std::string(kLineEnd);
  }
  return lines;
}

std::string ProblemSections(const RunJournal& journal, std::string_view layer, std::string_view consequence) {
  const std::string way =
      journal.brought ? "  ** " + EscapeRtf(journal.brought->way) + std::string(kLineEnd) : std::string();
  return Block("Spatial Reference of the Output:", "", way) +
         Block("Problems Found:", consequence, FaultLines(journal, layer)) +
         Block("Warnings:", "", WarningLines(journal, layer)) +
         Block("Changed Values:", "The output can't hold these values as they are.", ChangeLines(journal)) +
         Block("Names Changed:", "The format of the output doesn't take these names as they are.",
               ChangedNameLines(journal));
}

std::string FailureSection(const Fault& fault) {
  return "\\b Run Failed:\\b0  " + FaultText(fault.Number(), fault.Description(), fault.Place()) +
         std::string(kLineEnd) + std::string(kRule);
}

std::string LineNumberLine(const Fault& fault, std::string_view module_file) {
  const bool elsewhere = fault.Line() != 0 && fault.File() != module_file;
  return "Line Number = " + std::to_string(fault.Line()) + (elsewhere ? " of " + EscapeRtf(fault.File()) : "") +
         std::string(kLineEnd);
}

std::string FaultBlock(std::string_view worker, const Fault& fault, std::string_view module_file, std::string_view rule,
                       std::int64_t record) {
  return "Function = " + EscapeRtf(std::string(worker)) + std::string(kLineEnd) + LineNumberLine(fault, module_file) +
         FaultText(fault.Number(), fault.Description(), "") + std::string(kLineEnd) + std::string(rule) +
         "Analyzing Record #" + std::to_string(record) + std::string(kLineEnd);
}

std::string_view OutcomeTitle(const RunJournal& journal) {
  if (journal.failed) return "Failed";
  return journal.unmeasured_oids.empty() ? "Successful" : "Finished with Problems";
}

}  // namespace tessarine
