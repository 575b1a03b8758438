// SPDX-License-Identifier: MIT
// The small value types and enumerations under all geometry.
#pragma once

#include <cstdint>

namespace tessarine {

enum esriGeometryType : std::int32_t {
  esriGeometryNull = 0,
  esriGeometryPoint = 1,
  esriGeometryMultipoint = 2,
  esriGeometryPolyline = 3,
  esriGeometryPolygon = 4,
  esriGeometryPath = 6,
  esriGeometryRing = 11,
  esriGeometryLine = 13,
  esriGeometryCircularArc = 14,
  esriGeometryBezier3Curve = 15,
  esriGeometryEllipticArc = 16,
  esriGeometryBag = 17,
};

/// What lies beyond the ends of a curve. `esriNoExtension` stops at the nearer end.
enum esriSegmentExtension : std::int32_t {
  esriNoExtension = 0,
  esriExtendTangents = 2,
};

/// A coordinate pair as a plain value: longitude before latitude in geographic data.
struct XY {
  double x = 0.0;
  double y = 0.0;

  bool operator==(const XY&) const = default;
};

/// An axis-aligned rectangle; empty until something is put into it.
class Envelope {
 public:
  Envelope() = default;
  Envelope(double xmin, double ymin, double xmax, double ymax);

  [[nodiscard]] bool IsEmpty() const { return empty_; }
  // The four sides, the width and the height are 0 while it is empty.
  [[nodiscard]] double XMin() const { return xmin_; }
  [[nodiscard]] double YMin() const { return ymin_; }
  [[nodiscard]] double XMax() const { return xmax_; }
  [[nodiscard]] double YMax() const { return ymax_; }
  [[nodiscard]] double Width() const { return xmax_ - xmin_; }
  [[nodiscard]] double Height() const { return ymax_ - ymin_; }

  /// Grows to hold the other rectangle, or the point. An empty rectangle changes nothing.
  void Union(const Envelope& other);
  void Union(XY point);
  /// Grows about the centre: by the factors dx and dy when `as_ratio`, else by dx and dy on each side.
  void Expand(double dx, double dy, bool as_ratio);
  /// True when the two share a point, edges included.
  [[nodiscard]] bool Intersects(const Envelope& other) const;

  bool operator==(const Envelope&) const = default;

 private:
  bool empty_ = true;
  double xmin_ = 0.0, ymin_ = 0.0, xmax_ = 0.0, ymax_ = 0.0;
};

}  // namespace tessarine
