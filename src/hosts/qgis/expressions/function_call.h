// SPDX-License-Identifier: GPL-2.0-or-later
// One call of a function of the suite in an expression: its arguments, and the reference and spheroid that they mean.
// A call belongs to the thread that evaluates the expression.
#pragma once

#include <qgscoordinatereferencesystem.h>
#include <qgsexpressioncontext.h>
#include <qgsexpressionfunction.h>

#include <QString>
#include <QVariant>
#include <optional>
#include <stdexcept>
#include <vector>

#include "platform/geometry.h"
#include "platform/shape_measures.h"

namespace tessarine::qgis {

// The names by which arguments are given.
inline constexpr const char* kGeometry = "geometry";
inline constexpr const char* kFrom = "from";
inline constexpr const char* kTo = "to";
inline constexpr const char* kSpheroid = "spheroid";
inline constexpr const char* kReference = "crs";
inline constexpr const char* kEnd = "end";

/// What is wrong with a call, for whoever writes the expression; the text names the argument.
class ArgumentError final : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The semi-axes of a spheroid in metres.
struct Axes {
  double semi_major, semi_minor;
};

class FunctionCall {
 public:
  FunctionCall(const QgsExpressionFunction& function, const QVariantList& values, const QgsExpressionContext* context)
      : function_(function), values_(values), context_(context) {}

  /// The shape of a geometry with its reference; null for NULL and for an empty one. An `ArgumentError` for what isn't
  /// a geometry of one of these types.
  [[nodiscard]] GeometryRef Shape(const char* argument, const std::vector<esriGeometryType>& types);
  /// The longitude and latitude of a point, degrees; none for NULL and for an empty one.
  [[nodiscard]] std::optional<XY> Place(const char* argument);
  /// Of the reference if it is given; else of the layer, and where there is none of the project.
  [[nodiscard]] const SpatialReferenceRef& Reference();
  /// Of the spheroid if it is given; else that of the reference. Without a layer it is the project's.
  [[nodiscard]] Axes AxesToUse();
  /// An `ArgumentError` for a spheroid that there isn't. A call checks it for features without geometry, too.
  void CheckSpheroid() const;
  /// True for "end", False for "start" and where neither is given.
  [[nodiscard]] bool WantsEnd() const;

  /// Keeps what is to be told of the result.
  void Note(const MeasureNotes& notes) { notes_.insert(notes_.end(), notes.begin(), notes.end()); }
  [[nodiscard]] const MeasureNotes& Notes() const { return notes_; }

 private:
  /// Among the function's parameters, from 0; -1 for none of them.
  [[nodiscard]] int PositionOf(const char* argument) const;
  [[nodiscard]] QVariant Value(const char* argument) const;
  /// None where it isn't given.
  [[nodiscard]] std::optional<QString> Text(const char* argument) const;
  [[nodiscard]] std::optional<Axes> GivenAxes() const;
  [[nodiscard]] QgsCoordinateReferenceSystem SystemToUse() const;
  [[nodiscard]] QgsCoordinateReferenceSystem SystemOfContext() const;
  [[nodiscard]] bool HasLayer() const;
  [[nodiscard]] QVariant Variable(const char* name) const;
  [[noreturn]] void Fail(const char* argument, const QString& problem) const;

  const QgsExpressionFunction& function_;
  const QVariantList& values_;
  const QgsExpressionContext* context_;
  SpatialReferenceRef reference_;
  MeasureNotes notes_;
};

}  // namespace tessarine::qgis
