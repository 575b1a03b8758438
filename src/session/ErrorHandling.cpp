// SPDX-License-Identifier: GPL-2.0-or-later
#include "session/ErrorHandling.h"

#include <ranges>

#include "platform/host.h"
#include "platform/text_formats.h"

namespace tessarine::ErrorHandling {
namespace {

constexpr const char* kLineBreak = "\r\n";
constexpr const char* kTab = "\t";

// True while a fault climbs through procedures that pass it on; its header text stands already.
bool g_entered = false;

// The host's error dialog, kept as long as the host is the same.
std::shared_ptr<IErrorDialog> g_dialog;
IHost* g_dialog_host = nullptr;

IErrorDialog& ErrorDialog() {
  IHost& host = Host();
  if (!g_dialog || g_dialog_host != &host) {
    g_dialog = host.CreateErrorDialog();
    g_dialog_host = &host;
  }
  return *g_dialog;
}

std::string NumberAndDescription(std::int32_t number, const std::string& description) {
  return std::string("Error Number ") + kLineBreak + kTab + std::to_string(number) + kLineBreak + "Description" +
         kLineBreak + kTab + description + kLineBreak + kLineBreak;
}

std::string Header(std::int32_t number, const std::string& description) {
  return kLineBreak + std::string("Tessarine Tools v. ") + TESSARINE_VERSION + ":  " +
         NumberAndDescription(number, description);
}

std::string MessageText(const std::string& procedure_name, const std::string& description) {
  return std::string("An error has occured in the application.   Record the call stack sequence") + kLineBreak +
         "and the description of the error." + kLineBreak + kLineBreak + "Error Call Stack Sequence " + kLineBreak +
         kTab + procedure_name + kLineBreak + description;
}

MessageAnswer ShowMessage(const std::string& text, MessageButtons buttons) {
  return Host().MessageBox().Show(text, "Unexpected Program Error", buttons, MessageIcon::Exclamation);
}

void Report(std::int32_t version, const std::string& procedure_name, std::int32_t number, const std::string& source,
            const std::string& description) {
  switch (version) {
    case kErrorDialogReport:
      ErrorDialog().AppendErrorText(std::string("Record Call Stack Sequence - Bottom line is error line.") +
                                    kLineBreak + kLineBreak + kTab + procedure_name + kLineBreak + description);
      ErrorDialog().SetVisible(true);
      return;
    case kChoiceReport:
      if (ShowMessage(MessageText(procedure_name, description), MessageButtons::YesNo) == MessageAnswer::Yes) {
        throw Fault(number, source, kTab + procedure_name + kLineBreak + description);
      }
      return;
    default:
      ShowMessage(MessageText(procedure_name, description), MessageButtons::Ok);
  }
}

std::string ProcedureLine(const std::string& procedure, const std::string& file, std::int32_t line) {
  return procedure + file + " " + GetErrorLineNumberString(line);
}

// A fault that came through other procedures brings their lines, the outermost on top.
void ReportTrap(const TrapSite& site, const Fault& fault) {
  if (fault.Calls().empty()) {
    const bool own = fault.File() == site.source;
    std::string lines = ProcedureLine(site.procedure, site.source, own ? fault.Line() : site.line);
    if (!own && fault.Line() != 0) {
      lines += std::string(kLineBreak) + kTab + ProcedureLine("Raised in ", fault.File(), fault.Line());
    }
    HandleError(true, lines, fault.Number(), fault.Source(), fault.Description(), kErrorDialogReport, 0);
    return;
  }
  std::string text;
  for (const auto& call : std::views::reverse(fault.Calls())) {
    text += kTab + ProcedureLine(call.procedure + " ", call.file, call.line) + kLineBreak;
  }
  g_entered = true;
  HandleError(true, ProcedureLine(site.procedure, site.source, site.line), fault.Number(), fault.Source(),
              text + NumberAndDescription(fault.Number(), fault.Description()), kErrorDialogReport, 0);
}

}  // namespace

std::string GetErrorLineNumberString(std::int32_t line_number) {
  return line_number == 0 ? "" : "Line : " + std::to_string(line_number);
}

void HandleError(bool top_procedure, const std::string& procedure_name, std::int32_t number, const std::string& source,
                 const std::string& description, std::int32_t version, std::int32_t) {
  if (top_procedure) {
    const std::string text = g_entered ? description : Header(number, description);
    g_entered = false;
    Report(version, procedure_name, number, source, text);
    return;
  }
  const std::string text = g_entered ? description : NumberAndDescription(number, description);
  g_entered = true;
  throw Fault(number, source, kTab + procedure_name + kLineBreak + text);
}

void Install() { SetFaultReporter(ReportTrap); }

}  // namespace tessarine::ErrorHandling
