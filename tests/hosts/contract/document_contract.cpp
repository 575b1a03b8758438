// SPDX-License-Identifier: GPL-2.0-or-later
// Graphic elements, the settings of the suite, the status bar and the state of the document.
#include <gmock/gmock.h>

#include "helpers/shapes.h"
#include "hosts/contract/host_contract.h"

namespace tessarine::testing {
namespace {

class VariantList final : public IVariantStream {
 public:
  explicit VariantList(std::vector<Variant> held = {}) : values(std::move(held)) {}
  std::vector<Variant> values;
  [[nodiscard]] Variant Read() override { return values.at(next_++); }
  void Write(const Variant& value) override { values.push_back(value); }

 private:
  std::size_t next_ = 0;
};

std::shared_ptr<IPersistVariant> ExtensionOf(const ContractHost& host) {
  return Cast<IPersistVariant>(host.Application()->FindExtensionByCLSID(UID("Tessarine.clsExtension")));
}

std::vector<Variant> SettingsOf(const ContractHost& host) {
  VariantList list;
  ExtensionOf(host)->Save(list);
  return list.values;
}

std::vector<std::shared_ptr<IElement>> ElementsOf(const ContractHost& host) {
  const auto graphics = Cast<IActiveView>(host.Map())->GraphicsContainer();
  std::vector<std::shared_ptr<IElement>> elements;
  graphics->Reset();
  while (auto element = graphics->Next()) elements.push_back(std::move(element));
  return elements;
}

std::string NamesOf(const std::vector<std::shared_ptr<IElement>>& elements) {
  std::string names;
  for (const auto& element : elements) names += Cast<IElementProperties>(element)->Name() + " ";
  return names;
}

// What a type test answers for the kinds.
std::string KindsOf(const std::shared_ptr<IElement>& element) {
  std::string kinds;
  if (Is<IMarkerElement>(element)) kinds += "marker ";
  if (Is<ILineElement>(element)) kinds += "line ";
  if (Is<IFillShapeElement>(element)) kinds += "fill ";
  if (Is<IPolygonElement>(element)) kinds += "polygon ";
  if (Is<IRectangleElement>(element)) kinds += "rectangle ";
  if (Is<ITextElement>(element)) kinds += "text ";
  return kinds;
}

void DrawAll(ContractHost& host) {
  host.SetMapReference("EPSG:4326");
  host.Draw("polygon", PolygonOf({{{0, 0}, {2, 8}, {9, 1}, {0, 0}}}), "#0000ff");
  host.Draw("rectangle", PolygonOf({Box(20, 0, 30, 5)}), "#00ff00");
  host.Draw("line", PolylineOf({{{-5, -5}, {-1, -5}, {-1, -2}}}), "#ff0000");
  host.Draw("marker", std::make_shared<Point>(3, 4), "#ff00ff");
  host.Draw("text", std::make_shared<Point>(6, 7), "");
}

}  // namespace

TEST_P(HostContract, ElementsInDrawingOrderWithTheirKinds) {
  DrawAll(*host_);
  const auto elements = ElementsOf(*host_);
  std::vector<std::string> kinds;
  for (const auto& element : elements) kinds.push_back(KindsOf(element));
  ASSERT_THAT(kinds, ::testing::ElementsAre("fill polygon ", "fill rectangle ", "line ", "marker ", "text "));
  const Envelope bounds[] = {{0, 0, 9, 8}, {20, 0, 30, 5}, {-5, -5, -1, -2}, {3, 4, 3, 4}, {6, 7, 6, 7}};
  for (std::size_t index = 0; index < elements.size(); ++index) {
    SCOPED_TRACE(kinds[index]);
    Envelope covered;
    elements[index]->QueryBounds(*Cast<IActiveView>(host_->Map())->ScreenDisplay(), covered);
    EXPECT_EQ(covered, bounds[index]);
    EXPECT_EQ(elements[index]->Geometry()->SpatialReference()->FactoryCode(), 4326);
    EXPECT_EQ(Cast<IElementProperties>(elements[index])->Name(), "");
  }
  EXPECT_EQ(Cast<Polyline>(elements[2]->Geometry())->PointCount(), 3);
  EXPECT_NE(Cast<IFillShapeElement>(elements[0])->Symbol(), nullptr);
}

TEST_P(HostContract, SelectedElements) {
  DrawAll(*host_);
  const auto elements = ElementsOf(*host_);
  const char* names[] = {"area", "box", "way", "spot", "label"};
  for (std::size_t index = 0; index < elements.size(); ++index) {
    Cast<IElementProperties>(elements[index])->SetName(names[index]);
  }
  const auto selection = Cast<IGraphicsContainerSelect>(host_->Map());
  const auto selected = [&] {
    std::vector<std::shared_ptr<IElement>> list;
    const auto walk = selection->SelectedElements();
    while (auto element = walk->Next()) list.push_back(std::move(element));
    return NamesOf(list);
  };
  EXPECT_EQ(selection->ElementSelectionCount(), 0);
  selection->SelectElement(elements[3]);
  selection->SelectElement(elements[0]);
  selection->SelectElement(elements[0]);
  EXPECT_EQ(selected(), "area spot ");
  EXPECT_EQ(selection->ElementSelectionCount(), 2);
  EXPECT_TRUE(selection->ElementSelected(elements[0]));
  EXPECT_FALSE(selection->ElementSelected(elements[1]));
  const auto before = selection->SelectedElements();
  selection->UnselectElement(elements[0]);
  EXPECT_EQ(selected(), "spot ");
  EXPECT_EQ(Cast<IElementProperties>(before->Next())->Name(), "area") << "the list is as it was at the call";
  selection->SelectAllElements();
  EXPECT_EQ(selected(), "area box way spot label ");
  selection->UnselectAllElements();
  EXPECT_EQ(selected(), "");
  EXPECT_NE(FaultOf([&] { selection->SelectElement(nullptr); }), 0);
}

TEST_P(HostContract, NamesOrderAndSettingsOutliveTheDocument) {
  DrawAll(*host_);
  const auto elements = ElementsOf(*host_);
  const char* names[] = {"first \"quoted\"", "Wölfe", "<third>", "", "fifth"};
  for (std::size_t index = 0; index < elements.size(); ++index) {
    Cast<IElementProperties>(elements[index])->SetName(names[index]);
  }
  std::vector<Variant> settings = SettingsOf(*host_);
  const std::vector<Variant> unset = settings;
  for (Variant& value : settings) {
    if (value.kind() == Variant::Kind::String) value = Variant("C:\\data\\<ä>");
    if (value.kind() == Variant::Kind::Boolean) value = Variant(!value.AsBoolean());
  }
  ASSERT_NE(settings, unset);
  VariantList changed(settings);
  ExtensionOf(*host_)->Load(changed);

  const auto dirty = Cast<IDocumentDirty>(host_->Document());
  dirty->SetDirty();
  EXPECT_TRUE(host_->IsDirty());
  const std::string file = folder_.Native(GetParam().name);
  host_->Save(file);
  EXPECT_FALSE(host_->IsDirty());
  host_->Reopen();
  EXPECT_FALSE(host_->IsDirty());
  EXPECT_EQ(NamesOf(ElementsOf(*host_)), "first \"quoted\" Wölfe <third>  fifth ");
  EXPECT_EQ(SettingsOf(*host_), settings);
  EXPECT_EQ(host_->Map()->SpatialReference()->FactoryCode(), 4326);
  const auto templates = host_->Application()->Templates();
  ASSERT_GE(templates->Count(), 1);
  EXPECT_THAT(ToNativePath(templates->Item(templates->Count() - 1)), ::testing::HasSubstr(file));
  EXPECT_EQ(FaultOf([&] { (void)templates->Item(templates->Count()); }), kInvalidCall);
}

TEST_P(HostContract, TheStatusBarCountsTheSteps) {
  const auto bar = host_->Application()->StatusBar();
  ASSERT_NE(bar, nullptr);
  bar->SetMessage(0, "Working...");
  bar->ShowProgressBar("Working...", 0, 10, 2, true);
  const auto progress = bar->ProgressBar();
  EXPECT_EQ(progress->Position(), 0);
  bar->StepProgressBar();
  EXPECT_EQ(progress->Position(), 2);
  progress->SetPosition(7);
  EXPECT_EQ(bar->ProgressBar()->Position(), 7);
  for (int step = 0; step < 5; ++step) bar->StepProgressBar();
  EXPECT_EQ(progress->Position(), 10) << "the end is the end";
  bar->HideProgressBar();
  bar->HideProgressBar();
  bar->ShowProgressBar("Again", 5, 8, 1, true);
  EXPECT_EQ(bar->ProgressBar()->Position(), 5);
  bar->HideProgressBar();
  const auto animation = bar->ProgressAnimation();
  ASSERT_NE(animation, nullptr);
  animation->Show();
  animation->SetMessage("Moving");
  animation->Hide();
}

}  // namespace tessarine::testing
