// SPDX-License-Identifier: GPL-2.0-or-later
// Forms and their controls, without any window toolkit. A view draws a form from what stands here and turns input
// into the same calls that code makes.
//
// Writing a control's value from code fires the same event as a user's change, if the value differs. Rectangles are
// in dialog units: a quarter of the average character's width, an eighth of its height. Colours are 0xRRGGBB or one
// of the system colours below.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/object.h"

namespace tessarine {

class Form;
class Control;

enum SystemColor : std::int32_t {
  kWindowBackground = -1,
  kWindowText = -2,
  kButtonFace = -3,
  kGrayText = -4,
};

/// A rectangle that something can be laid out in: the form itself or a frame.
class Container : public virtual Object {
 public:
  [[nodiscard]] double Width() const { return width_; }
  [[nodiscard]] double Height() const { return height_; }

 protected:
  double width_ = 0.0, height_ = 0.0;
};

/// Base of all controls. A control belongs to its form for life and is never copied.
class Control : public virtual Object {
 public:
  Control(Form& form, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] Form& Owner() const { return form_; }
  /// The form, or the frame that the control was put into.
  [[nodiscard]] const tessarine::Container& Container() const;
  void SetContainer(class Frame& frame);

  [[nodiscard]] double Left() const { return left_; }
  [[nodiscard]] double Top() const { return top_; }
  [[nodiscard]] virtual double Width() const { return width_; }
  [[nodiscard]] virtual double Height() const { return height_; }
  virtual void Move(double left, double top, double width, double height);

  [[nodiscard]] bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  [[nodiscard]] bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  [[nodiscard]] const std::string& ToolTipText() const { return tool_tip_; }
  void SetToolTipText(std::string text);
  [[nodiscard]] std::int32_t ForeColor() const { return fore_color_; }
  void SetForeColor(std::int32_t color);
  [[nodiscard]] std::int32_t BackColor() const { return back_color_; }
  void SetBackColor(std::int32_t color);
  /// The place in the tab order; -1 for a control that takes no focus.
  [[nodiscard]] std::int32_t TabIndex() const { return tab_index_; }
  void SetTabIndex(std::int32_t index) { tab_index_ = index; }
  void SetFocus();
  /// Asks the view to paint the control now.
  void Refresh();

  std::function<void()> GotFocus, LostFocus;
  /// The mouse moved over the control.
  std::function<void()> MouseMove;

 protected:
  void Changed();

 private:
  Form& form_;
  std::string name_;
  tessarine::Container* container_ = nullptr;
  double left_ = 0.0, top_ = 0.0, width_ = 0.0, height_ = 0.0;
  bool enabled_ = true, visible_ = true;
  std::string tool_tip_;
  std::int32_t fore_color_ = kWindowText, back_color_ = kButtonFace;
  std::int32_t tab_index_ = -1;
};

/// A control with a caption; "&" marks the mnemonic.
class Captioned : public Control {
 public:
  using Control::Control;
  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

 private:
  std::string caption_;
};

class Label final : public Captioned {
 public:
  using Captioned::Captioned;
  [[nodiscard]] bool Bold() const { return bold_; }
  void SetBold(bool bold) { bold_ = bold, Changed(); }
  /// The text ends at the label's right edge.
  bool RightAligned = false;
  /// Makes the label a link.
  std::function<void()> Click;

 private:
  bool bold_ = false;
};

/// A group of controls with a border. Option buttons of one frame exclude each other.
class Frame final : public Captioned, public tessarine::Container {
 public:
  using Captioned::Captioned;
  [[nodiscard]] double Width() const override { return Control::Width(); }
  [[nodiscard]] double Height() const override { return Control::Height(); }
  void Move(double left, double top, double width, double height) override;
};

class Image final : public Control {
 public:
  using Control::Control;
  [[nodiscard]] std::int32_t ResourceId() const { return resource_id_; }
  void SetResourceId(std::int32_t id) { resource_id_ = id, Changed(); }

