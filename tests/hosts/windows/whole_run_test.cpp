// SPDX-License-Identifier: GPL-2.0-or-later
// Whole pieces of work in windows: a conversion from its dialog to its report, and the progress of a long run.
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QTextCursor>
#include <QTextEdit>

#include "helpers/fake_application.h"
#include "helpers/temporary_folder.h"
#include "hosts/document/document_application.h"
#include "hosts/document/document_file.h"
#include "platform/paths.h"
#include "session/clsExtension.h"
#include "support/frmOrlProgressMeter.h"
#include "support/frmReport_modal.h"
#include "support/progress_bail_out.h"
#include "tests/hosts/windows/windows_fixture.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class WholeRunTest : public testing::WindowsTest {
 protected:
  // The progress window of a run of so many records, as a run opens it.
  std::shared_ptr<frmOrlProgressMeter> OpenProgress(std::int32_t records) {
    auto form = std::make_shared<frmOrlProgressMeter>();
    form->SetShouldContinue(true);
    form->SetProgBeginTime(host.Clock().Now());
    form->SetProgRecCount(records);
    form->Load();
    form->Frame()->SetVisible(true);
    form->ShowModeless();
    return form;
  }
};

TEST_F(WholeRunTest, AConversionGoesFromItsDialogToItsReport) {
  const testing::TemporaryFolder folder;
  const auto document = ReadDocumentFile(TESSARINE_TEST_DATA "/graphics.json");
  const auto application = std::make_shared<DocumentApplication>(document, std::make_shared<testing::FakeStatusBar>());
  application->Start();
  std::vector<std::string> opened;
  std::string report;
  host.FormWindows().on_opened = [&](FormWindow& window) {
    opened.push_back(window.ShownForm().Name());
    (void)QTest::qWaitForWindowActive(&window);
    if (opened.size() == 1) {
      auto* output = qobject_cast<QLineEdit*>(window.WidgetOf("txtOutput"));
      output->selectAll();
      QTest::keyClicks(output, ToQt(folder.Native("vertices.shp")));
      EXPECT_EQ(window.ShownForm().FindAs<TextBox>("txtOutput")->Text(), folder.Path("vertices.shp"));
      EXPECT_EQ(output->text().toStdString(), folder.Native("vertices.shp"));
      Click(window, "cmdSelFields");
      Click(window, "cmdOK");
    } else {
      report = qobject_cast<QTextEdit*>(window.WidgetOf("txtReport"))->toPlainText().toStdString();
      QTest::keyClick(&window, Qt::Key_Escape);
    }
    EXPECT_TRUE(window.Concealed());
  };
  {
    const WindowHost::CommandScope scope(host);
    EXPECT_TRUE(application->Click("Tessarine.clsShapesToVertices"));
  }
  application->Stop();
  EXPECT_THAT(opened, ElementsAre("frmLayerFields", "frmReport_modal"));
  EXPECT_THAT(report, HasSubstr(folder.Native("vertices.shp")));
  EXPECT_TRUE(folder.Has("vertices.dbf"));
}

TEST_F(WholeRunTest, AReportIsShownInTheSizeOfTheWindowsFontWhetherItIsRichTextOrPlain) {
  for (const std::string& text : {std::string("FUNCTION FAILED:  This layer"), testing::SampleReport()}) {
    frmReport_modal form;
    form.txtReport.SetTextRTF(text);
    Show(form, [](FormWindow& window) {
      QTextCursor cursor(qobject_cast<QTextEdit*>(window.WidgetOf("txtReport"))->document());
      cursor.movePosition(QTextCursor::NextCharacter);
      EXPECT_DOUBLE_EQ(cursor.charFormat().fontPointSize(), QFontInfo(window.font()).pointSizeF());
    });
  }
}

