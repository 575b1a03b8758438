// SPDX-License-Identifier: GPL-2.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "helpers/fake_application.h"
#include "helpers/form_layout.h"
#include "helpers/reported_faults.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "platform/rich_text.h"
#include "spheroids/frmSpheroidOptions.h"
#include "spheroids/frmSpheroidOptionsExt.h"
#include "support/frmReport_modal.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class Dialogs : public ::testing::Test {
 protected:
  Dialogs() { host_.system.program_folder = folder_.Path(); }

  void Open(frmSpheroidOptions& dialog, const std::string& name = "WGS 1984", double major = 6378137.0,
            double minor = 6356752.314245179) const {
    extension_->CurrentSpheroidName = "before";
    extension_->CurrentSpheroidMajorAxis = extension_->CurrentSpheroidMinorAxis = 7.0;
    extension_->CurrentSpheroidCanceled = false;
    dialog.SetArcApplication(SpheroidDialogInput::Make(application_, extension_, name, major, minor));
    dialog.Load();
  }
  void ExpectUnanswered() const {
    EXPECT_TRUE(extension_->CurrentSpheroidCanceled);
    EXPECT_EQ(extension_->CurrentSpheroidName, "before");
    EXPECT_EQ(extension_->CurrentSpheroidMajorAxis, 7.0);
    EXPECT_EQ(extension_->CurrentSpheroidMinorAxis, 7.0);
  }

  testing::TemporaryFolder folder_;
  testing::TestHost host_;
  testing::ReportedFaults reported_;
  std::shared_ptr<IApplication> application_ = std::make_shared<testing::FakeApplication>();
  std::shared_ptr<clsExtension> extension_ = std::make_shared<clsExtension>();
};

TEST_F(Dialogs, OpenWithTheSpheroidInUseAndSortedLists) {
  folder_.Write("spheroids.dat", "Zeta,2,1,\nAlpha,3,2,\n");
  frmSpheroidOptions dialog;
  Open(dialog);
  EXPECT_EQ(dialog.lblCurrent.Caption(), "Current Spheroid = WGS 1984");
  EXPECT_EQ(dialog.cmdLoadCurrent.Caption(), "Load 'WGS 1984' Parameters");
  EXPECT_EQ(dialog.txtMajor.Text(), "6378137");
  EXPECT_EQ(dialog.txtMinor.Text(), "6356752.31424518");
  EXPECT_TRUE(dialog.cmdOK.Enabled());
  EXPECT_TRUE(extension_->CurrentSpheroidCanceled);
  EXPECT_TRUE(dialog.cbxUSGS.Enabled());
  EXPECT_EQ(dialog.cbxUSGS.BackColor(), kWindowBackground);
  EXPECT_EQ(dialog.cbxUSGS.List(0) + dialog.cbxUSGS.List(1), "AlphaZeta");
  EXPECT_EQ(dialog.cbxUSGS.Text(), "Alpha");
  EXPECT_EQ(dialog.cbxESRIPlanets.Text(), "Jupiter");
  EXPECT_EQ(dialog.cbxESRIPlanets.ListCount(), 71);
  EXPECT_EQ(dialog.cbxESRIEarth.Text(), "Airy 1830");
  EXPECT_EQ(dialog.cbxESRIEarth.List(2), "Australian National");
  dialog.CloseByUser();
  ExpectUnanswered();
}

TEST_F(Dialogs, LoadButtonsTakeTheirListsChoiceAndOkHandsItOver) {
  folder_.Write("spheroids.dat", "R&D,0.1,1234567.25,\n");
  frmSpheroidOptions dialog;
  Open(dialog, "Mine", 12.0, 0.0);
  EXPECT_FALSE(dialog.cmdOK.Enabled());
  dialog.cbxESRIPlanets.SetText("Mars 2000");
  dialog.cmdLoadESRIPlanetary.Press();
  EXPECT_EQ(dialog.lblCurrent.Caption(), "Current Spheroid = Mars 2000");
  EXPECT_EQ(dialog.txtMajor.Text(), "3396190");
  EXPECT_EQ(dialog.txtMinor.Text(), "3376200");
  EXPECT_TRUE(dialog.cmdOK.Enabled());
  dialog.cmdLoadUSGS.Press();
  EXPECT_EQ(dialog.lblCurrent.Caption(), "Current Spheroid = R&&D");
  EXPECT_EQ(dialog.txtMajor.Text() + " " + dialog.txtMinor.Text(), "0.1 1234567.25");
  dialog.cmdLoadCurrent.Press();
  EXPECT_EQ(dialog.lblCurrent.Caption(), "Current Spheroid = Mine");
  EXPECT_FALSE(dialog.cmdOK.Enabled());
  dialog.cbxESRIEarth.SetText("Clarke 1866");
  dialog.cmdLoadESRIEarth.Press();
  dialog.cmdOK.Press();
  EXPECT_FALSE(dialog.Loaded());
  EXPECT_FALSE(extension_->CurrentSpheroidCanceled);
  EXPECT_EQ(extension_->CurrentSpheroidName, "Clarke 1866");
  EXPECT_EQ(extension_->CurrentSpheroidMajorAxis, 6378206.4);
  EXPECT_EQ(extension_->CurrentSpheroidMinorAxis, 6356583.8);
  EXPECT_THAT(host_.error_reports, IsEmpty());
}

