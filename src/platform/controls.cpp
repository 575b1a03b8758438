// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>

#include "platform/fault.h"
#include "platform/form.h"

namespace tessarine {
namespace {

void Fire(const std::function<void()>& event) {
  if (event) event();
}

}  // namespace

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) {
  form_.controls_.push_back(this);
}

const tessarine::Container& Control::Container() const { return container_ != nullptr ? *container_ : form_; }

void Control::SetContainer(Frame& frame) { container_ = &frame; }

void Control::Changed() { form_.Notify(this); }

void Control::Move(double left, double top, double width, double height) {
  if (left == left_ && top == top_ && width == width_ && height == height_) return;
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
  Changed();
}

void Control::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  Changed();
}

void Control::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  Changed();
}

void Control::SetToolTipText(std::string text) {
  tool_tip_ = std::move(text);
  Changed();
}

void Control::SetForeColor(std::int32_t color) {
  if (color == fore_color_) return;
  fore_color_ = color;
  Changed();
}

void Control::SetBackColor(std::int32_t color) {
  if (color == back_color_) return;
  back_color_ = color;
  Changed();
}

void Control::SetFocus() { form_.SetActiveControl(this); }

void Control::Refresh() { form_.Refresh(); }

void Captioned::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  Changed();
}

void Frame::Move(double left, double top, double width, double height) {
  tessarine::Container::width_ = width;
  tessarine::Container::height_ = height;
  Control::Move(left, top, width, height);
}

void CommandButton::Press() {
  if (Enabled() && Visible()) Fire(Click);
}

void CheckBox::SetValue(std::int32_t value) {
  if (value == value_) return;
  value_ = value;
  Changed();
  Fire(Click);
}

void OptionButton::SetValue(bool value) {
  if (value == value_) return;
  if (value) {
    for (Control* control : Owner().Controls()) {
      auto* other = dynamic_cast<OptionButton*>(control);
      if (other != nullptr && other != this && other->value_ && &other->Container() == &Container()) {
        other->value_ = false;
        other->Changed();
      }
    }
  }
  value_ = value;
  Changed();
  if (value) Fire(Click);
}

std::size_t LineControl::Checked(std::int32_t index) const {
  if (index < 0 || index >= ListCount()) {
    Raise(kInvalidCall, "The list '" + Name() + "' has no line " + std::to_string(index) + ".");
  }
  return static_cast<std::size_t>(index);
}

void LineControl::AddItem(std::string text) {
  lines_.push_back(std::move(text));
  Changed();
}

void ListBox::Clear() {
  lines_.clear();
  selected_.clear();
  list_index_ = -1;
  top_index_ = 0;
  Changed();
}

void ListBox::SetListIndex(std::int32_t index) {
  if (index == list_index_) return;
  if (index != -1) (void)Checked(index);
  list_index_ = index;
  if (!MultiSelect) {
    selected_.clear();
    if (index != -1) selected_.insert(index);
  }
  Changed();
  Fire(Click);
}

bool ListBox::Selected(std::int32_t index) const {
  (void)Checked(index);
  return selected_.contains(index);
}

void ListBox::SetSelected(std::int32_t index, bool selected) {
  if (Selected(index) == selected) return;
  if (!MultiSelect) {
    SetListIndex(selected ? index : -1);
    return;
  }
  if (selected) {
    selected_.insert(index);
  } else {
    selected_.erase(index);
  }
  list_index_ = index;
  Changed();
  Fire(Click);
}

void ComboBox::Clear() {
  lines_.clear();
  if (DropDownList) text_.clear();
  list_index_ = -1;
  Changed();
}

void ComboBox::SetListIndex(std::int32_t index) {
  if (index == list_index_) return;
  // What stands in a list that can't be edited is always one of its lines, or nothing.
  if (index != -1) {
    text_ = List(index);
  } else if (DropDownList) {
    text_.clear();
  }
  list_index_ = index;
  Changed();
  Fire(Click);
}

void ComboBox::SetText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  const auto found = std::ranges::find(lines_, text_);
  list_index_ = found == lines_.end() ? -1 : static_cast<std::int32_t>(found - lines_.begin());
  Changed();
  Fire(Change);
}

}  // namespace tessarine
