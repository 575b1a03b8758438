// SPDX-License-Identifier: GPL-2.0-or-later
// The four commands that act on the graphic elements of the map at one click.
#include <gtest/gtest.h>

#include "helpers/fake_application.h"
#include "helpers/reported_faults.h"
#include "helpers/test_host.h"
#include "hosts/document/component_loader.h"
#include "hosts/document/map_document.h"

namespace tessarine {
namespace {

// The view on the screen, which remembers what it was told to repaint.
class RecordingView final : public DocumentView {
 public:
  int refreshes = 0;
  std::vector<std::pair<std::int32_t, Envelope>> repainted;
  void Refresh() override { ++refreshes; }
  void PartialRefresh(std::int32_t phase, const ObjectRef&, const Envelope* envelope) override {
    repainted.emplace_back(phase, envelope != nullptr ? *envelope : Envelope());
  }
};

class RecordingDocument final : public IMxDocument, public IDocumentDirty {
 public:
  std::shared_ptr<DocumentMap> map = std::make_shared<DocumentMap>();
  std::shared_ptr<RecordingView> view = std::make_shared<RecordingView>();
  bool dirty = false;

  [[nodiscard]] std::shared_ptr<ICommandBars> CommandBars() const override { return nullptr; }
  [[nodiscard]] std::shared_ptr<IActiveView> ActiveView() const override { return view; }
  [[nodiscard]] std::shared_ptr<IMap> FocusMap() const override { return map; }
  [[nodiscard]] std::shared_ptr<IPageLayout> PageLayout() const override { return nullptr; }
  [[nodiscard]] std::shared_ptr<ILayer> SelectedLayer() const override { return nullptr; }
  void AddLayer(const std::shared_ptr<ILayer>&) override {}
  void UpdateContents() override {}
  void SetDirty() override { dirty = true; }
};

void ExpectEnvelope(const Envelope& envelope, double xmin, double ymin, double xmax, double ymax) {
  EXPECT_NEAR(envelope.XMin(), xmin, 1e-9);
  EXPECT_NEAR(envelope.YMin(), ymin, 1e-9);
  EXPECT_NEAR(envelope.XMax(), xmax, 1e-9);
  EXPECT_NEAR(envelope.YMax(), ymax, 1e-9);
}

class GraphicSelectionTest : public ::testing::Test {
 protected:
  testing::TestHost host;
  testing::ReportedFaults reported;
  std::shared_ptr<testing::FakeApplication> application = std::make_shared<testing::FakeApplication>();
  std::shared_ptr<RecordingDocument> document = std::make_shared<RecordingDocument>();

  void SetUp() override { application->document = document; }

  void AddLine(XY from, XY to, bool selected) {
    const auto element = MakeElement("line");
    const auto shape = std::make_shared<Polyline>();
    shape->AddGeometry(std::make_shared<Path>(std::vector<XY>{from, to}));
    element->shape = shape;
    element->selected = selected;
    document->map->AddElement(element);
  }
  void Click(const std::string& name) {
    const auto command = CreateComponentAs<ICommand>("Tessarine." + name, "ICommand");
    command->OnCreate(application);
    command->OnClick();
    EXPECT_TRUE(host.error_reports.empty());
  }
  std::string Selection() const {
    std::string marks;
    for (const auto& element : document->map->Elements()) marks += element->selected ? 'S' : '-';
    return marks;
  }
};

TEST_F(GraphicSelectionTest, NothingThereLeavesEverythingAsItWas) {
  for (const char* name : {"clsSelAllElements", "clsUnselElements", "clsFlipGraphicSel", "clsZoomToSelected"}) {
    Click(name);
  }
  EXPECT_TRUE(document->view->repainted.empty());
  EXPECT_FALSE(document->dirty);
}

TEST_F(GraphicSelectionTest, SelectionsAndTheRectanglesRepainted) {
  struct Row {
    const char* command;
    const char* before;
    const char* after;
    double xmin, ymin, xmax, ymax;
  };
  // Lines from (0, 0) to (10, 10), (20, 0) to (30, 20), (-10, 0) to (0, 5).
  const Row rows[] = {
      {"clsSelAllElements", "-S-", "SSS", -10, 0, 30, 20},
      {"clsUnselElements", "SS-", "---", -1.5, -1, 31.5, 21},
      {"clsFlipGraphicSel", "-S-", "S-S", -12, -1, 32, 21},
      {"clsFlipGraphicSel", "SSS", "---", -12, -1, 32, 21},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.command);
    document = std::make_shared<RecordingDocument>();
    application->document = document;
    AddLine({0, 0}, {10, 10}, row.before[0] == 'S');
    AddLine({20, 0}, {30, 20}, row.before[1] == 'S');
    AddLine({-10, 0}, {0, 5}, row.before[2] == 'S');
    Click(row.command);
    EXPECT_EQ(Selection(), row.after);
    ASSERT_EQ(document->view->repainted.size(), 1U);
    EXPECT_EQ(document->view->repainted[0].first, 26);
    ExpectEnvelope(document->view->repainted[0].second, row.xmin, row.ymin, row.xmax, row.ymax);
    EXPECT_TRUE(document->dirty);
  }
}

TEST_F(GraphicSelectionTest, ZoomTakesTheSelectedAlone) {
  AddLine({0, 0}, {10, 20}, true);
  AddLine({500, 500}, {600, 600}, false);
  Click("clsZoomToSelected");
  ExpectEnvelope(document->view->Extent(), -0.25, -0.5, 10.25, 20.5);
  EXPECT_EQ(document->view->refreshes, 1);
  EXPECT_TRUE(document->dirty);
}

TEST_F(GraphicSelectionTest, ZoomToNothingAndToAPoint) {
  const auto point = MakeElement("marker");
  point->shape = std::make_shared<Point>(3, 4);
  document->map->AddElement(point);
  document->view->SetExtent(Envelope(0, 0, 1, 1));
  Click("clsZoomToSelected");
  EXPECT_EQ(document->view->Extent(), Envelope(0, 0, 1, 1));
  EXPECT_FALSE(document->dirty);
  point->selected = true;
  Click("clsZoomToSelected");
  EXPECT_EQ(document->view->Extent(), Envelope(3, 4, 3, 4));
  document->dirty = false;
  point->shape = nullptr;
  Click("clsZoomToSelected");
  EXPECT_EQ(document->view->Extent(), Envelope(3, 4, 3, 4)) << "an element without a shape lies nowhere";
  EXPECT_FALSE(document->dirty);
}

}  // namespace
}  // namespace tessarine
