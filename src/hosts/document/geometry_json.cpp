// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/geometry_json.h"

#include "hosts/document/json_reading.h"
#include "platform/shape_words.h"

namespace tessarine {
namespace {

using nlohmann::json;

json Pair(XY point) { return json::array({point.x, point.y}); }

json CurveToJson(const Segment& segment) {
  if (const auto* arc = segment.As<CircularArc>()) {
    return {{"arc", Pair(arc->to)}, {"center", Pair(arc->center)}, {"sweep", arc->sweep}};
  }
  if (const auto* ellipse = segment.As<EllipticArc>()) {
    return {{"ellipse", Pair(ellipse->to)},
            {"center", Pair(ellipse->center)},
            {"axes", json::array({ellipse->semi_major, ellipse->semi_minor})},
            {"rotation", ellipse->rotation},
            {"start", ellipse->start},
            {"sweep", ellipse->sweep}};
  }
  const auto* curve = segment.As<BezierCurve>();
  return {{"bezier", Pair(curve->to)}, {"controls", json::array({Pair(curve->control1), Pair(curve->control2)})}};
}

json PartToJson(const Path& part) {
  json items = json::array();
  auto curve = part.Curves().begin();
  for (std::size_t index = 0; index < part.Vertices().size(); ++index) {
    const bool after_curve = index > 0 && curve != part.Curves().end() && curve->index == index - 1;
    items.push_back(after_curve ? CurveToJson((curve++)->segment) : Pair(part.Vertices()[index]));
  }
  return items;
}

Segment CurveFromJson(XY from, const JsonPlace& item) {
  if (item.Has("arc")) {
    return CircularArc{from, item.Member("arc").Pair(), item.Member("center").Pair(), item.Member("sweep").Number()};
  }
  if (item.Has("ellipse")) {
    const XY axes = item.Member("axes").Pair();
    return EllipticArc{
        from,   item.Member("ellipse").Pair(),    item.Member("center").Pair(),  axes.x,
        axes.y, item.Member("rotation").Number(), item.Member("start").Number(), item.Member("sweep").Number()};
  }
  if (item.Has("bezier")) {
    const JsonPlace controls = item.Member("controls");
    return BezierCurve{from, controls.Item(0).Pair(), controls.Item(1).Pair(), item.Member("bezier").Pair()};
  }
  item.Fail("a pair of numbers, an arc, an ellipse or a bezier");
}

void ReadPart(const JsonPlace& items, Path& part) {
  std::vector<XY> vertices;
  std::vector<Path::CurveAt> curves;
  items.ForEach([&](const JsonPlace& item) {
    if (item.Value().is_array()) {
      vertices.push_back(item.Pair());
      return;
    }
    if (vertices.empty()) item.Fail("a pair of numbers, since a part begins with a vertex");
    const Segment segment = CurveFromJson(vertices.back(), item);
    curves.push_back({vertices.size() - 1, segment});
    vertices.push_back(segment.ToPoint());
  });
  part.SetVertices(std::move(vertices), std::move(curves));
}

// A ring may be written without its first vertex at the end; the side that leads back is one of its sides all the same.
void Close(Ring& ring) {
  std::vector<XY> vertices(ring.Vertices().begin(), ring.Vertices().end());
  if (vertices.empty() || vertices.front() == vertices.back()) return;
  vertices.push_back(vertices.front());
  ring.SetVertices(std::move(vertices), {ring.Curves().begin(), ring.Curves().end()});
}

template <class Shape, class Part>
GeometryRef ReadParts(const JsonPlace& parts) {
  auto shape = std::make_shared<Shape>();
  parts.ForEach([&](const JsonPlace& items) {
    auto part = std::make_shared<Part>();
    ReadPart(items, *part);
    if constexpr (std::is_same_v<Part, Ring>) Close(*part);
    shape->AddGeometry(part);
  });
  return shape;
}

std::string TypeOf(const IGeometry& geometry) {
  std::string word = ShapeWord(geometry.GeometryType(), "");
  if (word.empty()) Raise(kTypeMismatch, "A document keeps points, multipoints, polylines and polygons only.");
  return word;
}

}  // namespace

json GeometryToJson(const IGeometry& geometry) {
  json result = {{"type", TypeOf(geometry)}};
  if (const auto* point = dynamic_cast<const Point*>(&geometry)) {
    if (!point->IsEmpty()) result["at"] = Pair(point->Coordinates());
  } else if (const auto* points = dynamic_cast<const Multipoint*>(&geometry)) {
    result["points"] = json::array();
    for (const XY xy : points->Vertices()) result["points"].push_back(Pair(xy));
  } else if (const auto* shape = dynamic_cast<const PartedShape*>(&geometry)) {
    result["parts"] = json::array();
    for (const auto& part : shape->Parts()) result["parts"].push_back(PartToJson(*part));
  }
  return result;
}

GeometryRef GeometryFromJson(const json& value, const std::string& path) {
  const JsonPlace place(value, path);
  const std::string type = place.Member("type").Text();
  if (type == "point") {
    return place.Has("at") ? std::make_shared<Point>(place.Member("at").Pair()) : std::make_shared<Point>();
  }
  if (type == "multipoint") {
    std::vector<XY> points;
    place.Member("points").ForEach([&](const JsonPlace& item) { points.push_back(item.Pair()); });
    return std::make_shared<Multipoint>(std::move(points));
  }
  if (type == "polyline") return ReadParts<Polyline, Path>(place.Member("parts"));
  if (type == "polygon") return ReadParts<Polygon, Ring>(place.Member("parts"));
  place.Member("type").Fail("point, multipoint, polyline or polygon");
}

}  // namespace tessarine
