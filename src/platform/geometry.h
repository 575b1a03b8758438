// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes: points, multipoints, polylines, polygons and their parts.
//
// Whole shapes travel by `shared_ptr` and are changed in place; coordinates, ends and segments are read as plain
// values. A part keeps its vertices in one block of memory, so a loop over `Path::Vertices()` costs its arithmetic
// and nothing else. Coordinates are planar or longitude and latitude, as the spatial reference tells.
//
// Members that need a topology or projection engine (`Project`, `SnapToSpatialReference`, `ITopologicalOperator`,
// `Disjoint`, `LabelPoint`) are declared here and defined by the engine.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/geometry_interfaces.h"

namespace tessarine {

/// A coordinate pair as a shape. A new one is empty.
class Point final : public IGeometry, public IRelationalOperator, public ITransform2D {
 public:
  Point() = default;
  explicit Point(XY xy) : xy_(xy), empty_(false) {}
  Point(double x, double y) : xy_{x, y}, empty_(false) {}

  void PutCoords(double x, double y);
  [[nodiscard]] double X() const { return xy_.x; }
  [[nodiscard]] double Y() const { return xy_.y; }
  [[nodiscard]] XY Coordinates() const { return xy_; }
  void SetX(double x);
  void SetY(double y);

  [[nodiscard]] esriGeometryType GeometryType() const override { return esriGeometryPoint; }
  [[nodiscard]] bool IsEmpty() const override { return empty_; }
  void SetEmpty() override;
  [[nodiscard]] tessarine::Envelope Envelope() const override;
  [[nodiscard]] ObjectRef Clone() const override;
  [[nodiscard]] bool IsEqual(const Object& other) const override;
  [[nodiscard]] bool Disjoint(const IGeometry& other) const override;
  [[nodiscard]] bool Contains(const IGeometry& other) const override;
  void Move(double dx, double dy) override;

 private:
  XY xy_;
  bool empty_ = true;
};

/// A set of points, in the order in which they were added.
class Multipoint final : public IGeometry,
                         public IPointCollection,
                         public IGeometryCollection,
                         public ITopologicalOperator,
                         public IRelationalOperator,
                         public ITransform2D {
 public:
  Multipoint() = default;
  explicit Multipoint(std::vector<XY> points) : points_(std::move(points)) {}

  [[nodiscard]] std::span<const XY> Vertices() const { return points_; }
  void SetVertices(std::vector<XY> points);

  [[nodiscard]] esriGeometryType GeometryType() const override { return esriGeometryMultipoint; }
  [[nodiscard]] bool IsEmpty() const override { return points_.empty(); }
  void SetEmpty() override;
  [[nodiscard]] tessarine::Envelope Envelope() const override;
  [[nodiscard]] ObjectRef Clone() const override;
  [[nodiscard]] bool IsEqual(const Object& other) const override;

  [[nodiscard]] std::int32_t PointCount() const override { return static_cast<std::int32_t>(points_.size()); }
  [[nodiscard]] XY Point(std::int32_t index) const override;
  using IPointCollection::AddPoint;
  void AddPoint(XY point) override;
  void UpdatePoint(std::int32_t index, XY point) override;
  void SetPointCollection(const IPointCollection& other) override;
  [[nodiscard]] std::shared_ptr<IEnumVertex> EnumVertices() override;

  /// Its members are points; `Geometry` returns a new point with the multipoint's reference.
  [[nodiscard]] std::int32_t GeometryCount() const override { return PointCount(); }
  [[nodiscard]] GeometryRef Geometry(std::int32_t index) const override;
  void AddGeometry(const GeometryRef& geometry) override;

  [[nodiscard]] bool IsKnownSimple() const override { return known_simple_; }
  [[nodiscard]] bool IsSimple() const override;
  void Simplify() override;
  [[nodiscard]] GeometryRef Buffer(double distance) const override;
  [[nodiscard]] GeometryRef Union(const IGeometry& other) const override;
  void ConstructUnion(IEnumGeometry& geometries) override;
  void Cut(const Polyline& cutter, GeometryRef& left, GeometryRef& right) const override;
  void Clip(const tessarine::Envelope& clipper) override;
  void ClipDense(const tessarine::Envelope& clipper, double dense_distance) override;
  [[nodiscard]] bool Disjoint(const IGeometry& other) const override;
  [[nodiscard]] bool Contains(const IGeometry& other) const override;
  void Move(double dx, double dy) override;

 private:
  std::vector<XY> points_;
  bool known_simple_ = false;
};

/// One connected run of segments.
class Path : public IGeometry, public ICurve, public IPointCollection, public ISegmentCollection, public ITransform2D {
 public:
  /// A true curve of the path: the segment that starts at vertex `index`.
  struct CurveAt {
    std::size_t index;
    tessarine::Segment segment;
    bool operator==(const CurveAt&) const = default;
  };

