// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <QWhatsThis>
#include <algorithm>

#include "hosts/windows/colors.h"
#include "hosts/windows/mnemonics.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"

namespace tessarine {
namespace {

/// What the controls lie on.
class Canvas final : public QWidget {
 public:
  Canvas(std::function<void(QSize)> resized, std::function<void()> mouse_moved)
      : resized_(std::move(resized)), mouse_moved_(std::move(mouse_moved)) {
    setMouseTracking(true);
  }

 protected:
  void resizeEvent(QResizeEvent* event) override { resized_(event->size()); }
  void mouseMoveEvent(QMouseEvent*) override { mouse_moved_(); }

 private:
  std::function<void(QSize)> resized_;
  std::function<void()> mouse_moved_;
};

bool HasMinimum(const Form& form) { return form.MinimumWidth() > 0.0 || form.MinimumHeight() > 0.0; }

Qt::WindowFlags FlagsOf(const Form& form, const QWidget* parent) {
  Qt::WindowFlags flags = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                          Qt::WindowContextHelpButtonHint;
  // Over a host's window a dialog of its own keeps above it; without one the window manager has to be asked.
  if (form.Topmost() && parent == nullptr) flags |= Qt::WindowStaysOnTopHint;
  if (HasMinimum(form)) flags |= Qt::WindowMaximizeButtonHint;
  return flags;
}

}  // namespace

FormWindow::FormWindow(Form& form, QWidget* parent, QSize room)
    : QDialog(parent, FlagsOf(form, parent)),
      form_(form),
      room_(room),
      units_(font()),
      scroll_(new QScrollArea(this)),
      canvas_(new Canvas([this](QSize size) { TakeSize(size); }, [this] { MouseMoved(); })),
      footer_(new QWidget(this)) {
  setObjectName(ToQt(form.Name()));
  // A style sheet may give it a frame of its own.
  scroll_->setStyleSheet(QStringLiteral("QScrollArea { border: none; padding: 0px }"));
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->setWidgetResizable(true);
  scroll_->setWidget(canvas_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(scroll_);
  layout->addWidget(footer_);
  footer_->hide();
  if (parent != nullptr) connect(parent, &QObject::destroyed, this, [this] { StandAlone(); });
  ensurePolished();  // a style sheet changes the palette that the controls go by
  MakeViews();
  OrderTabs();
  ListenToForm();
  Flush();
}

FormWindow::~FormWindow() {
  Conceal();
  views_.clear();
}

ControlView* FormWindow::ViewOf(const Control& control) const {
  for (const auto& view : views_) {
    if (&view->Control() == &control) return view.get();
  }
  return nullptr;
}

QWidget* FormWindow::WidgetOf(const std::string& name) const {
  const Control* control = form_.Find(name);
  const ControlView* view = control != nullptr ? ViewOf(*control) : nullptr;
  return view != nullptr ? view->Widget() : nullptr;
}

QWidget* FormWindow::ParentOf(const Control& control) const {
  const auto* frame = dynamic_cast<const Frame*>(&control.Container());
  const ControlView* outer = frame != nullptr ? ViewOf(*frame) : nullptr;
  return outer != nullptr ? outer->Widget() : canvas_;
}

// Frames first, since others stand in them; then the order of the form, in which a later control lies above.
void FormWindow::MakeViews() {
  for (const bool frames : {true, false}) {
    for (Control* control : form_.Controls()) {
      if ((dynamic_cast<const Frame*>(control) != nullptr) != frames) continue;
      if (auto view = MakeControlView(*this, *control, *ParentOf(*control))) views_.push_back(std::move(view));
    }
  }
}

void FormWindow::OrderTabs() {
  std::vector<ControlView*> order;
  for (const auto& view : views_) {
    if (view->Widget() == nullptr) continue;
    if (view->Control().TabIndex() >= 0) {
      order.push_back(view.get());
    } else {
      view->Widget()->setFocusPolicy(Qt::NoFocus);
    }
  }
  std::ranges::stable_sort(order, {}, [](const ControlView* view) { return view->Control().TabIndex(); });
  QWidget* before = nullptr;
  std::vector<QLabel*> labels;
  for (const ControlView* view : order) {
    if (!view->TakesFocus()) {
      if (auto* label = qobject_cast<QLabel*>(view->Widget())) labels.push_back(label);
      continue;
    }
    // The mnemonic of a label leads to the box or list after it.
    if (!labels.empty() && view->HoldsText()) labels.back()->setBuddy(view->Widget());
    labels.clear();
    if (before != nullptr) setTabOrder(before, view->Widget());
    before = view->Widget();
  }
}

void FormWindow::ListenToForm() {
  form_was_visible_ = form_.Visible();
  form_.on_changed = [this](Control* control) { FormChanged(control); };
  form_.on_refresh = [this] {
    Flush();
    canvas_->repaint();
  };
}

void FormWindow::FormChanged(Control* control) {
  if (control == nullptr) {
    if (form_was_visible_ && !form_.Visible()) {
      Conceal();
      return;
    }
    form_was_visible_ = form_.Visible();
    form_needs_update_ = true;
  } else if (ControlView* view = ViewOf(*control)) {
    view->needs_update = true;
  }
  if (flush_planned_) return;
  flush_planned_ = true;
  QMetaObject::invokeMethod(
      this, [this] { Flush(); }, Qt::QueuedConnection);
}

void FormWindow::Flush() {
  if (concealed_ || flushing_) return;
  flushing_ = true;
  flush_planned_ = false;
  if (form_needs_update_) UpdateForm();
  UpdateCaptions();
  for (const auto& view : views_) {
    if (view->needs_update) view->Update();
  }
  UpdateFocus();
  flushing_ = false;
}

void FormWindow::UpdateForm() {
  form_needs_update_ = false;
  // The blank in front of a caption keeps it off the window's icon; there is none here.
  setWindowTitle(Title());
  QPalette colors = palette();
  colors.setColor(QPalette::Window, ColorOf(form_.BackColor(), palette()));
  if (IsExplicitColor(form_.BackColor()) && colors != canvas_->palette()) {
    for (QWidget* widget : {canvas_, footer_}) {
      widget->setPalette(colors);
      widget->setAutoFillBackground(true);
    }
  }
  if (isVisible() && (form_.Left() != shown_left_ || form_.Top() != shown_top_)) PlaceOnScreen();
  UpdateSize();
}

QString FormWindow::Title() const {
  // The blank in front of a caption keeps it off the window's icon; there is none here.
  return Translated((caption_.isEmpty() ? ToQt(form_.Caption()) : caption_).trimmed());
}

QString FormWindow::CaptionOf(const Captioned& control) const {
  const auto known = captions_.find(&control);
  return known != captions_.end() ? known->second : Translated(LinesToQt(control.Caption()));
}

// What the letter of a caption leads to.
FormWindow::Naming FormWindow::NamingOf(const ControlView& view) const {
  if (view.Control().TabIndex() < 0) return Naming::Nothing;
  if (const auto* label = qobject_cast<const QLabel*>(view.Widget())) {
    return label->buddy() != nullptr ? Naming::Box : Naming::Nothing;
  }
  // OK and Cancel have keys of their own.
  const auto* button = dynamic_cast<const CommandButton*>(&view.Control());
  if (button != nullptr && (button->Default || button->Cancel || button->PictureId != 0)) return Naming::Nothing;
  return view.TakesFocus() ? Naming::Itself : Naming::Nothing;
}

void FormWindow::UpdateCaptions() {
  std::vector<const Captioned*> controls;
  std::vector<MarkedCaption> captions;
  for (const Naming naming : {Naming::Box, Naming::Itself, Naming::Nothing}) {
    for (const auto& view : views_) {
      const auto* captioned = dynamic_cast<const Captioned*>(&view->Control());
      if (captioned == nullptr || !captioned->Visible() || NamingOf(*view) != naming) continue;
      controls.push_back(captioned);
      captions.push_back({Translated(LinesToQt(captioned->Caption())), naming != Naming::Nothing});
    }
  }
  ShareLetters(captions);
  for (std::size_t index = 0; index < captions.size(); ++index) {
    QString& known = captions_[controls[index]];
    if (known == captions[index].text) continue;
    known = captions[index].text;
    if (ControlView* view = ViewOf(*controls[index])) view->needs_update = true;
  }
}

// A screen keeps some of its room for the window's frame.
QSize FormWindow::Room() const { return room_.isValid() ? room_ : HomeScreen()->availableSize() * 0.95; }

// A dialog opens on the screen of what it stands over.
const QScreen* FormWindow::HomeScreen() const {
  return parentWidget() != nullptr && !isVisible() ? parentWidget()->screen() : screen();
}

// The buttons below all others, and what stands beside them, leave the canvas for a place that doesn't scroll.
void FormWindow::UpdateFooter(bool wanted) {
  const auto rect_of = [this](const ControlView& view) {
    const Control& control = view.Control();
    return units_.Rect(control.Left(), control.Top(), control.Width(), control.Height());
  };
  const auto is_own = [this](const ControlView& view) {
    return view.Widget() != nullptr && view.Control().Visible() && ParentOf(view.Control()) == canvas_;
  };
  int lowest = -1;
  for (const auto& view : views_) {
    const bool button = dynamic_cast<const CommandButton*>(&view->Control()) != nullptr;
    if (wanted && button && is_own(*view)) lowest = std::max(lowest, rect_of(*view).top());
  }
  constexpr int kMargin = 4;
  footer_top_ = lowest - kMargin;
  int canvas_bottom = footer_top_;
  for (const auto& view : views_) {
    if (!is_own(*view)) continue;
    const bool below = lowest >= 0 && rect_of(*view).top() >= footer_top_;
    QWidget* parent = below ? footer_ : canvas_;
    if (!below) canvas_bottom = std::max(canvas_bottom, rect_of(*view).bottom() + kMargin);
    if (view->Widget()->parentWidget() != parent) {
      view->Widget()->setParent(parent);
      view->Widget()->show();
    }
    view->needs_update = true;
  }
  const int height = units_.Size(form_.Width(), form_.Height()).height();
  footer_->setFixedHeight(lowest >= 0 ? height - footer_top_ : 0);
  footer_->setVisible(lowest >= 0);
  below_canvas_ = lowest >= 0 ? height - canvas_bottom : 0;
  OrderTabs();
}

void FormWindow::BringIntoView(QWidget& widget) {
  if (canvas_->isAncestorOf(&widget)) scroll_->ensureWidgetVisible(&widget);
}

QPoint FormWindow::OriginOf(const ControlView& view) const {
  return view.Widget() != nullptr && view.Widget()->parentWidget() == footer_ ? QPoint(0, footer_top_) : QPoint();
}

void FormWindow::UpdateSize() {
  const QSize size = units_.Size(form_.Width(), form_.Height());
  const QSize room = Room();
  const QSize least = HasMinimum(form_) ? units_.Size(form_.MinimumWidth(), form_.MinimumHeight()) : size;
  const bool scrolls = least.boundedTo(size).height() > room.height();
  if (scrolls || footer_->isVisibleTo(this)) UpdateFooter(scrolls);
  canvas_->setMinimumSize(least.boundedTo(size) - QSize(0, below_canvas_));
  // A bar beside the canvas doesn't take from its width.
  const QSize bar(scrolls ? scroll_->verticalScrollBar()->sizeHint().width() : 0, 0);
  if (HasMinimum(form_)) {
    setMinimumSize((least.boundedTo(size) + bar).boundedTo(room));
  } else {
    setFixedSize((size + bar).boundedTo(room));
  }
  if (canvas_->size() != size - QSize(0, below_canvas_)) resize((size + bar).boundedTo(room));
  if (isVisible()) KeepOnScreen();
}

// Frame and all, where the window manager has told how wide its frame is.
void FormWindow::KeepOnScreen() {
  const QRect room = screen()->availableGeometry(), framed = frameGeometry();
  const QPoint kept(std::max(room.left(), std::min(framed.left(), room.right() + 1 - framed.width())),
                    std::max(room.top(), std::min(framed.top(), room.bottom() + 1 - framed.height())));
  if (kept != framed.topLeft()) move(kept);
}

// The user's size becomes the form's, which lays its controls out anew.
void FormWindow::TakeSize(QSize size) {
  size += QSize(0, below_canvas_);
  // A form of one size keeps it, whatever room the bars beside it take.
  if (flushing_ || concealed_ || !HasMinimum(form_) || size == units_.Size(form_.Width(), form_.Height())) return;
  Trap(form_.Name() + " Form_Resize",
       [&] { form_.Resize(units_.UnitsAcross(size.width()), units_.UnitsDown(size.height())); });
  Flush();
}

void FormWindow::MouseMoved() {
  if (!concealed_) Trap(form_.Name() + " MouseMove", [this] { form_.MouseMoved(nullptr); });
}

void FormWindow::UpdateFocus() {
  const Control* active = form_.ActiveControl();
  if (active != first_focus_) first_focus_ = nullptr;
  const ControlView* view = active != nullptr ? ViewOf(*active) : nullptr;
  if (view == nullptr || !view->TakesFocus() || view->Widget() == focusWidget()) return;
  if (view->Widget()->isEnabled() && view->Control().Visible()) view->Widget()->setFocus(Qt::OtherFocusReason);
}

void FormWindow::SetCaption(const std::string& caption) {
  caption_ = ToQt(caption);
  setWindowTitle(Title());
}

void FormWindow::PlaceOnScreen() {
  shown_left_ = form_.Left();
  shown_top_ = form_.Top();
  const QRect room = HomeScreen()->availableGeometry();
  QPoint corner = room.topLeft() + units_.Rect(shown_left_, shown_top_, 0, 0).topLeft();
  if (shown_left_ == 0.0 && shown_top_ == 0.0) {
    const QRect around = parentWidget() != nullptr ? parentWidget()->window()->geometry() : room;
    corner = around.center() - QPoint(width() / 2, height() / 2);
  }
  corner.setX(std::clamp(corner.x(), room.left(), std::max(room.left(), room.right() - width())));
  // The title bar that a window manager adds lies above what a window knows of itself.
  const int framed = height() + style()->pixelMetric(QStyle::PM_TitleBarHeight);
  corner.setY(std::clamp(corner.y(), room.top(), std::max(room.top(), room.bottom() - framed)));
  move(corner);
}

// A parent takes its children with it, and this one isn't its parent's to take. It says goodbye just before.
void FormWindow::StandAlone() {
  setParent(nullptr, FlagsOf(form_, nullptr));  // which hides it
  if (!concealed_) show();
}

void FormWindow::FocusFirst() {
  if (form_.ActiveControl() != nullptr) return;
  const ControlView* first = nullptr;
  for (const auto& view : views_) {
    const Control& control = view->Control();
    if (!view->TakesFocus() || control.TabIndex() < 0 || !control.Enabled() || !control.Visible()) continue;
    if (first == nullptr || control.TabIndex() < first->Control().TabIndex()) first = view.get();
  }
  if (first == nullptr) return;
  first->Control().SetFocus();
  first_focus_ = &first->Control();
}

void FormWindow::Appear() {
  Flush();
  PlaceOnScreen();
  Trap(form_.Name() + " GotFocus", [this] { FocusFirst(); });
  Flush();
  show();
  raise();
  activateWindow();
}

void FormWindow::Conceal() {
  if (concealed_) return;
  concealed_ = true;
  form_.on_changed = nullptr;
  form_.on_refresh = nullptr;
  hide();
  if (on_concealed) on_concealed();
}

bool FormWindow::HasDefault() const {
  return std::ranges::any_of(form_.Controls(), [](const Control* control) {
    const auto* button = dynamic_cast<const CommandButton*>(control);
    return button != nullptr && button->Default;
  });
}

// A button that has the focus because it comes first wasn't chosen by the user: Enter is for the form's own default.
void FormWindow::EnterPressed() {
  Flush();
  const auto* active = dynamic_cast<const CommandButton*>(form_.ActiveControl());
  const bool chosen = active != nullptr && (active != first_focus_ || !HasDefault());
  PressButton([&](const CommandButton& button) { return chosen ? &button == active : button.Default; });
}

template <class IsWanted>
void FormWindow::PressButton(IsWanted&& is_wanted) {
  for (Control* control : form_.Controls()) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button == nullptr || !is_wanted(*button)) continue;
    Trap(button->Name(), [button] { button->Press(); });
    return;
  }
}

