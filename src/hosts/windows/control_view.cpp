// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/control_view.h"

#include <QApplication>
#include <QKeyEvent>

#include "hosts/windows/colors.h"
#include "hosts/windows/form_window.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"

namespace tessarine {
namespace {

/// The view if the control is of the kind, else nothing.
template <class Kind, class Make>
std::unique_ptr<ControlView> ViewIf(Control& control, Make&& make) {
  auto* kind = dynamic_cast<Kind*>(&control);
  return kind != nullptr ? make(*kind) : nullptr;
}

}  // namespace

ControlView::ControlView(FormWindow& window, tessarine::Control& control, QWidget* widget)
    : window_(window), control_(control), widget_(widget) {
  if (widget_ == nullptr) return;
  widget_->setObjectName(ToQt(control.Name()));
  widget_->installEventFilter(this);
  widget_->setMouseTracking(true);
}

QColor ControlView::Background() const {
  if (IsExplicitColor(control_.BackColor()) || control_.BackColor() == kWindowBackground) {
    return ColorOf(control_.BackColor(), window_.palette());
  }
  const auto* frame = dynamic_cast<const Frame*>(&control_.Container());
  const ControlView* outer = frame != nullptr ? window_.ViewOf(*frame) : nullptr;
  return outer != nullptr ? outer->Background() : ColorOf(window_.ShownForm().BackColor(), window_.palette());
}

void ControlView::Update() {
  needs_update = false;
  updating_ = true;
  if (widget_ != nullptr) {
    Place();
    widget_->setEnabled(control_.Enabled());
    widget_->setToolTip(Translated(control_.ToolTipText()));
    UpdateColors();
  }
  UpdateContent();
  if (widget_ != nullptr) widget_->setVisible(control_.Visible());
  updating_ = false;
}

bool ControlView::MayTell() const { return !updating_ && !window_.Concealed(); }

void ControlView::Place() {
  if (widget_ == nullptr) return;
  const QRect in_form = window_.Units().Rect(control_.Left(), control_.Top(), control_.Width(), control_.Height());
  const QRect place = in_form.translated(-window_.OriginOf(*this));
  if (widget_->geometry() != place) widget_->setGeometry(place);
}

// A style sheet of the program paints by its own rules, whatever a palette says. The colours are told in its language,
// text and ground together, so that they fit each other.
void ControlView::UpdateSheetColors() {
  const QPalette palette = window_.palette();
  const QColor window = Background();
  const bool explicit_ground = IsExplicitColor(control_.BackColor());
  const QColor ground = HoldsText() && !explicit_ground ? BoxColorOn(window) : window;
  const QColor text = TextColorOn(ground, control_.ForeColor(), palette);
  const QString fill =
      HoldsText() || explicit_ground ? QStringLiteral("background-color: ") + ground.name() : QString();
  const QString sheet = QStringLiteral("* { color: %1; %2 } *:disabled { color: %3 }")
                            .arg(text.name(), fill, FadedText(text, ground).name());
  if (sheet != widget_->styleSheet()) widget_->setStyleSheet(sheet);
}

void ControlView::UpdateColors() {
  if (!qApp->styleSheet().isEmpty()) {
    if (dynamic_cast<const CommandButton*>(&control_) == nullptr) UpdateSheetColors();
    return;
  }
  if (!widget_->styleSheet().isEmpty()) widget_->setStyleSheet(QString());
  QPalette palette = window_.palette();
  const QColor background = Background();
  const QColor text = TextColorOn(background, control_.ForeColor(), palette);
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text}) palette.setColor(group, role, text);
  }
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text}) {
    palette.setColor(QPalette::Disabled, role, FadedText(text, background));
  }
  // The mark of a box or an option has the colour of the text and lies on the base.
  if (HoldsText() || !IsReadableOn(palette.color(QPalette::Base), text)) palette.setColor(QPalette::Base, background);
  if (IsExplicitColor(control_.BackColor())) palette.setColor(widget_->backgroundRole(), background);
  if (palette != widget_->palette()) widget_->setPalette(palette);
  widget_->setAutoFillBackground(IsExplicitColor(control_.BackColor()));
}

bool ControlView::eventFilter(QObject* watched, QEvent* event) {
  if (watched != widget_ || window_.Concealed()) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::Shortcut:
      window_.Flush();
      break;
    case QEvent::KeyPress:
      window_.Flush();
      if (RefusesKey(*static_cast<QKeyEvent*>(event))) return true;
      break;
    case QEvent::MouseMove:
      Tell([this] { window_.ShownForm().MouseMoved(&control_); });
      break;
    case QEvent::FocusIn:
      // The event of the control that loses the focus comes first, then that of the one that gets it.
      window_.BringIntoView(*widget_);
      if (TakesFocus()) Tell([this] { window_.ShownForm().SetActiveControl(&control_); });
      break;
    default:
      break;
  }
  return false;
}

std::unique_ptr<ControlView> MakeControlView(FormWindow& window, Control& control, QWidget& parent) {
  std::unique_ptr<ControlView> view;
  const auto take = [&](std::unique_ptr<ControlView> made) {
    if (!view) view = std::move(made);
  };
  take(ViewIf<Label>(control, [&](Label& kind) { return MakeLabelView(window, kind, parent); }));
  take(ViewIf<TextBox>(control, [&](TextBox& kind) { return MakeTextBoxView(window, kind, parent); }));
  take(ViewIf<RichTextBox>(control, [&](RichTextBox& kind) { return MakeRichTextView(window, kind, parent); }));
  take(ViewIf<CheckBox>(control, [&](CheckBox& kind) { return MakeCheckBoxView(window, kind, parent); }));
  take(ViewIf<OptionButton>(control, [&](OptionButton& kind) { return MakeOptionView(window, kind, parent); }));
  take(ViewIf<CommandButton>(control, [&](CommandButton& kind) { return MakeButtonView(window, kind, parent); }));
  take(ViewIf<ListBox>(control, [&](ListBox& kind) { return MakeListView(window, kind, parent); }));
  take(ViewIf<ComboBox>(control, [&](ComboBox& kind) { return MakeComboView(window, kind, parent); }));
  take(ViewIf<Frame>(control, [&](Frame& kind) { return MakeFrameView(window, kind, parent); }));
  take(ViewIf<Image>(control, [&](Image& kind) { return MakeImageView(window, kind, parent); }));
  take(ViewIf<Timer>(control, [&](Timer& kind) { return MakeTimerView(window, kind); }));
  return view;
}

}  // namespace tessarine
