// SPDX-License-Identifier: GPL-2.0-or-later
// The view of forms: what the user's input does, and what code's changes show.
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTextBrowser>

#include "helpers/temporary_folder.h"
#include "hosts/windows/manual_window.h"
#include "support/frmReport_modal.h"
#include "tests/hosts/windows/windows_fixture.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FormWindowTest : public testing::WindowsTest {
 protected:
  testing::LogForm form;

  template <class Widget>
  static Widget& Of(FormWindow& window, const char* name) {
    return *qobject_cast<Widget*>(window.WidgetOf(name));
  }
};

TEST_F(FormWindowTest, TypingGoesThroughTheFilterThenChangesThenLosesTheFocusBeforeAClick) {
  Show(form, [&](FormWindow& window) {
    auto& box = Of<QLineEdit>(window, "txtNumber");
    EXPECT_TRUE(box.hasFocus());
    EXPECT_THAT(form.TakeLog(), ElementsAre("got txtNumber"));
    QTest::keyClicks(&box, "a1");
    EXPECT_THAT(form.TakeLog(), ElementsAre("key 97", "key 49", "change 1 at 1"));
    QTest::keyClick(&box, Qt::Key_Home);
    QTest::keyClicks(&box, "2");
    QTest::keyClick(&box, Qt::Key_Backspace);
    EXPECT_THAT(form.TakeLog(), ElementsAre("key 50", "change 21 at 1", "key 8", "change 1 at 0"));
    QTest::mouseClick(window.WidgetOf("cmdOK"), Qt::LeftButton);
    EXPECT_THAT(form.TakeLog(), ElementsAre("lost txtNumber", "got cmdOK", "ok"));
    QTest::keyClick(&window, Qt::Key_N, Qt::AltModifier);
    EXPECT_THAT(form.TakeLog(), ElementsAre("lost cmdOK", "got txtNumber"));
    QTest::keyClick(&box, Qt::Key_G, Qt::AltModifier);
    EXPECT_THAT(form.TakeLog(), ElementsAre("lost txtNumber", "got cmdOK", "ok"));
  });
}

TEST_F(FormWindowTest, WhatIsPastedOrSetByCodeKeepsTheFilterAndIsShown) {
  Show(form, [&](FormWindow& window) {
    auto& box = Of<QLineEdit>(window, "txtNumber");
    form.txtNumber.SetText("19");
    form.txtNumber.SetSelStart(1);
    QApplication::clipboard()->setText("x2y3");
    window.Flush();
    EXPECT_EQ(box.text(), "19");
    box.paste();
    EXPECT_EQ(form.txtNumber.Text(), "1239");
    window.Flush();
    EXPECT_EQ(box.text(), "1239");
    EXPECT_EQ(box.cursorPosition(), 3);
    form.txtNumber.SetSelStart(0);
    form.txtNumber.SetSelLength(2);
    form.txtNumber.SetEnabled(false);
    form.lblNumber.SetCaption("&Count:");
    form.cmdOK.SetVisible(false);
    QCoreApplication::processEvents();
    EXPECT_EQ(box.selectedText(), "12");
    EXPECT_FALSE(box.isEnabled());
    EXPECT_EQ(Of<QLabel>(window, "lblNumber").text(), "&Count:");
    EXPECT_FALSE(window.WidgetOf("cmdOK")->isVisible());
  });
}

