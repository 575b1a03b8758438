// SPDX-License-Identifier: GPL-2.0-or-later
// The report dialog with its printing, and the message box.
#include <gtest/gtest.h>

#include "helpers/fake_application.h"
#include "helpers/form_layout.h"
#include "helpers/reported_faults.h"
#include "helpers/test_host.h"
#include "platform/rich_text.h"
#include "session/clsExtension.h"
#include "support/frmMessageBox.h"
#include "support/frmReport_modal.h"

namespace tessarine {
namespace {

using testing::LayoutProblems;
using testing::TestHost;

// A letter-size sheet with borders that the device can't print on; so many characters fit on a page.
class FakePrinter final : public IPrinter {
 public:
  explicit FakePrinter(std::int32_t characters) : characters_(characters) {}
  std::vector<std::int32_t> pages;  // the first character of each
  double left = 0, top = 0, right = 0, bottom = 0;
  int sheets = 0;
  bool open = false;

  [[nodiscard]] double PageWidth() const override { return 12240; }
  [[nodiscard]] double PageHeight() const override { return 15840; }
  [[nodiscard]] double PhysicalOffsetX() const override { return 360; }
  [[nodiscard]] double PhysicalOffsetY() const override { return 300; }
  void StartDocument(const std::string&) override { open = true, sheets = 1; }
  std::int32_t FormatRange(const std::string&, std::int32_t first, double l, double t, double r, double b) override {
    pages.push_back(first);
    left = l, top = t, right = r, bottom = b;
    return first + characters_;
  }
  void NewPage() override { ++sheets; }
  void EndDocument() override { open = false; }

 private:
  std::int32_t characters_;
};

class ReportDialogTest : public ::testing::Test {
 protected:
  TestHost host;
  testing::ReportedFaults reported;
  frmReport_modal form;