 private:
  std::int32_t resource_id_ = 0;
};

class CommandButton final : public Captioned {
 public:
  using Captioned::Captioned;
  /// Return presses the default button, Escape the cancel button.
  bool Default = false, Cancel = false;
  /// A picture in place of the caption, 0 for none.
  std::int32_t PictureId = 0;
  std::function<void()> Click;

  /// What a mouse click does: nothing while the button is disabled or hidden.
  void Press();
};

class CheckBox final : public Captioned {
 public:
  using Captioned::Captioned;
  enum State : std::int32_t { kUnchecked = 0, kChecked = 1, kGrayed = 2 };
  [[nodiscard]] std::int32_t Value() const { return value_; }
  void SetValue(std::int32_t value);
  std::function<void()> Click;

 private:
  std::int32_t value_ = kUnchecked;
};

class OptionButton final : public Captioned {
 public:
  using Captioned::Captioned;
  [[nodiscard]] bool Value() const { return value_; }
  /// True clears the other option buttons of the same container first.
  void SetValue(bool value);
  std::function<void()> Click;

 private:
  bool value_ = false;
};

class TextBox final : public Control {
 public:
  using Control::Control;
  [[nodiscard]] const std::string& Text() const { return text_; }
  void SetText(std::string text);
  bool Locked = false, MultiLine = false;
  bool Numeric = false;  ///< holds a number with a point: a view takes a typed or pasted decimal comma for one
  [[nodiscard]] std::int32_t SelStart() const { return sel_start_; }
  void SetSelStart(std::int32_t start) { sel_start_ = start, Changed(); }
  [[nodiscard]] std::int32_t SelLength() const { return sel_length_; }
  void SetSelLength(std::int32_t length) { sel_length_ = length, Changed(); }
  std::function<void()> Change;
  /// May set the key to 0 to refuse it.
  std::function<void(std::int32_t& key_ascii)> KeyPress;

  /// What typing does, one key at a time, at the caret: `KeyPress`, then the change. 8 is backspace.
  void Type(std::string_view keys);

 private:
  std::string text_;
  std::int32_t sel_start_ = 0, sel_length_ = 0;
};

/// A read-only or editable box of rich text.
class RichTextBox final : public Control {
 public:
  using Control::Control;
  [[nodiscard]] const std::string& TextRTF() const { return rtf_; }
  void SetTextRTF(std::string rtf);
  /// The plain text; writing it makes the rich text anew.
  [[nodiscard]] const std::string& Text() const { return text_; }
  void SetText(std::string text);
  [[nodiscard]] std::int32_t SelStart() const { return sel_start_; }
  /// Moves the caret, which scrolls to it.
  void SetSelStart(std::int32_t start) { sel_start_ = start, Changed(); }
  bool Locked = true;

 private:
  std::string rtf_, text_;
  std::int32_t sel_start_ = 0;
};

/// A control that lists lines of text, by index from 0. A line that isn't there raises fault 5.
class LineControl : public Control {
 public:
  using Control::Control;
  void AddItem(std::string text);
  [[nodiscard]] std::int32_t ListCount() const { return static_cast<std::int32_t>(lines_.size()); }
  [[nodiscard]] const std::string& List(std::int32_t index) const { return lines_[Checked(index)]; }
  /// The line that is selected, or has the focus where several can be selected; -1 when there is none.
  [[nodiscard]] std::int32_t ListIndex() const { return list_index_; }
  std::function<void()> Click;

 protected:
  [[nodiscard]] std::size_t Checked(std::int32_t index) const;

  std::vector<std::string> lines_;
  std::int32_t list_index_ = -1;
};

/// A list with one or several selected lines.
class ListBox final : public LineControl {
 public:
  using LineControl::LineControl;
  bool MultiSelect = false;

  void Clear();
  void SetListIndex(std::int32_t index);
  [[nodiscard]] bool Selected(std::int32_t index) const;
  void SetSelected(std::int32_t index, bool selected);
  [[nodiscard]] std::int32_t SelCount() const { return static_cast<std::int32_t>(selected_.size()); }
  [[nodiscard]] std::int32_t TopIndex() const { return top_index_; }
  void SetTopIndex(std::int32_t index) { top_index_ = index, Changed(); }
  std::function<void()> DblClick;

