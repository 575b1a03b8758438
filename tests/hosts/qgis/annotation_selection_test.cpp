// SPDX-License-Identifier: GPL-2.0-or-later
// Annotation items of all layers as graphic elements, and the tool that selects them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <qgsannotationlayer.h>
#include <qgsannotationlineitem.h>
#include <qgsannotationmarkeritem.h>
#include <qgsannotationpointtextitem.h>
#include <qgsannotationpolygonitem.h>
#include <qgslayertree.h>
#include <qgslinestring.h>
#include <qgspolygon.h>

#include <QtTest>

#include "helpers/test_host.h"
#include "hosts/qgis/annotation_items.h"
#include "hosts/qgis/item_selection_tool.h"
#include "hosts/qgis/program_fixture.h"

namespace tessarine::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The item takes it over.
QgsLineString* LineOf(const QVector<QgsPointXY>& vertices) { return new QgsLineString(vertices); }

class AnnotationSelection : public ::testing::Test {
 protected:
  // The canvas shows one unit of the map as ten pixels, from (0 0) at its lower left corner.
  void SetUp() override {
    application_->Start();
    QgsMapCanvas& canvas = *window_.Canvas();
    const QgsCoordinateReferenceSystem plane(QStringLiteral("EPSG:3857"));
    QgsProject::instance()->setCrs(plane);
    canvas.setDestinationCrs(plane);
    canvas.show();
    canvas.setExtent(QgsRectangle(0, 0, 40, 30));
    drawings_ = new QgsAnnotationLayer(QStringLiteral("drawings"),
                                       QgsAnnotationLayer::LayerOptions(QgsProject::instance()->transformContext()));
    drawings_->setCrs(plane);
    QgsProject::instance()->addMapLayer(drawings_);  // the project owns it
    QgsProject::instance()->mainAnnotationLayer()->setCrs(plane);
  }
  void TearDown() override {
    application_->Stop();
    QgsProject::instance()->clear();
  }

  void Draw(const char* name, QgsAnnotationLayer& layer, QgsAnnotationItem* item) {
    const QString key = qgis::KeyOf(layer, layer.addItem(item));
    application_->Project().Memory().SetNameOf(key, name);
  }
  void DrawAll() {
    QgsAnnotationLayer& main = *QgsProject::instance()->mainAnnotationLayer();
    Draw("spot", main, new QgsAnnotationMarkerItem(QgsPoint(10, 10)));
    Draw("way", main, new QgsAnnotationLineItem(LineOf({{20, 5}, {35, 20}})));
    Draw("area", *drawings_,
         new QgsAnnotationPolygonItem(new QgsPolygon(LineOf({{5, 5}, {5, 15}, {15, 15}, {15, 5}, {5, 5}}))));
    Draw("label", *drawings_, new QgsAnnotationPointTextItem(QStringLiteral("a longer text"), QgsPointXY(5, 25)));
  }

  [[nodiscard]] std::vector<std::string> Selected() const {
    std::vector<std::string> names;
    const auto walk = Map().SelectedElements();
    while (const auto element = walk->Next()) names.push_back(Cast<IElementProperties>(element)->Name());
    return names;
  }
  [[nodiscard]] qgis::MapView& Map() const { return application_->Project().Map(); }
  [[nodiscard]] QPoint Pixel(double x, double y) const {
    return window_.Canvas()->getCoordinateTransform()->transform(QgsPointXY(x, y)).toQPointF().toPoint();
  }
  void Click(double x, double y, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(window_.Canvas()->viewport(), Qt::LeftButton, modifiers, Pixel(x, y));
  }
  void Drag(double x1, double y1, double x2, double y2, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* screen = window_.Canvas()->viewport();
    QTest::mousePress(screen, Qt::LeftButton, modifiers, Pixel(x1, y1));
    QTest::mouseMove(screen, Pixel((x1 + x2) / 2, (y1 + y2) / 2));
    QMouseEvent moved(QEvent::MouseMove, Pixel((x1 + x2) / 2, (y1 + y2) / 2), Qt::NoButton, Qt::LeftButton, modifiers);
    QApplication::sendEvent(screen, &moved);
    QTest::mouseRelease(screen, Qt::LeftButton, modifiers, Pixel(x2, y2));
  }
  [[nodiscard]] long Bands() const {
    const auto items = window_.Canvas()->scene()->items();
    return std::count_if(items.begin(), items.end(), [](auto* item) {
      const auto* band = dynamic_cast<QgsRubberBand*>(item);
      return band != nullptr && band->isVisible() && band->size() > 0;
    });
  }

  TestHost process_host_;
  PartsWindow window_;
  std::shared_ptr<qgis::ProgramApplication> application_ = std::make_shared<qgis::ProgramApplication>(window_);
  QgsAnnotationLayer* drawings_ = nullptr;
};

