#include "hosts/terminal/session.h"

#include <fmt/core.h>
#include <unistd.h>

#include <cstdio>

#include "hosts/document/document_file.h"
#include "hosts/terminal/interrupt.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/terminal_status_bar.h"

namespace tessarine {
namespace {

std::shared_ptr<MapDocument> OpenDocument(const std::string& path) {
  if (path.empty()) return std::make_shared<MapDocument>();
  try {
    return ReadDocumentFile(path);
  } catch (const Fault& fault) {
    throw Refusal(fault.Description());
  }
}

}  // namespace

Session::Session(const CommonOptions& options)
    : options_(options),
      document_(OpenDocument(options.document)),
      host_(options.Manners(), document_->HostVersion),
      application_(std::make_shared<DocumentApplication>(
          document_, std::make_shared<TerminalStatusBar>(!options.quiet && isatty(STDERR_FILENO) != 0))) {
  application_->Start();
}

Session::~Session() { application_->Stop(); }

ExitStatus Session::Run(const std::string& command_id, FormScript* script) {
  host_.SetScript(script);
  CatchInterrupt();
  if (!application_->Click(command_id))
    throw Refusal("This command is disabled: the document's host is too old for it.");
  if (host_.AnswerRefused()) throw *host_.AnswerRefused();
  DeliverReport();
  if (document_->Dirty()) {
    application_->Stop();
    if (!document_->Path.empty() && !options_.dry_run) WriteDocumentFile(*document_);
  }
  return Outcome();
}

void Session::DeliverReport() {
  if (!host_.Report()) return;
  if (!told_output_.empty()) host_.Journal().output_path = told_output_;
  if (!options_.quiet) PrintReport(*host_.Report(), isatty(STDOUT_FILENO) != 0);
  if (!options_.report_file.empty()) WriteReport(*host_.Report(), options_, host_);
}

ExitStatus Session::Outcome() {
  const RunJournal& journal = host_.Journal();
  // Whoever asked for quiet learns it all the same.
  if (!journal.failure.empty() && !host_.FaultReported() && !host_.WasShown(journal.failure)) {
    fmt::print(stderr, "tessarine: {}\n", journal.failure);
  }
  const RunOutcome outcome = journal.Outcome();
  if (host_.FaultReported() || outcome == RunOutcome::Failed || outcome == RunOutcome::Stopped ||
      outcome == RunOutcome::Incomplete) {
    return ExitStatus::Failed;
  }
  return host_.FormRefused() ? ExitStatus::Refused : ExitStatus::Done;
}

}  // namespace tessarine