  std::shared_ptr<FakePrinter> Print(const std::string& text, std::int32_t characters_per_page) {
    auto printer = std::make_shared<FakePrinter>(characters_per_page);
    host.printer = printer;
    form.txtReport.SetTextRTF(PlainTextToRtf(text));
    form.cmdPrint.Press();
    return printer;
  }
};

TEST_F(ReportDialogTest, PrintsPageByPageWithMarginsOfAnInch) {
  struct Row {
    std::string text;
    std::int32_t per_page;
    std::vector<std::int32_t> pages;
  };
  const Row rows[] = {
      {std::string(100, 'x'), 40, {0, 40, 80}},
      {std::string(80, 'x'), 40, {0, 40}},
      {std::string(10, 'x'), 40, {0}},
      {"", 40, {0}},
      // Characters count, not bytes.
      {"\xC3\xA4\xC3\xB6\xC3\xBC\xC3\x9F", 2, {0, 2}},
  };
  for (const Row& row : rows) {
    const auto printer = Print(row.text, row.per_page);
    EXPECT_EQ(printer->pages, row.pages);
    EXPECT_EQ(printer->sheets, static_cast<int>(row.pages.size()));
    EXPECT_FALSE(printer->open);
    EXPECT_EQ(printer->left + printer->PhysicalOffsetX(), 1440);
    EXPECT_EQ(printer->top + printer->PhysicalOffsetY(), 1440);
    EXPECT_EQ(printer->right - printer->left, 12240 - 2880);
    EXPECT_EQ(printer->bottom - printer->top, 15840 - 2880);
  }
}

TEST_F(ReportDialogTest, APageWithoutRoomEndsInAReport) {
  const auto printer = Print("text", 0);
  EXPECT_EQ(printer->pages.size(), 1U);
  EXPECT_EQ(host.error_reports.size(), 1U);
}

TEST_F(ReportDialogTest, CopyCancelledPrintAndExit) {
  form.txtReport.SetTextRTF(R"({\rtf1 \b done\b0\par})");
  bool open_after_cancel = false;
  host.forms.modal = [&](Form&) {
    form.cmdPrint.Press();
    open_after_cancel = form.Visible();
    form.cmdCopy.Press();
    EXPECT_EQ(form.ActiveControl(), &form.cmdOK);
    form.cmdOK.Press();
  };
  form.ShowModal();
  EXPECT_TRUE(open_after_cancel);
  EXPECT_FALSE(form.Loaded());
  EXPECT_EQ(host.clipboard.rtf, R"({\rtf1 \b done\b0\par})");
  EXPECT_TRUE(host.error_reports.empty());
}

TEST_F(ReportDialogTest, LayoutHoldsAtEverySize) {
  EXPECT_EQ(form.Caption(), " Report");
  form.Load();
  EXPECT_TRUE(form.Topmost());
  const std::vector<std::string> none;
  EXPECT_EQ(LayoutProblems(form, {"txtBackground"}), none);
  const double width = form.txtReport.Width(), left = form.cmdPrint.Left(), top = form.cmdPrint.Top();
  form.Resize(form.Width() + 110, form.Height() + 50);
  EXPECT_NEAR(form.txtReport.Width(), width + 110, 1e-4);
  // A third more width: the row of buttons keeps its share of it, at the bottom.
  EXPECT_NEAR(form.cmdPrint.Left(), left * 4 / 3, 1e-4);
  EXPECT_NEAR(form.cmdPrint.Top(), top + 50, 1e-4);
  EXPECT_EQ(LayoutProblems(form, {"txtBackground"}), none);
  form.Resize(form.MinimumWidth(), form.MinimumHeight());
  EXPECT_EQ(LayoutProblems(form, {"txtBackground"}), none);
}

TEST(MessageBoxTest, TheAnswerIsLeftInTheExtension) {
  struct Row {
    const char* press;  // nothing: closed by the title bar
    bool answer;
  };
  for (const Row& row : {Row{"cmdYes", true}, Row{"cmdNo", false}, Row{nullptr, false}}) {
    TestHost host;
    const auto extension = std::make_shared<clsExtension>();
    const auto application = std::make_shared<testing::FakeApplication>();
    application->extension = extension;
    extension->ShouldContinue = true;
    frmMessageBox form;
    form.SetArcApplication(application);
    EXPECT_FALSE(extension->ShouldContinue);
    form.txtMessage.SetText("Overwrite?");
    host.forms.modal = [&](Form& shown) {
      if (row.press != nullptr) shown.FindAs<CommandButton>(row.press)->Press();
    };
    form.ShowModal();
    EXPECT_EQ(extension->ShouldContinue, row.answer);
    EXPECT_FALSE(form.Loaded());
  }
}

TEST(MessageBoxTest, AnAnswerWithoutAnExtensionIsReported) {
  TestHost host;
  const testing::ReportedFaults reported;
  frmMessageBox form;
  for (CommandButton* button : {&form.cmdYes, &form.cmdNo}) button->Press();
  EXPECT_EQ(host.error_reports.size(), 2U);
}

TEST(MessageBoxTest, TheTextStretchesAndTheButtonsKeepTheirCorner) {
  const TestHost host;
  frmMessageBox form;
  form.Load();
  const std::vector<std::string> none;
  EXPECT_EQ(LayoutProblems(form), none);
  const double text_height = form.txtMessage.Height(), left = form.cmdNo.Left(), width = form.cmdNo.Width();
  form.Resize(form.Width() + 40, form.Height() + 70);
  EXPECT_NEAR(form.txtMessage.Height(), text_height + 70, 1e-4);
  EXPECT_NEAR(form.cmdNo.Left(), left + 40, 1e-4);
  EXPECT_NEAR(form.cmdNo.Width(), width, 1e-4);
  form.Resize(form.MinimumWidth(), form.MinimumHeight());
  EXPECT_EQ(LayoutProblems(form), none);
}

}  // namespace
}  // namespace tessarine
