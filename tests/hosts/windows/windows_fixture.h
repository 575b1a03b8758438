// SPDX-License-Identifier: GPL-2.0-or-later
// Tests of windows: Qt without a screen, a host, and a form with a log.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "helpers/reported_faults.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/sample_forms.h"

namespace tessarine::testing {

/// A form of a few controls that writes down what happens to it.
class LogForm final : public Form {
 public:
  LogForm() : Form("LogForm") {
    SetCaption(" Log:");
    SetSize(200, 120);
    SetMinimumSize(100, 80);
    lblNumber.SetCaption("&Number:");
    lblNumber.Move(7, 7, 40, 9);
    txtNumber.Move(50, 5, 60, 13);
    cbxKind.Move(120, 5, 70, 13);
    lbxFields.Move(7, 24, 90, 60);
    cmdOK.Move(80, 100, 50, 14);
    cmdCancel.Move(140, 100, 50, 14);
    chkAll.Move(110, 40, 60, 11);
    cmdOK.SetCaption("&Go");
    cmdCancel.SetCaption("Cancel");
    chkAll.SetCaption("&All");
    cmdOK.Default = true;
    cmdCancel.Cancel = true;
    lbxFields.MultiSelect = true;
    for (const char* line : {"area", "name", "year"}) lbxFields.AddItem(line);
    for (const char* line : {"point", "line"}) cbxKind.AddItem(line);
    std::int32_t index = 0;
    for (Control* control :
         std::initializer_list<Control*>{&lblNumber, &txtNumber, &cbxKind, &lbxFields, &chkAll, &cmdOK, &cmdCancel}) {
      control->SetTabIndex(index++);
      control->GotFocus = [this, control] { log.push_back("got " + control->Name()); };
      control->LostFocus = [this, control] { log.push_back("lost " + control->Name()); };
    }
    txtNumber.KeyPress = [this](std::int32_t& key) {
      log.push_back("key " + std::to_string(key));
      if (key != 8 && (key < '0' || key > '9')) key = 0;
    };
    txtNumber.Change = [this] {
      log.push_back("change " + txtNumber.Text() + " at " + std::to_string(txtNumber.SelStart()));
    };
    cbxKind.Click = [this] { log.push_back("kind " + cbxKind.Text()); };
    cbxKind.Change = [this] { log.push_back("typed " + cbxKind.Text()); };
    lbxFields.Click = [this] { log.push_back("fields " + std::to_string(lbxFields.SelCount())); };
    chkAll.Click = [this] { log.push_back("all " + std::to_string(chkAll.Value())); };
    cmdOK.Click = [this] { log.push_back("ok"); };
    cmdCancel.Click = [this] { log.push_back("cancel"), Unload(); };
  }

  Label lblNumber{*this, "lblNumber"};
  TextBox txtNumber{*this, "txtNumber"};
  ComboBox cbxKind{*this, "cbxKind"};
  ListBox lbxFields{*this, "lbxFields"};
  CheckBox chkAll{*this, "chkAll"};
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdCancel{*this, "cmdCancel"};
  std::vector<std::string> log;

  std::vector<std::string> TakeLog() { return std::exchange(log, {}); }

 protected:
  void Form_Resize() override { lbxFields.Move(7, 24, Width() / 2 - 10, 60); }
  void Form_QueryUnload() override { log.emplace_back("query unload"); }
  void Form_Unload() override { log.emplace_back("unload"); }
};

class WindowsTest : public ::testing::Test {
 protected:
  QtSession qt;
  SampleHost host;
  ReportedFaults reported;

  /// Shows a form and lets the user act on its window; what is left open is closed by its title bar.
  template <class User>
  void Show(Form& form, User&& user) {
    host.FormWindows().on_opened = [&](FormWindow& window) {
      host.FormWindows().on_opened = nullptr;
      (void)QTest::qWaitForWindowActive(&window);
      user(window);
      if (!window.Concealed()) window.close();
    };
    form.ShowModal();
  }
  /// Plans what the user does once the next dialog of the host waits.
  template <class Act>
  static void WhenModal(Act&& act) {
    QTimer::singleShot(0, qApp, [act] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (dialog == nullptr) {
        WhenModal(act);
      } else {
        act(*dialog);
      }
    });
  }
  static void Click(QWidget& dialog, const char* name) {
    auto* button = dialog.findChild<QAbstractButton*>(QLatin1String(name));
    ASSERT_NE(button, nullptr) << name;
    QTest::mouseClick(button, Qt::LeftButton);
  }
};

}  // namespace tessarine::testing
