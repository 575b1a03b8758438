// SPDX-License-Identifier: GPL-2.0-or-later
// The about dialog.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "frame/frmAbout.h"
#include "helpers/form_layout.h"
#include "helpers/reported_faults.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"

namespace tessarine {
namespace {

class About : public ::testing::Test {
 protected:
  testing::TestHost host;
  testing::ReportedFaults reported;
  testing::TemporaryFolder folder;

  void Show(const std::function<void(frmAbout&)>& user) {
    frmAbout dialog;
    host.forms.modal = [&](Form&) { user(dialog); };
    dialog.ShowModal();
    host.forms.modal = nullptr;
    EXPECT_TRUE(host.error_reports.empty());
  }
};

TEST_F(About, TellsWhatTheSuiteIs) {
  Show([](frmAbout& form) {
    EXPECT_EQ(form.Caption(), " About Tools for Tessarine Tools:");
    EXPECT_EQ(form.lblVersion.Caption(), "Version 3.0.0");
    EXPECT_TRUE(form.Topmost());
    EXPECT_THAT(form.Text1.Text(), ::testing::StartsWith("About Tools for Tessarine Tools\n"));
    EXPECT_THAT(form.Text1.Text(), ::testing::EndsWith("Enjoy!"));
    EXPECT_THAT(testing::LayoutProblems(form), ::testing::IsEmpty());
    const double bottom = form.cmdOK.Top();
    form.Resize(form.Width() + 50, form.Height() + 30);
    EXPECT_EQ(form.cmdOK.Top(), bottom + 30);
    EXPECT_EQ(form.Text1.Width(), 336);
    form.cmdOK.Press();
    EXPECT_FALSE(form.Visible());
  });
}

TEST_F(About, ContactsLightUpUnderTheMouseAndOpen) {
  Show([this](frmAbout& form) {
    const std::int32_t plain = form.lblWeb.ForeColor();
    form.MouseMoved(&form.lblWeb);
    form.MouseMoved(&form.lblMail);
    EXPECT_NE(form.lblWeb.ForeColor(), plain);
    EXPECT_NE(form.lblMail.ForeColor(), plain);
    EXPECT_NE(form.lblMail.ForeColor(), form.lblWeb.ForeColor());
    form.MouseMoved(&form.imgBottomInset);
    EXPECT_EQ(form.lblWeb.ForeColor(), plain);
    form.MouseMoved(&form.lblMail);
    form.MouseMoved(nullptr);
    EXPECT_EQ(form.lblMail.ForeColor(), plain);
    form.lblMail.Click();
    EXPECT_THAT(host.system.opened, ::testing::ElementsAre(::testing::StartsWith("mailto:")));
  });
}

TEST_F(About, ManualAndItsAbsence) {
  host.system.program_folder = folder.Path();
  Show([this](frmAbout& form) {
    form.cmdManual.Press();
    ASSERT_EQ(host.messages.shown.size(), 1U);
    EXPECT_EQ(host.messages.shown[0].title, "Missing File:");
    folder.Write("Tessarine_Manual.pdf");
    form.cmdManual.Press();
    EXPECT_THAT(host.system.opened, ::testing::ElementsAre(folder.Path("Tessarine_Manual.pdf")));
  });
}

TEST_F(About, WithoutTheInformationToolAMessageAppears) {
  host.registry.real_version = "";
  Show([this](frmAbout& form) { form.cmdSysInfo.Press(); });
  ASSERT_EQ(host.messages.shown.size(), 1U);
  EXPECT_EQ(host.messages.shown[0].text, "System Information Is Unavailable At This Time");
  EXPECT_TRUE(host.system.opened.empty());
}

TEST_F(About, RegistryValuesAsText) {
  std::string value = "before";
  EXPECT_TRUE(GetKeyValue("Software", "Text", value));
  EXPECT_EQ(value, "9.3.1") << "without the final null";
  host.registry.real_version = "";
  EXPECT_FALSE(GetKeyValue("Software", "None", value));
  EXPECT_EQ(value, "");
  host.registry.number = 0x1AF;
  EXPECT_TRUE(GetKeyValue("Software", "Number", value));
  EXPECT_EQ(value, "1AF");
}

TEST_F(About, TheInformationToolRuns) {
  host.registry.real_version = folder.Path("tool.exe");  // the answer to any key, with a null behind
  Show([this](frmAbout& form) { form.cmdSysInfo.Press(); });
  EXPECT_THAT(host.system.opened, ::testing::ElementsAre(folder.Path("tool.exe")));
  EXPECT_EQ(host.registry.asked_key, "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
  EXPECT_EQ(host.registry.asked_value, "PATH");
}

}  // namespace
}  // namespace tessarine
