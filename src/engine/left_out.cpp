// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/left_out.h"

#include <algorithm>

#include "engine/engine_fault.h"
#include "engine/ogr_geometry.h"

namespace tessarine::engine {
namespace {

void ReadShapesOnly(OGRLayer& layer) {
  CPLStringList names;
  const OGRFeatureDefn& definition = *layer.GetLayerDefn();
  for (int index = 0; index < definition.GetFieldCount(); ++index) {
    names.AddString(definition.GetFieldDefn(index)->GetNameRef());
  }
  // Where that can't be had, attributes are read for nothing.
  static_cast<void>(layer.SetIgnoredFields(const_cast<const char**>(names.List())));
  layer.ResetReading();
}

}  // namespace

std::vector<LeftOutRecords> FindLeftOut(OgrSource& source) {
  std::vector<LeftOutRecords> kinds;
  LayerHandle handle = source.Read();
  const OGRwkbGeometryType type = handle.Layer().GetGeomType();
  if (type == wkbNone || ShapeTypeOf(type) != esriGeometryNull) return kinds;
  ReadShapesOnly(handle.Layer());
  const bool mixes = source.Kind() && !source.HasOnlyKind();
  const GdalErrorScope quiet;
  while (const OGRFeatureUniquePtr feature = handle.NextFeature()) {
    const OGRGeometry* shape = feature->GetGeometryRef();
    if (shape == nullptr ? !mixes : ShapeTypeOf(shape->getGeometryType()) != esriGeometryNull) continue;
    const std::string kind = shape == nullptr ? "" : shape->getGeometryName();
    auto known = std::ranges::find(kinds, kind, &LeftOutRecords::kind);
    if (known == kinds.end()) known = kinds.insert(known, {kind, {}});
    known->oids.push_back(feature->GetFID());
  }
  return kinds;
}

}  // namespace tessarine::engine
