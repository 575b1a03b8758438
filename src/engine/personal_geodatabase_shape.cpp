// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/personal_geodatabase_shape.h"

#include <ogrsf_frmts.h>

#include <algorithm>
#include <cmath>
#include <limits>

// GDAL's reader of these bytes, which its library has but no header tells of.
OGRErr CPL_DLL OGRCreateFromShapeBin(GByte* bytes, OGRGeometry** shape, int length);

namespace tessarine::engine {
namespace {

constexpr double kNoMeasure = -std::numeric_limits<double>::max();
constexpr double kLeastMeasure = -1e38;

// The types by kind of shape: plain, with heights, with measures, with both.
struct TypeNumbers {
  std::uint32_t plain, z, m, zm;
  [[nodiscard]] std::uint32_t In(ShapeLayout layout) const {
    if (layout.has_z) return layout.has_m ? zm : z;
    return layout.has_m ? m : plain;
  }
};
constexpr TypeNumbers kPoint{1, 9, 21, 11}, kMultipoint{8, 20, 28, 18}, kLine{3, 10, 23, 13}, kPolygon{5, 19, 25, 15};

struct Vertices {
  std::vector<std::uint32_t> part_begins;
  std::vector<double> x, y, z, m;

  void Add(const OGRPoint& point) {
    x.push_back(point.getX());
    y.push_back(point.getY());
    z.push_back(point.Is3D() != 0 ? point.getZ() : 0.0);
    const bool measured = point.IsMeasured() != 0 && !std::isnan(point.getM());
    m.push_back(measured ? point.getM() : kNoMeasure);
  }
  void AddPart(const OGRSimpleCurve& line) {
    part_begins.push_back(static_cast<std::uint32_t>(x.size()));
    OGRPoint point;
    for (int index = 0; index < line.getNumPoints(); ++index) {
      line.getPoint(index, &point);
      Add(point);
    }
  }
};

void Collect(const OGRGeometry& shape, Vertices& vertices) {
  switch (wkbFlatten(shape.getGeometryType())) {
    case wkbPoint:
      vertices.Add(*shape.toPoint());
      return;
    case wkbLineString:
    case wkbLinearRing:
      vertices.AddPart(*shape.toSimpleCurve());
      return;
    case wkbPolygon:
      for (const OGRLinearRing* ring : shape.toPolygon()) {
        if (ring->getNumPoints() > 0) vertices.AddPart(*ring);
      }
      return;
    case wkbMultiPoint:
    case wkbMultiLineString:
    case wkbMultiPolygon:
      for (const OGRGeometry* part : shape.toGeometryCollection()) {
        if (part->IsEmpty() == 0) Collect(*part, vertices);
      }
      return;
    default:
      throw jet::RowError(std::string("a personal geodatabase keeps no ") + shape.getGeometryName());
  }
}

const TypeNumbers& TypesOf(const OGRGeometry& shape) {
  switch (wkbFlatten(shape.getGeometryType())) {
    case wkbPoint:
      return kPoint;
    case wkbMultiPoint:
      return kMultipoint;
    case wkbPolygon:
    case wkbMultiPolygon:
      return kPolygon;
    default:
      return kLine;
  }
}

void AppendAll(jet::Bytes& bytes, const std::vector<double>& numbers) {
  for (const double number : numbers) jet::Append(bytes, number);
}

// Missing measures count for nothing, and neither does what is no number.
NumberRange RangeOf(const std::vector<double>& numbers) {
  NumberRange range;
  for (const double number : numbers) {
    if (number != kNoMeasure && std::isfinite(number)) range.Add(number);
  }
  return range;
}

void AppendWithRange(jet::Bytes& bytes, const NumberRange& range, const std::vector<double>& numbers) {
  jet::Append(bytes, range.IsEmpty() ? kNoMeasure : range.low);
  jet::Append(bytes, range.IsEmpty() ? kNoMeasure : range.high);
  AppendAll(bytes, numbers);
}

// GDAL takes the measures of multipoints with heights from beyond the bytes.
std::unique_ptr<OGRGeometry> MultipointFrom(const jet::Bytes& bytes, ShapeLayout layout) {
  constexpr std::size_t kCountAt = 36, kPointsAt = 40, kRange = 16;
  const std::size_t count = jet::Get32(bytes, kCountAt);
  const std::size_t z_at = kPointsAt + count * 16 + kRange;
  const std::size_t m_at = layout.has_z ? z_at + count * 8 + kRange : z_at;
  // Measures may be left away.
  const bool measured = layout.has_m && bytes.size() >= m_at + count * 8;
  auto points = std::make_unique<OGRMultiPoint>();
  for (std::size_t index = 0; index < count; ++index) {
    OGRPoint point(jet::Get<double>(bytes, kPointsAt + index * 16),
                   jet::Get<double>(bytes, kPointsAt + index * 16 + 8));
    if (layout.has_z) point.setZ(jet::Get<double>(bytes, z_at + index * 8));
    if (measured) point.setM(jet::Get<double>(bytes, m_at + index * 8));
    points->addGeometry(&point);
  }
  return points;
}

}  // namespace

namespace {

// A vertex without a measure has the least number there is, or less than any that counts.
class MeasuresOrNone final : public OGRDefaultGeometryVisitor {
 public:
  using OGRDefaultGeometryVisitor::visit;
  void visit(OGRPoint* point) override {
    if (point->IsMeasured() != 0 && point->getM() < kLeastMeasure) {
      point->setM(std::numeric_limits<double>::quiet_NaN());
    }
  }
  void visit(OGRLineString* line) override { Clean(*line); }
  void visit(OGRLinearRing* ring) override { Clean(*ring); }

