// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/form.h"

#include "platform/host.h"
#include "platform/text_formats.h"

namespace tessarine {

void Form::SetCaption(std::string caption) {
  caption_ = std::move(caption);
  Notify(nullptr);
}

void Form::MoveTo(double left, double top) {
  left_ = left;
  top_ = top;
  Notify(nullptr);
}

void Form::MoveToUpperMiddle() {
  const IFormHost& screen = Host().Forms();
  MoveTo(screen.ScreenWidth() / 2 - Width() / 2, screen.ScreenHeight() / 3 - Height() / 3);
}

void Form::SetSize(double width, double height) {
  width_ = width;
  height_ = height;
}

void Form::Resize(double width, double height) {
  if (width == width_ && height == height_) return;
  SetSize(width, height);
  if (loaded_) Form_Resize();
  Notify(nullptr);
}

Control* Form::Find(std::string_view name) const {
  for (Control* control : controls_) {
    if (EqualsIgnoringCase(control->Name(), name)) return control;
  }
  return nullptr;
}

void Form::SetActiveControl(Control* control) {
  if (control == active_) return;
  Control* before = active_;
  active_ = control;
  if (before != nullptr && before->LostFocus) before->LostFocus();
  if (control != nullptr && control->GotFocus) control->GotFocus();
  Notify(control);
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  Form_Load();
}

void Form::ShowModal() {
  Load();
  visible_ = true;
  Host().Forms().ShowModal(*this);
  Hide();
}

void Form::ShowModeless() {
  Load();
  visible_ = true;
  Notify(nullptr);  // a window of its frame may be open already
  Host().Forms().ShowModeless(*this);
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  Notify(nullptr);
}

void Form::Unload() {
  Hide();
  if (!loaded_) return;
  loaded_ = false;
  Form_Unload();
}

void Form::CloseByUser() {
  Form_QueryUnload();
  Unload();
}

void Form::MouseMoved(const Control* control) {
  if (control == nullptr) {
    Form_MouseMove();
  } else if (control->MouseMove) {
    control->MouseMove();
  }
}

void Form::Refresh() {
  if (on_refresh) on_refresh();
}

void Form::Notify(Control* control) {
  if (on_changed) on_changed(control);
}

}  // namespace tessarine
