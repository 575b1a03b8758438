// SPDX-License-Identifier: GPL-2.0-or-later
// plain_topology union|polygonize SOURCE OUTPUT.shp: reads all shapes, joins them with GEOS (one union), or nodes and
// polygonizes lines, and writes the result. The floor of `tessarine combine` and `tessarine build-polygons`.
#include <gdal_priv.h>
#include <geos_c.h>
#include <ogrsf_frmts.h>

#include <cstdio>
#include <cstring>
#include <vector>

namespace {

void Write(OGRLayer& layer, const GEOSGeometry* geometry, GEOSContextHandle_t geos) {
  OGRFeature feature(layer.GetLayerDefn());
  feature.SetGeometryDirectly(OGRGeometryFactory::createFromGEOS(geos, const_cast<GEOSGeometry*>(geometry)));
  if (layer.CreateFeature(&feature) != OGRERR_NONE) std::exit(1);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("plain_topology union|polygonize SOURCE OUTPUT.shp\n", stderr);
    return 2;
  }
  const bool polygonize = std::strcmp(argv[1], "polygonize") == 0;
  GDALAllRegister();
  GEOSContextHandle_t geos = GEOS_init_r();
  GDALDatasetUniquePtr source(GDALDataset::Open(argv[2], GDAL_OF_VECTOR));
  OGRLayer* input = source->GetLayer(0);
  std::vector<GEOSGeometry*> shapes;
  for (const OGRFeatureUniquePtr& feature : input) shapes.push_back(feature->GetGeometryRef()->exportToGEOS(geos));
  GEOSGeometry* all =
      GEOSGeom_createCollection_r(geos, GEOS_GEOMETRYCOLLECTION, shapes.data(), static_cast<unsigned>(shapes.size()));
  GEOSGeometry* joined = GEOSUnaryUnion_r(geos, all);
  GEOSGeom_destroy_r(geos, all);

  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
  GDALDatasetUniquePtr target(driver->Create(argv[3], 0, 0, 0, GDT_Unknown, nullptr));
  OGRLayer* output =
      target->CreateLayer("result", input->GetSpatialRef(),
                          polygonize || GEOSGeom_getDimensions_r(geos, joined) == 2 ? wkbPolygon : wkbLineString);
  OGRFieldDefn number("number", OFTInteger);
  output->CreateField(&number);
  if (!polygonize) {
    Write(*output, joined, geos);
  } else {
    GEOSGeometry* regions = GEOSPolygonize_r(geos, &joined, 1);
    for (int index = 0; index < GEOSGetNumGeometries_r(geos, regions); ++index) {
      Write(*output, GEOSGetGeometryN_r(geos, regions, index), geos);
    }
    GEOSGeom_destroy_r(geos, regions);
  }
  GEOSGeom_destroy_r(geos, joined);
  GEOS_finish_r(geos);
}