TEST_F(FormWindowTest, ListsAndBoxesTellEachChoiceOnceAndFollowCode) {
  Show(form, [&](FormWindow& window) {
    form.TakeLog();
    auto& list = Of<QListView>(window, "lbxFields");
    for (const int line : {0, 2, 0}) {
      QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(line, 0)).center());
    }
    EXPECT_THAT(form.TakeLog(), ElementsAre("lost txtNumber", "got lbxFields", "fields 1", "fields 2", "fields 1"));
    form.lbxFields.SetSelected(1, true);
    form.lbxFields.AddItem("zone");
    window.Flush();
    EXPECT_EQ(list.model()->rowCount(), 4);
    EXPECT_EQ(list.selectionModel()->selectedIndexes().size(), 2);
    EXPECT_THAT(form.TakeLog(), ElementsAre("fields 2"));

    auto& combo = Of<QComboBox>(window, "cbxKind");
    combo.setFocus();
    QTest::keyClicks(&combo, "ab");
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_THAT(form.TakeLog(), ElementsAre("lost lbxFields", "got cbxKind", "typed a", "typed ab", "kind point"));
    form.cbxKind.SetText("area");
    window.Flush();
    EXPECT_EQ(combo.currentText(), "area");

    QTest::keyClick(&window, Qt::Key_A, Qt::AltModifier);
    QTest::keyClick(window.WidgetOf("chkAll"), Qt::Key_Space);
    form.chkAll.SetValue(CheckBox::kGrayed);
    window.Flush();
    EXPECT_EQ(Of<QCheckBox>(window, "chkAll").checkState(), Qt::PartiallyChecked);
    EXPECT_THAT(form.TakeLog(), ElementsAre("typed area", "lost cbxKind", "got chkAll", "all 1", "all 0", "all 2"));
  });
}

TEST_F(FormWindowTest, ReturnIsTheDefaultEscapeTheCancelAndTheTitleBarTheFormsOwnWay) {
  Show(form, [&](FormWindow& window) {
    form.TakeLog();
    QTest::keyClick(window.WidgetOf("txtNumber"), Qt::Key_Return);
    QTest::keyClick(window.WidgetOf("lbxFields"), Qt::Key_Enter);
    EXPECT_THAT(form.TakeLog(), ElementsAre("ok", "ok"));
    form.cmdOK.SetEnabled(false);
    QTest::keyClick(window.WidgetOf("txtNumber"), Qt::Key_Return);
    EXPECT_THAT(form.TakeLog(), IsEmpty());
    QTest::keyClick(window.WidgetOf("txtNumber"), Qt::Key_Escape);
    EXPECT_TRUE(window.Concealed());
  });
  EXPECT_THAT(form.TakeLog(), ElementsAre("cancel", "unload"));
  Show(form, [&](FormWindow& window) {
    form.TakeLog();
    window.close();
  });
  EXPECT_THAT(form.TakeLog(), ElementsAre("query unload", "unload"));
  EXPECT_FALSE(form.Visible());
}

TEST_F(FormWindowTest, ReturnAndEscapeWorkFromEveryControl) {
  for (const char* name : {"txtNumber", "cbxKind", "lbxFields", "chkAll", "cmdOK"}) {
    SCOPED_TRACE(name);
    Show(form, [&](FormWindow& window) {
      window.WidgetOf(name)->setFocus();
      form.TakeLog();
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
      EXPECT_THAT(form.TakeLog(), ElementsAre("ok"));
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
      EXPECT_THAT(form.TakeLog(), ElementsAre("cancel", "unload"));
    });
  }
  form.cmdOK.Default = false;
  Show(form, [&](FormWindow& window) {
    window.WidgetOf("txtNumber")->setFocus();
    form.TakeLog();
    EXPECT_FALSE(Of<QPushButton>(window, "cmdOK").isDefault()) << "no button looks as if Return pressed it";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_THAT(form.TakeLog(), IsEmpty());
    window.WidgetOf("cmdCancel")->setFocus();
    form.TakeLog();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_THAT(form.TakeLog(), ElementsAre("cancel", "unload"));
  });
}

TEST_F(FormWindowTest, AListOfOneChoiceKeepsIt) {
  form.lbxFields.MultiSelect = false;
  Show(form, [&](FormWindow& window) {
    auto& list = Of<QListView>(window, "lbxFields");
    for (const Qt::KeyboardModifiers keys : {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ControlModifier)}) {
      QTest::mouseClick(list.viewport(), Qt::LeftButton, keys, list.visualRect(list.model()->index(1, 0)).center());
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(form.lbxFields.ListIndex(), 1);
    ASSERT_EQ(list.selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(list.selectionModel()->selectedIndexes().first().row(), 1);
  });
}

TEST_F(FormWindowTest, TheUsersSizeLaysTheFormOutAndCodesSizeMovesTheWindow) {
  Show(form, [&](FormWindow& window) {
    EXPECT_EQ(window.windowTitle(), "Log:");
    const DialogUnits units = window.Units();
    EXPECT_EQ(window.size(), units.Size(200, 120));
    EXPECT_EQ(window.minimumSize(), units.Size(100, 80));
    window.resize(units.Size(300, 150));
    QCoreApplication::processEvents();
    EXPECT_NEAR(form.Width(), 300, 0.5);
    EXPECT_NEAR(form.lbxFields.Width(), 140, 0.5);
    EXPECT_EQ(window.WidgetOf("lbxFields")->width(), units.Rect(7, 24, form.lbxFields.Width(), 60).width());
    form.Resize(240, 100);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.size(), units.Size(240, 100));
  });
}

