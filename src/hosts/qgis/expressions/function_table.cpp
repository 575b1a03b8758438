// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/expressions/function_table.h"

#include <qgsgeometry.h>

#include "hosts/qgis/suite_measures.h"
#include "hosts/windows/translation.h"

namespace tessarine::qgis {
namespace {

constexpr const char* kSpheroidText =
    "the spheroid: a name of the suite's catalogue (case, blanks and hyphens don't count), its code, as "
    "'EPSG:7030' or 'ESRI:107905', or an ellipsoid of the program, as 'PARAMETER:3396190:3376200'. Otherwise the "
    "layer's own; without a layer that of the project's settings, or else of its reference";
constexpr const char* kReferenceText =
    "the reference of the geometry, as 'EPSG:32612', where it isn't that of the layer (<code>@layer_crs</code>), or "
    "without a layer that of the project";

constexpr FunctionArgument kOfSpheroid{kSpheroid, true, kSpheroidText};
constexpr FunctionArgument kOfReference{kReference, true, kReferenceText};
constexpr FunctionArgument kFromPoint{kFrom, false, "a point"};
constexpr FunctionArgument kToPoint{kTo, false, "a point"};

constexpr FunctionArgument kLengthArguments[] = {
    {kGeometry, false, "a line, or a polygon, whose perimeter is measured, holes included"}, kOfSpheroid, kOfReference};
constexpr FunctionArgument kAreaArguments[] = {{kGeometry, false, "a polygon"}, kOfSpheroid, kOfReference};
constexpr FunctionArgument kMidpointArguments[] = {{kGeometry, false, "a line"}, kOfSpheroid, kOfReference};
constexpr FunctionArgument kDistanceArguments[] = {kFromPoint, kToPoint, kOfSpheroid, kOfReference};
constexpr FunctionArgument kAzimuthArguments[] = {
    kFromPoint,
    kToPoint,
    kOfSpheroid,
    kOfReference,
    {kEnd, true,
     "'start' for the azimuth at the first point, 'end' for that at the second one, in the direction of "
     "travel; otherwise 'start'"}};

// A degree of the equator; from Paris to New York; an octant of the spheroid.
constexpr FunctionExample kLengthExamples[] = {
    {"tessarine_length($geometry)", "the length of the feature on the spheroid of its layer, in metres"},
    {"tessarine_length($geometry, 'Mars 2000')", "the same on Mars"},
    {"round(tessarine_length(geom_from_wkt('LINESTRING(0 0, 1 0)'), 'EPSG:7030', 'EPSG:4326'), 3)", "111319.491"}};
constexpr FunctionExample kAreaExamples[] = {
    {"tessarine_area($geometry) / 1e6", "the area of the feature in square kilometres"},
    {"round(tessarine_area(geom_from_wkt('POLYGON((0 0, 0 90, 90 0, 0 0))'), 'EPSG:7030', 'EPSG:4326') / 1e6)",
     "63758203"}};
constexpr FunctionExample kAzimuthExamples[] = {
    {"tessarine_azimuth(start_point($geometry), end_point($geometry))", "the azimuth at which the line sets out"},
    {"round(tessarine_azimuth(make_point(2.35, 48.86), make_point(-73.94, 40.67), 'EPSG:7030', 'EPSG:4326'), 4)",
     "291.7417"},
    {"round(tessarine_azimuth(make_point(2.35, 48.86), make_point(-73.94, 40.67), 'EPSG:7030', 'EPSG:4326', 'end'), 4)",
     "233.7147"}};
constexpr FunctionExample kDistanceExamples[] = {
    {"round(tessarine_distance(make_point(2.35, 48.86), make_point(-73.94, 40.67), 'EPSG:7030', 'EPSG:4326'), 3)",
     "5850960.34"},
    {"tessarine_distance($geometry, make_point(0, 90), crs:='EPSG:4326')",
     "how far a feature in longitude and latitude is from the north pole"}};
constexpr FunctionExample kMidpointExamples[] = {
    {"geom_to_wkt(tessarine_midpoint(geom_from_wkt('LINESTRING(0 50, 0 60)'), 'EPSG:7030', 'EPSG:4326'), 4)",
     "Point (0 55.0021)"}};

constexpr const char* kNoShape = "NULL for NULL and for an empty geometry.";
constexpr const char* kLengthNotes =
    "The value is what Calculate Geometry writes as spheroidal length or perimeter. Steps of more than 180 degrees of "
    "longitude go the short way round. A line from pole to pole along any meridian has its full length; a step from "
    "one longitude to another at a pole has none.";
constexpr const char* kAreaNotes =
    "The value is what Calculate Geometry writes as spheroidal area: the sides are geodesics. Rings over the 180 "
    "degree meridian and round a pole count as what they mean; a ring round the globe encloses the smaller part. Holes "
    "are left out, whichever way rings run.";
constexpr const char* kAzimuthNotes =
    "Degrees clockwise from north, from 0 to 360. NULL where both points are one place. At a pole the azimuth is "
    "reckoned from the meridian of the longitude that the point was given with.";
constexpr const char* kDistanceNotes =
    "The shortest line, across the 180 degree meridian and over a pole, too; 0 between coincident points. Nearly "
    "antipodal points are solved by an exact method, as <code>tessarine inverse</code> does.";
constexpr const char* kMidpointNotes =
    "The position at half of the spheroidal length, in the reference of the line; it is what Calculate Geometry writes "
    "as spheroidal midpoint. A line without length has its first vertex. At a pole the longitude means nothing.";

constexpr esriGeometryType kLine = esriGeometryPolyline, kPolygon = esriGeometryPolygon;

QVariant ValueOf(FunctionCall& call, const MeasuredValue& measured) {
  call.Note(measured.notes);
  return measured.value;
}

QVariant Length(FunctionCall& call) {
  const GeometryRef shape = call.Shape(kGeometry, {kLine, kPolygon});
  if (!shape) return {};
  const Axes axes = call.AxesToUse();
  return ValueOf(call, Measures().Length(*shape, axes.semi_major, axes.semi_minor));
}

QVariant Area(FunctionCall& call) {
  const GeometryRef shape = call.Shape(kGeometry, {kPolygon});
  if (!shape) return {};
  const Axes axes = call.AxesToUse();
  return ValueOf(call, Measures().Area(*shape, axes.semi_major, axes.semi_minor));
}

QVariant Midpoint(FunctionCall& call) {
  const GeometryRef shape = call.Shape(kGeometry, {kLine});
  if (!shape) return {};
  const Axes axes = call.AxesToUse();
  const MeasuredPosition middle = Measures().Midpoint(*shape, axes.semi_major, axes.semi_minor);
  call.Note(middle.notes);
  return QVariant::fromValue(QgsGeometry::fromPointXY({middle.position.x, middle.position.y}));
}

// None where one of the two is missing.
std::optional<MeasuredLeg> LegOf(FunctionCall& call) {
  const auto from = call.Place(kFrom), to = call.Place(kTo);
  if (!from || !to) return std::nullopt;
  const Axes axes = call.AxesToUse();
  MeasuredLeg leg = Measures().Leg(*from, *to, axes.semi_major, axes.semi_minor);
  call.Note(leg.notes);
  return leg;
}

QVariant Distance(FunctionCall& call) {
  const auto leg = LegOf(call);
  return leg ? QVariant(leg->distance) : QVariant();
}

QVariant Azimuth(FunctionCall& call) {
  const bool at_end = call.WantsEnd();
  const auto leg = LegOf(call);
  if (!leg) return {};
  const std::optional<double> azimuth = at_end ? leg->end_azimuth : leg->start_azimuth;
  return azimuth ? QVariant(*azimuth) : QVariant();
}

constexpr FunctionRow kFunctions[] = {
    {"tessarine_length", "Returns the length of a line or the perimeter of a polygon on the spheroid, in metres.",
     kLengthArguments, kLengthExamples, kLengthNotes, Length},
    {"tessarine_area", "Returns the area of a polygon on the spheroid, in square metres.", kAreaArguments,
     kAreaExamples, kAreaNotes, Area},
    {"tessarine_azimuth", "Returns the azimuth of the geodesic from one point to another on the spheroid, in degrees.",
     kAzimuthArguments, kAzimuthExamples, kAzimuthNotes, Azimuth},
    {"tessarine_distance", "Returns the length of the geodesic between two points on the spheroid, in metres.",
     kDistanceArguments, kDistanceExamples, kDistanceNotes, Distance},
    {"tessarine_midpoint", "Returns the point in the middle of a line's length on the spheroid.", kMidpointArguments,
     kMidpointExamples, kMidpointNotes, Midpoint},
};

QString Headed(const char* heading, const QString& text) {
  return QStringLiteral("<h4>%1</h4>\n%2\n").arg(Translated(heading), text);
}

QString Syntax(const FunctionRow& row) {
  QString arguments;
  for (const FunctionArgument& argument : row.arguments) {
    const QString name = QStringLiteral("<span class=\"argument\">%1</span>").arg(QLatin1String(argument.name));
    const QString separator = arguments.isEmpty() ? QString() : QStringLiteral(", ");
    arguments += argument.optional ? QStringLiteral(" [%1%2]").arg(separator.trimmed() + ' ', name) : separator + name;
  }
  return QStringLiteral(
             "<div class=\"syntax\"><code><span class=\"functionname\">%1</span>(%2)</code><br/><br/>%3</div>")
      .arg(QLatin1String(row.name), arguments, Translated("[ ] marks optional components"));
}

QString Arguments(const FunctionRow& row) {
  QString rows;
  for (const FunctionArgument& argument : row.arguments) {
    rows += QStringLiteral("<tr><td class=\"argument\">%1</td><td>%2</td></tr>")
                .arg(QLatin1String(argument.name), Translated(argument.text));
  }
  return QStringLiteral("<div class=\"arguments\"><table>%1</table></div>").arg(rows);
}

QString Examples(const FunctionRow& row) {
  QString items;
  for (const FunctionExample& example : row.examples) {
    items += QStringLiteral("<li><code>%1</code> &rarr; <code>%2</code></li>")
                 .arg(QString::fromLatin1(example.call).toHtmlEscaped(), Translated(example.result));
  }
  return QStringLiteral("<div class=\"examples\"><ul>%1</ul></div>").arg(items);
}

}  // namespace

std::span<const FunctionRow> ExpressionFunctions() { return kFunctions; }

QString HelpOf(const FunctionRow& row) {
  constexpr const char* kOdd =
      "What the report of Calculate Geometry would say of such a value, and why a geometry can't be measured, which "
      "gives NULL, stands in the program's log under \"Tessarine\".";
  const QString notes = QStringLiteral("<div class=\"notes\"><p>%1 %2 %3</p></div>")
                            .arg(Translated(kNoShape), Translated(row.notes), Translated(kOdd));
  return QStringLiteral("<h3>%1</h3>\n<div class=\"description\"><p>%2</p></div>\n")
             .arg(Translated("function %1").arg(QLatin1String(row.name)), Translated(row.text)) +
         Headed("Syntax", Syntax(row)) + Headed("Arguments", Arguments(row)) + Headed("Examples", Examples(row)) +
         Headed("Notes", notes);
}

}  // namespace tessarine::qgis
