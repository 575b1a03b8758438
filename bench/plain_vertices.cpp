// SPDX-License-Identifier: GPL-2.0-or-later
// plain_vertices SOURCE OUTPUT.shp|gpkg|gdb: every vertex of SOURCE as a point with number, x, y and one carried field,
// by GDAL alone, in one transaction where the format has them. What `tessarine vertices --fields number` costs beyond
// it is ours.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cstdio>
#include <string>

namespace {

void WriteVertices(const OGRFeature& source, const OGRLineString& part, OGRLayer& output, int& number) {
  for (int index = 0; index < part.getNumPoints(); ++index) {
    OGRFeature feature(output.GetLayerDefn());
    const OGRPoint point(part.getX(index), part.getY(index));
    feature.SetGeometry(&point);
    feature.SetField(0, number++);
    feature.SetField(1, point.getX());
    feature.SetField(2, point.getY());
    feature.SetField(3, source.GetFieldAsInteger(0));
    if (output.CreateFeature(&feature) != OGRERR_NONE) std::exit(1);
  }
}

const char* DriverFor(const std::string& path) {
  if (path.ends_with(".gpkg")) return "GPKG";
  return path.ends_with(".gdb") ? "OpenFileGDB" : "ESRI Shapefile";
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("plain_vertices SOURCE OUTPUT.shp|gpkg|gdb\n", stderr);
    return 2;
  }
  GDALAllRegister();
  GDALDatasetUniquePtr source(GDALDataset::Open(argv[1], GDAL_OF_VECTOR));
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(DriverFor(argv[2]));
  GDALDatasetUniquePtr target(driver->Create(argv[2], 0, 0, 0, GDT_Unknown, nullptr));
  OGRLayer* input = source->GetLayer(0);
  OGRLayer* output = target->CreateLayer("vertices", input->GetSpatialRef(), wkbPoint);
  OGRFieldDefn number("Uniq_ID", OFTInteger), x("X_Coord", OFTReal), y("Y_Coord", OFTReal),
      carried("number", OFTInteger);
  if (std::string(argv[2]).ends_with(".shp")) {
    for (OGRFieldDefn* field : {&x, &y}) field->SetWidth(16), field->SetPrecision(8);
  }
  for (OGRFieldDefn* field : {&number, &x, &y, &carried}) output->CreateField(field);
  const bool in_transaction = output->TestCapability(OLCTransactions) != 0;
  if (in_transaction && output->StartTransaction() != OGRERR_NONE) return 1;
  int next = 1;
  for (const OGRFeatureUniquePtr& feature : input) {
    const OGRGeometry* geometry = feature->GetGeometryRef();
    if (const auto* polygon = dynamic_cast<const OGRPolygon*>(geometry)) {
      for (const OGRLinearRing* ring : *polygon) WriteVertices(*feature, *ring, *output, next);
    } else if (const auto* line = dynamic_cast<const OGRLineString*>(geometry)) {
      WriteVertices(*feature, *line, *output, next);
    }
  }
  if (in_transaction && output->CommitTransaction() != OGRERR_NONE) return 1;
}
