// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/measuring/measure_tool.h"

#include <qgscoordinatetransform.h>
#include <qgsexception.h>
#include <qgsmapcanvas.h>
#include <qgsmapmouseevent.h>
#include <qgsproject.h>

#include <QKeyEvent>

#include "hosts/qgis/spheroid_book.h"
#include "hosts/qgis/suite_measures.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/fault.h"

namespace tessarine::qgis {
namespace {

constexpr QRgb kLineColor = 0xFFB3261E;
constexpr QRgb kAroundColor = 0xC0FFFFFF;  // the line is seen on dark maps, too
constexpr int kLineWidth = 2, kIconSize = 8;
constexpr std::size_t kLeastForArea = 3;

constexpr const char* kHint =
    "Click two places or more on the map. A double click, a right click or Escape ends; Backspace takes the last place "
    "back.";

std::unique_ptr<QgsRubberBand> Band(QgsMapCanvas& canvas, QgsWkbTypes::GeometryType type) {
  auto band = std::make_unique<QgsRubberBand>(&canvas, type);
  band->setStrokeColor(QColor::fromRgb(kLineColor));
  band->setSecondaryStrokeColor(QColor::fromRgba(kAroundColor));
  band->setWidth(kLineWidth);
  return band;
}

}  // namespace

MeasureTool::MeasureTool(QgsMapCanvas& canvas, QWidget* main_window)
    : QgsMapTool(&canvas),
      window_(new MeasureWindow(
          main_window, {[this] { StartAnew(); }, [this] { TakeBack(); }, [this] { Close(); }, [this] { Measure(); }})),
      line_(Band(canvas, QgsWkbTypes::LineGeometry)),
      open_line_(Band(canvas, QgsWkbTypes::LineGeometry)),
      points_(Band(canvas, QgsWkbTypes::PointGeometry)) {
  setCursor(Qt::CrossCursor);
  open_line_->setLineStyle(Qt::DashLine);
  points_->setIcon(QgsRubberBand::ICON_CIRCLE);
  points_->setIconSize(kIconSize);
  TakeReference();
  StartAnew();
  connect(&canvas, &QgsMapCanvas::destinationCrsChanged, this, [this] { TakeReference(); });
  connect(QgsProject::instance(), &QgsProject::ellipsoidChanged, this, [this] { Measure(); });
  connect(QgsProject::instance(), &QgsProject::cleared, this, [this] { StartAnew(); });
}

MeasureTool::~MeasureTool() { delete window_.data(); }

void MeasureTool::canvasPressEvent(QgsMapMouseEvent*) { double_clicked_ = false; }

void MeasureTool::canvasReleaseEvent(QgsMapMouseEvent* event) {
  if (std::exchange(double_clicked_, false)) return;
  if (event->button() == Qt::RightButton) Finish();
  if (event->button() == Qt::LeftButton) Add(event->snapPoint());
}

// The press and release before it added the place.
void MeasureTool::canvasDoubleClickEvent(QgsMapMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  double_clicked_ = true;
  Finish();
}

void MeasureTool::canvasMoveEvent(QgsMapMouseEvent* event) {
  if (open_ && !places_.empty()) DrawToPointer(event->snapPoint());
}

void MeasureTool::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape && event->key() != Qt::Key_Backspace) return;
  event->ignore();  // the program reads it as already handled
  if (event->key() == Qt::Key_Escape) {
    open_ ? Finish() : StartAnew();
  } else {
    TakeBack();
  }
}

void MeasureTool::activate() {
  QgsMapTool::activate();
  ShowBands(true);
  window_->show();
  Measure();
}

void MeasureTool::deactivate() {
  ShowBands(false);
  if (window_) window_->hide();
  QgsMapTool::deactivate();
}

void MeasureTool::Add(const QgsPointXY& on_map) {
  window_->show();
  if (!open_) StartAnew();
  if (!SpheroidToUse()) return;
  try {
    places_.push_back({on_map, Measures().InDegrees({on_map.x(), on_map.y()}, map_)});
  } catch (const Fault&) {
    window_->Tell(Translated("The map shows no place of the globe there."));
    return;
  }
  open_ = true;
  Measure();
}

