// SPDX-License-Identifier: GPL-2.0-or-later
// Every form of the suite without a mouse.
#include <algorithm>
#include <map>

#include "helpers/temporary_folder.h"
#include "hosts/windows/mnemonics.h"
#include "tests/hosts/windows/windows_fixture.h"

namespace tessarine {
namespace {

std::string LetterOf(const FormWindow& window, const Control& control) {
  const auto* captioned = dynamic_cast<const Captioned*>(&control);
  return captioned != nullptr ? QString(MnemonicOf(window.CaptionOf(*captioned))).remove(QChar()).toStdString() : "";
}

bool CanTakeFocus(const FormWindow& window, const Control& control) {
  const ControlView* view = window.ViewOf(control);
  return view != nullptr && view->TakesFocus() && control.TabIndex() >= 0 && view->Widget()->isEnabled() &&
         view->Widget()->isVisible();
}

std::vector<std::string> DoubleMnemonics(const FormWindow& window) {
  std::map<std::string, std::string> taken;
  std::vector<std::string> doubles;
  for (const Control* control : window.ShownForm().Controls()) {
    if (!control->Visible()) continue;
    const std::string key = LetterOf(window, *control);
    if (key.empty()) continue;
    const auto [other, fresh] = taken.try_emplace(key, control->Name());
    if (!fresh) doubles.push_back(control->Name() + " and " + other->second + " share " + key);
  }
  return doubles;
}

// The boxes and lists that no letter leads to, neither that of their label nor that of the box or option right before
// them, which names them. The second of two boxes in a row is reached from the first.
std::vector<std::string> WithoutLetter(const FormWindow& window) {
  std::vector<const Control*> controls;
  for (const Control* control : window.ShownForm().Controls()) {
    if (control->TabIndex() >= 0 && control->Visible()) controls.push_back(control);
  }
  std::ranges::stable_sort(controls, {}, &Control::TabIndex);
  std::vector<std::string> without;
  const Control* before = nullptr;
  for (const Control* control : controls) {
    const ControlView* view = window.ViewOf(*control);
    const auto* text = dynamic_cast<const TextBox*>(control);
    const bool read_only = (text != nullptr && text->Locked) || dynamic_cast<const RichTextBox*>(control) != nullptr;
    if (view != nullptr && view->HoldsText() && !read_only && CanTakeFocus(window, *control)) {
      const bool in_row = before != nullptr && window.ViewOf(*before)->HoldsText() && before->Top() == control->Top();
      if (!in_row && (before == nullptr || LetterOf(window, *before).empty())) without.push_back(control->Name());
    }
    before = control;
  }
  return without;
}

// The controls that Tab comes by on one way around, from the first one on.
std::vector<std::string> TabWay() {
  std::vector<std::string> way;
  const auto name = [] {
    const QWidget* widget = QApplication::focusWidget();
    return widget != nullptr ? widget->objectName().toStdString() : std::string();
  };
  for (std::string at = name(); !at.empty() && std::ranges::find(way, at) == way.end(); at = name()) {
    way.push_back(at);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  return way;
}

// In the order of the tab indexes. Of a group of option buttons Tab needs to reach one.
std::vector<std::string> ToldWay(const FormWindow& window, const std::vector<std::string>& walked) {
  std::vector<const Control*> controls;
  for (const Control* control : window.ShownForm().Controls()) {
    if (!CanTakeFocus(window, *control)) continue;
    const bool option = dynamic_cast<const OptionButton*>(control) != nullptr;
    if (!option || std::ranges::find(walked, control->Name()) != walked.end()) controls.push_back(control);
  }
  std::ranges::stable_sort(controls, {}, &Control::TabIndex);
  std::vector<std::string> way;
  for (const Control* control : controls) way.push_back(control->Name());
  return way;
}

bool HasButton(const Form& form, bool CommandButton::*kind) {
  return std::ranges::any_of(form.Controls(), [&](const Control* control) {
    const auto* button = dynamic_cast<const CommandButton*>(control);
    return button != nullptr && button->*kind;
  });
}

// Captions have other letters in another language.
class KeyboardTest : public ::testing::TestWithParam<testing::Drawing> {};

TEST_P(KeyboardTest, EveryFormIsWalkedByTabAndEndedByKeys) {
  const testing::QtSession qt(GetParam());
  const testing::TemporaryFolder folder;
  testing::SampleHost host;
  int forms = 0;
  VisitForms(host, folder.Native(), [&](const std::string& name, FormWindow& window) {
    SCOPED_TRACE(name);
    ++forms;
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_THAT(DoubleMnemonics(window), ::testing::IsEmpty());
    EXPECT_THAT(WithoutLetter(window), ::testing::IsEmpty());
    EXPECT_TRUE(HasButton(window.ShownForm(), &CommandButton::Cancel));
    // A run in progress has nothing to confirm.
    const bool progress = window.ShownForm().FindAs<Timer>("Timer1") != nullptr;
    EXPECT_EQ(HasButton(window.ShownForm(), &CommandButton::Default), !progress);
    // A form may begin elsewhere than at its first control, and it may keep Tab to itself nowhere.
    const std::vector<std::string> way = TabWay();
    std::vector<std::string> told = ToldWay(window, way);
    ASSERT_FALSE(way.empty());
    const auto first = std::ranges::find(told, way.front());
    ASSERT_NE(first, told.end());
    std::ranges::rotate(told, first);
    EXPECT_EQ(way, told);
  });
  EXPECT_GE(forms, 20);
}

INSTANTIATE_TEST_SUITE_P(Languages, KeyboardTest,
                         ::testing::Values(testing::Drawing{}, testing::Drawing{.german = true}),
                         [](const auto& language) { return language.param.german ? "German" : "English"; });

}  // namespace
}  // namespace tessarine
