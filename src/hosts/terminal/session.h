// SPDX-License-Identifier: GPL-2.0-or-later
// One run of a tool in the terminal: the document, the application around it, the host, and what came of the run.
#pragma once

#include <memory>
#include <string>

#include "hosts/document/document_application.h"
#include "hosts/terminal/common_options.h"
#include "hosts/terminal/exit_status.h"
#include "hosts/terminal/terminal_host.h"
#include "hosts/terminal/terminal_status_bar.h"
#include "platform/tool.h"

namespace tessarine {

/// The document of this file, or an empty one for no path. Raises `Refusal` for a file that is none.
[[nodiscard]] std::shared_ptr<MapDocument> OpenDocument(const std::string& path);

class Session {
 public:
  /// Opens the document of the options, or an empty one.
  explicit Session(const CommonOptions& options);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  [[nodiscard]] MapDocument& Document() const { return *document_; }
  [[nodiscard]] TerminalHost& Host() { return host_; }

  /// This layer is there for the run alone: the document is saved without it.
  void KeepForRunOnly(std::shared_ptr<ILayer> layer) { run_layer_ = std::move(layer); }

  /// Clicks a command, saves a document that became dirty, and tells how it went.
  [[nodiscard]] ExitStatus Click(const std::string& command_id);
  /// Validates the arguments and runs the tool, or plans the run where the manners say so. Prints the report and writes
  /// it to the file that the options name, saves a document that was changed, and tells how it went.
  [[nodiscard]] ExitStatus Run(const ITool& tool, Arguments arguments);

 private:
  /// Does the work; a fault in it is told on standard error and counts for the exit status.
  template <class Work>
  void OrTell(Work&& work);
  // A report takes the place of no file that the run reads or writes otherwise.
  void RefuseReportOverData() const;
  void RunOrPlan(const ITool& tool, const Arguments& arguments);
  // Ends a run that may not begin, and that a message has told why.
  [[nodiscard]] ExitStatus Refuse(const Objection& objection);
  [[nodiscard]] ExitStatus Conclude();
  void NoteStop();
  void SaveDocument();
  void WriteReportFile();
  void PrintOutcome();
  [[nodiscard]] ExitStatus Outcome();

  const CommonOptions& options_;
  std::shared_ptr<MapDocument> document_;
  TerminalHost host_;
  std::shared_ptr<TerminalStatusBar> status_bar_;
  std::shared_ptr<DocumentApplication> application_;
  std::shared_ptr<ILayer> run_layer_;
  bool elements_changed_ = false;
};

}  // namespace tessarine
