// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "support/AnchorObjectList.h"

namespace tessarine {
namespace {

struct Place {
  double left, top, width, height;
};

void ExpectPlace(const Control& control, const Place& place) {
  EXPECT_NEAR(control.Left(), place.left, 1e-4);
  EXPECT_NEAR(control.Top(), place.top, 1e-4);
  EXPECT_NEAR(control.Width(), place.width, 1e-4);
  EXPECT_NEAR(control.Height(), place.height, 1e-4);
}

// A control at (20, 10), 60 by 30, in a container that grows from 200 by 100 to 300 by 150.
TEST(AnchorTest, TheSevenBehavioursAndBack) {
  struct Row {
    AnchorTypes type;
    Place grown;
  };
  const Row rows[] = {
      {enumNone, {30, 15, 90, 45}},      {enumStart, {20, 10, 90, 45}},  {enumStartSize, {20, 10, 60, 30}},
      {enumStartEnd, {20, 10, 160, 80}}, {enumSize, {45, 22.5, 60, 30}}, {enumSizeEnd, {120, 60, 60, 30}},
      {enumEnd, {30, 15, 150, 75}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.type);
    Form form("anchors");
    form.Resize(200, 100);
    Label label(form, "label");
    label.Move(20, 10, 60, 30);
    AnchorObjectList list;
    list.Item(label).SetAnchors(row.type, row.type);
    form.Resize(300, 150);
    list.DoAnchors();
    ExpectPlace(label, row.grown);
    form.Resize(200, 100);
    list.DoAnchors();
    ExpectPlace(label, {20, 10, 60, 30});
  }
}

TEST(AnchorTest, AxesAreApartAndFramesAreContainers) {
  Form form("anchors");
  form.Resize(200, 100);
  Frame frame(form, "frame");
  frame.Move(0, 0, 100, 50);
  Label label(form, "label");
  label.SetContainer(frame);
  label.Move(10, 10, 50, 20);
  AnchorObjectList list;
  list.Item(label).SetAnchors(enumStartEnd, enumSizeEnd);
  form.Resize(400, 400);
  list.DoAnchors();
  ExpectPlace(label, {10, 10, 50, 20});
  frame.Move(0, 0, 130, 60);
  list.DoAnchors();
  ExpectPlace(label, {10, 20, 80, 20});
  frame.Move(0, 0, 20, 60);
  list.DoAnchors();
  ExpectPlace(label, {10, 20, 0, 20});
}

TEST(AnchorTest, SetAnchorsRecordsAnewUnderTheSameTypes) {
  Form form("anchors");
  form.Resize(200, 100);
  Label label(form, "label");
  label.Move(20, 10, 60, 30);
  AnchorObjectList list;
  list.Item(label).SetAnchors(enumSizeEnd, enumStart);
  label.Move(0, 10, 60, 50);
  list.SetAnchors();
  form.Resize(300, 200);
  list.DoAnchors();
  ExpectPlace(label, {100, 10, 60, 100});
}

TEST(AnchorListTest, OneEntryForEachControl) {
  Form form("anchors");
  Label first(form, "first"), second(form, "second"), third(form, "third");
  AnchorObjectList list;
  AnchorObject& entry = list.Item(first);
  (void)list.Item(second);
  EXPECT_EQ(&list.Item(first), &entry);
  EXPECT_EQ(list.Count(), 2);
  EXPECT_EQ(list.IndexOf(second), 1);
  EXPECT_EQ(list.IndexOf(third), -1);
  list.Remove(third);
  list.Remove(first);
  EXPECT_EQ(list.Count(), 1);
  EXPECT_EQ(list.IndexOf(second), 0);
}

}  // namespace
}  // namespace tessarine