  Path() = default;
  explicit Path(std::vector<XY> vertices) : vertices_(std::move(vertices)) {}

  /// All vertices in one block; a closed path repeats its first vertex at the end.
  [[nodiscard]] std::span<const XY> Vertices() const { return vertices_; }
  /// The true curves by ascending start index; empty on a path of lines.
  [[nodiscard]] std::span<const CurveAt> Curves() const;
  /// Replaces all vertices, and the curves by none.
  void SetVertices(std::vector<XY> vertices);
  /// Replaces vertices and curves; the ends of each curve must be those of its segment.
  void SetVertices(std::vector<XY> vertices, std::vector<CurveAt> curves);
  void Reserve(std::size_t vertices) { vertices_.reserve(vertices); }
  [[nodiscard]] bool IsClosed() const { return vertices_.size() > 1 && vertices_.front() == vertices_.back(); }
  void ReverseOrientation();
  /// Rises with every change; a shape compares it to know whether it is still as it was simplified.
  [[nodiscard]] std::uint64_t ChangeCount() const { return changes_; }
  /// Rises with every change to the number of vertices of any path, in this thread.
  [[nodiscard]] static std::uint64_t SizeChanges();

  [[nodiscard]] esriGeometryType GeometryType() const override { return esriGeometryPath; }
  [[nodiscard]] bool IsEmpty() const override { return vertices_.empty(); }
  void SetEmpty() override;
  [[nodiscard]] tessarine::Envelope Envelope() const override;
  [[nodiscard]] ObjectRef Clone() const override;
  [[nodiscard]] bool IsEqual(const Object& other) const override;

  [[nodiscard]] double Length() const override;
  [[nodiscard]] XY FromPoint() const override;
  [[nodiscard]] XY ToPoint() const override;
  void SetFromPoint(XY point) override;
  void SetToPoint(XY point) override;
  [[nodiscard]] XY QueryPoint(esriSegmentExtension extension, double distance, bool as_ratio) const override;
  using IPointCollection::QueryPoint;

  [[nodiscard]] std::int32_t PointCount() const override { return static_cast<std::int32_t>(vertices_.size()); }
  [[nodiscard]] XY Point(std::int32_t index) const override;
  using IPointCollection::AddPoint;
  void AddPoint(XY point) override;
  void UpdatePoint(std::int32_t index, XY point) override;
  void SetPointCollection(const IPointCollection& other) override;
  [[nodiscard]] std::shared_ptr<IEnumVertex> EnumVertices() override;

  [[nodiscard]] std::int32_t SegmentCount() const override;
  [[nodiscard]] tessarine::Segment Segment(std::int32_t index) const override;
  [[nodiscard]] bool HasCurves() const override { return !curves_.empty(); }
  void AddSegment(const tessarine::Segment& segment) override;
  void AddSegmentCollection(const ISegmentCollection& other) override;
  void Move(double dx, double dy) override;

 private:
  void NoteSizeChange();

  std::vector<XY> vertices_;
  // A curve keeps its shape between the ends that it was given. When vertices move, the curve follows from that shape,
  // so that a walk which moves every vertex in turn moves the curve as a whole.
  mutable std::vector<CurveAt> curves_;
  mutable bool curves_lag_ = false;
  std::uint64_t changes_ = 0;
};

/// A path that bounds an area once it is closed. Clockwise rings are exterior, counter-clockwise ones holes.
class Ring final : public Path, public IArea {
 public:
  using Path::Path;

  /// Adds the straight closing segment where the ends differ.
  void Close();
  [[nodiscard]] bool IsExterior() const { return Area() > 0.0; }
  /// True when the point lies inside the ring of chords and curves, by the even-odd rule; the boundary is undecided.
  [[nodiscard]] bool Encloses(XY point) const;

