// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/session.h"

#include <fmt/core.h>
#include <unistd.h>

#include <cstdio>

#include "engine/topology_stop.h"
#include "hosts/document/document_file.h"
#include "hosts/document/document_layer.h"
#include "hosts/terminal/interrupt.h"
#include "hosts/terminal/passwords.h"
#include "hosts/terminal/pipes.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/tool_options.h"
#include "platform/paths.h"
#include "platform/run_stop.h"
#include "platform/trap.h"

namespace tessarine {
std::shared_ptr<MapDocument> OpenDocument(const std::string& path) {
  if (path.empty()) return std::make_shared<MapDocument>();
  try {
    return ReadDocumentFile(path);
  } catch (const Fault& fault) {
    throw Refusal(fault.Description());
  }
}

Session::Session(const CommonOptions& options)
    : options_(options),
      document_(OpenDocument(options.document)),
      host_(options.Manners(), document_->host_version),
      status_bar_(std::make_shared<TerminalStatusBar>(options.Progress())),
      application_(std::make_shared<DocumentApplication>(document_, status_bar_)) {
  host_.before_printing = [bar = status_bar_] { bar->Erase(); };
  CatchInterrupts();
  LetStopsEndTopology();
  application_->Start();
}

Session::~Session() { application_->Stop(); }

void Session::RefuseReportOverData() const {
  RefuseReportOver(options_.report_file, {document_->path}, "is the map document");
  const std::shared_ptr<IEnumLayer> layers = document_->Map().Layers(nullptr, true);
  while (const std::shared_ptr<ILayer> any = layers->Next()) {
    const auto layer = Cast<DocumentFeatureLayer>(any);
    const auto data = layer ? Cast<IDatasetFiles>(layer->FeatureClass()) : nullptr;
    if (data) RefuseReportOver(options_.report_file, data->Files().files, "'" + layer->Name() + "' is read from");
  }
}

ExitStatus Session::Click(const std::string& command_id) {
  if (!UnlessStopped([&] { (void)application_->Click(command_id); })) NoteStop();
  status_bar_->HideProgressBar();
  return Conclude();
}

ExitStatus Session::Run(const ITool& tool, Arguments arguments) {
  if (!options_.report_file.empty()) RefuseReportOverData();
  const std::optional<Objection> objection = tool.Validate(arguments, application_);
  if (objection && objection->telling == Objection::kAsked) {
    if (!host_.Ask(RunQuestion::ConfirmRun, objection->text, objection->title)) return Refuse(*objection);
    arguments.confirmed = true;
  } else if (objection && !objection->title.empty()) {
    (void)host_.MessageBox().Show(objection->text, objection->title, MessageButtons::Ok, MessageIcon::None);
    return Refuse(*objection);
  }
  const bool plan_tells = objection && objection->telling == Objection::kToldByPlan && host_.PlanOnly();
  const bool stands = objection && objection->telling != Objection::kAsked;
  if (stands && !plan_tells) throw Refusal(ObjectionText(*objection));
  if (!UnlessStopped([&] { RunOrPlan(tool, arguments); })) NoteStop();
  status_bar_->HideProgressBar();
  const ExitStatus status = Conclude();
  if (stands) throw Refusal(ObjectionText(*objection));
  return status;
}

ExitStatus Session::Refuse(const Objection& objection) {
  host_.Journal().cancelled = true;
  host_.Journal().failure = objection.text;
  return Conclude();
}

void Session::RunOrPlan(const ITool& tool, const Arguments& arguments) {
  Trap("ITool_Run", [&] {
    RunContext context = HostContext();
    const std::string report =
        host_.PlanOnly() ? tool.Plan(context, arguments, application_) : tool.Run(context, arguments, application_);
    // The user gave up, and knows it.
    if (host_.Journal().cancelled) return;
    const bool of_document = tool.Spec().works_on == ToolSubject::Document;
    // What works on the document marks it by itself, but for names.
    if (!host_.PlanOnly() && !of_document) document_->SetDirty();
    elements_changed_ = of_document && host_.Journal().written > 0;
    host_.SetReport(report);
  });
}

// A run that was stopped where it can't tell of it itself, as while its output is put together.
void Session::NoteStop() {
  RunJournal& journal = host_.Journal();
  journal.stopped = true;
  if (!journal.output_path.empty()) return;
  journal.written = 0;
  if (host_.Report()) return;
  host_.SetReport(PlainReport("Run Stopped:",
                              {"The run was stopped before its output was whole. Nothing of it is kept, and what stood "
                               "in its place is as it was."}));
}

ExitStatus Session::Conclude() {
  if (OutputIsPiped() && host_.Report()) host_.SetReport(WithoutPipedFile(*host_.Report()));
  // Each of these is done whatever becomes of the others; what is printed comes last, since its reader may go away.
  OrTell([this] { SaveDocument(); });
  OrTell([this] { WriteReportFile(); });
  PrintOutcome();
  // What a stopped run has done is an output, too.
  const bool made = !host_.Journal().output_path.empty() && !host_.PlanOnly();
  if (OutputIsPiped() && made) SendPipedOutput();
  if (options_.on_outcome) options_.on_outcome({host_.Journal(), host_.Report().has_value()});
  return Outcome();
}

template <class Work>
void Session::OrTell(Work&& work) {
  try {
    work();
  } catch (const Fault& fault) {
    fmt::print(stderr, "tessarine: {}\n", WithoutPasswords(fault.Description()));
    host_.NoteFault();
  }
}

void Session::SaveDocument() {
  // Names leave a document clean, but here nothing else would keep them.
  if (!document_->Dirty() && !elements_changed_) return;
  if (document_->Dirty()) application_->Stop();
  if (run_layer_) document_->Map().RemoveLayer(*run_layer_);
  if (!document_->path.empty() && !options_.dry_run) WriteDocumentFile(*document_);
}

void Session::WriteReportFile() {
  if (host_.Report() && !options_.report_file.empty()) WriteReport(*host_.Report(), options_, host_);
}

void Session::PrintOutcome() {
  const std::string report = host_.Report().value_or("");
  const bool prints = !report.empty() && !options_.quiet;
  std::FILE* const stream = OutputIsPiped() ? stderr : stdout;
  if (prints) PrintReport(report, stream);
  if (!host_.Journal().stopped || prints) return;
  const std::string& output = host_.Journal().output_path;
  fmt::print(stderr, "tessarine: The run was stopped{}.\n",
             output.empty() ? ""
                            : "; '" + WithoutPasswords(WithoutPipedFile(ToNativePath(output))) +
                                  "' holds what was written until then");
}

ExitStatus Session::Outcome() {
  const RunJournal& journal = host_.Journal();
  // Whoever asked for quiet learns it all the same.
  if (!journal.failure.empty() && !host_.FaultReported() && !host_.WasShown(journal.failure)) {
    fmt::print(stderr, "tessarine: {}\n", WithoutPasswords(journal.failure));
  }
  const RunOutcome outcome = journal.Outcome();
  // What fails while a run is only planned is what the run would be refused for.
  if (host_.PlanOnly() && (host_.FaultReported() || outcome == RunOutcome::Failed)) return ExitStatus::Refused;
  if (host_.FaultReported()) return ExitStatus::Failed;
  switch (outcome) {
    case RunOutcome::Failed:
    case RunOutcome::Stopped:
    case RunOutcome::Incomplete:
      return ExitStatus::Failed;
    case RunOutcome::Cancelled:
      return WasInterrupted() ? ExitStatus::Failed : ExitStatus::Refused;
    case RunOutcome::Done:
      break;
  }
  return ExitStatus::Done;
}

}  // namespace tessarine
