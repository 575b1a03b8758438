// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/measuring/path_measures.h"

#include <QStringList>
#include <algorithm>
#include <cmath>

#include "hosts/qgis/suite_measures.h"
#include "hosts/windows/local_numbers.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/fault.h"
#include "platform/text_formats.h"

namespace tessarine::qgis {
namespace {

constexpr double kTurn = 360.0;
constexpr std::size_t kLeastForArea = 3;

SpatialReferenceRef InDegreesOf(const SpatialReferenceRef& reference) {
  auto geographic = GeographicOf(reference);
  return geographic && geographic->InDegrees() ? geographic->InDegrees() : geographic;
}

// Over the edge of the longitudes each place follows the one before, the short way.
std::shared_ptr<Polygon> RingOf(const std::vector<XY>& places, const SpatialReferenceRef& degrees) {
  std::vector<XY> ring;
  for (const XY place : places) {
    const double before = ring.empty() ? place.x : ring.back().x;
    ring.push_back({before + std::remainder(place.x - before, kTurn), place.y});
  }
  ring.push_back(ring.front());
  auto polygon = std::make_shared<Polygon>();
  polygon->SetParts({std::make_shared<Ring>(std::move(ring))});
  polygon->SetSpatialReference(degrees);
  return polygon;
}

class Measuring {
 public:
  Measuring(PathMeasures& path, SpatialReferenceRef degrees) : path_(path), degrees_(std::move(degrees)) {}

  void Go() {
    for (std::size_t at = 1; at < path_.places.size(); ++at) {
      path_.legs.push_back(Leg(path_.places[at - 1], path_.places[at]));
      path_.total += path_.legs.back().distance;
    }
    if (path_.places.size() < kLeastForArea) return;
    path_.closing_leg = Leg(path_.places.back(), path_.places.front()).distance;
    const MeasuredValue area = Measures().Area(*RingOf(path_.places, degrees_), path_.spheroid.semi_major_axis,
                                               path_.spheroid.semi_minor_axis);
    Note(area.notes);
    path_.area = area.value;
  }

 private:
  MeasuredLeg Leg(XY from, XY to) {
    MeasuredLeg leg = Measures().Leg(from, to, path_.spheroid.semi_major_axis, path_.spheroid.semi_minor_axis);
    Note(leg.notes);
    return leg;
  }

  void Note(const MeasureNotes& notes) {
    for (const std::string_view note : notes) {
      if (std::ranges::find(path_.notes, note) == path_.notes.end()) path_.notes.push_back(note);
    }
  }

  PathMeasures& path_;
  SpatialReferenceRef degrees_;
};

QString Line(const QStringList& cells) { return cells.join(QLatin1Char('\t')) + QLatin1Char('\n'); }

QString Captioned(const char* caption, const MeasureUnit& unit) {
  return Translated(caption) + QStringLiteral(" (%1)").arg(ToQt(unit.symbol));
}

QString Number(double value) { return ForTables(NumberText(value)); }

QString AzimuthText(const std::optional<double>& azimuth) { return azimuth ? Number(*azimuth) : QString(); }

}  // namespace

PathMeasures MeasurePath(std::vector<XY> places, const SpatialReferenceRef& reference, const NamedSpheroid& spheroid) {
  PathMeasures path;
  path.places = std::move(places);
  path.spheroid = spheroid;
  try {
    Measuring(path, InDegreesOf(reference)).Go();
  } catch (const Fault& fault) {
    path.problem = fault.Description();
  }
  return path;
}

QString TableText(const PathMeasures& path, const MeasureUnit& length, const MeasureUnit& area) {
  QString text = Line({Translated("Leg"), Translated("Start longitude"), Translated("Start latitude"),
                       Translated("End longitude"), Translated("End latitude"), Captioned("Distance", length),
                       Translated("Start azimuth"), Translated("End azimuth")});
  for (std::size_t at = 0; at < path.legs.size(); ++at) {
    const XY from = path.places[at], to = path.places[at + 1];
    const MeasuredLeg& leg = path.legs[at];
    text += Line({QString::number(at + 1), Number(from.x), Number(from.y), Number(to.x), Number(to.y),
                  Number(leg.distance / length.size), AzimuthText(leg.start_azimuth), AzimuthText(leg.end_azimuth)});
  }
  text += Line({Captioned("Total", length), Number(path.total / length.size)});
  if (path.closing_leg) text += Line({Captioned("Closing leg", length), Number(*path.closing_leg / length.size)});
  if (path.area) text += Line({Captioned("Area", area), Number(*path.area / area.size)});
  return text + Line({Translated("Spheroid"), ToQt(path.spheroid.name), Number(path.spheroid.semi_major_axis),
                      Number(path.spheroid.semi_minor_axis)});
}

}  // namespace tessarine::qgis
