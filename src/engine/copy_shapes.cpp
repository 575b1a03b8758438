// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/copy_shapes.h"

#include <algorithm>

#include "engine/ogr_cursor.h"
#include "engine/ogr_geometry.h"

namespace tessarine::engine {
namespace {

constexpr const char* kHeightFilled =
    "The shape has no heights (Z) and got the height 0: the format keeps them for all shapes of a layer or for none.";
constexpr const char* kMeasureFilled =
    "The shape has no measures (M) and got the measure 0: the format keeps them for all shapes of a layer or for none.";
constexpr const char* kHeightLost = "The heights (Z) of the shape aren't kept by the format.";
constexpr const char* kMeasureLost = "The measures (M) of the shape aren't kept by the format.";

void LookAt(const OGRGeometry* shape, ShapeFacts& facts, OGREnvelope& extent) {
  if (shape == nullptr || shape->IsEmpty() || !HasFinitePositions(*shape)) return;
  const OGRwkbGeometryType type = shape->getGeometryType();
  const bool multiple = OGR_GT_IsSubClassOf(type, wkbGeometryCollection) != 0;
  (multiple ? facts.multiple : facts.single) = true;
  facts.z = facts.z || OGR_GT_HasZ(type) != 0;
  facts.m = facts.m || OGR_GT_HasM(type) != 0;
  facts.curves = facts.curves || shape->hasCurveGeometry() != 0;
  OGREnvelope box;
  shape->getEnvelope(&box);
  extent.Merge(box);
}

// Twice the area in the plane; above 0 for a ring against the clock. From its first vertex, so that no digits are lost.
double SignedArea(const OGRLinearRing& ring) {
  double sum = 0.0;
  for (int index = 1; index + 1 < ring.getNumPoints(); ++index) {
    const double x = ring.getX(0), y = ring.getY(0);
    sum += (ring.getX(index) - x) * (ring.getY(index + 1) - y) - (ring.getX(index + 1) - x) * (ring.getY(index) - y);
  }
  return sum;
}

void TurnRings(OGRPolygon& polygon) {
  bool outer = true;
  for (OGRLinearRing* ring : polygon) {
    const double area = SignedArea(*ring);
    if (outer ? area > 0.0 : area < 0.0) ring->reverseWindingOrder();
    outer = false;
  }
}

void TurnRings(OGRGeometry& shape) {
  const OGRwkbGeometryType type = wkbFlatten(shape.getGeometryType());
  if (type == wkbPolygon) TurnRings(*shape.toPolygon());
  if (type != wkbMultiPolygon) return;
  for (OGRPolygon* polygon : *shape.toMultiPolygon()) TurnRings(*polygon);
}

// The library counts shapes of plain lines as ones of curves; a layer of one kind doesn't.
std::unique_ptr<OGRGeometry> AsCurves(std::unique_ptr<OGRGeometry> shape, OGRwkbGeometryType flat) {
  if (!shape) return shape;
  const OGRwkbGeometryType own = OGR_GT_Flatten(shape->getGeometryType());
  if (own == wkbMultiPolygon && flat == wkbMultiSurface) {
    return std::unique_ptr<OGRGeometry>(OGRMultiPolygon::CastToMultiSurface(shape.release()->toMultiPolygon()));
  }
  if (own == wkbMultiLineString && flat == wkbMultiCurve) {
    return std::unique_ptr<OGRGeometry>(OGRMultiLineString::CastToMultiCurve(shape.release()->toMultiLineString()));
  }
  return shape;
}

struct TypeRow {
  esriGeometryType kind;
  OGRwkbGeometryType single, multiple, single_curve, multiple_curve;
};
constexpr TypeRow kTypes[] = {
    {esriGeometryPoint, wkbPoint, wkbMultiPoint, wkbPoint, wkbMultiPoint},
    {esriGeometryMultipoint, wkbMultiPoint, wkbMultiPoint, wkbMultiPoint, wkbMultiPoint},
    {esriGeometryPolyline, wkbLineString, wkbMultiLineString, wkbCompoundCurve, wkbMultiCurve},
    {esriGeometryPolygon, wkbPolygon, wkbMultiPolygon, wkbCurvePolygon, wkbMultiSurface},
};

}  // namespace

bool IsChosen(const ChosenOids& chosen, std::int64_t oid) {
  return !chosen || std::ranges::binary_search(*chosen, oid);
}

ShapeFacts LookAtShapes(const std::shared_ptr<OgrClass>& source, const ChosenOids& chosen,
                        const std::function<void()>& poll) {
  ShapeFacts facts;
  OGREnvelope extent;
  QueryFilter shapes_alone;
  shapes_alone.SubFields = ",";
  ReadingCursor cursor(source, source->Source()->Read(), &shapes_alone, Recycling::Yes);
  while (const OgrFeatureHandle feature = cursor.NextOgr()) {
    poll();
    if (!IsChosen(chosen, feature->GetFID())) continue;
    facts.oids.push_back(feature->GetFID());
    LookAt(feature->GetGeometryRef(), facts, extent);
  }
  if (extent.IsInit()) facts.extent = {extent.MinX, extent.MinY, extent.MaxX, extent.MaxY};
  if (facts.oids.empty()) return facts;
  std::vector<std::int64_t> sorted = facts.oids;
  std::ranges::sort(sorted);
  facts.least = sorted.front();
  facts.most = sorted.back();
  facts.repeated = std::ranges::adjacent_find(sorted) != sorted.end();
  return facts;
}

OGRwkbGeometryType LayerTypeFor(OGRwkbGeometryType declared, esriGeometryType kind, const ShapeFacts& facts,
                                const Format& format) {
  const auto row = std::ranges::find(kTypes, kind, &TypeRow::kind);
  if (row == std::end(kTypes)) return declared;
  const OGRwkbGeometryType flat = OGR_GT_Flatten(declared);
  const bool declared_multiple = flat != wkbUnknown && OGR_GT_IsSubClassOf(flat, wkbGeometryCollection) != 0;
  const bool curves = facts.curves || OGR_GT_IsNonLinear(flat) != 0;
  const OGRwkbGeometryType multiple = curves ? row->multiple_curve : row->multiple;
  OGRwkbGeometryType type = curves ? row->single_curve : row->single;
  if (format.multiple_shapes) {
    if (declared_multiple || facts.multiple) type = multiple;
  } else if (format.updated_in_place) {
    type = row->single;  // the layer of a shapefile holds shapes of several parts, too
  } else if (facts.multiple && facts.single) {
    return wkbUnknown;
  } else if (facts.multiple || (declared_multiple && !facts.single)) {
    type = multiple;
  }
  return OGR_GT_SetModifier(type, facts.z || OGR_GT_HasZ(declared) != 0, facts.m || OGR_GT_HasM(declared) != 0);
}

std::unique_ptr<OGRGeometry> FitShape(std::unique_ptr<OGRGeometry> shape, OGRwkbGeometryType type, const Format& format,
                                      std::int64_t oid, RunJournal& notes) {
  if (!shape) return shape;
  const bool takes_lines_alone = OGR_GT_Flatten(type) != wkbUnknown && OGR_GT_IsNonLinear(type) == 0;
  if (takes_lines_alone && shape->hasCurveGeometry() != 0) shape.reset(shape->getLinearGeometry());
  if (format.clockwise) TurnRings(*shape);
  if (format.uniform_shapes && !shape->IsEmpty()) {
    if (OGR_GT_HasZ(type) != 0 && shape->Is3D() == 0) {
      shape->set3D(TRUE);
      notes.NoteWarning(kHeightFilled, oid);
    }
    if (OGR_GT_HasM(type) != 0 && shape->IsMeasured() == 0 && !format.missing_measures) {
      shape->setMeasured(TRUE);
      notes.NoteWarning(kMeasureFilled, oid);
    }
  }
  if (OGR_GT_Flatten(shape->getGeometryType()) == wkbTriangle && !format.triangles) {
    shape.reset(OGRGeometryFactory::forceToPolygon(shape.release()));
  }
  if (OGR_GT_IsSubClassOf(OGR_GT_Flatten(type), wkbGeometryCollection) == 0) {
    const bool same_kind = OGR_GT_Flatten(shape->getGeometryType()) == OGR_GT_Flatten(type);
    if (!format.one_kind || same_kind) return shape;
    const OGRwkbGeometryType kind = OGR_GT_SetModifier(OGR_GT_Flatten(type), shape->Is3D(), shape->IsMeasured());
    return std::unique_ptr<OGRGeometry>(OGRGeometryFactory::forceTo(shape.release(), kind));
  }
  const bool is_multiple = OGR_GT_IsSubClassOf(shape->getGeometryType(), wkbGeometryCollection) != 0;
  const bool curves = OGR_GT_IsNonLinear(shape->getGeometryType()) != 0;
  if (is_multiple && curves == (OGR_GT_IsNonLinear(type) != 0)) return shape;
  const OGRwkbGeometryType own = OGR_GT_SetModifier(OGR_GT_Flatten(type), shape->Is3D(), shape->IsMeasured());
  shape.reset(OGRGeometryFactory::forceTo(shape.release(), own));
  return format.one_kind ? AsCurves(std::move(shape), OGR_GT_Flatten(type)) : std::move(shape);
}

KeptOfShapes WhatIsKept(OGRLayer& layer, const Format& format) {
  const bool z = format.untold_heights || layer.TestCapability(OLCZGeometries) != 0;
  return {layer.TestCapability(OLCCurveGeometries) != 0, z, layer.TestCapability(OLCMeasuredGeometries) != 0};
}

OGRwkbGeometryType KeptType(OGRwkbGeometryType type, const KeptOfShapes& kept) {
  const OGRwkbGeometryType lines = kept.curves ? type : OGR_GT_GetLinear(type);
  return OGR_GT_SetModifier(lines, kept.z && OGR_GT_HasZ(type) != 0, kept.m && OGR_GT_HasM(type) != 0);
}

std::vector<std::string> ForetoldOfShapes(OGRwkbGeometryType declared, const ShapeFacts& facts,
                                          const KeptOfShapes& kept) {
  std::vector<std::string> sentences;
  const bool curves = facts.curves || OGR_GT_IsNonLinear(declared) != 0;
  if (curves && !kept.curves) {
    sentences.emplace_back("Arcs are written as lines of many short segments: the format keeps no curves.");
  }
  if ((facts.z || OGR_GT_HasZ(declared) != 0) && !kept.z) {
    sentences.emplace_back("Heights (Z) of vertices are left out: the format keeps none.");
  }
  if ((facts.m || OGR_GT_HasM(declared) != 0) && !kept.m) {
    sentences.emplace_back("Measures (M) of vertices are left out: the format keeps none.");
  }
  return sentences;
}

void NoteHeights(const OGRGeometry& meant, const OGRGeometry& written, const ShapeFacts& facts,
                 const KeptOfShapes& kept, std::int64_t oid, RunJournal& notes) {
  if (kept.z && meant.Is3D() != 0 && written.Is3D() == 0) notes.NoteWarning(kHeightLost, oid);
  if (kept.m && meant.IsMeasured() != 0 && written.IsMeasured() == 0) notes.NoteWarning(kMeasureLost, oid);
  if (facts.z && meant.Is3D() == 0 && written.Is3D() != 0) notes.NoteWarning(kHeightFilled, oid);
}

}  // namespace tessarine::engine
