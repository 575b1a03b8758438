// SPDX-License-Identifier: GPL-2.0-or-later
// All forms of the suite with something in them, and the Qt that draws them.
#pragma once

#include <QApplication>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "helpers/test_host.h"
#include "hosts/windows/form_window.h"
#include "hosts/windows/window_host.h"

namespace tessarine::testing {

/// How a session's windows are drawn: the scale (2 for 200 percent), the size of the font, the theme and the language.
struct Drawing {
  double scale = 1.0;
  int points = 9;
  bool dark = false;
  bool german = false;
};

/// Qt without a screen. One at a time.
class QtSession {
 public:
  explicit QtSession(const Drawing& drawing = {});
  ~QtSession();
  QtSession(const QtSession&) = delete;
  QtSession& operator=(const QtSession&) = delete;

  [[nodiscard]] QApplication& Application() { return *application_; }

 private:
  int count_ = 1;
  std::string program_ = "tests";
  char* arguments_[2] = {program_.data(), nullptr};
  std::unique_ptr<QApplication> application_;
};

/// A host of windows without layers of its own.
class SampleHost final : public WindowHost {
 public:
  SampleHost() : WindowHost(nullptr, "10.0") { FormWindows().SetRoom({2400, 1800}); }
  /// Stands still, so that pictures come out alike.
  bool clock_stands = false;
  TestClock clock;
  IClock& Clock() override { return clock_stands ? clock : WindowHost::Clock(); }
  std::shared_ptr<IFeatureLayer> CreateFeatureLayer() override;
  std::shared_ptr<ISimpleRenderer> CreateSimpleRenderer() override { return nullptr; }
};

/// A report of a run that took 61 seconds.
[[nodiscard]] std::string SampleReport();

/// Called with the name of a picture and the open window, which closes after it.
using FormVisitor = std::function<void(const std::string& name, FormWindow& window)>;

/// Opens every dialog that a command of the suite shows, on the sample document, and those that stand between: the
/// message, the report, the progress windows and the spheroid dialogs. Outputs go to the folder.
void VisitForms(SampleHost& host, const std::filesystem::path& folder, const FormVisitor& visit);

}  // namespace tessarine::testing
