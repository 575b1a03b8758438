// SPDX-License-Identifier: GPL-2.0-or-later
// plain_copy SOURCE OUTPUT.shp: reads every feature and writes it, by GDAL alone: the floor of a conversion that gives
// one feature for each.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("plain_copy SOURCE OUTPUT.shp\n", stderr);
    return 2;
  }
  GDALAllRegister();
  GDALDatasetUniquePtr source(GDALDataset::Open(argv[1], GDAL_OF_VECTOR));
  OGRLayer* input = source->GetLayer(0);
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("ESRI Shapefile");
  GDALDatasetUniquePtr target(driver->Create(argv[2], 0, 0, 0, GDT_Unknown, nullptr));
  OGRLayer* output = target->CreateLayer("copy", input->GetSpatialRef(), input->GetGeomType());
  OGRFeatureDefn* fields = input->GetLayerDefn();
  for (int index = 0; index < fields->GetFieldCount(); ++index) output->CreateField(fields->GetFieldDefn(index));
  for (const OGRFeatureUniquePtr& feature : input) {
    OGRFeature copy(output->GetLayerDefn());
    copy.SetFrom(feature.get());
    if (output->CreateFeature(&copy) != OGRERR_NONE) std::exit(1);
  }
}
