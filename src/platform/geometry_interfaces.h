// SPDX-License-Identifier: GPL-2.0-or-later
// The faces of shapes: what any shape, curve, collection or area can do.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/geometry_types.h"
#include "platform/object.h"
#include "platform/segment.h"
#include "platform/spatial_reference.h"

namespace tessarine {

class IGeometry : public IClone {
 public:
  [[nodiscard]] virtual esriGeometryType GeometryType() const = 0;
  [[nodiscard]] virtual bool IsEmpty() const = 0;
  virtual void SetEmpty() = 0;
  [[nodiscard]] virtual tessarine::Envelope Envelope() const = 0;

  /// Null when the shape bears no reference. Setting it changes no coordinate.
  [[nodiscard]] const SpatialReferenceRef& SpatialReference() const { return spatial_reference_; }
  void SetSpatialReference(SpatialReferenceRef reference) { spatial_reference_ = std::move(reference); }

  /// Changes the coordinates to the given reference and takes it on. Without a known reference on either side only
  /// the reference changes. Curves become lines. A vertex that can't be projected raises a fault that names it.
  void Project(const SpatialReferenceRef& reference);
  /// Rounds the coordinates to the grid of the reference (`XYResolution`); nothing without a valid one.
  void SnapToSpatialReference();

 private:
  SpatialReferenceRef spatial_reference_;
};

using GeometryRef = std::shared_ptr<IGeometry>;

/// A length, two ends, and places between them. A multipart shape counts its parts in order, without the gaps.
class ICurve : public virtual Object {
 public:
  [[nodiscard]] virtual double Length() const = 0;
  /// The ends raise fault 5 on an empty curve.
  [[nodiscard]] virtual XY FromPoint() const = 0;
  [[nodiscard]] virtual XY ToPoint() const = 0;
  virtual void SetFromPoint(XY point) = 0;
  virtual void SetToPoint(XY point) = 0;
  /// The point at a distance along the curve, or at a ratio of its length.
  [[nodiscard]] virtual XY QueryPoint(esriSegmentExtension extension, double distance, bool as_ratio) const = 0;
};

class Point;
class IPointCollection;

/// Walks the vertices of a shape over all its parts and may move each.
class IEnumVertex : public virtual Object {
 public:
  virtual void Reset() = 0;
  /// Fills the point and the two indexes with the next vertex. At the end both indexes are -1 and the point stays.
  virtual void QueryNext(Point& point, std::int32_t& part_index, std::int32_t& vertex_index) = 0;
  // Writes the vertex that was read last.
  virtual void SetX(double x) = 0;
  virtual void SetY(double y) = 0;
};

/// The vertices of a shape in order, indexes from 0 over all parts.
class IPointCollection : public virtual Object {
 public:
  [[nodiscard]] virtual std::int32_t PointCount() const = 0;
  /// Raises fault 5 for an index outside the collection.
  [[nodiscard]] virtual XY Point(std::int32_t index) const = 0;
  void QueryPoint(std::int32_t index, tessarine::Point& point) const;
  /// Adds a vertex after the last one, with a straight segment where there is one; on a shape of parts to the last
  /// part, which is made if there is none.
  virtual void AddPoint(XY point) = 0;
  void AddPoint(const tessarine::Point& point);
  virtual void UpdatePoint(std::int32_t index, XY point) = 0;
  /// Replaces all vertices by those of the other collection, in one part.
  virtual void SetPointCollection(const IPointCollection& other) = 0;
  [[nodiscard]] virtual std::shared_ptr<IEnumVertex> EnumVertices() = 0;
};

/// The segments of a part or shape in order, indexes from 0 over all parts.
class ISegmentCollection : public virtual Object {
 public:
  [[nodiscard]] virtual std::int32_t SegmentCount() const = 0;
  /// Raises fault 5 for an index outside the collection.
  [[nodiscard]] virtual tessarine::Segment Segment(std::int32_t index) const = 0;
  /// True when at least one segment is a true curve.
  [[nodiscard]] virtual bool HasCurves() const = 0;
  /// Adds a segment after the last one. Its start replaces the end that stands, when the two differ.
  virtual void AddSegment(const tessarine::Segment& segment) = 0;
  virtual void AddSegmentCollection(const ISegmentCollection& other) = 0;
};

/// The parts of a multipart shape, or the members of a bag.
class IGeometryCollection : public virtual Object {
 public:
  [[nodiscard]] virtual std::int32_t GeometryCount() const = 0;
  /// The very part, not a copy. Raises fault 5 for an index outside the collection.
  [[nodiscard]] virtual GeometryRef Geometry(std::int32_t index) const = 0;
  /// Takes the part itself. Raises fault 13 for a part that doesn't fit the shape.
  virtual void AddGeometry(const GeometryRef& geometry) = 0;
};

/// A walk over the members of a bag; null at the end.
class IEnumGeometry : public virtual Object {
 public:
  virtual void Reset() = 0;
  [[nodiscard]] virtual GeometryRef Next() = 0;
};

class IArea : public virtual Object {
 public:
  /// Planar area: positive for clockwise rings, holes subtracted.
  [[nodiscard]] virtual double Area() const = 0;
  /// The centre of gravity; fault 11 for an area of 0.
  [[nodiscard]] virtual XY Centroid() const = 0;
  void QueryCentroid(Point& point) const;  // published, and called by nobody here
  /// A point that lies inside; fault 5 for an empty shape.
  [[nodiscard]] virtual XY LabelPoint() const = 0;
  void QueryLabelPoint(Point& point) const;  // the same
};

class Polyline;
class Polygon;

class ITopologicalOperator : public virtual Object {
 public:
  /// True when the shape was simplified, or found simple, and not changed since.
  [[nodiscard]] virtual bool IsKnownSimple() const = 0;
  [[nodiscard]] virtual bool IsSimple() const = 0;
  /// Makes the shape valid in place. Polygons: even-odd, exterior rings clockwise, holes counter-clockwise, parts
  /// without area dropped. Polylines: segments without length and empty parts dropped. Multipoints: duplicates
  /// dropped. The coordinates of a shape that is already valid stay untouched, bit for bit. Time: n log n.
  virtual void Simplify() = 0;
  [[nodiscard]] virtual GeometryRef Buffer(double distance) const = 0;
  [[nodiscard]] virtual GeometryRef Union(const IGeometry& other) const = 0;
  /// Replaces this shape by the union of the members of the bag that are of its kind. Time: n log n in all vertices.
  virtual void ConstructUnion(IEnumGeometry& geometries) = 0;
  /// The parts to the left and to the right of the cutting line.
  virtual void Cut(const Polyline& cutter, GeometryRef& left, GeometryRef& right) const = 0;
  /// Keeps what lies inside the rectangle, in place. Time grows with the vertices, by n log n with the cuts.
  virtual void Clip(const tessarine::Envelope& clipper) = 0;
  /// The same, with vertices at most `dense_distance` apart along the cut edges.
  virtual void ClipDense(const tessarine::Envelope& clipper, double dense_distance) = 0;
};

class IRelationalOperator : public virtual Object {
 public:
  /// True when the two shapes share no point.
  [[nodiscard]] virtual bool Disjoint(const IGeometry& other) const = 0;
  /// True when the other shape lies inside this one and their interiors meet.
  [[nodiscard]] virtual bool Contains(const IGeometry& other) const = 0;
};

class ITransform2D : public virtual Object {
 public:
  virtual void Move(double dx, double dy) = 0;
};

}  // namespace tessarine
