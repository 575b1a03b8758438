// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/pictures.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <utility>

namespace tessarine {
namespace {

// Pictures are drawn on a square of 16 by 16. A drawing is a row of strokes, each a letter and its points:
// P polygon, F faint polygon, L line, A arrow, S dashed box from corner to corner, E ellipse around the first point
// with half the size of the second, H the same filled, D dots, R red dots.
struct Drawing {
  std::int32_t id;
  const char* strokes;
};

constexpr Drawing kDrawings[] = {
    {101, "E 5,5 3,3;A 8,8 10,10;P 9,14 9,9 14,8 14,14"},
    {103, "S 1,1 15,15;P 3,9 7,3 10,9;H 11,11 2,2"},
    {104, "F 3,9 7,3 10,9;E 11,11 2,2;L 2,14 14,2"},
    {105, "S 3,3 9,9;E 7,7 5,5;L 11,11 15,15"},
    {106, "S 1,1 11,11;P 3,8 6,3 9,8;L 10,10 10,15 12,13 14,15"},
    {107, "P 1,7 4,2 7,7;F 9,14 12,9 15,14;A 9,3 14,6;A 7,13 2,10"},
    {108, "P 1,13 4,5 8,13;L 9,4 15,4;L 12,4 12,12;L 10,12 14,12"},
    {109, "F 2,12 5,3 12,4 14,12 8,14;R 2,12 5,3 12,4 14,12 8,14"},
    {110, "F 1,7 4,2 7,7;A 7,8 9,9;L 9,14 12,9 15,14"},
    {111, "L 1,7 4,2 7,7;A 7,8 9,9;P 9,14 12,9 15,14"},
    {112, "P 2,13 3,3 13,3 13,7 7,7 7,13;R 4,6"},
    {113, "P 2,12 5,3 12,4 14,12 8,14;R 8,9"},
    {115, "P 1,13 1,8 6,8 6,13;P 10,13 10,8 15,8 15,13;A 7,5 2,5;A 9,5 14,5"},
    {116, "P 1,13 1,8 6,8 6,13;P 10,13 10,8 15,8 15,13;A 1,4 6,4;A 15,4 10,4"},
    {117, "P 2,10 5,2 12,3 13,10;L 2,14 14,14;L 2,12 2,15;L 6,13 6,14;L 10,13 10,14;L 14,12 14,15"},
    {119, "E 8,8 7,7;E 8,8 3,7;L 1,8 15,8;R 9,6"},
    {120, "E 8,8 7,7;D 8,4;L 8,7 8,12"},
    {121, "L 1,4 15,4;L 1,12 15,12;L 4,1 4,15;L 12,1 12,15;P 4,4 12,4 12,12 4,12"},
    {122, "E 8,8 7,5;L 8,8 13,5;A 9,14 14,14;R 8,8"},
    {123, "E 8,8 7,5;L 10,9 13,5;A 14,14 9,14;R 10,9"},
    {124, "S 3,1 13,15;P 1,10 1,6 5,6 5,10;P 11,10 11,6 15,6 15,10"},
    {201, "F 1,13 1,3 6,3 8,5 13,5 13,8;P 1,13 4,7 15,7 13,13"},
    {203, "F 2,11 8,14 14,11 8,8;F 2,8 8,11 14,8 8,5;P 2,5 8,8 14,5 8,2"},
    {kStripPicture, ""},
    {204, "L 2,4 4,6 7,2;L 9,4 14,4;L 2,11 4,13 7,9;L 9,11 14,11"},
};

constexpr QRgb kInk = 0xFF2F4858, kLightInk = 0xFFC9D6DE, kFill = 0xFF9CC5A1, kFaint = 0xFFDCE5DA, kMark = 0xFFC8553D;

void DrawArrow(QPainter& painter, QPointF from, QPointF to) {
  QLineF shaft(from, to);
  painter.drawLine(shaft);
  for (const double turn : {150.0, 210.0}) {
    QLineF head(to, to + QPointF(3, 0));
    head.setAngle(shaft.angle() + turn);
    painter.drawLine(head);
  }
}

void DrawStroke(QPainter& painter, QChar kind, const QPolygonF& points, const QColor& ink) {
  painter.setPen(QPen(ink, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  switch (kind.toLatin1()) {
    case 'P':
    case 'F':
      painter.setBrush(QColor(kind == 'P' ? kFill : kFaint));
      painter.drawPolygon(points);
      break;
    case 'L':
      painter.drawPolyline(points);
      break;
    case 'A':
      DrawArrow(painter, points[0], points[1]);
      break;
    case 'S':
      painter.setPen(QPen(ink, 1.0, Qt::DotLine));
      painter.drawRect(QRectF(points[0], points[1]));
      break;
    case 'H':
      painter.setBrush(QColor(kFill));
      [[fallthrough]];
    case 'E':
      painter.drawEllipse(points[0], points[1].x(), points[1].y());
      break;
    case 'D':
    case 'R':
      painter.setPen(Qt::NoPen);
      painter.setBrush(kind == 'R' ? QColor(kMark) : ink);
      for (const QPointF& point : points) painter.drawEllipse(point, 1.6, 1.6);
      break;
    default:
      break;
  }
}

// Meridians and parallels of a globe that is much larger than the strip.
void DrawStrip(QPainter& painter, const QRectF& strip) {
  constexpr int kMeridians = 16;
  painter.setClipRect(strip);
  painter.fillRect(strip, QColor(kFaint));
  painter.setPen(QPen(QColor(kFill), 1.2));
  for (int index = -kMeridians; index <= kMeridians; ++index) {
    const double share = static_cast<double>(index) / kMeridians;
    const double top = strip.center().x() + share * strip.width() * 0.45;
    const double bottom = strip.center().x() + share * strip.width() * 0.62;
    painter.drawLine(QPointF(top, strip.top()), QPointF(bottom, strip.bottom()));
  }
  for (const double rise : {0.1, 0.9}) {
    painter.drawEllipse(QPointF(strip.center().x(), strip.top() + strip.height() * rise + 2 * strip.width()),
                        2 * strip.width(), 2 * strip.width());
  }
}

/// Draws the strokes anew for each size that is asked for.
class DrawingEngine final : public QIconEngine {
 public:
  DrawingEngine(const char* strokes, QColor background) : strokes_(strokes), background_(std::move(background)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (*strokes_ == '\0') {
      DrawStrip(*painter, rect);
      painter->restore();
      return;
    }
    if (mode == QIcon::Disabled) painter->setOpacity(0.4);
    const double side = qMin(rect.width(), rect.height());
    painter->translate(rect.center().x() + 0.5 - side / 2, rect.center().y() + 0.5 - side / 2);
    painter->scale(side / 16.0, side / 16.0);
    for (const QString& stroke : QString::fromLatin1(strokes_).split(QLatin1Char(';'))) {
      QPolygonF points;
      for (const QString& point : stroke.mid(2).split(QLatin1Char(' '))) {
        points << QPointF(point.section(QLatin1Char(','), 0, 0).toDouble(),
                          point.section(QLatin1Char(','), 1, 1).toDouble());
      }
      DrawStroke(*painter, stroke.at(0), points, Ink());
    }
    painter->restore();
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }
  [[nodiscard]] QIconEngine* clone() const override { return new DrawingEngine(strokes_, background_); }

 private:
  [[nodiscard]] QColor Ink() const {
    const QColor behind = background_.isValid() ? background_ : QGuiApplication::palette().color(QPalette::Window);
    return behind.lightnessF() < 0.5 ? kLightInk : kInk;
  }

  const char* strokes_;
  QColor background_;
};

}  // namespace

QIcon PictureOf(std::int32_t resource_id, const QColor& background) {
  for (const Drawing& drawing : kDrawings) {
    if (drawing.id == resource_id) return QIcon(new DrawingEngine(drawing.strokes, background));
  }
  return {};
}

}  // namespace tessarine
