// SPDX-License-Identifier: GPL-2.0-or-later
// plain_rewrite FILE: reads every feature and writes one double field of it back, whole features through OGR in one
// transaction. What a program does that has nothing to compute.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("plain_rewrite FILE\n", stderr);
    return 2;
  }
  GDALAllRegister();
  GDALDatasetUniquePtr data(GDALDataset::Open(argv[1], GDAL_OF_VECTOR | GDAL_OF_UPDATE));
  OGRLayer* layer = data->GetLayer(0);
  const int field = layer->GetLayerDefn()->GetFieldIndex("value");
  const bool transaction = data->StartTransaction() == OGRERR_NONE;
  for (GIntBig id = 0, left = layer->GetFeatureCount(); left > 0; ++id) {
    OGRFeatureUniquePtr feature(layer->GetFeature(id));
    if (!feature) continue;
    --left;
    feature->SetField(field, feature->GetFieldAsDouble(field) + 1.0);
    if (layer->SetFeature(feature.get()) != OGRERR_NONE) std::exit(1);
  }
  if (transaction && data->CommitTransaction() != OGRERR_NONE) std::exit(1);
}