 private:
  static void Clean(OGRSimpleCurve& line) {
    for (int index = 0; line.IsMeasured() != 0 && index < line.getNumPoints(); ++index) {
      if (line.getM(index) < kLeastMeasure) line.setM(index, std::numeric_limits<double>::quiet_NaN());
    }
  }
};

std::unique_ptr<OGRGeometry> ReadShape(const jet::Bytes& bytes) {
  if (bytes.size() >= 4 && jet::Get32(bytes, 0) == 0) return nullptr;
  for (const ShapeLayout layout : {ShapeLayout{}, {true, false}, {false, true}, {true, true}}) {
    if (jet::Get32(bytes, 0) == kMultipoint.In(layout)) return MultipointFrom(bytes, layout);
  }
  jet::Bytes copy = bytes;
  OGRGeometry* shape = nullptr;
  if (OGRCreateFromShapeBin(copy.data(), &shape, static_cast<int>(copy.size())) != OGRERR_NONE) {
    delete shape;
    throw jet::Error("the shape of a row can't be read: its bytes are damaged or of an unknown type");
  }
  return std::unique_ptr<OGRGeometry>(shape);
}

}  // namespace

std::unique_ptr<OGRGeometry> ShapeFromBytes(const jet::Bytes& bytes) {
  std::unique_ptr<OGRGeometry> shape = ReadShape(bytes);
  if (shape && shape->IsMeasured() != 0) {
    MeasuresOrNone clean;
    shape->accept(&clean);
  }
  return shape;
}

StoredShape StoreShape(const OGRGeometry& shape, ShapeLayout layout) {
  if (shape.hasCurveGeometry() != 0) {
    const std::unique_ptr<OGRGeometry> chords(shape.getLinearGeometry());
    return StoreShape(*chords, layout);
  }
  Vertices vertices;
  Collect(shape, vertices);
  const TypeNumbers& types = TypesOf(shape);
  StoredShape stored;
  if (layout.has_z) stored.z = RangeOf(vertices.z);
  if (layout.has_m) stored.m = RangeOf(vertices.m);
  jet::Bytes& bytes = stored.bytes;
  jet::Append32(bytes, types.In(layout));
  if (&types == &kPoint) {
    jet::Append(bytes, vertices.x.at(0));
    jet::Append(bytes, vertices.y.at(0));
    if (layout.has_z) jet::Append(bytes, vertices.z.at(0));
    if (layout.has_m) jet::Append(bytes, vertices.m.at(0));
    return stored;
  }
  OGREnvelope box;
  shape.getEnvelope(&box);
  for (const double side : {box.MinX, box.MinY, box.MaxX, box.MaxY}) jet::Append(bytes, side);
  const bool parts = &types != &kMultipoint;
  if (parts) jet::Append32(bytes, vertices.part_begins.size());
  jet::Append32(bytes, vertices.x.size());
  if (parts) {
    for (const std::uint32_t begin : vertices.part_begins) jet::Append32(bytes, begin);
  }
  for (std::size_t index = 0; index < vertices.x.size(); ++index) {
    jet::Append(bytes, vertices.x[index]);
    jet::Append(bytes, vertices.y[index]);
  }
  if (layout.has_z) AppendWithRange(bytes, stored.z, vertices.z);
  if (layout.has_m) AppendWithRange(bytes, stored.m, vertices.m);
  return stored;
}

}  // namespace tessarine::engine
