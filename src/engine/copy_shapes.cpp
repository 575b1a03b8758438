#include "engine/copy_shapes.h"

#include <algorithm>

#include "engine/ogr_cursor.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

void LookAt(const OGRGeometry* shape, ShapeFacts& facts, OGREnvelope& extent) {
  if (shape == nullptr || shape->IsEmpty()) return;
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

ShapeFacts LookAtShapes(const std::shared_ptr<OgrClass>& source, const ChosenOids& chosen) {
  ShapeFacts facts;
  OGREnvelope extent;
  QueryFilter shapes_alone;
  shapes_alone.SubFields = ",";
  ReadingCursor cursor(source, source->Source()->Read(), &shapes_alone, true);
  while (const OgrFeatureHandle feature = cursor.NextOgr()) {
    EndIfStopped();
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

std::unique_ptr<OGRGeometry> FitShape(std::unique_ptr<OGRGeometry> shape, OGRwkbGeometryType type,
                                      const Format& format) {
  if (!shape) return shape;
  if (format.uniform_shapes) {
    if (OGR_GT_HasZ(type) != 0) shape->set3D(TRUE);
    if (OGR_GT_HasM(type) != 0) shape->setMeasured(TRUE);
  }
  if (OGR_GT_IsSubClassOf(OGR_GT_Flatten(type), wkbGeometryCollection) == 0) return shape;
  const bool is_multiple = OGR_GT_IsSubClassOf(shape->getGeometryType(), wkbGeometryCollection) != 0;
  const bool curves = OGR_GT_IsNonLinear(shape->getGeometryType()) != 0;
  if (is_multiple && curves == (OGR_GT_IsNonLinear(type) != 0)) return shape;
  const OGRwkbGeometryType own = OGR_GT_SetModifier(OGR_GT_Flatten(type), shape->Is3D(), shape->IsMeasured());
  return std::unique_ptr<OGRGeometry>(OGRGeometryFactory::forceTo(shape.release(), own));
}

std::vector<std::string> ForetoldOfShapes(OGRwkbGeometryType declared, const ShapeFacts& facts, OGRLayer& layer) {
  std::vector<std::string> sentences;
  const bool curves = facts.curves || OGR_GT_IsNonLinear(declared) != 0;
  if (curves && layer.TestCapability(OLCCurveGeometries) == 0) {
    sentences.emplace_back("Arcs are written as lines of many short segments: the format keeps no curves.");
  }
  if ((facts.m || OGR_GT_HasM(declared) != 0) && layer.TestCapability(OLCMeasuredGeometries) == 0) {
    sentences.emplace_back("Measures (M) of vertices are left out: the format keeps none.");
  }
  return sentences;
}

}  // namespace tessarine::engine