struct TypedAxis {
  const char* keys;
  const char* text;
  bool ok;
};

TEST_F(Dialogs, TypingMakesACustomSpheroid) {
  const TypedAxis rows[] = {{"6400000.5", "6400000.5", true},
                            {"", "", false},
                            {"0", "0", false},
                            {"-12e", "12", true},
                            {".", "", false},
                            {"1.2.3", "1.23", true},
                            {"6,400,000", "6,400,000", true},
                            {"\b", "", false}};
  for (const TypedAxis& row : rows) {
    frmSpheroidOptions dialog;
    Open(dialog);
    dialog.txtMajor.SetText("");
    EXPECT_FALSE(dialog.cmdOK.Enabled()) << row.keys;
    dialog.txtMajor.Type(row.keys);
    EXPECT_EQ(dialog.txtMajor.Text(), row.text);
    EXPECT_EQ(dialog.lblCurrent.Caption(), "Current Spheroid = <-- CUSTOM -->");
    EXPECT_EQ(dialog.cmdOK.Enabled(), row.ok) << row.keys;
  }
  frmSpheroidOptions dialog;
  Open(dialog);
  dialog.txtMinor.SetText("1" + std::string(400, '0'));
  EXPECT_FALSE(dialog.cmdOK.Enabled()) << "too large for a double";
  dialog.txtMinor.SetText("6,300,000");
  dialog.cmdOK.Press();
  EXPECT_EQ(extension_->CurrentSpheroidName, "Custom Spheroid");
  EXPECT_EQ(extension_->CurrentSpheroidMajorAxis, 6378137.0);
  EXPECT_EQ(extension_->CurrentSpheroidMinorAxis, 6300000.0);

  frmSpheroidOptions cancelled;
  Open(cancelled);
  cancelled.txtMajor.SetText("5");
  cancelled.cmdCancel.Press();
  ExpectUnanswered();
  EXPECT_THAT(host_.error_reports, IsEmpty());
}

TEST_F(Dialogs, WithoutTheCustomFileItsListSaysSo) {
  frmSpheroidOptions dialog;
  Open(dialog);
  EXPECT_FALSE(dialog.cbxUSGS.Enabled());
  EXPECT_EQ(dialog.cbxUSGS.BackColor(), kButtonFace);
  EXPECT_EQ(dialog.cbxUSGS.ListCount(), 1);
  EXPECT_EQ(dialog.cbxUSGS.Text(), "<-- Missing 'Spheroids.dat' file -->");
  dialog.cmdLoadUSGS.Press();
  EXPECT_THAT(host_.error_reports, ElementsAre(HasSubstr("cmdLoadUSGS_Click ")));
  EXPECT_EQ(dialog.lblCurrent.Caption(), "Current Spheroid = WGS 1984");
  EXPECT_EQ(dialog.txtMajor.Text(), "6378137");
}

TEST_F(Dialogs, ACatalogueThatFailsIsReportedAndLeavesNoAnswer) {
  folder_.Write("spheroids.dat", "nothing\n");
  frmSpheroidOptions dialog;
  Open(dialog);
  EXPECT_THAT(host_.error_reports, ElementsAre(HasSubstr("GetSpheroids "), HasSubstr("ArcApplication ")));
  dialog.cmdOK.Press();
  ExpectUnanswered();
}

TEST_F(Dialogs, TheExtendedDialogAsksForTheKindOfLatitudes) {
  for (const bool centric : {true, false}) {
    frmSpheroidOptionsExt dialog;
    Open(dialog);
    EXPECT_TRUE(dialog.optGraphic.Value());
    extension_->CurrentSpheroidGeocentric = !centric;
    if (centric) dialog.optCentric.SetValue(true);
    EXPECT_EQ(dialog.optGraphic.Value(), !centric);
    dialog.cmdOK.Press();
    EXPECT_EQ(extension_->CurrentSpheroidGeocentric, centric);
    EXPECT_EQ(extension_->CurrentSpheroidName, "WGS 1984");
  }
  std::string title, text;
  host_.forms.modal = [&](Form& form) {
    title = form.Caption();
    text = form.FindAs<RichTextBox>("txtReport")->Text();
  };
  frmSpheroidOptionsExt dialog;
  dialog.cmdHelp.Press();
  EXPECT_EQ(title, "Planetocentric vs. Planetographic:");
  EXPECT_THAT(text, StartsWith("The terms Planetocentric and Planetographic"));
  EXPECT_THAT(text, EndsWith("Please refer to the manual for illustrations of these concepts."));
}

TEST_F(Dialogs, NothingIsClippedAndResizingKeepsTheOrder) {
  frmSpheroidOptions plain;
  frmSpheroidOptionsExt extended;
  for (frmSpheroidOptions* dialog : {&plain, static_cast<frmSpheroidOptions*>(&extended)}) {
    Open(*dialog, "Major auxiliary sphere based upon WGS 1984");
    EXPECT_THAT(testing::LayoutProblems(*dialog), IsEmpty());
    dialog->Resize(dialog->Width() + 100, dialog->Height() + 40);
    EXPECT_THAT(testing::LayoutProblems(*dialog), IsEmpty());
    EXPECT_EQ(dialog->cmdOK.Left(), 277);
    EXPECT_EQ(dialog->cbxESRIEarth.Width(), 326);
  }
}

}  // namespace
}  // namespace tessarine