TEST_F(FormWindowTest, AModalFormWaitsAndAFaultInItsEventIsReported) {
  form.cmdOK.Click = [] { Raise(kInvalidCall, "No layer."); };
  WhenModal([&](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "LogForm");
    Click(dialog, "cmdOK");
    WhenModal([&](QWidget& errors) {
      EXPECT_EQ(errors.objectName(), "ErrorDialog");
      Click(errors, "cmdCopy");
      Click(errors, "cmdClose");
      Click(dialog, "cmdCancel");
    });
  });
  form.ShowModal();
  EXPECT_FALSE(form.Loaded());
  EXPECT_THAT(QApplication::clipboard()->text().toStdString(),
              ::testing::AllOf(::testing::HasSubstr("cmdOK"), ::testing::HasSubstr("No layer.")));
}

TEST_F(FormWindowTest, AModelessFrameKeepsItsFormUntilItsWindowCloses) {
  auto kept = std::make_shared<testing::LogForm>();
  const std::weak_ptr<Form> watched = kept;
  const auto frame = host.CreateModelessFrame();
  frame->Create(kept);
  frame->SetCaption(" Current Status:");
  kept->Load();
  frame->SetVisible(true);
  kept->ShowModeless();
  FormWindow* window = host.FormWindows().WindowOf(*kept);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->windowTitle(), "Current Status:");
  kept = nullptr;
  QCoreApplication::processEvents();
  ASSERT_FALSE(watched.expired());
  EXPECT_TRUE(frame->Visible());
  window->close();
  EXPECT_FALSE(frame->Visible());
  QCoreApplication::processEvents();
  EXPECT_TRUE(watched.expired());
  frame->SetVisible(true);  // nothing is there to show
  EXPECT_FALSE(frame->Visible());
}

TEST_F(FormWindowTest, AModelessWindowOutlivesTheDialogThatItStandsOver) {
  auto dialog = std::make_unique<QDialog>();
  dialog->setWindowModality(Qt::ApplicationModal);
  dialog->show();
  ASSERT_EQ(QApplication::activeModalWidget(), dialog.get());
  auto kept = std::make_shared<testing::LogForm>();
  const auto frame = host.CreateModelessFrame();
  frame->Create(kept);
  frame->SetVisible(true);
  FormWindow* window = host.FormWindows().WindowOf(*kept);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->parentWidget(), dialog.get());
  dialog = nullptr;
  EXPECT_EQ(window->parentWidget(), nullptr);
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(frame->Visible());
  frame->SetVisible(false);
  QCoreApplication::processEvents();
  EXPECT_FALSE(frame->Visible());
}

