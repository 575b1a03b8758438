// SPDX-License-Identifier: GPL-2.0-or-later
// The program as the suite's application: it makes the suite's extension, hands it the settings that the project keeps,
// and takes them back when the project is saved.
#pragma once

#include <qgsannotationlayer.h>

#include <QObject>
#include <QPointer>
#include <memory>
#include <vector>

#include "hosts/qgis/program_window.h"
#include "hosts/qgis/project_document.h"
#include "hosts/qgis/results/run_recorder.h"
#include "hosts/qgis/status_bar.h"
#include "platform/application.h"

namespace tessarine::qgis {

class ProgramApplication final : public IApplication,
                                 public ITableWindows,
                                 public IRunWatcher,
                                 public std::enable_shared_from_this<ProgramApplication> {
 public:
  explicit ProgramApplication(IProgramWindow& program);

  /// Creates the extension and follows the project from now on.
  void Start();
  void Stop();

  [[nodiscard]] ProjectDocument& Project() const { return *document_; }

  // IApplication
  [[nodiscard]] std::shared_ptr<IDocument> Document() const override { return document_; }
  [[nodiscard]] std::shared_ptr<IStatusBar> StatusBar() const override { return status_bar_; }
  [[nodiscard]] std::shared_ptr<ITemplates> Templates() const override;
  [[nodiscard]] ObjectRef FindExtensionByCLSID(const UID& uid) const override;
  // IRunWatcher
  void RunBegins(const ITool& tool, const Arguments& arguments) override;
  void RunEnded(const RunJournal& journal, const std::string& report) override;
  // ITableWindows
  [[nodiscard]] std::shared_ptr<ITableWindow> FindViaLayer(const std::shared_ptr<ILayer>& layer) const override;

 private:
  void Follow();
  void FollowProgramTool();
  void FollowAnnotations();
  void AnnotationsChanged();
  void StartExtension();
  void StopExtension();
  void LoadSettings();
  void SaveSettings();

  IProgramWindow& program_;
  std::shared_ptr<ProjectDocument> document_;
  std::shared_ptr<ProgramStatusBar> status_bar_;
  std::shared_ptr<IExtension> extension_;
  RunRecorder recorder_;
  std::vector<QPointer<QgsAnnotationLayer>> followed_;
  QObject context_;  // what is connected ends with it
};

}  // namespace tessarine::qgis
