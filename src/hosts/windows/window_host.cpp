// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/window_host.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QThread>
#include <chrono>
#include <utility>

#include "hosts/windows/browse_dialog.h"
#include "hosts/windows/message_box.h"
#include "hosts/windows/pointer.h"
#include "hosts/windows/printer.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/reference_dialog.h"
#include "hosts/windows/system_information.h"
#include "platform/known_ids.h"
#include "platform/rich_text.h"

namespace tessarine {

/// Keeps input from windows that aren't the suite's.
class WindowHost::InputGate final : public QObject {
 public:
  /// Lets the event queue have its turn behind the gate. What it calls may do the same, and leaves the gate closed.
  void PumpGated() {
    if (pumps_++ == 0) qApp->installEventFilter(this);
    QCoreApplication::processEvents();
    if (--pumps_ == 0) qApp->removeEventFilter(this);
    last_pump_ = std::chrono::steady_clock::now();
  }

  /// True where windows have waited long, and nobody serves them already.
  [[nodiscard]] bool IsDue() const {
    constexpr auto kPatience = std::chrono::milliseconds(100);
    return pumps_ == 0 && QThread::currentThread() == thread() &&
           std::chrono::steady_clock::now() - last_pump_ > kPatience;
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Close:
        if (IsOurs(watched) || !watched->isWidgetType()) return false;
        event->ignore();
        return true;
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::KeyPress:
      case QEvent::KeyRelease:
      case QEvent::Wheel:
      case QEvent::ContextMenu:
      case QEvent::Drop:
        // What comes from the system goes to a window first, and only then to its widgets.
        return watched->isWidgetType() && !IsOurs(watched);
      case QEvent::Shortcut:
      case QEvent::ShortcutOverride:
        return !watched->isWindowType() && !IsOurs(watched);
      default:
        return false;
    }
  }

 private:
  static bool IsOurs(const QObject* object) {
    for (; object != nullptr; object = object->parent()) {
      if (dynamic_cast<const FormWindow*>(object) != nullptr || dynamic_cast<const ErrorWindow*>(object) != nullptr ||
          object == QApplication::activeModalWidget()) {
        return true;
      }
    }
    return false;
  }

  int pumps_ = 0;
  std::chrono::steady_clock::time_point last_pump_;
};

/// Collects the text and hands it to the host's error window.
class WindowHost::ErrorDialog final : public IErrorDialog {
 public:
  explicit ErrorDialog(const std::shared_ptr<WindowHost*>& host) : host_(host) {}
  void AppendErrorText(const std::string& text) override { text_ += text; }
  void SetVisible(bool visible) override {
    const std::shared_ptr<WindowHost*> host = host_.lock();
    if (!host) return;
    if (!visible) {
      if (ErrorWindow* shown = (*host)->ShownErrors()) shown->close();
      return;
    }
    (*host)->ReportError(std::exchange(text_, {}));
  }

 private:
  std::weak_ptr<WindowHost*> host_;
  std::string text_;
};

WindowHost::WindowHost(QWidget* main_window, std::string host_version)
    : main_window_(main_window),
      host_version_(std::move(host_version)),
      forms_(main_window),
      gate_(std::make_unique<InputGate>()),
      self_(std::make_shared<WindowHost*>(this)),
      previous_(SetHost(this)) {}

WindowHost::~WindowHost() {
  SetHost(previous_);
  RestoreMousePointer();
  for (const QPointer<ErrorWindow>& window : errors_) delete window.data();
}

void WindowHost::PumpEvents() {
  if (Running()) {
    gate_->PumpGated();
  } else {
    QCoreApplication::processEvents();
  }
}

bool WindowHost::StopRequested() const {
  if (Running() && gate_->IsDue()) gate_->PumpGated();
  return false;
}

void WindowHost::ShowWaitPointer() {
  if (waiting_) return;
  waiting_ = true;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void WindowHost::Beep() { QApplication::beep(); }

void WindowHost::RestoreMousePointer() {
  if (!waiting_) return;
  waiting_ = false;
  QGuiApplication::restoreOverrideCursor();
}

std::shared_ptr<IErrorDialog> WindowHost::CreateErrorDialog() { return std::make_shared<ErrorDialog>(self_); }

ErrorWindow* WindowHost::ShownErrors() const { return dynamic_cast<ErrorWindow*>(QApplication::activeModalWidget()); }

// A window of faults that stands beneath a dialog can't be read before that one closes.
void WindowHost::ReportError(const std::string& text) {
  ErrorWindow* window = ShownErrors();
  const bool opens = window == nullptr;
  if (opens) {
    std::erase_if(errors_, [](const QPointer<ErrorWindow>& closed) { return closed.isNull(); });
    window = new ErrorWindow(main_window_);
    window->setAttribute(Qt::WA_DeleteOnClose);
    errors_.emplace_back(window);
  }
  window->Add(LinesToQt(text));
  if (opens) window->OpenAbove(forms_.DialogParent());
}

std::shared_ptr<IGxDialog> WindowHost::CreateGxDialog() {
  return std::make_shared<WindowGxDialog>(forms_, ProjectFolder());
}

std::shared_ptr<ISpatialReferenceDialog2> WindowHost::CreateSpatialReferenceDialog() {
  return std::make_shared<WindowReferenceDialog>(forms_);
}

std::shared_ptr<IPrinter> WindowHost::ChoosePrinter() {
  const PointerPause pause;
  return ChooseWindowPrinter(forms_.DialogParent());
}

MessageAnswer WindowHost::Show(const std::string& text, const std::string& title, MessageButtons buttons,
                               MessageIcon icon) {
  return ShowMessageBox(forms_.DialogParent(), text, title, buttons, icon);
}

void WindowHost::Clear() { QGuiApplication::clipboard()->clear(); }

void WindowHost::SetRichText(const std::string& rtf) {
  const RichText text = ReadRtf(rtf);
  auto* data = new QMimeData;  // the clipboard takes it over
  const QByteArray bytes = QByteArray::fromStdString(rtf);
  data->setData(QStringLiteral("text/rtf"), bytes);
  data->setData(QStringLiteral("application/rtf"), bytes);
  data->setHtml(ToQt(ToHtml(text, "Report")));
  data->setText(ToQt(ToPlainText(text)));
  QGuiApplication::clipboard()->setMimeData(data);
}

std::string WindowHost::QueryLocalMachine(const std::string& key, const std::string& value) const {
  if (key.ends_with("\\MSINFO") && value == "PATH") return SystemInformationPath();
  return key == known_ids::kVersionKey && value == known_ids::kVersionValue ? host_version_ + '\0' : std::string();
}

}  // namespace tessarine