TEST_F(FormWindowTest, DuringARunThePumpReachesTheSuitesWindowsAlone) {
  QPushButton foreign;
  int foreign_clicks = 0;
  QObject::connect(&foreign, &QPushButton::clicked, [&] { ++foreign_clicks; });
  foreign.show();
  auto kept = std::make_shared<testing::LogForm>();
  host.CreateModelessFrame()->Create(kept);
  kept->ShowModeless();
  auto* own = host.FormWindows().WindowOf(*kept)->WidgetOf("cmdOK");
  const auto click = [](QWidget* widget) {
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QCoreApplication::postEvent(
          widget, new QMouseEvent(type, widget->rect().center(), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    }
  };
  {
    const WindowHost::CommandScope scope(host);
    EXPECT_TRUE(host.Running());
    click(&foreign);
    click(own);
    host.PumpEvents();
    EXPECT_EQ(foreign_clicks, 0);
    EXPECT_EQ(kept->log.back(), "ok");
  }
  click(&foreign);
  host.PumpEvents();
  EXPECT_EQ(foreign_clicks, 1);
  kept->Unload();
}

TEST_F(FormWindowTest, APumpWithinThePumpLeavesTheGateClosed) {
  QPushButton foreign;
  int foreign_clicks = 0, inner_pumps = 0;
  QObject::connect(&foreign, &QPushButton::clicked, [&] { ++foreign_clicks; });
  foreign.show();
  const WindowHost::CommandScope scope(host);
  QTimer::singleShot(0, qApp, [&] {
    ++inner_pumps;
    host.PumpEvents();
    // Comes up in what is left of the outer pump.
    QTimer::singleShot(0, qApp, [&] { QTest::mouseClick(&foreign, Qt::LeftButton); });
    QTest::mouseClick(&foreign, Qt::LeftButton);
  });
  for (int round = 0; round < 3; ++round) host.PumpEvents();
  EXPECT_EQ(inner_pumps, 1);
  EXPECT_EQ(foreign_clicks, 0);
}

TEST_F(FormWindowTest, TheCaretOfAnEditableListStaysWhereTheUserTypesOrPastes) {
  Show(form, [&](FormWindow& window) {
    auto& line = *Of<QComboBox>(window, "cbxKind").lineEdit();
    line.setFocus();
    QTest::keyClicks(&line, "depth");
    line.setCursorPosition(2);
    QTest::keyClicks(&line, "a");
    window.Flush();
    EXPECT_EQ(line.text(), "deapth");
    EXPECT_EQ(line.cursorPosition(), 3);
    QApplication::clipboard()->setText("xyz");
    line.paste();
    window.Flush();
    EXPECT_EQ(line.text(), "deaxyzpth");
    EXPECT_EQ(line.cursorPosition(), 6);
  });
}

TEST_F(FormWindowTest, HelpOpensTheChapterOfTheForm) {
  const testing::TemporaryFolder manual;
  std::string lines;
  for (int line = 0; line < 200; ++line) lines += "- line\n";
  manual.Write("index.md", "# Contents\n\n[Runs](runs.md)\n");
  manual.Write("runs.md", "# Runs\n\n" + std::string(4000, 'x') + "\n\n## The report\n\n" + lines);
  host.FormWindows().SetManualFolder(ToQt(manual.Native()));
  const auto manual_of = [](FormWindow& window) { return window.findChild<ManualWindow*>(); };
  Show(form, [&](FormWindow& window) {
    QTest::keyClick(window.WidgetOf("txtNumber"), Qt::Key_F1);
    ASSERT_NE(manual_of(window), nullptr);
    EXPECT_EQ(manual_of(window)->findChild<QTextBrowser*>()->toPlainText(), "Contents\nRuns");
    QEvent question(QEvent::EnterWhatsThisMode);
    QApplication::sendEvent(&window, &question);
    EXPECT_EQ(window.findChildren<ManualWindow*>().size(), 1);
  });
  frmReport_modal report;
  Show(report, [&](FormWindow& window) {
    QTest::keyClick(window.WidgetOf("txtReport"), Qt::Key_F1);
    ASSERT_NE(manual_of(window), nullptr);
    EXPECT_EQ(manual_of(window)->FirstLine(), "The report");
  });
}

TEST_F(FormWindowTest, ADecimalCommaIsAPointInANumberBox) {
  struct Row {
    const char *pasted, *number;
  };
  const Row rows[] = {{"2,5", "2.5"},           {"-0,125", "-0.125"}, {"1.234,5", "1234.5"},     {"1,234.5", "1234.5"},
                      {"1,234,567", "1234567"}, {"12.5", "12.5"},     {"6378137,0", "6378137.0"}};
  for (const bool filtered : {true, false}) {
    form.txtNumber.Numeric = true;
    form.txtNumber.KeyPress = nullptr;
    if (filtered) {
      form.txtNumber.KeyPress = [](std::int32_t& key) {
        if (key != 8 && key != '.' && key != '-' && (key < '0' || key > '9')) key = 0;
      };
    }
    for (const Row& row : rows) {
      form.txtNumber.SetText("");
      Show(form, [&](FormWindow& window) {
        auto& box = Of<QLineEdit>(window, "txtNumber");
        QApplication::clipboard()->setText(row.pasted);
        box.paste();
        EXPECT_EQ(form.txtNumber.Text(), row.number) << filtered;
        window.Flush();
        EXPECT_EQ(box.text(), row.number);
      });
    }
    form.txtNumber.SetText("25");
    Show(form, [&](FormWindow& window) {
      auto& box = Of<QLineEdit>(window, "txtNumber");
      QTest::keyClick(&box, Qt::Key_Home);
      QTest::keyClick(&box, Qt::Key_Right);
      QTest::keyClicks(&box, ",75");
      EXPECT_EQ(form.txtNumber.Text(), "2.755") << filtered;
    });
  }
}

class ButtonsForm final : public Form {
 public:
  ButtonsForm() : Form("ButtonsForm") {
    SetSize(200, 300);
    std::int32_t index = 0;
    for (CommandButton* button : {&cmdLoad, &cmdOther, &cmdOK}) {
      button->SetCaption(button->Name());
      button->SetTabIndex(index++);
      button->Click = [this, button] { pressed.push_back(button->Name()); };
    }
    cmdLoad.Move(7, 7, 60, 14);
    cmdOther.Move(7, 200, 60, 14);
    cmdOK.Move(130, 280, 60, 14);
    lblBeside.SetCaption("beside");
    lblBeside.Move(7, 282, 60, 9);
    cmdOK.Default = true;
  }
  CommandButton cmdLoad{*this, "cmdLoad"}, cmdOther{*this, "cmdOther"}, cmdOK{*this, "cmdOK"};
  Label lblBeside{*this, "lblBeside"};
  std::vector<std::string> pressed;
};

TEST_F(FormWindowTest, EnterIsForTheDefaultUntilTheUserGoesToAButton) {
  ButtonsForm buttons;
  Show(buttons, [&](FormWindow& window) {
    auto& load = Of<QPushButton>(window, "cmdLoad");
    EXPECT_TRUE(load.hasFocus());
    QTest::keyClick(&load, Qt::Key_Return);
    EXPECT_THAT(buttons.pressed, ElementsAre("cmdOK"));
    QTest::keyClick(&load, Qt::Key_Space);
    EXPECT_THAT(buttons.pressed, ElementsAre("cmdOK", "cmdLoad"));
    QTest::keyClick(&load, Qt::Key_Tab);
    QTest::keyClick(window.WidgetOf("cmdOther"), Qt::Key_Return);
    EXPECT_EQ(buttons.pressed.back(), "cmdOther");
    QTest::keyClick(window.WidgetOf("cmdOther"), Qt::Key_Backtab);
    QTest::keyClick(&load, Qt::Key_Return);
    EXPECT_EQ(buttons.pressed.back(), "cmdLoad");
  });
}

TEST_F(FormWindowTest, ButtonsStayInViewOnASmallScreen) {
  ButtonsForm buttons;
  const QSize room(1024, 300);
  FormWindow window(buttons, nullptr, room);
  window.Appear();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_LE(window.height(), room.height());
  const auto in_view = [&](const char* name) {
    QWidget* widget = window.WidgetOf(name);
    return window.rect().contains(QRect(widget->mapTo(&window, QPoint()), widget->size())) &&
           !widget->visibleRegion().isEmpty();
  };
  EXPECT_TRUE(in_view("cmdOK"));
  EXPECT_TRUE(in_view("lblBeside"));
  EXPECT_TRUE(in_view("cmdLoad"));
  EXPECT_FALSE(in_view("cmdOther"));
  QTest::mouseClick(window.WidgetOf("cmdOK"), Qt::LeftButton);
  EXPECT_THAT(buttons.pressed, ElementsAre("cmdOK"));
  // The focus scrolls what is above.
  QTest::keyClick(window.WidgetOf("cmdOK"), Qt::Key_Backtab);
  EXPECT_TRUE(in_view("cmdOther"));
  EXPECT_TRUE(in_view("cmdOK"));
  EXPECT_EQ(buttons.Height(), 300.0);
  window.Conceal();
}

}  // namespace
}  // namespace tessarine