 private:
  std::set<std::int32_t> selected_;
  std::int32_t top_index_ = 0;
};

/// A drop-down list, editable unless `DropDownList`.
class ComboBox final : public LineControl {
 public:
  using LineControl::LineControl;
  bool DropDownList = false;

  void Clear();
  void SetListIndex(std::int32_t index);
  [[nodiscard]] const std::string& Text() const { return text_; }
  void SetText(std::string text);
  std::function<void()> Change;
  std::function<void(std::int32_t& key_ascii)> KeyPress;

 private:
  std::string text_;
};

/// Fires every `Interval` milliseconds while enabled and the host pumps events.
class Timer final : public Control {
 public:
  using Control::Control;
  std::int32_t Interval = 0;
  std::function<void()> Tick;
};

/// A dialog. A form class has its controls as members under their names, made with `*this`, and its event
/// procedures as member functions.
class Form : public Container {
 public:
  explicit Form(std::string name) : name_(std::move(name)) {}
  ~Form() override = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

  [[nodiscard]] double Left() const { return left_; }
  [[nodiscard]] double Top() const { return top_; }
  void MoveTo(double left, double top);
  /// Places the form where dialogs open: midway across the screen, with a third of the free height above it.
  void MoveToUpperMiddle();
  /// Sets the inner size and runs `Form_Resize` when the form is loaded.
  void Resize(double width, double height);
  /// The size below which a view lets no user shrink the window.
  [[nodiscard]] double MinimumWidth() const { return minimum_width_; }
  [[nodiscard]] double MinimumHeight() const { return minimum_height_; }

  [[nodiscard]] std::int32_t BackColor() const { return back_color_; }
  void SetBackColor(std::int32_t color) { back_color_ = color, Notify(nullptr); }
  /// True when the form keeps above the host's windows.
  [[nodiscard]] bool Topmost() const { return topmost_; }
  void SetTopmost(bool topmost) { topmost_ = topmost; }

  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// The control of this name, ignoring case; null when there is none.
  [[nodiscard]] Control* Find(std::string_view name) const;
  template <class T>
  [[nodiscard]] T* FindAs(std::string_view name) const {
    return dynamic_cast<T*>(Find(name));
  }
  [[nodiscard]] Control* ActiveControl() const { return active_; }
  void SetActiveControl(Control* control);

  [[nodiscard]] bool Loaded() const { return loaded_; }
  [[nodiscard]] bool Visible() const { return visible_; }
  /// Runs `Form_Load` once.
  void Load();
  void ShowModal();
  void ShowModeless();
  void Hide();
  /// Hides, runs `Form_Unload`, and lets a later show load again.
  void Unload();
  /// What the title bar's close box does: `Form_QueryUnload`, then unloads.
  void CloseByUser();
  /// What a view calls when the mouse moves over a control, or over the form itself (null).
  void MouseMoved(const Control* control);
  void Refresh();

  // A view's ears: called after any change of a control (null stands for the form itself), and when the form
  // is to be painted at once.
  std::function<void(Control*)> on_changed;
  std::function<void()> on_refresh;

 protected:
  void SetSize(double width, double height);
  void SetMinimumSize(double width, double height) { minimum_width_ = width, minimum_height_ = height; }

  virtual void Form_Load() {}
  virtual void Form_Resize() {}
  virtual void Form_Unload() {}
  virtual void Form_QueryUnload() {}
  virtual void Form_MouseMove() {}

 private:
  friend class Control;
  void Notify(Control* control);

  std::string name_, caption_;
  double left_ = 0.0, top_ = 0.0, minimum_width_ = 0.0, minimum_height_ = 0.0;
  std::int32_t back_color_ = kButtonFace;
  bool topmost_ = false, loaded_ = false, visible_ = false;
  std::vector<Control*> controls_;
  Control* active_ = nullptr;
};

}  // namespace tessarine
