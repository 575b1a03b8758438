// SPDX-License-Identifier: GPL-2.0-or-later
// Any form of the suite as a window, drawn from its controls alone.
#pragma once

#include <QDialog>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "hosts/windows/control_view.h"
#include "hosts/windows/dialog_units.h"
#include "platform/form.h"

class QScreen;
class QScrollArea;

namespace tessarine {

/// The window of one form: its object name is the form's name, its inside is laid out in dialog units of the window's
/// font. Changes of the form are shown together, before the next input and at the latest when the event loop turns.
///
/// It belongs to whoever made it: where the window that it stands over goes first, it stands alone from then on.
///
/// A form whose minimum size is 0 has a fixed size. Where a window doesn't fit the screen, its last row of buttons
/// stays in view, and what is above it scrolls.
class FormWindow final : public QDialog {
 public:
  /// The room is what the window may take; null stands for the screen.
  FormWindow(Form& form, QWidget* parent, QSize room = {});
  ~FormWindow() override;

  [[nodiscard]] Form& ShownForm() const { return form_; }
  [[nodiscard]] const DialogUnits& Units() const { return units_; }
  [[nodiscard]] ControlView* ViewOf(const Control& control) const;
  /// The widget of the control of this name; null when there is none.
  [[nodiscard]] QWidget* WidgetOf(const std::string& name) const;

  /// The caption of a control as it is shown: in the user's language, with a letter for the Alt key that no other one
  /// of the window has.
  [[nodiscard]] QString CaptionOf(const Captioned& control) const;
  /// The title as it is shown.
  [[nodiscard]] QString Title() const;

  /// A caption in place of the form's own.
  void SetCaption(const std::string& caption);
  /// Shows the window where the form says, or in the middle of its parent, with the focus on its first control.
  void Appear();
  /// Takes the window away and lets the form go; nothing of the form is touched after it.
  void Conceal();
  [[nodiscard]] bool Concealed() const { return concealed_; }
  /// Shows all changes now.
  void Flush();

  /// A button of the form is the one that Enter presses, wherever the focus is.
  [[nodiscard]] bool HasDefault() const;
  /// Presses the button that the user went to, else the default one.
  void EnterPressed();

  /// Scrolls until the widget is in view.
  void BringIntoView(QWidget& widget);
  /// Where what the view's widget lies on begins, in pixels of the form.
  [[nodiscard]] QPoint OriginOf(const ControlView& view) const;

  /// Called once when the window went away, by the form or by the user.
  std::function<void()> on_concealed;
  /// Called where the user asks for help, with F1 or the button of the title bar.
  std::function<void()> on_help;

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  // Escape and the title bar go the form's way, never Qt's own.
  void reject() override {}
  void accept() override {}

 private:
  void MakeViews();
  void OrderTabs();
  void ListenToForm();
  void FormChanged(Control* control);
  void UpdateForm();
  void UpdateCaptions();
  enum class Naming { Box, Itself, Nothing };
  [[nodiscard]] Naming NamingOf(const ControlView& view) const;
  void KeepOnScreen();
  void UpdateSize();
  void UpdateFooter(bool wanted);
  void UpdateFocus();
  void PlaceOnScreen();
  void StandAlone();
  void FocusFirst();
  void TakeSize(QSize size);
  void MouseMoved();
  void Scale();
  [[nodiscard]] QWidget* ParentOf(const Control& control) const;
  template <class IsWanted>
  void PressButton(IsWanted&& is_wanted);

  [[nodiscard]] QSize Room() const;
  [[nodiscard]] const QScreen* HomeScreen() const;

  Form& form_;
  QSize room_;
  DialogUnits units_;
  QScrollArea* scroll_;
  QWidget *canvas_, *footer_;
  int footer_top_ = 0;    // in pixels of the form
  int below_canvas_ = 0;  // how much less of the form the canvas holds than its whole height
  std::vector<std::unique_ptr<ControlView>> views_;
  QString caption_;
  std::map<const Control*, QString> captions_;
  double shown_left_ = 0.0, shown_top_ = 0.0;
  bool form_needs_update_ = true, flush_planned_ = false, flushing_ = false;
  const Control* first_focus_ = nullptr;  // what got the focus as the form opened, until it goes elsewhere
  bool form_was_visible_ = false, concealed_ = false;
};

}  // namespace tessarine