bool FormWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      // Here F1 isn't the one of the window behind.
      if (on_help && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1) {
        event->accept();
        return true;
      }
      break;
    case QEvent::EnterWhatsThisMode:
      QWhatsThis::leaveWhatsThisMode();
      if (on_help) on_help();
      return true;
    default:
      break;
  }
  return QDialog::event(event);
}

// The frame comes after the window.
void FormWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  constexpr int kMomentForTheFrame = 50;
  QTimer::singleShot(kMomentForTheFrame, this, [this] {
    if (!concealed_) KeepOnScreen();
  });
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  Flush();
  switch (event->key()) {
    case Qt::Key_F1:
      if (on_help) on_help();
      return;
    case Qt::Key_Escape:
      PressButton([](const CommandButton& button) { return button.Cancel; });
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      EnterPressed();
      return;
    default:
      QDialog::keyPressEvent(event);
  }
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (concealed_) return;
  Trap(form_.Name() + " Form_QueryUnload", [this] { form_.CloseByUser(); });
  Conceal();
}

void FormWindow::Scale() {
  units_ = DialogUnits(font());
  form_needs_update_ = true;
  for (const auto& view : views_) view->needs_update = true;
  Flush();
}

void FormWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange ||
      event->type() == QEvent::StyleChange) {
    Scale();
  }
}

}  // namespace tessarine