TEST_F(WholeRunTest, TheProgressWindowStopsTheRunAndShowsOrHidesItsLog) {
  const auto application = std::make_shared<testing::FakeApplication>();
  application->extension = std::make_shared<clsExtension>();
  const auto form = OpenProgress(1000);
  FormWindow& window = *host.FormWindows().WindowOf(*form);
  const WindowHost::CommandScope scope(host);
  const int small = window.height();
  Click(window, "cmdDetails");
  host.PumpEvents();
  EXPECT_GT(window.height(), small);
  EXPECT_TRUE(window.WidgetOf("txtDetails")->isVisible());
  const int log = window.WidgetOf("txtDetails")->height();
  window.resize(window.width(), window.height() + 80);
  host.PumpEvents();
  EXPECT_NEAR(window.WidgetOf("txtDetails")->height(), log + 80, 1);
  Click(window, "cmdDetails");
  host.PumpEvents();
  EXPECT_EQ(window.height(), small);
  Click(window, "cmdDetails");
  host.PumpEvents();
  EXPECT_NEAR(window.WidgetOf("txtDetails")->height(), log + 80, 1);

  std::int32_t record = 500;
  form->Est_Time_Left(record, "Calculating...", "");
  form->AppendDetails("half\r\ndone");
  form->Refresh();
  const QWidget& bar = *window.WidgetOf("icnProgressLine");
  EXPECT_NEAR(2.0 * bar.width(), window.WidgetOf("pct_barBorder")->width(), 12);
  EXPECT_EQ(qobject_cast<QLabel*>(window.WidgetOf("lblPercentDone"))->text(), "(50%)");
  EXPECT_EQ(qobject_cast<QTextEdit*>(window.WidgetOf("txtDetails"))->toPlainText(), "half\ndone");
  const QString clock = qobject_cast<QLabel*>(window.WidgetOf("lblCurrentTime"))->text();
  QTest::qWait(600);
  EXPECT_NE(qobject_cast<QLabel*>(window.WidgetOf("lblCurrentTime"))->text(), clock);

  EXPECT_FALSE(MyGeneralOperations::BailOutOfProgress(form, application));
  Click(window, "chkClose");
  Click(window, "cmdStop");
  EXPECT_TRUE(MyGeneralOperations::BailOutOfProgress(form, application));
  EXPECT_TRUE(window.Concealed());
  EXPECT_FALSE(form->Frame()->Visible());
}

TEST_F(WholeRunTest, TheLogGrowsAtItsEndAlone) {
  const auto form = OpenProgress(1000);
  FormWindow& window = *host.FormWindows().WindowOf(*form);
  form->txtDetails.SetText("Began\r\n----\r\n");
  form->Refresh();
  auto& log = *qobject_cast<QTextEdit*>(window.WidgetOf("txtDetails"));
  std::vector<std::pair<int, int>> changes;  // where, and how many characters went
  QObject::connect(log.document(), &QTextDocument::contentsChange, &log,
                   [&](int from, int removed, int) { changes.emplace_back(from, removed); });
  const auto added_at_end = [&](const char* text, const char* shown) {
    changes.clear();
    const int length = log.toPlainText().size();
    form->AppendDetails(text);
    form->Refresh();
    EXPECT_EQ(log.toPlainText().toStdString(), shown);
    for (const auto& [from, removed] : changes) EXPECT_TRUE(from >= length && removed <= 1) << from << ", " << removed;
  };
  added_at_end("Feature 1...\r\n   {half", "Began\n----\nFeature 1...\n   {half");
  added_at_end("way}\r\n", "Began\n----\nFeature 1...\n   {halfway}");
  added_at_end("\r\nL\xC3\xA4nge\r\n", "Began\n----\nFeature 1...\n   {halfway}\n\nL\xC3\xA4nge");
  form->txtDetails.SetText("Anew");
  form->Refresh();
  EXPECT_EQ(log.toPlainText(), "Anew");
  form->Unload();
}

TEST_F(WholeRunTest, ClosingTheProgressWindowByItsTitleBarStopsTheRun) {
  const auto application = std::make_shared<testing::FakeApplication>();
  application->extension = std::make_shared<clsExtension>();
  const auto form = OpenProgress(1);
  EXPECT_FALSE(MyGeneralOperations::BailOutOfProgress(form, application));
  host.FormWindows().WindowOf(*form)->close();
  EXPECT_FALSE(form->Frame()->Visible());
  EXPECT_TRUE(MyGeneralOperations::BailOutOfProgress(form, application));
}

TEST_F(WholeRunTest, TheProgressWindowOfARunThatEndedClosesByItsButtonAndByEscape) {
  for (const bool by_key : {false, true}) {
    const auto form = OpenProgress(1);
    FormWindow& window = *host.FormWindows().WindowOf(*form);
    form->cmdStop.SetCaption("Close");
    if (by_key) {
      QTest::keyClick(&window, Qt::Key_Escape);
    } else {
      Click(window, "cmdStop");
    }
    EXPECT_FALSE(form->Frame()->Visible()) << by_key;
  }
}

}  // namespace
}  // namespace tessarine
