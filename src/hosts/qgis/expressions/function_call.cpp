// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/expressions/function_call.h"

#include <qgsgeometry.h>
#include <qgsgeometrycollection.h>
#include <qgspoint.h>

#include <algorithm>

#include "hosts/qgis/spheroid_book.h"
#include "hosts/qgis/suite_measures.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/fault.h"

namespace tessarine::qgis {
namespace {

constexpr const char* kLayerSystem = "_layer_crs";
constexpr const char* kLayerCode = "layer_crs";

bool IsNull(const QVariant& value) { return !value.isValid() || value.isNull(); }

QString WordFor(esriGeometryType type) {
  switch (type) {
    case esriGeometryPoint:
      return Translated("a point");
    case esriGeometryPolyline:
      return Translated("a line");
    default:
      return Translated("a polygon");
  }
}

QString WordsFor(const std::vector<esriGeometryType>& types) {
  QStringList words;
  for (const esriGeometryType type : types) words << WordFor(type);
  return words.join(QLatin1Char(' ') + Translated("or") + QLatin1Char(' '));
}

// A value as the complaint about it shows it.
QString Shown(const QVariant& value) {
  constexpr int kLongest = 40;
  if (value.userType() == qMetaTypeId<QgsGeometry>()) {
    return Translated("a geometry of the type %1")
        .arg(QgsWkbTypes::displayString(value.value<QgsGeometry>().wkbType()));
  }
  const QString text = value.toString();
  return text.isEmpty() ? QString::fromLatin1(value.typeName())
                        : QStringLiteral("'%1'").arg(text.size() > kLongest ? text.left(kLongest) + "..." : text);
}

// A class of many may hold one.
const QgsPoint* OnlyPoint(const QgsGeometry& geometry) {
  const QgsAbstractGeometry* shape = geometry.constGet();
  if (const auto* many = qgsgeometry_cast<const QgsGeometryCollection*>(shape); many && many->numGeometries() == 1) {
    shape = many->geometryN(0);
  }
  return qgsgeometry_cast<const QgsPoint*>(shape);
}

// A call asks for the same one that the call before asked for.
SpatialReferenceRef KeptReferenceOf(const QgsCoordinateReferenceSystem& system) {
  thread_local QgsCoordinateReferenceSystem last;
  thread_local SpatialReferenceRef reference;
  if (!reference || last != system) {
    reference = ReferenceOf(system);
    last = system;
  }
  return reference;
}

QgsCoordinateReferenceSystem SystemCalled(const QString& text) {
  QgsCoordinateReferenceSystem system;
  system.createFromString(text);
  return system;
}

}  // namespace

int FunctionCall::PositionOf(const char* argument) const {
  const QgsExpressionFunction::ParameterList& parameters = function_.parameters();
  for (int index = 0; index < parameters.size(); ++index) {
    if (parameters.at(index).name() == QLatin1String(argument)) return index;
  }
  return -1;
}

void FunctionCall::Fail(const char* argument, const QString& problem) const {
  throw ArgumentError(
      FromQt(Translated("argument %1 (%2): %3").arg(PositionOf(argument) + 1).arg(QLatin1String(argument), problem)));
}

QVariant FunctionCall::Value(const char* argument) const { return values_.value(PositionOf(argument)); }

std::optional<QString> FunctionCall::Text(const char* argument) const {
  const QVariant value = Value(argument);
  if (IsNull(value)) return std::nullopt;
  const bool is_text = value.type() == QVariant::String || value.type() == QVariant::Int ||
                       value.type() == QVariant::LongLong || value.type() == QVariant::UInt;
  if (!is_text) Fail(argument, Translated("it has to be a text, and is %1.").arg(Shown(value)));
  const QString text = value.toString().trimmed();
  return text.isEmpty() ? std::nullopt : std::optional(text);
}

GeometryRef FunctionCall::Shape(const char* argument, const std::vector<esriGeometryType>& types) {
  const QVariant value = Value(argument);
  if (IsNull(value)) return nullptr;
  const auto geometry = value.value<QgsGeometry>();
  const bool is_geometry = value.userType() == qMetaTypeId<QgsGeometry>();
  if (is_geometry && (geometry.isNull() || geometry.isEmpty())) return nullptr;
  const esriGeometryType type = is_geometry ? ShapeTypeOf(geometry.wkbType()) : esriGeometryNull;
  if (std::ranges::find(types, type) == types.end()) {
    Fail(argument, Translated("it has to be %1, and is %2.").arg(WordsFor(types), Shown(value)));
  }
  return ShapeOf(geometry, type, Reference());
}

std::optional<XY> FunctionCall::Place(const char* argument) {
  const QVariant value = Value(argument);
  if (IsNull(value)) return std::nullopt;
  const auto geometry = value.value<QgsGeometry>();
  const bool is_geometry = value.userType() == qMetaTypeId<QgsGeometry>();
  if (is_geometry && (geometry.isNull() || geometry.isEmpty())) return std::nullopt;
  const QgsPoint* point = is_geometry ? OnlyPoint(geometry) : nullptr;
  if (point == nullptr) Fail(argument, Translated("it has to be a point, and is %1.").arg(Shown(value)));
  return Measures().InDegrees({point->x(), point->y()}, Reference());
}

bool FunctionCall::WantsEnd() const {
  const QString word = Text(kEnd).value_or(QStringLiteral("start")).toLower();
  if (word != QStringLiteral("start") && word != QStringLiteral("end")) {
    Fail(kEnd, Translated("it has to be 'start' or 'end', and is '%1'.").arg(word));
  }
  return word == QStringLiteral("end");
}

const SpatialReferenceRef& FunctionCall::Reference() {
  if (reference_) return reference_;
  const QgsCoordinateReferenceSystem system = SystemToUse();
  if (!system.isValid()) {
    Fail(kReference, HasLayer() ? Translated("the layer has no reference, so it must be given here.")
                                : Translated("neither a layer nor the project tells one, so it must be given here."));
  }
  reference_ = KeptReferenceOf(system);
  if (!GeographicOf(reference_)) {
    Fail(kReference, Translated("'%1' is neither geographic nor projected, and tells no place on a spheroid.")
                         .arg(system.userFriendlyIdentifier()));
  }
  return reference_;
}

QgsCoordinateReferenceSystem FunctionCall::SystemToUse() const {
  const auto text = Text(kReference);
  if (!text) return SystemOfContext();
  QgsCoordinateReferenceSystem system = SystemCalled(*text);
  if (!system.isValid()) Fail(kReference, Translated("there is no reference '%1'.").arg(*text));
  return system;
}

QgsCoordinateReferenceSystem FunctionCall::SystemOfContext() const {
  if (HasLayer()) {
    const auto system = Variable(kLayerSystem).value<QgsCoordinateReferenceSystem>();
    return system.isValid() ? system : SystemCalled(Variable(kLayerCode).toString());
  }
  for (const char* name : {"project_crs", "project_crs_wkt"}) {
    QgsCoordinateReferenceSystem system = SystemCalled(Variable(name).toString());
    if (system.isValid()) return system;
  }
  return {};
}

bool FunctionCall::HasLayer() const {
  return context_ != nullptr &&
         (context_->hasVariable(QLatin1String(kLayerSystem)) || context_->hasVariable(QLatin1String(kLayerCode)));
}

QVariant FunctionCall::Variable(const char* name) const {
  return context_ == nullptr ? QVariant() : context_->variable(QLatin1String(name));
}

std::optional<Axes> FunctionCall::GivenAxes() const {
  const auto text = Text(kSpheroid);
  if (!text) return std::nullopt;
  try {
    const NamedSpheroid spheroid = SpheroidCalled(*text);
    return Axes{spheroid.semi_major_axis, spheroid.semi_minor_axis};
  } catch (const Fault& fault) {
    Fail(kSpheroid, Translated(LinesToQt(fault.Description())));
  }
}

void FunctionCall::CheckSpheroid() const { static_cast<void>(GivenAxes()); }

Axes FunctionCall::AxesToUse() {
  if (const auto given = GivenAxes()) return *given;
  const bool is_of_project = !HasLayer() && !Text(kReference);
  if (is_of_project) {
    if (const auto set = SpheroidOfSetting(Variable("project_ellipsoid").toString())) {
      return {set->semi_major_axis, set->semi_minor_axis};
    }
  }
  const auto geographic = GeographicOf(Reference());
  const auto& datum = geographic->Datum();
  if (!datum || !datum->Spheroid() || !(datum->Spheroid()->SemiMinorAxis() > 0.0)) {
    Fail(kSpheroid, Translated("the reference tells no spheroid, so it must be given here."));
  }
  return {datum->Spheroid()->SemiMajorAxis(), datum->Spheroid()->SemiMinorAxis()};
}

}  // namespace tessarine::qgis