void MeasureTool::TakeBack() {
  if (places_.empty()) return;
  places_.pop_back();
  open_ = !places_.empty();
  Measure();
}

void MeasureTool::StartAnew() {
  places_.clear();
  open_ = false;
  Measure();
}

void MeasureTool::Finish() {
  open_ = false;
  Measure();
}

void MeasureTool::Close() { StartAnew(); }

// Places keep where they are on the globe.
void MeasureTool::TakeReference() {
  const QgsCoordinateReferenceSystem before = system_;
  system_ = canvas()->mapSettings().destinationCrs();
  map_ = ReferenceOf(system_);
  const QgsCoordinateTransform transform(before, system_, QgsProject::instance());
  try {
    for (PointedPlace& place : places_) {
      place.on_map = transform.transform(place.on_map);
      place.degrees = Measures().InDegrees({place.on_map.x(), place.on_map.y()}, map_);
    }
  } catch (const QgsCsException&) {
    places_.clear();
  } catch (const Fault&) {
    places_.clear();
  }
  open_ = open_ && !places_.empty();
  Measure();
}

std::optional<NamedSpheroid> MeasureTool::SpheroidToUse() {
  std::optional<NamedSpheroid> of_project = SpheroidOfSetting(QgsProject::instance()->ellipsoid());
  if (!of_project) of_project = SpheroidOf(system_);
  window_->NameProjectSpheroid(of_project ? ToQt(of_project->name) : Translated("none"));
  if (!GeographicOf(map_)) {
    window_->ShowNothing(
        Translated("The project's reference is neither geographic nor projected, so that the map shows no places "
                   "of a globe. Choose another one in the project's properties."));
    return std::nullopt;
  }
  if (const auto chosen = window_->ChosenSpheroid()) return chosen;
  if (!of_project) window_->ShowNothing(Translated("The project tells no spheroid: choose one."));
  return of_project;
}

void MeasureTool::Measure() {
  if (!window_) return;
  window_->ShowPointer(std::nullopt);
  const auto spheroid = SpheroidToUse();
  if (spheroid && places_.empty()) window_->ShowNothing(Translated(kHint));
  if (spheroid && !places_.empty()) {
    std::vector<XY> degrees;
    for (const PointedPlace& place : places_) degrees.push_back(place.degrees);
    window_->Show(MeasurePath(std::move(degrees), map_, *spheroid));
  }
  Draw();
}

void MeasureTool::Draw() {
  QgsMultiPolylineXY legs, closing;
  points_->reset(QgsWkbTypes::PointGeometry);
  const auto spheroid = SpheroidToUse();
  for (std::size_t at = 0; spheroid && at < places_.size(); ++at) {
    points_->addPoint(places_[at].on_map);
    if (at > 0) legs << DrawnGeodesic(places_[at - 1], places_[at], map_, *spheroid);
  }
  if (spheroid && !open_ && places_.size() >= kLeastForArea) {
    closing = DrawnGeodesic(places_.back(), places_.front(), map_, *spheroid);
  }
  line_->setToGeometry(QgsGeometry::fromMultiPolylineXY(legs), nullptr);
  open_line_->setToGeometry(QgsGeometry::fromMultiPolylineXY(closing), nullptr);
}

void MeasureTool::DrawToPointer(const QgsPointXY& on_map) {
  const auto spheroid = SpheroidToUse();
  if (!spheroid) return;
  try {
    const PointedPlace pointer{on_map, Measures().InDegrees({on_map.x(), on_map.y()}, map_)};
    const PointedPlace& last = places_.back();
    open_line_->setToGeometry(QgsGeometry::fromMultiPolylineXY(DrawnGeodesic(last, pointer, map_, *spheroid)), nullptr);
    window_->ShowPointer(
        Measures().Leg(last.degrees, pointer.degrees, spheroid->semi_major_axis, spheroid->semi_minor_axis));
  } catch (const Fault&) {
    open_line_->reset(QgsWkbTypes::LineGeometry);
    window_->ShowPointer(std::nullopt);
  }
}

void MeasureTool::ShowBands(bool visible) {
  for (QgsRubberBand* band : {line_.get(), open_line_.get(), points_.get()}) band->setVisible(visible);
}

}  // namespace tessarine::qgis
