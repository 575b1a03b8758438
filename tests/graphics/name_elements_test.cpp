// SPDX-License-Identifier: GPL-2.0-or-later
// Names for all or for the selected graphic elements.
#include "graphics/frmNameElements.h"
#include "graphics/graphics_fixture.h"
#include "helpers/form_layout.h"

namespace tessarine::testing {
namespace {

class NameElements : public GraphicsTest {
 protected:
  void Name(const std::function<void(frmNameElements&)>& user) {
    frmNameElements dialog;
    Show<frmNameElements>(dialog, user);
  }
  std::string Names() const {
    std::string names;
    for (const auto& element : document->Map().Elements()) names += element->Name() + ".";
    return names;
  }
};

TEST_F(NameElements, SelectedOnesAreTheChoiceWhereThereAreAny) {
  Add("marker", At(0, 0), "a", true);
  Add("group", nullptr, "b");
  Name([](frmNameElements& form) {
    EXPECT_THAT(LayoutProblems(form), ::testing::IsEmpty());
    EXPECT_EQ(form.optSel.Caption(), "Name Selected Graphics (n = 1)");
    EXPECT_EQ(form.optAll.Caption(), "Name All Graphics (n = 2)");
    EXPECT_TRUE(form.optSel.Value());
    form.txtName.SetText("x");
    form.cmdOK.Press();
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(Names(), "x.b.");
  Name([](frmNameElements& form) {
    form.optAll.SetValue(true);
    form.txtName.SetText("y");
    form.cmdOK.Press();
  });
  EXPECT_EQ(Names(), "y.y.");
  EXPECT_FALSE(document->Dirty());
}

TEST_F(NameElements, AnEmptyNameAsksFirst) {
  Add("marker", At(0, 0), "a");
  for (const MessageAnswer answer : {MessageAnswer::Cancel, MessageAnswer::Ok}) {
    host.messages.answers = {answer};
    Name([&](frmNameElements& form) {
      EXPECT_FALSE(form.optSel.Enabled());
      form.cmdOK.Press();
      EXPECT_EQ(form.Visible(), answer == MessageAnswer::Cancel);
    });
    EXPECT_EQ(Names(), answer == MessageAnswer::Cancel ? "a." : ".");
    EXPECT_EQ(host.messages.shown.back().title, "Confirm Action:");
    EXPECT_THAT(
        host.messages.shown.back().text,
        ::testing::StartsWith("Your 'Name' value is an empty string, so your 1 graphic elements will be\r\n"
                              "assigned no name (i.e. they will be assigned the empty string for a name).\r\n"));
  }
}

TEST_F(NameElements, NoGraphics) {
  Name([](frmNameElements& form) {
    EXPECT_TRUE(form.optAll.Value());
    EXPECT_EQ(form.optAll.Caption(), "Name All Graphics (n = 0)");
    form.txtName.SetText("x");
    form.cmdOK.Press();
    EXPECT_FALSE(form.Visible());
  });
}

}  // namespace
}  // namespace tessarine::testing