  [[nodiscard]] esriGeometryType GeometryType() const override { return esriGeometryRing; }
  [[nodiscard]] ObjectRef Clone() const override;
  [[nodiscard]] double Area() const override;
  [[nodiscard]] XY Centroid() const override;
  [[nodiscard]] XY LabelPoint() const override;
};

/// What polylines and polygons share: a list of parts.
class PartedShape : public IGeometry,
                    public ICurve,
                    public IPointCollection,
                    public ISegmentCollection,
                    public IGeometryCollection,
                    public ITopologicalOperator,
                    public IRelationalOperator,
                    public ITransform2D {
 public:
  [[nodiscard]] std::span<const std::shared_ptr<Path>> Parts() const { return parts_; }

  [[nodiscard]] bool IsEmpty() const override;
  void SetEmpty() override;
  [[nodiscard]] tessarine::Envelope Envelope() const override;
  [[nodiscard]] bool IsEqual(const Object& other) const override;

  [[nodiscard]] double Length() const override;
  [[nodiscard]] XY FromPoint() const override;
  [[nodiscard]] XY ToPoint() const override;
  void SetFromPoint(XY point) override;
  void SetToPoint(XY point) override;
  [[nodiscard]] XY QueryPoint(esriSegmentExtension extension, double distance, bool as_ratio) const override;
  using IPointCollection::QueryPoint;

  [[nodiscard]] std::int32_t PointCount() const override;
  [[nodiscard]] XY Point(std::int32_t index) const override;
  using IPointCollection::AddPoint;
  void AddPoint(XY point) override;
  void UpdatePoint(std::int32_t index, XY point) override;
  void SetPointCollection(const IPointCollection& other) override;
  [[nodiscard]] std::shared_ptr<IEnumVertex> EnumVertices() override;

  [[nodiscard]] std::int32_t SegmentCount() const override;
  [[nodiscard]] tessarine::Segment Segment(std::int32_t index) const override;
  [[nodiscard]] bool HasCurves() const override;
  void AddSegment(const tessarine::Segment& segment) override;
  void AddSegmentCollection(const ISegmentCollection& other) override;

  [[nodiscard]] std::int32_t GeometryCount() const override { return static_cast<std::int32_t>(parts_.size()); }
  [[nodiscard]] GeometryRef Geometry(std::int32_t index) const override;

  [[nodiscard]] bool IsKnownSimple() const override;
  [[nodiscard]] bool IsSimple() const override;
  void Simplify() override;
  [[nodiscard]] GeometryRef Buffer(double distance) const override;
  [[nodiscard]] GeometryRef Union(const IGeometry& other) const override;
  void ConstructUnion(IEnumGeometry& geometries) override;
  void Cut(const Polyline& cutter, GeometryRef& left, GeometryRef& right) const override;
  void Clip(const tessarine::Envelope& clipper) override;
  void ClipDense(const tessarine::Envelope& clipper, double dense_distance) override;
  [[nodiscard]] bool Disjoint(const IGeometry& other) const override;
  [[nodiscard]] bool Contains(const IGeometry& other) const override;
  /// The mean of the segments by their length, a curve standing for its middle; of the vertices where no segment has a
  /// length. What is left of a polygon without area. Fault 5 for an empty shape.
  [[nodiscard]] XY CentroidOfLines() const;
  void Move(double dx, double dy) override;

  /// Replaces the parts.
  void SetParts(std::vector<std::shared_ptr<Path>> parts);
  /// Says that the shape, as it stands, is simple.
  void MarkSimple();

 protected:
  PartedShape() = default;
  void CopyPartsTo(PartedShape& target) const;
  void AppendPart(std::shared_ptr<Path> part);

 private:
  struct Place {
    std::size_t part;
    std::int32_t index;
  };
  [[nodiscard]] virtual std::shared_ptr<Path> NewPart() const = 0;
  [[nodiscard]] Place FindVertex(std::int32_t index) const;
  [[nodiscard]] Place FindSegment(std::int32_t index) const;
  [[nodiscard]] std::uint64_t Stamp() const;
  Path& LastPart();

  std::vector<std::shared_ptr<Path>> parts_;
  std::uint64_t changes_ = 0;
  std::uint64_t part_changes_ = 0;
  std::uint64_t simple_stamp_ = 0;
  bool simple_ = false;
  // Where the last look-up by index ended, so that a walk in order costs nothing per step. Any change to the sizes of
  // parts makes the place stale, which its stamp tells.
  struct CachedPlace {
    std::size_t part = 0;
    std::int32_t first = 0;
    std::uint64_t stamp = 0;
  };
  template <class Count>
  Place FindPlace(std::int32_t index, CachedPlace& cache, const char* what, Count&& count) const;
  mutable CachedPlace vertex_place_, segment_place_;
};

/// A line of any number of paths.
class Polyline final : public PartedShape {
 public:
  [[nodiscard]] esriGeometryType GeometryType() const override { return esriGeometryPolyline; }
  [[nodiscard]] ObjectRef Clone() const override;
  /// Takes a `Path`; a `Ring` is taken as the path it is.
  void AddGeometry(const GeometryRef& geometry) override;
  /// Splits the paths where they cross, in place, so that they meet only at ends.
  void SimplifyNetwork();

