// SPDX-License-Identifier: GPL-2.0-or-later
// Showing forms: modal ones wait, modeless ones stay until they are hidden.
#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/windows/form_window.h"
#include "platform/host.h"

namespace tessarine {

class WindowForms final : public IFormHost {
 public:
  /// The window may be null; then dialogs stand on their own.
  explicit WindowForms(QWidget* main_window);
  ~WindowForms() override;
  WindowForms(const WindowForms&) = delete;
  WindowForms& operator=(const WindowForms&) = delete;

  void ShowModal(Form& form) override;
  /// A form that goes away by itself has to be hidden before; one that a modeless frame was created for is kept alive
  /// as long as its window stands.
  void ShowModeless(Form& form) override;
  [[nodiscard]] double ScreenWidth() const override;
  [[nodiscard]] double ScreenHeight() const override;

  /// A frame around a form, in which the form shows.
  [[nodiscard]] std::shared_ptr<IModelessFrame> CreateFrame();
  /// What a new dialog stands over: the dialog that is open, else the window of the program that the user works in.
  [[nodiscard]] QWidget* DialogParent() const;
  /// The open window of a form; null when there is none.
  [[nodiscard]] FormWindow* WindowOf(const Form& form) const;

  /// Lets windows grow to this size whatever the screen is, as for pictures of them.
  void SetRoom(QSize room) { room_ = room; }
  /// Help of the forms opens the chapters in this folder, a native path; none where it is empty.
  void SetManualFolder(QString folder) { manual_folder_ = std::move(folder); }
  /// Called with each window that opens.
  std::function<void(FormWindow&)> on_opened;

 private:
  class FrameOfForm;
  struct Modeless {
    std::shared_ptr<Form> kept;
    Form* form;
    std::unique_ptr<FormWindow> window;
  };

  [[nodiscard]] QSize ScreenSize() const;
  void Know(const std::shared_ptr<Form>& form);
  void OpenModeless(Form& form, const std::string* caption);
  void CloseModeless(const Form& form);
  void Retire(const FormWindow& window);
  void OfferHelp(FormWindow& window) const;

  QPointer<QWidget> main_window_;
  QSize room_;
  QString manual_folder_;
  QObject context_;  // what is planned dies with it
  std::vector<FormWindow*> modal_;
  std::vector<std::weak_ptr<Form>> known_;
  std::vector<Modeless> modeless_;
  std::vector<Modeless> retired_;
};

}  // namespace tessarine
