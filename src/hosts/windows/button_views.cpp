// SPDX-License-Identifier: GPL-2.0-or-later
// Push buttons, check boxes and option buttons.
#include <QCheckBox>
#include <QEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "hosts/windows/control_view.h"
#include "hosts/windows/form_window.h"
#include "hosts/windows/pictures.h"
#include "hosts/windows/translation.h"

namespace tessarine {
namespace {

/// A button of Qt whose mnemonic takes the focus along and clicks at once, as the mouse does; so the control that had
/// the focus learns of its loss before the click.
template <class Base>
class FocusedByMnemonic final : public Base {
 public:
  using Base::Base;

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::Shortcut || !this->isEnabled()) return Base::event(event);
    this->setFocus(Qt::ShortcutFocusReason);
    // Where two share a mnemonic it only walks between them.
    if (!static_cast<QShortcutEvent*>(event)->isAmbiguous()) this->click();
    return true;
  }
};

class ButtonView final : public ControlView {
 public:
  ButtonView(FormWindow& window, CommandButton& button, QWidget& parent)
      : ControlView(window, button, new FocusedByMnemonic<QPushButton>(&parent)), button_(button) {
    connect(&Push(), &QPushButton::clicked, this, [this] { Tell([this] { button_.Press(); }); });
  }
  [[nodiscard]] bool TakesFocus() const override { return true; }

 private:
  [[nodiscard]] QPushButton& Push() const { return *static_cast<QPushButton*>(Widget()); }

  bool RefusesKey(QKeyEvent& event) override {
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter) return false;
    Window().EnterPressed();
    return true;
  }

  void UpdateContent() override {
    // Without a default button of the form's own, Qt would make the first one look like it.
    Push().setAutoDefault(Window().HasDefault());
    if (button_.Default) Push().setDefault(true);
    if (button_.PictureId == 0) {
      Push().setText(Window().CaptionOf(button_));
      return;
    }
    Push().setText(QString());
    Push().setIcon(PictureOf(button_.PictureId));
    const int side = qMin(Push().width(), Push().height()) - 8;
    Push().setIconSize(QSize(side, side));
    Push().setAccessibleName(Translated(button_.ToolTipText()));
  }

  CommandButton& button_;
};

class CheckBoxView final : public ControlView {
 public:
  CheckBoxView(FormWindow& window, CheckBox& box, QWidget& parent)
      : ControlView(window, box, new FocusedByMnemonic<QCheckBox>(&parent)), box_(box) {
    connect(&Check(), &QCheckBox::clicked, this, [this] { Tell([this] { Clicked(); }); });
  }
  [[nodiscard]] bool TakesFocus() const override { return true; }

 private:
  [[nodiscard]] QCheckBox& Check() const { return *static_cast<QCheckBox*>(Widget()); }

  void Clicked() {
    // Qt has moved the mark already; the control's own value decides, even if its event sets it back.
    needs_update = true;
    box_.SetValue(box_.Value() == CheckBox::kUnchecked ? CheckBox::kChecked : CheckBox::kUnchecked);
    Window().Flush();
  }

  void UpdateContent() override {
    Check().setText(Window().CaptionOf(box_));
    Check().setTristate(box_.Value() == CheckBox::kGrayed);
    Check().setCheckState(box_.Value() == CheckBox::kChecked  ? Qt::Checked
                          : box_.Value() == CheckBox::kGrayed ? Qt::PartiallyChecked
                                                              : Qt::Unchecked);
  }

  CheckBox& box_;
};

class OptionView final : public ControlView {
 public:
  OptionView(FormWindow& window, OptionButton& button, QWidget& parent)
      : ControlView(window, button, new FocusedByMnemonic<QRadioButton>(&parent)), button_(button) {
    connect(&Radio(), &QRadioButton::clicked, this, [this] {
      needs_update = true;
      Tell([this] { button_.SetValue(true); });
      Window().Flush();
    });
  }
  [[nodiscard]] bool TakesFocus() const override { return true; }

 private:
  [[nodiscard]] QRadioButton& Radio() const { return *static_cast<QRadioButton*>(Widget()); }

  void UpdateContent() override {
    Radio().setText(Window().CaptionOf(button_));
    // A group that excludes refuses to leave none chosen; forms may begin so.
    Radio().setAutoExclusive(false);
    Radio().setChecked(button_.Value());
    Radio().setAutoExclusive(true);
  }

  OptionButton& button_;
};

}  // namespace

std::unique_ptr<ControlView> MakeButtonView(FormWindow& window, CommandButton& button, QWidget& parent) {
  return std::make_unique<ButtonView>(window, button, parent);
}

std::unique_ptr<ControlView> MakeCheckBoxView(FormWindow& window, CheckBox& box, QWidget& parent) {
  return std::make_unique<CheckBoxView>(window, box, parent);
}

std::unique_ptr<ControlView> MakeOptionView(FormWindow& window, OptionButton& button, QWidget& parent) {
  return std::make_unique<OptionView>(window, button, parent);
}

}  // namespace tessarine
