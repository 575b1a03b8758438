// SPDX-License-Identifier: GPL-2.0-or-later
// How one control of a form looks and what input to it does.
#pragma once

#include <QObject>
#include <QWidget>
#include <memory>

#include "platform/form.h"
#include "platform/trap.h"

namespace tessarine {

class FormWindow;

/// A control and its widget, whose object name is the control's name. The view lives shorter than both.
class ControlView : public QObject {
 public:
  ControlView(FormWindow& window, Control& control, QWidget* widget);

  [[nodiscard]] tessarine::Control& Control() const { return control_; }
  /// Null for a control that isn't seen.
  [[nodiscard]] QWidget* Widget() const { return widget_; }
  [[nodiscard]] virtual bool TakesFocus() const { return false; }
  /// True for boxes and lists, whose text stands on the background colour.
  [[nodiscard]] virtual bool HoldsText() const { return false; }
  /// The colour behind the control; an explicit one of its own, or that of what it stands in.
  [[nodiscard]] QColor Background() const;

  /// Brings the widget up to date with the control.
  void Update();
  /// Takes the place of the control under the window's present dialog units.
  void Place();
  void UpdateSheetColors();

  bool needs_update = true;

 protected:
  virtual void UpdateContent() {}
  virtual void UpdateColors();
  /// A key that the control's own filter may refuse; True when it did.
  virtual bool RefusesKey(QKeyEvent&) { return false; }

  /// Hands input to the form. A fault that the form lets through ends here and is reported.
  template <class Body>
  void Tell(Body&& body) const {
    if (MayTell()) Trap(control_.Name(), std::forward<Body>(body));
  }
  [[nodiscard]] FormWindow& Window() const { return window_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] bool MayTell() const;

  FormWindow& window_;
  tessarine::Control& control_;
  QWidget* widget_;
  bool updating_ = false;
};

/// The view of a control of any kind, its widget made inside `parent`.
[[nodiscard]] std::unique_ptr<ControlView> MakeControlView(FormWindow& window, Control& control, QWidget& parent);

// The views by kind; each is made where its kind is told.
[[nodiscard]] std::unique_ptr<ControlView> MakeLabelView(FormWindow& window, Label& label, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlView> MakeTextBoxView(FormWindow& window, TextBox& box, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlView> MakeRichTextView(FormWindow& window, RichTextBox& box, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlView> MakeCheckBoxView(FormWindow& window, CheckBox& box, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlView> MakeOptionView(FormWindow& window, OptionButton& button, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlView> MakeButtonView(FormWindow& window, CommandButton& button, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlView> MakeListView(FormWindow& window, ListBox& list, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlView> MakeComboView(FormWindow& window, ComboBox& combo, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlView> MakeFrameView(FormWindow& window, Frame& frame, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlView> MakeImageView(FormWindow& window, Image& image, QWidget& parent);
[[nodiscard]] std::unique_ptr<ControlView> MakeTimerView(FormWindow& window, Timer& timer);

}  // namespace tessarine