 private:
  [[nodiscard]] std::shared_ptr<Path> NewPart() const override;
};

class GeometryBag;

/// An area of any number of rings.
class Polygon final : public PartedShape, public IArea {
 public:
  [[nodiscard]] esriGeometryType GeometryType() const override { return esriGeometryPolygon; }
  [[nodiscard]] ObjectRef Clone() const override;
  /// Takes a `Ring`.
  void AddGeometry(const GeometryRef& geometry) override;
  void Close();
  [[nodiscard]] std::shared_ptr<tessarine::Ring> Ring(std::int32_t index) const;

  // Rings by relation to each other: clockwise rings are exterior, and each counter-clockwise ring belongs to the
  // smallest exterior ring that encloses it. A ring given as an argument must be one of this polygon's own rings or
  // equal one of them; otherwise fault 5.
  [[nodiscard]] std::int32_t ExteriorRingCount() const;
  [[nodiscard]] std::int32_t InteriorRingCount(const tessarine::Ring& exterior) const;
  [[nodiscard]] std::vector<std::shared_ptr<tessarine::Ring>> QueryExteriorRingsEx() const;  // published alone
  [[nodiscard]] std::shared_ptr<GeometryBag> ExteriorRingBag() const;
  [[nodiscard]] std::shared_ptr<GeometryBag> InteriorRingBag(const tessarine::Ring& exterior) const;
  /// One new polygon for each exterior ring, with copies of the ring and of its holes, in ring order. Holes that no
  /// exterior ring encloses stand alone at the end, one polygon each.
  [[nodiscard]] std::shared_ptr<GeometryBag> ConnectedComponentBag() const;

  [[nodiscard]] double Area() const override;
  /// False where the area is 0, or nothing but the rounding of its sum.
  [[nodiscard]] bool HasArea() const;
  /// The centre of gravity of the area, holes left out; without an area that of the boundaries by their length, and
  /// without a length the mean of the vertices. Fault 5 for an empty polygon.
  [[nodiscard]] XY Centroid() const override;
  /// Fault 5 for a polygon without an inner point.
  [[nodiscard]] XY LabelPoint() const override;
  /// A place inside the polygon, as the even-odd rule has it; empty for one that bounds nothing.
  [[nodiscard]] std::optional<XY> InnerPoint() const;

 private:
  [[nodiscard]] std::shared_ptr<Path> NewPart() const override;
};

/// A list of shapes of any kind, and the walk over them.
class GeometryBag final : public IGeometry, public IGeometryCollection, public IEnumGeometry {
 public:
  [[nodiscard]] esriGeometryType GeometryType() const override { return esriGeometryBag; }
  [[nodiscard]] bool IsEmpty() const override { return members_.empty(); }
  void SetEmpty() override { members_.clear(); }
  [[nodiscard]] tessarine::Envelope Envelope() const override;
  [[nodiscard]] ObjectRef Clone() const override;
  [[nodiscard]] bool IsEqual(const Object& other) const override;

  [[nodiscard]] std::int32_t GeometryCount() const override { return static_cast<std::int32_t>(members_.size()); }
  [[nodiscard]] GeometryRef Geometry(std::int32_t index) const override;
  void AddGeometry(const GeometryRef& geometry) override;

  void Reset() override { next_ = 0; }
  [[nodiscard]] GeometryRef Next() override;

 private:
  std::vector<GeometryRef> members_;
  std::size_t next_ = 0;
};

}  // namespace tessarine
