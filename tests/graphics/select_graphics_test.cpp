// SPDX-License-Identifier: GPL-2.0-or-later
// Selection of graphic elements by type, name and pattern.
#include "graphics/element_names.h"
#include "graphics/frmSelectGraphics.h"
#include "graphics/graphics_fixture.h"
#include "helpers/form_layout.h"

namespace tessarine::testing {
namespace {

TEST(ElementNames, Patterns) {
  struct Row {
    const char* pattern;
    const char* name;
    bool matches;
  };
  const Row rows[] = {
      {"road", "Road", true},         {"road", "roads", false}, {"ro*", "road", true},  {"*", "any", true},
      {"*a*d", "road and", true},     {"*a*d", "roads", false}, {"r&ad", "road", true}, {"r?ad", "rad", false},
      {"école*", "ÉCOLE nº 2", true}, {"река", "РЕКА", true},   {"&", "é", true},       {"a.c", "abc", false},
      {"[ab]", "a", false},           {"a**b", "ab", true},     {"*ab", "aab", true},   {"ab*ab", "ab", false},
      {"łódź", "ŁÓDŹ", true},
  };
  for (const Row& row : rows) EXPECT_EQ(MatchesPattern(row.name, row.pattern), row.matches) << row.pattern << row.name;
}

class SelectGraphics : public GraphicsTest {
 protected:
  void Select(const std::function<void(frmSelectGraphics&)>& user) {
    frmSelectGraphics dialog;
    Show<frmSelectGraphics>(dialog, user);
  }
  std::string Selection(const DocumentView& view) const {
    std::string marks;
    for (const auto& element : view.Elements()) marks += element->selected ? 'S' : '-';
    return marks;
  }
};

TEST_F(SelectGraphics, NothingThereOffersNothing) {
  Select([](frmSelectGraphics& form) {
    EXPECT_THAT(LayoutProblems(form), ::testing::IsEmpty());
    for (const Control* control : form.Controls()) {
      const auto* box = dynamic_cast<const CheckBox*>(control);
      if (box == nullptr) continue;
      EXPECT_FALSE(box->Enabled());
      EXPECT_THAT(box->Caption(), ::testing::EndsWith(" [0]"));
    }
    EXPECT_FALSE(form.txtName.Enabled());
    EXPECT_FALSE(form.lbxNamesActive.Visible());
    EXPECT_TRUE(form.lbxNamesInactive.Visible());
    EXPECT_EQ(form.lbxNamesInactive.List(0), "<-- No Names Found -->!");
    form.cmdOK.Press();
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_FALSE(document->Dirty());
}

TEST_F(SelectGraphics, ByTypeNameAndPattern) {
  Add("rectangle", PolygonOf({Box(0, 0, 1, 1)}), "road");
  Add("marker", At(0, 0), "Road");
  Add("line", PolylineOf({{{0, 0}, {1, 1}}}), "road");
  Add("group", nullptr, "river", true);
  Add("text", At(0, 0));
  Add("data graph", PolygonOf({Box(0, 0, 1, 1)}), "chart");
  struct Row {
    const char* what;
    std::function<void(frmSelectGraphics&)> user;
    const char* after;
    bool dirty;
  };
  const Row rows[] = {
      {"nothing", [](frmSelectGraphics&) {}, "---S--", false},
      {"rectangles", [](auto& form) { form.chkRectangles.SetValue(CheckBox::kChecked); }, "S--S--", true},
      {"the name road", [](auto& form) { form.lbxNamesActive.SetSelected(2, true); }, "SSSS--", true},
      {"a pattern", [](auto& form) { form.txtName.SetText("c*"); }, "---S-S", true},
      {"a pattern of the selected", [](auto& form) { form.txtName.SetText("RIV*"); }, "---S--", false},
      {"all three",
       [](auto& form) {
         form.chkText.SetValue(CheckBox::kChecked);
         form.lbxNamesActive.SetSelected(0, true);
         form.txtName.SetText("r*");
       },
       "SSSSSS", true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    document->ClearDirty();
    for (const auto& element : document->Map().Elements()) element->selected = element->Name() == "river";
    Select([&](frmSelectGraphics& form) {
      EXPECT_EQ(form.chkRectangles.Caption(), "Rectangles [1]");
      EXPECT_FALSE(form.chkPolygons.Enabled());
      ASSERT_EQ(form.lbxNamesActive.ListCount(), 3);
      EXPECT_EQ(form.lbxNamesActive.List(1), "river [1]");
      EXPECT_EQ(form.lbxNamesActive.List(2), "road [3]");
      row.user(form);
      form.cmdOK.Press();
    });
    EXPECT_EQ(Selection(document->Map()), row.after);
    EXPECT_EQ(document->Dirty(), row.dirty);
  }
}

TEST_F(SelectGraphics, LayoutViewHasItsOwnElements) {
  Add("marker", At(0, 0));
  Add(document->Layout(), "frame", PolygonOf({Box(0, 0, 1, 1)}));
  document->SetLayoutActive(true);
  Select([](frmSelectGraphics& form) {
    EXPECT_FALSE(form.chkPoints.Enabled());
    form.chkFrames.SetValue(CheckBox::kChecked);
    form.cmdOK.Press();
  });
  EXPECT_EQ(Selection(document->Layout()), "S");
  EXPECT_EQ(Selection(document->Map()), "-");
}

TEST_F(SelectGraphics, CloseSelectsNothing) {
  Add("marker", At(0, 0));
  Select([](frmSelectGraphics& form) {
    form.chkPoints.SetValue(CheckBox::kChecked);
    form.cmdClose.Press();
  });
  EXPECT_EQ(Selection(document->Map()), "-");
}

}  // namespace
}  // namespace tessarine::testing