TEST_F(AnnotationSelection, ClicksTakeTheTopmostItem) {
  DrawAll();
  qgis::ItemSelectionTool tool(*window_.Canvas(), Map());
  window_.Canvas()->setMapTool(&tool);
  Click(10, 10);
  EXPECT_THAT(Selected(), ElementsAre("spot")) << "the main layer lies above the area";
  EXPECT_EQ(Bands(), 1);
  Click(7, 13);
  EXPECT_THAT(Selected(), ElementsAre("area"));
  Click(27.5, 12.5, Qt::ShiftModifier);
  EXPECT_THAT(Selected(), ElementsAre("area", "way"));
  EXPECT_EQ(Bands(), 2);
  Click(7, 13, Qt::ShiftModifier);
  EXPECT_THAT(Selected(), ElementsAre("way"));
  // Some way along the text, which begins at (5 25).
  Click(7, 25.4);
  EXPECT_THAT(Selected(), ElementsAre("label"));
  Click(38, 28, Qt::ShiftModifier);
  EXPECT_THAT(Selected(), ElementsAre("label")) << "with Shift a click beside everything changes nothing";
  Click(38, 28);
  EXPECT_THAT(Selected(), IsEmpty());
  EXPECT_EQ(Bands(), 0);
}

TEST_F(AnnotationSelection, RectanglesTakeWhatTheyTouch) {
  DrawAll();
  qgis::ItemSelectionTool tool(*window_.Canvas(), Map());
  window_.Canvas()->setMapTool(&tool);
  Drag(1, 1, 12, 12);
  EXPECT_THAT(Selected(), ElementsAre("area", "spot"));
  // Inside of the line's box, beside the line.
  Drag(30, 6, 34, 10, Qt::ShiftModifier);
  EXPECT_THAT(Selected(), ElementsAre("area", "spot"));
  Drag(30, 10, 25, 14, Qt::ShiftModifier);
  EXPECT_THAT(Selected(), ElementsAre("area", "spot", "way")) << "drawn to any side";
  Drag(33, 25, 38, 29);
  EXPECT_THAT(Selected(), IsEmpty());
  Drag(0.5, 0.5, 39, 29);
  EXPECT_EQ(Selected().size(), 4U);
  QTest::keyClick(window_.Canvas(), Qt::Key_Escape);
  EXPECT_THAT(Selected(), IsEmpty());
  EXPECT_EQ(Bands(), 0) << "neither marks nor the rectangle stay";
}

TEST_F(AnnotationSelection, HiddenLayersHaveNoElements) {
  DrawAll();
  Map().SelectAllElements();
  EXPECT_EQ(Map().ElementSelectionCount(), 4);
  auto* node = QgsProject::instance()->layerTreeRoot()->findLayer(drawings_->id());
  node->setItemVisibilityChecked(false);
  EXPECT_THAT(Selected(), ElementsAre("spot", "way"));
  EXPECT_EQ(Bands(), 2);
  node->setItemVisibilityChecked(true);
  Map().SelectAllElements();
  EXPECT_THAT(Selected(), ElementsAre("area", "label", "spot", "way")) << "names are kept meanwhile";

  // A copy has items of the same identifiers, which are elements of their own.
  QgsAnnotationLayer* copy = drawings_->clone();
  QgsProject::instance()->addMapLayer(copy);  // the project owns it
  EXPECT_EQ(Map().ShownItems().size(), 6U);
  EXPECT_EQ(Map().ElementSelectionCount(), 4);
  QgsProject::instance()->removeMapLayer(drawings_);
  EXPECT_EQ(Map().ElementSelectionCount(), 2);
  EXPECT_EQ(Bands(), 2);
}

TEST_F(AnnotationSelection, ItemsInAnotherReference) {
  auto* far = new QgsAnnotationLayer(QStringLiteral("degrees"),
                                     QgsAnnotationLayer::LayerOptions(QgsProject::instance()->transformContext()));
  far->setCrs(QgsCoordinateReferenceSystem(QStringLiteral("EPSG:4326")));
  QgsProject::instance()->addMapLayer(far);  // the project owns it
  // One degree of the equator is 111319.49 units of the map.
  window_.Canvas()->setExtent(QgsRectangle(0, 0, 400000, 300000));
  Draw("degree", *far, new QgsAnnotationLineItem(LineOf({{1, 1}, {2, 1}})));
  qgis::ItemSelectionTool tool(*window_.Canvas(), Map());
  window_.Canvas()->setMapTool(&tool);
  Drag(150000, 100000, 180000, 130000);
  EXPECT_THAT(Selected(), ElementsAre("degree"));
  const auto shape = Map().SelectedElements()->Next()->Geometry();
  EXPECT_NEAR(shape->Envelope().XMax(), 222638.98, 0.01);
}

}  // namespace
}  // namespace tessarine::testing
