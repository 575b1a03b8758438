// SPDX-License-Identifier: GPL-2.0-or-later
// Controls and forms, as code and a view's user act on them.
#include "platform/form.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "helpers/shapes.h"
#include "helpers/test_host.h"

namespace tessarine {
namespace {

using testing::FaultOf;
using testing::TestHost;

// A dialog with one of each control; it writes down what happens to it.
class SampleForm final : public Form {
 public:
  SampleForm() : Form("frmSample") {
    optInner.SetContainer(fraGroup);
    optInnerToo.SetContainer(fraGroup);
    SetSize(200.0, 100.0);
  }

  Frame fraGroup{*this, "fraGroup"};
  OptionButton optOuter{*this, "optOuter"}, optOuterToo{*this, "optOuterToo"};
  OptionButton optInner{*this, "optInner"}, optInnerToo{*this, "optInnerToo"};
  CheckBox chkZoom{*this, "chkZoom"};
  TextBox txtName{*this, "txtName"};
  RichTextBox rtbReport{*this, "rtbReport"};
  ListBox lbxLayers{*this, "lbxLayers"};
  ComboBox cbxFields{*this, "cbxFields"};
  CommandButton cmdOK{*this, "cmdOK"};
  std::vector<std::string> log;

 protected:
  void Form_Load() override { log.emplace_back("load"); }
  void Form_Resize() override { log.emplace_back("resize"); }
  void Form_Unload() override { log.emplace_back("unload"); }
  void Form_QueryUnload() override { log.emplace_back("query"); }
};

TEST(Controls, AChangedValueFiresOnce) {
  SampleForm form;
  int clicks = 0, changes = 0;
  form.chkZoom.Click = [&] { ++clicks; };
  form.on_changed = [&](Control* control) { changes += control == &form.chkZoom ? 1 : 0; };
  form.chkZoom.SetValue(CheckBox::kChecked);
  form.chkZoom.SetValue(CheckBox::kChecked);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(changes, 1);
  form.chkZoom.SetEnabled(true);
  form.chkZoom.SetVisible(true);
  form.chkZoom.SetForeColor(kWindowText);
  EXPECT_EQ(changes, 1) << "nothing changed";
  form.chkZoom.SetEnabled(false);
  form.chkZoom.Move(1.0, 2.0, 3.0, 4.0);
  form.chkZoom.Move(1.0, 2.0, 3.0, 4.0);
  EXPECT_EQ(changes, 3);
}

TEST(Controls, OptionButtonsExcludeEachOtherInsideOneContainer) {
  SampleForm form;
  std::string clicked;
  form.optOuter.Click = [&] {
    clicked += "outer ";
    EXPECT_FALSE(form.optOuterToo.Value()) << "the others are cleared before the click";
  };
  form.optOuterToo.Click = [&] { clicked += "too "; };
  form.optInner.Click = [&] { clicked += "inner "; };
  form.optOuterToo.SetValue(true);
  form.optInner.SetValue(true);
  form.optOuter.SetValue(true);
  EXPECT_EQ(clicked, "too inner outer ");
  EXPECT_TRUE(form.optInner.Value()) << "another container";
  EXPECT_FALSE(form.optOuterToo.Value());
  form.optInnerToo.SetValue(true);
  EXPECT_FALSE(form.optInner.Value());
  EXPECT_TRUE(form.optOuter.Value());
}

TEST(Controls, AButtonIsPressedOnlyWhereAMouseCould) {
  SampleForm form;
  int clicks = 0;
  form.cmdOK.Press();
  form.cmdOK.Click = [&] { ++clicks; };
  form.cmdOK.Press();
  form.cmdOK.SetEnabled(false);
  form.cmdOK.Press();
  form.cmdOK.SetEnabled(true);
  form.cmdOK.SetVisible(false);
  form.cmdOK.Press();
  EXPECT_EQ(clicks, 1);
}

TEST(Controls, AListWithOneSelectedLine) {
  SampleForm form;
  ListBox& list = form.lbxLayers;
  int clicks = 0;
  list.Click = [&] { ++clicks; };
  for (const char* item : {"a", "b", "c"}) list.AddItem(item);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.SelCount(), 0);
  list.SetListIndex(1);
  EXPECT_TRUE(list.Selected(1));
  list.SetSelected(2, true);
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_EQ(list.SelCount(), 1);
  list.SetSelected(2, true);
  EXPECT_EQ(clicks, 2);
  list.SetSelected(2, false);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.List(0), "a");
  EXPECT_EQ(FaultOf([&] { (void)list.List(3); }), kInvalidCall);
  EXPECT_EQ(FaultOf([&] { list.SetListIndex(-2); }), kInvalidCall);
  EXPECT_EQ(FaultOf([&] { (void)list.Selected(-1); }), kInvalidCall);
  list.SetListIndex(0);
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST(Controls, AListWithSeveralSelectedLines) {
  SampleForm form;
  ListBox& list = form.lbxLayers;
  list.MultiSelect = true;
  for (const char* item : {"a", "b", "c"}) list.AddItem(item);
  int clicks = 0;
  list.Click = [&] { ++clicks; };
  list.SetSelected(0, true);
  list.SetSelected(2, true);
  EXPECT_EQ(list.SelCount(), 2);
  EXPECT_EQ(list.ListIndex(), 2);
  list.SetSelected(0, false);
  EXPECT_EQ(list.SelCount(), 1);
  EXPECT_EQ(clicks, 3);
  list.SetListIndex(1);
  EXPECT_FALSE(list.Selected(1)) << "the focus line is not the selection";
  EXPECT_TRUE(list.Selected(2));
}

TEST(Controls, AComboBoxKeepsTextAndIndexTogether) {
  SampleForm form;
  ComboBox& combo = form.cbxFields;
  std::string events;
  combo.Click = [&] { events += "click "; };
  combo.Change = [&] { events += "change "; };
  combo.AddItem("<None>");
  combo.AddItem("Length");
  combo.SetListIndex(1);
  EXPECT_EQ(combo.Text(), "Length");
  combo.SetText("<None>");
  EXPECT_EQ(combo.ListIndex(), 0);
  combo.SetText("my own");
  EXPECT_EQ(combo.ListIndex(), -1);
  combo.SetText("my own");
  EXPECT_EQ(events, "click change change ");
  EXPECT_EQ(FaultOf([&] { combo.SetListIndex(2); }), kInvalidCall);
  EXPECT_EQ(combo.Text(), "my own");
}

TEST(Controls, AClearedDropDownListShowsNoText) {
  SampleForm form;
  form.cbxFields.DropDownList = true;
  form.cbxFields.AddItem("Length");
  form.cbxFields.SetListIndex(0);
  form.cbxFields.Clear();
  EXPECT_EQ(form.cbxFields.Text(), "");
  form.cbxFields.AddItem("Area");
  form.cbxFields.SetListIndex(0);
  form.cbxFields.SetListIndex(-1);
  EXPECT_EQ(form.cbxFields.Text(), "");
}

TEST(Controls, TypingGoesThroughKeyPressToTheCaret) {
  SampleForm form;
  TextBox& box = form.txtName;
  std::vector<std::string> seen;
  box.KeyPress = [](std::int32_t& key) {
    if (key == '-') key = 0;
  };
  box.Change = [&] { seen.push_back(box.Text() + "|" + std::to_string(box.SelStart())); };
  box.Type("1-2é");
  EXPECT_EQ(seen, (std::vector<std::string>{"1|1", "12|2", "12é|3"}));
  box.Type("\b");
  EXPECT_EQ(box.Text(), "12");
  box.SetSelStart(0);
  box.SetSelLength(1);
  box.Type("9");
  EXPECT_EQ(box.Text(), "92");
  EXPECT_EQ(box.SelStart(), 1);
  box.SetSelStart(0);
  box.Type("\b");
  EXPECT_EQ(box.Text(), "92") << "nothing stands before the caret";
  box.SetSelLength(2);
  box.Type("\b");
  EXPECT_EQ(box.Text(), "");
  box.Locked = true;
  box.Type("x");
  EXPECT_EQ(box.Text(), "");
  box.SetText("from code");
  EXPECT_EQ(seen.back(), "from code|0");
}

TEST(Controls, RichAndPlainTextFollowEachOther) {
  SampleForm form;
  form.rtbReport.SetTextRTF(R"({\rtf1{\b Bold}\par caf\'e9})");
  EXPECT_EQ(form.rtbReport.Text(), "Bold\ncafé");
  form.rtbReport.SetText("{x}");
  EXPECT_TRUE(form.rtbReport.TextRTF().starts_with("{\\rtf"));
  EXPECT_NE(form.rtbReport.TextRTF().find("\\{x\\}"), std::string::npos);
}

TEST(Forms, FindControlsByNameIgnoringCase) {
  SampleForm form;
  EXPECT_EQ(form.Find("CMDok"), &form.cmdOK);
  EXPECT_EQ(form.FindAs<TextBox>("cmdOK"), nullptr);
  EXPECT_EQ(form.Find("cmdCancel"), nullptr);
  EXPECT_EQ(form.Controls().size(), 11U);
  form.fraGroup.Move(0.0, 0.0, 80.0, 40.0);
  EXPECT_EQ(form.optInner.Container().Width(), 80.0);
  EXPECT_EQ(form.optOuter.Container().Width(), 200.0);
}

TEST(Forms, FocusLeavesBeforeItArrives) {
  SampleForm form;
  std::string events;
  form.txtName.GotFocus = [&] { events += "+name "; };
  form.txtName.LostFocus = [&] { events += "-name "; };
  form.cmdOK.GotFocus = [&] { events += "+ok "; };
  form.txtName.SetFocus();
  form.txtName.SetFocus();
  form.cmdOK.SetFocus();
  EXPECT_EQ(events, "+name -name +ok ");
  EXPECT_EQ(form.ActiveControl(), &form.cmdOK);
}

TEST(Forms, LoadOnceUntilTheyAreUnloaded) {
  TestHost host;
  SampleForm form;
  form.Resize(300.0, 100.0);
  host.forms.modal = [](Form& shown) {
    EXPECT_TRUE(shown.Visible());
    shown.Resize(400.0, 100.0);
    shown.Resize(400.0, 100.0);
    shown.Hide();
  };
  form.ShowModal();
  EXPECT_TRUE(form.Loaded()) << "hidden, not unloaded";
  EXPECT_FALSE(form.Visible());
  form.ShowModal();
  EXPECT_EQ(form.log, (std::vector<std::string>{"load", "resize"}));
  form.log.clear();
  host.forms.modal = nullptr;
  form.ShowModal();
  form.Unload();
  EXPECT_EQ(form.log, (std::vector<std::string>{"query", "unload"}));
  form.ShowModeless();
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(form.log.back(), "load");
  EXPECT_EQ(host.forms.shown.size(), 4U);
}

}  // namespace
}  // namespace tessarine
