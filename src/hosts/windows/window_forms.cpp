// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/window_forms.h"

#include <QApplication>
#include <QEventLoop>
#include <QMainWindow>
#include <QScreen>
#include <algorithm>

#include "hosts/windows/manual_window.h"
#include "hosts/windows/pointer.h"

namespace tessarine {

/// Knows the form only as long as others keep it: the form keeps the frame.
class WindowForms::FrameOfForm final : public IModelessFrame {
 public:
  explicit FrameOfForm(WindowForms& forms) : forms_(forms), alive_(&forms.context_) {}

  void Create(const std::shared_ptr<Form>& form) override {
    form_ = form;
    if (alive_) forms_.Know(form);
  }
  [[nodiscard]] std::string Caption() const override { return caption_; }
  void SetCaption(const std::string& caption) override {
    caption_ = caption;
    if (FormWindow* window = Window()) window->SetCaption(caption);
  }
  [[nodiscard]] bool Visible() const override { return Window() != nullptr; }
  void SetVisible(bool visible) override {
    const std::shared_ptr<Form> form = form_.lock();
    if (!form || !alive_) return;
    if (visible) {
      forms_.OpenModeless(*form, &caption_);
    } else {
      forms_.CloseModeless(*form);
    }
  }

 private:
  [[nodiscard]] FormWindow* Window() const {
    const std::shared_ptr<Form> form = form_.lock();
    return form && alive_ ? forms_.WindowOf(*form) : nullptr;
  }

  WindowForms& forms_;
  QPointer<QObject> alive_;
  std::weak_ptr<Form> form_;
  std::string caption_;
};

WindowForms::WindowForms(QWidget* main_window) : main_window_(main_window) {}

WindowForms::~WindowForms() {
  for (Modeless& entry : modeless_) {
    entry.window->on_concealed = nullptr;
    entry.window = nullptr;
  }
}

void WindowForms::ShowModal(Form& form) {
  const PointerPause pause;
  FormWindow window(form, DialogParent(), room_);
  window.setWindowModality(Qt::ApplicationModal);
  QEventLoop loop;
  window.on_concealed = [&loop] { loop.quit(); };
  OfferHelp(window);
  modal_.push_back(&window);
  window.Appear();
  if (on_opened) on_opened(window);
  if (!window.Concealed()) loop.exec(QEventLoop::DialogExec);
  std::erase(modal_, &window);
}

void WindowForms::OfferHelp(FormWindow& window) const {
  if (manual_folder_.isEmpty()) return;
  window.on_help = [folder = manual_folder_, &window] {
    ShowManual(folder, ChapterOf(window.ShownForm().Name(), window.ShownForm().Caption()), window);
  };
}

void WindowForms::ShowModeless(Form& form) { OpenModeless(form, nullptr); }

void WindowForms::Know(const std::shared_ptr<Form>& form) {
  std::erase_if(known_, [](const auto& entry) { return entry.expired(); });
  known_.push_back(form);
}

void WindowForms::OpenModeless(Form& form, const std::string* caption) {
  FormWindow* window = WindowOf(form);
  if (window == nullptr) {
    std::shared_ptr<Form> kept;
    for (const auto& entry : known_) {
      if (const auto known = entry.lock(); known.get() == &form) kept = known;
    }
    modeless_.push_back({kept, &form, std::make_unique<FormWindow>(form, DialogParent(), room_)});
    window = modeless_.back().window.get();
    window->on_concealed = [this, window] { Retire(*window); };
    OfferHelp(*window);
    if (caption != nullptr) window->SetCaption(*caption);
    window->Appear();
    if (on_opened) on_opened(*window);
    return;
  }
  if (caption != nullptr) window->SetCaption(*caption);
  window->raise();
}

void WindowForms::CloseModeless(const Form& form) {
  if (FormWindow* window = WindowOf(form)) window->Conceal();
}

// The window may be in the middle of an event of its own: it goes when the event loop turns.
void WindowForms::Retire(const FormWindow& window) {
  const auto entry =
      std::ranges::find_if(modeless_, [&](const Modeless& open) { return open.window.get() == &window; });
  if (entry == modeless_.end()) return;
  retired_.push_back(std::move(*entry));
  modeless_.erase(entry);
  QMetaObject::invokeMethod(
      &context_, [this] { retired_.clear(); }, Qt::QueuedConnection);
}

FormWindow* WindowForms::WindowOf(const Form& form) const {
  for (FormWindow* window : modal_) {
    if (&window->ShownForm() == &form) return window;
  }
  for (const Modeless& entry : modeless_) {
    if (entry.form == &form) return entry.window.get();
  }
  return nullptr;
}

QWidget* WindowForms::DialogParent() const {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  // A window beside the main one, as a page layout has, would vanish behind a dialog of the main one.
  QWidget* active = QApplication::activeWindow();
  const bool of_program = main_window_ && qobject_cast<QMainWindow*>(active) != nullptr;
  return of_program ? active : main_window_.data();
}

QSize WindowForms::ScreenSize() const {
  if (room_.isValid()) return room_;
  const QScreen* screen = main_window_ ? main_window_->screen() : QGuiApplication::primaryScreen();
  return screen->availableGeometry().size();
}

double WindowForms::ScreenWidth() const { return DialogUnits(QApplication::font()).UnitsAcross(ScreenSize().width()); }

double WindowForms::ScreenHeight() const { return DialogUnits(QApplication::font()).UnitsDown(ScreenSize().height()); }

std::shared_ptr<IModelessFrame> WindowForms::CreateFrame() { return std::make_shared<FrameOfForm>(*this); }

}  // namespace tessarine
